// The engine's operations on plain charts. Members and operations are named as the things
// they mirror, without the engine's prefixes; whatever it holds is open, for comparing.

#ifndef TAVREL_TESTS_REFERENCE_PLAINENGINE_H
#define TAVREL_TESTS_REFERENCE_PLAINENGINE_H

#include <cstdint>
#include <string>
#include <vector>

#include "tests/reference/Behaviours.h"
#include "tests/reference/ChartFiles.h"
#include "tests/reference/PlainChart.h"

namespace tavrel::reference {

class PlainEngine {
 public:
  /// REQUIRES: `files` and `met` outlive this object.
  PlainEngine(std::string prefix, ChartFiles& files, Behaviours& met);

  static Lines titles();
  static std::int32_t indexOf(const std::string& fileName);
  static std::int32_t stepX(std::int64_t direction);
  static std::int32_t stepY(std::int64_t direction);

  void readChart(std::int32_t fc);
  Lines introOf(std::int32_t fc);
  void setStartLocation(std::int32_t fc);
  void startNewPath(std::int32_t fc, const std::string& answers);
  void preparePath();
  void buildIndex(std::int32_t fc);
  std::int32_t find(std::int32_t fc, std::int64_t x, std::int64_t y) const;

  void moveOnGrid(std::int32_t direction);
  void moveYes();
  void moveNo();
  void moveOnPath();
  void moveRoot();

  const PlainChart& currentChart() const;
  const Lines& currentCommentText() const;
  const PlainElement& elementAt(std::int32_t x, std::int32_t y) const;
  std::vector<PlainElement> elementsIn(std::int32_t minX, std::int32_t maxX, std::int32_t minY,
                                       std::int32_t maxY) const;

  std::vector<PlainChart> charts;
  std::string name;  // of the cursor's location
  std::int32_t x = 0, y = 0;
  std::int32_t current = 0, element = 0;
  std::string path;

 private:
  enum class Way { forward, backward };

  PlainChart& chartOf(std::int32_t fc);
  PlainElement& currentElement();
  void checkIndex(std::int32_t fc, const char* text, Behaviour outside) const;
  void toStart();
  void step(std::int32_t direction, int sign);
  void lookUp(bool isMarking);
  void follow(Way way, bool isMarking);
  void moveBackOnGrid(std::int32_t direction, std::int32_t neighbour);
  void moveAlong(std::int32_t exit);
  void followLink(std::string link);
  bool isMarkedAhead(std::int32_t exit) const;
  const PlainElement* standingAhead(std::int32_t direction) const;

  std::string prefix_;
  ChartFiles& files_;
  Behaviours& met_;
};

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_PLAINENGINE_H
