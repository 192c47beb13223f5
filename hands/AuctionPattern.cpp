#include "hands/AuctionPattern.h"

#include <algorithm>
#include <string>
#include <utility>

#include "authoring/InShort.h"

namespace tavrel::hands {
namespace {

using authoring::Code;
using authoring::inShort;

constexpr std::size_t longestPattern = 1000;  // in bytes
constexpr int deepest = 10;                   // of groups in one another
constexpr std::size_t mostPatterns = 100;
constexpr std::size_t mostSteps = 30 * mostAuctions;

using Auctions = std::vector<Auction>;

// Each auction once, in the order in which they were added.
struct Union {
  Auctions auctions;
  std::set<std::vector<Call>> known;
};

// Goes through a pattern and lengthens the auctions that stand for what is behind.
class Reader {
 public:
  explicit Reader(std::string_view pattern) : pattern_(pattern) {}

  std::variant<Auctions, Fault> read() try {
    Auctions all = sequence({Auction()}, 0);
    if (at_ < pattern_.size()) failAtMark();
    checkEnds(all);
    return all;
  } catch (const Fault& fault) {
    return fault;
  }

 private:
  [[noreturn]] static void fail(Code code, std::size_t offset, std::string text, std::string cure) {
    throw Fault{code, offset, std::move(text), std::move(cure)};
  }

  void skipBlanks() { at_ = std::min(pattern_.find_first_not_of(" \t\r\n", at_), pattern_.size()); }

  // Whether the next character is this one, which is passed then.
  bool take(char mark) {
    skipBlanks();
    const bool isHere = at_ < pattern_.size() && pattern_[at_] == mark;
    if (isHere) ++at_;
    return isHere;
  }

  Auctions sequence(const Auctions& before, int depth);
  Auctions group(const Auctions& before, int depth);
  Auctions call(const Auctions& before);
  Auction lengthened(const Auction& auction, Call call, std::size_t offset);
  void checkEnds(const Auctions& all) const;
  [[noreturn]] void failAtMark() const;
  [[noreturn]] void failWithoutCall() const;
  [[noreturn]] void failAtCall(std::string_view word) const;
  void add(const Auctions& auctions, Union& all);
  void countSteps(std::size_t count);
  [[noreturn]] static void failWithTooMany() {
    fail(Code::tooManyAuctions, 0, "the pattern stands for more than 10,000 auctions",
         "name the calls that matter");
  }

