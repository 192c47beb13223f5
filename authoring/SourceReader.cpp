#include "authoring/SourceReader.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "authoring/BoxLines.h"
#include "authoring/Yaml.h"
#include "authoring/YamlTraps.h"

namespace tavrel::authoring {
namespace {

using Kind = YamlValue::Kind;
using Style = YamlValue::Style;

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

// Bytes that no line of a flowchart file may hold, which the escapes of YAML can stand for.
bool isControl(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return (value < ' ' && byte != '\n') || value == 0x7F;
}

bool isId(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), isIdCharacter);
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

  void wrongType(const YamlValue& value, const std::string& key, const std::string& wanted) {
    found_.add(Code::wrongType, value.place,
               key + " is " + nameOf(value.kind) + ", and has to be " + wanted, "");
  }

  bool is(Kind kind, const YamlEntry& entry, const std::string& wanted) {
    if (entry.value.kind == kind) return true;
    wrongType(entry.value, entry.key, wanted);
    return false;
  }

  void readEntries(const YamlValue& map, const std::vector<Key>& keys, const std::string& where) {
    for (const YamlEntry& entry : map.entries) {
      const auto key = std::find_if(keys.begin(), keys.end(),
                                    [&](const Key& each) { return each.name == entry.key; });
      if (key != keys.end()) {
        key->read(entry);
        continue;
      }
      std::string known;
      for (const Key& each : keys) known += (known.empty() ? "" : ", ") + std::string(each.name);
      found_.add(Code::unknownKey, entry.place, where + " has no " + entry.key,
                 "it may have " + known);
    }
  }

  // --- the chart ----------------------------------------------------------------

  void readChart(const YamlValue& document) {
    if (document.kind != Kind::map) {
      found_.add(Code::notAMap, document.place, "a chart has to be a map of keys and values",
                 "begin with \"chart: \" and the name of the chart");
      return;
    }
    readSettings(document);
    for (const char* key : {"chart", "start", "boxes"}) {
      if (document.find(key) == nullptr && !found_.hasErrors()) {
        found_.add(Code::missingKey, {}, std::string("the chart has no ") + key,
                   std::string("add a line that begins with \"") + key + ":\"");
      }
    }
    if (boxes_ != nullptr) readBoxes(*boxes_);
    resolve();
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
           if (is(Kind::map, entry, "a map of boxes by their ids")) boxes_ = &entry.value;
         }},
    };
    readEntries(document, keys, "a chart");
  }

  bool isChart(const YamlEntry& entry) {
    if (!is(Kind::text, entry, "the name of a chart")) return false;
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
    if (is(Kind::text, entry, "the id of a box")) start_ = &entry.value;
  }

  void readIsEntry(const YamlEntry& entry) {
    const std::string& text = entry.value.text;
    if (entry.value.kind != Kind::text || (text != "true" && text != "false")) {
      found_.add(Code::wrongType, entry.value.place, "entry is either true or false", "");
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
    if (!is(Kind::text, entry, "a text")) return false;
    const YamlValue& value = entry.value;
    if (value.isInFlow && value.style != Style::doubleQuoted) {
      found_.add(Code::unquotedInBraces, value.place,
                 "between braces a text has to stand in double quotes", quoteIt);
      return false;
    }
    if (value.style != Style::plain) return hasNoControls(value);
    const std::string_view line = file_.line(value.place.line);
    const std::size_t comment = commentBehind(line, 0);
    if (comment == std::string_view::npos) return true;
    found_.add(Code::mustBeQuoted, file_.placeOf(file_.startOf(value.place.line) + comment),
               "YAML takes # behind a blank for a comment, and drops what follows",
               std::string(quoteIt) + ", or put the comment on a line of its own");
    return false;
  }

  bool hasNoControls(const YamlValue& value) {
    if (std::none_of(value.text.begin(), value.text.end(), isControl)) return true;
    found_.add(Code::controlCharacter, value.place,
               "an escape in this text stands for a control character", "take it away");
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
      if (!is(Kind::map, entry, "a map of what the box has")) continue;
      readBox(entry.value, entry.key, entry.place);
    }
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
    readEntries(map, keys, "a box");
    if (!map.has("text")) {
      found_.add(Code::missingKey, place, "the box has no text",
                 "add a line that begins with \"text:\"");
    }
    return number;
  }

  SourceBox& at(BoxNumber number) { return chart_.boxes[static_cast<std::size_t>(number)]; }

  void nameBox(BoxNumber number, const std::string& id, Place place) {
    if (!isId(id)) {
      found_.add(Code::badId, place, "an id has letters, digits and hyphens alone",
                 "give the box another id");
    } else if (!numbers_.emplace(id, number).second) {
      found_.add(Code::doubleId, place, "the id " + id + " stands here a second time",
                 "give the box another id");
    } else {
      at(number).id = id;
    }
  }

  void readId(BoxNumber number, const YamlEntry& entry) {
    if (is(Kind::text, entry, "an id")) nameBox(number, entry.value.text, entry.value.place);
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
    } else if (is(Kind::text, entry, "the id of a box, or a box")) {
      references_.push_back({number, answer, &entry.value});
    }
  }

  void resolve() {
    for (const Reference& reference : references_) {
      at(reference.box).exits[reference.answer] = numberOf(*reference.id);
    }
    if (start_ != nullptr) chart_.start = numberOf(*start_);
  }

  BoxNumber numberOf(const YamlValue& id) {
    const auto found = numbers_.find(id.text);
    if (found != numbers_.end()) return found->second;
    if (boxes_ != nullptr && boxes_->has(id.text)) return noBox;  // with an error of its own
    found_.add(Code::unknownId, id.place, "no box has the id " + id.text,
               "write a box of that id, or the id of another");
    return noBox;
  }

  const SourceFile& file_;
  const Catalogue& catalogue_;
  Diagnostics& found_;
  ChartSource chart_;
  Turn turn_ = Turn::right;
  int width_ = usualWidth;
  const YamlValue* start_ = nullptr;
  const YamlValue* boxes_ = nullptr;
  std::unordered_map<std::string, BoxNumber> numbers_;
  std::vector<Reference> references_;
};

}  // namespace

std::optional<ChartSource> readSource(const SourceFile& file, const Catalogue& catalogue,
                                      Diagnostics& found) {
  return Reader(file, catalogue, found).read();
}

}  // namespace tavrel::authoring
