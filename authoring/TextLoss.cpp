#include "authoring/TextLoss.h"

#include <algorithm>
#include <string>

#include "authoring/BraceScan.h"
#include "authoring/SourceKeys.h"
#include "authoring/YamlTraps.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t nowhere = std::string_view::npos;

std::size_t endOfLine(std::string_view bytes, std::size_t offset) {
  return std::min(bytes.find('\n', offset), bytes.size());
}

// What stands there up to the end of the line, without the blanks at its end.
std::string_view restOfLine(std::string_view bytes, std::size_t offset) {
  const std::string_view rest = bytes.substr(offset, endOfLine(bytes, offset) - offset);
  return rest.substr(0, rest.find_last_not_of(' ') + 1);
}

Cause droppedAt(std::size_t offset) {
  return {Code::mustBeQuoted, offset,
          "YAML takes # behind a blank for a comment, and drops what follows",
          std::string(quoteIt) + ", or put the comment on a line of its own"};
}

Cause remarkAt(std::size_t offset) {
  return {Code::mustBeQuoted, offset, "YAML takes a line that begins with # for a comment",
          std::string(quoteIt) + ", or write no more blanks before a comment than before the key"};
}

// A remark between a key and its text, where the text stands on a later line.
std::optional<Cause> lossBefore(const SourceFile& file, std::size_t key, std::size_t begin) {
  const std::size_t keyLine = file.placeOf(key).line, last = file.placeOf(begin).line;
  const std::size_t keyIndent = key - file.startOf(keyLine);
  for (std::size_t line = keyLine + 1; line < last; ++line) {
    const std::size_t first = file.line(line).find_first_not_of(' ');
    if (first != nowhere && first > keyIndent) {
      return remarkAt(file.startOf(line) + first);
    }
  }
  return std::nullopt;
}

// "|2" and ">12" are blocks with a number, which nobody means.
std::optional<Cause> lossInHeader(std::string_view bytes, std::size_t begin) {
  const std::string_view header = bytes.substr(begin, endOfLine(bytes, begin) - begin);
  const std::string_view signs = header.substr(0, header.find_first_of(" \r"));
  if (signs.find_first_of("0123456789") == nowhere) return std::nullopt;
  return Cause{Code::mustBeQuoted, begin,
               "YAML takes a text that begins with " + std::string(1, header[0]) + " for a block",
               quoteIt};
}

// A text without quotes, line by line.
class PlainText {
 public:
  PlainText(const SourceFile& file, std::size_t begin, std::string_view text)
      : bytes_(file.bytes()), at_(begin), left_(text) {}

  std::optional<Cause> loss(std::size_t keyIndent) {
    for (;;) {
      const std::string_view line = restOfLine(bytes_, at_);
      const std::size_t remark = commentBehind(line, 0);
      if (remark != nowhere) return droppedAt(at_ + remark);
      left_.remove_prefix(std::min(line.size(), left_.size()));
      left_.remove_prefix(std::min(left_.find_first_not_of(" \n"), left_.size()));
      if (left_.empty()) break;
      at_ = bytes_.find_first_not_of(" \n\r", at_ + line.size());
      if (at_ == nowhere) return std::nullopt;
      if (const std::string_view key = keyAt(bytes_, at_); isBoxKey(key)) return glued(key);
    }
    return remarkBehind(keyIndent);
  }

 private:
  Cause glued(std::string_view key) const {
    return {Code::colonWithoutBlank, at_ + key.size(),
            "a blank is missing behind the colon of " + std::string(key),
            "write a blank behind it"};
  }

  // On the next line, deeper than the key.
  std::optional<Cause> remarkBehind(std::size_t keyIndent) const {
    const std::size_t start = endOfLine(bytes_, at_) + 1;
    if (start >= bytes_.size()) return std::nullopt;
    const std::size_t first = bytes_.find_first_not_of(' ', start);
    if (first == nowhere || bytes_[first] != '#' || first - start <= keyIndent) return std::nullopt;
    return remarkAt(first);
  }

  std::string_view bytes_;
  std::size_t at_;         // where the rest of the text begins
  std::string_view left_;  // the rest, as YAML has read it
};

}  // namespace

std::optional<Cause> lossIn(const SourceFile& file, std::size_t key, std::size_t begin,
                            std::string_view text) {
  const char first = begin < file.bytes().size() ? file.bytes()[begin] : '"';
  if (first == '|' || first == '>') return lossInHeader(file.bytes(), begin);
  if (std::optional<Cause> loss = lossBefore(file, key, begin)) return loss;
  if (first == '"' || first == '\'') return std::nullopt;
  const std::size_t keyIndent = file.placeOf(key).column - 1;
  return PlainText(file, begin, text).loss(keyIndent);
}

}  // namespace tavrel::authoring
