#include "authoring/YamlTraps.h"

#include "authoring/SourceKeys.h"

namespace tavrel::authoring {

const char* const quoteIt = "put the text in double quotes";

namespace {

constexpr std::size_t nowhere = std::string_view::npos;

// "key: value" in a line.
struct Entry {
  std::string_view key;
  std::size_t value;  // where it begins; nowhere in a line of another form
};

Entry entryIn(std::string_view line) {
  std::size_t at = line.find_first_not_of(' ');
  while (at != nowhere && line.substr(at, 2) == "- ") at = line.find_first_not_of(' ', at + 1);
  if (at == nowhere || !isKeyCharacter(line[at])) return {{}, nowhere};
  const std::size_t start = at;
  while (at < line.size() && isKeyCharacter(line[at])) ++at;
  if (line.substr(at, 2) != ": ") return {{}, nowhere};
  return {line.substr(start, at - start), line.find_first_not_of(' ', at + 1)};
}

Trap keptForItself(std::string_view first, std::size_t offset, bool isCertain = true) {
  Trap trap{offset, "YAML keeps " + std::string(first) + " at the beginning of a text for itself"};
  trap.isCertain = isCertain;
  return trap;
}

Trap dropped(std::string_view first, const char* as, std::size_t offset) {
  Trap trap{offset, "YAML takes a text that begins with " + std::string(first) + " for " + as +
                        ", and drops it"};
  trap.isCertain = false;
  return trap;
}

// What stands after the header of a block text, such as "|" or ">-".
bool isBlockHeader(std::string_view value) {
  const std::size_t end = value.find_first_not_of("|>+-123456789");
  return end == nowhere || value.substr(end, 2) == " #" ||
         value.find_first_not_of(' ', end) == nowhere;
}

std::optional<Trap> trapAtStart(std::string_view value, std::size_t offset) {
  const std::string_view first = value.substr(0, 1);
  switch (value.front()) {
    case '|':
    case '>':
      if (isBlockHeader(value)) return std::nullopt;
      return Trap{offset,
                  "YAML takes a text that begins with " + std::string(first) + " for a block"};
    case '!':
      return dropped(first, "a tag", offset);
    case '#':
      return dropped(first, "a comment", offset);
    case '*':
    case '&':
      return keptForItself(first, offset, false);
    case '-':
    case '?':
      if (value.substr(1, 1) != " ") return std::nullopt;
      return keptForItself(first, offset);
    case '%':
    case '@':
    case '`':
      return keptForItself(first, offset);
    default:
      return std::nullopt;
  }
}

std::optional<Trap> trapInQuoted(std::string_view value, std::size_t offset) {
  const std::size_t end = closingQuote(value, 0);
  if (end == nowhere) return std::nullopt;  // it may end on a later line
  const std::size_t next = value.find_first_not_of(' ', end + 1);
  if (next == nowhere || (value[next] == '#' && next > end + 1)) return std::nullopt;
  return Trap{offset + next, "a text in quotes ends where they close, and this one goes on",
              "put the whole text in double quotes, and write \\\" for a quote within it"};
}

// "[13+] HCP?", which is no list.
std::optional<Trap> trapInBrackets(std::string_view value, std::size_t offset) {
  const std::size_t end = value.rfind(value.front() == '{' ? '}' : ']');
  if (end == nowhere) return std::nullopt;
  const std::size_t next = value.find_first_not_of(' ', end + 1);
  if (next == nowhere || value[next] == '#') return std::nullopt;
  return keptForItself(value.substr(0, 1), offset);
}

// A box on the line of the answer that leads to it.
Trap unbracedBox(char first, std::size_t offset) {
  Trap trap{offset, "a box on the line of its answer has to stand between braces",
            "write it as {text: \"…\", comment: \"…\"}"};
  if (first == '(') trap.text = "a box stands between braces, and not in parentheses";
  trap.code = Code::syntax;
  return trap;
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

bool isKeyCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_';
}

std::optional<Trap> trapIn(std::string_view line) {
  const auto [key, offset] = entryIn(line);
  if (offset == nowhere) return std::nullopt;
  const std::string_view value = line.substr(offset);
  if (value.front() == '"' || value.front() == '\'') return trapInQuoted(value, offset);
  if (value.front() == '{' || value.front() == '[') {
    return isTextKey(key) ? trapInBrackets(value, offset) : std::nullopt;
  }
  if (std::optional<Trap> trap = trapAtStart(value, offset)) return trap;
  if (value.front() == '|' || value.front() == '>') return std::nullopt;
  std::optional<Trap> trap = trapWithin(value, offset);
  if (trap && (key == "yes" || key == "no")) return unbracedBox(value.front(), offset);
  return trap;
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
