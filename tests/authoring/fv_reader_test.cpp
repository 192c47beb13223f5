// What the strict reader says of files that the engine reads leniently.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "authoring/FvReader.h"
#include "authoring/NumberLine.h"
#include "tests/authoring/Charts.h"
#include "tests/support/Files.h"

namespace tavrel::authoring {
namespace {

using Said = std::vector<std::string>;

const std::vector<std::string> goodBoxes = {"0 0 0 0 0 1 0", "1 2 0 0 0 -1 -1", "2 0 1 0 0 -1 -1"};
const std::vector<std::string> goodConnectors = {"0 0 0 1 1 1 0"};
const std::string goodFile = fvWith(goodBoxes, goodConnectors);

std::string changed(const std::string& from, const std::string& to) {
  std::string file = goodFile;
  return file.replace(file.find(from), from.size(), to);
}

TEST(FvReader, SaysNothingOfAGoodFile) { EXPECT_EQ(saidOfFv(goodFile), Said{}); }

TEST(FvReader, SaysNothingOfChartsLaidByHand) {
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(TAVREL_CHARTS)) {
    if (entry.path().extension() != ".fv") continue;
    ++count;
    EXPECT_EQ(saidOfFv(readFile(entry.path())), Said{}) << entry.path();
  }
  EXPECT_EQ(count, 3U);
}

TEST(FvReader, ReadsTextsAndCellsByTheirLines) {
  const SourceFile file("Opening.fv", goodFile);
  Diagnostics found;
  const auto read = readFv(file, found);
  ASSERT_TRUE(read);
  ASSERT_EQ(read->nodes.size(), 3U);
  EXPECT_EQ(file.line(read->intro.first), "When to open.");
  EXPECT_EQ(file.line(read->nodes[1].text.first), "Pass");
  EXPECT_EQ(file.line(read->nodes[1].comment.first), "Every other hand.");
  ASSERT_EQ(read->boxes.size(), 3U);
  EXPECT_EQ(read->boxes[1].line, 23U);
  EXPECT_EQ(read->boxes[1].node, 1);
  EXPECT_EQ(read->boxes[1].cell, (Cell{2, 0}));
  EXPECT_EQ(read->boxes[0].exits.no, Direction::down);
  ASSERT_EQ(read->connectors.size(), 1U);
  EXPECT_EQ(read->connectors[0].cell, (Cell{1, 0}));
  EXPECT_EQ(read->connectors[0].into, Direction::right);
}

TEST(FvReader, TakesWhatTheFormatAllows) {
  EXPECT_EQ(saidOfFv(changed("3 nodes\n", "\n \t\n  +3\tnodes # three\n")), Said{});
  EXPECT_EQ(saidOfFv(changed("0 0 0 0 0 1 0\n", " 0 00 -0 0 0 1 0  # root\n")), Said{});
  EXPECT_EQ(saidOfFv(goodFile.substr(0, goodFile.size() - 1)), Said{});
  EXPECT_EQ(saidOfFv(goodFile + "\n  \n"), Said{});
}

TEST(FvReader, SaysWhereTheFileEndsWhereverItIsCut) {
  const std::size_t cells = goodFile.find("3 boxes");
  for (std::size_t size = 0; size < cells; ++size) {
    const Said said = saidOfFv(goodFile.substr(0, size));
    EXPECT_FALSE(said.empty()) << size;
  }
  EXPECT_EQ(saidOfFv(""), (Said{"1:1 T0404"}));
  EXPECT_EQ(saidOfFv("Opening\n"), (Said{"2:1 T0404"}));
  EXPECT_EQ(saidOfFv(goodFile.substr(0, cells)), (Said{"21:1 T0404"}));
}

TEST(FvReader, WantsNumbersWhereCountsStand) {
  EXPECT_EQ(saidOfFv(changed("3 nodes", "three nodes")), (Said{"5:1 T0405"}));
  EXPECT_EQ(saidOfFv(changed("3 nodes", " -nodes")), (Said{"5:2 T0405"}));
  EXPECT_EQ(saidOfFv(changed("3 nodes", "3nodes")), (Said{"5:1 T0405"}));
  EXPECT_EQ(saidOfFv(changed("3 nodes", "-3 nodes")), (Said{"5:1 T0409"}));
  EXPECT_EQ(saidOfFv(changed("3 nodes", "2147483648 nodes")), (Said{"5:1 T0406"}));
  EXPECT_EQ(saidOfFv(changed("3 nodes", "3 2 nodes")), (Said{"5:3 T0408"}));
}

TEST(NumberLine, HasItsEndForThePlaceOfANumberThatIsMissing) {
  const SourceFile file("Opening.fv", "x\n 1 22 yes\n");
  EXPECT_EQ(placeOfNumber(file, 2, 1), (Place{2, 4}));
  EXPECT_EQ(placeOfNumber(file, 2, 2), (Place{2, 7}));
}

TEST(FvReader, FindsCountsThatAreTooLarge) {
  EXPECT_EQ(saidOfFv(changed("1 line", "99 lines")), (Said{"3:1 T0410"}));
  EXPECT_EQ(saidOfFv(changed("1 line", "2147483647 lines")), (Said{"3:1 T0410"}));
  EXPECT_EQ(saidOfFv("Opening\nx\n2 lines\nWhen\n"), (Said{"3:1 T0410"}));
  EXPECT_EQ(saidOfFv("Opening\nx\n2 lines\nWhen\nto\n"), (Said{"6:1 T0404"}));
  EXPECT_EQ(saidOfFv(changed("3 boxes", "4 boxes")), (Said{"21:1 T0410"}));
  EXPECT_EQ(saidOfFv(changed("1 connectors", "2 connectors")), (Said{"25:1 T0410"}));
}

TEST(FvReader, FindsCountsThatAreTooSmall) {
  EXPECT_EQ(saidOfFv(changed("1\nPass", "0\nPass")), (Said{"12:1 T0405"}));
  EXPECT_EQ(saidOfFv(changed("3 boxes", "2 boxes")), (Said{"21:1 T0410"}));
  EXPECT_EQ(saidOfFv(changed("1 connectors", "0 connectors")), (Said{"25:1 T0410"}));
}

TEST(FvReader, GoesOnBehindACellThatIsWrong) {
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 x", "1 1 0 0 0 -1", "1 0 1 0 0 -1 4294967295"}),
            (Said{"22:13 T0405", "23:13 T0407", "24:14 T0406"}));
}

