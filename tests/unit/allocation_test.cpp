// What is allocated, how much of it, and what is left when an allocation fails.

#include <atomic>
#include <cstdlib>
#include <new>

#include "tests/unit/EngineTest.h"

namespace {

std::atomic<std::size_t> allocations{0};
std::atomic<std::size_t> bytesAllocated{0};
std::atomic<std::size_t> largestAllocation{0};
std::atomic<long> allocationsUntilFailure{-1};  // negative: none fails

void* allocate(std::size_t size) {
  if (allocationsUntilFailure >= 0 && allocationsUntilFailure-- == 0) throw std::bad_alloc();
  ++allocations;
  bytesAllocated += size;
  if (size > largestAllocation) largestAllocation = size;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace tavrel {
namespace {

/// What a call allocates.
struct Cost {
  std::size_t count, bytes, largest;
};

template <typename Call>
Cost costOf(Call&& call) {
  allocations = bytesAllocated = largestAllocation = 0;
  call();
  return {allocations, bytesAllocated, largestAllocation};
}

/// Makes the n-th allocation from now on fail, counting from 0, until destroyed.
class FailingAllocation {
 public:
  explicit FailingAllocation(long n) { allocationsUntilFailure = n; }
  ~FailingAllocation() { allocationsUntilFailure = -1; }
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
};

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
  EXPECT_EQ(costOf([] { std::vector<char>(1000); }).bytes, 1000u);
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
  EXPECT_LT(costOf([&] { typeThrown([&] { engine.mBuildFCFindHelper(0); }); }).bytes, little);
}

TEST_F(Allocations, TheRowIndexCostsFourBytesARow) {
  constexpr std::size_t rows = 1000000;
  write(ChartFile().box(0, 0, "a").box(0, rows - 1, "b"));
  CTavrel fresh(directory.prefix());
  const Cost cost = costOf([&] { fresh.mSetStartLocation(0); });
  EXPECT_LT(cost.bytes, 4 * rows + little);
}

// --- An allocation that fails ---------------------------------------------------

class FailedAllocations : public Allocations {
 protected:
  void SetUp() override {
    ChartFile()
        .intro({"An introduction of one long line, beyond any short string", "and another"})
        .node({"A box with a long line of text, beyond any short string"},
              {"And a long commentary, beyond any short string"}, "RespNT")
        .cell(0, 0, 0, xPlus)
        .cell(0, 2, 1)
        .line(1, 0, xPlus, yPlus)
        .line(1, 1, yPlus, xPlus)
        .writeTo(directory.path(), "Opening");
    longRow(5).writeTo(directory.path(), "RespNT");
  }
  const std::string answers = std::string(40, 'y');

  /// Makes the call on engines prepared alike, with every allocation failing in turn. Each
  /// failure must leave the engine as `isAllowed` says, and the call must succeed afterwards
  /// as if there had been none.
  template <typename Prepare, typename Call, typename IsAllowed>
  void failEach(Prepare&& prepare, Call&& call, IsAllowed&& isAllowed) {
    CTavrel untroubled(directory.prefix());
    prepare(untroubled);
    call(untroubled);
    const std::string success = snapshot(untroubled);
    for (long n = 0;; ++n) {
      ASSERT_LT(n, 10000);
      CTavrel troubled(directory.prefix());
      prepare(troubled);
      const std::string before = snapshot(troubled);
      bool failed = false;
      try {
        const FailingAllocation failing(n);
        call(troubled);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
      if (!failed) break;
      EXPECT_TRUE(isAllowed(troubled, before)) << "allocation " << n << "\n" << snapshot(troubled);
      call(troubled);
      EXPECT_EQ(snapshot(troubled), success) << "allocation " << n;
    }
  }

  /// As before the call, but for the flowchart that is current.
  static bool isAsBeforeButSelected(const CTavrel& engine, const std::string& before) {
    const auto afterTheIndexAndMarks = [](const std::string& text) {
      const std::size_t marksAt = text.find(" marks=");
      return text.substr(text.find(' '), marksAt - text.find(' ')) + text.substr(text.find('\n'));
    };
    return afterTheIndexAndMarks(snapshot(engine)) == afterTheIndexAndMarks(before);
  }
};

TEST_F(FailedAllocations, InReadingLeaveTheFlowchartAsItWas) {
  failEach([](CTavrel&) {}, [](CTavrel& on) { on.mReadFVFileIfNotAlready(0); },
           [](const CTavrel& on, const std::string& before) { return snapshot(on) == before; });
}

TEST_F(FailedAllocations, InAnIntroductionLeaveTheFlowchartReadOrAsItWas) {
  const auto isAllowed = [](const CTavrel& on, const std::string& before) {
    return snapshot(on) == before || EngineAccess::screenElements(on)[0].size() == 4;
  };
  failEach([](CTavrel&) {}, [](CTavrel& on) { on.mGetFlowchartIntro(0); }, isAllowed);
}

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
           [this](CTavrel& on) { on.mStartNewPath(0, answers); },
           [](const CTavrel& on, const std::string& before) { return snapshot(on) == before; });
}

TEST_F(FailedAllocations, InFollowingALinkKeepLocationElementAndStoredAnswers) {
  // "RespNT" is entered with answers left.
  const auto isAllowed = [](const CTavrel& on, const std::string& before) {
    return isAsBeforeButSelected(on, before);
  };
  for (long n = 0;; ++n) {
    CTavrel on(directory.prefix());
    on.mStartNewPath(0, answers);
    const std::string before = snapshot(on);
    bool failed = false;
    try {
      const FailingAllocation failing(n);
      on.mMoveOnPath();
    } catch (const std::bad_alloc&) {
      failed = true;
    }
    if (!failed) break;
    EXPECT_TRUE(isAllowed(on, before)) << "allocation " << n << "\n" << snapshot(on);
  }
}

TEST_F(FailedAllocations, InQueriesChangeNothing) {
  failEach([](CTavrel& on) { on.mStartNewPath(0, "y"); },
           [](CTavrel& on) {
             on.mGetAllElements();
             on.mGetElementsInBoundaries(0, 2, 0, 1);
             on.mGetXYElement(0, 0);
             on.mCurrentCommentText();
             on.mGetVectorOfFlowchartTitles();
           },
           [](const CTavrel& on, const std::string& before) { return snapshot(on) == before; });
}

TEST_F(FailedAllocations, InConstructionPass) {
  long failures = 0;
  for (bool failed = true; failed;) {
    try {
      const FailingAllocation failing(failures);
      const CTavrel fresh(answers);
      failed = false;
    } catch (const std::bad_alloc&) {
      ++failures;
    }
  }
  EXPECT_GE(failures, 45);
}

}  // namespace
}  // namespace tavrel
