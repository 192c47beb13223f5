// The colours of pictures can be told from what is behind them.

#include "drawing/Theme.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace tavrel::drawing {
namespace {

constexpr Theme themes[] = {Theme::light, Theme::dark, Theme::print, Theme::twoColour};

// As the guidelines for accessible content (WCAG 2) define them.
double luminance(std::string_view colour) {
  const auto part = [&](std::size_t at) {
    const double value = std::stoi(std::string(colour.substr(at, 2)), nullptr, 16) / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(1) + 0.7152 * part(3) + 0.0722 * part(5);
}

double contrast(std::string_view a, std::string_view b) {
  const double lighter = std::max(luminance(a), luminance(b));
  const double darker = std::min(luminance(a), luminance(b));
  return (lighter + 0.05) / (darker + 0.05);
}

TEST(Theme, LetsAllTextStandOutFromWhatIsBehindIt) {
  for (const Theme theme : themes) {
    const Colours& colours = coloursOf(theme);
    for (const std::string_view behind : {colours.paper, colours.box, colours.place}) {
      for (const Ink ink : {Ink::text, Ink::label, Ink::link, Ink::clubs, Ink::diamonds,
                            Ink::hearts, Ink::spades}) {
        EXPECT_GE(contrast(colourOf(ink, colours), behind), 4.5)
            << "theme " << static_cast<int>(theme) << ", " << colourOf(ink, colours) << " on "
            << behind;
      }
    }
  }
}

TEST(Theme, LetsFramesAndLinesStandOutFromThePaper) {
  for (const Theme theme : themes) {
    const Colours& colours = coloursOf(theme);
    for (const std::string_view colour : {colours.frame, colours.line, colours.path}) {
      EXPECT_GE(contrast(colour, colours.paper), 4.5) << colour;
    }
  }
}

TEST(Theme, HasFourSuitColoursTwoOrOne) {
  for (const Theme theme : {Theme::light, Theme::dark}) {
    const Colours& four = coloursOf(theme);
    EXPECT_NE(four.clubs, four.spades);
    EXPECT_NE(four.diamonds, four.hearts);
  }
  const Colours& two = coloursOf(Theme::twoColour);
  EXPECT_EQ(two.clubs, two.spades);
  EXPECT_EQ(two.diamonds, two.hearts);
  EXPECT_NE(two.spades, two.hearts);
  const Colours& one = coloursOf(Theme::print);
  EXPECT_EQ(one.hearts, one.spades);
  EXPECT_EQ(colourOf(Ink::frame, one), colourOf(Ink::line, one));
}

}  // namespace
}  // namespace tavrel::drawing
