// What is allocated, and how much of it.

#include "tests/support/Allocations.h"
#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

class Allocations : public EngineTest {
 protected:
  // A row of boxes with lines between them, each box with a way back.
  static ChartFile longRow(int boxes) {
    ChartFile chart;
    for (int i = 0; i < boxes; ++i) {
      chart.box(4 * i, 0, "Box " + std::to_string(i), i + 1 < boxes ? xPlus : noExit);
      if (i + 1 < boxes) chart.run(4 * i + 1, 0, xPlus, 3);
    }
    return chart;
  }
  static ChartFile grid(int side) {
    ChartFile chart;
    chart.box(0, 0, "Root");
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x) chart.line(x, y + 1, xPlus, xPlus);
    }
    return chart;
  }
};

TEST_F(Allocations, AreCounted) {
  const std::size_t before = bytesInUse();
  void* memory = nullptr;
  const Cost cost = costOf([&] { memory = ::operator new(1000); });
  EXPECT_EQ(cost.count, 1u);
  EXPECT_EQ(cost.bytes, 1000u);
  EXPECT_EQ(bytesInUse(), before + 1000);
  ::operator delete(memory);
  EXPECT_EQ(bytesInUse(), before);
}

TEST_F(Allocations, KnowTheMostThatWasInUse) {
  takeMostInUse();
  const std::size_t before = bytesInUse();
  for (int i = 0; i < 3; ++i) ::operator delete(::operator new(1000));
  EXPECT_EQ(takeMostInUse(), before + 1000);
  EXPECT_EQ(takeMostInUse(), before);
}

TEST_F(Allocations, FindingMakesNone) {
  select(grid(20));
  std::int32_t found = 0;
  const Cost cost = costOf([&] {
    for (std::int32_t x = -5; x < 30; ++x) found += engine.mFind(0, x, 5) >= 0 ? 1 : 0;
  });
  EXPECT_EQ(cost.count, 0u);
  EXPECT_EQ(found, 20);
}

TEST_F(Allocations, MovingMakesNone) {
  write(longRow(50));
  engine.mStartNewPath(0, std::string(49, 'y'));
  const Cost cost = costOf([this] {
    for (int i = 0; i < 49; ++i) engine.mMoveOnPath();
    for (int i = 0; i < 49; ++i) engine.mMoveXMinus();
    for (int i = 0; i < 49; ++i) engine.mMoveXPlus();
    engine.mMoveRoot();
    engine.mMoveYes();
    engine.mMoveNo();
    engine.mMoveYPlus();
    engine.mMoveYMinus();
  });
  EXPECT_EQ(cost.count, 0u);
  EXPECT_EQ(cursor(), "4,0 #1");
}

TEST_F(Allocations, PreparingAPathMakesNoneEvenWhereAnswersAreLeft) {
  select(longRow(50));
  EngineAccess::path(engine) = std::string(100, 'y');
  EXPECT_EQ(costOf([this] { engine.mPreparePath(); }).count, 0u);
  EXPECT_EQ(EngineAccess::path(engine), std::string(51, 'y'));
}

TEST_F(Allocations, ARectangleOfLinesTakesOneForItsList) {
  select(grid(30));
  std::size_t held = 0;
  const Cost cost = costOf([&] { held = engine.mGetElementsInBoundaries(5, 24, 3, 22).size(); });
  EXPECT_EQ(held, 400u);
  EXPECT_EQ(cost.count, 1u);
}

TEST_F(Allocations, AnEmptyRectangleTakesNone) {
  select(grid(10));
  EXPECT_EQ(costOf([this] { engine.mGetElementsInBoundaries(50, 60, 0, 5); }).count, 0u);
  EXPECT_EQ(costOf([this] { engine.mGetElementsInBoundaries(0, 5, 50, 60); }).count, 0u);
  EXPECT_EQ(costOf([this] { engine.mGetElementsInBoundaries(0, 5, 5, 0); }).count, 0u);
}

// --- The numbers in a file cost nothing ---------------------------------------

constexpr std::size_t little = 100000;  // bytes; a stream's buffer fits in it many times

// A node takes 5 bytes at least, a cell 13 and a line feed, which the last one does without.
TEST_F(Allocations, AFileThatClaimsMoreTakesNoMoreThanOneThatTellsItsCounts) {
  const auto bytesFor = [this](const std::string& file) {
    write(file);
    CTavrel fresh(directory.prefix());
    return costOf([&] { fresh.mSetStartLocation(0); }).bytes;
  };
  const std::string cell = "\n0 0 0 0 0 0 0";
  std::string nodes, cells;
  for (int i = 0; i < 1000; ++i) nodes += "0\n0\n\n";
  for (int i = 0; i < 1000; ++i) cells += cell;
  const std::string toNodes = "h\nh\n0\n", toBoxes = toNodes + "1\n0\n0\n\n";
  EXPECT_LT(bytesFor(toNodes + "2000000000\n" + nodes), bytesFor(toNodes + "1000\n" + nodes) + 500);
  // 1,076 cells could stand there.
  EXPECT_LT(bytesFor(toBoxes + "2000000000" + cells), bytesFor(toBoxes + "1000" + cells) + 2000);
}

