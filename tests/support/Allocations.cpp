#include "tests/support/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> count{0};
std::atomic<std::size_t> bytes{0};
std::atomic<std::size_t> largest{0};
std::atomic<std::size_t> inUse{0};
std::atomic<long> untilFailure{-1};  // negative: none fails
std::atomic<bool> failOn{false};     // the allocations after the one that fails
std::atomic<bool> hasFailed{false};

// In front of every block, its size; as large as the strictest alignment.
constexpr std::size_t header = alignof(std::max_align_t);
static_assert(header >= sizeof(std::size_t));

bool mustFail() {
  if (untilFailure < 0) return false;
  if (untilFailure > 0) {
    --untilFailure;
    return false;
  }
  if (!failOn) untilFailure = -1;
  return hasFailed = true;
}

void* allocate(std::size_t size) noexcept {
  if (mustFail()) return nullptr;
  void* const memory = std::malloc(header + size);
  if (memory == nullptr) return nullptr;
  ++count;
  bytes += size;
  if (size > largest) largest = size;
  inUse += size;
  *static_cast<std::size_t*>(memory) = size;
  return static_cast<char*>(memory) + header;
}

void* allocateOrThrow(std::size_t size) {
  if (void* const memory = allocate(size)) return memory;
  throw std::bad_alloc();
}

void release(void* memory) noexcept {
  if (memory == nullptr) return;
  void* const block = static_cast<char*>(memory) - header;
  inUse -= *static_cast<std::size_t*>(block);
  std::free(block);
}

}  // namespace

void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* memory) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { release(memory); }

namespace tavrel {

Cost takeCost() { return {count.exchange(0), bytes.exchange(0), largest.exchange(0)}; }

std::size_t bytesInUse() { return inUse; }

FailingAllocations::FailingAllocations(long n, Which which) {
  hasFailed = false;
  failOn = which == Which::allFromThere;
  untilFailure = n;
}

FailingAllocations::~FailingAllocations() { untilFailure = -1; }

bool FailingAllocations::wereReached() const { return hasFailed; }

}  // namespace tavrel
