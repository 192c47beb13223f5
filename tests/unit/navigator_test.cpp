// The navigator: what it forwards, and what it converts on the way.

#include <thread>
#include <type_traits>
#include <utility>

#include "tests/unit/Catalogue.h"
#include "tests/unit/FacadeTest.h"

namespace tavrel {
namespace {

class Navigator : public FacadeTest {
 protected:
  // 0 --- 1, and 2 below the root
  static ChartFile chart() {
    return ChartFile()
        .intro({"Hello", "there"})
        .box(0, 0, "Root", xPlus, yPlus)
        .box(2, 0, "Yes")
        .link(0, 1, "No", "PGF")
        .line(1, 0, xPlus, xPlus);
  }
  static constexpr std::int64_t turn = 4294967296;  // changes nothing in the low 32 bits
  static bool isRead(const Tavrel& navigator) { return navigator.allElements().size() > 1; }
};

// --- Creation -----------------------------------------------------------------

TEST_F(Navigator, AppendsOneSeparatorWhereThereIsNone) {
  write(chart());
  const std::string again = "/../" + directory.path().filename().string();
  for (const std::string& end : {std::string(), std::string("/"), std::string("//"),
                                 std::string("/."), std::string("/./"), again}) {
    Tavrel fresh(directory.path().string() + end);
    fresh.resetToStartLocationForFlowchartAtIndex(0);
    EXPECT_TRUE(isRead(fresh)) << end;
  }
}

TEST_F(Navigator, TheDirectoryIsADirectoryNeverAPrefixOfFileNames) {
  chart().writeTo(directory.path(), "xOpening");
  Tavrel fresh(directory.path() / "x");
  fresh.resetToStartLocationForFlowchartAtIndex(0);
  EXPECT_FALSE(isRead(fresh));
}

TEST_F(Navigator, OfARelativePathReadsFromTheWorkingDirectory) {
  write(chart());
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(directory.path());
  Tavrel here(".");
  here.resetToStartLocationForFlowchartAtIndex(0);
  Tavrel empty("");  // the root directory, not the working one
  empty.resetToStartLocationForFlowchartAtIndex(0);
  std::filesystem::current_path(before);
  EXPECT_TRUE(isRead(here));
  EXPECT_FALSE(isRead(empty));
}

TEST_F(Navigator, OfAWrongDirectoryShowsPlaceholders) {
  Tavrel wrong(directory.path() / "nowhere");
  wrong.startNewPathForFlowchartAtIndexYesNoString(3, "yn");
  EXPECT_EQ(place(wrong), "FOpening 0,0");
  EXPECT_EQ(described(wrong.allElements()),
            "<ScreenElement node \"Flowchart not read\" onPath @0,0>\n");
  EXPECT_EQ(wrong.introForFlowchartAtIndex(3), Lines{"Unable to read this flowchart intro."});
}

TEST_F(Navigator, ANewOneStandsOnThePlaceholderOfFlowchart0) {
  EXPECT_EQ(place(navigator), " 0,0");
  EXPECT_EQ(described(navigator.allElements()),
            "<ScreenElement node \"Flowchart not read\" @0,0>\n");
  EXPECT_EQ(navigator.currentCommentaryText(), Lines{"Unable to read this flowchart."});
  EXPECT_EQ(navigator.currentElement().boxText(), Lines{"Flowchart not read"});
}

TEST_F(Navigator, IsMovedAndNotCopied) {
  static_assert(!std::is_copy_constructible_v<Tavrel>);
  static_assert(!std::is_copy_assignable_v<Tavrel>);
  static_assert(std::is_nothrow_move_constructible_v<Tavrel>);
  static_assert(std::is_nothrow_move_assignable_v<Tavrel>);
  static_assert(!std::is_convertible_v<std::filesystem::path, Tavrel>);
  select(chart());
  navigator.moveYes();
  Tavrel moved(std::move(navigator));
  EXPECT_EQ(place(moved), "Opening 2,0");
  Tavrel other(directory.path());
  other = std::move(moved);
  EXPECT_EQ(place(other), "Opening 2,0");
  other.moveXMinus();
  EXPECT_EQ(place(other), "Opening 0,0");
  moved = Tavrel(directory.path());
  EXPECT_EQ(place(moved), " 0,0");
}

TEST_F(Navigator, OneLeavesAnotherUntouched) {
  select(chart());
  Tavrel other(directory.path());
  navigator.startNewPathForFlowchartAtIndexYesNoString(0, "y");
  navigator.moveYes();
  EXPECT_EQ(place(other), " 0,0");
  EXPECT_EQ(other.allElements().size(), 1u);
}

TEST_F(Navigator, SeparateOnesMayBeUsedOnSeparateThreads) {
  write(chart());
  std::vector<std::string> places(4);
  std::vector<std::thread> threads;
  for (std::string& result : places) {
    threads.emplace_back([this, &result] {
      Tavrel own(directory.path());
      for (int i = 0; i < 50; ++i) {
        own.startNewPathForFlowchartAtIndexYesNoString(0, "y");
        own.moveAlongPath();
        result = place(own) + described(own.allElements());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::string& result : places) EXPECT_EQ(result, places.front());
  EXPECT_EQ(places.front().substr(0, 11), "Opening 2,0");
}

// --- Catalogue and introductions ----------------------------------------------

TEST_F(Navigator, TitlesAreThe45InTheirOrder) {
  const std::vector<std::string> titles = navigator.flowchartTitles();
  ASSERT_EQ(titles.size(), 45u);
  for (std::size_t i = 0; i < 45; ++i) EXPECT_EQ(titles[i], catalogue[i].title);
}

TEST_F(Navigator, IndicesAreThoseOfFileNamesNeverOfTitles) {
  for (std::size_t i = 0; i < 45; ++i) {
    const auto index = static_cast<std::int64_t>(i);
    EXPECT_EQ(navigator.indexOfFlowchartWithTitle(catalogue[i].fileName), index);
    EXPECT_EQ(navigator.indexOfFlowchartWithTitle(catalogue[i].title), -1);
    EXPECT_EQ(navigator.indexOfFlowchart(catalogue[i].fileName), index);
    EXPECT_EQ(navigator.indexOfFlowchart(catalogue[i].title), std::nullopt);
  }
  EXPECT_EQ(navigator.indexOfFlowchartWithTitle("Deciding on an Opening Bid"), -1);
  EXPECT_EQ(navigator.indexOfFlowchartWithTitle(""), -1);
  EXPECT_EQ(navigator.indexOfFlowchart("Opening"), 0);
  EXPECT_EQ(navigator.indexOfFlowchart("Lebensohl"), std::nullopt);
}

TEST_F(Navigator, ANameIsTakenWholeAndNotChecked) {
  EXPECT_EQ(navigator.indexOfFlowchartWithTitle(std::string("Opening\0", 8)), -1);
  EXPECT_EQ(navigator.indexOfFlowchartWithTitle(std::string("Opening\0x", 9)), -1);
  EXPECT_EQ(navigator.indexOfFlowchartWithTitle("\xff"), -1);
}

TEST_F(Navigator, TheNameOfTheNextFlowchartIsTheKeyToItsIndex) {
  select(chart());
  EXPECT_EQ(navigator.indexOfFlowchart(*navigator.elementAtXY(0, 1).nameOfNextFlowchart()), 44);
}

TEST_F(Navigator, IntroductionsOutsideTheCatalogueAreNoSuchFlowchart) {
  for (const std::int64_t index : {std::int64_t{-1}, std::int64_t{45}, std::int64_t{2147483648},
                                   turn - 1, turn + 45, INT64_MIN + 45, INT64_MAX}) {
    EXPECT_EQ(navigator.introForFlowchartAtIndex(index), Lines{"No such flowchart"}) << index;
  }
}

TEST_F(Navigator, IndicesKeepTheirLow32Bits) {
  write(chart());
  for (const std::int64_t index : {std::int64_t{0}, turn, -turn, 5 * turn, INT64_MIN}) {
    EXPECT_EQ(navigator.introForFlowchartAtIndex(index), (Lines{"Hello", "there"})) << index;
    navigator.startNewPathForFlowchartAtIndexYesNoString(index + 44, "");
    EXPECT_EQ(here(), "PGF 0,0");
    navigator.resetToStartLocationForFlowchartAtIndex(index);
    EXPECT_EQ(here(), "Opening 0,0");
  }
}

TEST_F(Navigator, ReadingAnIntroductionLeavesTheCursor) {
  select(chart());
  navigator.moveYes();
  write(ChartFile().intro({"Other"}).box(0, 0, "a"), "PGF");
  EXPECT_EQ(navigator.introForFlowchartAtIndex(44), Lines{"Other"});
  EXPECT_EQ(here(), "Opening 2,0");
}

TEST_F(Navigator, AnIntroductionThatIsNotUtf8ThrowsNamingItsLineAndTheReadStands) {
  write(ChartFile().intro({"ok", "\xe2\x99\xa3", "\xe2\x99"}).box(0, 0, "a").box(1, 0, "b"), "PGF");
  const std::string text =
      textThrown<std::invalid_argument>([&] { navigator.introForFlowchartAtIndex(44); });
  EXPECT_NE(text.find('2'), std::string::npos) << text;
  EXPECT_EQ(place(navigator), " 0,0");
  write(ChartFile().intro({"too late"}).box(0, 0, "a"), "PGF");
  navigator.resetToStartLocationForFlowchartAtIndex(44);
  EXPECT_EQ(navigator.allElements().size(), 2u);
}

TEST_F(Navigator, CommentaryThatIsNotUtf8ThrowsNamingItsLineAndChangesNothing) {
  select(ChartFile().node({"a"}, {"fine", "\xc0\x80"}).cell(0, 0, 0));
  const std::string text =
      textThrown<std::invalid_argument>([&] { navigator.currentCommentaryText(); });
  EXPECT_NE(text.find('1'), std::string::npos) << text;
  EXPECT_EQ(here(), "Opening 0,0");
  EXPECT_EQ(navigator.currentElement().boxText(), Lines{"a"});
}

TEST_F(Navigator, ElementsWithTextThatIsNotUtf8CanBeAskedFor) {
  select(ChartFile().node({"\xff"}, {"\xff"}, "\xff").cell(0, 0, 0).cell(0, 1, 0));
  EXPECT_EQ(navigator.allElements().size(), 2u);
  EXPECT_EQ(navigator.elementAtXY(1, 0).x(), 1);
}

// --- Selecting ----------------------------------------------------------------

TEST_F(Navigator, SelectingOutsideTheCatalogueThrowsTheEnginesTextAndChangesNothing) {
  write(chart());
  navigator.startNewPathForFlowchartAtIndexYesNoString(0, "y");
  navigator.moveYes();
  const std::string before = here() + described(navigator.allElements());
  for (const std::int64_t index : {std::int64_t{-1}, std::int64_t{45}, turn + 45, turn - 1}) {
    EXPECT_EQ(textThrown<std::out_of_range>(
                  [&] { navigator.startNewPathForFlowchartAtIndexYesNoString(index, "n"); }),
              "CTavrel::mStartNewPath()");
    EXPECT_EQ(textThrown<std::out_of_range>(
                  [&] { navigator.resetToStartLocationForFlowchartAtIndex(index); }),
              "CTavrel::mSetStartLocation()");
  }
  EXPECT_EQ(here() + described(navigator.allElements()), before);
}

TEST_F(Navigator, AnswersAreTakenWholeAndNotChecked) {
  // NUL and an invalid byte are each a "no".
  select(ChartFile()
             .box(0, 0, "0", noExit, xPlus)
             .box(1, 0, "1", noExit, xPlus)
             .box(2, 0, "2", xPlus)
             .box(3, 0, "3"));
  navigator.startNewPathForFlowchartAtIndexYesNoString(0, std::string("\0\xffy", 3));
  for (const ScreenElement& element : navigator.allElements()) EXPECT_TRUE(element.isOnPath());
}

TEST_F(Navigator, ResettingKeepsTheMarks) {
  write(chart());
  navigator.startNewPathForFlowchartAtIndexYesNoString(0, "y");
  navigator.moveAlongPath();
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  EXPECT_EQ(here(), "Opening 0,0");
  EXPECT_TRUE(navigator.elementAtXY(2, 0).isOnPath());
}

TEST_F(Navigator, ReaderFailuresPassUnchanged) {
  write("h\nh\n0\n0\n-1\n");
  EXPECT_EQ(typeThrown([&] { navigator.resetToStartLocationForFlowchartAtIndex(0); }),
            "length_error");
  EXPECT_TRUE(navigator.allElements().empty());
  write("h\nh\n0\n0\n1\n0 0 0 0 0 -1 -1\n", "PGF");
  EXPECT_EQ(typeThrown([&] { navigator.introForFlowchartAtIndex(44); }), "out_of_range");
}

// --- Asking -------------------------------------------------------------------

TEST_F(Navigator, LocationGoesToThePointersThatAreThere) {
  select(chart());
  navigator.moveNo();
  std::int64_t x = 77, y = 77;
  EXPECT_EQ(navigator.getCurrentLocationWithXY(nullptr, nullptr), "Opening");
  EXPECT_EQ(navigator.getCurrentLocationWithXY(nullptr, &y), "Opening");
  EXPECT_EQ(y, 1);
  EXPECT_EQ(x, 77);
  y = 77;
  EXPECT_EQ(navigator.getCurrentLocationWithXY(&x, nullptr), "Opening");
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 77);
}

TEST_F(Navigator, LocationBeforeASelectionIsAnEmptyNameNotNil) {
  std::int64_t x = 77, y = 77;
  EXPECT_EQ(navigator.getCurrentLocationWithXY(&x, &y), "");
  EXPECT_EQ(navigator.currentLocation(),
            (std::tuple<std::string, std::int64_t, std::int64_t>("", 0, 0)));
}

TEST_F(Navigator, NegativeCoordinatesComeOutNegative) {
  select(ChartFile().box(0, 0, "Root", xMinus, yMinus).box(-1, 0, "Yes").box(0, -1, "No"));
  navigator.moveYes();
  EXPECT_EQ(here(), "Opening -1,0");
  navigator.moveToRoot();
  navigator.moveNo();
  EXPECT_EQ(here(), "Opening 0,-1");
  EXPECT_EQ(navigator.currentFlowchartBounds().minX, -1);
  EXPECT_EQ(navigator.currentElement().yOffset(), -4);
}

TEST_F(Navigator, BoundsAreAll0UntilTheFlowchartIsRead) {
  write(ChartFile().box(-1, -2, "a").box(3, 4, "b"));
  ScreenBounds bounds = navigator.currentFlowchartBounds();
  EXPECT_EQ(bounds.minX, 0);
  EXPECT_EQ(bounds.maxX, 0);
  EXPECT_EQ(bounds.minY, 0);
  EXPECT_EQ(bounds.maxY, 0);
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  bounds = navigator.currentFlowchartBounds();
  EXPECT_EQ(bounds.minX, -1);
  EXPECT_EQ(bounds.maxX, 3);
  EXPECT_EQ(bounds.minY, -2);
  EXPECT_EQ(bounds.maxY, 4);
}

TEST_F(Navigator, BoundsHoldMinXMaxXMinYMaxYInThisOrder) {
  const ScreenBounds bounds{1, 2, 3, 4};
  EXPECT_EQ(bounds.minX, 1);
  EXPECT_EQ(bounds.maxX, 2);
  EXPECT_EQ(bounds.minY, 3);
  EXPECT_EQ(bounds.maxY, 4);
}

TEST_F(Navigator, AllElementsComeInFileOrderAndRectanglesInRowOrder) {
  select(ChartFile().box(0, 1, "a").box(2, 0, "b").line(-1, 0, 1, 1));
  EXPECT_EQ(described(navigator.allElements()),
            "<ScreenElement node \"a\" @0,1>\n"
            "<ScreenElement node \"b\" @2,0>\n"
            "<ScreenElement line @-1,0>\n");
  EXPECT_EQ(described(navigator.elementsInBounds({-1, 1, 0, 1})),
            "<ScreenElement line @-1,0>\n"
            "<ScreenElement node \"a\" @0,1>\n");
  EXPECT_EQ(described(navigator.elementsInBounds({-1, 2, 0, 0})),
            "<ScreenElement node \"b\" @2,0>\n"
            "<ScreenElement line @-1,0>\n");
  EXPECT_TRUE(navigator.elementsInBounds({3, 9, 0, 1}).empty());
  EXPECT_TRUE(navigator.elementsInBounds({1, 0, 0, 1}).empty());
}

TEST_F(Navigator, RectanglesAndCellsKeepTheLow32BitsOfTheirCoordinates) {
  select(chart());
  EXPECT_EQ(described(navigator.elementsInBounds({turn, 2 - turn, -3 * turn, turn})),
            described(navigator.elementsInBounds({0, 2, 0, 0})));
  EXPECT_EQ(navigator.elementAtXY(turn + 2, -turn).boxText(), Lines{"Yes"});
  // 2147483648 is the lowest of 32 bits.
  EXPECT_EQ(navigator.elementsInBounds({2147483648, 2147483647, 2147483648, 2147483647}).size(),
            4u);
}

TEST_F(Navigator, AnEmptyCellThrows) {
  select(chart());
  EXPECT_EQ(typeThrown([&] { navigator.elementAtXY(1, 1); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { navigator.elementAtXY(INT32_MAX, INT32_MIN); }), "out_of_range");
}

TEST_F(Navigator, CommentaryIsThatOfTheElementUnderTheCursor) {
  select(chart());
  EXPECT_EQ(navigator.currentCommentaryText(), Lines{"About Root"});
  navigator.moveNo();
  EXPECT_EQ(navigator.currentCommentaryText(), Lines{"About No"});
}

TEST_F(Navigator, AfterALinkToAnUnknownNameOnlyTheLocationCanBeAskedUntilASelection) {
  select(ChartFile().link(0, 0, "Root", "Lebensohl").box(1, 0, "Other"));
  navigator.startNewPathForFlowchartAtIndexYesNoString(0, "y");
  EXPECT_EQ(typeThrown([&] { navigator.moveAlongPath(); }), "out_of_range");
  EXPECT_EQ(here(), "Opening 0,0");
  EXPECT_EQ(typeThrown([&] { navigator.allElements(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { navigator.currentElement(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { navigator.currentFlowchartBounds(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { navigator.currentCommentaryText(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { navigator.elementsInBounds({0, 0, 0, 0}); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { navigator.moveBack(); }), "out_of_range");
  EXPECT_EQ(navigator.flowchartTitles().size(), 45u);
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  EXPECT_EQ(navigator.allElements().size(), 2u);
}

// --- Moving -------------------------------------------------------------------

TEST_F(Navigator, EachMoveIsTheEnginesOfThatMeaning) {
  select(ChartFile()
             .box(0, 0, "Root", xPlus, yPlus)
             .box(1, 0, "x+", xMinus)
             .box(0, 1, "y+")
             .box(-1, 0, "x-", xPlus)
             .box(0, -1, "y-", noExit, yPlus));
  using Move = void (Tavrel::*)();
  const std::pair<Move, const char*> moves[] = {
      {&Tavrel::moveXPlus, "Opening 1,0"}, {&Tavrel::moveXMinus, "Opening -1,0"},
      {&Tavrel::moveYPlus, "Opening 0,1"}, {&Tavrel::moveYMinus, "Opening 0,-1"},
      {&Tavrel::moveYes, "Opening 1,0"},   {&Tavrel::moveNo, "Opening 0,1"},
  };
  for (const auto& [move, expected] : moves) {
    (navigator.*move)();
    EXPECT_EQ(here(), expected);
    navigator.moveToRoot();
    EXPECT_EQ(here(), "Opening 0,0");
  }
}

TEST_F(Navigator, APathRunsFromFlowchartToFlowchart) {
  write(chart());
  write(ChartFile().box(0, 0, "Root", yMinus).box(0, -1, "End"), "PGF");
  navigator.startNewPathForFlowchartAtIndexYesNoString(0, "ny");
  std::string places;
  for (int i = 0; i < 5; ++i) {
    places += here() + "; ";
    navigator.moveAlongPath();
  }
  EXPECT_EQ(places, "Opening 0,0; Opening 0,1; PGF 0,0; PGF 0,-1; PGF 0,-1; ");
}

// --- The version --------------------------------------------------------------

TEST(Version, IsAStringAndANumber) {
  EXPECT_STREQ(TavrelVersionString, "1.0.0");
  EXPECT_EQ(TavrelVersionNumber, 1.0);
}

}  // namespace
}  // namespace tavrel
