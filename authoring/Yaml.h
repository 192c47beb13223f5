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
  std::vector<std::string> dropped;  ///< keys of a map that are left out, or whose values are
  std::vector<std::string> doubled;  ///< keys of a map that stand there again; the first is kept
  bool isCutShort = false;           ///< more of a map or list was left out, and nobody knows what
  std::vector<YamlValue> items;      ///< of a list

  /// The entry of that key, nullptr for none.
  const YamlEntry* find(const std::string& key) const;

  /// Whether the author wrote that key. What is said of one that was left out is among the
  /// diagnostics, or is said of what stands before it.
  bool has(const std::string& key) const;
};

struct YamlEntry {
  std::string key;
  Place place;  ///< of the key
  YamlValue value;
};

/// Reads the one document of a file. Texts that are wrong are left out, with a diagnostic each.
/// An error of syntax ends the reading, and is the one diagnostic from its line on; what comes
/// back then is what stands before that line and is sure to be as it was meant. So it is with
/// the limits, a second document and a quote that is never closed. Nothing if there is no value at
/// all.
///
/// Limits: 2 MB, of which nothing is read if there is more; nesting of 20; 100,000 values.
std::optional<YamlValue> readYaml(const SourceFile& file, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_YAML_H
