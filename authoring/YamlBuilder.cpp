#include "authoring/YamlBuilder.h"

#include <algorithm>
#include <string_view>

#include "authoring/BraceScan.h"
#include "authoring/InShort.h"
#include "authoring/SourceKeys.h"
#include "authoring/SourceScreening.h"
#include "authoring/TextLoss.h"
#include "authoring/YamlProblem.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t deepestNesting = 20;

using Kind = YamlValue::Kind;
using Style = YamlValue::Style;

// Whether nothing shows where a text ends.
bool isOpenText(const YamlValue& value) {
  const bool isQuoted = value.style == Style::singleQuoted || value.style == Style::doubleQuoted;
  return value.kind == Kind::text && !value.isInFlow && !isQuoted;
}

std::size_t firstLineOf(const YamlValue& item) { return item.place.line; }
const YamlValue& valueOf(const YamlValue& item) { return item; }
std::size_t firstLineOf(const YamlEntry& entry) { return entry.place.line; }
const YamlValue& valueOf(const YamlEntry& entry) { return entry.value; }

// Leaves out of the parts of a value what stands on a line or behind it, and a text before that
// line that may have been meant to end sooner or to go on.
template <typename Part, typename Cut>
bool cutParts(std::vector<Part>& parts, std::size_t line, const Cut& cutFrom) {
  const std::size_t all = parts.size();
  while (!parts.empty() &&
         (firstLineOf(parts.back()) >= line || valueOf(parts.back()).place.line >= line)) {
    parts.pop_back();
  }
  if (!parts.empty()) {
    cutFrom(parts.back());
    if (isOpenText(valueOf(parts.back()))) parts.pop_back();
  }
  return parts.size() < all;
}

void cutFrom(YamlValue& value, std::size_t line) {
  const bool hasLess =
      cutParts(value.entries, line, [line](YamlEntry& entry) { cutFrom(entry.value, line); }) ||
      cutParts(value.items, line, [line](YamlValue& item) { cutFrom(item, line); });
  value.isCutShort = value.isCutShort || hasLess;
}

}  // namespace

void YamlBuilder::forgetOpenBrackets() {
  const auto bracket = std::find_if(open_.begin(), open_.end(),
                                    [](const Open& open) { return open.value.isInFlow; });
  if (bracket != open_.end()) found_.forgetFrom(bracket->foundBefore);
}

void YamlBuilder::breakOff() {
  for (; !open_.empty(); open_.pop_back()) {
    YamlValue& value = open_.back().value;
    value.isCutShort = true;
    if (value.isInFlow) continue;
    if (open_.size() == 1) {
      document_ = std::move(value);
    } else if (Open& map = open_[open_.size() - 2]; map.hasKey && !map.isKeyDropped) {
      map.value.entries.push_back({std::move(map.key), map.keyPlace, std::move(value)});
    }
  }
  if (document_) document_->isCutShort = true;
}

void YamlBuilder::breakOff(std::size_t line) {
  breakOff();
  if (!document_) return;
  if (document_->place.line >= line) return document_.reset();
  cutFrom(*document_, line);
}

void YamlBuilder::OnDocumentStart(const YAML::Mark& mark) {
  if (documents_++ == 0) return;
  found_.add(Code::secondDocument, placeOf(mark), "a second document begins here",
             "write one chart a file");
  throw Unreadable();
}

void YamlBuilder::OnNull(const YAML::Mark& mark, YAML::anchor_t anchor) {
  count(mark);
  const bool isInFlow = !open_.empty() && open_.back().value.isInFlow;
  if (anchor != YAML::NullAnchor && isInFlow) {
    reportAnchor(file_.bytes().rfind('&', offsetOf(mark)));
  } else {
    reportNull(mark);
  }
  drop();
}

void YamlBuilder::OnAlias(const YAML::Mark& mark, YAML::anchor_t) {
  count(mark);
  found_.add(Code::alias, placeOf(mark), "aliases are not read", quoteIt);
  drop();
}

