#include "authoring/Yaml.h"

#include <yaml-cpp/exceptions.h>
#include <yaml-cpp/parser.h>

#include <algorithm>
#include <functional>
#include <set>
#include <sstream>

#include "authoring/Directives.h"
#include "authoring/SourceScreening.h"
#include "authoring/YamlBuilder.h"
#include "authoring/YamlProblem.h"

namespace tavrel::authoring {
namespace {

// The bytes that yaml-cpp may be given again because of aliases. Files that people write are read
// as often as it takes; those of megabytes a few times.
constexpr std::size_t mostRead = 8'000'000;

void parse(const std::string& bytes, YamlBuilder& builder) {
  std::istringstream stream(bytes);
  YAML::Parser parser(stream);
  while (parser.HandleNextDocument(builder)) {
  }
}

// Lines that tell readers of YAML how to read are said to be wrong, and read as remarks.
void screenDirectives(const SourceFile& file, std::string& bytes, Diagnostics& found) {
  for (const std::size_t offset : directivesIn(file)) {
    bytes[offset] = '#';
    found.add(Code::directive, file.placeOf(offset),
              "a line that begins with % tells readers of YAML how to read", "take the line away");
  }
}

// An alias that ends the reading is given to yaml-cpp once more, as a word.
std::optional<YamlValue> readScreened(const Screened& screened, Diagnostics& found) {
  const SourceFile& text = screened.text();
  std::string bytes(text.bytes());
  screenDirectives(text, bytes, found);
  const Diagnostics foundBefore = found;
  std::set<std::size_t> aliases;
  while (true) {
    YamlBuilder builder(text, aliases, found);
    try {
      parse(bytes, builder);
    } catch (const YAML::ParserException& problem) {
      const std::optional<std::size_t> alias = aliasIn(problem, text);
      if (alias && (aliases.size() + 2) * bytes.size() <= mostRead) {
        bytes[*alias] = '_';
        aliases.insert(*alias);
        found = foundBefore;
        continue;
      }
      builder.forgetOpenBrackets();
      const std::size_t line = reportSyntax(problem, text, found);
      found.forgetFromLine(screened.doubtfulLine());
      builder.breakOff(std::min(line, screened.doubtfulLine()));
    } catch (const Unreadable&) {
      builder.breakOff();
    }
    return builder.take();
  }
}

void movePlaces(YamlValue& value, const std::function<Place(Place place)>& placeOf) {
  value.place = placeOf(value.place);
  for (YamlValue& item : value.items) movePlaces(item, placeOf);
  for (YamlEntry& entry : value.entries) {
    entry.place = placeOf(entry.place);
    movePlaces(entry.value, placeOf);
  }
}

}  // namespace

const YamlEntry* YamlValue::find(const std::string& key) const {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&key](const YamlEntry& entry) { return entry.key == key; });
  return found == entries.end() ? nullptr : &*found;
}

bool YamlValue::has(const std::string& key) const {
  return find(key) != nullptr || std::find(dropped.begin(), dropped.end(), key) != dropped.end();
}

std::optional<YamlValue> readYaml(const SourceFile& file, Diagnostics& found) {
  const std::optional<Screened> screened = screen(file, found);
  if (!screened) return std::nullopt;
  const auto placeOf = [&](Place place) { return screened->placeIn(file, place); };
  Diagnostics read;
  std::optional<YamlValue> value = readScreened(*screened, read);
  found.append(read, placeOf);
  if (value) movePlaces(*value, placeOf);
  return value;
}

}  // namespace tavrel::authoring
