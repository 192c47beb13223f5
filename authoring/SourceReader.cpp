#include "authoring/SourceReader.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "authoring/BoxLines.h"
#include "authoring/Invisible.h"
#include "authoring/SourceKeys.h"
#include "authoring/Yaml.h"
#include "authoring/YamlTraps.h"
#include "text/NearMiss.h"
#include "text/Utf8.h"

namespace tavrel::authoring {
namespace {

using Kind = YamlValue::Kind;
using Style = YamlValue::Style;

constexpr const char* aChart = "a chart";

constexpr int narrowest = 8, widest = 80;

const char* nameOf(Kind kind) {
  switch (kind) {
    case Kind::map:
      return "a map";
    case Kind::list:
      return "a list";
    default:
      return "a text";
  }
}

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

bool isRemark(std::string_view key) { return key.substr(0, 2) == "//"; }

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
      : file_(file), catalogue_(catalogue), found_(found) {}

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
    if (found_.hasErrors()) return std::nullopt;
    return std::move(chart_);
  }

 private:
  // What to do with the value of a key.
  struct Key {
    const char* name;
    std::function<void(const YamlEntry&)> read;
  };

  bool is(Kind kind, const YamlEntry& entry, const std::string& wanted, const std::string& cure) {
    if (entry.value.kind == kind) return true;
    found_.add(Code::wrongType, entry.value.place,
               entry.key + " is " + nameOf(entry.value.kind) + ", and has to be " + wanted, cure);
    return false;
  }

  // Returns the keys that unknown ones are likely to be.
  std::vector<std::string> readEntries(const YamlValue& map, const std::vector<Key>& keys,
                                       const std::string& where) {
    std::vector<std::string> meant;
    for (const YamlEntry& entry : map.entries) {
      const auto key = std::find_if(keys.begin(), keys.end(),
                                    [&](const Key& each) { return each.name == entry.key; });
      if (key != keys.end()) {
        key->read(entry);
      } else {
        meant.push_back(unknownKey(entry, keys, where));
      }
    }
    return meant;
  }

  std::string unknownKey(const YamlEntry& entry, const std::vector<Key>& keys,
                         const std::string& where) {
    if (saysInvisible(entry.key, entry.place)) return "";
    if (where == aChart && entry.value.has("text")) {
      found_.add(Code::indentation, entry.place,
                 entry.key + " stands where the keys of the chart stand",
                 "indent it like the ids of the other boxes");
      hasAllBoxes_ = false;
      return "";
    }
    std::string known;
    std::vector<std::string> names;
    for (const Key& each : keys) {
      known += (known.empty() ? "" : ", ") + std::string(each.name);
      names.emplace_back(each.name);
    }
    const std::string near = nearest(entry.key, names);
    std::string cure = (near.empty() ? "it may have " : "did you mean " + near + "? It may have ");
    cure += known;
    if (isRemark(entry.key)) cure = "write # before a remark";
    if (entry.key == "id") cure = "its id is the word before its colon";
    found_.add(Code::unknownKey, entry.place, where + " has no " + entry.key, cure);
    return near;
  }

  // --- slips ----------------------------------------------------------------------

