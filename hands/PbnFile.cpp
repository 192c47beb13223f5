#include "hands/PbnFile.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "hands/Call.h"

namespace tavrel::hands {
namespace {

using Tags = std::map<std::string, std::string>;

constexpr std::string_view blanks = " \t\r\n\v\f";

bool isRead(std::string_view tag) {
  for (const std::string_view each : {"Board", "Deal", "Dealer", "Vulnerable", "Auction"}) {
    if (tag == each) return true;
  }
  return false;
}

// Adds a word of an auction; false at what ends it. Notes and marks are passed over.
bool addWord(Auction& auction, std::string_view word) {
  while (!word.empty() && (word.back() == '!' || word.back() == '?')) word.remove_suffix(1);
  if (word.empty() || word.front() == '=' || word.front() == '$' || word.front() == '^' ||
      word == "-") {
    return true;
  }
  if (word == "AP") {
    while (auction.allows(Call::pass)) auction.add(Call::pass);
    return true;
  }
  const std::optional<Call> call = callIn(word);
  if (!call || !auction.allows(*call)) return false;
  auction.add(*call);
  return true;
}

// Goes through the file tag by tag.
class Reader {
 public:
  Reader(std::string_view bytes, const std::function<void(const Board&)>& take)
      : bytes_(bytes), take_(take) {}

  void read() {
    for (; at_ < bytes_.size(); nextLine()) {
      const std::string_view line = restOfLine();
      if (line.find_first_not_of(blanks) == std::string_view::npos) {
        finish();
      } else if (line.front() == '[') {
        readTag(line);
      } else if (line.front() == '{') {
        skipComment();
      } else if (line.front() != '%' && line.front() != ';') {
        readWords(line);
      }
    }
    finish();
  }

 private:
  std::string_view restOfLine() const { return bytes_.substr(at_, bytes_.find('\n', at_) - at_); }

  void nextLine() {
    const std::size_t end = bytes_.find('\n', at_);
    at_ = end == std::string_view::npos ? bytes_.size() : end + 1;
    ++line_;
  }

  // To the line on which it ends.
  void skipComment() {
    const std::size_t end = bytes_.find('}', at_);
    while (at_ < bytes_.size() && restOfLine().find('}') == std::string_view::npos) {
      if (end == std::string_view::npos) at_ = bytes_.size();
      nextLine();
    }
  }

  // [Name "value"]
  void readTag(std::string_view line) {
    isInAuction_ = false;
    const std::size_t nameEnd = line.find_first_of(" \t\"", 1);
    const std::size_t open = line.find('"');
    const std::size_t close = line.rfind('"');
    if (nameEnd == std::string_view::npos || open == close) return;
    const std::string name(line.substr(1, nameEnd - 1));
    if (!isRead(name)) return;
    if (tags_.count(name) > 0) finish();
    const std::string_view value = line.substr(open + 1, close - open - 1);
    tags_[name] = value == "#" ? before_[name] : std::string(value);
    if (name == "Deal") dealLine_ = line_;
    isInAuction_ = name == "Auction";
    if (isInAuction_) auction_.emplace();
  }

  void readWords(std::string_view line) {
    for (std::size_t at = 0; isInAuction_;) {
      at = line.find_first_not_of(blanks, at);
      if (at == std::string_view::npos || line[at] == ';') return;
      const std::size_t end = std::min(line.find_first_of(blanks, at), line.size());
      isInAuction_ = addWord(*auction_, line.substr(at, end - at));
      at = end;
    }
  }

  void finish() {
    isInAuction_ = false;
    if (tags_.count("Deal") > 0) give();
    if (!tags_.empty()) before_ = std::exchange(tags_, {});
    auction_.reset();
  }

  void give() {
    Board board;
    board.line = dealLine_;
    board.name = tags_["Board"];
    board.dealer = seatIn(tags_["Dealer"]);
    board.vulnerability = vulnerabilityIn(tags_["Vulnerable"]);
    board.auction = std::move(auction_);
    auto deal = readDeal(tags_["Deal"]);
    if (auto* fault = std::get_if<Misreading>(&deal)) {
      board.fault = std::move(*fault);
    } else {
      board.hands = std::get<HandsBySeat>(deal);
    }
    take_(board);
  }

  std::string_view bytes_;
  const std::function<void(const Board&)>& take_;
  std::size_t at_ = 0, line_ = 1, dealLine_ = 0;
  Tags tags_, before_;  // of this board, and of the one before it
  std::optional<Auction> auction_;
  bool isInAuction_ = false;
};

}  // namespace

void readPbn(std::string_view bytes, const std::function<void(const Board&)>& take) {
  Reader(bytes, take).read();
}

}  // namespace tavrel::hands
