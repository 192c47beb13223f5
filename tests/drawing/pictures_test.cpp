// PNG pictures and PDF pages: their sizes, their limits, and what they say when they can't be
// made. What they look like is compared in tests/golden.

#include "drawing/Pictures.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

#include "tests/drawing/DrawingTest.h"
#include "tests/support/Allocations.h"

extern "C" const tavrel::PictureMakers tavrelPictureMakers;

namespace tavrel {
namespace {

struct SurfaceDestroyer {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Image = std::unique_ptr<cairo_surface_t, SurfaceDestroyer>;

cairo_status_t takeBytes(void* from, unsigned char* bytes, unsigned int count) {
  std::string& rest = *static_cast<std::string*>(from);
  if (rest.size() < count) return CAIRO_STATUS_READ_ERROR;
  std::copy_n(rest.begin(), count, bytes);
  rest.erase(0, count);
  return CAIRO_STATUS_SUCCESS;
}

Image readPng(std::string bytes) {
  Image image(cairo_image_surface_create_from_png_stream(takeBytes, &bytes));
  EXPECT_EQ(cairo_surface_status(image.get()), CAIRO_STATUS_SUCCESS);
  return image;
}

// Red, green and blue of the pixel in the upper left corner, a byte each.
std::uint32_t cornerOf(const Image& image) {
  const auto* const pixel =
      reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(image.get()));
  return *pixel & 0xFFFFFFU;
}

std::size_t count(const std::string& text, const std::string& what) {
  std::size_t found = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
    ++found;
  }
  return found;
}

std::size_t pagesOf(const std::string& pdf) {
  return count(pdf, "/Type /Page") - count(pdf, "/Type /Pages");
}

ChartFile question() {
  return ChartFile().box(0, 0, "12+?", xPlus, yPlus).link(1, 0, "1NT", "RespNT").box(0, 1, "Pass");
}

class PicturesTest : public DrawingTest {
 protected:
  SvgChart chart(const SvgOptions& options = {}) { return SvgChart(navigator, options); }

  std::string png(const SvgOptions& options = {}) {
    return tavrelPictureMakers.png(chart(options));
  }

  std::string pdf(const PdfOptions& options, const SvgOptions& svg = {}) {
    return tavrelPictureMakers.pdf(chart(svg), options);
  }

  // What goes wrong; empty for nothing.
  template <typename Make>
  static std::string problemOf(const Make& make) {
    try {
      make();
    } catch (const std::runtime_error& problem) {
      return problem.what();
    }
    return "";
  }

