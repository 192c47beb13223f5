#include "hands/Conditions.h"

#include <xxhash.h>

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <utility>

#include "authoring/InShort.h"
#include "hands/AuctionPattern.h"
#include "hands/ExpressionCheck.h"

namespace tavrel::hands {
namespace {

using authoring::inShort;
using Json = nlohmann::ordered_json;  // which is slow to read: it looks for keys one by one

constexpr int formatVersion = 1;

constexpr std::array forcingNames = {"no", "round", "game"};
constexpr std::array nextNames = {"self", "partner"};
constexpr std::array askedNames = {"judgement"};
enum class Asked { judgement };

template <typename Names, typename Value>
const char* nameIn(const Names& names, Value value) {
  return names[static_cast<std::size_t>(value)];
}

void put(Json& object, const char* key, const std::optional<std::string>& text) {
  if (text) object[key] = *text;
}

Json written(const std::vector<Cell>& cells) {
  Json list = Json::array();
  for (const Cell cell : cells) list.push_back(Json::array({cell.x, cell.y}));
  return list;
}

Json written(const std::vector<CallChoice>& calls) {
  Json list = Json::array();
  for (const CallChoice& choice : calls) {
    Json& object = list.emplace_back(Json::object());
    put(object, "when", choice.when);
    object["call"] = nameOf(choice.call);
  }
  return list;
}

Json written(const BoxConditions& box) {
  Json object;
  object["cells"] = written(box.cells);
  if (!box.id.empty()) object["id"] = box.id;
  put(object, "when", box.when);
  if (box.asksJudgement) object["asks"] = "judgement";
  if (!box.calls.empty()) object["calls"] = written(box.calls);
  put(object, "shows", box.shows);
  if (box.forcing) object["forcing"] = nameIn(forcingNames, *box.forcing);
  if (box.next) object["next"] = nameIn(nextNames, *box.next);
  if (box.never.yes) object["never"]["yes"] = *box.never.yes;
  if (box.never.no) object["never"]["no"] = *box.never.no;
  return object;
}

// --- reading ----------------------------------------------------------------------

// Why a file isn't one of conditions.
struct Unreadable {
  std::string why;
};

const nlohmann::json& at(const nlohmann::json& object, const char* key) {
  if (!object.is_object() || !object.contains(key)) {
    throw Unreadable{std::string("there is no \"") + key + "\" where one belongs"};
  }
  return object[key];
}

std::string inQuotes(const std::string& text) { return "\"" + inShort(text) + "\""; }

std::string thereIs(const nlohmann::json& value) { return "there is " + inShort(value.dump()); }

const nlohmann::json& map(const nlohmann::json& value) {
  if (!value.is_object()) throw Unreadable{thereIs(value) + " instead of a map"};
  return value;
}

std::string textIn(const nlohmann::json& value) {
  if (!value.is_string()) throw Unreadable{thereIs(value) + " instead of a text"};
  return value.get<std::string>();
}

std::optional<std::string> optionalText(const nlohmann::json& object, const char* key) {
  if (!object.contains(key)) return std::nullopt;
  return textIn(object[key]);
}

// An expression is compiled later, by what takes no wrong one.
std::optional<std::string> expression(const nlohmann::json& object, const char* key) {
  std::optional<std::string> text = optionalText(object, key);
  if (!text) return text;
  const CheckedExpression checked = checkExpression(*text, Type::truth);
  if (!checked.faults.empty()) throw Unreadable{inQuotes(*text) + ": " + checked.faults[0].text};
  return text;
}

const nlohmann::json& list(const nlohmann::json& value) {
  if (!value.is_array()) throw Unreadable{thereIs(value) + " instead of a list"};
  return value;
}

std::int64_t coordinate(const nlohmann::json& value) {
  const bool isTooLarge = value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX;
  if (!value.is_number_integer() || isTooLarge)
    throw Unreadable{inShort(value.dump()) + " is no column or row"};
  return value.get<std::int64_t>();
}

std::vector<Cell> cellsIn(const nlohmann::json& value) {
  std::vector<Cell> cells;
  for (const nlohmann::json& cell : list(value)) {
    if (list(cell).size() != 2) throw Unreadable{inShort(cell.dump()) + " is no cell"};
    cells.push_back({coordinate(cell[0]), coordinate(cell[1])});
  }
  return cells;
}

std::vector<CallChoice> callsIn(const nlohmann::json& value) {
  std::vector<CallChoice> calls;
  for (const nlohmann::json& choice : list(value)) {
    const std::string name = textIn(at(choice, "call"));
    const std::optional<Call> call = callIn(name);
    if (!call) throw Unreadable{inQuotes(name) + " is no call"};
    calls.push_back({expression(choice, "when"), *call});
  }
  return calls;
}

template <typename Value, typename Names>
std::optional<Value> oneOf(const Names& names, const nlohmann::json& object, const char* key) {
  const std::optional<std::string> text = optionalText(object, key);
  if (!text) return std::nullopt;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (*text == names[i]) return static_cast<Value>(i);
  }
  throw Unreadable{inQuotes(*text) + " is no value of \"" + key + "\""};
}

BoxConditions boxIn(const nlohmann::json& object) {
  BoxConditions box;
  box.cells = cellsIn(at(object, "cells"));
  box.id = optionalText(object, "id").value_or("");
  box.when = expression(object, "when");
  box.asksJudgement = oneOf<Asked>(askedNames, object, "asks").has_value();
  if (object.contains("calls")) box.calls = callsIn(object["calls"]);
  box.shows = expression(object, "shows");
  box.forcing = oneOf<Forcing>(forcingNames, object, "forcing");
  box.next = oneOf<Next>(nextNames, object, "next");
  if (object.contains("never")) {
    const nlohmann::json& never = map(object["never"]);
    box.never.yes = optionalText(never, "yes");
    box.never.no = optionalText(never, "no");
  }
  return box;
}

void readAuctions(const nlohmann::json& value, Conditions& conditions) {
  PatternAuctions auctions;
  for (const nlohmann::json& pattern : list(value)) {
    conditions.patterns.push_back(textIn(pattern));
    if (const auto fault = auctions.add(conditions.patterns.back())) throw Unreadable{fault->text};
  }
  conditions.auctions = auctions.all();
}

// Values in one another are few in such a file, and each would need a part of the stack.
nlohmann::json parsed(std::string_view bytes) {
  constexpr int deepest = 10;
  return nlohmann::json::parse(bytes, [](int depth, auto, auto&) {
    if (depth > deepest) throw Unreadable{"its values are nested too deep"};
    return true;
  });
}

Conditions conditionsIn(const nlohmann::json& file) {
  if (at(file, "version") != formatVersion) {
    throw Unreadable{"it is of another version of this program: compile the chart again"};
  }
  Conditions conditions;
  conditions.chart = textIn(at(file, "chart"));
  conditions.digest = textIn(at(file, "digest"));
  if (file.contains("applies")) {
    const nlohmann::json& applies = map(file["applies"]);
    if (applies.contains("auction")) readAuctions(applies["auction"], conditions);
    conditions.hand = expression(applies, "hand");
  }
  for (const nlohmann::json& box : list(at(file, "boxes"))) conditions.boxes.push_back(boxIn(box));
  return conditions;
}

}  // namespace

std::string digestOf(std::string_view flowchartFile) {
  const XXH128_hash_t hash = XXH3_128bits(flowchartFile.data(), flowchartFile.size());
  std::array<char, 33> digits = {};
  std::snprintf(digits.data(), digits.size(), "%016llx%016llx",
                static_cast<unsigned long long>(hash.high64),
                static_cast<unsigned long long>(hash.low64));
  return digits.data();
}

std::string conditionsFile(const Conditions& conditions) {
  Json file;
  file["version"] = formatVersion;
  file["chart"] = conditions.chart;
  file["digest"] = conditions.digest;
  if (!conditions.patterns.empty()) file["applies"]["auction"] = conditions.patterns;
  if (conditions.hand) file["applies"]["hand"] = *conditions.hand;
  file["boxes"] = Json::array();
  for (const BoxConditions& box : conditions.boxes) file["boxes"].push_back(written(box));
  return file.dump(1) + "\n";
}

std::variant<Conditions, std::string> readConditions(std::string_view bytes) try {
  return conditionsIn(parsed(bytes));
} catch (const Unreadable& unreadable) {
  return unreadable.why;
} catch (const nlohmann::json::exception&) {
  return "it is no JSON";
}

}  // namespace tavrel::hands
