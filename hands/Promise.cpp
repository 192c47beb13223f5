#include "hands/Promise.h"

#include <array>
#include <regex>
#include <string_view>
#include <utility>

#include "text/NearMiss.h"

namespace tavrel::hands {
namespace {

// No box has more text than that; a regular expression would go deep into a longer one.
constexpr std::size_t longestText = 1000;

std::regex inAnyCase(const std::string& pattern) {
  return std::regex(pattern, std::regex::ECMAScript | std::regex::icase);
}

// What makes all of a text uncertain, and what makes the clause uncertain in which it stands.
const std::regex& doubts() {
  static const std::regex words = inAnyCase(
      "\\b(or|if|unless|perhaps|maybe|usually|mostly|often|nearly|about|except|but|then|over|"
      "after|partner|opener|opponents?|together|combined)\\b");
  return words;
}

const std::regex& denials() {
  static const std::regex words =
      inAnyCase("\\b(no|not|without)\\b|^\\s*with\\b.*\\b(bid|pass|raise|open|jump|double)\\b");
  return words;
}

const std::string number = "(^|[^0-9+–-])([0-9]{1,2})";
const std::string range = number + "(?:\\+|\\s?(?:–|-|to)\\s?([0-9]{1,2}))";

const std::regex& pointsPattern() {
  static const std::regex pattern = inAnyCase(range + "\\s?(hcp\\b|high-card points)");
  return pattern;
}

// Without a unit: points, where nothing follows that could be one.
const std::regex& barePattern() {
  static const std::regex pattern = inAnyCase(range + "\\s*([?)]|$|(?:and )?balanced\\b)");
  return pattern;
}

const std::regex& lengthPattern() {
  static const std::regex pattern = inAnyCase(
      range +
      "[ -]?(?:cards? )?(?:in )?(♣|♦|♥|♠|clubs?\\b|diamonds?\\b|hearts?\\b|spades?\\b)(?!/)");
  return pattern;
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
std::optional<Promise> promiseOf(const std::smatch& match, Variable what) {
  Promise promise;
  promise.what = what;
  promise.low = std::stoi(match[2]);
  if (match[3].matched) promise.high = std::stoi(match[3]);
  if (promise.high && *promise.high <= promise.low) return std::nullopt;
  promise.words = std::string(match[2].first, match[4].second);
  return promise;
}

void add(const std::smatch& match, Variable what, std::vector<Promise>& promises) {
  if (auto promise = promiseOf(match, what)) promises.push_back(std::move(*promise));
}

// So few can be a length, or tricks.
bool arePoints(const std::smatch& match) {
  constexpr int leastPoints = 8;
  return std::stoi(match[match[3].matched ? 3 : 2]) >= leastPoints;
}

void addPromisesOf(const std::string& clause, std::vector<Promise>& promises) {
  std::smatch match;
  if (std::regex_search(clause, match, pointsPattern())) {
    add(match, Variable::hcp, promises);
  } else if (std::regex_search(clause, match, barePattern()) && arePoints(match)) {
    add(match, Variable::hcp, promises);
  }
  const std::sregex_iterator end;
  for (std::sregex_iterator found(clause.begin(), clause.end(), lengthPattern()); found != end;
       ++found) {
    add(*found, suitNamed((*found)[4]), promises);
  }
}

}  // namespace

std::vector<Promise> promisesIn(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : " ") + line;
  std::vector<Promise> promises;
  if (text.size() > longestText || std::regex_search(text, doubts())) return promises;
  for (const std::string& clause : clausesOf(text)) {
    if (!std::regex_search(clause, denials())) addPromisesOf(clause, promises);
  }
  return promises;
}

}  // namespace tavrel::hands
