#include "authoring/SwallowedKeys.h"

#include <algorithm>
#include <cstddef>

#include "authoring/BraceScan.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t nowhere = std::string_view::npos;

// Up to the line that is indented no deeper than the key of the block. Few lines begin like a key:
// whether the map has it is asked last.
void addSwallowed(const SourceFile& file, const YamlValue& map, const YamlEntry& block,
                  std::vector<std::string_view> keys, std::vector<SwallowedKey>& all) {
  for (std::size_t number = block.value.place.line + 1; number <= file.lineCount(); ++number) {
    const std::string_view line = file.line(number);
    const std::size_t indent = line.find_first_not_of(' ');
    if (indent == nowhere) continue;
    if (indent < block.place.column) return;
    const std::string_view key = keyAt(line, indent);
    const auto wanted = std::find(keys.begin(), keys.end(), key);
    if (wanted == keys.end() || map.has(std::string(key))) continue;
    keys.erase(wanted);
    const std::size_t value = line.find_first_not_of(' ', indent + key.size() + 1);
    all.push_back({key,
                   value == nowhere ? std::string_view() : line.substr(value),
                   {number, indent + 1},
                   block.key});
  }
}

}  // namespace

std::vector<SwallowedKey> swallowedKeys(const SourceFile& file, const YamlValue& map,
                                        const std::vector<std::string_view>& keys) {
  std::vector<SwallowedKey> all;
  for (const YamlEntry& entry : map.entries) {
    const bool isBlock =
        entry.value.kind == YamlValue::Kind::text && entry.value.style == YamlValue::Style::block;
    if (isBlock) addSwallowed(file, map, entry, keys, all);
  }
  return all;
}

}  // namespace tavrel::authoring
