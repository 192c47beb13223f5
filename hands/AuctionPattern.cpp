#include "hands/AuctionPattern.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "authoring/InShort.h"

namespace tavrel::hands {
namespace {

using authoring::Code;
using authoring::inShort;

constexpr std::size_t longestPattern = 1000;  // in bytes
constexpr int deepest = 10;                   // of groups in one another
constexpr std::size_t mostSteps = 100 * mostAuctions;

using Auctions = std::vector<Auction>;

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
  void append(Auctions& all, std::set<std::vector<Call>>& known, const Auctions& more);
  Auctions joined(const Auctions& some, const Auctions& others);

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
    auctions = take('?') ? joined(auctions, longer) : std::move(longer);
  }
  return auctions;
}

Auctions Reader::group(const Auctions& before, int depth) {
  const std::size_t open = at_++;
  if (depth == deepest) {
    fail(Code::badPattern, open, "parentheses stand in one another more than 10 deep",
         "write several patterns");
  }
  Auctions all;
  do {
    skipBlanks();
    const std::size_t start = at_;
    const Auctions more = sequence(before, depth + 1);
    if (at_ == start) failWithoutCall();
    all = all.empty() ? more : joined(all, more);
  } while (take('|'));
  if (take(')')) return all;
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
  return joined(longer, {});
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

void Reader::append(Auctions& all, std::set<std::vector<Call>>& known, const Auctions& more) {
  for (const Auction& auction : more) {
    if (known.insert(auction.calls()).second) all.push_back(auction);
    if (++steps_ > mostSteps || all.size() > mostAuctions) {
      fail(Code::tooManyAuctions, 0, "the pattern stands for more than 10,000 auctions",
           "name the calls that matter");
    }
  }
}

// All of both, each once.
Auctions Reader::joined(const Auctions& some, const Auctions& others) {
  Auctions all;
  std::set<std::vector<Call>> known;
  append(all, known, some);
  append(all, known, others);
  return all;
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

}  // namespace tavrel::hands
