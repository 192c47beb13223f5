// What an engine or a navigator must agree with: the plain reference, to which nothing
// happened, with the engine's operations and what the client interface has beyond them.

#ifndef TAVREL_TESTS_FAILURES_MODEL_H
#define TAVREL_TESTS_FAILURES_MODEL_H

#include <cstdint>
#include <string>
#include <vector>

#include "engine/CTavrel.h"
#include "tests/reference/PlainNavigator.h"

namespace tavrel {

class Model {
 public:
  /// REQUIRES: `files` outlives this object.
  Model(const std::string& prefix, reference::ChartFiles& files);

  std::vector<std::string> mGetVectorOfFlowchartTitles() const;
  std::int32_t mWhichFlowchartIndex(const std::string& fileName) const;
  void mReadFVFileIfNotAlready(std::int32_t fc) { engine().readChart(fc); }
  std::vector<std::string> mGetFlowchartIntro(std::int32_t fc) { return engine().introOf(fc); }
  void mSetStartLocation(std::int32_t fc) { engine().setStartLocation(fc); }
  void mStartNewPath(std::int32_t fc, const std::string& answers);
  void mPreparePath() { engine().preparePath(); }
  void mBuildFCFindHelper(std::int32_t fc) { engine().buildIndex(fc); }
  std::int32_t mFind(std::int32_t fc, std::int32_t x, std::int32_t y) const;
  void mMoveXPlus() { engine().moveOnGrid(eXPlus); }
  void mMoveXMinus() { engine().moveOnGrid(eXMinus); }
  void mMoveYPlus() { engine().moveOnGrid(eYPlus); }
  void mMoveYMinus() { engine().moveOnGrid(eYMinus); }
  void mMoveYes() { engine().moveYes(); }
  void mMoveNo() { engine().moveNo(); }
  void mMoveOnPath() { engine().moveOnPath(); }
  void mMoveRoot() { engine().moveRoot(); }
  sFlowchartNameAndCoordinates mCurrentLocation() const;
  std::int32_t mGetCurrentFlowchartMinX() const { return engine().currentChart().minX; }
  std::int32_t mGetCurrentFlowchartMaxX() const { return engine().currentChart().maxX; }
  std::int32_t mGetCurrentFlowchartMinY() const { return engine().currentChart().minY; }
  std::int32_t mGetCurrentFlowchartMaxY() const { return engine().currentChart().maxY; }
  std::vector<std::string> mCurrentCommentText() const { return engine().currentCommentText(); }
  std::vector<sScreenElement> mGetAllElements() const;
  sScreenElement mGetXYElement(std::int32_t x, std::int32_t y) const;
  std::vector<sScreenElement> mGetElementsInBoundaries(std::int32_t minX, std::int32_t maxX,
                                                       std::int32_t minY, std::int32_t maxY) const;

  sScreenElement currentElement() const;
  std::string debugDescription();
  void moveWithDirection(std::int32_t direction) { navigator_.moveWithDirection(direction); }
  void moveBack() { navigator_.moveBack(); }

  /// The flowchart that is current, or -1.
  std::int32_t current() const { return engine().current; }
  /// Makes the flowchart current and does nothing else.
  void makeCurrent(std::int32_t index) { engine().current = index; }
  bool isRead(std::int32_t index) const;

  const reference::PlainEngine& plain() const { return engine(); }

 private:
  reference::PlainEngine& engine() { return navigator_.engine; }
  const reference::PlainEngine& engine() const { return navigator_.engine; }

  reference::Behaviours behaviours_;
  reference::PlainNavigator navigator_;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_MODEL_H