  // The words on the pages, a form feed behind each page.
  std::string wordsOf(const std::string& pages) {
    writeFile(directory.path() / "chart.pdf", pages);
    const std::string here = "cd '" + directory.path().string() + "' && ";
    EXPECT_EQ(std::system((here + "pdftotext chart.pdf chart.txt").c_str()), 0);
    return readFile(directory.path() / "chart.txt");
  }
};

TEST_F(PicturesTest, HaveTwoPixelsForEachUnit) {
  select(question());
  const Image image = readPng(png());
  EXPECT_EQ(cairo_image_surface_get_width(image.get()), 2 * chart().width());
  EXPECT_EQ(cairo_image_surface_get_height(image.get()), 2 * chart().height());
}

TEST_F(PicturesTest, HaveTheColoursOfTheirTheme) {
  select(question());
  EXPECT_EQ(cornerOf(readPng(png())), 0xFFFFFFU);
  SvgOptions dark;
  dark.theme = Theme::dark;
  EXPECT_EQ(cornerOf(readPng(png(dark))), 0x14161AU);
}

TEST_F(PicturesTest, MayBeTooLongForPng) {
  select(ChartFile().box(0, 0, "Here?", xPlus).box(20000, 0, "Far away"));
  const std::string problem = problemOf([this] { png(); });
  EXPECT_EQ(problem, "it would be " + std::to_string(2 * chart().width()) + " by " +
                         std::to_string(2 * chart().height()) +
                         " pixels, which is too large for PNG; draw an SVG or a PDF");
}

TEST_F(PicturesTest, MayHaveTooManyPixelsForPng) {
  select(ChartFile().box(0, 0, "Here?", xPlus).box(100, 300, "Far away"));
  ASSERT_LT(2 * std::max(chart().width(), chart().height()), 32767);
  EXPECT_NE(problemOf([this] { png(); }).find("too large for PNG"), std::string::npos);
}

TEST_F(PicturesTest, HaveAsMuchOfALongTitleAsAPageIsWide) {
  select(question());
  std::string title;
  for (int i = 0; i < 300; ++i) title += "é";
  const std::string words = wordsOf(pdf({Paper::a4, title}));
  EXPECT_NE(words.find("éé…\n"), std::string::npos) << words;
  EXPECT_LT(count(words, "é"), 300U);
  EXPECT_GT(count(words, "é"), 50U);
}

TEST_F(PicturesTest, HaveAPageOfTheirSizeATitleAndLinks) {
  select(question());
  SvgOptions links;
  links.linkExtension = ".pdf";
  const std::string page = pdf({Paper::fit, "Deciding"}, links);
  EXPECT_EQ(pagesOf(page), 1U);
  EXPECT_NE(page.find("/Title (Deciding)"), std::string::npos);
  EXPECT_NE(page.find("/URI (RespNT.pdf)"), std::string::npos);
  EXPECT_NE(page.find("/MediaBox [ 0 0 " + std::to_string(chart().width() * 3 / 4)),
            std::string::npos);
  EXPECT_EQ(wordsOf(page).find("Deciding"), std::string::npos);
}

TEST_F(PicturesTest, StandOnPaperWithTheirTitleBelow) {
  select(question());
  const std::string page = pdf({Paper::a4, "Deciding"});
  EXPECT_EQ(pagesOf(page), 1U);
  EXPECT_NE(page.find("/MediaBox [ 0 0 595.2"), std::string::npos);
  const std::string words = wordsOf(page);
  EXPECT_NE(words.find("Pass"), std::string::npos);
  EXPECT_NE(words.find("Deciding\n"), std::string::npos) << words;
  EXPECT_EQ(words.find("across"), std::string::npos) << words;
}

TEST_F(PicturesTest, SayOnEachOfSeveralPagesWhereItBelongs) {
  ChartFile tall;
  for (int row = 0; row < 60; ++row) tall.box(0, row, "Question " + std::to_string(row) + "?");
  select(tall);
  const std::string pages = pdf({Paper::letter, "Deciding"});
  const std::string words = wordsOf(pages);
  ASSERT_GE(pagesOf(pages), 2U);
  EXPECT_EQ(count(words, "\f"), pagesOf(pages));
  for (std::size_t page = 1; page <= pagesOf(pages); ++page) {
    const std::string place =
        "across 1 of 1, down " + std::to_string(page) + " of " + std::to_string(pagesOf(pages));
    EXPECT_EQ(count(words, "Deciding: " + place), 1U) << words;
  }
  EXPECT_EQ(count(words, "Question 59?"), 1U);
}

// Towards its end either takes nothing but memory for its bytes.
TEST_F(PicturesTest, SayThatMemoryRunsOut) {
  select(question());
  const SvgChart all = chart();
  const PdfOptions options = {Paper::fit, "Deciding"};
  const auto makePng = [&] { tavrelPictureMakers.png(all); };
  const auto makePdf = [&] { tavrelPictureMakers.pdf(all, options); };
  const auto lastProblem = [](const auto& make) {
    make();  // what is kept for the next time is there now
    std::string problem;
    for (auto n = static_cast<long>(costOf(make).count); n >= 0 && problem.empty(); --n) {
      const FailingAllocations failing(n);
      problem = problemOf(make);
    }
    return problem;
  };
  EXPECT_EQ(lastProblem(makePng), "out of memory");
  EXPECT_EQ(lastProblem(makePdf), "out of memory");
}

}  // namespace
}  // namespace tavrel
