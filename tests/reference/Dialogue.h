// Requests to a navigator, one after another, with the charts that they meet.

#ifndef TAVREL_TESTS_REFERENCE_DIALOGUE_H
#define TAVREL_TESTS_REFERENCE_DIALOGUE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tavrel::reference {

/// Whom the requests are put to: the object that hosts use, or the engine behind it.
enum class Front : std::uint8_t { facade, engine };

/// What is requested. The table in Dialogue.cpp has the names in the notation, the
/// arguments and the front of each.
enum class What : std::uint8_t {
  writeChart,
  removeChart,
  makeDirectory,
  makeNavigator,
  titles,
  indexOfName,
  optionalIndexOfName,
  intro,
  startNewPath,
  reset,
  location,
  locationTriple,
  bounds,
  commentary,
  allElements,
  elementAt,
  elementsIn,
  currentElement,
  moveXPlus,
  moveXMinus,
  moveYPlus,
  moveYMinus,
  moveWithDirection,
  moveYes,
  moveNo,
  moveToRoot,
  moveAlongPath,
  moveBack,
  reverse,
  keepCurrent,
  keptProperties,
  keptDescription,
  // The engine alone:
  readChart,
  preparePath,
  buildIndex,
  find,
  stepX,
  stepY,
};
constexpr std::size_t whatCount = static_cast<std::size_t>(What::stepY) + 1;

/// How many navigators a dialogue may have.
constexpr std::size_t mostNavigators = 8;

struct Request {
  What what;
  std::uint8_t navigator = 0;  ///< which of the navigators is asked, below `mostNavigators`
  std::array<std::int64_t, 4> numbers{};  ///< index, x, y, edges of a rectangle ...
  std::string text = {};                  ///< answers, a name, the end of a directory's name
  std::string file = {};                  ///< the bytes of a chart
};

/// Those that are put most often, to navigator 0.
Request startRequest(std::int64_t index, const std::string& answers = "");
Request resetRequest(std::int64_t index);
Request writeRequest(const std::string& name, std::string bytes);
Request removeRequest(const std::string& name);

struct Dialogue {
  Front front = Front::facade;
  std::vector<Request> requests;
};

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_DIALOGUE_H
