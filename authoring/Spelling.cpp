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

constexpr std::array loneCalls = {Spelling{"pass", "Pass"},   Spelling{"double", "X"},
                                  Spelling{"Double", "X"},    Spelling{"redouble", "XX"},
                                  Spelling{"Redouble", "XX"}, Spelling{"x", "X"},
                                  Spelling{"xx", "XX"}};

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

// The word that ends with the blank before an offset.
std::string wordBefore(std::string_view text, std::size_t offset) {
  if (offset < 2 || text[offset - 1] != ' ') return "";
  std::size_t begin = offset - 1;
  while (begin > 0 && isLetter(text[begin - 1])) --begin;
  return lowerCase(text.substr(begin, offset - 1 - begin));
}

// "2 ♣" behind "bid", at an offset.
std::optional<Misspelling> spacedBid(std::string_view text, std::size_t offset) {
  const std::string_view rest = text.substr(offset + 1);
  if (!startsWith(rest, " ")) return std::nullopt;
  const auto suit = std::find_if(suits.begin(), suits.end(), [rest](const Spelling& each) {
    return startsWith(rest.substr(1), each.wanted);
  });
  if (suit == suits.end()) return std::nullopt;
  const std::string verb = wordBefore(text, offset);
  if (std::find(verbs.begin(), verbs.end(), verb) == verbs.end()) return std::nullopt;
  const std::string level(text.substr(offset, 1));
  return Misspelling{offset, level + " " + std::string(suit->wanted),
                     level + std::string(suit->wanted)};
}

// The call that begins with the level at the text's start.
std::optional<Misspelling> misspelledBid(std::string_view text) {
  const std::string level(text.substr(0, 1));
  const std::string_view rest = text.substr(1);
  for (const Spelling& suit : suits) {
    if (!startsWith(rest, suit.written)) continue;
    const std::string_view next = rest.substr(suit.written.size());
    if (!next.empty() && isWordByte(next.front())) continue;
    return Misspelling{0, level + std::string(suit.written), level + std::string(suit.wanted)};
  }
  const std::size_t blank = startsWith(rest, " ") ? 1 : 0;
  const std::string_view word = rest.substr(blank, letters(rest.substr(blank)));
  const bool isShort = blank == 0 && (word == "N" || word == "n");
  const bool isOther = word == "nt" || word == "Nt" || word == "nT";
  if (!isShort && !isOther && !(word == "NT" && blank == 1)) return std::nullopt;
  return Misspelling{0, level + std::string(rest.substr(0, blank + word.size())), level + "NT"};
}

std::optional<Misspelling> misspelledWord(std::string_view text) {
  const std::string_view word = text.substr(0, letters(text));
  const auto found = std::find_if(words.begin(), words.end(),
                                  [word](const Spelling& each) { return each.written == word; });
  if (found == words.end()) return std::nullopt;
  return Misspelling{0, std::string(word), std::string(found->wanted)};
}

// Up to three digits, as bridge has them; 0 for more.
int numberOf(std::string_view text) {
  int number = 0;
  for (const char digit : text) number = 10 * number + (digit - '0');
  return number;
}

// The range that begins with the number at the text's start.
std::optional<Misspelling> rangeAtStart(std::string_view text) {
  const std::size_t first = digits(text);
  std::size_t at = first;
  if (startsWith(text.substr(at), " ")) ++at;
  const auto dash = std::find_if(dashes.begin(), dashes.end(), [&](std::string_view each) {
    return startsWith(text.substr(at), each);
  });
  if (dash == dashes.end()) return std::nullopt;
  at += dash->size();
  if (at > first + dash->size() && startsWith(text.substr(at), " ")) ++at;
  const std::size_t second = digits(text.substr(at));
  if (second == 0 || first > 3 || second > 3) return std::nullopt;
  const std::string_view rest = text.substr(at + second);
  const bool goesOn = !rest.empty() && (isWordByte(rest.front()) || rest.front() == '=' ||
                                        (rest.front() == '-' && digits(rest.substr(1)) > 0));
  const std::string_view low = text.substr(0, first), high = text.substr(at, second);
  if (goesOn || numberOf(low) >= numberOf(high)) return std::nullopt;
  return Misspelling{0, std::string(text.substr(0, at + second)),
                     std::string(low) + "–" + std::string(high)};
}

}  // namespace

std::vector<Misspelling> misspelledCalls(std::string_view text) {
  std::vector<Misspelling> all;
  for (std::size_t at = 0; at < text.size() && all.size() < mostMisspellings; ++at) {
    if (at > 0 && (isWordByte(text[at - 1]) || text[at - 1] == '-')) continue;
    const bool isLevel = text[at] >= '1' && text[at] <= '7';
    const std::string_view rest = text.substr(at);
    auto found = isLevel              ? misspelledBid(rest)
                 : isLetter(text[at]) ? misspelledWord(rest)
                                      : std::nullopt;
    if (found) found->offset = at;
    if (!found && isLevel) found = spacedBid(text, at);
    if (found) all.push_back(*found);
  }
  return all;
}

std::optional<Misspelling> misspelledLoneCall(std::string_view text) {
  const std::size_t size = text.size();
  for (const std::string_view verb : {"Bid ", "Call "}) {
    if (startsWith(text, verb)) text.remove_prefix(verb.size());
  }
  const auto found = std::find_if(loneCalls.begin(), loneCalls.end(),
                                  [text](const Spelling& each) { return each.written == text; });
  if (found == loneCalls.end()) return std::nullopt;
  return Misspelling{size - text.size(), std::string(text), std::string(found->wanted)};
}

std::vector<Misspelling> misspelledRanges(std::string_view text) {
  std::vector<Misspelling> all;
  for (std::size_t at = 0; at < text.size() && all.size() < mostMisspellings; ++at) {
    if (!isDigit(text[at])) continue;
    const std::string_view rest = text.substr(at);
    const char before = at > 0 ? text[at - 1] : ' ';
    const bool begins = !isWordByte(before) && before != '-' && before != '=';
    auto found = begins ? rangeAtStart(rest) : std::nullopt;
    at += (found ? found->written.size() : digits(rest)) - 1;
    if (!found) continue;
    found->offset = at + 1 - found->written.size();
    all.push_back(*found);
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
