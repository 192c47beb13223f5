#include "bench/GeneratedChart.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <system_error>

namespace tavrel {
namespace {

constexpr int down = 0, right = 1, left = 3;

// The way of the line from box to box: along a row, then down, then back.
class Meander {
 public:
  Meander(std::size_t columns, std::size_t connectors)
      : columns_(columns), spacing_(static_cast<long>(connectors) + 1) {}

  long x() const { return x_; }
  long y() const { return y_; }

  int direction() const {
    if ((box_ + 1) % columns_ == 0) return down;
    return box_ / columns_ % 2 == 0 ? right : left;
  }

  void step() {
    const int way = direction();
    x_ += way == right ? 1 : way == left ? -1 : 0;
    y_ += way == down ? 1 : 0;
  }

  long spacing() const { return spacing_; }
  void arrive() { ++box_; }

 private:
  std::size_t columns_;
  long spacing_;
  std::size_t box_ = 0;
  long x_ = 0;
  long y_ = 0;
};

std::string node(std::size_t number) {
  const std::string name = std::to_string(number);
  return "2\nQuestion number " + name + ":\n15-17 HCP and balanced?\n3\nThe commentary of box " +
         name + " explains why\nthe question is asked, in a few words,\nand gives an example.\n\n";
}

std::string numbers(std::initializer_list<long> values) {
  std::string line;
  for (const long value : values) line += (line.empty() ? "" : " ") + std::to_string(value);
  return line + '\n';
}

}  // namespace

std::string generatedChart(std::size_t boxes, std::size_t columns, std::size_t connectors) {
  std::string text = "Generated\n\n1\nAn introduction.\n" + std::to_string(boxes) + '\n';
  for (std::size_t box = 0; box < boxes; ++box) text += node(box);
  std::string cells;
  text += std::to_string(boxes) + '\n';
  Meander way(columns, connectors);
  for (std::size_t box = 0; box < boxes; ++box) {
    const bool last = box + 1 == boxes;
    const int direction = way.direction();
    text += numbers({static_cast<long>(box), way.x(), way.y(), 0, 0, last ? -1 : direction, -1});
    for (long step = 1; !last && step < way.spacing(); ++step) {
      way.step();
      cells += numbers({0, 0, 0, direction, direction, way.x(), way.y()});
    }
    way.step();
    way.arrive();
  }
  return text + std::to_string((boxes - 1) * connectors) + '\n' + cells;
}

ChartDirectory::ChartDirectory(const std::string& chart) {
  std::string pattern = (std::filesystem::temp_directory_path() / "tavrel-bench-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), pattern);
  }
  path_ = pattern + '/';
  std::ofstream(path_ + "Opening.fv", std::ios::binary) << chart;
}

ChartDirectory::~ChartDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace tavrel
