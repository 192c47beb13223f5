#include "tests/limits/MemoryPeak.h"

#include <errno.h>
#include <malloc.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

// The C library's functions under their other names.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}

namespace {

std::size_t inUse = 0;
std::size_t peak = 0;

void* taken(void* memory) {
  if (memory != nullptr) inUse += malloc_usable_size(memory);
  peak = std::max(peak, inUse);
  return memory;
}

void given(void* memory) {
  if (memory != nullptr) inUse -= malloc_usable_size(memory);
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) { return taken(__libc_malloc(size)); }
void* calloc(std::size_t count, std::size_t size) { return taken(__libc_calloc(count, size)); }
void* memalign(std::size_t alignment, std::size_t size) {
  return taken(__libc_memalign(alignment, size));
}
void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
  *memory = memalign(alignment, size);
  return *memory == nullptr ? ENOMEM : 0;
}

// A block that moves is there twice for a moment.
void* realloc(void* memory, std::size_t size) {
  const std::size_t old = memory == nullptr ? 0 : malloc_usable_size(memory);
  void* const changed = __libc_realloc(memory, size);
  if (changed == nullptr && size != 0) return nullptr;
  if (changed == memory) inUse -= old;
  taken(changed);
  if (changed != memory) inUse -= old;
  return changed;
}

void free(void* memory) {
  given(memory);
  __libc_free(memory);
}

void* mmap(void* address, std::size_t size, int protection, int flags, int file, off_t offset) {
  void* const mapped =
      reinterpret_cast<void*>(syscall(SYS_mmap, address, size, protection, flags, file, offset));
  if (mapped != MAP_FAILED) peak = std::max(peak, inUse += size);
  return mapped;
}

int munmap(void* address, std::size_t size) {
  inUse -= size;
  return static_cast<int>(syscall(SYS_munmap, address, size));
}

}  // extern "C"

namespace tavrel {

std::size_t memoryInUse() { return inUse; }

std::size_t takeMemoryPeak() { return std::exchange(peak, inUse); }

}  // namespace tavrel
