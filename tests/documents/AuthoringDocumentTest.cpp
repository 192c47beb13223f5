// The examples of docs/authoring.md. Each is compiled. What stands below it as text is what is
// found in it, if it begins with the name of a file, and else its picture; where nothing stands
// below it, nothing is found.

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "authoring/Compiler.h"
#include "drawing/TextChart.h"
#include "facade/Tavrel.h"
#include "tests/support/ChartDirectory.h"
#include "tests/support/Files.h"
#include "tests/support/GoldenFiles.h"

namespace tavrel {
namespace {

// A block between lines of three backquotes: its language, and where its text stands.
struct Block {
  std::string language;
  std::size_t begin, end;
};

const std::string fence = "```";

std::string document() { return readFile(TAVREL_AUTHORING_DOCUMENT); }

std::vector<Block> blocksOf(const std::string& text) {
  std::vector<Block> blocks;
  std::size_t at = text.find("\n" + fence);
  while (at != std::string::npos) {
    const std::size_t language = at + 1 + fence.size();
    const std::size_t begin = text.find('\n', language) + 1;
    const std::size_t end = text.find(fence + "\n", begin);
    blocks.push_back({text.substr(language, begin - 1 - language), begin, end});
    at = text.find("\n" + fence, end);
  }
  return blocks;
}

authoring::Catalogue catalogue() {
  Tavrel navigator("/dev/null");
  authoring::Catalogue names;
  for (std::size_t i = 0; i < navigator.flowchartTitles().size(); ++i) {
    navigator.resetToStartLocationForFlowchartAtIndex(static_cast<std::int64_t>(i));
    names.push_back(std::get<0>(navigator.currentLocation()));
  }
  return names;
}

std::string chartOf(const std::string& source) {
  const std::size_t name = source.find("chart: ") + 7;
  return source.substr(name, source.find('\n', name) - name);
}

// What the compiler makes of an example, and all that it says.
struct Compiled {
  std::string name;
  std::optional<authoring::CompiledChart> chart;
  std::string said;
};

Compiled compiled(const std::string& source) {
  const std::string name = chartOf(source);
  const authoring::SourceFile file(name + ".yaml", source);
  authoring::Diagnostics found;
  Compiled result = {name, authoring::compile(file, catalogue(), found), ""};
  for (const authoring::Diagnostic& each : found.sorted()) result.said += shown(each, file);
  return result;
}

std::string pictureOf(const Compiled& example) {
  const ChartDirectory directory;
  directory.write(example.name, example.chart->bytes);
  Tavrel navigator(directory.path());
  navigator.resetToStartLocationForFlowchartAtIndex(
      navigator.indexOfFlowchartWithTitle(example.name));
  const TextChart chart(navigator, Charset::utf8);
  const TextPicture picture = chart.paint(
      navigator, {0, 0, static_cast<int>(chart.width()), static_cast<int>(chart.height())});
  std::string lines;
  for (int row = 0; row < picture.height(); ++row) lines += picture.line(row) + "\n";
  return lines;
}

class AuthoringDocument : public testing::Test {
 protected:
  // Compares what stands below an example; or writes it, when that is wanted.
  void expectBelow(const Block& example, const Block& below) {
    const Compiled result = compiled(textOf(example));
    const std::string wanted = textOf(below);
    const std::string got = result.chart ? result.said + pictureOf(result) : result.said;
    if (isUpdatingGoldenFiles()) {
      writeFile(TAVREL_AUTHORING_DOCUMENT,
                text_.substr(0, below.begin) + got + text_.substr(below.end));
    } else {
      EXPECT_EQ(got, wanted);
    }
  }

  // What stands below an example, whatever commands there may be between.
  const Block* below(std::size_t example) const {
    for (std::size_t i = example + 1; i < blocks_.size() && blocks_[i].language != "yaml"; ++i) {
      if (blocks_[i].language == "text") return &blocks_[i];
    }
    return nullptr;
  }

  std::string textOf(const Block& block) const {
    return text_.substr(block.begin, block.end - block.begin);
  }

  std::string text_ = document();
  std::vector<Block> blocks_ = blocksOf(text_);
};

TEST_F(AuthoringDocument, ShowsWhatComesOfItsExamples) {
  std::size_t count = 0;
  // From the end, so that the places before it hold when one is written anew.
  for (std::size_t i = blocks_.size(); i-- > 0;) {
    if (blocks_[i].language != "yaml") continue;
    SCOPED_TRACE(textOf(blocks_[i]));
    ++count;
    if (const Block* const result = below(i)) {
      expectBelow(blocks_[i], *result);
      text_ = document();
    } else {
      EXPECT_EQ(compiled(textOf(blocks_[i])).said, "");
    }
  }
  EXPECT_GE(count, 9U);
}

// The compiler lists the keys where it finds another: in the chart and in a box.
TEST_F(AuthoringDocument, NamesEveryKeyThatThereIs) {
  const std::string list = "it may have ";
  std::istringstream said(compiled("chart: Overcall\nkey: x\napplies: {key: x}\nstart: a\nboxes:\n"
                                   "  a: {text: \"A\", no: {key: x}, never: {key: x}}\n")
                              .said);
  std::size_t count = 0;
  for (std::string line; std::getline(said, line);) {
    if (line.find(list) == std::string::npos) continue;
    std::istringstream keys(line.substr(line.find(list) + list.size()));
    for (std::string key; keys >> key; ++count) {
      key = key.substr(0, key.find(','));
      EXPECT_NE(text_.find("`" + key + "`"), std::string::npos) << key;
    }
  }
  EXPECT_EQ(count, 26U);
}

}  // namespace
}  // namespace tavrel
