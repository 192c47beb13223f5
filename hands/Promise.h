// What a box says of the hands that come to it: "15–17 HCP", "5+ hearts".

#ifndef TAVREL_HANDS_PROMISE_H
#define TAVREL_HANDS_PROMISE_H

#include <optional>
#include <string>
#include <vector>

#include "hands/Evaluation.h"

namespace tavrel::hands {

/// The points or the length of a suit, as a text states them; both bounds belong to it.
struct Promise {
  Variable what = Variable::hcp;  ///< or spades, hearts, diamonds, clubs
  int low = 0;
  std::optional<int> high;
  std::string words;  ///< as they stand in the text

  bool isKeptBy(const Evaluation& evaluation) const {
    const double value = evaluation[what];
    return value >= low && (!high || value <= *high);
  }
};

/// The promises that the lines of a box make without a doubt. What they say with "or", "if" and
/// the like, of partner, or of points that aren't HCP promises nothing.
std::vector<Promise> promisesIn(const std::vector<std::string>& lines);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_PROMISE_H
