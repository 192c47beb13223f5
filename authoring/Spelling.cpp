#include "authoring/Spelling.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tavrel::authoring {
namespace {

struct Spelling {
  std::string_view written;
  std::string_view wanted;
};

constexpr std::array suits = {Spelling{"C", "♣"},  Spelling{"D", "♦"},  Spelling{"H", "♥"},
                              Spelling{"S", "♠"},  Spelling{"c", "♣"},  Spelling{"d", "♦"},
                              Spelling{"h", "♥"},  Spelling{"!c", "♣"}, Spelling{"!d", "♦"},
                              Spelling{"!h", "♥"}, Spelling{"!s", "♠"}, Spelling{"♧", "♣"},
                              Spelling{"♢", "♦"},  Spelling{"♡", "♥"},  Spelling{"♤", "♠"}};

constexpr std::array written = {
    Spelling{"c", "♣"}, Spelling{"club", "♣"},    Spelling{"clubs", "♣"},
    Spelling{"d", "♦"}, Spelling{"diamond", "♦"}, Spelling{"diamonds", "♦"},
    Spelling{"h", "♥"}, Spelling{"heart", "♥"},   Spelling{"hearts", "♥"},
    Spelling{"s", "♠"}, Spelling{"spade", "♠"},   Spelling{"spades", "♠"}};

// Words with a call behind them.
constexpr std::array verbs = {"bid",   "bids",   "call",    "calls",    "open", "opens",
                              "rebid", "rebids", "respond", "responds", "over"};

constexpr std::array words = {
    Spelling{"PASS", "Pass"}, Spelling{"Dbl", "X"},    Spelling{"DBL", "X"},
    Spelling{"dbl", "X"},     Spelling{"Rdbl", "XX"},  Spelling{"RDBL", "XX"},
    Spelling{"rdbl", "XX"},   Spelling{"Redbl", "XX"}, Spelling{"redbl", "XX"}};

// "raise to 2 ♣"; what is "up to 4 ♠" is a hand.
constexpr std::array movers = {"raise", "raises", "jump", "jumps", "go", "goes"};

// "a 2 ♣ opening"
constexpr std::array articles = {"a", "an", "the", "his", "her", "your", "partner"};
constexpr std::array nouns = {"opening",   "openings", "overcall", "overcalls",
                              "responses", "response", "contract"};

constexpr std::array loneCalls = {
    Spelling{"pass", "Pass"},   Spelling{"double", "X"},    Spelling{"Double", "X"},
    Spelling{"redouble", "XX"}, Spelling{"Redouble", "XX"}, Spelling{"x", "X"},
    Spelling{"xx", "XX"},       Spelling{"Xx", "XX"},       Spelling{"xX", "XX"}};

constexpr std::array rightCalls = {"Pass", "X", "XX"};
constexpr std::array strains = {"NT", "♣", "♦", "♥", "♠"};

constexpr std::array units = {"HCP", "hcp", "Hcp", "pts", "points"};

constexpr std::array months = {"Jan",  "January", "Feb",    "February", "Mar",  "March",
                               "Apr",  "April",   "May",    "Jun",      "June", "Jul",
                               "July", "Aug",     "August", "Sep",      "Sept", "September",
                               "Oct",  "October", "Nov",    "November", "Dec",  "December"};

// Behind two lengths of suits: "4-5 in the majors", "a 2-4 break".
constexpr std::array afterShapes = {"in",     "shape", "fit",    "fits",   "break",
                                    "breaks", "split", "splits", "majors", "minors"};

constexpr std::array dashes = {std::string_view("-"), std::string_view("‐"), std::string_view("‑"),
                               std::string_view("‒"), std::string_view("—"), std::string_view("−")};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isWordByte(char c) {
  return isDigit(c) || isLetter(c) || static_cast<unsigned char>(c) >= 0x80;
}

bool startsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

std::size_t letters(std::string_view text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isLetter);
  return static_cast<std::size_t>(end - text.begin());
}

std::size_t digits(std::string_view text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
  return static_cast<std::size_t>(end - text.begin());
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return lower;
}

template <typename List>
bool isOneOf(const List& list, std::string_view word) {
  return std::find(list.begin(), list.end(), word) != list.end();
}

