// What a source says about hands: when a chart applies, what answers a question, what an end
// calls and promises. Expressions and calls stay texts here; whoever knows bridge reads them.

#ifndef TAVREL_AUTHORING_HANDKEYS_H
#define TAVREL_AUTHORING_HANDKEYS_H

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/ChartSource.h"
#include "authoring/Diagnostic.h"
#include "authoring/SourceValues.h"
#include "authoring/Yaml.h"

namespace tavrel::authoring {

/// Reads the values of those keys, of a chart and of its boxes. What is wrong is left out, with a
/// diagnostic.
class HandKeys {
 public:
  /// The arguments outlive this object.
  HandKeys(SourceValues& values, Diagnostics& found) : values_(values), found_(found) {}

  void readApplies(const YamlEntry& entry, ChartSource& chart);

  void readWhen(const YamlEntry& entry, SourceBox& box);
  void readAsks(const YamlEntry& entry, SourceBox& box);
  void readCall(const YamlEntry& entry, SourceBox& box);
  void readShows(const YamlEntry& entry, SourceBox& box);
  void readForcing(const YamlEntry& entry, SourceBox& box);
  void readNext(const YamlEntry& entry, SourceBox& box);
  void readNever(const YamlEntry& entry, SourceBox& box);

  /// Says which keys of a box don't go together. `isMissing` tells of a key whether its author has
  /// left it out, and not only slipped in writing it.
  void checkTogether(const YamlValue& box, const std::function<bool(const char* key)>& isMissing);

 private:
  std::optional<SourceExpression> expressionIn(const YamlEntry& entry);
  std::optional<SourceExpression> callIn(const YamlEntry& entry);
  std::optional<SourceExpression> reasonIn(const YamlEntry& entry);
  void readAuctions(const YamlEntry& entry, ChartSource& chart);
  void addAuction(const YamlValue& value, ChartSource& chart);
  void readCalls(const YamlValue& list, SourceBox& box);
  void addCall(const YamlValue& map, bool isLast, SourceBox& box);
  void readKey(const YamlEntry& entry, SourceCall& call);
  bool isFilled(const YamlEntry& entry);
  bool isFilled(const YamlEntry& entry, const char* wanted, const char* cure);
  void sayNotOneOf(const YamlEntry& entry, const std::vector<std::string>& words,
                   const std::string& cure);
  void checkNever(const YamlEntry& never, const std::function<bool(const char* key)>& isMissing);

  SourceValues& values_;
  Diagnostics& found_;
};

/// Whether a line of a text that has the form "key: value", with one of these keys, is more likely
/// to be meant as one than to be a part of the text.
bool isMeantAsHandKey(std::string_view key, std::string_view value);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_HANDKEYS_H
