#include <algorithm>
#include <cstdint>

#include "tests/failures/Call.h"
#include "tests/failures/SmallCharts.h"
#include "tests/support/ChartFile.h"

namespace tavrel {
namespace {

// A value, or nothing, as what a call gives back.
template <typename Function, typename Subject>
Value valueOf(const Function& function, Subject& subject) {
  if constexpr (std::is_void_v<decltype(function(subject))>) {
    function(subject);
    return {};
  } else {
    return function(subject);
  }
}

template <typename Subject, typename Function>
std::function<Value(Subject&)> wrapped(Function function) {
  return [function](Subject& subject) { return valueOf(function, subject); };
}

/// An operation of both.
template <typename OnEngine, typename OnFacade>
Call call(const std::string& name, OnEngine onEngine, OnFacade onFacade) {
  return {name, wrapped<CTavrel>(onEngine), wrapped<Tavrel>(onFacade), wrapped<Model>(onEngine)};
}

template <typename OnEngine>
Call engineCall(const std::string& name, OnEngine onEngine) {
  return {name, wrapped<CTavrel>(onEngine), nullptr, wrapped<Model>(onEngine)};
}

template <typename OnModel, typename OnFacade>
Call facadeCall(const std::string& name, OnModel onModel, OnFacade onFacade) {
  return {name, nullptr, wrapped<Tavrel>(onFacade), wrapped<Model>(onModel)};
}

std::string shown(std::int32_t number) { return " " + std::to_string(number); }

// --- The catalogue and the reader -----------------------------------------------

Call titlesCall() {
  return call(
      "flowchartTitles", [](auto& on) { return on.mGetVectorOfFlowchartTitles(); },
      [](Tavrel& on) { return on.flowchartTitles(); });
}

Call indexCall(const std::string& name) {
  return call(
      "indexOfFlowchartWithTitle " + name,
      [name](auto& on) { return std::int64_t{on.mWhichFlowchartIndex(name)}; },
      [name](Tavrel& on) { return on.indexOfFlowchartWithTitle(name); });
}

Call introCall(std::int32_t index) {
  return call(
      "introForFlowchartAtIndex" + shown(index),
      [index](auto& on) { return on.mGetFlowchartIntro(index); },
      [index](Tavrel& on) { return on.introForFlowchartAtIndex(index); });
}

Call readCall(std::int32_t index) {
  return engineCall("mReadFVFileIfNotAlready" + shown(index),
                    [index](auto& on) { on.mReadFVFileIfNotAlready(index); });
}

// --- Asking ---------------------------------------------------------------------

Call locationCall() {
  return call(
      "currentLocation", [](auto& on) { return on.mCurrentLocation(); },
      [](Tavrel& on) { return on.currentLocation(); });
}

Call boundsCall() {
  return call(
      "currentFlowchartBounds",
      [](auto& on) {
        return ScreenBounds{on.mGetCurrentFlowchartMinX(), on.mGetCurrentFlowchartMaxX(),
                            on.mGetCurrentFlowchartMinY(), on.mGetCurrentFlowchartMaxY()};
      },
      [](Tavrel& on) { return on.currentFlowchartBounds(); });
}

Call commentaryCall() {
  return call(
      "currentCommentaryText", [](auto& on) { return on.mCurrentCommentText(); },
      [](Tavrel& on) { return on.currentCommentaryText(); });
}

Call allElementsCall() {
  return call(
      "allElements", [](auto& on) { return on.mGetAllElements(); },
      [](Tavrel& on) { return on.allElements(); });
}

Call elementCall(std::int32_t x, std::int32_t y) {
  return call(
      "elementAtXY" + shown(x) + shown(y), [x, y](auto& on) { return on.mGetXYElement(x, y); },
      [x, y](Tavrel& on) { return on.elementAtXY(x, y); });
}

Call elementsCall(std::int32_t reach) {
  return call(
      "elementsInBounds" + shown(reach),
      [reach](auto& on) { return on.mGetElementsInBoundaries(-reach, reach, -reach, reach); },
      [reach](Tavrel& on) {
        return on.elementsInBounds({-reach, reach, -reach, reach});
      });
}

Call findCall() {
  return engineCall("mFind", [](auto& on) { return std::int64_t{on.mFind(opening, 0, 0)}; });
}

Call buildCall() {
  return engineCall("mBuildFCFindHelper", [](auto& on) { on.mBuildFCFindHelper(opening); });
}

// --- The client interface's own -------------------------------------------------

Call currentElementCall() {
  return facadeCall(
      "currentElement", [](Model& on) { return on.currentElement(); },
      [](Tavrel& on) { return on.currentElement(); });
}

Call pointersCall() {
  return facadeCall(
      "getCurrentLocationWithXY", [](Model& on) { return on.mCurrentLocation().m_name; },
      [](Tavrel& on) { return on.getCurrentLocationWithXY(nullptr, nullptr); });
}

Call optionalIndexCall(const std::string& name) {
  return facadeCall(
      "indexOfFlowchart " + name,
      [name](Model& on) -> std::optional<std::int64_t> {
        const std::int32_t index = on.mWhichFlowchartIndex(name);
        if (index < 0) return std::nullopt;
        return index;
      },
      [name](Tavrel& on) { return on.indexOfFlowchart(name); });
}

Call moveBackCall() {
  return facadeCall(
      "moveBack", [](Model& on) { on.moveBack(); }, [](Tavrel& on) { on.moveBack(); });
}

Call directedMoveCall(std::int32_t direction) {
  return facadeCall(
      "moveWithDirection" + shown(direction),
      [direction](Model& on) { on.moveWithDirection(direction); },
      [direction](Tavrel& on) { on.moveWithDirection(direction); });
}

Call descriptionCall() {
  return facadeCall(
      "debugDescription", [](Model& on) { return on.debugDescription(); },
      [](Tavrel& on) { return on.currentElement().debugDescription(); });
}

/// Something that a navigator's current element has.
template <typename Describe>
Call elementTextCall(const std::string& name, Describe describe) {
  return facadeCall(
      name, [describe](Model& on) { return describe(on.currentElement()); },
      [describe](Tavrel& on) { return describe(on.currentElement()); });
}

std::string nextName(const sScreenElement& element) { return element.m_newFlowchartName; }
std::string nextName(const ScreenElement& element) {
  return element.nameOfNextFlowchart().value_or("");
}

Lines boxText(const sScreenElement& element) { return element.m_boxText; }
Lines boxText(const ScreenElement& element) { return element.boxText(); }

Lines commentary(const sScreenElement& element) { return element.m_commentText; }
Lines commentary(const ScreenElement& element) { return element.commentaryText(); }

// --- Moving ---------------------------------------------------------------------

template <typename Move>
Call moveCall(const std::string& name, Move onEngine, void (Tavrel::*onFacade)()) {
  return call(
      name, [onEngine](auto& on) { onEngine(on); }, [onFacade](Tavrel& on) { (on.*onFacade)(); });
}

std::vector<Call> moveCalls() {
  return {
      moveCall(
          "moveXPlus", [](auto& on) { on.mMoveXPlus(); }, &Tavrel::moveXPlus),
      moveCall(
          "moveXMinus", [](auto& on) { on.mMoveXMinus(); }, &Tavrel::moveXMinus),
      moveCall(
          "moveYPlus", [](auto& on) { on.mMoveYPlus(); }, &Tavrel::moveYPlus),
      moveCall(
          "moveYMinus", [](auto& on) { on.mMoveYMinus(); }, &Tavrel::moveYMinus),
      moveYesCall(),
      moveNoCall(),
      moveToRootCall(),
      alongPathCall(),
      moveBackCall(),
      directedMoveCall(0),
      directedMoveCall(4),
      directedMoveCall(7),
      engineCall("mPreparePath", [](auto& on) { on.mPreparePath(); }),
  };
}

std::vector<Call> queryCalls() {
  return {
      locationCall(),
      pointersCall(),
      boundsCall(),
      commentaryCall(),
      allElementsCall(),
      elementCall(0, 0),
      elementCall(9, 9),
      elementsCall(9),
      elementsCall(0),
      currentElementCall(),
      descriptionCall(),
      elementTextCall("nameOfNextFlowchart", [](const auto& element) { return nextName(element); }),
      elementTextCall("boxText", [](const auto& element) { return boxText(element); }),
      elementTextCall("commentaryText", [](const auto& element) { return commentary(element); }),
      findCall(),
      buildCall(),
  };
}

std::vector<Call> catalogueCalls() {
  const std::string unknown = "A name beyond any short string";
  return {titlesCall(), indexCall("Opening"), indexCall(unknown), optionalIndexCall("PGF"),
          optionalIndexCall(unknown)};
}

std::vector<Call> readingCalls() {
  const std::string answers = "yynnyynnyynnyynnyynnyynnyynn";
  std::vector<Call> calls;
  for (const std::int32_t index : {opening, respNT, leben, slam, stayman, pgf, -1, 3}) {
    calls.push_back(introCall(index));
    calls.push_back(resetCall(index));
    calls.push_back(startCall(index, answers));
    if (index != -1) calls.push_back(readCall(index));
  }
  calls.push_back(startCall(opening, "n"));
  calls.push_back(startCall(respNT, ""));
  return calls;
}

void append(std::vector<Call>& calls, const std::vector<Call>& more) {
  calls.insert(calls.end(), more.begin(), more.end());
}

}  // namespace

Call startCall(std::int32_t index, const std::string& answers) {
  return call(
      "startNewPathForFlowchartAtIndexYesNoString" + shown(index) + " " + answers,
      [index, answers](auto& on) { on.mStartNewPath(index, answers); },
      [index, answers](Tavrel& on) {
        on.startNewPathForFlowchartAtIndexYesNoString(index, answers);
      });
}

Call resetCall(std::int32_t index) {
  return call(
      "resetToStartLocationForFlowchartAtIndex" + shown(index),
      [index](auto& on) { on.mSetStartLocation(index); },
      [index](Tavrel& on) { on.resetToStartLocationForFlowchartAtIndex(index); });
}

Call alongPathCall() {
  return moveCall(
      "moveAlongPath", [](auto& on) { on.mMoveOnPath(); }, &Tavrel::moveAlongPath);
}

Call moveYesCall() {
  return moveCall(
      "moveYes", [](auto& on) { on.mMoveYes(); }, &Tavrel::moveYes);
}

Call moveNoCall() {
  return moveCall(
      "moveNo", [](auto& on) { on.mMoveNo(); }, &Tavrel::moveNo);
}

Call moveToRootCall() {
  return moveCall(
      "moveToRoot", [](auto& on) { on.mMoveRoot(); }, &Tavrel::moveToRoot);
}

const std::vector<Call>& allCalls() {
  static const std::vector<Call> calls = [] {
    std::vector<Call> all = catalogueCalls();
    append(all, readingCalls());
    append(all, queryCalls());
    append(all, moveCalls());
    return all;
  }();
  return calls;
}

const std::vector<Call>& callsThatShow() {
  static const std::vector<Call> calls = {locationCall(), boundsCall(), allElementsCall(),
                                          commentaryCall()};
  return calls;
}

const std::vector<Call>& callsToGoOnWith() {
  static const std::vector<Call> calls = {
      locationCall(),
      boundsCall(),
      allElementsCall(),
      commentaryCall(),
      alongPathCall(),
      locationCall(),
      moveNoCall(),
      locationCall(),
      moveToRootCall(),
      alongPathCall(),
      locationCall(),
      introCall(opening),
      introCall(leben),
      resetCall(opening),
      allElementsCall(),
      boundsCall(),
      alongPathCall(),
      alongPathCall(),
      locationCall(),
      commentaryCall(),
      resetCall(respNT),
      allElementsCall(),
      startCall(opening, "yyn"),
      alongPathCall(),
      alongPathCall(),
      alongPathCall(),
      locationCall(),
      elementsCall(9),
      resetCall(leben),
      allElementsCall(),
  };
  return calls;
}

}  // namespace tavrel
