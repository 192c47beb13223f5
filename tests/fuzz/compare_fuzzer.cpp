// The conversations of conversation_fuzzer.cpp, every answer and the whole state compared
// with the plain reference.

#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/fuzz/Finding.h"
#include "tests/fuzz/FuzzedDialogue.h"
#include "tests/fuzz/MemoryChartFiles.h"
#include "tests/reference/Comparison.h"
#include "tests/unit/Catalogue.h"

namespace tavrel::fuzz {
namespace {

using reference::Dialogue;
using reference::What;

// The navigator that the requests are put to, which has selected the flowchart without a
// file; as in the target `conversation`, but made for this dialogue.
Dialogue withNavigator(const Dialogue& dialogue) {
  const auto last = static_cast<std::int64_t>(catalogue.size()) - 1;
  Dialogue whole = {dialogue.front, {{What::makeNavigator}, reference::startRequest(last)}};
  whole.requests[0].text = "{here}/";
  whole.requests.insert(whole.requests.end(), dialogue.requests.begin(), dialogue.requests.end());
  return whole;
}

[[noreturn]] void reportDifference(const Dialogue& dialogue, MemoryChartFiles& files,
                                   const reference::Difference& difference) {
  report(difference.what + " of request " + std::to_string(difference.request) +
         "\n  the reference: " + difference.reference + "\n  the navigator: " +
         difference.navigator + "\nas a conversation, with the reference's answers:\n" +
         inNotation(minimised(dialogue, files), files));
}

}  // namespace
}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrel::fuzz;
  static MemoryChartFiles files;
  const Dialogue dialogue = withNavigator(dialogueOf(data, size, 0));
  if (const auto difference = compare(dialogue, files)) {
    reportDifference(dialogue, files, *difference);
  }
  return 0;
}
