#include "authoring/SourceValues.h"

#include "authoring/InShort.h"
#include "authoring/Invisible.h"
#include "authoring/YamlTraps.h"
#include "authoring/YamlTypes.h"
#include "text/NearMiss.h"
#include "text/Utf8.h"

namespace tavrel::authoring {
namespace {

using Kind = YamlValue::Kind;
using Style = YamlValue::Style;

const char* nameOf(Kind kind) {
  switch (kind) {
    case Kind::map:
      return "a map";
    case Kind::list:
      return "a list";
    default:
      return "a text";
  }
}

// What a reader of YAML takes a plain word for, if it isn't a text.
const char* otherTypeOf(const YamlValue& value) {
  if (value.kind != Kind::text || value.style != Style::plain) return nullptr;
  if (booleanIn(value.text)) return "true or false";
  return isNumber(value.text) ? "a number" : nullptr;
}

}  // namespace

bool SourceValues::is(Kind kind, const YamlEntry& entry, const std::string& wanted,
                      const std::string& cure) {
  return is(kind, entry.key, entry.value, wanted, cure);
}

bool SourceValues::is(Kind kind, const std::string& name, const YamlValue& value,
                      const std::string& wanted, const std::string& cure) {
  if (value.kind == kind) return true;
  found_.add(Code::wrongType, value.place,
             inShort(name) + " is " + nameOf(value.kind) + ", and has to be " + wanted, cure);
  return false;
}

bool SourceValues::isText(const YamlEntry& entry, const std::string& wanted,
                          const std::string& cure) {
  return isText(entry.key, entry.value, wanted, cure);
}

bool SourceValues::isText(const std::string& name, const YamlValue& value,
                          const std::string& wanted, const std::string& cure) {
  if (!is(Kind::text, name, value, wanted, cure)) return false;
  const char* const type = otherTypeOf(value);
  if (type == nullptr) return true;
  found_.add(Code::wrongType, value.place,
             name + " is " + type + " to YAML, and has to be " + wanted, "put it in double quotes");
  return false;
}

bool SourceValues::isSafeText(const YamlEntry& entry, const std::string& wanted) {
  return isSafeText(entry.key, entry.value, wanted);
}

bool SourceValues::isSafeText(const std::string& name, const YamlValue& value,
                              const std::string& wanted) {
  if (!is(Kind::text, name, value, wanted, quoteIt)) return false;
  if (value.isInFlow && value.style != Style::doubleQuoted) {
    found_.add(Code::unquotedInBraces, value.place, wantsDoubleQuotes, quoteCureFor(value.text));
    return false;
  }
  return value.style == Style::plain ? isText(name, value, wanted, quoteIt) : hasNoControls(value);
}

// The reader of YAML makes bytes that are no UTF-8 of some escapes.
bool SourceValues::hasNoControls(const YamlValue& value) {
  const bool isUtf8 = firstThatIsNotUtf8(value.text) == std::string_view::npos;
  if (isUtf8 && !hasControl(value.text)) return true;
  found_.add(Code::controlCharacter, value.place,
             "an escape in this text stands for a character that no text may hold", "take it away");
  return false;
}

std::string SourceValues::sayUnknownKey(const YamlEntry& entry,
                                        const std::vector<std::string>& keys,
                                        const std::string& where) {
  const std::string near = nearest(withoutInvisible(entry.key), keys);
  if (saysInvisible(entry.key, entry.place)) return near;
  std::string cure = (near.empty() ? "it may have " : "did you mean " + near + "? It may have ");
  for (const std::string& each : keys) cure += (&each == &keys.front() ? "" : ", ") + each;
  if (isRemark(entry.key)) cure = "write # before a remark";
  if (entry.key == "id") cure = "its id is the word before its colon";
  if (entry.key == "auction" || entry.key == "hand") cure = "write it below applies:";
  found_.add(Code::unknownKey, entry.place, where + " has no " + inShort(entry.key), cure);
  return near;
}

bool SourceValues::saysInvisible(const std::string& word, Place place) {
  const auto invisible = firstInvisible(word);
  if (!invisible) return false;
  // The word may have begun on a line before, or an escape may stand for the character.
  const std::size_t begin = file_.offsetOf(place);
  const auto written = firstInvisible(file_.bytes().substr(begin, word.size() + 1));
  found_.add(Code::invisibleCharacter, written ? file_.placeOf(begin + written->offset) : place,
             std::string(invisible->name) + " stands here",
             "take it away, and write a blank if one is wanted");
  return true;
}

std::string SourceValues::nearest(const std::string& word, const std::vector<std::string>& names) {
  constexpr std::size_t longest = 40;
  if (word.size() > longest) return "";
  NearMiss miss(word);
  std::string best;
  for (const std::string& name : names) {
    if (comparisonsLeft_ == 0) break;
    --comparisonsLeft_;
    if (name.empty() || name.size() > longest) continue;
    if (miss.improvesWith(name)) best = name;
  }
  if (!best.empty()) return best;
  const auto longer = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
    return name.size() > 3 && word.compare(0, name.size(), name) == 0;
  });
  return longer == names.end() ? "" : *longer;
}

std::string withoutInvisible(std::string word) {
  while (const auto invisible = firstInvisible(word)) {
    std::size_t end = invisible->offset + 1;
    while (end < word.size() && isContinuation(word[end])) ++end;
    word.erase(invisible->offset, end - invisible->offset);
  }
  return word;
}

}  // namespace tavrel::authoring
