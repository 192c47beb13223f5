#include "drawing/SvgChart.h"

#include <tuple>
#include <utility>

#include "drawing/BoxTitle.h"
#include "drawing/ReadingOrder.h"
#include "drawing/SvgBox.h"
#include "drawing/SvgMarkup.h"
#include "drawing/SvgWriter.h"
#include "text/Text.h"

namespace tavrel {

using namespace drawing;
using namespace drawing::svg;

namespace {

std::vector<std::int64_t> cutsOf(const Axis& axis) {
  std::vector<std::int64_t> cuts;
  for (const Track& track : axis.tracks()) cuts.push_back(paperMargin + track.end);
  if (!cuts.empty()) cuts.pop_back();
  return cuts;
}

// Links lead to flowcharts of the catalogue alone: there is no file of any other.
std::string linkOf(const ScreenElement& box, const Tavrel& navigator,
                   const std::string& extension) {
  const auto name = box.nameOfNextFlowchart();
  return name && navigator.indexOfFlowchart(*name) ? linkTo(*name + extension) : "";
}

bool isAt(const std::optional<GridPlace>& place, const ScreenElement& element) {
  return place && place->x == element.x() && place->y == element.y();
}

std::string pictureTitle(const Tavrel& navigator, const SvgOptions& options) {
  const std::string name = std::get<0>(navigator.currentLocation());
  return printable(options.title.empty() ? name : options.title, Charset::utf8);
}

std::unique_ptr<const SvgScene> sceneOf(const Tavrel& navigator, const SvgOptions& options) {
  ElementGrid elements(navigator.elementsInBounds(navigator.currentFlowchartBounds()));
  ChartGeometry geometry = geometryOf(elements, svgReach, character, lineHeight);
  auto scene = std::make_unique<SvgScene>(SvgScene{pictureTitle(navigator, options),
                                                   options.theme,
                                                   std::move(elements),
                                                   std::move(geometry),
                                                   {}});
  for (const ReadBox& read : readingOrder(scene->grid)) {
    const bool isPlace = isAt(options.place, *read.box);
    scene->boxes.push_back({read.box, titleOf(read, isPlace),
                            linkOf(*read.box, navigator, options.linkExtension), isPlace});
  }
  return scene;
}

}  // namespace

SvgChart::SvgChart(const Tavrel& navigator, const SvgOptions& options)
    : scene_(sceneOf(navigator, options)) {}

SvgChart::~SvgChart() = default;
SvgChart::SvgChart(SvgChart&&) noexcept = default;
SvgChart& SvgChart::operator=(SvgChart&&) noexcept = default;

std::int64_t SvgChart::width() const { return scene_->geometry.columns.length() + 2 * paperMargin; }

std::int64_t SvgChart::height() const { return scene_->geometry.rows.length() + 2 * paperMargin; }

SvgCuts SvgChart::cuts() const {
  return {cutsOf(scene_->geometry.columns), cutsOf(scene_->geometry.rows)};
}

std::string SvgChart::svg(const SvgArea& area) const {
  return written(*scene_,
                 {area.left - paperMargin, area.top - paperMargin, area.width, area.height});
}

}  // namespace tavrel
