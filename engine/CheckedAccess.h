// Bounds-checked access to the engine's lists by the signed indices it keeps.

#ifndef TAVREL_ENGINE_CHECKEDACCESS_H
#define TAVREL_ENGINE_CHECKEDACCESS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/Failures.h"

namespace tavrel::engine {

/// Element `index` of `list`. Throws std::out_of_range for an index below 0 or
/// not below its size. Unlike the list's own `at` it takes -1, the index of
/// nothing, as it comes, and allocates nothing when it throws.
template <typename List>
auto at(List& list, std::int64_t index) -> decltype(list[0]) {
  if (static_cast<std::uint64_t>(index) >= list.size()) throwOutOfRange();
  return list[static_cast<std::size_t>(index)];
}

/// The items of a list, where it is asked so often that finding out its size each
/// time would count. Holds as long as the list keeps its items where they are.
template <typename Item>
class Items {
 public:
  explicit Items(std::vector<Item>& list) noexcept : first_(list.data()), size_(list.size()) {}

  std::size_t size() const noexcept { return size_; }
  Item& operator[](std::size_t index) const noexcept { return first_[index]; }

 private:
  Item* first_;
  std::size_t size_;
};

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_CHECKEDACCESS_H