TEST(FvReader, TellsACellWithASlipFromTheNextCount) {
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 0", "1 x 0 0 0 -1 -1", "2 0 1 0 0 -1 -1"}),
            (Said{"23:3 T0405"}));
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 0", "1 99999999999 0 0 0 -1 -1", "2 0 1 0 0 -1 -1"}),
            (Said{"23:3 T0406"}));
  EXPECT_EQ(saidOfFv(changed("3 boxes", "4 boxes: node x y 0 0 yes no")), (Said{"21:1 T0410"}));
  EXPECT_EQ(
      saidOfFv(changed("3 boxes", "4 boxes")
                   .replace(goodFile.find("1 connectors"), 12, "1 cells: 0 0 0 into out x y")),
      (Said{"21:1 T0410"}));
}

TEST(FvReader, KnowsDirectionsAndNodes) {
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 4 -2", "3 1 0 0 0 -1 -1", "-1 0 1 0 0 -1 -1"}),
            (Said{"22:11 T0412", "22:13 T0412", "23:1 T0411", "24:1 T0411"}));
  EXPECT_EQ(saidOfCells(goodBoxes, {"0 0 0 -1 4 1 0"}), (Said{"26:7 T0412", "26:10 T0412"}));
}

TEST(FvReader, SaysWhichBytesDontBelongInTexts) {
  EXPECT_EQ(saidOfFv(changed("When", "Wh\xC3")), (Said{"4:3 T0401"}));
  EXPECT_EQ(saidOfFv(changed("When", "W\r\n")).front(), "4:2 T0402");
  EXPECT_EQ(saidOfFv(changed("When", std::string("Wh\0n", 4))), (Said{"4:3 T0403"}));
  EXPECT_EQ(saidOfFv(changed("When", "♣\tn\t")), (Said{"4:2 T0403", "4:4 T0403"}));
  EXPECT_EQ(saidOfFv(changed("When", "Wh\vn")), (Said{"4:3 T0403"}));
  EXPECT_EQ(saidOfFv(changed("When", "Wh\fn")), (Said{"4:3 T0403"}));
  EXPECT_EQ(saidOfFv(changed("When to open.\n3 nodes\n1\nA", "\tWhen\n3 nodes\n1\n\tA")),
            (Said{"4:1 T0403", "7:1 T0403"}));
  EXPECT_EQ(saidOfFv(changed("When", "Wh\x7F")), (Said{"4:3 T0403"}));
}

TEST(FvReader, KnowsTheControlCharactersBeyondAscii) {
  EXPECT_EQ(saidOfFv(changed("When", "♣\u0085n")), (Said{"4:2 T0403"}));
  EXPECT_EQ(saidOfFv(changed("When", "\u009Fn\u0080")), (Said{"4:1 T0403", "4:3 T0403"}));
  EXPECT_EQ(saidOfFv(changed("When", "£ \u00A0")), Said{});  // with C2 as their first bytes
  EXPECT_EQ(saidOfFv(goodFile + "\xC2"), (Said{"27:1 T0401", "27:1 T0413"}));
}

TEST(FvReader, FindsByteOrderMarksWhereverTheyStand) {
  EXPECT_EQ(saidOfFv("\uFEFF" + goodFile), (Said{"1:1 T0415"}));
  EXPECT_EQ(saidOfFv("\uFEFF\uFEFF" + changed("When", "\uFEFF")),
            (Said{"1:1 T0415", "1:2 T0415", "4:1 T0415"}));
  EXPECT_EQ(saidOfFv(changed("3 nodes", "\uFEFF3 nodes")), (Said{"5:1 T0415", "5:1 T0405"}));
}

