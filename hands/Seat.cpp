#include "hands/Seat.h"

#include <array>
#include <string>
#include <utility>

#include "text/NearMiss.h"

namespace tavrel::hands {
namespace {

constexpr std::array names = {"North", "East", "South", "West"};

constexpr std::array<std::pair<std::string_view, Vulnerability>, 13> vulnerabilities = {{
    {"none", {false, false}},
    {"love", {false, false}},
    {"-", {false, false}},
    {"o", {false, false}},
    {"0", {false, false}},
    {"ns", {true, false}},
    {"n", {true, false}},
    {"n-s", {true, false}},
    {"ew", {false, true}},
    {"e", {false, true}},
    {"both", {true, true}},
    {"all", {true, true}},
    {"b", {true, true}},
}};

}  // namespace

const char* nameOf(Seat seat) { return names[static_cast<std::size_t>(seat)]; }

std::optional<Seat> seatIn(std::string_view text) {
  const std::string word = lowerCase(text);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string name = lowerCase(names[i]);
    if (word == name || word == name.substr(0, 1)) return static_cast<Seat>(i);
  }
  return std::nullopt;
}

std::optional<Vulnerability> vulnerabilityIn(std::string_view text) {
  const std::string word = lowerCase(text);
  for (const auto& [name, vulnerability] : vulnerabilities) {
    if (word == name) return vulnerability;
  }
  return std::nullopt;
}

}  // namespace tavrel::hands
