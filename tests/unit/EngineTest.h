// An engine over a directory of the test's own.

#ifndef TAVREL_TESTS_UNIT_ENGINETEST_H
#define TAVREL_TESTS_UNIT_ENGINETEST_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/CTavrel.h"
#include "tests/support/ChartFile.h"
#include "tests/support/EngineAccess.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/Thrown.h"

namespace tavrel {

class EngineTest : public testing::Test {
 protected:
  void write(const ChartFile& chart, const std::string& name = "Opening") const {
    chart.writeTo(directory.path(), name);
  }
  void write(const std::string& bytes, const std::string& name = "Opening") const {
    writeFile(directory.chart(name), bytes);
  }
  void remove(const std::string& name = "Opening") const {
    std::filesystem::remove(directory.chart(name));
  }

  /// Writes the chart and selects it.
  void select(const ChartFile& chart) {
    write(chart);
    engine.mSetStartLocation(0);
  }

  /// Selects flowchart 0, and expects the exception of this type, "" for none.
  void expectSelecting(const std::string& type) {
    EXPECT_EQ(typeThrown([this] { engine.mSetStartLocation(0); }), type);
  }

  const std::vector<sScreenElement>& elements(std::size_t fc = 0) const {
    return EngineAccess::screenElements(engine).at(fc);
  }
  std::string chart(std::size_t fc = 0) const { return describeChart(engine, fc); }

  /// Puts the cursor on an element without a move.
  void putCursorOn(std::int32_t element) {
    const sScreenElement& place = elements().at(static_cast<std::size_t>(element));
    EngineAccess::currentLocation(engine).m_x = place.m_x;
    EngineAccess::currentLocation(engine).m_y = place.m_y;
    EngineAccess::currentElementIndex(engine) = element;
  }

  /// The cursor as "x,y #element".
  std::string cursor() const {
    const auto location = engine.mCurrentLocation();
    return std::to_string(location.m_x) + "," + std::to_string(location.m_y) + " #" +
           std::to_string(EngineAccess::currentElementIndex(engine));
  }

  TemporaryDirectory directory;
  CTavrel engine{directory.prefix()};
};

/// What a flowchart is before its file is read.
inline const std::string unreadChart =
    "intro=[Unable to read this flowchart intro.] x=0..0 y=0..0 cells=0,0 list=0 starts=0,1";
inline const std::string placeholder =
    "box 0,0 @0,0 [Flowchart not read] ([Unable to read this flowchart.]) > y4 n4 i4 o4";

}  // namespace tavrel

#endif  // TAVREL_TESTS_UNIT_ENGINETEST_H