  // The name that is nearest to a word, or of which the word is a longer form; empty for none.
  std::string nearest(const std::string& word, const std::vector<std::string>& names) {
    constexpr std::size_t longest = 40;
    if (word.size() > longest) return "";
    NearMiss miss(word);
    std::string best;
    for (const std::string& name : names) {
      if (comparisonsLeft_ == 0) break;
      --comparisonsLeft_;
      if (name.empty() || name.size() > longest) continue;
      if (miss.improvesWith(name)) best = name;
    }
    if (!best.empty()) return best;
    const auto longer = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
      return name.size() > 3 && word.compare(0, name.size(), name) == 0;
    });
    return longer == names.end() ? "" : *longer;
  }

  // Says that something in a word can't be seen.
  bool saysInvisible(const std::string& word, Place place) {
    const auto invisible = firstInvisible(word);
    if (!invisible) return false;
    found_.add(Code::invisibleCharacter, {place.line, place.column + invisible->offset},
               std::string(invisible->name) + " stands here",
               "take it away, and write a blank if one is wanted");
    return true;
  }

  // --- the chart ----------------------------------------------------------------

  void readChart(const YamlValue& document) {
    if (document.kind != Kind::map) {
      found_.add(Code::notAMap, document.place, "a chart has to be a map of keys and values",
                 "begin with \"chart: \" and the name of the chart");
      return;
    }
    readSettings(document);
    if (boxes_ == nullptr || boxes_->isCutShort || document.isCutShort) hasAllBoxes_ = false;
    for (const char* key : {"chart", "start", "boxes"}) {
      if (document.find(key) == nullptr && !found_.hasErrors() && !isAmongBoxes(key)) {
        found_.add(Code::missingKey, {}, std::string("the chart has no ") + key,
                   std::string("add a line that begins with \"") + key + ":\"");
      }
    }
    if (boxes_ != nullptr) readBoxes(*boxes_);
    resolve();
  }

  // A setting of the chart that is indented like a box.
  bool isAmongBoxes(const char* key) const {
    const YamlEntry* const entry = boxes_ != nullptr ? boxes_->find(key) : nullptr;
    return entry != nullptr && entry->value.kind == Kind::text;
  }

  void readSettings(const YamlValue& document) {
    const std::vector<Key> keys = {
        {"chart", [this](const YamlEntry& entry) { readChartName(entry); }},
        {"intro", [this](const YamlEntry& entry) { chart_.intro = paragraphs(entry); }},
        {"start", [this](const YamlEntry& entry) { readStart(entry); }},
        {"entry", [this](const YamlEntry& entry) { readIsEntry(entry); }},
        {"turn", [this](const YamlEntry& entry) { turn_ = readTurn(entry, turn_); }},
        {"width", [this](const YamlEntry& entry) { readWidth(entry); }},
        {"boxes",
         [this](const YamlEntry& entry) {
           if (is(Kind::map, entry, "a map of boxes by their ids",
                  "write the boxes below it, each with its id and a colon")) {
             boxes_ = &entry.value;
           }
         }},
    };
    readEntries(document, keys, aChart);
  }

  bool isChart(const YamlEntry& entry) {
    if (!is(Kind::text, entry, "the name of a chart", "write one name")) return false;
    const std::string& name = entry.value.text;
    if (std::find(catalogue_.begin(), catalogue_.end(), name) != catalogue_.end()) return true;
    found_.add(Code::unknownChart, entry.value.place, "the catalogue has no chart " + name,
               "'tavrel list' shows the names; capitals matter");
    return false;
  }

  void readChartName(const YamlEntry& entry) {
    if (!isChart(entry)) return;
    chart_.chart = entry.value.text;
    chart_.chartPlace = entry.value.place;
  }

  void readStart(const YamlEntry& entry) {
    if (is(Kind::text, entry, "the id of a box", "write the id of one that stands below boxes"))
      start_ = &entry.value;
  }

  void readIsEntry(const YamlEntry& entry) {
    const std::string& text = entry.value.text;
    if (entry.value.kind != Kind::text || (text != "true" && text != "false")) {
      found_.add(Code::wrongType, entry.value.place, "entry is either true or false",
                 "write true if players come in from the table");
      return;
    }
    chart_.isEntry = text == "true";
  }

  Turn readTurn(const YamlEntry& entry, Turn usual) {
    if (entry.value.text == "right") return Turn::right;
    if (entry.value.text == "down") return Turn::down;
    found_.add(Code::wrongType, entry.value.place, "turn is either right or down",
               "it says where the yes exit goes");
    return usual;
  }

  void readWidth(const YamlEntry& entry) {
    const std::string& text = entry.value.text;
    const bool isNumber = !text.empty() && text.size() < 4 &&
                          text.find_first_not_of("0123456789") == std::string::npos;
    const int number = isNumber ? std::stoi(text) : 0;
    if (number >= narrowest && number <= widest) {
      width_ = chart_.width = number;
      return;
    }
    found_.add(Code::wrongType, entry.value.place, "width is a number from 8 to 80",
               "it says how many columns a line in a box may take");
  }

  // --- texts --------------------------------------------------------------------

  // Whether a text is one that YAML reads as its author wrote it.
  bool isSafe(const YamlEntry& entry) {
    if (!is(Kind::text, entry, "a text", quoteIt)) return false;
    const YamlValue& value = entry.value;
    if (value.isInFlow && value.style != Style::doubleQuoted) {
      found_.add(Code::unquotedInBraces, value.place,
                 "between braces a text has to stand in double quotes", quoteIt);
      return false;
    }
    return hasNoControls(value);
  }

  // The reader of YAML makes bytes that are no UTF-8 of some escapes.
  bool hasNoControls(const YamlValue& value) {
    std::string_view text = value.text;
    const bool isUtf8 = firstThatIsNotUtf8(text) == std::string_view::npos;
    while (!text.empty() && controlAt(text) == 0 && byteOrderMarkAt(text) == 0) {
      text.remove_prefix(1);
    }
    if (text.empty() && isUtf8) return true;
    found_.add(Code::controlCharacter, value.place,
               "an escape in this text stands for a character that no text may hold",
               "take it away");
    return false;
  }

  SourceText paragraphs(const YamlEntry& entry) {
    if (!isSafe(entry)) return {};
    return {entry.value.place, paragraphLines(withSuits(entry.value.text))};
  }

  SourceText textOfBox(const YamlEntry& entry) {
    if (!isSafe(entry)) return {};
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
    for (const YamlEntry& entry : boxes.entries) {
      if (isBox(entry)) {
        readBox(entry.value, entry.key, entry.place);
      } else {
        numbers_.emplace(entry.key, noBox);
      }
    }
    for (const std::string& id : boxes.dropped) numbers_.emplace(id, noBox);
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
      cure = isChartKey(entry.key) ? entry.key + " belongs to the chart: write no blanks before it"
                                   : "write " + entry.key + ": " + inBraces(entry.value.text);
    }
    return is(Kind::map, entry, "a map of what the box has", cure);
  }

  BoxNumber readBox(const YamlValue& map, const std::string& id, Place place) {
    const auto number = static_cast<BoxNumber>(chart_.boxes.size());
    chart_.boxes.emplace_back();
    at(number).place = place;
    at(number).turn = turn_;
    if (!id.empty()) nameBox(number, id, place);
    std::vector<Key> keys = {
        {"text", [&](const YamlEntry& entry) { at(number).text = textOfBox(entry); }},
        {"comment", [&](const YamlEntry& entry) { at(number).comment = paragraphs(entry); }},
        {"yes", [&](const YamlEntry& entry) { readExit(number, Answer::yes, entry); }},
        {"no", [&](const YamlEntry& entry) { readExit(number, Answer::no, entry); }},
        {"chart", [&](const YamlEntry& entry) { readLink(number, entry); }},
        {"turn", [&](const YamlEntry& entry) { at(number).turn = readTurn(entry, turn_); }},
    };
    if (id.empty()) keys.push_back({"id", [&](const YamlEntry& entry) { readId(number, entry); }});
    const std::vector<std::string> meant = readEntries(map, keys, "a box");
    if (map.isCutShort) hasAllBoxes_ = false;
    if (!map.has("text") && std::find(meant.begin(), meant.end(), "text") == meant.end()) {
      found_.add(Code::missingKey, place, "the box has no text",
                 "add a line that begins with \"text:\"");
    }
    return number;
  }

  SourceBox& at(BoxNumber number) { return chart_.boxes[static_cast<std::size_t>(number)]; }

  void nameBox(BoxNumber number, const std::string& id, Place place) {
    if (!isId(id)) {
      const std::string mended = mendedId(id);
      hasAllBoxes_ = false;
      if (saysInvisible(id, place)) return;
      found_.add(Code::badId, place, "an id has letters from a to z, digits and hyphens alone",
                 mended.empty() ? "give the box another id" : "write " + mended);
    } else if (!numbers_.emplace(id, number).second) {
      found_.add(Code::doubleId, place, "the id " + id + " stands here a second time",
                 "give the box another id");
    } else {
      at(number).id = id;
    }
  }

  void readId(BoxNumber number, const YamlEntry& entry) {
    if (is(Kind::text, entry, "an id", "write a word"))
      nameBox(number, entry.value.text, entry.value.place);
  }

  void readLink(BoxNumber number, const YamlEntry& entry) {
    if (isChart(entry)) at(number).link = SourceLink{entry.value.place, entry.value.text};
  }

  // Boxes within boxes are nested no deeper than the values of a file may be.
  void readExit(BoxNumber number, Answer answer, const YamlEntry& entry) {
    at(number).exitPlaces[answer] = entry.value.place;
    if (entry.value.kind == Kind::map) {
      const BoxNumber next = readBox(entry.value, "", entry.value.place);
      at(number).exits[answer] = next;
    } else if (is(Kind::text, entry, "the id of a box, or a box",
                  "write the id alone, or the box between braces")) {
      references_.push_back({number, answer, &entry.value});
    }
  }

  void resolve() {
    for (const Reference& reference : references_) {
      at(reference.box).exits[reference.answer] = numberOf(*reference.id);
    }
    if (start_ != nullptr) chart_.start = numberOf(*start_);
  }

  // An id isn't said to be missing where it may be that of a box which couldn't be read.
  BoxNumber numberOf(const YamlValue& id) {
    const auto found = numbers_.find(id.text);
    if (found != numbers_.end()) return found->second;
    if (!saysInvisible(id.text, id.place) && hasAllBoxes_) {
      found_.add(Code::unknownId, id.place, "no box has the id " + id.text, cureOf(id.text));
    }
    return noBox;
  }

  std::string cureOf(const std::string& unknownId) {
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < chart_.boxes.size() && i < comparisonsLeft_; ++i) {
      ids.push_back(chart_.boxes[i].id);
    }
    const std::string near = nearest(unknownId, ids);
    if (!near.empty()) return "did you mean " + near + "?";
    const bool isText = !isId(unknownId) || (unknownId[0] >= 'A' && unknownId[0] <= 'Z');
    if (isText) return "for a box that stands here write " + inBraces(unknownId);
    return "write a box of that id, or the id of another";
  }

  const SourceFile& file_;
  const Catalogue& catalogue_;
  Diagnostics& found_;
  ChartSource chart_;
  Turn turn_ = Turn::right;
  int width_ = usualWidth;
  const YamlValue* start_ = nullptr;
  const YamlValue* boxes_ = nullptr;
  bool hasAllBoxes_ = true;  // none was left out, with its id, for an error of its own
  std::size_t comparisonsLeft_ = 200'000;
  std::unordered_map<std::string, BoxNumber> numbers_;
  std::vector<Reference> references_;
};

}  // namespace

std::optional<ChartSource> readSource(const SourceFile& file, const Catalogue& catalogue,
                                      Diagnostics& found) {
  if (file.bytes().find("\r\n") == std::string_view::npos) {
    return Reader(file, catalogue, found).read();
  }
  const SourceFile plain(file.name(), withPlainLineEnds(file.bytes()));
  return Reader(plain, catalogue, found).read();
}

}  // namespace tavrel::authoring
