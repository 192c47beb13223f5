#include "drawing/Theme.h"

namespace tavrel::drawing {
namespace {

constexpr Colours light = {"#ffffff", "#f6f7f9", "#fff1bf", "#16181d", "#4a5160",
                           "#5c6474", "#3c4350", "#0b4fb3", "#0b57d0", "#0a6b35",
                           "#a84600", "#c0102a", "#1f3fae"};
constexpr Colours dark = {"#14161a", "#1f232b", "#4a3f12", "#eceef2", "#98a1b0",
                          "#9aa4b2", "#c3cad5", "#8fc1ff", "#6cb2ff", "#6ddb98",
                          "#ffb56b", "#ff9aa2", "#a9c1ff"};
constexpr Colours print = {"#ffffff", "#ffffff", "#ffffff", "#000000", "#000000",
                           "#000000", "#000000", "#000000", "#000000", "#000000",
                           "#000000", "#000000", "#000000"};

// As light, but for clubs, diamonds and spades.
constexpr Colours twoColour = {"#ffffff", "#f6f7f9", "#fff1bf", "#16181d", "#4a5160",
                               "#5c6474", "#3c4350", "#0b4fb3", "#0b57d0", "#16181d",
                               "#c0102a", "#c0102a", "#16181d"};

}  // namespace

const Colours& coloursOf(Theme theme) {
  switch (theme) {
    case Theme::dark:
      return dark;
    case Theme::print:
      return print;
    case Theme::twoColour:
      return twoColour;
    default:
      return light;
  }
}

std::string_view colourOf(Ink ink, const Colours& colours) {
  switch (ink) {
    case Ink::clubs:
      return colours.clubs;
    case Ink::diamonds:
      return colours.diamonds;
    case Ink::hearts:
      return colours.hearts;
    case Ink::spades:
      return colours.spades;
    case Ink::frame:
      return colours.frame;
    case Ink::line:
      return colours.line;
    case Ink::label:
      return colours.label;
    case Ink::link:
      return colours.link;
    default:
      return colours.text;
  }
}

}  // namespace tavrel::drawing
