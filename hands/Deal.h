// Cards dealt at random.

#ifndef TAVREL_HANDS_DEAL_H
#define TAVREL_HANDS_DEAL_H

#include <array>
#include <cstdint>

#include "hands/Auction.h"
#include "hands/Hand.h"

namespace tavrel::hands {

/// Random numbers: SplitMix64, which needs no time to be made. The same seeds give the same
/// numbers on every machine.
class Random {
 public:
  /// The `index`-th sequence of a seed. Those of different indices have nothing to do with one
  /// another.
  explicit Random(std::uint64_t seed, std::uint64_t index = 0);

  std::uint64_t next();

  /// A number from 0 to bound - 1, each as likely as another. REQUIRES: bound > 0.
  std::uint32_t below(std::uint32_t bound);

 private:
  std::uint64_t state_;
};

/// The hands of all four players, of which the first may be anybody.
using Deal = std::array<Hand, playerCount>;

Deal deal(Random& random);

/// One hand of a deal. Cost: thirteen random numbers.
Hand dealHand(Random& random);

/// The hand with one of its cards, each as likely as any other, exchanged for one that it hasn't.
/// REQUIRES: it has neither no card nor the whole pack.
Hand withAnotherCard(Hand hand, Random& random);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_DEAL_H
