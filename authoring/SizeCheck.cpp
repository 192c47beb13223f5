#include "authoring/SizeCheck.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "authoring/NumberLine.h"

namespace tavrel::authoring {
namespace {

constexpr std::int64_t mostRows = 16'777'216;
constexpr std::int64_t columnGap = 15, rowGap = 2;  // in half units
constexpr std::int64_t farthest = std::numeric_limits<std::int32_t>::max();

// A cell along one axis.
struct Slot {
  std::int32_t coordinate;
  std::int64_t size;
  LineNumber line;
  std::size_t column;  // of the coordinate, on its line
};

std::int64_t widthOf(const FvNode& node, const SourceFile& source) {
  std::size_t widest = 0;
  for (LineNumber i = 0; i < node.text.count; ++i) {
    widest = std::max(widest, source.line(node.text.first + i).size());
  }
  return static_cast<std::int64_t>(widest);
}

class SizeCheck {
 public:
  SizeCheck(const FvFile& file, const SourceFile& source, Diagnostics& found)
      : file_(file), source_(source), found_(found) {}

  bool check() {
    std::vector<Slot> rows = slots(boxYColumn, connectorYColumn, &Cell::y, heights());
    const bool areRowsFine = checkRows(rows) && checkOffsets(std::move(rows), rowGap, "rows");
    return checkOffsets(slots(boxXColumn, connectorXColumn, &Cell::x, widths()), columnGap,
                        "columns") &&
           areRowsFine;
  }

 private:
  std::vector<std::int64_t> widths() const {
    std::vector<std::int64_t> sizes;
    for (const FvNode& node : file_.nodes) sizes.push_back(widthOf(node, source_));
    return sizes;
  }

  std::vector<std::int64_t> heights() const {
    std::vector<std::int64_t> sizes;
    for (const FvNode& node : file_.nodes) sizes.push_back(node.text.count);
    return sizes;
  }

  std::vector<Slot> slots(std::size_t boxColumn, std::size_t connectorColumn,
                          std::int32_t Cell::*coordinate,
                          const std::vector<std::int64_t>& sizes) const {
    std::vector<Slot> slots;
    for (const FvBox& box : file_.boxes) {
      const std::int64_t size = sizes[static_cast<std::size_t>(box.node)];
      slots.push_back({box.cell.*coordinate, size, box.line, boxColumn});
    }
    for (const FvConnector& connector : file_.connectors) {
      slots.push_back({connector.cell.*coordinate, 0, connector.line, connectorColumn});
    }
    return slots;
  }

  bool checkRows(const std::vector<Slot>& rows) {
    std::int64_t first = 0, last = 0;
    for (const Slot& row : rows) {
      first = std::min<std::int64_t>(first, row.coordinate);
      last = std::max<std::int64_t>(last, row.coordinate);
      if (last - first < mostRows) continue;
      found_.add(Code::tooManyRows, placeOfNumber(source_, row.line, row.column),
                 "with row " + std::to_string(row.coordinate) + " the chart has " +
                     std::to_string(last - first + 1) + " rows, and 16777216 are the most",
                 "put the cell nearer to (0, 0)");
      return false;
    }
    return true;
  }

  // Outwards from the origin, which has a place of its own where no cell stands there.
  bool checkOffsets(std::vector<Slot> slots, std::int64_t gap, const char* what) {
    slots.push_back({0, 0, 0, 0});
    std::sort(slots.begin(), slots.end(), [](const Slot& a, const Slot& b) {
      return a.coordinate < b.coordinate || (a.coordinate == b.coordinate && a.size > b.size);
    });
    slots.erase(
        std::unique(slots.begin(), slots.end(),
                    [](const Slot& a, const Slot& b) { return a.coordinate == b.coordinate; }),
        slots.end());
    const auto origin = std::find_if(slots.begin(), slots.end(),
                                     [](const Slot& slot) { return slot.coordinate == 0; });
    return checkOffsets(origin, slots.end(), gap, what) &&
           checkOffsets(std::make_reverse_iterator(origin + 1), slots.rend(), gap, what);
  }

  template <typename Iterator>
  bool checkOffsets(Iterator slot, Iterator end, std::int64_t gap, const char* what) {
    std::int64_t offset = 0;
    for (Iterator next = slot + 1; next != end; slot = next++) {
      const std::int64_t steps = std::int64_t{next->coordinate} - slot->coordinate;
      offset += slot->size + next->size + gap * (steps < 0 ? -steps : steps);
      if (offset <= farthest) continue;
      found_.add(Code::tooLargeToDraw, placeOfNumber(source_, next->line, next->column),
                 std::string("the ") + what + " up to here take more room than 32 bits can count",
                 "put the cells nearer together, or shorten the texts");
      return false;
    }
    return true;
  }

  const FvFile& file_;
  const SourceFile& source_;
  Diagnostics& found_;
};

}  // namespace

bool checkSize(const FvFile& file, const SourceFile& source, Diagnostics& found) {
  return SizeCheck(file, source, found).check();
}

}  // namespace tavrel::authoring
