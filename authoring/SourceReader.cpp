#include "authoring/SourceReader.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "authoring/BoxLines.h"
#include "authoring/HandKeys.h"
#include "authoring/InShort.h"
#include "authoring/Invisible.h"
#include "authoring/SourceKeys.h"
#include "authoring/SourceValues.h"
#include "authoring/SwallowedKeys.h"
#include "authoring/Yaml.h"
#include "authoring/YamlTraps.h"
#include "authoring/YamlTypes.h"

namespace tavrel::authoring {
namespace {

using Kind = YamlValue::Kind;
using Style = YamlValue::Style;

constexpr const char* aChart = "a chart";

constexpr int narrowest = 8, widest = 80;

bool isIdCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
}

bool isId(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), isIdCharacter);
}

// Editors of Windows end lines with a carriage return and a line feed. Places stay the same.
std::string withPlainLineEnds(std::string_view bytes) {
  std::string plain;
  plain.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (bytes.substr(at, 2) != "\r\n") plain += bytes[at];
  }
  return plain;
}

// Whether the entry of a key may hold boxes, or be one.
bool mayHoldBoxes(const std::string& key) {
  return key == "boxes" || key == "yes" || key == "no" || !(isChartKey(key) || isBoxKey(key));
}

// The id that an author may have meant.
std::string mendedId(std::string id) {
  for (char& c : id) c = c == '_' || c == ' ' ? '-' : c;
  return isId(id) ? id : "";
}

// What to write for a box that stands where its text was written alone.
std::string inBraces(const std::string& text) {
  constexpr std::size_t mostShown = 40;
  const bool isShown =
      text.size() <= mostShown && text.find_first_of("\"\\\n") == std::string::npos;
  return "{text: \"" + (isShown ? text : "…") + "\"}";
}

class Reader {
 public:
  Reader(const SourceFile& file, const Catalogue& catalogue, Diagnostics& found)
      : file_(file), catalogue_(catalogue), found_(found), values_(file, found) {}

  std::optional<ChartSource> read() {
    const std::optional<YamlValue> document = readYaml(file_, found_);
    if (!document) {
      if (!found_.hasErrors()) {
        found_.add(Code::notAMap, {}, "the file holds nothing",
                   "begin with \"chart: \" and the name of the chart");
      }
      return std::nullopt;
    }
    readChart(*document);
    if (document->kind != Kind::map || document->isCutShort) return std::nullopt;
    return std::move(chart_);
  }

 private:
  // What to do with the value of a key of the chart, or of a box.
  struct ChartKey {
    const char* name;
    void (Reader::*read)(const YamlEntry& entry);
  };
  struct BoxKey {
    const char* name;
    void (Reader::*read)(BoxNumber box, const YamlEntry& entry);
  };

  std::string unknownKey(const YamlEntry& entry, const std::vector<std::string>& keys,
                         const std::string& where) {
    if (entry.value.kind == Kind::map) hasAllBoxes_ = false;
    if (where == aChart && entry.value.has("text") && !firstInvisible(entry.key)) {
      found_.add(Code::indentation, entry.place,
                 inShort(entry.key) + " stands where the keys of the chart stand",
                 "indent it like the ids of the other boxes");
      return "";
    }
    return values_.sayUnknownKey(entry, keys, where);
  }

  // --- keys that are indented like a text -----------------------------------------

  void saySwallowed(const SwallowedKey& it) {
    found_.add(Code::indentation, it.place,
               std::string(it.key) + " is indented like the text of " + it.block +
                   ", and is taken for a part of it",
               "give it as many blanks as " + it.block);
    if (it.isBraced()) hasAllBoxes_ = false;
  }

  // In a comment such a line may as well be a sentence.
  bool isMeantAsKey(const SwallowedKey& it) const {
    if (it.key == "chart") return isInCatalogue(std::string(it.value));
    if (it.key == "text" || it.key == "comment") return true;
    if (it.key != "yes" && it.key != "no") return isMeantAsHandKey(it.key, it.value);
    return it.isBraced() || numbers_.count(std::string(it.value)) > 0;
  }

  // --- the chart ----------------------------------------------------------------

