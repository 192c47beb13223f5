#include "engine/Failures.h"

#include <stdexcept>

namespace tavrel::engine {
namespace {

// Copies of these share their text, so throwing one allocates nothing.
const std::out_of_range& outOfRange() {
  static const std::out_of_range failure("CTavrel: nothing stands there");
  return failure;
}

const std::length_error& lengthError() {
  static const std::length_error failure("CTavrel: no flowchart can have this size");
  return failure;
}

}  // namespace

void prepareFailures() {
  outOfRange();
  lengthError();
}

void throwOutOfRange() { throw std::out_of_range(outOfRange()); }

void throwLengthError() { throw std::length_error(lengthError()); }

}  // namespace tavrel::engine
