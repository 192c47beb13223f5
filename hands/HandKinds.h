// Hands of all kinds: one for each that expressions can tell from the others.

#ifndef TAVREL_HANDS_HANDKINDS_H
#define TAVREL_HANDS_HANDKINDS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

#include "hands/Hand.h"
#include "hands/Names.h"

namespace tavrel::hands {

/// The lengths of the suits, by suit.
using Lengths = std::array<unsigned char, 4>;

/// All 560 of them that a hand can have.
const std::vector<Lengths>& allLengths();

/// Some hand with these lengths.
Hand handOf(const Lengths& lengths);

/// Tells hands apart by what counts over all suits together, such as points, and by the top
/// honours of those suits alone in which these matter.
struct Distinction {
  unsigned basis = noCards;  ///< see Basis
  unsigned topSuits = 0;     ///< a bit for each suit, that of clubs the lowest

  friend bool operator<(const Distinction& a, const Distinction& b) {
    return std::tie(a.basis, a.topSuits) < std::tie(b.basis, b.topSuits);
  }
};

class HandKinds {
 public:
  /// A hand of each kind that there is with these lengths; nullptr where there are too many to
  /// hold. It stays until the next call. What is asked for again is remembered. Cost: else some
  /// tens of nanoseconds for each.
  const std::vector<Hand>* of(const Lengths& lengths, const Distinction& distinction);

 private:
  struct Part {
    std::uint64_t sums;
    std::uint32_t tops;
    Holding holding;
  };
  using Parts = std::array<std::vector<Part>, cardsInSuit + 1>;  // by length

  const Parts& partsFor(unsigned basis, bool hasTops);
  bool make(const Lengths& lengths, const Distinction& distinction, std::vector<Hand>& hands);

  std::map<std::pair<unsigned, bool>, Parts> parts_;
  std::map<std::pair<Distinction, Lengths>, std::vector<Hand>> hands_;
  std::size_t held_ = 0;  // hands in hands_
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_HANDKINDS_H
