// The values of a source's keys: what may stand behind a key, and what is said of all else.

#ifndef TAVREL_AUTHORING_SOURCEVALUES_H
#define TAVREL_AUTHORING_SOURCEVALUES_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"
#include "authoring/Yaml.h"

namespace tavrel::authoring {

/// Looks at values, and adds a diagnostic for each that isn't what it has to be. In its functions
/// `wanted` is what that is, "the id of a box", and `cure` what to do about another.
class SourceValues {
 public:
  /// The arguments outlive this object.
  SourceValues(const SourceFile& file, Diagnostics& found) : file_(file), found_(found) {}

  bool is(YamlValue::Kind kind, const YamlEntry& entry, const std::string& wanted,
          const std::string& cure);

  /// The same for a value without a key of its own, by what messages call it.
  bool is(YamlValue::Kind kind, const std::string& name, const YamlValue& value,
          const std::string& wanted, const std::string& cure);

  /// Whether it is a text to every reader of YAML, such as those that editors have.
  bool isText(const YamlEntry& entry, const std::string& wanted, const std::string& cure);

  /// Whether it is a text that YAML reads as its author wrote it, which between braces has double
  /// quotes.
  bool isSafeText(const YamlEntry& entry, const std::string& wanted = "a text");
  bool isSafeText(const std::string& name, const YamlValue& value,
                  const std::string& wanted = "a text");

  /// Whether no escape in a text stands for a character that no text may hold.
  bool hasNoControls(const YamlValue& value);

  /// Says that `where`, "a box", has no such key. Returns the one that it is likely to be.
  std::string sayUnknownKey(const YamlEntry& entry, const std::vector<std::string>& keys,
                            const std::string& where);

  /// Says that something in a word can't be seen.
  bool saysInvisible(const std::string& word, Place place);

  /// The name that is nearest to a word, or of which the word is a longer form; empty for none.
  /// So many names are looked at in all that it can't take long.
  std::string nearest(const std::string& word, const std::vector<std::string>& names);

  /// How many more names nearest() looks at.
  std::size_t comparisonsLeft() const { return comparisonsLeft_; }

 private:
  bool isText(const std::string& name, const YamlValue& value, const std::string& wanted,
              const std::string& cure);

  const SourceFile& file_;
  Diagnostics& found_;
  std::size_t comparisonsLeft_ = 200'000;  // of words with names, which would be a square of both
};

/// A word without the characters in it that can't be seen.
std::string withoutInvisible(std::string word);

/// Whether a key is the beginning of a remark, as other languages have it.
inline bool isRemark(std::string_view key) { return key.substr(0, 2) == "//"; }

/// Gives each entry of a map to `read(key, entry)`, with its key in a table of keys that have a
/// `name`; and one that isn't in the table to `unknown(entry, names)`, which returns the key that
/// it is likely to be. Returns these. One table says which keys there are and reads them, so that
/// messages can't name others.
template <typename Keys, typename Read, typename Unknown>
std::vector<std::string> readEntries(const YamlValue& map, const Keys& keys, const Read& read,
                                     const Unknown& unknown) {
  std::vector<std::string> meant;
  for (const YamlEntry& entry : map.entries) {
    const auto key = std::find_if(keys.begin(), keys.end(),
                                  [&](const auto& each) { return entry.key == each.name; });
    if (key != keys.end()) {
      read(*key, entry);
      continue;
    }
    std::vector<std::string> names;
    for (const auto& each : keys) names.emplace_back(each.name);
    meant.push_back(unknown(entry, names));
  }
  return meant;
}

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SOURCEVALUES_H
