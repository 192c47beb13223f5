#include "hands/HandFile.h"

#include <algorithm>
#include <cctype>
#include <utility>
#include <vector>

#include "authoring/InShort.h"
#include "hands/HandText.h"
#include "hands/LinFile.h"
#include "hands/PbnFile.h"
#include "text/Text.h"

namespace tavrel::hands {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string_view withoutMark(std::string_view bytes) {
  if (bytes.substr(0, byteOrderMark.size()) == byteOrderMark) {
    bytes.remove_prefix(byteOrderMark.size());
  }
  return bytes;
}

std::string_view firstLine(std::string_view bytes) {
  const std::size_t begin = bytes.find_first_not_of(" \t\r\n");
  if (begin == std::string_view::npos) return {};
  return bytes.substr(begin, bytes.find('\n', begin) - begin);
}

// "[Event …" or, for programs, "% PBN 2.1".
bool isPbn(std::string_view line) {
  return !line.empty() && (line.front() == '[' || line.front() == '%');
}

// "pn|…" or "qx|…": a key of two letters.
bool isLin(std::string_view line) {
  const auto isLetter = [](char each) { return std::isalpha(static_cast<unsigned char>(each)); };
  return line.size() > 2 && isLetter(line[0]) && isLetter(line[1]) && line[2] == '|';
}

std::string cardName(Card card) { return std::string(symbolOf(card.suit)) + letterOf(card.rank); }

}  // namespace

std::optional<Misreading> completeDeal(HandsBySeat& hands) {
  for (const Suit suit : suitsAsWritten) {
    for (Rank rank = ace; rank >= lowestRank; --rank) {
      std::optional<Seat> holder;
      for (std::size_t i = 0; i < playerCount; ++i) {
        if (!hands[i] || !hands[i]->has({suit, rank})) continue;
        const auto seat = static_cast<Seat>(i);
        if (holder) {
          return Misreading{0,
                            cardName({suit, rank}) + " is in " + nameOf(*holder) +
                                "'s hand and in " + nameOf(seat) + "'s",
                            "a pack has each card once"};
        }
        holder = seat;
      }
    }
  }
  if (std::count(hands.begin(), hands.end(), std::nullopt) != 1) return std::nullopt;
  Hand rest;
  for (const Suit suit : suits) {
    Holding held = 0;
    for (const auto& hand : hands) {
      if (hand) held = static_cast<Holding>(held | hand->holding(suit));
    }
    rest.setHolding(suit, static_cast<Holding>(~held & (holdingCount - 1)));
  }
  *std::find(hands.begin(), hands.end(), std::nullopt) = rest;
  return std::nullopt;
}

bool isDealText(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos || begin + 1 >= text.size()) return false;
  // S: may be a suit as well; only a deal has other hands behind it.
  if (text[begin + 1] != ':' || !seatIn(text.substr(begin, 1))) return false;
  return text.find('.', begin) != std::string_view::npos;
}

std::variant<HandsBySeat, Misreading> readDeal(std::string_view text) {
  HandsBySeat hands;
  std::size_t at = text.find_first_not_of(" \t");
  const auto first = at == std::string_view::npos ? std::nullopt : seatIn(text.substr(at, 1));
  if (!first || text.substr(at + 1, 1) != ":") {
    return Misreading{0, "a deal begins with a seat", "write N: and the four hands"};
  }
  std::size_t count = 0;
  for (at = text.find_first_not_of(" \t\r", at + 2); at != std::string_view::npos;
       at = text.find_first_not_of(" \t\r", at), ++count) {
    const std::string_view word = text.substr(at, text.find_first_of(" \t\r", at) - at);
    if (count == playerCount) {
      return Misreading{at, "there is a fifth hand", "a deal has four"};
    }
    const Seat seat = after(*first, count);
    if (word != "-") {
      auto hand = readHand(word);
      if (auto* fault = std::get_if<Misreading>(&hand)) {
        return Misreading{at + fault->offset, std::string(nameOf(seat)) + "'s hand: " + fault->text,
                          fault->cure};
      }
      handOf(hands, seat) = std::get<Hand>(hand);
    }
    at += word.size();
  }
  if (count < playerCount) {
    return Misreading{text.size(), "there are fewer than four hands",
                      "write a dash for a hand that isn't known"};
  }
  if (auto fault = completeDeal(hands)) return *fault;
  return hands;
}

bool isDealFile(std::string_view bytes) {
  const std::string_view line = firstLine(withoutMark(bytes));
  return isPbn(line) || isLin(line);
}

void readBoards(std::string_view bytes, const std::function<void(const Board&)>& take) {
  const std::string_view line = firstLine(withoutMark(bytes));
  if (isPbn(line)) readPbn(withoutMark(bytes), take);
  if (isLin(line)) readLin(withoutMark(bytes), take);
}

}  // namespace tavrel::hands
