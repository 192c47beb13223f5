// What a call throws, as text that a test can compare.

#ifndef TAVREL_TESTS_SUPPORT_THROWN_H
#define TAVREL_TESTS_SUPPORT_THROWN_H

#include <new>
#include <stdexcept>
#include <string>

namespace tavrel {

/// The text of the exception that the call throws; "nothing thrown" without one. An
/// exception of another type passes.
template <typename Exception, typename Call>
std::string textThrown(Call&& call) {
  try {
    call();
  } catch (const Exception& exception) {
    return exception.what();
  }
  return "nothing thrown";
}

/// The type of the exception that the call throws: "out_of_range", "length_error",
/// "invalid_argument", "bad_alloc", or "" without one. Any other exception passes.
template <typename Call>
std::string typeThrown(Call&& call) {
  try {
    call();
  } catch (const std::out_of_range&) {
    return "out_of_range";
  } catch (const std::length_error&) {
    return "length_error";
  } catch (const std::invalid_argument&) {
    return "invalid_argument";
  } catch (const std::bad_alloc&) {
    return "bad_alloc";
  }
  return "";
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_THROWN_H