TEST_F(Allocations, ACountOfTwoBillionInASmallFileCostsNextToNothing) {
  const std::string many = "2000000000\n";
  const std::pair<const char*, std::string> files[] = {
      {"introduction", "h\nh\n" + many + "Hello\n"},
      {"nodes", "h\nh\n0\n" + many + "0\n0\n\n"},
      {"box lines", "h\nh\n0\n1\n" + many + "a\n"},
      {"commentary", "h\nh\n0\n1\n0\n" + many + "a\n"},
      {"boxes", "h\nh\n0\n1\n0\n0\n\n" + many + "0 0 0 0 0 1 -1\n0 1 0 0 0 -1 -1\n"},
      {"lines", "h\nh\n0\n0\n0\n" + many + "0 0 0 1 1 0 0\n0 0 0 1 1 1 0\n"},
  };
  for (const auto& [what, file] : files) {
    SCOPED_TRACE(what);
    write(file);
    CTavrel fresh(directory.prefix());
    const Cost cost = costOf([&] { fresh.mSetStartLocation(0); });
    EXPECT_LT(cost.bytes, little);
  }
}

TEST_F(Allocations, ACellInAFarColumnCostsNoArrayOfThatLength) {
  for (const std::int64_t x : {100000000, -100000000}) {
    write(ChartFile().box(0, 0, "a").box(x, 0, "b").line(x / 2, 0, 1, 1));
    CTavrel fresh(directory.prefix());
    EXPECT_LT(costOf([&] { fresh.mSetStartLocation(0); }).bytes, little);
    EXPECT_EQ(EngineAccess::screenElements(fresh).at(0).at(1).m_xOffset,
              x > 0 ? 1500000002 : -1500000002);
    EXPECT_EQ(EngineAccess::screenElements(fresh).at(0).at(2).m_xOffset,
              x > 0 ? 750000001 : -750000001);
  }
}

TEST_F(Allocations, AnExtentThatIsTooLargeThrowsBeforeAnythingLargeIsAllocated) {
  for (const auto& [x, y] : {std::pair<std::int64_t, std::int64_t>{0, 16777216},
                             {0, -16777216},
                             {0, INT32_MAX},
                             {INT32_MAX, 0},
                             {INT32_MIN, INT32_MIN}}) {
    write(ChartFile().box(0, 0, "a").box(x, y, "b"));
    CTavrel fresh(directory.prefix());
    const Cost cost =
        costOf([&] { EXPECT_EQ(typeThrown([&] { fresh.mSetStartLocation(0); }), "length_error"); });
    EXPECT_LT(cost.bytes, little);
  }
  EngineAccess::maxY(engine)[0] = INT32_MAX;
  const Cost cost =
      costOf([&] { EXPECT_EQ(typeThrown([&] { engine.mBuildFCFindHelper(0); }), "length_error"); });
  EXPECT_LT(cost.bytes, little);
}

TEST_F(Allocations, TheRowIndexCostsFourBytesARow) {
  constexpr std::size_t rows = 1000000;
  write(ChartFile().box(0, 0, "a").box(0, rows - 1, "b"));
  CTavrel fresh(directory.prefix());
  const Cost cost = costOf([&] { fresh.mSetStartLocation(0); });
  EXPECT_LT(cost.bytes, 4 * rows + little);
}

// --- The records are all that a read keeps --------------------------------------

class ReadAllocations : public Allocations {
 protected:
  /// The number of allocations in selecting the chart.
  std::size_t countFor(const ChartFile& chart) const {
    write(chart);
    CTavrel fresh(directory.prefix());
    return costOf([&] { fresh.mSetStartLocation(0); }).count;
  }
  static ChartFile boxes(int count, const Lines& text, const Lines& commentary) {
    ChartFile chart;
    for (int i = 0; i < count; ++i) chart.node(text, commentary).cell(i, i, 0);
    return chart;
  }
  /// The number of allocations that each further box adds.
  std::size_t countForABox(const Lines& text, const Lines& commentary) const {
    const std::size_t few = countFor(boxes(10, text, commentary));
    const std::size_t more = countFor(boxes(30, text, commentary));
    EXPECT_EQ((more - few) % 20, 0u);
    return (more - few) / 20;
  }
  const std::string longLine = "A line of text beyond any short string";
};

TEST_F(ReadAllocations, DoNotGrowWithTheNumberOfLineCells) {
  const std::size_t few = countFor(grid(10));
  EXPECT_EQ(countFor(grid(50)), few);
  EXPECT_LT(few, 30u);
}

TEST_F(ReadAllocations, OfABoxAreItsTwoListsAndItsLongTexts) {
  EXPECT_EQ(countForABox({}, {}), 0u);
  EXPECT_EQ(countForABox({"short"}, {}), 1u);
  EXPECT_EQ(countForABox({"short", "short", "short"}, {"short", "short"}), 2u);
  EXPECT_EQ(countForABox({longLine, "short"}, {longLine, longLine}), 5u);
}

}  // namespace
}  // namespace tavrel
