// fopen and read in the place of the C library's. While there is trouble, streams are opened
// so that they read by the same function; all else of them is the library's own.

#include "tests/failures/TroubledReads.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

tavrel::Trouble trouble;
bool isTroubled = false;
std::size_t bytesRead = 0;
long reads = 0;

ssize_t plainRead(int descriptor, void* buffer, std::size_t size) {
  return syscall(SYS_read, descriptor, buffer, size);
}

ssize_t troubledRead(int descriptor, void* buffer, std::size_t size) {
  if (reads++ == 0 && trouble.atFirst) {
    isTroubled = false;
    trouble.atFirst();
    isTroubled = true;
  }
  if (bytesRead == trouble.after && trouble.failing != 0) {
    --trouble.failing;
    errno = trouble.error;
    return trouble.error == 0 ? 0 : -1;
  }
  const std::size_t left = bytesRead < trouble.after ? trouble.after - bytesRead : size;
  const ssize_t count = plainRead(descriptor, buffer, std::min({size, left, trouble.most}));
  if (count > 0) bytesRead += static_cast<std::size_t>(count);
  return count;
}

int descriptorOf(void* cookie) { return static_cast<int>(reinterpret_cast<std::intptr_t>(cookie)); }

ssize_t readCookie(void* cookie, char* buffer, std::size_t size) {
  return troubledRead(descriptorOf(cookie), buffer, size);
}

int closeCookie(void* cookie) { return close(descriptorOf(cookie)); }

std::FILE* openTroubled(const char* path) {
  const int descriptor = open(path, O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return nullptr;
  void* const cookie = reinterpret_cast<void*>(static_cast<std::intptr_t>(descriptor));
  return fopencookie(cookie, "r", {readCookie, nullptr, nullptr, closeCookie});
}

int flagsOf(const char* mode) {
  const bool isUpdated = std::strchr(mode, '+') != nullptr;
  if (*mode == 'r') return isUpdated ? O_RDWR : O_RDONLY;
  return (isUpdated ? O_RDWR : O_WRONLY) | O_CREAT | (*mode == 'a' ? O_APPEND : O_TRUNC);
}

std::FILE* openPlain(const char* path, const char* mode) {
  const int descriptor = open(path, flagsOf(mode) | O_CLOEXEC, 0666);
  return descriptor < 0 ? nullptr : fdopen(descriptor, mode);
}

}  // namespace

// For the libraries too that the program loads.
#pragma GCC visibility push(default)
extern "C" {

std::FILE* fopen(const char* path, const char* mode) {
  return isTroubled ? openTroubled(path) : openPlain(path, mode);
}

std::FILE* fopen64(const char* path, const char* mode) { return fopen(path, mode); }

ssize_t read(int descriptor, void* buffer, std::size_t size) {
  return isTroubled ? troubledRead(descriptor, buffer, size) : plainRead(descriptor, buffer, size);
}

}  // extern "C"
#pragma GCC visibility pop

namespace tavrel {

TroubledReads::TroubledReads(const Trouble& of) {
  trouble = of;
  bytesRead = 0;
  reads = 0;
  isTroubled = true;
}

TroubledReads::~TroubledReads() { isTroubled = false; }

long TroubledReads::count() const { return reads; }

}  // namespace tavrel
