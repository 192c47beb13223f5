// A share of the small faults that file_variations tries all of.

#include "tests/failures/ExpectFine.h"
#include "tests/failures/Variations.h"
#include "tests/reference/ChartFiles.h"

namespace tavrel {
namespace {

TEST(Variations, OfOneByteAreReadAsTheReferenceReadsThem) {
  reference::keepTemporaryFilesInMemory();
  expectFine(tryChangedBytes({5, 101}), 2000);
}

TEST(Variations, CutShortAreReadAsTheReferenceReadsThem) {
  reference::keepTemporaryFilesInMemory();
  expectFine(tryPrefixes({}), 800);
}

}  // namespace
}  // namespace tavrel
