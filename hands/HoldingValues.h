// What the cards of one suit are worth.

#ifndef TAVREL_HANDS_HOLDINGVALUES_H
#define TAVREL_HANDS_HOLDINGVALUES_H

#include <cstdint>

#include "hands/Hand.h"

namespace tavrel::hands {

/// Numbers that are added up over the suits, one a byte: four suits never carry over.
class HoldingValues {
 public:
  enum Field : unsigned {
    hcp,
    lengthPoints,
    controls,
    halfQuickTricks,
    losers,
    aces,
    kings,
    length
  };

  constexpr HoldingValues() = default;

  constexpr unsigned operator[](Field field) const {
    return static_cast<unsigned>(bytes_ >> (8 * field)) & 0xFF;
  }

  /// All fields in one: sums of it are the sums of the fields.
  constexpr std::uint64_t number() const { return bytes_; }

  constexpr void add(Field field, unsigned value) { bytes_ += std::uint64_t{value} << (8 * field); }

  friend constexpr HoldingValues operator+(HoldingValues a, HoldingValues b) {
    a.bytes_ += b.bytes_;
    return a;
  }

 private:
  std::uint64_t bytes_ = 0;
};

/// Those of a holding. Cost: a look into a table of 64 KB, which the first call makes.
const HoldingValues& valuesOf(Holding holding);

/// How many of the highest `count` cards of the suit it has.
unsigned topsOf(Holding holding, unsigned count);

/// Whether it keeps the opponents from running the suit: A, Kx, Qxx or Jxxx.
bool isStopper(Holding holding);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_HOLDINGVALUES_H
