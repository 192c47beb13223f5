#include "authoring/BraceScan.h"

#include "authoring/YamlTraps.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t nowhere = std::string_view::npos;
constexpr std::string_view signs = ",{}[]";

bool isSign(char c) { return signs.find(c) != nowhere; }

// Whether a text ends as if another key began in it: `Bid 2♣, comment: `.
bool endsInKey(std::string_view text) {
  const std::size_t comma = text.rfind(',');
  if (comma == nowhere) return false;
  const std::size_t word = text.find_first_not_of(' ', comma + 1);
  if (word == nowhere) return false;
  const std::string_view key = keyAt(text, word);
  return !key.empty() && text.find_first_not_of(' ', word + key.size() + 1) == nowhere;
}

}  // namespace

std::string_view keyAt(std::string_view bytes, std::size_t offset) {
  std::size_t end = offset;
  while (end < bytes.size() && isKeyCharacter(bytes[end])) ++end;
  const bool hasColon = end > offset && end < bytes.size() && bytes[end] == ':';
  return hasColon ? bytes.substr(offset, end - offset) : std::string_view();
}

Cause closedTooLate(const SourceFile& file, std::size_t opening, std::size_t closing) {
  const std::string line = std::to_string(file.placeOf(closing).line);
  return {
      Code::quoteNotClosed, opening,
      "this quote is not closed before line " + line + ", where another text begins",
      file.bytes()[opening] == '"'
          ? "close it at the end of the text"
          : "close it at the end of the text; one that belongs to it wants double quotes around "
            "the text"};
}

BraceScan::BraceScan(const SourceFile& file, std::size_t offset)
    : file_(file), bytes_(file.bytes()), at_(offset) {}

std::optional<Cause> BraceScan::run() {
  do {
    if (std::optional<Cause> cause = step()) return cause;
  } while (!open_.empty() && at_ < bytes_.size());
  if (!open_.empty()) return notClosed();
  return std::nullopt;
}

std::optional<Cause> BraceScan::step() {
  const char c = bytes_[at_];
  if (c == ' ' || c == '\n') {
    ++at_;
  } else if (isRemark()) {
    if (isValue_ && isSeparated_) return droppedText();
    skipRemark();
  } else if (c == ',') {
    separate();
  } else if (c == '}' || c == ']') {
    open_.pop_back();
    separate();
    isSeparated_ = false;
  } else if (!isSeparated_ && c != ':') {
    return unseparated();
  } else if (c == '{' || c == '[') {
    open_.push_back(at_);
    separate();
  } else {
    return c == '"' || c == '\'' ? quoted() : plain();
  }
  return std::nullopt;
}

void BraceScan::separate() {
  ++at_;
  isSeparated_ = true;
  isValue_ = false;
  last_.reset();
}

// {text: #1 suit, …}
Cause BraceScan::droppedText() const {
  return {Code::mustBeQuoted, at_,
          "YAML takes a text that begins with # for a comment, and drops it", quoteIt};
}

void BraceScan::skipRemark() {
  const std::size_t end = bytes_.find('\n', at_);
  at_ = end == nowhere ? bytes_.size() : end;
}

std::optional<Cause> BraceScan::quoted() {
  const std::size_t end = closingQuote(bytes_, at_);
  if (end == nowhere) {
    return Cause{Code::quoteNotClosed, at_, "this quote is never closed",
                 "close it at the end of the text"};
  }
  last_ = Quoted{at_, end};
  at_ = end + 1;
  isSeparated_ = false;
  return std::nullopt;
}

// What a text without quotes can't begin with.
bool BraceScan::isKeptForItself() const {
  const char c = bytes_[at_];
  return std::string_view("|>%@`*&!").find(c) != nowhere ||
         ((c == '-' || c == '?') && byteAt(at_ + 1) == ' ');
}

