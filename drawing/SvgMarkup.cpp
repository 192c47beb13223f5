#include "drawing/SvgMarkup.h"

#include <cstddef>

namespace tavrel::drawing {
namespace {

bool isPlainInLinks(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= '0' && byte <= '9') || std::string_view("-._~").find(byte) != std::string::npos;
}

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
    text.replace(at, from.size(), to);
  }
}

}  // namespace

std::string xmlText(std::string_view text) {
  std::string out(text);
  replaceAll(out, "\xEF\xBF\xBE", "\xEF\xBF\xBD");
  replaceAll(out, "\xEF\xBF\xBF", "\xEF\xBF\xBD");
  return out;
}

std::string linkTo(std::string_view fileName) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string out;
  for (const char byte : fileName) {
    if (isPlainInLinks(byte)) {
      out += byte;
      continue;
    }
    const auto value = static_cast<unsigned char>(byte);
    out += {'%', digits[value / 16U], digits[value % 16U]};
  }
  return out;
}

}  // namespace tavrel::drawing
