#include "engine/ChartFile.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/CTavrel.h"

namespace tavrel::engine {
namespace {

// The fewest bytes that a node block and a cell line can take.
constexpr std::size_t smallestNode = 5;
constexpr std::size_t smallestCell = 13;

class ChartFileReader {
 public:
  explicit ChartFileReader(std::string_view bytes) : scanner_(bytes) {}

  ChartFile read() {
    chart_.ending = Ending::cut;  // until something else is known
    if (readHeader() && readIntro() && readNodes() && readBoxes() && readConnectors()) {
      chart_.ending = Ending::complete;
    }
    return std::move(chart_);
  }

 private:
  bool readHeader() {
    std::string_view ignored;
    return scanner_.readLine(ignored) && scanner_.readLine(ignored);
  }

  bool readIntro() {
    TextLines intro;
    if (!readText(intro)) return false;
    chart_.intro = intro;
    return true;
  }

  bool readNodes() {
    std::int32_t count = 0;
    if (!scanner_.readNumber(count)) return false;
    makeRoom(chart_.nodes, count, smallestNode);
    for (sLogicalNode node; count > 0; --count) {
      if (!readNode(node)) return false;
      chart_.nodes.push_back(node);
    }
    return true;
  }

  bool readNode(sLogicalNode& node) {
    return readText(node.m_boxLines) && readText(node.m_commentLines) &&
           scanner_.readLine(node.m_nextFlowchartName);
  }

  bool readText(TextLines& lines) {
    std::int32_t count = 0;
    return scanner_.readNumber(count) && scanner_.readLines(count, lines);
  }

  bool readBoxes() {
    std::int32_t count = 0;
    if (!scanner_.readNumber(count)) return false;
    if (count < 0) return endsWith(Ending::negativeCount);
    makeRoom(chart_.cells, count, smallestCell);
    for (; count > 0; --count) {
      if (!readBox()) return false;
    }
    return true;
  }

  // node x y (ignored) (ignored) yes no
  bool readBox() {
    std::array<std::int32_t, 7> numbers;
    if (!scanner_.readNumbers(numbers)) return false;
    const Cell box = {numbers[1], numbers[2], numbers[0], exitOf(numbers[5]), exitOf(numbers[6])};
    if (static_cast<std::size_t>(box.node) >= chart_.nodes.size()) {
      chart_.unknownNodeCell = box;
      return endsWith(Ending::unknownNode);
    }
    chart_.cells.push_back(box);
    ++chart_.boxCount;
    return true;
  }

  // (ignored) (ignored) (ignored) into out x y
  bool readConnectors() {
    std::int32_t count = 0;
    if (!scanner_.readNumber(count)) return false;
    makeRoom(chart_.cells, count, smallestCell);
    for (; count > 0; --count) {
      std::array<std::int32_t, 7> numbers;
      if (!scanner_.readNumbers(numbers)) return false;
      chart_.cells.push_back({numbers[5], numbers[6], 0, numbers[3], numbers[4]});
    }
    return true;
  }

  // A box cell alone writes its missing exits as -1.
  static std::int32_t exitOf(std::int32_t number) { return number == -1 ? eNoDirection : number; }

  bool endsWith(Ending ending) {
    chart_.ending = ending;
    return false;
  }

  // As much room as the file can fill, where that is less than it claims to.
  template <typename List>
  void makeRoom(List& list, std::int32_t claimed, std::size_t smallest) {
    if (claimed <= 0) return;
    const std::size_t possible = scanner_.remaining() / smallest;
    list.reserve(list.size() + std::min(static_cast<std::size_t>(claimed), possible));
  }

  Scanner scanner_;
  ChartFile chart_ = {};
};

}  // namespace

ChartFile readChartFile(std::string_view bytes) { return ChartFileReader(bytes).read(); }

}  // namespace tavrel::engine