  void readChart(const YamlValue& document) {
    if (document.kind != Kind::map) {
      found_.add(Code::notAMap, document.place, "a chart has to be a map of keys and values",
                 "begin with \"chart: \" and the name of the chart");
      return;
    }
    const std::vector<std::string> meant = readSettings(document);
    const bool isIntroMeant = std::find(meant.begin(), meant.end(), "intro") != meant.end();
    const bool hasLost = document.has("intro") || isIntroMeant || isAmongBoxes("intro");
    if (hasLost && document.find("intro") == nullptr) chart_.hasSureIntro = false;
    noteLosses(document);
    sayWhatIsMissing(document, meant);
    for (const SwallowedKey& it : swallowedKeys(file_, document, {"applies"})) {
      if (isMeantAsHandKey(it.key, it.value)) saySwallowed(it);
    }
    if (boxes_ != nullptr) {
      readBoxes(*boxes_);
    } else {
      hasAllBoxes_ = false;
    }
    resolve();
  }

  // An id isn't said to be missing where it may be that of a box which couldn't be read.
  void noteLosses(const YamlValue& map) {
    if (map.isCutShort || std::any_of(map.doubled.begin(), map.doubled.end(), mayHoldBoxes)) {
      hasAllBoxes_ = false;
    }
  }

  void sayWhatIsMissing(const YamlValue& document, const std::vector<std::string>& meant) {
    if (document.isCutShort) return;
    for (const char* key : {"chart", "start", "boxes"}) {
      const bool isMeant = std::find(meant.begin(), meant.end(), key) != meant.end();
      if (document.has(key) || isMeant || isAmongBoxes(key)) continue;
      const std::vector<SwallowedKey> swallowed = swallowedKeys(file_, document, {key});
      if (!swallowed.empty()) {
        saySwallowed(swallowed.front());
        continue;
      }
      found_.add(Code::missingKey, {}, std::string("the chart has no ") + key,
                 std::string("add a line that begins with \"") + key + ":\"");
    }
  }

  // A setting of the chart that is indented like a box.
  bool isAmongBoxes(const char* key) const {
    const YamlEntry* const entry = boxes_ != nullptr ? boxes_->find(key) : nullptr;
    return entry != nullptr && entry->value.kind == Kind::text;
  }

  // Boxes are read last: their texts are broken by the width, and their turns are the chart's,
  // wherever these stand.
  std::vector<std::string> readSettings(const YamlValue& document) {
    static const std::vector<ChartKey> keys = {
        {"chart", &Reader::readChartName}, {"intro", &Reader::readIntro},
        {"start", &Reader::readStart},     {"entry", &Reader::readIsEntry},
        {"turn", &Reader::readTurns},      {"width", &Reader::readWidth},
        {"applies", &Reader::readApplies}, {"boxes", &Reader::noteBoxes},
    };
    return readEntries(
        document, keys,
        [this](const ChartKey& key, const YamlEntry& entry) { (this->*key.read)(entry); },
        [this](const YamlEntry& entry, const std::vector<std::string>& names) {
          return unknownKey(entry, names, aChart);
        });
  }

  void readTurns(const YamlEntry& entry) { turn_ = readTurn(entry, turn_); }

  void readApplies(const YamlEntry& entry) { hands_.readApplies(entry, chart_); }

  void noteBoxes(const YamlEntry& entry) {
    if (values_.is(Kind::map, entry, "a map of boxes by their ids",
                   "write the boxes below it, each with its id and a colon")) {
      boxes_ = &entry.value;
    }
  }

  bool isInCatalogue(const std::string& name) const {
    return std::find(catalogue_.begin(), catalogue_.end(), name) != catalogue_.end();
  }

  bool isName(const YamlEntry& entry) {
    return values_.isText(entry, "the name of a chart", "write one name");
  }

  void sayUnknownChart(const YamlValue& name) {
    found_.add(Code::unknownChart, name.place,
               name.text.empty() ? "the name of a chart is missing here"
                                 : "the catalogue has no chart " + inShort(name.text),
               "'tavrel list' shows the names; capitals matter");
  }

  void readChartName(const YamlEntry& entry) {
    if (!isName(entry)) return;
    if (!isInCatalogue(entry.value.text)) return sayUnknownChart(entry.value);
    chart_.chart = entry.value.text;
    chart_.chartPlace = entry.value.place;
  }

  void readIntro(const YamlEntry& entry) {
    const std::size_t errorsBefore = found_.count(Severity::error);
    chart_.intro = paragraphs(entry);
    chart_.hasSureIntro = found_.count(Severity::error) == errorsBefore;
  }

  void readStart(const YamlEntry& entry) {
    if (values_.isText(entry, "the id of a box", "write the id of one that stands below boxes"))
      start_ = &entry.value;
  }

  // What a word in quotes says is a text to YAML.
  static bool isPlain(const YamlValue& value) {
    return value.kind == Kind::text && value.style == Style::plain;
  }

