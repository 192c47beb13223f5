// Charts for the tests of hands, from their sources.

#ifndef TAVREL_TESTS_HANDS_TESTCHART_H
#define TAVREL_TESTS_HANDS_TESTCHART_H

#include <string>
#include <vector>

#include "facade/Tavrel.h"
#include "hands/HandChart.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel::hands {

/// A compiled source: the elements as the navigator gives them, and the conditions. Throws
/// std::invalid_argument, with all that was found, if there is an error in it.
class TestChart {
 public:
  explicit TestChart(const std::string& source);

  const HandChart& chart() const { return chart_; }

  /// The box with this id. Throws std::out_of_range if there is none.
  BoxIndex box(const std::string& id) const;

  /// The folder where its file is.
  const TemporaryDirectory& folder() const { return folder_; }

 private:
  HandChart made(const std::string& source);

  TemporaryDirectory folder_;
  HandChart chart_;
};

}  // namespace tavrel::hands

#endif  // TAVREL_TESTS_HANDS_TESTCHART_H