// A word, or a text without quotes, up to the sign behind it.
std::optional<Cause> BraceScan::plain() {
  const std::size_t begin = at_;
  if (isItem()) return notClosed();
  if (isValue_ && isKeptForItself()) return unquoted(begin);
  for (; at_ < bytes_.size() && bytes_[at_] != '\n' && !isSign(bytes_[at_]); ++at_) {
    if (isEndOfKey(at_) || isRemark()) break;
    if (bytes_[at_] == ':' && byteAt(at_ + 1) == '"') {
      return Cause{Code::colonWithoutBlank, at_, "a blank is missing behind this colon",
                   "write a blank behind it"};
    }
  }
  if (!isEndOfKey(at_)) {
    // Such a text may go on in the next line; what is wrong with it is said elsewhere.
    isSeparated_ =
        byteAt(at_) == '\n' && keyAt(bytes_, bytes_.find_first_not_of(" \n", at_)).empty();
    return std::nullopt;
  }
  if (isValue_ && at_ > begin) {
    return unquoted(begin);
  }
  separate();
  isValue_ = true;
  return std::nullopt;
}

Cause BraceScan::unquoted(std::size_t begin) const {
  return {Code::unquotedInBraces, begin, wantsDoubleQuotes, quoteCureFor(bytes_.substr(begin))};
}

// Two things without a comma between them.
std::optional<Cause> BraceScan::unseparated() const {
  if (std::optional<Cause> cause = lateQuote()) return cause;
  const std::string_view key = keyAt(bytes_, at_);
  if (!key.empty() && isFirstOnLine(at_)) return notClosed();
  if (bytes_[at_] == ';') {
    return Cause{Code::missingComma, at_, "a semicolon stands here, where a comma has to",
                 "write a comma instead"};
  }
  if (!key.empty()) {
    return Cause{Code::missingComma, at_, "a comma is missing before " + std::string(key),
                 "write a comma between the two"};
  }
  if (last_) {
    return Cause{Code::mustBeQuoted, last_->end,
                 "the text in quotes ends with this quote, and goes on behind it",
                 "write \\\" for a quote within a text"};
  }
  return Cause{Code::missingComma, at_, "a comma or a closing brace is missing here",
               "write one before this"};
}

// Where the text in quotes before this place took in what isn't its own.
std::optional<Cause> BraceScan::lateQuote() const {
  if (!last_) return std::nullopt;
  const std::string_view text = bytes_.substr(last_->begin + 1, last_->end - last_->begin - 1);
  if (text.find('\n') != nowhere) return closedTooLate(file_, last_->begin, last_->end);
  if (!endsInKey(text)) return std::nullopt;
  return Cause{Code::quoteNotClosed, last_->begin,
               "this quote is not closed before the comma behind its text",
               "close it at the end of the text"};
}

Cause BraceScan::notClosed() const {
  const bool isBrace = bytes_[open_.back()] == '{';
  return {Code::braceNotClosed, open_.back(),
          isBrace ? "this brace is never closed" : "this bracket is never closed",
          std::string("write ") + (isBrace ? "}" : "]") + " behind what belongs to it"};
}

char BraceScan::byteAt(std::size_t offset) const {
  return offset < bytes_.size() ? bytes_[offset] : '\n';
}

// A hyphen that begins the next entry of a list, and no text.
bool BraceScan::isItem() const {
  if (bytes_.substr(at_, 2) != "- " || !isFirstOnLine(at_)) return false;
  return bytes_[bytes_.find_last_not_of(" \n", at_ - 1)] != ':';
}

bool BraceScan::isRemark() const { return bytes_[at_] == '#' && bytes_[at_ - 1] == ' '; }

bool BraceScan::isEndOfKey(std::size_t offset) const {
  const char next = byteAt(offset + 1);
  return byteAt(offset) == ':' && (next == ' ' || next == '\n' || isSign(next));
}

bool BraceScan::isFirstOnLine(std::size_t offset) const {
  const std::size_t before = bytes_.find_last_not_of(' ', offset - 1);
  return before != nowhere && bytes_[before] == '\n';
}

}  // namespace tavrel::authoring
