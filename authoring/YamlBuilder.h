// Builds values from the events of yaml-cpp.

#ifndef TAVREL_AUTHORING_YAMLBUILDER_H
#define TAVREL_AUTHORING_YAMLBUILDER_H

#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/mark.h>

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"
#include "authoring/Yaml.h"
#include "authoring/YamlTraps.h"

namespace tavrel::authoring {

/// Is thrown where going on makes no sense; its diagnostic is written.
struct Unreadable {};

/// What an author may not use is left out, with a diagnostic: a value that is dropped takes its key
/// with it.
class YamlBuilder : public YAML::EventHandler {
 public:
  /// The aliases, by their offsets, are those that yaml-cpp takes for texts. The arguments outlive
  /// this object.
  YamlBuilder(const SourceFile& file, const std::set<std::size_t>& aliases, Diagnostics& found)
      : file_(file), aliases_(aliases), found_(found) {}

  /// What was read; nothing if there was no value.
  std::optional<YamlValue> take() { return std::move(document_); }

  /// Takes back the diagnostics since the first bracket that is open: where reading breaks off
  /// between brackets, what was found there may be the reader's own making.
  void forgetOpenBrackets();

  /// Makes a document of what was read so far, without what is open between brackets.
  void breakOff();

  /// The same, without what stands on a line that can't be read, or behind it.
  void breakOff(std::size_t line);

  void OnDocumentStart(const YAML::Mark& mark) override;
  void OnDocumentEnd() override {}

  void OnNull(const YAML::Mark& mark, YAML::anchor_t anchor) override;
  void OnAlias(const YAML::Mark& mark, YAML::anchor_t) override;
  void OnScalar(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                const std::string& text) override;
  void OnSequenceStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                       YAML::EmitterStyle::value style) override;
  void OnSequenceEnd() override { end(); }
  void OnMapStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                  YAML::EmitterStyle::value style) override;
  void OnMapEnd() override { end(); }

 private:
  using Kind = YamlValue::Kind;
  using Style = YamlValue::Style;

  // A map or list that is being read.
  struct Open {
    YamlValue value;
    std::size_t foundBefore = 0;  // how many diagnostics there were when it began
    bool hasKey = false;
    bool isKeyDropped = false;
    bool isAstray = false;  // what comes now belongs elsewhere, and is left out
    std::unordered_set<std::string> keys;
    std::string key;
    Place keyPlace;
    Style keyStyle = Style::plain;
  };

  std::size_t offsetOf(const YAML::Mark& mark) const;
  Place placeOf(const YAML::Mark& mark) const { return file_.placeOf(offsetOf(mark)); }
  char byteAt(const YAML::Mark& mark) const;
  std::string wordAt(const YAML::Mark& mark) const;
  Style styleAt(const YAML::Mark& mark) const;

  // What an author may not use.
  void count(const YAML::Mark& mark);
  bool isPlainNode(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor);
  void reportAnchor(std::size_t offset);
  bool isAlias(const YAML::Mark& mark);
  void checkQuotes(const YAML::Mark& mark, const YamlValue& value);
  bool mayBeKey(const YamlValue& key);
  bool isReason() const;
  bool losesText(Place key, const YamlValue& text);

  // Why there is no value behind a key.
  void reportNull(const YAML::Mark& mark);
  void reportNoValue(Open& map);
  const std::optional<Trap>& trapOn(std::size_t line);
  void reportNoBlank(Open& map, std::size_t colon);
  static bool isRestOfText(const Open& map);
  void reportNoKey(Open& map);
  bool isIdAstray(const Open& map) const;
  void reportAstray(Open& map);

  void begin(Kind kind, const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
             YAML::EmitterStyle::value style);
  void end();
  void add(YamlValue value);
  void drop(const std::string& text = {});
  void beginEntry(YamlValue key);
  void endEntry(YamlValue value);

  const SourceFile& file_;
  const std::set<std::size_t>& aliases_;
  Diagnostics& found_;
  std::optional<YamlValue> document_;
  std::vector<Open> open_;
  std::size_t trapLine_ = 0;  // of which trap_ is that one
  std::optional<Trap> trap_;
  std::size_t values_ = 0;
  std::size_t documents_ = 0;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_YAMLBUILDER_H
