// The two conversions that the reference needs everywhere.

#ifndef TAVREL_TESTS_REFERENCE_INTEGERS_H
#define TAVREL_TESTS_REFERENCE_INTEGERS_H

#include <cstddef>
#include <cstdint>

namespace tavrel::reference {

/// The low 32 bits of the number.
inline std::int32_t low32(std::int64_t value) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

/// The place in a list. An index of -1 becomes one that no list has.
inline std::size_t at(std::int64_t index) { return static_cast<std::size_t>(index); }

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_INTEGERS_H
