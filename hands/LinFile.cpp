#include "hands/LinFile.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "hands/Call.h"
#include "hands/HandText.h"
#include "text/NearMiss.h"

namespace tavrel::hands {
namespace {

// Names of boards are for messages.
constexpr std::size_t longestName = 60;

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(blanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

// "3SAK…H…D…C…,…,…,": the dealer's number, then the hands of South, West, North and East.
void readHands(Board& board, std::string_view value) {
  if (!value.empty() && value.front() >= '1' && value.front() <= '4') {
    board.dealer = after(Seat::south, static_cast<std::size_t>(value.front() - '1'));
    value.remove_prefix(1);
  }
  for (std::size_t number = 0; number < playerCount && !value.empty(); ++number) {
    const Seat seat = after(Seat::south, number);
    const std::string_view text = value.substr(0, value.find(','));
    value.remove_prefix(std::min(text.size() + 1, value.size()));
    if (text.empty()) continue;
    auto hand = readHand(text);
    if (const auto* fault = std::get_if<Misreading>(&hand)) {
      board.fault = {fault->offset, std::string(nameOf(seat)) + "'s hand: " + fault->text,
                     fault->cure};
      break;
    }
    handOf(board.hands, seat) = std::get<Hand>(hand);
  }
  if (!board.fault) board.fault = completeDeal(board.hands);
  if (board.fault) board.hands = {};
}

// One call, "1N!" with its alert. What can't follow is left out.
void readCall(Auction& auction, std::string_view value) {
  while (!value.empty() && (value.back() == '!' || value.back() == '?')) value.remove_suffix(1);
  const std::optional<Call> call = callIn(value);
  if (call && auction.allows(*call)) auction.add(*call);
}

class Reader {
 public:
  explicit Reader(const std::function<void(const Board&)>& take) : take_(take) {}

  void read(std::string_view bytes) {
    std::size_t line = 1;
    while (!bytes.empty()) {
      const std::string_view key = next(bytes, line);
      line_ = line;
      const std::string_view value = next(bytes, line);
      use(lowerCase(trimmed(key).substr(0, 3)), trimmed(value));
    }
    finish();
  }

 private:
  // The text up to the next bar, which is left behind.
  static std::string_view next(std::string_view& bytes, std::size_t& line) {
    const std::string_view text = bytes.substr(0, bytes.find('|'));
    line += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    bytes.remove_prefix(std::min(text.size() + 1, bytes.size()));
    return text;
  }

  void use(const std::string& key, std::string_view value) {
    if (key == "qx") {
      finish();
      board_.name = value.substr(0, longestName);
    } else if (key == "ah") {
      board_.name = value.substr(0, longestName);
    } else if (key == "md") {
      startHands(value);
    } else if (key == "sv") {
      board_.vulnerability = vulnerabilityIn(value.empty() ? "none" : value);
    } else if (key == "mb" && hasHands_) {
      if (!board_.auction) board_.auction.emplace();
      readCall(*board_.auction, value);
    }
  }

  void startHands(std::string_view value) {
    if (hasHands_) finish();
    hasHands_ = true;
    board_.line = line_;
    readHands(board_, value);
  }

  void finish() {
    if (hasHands_) take_(board_);
    board_ = {};
    hasHands_ = false;
  }

  const std::function<void(const Board&)>& take_;
  Board board_;
  std::size_t line_ = 1;
  bool hasHands_ = false;
};

}  // namespace

void readLin(std::string_view bytes, const std::function<void(const Board&)>& take) {
  Reader(take).read(bytes);
}

}  // namespace tavrel::hands
