// What a window of a large drawing shows.

#include <cstdint>
#include <limits>
#include <string>

#include "tests/drawing/CrowdedChart.h"
#include "tests/drawing/DrawingTest.h"

namespace tavrel {
namespace {

bool same(const TextCell& a, const TextCell& b) {
  return a.glyph == b.glyph && a.ink == b.ink && a.lit == b.lit && a.current == b.current;
}

// The cell of the whole picture, blank beyond it.
TextCell cellOf(const TextPicture& whole, std::int64_t row, std::int64_t column) {
  if (row < 0 || row >= whole.height() || column < 0 || column >= whole.width()) return {};
  return whole.at(static_cast<int>(row), static_cast<int>(column));
}

void expectPartOf(const TextPicture& whole, const TextPicture& part, const TextWindow& window) {
  ASSERT_EQ(part.width(), window.width);
  ASSERT_EQ(part.height(), window.height);
  for (int row = 0; row < part.height(); ++row) {
    for (int column = 0; column < part.width(); ++column) {
      const TextCell expected = cellOf(whole, window.top + row, window.left + column);
      ASSERT_TRUE(same(part.at(row, column), expected))
          << row << ", " << column << " of " << window.left << ", " << window.top;
    }
  }
}

class TextChartWindow : public DrawingTest {};

TEST_F(TextChartWindow, IsAPartOfTheWholePicture) {
  drawn(crowdedChart());
  const TextPicture whole = wholePicture(navigator);
  const TextChart chart(navigator, Charset::utf8);
  for (int left = -9; left < whole.width() + 9; left += 5) {
    for (int top = -4; top < whole.height() + 4; top += 3) {
      const TextWindow window{left, top, 17, 7};
      expectPartOf(whole, chart.paint(navigator, window), window);
    }
  }
}

TEST_F(TextChartWindow, MayBeOneCharacter) {
  select(ChartFile().box(0, 0, "12+?", xPlus).run(1, 0, xPlus, 2).box(3, 0, "Open"), "y");
  const TextPicture whole = wholePicture(navigator);
  const TextChart chart(navigator, Charset::utf8);
  for (int row = 0; row < whole.height(); ++row) {
    for (int column = 0; column < whole.width(); ++column) {
      const TextWindow window{column, row, 1, 1};
      expectPartOf(whole, chart.paint(navigator, window), window);
    }
  }
}

TEST_F(TextChartWindow, IsBlankBeyondTheDrawing) {
  select(ChartFile().box(0, 0, "A"));
  const TextChart chart(navigator, Charset::plain);
  EXPECT_EQ(shown(chart.paint(navigator, {-2, -1, 9, 5})), R"(

  +===+
  # A #
  +===+

)");
  constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  for (const TextWindow& window :
       {TextWindow{least, 0, 4, 1}, TextWindow{most, 0, 4, 1}, TextWindow{0, least, 4, 1},
        TextWindow{0, most, 4, 1}, TextWindow{5, 0, 4, 1}, TextWindow{-4, 0, 4, 1}}) {
    EXPECT_EQ(shown(chart.paint(navigator, window)), "\n\n") << window.left << ", " << window.top;
  }
}

TEST_F(TextChartWindow, MayHaveNoSize) {
  select(ChartFile().box(0, 0, "A"));
  const TextChart chart(navigator, Charset::utf8);
  EXPECT_EQ(chart.paint(navigator, {1, 1, 0, 5}).width(), 0);
  EXPECT_EQ(chart.paint(navigator, {1, 1, 5, -3}).height(), 0);
  EXPECT_EQ(chart.paint(navigator, {1, 1, -5, -3}).width(), 0);
}

TEST_F(TextChartWindow, ShowsABlankForHalfAWideCharacter) {
  select(ChartFile().box(0, 0, "日本"));
  const TextChart chart(navigator, Charset::utf8);
  EXPECT_EQ(chart.paint(navigator, {3, 1, 5, 1}).line(0), " 本 ┃");
  EXPECT_EQ(chart.paint(navigator, {0, 1, 5, 1}).line(0), "┃ 日");
}

TEST_F(TextChartWindow, ReachesABoxHoweverFarAway) {
  constexpr std::int64_t far = 100000000;
  select(ChartFile().box(0, 0, "Here", xPlus).box(far, 0, "There").box(far, 200, "Below"));
  const TextChart chart(navigator, Charset::utf8);
  EXPECT_GT(chart.width(), far);
  const TextWindow frame = chart.frameOf(far, 0);
  EXPECT_EQ(shown(chart.paint(navigator, frame)), R"(
╭───────╮
│ There │
╰───────╯
)");
  EXPECT_EQ(frame.left + frame.width, chart.width());
  EXPECT_EQ(shown(chart.paint(navigator, {chart.width() / 2, 0, 10, 2})), "\n\n\n");
}

}  // namespace
}  // namespace tavrel