  std::string_view pattern_;
  std::size_t at_ = 0;
  std::size_t steps_ = 0;
};

// Calls and groups, up to a mark that belongs to what is around them.
Auctions Reader::sequence(const Auctions& before, int depth) {
  Auctions auctions = before;
  for (skipBlanks(); at_ < pattern_.size(); skipBlanks()) {
    const char mark = pattern_[at_];
    if (mark == '|' || mark == ')' || mark == '?') break;
    Auctions longer = mark == '(' ? group(auctions, depth) : call(auctions);
    if (take('?')) {
      Union both;
      add(auctions, both);
      add(longer, both);
      longer = std::move(both.auctions);
    }
    auctions = std::move(longer);
  }
  return auctions;
}

Auctions Reader::group(const Auctions& before, int depth) {
  const std::size_t open = at_++;
  if (depth == deepest) {
    fail(Code::badPattern, open, "parentheses stand in one another more than 10 deep",
         "write several patterns");
  }
  Union all;
  do {
    skipBlanks();
    const std::size_t start = at_;
    const Auctions more = sequence(before, depth + 1);
    if (at_ == start) failWithoutCall();
    add(more, all);
  } while (take('|'));
  if (take(')')) return std::move(all.auctions);
  if (at_ < pattern_.size()) failWithoutCall();
  fail(Code::badPattern, open, "this parenthesis is not closed", "write a ) where it ends");
}

Auctions Reader::call(const Auctions& before) {
  const std::size_t start = at_;
  at_ = std::min(pattern_.find_first_of("()|? \t\r\n", at_), pattern_.size());
  const std::string_view word = pattern_.substr(start, at_ - start);
  const std::optional<Call> call = callIn(word);
  if (!call) {
    at_ = start;
    failAtCall(word);
  }
  Auctions longer;
  for (const Auction& auction : before) longer.push_back(lengthened(auction, *call, start));
  countSteps(longer.size());
  return longer;
}

Auction Reader::lengthened(const Auction& auction, Call call, std::size_t offset) {
  if (auction.isOver()) {
    fail(Code::impossibleAuction, offset,
         "nobody calls any more after " + inShort(written(auction)), "take calls away");
  }
  if (!auction.allows(call)) {
    const std::string calls = auction.size() == 0 ? "first" : "after " + inShort(written(auction));
    fail(Code::impossibleAuction, offset, nameOf(call) + " is not allowed " + calls,
         "take it away, or write several patterns");
  }
  Auction longer = auction;
  longer.add(call);
  return longer;
}

void Reader::add(const Auctions& auctions, Union& all) {
  countSteps(auctions.size());
  for (const Auction& auction : auctions) {
    if (all.known.insert(auction.calls()).second) all.auctions.push_back(auction);
  }
  if (all.auctions.size() > mostAuctions) failWithTooMany();
}

// The same auctions can be meant again and again, at a cost.
void Reader::countSteps(std::size_t count) {
  steps_ += count;
  if (steps_ > mostSteps) failWithTooMany();
}

void Reader::checkEnds(const Auctions& all) const {
  for (const Auction& auction : all) {
    if (!auction.isOver()) continue;
    fail(Code::impossibleAuction, pattern_.size(),
         "nobody calls any more after " + inShort(written(auction)),
         "end where the chart's player calls next");
  }
}

// What stands behind all that could be read.
void Reader::failAtMark() const {
  if (pattern_[at_] == '|') {
    fail(Code::badPattern, at_, "alternatives stand in parentheses", "write them as in (1C|1D)");
  }
  if (pattern_[at_] == ')') {
    fail(Code::badPattern, at_, "no parenthesis is open here", "take the ) away");
  }
  failWithoutCall();
}

void Reader::failWithoutCall() const {
  const bool isEnd = at_ == pattern_.size();
  fail(Code::badPattern, at_,
       "a call is missing " + (isEnd ? "at the end" : std::string("before this ") + pattern_[at_]),
       "write calls as in P? (1C|1D) P");
}

void Reader::failAtCall(std::string_view word) const {
  const bool isJoined = word.find_first_of("-,;–") != std::string_view::npos;
  fail(Code::badPattern, at_, inShort(word) + " is no call",
       isJoined ? "write blanks between calls" : "calls are written as 1NT, 2C, P, X and XX");
}

}  // namespace

std::variant<std::vector<Auction>, Fault> auctionsOf(std::string_view pattern) {
  if (pattern.size() > longestPattern) {
    return Fault{Code::tooManyAuctions, longestPattern, "the pattern is longer than 1,000 bytes",
                 "write several patterns"};
  }
  return Reader(pattern).read();
}

std::optional<Fault> PatternAuctions::add(std::string_view pattern) {
  const auto areTooMany = [this] { return patterns_ > mostPatterns || auctions_ > mostAuctions; };
  if (areTooMany()) return std::nullopt;
  ++patterns_;
  auto read = auctionsOf(pattern);
  if (const auto* fault = std::get_if<Fault>(&read)) return *fault;
  auto& auctions = std::get<std::vector<Auction>>(read);
  auctions_ += auctions.size();
  if (areTooMany()) {
    return Fault{Code::tooManyAuctions, 0,
                 "all patterns together stand for more than 10,000 auctions, or are more than 100",
                 "name the calls that matter"};
  }
  for (Auction& auction : auctions) {
    if (known_.insert(auction.calls()).second) all_.push_back(std::move(auction));
  }
  return std::nullopt;
}

}  // namespace tavrel::hands
