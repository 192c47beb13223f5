#include "tests/reference/Comparison.h"

#include <array>
#include <memory>
#include <utility>

#include "tests/reference/Navigators.h"
#include "tests/reference/Notation.h"
#include "tests/reference/PlainNavigator.h"
#include "tests/reference/State.h"

namespace tavrel::reference {
namespace {

constexpr std::size_t requestsBetweenFullLooks = 128;

/// One navigator twice: plain, and as it is tried.
struct Pair {
  std::unique_ptr<Respondent> reference, navigator;
  PlainEngine* plain = nullptr;
  CTavrel* engine = nullptr;
};

template <typename Plain, typename Tried>
Pair pairOf(const std::string& directory, ChartFiles& files, Behaviours& met) {
  auto plain = std::make_unique<Plain>(directory, files, met);
  auto tried = std::make_unique<Tried>(directory);
  PlainEngine* const plainEngine = &plain->engine;
  CTavrel* const engine = &tried->engine();
  return {std::move(plain), std::move(tried), plainEngine, engine};
}

std::string withDirectory(std::string text, const std::string& directory) {
  const std::string placeholder = "{here}";
  const std::size_t at = text.find(placeholder);
  return at == std::string::npos ? text : text.replace(at, placeholder.size(), directory);
}

std::string asOneText(const Answer& answer) {
  std::string text;
  for (const std::string& line : answer) text += (text.empty() ? "" : "\n") + line;
  return text.empty() ? "nothing" : text;
}

void note(const Reply& reply, Behaviours& met) {
  switch (reply.thrown) {
    case Thrown::nothing:
      return;
    case Thrown::outOfRange:
      return met.meet(Behaviour::throwsOutOfRange);
    case Thrown::startText:
      return met.meet(Behaviour::throwsStartText);
    case Thrown::resetText:
      return met.meet(Behaviour::throwsResetText);
    case Thrown::lengthError:
      return met.meet(Behaviour::throwsLengthError);
    case Thrown::invalidArgument:
      return met.meet(Behaviour::throwsInvalidArgument);
  }
}

/// A dialogue while it is played.
class Play {
 public:
  Play(Front front, ChartFiles& files, Behaviours& met) : front_(front), files_(files), met_(met) {
    files_.clear();
  }

  std::optional<Difference> step(const Request& request, std::size_t number) {
    if (performOnFiles(request)) return std::nullopt;
    if (request.what == What::makeNavigator) {
      makeNavigator(request);
      return std::nullopt;
    }
    Pair& pair = pairs_.at(request.navigator);
    if (!pair.reference) return std::nullopt;
    const Reply expected = pair.reference->ask(request);
    const Reply got = pair.navigator->ask(request);
    note(expected, met_);
    if (!(expected == got)) {
      return Difference{number, "answer", asOneText(answerOf(request, expected)),
                        asOneText(answerOf(request, got))};
    }
    return placed(number, number % requestsBetweenFullLooks == 0
                              ? differenceAnywhere(*pair.plain, *pair.engine)
                              : differenceAtCursor(*pair.plain, *pair.engine));
  }

  std::optional<Difference> lookEverywhere(std::size_t number) const {
    for (const Pair& pair : pairs_) {
      if (!pair.reference) continue;
      if (auto found = placed(number, differenceAnywhere(*pair.plain, *pair.engine))) return found;
    }
    return std::nullopt;
  }

  /// What the reference alone answers.
  Answer answer(const Request& request) {
    if (performOnFiles(request)) return {};
    if (request.what == What::makeNavigator) {
      makeNavigator(request);
      return {};
    }
    Pair& pair = pairs_.at(request.navigator);
    return pair.reference ? answerOf(request, pair.reference->ask(request)) : Answer();
  }

 private:
  static std::optional<Difference> placed(std::size_t number,
                                          std::optional<StateDifference> difference) {
    if (!difference) return std::nullopt;
    return Difference{number, difference->what, difference->reference, difference->navigator};
  }

  bool performOnFiles(const Request& request) {
    if (request.what == What::writeChart) {
      files_.write(request.text, request.file);
    } else if (request.what == What::removeChart) {
      files_.remove(request.text);
    } else if (request.what == What::makeDirectory) {
      files_.makeDirectory(request.text);
    } else {
      return false;
    }
    return true;
  }

  void makeNavigator(const Request& request) {
    const std::string directory = withDirectory(request.text, files_.directory());
    if (directory.empty() || directory.back() != '/') met_.meet(Behaviour::directoryWithoutEnd);
    pairs_.at(request.navigator) =
        front_ == Front::facade
            ? pairOf<PlainNavigator, FacadeRespondent>(directory, files_, met_)
            : pairOf<PlainEngineRespondent, EngineRespondent>(directory, files_, met_);
  }

  Front front_;
  ChartFiles& files_;
  Behaviours& met_;
  std::array<Pair, mostNavigators> pairs_;
};

}  // namespace

std::optional<Difference> compare(const Dialogue& dialogue, ChartFiles& files, Behaviours* met) {
  Behaviours ignored;
  Play play(dialogue.front, files, met == nullptr ? ignored : *met);
  for (std::size_t i = 0; i < dialogue.requests.size(); ++i) {
    if (auto difference = play.step(dialogue.requests[i], i)) return difference;
  }
  return play.lookEverywhere(dialogue.requests.size());
}

std::string inNotation(const Dialogue& dialogue, ChartFiles& files) {
  Behaviours ignored;
  Play play(dialogue.front, files, ignored);
  std::string text;
  for (const Request& request : dialogue.requests) {
    text += lineOf(request, dialogue.front) + "\n";
    for (const std::string& line : play.answer(request)) text += "  " + line + "\n";
    if (request.what == What::writeChart) text += "\n";
  }
  return text;
}

}  // namespace tavrel::reference
