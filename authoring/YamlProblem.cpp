#include "authoring/YamlProblem.h"

#include <yaml-cpp/mark.h>

#include <algorithm>
#include <string_view>

#include "authoring/Cause.h"
#include "authoring/SyntaxCause.h"
#include "authoring/YamlTraps.h"

namespace tavrel::authoring {
namespace {

// A backslash in double quotes that begins nothing.
std::optional<Cause> causeInQuotes(const YAML::ParserException& problem, const SourceFile& file,
                                   std::size_t start) {
  const auto says = [&problem](std::string_view begin) {
    return std::string_view(problem.msg).substr(0, begin.size()) == begin;
  };
  const bool isNoCharacter = says("invalid unicode: ") || says("bad character found");
  if (!says("unknown escape character: ") && !isNoCharacter) return std::nullopt;
  const auto column = static_cast<std::size_t>(std::max(problem.mark.column, 0));
  const std::size_t at = file.bytes().rfind('\\', start + column);
  if (at == std::string_view::npos) return std::nullopt;
  if (isNoCharacter) {
    return Cause{Code::unknownEscape, at, "no character has the number behind this backslash",
                 "write the character itself; suits are !c !d !h !s"};
  }
  return Cause{Code::unknownEscape, at, "this backslash means nothing between double quotes",
               "take it away, or write two for one; suits are !c !d !h !s"};
}

std::optional<Cause> causeOf(const YAML::ParserException& problem, const SourceFile& file,
                             std::size_t line) {
  const std::size_t start = file.startOf(line);
  if (const auto alias = aliasIn(problem, file)) {
    return Cause{Code::mustBeQuoted, *alias, aliasText, quoteIt};
  }
  if (std::optional<Cause> cause = causeInQuotes(problem, file, start)) return cause;
  if (std::optional<Cause> cause = causeOfSyntaxError(file, line)) return cause;
  const std::optional<Trap> trap = trapIn(file.line(line));
  if (!trap) return std::nullopt;
  return Cause{trap->code, start + trap->offset, trap->text, trap->cure};
}

}  // namespace

std::optional<std::size_t> aliasIn(const YAML::ParserException& problem, const SourceFile& file) {
  const std::string_view begin = YAML::ErrorMsg::UNKNOWN_ANCHOR;
  if (std::string_view(problem.msg).substr(0, begin.size()) != begin) return std::nullopt;
  const auto line = static_cast<std::size_t>(std::max(problem.mark.line, 0)) + 1;
  if (line > file.lineCount()) return std::nullopt;
  const std::size_t offset =
      file.startOf(line) + static_cast<std::size_t>(std::max(problem.mark.column, 0));
  if (file.bytes().substr(offset, 1) != "*") return std::nullopt;
  return offset;
}

std::size_t reportSyntax(const YAML::ParserException& problem, const SourceFile& file,
                         Diagnostics& found) {
  const auto line =
      std::min(static_cast<std::size_t>(std::max(problem.mark.line, 0)) + 1, file.lineCount());
  const auto column = static_cast<std::size_t>(std::max(problem.mark.column, 0));
  const Cause cause = causeOf(problem, file, line)
                          .value_or(Cause{Code::syntax, file.startOf(line) + column,
                                          "from here on the file can't be read",
                                          "look at the indentation, the colons and the brackets "
                                          "here and on the line before"});
  const Place place = file.placeOf(cause.offset);
  found.forgetFromLine(place.line);
  found.add(cause.code, place, cause.text, cause.cure);
  return place.line;
}

}  // namespace tavrel::authoring
