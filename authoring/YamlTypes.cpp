#include "authoring/YamlTypes.h"

#include <charconv>
#include <cmath>
#include <cstddef>

namespace tavrel::authoring {
namespace {

constexpr std::string_view digits = "0123456789";

// Takes characters of a set from the beginning of a text, and says how many.
std::size_t take(std::string_view& text, std::string_view set) {
  const std::size_t end = text.find_first_not_of(set);
  const std::size_t count = end == std::string_view::npos ? text.size() : end;
  text.remove_prefix(count);
  return count;
}

std::string_view withoutSign(std::string_view text) {
  const bool hasSign = !text.empty() && (text[0] == '+' || text[0] == '-');
  return hasSign ? text.substr(1) : text;
}

// Digits with a base before them, which have no sign.
bool isInBase(std::string_view text) {
  const std::string_view base = text.substr(0, 2);
  if (text.size() < 3 || (base != "0x" && base != "0o")) return false;
  text.remove_prefix(2);
  take(text, base == "0x" ? "0123456789abcdefABCDEF" : "01234567");
  return text.empty();
}

bool isDecimal(std::string_view text) {
  text = withoutSign(text);
  std::size_t count = take(text, digits);
  if (text.substr(0, 1) == ".") {
    text.remove_prefix(1);
    count += take(text, digits);
  }
  if (count == 0) return false;
  if (text.empty()) return true;
  if (text[0] != 'e' && text[0] != 'E') return false;
  text = withoutSign(text.substr(1));
  return take(text, digits) > 0 && text.empty();
}

bool isInfiniteOrNone(std::string_view text) {
  if (text == ".nan" || text == ".NaN" || text == ".NAN") return true;
  text = withoutSign(text);
  return text == ".inf" || text == ".Inf" || text == ".INF";
}

}  // namespace

std::optional<bool> booleanIn(std::string_view plain) {
  if (plain == "true" || plain == "True" || plain == "TRUE") return true;
  if (plain == "false" || plain == "False" || plain == "FALSE") return false;
  return std::nullopt;
}

bool isNumber(std::string_view plain) {
  return isInBase(plain) || isDecimal(plain) || isInfiniteOrNone(plain);
}

std::optional<int> wholeNumberIn(std::string_view plain) {
  constexpr int most = 1'000'000;
  if (isInBase(plain)) {
    int number = 0;
    const char* const begin = plain.data() + 2;
    const char* const end = plain.data() + plain.size();
    const auto read = std::from_chars(begin, end, number, plain[1] == 'x' ? 16 : 8);
    if (read.ec != std::errc() || number > most) return std::nullopt;
    return number;
  }
  if (!isDecimal(plain)) return std::nullopt;
  if (plain[0] == '+') plain.remove_prefix(1);  // which from_chars doesn't know
  double number = 0;
  const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), number);
  const bool isWhole = read.ec == std::errc() && std::floor(number) == number;
  if (!isWhole || std::fabs(number) > most) return std::nullopt;
  return static_cast<int>(number);
}

}  // namespace tavrel::authoring
