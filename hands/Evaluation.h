// A hand at a table, as expressions see it.

#ifndef TAVREL_HANDS_EVALUATION_H
#define TAVREL_HANDS_EVALUATION_H

#include <array>
#include <cstddef>

#include "hands/Hand.h"
#include "hands/Names.h"
#include "hands/Table.h"

namespace tavrel::hands {

/// The values of all names, worked out once for a hand and once for a table. Expressions look at
/// the object that they were made for, which therefore stays where it is.
///
/// Suits are numbered as strains. The functions take any number: what is no suit has no cards,
/// and what is no call has no level.
class Evaluation {
 public:
  /// No cards at a table where nobody has called.
  Evaluation();
  Evaluation(const Evaluation&) = delete;
  Evaluation& operator=(const Evaluation&) = delete;

  /// Cost: some tens of nanoseconds.
  void setHand(Hand hand);

  /// The table must stay as it is until another one is set. Cost: one pass over its auction.
  void setTable(const Table& table);

  Hand hand() const { return hand_; }

  double operator[](Variable variable) const { return values_[static_cast<std::size_t>(variable)]; }

  /// Where the value of a variable stands, as long as the object lives.
  double* placeOf(Variable variable) { return &at(variable); }

  double length(double suit) const;
  double shape(double a, double b, double c, double d) const;
  double exact(double spades, double hearts, double diamonds, double clubs) const;
  double stopper(double suit) const;
  double tops(double suit, double count) const;
  double callOf(Player player, double n) const;

 private:
  double& at(Variable variable) { return values_[static_cast<std::size_t>(variable)]; }
  void setLengths();
  void setSupport();
  Holding holdingOf(double suit) const;

  std::array<double, variableCount> values_ = {};
  std::array<unsigned char, 4> lengths_ = {};  // by suit
  std::array<unsigned char, 4> sorted_ = {};   // the lengths, the longest first
  Hand hand_;
  const Table* table_;
};

/// The strain of a call, as a number.
double suitOf(double call);

/// The level of a call, as a number.
double level(double call);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_EVALUATION_H