void YamlBuilder::OnScalar(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                           const std::string& text) {
  count(mark);
  if (!isPlainNode(mark, tag, anchor) || isAlias(mark)) return drop(text);
  YamlValue value;
  value.place = placeOf(mark);
  value.isInFlow = !open_.empty() && open_.back().value.isInFlow;
  value.style = styleAt(mark);
  value.text = text;
  checkQuotes(mark, value);
  add(std::move(value));
}

void YamlBuilder::OnSequenceStart(const YAML::Mark& mark, const std::string& tag,
                                  YAML::anchor_t anchor, YAML::EmitterStyle::value style) {
  begin(Kind::list, mark, tag, anchor, style);
}

void YamlBuilder::OnMapStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                             YAML::EmitterStyle::value style) {
  begin(Kind::map, mark, tag, anchor, style);
}

std::size_t YamlBuilder::offsetOf(const YAML::Mark& mark) const {
  const auto line =
      std::min(static_cast<std::size_t>(std::max(mark.line, 0)) + 1, file_.lineCount());
  return file_.startOf(line) + static_cast<std::size_t>(std::max(mark.column, 0));
}

char YamlBuilder::byteAt(const YAML::Mark& mark) const {
  const std::size_t offset = offsetOf(mark);
  return offset < file_.bytes().size() ? file_.bytes()[offset] : '\0';
}

void YamlBuilder::count(const YAML::Mark& mark) {
  if (++values_ <= mostValues) return;
  sayTooManyValues(placeOf(mark), found_);
  throw Unreadable();
}

bool YamlBuilder::isPlainNode(const YAML::Mark& mark, const std::string& tag,
                              YAML::anchor_t anchor) {
  // The reader of YAML gives texts in quotes the tag "!" too.
  if (tag != "?" && (tag != "!" || byteAt(mark) == '!')) {
    found_.add(Code::tag, placeOf(mark),
               "YAML takes " + wordAt(mark) + " for a tag, which would be dropped", quoteIt);
    return false;
  }
  if (anchor == YAML::NullAnchor) return true;
  reportAnchor(offsetOf(mark));
  return false;
}

void YamlBuilder::reportAnchor(std::size_t offset) {
  found_.add(Code::anchor, file_.placeOf(offset),
             "YAML takes this for an anchor, which would be dropped", quoteIt);
}

// What stands there up to the next blank, as far as a message needs it.
std::string YamlBuilder::wordAt(const YAML::Mark& mark) const {
  constexpr std::size_t longest = 40;
  const std::string_view rest = file_.bytes().substr(offsetOf(mark), longest);
  return std::string(rest.substr(0, rest.find_first_of(" \n,{}[]")));
}

bool YamlBuilder::isAlias(const YAML::Mark& mark) {
  if (aliases_.count(offsetOf(mark)) == 0) return false;
  found_.add(Code::mustBeQuoted, placeOf(mark), aliasText, quoteIt);
  return true;
}

YamlValue::Style YamlBuilder::styleAt(const YAML::Mark& mark) const {
  switch (byteAt(mark)) {
    case '"':
      return Style::doubleQuoted;
    case '\'':
      return Style::singleQuoted;
    case '|':
    case '>':
      return Style::block;
    default:
      return Style::plain;
  }
}

// The reader of YAML takes the end of the file for a closing quote.
void YamlBuilder::checkQuotes(const YAML::Mark& mark, const YamlValue& value) {
  if (value.style != Style::doubleQuoted && value.style != Style::singleQuoted) return;
  if (closingQuote(file_.bytes(), offsetOf(mark)) != std::string_view::npos) return;
  found_.add(Code::quoteNotClosed, value.place, "this quote is never closed",
             "close it at the end of the text");
  throw Unreadable();
}

