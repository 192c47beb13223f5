// How copies end that would grow too large.

#include "authoring/Unfolding.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "tests/authoring/Grid.h"

namespace tavrel::authoring {
namespace {

// A question with two ends, reached from two places: five nodes and a line.
const ChartGraph shared = graphOf({{1, 2}, {3, 4}, {1, -1}, {-1, -1}, {-1, -1}});

TEST(Unfolding, CopiesAsManyNodesAsThereMayBe) {
  Unfolding tree(shared);
  ASSERT_EQ(tree.nodes().size(), 5U);
  ASSERT_EQ(tree.lines().size(), 1U);
  EXPECT_TRUE(tree.repeat(tree.lines()[0], 8));
  EXPECT_EQ(tree.nodes().size(), 8U);
  EXPECT_TRUE(tree.lines().empty());
}

TEST(Unfolding, StopsACopyBeforeTheFirstNodeTooMany) {
  for (std::size_t most = 5; most < 8; ++most) {
    Unfolding tree(shared);
    EXPECT_FALSE(tree.repeat(tree.lines()[0], most)) << most;
    EXPECT_EQ(tree.nodes().size(), most);
  }
}

}  // namespace
}  // namespace tavrel::authoring
