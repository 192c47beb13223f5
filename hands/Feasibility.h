// Whether any hand fulfils some conditions together: not by chance, but by all kinds of hands.

#ifndef TAVREL_HANDS_FEASIBILITY_H
#define TAVREL_HANDS_FEASIBILITY_H

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "hands/Evaluation.h"
#include "hands/HandKinds.h"
#include "hands/Table.h"
#include "hands/Tally.h"

namespace tavrel::hands {

/// An expression, and what it is to be.
struct Wanted {
  std::string text;  ///< one that checkExpression() finds nothing wrong with
  bool isTrue = true;

  friend bool operator==(const Wanted& a, const Wanted& b) {
    return a.isTrue == b.isTrue && a.text == b.text;
  }
};

enum class Verdict { found, none, unsettled };

struct Search {
  Verdict verdict = Verdict::unsettled;
  Position position;  ///< where found
};

/// Looks for hands at the tables of a chart. Hands that agree in all that the conditions look at
/// count as one: as many are tried as there are kinds of them, and those whose lengths alone are
/// wrong all at once. For one thread at a time.
class Feasibility {
 public:
  /// So many kinds of hands are tried for one search, and for all of an object. Each takes some
  /// tens of nanoseconds for each condition.
  static constexpr std::uint64_t mostForOne = 4'000'000, mostForAll = 60'000'000;

  /// The tables must outlive it.
  explicit Feasibility(const std::vector<Table>& tables, std::uint64_t mostForEach = mostForOne);
  ~Feasibility();

  /// A hand and a table at which all is as wanted. Verdict::none says that there can't be one,
  /// Verdict::unsettled that there are too many kinds of hands, and that a search that changes
  /// hands card by card found none either.
  Search find(const std::vector<Wanted>& all);

  /// Which of them are as wanted with this hand at this table.
  std::vector<bool> fulfilled(const std::vector<Wanted>& all, Position position);

 private:
  struct Known;
  class Trial;

  const Known& known(const std::string& text);

  const std::vector<Table>& tables_;
  const std::uint64_t mostForEach_;
  std::uint64_t left_ = mostForAll;
  Evaluation evaluation_;
  std::map<std::string, std::unique_ptr<const Known>> known_;
  HandKinds kinds_;
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_FEASIBILITY_H
