// The engine object: its catalogue and what it holds before any file is read.

#include <thread>
#include <type_traits>

#include "tests/unit/Catalogue.h"
#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

using Catalogue = EngineTest;
using Access = EngineAccess;

TEST_F(Catalogue, TitlesAreThe45InTheirOrder) {
  const std::vector<std::string> titles = engine.mGetVectorOfFlowchartTitles();
  ASSERT_EQ(titles.size(), catalogue.size());
  for (std::size_t i = 0; i < catalogue.size(); ++i) EXPECT_EQ(titles[i], catalogue[i].title);
  EXPECT_EQ(titles.front(), "Deciding on an Opening Bid");
  EXPECT_EQ(titles.back(), "Continuations in Game Forcing Precision Auctions");
}

TEST_F(Catalogue, TitlesAreACopy) {
  engine.mGetVectorOfFlowchartTitles().clear();
  EXPECT_EQ(engine.mGetVectorOfFlowchartTitles().size(), 45u);
}

TEST_F(Catalogue, EveryFileNameYieldsItsIndex) {
  ASSERT_EQ(Access::flowchartFileNames(engine).size(), catalogue.size());
  for (std::size_t i = 0; i < catalogue.size(); ++i) {
    EXPECT_EQ(engine.mWhichFlowchartIndex(catalogue[i].fileName), static_cast<std::int32_t>(i));
    EXPECT_EQ(Access::flowchartFileNames(engine)[i], catalogue[i].fileName);
  }
  EXPECT_EQ(engine.mWhichFlowchartIndex("Opening"), 0);
  EXPECT_EQ(engine.mWhichFlowchartIndex("Convres2"), 26);
  EXPECT_EQ(engine.mWhichFlowchartIndex("PGF"), 44);
}

TEST_F(Catalogue, AnythingButAnExactFileNameYieldsMinusOne) {
  for (const std::string name : {"opening", "OPENING", "Opening ", " Opening", "Opening.fv",
                                 "Openin", "", "pgf", "Lebensohl", "Support Doubles"}) {
    EXPECT_EQ(engine.mWhichFlowchartIndex(name), -1) << name;
  }
  EXPECT_EQ(engine.mWhichFlowchartIndex(std::string("Opening\0", 8)), -1);
}

TEST_F(Catalogue, NoTitleIsAName) {
  for (const CatalogueEntry& entry : catalogue) {
    EXPECT_EQ(engine.mWhichFlowchartIndex(entry.title), -1) << entry.title;
  }
}

TEST_F(Catalogue, ANewEngineStandsOnElement0OfFlowchart0WithoutNameOrAnswers) {
  EXPECT_EQ(describe(engine), "0 - 0,0 #0 path=\"\" marks=");
}

TEST_F(Catalogue, EveryFlowchartStartsAsThePlaceholder) {
  ASSERT_EQ(Access::screenElements(engine).size(), 45u);
  for (std::size_t fc = 0; fc < 45; ++fc) {
    EXPECT_EQ(describeChart(engine, fc), unreadChart);
    ASSERT_EQ(elements(fc).size(), 1u);
    EXPECT_EQ(describe(elements(fc).front()), placeholder);
  }
}

TEST_F(Catalogue, EveryListHasOneEntryPerFlowchart) {
  EXPECT_EQ(Access::rowElementIndices(engine).size(), 45u);
  EXPECT_EQ(Access::rowStarts(engine).size(), 45u);
  EXPECT_EQ(Access::flowchartTitles(engine).size(), 45u);
  EXPECT_EQ(Access::flowchartIntros(engine).size(), 45u);
  for (const auto* bounds : {&Access::minX(engine), &Access::maxX(engine), &Access::minY(engine),
                             &Access::maxY(engine)}) {
    EXPECT_EQ(*bounds, std::vector<std::int32_t>(45, 0));
  }
}

TEST_F(Catalogue, ANewEngineAnswersFromThePlaceholderOfFlowchart0) {
  const std::vector<sScreenElement> all = engine.mGetAllElements();
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(describe(all.front()), placeholder);
  EXPECT_EQ(engine.mGetCurrentFlowchartMinX(), 0);
  EXPECT_EQ(engine.mGetCurrentFlowchartMaxX(), 0);
  EXPECT_EQ(engine.mGetCurrentFlowchartMinY(), 0);
  EXPECT_EQ(engine.mGetCurrentFlowchartMaxY(), 0);
}

TEST_F(Catalogue, ConstructionReadsNoFile) {
  write(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "End"));
  const CTavrel fresh(directory.prefix());
  EXPECT_EQ(describeChart(fresh, 0), unreadChart);
}

TEST_F(Catalogue, TheDirectoryIsKeptAsGiven) {
  for (const std::string given : {"", "/", "charts", "charts/", "charts//", "no such/place/"}) {
    EXPECT_EQ(Access::directory(CTavrel(given)), given);
  }
}

TEST_F(Catalogue, ADirectoryWithoutItsSeparatorLeavesEveryFlowchartUnread) {
  CTavrel wrong(directory.path().string());
  for (std::int32_t fc = 0; fc < 45; ++fc) {
    const auto index = static_cast<std::size_t>(fc);
    write(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "End"), catalogue[index].fileName);
    engine.mSetStartLocation(fc);
    EXPECT_EQ(elements(index).size(), 2u) << fc;
    wrong.mSetStartLocation(fc);
    EXPECT_EQ(describeChart(wrong, index), unreadChart) << fc;
  }
}

TEST_F(Catalogue, TheDirectoryIsABarePrefixOfTheFileName) {
  write(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "End"), "xOpening");
  CTavrel prefixed(directory.prefix() + "x");
  prefixed.mSetStartLocation(0);
  EXPECT_EQ(Access::screenElements(prefixed)[0].size(), 2u);
}

TEST_F(Catalogue, ANULByteInTheDirectoryDoesNotEndThePathOfAFile) {
  write(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "End"));
  CTavrel odd(directory.prefix() + "Opening.fv" + '\0');
  odd.mSetStartLocation(0);
  EXPECT_EQ(describeChart(odd, 0), unreadChart);
}

TEST_F(Catalogue, OneEngineLeavesAnotherUntouched) {
  write(ChartFile().intro({"Hello"}).box(0, 0, "Root", xPlus).box(1, 0, "End"));
  const CTavrel other(directory.prefix());
  const std::string before = snapshot(other);
  EXPECT_EQ(snapshot(engine), before);
  engine.mStartNewPath(0, "y");
  EXPECT_NE(snapshot(engine), before);
  EXPECT_EQ(snapshot(other), before);
  EXPECT_EQ(snapshot(CTavrel(directory.prefix())), before);
}

TEST(CatalogueThreads, EnginesMadeAtTheSameTimeAreEqual) {
  std::vector<std::string> made(4);
  std::vector<std::thread> threads;
  for (std::string& state : made) {
    threads.emplace_back([&state] {
      CTavrel engine("/");
      state = snapshot(engine) + bracketed(engine.mGetVectorOfFlowchartTitles()) +
              bracketed(engine.mGetFlowchartIntro(45));
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::string& state : made) EXPECT_EQ(state, made.front());
}

TEST(CatalogueType, AnEngineIsAPlainClassThatIsNotCopied) {
  EXPECT_FALSE(std::is_polymorphic_v<CTavrel>);
  EXPECT_FALSE(std::is_copy_constructible_v<CTavrel>);
  EXPECT_FALSE(std::is_copy_assignable_v<CTavrel>);
}

}  // namespace
}  // namespace tavrel
