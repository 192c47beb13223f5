#include "tests/support/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> count{0};
std::atomic<std::size_t> bytes{0};
std::atomic<std::size_t> largest{0};
std::atomic<std::size_t> inUse{0};
std::atomic<std::size_t> mostInUse{0};

// In front of every block, its size; as large as the strictest alignment.
constexpr std::size_t header = alignof(std::max_align_t);
static_assert(header >= sizeof(std::size_t));

void* allocate(std::size_t size) noexcept {
  if (tavrel::FailingAllocations::nextMustFail()) return nullptr;
  void* const memory = std::malloc(header + size);
  if (memory == nullptr) return nullptr;
  ++count;
  bytes += size;
  if (size > largest) largest = size;
  const std::size_t now = inUse += size;
  if (now > mostInUse) mostInUse = now;
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

std::size_t takeMostInUse() { return mostInUse.exchange(inUse); }

}  // namespace tavrel
