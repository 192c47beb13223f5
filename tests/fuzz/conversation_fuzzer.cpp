// A conversation with a navigator, whatever it asks and whatever its flowcharts hold: no
// crash, no hang, and no exception but those that the request may end in.

#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/fuzz/ChartPen.h"
#include "tests/fuzz/Finding.h"
#include "tests/fuzz/FuzzedDialogue.h"
#include "tests/fuzz/MemoryFiles.h"
#include "tests/fuzz/Navigators.h"
#include "tests/reference/Navigators.h"
#include "tests/unit/Catalogue.h"

namespace tavrel::fuzz {
namespace {

using reference::Dialogue;
using reference::EngineRespondent;
using reference::FacadeRespondent;
using reference::Front;
using reference::Reply;
using reference::Request;
using reference::Respondent;
using reference::Thrown;
using reference::What;

bool isSelection(What what) {
  return what == What::intro || what == What::reset || what == What::startNewPath ||
         what == What::readChart || what == What::moveAlongPath;
}

bool returnsText(What what) { return what == What::commentary || what == What::intro; }

bool neverThrows(What what) {
  return what == What::titles || what == What::indexOfName || what == What::optionalIndexOfName ||
         what == What::location || what == What::locationTriple || what == What::reverse ||
         what == What::stepX || what == What::stepY;
}

bool mayThrow(What what, Thrown thrown) {
  switch (thrown) {
    case Thrown::nothing:
      return true;
    case Thrown::outOfRange:
      return !neverThrows(what);
    case Thrown::startText:
      return what == What::startNewPath;
    case Thrown::resetText:
      return what == What::reset;
    case Thrown::lengthError:
      return isSelection(what) || what == What::buildIndex;
    case Thrown::invalidArgument:
      return returnsText(what) || what == What::keptDescription;
  }
  return false;
}

// Columns alone: where a reading threw, an older row index says which row an element is in.
void checkElements(const Request& request, const Reply& reply) {
  const auto [minX, maxX, minY, maxY] = request.numbers;
  for (const auto& element : reply.elements) {
    if (request.what == What::elementAt) {
      require(element.x == minX, "an element stands in the column asked for");
    } else if (request.what == What::elementsIn) {
      require(static_cast<std::int32_t>(minX) <= element.x &&
                  element.x <= static_cast<std::int32_t>(maxX),
              "an element stands in the columns asked for");
    }
  }
}

void ask(Respondent& navigator, const Request& request) {
  const Reply reply = navigator.ask(request);
  if (!mayThrow(request.what, reply.thrown)) {
    report("request " + std::to_string(static_cast<int>(request.what)) + " throws what it never " +
           "may: " + std::to_string(static_cast<int>(reply.thrown)));
  }
  checkElements(request, reply);
}

template <typename Navigator>
void play(const Dialogue& dialogue, Navigators<Navigator>& navigators) {
  for (const Request& request : dialogue.requests) {
    if (request.what == What::writeChart) {
      putFile(request.text, request.file);
    } else if (request.what == What::removeChart) {
      removeFile(request.text);
    } else if (request.what == What::makeNavigator) {
      navigators.renew();
    } else {
      ask(navigators.navigator(), request);
    }
  }
}

// Puts the cursor on the flowchart without a file, with no answers left over.
void beginAt(Respondent& navigator, std::size_t last) {
  navigator.ask(reference::startRequest(static_cast<std::int64_t>(last)));
}

template <typename Navigator>
Navigators<Navigator>& navigators() {
  static Navigators<Navigator> all(
      catalogue.size(), chartsOfDialogue,
      [](Navigator& navigator, std::size_t last) { beginAt(navigator, last); });
  return all;
}

template <typename Navigator>
void converse(const std::uint8_t* data, std::size_t size) {
  const std::size_t firstChart = navigators<Navigator>().nextCharts();
  play(dialogueOf(data, size, firstChart), navigators<Navigator>());
}

}  // namespace
}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrel::fuzz;
  if (frontOf(data, size) == Front::engine) {
    converse<EngineRespondent>(data, size);
  } else {
    converse<FacadeRespondent>(data, size);
  }
  return 0;
}
