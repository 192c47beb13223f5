// What a person may have meant by a name that doesn't exist.

#ifndef TAVREL_TEXT_NEARMISS_H
#define TAVREL_TEXT_NEARMISS_H

#include <cstddef>
#include <string>
#include <string_view>

namespace tavrel {

/// The text with the letters of ASCII in lower case.
std::string lowerCase(std::string_view text);

/// Finds the nearest of the names that it is offered, as long as one is near
/// enough to be a slip of the fingers.
class NearMiss {
 public:
  explicit NearMiss(std::string_view wanted);

  /// Whether the name is nearer than all that were offered before.
  bool improvesWith(std::string_view name);

 private:
  std::string wanted_;    // in lower case
  std::size_t distance_;  // names must be nearer than this
};

}  // namespace tavrel

#endif  // TAVREL_TEXT_NEARMISS_H