TEST(FvReader, KnowsUtf16) {
  EXPECT_EQ(saidOfFv(std::string("O\0p\0", 4)), (Said{"1:1 T0401"}));
  EXPECT_EQ(saidOfFv(std::string("\0O\0p", 4)), (Said{"1:1 T0401"}));
  EXPECT_EQ(saidOfFv(std::string("\xFF\xFEO\0p\0", 6)), (Said{"1:1 T0401"}));
  EXPECT_EQ(saidOfFv(std::string("\xFE\xFF\0O\0p", 6)), (Said{"1:1 T0401"}));
}

TEST(FvReader, GoesOnBehindBytesThatDontBelongInFiles) {
  EXPECT_EQ(
      saidOfFv("\uFEFF" + changed("When", "\x01\xC3\xC3 \xC3 is 15-17").replace(0, 7, "Open\rin") +
               "left over\n"),
      (Said{"1:1 T0415", "1:6 T0402", "4:1 T0403", "4:2 T0401", "4:5 T0401", "4:10 T0614",
            "27:1 T0413"}));
}

TEST(FvReader, SaysOfCarriageReturnsAtAllLineEndsOnce) {
  std::string windows;
  for (const char c : goodFile) windows += c == '\n' ? std::string("\r\n") : std::string(1, c);
  EXPECT_EQ(saidOfFv(windows), (Said{"1:8 T0402"}));
  windows.insert(windows.find("When"), "\r");
  const Said said = saidOfFv(windows);
  EXPECT_EQ(said.size(), 27U);
  EXPECT_EQ(said[3], "4:1 T0402");
}

TEST(FvReader, NamesAHundredPlacesAndCountsTheOthers) {
  for (const auto& [more, ending] :
       {std::pair(1, ", and in 1 more place"), std::pair(2, ", and in 2 more places")}) {
    std::string controls;
    for (int i = 0; i < 100 + more; ++i) controls += "\x01 ";
    const SourceFile file("Opening.fv", changed("When", controls));
    Diagnostics found;
    readFv(file, found);
    ASSERT_EQ(found.size(), 100U);
    EXPECT_EQ(found.sorted()[98].text, "a control character stands here");
    EXPECT_EQ(found.sorted()[99].text, std::string("a control character stands here") + ending);
  }
}

TEST(FvReader, CountsBytesSideBySideAsOne) {
  EXPECT_EQ(saidOfFv(changed("When", "\x01\x01 \u0085\u0085")), (Said{"4:1 T0403", "4:4 T0403"}));
  EXPECT_EQ(saidOfFv(changed("When", "\r\r \t\t")), (Said{"4:1 T0402", "4:4 T0403"}));
}

TEST(FvReader, ReadsTheTextsWhereTheCellsCantBeRead) {
  EXPECT_EQ(saidOfFv(changed("3 boxes", "boxes").replace(goodFile.find("Pass"), 4, "PASS")),
            (Said{"12:1 T0613", "21:1 T0405"}));
  EXPECT_EQ(
      saidOfFv(changed("0 0 0 0 0 1 0", "0 0 0 0 0 1").replace(goodFile.find("Pass"), 4, "PASS")),
      (Said{"12:1 T0613", "22:12 T0407"}));
  EXPECT_EQ(saidOfFv(changed("0 0 0 0 0 1 0", "0 0 0 0 0 1 0 0")), (Said{"22:15 T0408"}));
}

TEST(FvReader, QuotesNoMoreThanFortyCharacters) {
  const SourceFile file("Opening.fv", goodFile + std::string(41, 'x') + "\n");
  Diagnostics found;
  readFv(file, found);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.sorted()[0].text,
            "'" + std::string(40, 'x') + "…' stands behind the last cell, and is never read");
}

TEST(FvReader, KnowsThatAFileWithoutNodesHasNone) {
  const SourceFile file("Opening.fv", "Opening\nx\n0\n0 nodes\n1\n0 0 0 0 0 -1 -1\n0\n");
  Diagnostics found;
  readFv(file, found);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.sorted()[0].cure, "the file has no nodes");
}

TEST(FvReader, FindsWhatIsLeftOver) {
  EXPECT_EQ(saidOfFv(goodFile + "\n  the end\nreally\n"), (Said{"28:3 T0413"}));
}

TEST(FvReader, WantsABox) { EXPECT_EQ(saidOfCells({}), (Said{"21:1 T0414"})); }

TEST(FvReader, KeepsTenThousandFindingsAndCountsTheOthers) {
  std::vector<std::string> boxes(20'000, "0 0 0 0 0 1");
  const CheckedChart checked = checkChart(SourceFile("Opening.fv", fvWith(boxes)), fewCharts);
  EXPECT_EQ(checked.found.sorted().size(), 10'000U);
  EXPECT_EQ(checked.found.count(Severity::error), 20'000U);
}

}  // namespace
}  // namespace tavrel::authoring
