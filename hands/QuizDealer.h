// Deals hands that make a wanted call.

#ifndef TAVREL_HANDS_QUIZDEALER_H
#define TAVREL_HANDS_QUIZDEALER_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "hands/Deal.h"
#include "hands/Table.h"
#include "hands/Walker.h"

namespace tavrel::hands {

/// All that a player is told who has to make a call. What the call is isn't in it.
struct QuizQuestion {
  Hand hand;
  Table table;
};

/// Deals for one chart, end by end, so that rare calls come up as often as common ones. The same
/// random numbers give the same hands, whatever was dealt before.
class QuizDealer {
 public:
  /// The chart must outlive the dealer.
  explicit QuizDealer(const HandChart& chart);

  const HandChart& chart() const { return walker_.chart(); }

  /// The names of the ends that make a call, each once however many cells it stands in. None, if
  /// the chart doesn't say which auctions it is for.
  const std::vector<std::string>& ends() const { return names_; }

  /// The first cell's box of an end. REQUIRES: end < ends().size().
  BoxIndex boxOf(std::size_t end) const;

  /// A hand and a table for which the chart is, and which come to the end without anybody's
  /// judgement and make a call there that the laws allow. std::nullopt if none was found.
  /// REQUIRES: end < ends().size(). Cost: some 10,000 walks for a rare end, and 200,000 before it
  /// gives up.
  std::optional<QuizQuestion> deal(std::size_t end, Random& random);

  /// Walks the hand, and returns the call that it makes; the walker shows the way.
  Call walk(const QuizQuestion& question);

  Walker& walker() { return walker_; }

 private:
  static constexpr std::size_t noEnd = static_cast<std::size_t>(-1);

  bool sit(const QuizQuestion& question);
  bool makesCallAt(std::size_t end);
  QuizQuestion dealAny(Random& random);
  QuizQuestion changed(const QuizQuestion& question, Random& random) const;
  std::optional<QuizQuestion> dealByChance(std::size_t end, Random& random);
  std::optional<QuizQuestion> approach(std::size_t end, Random& random);
  QuizQuestion stirred(QuizQuestion question, std::size_t end, Random& random);
  std::vector<std::size_t> distancesTo(std::size_t end) const;
  std::size_t distanceOf(const QuizQuestion& question, const std::vector<std::size_t>& distances);

  Walker walker_;
  std::vector<std::string> names_;
  std::vector<std::size_t> ends_;  // by box: the index of its name, or noEnd
  QuizQuestion seated_;            // what the walker's evaluation has
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_QUIZDEALER_H
