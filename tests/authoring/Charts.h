// Flowchart files for the tests of what is said of them.

#ifndef TAVREL_TESTS_AUTHORING_CHARTS_H
#define TAVREL_TESTS_AUTHORING_CHARTS_H

#include <sstream>
#include <string>
#include <vector>

#include "authoring/ChartCheck.h"

namespace tavrel::authoring {

inline const Catalogue fewCharts = {"Opening", "RespNT", "Stayman"};

/// What is found, a line each: "12:3 T0501".
inline std::vector<std::string> brief(const Diagnostics& found) {
  std::vector<std::string> lines;
  for (const Diagnostic& each : found.sorted()) {
    lines.push_back(std::to_string(each.place.line) + ":" + std::to_string(each.place.column) +
                    " " + nameOf(each.code));
  }
  return lines;
}

inline std::vector<std::string> saidOf(const std::string& name, const std::string& bytes) {
  return brief(checkChart(SourceFile(name, bytes), fewCharts).found);
}

inline std::vector<std::string> saidOfFv(const std::string& bytes) {
  return saidOf("Opening.fv", bytes);
}

inline std::vector<std::string> saidOfSource(const std::string& bytes) {
  return saidOf("Opening.yaml", bytes);
}

/// The beginning of a file with three nodes: 0 is a question, 1 and 2 are ends.
inline const std::string threeNodes =
    "Opening\nTavrel flowchart\n1 line\nWhen to open.\n3 nodes\n"
    "1\nA good hand?\n1\n12 points are.\n\n"
    "1\nPass\n1\nEvery other hand.\n\n"
    "1\nOpen 1NT\n1\nBalanced, 15–17.\n\n";

/// A file with these cells, a line each and with blanks between the numbers; the first box
/// cell stands on line 22.
inline std::string fvWith(const std::vector<std::string>& boxes,
                          const std::vector<std::string>& connectors = {}) {
  std::ostringstream file;
  file << threeNodes << boxes.size() << " boxes\n";
  for (const std::string& box : boxes) file << box << '\n';
  file << connectors.size() << " connectors\n";
  for (const std::string& connector : connectors) file << connector << '\n';
  return file.str();
}

inline std::vector<std::string> saidOfCells(const std::vector<std::string>& boxes,
                                            const std::vector<std::string>& connectors = {}) {
  return saidOfFv(fvWith(boxes, connectors));
}

}  // namespace tavrel::authoring

#endif  // TAVREL_TESTS_AUTHORING_CHARTS_H
