#include "hands/HandText.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "authoring/InShort.h"
#include "text/NearMiss.h"
#include "text/Text.h"
#include "text/Utf8.h"

namespace tavrel::hands {
namespace {

enum class Kind { rank, suit, divider, blank, dash };

// One thing that stands in the text.
struct Mark {
  Kind kind;
  int value;  // a rank, or the number of a suit
  std::size_t offset;
};

constexpr std::array<std::pair<std::string_view, Suit>, 12> suitMarks = {{
    {"♠", Suit::spades},
    {"♤", Suit::spades},
    {"s", Suit::spades},
    {"♥", Suit::hearts},
    {"♡", Suit::hearts},
    {"h", Suit::hearts},
    {"♦", Suit::diamonds},
    {"♢", Suit::diamonds},
    {"d", Suit::diamonds},
    {"♣", Suit::clubs},
    {"♧", Suit::clubs},
    {"c", Suit::clubs},
}};

// Behind a suit's symbol it says how the symbol is drawn.
constexpr std::array<std::string_view, 2> selectors = {"\xEF\xB8\x8F", "\xEF\xB8\x8E"};

constexpr std::array<std::string_view, 3> dashes = {"-", "–", "—"};
constexpr std::array<std::string_view, 5> dividers = {".", ",", ";", "/", "|"};
constexpr std::array<std::string_view, 5> blanks = {" ", "\t", "\r", "\n", "\xC2\xA0"};

bool startsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

// The size of the first of the marks that the text begins with; 0 if none does.
template <typename Marks>
std::size_t sizeOfOne(const Marks& marks, std::string_view text) {
  for (const std::string_view mark : marks) {
    if (startsWith(text, mark)) return mark.size();
  }
  return 0;
}

std::string cardAt(Card card) { return std::string(symbolOf(card.suit)) + letterOf(card.rank); }

// Reads a text from its start to its end. Throws Misreading.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text), lower_(lowerCase(text)) {}

  std::vector<Mark> marks() {
    while (at_ < text_.size()) {
      if (!takesSuit() && !takesRank() && !takesOther()) refuse();
    }
    return std::move(marks_);
  }

 private:
  std::string_view rest() const { return std::string_view(lower_).substr(at_); }

  void add(Kind kind, int value, std::size_t size) {
    marks_.push_back({kind, value, at_});
    at_ += size;
  }

  bool takesSuit() {
    for (const auto& [name, suit] : suitMarks) {
      if (!startsWith(rest(), name)) continue;
      add(Kind::suit, static_cast<int>(suit), name.size());
      at_ += sizeOfOne(selectors, rest());
      if (startsWith(rest(), ":") || startsWith(rest(), "=")) ++at_;
      return true;
    }
    return false;
  }

  bool takesRank() {
    if (startsWith(rest(), "10")) {
      add(Kind::rank, ten, 2);
      return true;
    }
    const std::size_t rank = std::string_view("23456789tjqka").find(rest()[0]);
    if (rank == std::string_view::npos) return false;
    add(Kind::rank, static_cast<int>(rank) + lowestRank, 1);
    return true;
  }

  bool takesOther() {
    return takes(Kind::dash, dashes) || takes(Kind::divider, dividers) ||
           takes(Kind::blank, blanks);
  }

  template <typename Marks>
  bool takes(Kind kind, const Marks& marks) {
    const std::size_t size = sizeOfOne(marks, rest());
    if (size > 0) add(kind, 0, size);
    return size > 0;
  }

  [[noreturn]] void refuse() const;

  std::string_view text_;
  const std::string lower_;
  std::size_t at_ = 0;
  std::vector<Mark> marks_;
};

// Which character of the text stands there, from 1.
std::size_t placeOf(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  return before.size() -
         static_cast<std::size_t>(std::count_if(before.begin(), before.end(), isContinuation)) + 1;
}

std::string placed(std::string_view text, std::size_t offset) {
  return "at character " + std::to_string(placeOf(text, offset));
}

void Scanner::refuse() const {
  const std::string place = ", " + placed(text_, at_) + ", ";
  if (rest()[0] == 'x') {
    throw Misreading{at_, "'" + std::string(1, text_[at_]) + "'" + place + "names no card",
                     "small cards must be named too, 9 to 2"};
  }
  const std::string_view found = glyphs(text_.substr(at_)).front().bytes;
  throw Misreading{at_, "'" + authoring::inShort(found) + "'" + place + "is no card's rank",
                   "ranks are A, K, Q, J, 10 or T, and 9 to 2"};
}

// Gathers the cards of a hand. Throws Misreading.
class Gatherer {
 public:
  explicit Gatherer(std::string_view text) : text_(text) {}

  void add(Suit suit, const Mark& rank) {
    const Card card = {suit, rank.value};
    refuseTwice(card, rank.offset);
    if (cards_.size() == cardsInHand) {
      throw Misreading{
          rank.offset,
          cardAt(card) + ", " + placed(text_, rank.offset) + ", is the fourteenth card",
          "a hand has thirteen"};
    }
    cards_.emplace_back(card, rank.offset);
    hand_.add(card);
  }

  Hand hand() const {
    if (cards_.size() < cardsInHand) {
      throw Misreading{text_.size(), "there " + counted(cards_.size()) + ": " + lengths(),
                       "a hand has thirteen"};
    }
    return hand_;
  }

