// An exception's text, where the memory sanitizer may be watching.

#ifndef TAVREL_TESTS_SUPPORT_EXCEPTIONTEXT_H
#define TAVREL_TESTS_SUPPORT_EXCEPTIONTEXT_H

#include <exception>
#include <string>

#if defined(__has_feature)
#if __has_feature(memory_sanitizer)
#define TAVREL_WATCHED_BY_MEMORY_SANITIZER
#include <sanitizer/msan_interface.h>
#endif
#endif

namespace tavrel {

#ifdef TAVREL_WATCHED_BY_MEMORY_SANITIZER
/// What the exception says. The compiled standard library makes the exception and
/// keeps its text, and the sanitizer doesn't see it write either.
__attribute__((no_sanitize("memory"))) inline std::string textOf(const std::exception& exception) {
  const char* const text = exception.what();
  __msan_unpoison_string(text);
  return text;
}
#else
/// What the exception says.
inline std::string textOf(const std::exception& exception) { return exception.what(); }
#endif

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_EXCEPTIONTEXT_H