void YamlBuilder::reportNull(const YAML::Mark& mark) {
  if (!open_.empty() && open_.back().hasKey) {
    if (!open_.back().isAstray) reportNoValue(open_.back());
  } else {
    found_.add(Code::noValue, placeOf(mark), "there is no value here",
               "write one, or take the key away");
  }
}

// The mark of a value that isn't there is that of what comes next: its key's place tells more.
void YamlBuilder::reportNoValue(Open& map) {
  const std::size_t line = map.keyPlace.line;
  const std::size_t colon = map.keyStyle == Style::plain ? map.key.find(':') : std::string::npos;
  if (colon != std::string::npos) {
    reportNoBlank(map, colon);
  } else if (map.value.isInFlow && (map.keyStyle != Style::plain || isRestOfText(map))) {
    reportNoKey(map);
  } else if (const std::optional<Trap>& trap = trapOn(line)) {
    found_.add(trap->code, file_.placeOf(file_.startOf(line) + trap->offset), trap->text,
               trap->cure);
  } else if (isIdAstray(map)) {
    reportAstray(map);
  } else {
    found_.add(Code::noValue, map.keyPlace, "there is no value here",
               "write one, or take the key away");
  }
}

// Many values may be missing on one line.
const std::optional<Trap>& YamlBuilder::trapOn(std::size_t line) {
  if (line != trapLine_) trap_ = trapIn(file_.line(line));
  trapLine_ = line;
  return trap_;
}

// text:"Pass" is one word to YAML, which may even have begun on a line before.
void YamlBuilder::reportNoBlank(Open& map, std::size_t colon) {
  std::string key = map.key.substr(0, colon);
  const std::size_t offset = file_.bytes().find(':', file_.offsetOf(map.keyPlace));
  found_.add(Code::colonWithoutBlank, file_.placeOf(offset),
             "a blank is missing behind the colon of " + inShort(key), "write a blank behind it");
  map.value.dropped.push_back(std::move(key));
}

// Whether a text without quotes was broken at its comma. That it has none is said elsewhere.
bool YamlBuilder::isRestOfText(const Open& map) {
  if (isBoxKey(map.key)) return false;
  const std::vector<std::string>& dropped = map.value.dropped;
  if (!dropped.empty() && hasText(dropped.back())) return true;
  if (map.value.entries.empty()) return false;
  const YamlEntry& last = map.value.entries.back();
  return hasText(last.key) && last.value.style == Style::plain;
}

void YamlBuilder::reportNoKey(Open& map) {
  if (isRestOfText(map)) return;
  found_.add(Code::noValue, map.keyPlace, "no key stands before this text",
             "write \"text: \" or \"comment: \" before it");
  map.value.dropped.push_back("text");
}

// An id that has nothing below it, but the keys of a box beside it.
bool YamlBuilder::isIdAstray(const Open& map) const {
  if (map.value.isInFlow || isBoxKey(map.key) || isChartKey(map.key)) return false;
  for (std::size_t line = map.keyPlace.line + 1; line <= file_.lineCount(); ++line) {
    const std::string_view next = file_.line(line);
    const std::size_t indent = next.find_first_not_of(' ');
    if (indent == std::string_view::npos || next[indent] == '#') continue;
    return indent + 1 == map.keyPlace.column && isBoxKey(keyAt(next, indent));
  }
  return false;
}

void YamlBuilder::reportAstray(Open& map) {
  found_.add(Code::indentation, map.keyPlace,
             "nothing below " + inShort(map.key) + " is indented deeper than it",
             "indent an id like the other ids, and its box deeper");
  map.isAstray = map.value.isCutShort = true;
}

void YamlBuilder::begin(Kind kind, const YAML::Mark& mark, const std::string& tag,
                        YAML::anchor_t anchor, YAML::EmitterStyle::value style) {
  count(mark);
  if (open_.size() == deepestNesting) {
    found_.add(Code::nestingTooDeep, placeOf(mark), "values are nested deeper than 20 here",
               "give boxes ids, and write them one below the other");
    throw Unreadable();
  }
  isPlainNode(mark, tag, anchor);  // what is in it can be read all the same
  Open open;
  open.value.kind = kind;
  open.value.place = placeOf(mark);
  open.value.isInFlow = style == YAML::EmitterStyle::Flow;
  open.foundBefore = found_.size();
  open_.push_back(std::move(open));
}

