// What a chart's author says of the way through it: boxes and where their answers lead.

#ifndef TAVREL_AUTHORING_CHARTGRAPH_H
#define TAVREL_AUTHORING_CHARTGRAPH_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tavrel::authoring {

/// A box by its number in the chart, from 0.
using BoxNumber = std::int32_t;
constexpr BoxNumber noBox = -1;

enum class Answer : std::uint8_t { yes, no };
inline constexpr std::array answers = {Answer::yes, Answer::no};

/// A value for either answer.
template <typename Value>
struct ByAnswer {
  Value yes;
  Value no;

  Value& operator[](Answer answer) { return answer == Answer::yes ? yes : no; }
  const Value& operator[](Answer answer) const { return answer == Answer::yes ? yes : no; }
};

/// Where the yes of a box goes, its no going the other way.
enum class Turn : std::uint8_t { right, down };

struct GraphBox {
  ByAnswer<BoxNumber> exits = {noBox, noBox};
  Turn turn = Turn::right;
  bool isTurnFixed = false;  ///< its author said so of this very box

  bool isEnd() const { return exits.yes == noBox && exits.no == noBox; }
};

/// An exit by its box.
struct Exit {
  BoxNumber box = noBox;
  Answer answer = Answer::yes;

  friend bool operator==(const Exit& a, const Exit& b) {
    return a.box == b.box && a.answer == b.answer;
  }
  friend bool operator<(const Exit& a, const Exit& b) {
    return a.box != b.box ? a.box < b.box : a.answer < b.answer;
  }
};

/// REQUIRES: every exit is noBox or the number of a box.
struct ChartGraph {
  std::vector<GraphBox> boxes;
  BoxNumber root = 0;

  GraphBox& operator[](BoxNumber box) { return boxes[static_cast<std::size_t>(box)]; }
  const GraphBox& operator[](BoxNumber box) const { return boxes[static_cast<std::size_t>(box)]; }
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_CHARTGRAPH_H