  void readIsEntry(const YamlEntry& entry) {
    const YamlValue& value = entry.value;
    const std::optional<bool> said = booleanIn(value.text);
    if (said && isPlain(value)) {
      chart_.isEntry = *said;
      return;
    }
    found_.add(Code::wrongType, value.place, "entry is either true or false",
               said ? "take the quotes away" : "write true if players come in from the table");
  }

  Turn readTurn(const YamlEntry& entry, Turn usual) {
    if (entry.value.text == "right") return Turn::right;
    if (entry.value.text == "down") return Turn::down;
    found_.add(Code::wrongType, entry.value.place, "turn is either right or down",
               "it says where the yes exit goes");
    return usual;
  }

  void readWidth(const YamlEntry& entry) {
    const YamlValue& value = entry.value;
    const std::optional<int> number = wholeNumberIn(value.text);
    const bool isRight = number && *number >= narrowest && *number <= widest;
    if (isRight && isPlain(value)) {
      width_ = chart_.width = *number;
      return;
    }
    found_.add(
        Code::wrongType, value.place, "width is a number from 8 to 80",
        isRight ? "take the quotes away" : "it says how many columns a line in a box may take");
  }

  // --- texts --------------------------------------------------------------------

  SourceText paragraphs(const YamlEntry& entry) {
    if (!values_.isSafeText(entry)) return {};
    return {entry.value.place, paragraphLines(withSuits(entry.value.text))};
  }

  SourceText textOfBox(const YamlEntry& entry) {
    if (!values_.isSafeText(entry)) return {};
    SourceText text = {entry.value.place, boxLines(withSuits(entry.value.text), width_)};
    if (text.lines.empty()) {
      found_.add(Code::emptyText, entry.value.place, "the text of a box is empty",
                 "write a question, or what to bid");
    }
    return text;
  }

  // --- boxes --------------------------------------------------------------------

  // An exit that names its box, which may come later.
  struct Reference {
    BoxNumber box;
    Answer answer;
    const YamlValue* id;
  };

  void readBoxes(const YamlValue& boxes) {
    noteLosses(boxes);
    for (const YamlEntry& entry : boxes.entries) {
      if (isBox(entry)) {
        readBox(entry.value, entry.place, &entry.key);
      } else {
        lostIds_.insert(entry.key);
      }
    }
    lostIds_.insert(boxes.dropped.begin(), boxes.dropped.end());
  }

  bool isBox(const YamlEntry& entry) {
    if (entry.value.kind == Kind::map) return true;
    if (isRemark(entry.key)) {
      found_.add(Code::badId, entry.place, "a remark begins with #, and not with //",
                 "write # instead");
      return false;
    }
    std::string cure = "write its keys below its id";
    if (entry.value.kind == Kind::text) {
      cure = isChartKey(entry.key)
                 ? entry.key + " belongs to the chart: write no blanks before it"
                 : "write " + inShort(entry.key) + ": " + inBraces(entry.value.text);
    }
    return values_.is(Kind::map, entry, "a map of what the box has", cure);
  }

  // A box that stands inline has its id among its keys, if it has one.
  BoxNumber readBox(const YamlValue& map, Place place, const std::string* id = nullptr) {
    const auto number = static_cast<BoxNumber>(chart_.boxes.size());
    chart_.boxes.emplace_back();
    at(number).place = place;
    at(number).turn = turn_;
    if (id != nullptr) nameBox(number, *id, place);
    const std::size_t errorsBefore = errorsOutsideInlineBoxes();
    const std::vector<std::string> meant = readKeys(number, map, id == nullptr);
    noteLosses(map);
    noteSwallowed(number, map);
    const auto isMissing = [&](const char* key) { return isLeftOut(key, map, meant); };
    if (isMissing("text")) {
      found_.add(Code::missingKey, place, "the box has no text",
                 "add a line that begins with \"text:\"");
    }
    hands_.checkTogether(map, std::ref(isMissing));
    const bool isSound = errorsOutsideInlineBoxes() == errorsBefore && map.dropped.empty() &&
                         map.doubled.empty() && !map.isCutShort;
    if (!isSound) {
      at(number).hasSureTexts = at(number).hasSureExits = at(number).hasSureHands = false;
    }
    return number;
  }

  // Whether nobody has written a key, nor one that is likely to be meant for it.
  bool isLeftOut(const char* key, const YamlValue& map,
                 const std::vector<std::string>& meant) const {
    return !map.has(key) && !map.isCutShort &&
           std::find(meant.begin(), meant.end(), key) == meant.end() &&
           swallowedKeys(file_, map, {key}).empty();
  }

