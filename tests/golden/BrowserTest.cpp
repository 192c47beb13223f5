// A drawing in a browser. Built where Chromium is found, as .ci/run sees to.

#include <gtest/gtest.h>

#include <string>

#include "PictureFixture.h"
#include "Squares.h"

namespace tavrel {
namespace {

using BrowserTest = PictureTest;

// Browsers hint letters and lines below words in other ways.
constexpr int tolerance = 64;  // of 255

TEST_F(BrowserTest, ShowsADrawingAsItsPng) {
  for (const std::string theme : {"light", "dark", "print"}) {
    const std::string words = loops + " --answers yn --theme " + theme;
    ASSERT_EQ(draw(words + " -o chart.png", here.path()), "exit 0");
    ASSERT_EQ(draw(words + " -o chart.svg", here.path()), "exit 0");
    const Squares picture = squaresOf(here.path() / "chart.png");
    run(TAVREL_CHROMIUM
        " --headless --no-sandbox --disable-gpu --hide-scrollbars"
        " --force-device-scale-factor=2 --window-size=" +
        std::to_string(picture.width * 4 + 8) + "," + std::to_string(picture.height * 4 + 8) +
        " --screenshot=browser.png chart.svg 2>log");
    const Squares browser = squaresOf(here.path() / "browser.png");
    EXPECT_LE(difference(picture, cropped(browser, picture.width, picture.height)), tolerance);
  }
}

}  // namespace
}  // namespace tavrel
