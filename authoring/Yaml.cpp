#include "authoring/Yaml.h"

#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/exceptions.h>
#include <yaml-cpp/mark.h>
#include <yaml-cpp/parser.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "authoring/BraceScan.h"
#include "authoring/SourceKeys.h"
#include "authoring/SourceScreening.h"
#include "authoring/SyntaxCause.h"
#include "authoring/TextLoss.h"
#include "authoring/YamlTraps.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t deepestNesting = 20;
constexpr std::size_t mostValues = 100'000;

using Kind = YamlValue::Kind;
using Style = YamlValue::Style;

// Ends the reading where going on makes no sense; its diagnostic is written.
struct Unreadable {};

// Builds values from the events of yaml-cpp. What an author may not use is left out: a value
// that is dropped takes its key with it.
class Builder : public YAML::EventHandler {
 public:
  Builder(const SourceFile& file, Diagnostics& found) : file_(file), found_(found) {}

  std::optional<YamlValue> take() { return std::move(document_); }

  // Where reading breaks off between brackets, what was found there may be the reader's own
  // making.
  void forgetOpenBrackets() {
    const auto bracket = std::find_if(open_.begin(), open_.end(),
                                      [](const Open& open) { return open.value.isInFlow; });
    if (bracket != open_.end()) found_.forgetFrom(bracket->foundBefore);
  }

  void OnDocumentStart(const YAML::Mark& mark) override {
    if (documents_++ == 0) return;
    if (document_) document_->isCutShort = true;
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
    if (!isPlainNode(mark, tag, anchor)) return drop();
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
    bool isDropped;
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
               "a blank is missing behind the colon of " + key, "write a blank behind it");
    map.value.dropped.push_back(std::move(key));
  }

  // Whether a text without quotes was broken at its comma. That it has none is said elsewhere.
  static bool isRestOfText(const Open& map) {
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
               "nothing below " + map.key + " is indented deeper than it",
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
    Open open;
    open.isDropped = !isPlainNode(mark, tag, anchor);
    open.value.kind = kind;
    open.value.place = placeOf(mark);
    open.value.isInFlow = style == YAML::EmitterStyle::Flow;
    open.foundBefore = found_.size();
    open_.push_back(std::move(open));
  }

  void end() {
    Open closed = std::move(open_.back());
    open_.pop_back();
    if (closed.isDropped) return drop();
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

  void drop() {
    if (open_.empty() || open_.back().value.kind == Kind::list) return;
    Open& map = open_.back();
    if (map.hasKey) {
      map.hasKey = false;
      map.value.dropped.push_back(std::move(map.key));
    } else {
      map.hasKey = map.isKeyDropped = true;
    }
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
    if (key.kind != Kind::text) {
      found_.add(Code::wrongType, key.place, "a key has to be a word",
                 "write a word before a colon");
      return false;
    }
    if (key.text == "<<" && key.style == Style::plain) {
      found_.add(Code::mergeKey, key.place, "merge keys are not read", "write out what is meant");
      return false;
    }
    if (open_.back().keys.insert(key.text).second) return true;
    found_.add(Code::doubleKey, key.place, key.text + " stands here a second time",
               isBoxKey(key.text) || isChartKey(key.text) ? "keep one of the two"
                                                          : "give this one another name");
    open_.back().value.isCutShort = open_.size() <= 2;  // a box may be lost
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

std::optional<Cause> causeOf(const YAML::ParserException& problem, const SourceFile& file,
                             std::size_t line) {
  const std::size_t start = file.startOf(line);
  if (std::optional<Cause> cause = causeInQuotes(problem, file, start)) return cause;
  if (std::optional<Cause> cause = causeOfSyntaxError(file, line)) return cause;
  const std::optional<Trap> trap = trapIn(file.line(line));
  if (!trap) return std::nullopt;
  return Cause{trap->code, start + trap->offset, trap->text, trap->cure};
}

// yaml-cpp says what it looked for in vain, which tells an author little.
void reportSyntax(const YAML::ParserException& problem, const SourceFile& file,
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

std::optional<YamlValue> readScreened(const Screened& screened, Diagnostics& found) {
  const SourceFile& text = screened.text();
  Builder builder(text, found);
  try {
    std::istringstream stream{std::string(text.bytes())};
    YAML::Parser parser(stream);
    while (parser.HandleNextDocument(builder)) {
    }
  } catch (const YAML::ParserException& problem) {
    builder.forgetOpenBrackets();
    reportSyntax(problem, text, found);
    found.forgetFromLine(screened.doubtfulLine());
  } catch (const Unreadable&) {
  }
  return builder.take();
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
