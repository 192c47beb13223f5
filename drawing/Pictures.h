// PNG pictures and PDF pages of a flowchart, by way of its picture in SVG.
//
// librsvg and cairo, which make them, bring dozens of libraries along. They are in
// a module of its own, which a program loads when somebody asks for such a picture:
//
//     void* const module = dlopen("tavrel_pictures.so", RTLD_NOW | RTLD_LOCAL);
//     const auto* makers = static_cast<const PictureMakers*>(dlsym(module, pictureMakersName));
//     const std::string bytes = makers->png(chart);
//
// The program and the module are of one build. All functions throw
// std::runtime_error with a clause that says why the picture can't be made.

#ifndef TAVREL_DRAWING_PICTURES_H
#define TAVREL_DRAWING_PICTURES_H

#include <string>

#include "drawing/SvgChart.h"

namespace tavrel {

enum class Paper {
  fit,    ///< one page of the picture's size
  a4,     ///< 210 by 297 mm
  letter  ///< 8.5 by 11 inches
};

/// A picture to be put on pages.
struct PdfOptions {
  Paper paper = Paper::fit;
  std::string title;  ///< of the document
};

/// What the module can do.
struct PictureMakers {
  /// A PNG of two pixels for each of the picture's units. A picture of more than 32,767 pixels
  /// across or down, or of more than 64 million in all, is too large.
  std::string (*png)(const SvgChart& chart);

  /// A PDF whose text is text and whose links are links.
  ///
  /// Paper::fit has one page, three quarters of a point for each unit; so text is 10.5 points
  /// high. A page of more than 14,400 points is made smaller to have that, the most that
  /// readers show.
  ///
  /// On A4 and Letter, upright or sideways, whichever shows more, the picture is made smaller
  /// to fit one page as long as its text stays 6.5 points high or more. Beyond that its text is
  /// 9 points high, or 8.5 or 8 where that saves pages, and it is spread over as few pages as
  /// that takes, row by row, cut between its columns and rows wherever one of them is not larger
  /// than a page. The pages fit edge to edge: cut along the marks at the corners. Each page says
  /// below the picture what it belongs to and where: "Stayman: across 2 of 3, down 1 of 4". A
  /// picture of more than 500 pages is too large.
  ///
  /// The same chart always gives the same bytes with the same fonts and libraries: no date is
  /// in them.
  std::string (*pdf)(const SvgChart& chart, const PdfOptions& options);
};

/// The symbol that a module has.
constexpr const char* pictureMakersName = "tavrelPictureMakers";

}  // namespace tavrel

#endif  // TAVREL_DRAWING_PICTURES_H
