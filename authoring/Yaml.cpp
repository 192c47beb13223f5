#include "authoring/Yaml.h"

#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/exceptions.h>
#include <yaml-cpp/mark.h>
#include <yaml-cpp/parser.h>

#include <algorithm>
#include <functional>
#include <set>
#include <sstream>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "authoring/BraceScan.h"
#include "authoring/Directives.h"
#include "authoring/InShort.h"
#include "authoring/SourceKeys.h"
#include "authoring/SourceScreening.h"
#include "authoring/SyntaxCause.h"
#include "authoring/TextLoss.h"
#include "authoring/YamlTraps.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t deepestNesting = 20;
constexpr std::size_t mostValues = 100'000;

constexpr const char* aliasText = "YAML keeps * at the beginning of a text for itself";

using Kind = YamlValue::Kind;
using Style = YamlValue::Style;

// The bytes that yaml-cpp may be given again because of aliases. Files that people write are read
// as often as it takes; those of megabytes a few times.
constexpr std::size_t mostRead = 8'000'000;

// Ends the reading where going on makes no sense; its diagnostic is written.
struct Unreadable {};

// Leaves out of a value what stands on a line or behind it, and a text before that line that may
// have been meant to end sooner or to go on.
void cutFrom(YamlValue& value, std::size_t line) {
  std::vector<YamlEntry>& entries = value.entries;
  const std::size_t all = entries.size();
  while (!entries.empty() &&
         (entries.back().place.line >= line || entries.back().value.place.line >= line)) {
    entries.pop_back();
  }
  if (!entries.empty()) {
    YamlValue& last = entries.back().value;
    cutFrom(last, line);
    const bool hasEnd =
        last.isInFlow || last.style == Style::singleQuoted || last.style == Style::doubleQuoted;
    if (last.kind == Kind::text && !hasEnd) entries.pop_back();
  }
  value.isCutShort = value.isCutShort || entries.size() < all;
}

// Builds values from the events of yaml-cpp. What an author may not use is left out: a value
// that is dropped takes its key with it.
class Builder : public YAML::EventHandler {
 public:
  // The aliases, by their offsets, are those that yaml-cpp takes for texts.
  Builder(const SourceFile& file, const std::set<std::size_t>& aliases, Diagnostics& found)
      : file_(file), aliases_(aliases), found_(found) {}

  std::optional<YamlValue> take() { return std::move(document_); }

  // Where reading breaks off between brackets, what was found there may be the reader's own
  // making.
  void forgetOpenBrackets() {
    const auto bracket = std::find_if(open_.begin(), open_.end(),
                                      [](const Open& open) { return open.value.isInFlow; });
    if (bracket != open_.end()) found_.forgetFrom(bracket->foundBefore);
  }

  // Makes a document of what was read so far, without what is open between brackets.
  void breakOff() {
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

  // The same, without what stands on a line that can't be read, or behind it.
  void breakOff(std::size_t line) {
    breakOff();
    if (!document_) return;
    if (document_->place.line >= line) return document_.reset();
    cutFrom(*document_, line);
  }

  void OnDocumentStart(const YAML::Mark& mark) override {
    if (documents_++ == 0) return;
    found_.add(Code::secondDocument, placeOf(mark), "a second document begins here",
               "write one chart a file");
    throw Unreadable();
  }
  void OnDocumentEnd() override {}

  void OnNull(const YAML::Mark& mark, YAML::anchor_t anchor) override {
    count(mark);
    const bool isInFlow = !open_.empty() && open_.back().value.isInFlow;
    if (anchor != YAML::NullAnchor && isInFlow) {
      reportAnchor(file_.bytes().rfind('&', offsetOf(mark)));
    } else {
      reportNull(mark);
    }
    drop();
  }

  void OnAlias(const YAML::Mark& mark, YAML::anchor_t) override {
    count(mark);
    found_.add(Code::alias, placeOf(mark), "aliases are not read", quoteIt);
    drop();
  }

  void OnScalar(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                const std::string& text) override {
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

  void OnSequenceStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                       YAML::EmitterStyle::value style) override {
    begin(Kind::list, mark, tag, anchor, style);
  }
  void OnSequenceEnd() override { end(); }

  void OnMapStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                  YAML::EmitterStyle::value style) override {
    begin(Kind::map, mark, tag, anchor, style);
  }
  void OnMapEnd() override { end(); }

 private:
  // A map or list that is being read.
  struct Open {
    YamlValue value;
    std::size_t foundBefore = 0;  // how many diagnostics there were when it began
    bool hasKey = false;
    bool isKeyDropped = false;
    bool isAstray = false;  // what comes now belongs elsewhere, and is left out
    std::unordered_set<std::string> keys;
    std::string key;
    Place keyPlace;
    Style keyStyle = Style::plain;
  };

