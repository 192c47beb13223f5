// Exceptions that need no memory, so that none stands in for them.

#include "tests/support/Allocations.h"
#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

class WithoutMemory : public EngineTest {
 protected:
  static ChartFile wholeChart() {
    return ChartFile()
        .intro({"An introduction of one long line, beyond any short string", "and another"})
        .node({"A box with a long line of text, beyond any short string"},
              {"And a long commentary, beyond any short string"}, "RespNT")
        .cell(0, 0, 0, xPlus)
        .cell(0, 2, 1)
        .line(1, 0, xPlus, yPlus)
        .line(1, 1, yPlus, xPlus);
  }
  const std::string answers = std::string(40, 'y');

  /// Ends in this exception though no memory is left.
  template <typename Call>
  static void expectWithoutMemory(Call&& call, const std::string& type) {
    std::string thrown;
    {
      const FailingAllocations failing(0, FailingAllocations::Which::allFromThere);
      thrown = typeThrown(call);
    }
    EXPECT_EQ(thrown, type);
  }
};

TEST_F(WithoutMemory, ThereIsStillTheExceptionOfAMoveIntoAnEmptyCell) {
  select(ChartFile().box(0, 0, "Root", xPlus, yPlus).line(0, 1, yPlus, yPlus));
  engine.mStartNewPath(0, "");
  expectWithoutMemory([this] { engine.mMoveOnPath(); }, "out_of_range");
  EXPECT_EQ(cursor(), "0,0 #0");
  expectWithoutMemory([this] { engine.mMoveXPlus(); }, "out_of_range");
  EXPECT_EQ(cursor(), "1,0 #-1");
  expectWithoutMemory([this] { engine.mMoveYes(); }, "out_of_range");
  engine.mMoveRoot();
  expectWithoutMemory([this] { engine.mMoveYes(); }, "out_of_range");
  engine.mMoveRoot();
  expectWithoutMemory([this] { engine.mMoveNo(); }, "out_of_range");
  EXPECT_EQ(cursor(), "0,2 #-1");
}

TEST_F(WithoutMemory, ThereIsStillTheExceptionOfALookAtAnEmptyCell) {
  select(wholeChart());
  expectWithoutMemory([this] { engine.mGetXYElement(5, 0); }, "out_of_range");
  expectWithoutMemory([this] { engine.mGetXYElement(0, -1); }, "out_of_range");
}

TEST_F(WithoutMemory, ThereIsStillTheExceptionOfALinkToAnUnknownName) {
  select(ChartFile()
             .link(0, 0, "Root", "A name that no flowchart has, beyond any short string")
             .box(1, 0, "Other"));
  engine.mStartNewPath(0, "yn");
  expectWithoutMemory([this] { engine.mMoveOnPath(); }, "out_of_range");
  EXPECT_EQ(describe(engine), "-1 Opening 0,0 #0 path=\"yn\" marks=?");
  expectWithoutMemory([this] { engine.mPreparePath(); }, "out_of_range");
  expectWithoutMemory([this] { engine.mGetAllElements(); }, "out_of_range");
}

TEST_F(WithoutMemory, ThereIsStillTheExceptionOfALoop) {
  select(ChartFile()
             .box(0, 0, "Root", xPlus)
             .line(1, 0, xPlus, yPlus)
             .line(1, 1, yPlus, xPlus)
             .line(2, 1, xPlus, yMinus)
             .line(2, 0, yMinus, xMinus));
  expectWithoutMemory([this] { engine.mMoveYes(); }, "out_of_range");
  engine.mMoveRoot();
  EngineAccess::path(engine) = answers;
  expectWithoutMemory([this] { engine.mPreparePath(); }, "out_of_range");
  EXPECT_EQ(marks(engine, 0), "0,1,2,3,4");
}

}  // namespace
}  // namespace tavrel
