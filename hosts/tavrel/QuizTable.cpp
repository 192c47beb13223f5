#include "hosts/tavrel/QuizTable.h"

#include <algorithm>
#include <cstddef>

#include "text/Text.h"

namespace tavrel {
namespace {

// The entry of that name, made if there is none.
template <typename Entries>
auto& entryOf(Entries& entries, const std::string& name) {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&](const auto& each) { return each.first == name; });
  if (found != entries.end()) return found->second;
  return entries.emplace_back(name, typename Entries::value_type::second_type{}).second;
}

std::size_t columnsOf(const std::string& text) {
  return static_cast<std::size_t>(displayWidth(text));
}

std::string padded(const std::string& name, std::size_t columns, std::uint64_t right,
                   std::uint64_t asked) {
  const std::string number = std::to_string(right);
  const std::size_t used = columnsOf(name) + number.size();
  return name + std::string(std::max(columns, used + 2) - used, ' ') + number + " of " +
         std::to_string(asked);
}

}  // namespace

void QuizTable::add(const std::string& chart, const std::string& end, std::uint64_t right,
                    std::uint64_t asked) {
  Chart& entry = entryOf(charts_, chart);
  for (Count* count : {&entry.all, &entryOf(entry.ends, end)}) {
    count->right += right;
    count->asked += asked;
  }
}

std::vector<std::string> QuizTable::lines() const {
  constexpr std::size_t columnsOfNumbers = 6;
  std::size_t columns = 0;
  for (const auto& [name, chart] : charts_) {
    columns = std::max(columns, columnsOf(name));
    for (const auto& [end, count] : chart.ends) columns = std::max(columns, columnsOf(end) + 2);
  }
  columns += columnsOfNumbers;
  std::vector<std::string> lines;
  for (const auto& [name, chart] : charts_) {
    lines.push_back(padded(name, columns, chart.all.right, chart.all.asked));
    for (const auto& [end, count] : chart.ends) {
      lines.push_back(padded("  " + end, columns, count.right, count.asked));
    }
  }
  return lines;
}

}  // namespace tavrel
