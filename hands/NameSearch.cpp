#include "hands/NameSearch.h"

#include <array>
#include <optional>

#include "hands/Call.h"
#include "text/NearMiss.h"

namespace tavrel::hands {
namespace {

constexpr std::array<std::string_view, 13> examples = {
    "length(S)",
    "shape(5, 3, 3, 2)",
    "exact(4, 4, 3, 2)",
    "stopper(theirs)",
    "tops(S, 3)",
    "partner(1)",
    "left(1)",
    "right(1)",
    "own(1)",
    "suitOf(partner(1))",
    "level(partner(1))",
    "max(spades, hearts)",
    "min(spades, hearts)",
};

template <typename Names>
auto find(const Names& names, std::string_view word) -> decltype(names.data()) {
  for (const auto& each : names) {
    if (each.name == word) return &each;
  }
  return nullptr;
}

template <typename Visit>
void forEachName(Visit visit) {
  for (const VariableName& each : variableNames()) visit(each.name);
  for (const ConstantName& each : constantNames()) visit(each.name);
  for (const FunctionName& each : functionNames()) visit(each.name);
}

// Empty if there is none.
std::string sameButForCapitals(std::string_view word) {
  std::string same;
  forEachName([&](std::string_view name) {
    if (lowerCase(name) == lowerCase(word)) same = name;
  });
  return same;
}

std::string nearestTo(std::string_view word) {
  NearMiss miss(word);
  std::string nearest;
  forEachName([&](std::string_view name) {
    if (miss.improvesWith(name)) nearest = name;
  });
  return nearest;
}

}  // namespace

KnownName nameOf(std::string_view word) {
  return {find(variableNames(), word), find(constantNames(), word), find(functionNames(), word)};
}

std::string cureOfUnknown(std::string_view word) {
  const std::string same = sameButForCapitals(word);
  if (!same.empty()) return "write " + same + ": capitals matter";
  for (const std::string_view name : {word, word.substr(lowerCase(word)[0] == 'c' ? 1 : 0)}) {
    if (const std::optional<Call> call = callIn(name)) return "write c" + nameOf(*call);
  }
  constexpr std::size_t longest = 40;  // nobody slips so often
  const std::string near = word.size() <= longest ? nearestTo(word) : "";
  if (!near.empty()) return "did you mean " + near + "?";
  return "there are hcp, points, spades, hearts, diamonds, clubs, balanced, support and more: see "
         "docs/hands.md";
}

std::string_view exampleOf(Function function) {
  return examples[static_cast<std::size_t>(function)];
}

}  // namespace tavrel::hands
