#include "authoring/FvWriter.h"

#include <cstddef>
#include <vector>

namespace tavrel::authoring {
namespace {

// The words behind a count are for people: readers pass over them.
std::string counted(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

class Writer {
 public:
  std::string write(const ChartSource& source, const GridChart& chart) {
    line(source.chart);
    line("Tavrel flowchart");  // the second of two header lines, which nobody reads
    text(source.intro.lines, "introduction line");
    line(counted(source.boxes.size(), "node"));
    for (const SourceBox& box : source.boxes) addNode(box);
    line(counted(chart.boxes.size(), "box cell") + ": node x y 0 0 yes no");
    for (const PlacedBox& box : chart.boxes) add(box);
    line(counted(chart.connectors.size(), "connector cell") + ": 0 0 0 into out x y");
    for (const PlacedConnector& connector : chart.connectors) add(connector);
    return std::move(bytes_);
  }

 private:
  void line(const std::string& text) { bytes_.append(text).append("\n"); }

  void text(const std::vector<std::string>& lines, const std::string& what) {
    line(counted(lines.size(), what.c_str()));
    for (const std::string& each : lines) line(each);
  }

  // A box without a link has an empty line for it.
  void addNode(const SourceBox& box) {
    text(box.text.lines, "box line");
    text(box.comment.lines, "comment line");
    line(box.link ? box.link->chart : "");
  }

  void numbers(const std::vector<int>& all) {
    std::string text;
    for (const int number : all) text += (text.empty() ? "" : " ") + std::to_string(number);
    line(text);
  }

  // Readers want a number in the fields that they ignore, and take any.
  void add(const PlacedBox& box) {
    numbers({box.box, box.cell.x, box.cell.y, 0, 0, static_cast<int>(box.exits.yes),
             static_cast<int>(box.exits.no)});
  }

  void add(const PlacedConnector& connector) {
    numbers({0, 0, 0, static_cast<int>(connector.into), static_cast<int>(connector.outOf),
             connector.cell.x, connector.cell.y});
  }

  std::string bytes_;
};

}  // namespace

std::string fvFile(const ChartSource& source, const GridChart& chart) {
  return Writer().write(source, chart);
}

}  // namespace tavrel::authoring
