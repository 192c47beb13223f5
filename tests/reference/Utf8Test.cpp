// Which bytes are text: the client interface and the reference agree on all that may stand
// at the front of a sequence, and wherever a word of eight bytes may hide one.

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "facade/Tavrel.h"
#include "tests/reference/PlainNavigator.h"
#include "tests/support/ChartFile.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel::reference {
namespace {

bool givesItsText(const ScreenElement& box) {
  try {
    return !box.boxText().empty();
  } catch (const std::invalid_argument&) {
    return false;
  }
}

/// Puts each text into a box of its own. Neither line feeds nor NUL bytes may stand in them.
void expectAgreement(const std::vector<std::string>& texts) {
  ChartFile file;
  int count = 0;
  for (const std::string& text : texts) file.node({text}).cell(count++, 0, 0);
  const TemporaryDirectory directory;
  writeFile(directory.chart("Opening"), file.text());
  Tavrel navigator(directory.path());
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  const std::vector<ScreenElement> boxes = navigator.allElements();
  ASSERT_EQ(boxes.size(), texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    ASSERT_EQ(givesItsText(boxes[i]), asText(texts[i]).has_value())
        << testing::PrintToString(texts[i]);
  }
}

TEST(Utf8, IsTheSameToBothWhateverTheFirstTwoBytesOfASequence) {
  std::vector<std::string> texts;
  for (int first = 0x80; first < 0x100; ++first) {
    for (int second = 1; second < 0x100; ++second) {
      if (second == '\n') continue;
      const std::string front = {static_cast<char>(first), static_cast<char>(second)};
      texts.insert(texts.end(), {front, front + "\x80", front + "\x80\xbf"});
    }
  }
  expectAgreement(texts);
}

TEST(Utf8, IsTheSameToBothWhereverAByteStandsAmongAscii) {
  std::vector<std::string> texts;
  for (std::size_t place = 0; place < 17; ++place) {
    for (int byte = 0x80; byte < 0x100; ++byte) {
      texts.emplace_back(17, 'a');
      texts.back()[place] = static_cast<char>(byte);
    }
  }
  expectAgreement(texts);
}

}  // namespace
}  // namespace tavrel::reference
