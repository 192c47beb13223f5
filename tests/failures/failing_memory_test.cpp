// A share of the failures that failing_allocations and failing_mallocs try all of.

#include "tests/failures/ExpectFine.h"
#include "tests/failures/FailedCalls.h"
#include "tests/reference/ChartFiles.h"

namespace tavrel {
namespace {

class FailingMemory : public testing::Test {
 protected:
  FailingMemory() { reference::keepTemporaryFilesInMemory(); }
};

TEST_F(FailingMemory, InCallsOfTheEngineLeavesAllOrNothing) {
  expectFine(failEngineCalls({8, 17}), 2000);
}

TEST_F(FailingMemory, InCallsOfTheClientInterfaceLeavesAllOrNothing) {
  expectFine(failFacadeCalls({14, 17}), 1500);
}

TEST_F(FailingMemory, InConstructionLeavesNothing) { expectFine(failConstruction(), 4 * 45); }

}  // namespace
}  // namespace tavrel
