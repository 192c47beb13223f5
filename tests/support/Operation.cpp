#include "tests/support/Operation.h"

#include <charconv>
#include <system_error>

namespace tavrel {
namespace {

bool isAssignment(const std::vector<Word>& words) {
  return words.size() > 2 && !words[1].isQuoted && words[1].text == "=";
}

}  // namespace

Operation parseOperation(const std::string& line) {
  Operation operation;
  std::vector<Word> words = wordsOf(line);
  if (isAssignment(words)) {
    operation.result = words[0].text;
    words.erase(words.begin(), words.begin() + 2);
  }
  if (words.empty() || words[0].isQuoted) throw NotationError("an operation must stand here");
  operation.name = words[0].text;
  if (const std::size_t dot = operation.name.find('.'); dot != std::string::npos) {
    operation.receiver = operation.name.substr(0, dot);
    operation.name.erase(0, dot + 1);
  }
  operation.arguments.assign(words.begin() + 1, words.end());
  return operation;
}

std::int64_t Arguments::integer() {
  const std::string& digits = take(false, "a number").text;
  std::int64_t value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [rest, error] = std::from_chars(digits.data(), end, value);
  if (error != std::errc() || rest != end) throw NotationError(digits + " is not a number");
  return value;
}

std::string Arguments::text() { return take(true, "a quoted string").text; }

std::string Arguments::name() { return take(false, "a name").text; }

void Arguments::finish() const {
  if (next_ != words_.size()) throw NotationError("too many arguments");
}

const Word& Arguments::take(bool isQuoted, const char* kind) {
  if (next_ == words_.size() || words_[next_].isQuoted != isQuoted) {
    throw NotationError(std::string(kind) + " must stand as argument " + std::to_string(next_ + 1));
  }
  return words_[next_++];
}

}  // namespace tavrel
