// Reads of files that go wrong on their way. A program that links TroubledReads.cpp opens
// and reads its files through it.

#ifndef TAVREL_TESTS_FAILURES_TROUBLEDREADS_H
#define TAVREL_TESTS_FAILURES_TROUBLEDREADS_H

#include <cstddef>
#include <functional>
#include <limits>

namespace tavrel {

/// What befalls the reads of one file.
struct Trouble {
  static constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

  std::size_t most = never;       ///< bytes that one read brings at the most
  std::size_t after = never;      ///< bytes after which reads fail
  int error = 0;                  ///< the error of those reads; 0: they find the end of the file
  int failing = -1;               ///< how many of them fail; negative: all
  std::function<void()> atFirst;  ///< called before the first read
};

/// Makes the reads of this program go so until destroyed. One at a time, on one thread.
class TroubledReads {
 public:
  explicit TroubledReads(const Trouble& trouble);
  ~TroubledReads();
  TroubledReads(const TroubledReads&) = delete;
  TroubledReads& operator=(const TroubledReads&) = delete;

  /// How many reads there were.
  long count() const;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_TROUBLEDREADS_H
