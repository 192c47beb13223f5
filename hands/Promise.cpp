#include "hands/Promise.h"

#include <re2/re2.h>

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "text/NearMiss.h"

namespace tavrel::hands {
namespace {

// What makes all of a text uncertain, and what makes the clause uncertain in which it stands.
const RE2& doubts() {
  static const RE2 words(
      "(?i)\\b(?:or|if|unless|perhaps|maybe|usually|mostly|often|nearly|about|except|but|then|over|"
      "after|partner|opener|opponents?|together|combined)\\b");
  return words;
}

const RE2& denials() {
  static const RE2 words(
      "(?i)\\b(?:no|not|without)\\b|^\\s*with\\b.*\\b(?:bid|pass|raise|open|jump|double)\\b");
  return words;
}

// "5+", "15–17": the bounds, and behind them the unit.
const std::string range = "(?i)(?:^|[^0-9+–-])([0-9]{1,2})(?:\\+|\\s?(?:–|-|to)\\s?([0-9]{1,2}))";

const RE2& pointsPattern() {
  static const RE2 pattern(range + "\\s?(hcp\\b|high-card points)");
  return pattern;
}

// Without a unit: points, where nothing follows that could be one.
const RE2& barePattern() {
  static const RE2 pattern(range + "\\s*([?)]|$|(?:and )?balanced\\b)");
  return pattern;
}

const RE2& lengthPattern() {
  static const RE2 pattern(
      range + "[ -]?(?:cards? )?(?:in )?(♣|♦|♥|♠|clubs?\\b|diamonds?\\b|hearts?\\b|spades?\\b)");
  return pattern;
}

// A range that stands in a text.
struct Match {
  std::string low, high, unit;  // no high bound: "5+"
  std::string words;            // from the low bound to the unit
  std::size_t end;              // in the text
};

std::optional<Match> find(const std::string& text, std::size_t from, const RE2& pattern) {
  std::array<re2::StringPiece, 4> parts;
  const bool isThere = pattern.Match(text, from, text.size(), RE2::UNANCHORED, parts.data(),
                                     static_cast<int>(parts.size()));
  if (!isThere) return std::nullopt;
  const auto& [all, low, high, unit] = parts;
  const auto first = static_cast<std::size_t>(low.data() - text.data());
  const bool isWord = unit != "?" && unit != ")";
  const auto end = static_cast<std::size_t>(unit.data() - text.data()) + (isWord ? unit.size() : 0);
  return Match{low.ToString(), high.ToString(), unit.ToString(), text.substr(first, end - first),
               end};
}

Variable suitNamed(const std::string& name) {
  constexpr std::array<std::pair<std::string_view, Variable>, 4> symbols = {
      {{"♣", Variable::clubs},
       {"♦", Variable::diamonds},
       {"♥", Variable::hearts},
       {"♠", Variable::spades}}};
  for (const auto& [symbol, suit] : symbols) {
    if (name == symbol) return suit;
  }
  switch (lowerCase(name)[0]) {
    case 'c':
      return Variable::clubs;
    case 'd':
      return Variable::diamonds;
    case 'h':
      return Variable::hearts;
    default:
      return Variable::spades;
  }
}

std::vector<std::string> clausesOf(const std::string& text) {
  std::vector<std::string> clauses(1);
  for (const char c : text) {
    if (c == ';' || c == ',' || c == '.' || c == ':') {
      clauses.emplace_back();
    } else {
      clauses.back() += c;
    }
  }
  return clauses;
}

// A range that runs backwards is a shape, or no range at all.
void add(const Match& match, Variable what, std::vector<Promise>& promises) {
  Promise promise;
  promise.what = what;
  promise.low = std::stoi(match.low);
  if (!match.high.empty()) promise.high = std::stoi(match.high);
  if (promise.high && *promise.high <= promise.low) return;
  promise.words = match.words;
  promises.push_back(std::move(promise));
}

// So few can be a length, or tricks.
bool arePoints(const Match& match) {
  constexpr int leastPoints = 8;
  return std::stoi(match.high.empty() ? match.low : match.high) >= leastPoints;
}

// Two suits with a bar between them are one or the other.
bool isOneOfTwo(const std::string& clause, const Match& match) {
  return match.end < clause.size() && clause[match.end] == '/';
}

void addPromisesOf(const std::string& clause, std::vector<Promise>& promises) {
  if (const auto points = find(clause, 0, pointsPattern())) {
    add(*points, Variable::hcp, promises);
  } else if (const auto bare = find(clause, 0, barePattern()); bare && arePoints(*bare)) {
    add(*bare, Variable::hcp, promises);
  }
  for (auto length = find(clause, 0, lengthPattern()); length;
       length = find(clause, length->end, lengthPattern())) {
    if (!isOneOfTwo(clause, *length)) add(*length, suitNamed(length->unit), promises);
  }
}

}  // namespace

std::vector<Promise> promisesIn(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : " ") + line;
  std::vector<Promise> promises;
  if (RE2::PartialMatch(text, doubts())) return promises;
  for (const std::string& clause : clausesOf(text)) {
    if (!RE2::PartialMatch(clause, denials())) addPromisesOf(clause, promises);
  }
  return promises;
}

}  // namespace tavrel::hands
