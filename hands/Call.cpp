#include "hands/Call.h"

#include <array>
#include <utility>

#include "text/NearMiss.h"

namespace tavrel::hands {
namespace {

constexpr std::array<std::pair<std::string_view, Strain>, 14> strains = {{
    {"nt", Strain::notrump},
    {"n", Strain::notrump},
    {"c", Strain::clubs},
    {"d", Strain::diamonds},
    {"h", Strain::hearts},
    {"s", Strain::spades},
    {"♣", Strain::clubs},
    {"♦", Strain::diamonds},
    {"♥", Strain::hearts},
    {"♠", Strain::spades},
    {"♧", Strain::clubs},
    {"♢", Strain::diamonds},
    {"♡", Strain::hearts},
    {"♤", Strain::spades},
}};

constexpr std::array<std::pair<std::string_view, Call>, 10> otherCalls = {{
    {"p", Call::pass},
    {"pass", Call::pass},
    {"x", Call::doubled},
    {"d", Call::doubled},
    {"dbl", Call::doubled},
    {"double", Call::doubled},
    {"xx", Call::redoubled},
    {"r", Call::redoubled},
    {"rdbl", Call::redoubled},
    {"redouble", Call::redoubled},
}};

constexpr std::array letters = {"", "C", "D", "H", "S", "NT"};
constexpr std::array symbols = {"", "♣", "♦", "♥", "♠", "NT"};

// The opponents' calls stand in parentheses.
std::string_view withoutParentheses(std::string_view text) {
  const bool hasThem = text.size() > 2 && text.front() == '(' && text.back() == ')';
  return hasThem ? text.substr(1, text.size() - 2) : text;
}

std::optional<Call> bidIn(std::string_view text) {
  if (text.empty() || text[0] < '1' || text[0] > '7') return std::nullopt;
  for (const auto& [name, strain] : strains) {
    if (text.substr(1) == name) return bid(text[0] - '0', strain);
  }
  return std::nullopt;
}

template <typename Names>
std::string nameWith(const Names& names, const char* pass, Call call) {
  switch (call) {
    case Call::none:
      return "-";
    case Call::pass:
      return pass;
    case Call::doubled:
      return "X";
    case Call::redoubled:
      return "XX";
    default:
      return std::to_string(levelOf(call)) + names[static_cast<std::size_t>(strainOf(call))];
  }
}

}  // namespace

std::optional<Call> callIn(std::string_view text) {
  const std::string word = lowerCase(withoutParentheses(text));
  for (const auto& [name, call] : otherCalls) {
    if (word == name) return call;
  }
  return bidIn(word);
}

std::string nameOf(Call call) { return nameWith(letters, "P", call); }

std::string shown(Call call, Charset charset) {
  return nameWith(charset == Charset::utf8 ? symbols : letters, "Pass", call);
}

}  // namespace tavrel::hands
