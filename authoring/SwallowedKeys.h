// Keys that are indented like the text before them.

#ifndef TAVREL_AUTHORING_SWALLOWEDKEYS_H
#define TAVREL_AUTHORING_SWALLOWEDKEYS_H

#include <string>
#include <string_view>
#include <vector>

#include "authoring/SourceFile.h"
#include "authoring/Yaml.h"

namespace tavrel::authoring {

/// A key on a line of a text block, which may be meant for the map of the block. The views are of
/// the file.
struct SwallowedKey {
  std::string_view key;
  std::string_view value;  ///< what follows it on its line
  Place place;
  std::string block;  ///< the key of the block

  bool isBraced() const { return value.substr(0, 1) == "{"; }
};

/// Those of some keys that a map lacks and its text blocks have: the first of each in a block.
/// Cost: one pass over the blocks.
std::vector<SwallowedKey> swallowedKeys(const SourceFile& file, const YamlValue& map,
                                        const std::vector<std::string_view>& keys);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SWALLOWEDKEYS_H