  // An inline box has its id among its keys.
  std::vector<std::string> readKeys(BoxNumber number, const YamlValue& map, bool isInline) {
    static const std::vector<BoxKey> usual = {
        {"text", &Reader::readText},
        {"comment", &Reader::readComment},
        {"yes", &Reader::readYes},
        {"no", &Reader::readNo},
        {"chart", &Reader::readLink},
        {"turn", &Reader::readTurnOfBox},
        {"when", &Reader::readOfHand<&HandKeys::readWhen>},
        {"asks", &Reader::readOfHand<&HandKeys::readAsks>},
        {"call", &Reader::readOfHand<&HandKeys::readCall>},
        {"shows", &Reader::readOfHand<&HandKeys::readShows>},
        {"forcing", &Reader::readOfHand<&HandKeys::readForcing>},
        {"next", &Reader::readOfHand<&HandKeys::readNext>},
        {"never", &Reader::readOfHand<&HandKeys::readNever>},
    };
    static const std::vector<BoxKey> ofInline = [] {
      std::vector<BoxKey> keys = usual;
      keys.push_back({"id", &Reader::readId});
      return keys;
    }();
    return readEntries(
        map, isInline ? ofInline : usual,
        [&](const BoxKey& key, const YamlEntry& entry) { (this->*key.read)(number, entry); },
        [this](const YamlEntry& entry, const std::vector<std::string>& names) {
          return unknownKey(entry, names, "a box");
        });
  }

  void readText(BoxNumber number, const YamlEntry& entry) { at(number).text = textOfBox(entry); }

  void readComment(BoxNumber number, const YamlEntry& entry) {
    at(number).comment = paragraphs(entry);
  }

  void readYes(BoxNumber number, const YamlEntry& entry) { readExit(number, Answer::yes, entry); }
  void readNo(BoxNumber number, const YamlEntry& entry) { readExit(number, Answer::no, entry); }

  void readTurnOfBox(BoxNumber number, const YamlEntry& entry) {
    at(number).turn = readTurn(entry, turn_);
    at(number).isTurnFixed = true;
  }

  template <void (HandKeys::*read)(const YamlEntry& entry, SourceBox& box)>
  void readOfHand(BoxNumber number, const YamlEntry& entry) {
    (hands_.*read)(entry, at(number));
  }

  SourceBox& at(BoxNumber number) { return chart_.boxes[static_cast<std::size_t>(number)]; }

  void nameBox(BoxNumber number, const std::string& id, Place place) {
    if (!isId(id)) {
      sayBadId(id, place);
    } else if (!numbers_.emplace(id, number).second) {
      found_.add(Code::doubleId, place, "the id " + inShort(id) + " stands here a second time",
                 "give the box another id");
    } else {
      at(number).id = id;
    }
  }

  // What leads to the box may have its id as it is, or as it should be.
  void sayBadId(const std::string& id, Place place) {
    const std::string seen = withoutInvisible(id), mended = mendedId(seen);
    lostIds_.insert({id, seen, mended});
    constexpr std::size_t mostBad = 100;  // more of them would take their time
    if (badIds_.size() < mostBad) badIds_.push_back(seen);
    if (values_.saysInvisible(id, place)) return;
    found_.add(Code::badId, place,
               id.empty() ? "an id has at least one letter or digit"
                          : "an id has letters from a to z, digits and hyphens alone",
               mended.empty() ? "give the box another id" : "write " + inShort(mended));
  }

  void readId(BoxNumber number, const YamlEntry& entry) {
    if (values_.isText(entry, "an id", "write a word"))
      nameBox(number, entry.value.text, entry.value.place);
  }

  // A link may lead to a chart that doesn't exist: the check warns of it, as it does in files.
  // One line of a file has to hold it, and an empty one is no link.
  void readLink(BoxNumber number, const YamlEntry& entry) {
    if (!isName(entry)) return;
    const std::string& name = entry.value.text;
    const bool isOneLine = name.find('\n') == std::string::npos && !hasControl(name);
    if (name.empty() || !isOneLine) return sayUnknownChart(entry.value);
    at(number).link = SourceLink{entry.value.place, name};
  }

  BoxNumber readInlineBox(const YamlValue& map) {
    const std::size_t ownErrors = errorsOutsideInlineBoxes();
    const BoxNumber number = readBox(map, map.place);
    errorsInInlineBoxes_ = found_.count(Severity::error) - ownErrors;
    return number;
  }

  // What is wrong in a box makes the one that it stands in no worse.
  std::size_t errorsOutsideInlineBoxes() const {
    return found_.count(Severity::error) - errorsInInlineBoxes_;
  }

