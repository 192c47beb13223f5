// How a picture is spread over pages, and what its text is measured by.

#include "drawing/PageLayout.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "drawing/FontWidths.h"

namespace tavrel::drawing {
namespace {

constexpr double textHeight = 14;  // of a picture, in its units

TEST(PageLayout, HasOnePageOfThePicturesSizeWithoutPaper) {
  const PageLayout layout = pageLayoutOf({1000, 400, {}}, Paper::fit);
  EXPECT_DOUBLE_EQ(layout.page.width, 750);
  EXPECT_DOUBLE_EQ(layout.page.height, 300);
  EXPECT_FALSE(layout.isTiled());
}

TEST(PageLayout, MakesAHugePageAsSmallAsReadersNeed) {
  const PageLayout layout = pageLayoutOf({1000, 200000, {}}, Paper::fit);
  EXPECT_DOUBLE_EQ(layout.page.height, 14400);
  EXPECT_DOUBLE_EQ(layout.page.width, 72);
}

TEST(PageLayout, LeavesASmallPictureItsSizeInTheMiddleOfThePaper) {
  const PageLayout layout = pageLayoutOf({200, 100, {}}, Paper::a4);
  EXPECT_DOUBLE_EQ(layout.scale, 0.75);
  EXPECT_DOUBLE_EQ(layout.left, (layout.page.width - 150) / 2);
  EXPECT_DOUBLE_EQ(layout.top, (layout.page.height - 75) / 2);
}

TEST(PageLayout, TurnsThePaperToShowMore) {
  const PageLayout wide = pageLayoutOf({1200, 700, {}}, Paper::letter);
  EXPECT_GT(wide.page.width, wide.page.height);
  const PageLayout high = pageLayoutOf({700, 1200, {}}, Paper::letter);
  EXPECT_LT(high.page.width, high.page.height);
}

TEST(PageLayout, FitsOnePageWhileTheTextCanBeRead) {
  const PageLayout layout = pageLayoutOf({900, 1600, {}}, Paper::a4);
  EXPECT_FALSE(layout.isTiled());
  EXPECT_GE(layout.scale * textHeight, 6.5);
  EXPECT_LE(1600 * layout.scale, layout.page.height - 72 + 0.001);
}

TEST(PageLayout, TurnsThePaperToNeedFewerPages) {
  const PageLayout wide = pageLayoutOf({2200, 800, {}}, Paper::letter);
  EXPECT_GT(wide.page.width, wide.page.height);
  EXPECT_EQ(wide.columns.size(), 2U);
  EXPECT_EQ(wide.rows.size(), 1U);
}

// The spans follow one another, none larger than a page, and cover the whole.
void expectToCover(const std::vector<PageSpan>& spans, std::int64_t length, double onePage) {
  std::int64_t end = 0;
  for (const PageSpan& span : spans) {
    EXPECT_EQ(span.start, end);
    EXPECT_LE(static_cast<double>(span.length), onePage);
    end = span.start + span.length;
  }
  EXPECT_EQ(end, length);
}

TEST(PageLayout, SpreadsALargerPictureOverPagesThatHoldAllOfIt) {
  const PageLayout layout = pageLayoutOf({3000, 2000, {}}, Paper::a4);
  EXPECT_TRUE(layout.isTiled());
  EXPECT_DOUBLE_EQ(layout.scale * textHeight, 9);
  expectToCover(layout.columns, 3000, (layout.page.width - 72) / layout.scale);
  expectToCover(layout.rows, 2000, (layout.page.height - 72) / layout.scale);
}

TEST(PageLayout, CutsBetweenColumnsAndRowsWhereItCan) {
  const SvgCuts cuts{{500, 1000, 1500, 2900}, {400, 800}};
  const PageLayout layout = pageLayoutOf({3000, 1900, cuts}, Paper::letter);
  ASSERT_GE(layout.columns.size(), 2U);
  EXPECT_EQ(layout.rows[0].length, 800);
  expectToCover(layout.columns, 3000, (layout.page.width - 72) / layout.scale);
  expectToCover(layout.rows, 1900, (layout.page.height - 72) / layout.scale);
  for (std::size_t i = 1; i < layout.columns.size(); ++i) {
    const std::int64_t start = layout.columns[i].start;
    const bool isCut = start == 500 || start == 1000 || start == 1500 || start == 2900;
    EXPECT_TRUE(isCut || layout.columns[i - 1].start >= 1500) << start;
  }
}

TEST(PageLayout, MakesTextALittleSmallerWhereThatSavesPages) {
  const PageLayout layout = pageLayoutOf({887, 1828, {}}, Paper::a4);
  EXPECT_LT(layout.page.width, layout.page.height);
  EXPECT_EQ(layout.columns.size(), 1U);
  EXPECT_EQ(layout.rows.size(), 2U);
  EXPECT_DOUBLE_EQ(layout.scale * textHeight, 8);
}

TEST(PageLayout, MakesTextNoSmallerThanItMustBeToSavePages) {
  const PageLayout layout = pageLayoutOf({850, 1828, {}}, Paper::a4);
  EXPECT_EQ(layout.columns.size() * layout.rows.size(), 2U);
  EXPECT_DOUBLE_EQ(layout.scale * textHeight, 8.5);
}

TEST(PageLayout, RefusesAPictureOfTooManyPages) {
  EXPECT_NO_THROW(pageLayoutOf({5000, 90000, {}}, Paper::letter));
  EXPECT_THROW(pageLayoutOf({50000, 100000, {}}, Paper::letter), std::runtime_error);
  EXPECT_THROW(pageLayoutOf({10'000'000'000, 10'000'000'000, {}}, Paper::a4), std::runtime_error);
}

TEST(FontWidths, FollowTheLettersAndTheSize) {
  EXPECT_EQ(fontWidth("", 14), 0);
  EXPECT_LT(fontWidth("ill", 14), fontWidth("www", 14));
  EXPECT_EQ(fontWidth("Pass", 20), 2 * fontWidth("Pass", 10));
  EXPECT_EQ(fontWidth("M", 1000), 863);
}

TEST(FontWidths, KnowAccentsSuitsDashesAndWideLetters) {
  EXPECT_EQ(fontWidth("é", 100), fontWidth("e", 100));
  EXPECT_EQ(fontWidth("e\u0301", 100), fontWidth("e", 100));
  EXPECT_GT(fontWidth("♠", 100), fontWidth("S", 100));
  EXPECT_LT(fontWidth("–", 100), fontWidth("—", 100));
  EXPECT_GT(fontWidth("漢", 100), fontWidth("M", 100));
  EXPECT_EQ(fontWidth("Ж", 100), 110);
  EXPECT_EQ(fontWidth("\u200B", 100), 0);
}

}  // namespace
}  // namespace tavrel::drawing
