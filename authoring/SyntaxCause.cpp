#include "authoring/SyntaxCause.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/BraceScan.h"
#include "authoring/Invisible.h"
#include "authoring/SourceKeys.h"
#include "authoring/YamlTraps.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t nowhere = std::string_view::npos;
constexpr std::size_t longestKey = 1'000;  // YAML reads little more than that

using Found = std::optional<Cause>;

bool isNothingOrRemark(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == nowhere || text[first] == '#';
}

// The colon behind the key of a line, nowhere if the line has none.
std::size_t colonOf(std::string_view line, std::size_t indent) {
  if (line[indent] == '{' || line[indent] == '[') return nowhere;
  std::size_t from = indent;
  if (line[indent] == '"' || line[indent] == '\'') from = closingQuote(line, indent);
  if (from == nowhere) return nowhere;
  std::size_t colon = line.find(": ", from);
  if (colon == nowhere && line.back() == ':') colon = line.size() - 1;
  return colon < commentBehind(line, from) ? colon : nowhere;
}

// The letters, digits and hyphens that stand there.
std::string_view wordAt(std::string_view line, std::size_t offset) {
  std::size_t end = offset;
  while (end < line.size() && isKeyCharacter(line[end])) ++end;
  return line.substr(offset, end - offset);
}

class LineScan {
 public:
  explicit LineScan(const SourceFile& file) : file_(file) {}

  Found run(std::size_t lastLine) {
    for (number_ = 1; number_ <= lastLine; ++number_) {
      if (Found cause = lookAtLine()) return cause;
    }
    return std::nullopt;
  }

 private:
  enum class Holds : std::uint8_t { nothing, text, block, other };

  // The keys of a map, of which the last was read.
  struct Level {
    std::size_t indent;
    std::size_t line;  // of the key
    std::string_view key;
    Holds holds = Holds::nothing;  // its value
    std::size_t textLine = 0;      // where a text begins
    std::size_t remark = nowhere;  // the offset in the file of one that ends the text
  };

  Found lookAtLine() {
    line_ = file_.line(number_);
    indent_ = line_.find_first_not_of(' ');
    if (indent_ == nowhere) return std::nullopt;
    if (line_[indent_] == '#') return passRemark();
    const std::string_view start = line_.substr(0, 3);
    if (start == "---" || start == "..." || line_[0] == '%') return std::nullopt;
    const std::size_t colon = colonOf(line_, indent_);
    const bool isList = line_[indent_] == '-' && line_.substr(indent_ + 1, 1) <= " ";
    if (colon != nowhere && !isList) return lookAtKey(colon);
    if (isList && belongsToAList()) return lookAtItem();
    if (goesOn(isList)) return goOn();
    return lookAtRest(isList);
  }

  // Behind a text and indented as it is: YAML reads no more of the text.
  Found passRemark() {
    if (goesOn(false) && levels_.back().holds == Holds::text) endText(indent_);
    return std::nullopt;
  }

  void endText(std::size_t remark) {
    if (levels_.back().remark == nowhere) levels_.back().remark = file_.startOf(number_) + remark;
  }

  Cause causeAt(Code code, std::size_t column, std::string text, std::string cure) const {
    return {code, file_.startOf(number_) + column, std::move(text), std::move(cure)};
  }

  // --- lines with a key -----------------------------------------------------------

  Found lookAtKey(std::size_t colon) {
    if (const auto invisible = firstInvisible(line_.substr(indent_, colon - indent_))) {
      return invisibleAt(indent_ + invisible->offset, invisible->name);
    }
    const std::string_view key = line_.substr(indent_, colon - indent_);
    if (key.size() > longestKey) {
      return causeAt(Code::syntax, indent_, "the word before the colon has more than 1,000 letters",
                     "shorten it");
    }
    const bool isEmpty = isNothingOrRemark(line_.substr(colon + 1));
    bool isBack = false;
    for (; !levels_.empty() && levels_.back().indent > indent_; isBack = true) levels_.pop_back();
    if (levels_.empty() || levels_.back().indent < indent_) {
      if (Found cause = lookAtDeeper(isBack, key, colon, isEmpty)) return cause;
      levels_.push_back({indent_, number_, key});
    } else if (Found cause = lookAtMargin(key, isEmpty)) {
      return cause;
    }
    levels_.back() = {indent_, number_, key};
    hasBoxes_ = hasBoxes_ || (indent_ == 0 && key == "boxes");
    return isEmpty ? std::nullopt : lookAtValue(line_.find_first_not_of(' ', colon + 1));
  }

