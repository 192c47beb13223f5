// What is counted on flowcharts that grow.

#ifndef TAVREL_TESTS_LIMITS_MEASURES_H
#define TAVREL_TESTS_LIMITS_MEASURES_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tavrel {

/// An operation on a kind of flowchart.
struct Measure {
  std::string name;  ///< "OPERATION: FLOWCHART"
  std::size_t size;  ///< the smallest number to count it with: cells, lines or bytes

  /// Makes the flowchart, counts the operation on it under `label`, and throws where it
  /// hasn't done its work. Writes its files into the working directory.
  std::function<void(std::size_t size, const std::string& label)> count;
};

/// Reading the files of GrowingFiles.h.
std::vector<Measure> readingMeasures();
/// Walks, marks and rectangles on the lines of Line.h.
std::vector<Measure> lineMeasures();
/// A single find in a row.
std::vector<Measure> findMeasures();
/// The rest: links, loops, answers that lead nowhere, texts.
std::vector<Measure> otherMeasures();

}  // namespace tavrel

#endif  // TAVREL_TESTS_LIMITS_MEASURES_H
