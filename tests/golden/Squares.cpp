#include "Squares.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace tavrel {

Squares squaresOf(const std::filesystem::path& png) {
  cairo_surface_t* const picture = cairo_image_surface_create_from_png(png.c_str());
  EXPECT_EQ(cairo_surface_status(picture), CAIRO_STATUS_SUCCESS) << png;
  constexpr int side = 8;
  Squares squares;
  squares.width = cairo_image_surface_get_width(picture) / side;
  squares.height = cairo_image_surface_get_height(picture) / side;
  const unsigned char* const bytes = cairo_image_surface_get_data(picture);
  const int stride = cairo_image_surface_get_stride(picture);
  for (int y = 0; y < squares.height; ++y) {
    for (int x = 0; x < squares.width; ++x) {
      int sum = 0;
      for (int row = y * side; row < (y + 1) * side; ++row) {
        const unsigned char* const pixels = bytes + row * stride + x * side * 4;
        for (int pixel = 0; pixel < side; ++pixel) {
          sum += pixels[pixel * 4] + pixels[pixel * 4 + 1] + pixels[pixel * 4 + 2];
        }
      }
      squares.brightness.push_back(sum / (3 * side * side));
    }
  }
  cairo_surface_destroy(picture);
  return squares;
}

Squares cropped(const Squares& all, int width, int height) {
  Squares part{width, height, {}};
  for (int y = 0; y < height; ++y) {
    const auto row = all.brightness.begin() + static_cast<std::ptrdiff_t>(y) * all.width;
    part.brightness.insert(part.brightness.end(), row, row + width);
  }
  return part;
}

int difference(const Squares& a, const Squares& b) {
  int largest = 0;
  for (std::size_t i = 0; i < std::min(a.brightness.size(), b.brightness.size()); ++i) {
    largest = std::max(largest, std::abs(a.brightness[i] - b.brightness[i]));
  }
  return largest;
}

}  // namespace tavrel
