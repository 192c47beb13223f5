#include "authoring/YamlTraps.h"

namespace tavrel::authoring {

const char* const quoteIt = "put the text in double quotes";

namespace {

constexpr std::size_t nowhere = std::string_view::npos;

bool isKeyCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_';
}

// Where the value of "key: value" begins; nowhere in a line of another form.
std::size_t valueIn(std::string_view line) {
  std::size_t at = line.find_first_not_of(' ');
  while (at != nowhere && line.substr(at, 2) == "- ") at = line.find_first_not_of(' ', at + 1);
  if (at == nowhere || !isKeyCharacter(line[at])) return nowhere;
  while (at < line.size() && isKeyCharacter(line[at])) ++at;
  if (line.substr(at, 2) != ": ") return nowhere;
  return line.find_first_not_of(' ', at + 1);
}

// What stands after the header of a block text, such as "|" or ">-".
bool isBlockHeader(std::string_view value) {
  const std::size_t end = value.find_first_not_of("|>+-123456789");
  return end == nowhere || value.substr(end, 2) == " #" ||
         value.find_first_not_of(' ', end) == nowhere;
}

std::optional<Trap> trapAtStart(std::string_view value, std::size_t offset) {
  const std::string first(1, value.front());
  switch (value.front()) {
    case '|':
    case '>':
      if (isBlockHeader(value)) return std::nullopt;
      return Trap{offset, "YAML takes a text that begins with " + first + " for a block"};
    case '!':
      return Trap{offset, "YAML takes a text that begins with ! for a tag, and drops it"};
    case '#':
      return Trap{offset, "YAML takes a text that begins with # for a comment, and drops it"};
    case '*':
    case '&':
    case '%':
    case '@':
    case '`':
      return Trap{offset, "YAML keeps " + first + " at the beginning of a text for itself"};
    default:
      return std::nullopt;
  }
}

std::optional<Trap> trapInQuoted(std::string_view value, std::size_t offset) {
  const std::size_t end = closingQuote(value, 0);
  if (end == nowhere) return std::nullopt;  // it may end on a later line
  const std::size_t next = value.find_first_not_of(' ', end + 1);
  if (next == nowhere || (value[next] == '#' && next > end + 1)) return std::nullopt;
  return Trap{offset + next, "a text in quotes ends where they close, and this one goes on"};
}

std::optional<Trap> trapWithin(std::string_view value, std::size_t offset) {
  const std::size_t colon = value.find(": ");
  if (colon != nowhere) {
    return Trap{offset + colon, "YAML takes a colon with a blank behind it for the end of a key"};
  }
  if (value.back() == ':') {
    return Trap{offset + value.size() - 1, "YAML takes a colon at the end for that of a key"};
  }
  return std::nullopt;
}

}  // namespace

std::optional<Trap> trapIn(std::string_view line) {
  const std::size_t offset = valueIn(line);
  if (offset == nowhere) return std::nullopt;
  const std::string_view value = line.substr(offset);
  if (value.front() == '"' || value.front() == '\'') return trapInQuoted(value, offset);
  if (value.front() == '{' || value.front() == '[') return std::nullopt;
  if (const std::optional<Trap> trap = trapAtStart(value, offset)) return trap;
  if (value.front() == '|' || value.front() == '>') return std::nullopt;
  return trapWithin(value, offset);
}

std::size_t commentBehind(std::string_view line, std::size_t offset) {
  const std::size_t found = line.find(" #", offset);
  return found == nowhere ? nowhere : found + 1;
}

std::size_t closingQuote(std::string_view bytes, std::size_t offset) {
  const char quote = bytes[offset];
  for (std::size_t at = offset + 1; at < bytes.size(); ++at) {
    if (quote == '"' && bytes[at] == '\\') {
      ++at;
    } else if (bytes[at] == quote) {
      if (quote == '"' || bytes.substr(at + 1, 1) != "'") return at;
      ++at;
    }
  }
  return nowhere;
}

}  // namespace tavrel::authoring
