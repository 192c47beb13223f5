// What is left when an allocation fails, and what needs no memory at all.

#include <memory>

#include "tests/unit/EngineTest.h"
#include "tests/unit/FailEach.h"

namespace tavrel {
namespace {

class FailedAllocations : public EngineTest {
 protected:
  void SetUp() override {
    write(wholeChart());
    write(ChartFile()
              .box(0, 0, "Root", xPlus)
              .run(1, 0, xPlus, 2)
              .box(3, 0, "Middle", xPlus)
              .box(4, 0, "End"),
          "RespNT");
  }

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

  /// The call on engines prepared alike; see FailEach.h.
  template <typename Prepare, typename Call, typename IsAllowed>
  void failEach(Prepare&& prepare, Call&& call, IsAllowed&& isAllowed) {
    const auto make = [&] {
      auto made = std::make_unique<CTavrel>(directory.prefix());
      prepare(*made);
      return made;
    };
    tavrel::failEach(make, snapshot, call, isAllowed);
  }

  static bool isAsBefore(const CTavrel& engine, const std::string& before) {
    return snapshot(engine) == before;
  }

  /// As before the call, but for the flowchart that is current.
  static bool isAsBeforeButSelected(const CTavrel& engine, const std::string& before) {
    const auto afterTheIndexAndMarks = [](const std::string& text) {
      const std::size_t marksAt = text.find(" marks=");
      return text.substr(text.find(' '), marksAt - text.find(' ')) + text.substr(text.find('\n'));
    };
    return afterTheIndexAndMarks(snapshot(engine)) == afterTheIndexAndMarks(before);
  }

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

// --- Reading ------------------------------------------------------------------

TEST_F(FailedAllocations, InReadingLeaveTheFlowchartAsItWas) {
  failEach([](CTavrel&) {}, [](CTavrel& on) { on.mReadFVFileIfNotAlready(0); }, isAsBefore);
}

TEST_F(FailedAllocations, InAReadThatThrowsLeaveTheFlowchartAsItWasToThrowTheNextTime) {
  const std::string start =
      "h\nh\n1\nAn introduction beyond any short string\n1\n1\nA box line beyond any short "
      "string\n0\n\n";
  const std::pair<const char*, std::string> files[] = {
      {"length_error", start + "-1\n"},
      {"out_of_range", start + "2\n0 0 0 0 0 1 -1\n1 5 -5 0 0 -1 -1\n"},
      {"length_error", start + "2\n0 0 0 0 0 1 -1\n0 0 16777216 0 0 -1 -1\n0\n"},
      {"length_error", start + "2\n0 0 0 0 0 1 -1\n0 2147483647 0 0 0 -1 -1\n0\n"},
  };
  for (const auto& [type, file] : files) {
    SCOPED_TRACE(file);
    write(file);
    failEach([](CTavrel&) {}, [](CTavrel& on) { on.mReadFVFileIfNotAlready(0); }, isAsBefore);
    failEach([](CTavrel& on) { on.mStartNewPath(6, "yyn"); },
             [this](CTavrel& on) { on.mStartNewPath(0, answers); }, isAsBeforeButSelected);
    CTavrel fresh(directory.prefix());
    EXPECT_EQ(typeThrown([&] { fresh.mReadFVFileIfNotAlready(0); }), type);
  }
}

TEST_F(FailedAllocations, InAnIntroductionLeaveTheFlowchartReadOrAsItWas) {
  const auto isAllowed = [](const CTavrel& on, const std::string& before) {
    return isAsBefore(on, before) || EngineAccess::screenElements(on)[0].size() == 4;
  };
  failEach([](CTavrel&) {}, [](CTavrel& on) { on.mGetFlowchartIntro(0); }, isAllowed);
}

// --- Selecting ----------------------------------------------------------------

TEST_F(FailedAllocations, InSelectingMayLeaveTheFlowchartSelectedAndUnread) {
  failEach([](CTavrel& on) { on.mSetStartLocation(5); },
           [](CTavrel& on) { on.mSetStartLocation(0); }, isAsBeforeButSelected);
}

TEST_F(FailedAllocations, InStartingAPathKeepLocationElementAndStoredAnswers) {
  failEach(
      [](CTavrel& on) {
        on.mStartNewPath(6, "yyn");
        on.mMoveOnPath();
      },
      [this](CTavrel& on) { on.mStartNewPath(0, answers); }, isAsBeforeButSelected);
}

TEST_F(FailedAllocations, InStartingAPathOnAFlowchartThatIsReadDoAllOrNothing) {
  failEach([](CTavrel& on) { on.mStartNewPath(0, "y"); },
           [this](CTavrel& on) { on.mStartNewPath(0, answers); }, isAsBefore);
}

TEST_F(FailedAllocations, InStartingAPathOnAFlowchartThatIsReadDoNotEvenSelectIt) {
  failEach(
      [](CTavrel& on) {
        on.mStartNewPath(0, "y");
        on.mStartNewPath(6, "yyn");
        on.mMoveOnPath();
      },
      [this](CTavrel& on) { on.mStartNewPath(0, answers); }, isAsBefore);
}

TEST_F(FailedAllocations, InStartingAPathOnAMarkedPlaceholderKeepItsMark) {
  const auto markThePlaceholder = [this](CTavrel& on) {
    remove();
    on.mStartNewPath(0, "");
    write(wholeChart());
    ASSERT_EQ(describe(on), "0 Opening 0,0 #0 path=\"\" marks=0");
  };
  failEach(
      markThePlaceholder, [this](CTavrel& on) { on.mStartNewPath(0, answers); }, isAsBefore);
}

TEST_F(FailedAllocations, InStartingAPathOnAMarkedFlowchartOfOneCellKeepItsMark) {
  const auto markTheCell = [this](CTavrel& on) {
    write(ChartFile().box(0, 0, "The only box, of a text beyond any short string"));
    on.mStartNewPath(0, "");
    write(wholeChart());
    ASSERT_EQ(describe(on), "0 Opening 0,0 #0 path=\"\" marks=0");
  };
  failEach(
      markTheCell, [this](CTavrel& on) { on.mStartNewPath(0, answers); }, isAsBefore);
}

TEST_F(FailedAllocations, KeepTheMarkThatAReadBeyondTheExtentClearsAlone) {
  const auto markThePlaceholder = [this](CTavrel& on) {
    remove();
    on.mStartNewPath(0, "n");
    write(ChartFile().intro({"New"}).box(0, 0, "Root").box(0, 16777216, "Far"));
  };
  failEach(
      markThePlaceholder, [this](CTavrel& on) { on.mStartNewPath(0, answers); }, isAsBefore);

  markThePlaceholder(engine);
  ASSERT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"n\" marks=0");
  EXPECT_EQ(typeThrown([this] { engine.mStartNewPath(0, answers); }), "length_error");
  EXPECT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"n\" marks=");
  EXPECT_EQ(chart(), unreadChart);
  EXPECT_EQ(describe(elements().at(0)), placeholder);
}

TEST_F(FailedAllocations, InFollowingALinkKeepLocationElementAndStoredAnswers) {
  // Once the link's flowchart is current, a new start is what leads to the link again.
  // "RespNT" is entered with answers left.
  failEach([this](CTavrel& on) { on.mStartNewPath(0, answers); },
           [this](CTavrel& on) {
             on.mStartNewPath(0, answers);
             on.mMoveOnPath();
           },
           isAsBeforeButSelected);
}

// --- Asking and making --------------------------------------------------------

TEST_F(FailedAllocations, InQueriesChangeNothing) {
  failEach([](CTavrel& on) { on.mStartNewPath(0, "y"); },
           [](CTavrel& on) {
             on.mGetAllElements();
             on.mGetElementsInBoundaries(0, 2, 0, 1);
             on.mGetXYElement(0, 0);
             on.mCurrentCommentText();
             on.mGetVectorOfFlowchartTitles();
           },
           isAsBefore);
}

TEST_F(FailedAllocations, InConstructionPassAndLeaveNothingBehind) {
  EXPECT_GE(failEachOfConstruction([this] { const CTavrel fresh(answers); }), 45);
}

// --- Without any memory -------------------------------------------------------

TEST_F(FailedAllocations, DoNotStandInForTheExceptionOfAMoveIntoAnEmptyCell) {
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

TEST_F(FailedAllocations, DoNotStandInForTheExceptionOfALookAtAnEmptyCell) {
  select(wholeChart());
  expectWithoutMemory([this] { engine.mGetXYElement(5, 0); }, "out_of_range");
  expectWithoutMemory([this] { engine.mGetXYElement(0, -1); }, "out_of_range");
}

TEST_F(FailedAllocations, DoNotStandInForTheExceptionOfALinkToAnUnknownName) {
  select(ChartFile()
             .link(0, 0, "Root", "A name that no flowchart has, beyond any short string")
             .box(1, 0, "Other"));
  engine.mStartNewPath(0, "yn");
  expectWithoutMemory([this] { engine.mMoveOnPath(); }, "out_of_range");
  EXPECT_EQ(describe(engine), "-1 Opening 0,0 #0 path=\"yn\" marks=?");
  expectWithoutMemory([this] { engine.mPreparePath(); }, "out_of_range");
  expectWithoutMemory([this] { engine.mGetAllElements(); }, "out_of_range");
}

TEST_F(FailedAllocations, DoNotStandInForTheExceptionOfALoop) {
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
