// A share of the small faults that file_variations tries all of.

#include <gtest/gtest.h>

#include "tests/failures/Variations.h"
#include "tests/reference/ChartFiles.h"

namespace tavrel {
namespace {

void expectFine(const Tally& tally) {
  EXPECT_GT(tally.tried, 0);
  for (const std::string& finding : tally.findings) ADD_FAILURE() << finding;
}

TEST(Variations, OfOneByteAreReadAsTheReferenceReadsThem) {
  reference::keepTemporaryFilesInMemory();
  expectFine(tryChangedBytes({5, 101}));
}

TEST(Variations, CutShortAreReadAsTheReferenceReadsThem) {
  reference::keepTemporaryFilesInMemory();
  expectFine(tryPrefixes({}));
}

}  // namespace
}  // namespace tavrel