bool endsWord(std::string_view rest) { return rest.empty() || !isWordByte(rest.front()); }

// Where the word begins that ends with the blank before an offset; the offset if none does.
std::size_t beginningOfWordBefore(std::string_view text, std::size_t offset) {
  if (offset < 2 || text[offset - 1] != ' ') return offset;
  std::size_t begin = offset - 1;
  while (begin > 0 && isLetter(text[begin - 1])) --begin;
  return begin;
}

// The word that ends with the blank before an offset.
std::string wordBefore(std::string_view text, std::size_t offset) {
  const std::size_t begin = beginningOfWordBefore(text, offset);
  return begin == offset ? "" : lowerCase(text.substr(begin, offset - 1 - begin));
}

// The word that begins behind a blank.
std::string_view wordAfterBlank(std::string_view rest) {
  return startsWith(rest, " ") ? rest.substr(1, letters(rest.substr(1))) : std::string_view();
}

// Whether what stands between two offsets is a call, by the words round it.
bool isCallMeant(std::string_view text, std::size_t begin, std::size_t end) {
  const std::string before = wordBefore(text, begin);
  if (isOneOf(verbs, before)) return true;
  if (before == "to") {
    return isOneOf(movers, wordBefore(text, beginningOfWordBefore(text, begin)));
  }
  return isOneOf(articles, before) && isOneOf(nouns, wordAfterBlank(text.substr(end)));
}

bool isInParentheses(std::string_view text, std::size_t begin, std::size_t end) {
  return begin > 0 && text[begin - 1] == '(' && startsWith(text.substr(end), ")");
}

// How a strain should be written that a bid has which may be cards as well; empty if it is none.
std::string_view doubtfulStrain(std::string_view strain, bool hasBlank) {
  if (strain == "s") return "♠";
  if (!hasBlank) return {};
  if (strain == "N" || strain == "n") return "NT";
  for (const Spelling& suit : suits) {
    if (strain == suit.written || strain == suit.wanted) return suit.wanted;
  }
  return {};
}

// "2s", "1 N" and "2 ♣", which may be cards as well: nothing for what can't be a call. REQUIRES:
// a level stands at the offset.
std::optional<Misspelling> doubtfulBid(std::string_view text, std::size_t offset) {
  const std::string_view rest = text.substr(offset + 1);
  const std::size_t blank = startsWith(rest, " ") ? 1 : 0;
  const std::string_view behind = rest.substr(blank);
  const std::size_t mark = startsWith(behind, "!") ? 1 : 0;
  const auto end = std::find_if_not(behind.begin() + static_cast<std::ptrdiff_t>(mark),
                                    behind.end(), isWordByte);
  const std::string_view strain = behind.substr(0, static_cast<std::size_t>(end - behind.begin()));
  const std::string_view wanted = doubtfulStrain(strain, blank > 0);
  if (wanted.empty()) return std::nullopt;
  const std::string level(text.substr(offset, 1));
  return Misspelling{offset, level + std::string(rest.substr(0, blank + strain.size())),
                     level + std::string(wanted)};
}

// The same where a call is meant.
std::optional<Misspelling> doubtfulBidAmongWords(std::string_view text, std::size_t offset) {
  auto found = doubtfulBid(text, offset);
  if (!found) return std::nullopt;
  const std::size_t end = offset + found->written.size();
  const bool isCards = found->written.size() > 3;  // "(4 ♠)" may be four of them
  const bool isMeant =
      isCallMeant(text, offset, end) || (!isCards && isInParentheses(text, offset, end));
  return isMeant ? found : std::nullopt;
}

// The call that begins with the level at the text's start.
std::optional<Misspelling> misspelledBid(std::string_view text) {
  const std::string level(text.substr(0, 1));
  const std::string_view rest = text.substr(1);
  for (const Spelling& suit : suits) {
    if (!startsWith(rest, suit.written)) continue;
    if (!endsWord(rest.substr(suit.written.size()))) continue;
    return Misspelling{0, level + std::string(suit.written), level + std::string(suit.wanted)};
  }
  const std::size_t blank = startsWith(rest, " ") ? 1 : 0;
  const std::string_view word = rest.substr(blank, letters(rest.substr(blank)));
  const bool isShort = blank == 0 && (word == "N" || word == "n");
  const bool isOther = word == "nt" || word == "Nt" || word == "nT";
  if (!isShort && !isOther && !(word == "NT" && blank == 1)) return std::nullopt;
  return Misspelling{0, level + std::string(rest.substr(0, blank + word.size())), level + "NT"};
}

