#include "replay.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "tests/support/ChartDirectory.h"
#include "tests/support/ExceptionText.h"
#include "tests/support/Named.h"

namespace tavrel {
namespace {

/// The exceptions' texts that callers may rely on; others are the library's own.
const char* const kPrescribedTexts[] = {"CTavrel::mStartNewPath()", "CTavrel::mSetStartLocation()"};

Answer outOfRange(const std::string& text) {
  const bool isPrescribed =
      std::count(std::begin(kPrescribedTexts), std::end(kPrescribedTexts), text) > 0;
  return {"throws out_of_range" + (isPrescribed ? " " + quote(text) : "")};
}

/// `text` with the directory put where it says `{name}`.
std::string withDirectory(std::string text, const std::string& name,
                          const std::filesystem::path& directory) {
  const std::string placeholder = "{" + name + "}";
  const std::size_t at = text.find(placeholder);
  return at == std::string::npos ? text : text.replace(at, placeholder.size(), directory.string());
}

class Replay {
 public:
  Replay(Player& player, const std::filesystem::path& charts) : player_(player), charts_(charts) {}

  Answer play(const Operation& operation) {
    const FileOperation* const change = kFileOperations.find(operation.name);
    if (change != nullptr) return perform(*change, operation);
    if (!operation.chart.empty()) throw NotationError("only a chart has lines with |");
    try {
      return player_.play(withDirectories(operation));
    } catch (const std::out_of_range& error) {
      return outOfRange(textOf(error));
    } catch (const std::length_error&) {
      return {"throws length_error"};
    } catch (const std::invalid_argument&) {
      return {"throws invalid_argument"};
    }
  }

 private:
  using FileOperation = void (*)(const ChartDirectory&, const std::string& name,
                                 const std::string& bytes);
  static const Named<FileOperation> kFileOperations;

  Answer perform(FileOperation change, const Operation& operation) const {
    Arguments arguments(operation);
    const std::string name = arguments.name();
    arguments.finish();
    change(here_, name, operation.chart);
    return {};
  }

  Operation withDirectories(Operation operation) const {
    if (operation.name != "Tavrel") return operation;
    for (Word& word : operation.arguments) {
      word.text = withDirectory(word.text, "here", here_.path());
      word.text = withDirectory(word.text, "charts", charts_);
    }
    return operation;
  }

  Player& player_;
  const std::filesystem::path& charts_;
  ChartDirectory here_;
};

const Named<Replay::FileOperation> Replay::kFileOperations = {
    {"chart", [](const ChartDirectory& here, const std::string& name,
                 const std::string& bytes) { here.write(name, bytes); }},
    {"removeChart", [](const ChartDirectory& here, const std::string& name,
                       const std::string&) { here.remove(name); }},
    {"directoryInsteadOfChart", [](const ChartDirectory& here, const std::string& name,
                                   const std::string&) { here.makeDirectory(name); }},
};

}  // namespace

std::vector<Answer> replay(const Conversation& conversation, Player& player,
                           const std::filesystem::path& charts) {
  Replay replay(player, charts);
  std::vector<Answer> answers;
  for (const Step& step : conversation.steps()) {
    try {
      answers.push_back(replay.play(step.operation));
    } catch (const NotationError& error) {
      throw ConversationError(conversation.name(), step.line, error.what());
    }
  }
  return answers;
}

}  // namespace tavrel
