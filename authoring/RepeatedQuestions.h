// Questions that are asked of someone who has answered them before.

#ifndef TAVREL_AUTHORING_REPEATEDQUESTIONS_H
#define TAVREL_AUTHORING_REPEATEDQUESTIONS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "authoring/ReadChart.h"

namespace tavrel::authoring {

/// Which question a box asks, from 0. Boxes with the same number ask the same.
using QuestionNumber = std::uint32_t;

/// Of a box that asks nothing, or what no other box asks.
constexpr QuestionNumber noQuestion = 0xFFFFFFFF;

struct RepeatedQuestion {
  BoxNumber box;
  BoxNumber asked;  ///< one before it that asks the same; noBox where that would take long to find
};

/// The boxes that a walk can come to behind another box with the same question, all of them, each
/// once. Of boxes in one loop, the one that a walk comes to first isn't among them for the sake
/// of the others, since leaving those out mends it.
///
/// Cost: linear in the boxes for each 256 questions; memory for a few numbers a box.
/// REQUIRES: `questions` has a number for each box, and these are below `questionCount`.
std::vector<RepeatedQuestion> repeatedQuestions(const ReadChart& chart,
                                                const std::vector<QuestionNumber>& questions,
                                                std::size_t questionCount);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_REPEATEDQUESTIONS_H