std::optional<Misspelling> misspelledWord(std::string_view text, std::size_t offset) {
  const std::string_view word = text.substr(offset, letters(text.substr(offset)));
  const std::size_t end = offset + word.size();
  if (word == "Xx" && (isCallMeant(text, offset, end) || isInParentheses(text, offset, end))) {
    return Misspelling{offset, "Xx", "XX"};
  }
  const auto found = std::find_if(words.begin(), words.end(),
                                  [word](const Spelling& each) { return each.written == word; });
  if (found == words.end()) return std::nullopt;
  return Misspelling{offset, std::string(word), std::string(found->wanted)};
}

// Up to three digits, as bridge has them; 0 for more.
int numberOf(std::string_view text) {
  int number = 0;
  for (const char digit : text) number = 10 * number + (digit - '0');
  return number;
}

// Two numbers with a dash between them, at the start of a text.
struct Span {
  std::string_view low, dash, high;
  bool isSpaced = false;  // a blank on either side of the dash
  std::string_view rest;  // of the text
};

std::string_view dashAtStart(std::string_view text) {
  constexpr std::string_view enDash = "–";
  if (startsWith(text, enDash)) return enDash;
  for (const std::string_view dash : dashes) {
    if (startsWith(text, dash)) return dash;
  }
  return {};
}

std::optional<Span> spanAtStart(std::string_view text) {
  const auto take = [&text](std::size_t size) {
    const std::string_view taken = text.substr(0, size);
    text.remove_prefix(size);
    return taken;
  };
  const auto takeBlank = [&] { return !take(startsWith(text, " ") ? 1 : 0).empty(); };
  Span span;
  span.low = take(digits(text));
  span.isSpaced = takeBlank();
  span.dash = take(dashAtStart(text).size());
  span.isSpaced = takeBlank() || span.isSpaced;
  span.high = take(digits(text));
  span.rest = text;
  const bool isBridge = span.low.size() <= 3 && span.high.size() <= 3;
  if (span.dash.empty() || span.high.empty() || !isBridge) return std::nullopt;
  return span;
}

// "HCP" at the start of a text; empty if there is none.
std::string_view unitAtStart(std::string_view text) {
  const std::string_view word = text.substr(0, letters(text));
  return isOneOf(units, word) && endsWord(text.substr(word.size())) ? word : std::string_view();
}

// What goes on behind the second number, such as 4-5=3=1, 2-3rd or 1-4-4-4, is no range.
bool goesOn(const Span& span) {
  if (span.rest.empty()) return false;
  const bool hasThird =
      span.rest.front() == '-' && (span.isSpaced || digits(span.rest.substr(1)) > 0);
  return hasThird || span.rest.front() == '=' ||
         (isWordByte(span.rest.front()) && unitAtStart(span.rest).empty());
}

// Lengths of two suits rather than from one number to another.
bool isShape(const Span& span) {
  constexpr int mostCards = 13, longest = 8;
  const int low = numberOf(span.low), high = numberOf(span.high);
  return high <= longest && low + high <= mostCards &&
         isOneOf(afterShapes, wordAfterBlank(span.rest));
}

// Whether an en dash stands as it should, or parts two thoughts: "bid 3 – 4 would be too much".
bool isRightDash(const Span& span) {
  constexpr int twoDigits = 10;
  if (span.dash != "–") return false;
  const bool hasUnit = !unitAtStart(span.rest).empty() || isOneOf(units, wordAfterBlank(span.rest));
  return !span.isSpaced || (numberOf(span.high) < twoDigits && !hasUnit);
}

// The range that begins with the number at the text's start.
std::optional<Misspelling> rangeAtStart(std::string_view text) {
  const auto span = spanAtStart(text);
  if (!span || goesOn(*span) || isRightDash(*span) || isShape(*span)) return std::nullopt;
  if (numberOf(span->low) >= numberOf(span->high)) return std::nullopt;
  if (isOneOf(months, wordAfterBlank(span->rest))) return std::nullopt;
  const std::string unit(unitAtStart(span->rest));
  const std::size_t size = text.size() - span->rest.size() + unit.size();
  return Misspelling{
      0, std::string(text.substr(0, size)),
      std::string(span->low) + "–" + std::string(span->high) + (unit.empty() ? "" : " " + unit)};
}

