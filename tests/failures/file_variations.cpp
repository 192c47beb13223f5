// file_variations [PART EVERY]: tries a share of all small faults in small files, and prints
// a row for each kind.

#include "tests/failures/Variations.h"
#include "tests/reference/ChartFiles.h"

int main(int count, char** words) {
  const tavrel::Share share = tavrel::shareOf(count, words);
  tavrel::reference::keepTemporaryFilesInMemory();
  bool isFine = print("three charts with one byte changed", tavrel::tryChangedBytes(share));
  isFine &= print("three charts cut short", tavrel::tryPrefixes(share));
  return isFine ? 0 : 1;
}
