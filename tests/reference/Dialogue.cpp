#include "tests/reference/Dialogue.h"

#include <utility>

#include "tests/reference/Notation.h"

namespace tavrel::reference {
namespace {

constexpr char none[] = "";

// In the order of What. An empty name: this front doesn't have it.
constexpr Form forms[] = {
    {What::writeChart, "chart", "chart", "n"},
    {What::removeChart, "removeChart", "removeChart", "n"},
    {What::makeDirectory, "directoryInsteadOfChart", "directoryInsteadOfChart", "n"},
    {What::makeNavigator, "Tavrel", "CTavrel", "s"},
    {What::titles, "flowchartTitles", "mGetVectorOfFlowchartTitles", none},
    {What::indexOfName, "indexOfFlowchartWithTitle", "mWhichFlowchartIndex", "s"},
    {What::optionalIndexOfName, "indexOfFlowchart", none, "s"},
    {What::intro, "introForFlowchartAtIndex", "mGetFlowchartIntro", "i"},
    {What::startNewPath, "startNewPathForFlowchartAtIndexYesNoString", "mStartNewPath", "is"},
    {What::reset, "resetToStartLocationForFlowchartAtIndex", "mSetStartLocation", "i"},
    {What::location, "getCurrentLocationWithXY", none, "p"},
    {What::locationTriple, "currentLocation", "mCurrentLocation", none},
    {What::bounds, "currentFlowchartBounds", "bounds", none},
    {What::commentary, "currentCommentaryText", "mCurrentCommentText", none},
    {What::allElements, "allElements", "mGetAllElements", none},
    {What::elementAt, "elementAtXY", "mGetXYElement", "ii"},
    {What::elementsIn, "elementsInBounds", "mGetElementsInBoundaries", "iiii"},
    {What::currentElement, "currentElement", none, none},
    {What::moveXPlus, "moveXPlus", "mMoveXPlus", none},
    {What::moveXMinus, "moveXMinus", "mMoveXMinus", none},
    {What::moveYPlus, "moveYPlus", "mMoveYPlus", none},
    {What::moveYMinus, "moveYMinus", "mMoveYMinus", none},
    {What::moveWithDirection, "moveWithDirection", none, "i"},
    {What::moveYes, "moveYes", "mMoveYes", none},
    {What::moveNo, "moveNo", "mMoveNo", none},
    {What::moveToRoot, "moveToRoot", "mMoveRoot", none},
    {What::moveAlongPath, "moveAlongPath", "mMoveOnPath", none},
    {What::moveBack, "moveBack", none, none},
    {What::reverse, "reversed", none, "i"},
    {What::keepCurrent, "currentElement", none, none},
    {What::keptProperties, "properties", none, none},
    {What::keptDescription, "debugDescription", none, none},
    {What::readChart, none, "mReadFVFileIfNotAlready", "i"},
    {What::preparePath, none, "mPreparePath", none},
    {What::buildIndex, none, "mBuildFCFindHelper", "i"},
    {What::find, none, "mFind", "iii"},
    {What::stepX, none, "mDirectionX", "i"},
    {What::stepY, none, "mDirectionY", "i"},
};
static_assert(sizeof forms / sizeof *forms == whatCount);

}  // namespace

Request startRequest(std::int64_t index, const std::string& answers) {
  return {What::startNewPath, 0, {index}, answers};
}

Request resetRequest(std::int64_t index) { return {What::reset, 0, {index}}; }

Request writeRequest(const std::string& name, std::string bytes) {
  return {What::writeChart, 0, {}, name, std::move(bytes)};
}

Request removeRequest(const std::string& name) { return {What::removeChart, 0, {}, name}; }

const Form& formOf(What what) { return forms[static_cast<std::size_t>(what)]; }

const char* nameOf(What what, Front front) {
  return front == Front::facade ? formOf(what).facadeName : formOf(what).engineName;
}

}  // namespace tavrel::reference
