// Each operation converts its arguments, makes one call of the engine and converts
// the result. What the engine throws passes through.

#include "facade/Tavrel.h"

#include <utility>

#include "engine/CTavrel.h"
#include "facade/Utf8.h"

namespace {

// The low 32 bits.
std::int32_t narrowed(std::int64_t value) noexcept { return static_cast<std::int32_t>(value); }

// The engine puts file names directly behind its directory.
std::string withSeparator(std::string directory) {
  if (directory.empty() || directory.back() != '/') directory += '/';
  return directory;
}

}  // namespace

Tavrel::Tavrel(const std::filesystem::path& directory)
    : engine_(std::make_unique<CTavrel>(withSeparator(directory.string()))) {}

Tavrel::~Tavrel() = default;
Tavrel::Tavrel(Tavrel&& other) noexcept = default;
Tavrel& Tavrel::operator=(Tavrel&& other) noexcept = default;

std::vector<std::string> Tavrel::flowchartTitles() const {
  return tavrel::facade::hostLines(engine_->mGetVectorOfFlowchartTitles());
}

std::int64_t Tavrel::indexOfFlowchartWithTitle(const std::string& title) const {
  return engine_->mWhichFlowchartIndex(title);
}

std::optional<std::int64_t> Tavrel::indexOfFlowchart(const std::string& title) const {
  const std::int64_t index = indexOfFlowchartWithTitle(title);
  if (index == -1) return std::nullopt;
  return index;
}

std::vector<std::string> Tavrel::introForFlowchartAtIndex(std::int64_t index) {
  return tavrel::facade::hostLines(engine_->mGetFlowchartIntro(narrowed(index)));
}

void Tavrel::startNewPathForFlowchartAtIndexYesNoString(std::int64_t index,
                                                        const std::string& answers) {
  engine_->mStartNewPath(narrowed(index), answers);
}

void Tavrel::resetToStartLocationForFlowchartAtIndex(std::int64_t index) {
  engine_->mSetStartLocation(narrowed(index));
}

std::optional<std::string> Tavrel::getCurrentLocationWithXY(std::int64_t* x,
                                                            std::int64_t* y) const {
  sFlowchartNameAndCoordinates location = engine_->mCurrentLocation();
  if (x) *x = location.m_x;
  if (y) *y = location.m_y;
  return std::move(location.m_name);  // a name of the catalogue: nothing to check
}

std::tuple<std::string, std::int64_t, std::int64_t> Tavrel::currentLocation() const {
  std::int64_t x = 0;
  std::int64_t y = 0;
  std::string name = getCurrentLocationWithXY(&x, &y).value_or("");
  return {std::move(name), x, y};
}

ScreenBounds Tavrel::currentFlowchartBounds() const {
  return {engine_->mGetCurrentFlowchartMinX(), engine_->mGetCurrentFlowchartMaxX(),
          engine_->mGetCurrentFlowchartMinY(), engine_->mGetCurrentFlowchartMaxY()};
}

std::vector<std::string> Tavrel::currentCommentaryText() const {
  return tavrel::facade::hostLines(engine_->mCurrentCommentText());
}

// The engine's records are copies already; their texts move on to the host.
std::vector<ScreenElement> Tavrel::wrapped(std::vector<sScreenElement>&& records) {
  std::vector<ScreenElement> elements;
  elements.reserve(records.size());
  for (sScreenElement& record : records) elements.push_back(ScreenElement(std::move(record)));
  return elements;
}

std::vector<ScreenElement> Tavrel::allElements() const {
  return wrapped(engine_->mGetAllElements());
}

ScreenElement Tavrel::elementAtXY(std::int64_t x, std::int64_t y) const {
  return ScreenElement(engine_->mGetXYElement(narrowed(x), narrowed(y)));
}

std::vector<ScreenElement> Tavrel::elementsInBounds(ScreenBounds bounds) const {
  return wrapped(engine_->mGetElementsInBoundaries(narrowed(bounds.minX), narrowed(bounds.maxX),
                                                   narrowed(bounds.minY), narrowed(bounds.maxY)));
}

void Tavrel::moveXPlus() { engine_->mMoveXPlus(); }
void Tavrel::moveXMinus() { engine_->mMoveXMinus(); }
void Tavrel::moveYPlus() { engine_->mMoveYPlus(); }
void Tavrel::moveYMinus() { engine_->mMoveYMinus(); }
void Tavrel::moveYes() { engine_->mMoveYes(); }
void Tavrel::moveNo() { engine_->mMoveNo(); }
void Tavrel::moveToRoot() { engine_->mMoveRoot(); }
void Tavrel::moveAlongPath() { engine_->mMoveOnPath(); }
