#include "authoring/YamlTraps.h"

#include "authoring/SourceKeys.h"

namespace tavrel::authoring {

const char* const quoteIt = "put the text in double quotes";
const char* const wantsDoubleQuotes = "between braces a text has to stand in double quotes";
const char* const goesOnBehind = "a text in quotes ends where they close, and this one goes on";
const char* const quoteAll =
    "put the whole text in double quotes, and write \\\" for a quote within it";

namespace {

constexpr std::size_t nowhere = std::string_view::npos;

// "key: value" in a line.
struct Entry {
  std::string_view key;
  std::size_t value;  // where it begins; nowhere in a line of another form
};

// Where the key that begins at an offset ends, with or without quotes.
std::size_t endOfKey(std::string_view line, std::size_t at) {
  if (line[at] == '"' || line[at] == '\'') {
    const std::size_t closing = closingQuote(line, at);
    return closing == nowhere ? nowhere : closing + 1;
  }
  while (at < line.size() && isKeyCharacter(line[at])) ++at;
  return at;
}

Entry entryIn(std::string_view line) {
  std::size_t at = line.find_first_not_of(' ');
  while (at != nowhere && line.substr(at, 2) == "- ") at = line.find_first_not_of(' ', at + 1);
  if (at == nowhere) return {{}, nowhere};
  const std::size_t end = endOfKey(line, at);
  if (end == nowhere || end == at) return {{}, nowhere};
  const std::size_t colon = line.find_first_not_of(' ', end);
  if (colon == nowhere || line.substr(colon, 2) != ": ") return {{}, nowhere};
  std::string_view key = line.substr(at, end - at);
  if (!isKeyCharacter(key[0])) key = key.substr(1, key.size() - 2);
  return {key, line.find_first_not_of(' ', colon + 1)};
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

// "|" or ">-", and nothing behind it but a remark.
bool isBlockHeader(std::string_view value) {
  const std::size_t end = value.find_first_of("+-", 1) == 1 ? 2 : 1;
  const std::size_t next = value.find_first_not_of(' ', end);
  return next == nowhere || (value[next] == '#' && next > end);
}

// "| A good suit" is most likely meant as a block, and ">12" as a text.
Trap takenForABlock(std::string_view value, std::size_t offset) {
  Trap trap{offset,
            "YAML takes a text that begins with " + std::string(1, value[0]) + " for a block"};
  if (value.substr(1, 1) == " ") trap.cure = "begin the text on the next line";
  return trap;
}

std::optional<Trap> trapAtStart(std::string_view value, std::size_t offset) {
  const std::string_view first = value.substr(0, 1);
  switch (value.front()) {
    case '|':
    case '>':
      if (isBlockHeader(value)) return std::nullopt;
      return takenForABlock(value, offset);
    case '!':
      return dropped(first, "a tag", offset);
    case '#':
      return dropped(first, "a comment", offset);
    case '*':
    case '&':
      return keptForItself(first, offset, false);
    case '-':
    case '?':
      if (value.size() > 1 && value[1] != ' ') return std::nullopt;
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
  return Trap{offset + next, goesOnBehind, quoteAll};
}

// Behind the bracket that closes the first, nowhere if none does.
std::size_t endOfBrackets(std::string_view value) {
  std::size_t depth = 0;
  for (std::size_t at = 0; at < value.size(); ++at) {
    if (value[at] == '[' || value[at] == '{') ++depth;
    if ((value[at] == ']' || value[at] == '}') && --depth == 0) return at + 1;
  }
  return nowhere;
}

// "[13+] HCP?", which is no list.
std::optional<Trap> trapInBrackets(std::string_view value, std::size_t offset) {
  const std::size_t end = endOfBrackets(value);
  if (end == nowhere) return std::nullopt;
  const std::size_t next = value.find_first_not_of(' ', end);
  if (next == nowhere || value[next] == '#') return std::nullopt;
  return keptForItself(value.substr(0, 1), offset);
}

bool isAnswer(std::string_view key) { return key == "yes" || key == "no"; }

// Whether a value is meant for a box, going by its key and what stands before its colon.
bool isUnbracedBox(std::string_view key, std::string_view word) {
  if (isAnswer(key)) return true;
  return !isBoxKey(key) && !isChartKey(key) && isBoxKey(word);
}

// A box on the line of its id, or of the answer that leads to it.
Trap unbracedBox(std::string_view key, char first, std::size_t offset) {
  Trap trap{offset,
            std::string("a box on the line of its ") + (isBoxKey(key) ? "answer" : "id") +
                " has to stand between braces",
            "write it as {text: \"…\", comment: \"…\"}"};
  if (first == '(') trap.text = "a box stands between braces, and not in parentheses";
  trap.code = Code::syntax;
  return trap;
}

// "never: no: because".
Trap unbracedGroup(std::string_view key, std::size_t offset) {
  Trap trap{offset, "what " + std::string(key) + " says by keys stands between braces, or below it",
            std::string("write it as ") + (key == "call"      ? "[{when: \"…\", call: 2H}]"
                                           : key == "applies" ? "{auction: \"…\"}"
                                                              : "{no: \"…\"}")};
  trap.code = Code::syntax;
  return trap;
}

// The key before the first colon of a value, if it isn't the first word there.
std::string_view laterKey(std::string_view value) {
  const std::size_t colon = value.find(": ");
  const std::size_t blank = value.substr(0, colon).rfind(' ');
  return blank == nowhere ? std::string_view() : value.substr(blank + 1, colon - blank - 1);
}

// "yes: strength no: pass".
Trap twoOnALine(std::string_view line, std::string_view later) {
  const auto offset = static_cast<std::size_t>(later.data() - line.data());
  const std::string key(later);
  Trap trap{offset, key + " stands behind another answer",
            "write " + key + ": on a line of its own"};
  trap.code = Code::syntax;
  return trap;
}

Trap colonAt(std::size_t offset, const char* text) {
  Trap trap{offset, text};
  trap.isColon = true;
  return trap;
}

std::optional<Trap> trapWithin(std::string_view value, std::size_t offset) {
  const std::size_t colon = value.find(": ");
  if (colon != nowhere) {
    return colonAt(offset + colon,
                   "YAML takes a colon with a blank behind it for the end of a key");
  }
  if (value.back() != ':') return std::nullopt;
  return colonAt(offset + value.size() - 1, "YAML takes a colon at the end for that of a key");
}

}  // namespace

bool isKeyCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_';
}

std::optional<Trap> trapIn(std::string_view line) {
  const auto [key, offset] = entryIn(line);
  if (offset == nowhere) return std::nullopt;
  std::optional<Trap> trap = trapInValue(line, offset, key);
  if (!trap || !trap->isColon) return trap;
  const std::string_view later = isAnswer(key) ? laterKey(line.substr(offset)) : "";
  if (isAnswer(later)) return twoOnALine(line, later);
  if (isGroupKey(key)) return unbracedGroup(key, offset);
  const std::string_view word = line.substr(offset, trap->offset - offset);
  return isUnbracedBox(key, word) ? unbracedBox(key, line[offset], offset) : trap;
}

std::optional<Trap> trapInValue(std::string_view line, std::size_t offset, std::string_view key) {
  const std::string_view value = line.substr(offset);
  if (value.front() == '"' || value.front() == '\'') return trapInQuoted(value, offset);
  if (value.front() == '{' || value.front() == '[') {
    return isTextKey(key) ? trapInBrackets(value, offset) : std::nullopt;
  }
  if (std::optional<Trap> trap = trapAtStart(value, offset)) return trap;
  if (value.front() == '|' || value.front() == '>') return std::nullopt;
  return trapWithin(value, offset);
}

std::string quoteCureFor(std::string_view text) {
  for (const std::string_view sign : {"“", "”", "„", "«", "»", "‘", "’", "‚"}) {
    if (text.substr(0, sign.size()) == sign) {
      return "write \" before it and behind it: " + std::string(sign) + " is another sign";
    }
  }
  return quoteIt;
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