  // A line that is indented deeper than the key above it.
  Found lookAtDeeper(bool isBack, std::string_view key, std::size_t colon, bool isEmpty) const {
    if (levels_.empty()) return std::nullopt;
    const Level& above = levels_.back();
    if (isBack) {
      return causeAt(Code::indentation, indent_,
                     "the line has " + std::to_string(indent_) +
                         " blanks before it, and fits none of those above",
                     "give it as many as the keys that it stands with");
    }
    if (above.holds == Holds::nothing) return std::nullopt;
    if (levels_.size() == 1 && !hasBoxes_ && isEmpty) {
      return causeAt(Code::missingKey, indent_, "the chart has no boxes",
                     "write a line \"boxes:\" before this one");
    }
    if (above.textLine > above.line) return lostColon(above);
    if (levels_.size() == 2 && hasBoxes_ && isBoxKey(above.key)) return misplaced(above);
    if (!isBoxKey(key) && above.holds == Holds::text) {
      return causeAt(Code::mustBeQuoted, colon,
                     "YAML takes a colon with a blank behind it for the end of a key", quoteIt);
    }
    return causeAt(Code::indentation, indent_,
                   "the line is indented deeper than " + std::string(above.key) +
                       " above it, which has its value already",
                   "give it as many blanks as the keys that it stands with");
  }

  // "minor" alone on its line, where an id and a colon should be.
  Found lostColon(const Level& above) const {
    const std::string_view line = file_.line(above.textLine);
    const std::size_t start = line.find_first_not_of(' ');
    const std::string word(wordAt(line, start));
    if (word.empty() || !isNothingOrRemark(line.substr(start + word.size()))) {
      return Cause{Code::syntax, file_.startOf(above.textLine) + start, "this line has no key",
                   "write a key and a colon before it, or # if it is a remark"};
    }
    return Cause{Code::missingColon, file_.startOf(above.textLine) + start + word.size(),
                 "a colon is missing here, before what belongs to " + word, "write " + word + ":"};
  }

  // A key of a box among the ids of the boxes.
  Found misplaced(const Level& above) const {
    const std::string key(above.key);
    return Cause{Code::indentation, file_.startOf(above.line) + above.indent,
                 key + " stands where the ids of boxes stand",
                 "indent it like the other keys of its box"};
  }

  // An id among the keys of the chart.
  Found lookAtMargin(std::string_view key, bool isEmpty) const {
    if (indent_ > 0 || !isEmpty || !hasBoxes_ || isChartKey(key)) return std::nullopt;
    return causeAt(Code::indentation, 0,
                   std::string(key) + " stands where the keys of the chart stand",
                   "indent it like the ids of the other boxes");
  }

  // --- values ---------------------------------------------------------------------

  Found lookAtValue(std::size_t offset) {
    Level& level = levels_.back();
    level.textLine = number_;
    level.holds = Holds::other;
    switch (line_[offset]) {
      case '"':
      case '\'':
        return lookAtQuoted(offset);
      case '{':
      case '[':
        return lookAtBraces(offset);
      default:
        break;
    }
    if (const std::optional<Trap> trap = trapIn(line_); trap && trap->isCertain) {
      return causeAt(trap->code, trap->offset, trap->text, trap->cure);
    }
    const bool isBlock = line_[offset] == '|' || line_[offset] == '>';
    level.holds = isBlock ? Holds::block : Holds::text;
    if (isBlock) skipBlock();
    if (!isBlock) noteRemark(offset);
    return std::nullopt;
  }

