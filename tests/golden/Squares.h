// Pictures compared by what a reader sees of them.

#ifndef TAVREL_TESTS_GOLDEN_SQUARES_H
#define TAVREL_TESTS_GOLDEN_SQUARES_H

#include <filesystem>
#include <vector>

namespace tavrel {

/// A picture as the mean brightness of its squares of eight by eight pixels, in which the
/// fringes of letters and lines even out.
struct Squares {
  int width = 0;
  int height = 0;
  std::vector<int> brightness;
};

/// Of a file in PNG; the test fails if it can't be read.
Squares squaresOf(const std::filesystem::path& png);

/// Those at the upper left; `all` has at least so many.
Squares cropped(const Squares& all, int width, int height);

/// The largest difference of two squares, of 255.
int difference(const Squares& a, const Squares& b);

}  // namespace tavrel

#endif
