#include "authoring/TabIndents.h"

#include <algorithm>

#include "authoring/BraceScan.h"
#include "authoring/SourceKeys.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t step = 2;  // blanks from a key to those that belong to it

}  // namespace

std::size_t TabIndents::blanksOf(std::string_view tabbed, std::string_view content) {
  const std::string_view key = keyAt(content, 0);
  const bool hasTabs = tabbed.find('\t') != std::string_view::npos;
  const std::size_t blanks = hasTabs ? guessed(tabbed, key) : tabbed.size();
  if (key.empty()) return blanks;
  while (!levels_.empty() && levels_.back().blanks >= blanks) levels_.pop_back();
  const bool isOpen = content.find_first_not_of(' ', key.size() + 1) == std::string_view::npos;
  levels_.push_back({tabbed, blanks, !levels_.empty() && isBoxKey(key), isOpen});
  return blanks;
}

std::size_t TabIndents::guessed(std::string_view tabbed, std::string_view key) const {
  if (levels_.empty()) return 0;
  const Level& last = levels_.back();
  if (key.empty()) return last.blanks + step;
  const bool isOfBox = isBoxKey(key);
  const auto alike = std::find_if(levels_.begin(), levels_.end(), [&](const Level& each) {
    return each.tabbed == tabbed && each.isOfBox == isOfBox;
  });
  if (alike != levels_.end()) return alike->blanks;
  if (last.isOpen && (isOfBox || levels_.size() == 1)) return last.blanks + step;
  if (isOfBox && last.isOfBox) return last.blanks;
  return levels_[std::min<std::size_t>(levels_.size() - 1, 1)].blanks;
}

}  // namespace tavrel::authoring