bool isMonth(const std::string& lowerCaseWord) {
  return std::any_of(months.begin(), months.end(),
                     [&](const char* month) { return lowerCase(month) == lowerCaseWord; });
}

// A call and nothing else, rightly written.
bool isRightCall(std::string_view text) {
  if (isOneOf(rightCalls, text)) return true;
  const bool hasLevel = !text.empty() && text.front() >= '1' && text.front() <= '7';
  return hasLevel && isOneOf(strains, text.substr(1));
}

// How a call should be written that is no part of a sentence; empty if this is none, or right.
std::string wantedLoneCall(std::string_view text) {
  const auto found = std::find_if(loneCalls.begin(), loneCalls.end(),
                                  [text](const Spelling& each) { return each.written == text; });
  if (found != loneCalls.end()) return std::string(found->wanted);
  if (text.empty() || text.front() < '1' || text.front() > '7') return "";
  const auto bid = doubtfulBid(text, 0);
  return bid && bid->written == text ? bid->wanted : "";
}

}  // namespace

std::vector<Misspelling> misspelledCalls(std::string_view text) {
  std::vector<Misspelling> all;
  for (std::size_t at = 0; at < text.size() && all.size() < mostMisspellings; ++at) {
    if (at > 0 && (isWordByte(text[at - 1]) || text[at - 1] == '-')) continue;
    const bool isLevel = text[at] >= '1' && text[at] <= '7';
    auto found = isLevel              ? misspelledBid(text.substr(at))
                 : isLetter(text[at]) ? misspelledWord(text, at)
                                      : std::nullopt;
    if (found) found->offset = at;
    if (!found && isLevel) found = doubtfulBidAmongWords(text, at);
    if (found) all.push_back(*found);
  }
  return all;
}

std::optional<Misspelling> misspelledLoneCall(std::string_view text) {
  const std::size_t size = text.size();
  for (const std::string_view verb : {"Bid ", "Call "}) {
    if (startsWith(text, verb)) text.remove_prefix(verb.size());
  }
  const bool isSentence = text.size() < size;
  const bool hasStop = !isSentence && !text.empty() && text.back() == '.';
  const std::string_view call = hasStop ? text.substr(0, text.size() - 1) : text;
  const std::string wanted =
      hasStop && isRightCall(call) ? std::string(call) : wantedLoneCall(call);
  if (wanted.empty()) return std::nullopt;
  return Misspelling{size - text.size(), std::string(text), wanted};
}

std::vector<Misspelling> misspelledRanges(std::string_view text) {
  std::vector<Misspelling> all;
  for (std::size_t at = 0; at < text.size() && all.size() < mostMisspellings; ++at) {
    if (!isDigit(text[at])) continue;
    const char before = at > 0 ? text[at - 1] : ' ';
    const bool begins = !isWordByte(before) && before != '-' && before != '=';
    auto found = begins ? rangeAtStart(text.substr(at)) : std::nullopt;
    if (found && isMonth(wordBefore(text, at))) found.reset();
    if (found) {
      found->offset = at;
      all.push_back(*found);
    }
    at += (found ? found->written.size() : digits(text.substr(at))) - 1;
  }
  return all;
}

std::vector<Misspelling> misspelledSuits(std::string_view text) {
  std::vector<Misspelling> all;
  for (std::size_t at = text.find('!');
       at != std::string_view::npos && all.size() < mostMisspellings; at = text.find('!', at + 1)) {
    if (at > 0 && isLetter(text[at - 1])) continue;
    const std::string word(text.substr(at + 1, letters(text.substr(at + 1))));
    const auto suit = std::find_if(written.begin(), written.end(), [&word](const Spelling& each) {
      return each.written == lowerCase(word);
    });
    if (suit != written.end()) all.push_back({at, "!" + word, std::string(suit->wanted)});
  }
  return all;
}

}  // namespace tavrel::authoring
