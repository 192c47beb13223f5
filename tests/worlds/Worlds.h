// The small worlds.

#ifndef TAVREL_TESTS_WORLDS_WORLDS_H
#define TAVREL_TESTS_WORLDS_WORLDS_H

#include <array>
#include <cstdint>
#include <vector>

#include "tests/worlds/World.h"

namespace tavrel::worlds {

/// Every occupancy of a 4x4 grid by boxes, with every cell and rectangle of it and of the
/// cells around it.
class Occupancies : public World {
 public:
  std::size_t size() const override { return 65536; }
  std::string file(std::size_t number) const override;
  void tryChart(std::size_t index, Sheet& sheet) const override;
};

/// A box in the middle of a 3x3 grid, another box, up to two connector cells, and every pair
/// of exits and of directions: every move from every cell, and short paths.
///
/// The grid's eight symmetries (turns and reflections about the middle, done to cells and
/// directions alike) take each of these charts into one of the same kind. One chart stands
/// for all that are symmetric to it, and since the order of rows knows no symmetry, the
/// charts are taken in each of the eight positions in turn.
class LinesBetween : public World {
 public:
  LinesBetween();
  std::size_t size() const override { return codes_.size(); }
  std::string file(std::size_t number) const override;
  void tryChart(std::size_t index, Sheet& sheet) const override;

 private:
  std::vector<std::uint64_t> codes_;
};

/// Charts that differ in all ways that random ones do, with every string of up to six
/// answers: each laid, and walked to its end.
class Answers : public World {
 public:
  Answers();
  std::size_t size() const override { return 40 * Sheet::room; }
  std::string file(std::size_t number) const override;
  void tryChart(std::size_t index, Sheet& sheet) const override;

 private:
  std::vector<std::string> strings_;
};

}  // namespace tavrel::worlds

#endif  // TAVREL_TESTS_WORLDS_WORLDS_H
