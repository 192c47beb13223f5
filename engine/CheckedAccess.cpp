#include "engine/CheckedAccess.h"

namespace tavrel::engine {

const std::out_of_range& outOfRange() {
  static const std::out_of_range failure("CTavrel: nothing stands there");
  return failure;
}

void throwOutOfRange() { throw std::out_of_range(outOfRange()); }

}  // namespace tavrel::engine
