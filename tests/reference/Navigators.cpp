#include "tests/reference/Navigators.h"

#include <stdexcept>
#include <utility>

#include "tests/reference/Integers.h"

namespace tavrel::reference {

// The way to a navigator's engine: where a template is instantiated explicitly, the names of
// private members may be written.
using EngineMember = std::unique_ptr<CTavrel> Tavrel::*;
EngineMember engineMember();
template <EngineMember member>
struct Opened {
  friend EngineMember engineMember() { return member; }
};
template struct Opened<&Tavrel::engine_>;

namespace {

ElementProperties raw(const sScreenElement& e) {
  return {e.m_isNode,          e.m_isOnPath,       e.m_x,       e.m_y,
          e.m_xOffset,         e.m_yOffset,        e.m_yesDir,  e.m_noDir,
          e.m_directionInto,   e.m_directionOutOf, e.m_boxText, e.m_commentText,
          e.m_newFlowchartName};
}

using LinesOfElement = const std::vector<std::string>& (ScreenElement::*)() const&;

ElementProperties::Lines linesOf(LinesOfElement lines, const ScreenElement& element) {
  try {
    return (element.*lines)();
  } catch (const std::invalid_argument&) {
    return std::nullopt;
  }
}

ElementProperties shown(const ScreenElement& e) {
  return {e.isNode(),
          e.isOnPath(),
          e.x(),
          e.y(),
          e.xOffset(),
          e.yOffset(),
          e.yesDirection(),
          e.noDirection(),
          e.intoDirection(),
          e.outOfDirection(),
          linesOf(&ScreenElement::boxText, e),
          linesOf(&ScreenElement::commentaryText, e),
          e.nameOfNextFlowchart()};
}

void add(const std::vector<std::string>& lines, Reply& reply) {
  reply.texts.assign(lines.begin(), lines.end());
}
void add(const std::vector<sScreenElement>& elements, Reply& reply) {
  for (const sScreenElement& each : elements) reply.elements.push_back(raw(each));
}
void add(const std::vector<ScreenElement>& elements, Reply& reply) {
  for (const ScreenElement& each : elements) reply.elements.push_back(shown(each));
}

}  // namespace

// --- The engine ---------------------------------------------------------------------

void EngineRespondent::answer(const Request& request, Reply& reply) {
  const std::int32_t index = low32(request.numbers[0]);
  switch (request.what) {
    case What::startNewPath:
      return engine_.mStartNewPath(index, request.text);
    case What::reset:
      return engine_.mSetStartLocation(index);
    case What::moveXPlus:
      return engine_.mMoveXPlus();
    case What::moveXMinus:
      return engine_.mMoveXMinus();
    case What::moveYPlus:
      return engine_.mMoveYPlus();
    case What::moveYMinus:
      return engine_.mMoveYMinus();
    case What::moveYes:
      return engine_.mMoveYes();
    case What::moveNo:
      return engine_.mMoveNo();
    case What::moveToRoot:
      return engine_.mMoveRoot();
    case What::moveAlongPath:
      return engine_.mMoveOnPath();
    case What::readChart:
      return engine_.mReadFVFileIfNotAlready(index);
    case What::preparePath:
      return engine_.mPreparePath();
    case What::buildIndex:
      return engine_.mBuildFCFindHelper(index);
    default:
      return askAbout(request, reply);
  }
}

void EngineRespondent::askAbout(const Request& request, Reply& reply) {
  const auto n = [&](std::size_t i) { return low32(request.numbers[i]); };
  switch (request.what) {
    case What::titles:
      return add(engine_.mGetVectorOfFlowchartTitles(), reply);
    case What::indexOfName:
      return reply.numbers.push_back(engine_.mWhichFlowchartIndex(request.text));
    case What::intro:
      return add(engine_.mGetFlowchartIntro(n(0)), reply);
    case What::locationTriple: {
      const sFlowchartNameAndCoordinates location = engine_.mCurrentLocation();
      reply.texts.push_back(location.m_name);
      reply.numbers = {location.m_x, location.m_y};
      return;
    }
    case What::bounds:
      reply.numbers = {engine_.mGetCurrentFlowchartMinX(), engine_.mGetCurrentFlowchartMaxX(),
                       engine_.mGetCurrentFlowchartMinY(), engine_.mGetCurrentFlowchartMaxY()};
      return;
    case What::commentary:
      return add(engine_.mCurrentCommentText(), reply);
    case What::allElements:
      return add(engine_.mGetAllElements(), reply);
    case What::elementAt:
      return reply.elements.push_back(raw(engine_.mGetXYElement(n(0), n(1))));
    case What::elementsIn:
      return add(engine_.mGetElementsInBoundaries(n(0), n(1), n(2), n(3)), reply);
    case What::find:
      return reply.numbers.push_back(engine_.mFind(n(0), n(1), n(2)));
    case What::stepX:
      return reply.numbers.push_back(CTavrel::mDirectionX(static_cast<eXYDirection>(n(0))));
    case What::stepY:
      return reply.numbers.push_back(CTavrel::mDirectionY(static_cast<eXYDirection>(n(0))));
    default:
      throw std::logic_error("not for the engine");
  }
}

// --- The client interface -------------------------------------------------------------

CTavrel& FacadeRespondent::engine() { return *(navigator_.*engineMember()); }

void FacadeRespondent::answer(const Request& request, Reply& reply) {
  switch (request.what) {
    case What::moveXPlus:
    case What::moveXMinus:
    case What::moveYPlus:
    case What::moveYMinus:
    case What::moveWithDirection:
    case What::moveYes:
    case What::moveNo:
    case What::moveToRoot:
    case What::moveAlongPath:
    case What::moveBack:
      return move(request);
    case What::startNewPath:
      return navigator_.startNewPathForFlowchartAtIndexYesNoString(request.numbers[0],
                                                                   request.text);
    case What::reset:
      return navigator_.resetToStartLocationForFlowchartAtIndex(request.numbers[0]);
    case What::intro:
      return add(navigator_.introForFlowchartAtIndex(request.numbers[0]), reply);
    default:
      return askAbout(request, reply);
  }
}

void FacadeRespondent::move(const Request& request) {
  switch (request.what) {
    case What::moveXPlus:
      return navigator_.moveXPlus();
    case What::moveXMinus:
      return navigator_.moveXMinus();
    case What::moveYPlus:
      return navigator_.moveYPlus();
    case What::moveYMinus:
      return navigator_.moveYMinus();
    case What::moveWithDirection:
      return navigator_.moveWithDirection(request.numbers[0]);
    case What::moveYes:
      return navigator_.moveYes();
    case What::moveNo:
      return navigator_.moveNo();
    case What::moveToRoot:
      return navigator_.moveToRoot();
    case What::moveAlongPath:
      return navigator_.moveAlongPath();
    default:
      return navigator_.moveBack();
  }
}

void FacadeRespondent::askAbout(const Request& request, Reply& reply) {
  const auto& n = request.numbers;
  switch (request.what) {
    case What::titles:
      return add(navigator_.flowchartTitles(), reply);
    case What::indexOfName:
      return reply.numbers.push_back(navigator_.indexOfFlowchartWithTitle(request.text));
    case What::optionalIndexOfName:
      if (const auto index = navigator_.indexOfFlowchart(request.text)) {
        reply.numbers.push_back(*index);
      }
      return;
    case What::location: {
      reply.numbers = {0, 0};
      reply.texts.push_back(navigator_.getCurrentLocationWithXY(
          n[0] != 0 ? &reply.numbers[0] : nullptr, n[1] != 0 ? &reply.numbers[1] : nullptr));
      return;
    }
    case What::locationTriple: {
      const auto [name, x, y] = navigator_.currentLocation();
      reply.texts.push_back(name);
      reply.numbers = {x, y};
      return;
    }
    case What::bounds: {
      const ScreenBounds bounds = navigator_.currentFlowchartBounds();
      reply.numbers = {bounds.minX, bounds.maxX, bounds.minY, bounds.maxY};
      return;
    }
    case What::commentary:
      return add(navigator_.currentCommentaryText(), reply);
    case What::allElements:
      return add(navigator_.allElements(), reply);
    case What::elementAt:
      return reply.elements.push_back(shown(navigator_.elementAtXY(n[0], n[1])));
    case What::elementsIn:
      return add(navigator_.elementsInBounds({n[0], n[1], n[2], n[3]}), reply);
    case What::currentElement:
      return reply.elements.push_back(shown(navigator_.currentElement()));
    case What::reverse:
      return reply.numbers.push_back(reversed(n[0]));
    case What::keepCurrent:
      kept_ = navigator_.currentElement();
      return reply.elements.push_back(shown(*kept_));
    case What::keptProperties:
      if (kept_) reply.elements.push_back(shown(*kept_));
      return;
    case What::keptDescription:
      if (kept_) reply.texts.push_back(kept_->debugDescription());
      return;
    default:
      throw std::logic_error("not for the client interface");
  }
}

}  // namespace tavrel::reference
