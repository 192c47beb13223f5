#include "hands/Score.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace tavrel::hands {
namespace {

constexpr std::string_view title = "tavrel quiz score 1";

// More answers than anybody gives; numbers beyond are damage.
constexpr std::uint32_t mostAnswers = 1'000'000'000;

// Why bytes are no score.
struct Unreadable {
  std::string why;
};

// The text up to a separator, which is taken away with it.
std::string_view take(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

std::uint32_t takeNumber(std::string_view& text) {
  const std::string_view word = take(text, ' ');
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  const bool isWhole = error == std::errc() && end == word.data() + word.size();
  if (!isWhole || number > mostAnswers) throw Unreadable{"a number is missing"};
  return number;
}

// "RespNT 3 2 57 1 bid-2c"
std::pair<EndName, EndScore> endIn(std::string_view line, std::uint32_t answers) {
  EndName name;
  EndScore score;
  name.chart = take(line, ' ');
  score.asked = takeNumber(line);
  score.right = takeNumber(line);
  score.last = takeNumber(line);
  score.inRow = takeNumber(line);
  name.end = line;
  if (name.chart.empty() || name.end.empty()) throw Unreadable{"a name is missing"};
  const bool isPossible = score.asked > 0 && score.right <= score.asked &&
                          score.inRow <= std::min(score.right, Score::mostInRow) &&
                          score.last > 0 && score.last <= answers;
  if (!isPossible) throw Unreadable{"its numbers contradict one another"};
  return {name, score};
}

// Lines end where a name can't.
std::string inOneLine(std::string name) {
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return c < ' '; }, ' ');
  return name;
}

EndName inOneLine(const EndName& end) { return {inOneLine(end.chart), inOneLine(end.end)}; }

std::size_t drawn(const std::vector<std::size_t>& some, Random& random) {
  return some[random.below(static_cast<std::uint32_t>(some.size()))];
}

}  // namespace

std::variant<Score, std::string> Score::read(std::string_view bytes) {
  Score score;
  std::size_t number = 1;
  try {
    if (take(bytes, '\n') != title) throw Unreadable{"it begins otherwise"};
    ++number;
    if (take(bytes, ' ') != "answers") throw Unreadable{"the number of answers is missing"};
    std::string_view answers = take(bytes, '\n');
    score.answers_ = takeNumber(answers);
    while (!bytes.empty()) {
      ++number;
      if (bytes.find('\n') == std::string_view::npos) throw Unreadable{"it breaks off"};
      if (!score.ends_.insert(endIn(take(bytes, '\n'), score.answers_)).second) {
        throw Unreadable{"an end stands there twice"};
      }
    }
    return score;
  } catch (const Unreadable& unreadable) {
    return unreadable.why + " in line " + std::to_string(number);
  }
}

std::string Score::bytes() const {
  std::string text = std::string(title) + "\nanswers " + std::to_string(answers_) + "\n";
  for (const auto& [name, end] : ends_) {
    text += name.chart;
    for (const std::uint32_t number : {end.asked, end.right, end.last, end.inRow}) {
      text += " " + std::to_string(number);
    }
    text += " " + name.end + "\n";
  }
  return text;
}

EndScore Score::of(const EndName& end) const {
  const auto found = ends_.find(inOneLine(end));
  return found == ends_.end() ? EndScore{} : found->second;
}

void Score::note(const EndName& end, bool isRight) {
  if (answers_ == mostAnswers) return;
  EndScore& score = ends_[inOneLine(end)];
  score.last = ++answers_;
  ++score.asked;
  if (isRight) ++score.right;
  score.inRow = isRight ? std::min(score.inRow + 1, mostInRow) : 0;
}

std::uint64_t Score::forget(std::string_view chart) {
  std::uint64_t answers = 0;
  for (auto end = ends_.begin(); end != ends_.end();) {
    if (end->first.chart != chart) {
      ++end;
      continue;
    }
    answers += end->second.asked;
    end = ends_.erase(end);
  }
  if (ends_.empty()) answers_ = 0;
  return answers;
}

std::size_t Score::next(const std::vector<EndName>& ends, Random& random) const {
  std::vector<std::size_t> missed, unknown, due, rested, all;
  const std::size_t resting = std::min<std::size_t>(3, ends.size() / 2);
  for (std::size_t i = 0; i < ends.size(); ++i) {
    const EndScore end = of(ends[i]);
    all.push_back(i);
    if (end.asked == 0) {
      unknown.push_back(i);
    } else if (age(end) >= intervals[end.inRow]) {
      (end.inRow == 0 ? missed : due).push_back(i);
    } else if (age(end) > resting) {
      rested.push_back(i);
    }
  }
  const bool isForMissed = answers_ % 2 == 1;
  if (isForMissed && !missed.empty()) return drawn(missed, random);
  due.insert(due.end(), missed.begin(), missed.end());
  for (const auto* some : {&unknown, &due, &rested}) {
    if (!some->empty()) return drawn(*some, random);
  }
  return drawn(all, random);
}

}  // namespace tavrel::hands