  void noteRemark(std::size_t offset) {
    const std::size_t remark = commentBehind(line_, offset);
    if (remark != nowhere) endText(remark);
  }

  void skipBlock() {
    for (; number_ < file_.lineCount(); ++number_) {
      const std::string_view next = file_.line(number_ + 1);
      const std::size_t indent = next.find_first_not_of(' ');
      if (indent != nowhere && indent <= indent_) return;
    }
  }

  Found lookAtQuoted(std::size_t offset) {
    const std::size_t opening = file_.startOf(number_) + offset;
    const std::size_t closing = closingQuote(file_.bytes(), opening);
    if (closing == nowhere) {
      return Cause{Code::quoteNotClosed, opening, "this quote is never closed",
                   "close it at the end of the text"};
    }
    const std::size_t line = file_.placeOf(closing).line;
    const bool isClean = isNothingOrRemark(restBehind(closing + 1, line));
    if (!isClean && line > number_) return behindQuoted(opening, closing, line);
    if (!isClean) return trapOnLine();
    number_ = line;
    return std::nullopt;
  }

  // On a later line than the opening quote: the quote that closed it may be that of another text.
  Cause behindQuoted(std::size_t opening, std::size_t closing, std::size_t line) const {
    const std::string_view last = file_.line(line);
    const std::size_t first = last.find_first_not_of(' ');
    if (!keyAt(last, first).empty()) return closedTooLate(file_, opening, closing);
    return Cause{Code::mustBeQuoted, file_.bytes().find_first_not_of(' ', closing + 1),
                 goesOnBehind, quoteAll};
  }

  Found lookAtBraces(std::size_t offset) {
    BraceScan scan(file_, file_.startOf(number_) + offset);
    if (Found cause = scan.run()) return cause;
    const std::size_t line = file_.placeOf(scan.end()).line;
    const bool isClean = isNothingOrRemark(restBehind(scan.end(), line));
    if (!isClean && line == number_) {
      if (Found cause = trapOnLine()) return cause;
    }
    if (!isClean) return leftOver(scan.end());
    number_ = line;
    return std::nullopt;
  }

  Cause leftOver(std::size_t end) const {
    return {Code::syntax, file_.bytes().find_first_not_of(' ', end),
            "the brace before this closes the last that was open, and this belongs to nothing",
            "take it away, or write it before that brace"};
  }

  std::string_view restBehind(std::size_t offset, std::size_t line) const {
    return file_.line(line).substr(offset - file_.startOf(line));
  }

  Found trapOnLine() const {
    const std::optional<Trap> trap = trapIn(line_);
    if (!trap) return std::nullopt;
    return causeAt(trap->code, trap->offset, trap->text, trap->cure);
  }

  // --- lists ----------------------------------------------------------------------

  // The keys that are open where the line begins; the last of them may have a list.
  bool belongsToAList() {
    while (!levels_.empty() && levels_.back().indent > indent_) levels_.pop_back();
    return !levels_.empty() && isListKey(levels_.back().key) &&
           levels_.back().holds == Holds::nothing;
  }

  // What follows on later lines are the keys of a map, or more of the list.
  Found lookAtItem() {
    const std::size_t offset = line_.find_first_not_of(' ', indent_ + 1);
    if (offset == nowhere || line_[offset] == '#') return std::nullopt;
    const bool hasEnd = std::string_view("\"'{[").find(line_[offset]) != nowhere;
    if (!hasEnd) return trapOnLine();
    Found cause = lookAtValue(offset);
    levels_.back().holds = Holds::nothing;
    return cause;
  }

  // --- lines without a key --------------------------------------------------------

  // Whether a line may go on with the text above it, or be its first.
  bool goesOn(bool isList) const {
    if (levels_.empty() || levels_.back().indent >= indent_) return false;
    const Holds holds = levels_.back().holds;
    if (holds == Holds::nothing) return !isList && !isRemark() && !isBoxKey(keyAt(line_, indent_));
    return holds == Holds::text;
  }

