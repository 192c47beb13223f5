// failing_allocations [PART EVERY]: tries a share of all failures, and prints a row for each
// kind: what was tried, how often, and what fell short.

#include <string>

#include "tests/failures/FailedCalls.h"
#include "tests/failures/FailingMemory.h"
#include "tests/reference/ChartFiles.h"

namespace {

bool show(const std::string& what, const tavrel::Tally& tally) {
  const std::string source = tavrel::filesNeedMemory() ? "malloc" : "new";
  return print("allocations by " + source + " that fail, " + what, tally);
}

}  // namespace

int main(int count, char** words) {
  const tavrel::Share share = tavrel::shareOf(count, words);
  tavrel::reference::keepTemporaryFilesInMemory();
  bool isFine = show("engine", tavrel::failEngineCalls(share));
  isFine &= show("client interface", tavrel::failFacadeCalls(share));
  if (share.part == 0) isFine &= show("construction", tavrel::failConstruction());
  return isFine ? 0 : 1;
}
