#include "authoring/FlowScan.h"

#include <algorithm>

#include "authoring/YamlTraps.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t nowhere = std::string_view::npos;

bool isBracket(char c) { return c == '[' || c == ']' || c == '{' || c == '}'; }

// Knows of YAML how texts begin and end, and no more. Where YAML would give up, it goes on as if
// a value began.
class FlowScan {
 public:
  FlowScan(std::string_view bytes, std::size_t deepest, std::size_t most)
      : bytes_(bytes), deepest_(deepest), most_(most) {}

  std::optional<Excess> run() {
    while (at_ < bytes_.size() && !excess_) {
      if (depth_ > 0) {
        stepBetweenBrackets();
      } else if (isAtLine_) {
        beginLine();
      } else {
        stepOnLine();
      }
    }
    return excess_;
  }

 private:
  char byteAt(std::size_t offset) const { return offset < bytes_.size() ? bytes_[offset] : '\n'; }
  bool isBlank(std::size_t offset) const { return byteAt(offset) == ' ' || byteAt(offset) == '\n'; }
  std::size_t endOfLine() const { return std::min(bytes_.find('\n', at_), bytes_.size()); }
  bool isRemark() const { return bytes_[at_] == '#' && (at_ == 0 || isBlank(at_ - 1)); }
  bool isEndOfKey() const { return bytes_[at_] == ':' && isBlank(at_ + 1); }

  void countValue() {
    if (++values_ > most_) excess_ = Excess{at_, false};
  }

  void open() {
    countValue();
    if (++depth_ > deepest_) excess_ = Excess{at_, true};
    ++at_;
  }

  // --- lines ----------------------------------------------------------------------

  void beginLine() {
    const std::size_t first = bytes_.find_first_not_of(' ', at_);
    indent_ = std::min(first, bytes_.size()) - at_;
    at_ += indent_;
    isAtLine_ = hasKey_ = false;
    if (byteAt(at_) == '\n') return;
    if (indent_ == 0 && bytes_.substr(at_, 3) == "---") at_ += 3;
    if (isInText_ && indent_ >= textIndent_) {
      at_ = endOfLine();
    } else {
      isInText_ = false;
    }
  }

  // At a place where a value may begin.
  void stepOnLine() {
    const char c = bytes_[at_];
    if (c == ' ') {
      ++at_;
    } else if (c == '\n') {
      isAtLine_ = true;
      ++at_;
    } else if (isRemark()) {
      at_ = endOfLine();
    } else if (isEndOfKey()) {
      hasKey_ = true;
      ++at_;
    } else if ((c == '-' || c == '?') && isBlank(at_ + 1)) {
      ++at_;
    } else {
      value(c);
    }
  }

  void value(char c) {
    if (c == '"' || c == '\'') {
      countValue();
      passQuoted();
    } else if (c == '|' || c == '>') {
      passBlock();
    } else if (c == '[' || c == '{') {
      open();
    } else if (c == '&' || c == '*' || c == '!') {
      while (!isBlank(at_)) ++at_;
    } else {
      passText();
    }
  }

  void passQuoted() {
    const std::size_t end = closingQuote(bytes_, at_);
    at_ = end == nowhere ? bytes_.size() : end + 1;
  }

  void passBlock() {
    for (;;) {
      at_ = endOfLine();
      const std::size_t next = bytes_.find_first_not_of(' ', std::min(at_ + 1, bytes_.size()));
      if (next == nowhere) at_ = bytes_.size();
      if (next == nowhere || (bytes_[next] != '\n' && next - at_ - 1 <= indent_)) return;
      at_ = next;
    }
  }

  // A key, or a text that may go on in the next line.
  void passText() {
    while (byteAt(at_) != '\n' && !isEndOfKey() && !isRemark()) ++at_;
    isInText_ = byteAt(at_) == '\n';
    textIndent_ = hasKey_ ? indent_ + 1 : std::max<std::size_t>(indent_, 1);
  }

  // --- brackets -------------------------------------------------------------------

  void stepBetweenBrackets() {
    const char c = bytes_[at_];
    if (c == '[' || c == '{') {
      open();
    } else if (c == ']' || c == '}') {
      --depth_;
      ++at_;
    } else if (c == ',') {
      countValue();
      ++at_;
    } else if (c == '"' || c == '\'') {
      passQuoted();
    } else if (isRemark()) {
      at_ = endOfLine();
    } else if (isBlank(at_) || isEndOfKey()) {
      ++at_;
    } else {
      passTextBetweenBrackets();
    }
  }

  void passTextBetweenBrackets() {
    do {
      ++at_;
    } while (byteAt(at_) != '\n' && byteAt(at_) != ',' && !isBracket(bytes_[at_]) &&
             !isEndOfKey() && !isRemark());
  }

  std::string_view bytes_;
  std::size_t deepest_, most_;
  std::size_t at_ = 0;
  std::size_t depth_ = 0;
  std::size_t values_ = 0;
  bool isAtLine_ = true;
  bool hasKey_ = false;    // before the place, on its line
  bool isInText_ = false;  // a text may go on in the line that begins
  std::size_t indent_ = 0, textIndent_ = 0;
  std::optional<Excess> excess_;
};

}  // namespace

std::optional<Excess> firstExcess(std::string_view bytes, std::size_t deepest, std::size_t most) {
  return FlowScan(bytes, deepest, most).run();
}

}  // namespace tavrel::authoring
