#include "text/NearMiss.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <utility>
#include <vector>

namespace tavrel {
namespace {

// The number of bytes to insert, delete or change to make one text of the other.
std::size_t editDistance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t changed = diagonal + (from[i] != to[j]);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
  return lower;
}

// Further away than a third of its letters, a name is a guess, not a slip.
NearMiss::NearMiss(std::string_view wanted)
    : wanted_(lowerCase(wanted)), distance_((wanted.size() + 2) / 3 + 1) {}

bool NearMiss::improvesWith(std::string_view name) {
  const std::size_t longer = std::max(name.size(), wanted_.size());
  const std::size_t shorter = std::min(name.size(), wanted_.size());
  if (longer - shorter >= distance_) return false;
  const std::size_t distance = editDistance(wanted_, lowerCase(name));
  if (distance >= distance_) return false;
  distance_ = distance;
  return true;
}

}  // namespace tavrel
