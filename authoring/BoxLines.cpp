#include "authoring/BoxLines.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "text/Text.h"

namespace tavrel::authoring {
namespace {

constexpr int widestParagraph = 72;

struct Word {
  std::string_view text;
  int width;
};

std::vector<Word> wordsOf(std::string_view text) {
  std::vector<Word> words;
  for (std::size_t at = text.find_first_not_of(' '); at != std::string_view::npos;) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    words.push_back({text.substr(at, end - at), displayWidth(text.substr(at, end - at))});
    at = text.find_first_not_of(' ', end);
  }
  return words;
}

// Each line as full as the width allows.
std::vector<std::string> filled(const std::vector<Word>& words, int width) {
  std::vector<std::string> lines;
  int used = 0;
  for (const Word& word : words) {
    if (lines.empty() || used + 1 + word.width > width) {
      lines.emplace_back(word.text);
      used = word.width;
    } else {
      lines.back().append(" ").append(word.text);
      used += 1 + word.width;
    }
  }
  return lines;
}

const char* suitOf(char letter) {
  switch (letter) {
    case 'c':
      return "♣";
    case 'd':
      return "♦";
    case 'h':
      return "♥";
    case 's':
      return "♠";
    default:
      return nullptr;
  }
}

bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace

std::string withSuits(std::string_view text) {
  std::string out;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char* const suit =
        text[at] == '!' && at + 1 < text.size() ? suitOf(text[at + 1]) : nullptr;
    const bool goesOn = at + 2 < text.size() && isWordCharacter(text[at + 2]);
    if (suit != nullptr && !goesOn) {
      out += suit;
      ++at;
    } else {
      out += text[at];
    }
  }
  return out;
}

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    const std::size_t last = line.find_last_not_of(' ');
    lines.emplace_back(line.substr(0, last == std::string_view::npos ? 0 : last + 1));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

std::vector<std::string> boxLines(std::string_view text, int width) {
  std::vector<std::string> lines = linesOf(text);
  if (lines.size() != 1) return lines;
  const std::vector<Word> words = wordsOf(lines.front());
  std::vector<std::string> best = filled(words, width);
  for (int narrower = width - 1; narrower > 0; --narrower) {
    std::vector<std::string> next = filled(words, narrower);
    if (next.size() > best.size()) break;
    best = std::move(next);
  }
  return best;
}

std::vector<std::string> paragraphLines(std::string_view text) {
  std::vector<std::string> out;
  std::string paragraph;
  const auto finish = [&] {
    for (std::string& line : filled(wordsOf(paragraph), widestParagraph)) {
      out.push_back(std::move(line));
    }
    paragraph.clear();
  };
  for (const std::string& line : linesOf(text)) {
    if (line.empty()) {
      finish();
      if (!out.empty()) out.emplace_back();
    } else {
      paragraph += line + ' ';
    }
  }
  finish();
  return out;
}

}  // namespace tavrel::authoring
