#include "authoring/HandKeys.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string>
#include <utility>

#include "authoring/BoxLines.h"

namespace tavrel::authoring {
namespace {

using Kind = YamlValue::Kind;

struct Key {
  const char* name;
};

constexpr std::array appliesKeys = {Key{"auction"}, Key{"hand"}};
constexpr std::array callKeys = {Key{"when"}, Key{"call"}};
constexpr std::array neverKeys = {Key{"yes"}, Key{"no"}};

constexpr const char* anExpression = "an expression";
constexpr const char* oneCall = "write one call, or a list of {when: \"…\", call: 2H}";

// Lines joined by blanks. Each byte has the number that it has in the text.
SourceExpression expressionOf(const YamlValue& value) {
  std::string text = value.text;
  std::replace(text.begin(), text.end(), '\n', ' ');
  text.erase(text.find_last_not_of(' ') + 1);
  return {value.place, std::move(text)};
}

bool isBlank(std::string_view text) {
  return text.find_first_not_of(" \n") == std::string_view::npos;
}

// Whether something of a value was left out, of which enough has been said.
bool isInPart(const YamlValue& value) {
  return value.isCutShort || !value.dropped.empty() || !value.doubled.empty();
}

bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool asks(std::string_view key) { return isOneOf(key, {"when", "asks", "never"}); }

bool calls(std::string_view key) { return isOneOf(key, {"call", "shows", "forcing", "next"}); }

}  // namespace

// --- the chart ------------------------------------------------------------------

void HandKeys::readApplies(const YamlEntry& entry, ChartSource& chart) {
  const char* const cure = "write auction: and hand: below it";
  if (!values_.is(Kind::map, entry, "a map of auction and hand", cure)) return;
  if (!isFilled(entry, "a map of auction and hand", cure)) return;
  chart.hasApplies = true;
  chart.appliesPlace = entry.place;
  readEntries(
      entry.value, appliesKeys,
      [&](const Key&, const YamlEntry& each) {
        if (each.key == "auction") return readAuctions(each, chart);
        chart.hand = expressionIn(each);
      },
      [&](const YamlEntry& each, const std::vector<std::string>& names) {
        return values_.sayUnknownKey(each, names, "applies");
      });
}

// An empty text is the auction of whoever deals.
void HandKeys::readAuctions(const YamlEntry& entry, ChartSource& chart) {
  if (entry.value.kind != Kind::list) return addAuction(entry.value, chart);
  if (!isFilled(entry, "a text, or a list of texts", "write the calls so far")) return;
  for (const YamlValue& item : entry.value.items) addAuction(item, chart);
}

void HandKeys::addAuction(const YamlValue& value, ChartSource& chart) {
  if (values_.isSafeText("auction", value, "a text, or a list of texts")) {
    chart.auctions.push_back(expressionOf(value));
  }
}

// --- questions ------------------------------------------------------------------

void HandKeys::readWhen(const YamlEntry& entry, SourceBox& box) { box.when = expressionIn(entry); }

void HandKeys::readAsks(const YamlEntry& entry, SourceBox& box) {
  if (entry.value.text == "judgement") {
    box.asksJudgement = true;
  } else {
    sayNotOneOf(entry, {"judgement"},
                "it says that only a person can answer; the question itself is text");
  }
}

void HandKeys::readNever(const YamlEntry& entry, SourceBox& box) {
  const char* const wanted = "a map of answers and reasons";
  const char* const cure = "write it as {no: \"…\"}, with the reason why no hand says so";
  if (!values_.is(Kind::map, entry, wanted, cure) || !isFilled(entry, wanted, cure)) return;
  readEntries(
      entry.value, neverKeys,
      [&](const Key&, const YamlEntry& each) {
        box.never[each.key == "yes" ? Answer::yes : Answer::no] = reasonIn(each);
      },
      [&](const YamlEntry& each, const std::vector<std::string>& names) {
        return values_.sayUnknownKey(each, names, "never");
      });
}

// --- ends -----------------------------------------------------------------------

void HandKeys::readCall(const YamlEntry& entry, SourceBox& box) {
  if (entry.value.kind == Kind::list) {
    if (isInPart(entry.value)) box.hasSureHands = false;
    if (isFilled(entry, "a call, or a list of calls", oneCall)) readCalls(entry.value, box);
  } else if (std::optional<SourceExpression> call = callIn(entry)) {
    box.calls.push_back({std::move(*call), std::nullopt});
  }
}

void HandKeys::readCalls(const YamlValue& list, SourceBox& box) {
  for (const YamlValue& item : list.items) {
    if (values_.is(Kind::map, "an entry of call", item, "a map of when and call",
                   "write it as {when: \"…\", call: 2H}")) {
      addCall(item, &item == &list.items.back(), box);
    }
  }
}

void HandKeys::addCall(const YamlValue& map, bool isLast, SourceBox& box) {
  SourceCall call;
  const std::vector<std::string> meant = readEntries(
      map, callKeys, [&](const Key&, const YamlEntry& each) { readKey(each, call); },
      [&](const YamlEntry& each, const std::vector<std::string>& names) {
        return values_.sayUnknownKey(each, names, "an entry of call");
      });
  if (isInPart(map)) box.hasSureHands = false;
  const auto isMissing = [&](const char* key) {
    return !map.isCutShort && !map.has(key) &&
           std::find(meant.begin(), meant.end(), key) == meant.end();
  };
  if (isMissing("call")) {
    found_.add(Code::missingKey, map.place, "the entry has no call",
               "write it as {when: \"…\", call: 2H}");
  }
  if (!isLast && isMissing("when")) {
    found_.add(Code::callsBehindSure, map.place,
               "the entry has no when, so that those behind it are never tried",
               "say when to make the call, or write it last");
  }
  if (!call.call.text.empty()) box.calls.push_back(std::move(call));
}

void HandKeys::readKey(const YamlEntry& entry, SourceCall& call) {
  if (entry.key == "when") {
    call.when = expressionIn(entry);
  } else if (std::optional<SourceExpression> read = callIn(entry)) {
    call.call = std::move(*read);
  }
}

void HandKeys::readShows(const YamlEntry& entry, SourceBox& box) {
  box.shows = expressionIn(entry);
}

void HandKeys::readForcing(const YamlEntry& entry, SourceBox& box) {
  static const std::vector<std::string> words = {"no", "round", "game"};
  const auto word = std::find(words.begin(), words.end(), entry.value.text);
  if (word == words.end()) return sayNotOneOf(entry, words, "it says whether partner may pass");
  box.forcing = static_cast<Forcing>(word - words.begin());
}

void HandKeys::readNext(const YamlEntry& entry, SourceBox& box) {
  static const std::vector<std::string> words = {"self", "partner"};
  const auto word = std::find(words.begin(), words.end(), entry.value.text);
  if (word == words.end()) {
    return sayNotOneOf(entry, words, "it says whose hand goes on in the other chart");
  }
  box.next = static_cast<Next>(word - words.begin());
}

// --- values ---------------------------------------------------------------------

std::optional<SourceExpression> HandKeys::expressionIn(const YamlEntry& entry) {
  if (!values_.isSafeText(entry, anExpression) || !isFilled(entry)) return std::nullopt;
  return expressionOf(entry.value);
}

// One word, which needs no quotes between braces.
std::optional<SourceExpression> HandKeys::callIn(const YamlEntry& entry) {
  const bool isCall = values_.isText(entry, "a call, or a list of calls", oneCall) &&
                      values_.hasNoControls(entry.value) && isFilled(entry);
  return isCall ? std::optional(expressionOf(entry.value)) : std::nullopt;
}

std::optional<SourceExpression> HandKeys::reasonIn(const YamlEntry& entry) {
  if (!values_.isSafeText(entry) || !isFilled(entry)) return std::nullopt;
  SourceExpression reason = expressionOf(entry.value);
  reason.text = withSuits(reason.text);
  return reason;
}

bool HandKeys::isFilled(const YamlEntry& entry) {
  if (!isBlank(entry.value.text)) return true;
  found_.add(Code::emptyExpression, entry.value.place, entry.key + " is empty",
             "write what it says, or take the key away");
  return false;
}

// The same of a map or a list.
bool HandKeys::isFilled(const YamlEntry& entry, const char* wanted, const char* cure) {
  const YamlValue& value = entry.value;
  if (!value.entries.empty() || !value.items.empty() || isInPart(value)) return true;
  found_.add(Code::wrongType, value.place,
             entry.key + " is empty, and has to be " + std::string(wanted), cure);
  return false;
}

void HandKeys::sayNotOneOf(const YamlEntry& entry, const std::vector<std::string>& words,
                           const std::string& cure) {
  std::string all = words.front();
  for (std::size_t i = 1; i < words.size(); ++i) {
    all += (i + 1 < words.size() ? ", " : " or ") + words[i];
  }
  const std::string near = values_.nearest(entry.value.text, words);
  found_.add(Code::wrongType, entry.value.place, entry.key + " is " + all + ", and nothing else",
             near.empty() ? cure : "did you mean " + near + "?");
}

// --- keys that don't go together ------------------------------------------------

void HandKeys::checkTogether(const YamlValue& box,
                             const std::function<bool(const char* key)>& isMissing) {
  const bool isQuestion = box.has("yes") || box.has("no");
  for (const YamlEntry& entry : box.entries) {
    const std::string& key = entry.key;
    if (asks(key) && !isQuestion && isMissing("yes") && isMissing("no")) {
      found_.add(Code::conditionAtEnd, entry.place, key + " stands at an end, which asks nothing",
                 "lead its answers on with yes: and no:, or take it away");
    } else if (calls(key) && isQuestion) {
      found_.add(Code::callAtQuestion, entry.place, key + " stands in a box with exits",
                 "write it in an end, which makes the call");
    } else if (key == "asks" && box.find("when") != nullptr) {
      found_.add(Code::twoConditions, entry.place, "the box has a condition, and asks a person too",
                 "keep when, or asks");
    } else if (key == "next" && isMissing("chart")) {
      found_.add(Code::nextWithoutChart, entry.place,
                 "next says whose hand goes on, and no chart does",
                 "write chart: and its name, or take next away");
    } else if (key == "never" && isQuestion) {
      checkNever(entry, isMissing);
    }
  }
}

void HandKeys::checkNever(const YamlEntry& never,
                          const std::function<bool(const char* key)>& isMissing) {
  for (const YamlEntry& reason : never.value.entries) {
    const bool isAnswer = reason.key == "yes" || reason.key == "no";
    if (!isAnswer || !isMissing(reason.key.c_str())) continue;
    found_.add(Code::neverOfNoAnswer, reason.place,
               reason.key + " leads nowhere, so that nobody says it",
               "take the reason away, or lead that answer on");
  }
}

bool isMeantAsHandKey(std::string_view key, std::string_view value) {
  const bool isBracketed = isOneOf(value.substr(0, 1), {"{", "["});
  if (key == "asks") return value == "judgement";
  if (key == "forcing") return isOneOf(value, {"no", "round", "game"});
  if (key == "next") return isOneOf(value, {"self", "partner"});
  if (key == "call") return isBracketed || (!value.empty() && value.find(' ') == std::string::npos);
  if (key == "never" || key == "applies") return isBracketed || value.empty();
  return value.find_first_of("<>=&|(") != std::string_view::npos;
}

}  // namespace tavrel::authoring