  // Boxes within boxes are nested no deeper than the values of a file may be.
  void readExit(BoxNumber number, Answer answer, const YamlEntry& entry) {
    at(number).exitPlaces[answer] = entry.value.place;
    if (entry.value.kind == Kind::map) {
      const BoxNumber next = readInlineBox(entry.value);
      at(number).exits[answer] = next;
    } else if (values_.isText(entry, "the id of a box, or a box",
                              "write the id alone, or the box between braces")) {
      references_.push_back({number, answer, &entry.value});
    } else if (entry.value.kind == Kind::list) {
      hasAllBoxes_ = false;
    }
  }

  void noteSwallowed(BoxNumber number, const YamlValue& map) {
    static const std::vector<std::string_view> ownKeys = {"text",  "comment", "yes",  "no",
                                                          "chart", "when",    "asks", "call",
                                                          "shows", "forcing", "next", "never"};
    for (SwallowedKey& it : swallowedKeys(file_, map, ownKeys)) {
      swallowed_.emplace_back(number, std::move(it));
    }
  }

  // Once all boxes have their numbers: an answer may name one that comes later.
  void resolve() {
    for (const auto& [box, it] : swallowed_) {
      if (!isMeantAsKey(it)) continue;
      saySwallowed(it);
      at(box).hasSureTexts = at(box).hasSureExits = at(box).hasSureHands = false;
    }
    for (const Reference& reference : references_) {
      const BoxNumber exit = numberOf(*reference.id);
      at(reference.box).exits[reference.answer] = exit;
      if (exit == noBox) at(reference.box).hasSureExits = false;
    }
    if (start_ != nullptr) chart_.start = numberOf(*start_);
  }

  BoxNumber numberOf(const YamlValue& id) {
    if (id.text.empty()) {
      found_.add(Code::badId, id.place, "an id has at least one letter or digit",
                 "write the id of a box");
      return noBox;
    }
    const auto found = numbers_.find(id.text);
    if (found != numbers_.end()) return found->second;
    if (!values_.saysInvisible(id.text, id.place) && hasAllBoxes_ && !isLost(id.text)) {
      found_.add(Code::unknownId, id.place, "no box has the id " + inShort(id.text),
                 cureOf(id.text));
    }
    return noBox;
  }

  // Whether it is the id of a box that has an error in it, or is meant to be.
  bool isLost(const std::string& id) {
    return lostIds_.count(id) > 0 || !values_.nearest(id, badIds_).empty();
  }

  std::string cureOf(const std::string& unknownId) {
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < chart_.boxes.size() && i < values_.comparisonsLeft(); ++i) {
      ids.push_back(chart_.boxes[i].id);
    }
    const std::string near = values_.nearest(unknownId, ids);
    if (!near.empty()) return "did you mean " + near + "?";
    const bool isText = !isId(unknownId) || (unknownId[0] >= 'A' && unknownId[0] <= 'Z');
    if (isText) return "for a box that stands here write " + inBraces(unknownId);
    return "write a box of that id, or the id of another";
  }

  const SourceFile& file_;
  const Catalogue& catalogue_;
  Diagnostics& found_;
  SourceValues values_;
  HandKeys hands_{values_, found_};
  ChartSource chart_;
  Turn turn_ = Turn::right;
  int width_ = usualWidth;
  const YamlValue* start_ = nullptr;
  const YamlValue* boxes_ = nullptr;
  bool hasAllBoxes_ = true;  // none was left out, nobody knows with which id
  std::unordered_map<std::string, BoxNumber> numbers_;
  std::unordered_set<std::string> lostIds_;  // of boxes that were left out, or have bad ids
  std::vector<std::string> badIds_;          // some of them
  std::vector<Reference> references_;
  std::size_t errorsInInlineBoxes_ = 0;  // of those that have been read to their ends
  std::vector<std::pair<BoxNumber, SwallowedKey>> swallowed_;
};

}  // namespace

std::optional<ChartSource> readSource(const SourceFile& file, const Catalogue& catalogue,
                                      Diagnostics& found) {
  std::optional<ChartSource> source = readInPart(file, catalogue, found);
  if (found.hasErrors()) return std::nullopt;
  return source;
}

std::optional<ChartSource> readInPart(const SourceFile& file, const Catalogue& catalogue,
                                      Diagnostics& found) {
  if (file.bytes().find("\r\n") == std::string_view::npos) {
    return Reader(file, catalogue, found).read();
  }
  const SourceFile plain(file.name(), withPlainLineEnds(file.bytes()));
  return Reader(plain, catalogue, found).read();
}

}  // namespace tavrel::authoring
