#include "tests/limits/Counted.h"

#include <malloc.h>
#include <valgrind/callgrind.h>

namespace tavrel {

// What was freed before is put in order now: the C library would do so at some later
// allocation, amid what is counted.
void startCounting() {
  malloc_trim(0);
  CALLGRIND_START_INSTRUMENTATION;
}

void stopCounting(const std::string& name) {
  CALLGRIND_STOP_INSTRUMENTATION;
  CALLGRIND_DUMP_STATS_AT(name.c_str());
}

}  // namespace tavrel