 private:
  static std::string counted(std::size_t count) {
    if (count == 1) return "is only one card";
    return count == 0 ? "are no cards" : "are only " + std::to_string(count) + " cards";
  }

  // "♠ AQ85, ♥ KJ7, ♦ none, ♣ J62": what is missing is found by looking.
  std::string lengths() const {
    std::string all;
    for (const Suit suit : suitsAsWritten) {
      const std::string ranks = ranksOf(hand_.holding(suit));
      all += (all.empty() ? "" : ", ") + std::string(symbolOf(suit)) + " ";
      all += ranks.empty() ? "none" : ranks;
    }
    return all;
  }

  void refuseTwice(Card card, std::size_t offset) const {
    for (const auto& [other, place] : cards_) {
      if (!(other == card)) continue;
      throw Misreading{offset,
                       cardAt(card) + " stands twice, at characters " +
                           std::to_string(placeOf(text_, place)) + " and " +
                           std::to_string(placeOf(text_, offset)),
                       "one of them is another card"};
    }
  }

  std::string_view text_;
  std::vector<std::pair<Card, std::size_t>> cards_;  // and where they stand
  Hand hand_;
};

using Marks = std::vector<Mark>;

bool has(const Marks& marks, Kind kind) {
  return std::any_of(marks.begin(), marks.end(),
                     [kind](const Mark& mark) { return mark.kind == kind; });
}

Hand handWithNames(std::string_view text, const Marks& marks) {
  Gatherer gatherer(text);
  std::optional<Suit> current;
  std::array<bool, suits.size()> isNamed = {};
  for (const Mark& mark : marks) {
    if (mark.kind == Kind::suit) {
      current = static_cast<Suit>(mark.value);
      if (std::exchange(isNamed[static_cast<std::size_t>(mark.value)], true)) {
        throw Misreading{mark.offset,
                         std::string(nameOf(*current)) + " are named a second time, " +
                             placed(text, mark.offset),
                         "each suit stands once"};
      }
    }
    if (mark.kind != Kind::rank) continue;
    if (!current) {
      throw Misreading{mark.offset,
                       std::string("'") + letterOf(mark.value) + "', " + placed(text, mark.offset) +
                           ", stands before the first suit's name",
                       "name the suit of each card, or of none"};
    }
    gatherer.add(*current, mark);
  }
  return gatherer.hand();
}

// The marks of the suits between points and the like or, without these, between blanks.
std::vector<Marks> groupsOf(const Marks& marks) {
  const bool hasDividers = has(marks, Kind::divider);
  std::vector<Marks> groups(1);
  for (const Mark& mark : marks) {
    const bool isBlank = mark.kind == Kind::blank;
    const bool divides =
        hasDividers ? mark.kind == Kind::divider : isBlank && !groups.back().empty();
    if (divides) {
      groups.emplace_back();
    } else if (!isBlank) {
      groups.back().push_back(mark);
    }
  }
  if (!hasDividers && groups.back().empty()) groups.pop_back();
  return groups;
}

void requireFourSuits(std::string_view text, const std::vector<Marks>& groups) {
  if (groups.size() == suits.size()) return;
  const std::string cure =
      "write spades, hearts, diamonds and clubs with points between them, and - for a void: "
      "AQ85.KJ7.KQ432.-";
  if (groups.size() < suits.size()) {
    const std::string count = groups.empty() ? "are no suits"
                              : groups.size() == 1
                                  ? "is only one suit"
                                  : "are only " + std::to_string(groups.size()) + " suits";
    throw Misreading{text.size(), "there " + count, cure};
  }
  const Marks& fifth = groups[suits.size()];
  const std::size_t offset = fifth.empty() ? text.size() : fifth.front().offset;
  throw Misreading{offset, "there is a fifth suit, " + placed(text, offset), cure};
}

Hand handInOrder(std::string_view text, const Marks& marks) {
  const std::vector<Marks> groups = groupsOf(marks);
  requireFourSuits(text, groups);
  Gatherer gatherer(text);
  for (std::size_t i = 0; i < groups.size(); ++i) {
    for (const Mark& mark : groups[i]) {
      if (mark.kind == Kind::rank) {
        gatherer.add(suitsAsWritten[i], mark);
      } else if (groups[i].size() > 1) {
        throw Misreading{mark.offset,
                         "the dash " + placed(text, mark.offset) + " stands beside cards",
                         "a dash alone is a void; points stand between suits"};
      }
    }
  }
  return gatherer.hand();
}

}  // namespace

std::variant<Hand, Misreading> readHand(std::string_view text) try {
  if (text.size() > longestHandText) {
    throw Misreading{longestHandText, "the text is too long for a hand", "write thirteen cards"};
  }
  const Marks marks = Scanner(text).marks();
  return has(marks, Kind::suit) ? handWithNames(text, marks) : handInOrder(text, marks);
} catch (const Misreading& fault) {
  return fault;
}

std::string shown(Hand hand) {
  std::string text;
  for (const Suit suit : suitsAsWritten) {
    const std::string ranks = ranksOf(hand.holding(suit));
    text += (text.empty() ? "" : " ") + std::string(symbolOf(suit)) + (ranks.empty() ? "—" : ranks);
  }
  return text;
}

}  // namespace tavrel::hands
