// A few values, each under a name.

#ifndef TAVREL_TESTS_SUPPORT_NAMED_H
#define TAVREL_TESTS_SUPPORT_NAMED_H

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace tavrel {

/// A map for as many values as a test has. Made of header code alone: a std::map
/// balances its tree inside the compiled standard library, where the memory
/// sanitizer can't see that the nodes are written.
template <typename Value>
class Named {
 public:
  Named() = default;
  Named(std::initializer_list<std::pair<std::string, Value>> entries) : entries_(entries) {}

  /// The value of that name, or null; valid until the next `set` or `erase`.
  Value* find(const std::string& name) {
    const auto entry = std::find_if(entries_.begin(), entries_.end(), isNamed(name));
    return entry == entries_.end() ? nullptr : &entry->second;
  }
  const Value* find(const std::string& name) const { return const_cast<Named*>(this)->find(name); }

  /// Adds the value, or puts it in place of the one of that name.
  void set(const std::string& name, Value value) {
    if (Value* const found = find(name)) {
      *found = std::move(value);
    } else {
      entries_.emplace_back(name, std::move(value));
    }
  }

  void erase(const std::string& name) {
    entries_.erase(std::remove_if(entries_.begin(), entries_.end(), isNamed(name)), entries_.end());
  }

 private:
  static auto isNamed(const std::string& name) {
    return [&name](const std::pair<std::string, Value>& entry) { return entry.first == name; };
  }

  std::vector<std::pair<std::string, Value>> entries_;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_NAMED_H
