// Why a source can't be read.

#ifndef TAVREL_AUTHORING_CAUSE_H
#define TAVREL_AUTHORING_CAUSE_H

#include <cstddef>
#include <string>

#include "authoring/Diagnostic.h"

namespace tavrel::authoring {

/// What an author has to change.
struct Cause {
  Code code;
  std::size_t offset;  ///< in the file, in bytes
  std::string text;
  std::string cure;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_CAUSE_H
