#include "engine/ChartFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "engine/CTavrel.h"

namespace tavrel::engine {
namespace {

// The fewest bytes that a node block and a cell line can take.
constexpr std::size_t smallestNode = 5;
constexpr std::size_t smallestCell = 13;

// Bytes of a box text that are measured sooner than looked up. One file may show a text in
// as many boxes as it has lines.
constexpr std::ptrdiff_t mostMeasuredAnew = 256;

class ChartFileReader {
 public:
  explicit ChartFileReader(std::string_view bytes)
      : scanner_(bytes), chart_({Ending::cut, {}, Nodes(bytes.data() + bytes.size()), {}, {}}) {}

  ChartFile read() {
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
    Scanner intro = scanner_;
    if (!scanner_.passText()) return false;
    chart_.intro = intro.readText();
    return true;
  }

  bool readNodes() {
    std::int32_t count = 0;
    if (!scanner_.readNumber(count)) return false;
    makeRoom(chart_.nodes, count, smallestNode);
    for (std::string_view name; count > 0; --count) {
      const char* start = scanner_.position();
      if (!scanner_.passText()) return false;
      const char* textEnd = scanner_.position();
      if (!scanner_.passText() || !scanner_.readLine(name)) return false;
      chart_.nodes.append(start, textEnd);
    }
    return true;
  }

  bool readBoxes() {
    std::int32_t count = 0;
    if (!scanner_.readNumber(count)) return false;
    if (count < 0) return endsWith(Ending::negativeCount);
    makeRoomForCells(count);
    for (; count > 0; --count) {
      if (!readBox()) return false;
    }
    return true;
  }

  // node x y (ignored) (ignored) yes no
  bool readBox() {
    std::array<std::int32_t, 7> numbers;
    if (!scanner_.readNumbers(numbers)) return false;
    const Position position = {numbers[1], numbers[2]};
    if (static_cast<std::size_t>(numbers[0]) >= chart_.nodes.size()) {
      chart_.unknownNodePosition = position;
      return endsWith(Ending::unknownNode);
    }
    append(position, {numbers[0], exitOf(numbers[5]), exitOf(numbers[6])});
    ++chart_.boxCount;
    return true;
  }

  // (ignored) (ignored) (ignored) into out x y
  bool readConnectors() {
    std::int32_t count = 0;
    if (!scanner_.readNumber(count)) return false;
    makeRoomForCells(count);
    for (; count > 0; --count) {
      std::array<std::int32_t, 7> numbers;
      if (!scanner_.readNumbers(numbers)) return false;
      append({numbers[5], numbers[6]}, {0, numbers[3], numbers[4]});
    }
    return true;
  }

  void append(const Position& position, const Cell& cell) {
    chart_.positions.push_back(position);
    chart_.cells.push_back(cell);
  }

  // A box cell alone writes its missing exits as -1.
  static std::int32_t exitOf(std::int32_t number) { return number == -1 ? eNoDirection : number; }

  bool endsWith(Ending ending) {
    chart_.ending = ending;
    return false;
  }

  void makeRoomForCells(std::int32_t claimed) {
    makeRoom(chart_.positions, claimed, smallestCell);
    makeRoom(chart_.cells, claimed, smallestCell);
  }

  // As much room as the file can fill, where that is less than it claims to.
  template <typename List>
  void makeRoom(List& list, std::int32_t claimed, std::size_t smallest) {
    if (claimed <= 0) return;
    const std::size_t possible = scanner_.remaining() / smallest;
    list.reserve(list.size() + std::min(static_cast<std::size_t>(claimed), possible));
  }

  Scanner scanner_;
  ChartFile chart_;
};

}  // namespace

sLogicalNode Nodes::read(std::size_t index) const {
  Scanner scanner = scannerAt(index);
  sLogicalNode node = {scanner.readText(), scanner.readText(), {}};
  std::string_view name;
  scanner.readLine(name);
  node.m_nextFlowchartName = name;
  return node;
}

void Nodes::append(const char* start, const char* textEnd) {
  starts_.push_back(start);
  if (textEnd - start <= mostMeasuredAnew) return;
  const std::size_t node = starts_.size() - 1;
  longTexts_.push_back({node, scannerAt(node).measureText()});
}

TextSize Nodes::sizeAmongLongOnes(std::size_t index) const noexcept {
  const auto isBefore = [](const LongText& text, std::size_t node) { return text.node < node; };
  const auto text = std::lower_bound(longTexts_.begin(), longTexts_.end(), index, isBefore);
  if (text != longTexts_.end() && text->node == index) return text->size;
  return scannerAt(index).measureText();
}

ChartFile readChartFile(std::string_view bytes) { return ChartFileReader(bytes).read(); }

}  // namespace tavrel::engine
