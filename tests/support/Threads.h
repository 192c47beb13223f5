// The same work on several threads.

#ifndef TAVREL_TESTS_SUPPORT_THREADS_H
#define TAVREL_TESTS_SUPPORT_THREADS_H

#include <cstddef>
#include <thread>
#include <vector>

namespace tavrel {

/// Does the work on so many threads at once, and returns when all are done. REQUIRES: it
/// throws nothing.
template <typename Work>
void onThreads(std::size_t count, Work work) {
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < count; ++i) threads.emplace_back(work);
  for (std::thread& each : threads) each.join();
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_THREADS_H