  std::size_t offsetOf(const YAML::Mark& mark) const {
    const auto line =
        std::min(static_cast<std::size_t>(std::max(mark.line, 0)) + 1, file_.lineCount());
    return file_.startOf(line) + static_cast<std::size_t>(std::max(mark.column, 0));
  }

  Place placeOf(const YAML::Mark& mark) const { return file_.placeOf(offsetOf(mark)); }

  char byteAt(const YAML::Mark& mark) const {
    const std::size_t offset = offsetOf(mark);
    return offset < file_.bytes().size() ? file_.bytes()[offset] : '\0';
  }

  void count(const YAML::Mark& mark) {
    if (++values_ <= mostValues) return;
    found_.add(Code::tooManyValues, placeOf(mark), "the file has more than 100,000 values",
               "no chart needs that: split it into several");
    throw Unreadable();
  }

  bool isPlainNode(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor) {
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

  void reportAnchor(std::size_t offset) {
    found_.add(Code::anchor, file_.placeOf(offset),
               "YAML takes this for an anchor, which would be dropped", quoteIt);
  }

  // What stands there up to the next blank, as far as a message needs it.
  std::string wordAt(const YAML::Mark& mark) const {
    constexpr std::size_t longest = 40;
    const std::string_view rest = file_.bytes().substr(offsetOf(mark), longest);
    return std::string(rest.substr(0, rest.find_first_of(" \n,{}[]")));
  }

  bool isAlias(const YAML::Mark& mark) {
    if (aliases_.count(offsetOf(mark)) == 0) return false;
    found_.add(Code::mustBeQuoted, placeOf(mark), aliasText, quoteIt);
    return true;
  }

  Style styleAt(const YAML::Mark& mark) const {
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
  void checkQuotes(const YAML::Mark& mark, const YamlValue& value) {
    if (value.style != Style::doubleQuoted && value.style != Style::singleQuoted) return;
    if (closingQuote(file_.bytes(), offsetOf(mark)) != std::string_view::npos) return;
    found_.add(Code::quoteNotClosed, value.place, "this quote is never closed",
               "close it at the end of the text");
    throw Unreadable();
  }

  void reportNull(const YAML::Mark& mark) {
    if (!open_.empty() && open_.back().hasKey) {
      if (!open_.back().isAstray) reportNoValue(open_.back());
    } else {
      found_.add(Code::noValue, placeOf(mark), "there is no value here",
                 "write one, or take the key away");
    }
  }

  // The mark of a value that isn't there is that of what comes next: its key's place tells more.
  void reportNoValue(Open& map) {
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
  const std::optional<Trap>& trapOn(std::size_t line) {
    if (line != trapLine_) trap_ = trapIn(file_.line(line));
    trapLine_ = line;
    return trap_;
  }

  // text:"Pass" is one word to YAML.
  void reportNoBlank(Open& map, std::size_t colon) {
    std::string key = map.key.substr(0, colon);
    found_.add(Code::colonWithoutBlank, {map.keyPlace.line, map.keyPlace.column + colon},
               "a blank is missing behind the colon of " + inShort(key), "write a blank behind it");
    map.value.dropped.push_back(std::move(key));
  }

  // Whether a text without quotes was broken at its comma. That it has none is said elsewhere.
  static bool isRestOfText(const Open& map) {
    if (isBoxKey(map.key)) return false;
    const std::vector<std::string>& dropped = map.value.dropped;
    if (!dropped.empty() && isTextKey(dropped.back())) return true;
    if (map.value.entries.empty()) return false;
    const YamlEntry& last = map.value.entries.back();
    return isTextKey(last.key) && last.value.style == Style::plain;
  }

  void reportNoKey(Open& map) {
    if (isRestOfText(map)) return;
    found_.add(Code::noValue, map.keyPlace, "no key stands before this text",
               "write \"text: \" or \"comment: \" before it");
    map.value.dropped.push_back("text");
  }

  // An id that has nothing below it, but the keys of a box beside it.
  bool isIdAstray(const Open& map) const {
    if (map.value.isInFlow || isBoxKey(map.key) || isChartKey(map.key)) return false;
    for (std::size_t line = map.keyPlace.line + 1; line <= file_.lineCount(); ++line) {
      const std::string_view next = file_.line(line);
      const std::size_t indent = next.find_first_not_of(' ');
      if (indent == std::string_view::npos || next[indent] == '#') continue;
      return indent + 1 == map.keyPlace.column && isBoxKey(keyAt(next, indent));
    }
    return false;
  }

  void reportAstray(Open& map) {
    found_.add(Code::indentation, map.keyPlace,
               "nothing below " + inShort(map.key) + " is indented deeper than it",
               "indent an id like the other ids, and its box deeper");
    map.isAstray = map.value.isCutShort = true;
  }

  void begin(Kind kind, const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
             YAML::EmitterStyle::value style) {
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

  void end() {
    Open closed = std::move(open_.back());
    open_.pop_back();
    add(std::move(closed.value));
  }

  // The value that comes now takes its place, or becomes the key of the next.
  void add(YamlValue value) {
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
  void drop(const std::string& text = {}) {
    if (open_.empty() || open_.back().value.kind == Kind::list) return;
    Open& map = open_.back();
    if (!map.hasKey) {
      map.hasKey = map.isKeyDropped = map.value.isCutShort = true;
      if (!text.empty()) map.value.dropped.push_back(text);
      return;
    }
    map.hasKey = false;
    if (!map.isKeyDropped) map.value.dropped.push_back(std::move(map.key));
  }

  void beginEntry(YamlValue key) {
    Open& map = open_.back();
    map.hasKey = true;
    map.isKeyDropped = map.isAstray || !mayBeKey(key);
    map.key = std::move(key.text);
    map.keyPlace = key.place;
    map.keyStyle = key.style;
  }

  bool mayBeKey(const YamlValue& key) {
    YamlValue& map = open_.back().value;
    if (key.kind != Kind::text) {
      map.isCutShort = true;
      found_.add(Code::wrongType, key.place, "a key has to be a word",
                 "write a word before a colon");
      return false;
    }
    if (key.text == "<<" && key.style == Style::plain) {
      map.isCutShort = true;
      found_.add(Code::mergeKey, key.place, "merge keys are not read", "write out what is meant");
      return false;
    }
    if (open_.back().keys.insert(key.text).second) return true;
    map.doubled.push_back(key.text);
    found_.add(Code::doubleKey, key.place, inShort(key.text) + " stands here a second time",
               isBoxKey(key.text) || isChartKey(key.text) ? "keep one of the two"
                                                          : "give this one another name");
    return false;
  }

  void endEntry(YamlValue value) {
    Open& map = open_.back();
    map.hasKey = false;
    if (map.isKeyDropped) return;
    if (isTextKey(map.key) && losesText(map.keyPlace, value)) {
      map.value.dropped.push_back(std::move(map.key));
      return;
    }
    map.value.entries.push_back({std::move(map.key), map.keyPlace, std::move(value)});
  }

  // What YAML would lose of a text without saying so.
  bool losesText(Place key, const YamlValue& text) {
    if (text.kind != Kind::text || text.isInFlow) return false;
    const auto loss = lossIn(file_, file_.offsetOf(key), file_.offsetOf(text.place), text.text);
    if (loss) found_.add(loss->code, file_.placeOf(loss->offset), loss->text, loss->cure);
    return loss.has_value();
  }

  const SourceFile& file_;
  const std::set<std::size_t>& aliases_;
  Diagnostics& found_;
  std::optional<YamlValue> document_;
  std::vector<Open> open_;
  std::size_t trapLine_ = 0;  // of which trap_ is that one
  std::optional<Trap> trap_;
  std::size_t values_ = 0;
  std::size_t documents_ = 0;
};

// A backslash in double quotes that begins nothing.
std::optional<Cause> causeInQuotes(const YAML::ParserException& problem, const SourceFile& file,
                                   std::size_t start) {
  const auto says = [&problem](std::string_view begin) {
    return std::string_view(problem.msg).substr(0, begin.size()) == begin;
  };
  const bool isNoCharacter = says("invalid unicode: ") || says("bad character found");
  if (!says("unknown escape character: ") && !isNoCharacter) return std::nullopt;
  const auto column = static_cast<std::size_t>(std::max(problem.mark.column, 0));
  const std::size_t at = file.bytes().rfind('\\', start + column);
  if (at == std::string_view::npos) return std::nullopt;
  if (isNoCharacter) {
    return Cause{Code::unknownEscape, at, "no character has the number behind this backslash",
                 "write the character itself; suits are !c !d !h !s"};
  }
  return Cause{Code::unknownEscape, at, "this backslash means nothing between double quotes",
               "take it away, or write two for one; suits are !c !d !h !s"};
}

// Where an alias stands that yaml-cpp can't resolve, which ends its reading.
std::optional<std::size_t> aliasIn(const YAML::ParserException& problem, const SourceFile& file) {
  const std::string_view begin = YAML::ErrorMsg::UNKNOWN_ANCHOR;
  if (std::string_view(problem.msg).substr(0, begin.size()) != begin) return std::nullopt;
  const auto line = static_cast<std::size_t>(std::max(problem.mark.line, 0)) + 1;
  if (line > file.lineCount()) return std::nullopt;
  const std::size_t offset =
      file.startOf(line) + static_cast<std::size_t>(std::max(problem.mark.column, 0));
  if (file.bytes().substr(offset, 1) != "*") return std::nullopt;
  return offset;
}

std::optional<Cause> causeOf(const YAML::ParserException& problem, const SourceFile& file,
                             std::size_t line) {
  const std::size_t start = file.startOf(line);
  if (const auto alias = aliasIn(problem, file)) {
    return Cause{Code::mustBeQuoted, *alias, aliasText, quoteIt};
  }
  if (std::optional<Cause> cause = causeInQuotes(problem, file, start)) return cause;
  if (std::optional<Cause> cause = causeOfSyntaxError(file, line)) return cause;
  const std::optional<Trap> trap = trapIn(file.line(line));
  if (!trap) return std::nullopt;
  return Cause{trap->code, start + trap->offset, trap->text, trap->cure};
}

// yaml-cpp says what it looked for in vain, which tells an author little. Returns the line from
// which on nothing is sure.
std::size_t reportSyntax(const YAML::ParserException& problem, const SourceFile& file,
                         Diagnostics& found) {
  const auto line =
      std::min(static_cast<std::size_t>(std::max(problem.mark.line, 0)) + 1, file.lineCount());
  const auto column = static_cast<std::size_t>(std::max(problem.mark.column, 0));
  const Cause cause = causeOf(problem, file, line)
                          .value_or(Cause{Code::syntax, file.startOf(line) + column,
                                          "from here on the file can't be read",
                                          "look at the indentation, the colons and the brackets "
                                          "here and on the line before"});
  const Place place = file.placeOf(cause.offset);
  found.forgetFromLine(place.line);
  found.add(cause.code, place, cause.text, cause.cure);
  return place.line;
}

void parse(const std::string& bytes, Builder& builder) {
  std::istringstream stream(bytes);
  YAML::Parser parser(stream);
  while (parser.HandleNextDocument(builder)) {
  }
}

// Lines that tell readers of YAML how to read are said to be wrong, and read as remarks.
void screenDirectives(const SourceFile& file, std::string& bytes, Diagnostics& found) {
  for (const std::size_t offset : directivesIn(file)) {
    bytes[offset] = '#';
    found.add(Code::directive, file.placeOf(offset),
              "a line that begins with % tells readers of YAML how to read", "take the line away");
  }
}

}  // namespace

const YamlEntry* YamlValue::find(const std::string& key) const {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&key](const YamlEntry& entry) { return entry.key == key; });
  return found == entries.end() ? nullptr : &*found;
}

bool YamlValue::has(const std::string& key) const {
  return find(key) != nullptr || std::find(dropped.begin(), dropped.end(), key) != dropped.end();
}

namespace {

// An alias that ends the reading is given to yaml-cpp once more, as a word.
std::optional<YamlValue> readScreened(const Screened& screened, Diagnostics& found) {
  const SourceFile& text = screened.text();
  std::string bytes(text.bytes());
  screenDirectives(text, bytes, found);
  const Diagnostics foundBefore = found;
  std::set<std::size_t> aliases;
  while (true) {
    Builder builder(text, aliases, found);
    try {
      parse(bytes, builder);
    } catch (const YAML::ParserException& problem) {
      const std::optional<std::size_t> alias = aliasIn(problem, text);
      if (alias && (aliases.size() + 2) * bytes.size() <= mostRead) {
        bytes[*alias] = '_';
        aliases.insert(*alias);
        found = foundBefore;
        continue;
      }
      builder.forgetOpenBrackets();
      const std::size_t line = reportSyntax(problem, text, found);
      found.forgetFromLine(screened.doubtfulLine());
      builder.breakOff(std::min(line, screened.doubtfulLine()));
    } catch (const Unreadable&) {
      builder.breakOff();
    }
    return builder.take();
  }
}

void movePlaces(YamlValue& value, const std::function<Place(Place place)>& placeOf) {
  value.place = placeOf(value.place);
  for (YamlValue& item : value.items) movePlaces(item, placeOf);
  for (YamlEntry& entry : value.entries) {
    entry.place = placeOf(entry.place);
    movePlaces(entry.value, placeOf);
  }
}

}  // namespace

std::optional<YamlValue> readYaml(const SourceFile& file, Diagnostics& found) {
  const std::optional<Screened> screened = screen(file, found);
  if (!screened) return std::nullopt;
  const auto placeOf = [&](Place place) { return screened->placeIn(file, place); };
  Diagnostics read;
  std::optional<YamlValue> value = readScreened(*screened, read);
  found.append(read, placeOf);
  if (value) movePlaces(*value, placeOf);
  return value;
}

}  // namespace tavrel::authoring
