#include "drawing/BoxTitle.h"

#include <cstdint>
#include <string_view>

#include "drawing/SvgBox.h"
#include "drawing/TextBox.h"

namespace tavrel::drawing {
namespace {

// "Pass" becomes "Pass.", and "12+?" stays. REQUIRES: the text isn't empty.
std::string asSentence(std::string text) {
  const bool isEnded = std::string_view(".?!").find(text.back()) != std::string::npos;
  return isEnded ? text : text + ".";
}

std::string spoken(const ScreenElement& box) {
  std::string text;
  for (const InkedText& line : textBoxOf(box, Charset::utf8).lines) {
    text += (text.empty() ? "" : " ") + plainText(line);
  }
  return text.empty() ? "(no text)" : text;
}

std::string exitTitle(const char* word, std::int64_t direction, const ScreenElement* to) {
  if (direction == XYDirectionNone) return "";
  return std::string(" ") + word + ": " + (to == nullptr ? "nothing." : asSentence(spoken(*to)));
}

}  // namespace

std::string titleOf(const ReadBox& read, bool isPlace) {
  const ScreenElement& box = *read.box;
  std::string title = asSentence(spoken(box));
  title += exitTitle("Yes", box.yesDirection(), read.yes);
  title += exitTitle("No", box.noDirection(), read.no);
  if (const auto name = box.nameOfNextFlowchart()) {
    title += " Leads into " + printable(*name, Charset::utf8) + ".";
  }
  if (box.isOnPath()) title += " On the path.";
  if (isPlace) title += " You are here.";
  return title;
}

}  // namespace tavrel::drawing