  bool isRemark() const { return line_.substr(indent_, 2) == "//"; }

  Found goOn() {
    Level& level = levels_.back();
    if (level.remark != nowhere) {
      return Cause{Code::mustBeQuoted, level.remark,
                   "YAML takes this for a comment, which ends the text before it", quoteIt};
    }
    if (level.holds == Holds::nothing) {
      if (Found cause = lookAtFirst(level)) return cause;
      level.holds = Holds::text;
      level.textLine = number_;
    }
    noteRemark(indent_);
    return std::nullopt;
  }

  // A text that begins on the line below its key.
  Found lookAtFirst(const Level& level) const {
    const std::optional<Trap> trap = trapInValue(line_, indent_, level.key);
    if (!trap || !(trap->isCertain || line_[indent_] == '*')) return std::nullopt;
    return causeAt(trap->code, trap->offset, trap->text, trap->cure);
  }

  Found lookAtRest(bool isList) const {
    const std::string_view rest = line_.substr(indent_);
    if (const auto invisible = firstInvisible(rest); invisible && isAtSign(invisible->offset)) {
      return invisibleAt(indent_ + invisible->offset, invisible->name);
    }
    if (isList) {
      return causeAt(Code::wrongType, indent_, "a hyphen with a blank behind it begins a list",
                     "take it away: only auction and call have lists");
    }
    if (isRemark()) {
      return causeAt(Code::syntax, indent_, "a remark begins with #, and not with //",
                     "write # instead");
    }
    if (rest.substr(0, 3) == "```") {
      return causeAt(Code::syntax, indent_, "this line belongs to no chart", "take it away");
    }
    if (!keyAt(line_, indent_).empty()) return gluedColon();
    return lookAtWords();
  }

  // Whether an invisible character stands where a blank is wanted or nothing.
  bool isAtSign(std::size_t offset) const {
    return offset == 0 || line_[indent_ + offset - 1] == ':' || line_[indent_ + offset - 1] == ' ';
  }

  Found invisibleAt(std::size_t column, std::string_view name) const {
    return causeAt(Code::invisibleCharacter, column, std::string(name) + " stands here",
                   "take it away, and write a blank if one is wanted");
  }

  Found gluedColon() const {
    const std::string key(keyAt(line_, indent_));
    return causeAt(Code::colonWithoutBlank, indent_ + key.size(),
                   "a blank is missing behind the colon of " + key, "write a blank behind it");
  }

  Found lookAtWords() const {
    const std::string word(wordAt(line_, indent_));
    const bool isAlone = !word.empty() && isNothingOrRemark(line_.substr(indent_ + word.size()));
    if (isBoxKey(word) || isChartKey(word) || (isAlone && isFollowedByDeeper())) {
      return causeAt(Code::missingColon, indent_ + word.size(), "a colon is missing behind " + word,
                     "write " + word + ":");
    }
    const bool isSign = line_[indent_] == '}' || line_[indent_] == ']';
    if (isSign || levels_.empty() || !hasText(levels_.back().key)) return std::nullopt;
    return causeAt(Code::indentation, indent_,
                   "the line has to be indented deeper than " + std::string(levels_.back().key) +
                       ", if it belongs to it",
                   "write blanks before it");
  }

  bool isFollowedByDeeper() const {
    const std::string_view next = file_.line(number_ + 1);
    const std::size_t indent = next.find_first_not_of(' ');
    return indent != nowhere && indent > indent_;
  }

  const SourceFile& file_;
  std::size_t number_ = 1;  // of the line
  std::string_view line_;
  std::size_t indent_ = 0;
  std::vector<Level> levels_;
  bool hasBoxes_ = false;
};

}  // namespace

std::optional<Cause> causeOfSyntaxError(const SourceFile& file, std::size_t lastLine) {
  return LineScan(file).run(std::min(lastLine, file.lineCount()));
}

}  // namespace tavrel::authoring
