#include "drawing/Pictures.h"

#include <cairo-pdf.h>
#include <cairo.h>
#include <librsvg/rsvg.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>

#include "drawing/PageLayout.h"
#include "text/Text.h"

namespace tavrel::drawing {
namespace {

constexpr int pixelsForUnit = 2;
constexpr std::int64_t longestSide = 32767;  // that cairo draws
constexpr std::int64_t mostPixels = 64'000'000;

template <auto release>
struct Releaser {
  template <typename Thing>
  void operator()(Thing* thing) const {
    release(thing);
  }
};
template <typename Thing, auto release>
using Held = std::unique_ptr<Thing, Releaser<release>>;

using Picture = Held<RsvgHandle, g_object_unref>;
using Stream = Held<GInputStream, g_object_unref>;
using Surface = Held<cairo_surface_t, cairo_surface_destroy>;
using Context = Held<cairo_t, cairo_destroy>;

void check(GError* error) {
  const Held<GError, g_error_free> held(error);
  if (held) throw std::runtime_error(held->message);
}

void check(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
}

// However large it is: it comes from this project.
Picture pictureOf(const std::string& svg) {
  GError* error = nullptr;
  const Stream stream(
      g_memory_input_stream_new_from_data(svg.data(), static_cast<gssize>(svg.size()), nullptr));
  Picture picture(rsvg_handle_new_from_stream_sync(stream.get(), nullptr,
                                                   RSVG_HANDLE_FLAG_UNLIMITED, nullptr, &error));
  check(error);
  return picture;
}

void render(const std::string& svg, cairo_t* context, const RsvgRectangle& area) {
  const Picture picture = pictureOf(svg);
  GError* error = nullptr;
  rsvg_handle_render_document(picture.get(), context, &area, &error);
  check(error);
}

cairo_status_t appendBytes(void* out, const unsigned char* bytes, unsigned int count) noexcept try {
  static_cast<std::string*>(out)->append(reinterpret_cast<const char*>(bytes), count);
  return CAIRO_STATUS_SUCCESS;
} catch (const std::bad_alloc&) {
  return CAIRO_STATUS_NO_MEMORY;
}

void checkSize(std::int64_t width, std::int64_t height) {
  const bool isTooLong = std::max(width, height) > longestSide;
  if (!isTooLong && width * height <= mostPixels) return;
  throw std::runtime_error("it would be " + std::to_string(width) + " by " +
                           std::to_string(height) +
                           " pixels, which is too large for PNG; draw an SVG or a PDF");
}

std::string png(const SvgChart& chart) {
  const std::int64_t width = chart.width() * pixelsForUnit;
  const std::int64_t height = chart.height() * pixelsForUnit;
  checkSize(width, height);
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width),
                                                   static_cast<int>(height)));
  const Context context(cairo_create(surface.get()));
  const RsvgRectangle all{0, 0, static_cast<double>(width), static_cast<double>(height)};
  render(chart.svg(), context.get(), all);
  check(cairo_status(context.get()));
  std::string bytes;
  check(cairo_surface_write_to_png_stream(surface.get(), appendBytes, &bytes));
  return bytes;
}

// What a page shows of the picture.
struct Tile {
  const PageLayout& layout;
  std::size_t column;
  std::size_t row;

  PageSpan across() const { return layout.columns[column]; }
  PageSpan down() const { return layout.rows[row]; }
  double width() const { return static_cast<double>(across().length) * layout.scale; }
  double height() const { return static_cast<double>(down().length) * layout.scale; }
  double right() const { return layout.left + width(); }
  double bottom() const { return layout.top + height(); }
};

// The part of the picture that belongs on the page, and no more of it.
void renderTile(const SvgChart& chart, cairo_t* context, const Tile& tile) {
  const SvgArea area{tile.across().start, tile.down().start, tile.across().length,
                     tile.down().length};
  const PageLayout& layout = tile.layout;
  cairo_save(context);
  cairo_rectangle(context, layout.left, layout.top, tile.width(), tile.height());
  cairo_clip(context);
  render(chart.svg(area), context, {layout.left, layout.top, tile.width(), tile.height()});
  cairo_restore(context);
}

