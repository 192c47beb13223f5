#include "authoring/Invisible.h"

#include <algorithm>
#include <array>

namespace tavrel::authoring {
namespace {

struct Named {
  std::string_view bytes;
  std::string_view name;
};

constexpr std::array invisible = {
    Named{"\u00A0", "a no-break space"},           Named{"\u00AD", "a soft hyphen"},
    Named{"\u2007", "a no-break space"},           Named{"\u200B", "a zero-width space"},
    Named{"\u200C", "a zero-width non-joiner"},    Named{"\u200D", "a zero-width joiner"},
    Named{"\u200E", "a mark of direction"},        Named{"\u200F", "a mark of direction"},
    Named{"\u202F", "a narrow no-break space"},    Named{"\u2060", "a word joiner"},
    Named{"\uFEFF", "a zero-width no-break space"}};

}  // namespace

std::optional<Invisible> firstInvisible(std::string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (static_cast<unsigned char>(text[at]) < 0x80) continue;
    const auto found = std::find_if(invisible.begin(), invisible.end(), [&](const Named& each) {
      return text.substr(at, each.bytes.size()) == each.bytes;
    });
    if (found != invisible.end()) return Invisible{at, found->name};
  }
  return std::nullopt;
}

std::size_t controlAt(std::string_view text) {
  if (text.empty()) return 0;
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < ' ' || first == 0x7F) return first == '\n' ? 0 : 1;
  if (first != 0xC2 || text.size() < 2) return 0;
  const auto second = static_cast<unsigned char>(text[1]);
  return second >= 0x80 && second < 0xA0 ? 2 : 0;
}

std::size_t byteOrderMarkAt(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  return text.substr(0, mark.size()) == mark ? mark.size() : 0;
}

bool hasControl(std::string_view text) {
  while (!text.empty() && controlAt(text) == 0 && byteOrderMarkAt(text) == 0) {
    text.remove_prefix(1);
  }
  return !text.empty();
}

}  // namespace tavrel::authoring
