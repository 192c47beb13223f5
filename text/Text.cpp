#include "text/Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <optional>

namespace tavrel {
namespace {

constexpr utf8proc_int32_t replacementCharacter = 0xFFFD;
constexpr utf8proc_int32_t emojiSelector = 0xFE0F;
constexpr int widestGlyph = 2;

struct Character {
  utf8proc_int32_t codepoint;  // U+FFFD for a byte that is not UTF-8
  std::string_view bytes;
};

// REQUIRES: text is not empty.
Character firstCharacter(std::string_view text) {
  utf8proc_int32_t codepoint = -1;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto length = static_cast<utf8proc_ssize_t>(std::min<std::size_t>(text.size(), 4));
  const utf8proc_ssize_t used = utf8proc_iterate(bytes, length, &codepoint);
  if (used < 1) return {replacementCharacter, text.substr(0, 1)};
  return {codepoint, text.substr(0, static_cast<std::size_t>(used))};
}

template <typename Visit>
void forEachCharacter(std::string_view text, Visit visit) {
  while (!text.empty()) {
    const Character character = firstCharacter(text);
    visit(character);
    text.remove_prefix(character.bytes.size());
  }
}

bool changesDirection(utf8proc_int32_t codepoint) {
  switch (utf8proc_get_property(codepoint)->bidi_class) {
    case UTF8PROC_BIDI_CLASS_LRE:
    case UTF8PROC_BIDI_CLASS_RLE:
    case UTF8PROC_BIDI_CLASS_LRO:
    case UTF8PROC_BIDI_CLASS_RLO:
    case UTF8PROC_BIDI_CLASS_PDF:
    case UTF8PROC_BIDI_CLASS_LRI:
    case UTF8PROC_BIDI_CLASS_RLI:
    case UTF8PROC_BIDI_CLASS_FSI:
    case UTF8PROC_BIDI_CLASS_PDI:
      return true;
    default:
      return false;
  }
}

bool isPrintable(utf8proc_int32_t codepoint) {
  const utf8proc_category_t category = utf8proc_category(codepoint);
  return category != UTF8PROC_CATEGORY_CC && category != UTF8PROC_CATEGORY_ZL &&
         category != UTF8PROC_CATEGORY_ZP && !changesDirection(codepoint);
}

bool isSuit(utf8proc_int32_t codepoint) {
  return codepoint == U'♣' || codepoint == U'♦' || codepoint == U'♥' || codepoint == U'♠';
}

void appendPrintable(std::string& out, std::string_view cluster) {
  const bool suit = isSuit(firstCharacter(cluster).codepoint);
  forEachCharacter(cluster, [&](const Character& character) {
    if (suit && character.codepoint == emojiSelector) return;
    const bool kept =
        character.codepoint != replacementCharacter && isPrintable(character.codepoint);
    out += kept ? character.bytes : std::string_view("\uFFFD");
  });
}

struct Substitute {
  char32_t character;
  std::string_view ascii;
};

constexpr std::array substitutes = {
    Substitute{U'♣', "C"},  Substitute{U'♦', "D"},      Substitute{U'♥', "H"},
    Substitute{U'♠', "S"},  Substitute{U'–', "-"},      Substitute{U'—', "-"},
    Substitute{U'‘', "'"},  Substitute{U'’', "'"},      Substitute{U'“', "\""},
    Substitute{U'”', "\""}, Substitute{U'…', "..."},    Substitute{U'×', "x"},
    Substitute{U'≥', ">="}, Substitute{U'≤', "<="},     Substitute{U'≠', "!="},
    Substitute{U'→', "->"}, Substitute{U'\u00A0', " "},
};

std::optional<std::string_view> substituteFor(utf8proc_int32_t codepoint) {
  const auto found =
      std::find_if(substitutes.begin(), substitutes.end(), [codepoint](const Substitute& entry) {
        return entry.character == static_cast<char32_t>(codepoint);
      });
  if (found == substitutes.end()) return std::nullopt;
  return found->ascii;
}

// The characters of a cluster, each decomposed canonically.
std::vector<utf8proc_int32_t> decomposed(std::string_view cluster) {
  std::vector<utf8proc_int32_t> all;
  forEachCharacter(cluster, [&](const Character& character) {
    std::array<utf8proc_int32_t, 8> parts{};
    int boundary = 0;
    const utf8proc_ssize_t count = utf8proc_decompose_char(
        character.codepoint, parts.data(), static_cast<utf8proc_ssize_t>(parts.size()),
        UTF8PROC_DECOMPOSE, &boundary);
    const auto used = std::clamp<utf8proc_ssize_t>(count, 0, parts.size());
    all.insert(all.end(), parts.begin(), std::next(parts.begin(), used));
  });
  return all;
}

bool isAsciiLetter(utf8proc_int32_t codepoint) {
  return (codepoint >= 'A' && codepoint <= 'Z') || (codepoint >= 'a' && codepoint <= 'z');
}

// The ASCII character that the cluster is when its accents are taken off; '?' when there is
// none. Only letters may lose marks: a crossed-out "=" is not an equals sign.
char withoutAccents(std::string_view cluster) {
  const std::vector<utf8proc_int32_t> parts = decomposed(cluster);
  const utf8proc_int32_t base = parts.empty() ? replacementCharacter : parts.front();
  if (base < ' ' || base > '~') return '?';
  const bool bare = parts.size() == 1;
  const bool accented =
      isAsciiLetter(base) &&
      std::all_of(std::next(parts.begin()), parts.end(), [](utf8proc_int32_t part) {
        return utf8proc_category(part) == UTF8PROC_CATEGORY_MN;
      });
  return bare || accented ? static_cast<char>(base) : '?';
}

void appendPlain(std::string& out, std::string_view cluster) {
  if (const auto ascii = substituteFor(firstCharacter(cluster).codepoint)) {
    out += *ascii;
  } else {
    out += withoutAccents(cluster);
  }
}

bool isBlank(const Glyph& glyph) { return glyph.bytes == " "; }

using GlyphIterator = std::vector<Glyph>::const_iterator;

// The end of the longest run of glyphs that fits, at least one glyph.
GlyphIterator endOfFitting(GlyphIterator begin, GlyphIterator end, int width) {
  GlyphIterator at = begin;
  for (int used = 0; at != end && used + at->width <= width; ++at) used += at->width;
  return at == begin && at != end ? std::next(at) : at;
}

// One past the last glyph before `end` that is (or isn't) a blank; `begin` if there is none.
GlyphIterator endOfLast(GlyphIterator begin, GlyphIterator end, bool blank) {
  return std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(begin),
                      [blank](const Glyph& glyph) { return isBlank(glyph) == blank; })
      .base();
}

// Where the line that starts at `begin` ends: with the last word that fits, or in the middle of
// a word that has the line to itself.
GlyphIterator endOfLine(GlyphIterator begin, GlyphIterator end, int width) {
  const GlyphIterator limit = endOfFitting(begin, end, width);
  if (limit == end) return end;
  const bool betweenWords = isBlank(*limit);
  const GlyphIterator blanks = betweenWords ? limit : endOfLast(begin, limit, true);
  const GlyphIterator words = endOfLast(begin, blanks, false);
  return words == begin && !betweenWords ? limit : words;
}

std::string joined(GlyphIterator begin, GlyphIterator end) {
  std::string text;
  for (; begin != end; ++begin) text += begin->bytes;
  return text;
}

// Calls `visit` with each of glyphs(text).
template <typename Visit>
void forEachGlyph(std::string_view text, const Visit& visit) {
  Glyph glyph{{}, 0};
  utf8proc_int32_t previous = 0;
  utf8proc_int32_t state = 0;
  std::size_t start = 0;
  forEachCharacter(text, [&](const Character& character) {
    const auto at = static_cast<std::size_t>(character.bytes.data() - text.data());
    if (!glyph.bytes.empty() &&
        utf8proc_grapheme_break_stateful(previous, character.codepoint, &state)) {
      visit(glyph);
      glyph.width = 0;
      start = at;
    }
    glyph.bytes = text.substr(start, at + character.bytes.size() - start);
    glyph.width = std::min(widestGlyph, glyph.width + utf8proc_charwidth(character.codepoint));
    previous = character.codepoint;
  });
  if (!glyph.bytes.empty()) visit(glyph);
}

void appendWrapped(std::vector<std::string>& out, const std::string& line, int width) {
  const std::vector<Glyph> all = glyphs(line);
  GlyphIterator begin = all.begin();
  do {
    const GlyphIterator end = endOfLine(begin, all.end(), width);
    out.push_back(joined(begin, end));
    begin = std::find_if_not(end, all.end(), isBlank);
  } while (begin != all.end());
}

}  // namespace