void YamlBuilder::end() {
  Open closed = std::move(open_.back());
  open_.pop_back();
  add(std::move(closed.value));
}

// The value that comes now takes its place, or becomes the key of the next.
void YamlBuilder::add(YamlValue value) {
  if (open_.empty()) {
    document_ = std::move(value);
  } else if (open_.back().value.kind == Kind::list) {
    open_.back().value.items.push_back(std::move(value));
  } else if (!open_.back().hasKey) {
    beginEntry(std::move(value));
  } else {
    endEntry(std::move(value));
  }
}

// Leaves out a value, or a key with its value. `text` is that of the key, if it is known.
void YamlBuilder::drop(const std::string& text) {
  if (open_.empty()) return;
  Open& map = open_.back();
  if (map.value.kind == Kind::list) {
    map.value.isCutShort = true;
    return;
  }
  if (!map.hasKey) {
    map.hasKey = map.isKeyDropped = map.value.isCutShort = true;
    if (!text.empty()) map.value.dropped.push_back(text);
    return;
  }
  map.hasKey = false;
  if (!map.isKeyDropped) map.value.dropped.push_back(std::move(map.key));
}

void YamlBuilder::beginEntry(YamlValue key) {
  Open& map = open_.back();
  map.hasKey = true;
  map.isKeyDropped = map.isAstray || !mayBeKey(key);
  map.key = std::move(key.text);
  map.keyPlace = key.place;
  map.keyStyle = key.style;
}

bool YamlBuilder::mayBeKey(const YamlValue& key) {
  YamlValue& map = open_.back().value;
  if (key.kind != Kind::text) {
    map.isCutShort = true;
    found_.add(Code::wrongType, key.place, "a key has to be a word", "write a word before a colon");
    return false;
  }
  if (key.text == "<<" && key.style == Style::plain) {
    map.isCutShort = true;
    found_.add(Code::mergeKey, key.place, "merge keys are not read", "write out what is meant");
    return false;
  }
  if (open_.back().keys.insert(key.text).second) return true;
  map.doubled.push_back(key.text);
  if (map.isInFlow && !isBoxKey(key.text) && isRestOfText(open_.back())) return false;
  found_.add(Code::doubleKey, key.place, inShort(key.text) + " stands here a second time",
             isBoxKey(key.text) || isChartKey(key.text) ? "keep one of the two"
                                                        : "give this one another name");
  return false;
}

void YamlBuilder::endEntry(YamlValue value) {
  Open& map = open_.back();
  map.hasKey = false;
  if (map.isKeyDropped) return;
  if ((isTextKey(map.key) || isReason()) && losesText(map.keyPlace, value)) {
    map.value.dropped.push_back(std::move(map.key));
    return;
  }
  map.value.entries.push_back({std::move(map.key), map.keyPlace, std::move(value)});
}

// Whether the map that is being read is that of never, and no box of that id.
bool YamlBuilder::isReason() const {
  if (open_.size() < 2 || open_[open_.size() - 2].key != "never") return false;
  return open_.size() != 3 || open_.front().key != "boxes";
}

// What YAML would lose of a text without saying so.
bool YamlBuilder::losesText(Place key, const YamlValue& text) {
  if (text.kind != Kind::text || text.isInFlow) return false;
  const auto loss = lossIn(file_, file_.offsetOf(key), file_.offsetOf(text.place), text.text);
  if (loss) found_.add(loss->code, file_.placeOf(loss->offset), loss->text, loss->cure);
  return loss.has_value();
}

}  // namespace tavrel::authoring
