// malloc and its kin in the place of the C library's, for the whole program, the libraries
// that it loads included.

#include <malloc.h>

#include <cerrno>
#include <cstddef>

#include "tests/failures/FailingMemory.h"

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}

namespace {

std::size_t inUse = 0;

bool mustFail() {
  if (!tavrel::FailingAllocations::nextMustFail()) return false;
  errno = ENOMEM;
  return true;
}

void* counted(void* memory) {
  inUse += malloc_usable_size(memory);  // 0 for none
  return memory;
}

}  // namespace

// For the libraries too that the program loads.
#pragma GCC visibility push(default)
extern "C" {

void* malloc(std::size_t size) { return mustFail() ? nullptr : counted(__libc_malloc(size)); }

void* calloc(std::size_t count, std::size_t size) {
  return mustFail() ? nullptr : counted(__libc_calloc(count, size));
}

void* realloc(void* memory, std::size_t size) {
  if (mustFail()) return nullptr;
  const std::size_t before = malloc_usable_size(memory);
  void* const moved = __libc_realloc(memory, size);
  if (moved != nullptr || size == 0) inUse -= before;
  return counted(moved);
}

void* memalign(std::size_t alignment, std::size_t size) {
  return mustFail() ? nullptr : counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }

int posix_memalign(void** result, std::size_t alignment, std::size_t size) {
  *result = memalign(alignment, size);
  return *result == nullptr ? ENOMEM : 0;
}

void free(void* memory) {
  inUse -= malloc_usable_size(memory);
  __libc_free(memory);
}

}  // extern "C"
#pragma GCC visibility pop

namespace tavrel {

bool filesNeedMemory() { return true; }

std::size_t bytesInUse() { return inUse; }

}  // namespace tavrel
