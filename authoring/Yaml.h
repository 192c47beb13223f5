// YAML as sources use it: maps of plain and quoted texts, read with all that could surprise
// an author refused.

#ifndef TAVREL_AUTHORING_YAML_H
#define TAVREL_AUTHORING_YAML_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

struct YamlEntry;

/// A value: a text, a map or a list.
struct YamlValue {
  enum class Kind : std::uint8_t { text, map, list };
  enum class Style : std::uint8_t { plain, singleQuoted, doubleQuoted, block };

  Kind kind = Kind::text;
  Place place;
  bool isInFlow = false;       ///< between braces or brackets
  Style style = Style::plain;  ///< of a text
  std::string text;
  std::vector<YamlEntry> entries;    ///< of a map, each key once, in the author's order
  std::vector<std::string> dropped;  ///< keys of a map whose values are wrong and left out
  bool isCutShort = false;           ///< more of a map was left out than the dropped keys
  std::vector<YamlValue> items;      ///< of a list

  /// The entry of that key, nullptr for none.
  const YamlEntry* find(const std::string& key) const;

  /// Whether the author wrote that key, with a value that can be read or not.
  bool has(const std::string& key) const;
};

struct YamlEntry {
  std::string key;
  Place place;  ///< of the key
  YamlValue value;
};

/// Reads the one document of a file. Entries that are wrong are left out, with a diagnostic
/// each; an error of syntax ends the reading, and is the one diagnostic from its line on.
/// Nothing if there is no value at all.
///
/// Limits: 2 MB, nesting of 20, 100,000 values; more is a diagnostic, and nothing is read.
std::optional<YamlValue> readYaml(const SourceFile& file, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_YAML_H
