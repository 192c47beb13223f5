// The file descriptors of the program.

#ifndef TAVREL_TESTS_SUPPORT_DESCRIPTORS_H
#define TAVREL_TESTS_SUPPORT_DESCRIPTORS_H

#include <fcntl.h>
#include <unistd.h>

namespace tavrel {

/// The descriptor that the system gives next: another one once a file is left open.
inline int nextDescriptor() {
  const int descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
  close(descriptor);
  return descriptor;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_DESCRIPTORS_H
