// Why something that a person wrote can't be read.

#ifndef TAVREL_HANDS_MISREADING_H
#define TAVREL_HANDS_MISREADING_H

#include <cstddef>
#include <string>

namespace tavrel::hands {

/// What is wrong, as a clause that names the place by its character, and how to mend it.
struct Misreading {
  std::size_t offset;  ///< in the text, in bytes
  std::string text;
  std::string cure;
};

/// Both clauses, with a semicolon between them.
inline std::string shown(const Misreading& fault) { return fault.text + "; " + fault.cure; }

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_MISREADING_H