// Two strokes at each corner, outside the area: along them it is cut.
void drawCropMarks(cairo_t* context, const Tile& tile) {
  constexpr double gap = 4;
  constexpr double length = 14;
  for (const double x : {tile.layout.left, tile.right()}) {
    for (const double y : {tile.layout.top, tile.bottom()}) {
      const double outwardX = x == tile.layout.left ? -1 : 1;
      const double outwardY = y == tile.layout.top ? -1 : 1;
      cairo_move_to(context, x + outwardX * gap, y);
      cairo_rel_line_to(context, outwardX * length, 0);
      cairo_move_to(context, x, y + outwardY * gap);
      cairo_rel_line_to(context, 0, outwardY * length);
    }
  }
  cairo_set_source_rgb(context, 0, 0, 0);
  cairo_set_line_width(context, 0.5);
  cairo_stroke(context);
}

std::string placeOf(const Tile& tile) {
  return "across " + std::to_string(tile.column + 1) + " of " +
         std::to_string(tile.layout.columns.size()) + ", down " + std::to_string(tile.row + 1) +
         " of " + std::to_string(tile.layout.rows.size());
}

double widthOf(cairo_t* context, const std::string& text) {
  cairo_text_extents_t extents;
  cairo_text_extents(context, text.c_str(), &extents);
  return extents.x_advance;
}

// As much of its beginning as there is room for.
std::string shortened(cairo_t* context, std::string title, double room) {
  if (widthOf(context, title) <= room) return title;
  while (!title.empty() && widthOf(context, title + "…") > room) {
    title.resize(title.size() - glyphs(title).back().bytes.size());
  }
  return title + "…";
}

// In the middle of the lower margin: the title, and after it the page's place.
void drawCaption(cairo_t* context, const PageLayout& layout, const std::string& title,
                 const std::string& place) {
  cairo_select_font_face(context, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context, 8);
  const double room = layout.page.width - 2 * pageMargin;
  const std::string caption = shortened(context, title, room - widthOf(context, place)) + place;
  cairo_set_source_rgb(context, 0, 0, 0);
  cairo_move_to(context, (layout.page.width - widthOf(context, caption)) / 2,
                layout.page.height - pageMargin / 2);
  cairo_show_text(context, caption.c_str());
}

void drawPage(const SvgChart& chart, cairo_t* context, const Tile& tile,
              const PdfOptions& options) {
  renderTile(chart, context, tile);
  if (tile.layout.isTiled()) {
    drawCropMarks(context, tile);
    drawCaption(context, tile.layout, options.title, ": " + placeOf(tile));
  } else if (options.paper != Paper::fit) {
    drawCaption(context, tile.layout, options.title, "");
  }
  cairo_show_page(context);
  check(cairo_status(context));
}

std::string pdf(const SvgChart& chart, const PdfOptions& given) {
  const PdfOptions options{given.paper, printable(given.title, Charset::utf8)};
  const PageLayout layout =
      pageLayoutOf({chart.width(), chart.height(), chart.cuts()}, options.paper);
  std::string bytes;
  const Surface surface(cairo_pdf_surface_create_for_stream(appendBytes, &bytes, layout.page.width,
                                                            layout.page.height));
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, options.title.c_str());
  // The time of its making, which cairo would write: the same chart gives the same bytes.
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, nullptr);
  const Context context(cairo_create(surface.get()));
  for (std::size_t row = 0; row < layout.rows.size(); ++row) {
    for (std::size_t column = 0; column < layout.columns.size(); ++column) {
      drawPage(chart, context.get(), {layout, column, row}, options);
    }
  }
  cairo_surface_finish(surface.get());
  check(cairo_surface_status(surface.get()));
  return bytes;
}

}  // namespace
}  // namespace tavrel::drawing

extern "C" {
__attribute__((visibility("default"))) extern const tavrel::PictureMakers tavrelPictureMakers;
const tavrel::PictureMakers tavrelPictureMakers = {tavrel::drawing::png, tavrel::drawing::pdf};
}
