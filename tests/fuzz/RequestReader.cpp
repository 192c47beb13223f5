#include "tests/fuzz/RequestReader.h"

#include <limits>

#include "tests/unit/Catalogue.h"

namespace tavrel::fuzz {
namespace {

using reference::Front;
using reference::Request;
using reference::What;

// A kind of request, how many bytes name it, each with another chart in mind, and what
// the engine is asked where the front for hosts alone has it.
struct Opcodes {
  What what;
  int count;
  What ofEngine;
};

constexpr Opcodes common(What what, int count) { return {what, count, what}; }

constexpr std::array<Opcodes, 30> opcodes = {{
    common(What::moveYPlus, 8),
    common(What::moveXPlus, 8),
    common(What::moveYMinus, 8),
    common(What::moveXMinus, 8),
    common(What::moveYes, 14),
    common(What::moveNo, 14),
    common(What::moveToRoot, 6),
    common(What::moveAlongPath, 38),
    {What::moveBack, 12, What::preparePath},
    {What::moveWithDirection, 4, What::stepX},
    {What::reverse, 1, What::stepY},
    {What::location, 1, What::readChart},
    {What::optionalIndexOfName, 2, What::indexOfName},
    {What::currentElement, 4, What::find},
    {What::keepCurrent, 3, What::find},
    {What::keptProperties, 2, What::buildIndex},
    {What::keptDescription, 2, What::readChart},
    common(What::allElements, 2),
    common(What::commentary, 4),
    common(What::bounds, 2),
    common(What::locationTriple, 2),
    common(What::elementAt, 8),
    common(What::elementsIn, 8),
    common(What::titles, 1),
    common(What::indexOfName, 3),
    common(What::intro, 7),
    common(What::reset, 24),
    common(What::startNewPath, 42),
    common(What::makeNavigator, 2),
    common(What::writeChart, 16),
}};

constexpr int sumOfCounts() {
  int sum = 0;
  for (const Opcodes& each : opcodes) sum += each.count;
  return sum;
}
static_assert(sumOfCounts() == 256, "every byte names a request");

constexpr std::int64_t catalogueSize = catalogue.size();
constexpr std::int64_t beyond32Bits = std::int64_t{1} << 32;

// The halves of a byte, from -8 to 7.
std::int64_t low(std::uint8_t byte) { return (byte & 15) - 8; }
std::int64_t high(std::uint8_t byte) { return (byte >> 4) - 8; }

}  // namespace

Request RequestReader::read() {
  int choice = bytes_.take();
  auto opcode = opcodes.begin();
  for (; choice >= opcode->count; ++opcode) choice -= opcode->count;
  const bool isForEngine = charts_.front == Front::engine;
  return readAbout(isForEngine ? opcode->ofEngine : opcode->what, choice);
}

Request RequestReader::readAbout(What what, int choice) {
  Request request = {what};
  switch (what) {
    case What::makeNavigator:
      request.text = "{here}/";
      return request;
    case What::writeChart:
      return chartAnew(choice);
    case What::indexOfName:
    case What::optionalIndexOfName:
      request.text = name();
      return request;
    case What::startNewPath:
      return reference::startRequest(index(choice), answers());
    default:
      readNumbers(request, choice);
      return request;
  }
}

void RequestReader::readNumbers(Request& request, int choice) {
  switch (request.what) {
    case What::intro:
    case What::reset:
    case What::readChart:
    case What::buildIndex:
      request.numbers[0] = index(choice);
      return;
    case What::moveWithDirection:
    case What::reverse:
    case What::stepX:
    case What::stepY:
      request.numbers[0] = static_cast<std::int8_t>(bytes_.take());
      return;
    case What::location: {
      const std::uint8_t wanted = bytes_.take();
      request.numbers = {wanted & 1, wanted >> 1 & 1, 0, 0};
      return;
    }
    case What::elementAt: {
      const std::uint8_t cell = bytes_.take();
      request.numbers = {low(cell), high(cell), 0, 0};
      return;
    }
    case What::find: {
      const std::uint8_t cell = bytes_.take();
      request.numbers = {index(choice), low(cell), high(cell), 0};
      return;
    }
    case What::elementsIn:
      request.numbers = rectangle();
      return;
    default:
      return;
  }
}

// The file, or the lack of one, that some flowchart of the dialogue began with.
Request RequestReader::chartAnew(int choice) const {
  const auto all = static_cast<std::size_t>(choice);
  const std::string& name = names_[all % chartsOfDialogue];
  const std::size_t other = all / chartsOfDialogue % names_.size();
  if (other == chartsOfDialogue) return reference::removeRequest(name);
  Request request = charts_.requests[other];
  request.text = name;
  return request;
}

// Five times out of six a flowchart of the dialogue.
std::int64_t RequestReader::index(int choice) const {
  if (choice % 6 < 5) return firstChart_ + choice % 6 % static_cast<int>(chartsOfDialogue);
  const bool isForEngine = charts_.front == Front::engine;
  const std::array<std::int64_t, 5> others = {catalogueSize - 1, -1, catalogueSize,
                                              firstChart_ + (isForEngine ? 0 : beyond32Bits),
                                              firstChart_ + 1};
  return others[static_cast<std::size_t>(choice / 6) % others.size()];
}

// minX, maxX, minY, maxY
std::array<std::int64_t, 4> RequestReader::rectangle() {
  constexpr std::array<std::array<std::int64_t, 4>, 4> unusual = {
      {{INT32_MIN, INT32_MAX, INT32_MIN, INT32_MAX},
       {-1, 1, INT32_MAX, INT32_MIN},
       {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
        std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()},
       {-beyond32Bits, 3, -3, 3 + beyond32Bits}}};
  const std::uint8_t xs = bytes_.take();
  const std::uint8_t ys = bytes_.take();
  if (xs != 0) return {high(xs), low(xs), high(ys), low(ys)};
  const std::size_t kinds = charts_.front == Front::engine ? 2 : unusual.size();
  return unusual[ys % kinds];
}

std::string RequestReader::name() {
  const std::uint8_t byte = bytes_.take();
  if (byte < names_.size()) return names_[byte];
  if (byte == names_.size()) return "";
  if (byte % 2 == 0) return catalogue[byte % catalogue.size()].title;
  return names_[0] + static_cast<char>(byte);
}

// One answer for each bit below the highest that is set; zero is sixty times yes. No is an
// n, or, with two high bits, a Y.
std::string RequestReader::answers() {
  constexpr int twoHighBits = 192;
  const std::uint8_t byte = bytes_.take();
  if (byte == 0) return std::string(60, 'y');
  const char no = byte >= twoHighBits ? 'Y' : 'n';
  std::string all;
  for (int bits = byte; bits > 1; bits >>= 1) all += (bits & 1) != 0 ? 'y' : no;
  return all;
}

}  // namespace tavrel::fuzz