std::string printable(std::string_view text, Charset charset) {
  std::string out;
  out.reserve(text.size());
  forEachGlyph(text, [&](const Glyph& glyph) {
    if (charset == Charset::plain) {
      appendPlain(out, glyph.bytes);
    } else {
      appendPrintable(out, glyph.bytes);
    }
  });
  return out;
}

int displayWidth(std::string_view text) {
  int width = 0;
  forEachGlyph(text, [&width](const Glyph& glyph) { width += glyph.width; });
  return width;
}

std::vector<Glyph> glyphs(std::string_view text) {
  std::vector<Glyph> all;
  forEachGlyph(text, [&all](const Glyph& glyph) { all.push_back(glyph); });
  return all;
}

std::vector<std::string> wrapped(const std::vector<std::string>& lines, int width) {
  std::vector<std::string> out;
  for (const std::string& line : lines) appendWrapped(out, line, std::max(width, 1));
  return out;
}

std::vector<std::string> flowed(const std::vector<std::string>& lines, int width) {
  const auto fits = [width](const std::string& line) { return displayWidth(line) <= width; };
  if (std::all_of(lines.begin(), lines.end(), fits)) return lines;
  std::vector<std::string> paragraphs;
  for (const std::string& line : lines) {
    const bool joins =
        !paragraphs.empty() && !paragraphs.back().empty() && !line.empty() && line.front() != ' ';
    if (joins) {
      paragraphs.back() += ' ' + line;
    } else {
      paragraphs.push_back(line);
    }
  }
  return wrapped(paragraphs, width);
}

}  // namespace tavrel
