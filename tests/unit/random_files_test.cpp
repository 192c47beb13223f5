// The reader against a naive one, on random files: well-formed, careless, mutated and cut.

#include <map>
#include <memory>
#include <tuple>

#include "tests/unit/EngineTest.h"
#include "tests/unit/NaiveReader.h"
#include "tests/unit/Random.h"

namespace tavrel {
namespace {

constexpr int files = 15000;
constexpr int filesPerEngine = 4;  // read in turn, as long as no two cells are held

// --- Random files -------------------------------------------------------------

/// What may stand between two integers, and behind the last of a line.
std::string blank(Random& random) {
  return random.chance(96) ? " " : random.from(Lines{"\t", "  ", "\n", " \r\n\v\f ", "\n\n"});
}
std::string lineEnd(Random& random) {
  return random.chance(92) ? "\n"
                           : random.from(Lines{" a comment\n", "\r\n", " 7 8\n", "x\n", " \n"});
}

std::string number(Random& random, std::int64_t value) {
  std::string digits = std::to_string(value);
  if (value >= 0 && random.chance(3)) digits = "+" + digits;
  if (value >= 0 && random.chance(3)) digits = "000" + digits;
  return digits;
}

std::string numberLine(Random& random, const std::vector<std::int64_t>& values) {
  std::string line = random.chance(3) ? "\n \n" : "";
  for (std::size_t i = 0; i < values.size(); ++i) {
    line += (i > 0 ? blank(random) : "") + number(random, values[i]);
  }
  return line + lineEnd(random);
}

std::string text(Random& random, int mostLines) {
  const int count = random.below(mostLines + 1);
  std::string lines =
      numberLine(random, {random.chance(2) ? count + random.between(-2, 2) : count});
  for (int i = 0; i < count; ++i) {
    lines += std::string(static_cast<std::size_t>(random.below(25)), 'a') +
             random.from(Lines{"", "", "", " ", "\r", "\xe2\x99\xa3"}) + "\n";
  }
  return lines;
}

// Beyond the small ones are the limits of rows and offsets and of what 32 bits hold.
std::int64_t coordinate(Random& random) {
  static const std::int64_t far[] = {100,       -100,      -5000,      5000,        143165000,
                                     143165576, 143165577, -143165576, 2147483647,  -2147483648,
                                     30000000,  16777216,  2147483648, -2147483649, 4294967296};
  return random.chance(99) ? random.between(-3, 3) : random.from(far);
}

std::int64_t direction(Random& random) {
  return random.chance(95) ? random.between(-1, 4) : random.from(std::vector<int>{-2, 9, 70000});
}

std::string wholeFile(Random& random) {
  std::string file = "header\n" + std::string(random.chance(90) ? "header\n" : "\n");
  file += text(random, 3);
  const int nodes = random.below(5), boxes = nodes > 0 ? random.below(7) : 0,
            lines = random.below(6);
  file += numberLine(random, {nodes});
  for (int i = 0; i < nodes; ++i) {
    file += text(random, 3) + text(random, 2) +
            random.from(Lines{"", "", "Opening", "Stayman", "a name beyond any short string"}) +
            "\n";
  }
  file += numberLine(random, {random.chance(98) ? boxes : random.between(-1, 8)});
  for (int i = 0; i < boxes; ++i) {
    const int node = random.chance(99) ? random.below(nodes) : random.between(-2, nodes + 1);
    file += numberLine(random, {node, coordinate(random), coordinate(random), random.below(9),
                                random.below(9), direction(random), direction(random)});
  }
  file += numberLine(random, {random.chance(98) ? lines : random.between(-2, 9)});
  for (int i = 0; i < lines; ++i) {
    file +=
        numberLine(random, {random.below(9), random.below(9), random.below(9), direction(random),
                            direction(random), coordinate(random), coordinate(random)});
  }
  return file + random.from(Lines{"", "", "trailing\n"});
}

std::string randomFile(Random& random) {
  const std::string file = wholeFile(random);
  switch (random.below(10)) {
    case 0:
    case 1:
      return truncated(random, file);
    case 2:
    case 3:
      return mutated(random, file);
    case 4:
      return truncated(random, mutated(random, file) + "\n");
    case 5:
      return random.chance(20)
                 ? randomBytes(random)
                 : ChartFile().box(random.between(-2, 2), random.between(-2, 2), "one").text();
    default:
      return file;
  }
}

// --- Comparing ----------------------------------------------------------------

bool isEqual(const sScreenElement& a, const sScreenElement& b) {
  const auto all = [](const sScreenElement& e) {
    return std::tie(e.m_x, e.m_y, e.m_xOffset, e.m_yOffset, e.m_isOnPath, e.m_isNode,
                    e.m_newFlowchartName, e.m_boxText, e.m_commentText, e.m_yesDir, e.m_noDir,
                    e.m_directionInto, e.m_directionOutOf);
  };
  return all(a) == all(b);
}

class RandomFiles : public EngineTest {
 protected:
  static void expectEqual(const CTavrel& on, const NaiveChart& expected) {
    using Access = EngineAccess;
    EXPECT_EQ(Access::flowchartIntros(on)[0], expected.intro);
    EXPECT_EQ(Access::minX(on)[0], expected.minX);
    EXPECT_EQ(Access::maxX(on)[0], expected.maxX);
    EXPECT_EQ(Access::minY(on)[0], expected.minY);
    EXPECT_EQ(Access::maxY(on)[0], expected.maxY);
    EXPECT_TRUE(Access::rowElementIndices(on)[0] == expected.list);
    EXPECT_TRUE(Access::rowStarts(on)[0] == expected.starts);
    const auto& elements = Access::screenElements(on)[0];
    ASSERT_EQ(elements.size(), expected.elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i) {
      EXPECT_TRUE(isEqual(elements[i], expected.elements[i])) << describe(elements[i]) << "\n"
                                                              << describe(expected.elements[i]);
    }
  }
};

TEST_F(RandomFiles, AreReadAsTheNaiveReaderReadsThem) {
  Random random(1);
  std::map<std::string, int> ends;
  std::size_t elementsRead = 0;
  for (int done = 0; done < files;) {
    CTavrel on(directory.prefix());
    NaiveChart expected;
    for (int i = 0; i < filesPerEngine && expected.elements.size() < 2; ++i, ++done) {
      const std::string file = randomFile(random);
      remove();  // or the file system takes its time to put one file in the place of another
      write(file);
      const std::string end = typeThrown([&] { expected.select(file); });
      EXPECT_EQ(typeThrown([&] { on.mReadFVFileIfNotAlready(0); }), end);
      expectEqual(on, expected);
      ASSERT_FALSE(HasFailure()) << "file " << done << ":\n" << file;
      ++ends[end];
    }
    elementsRead += expected.elements.size();
  }
  // The files have been about something.
  EXPECT_GT(ends["length_error"], files / 100);
  EXPECT_GT(ends["out_of_range"], files / 100);
  EXPECT_GT(elementsRead, static_cast<std::size_t>(2 * files));
}

}  // namespace
}  // namespace tavrel
