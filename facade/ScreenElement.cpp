#include "facade/Tavrel.h"

#include <utility>

#include "engine/CTavrel.h"
#include "facade/Utf8.h"

using namespace tavrel::facade;

namespace {

// A direction code has no sign: a stored -1 becomes 4294967295.
std::uint32_t unsignedCode(std::int32_t direction) noexcept {
  return static_cast<std::uint32_t>(direction);
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (&line != &lines.front()) text += ' ';
    text += line;
  }
  return text;
}

}  // namespace

ScreenElement::ScreenElement(sScreenElement&& record) noexcept
    : x_(record.m_x),
      y_(record.m_y),
      xOffset_(record.m_xOffset),
      yOffset_(record.m_yOffset),
      yesDirection_(unsignedCode(record.m_yesDir)),
      noDirection_(unsignedCode(record.m_noDir)),
      intoDirection_(unsignedCode(record.m_directionInto)),
      outOfDirection_(unsignedCode(record.m_directionOutOf)),
      isOnPath_(record.m_isOnPath),
      isNode_(record.m_isNode),
      nextFlowchartName_(endedAtNul(std::move(record.m_newFlowchartName))),
      boxText_(endedAtNul(std::move(record.m_boxText))),
      commentaryText_(endedAtNul(std::move(record.m_commentText))) {}

std::int64_t ScreenElement::x() const noexcept { return x_; }
std::int64_t ScreenElement::y() const noexcept { return y_; }
std::int64_t ScreenElement::xOffset() const noexcept { return xOffset_; }
std::int64_t ScreenElement::yOffset() const noexcept { return yOffset_; }
bool ScreenElement::isOnPath() const noexcept { return isOnPath_; }
bool ScreenElement::isNode() const noexcept { return isNode_; }

std::optional<std::string> ScreenElement::nameOfNextFlowchart() const {
  if (nextFlowchartName_.empty() || !isUtf8(nextFlowchartName_)) return std::nullopt;
  return nextFlowchartName_;
}

const std::vector<std::string>& ScreenElement::boxText() const& {
  checkUtf8(boxText_);
  return boxText_;
}

std::vector<std::string> ScreenElement::boxText() && {
  checkUtf8(boxText_);
  return std::move(boxText_);
}

const std::vector<std::string>& ScreenElement::commentaryText() const& {
  checkUtf8(commentaryText_);
  return commentaryText_;
}

std::vector<std::string> ScreenElement::commentaryText() && {
  checkUtf8(commentaryText_);
  return std::move(commentaryText_);
}

std::int64_t ScreenElement::yesDirection() const noexcept { return yesDirection_; }
std::int64_t ScreenElement::noDirection() const noexcept { return noDirection_; }
std::int64_t ScreenElement::intoDirection() const noexcept { return intoDirection_; }
std::int64_t ScreenElement::outOfDirection() const noexcept { return outOfDirection_; }

std::string ScreenElement::debugDescription() const {
  const std::string kind = isNode_ ? "node \"" + joined(boxText()) + '"' : "line";
  return "<ScreenElement " + kind + (isOnPath_ ? " onPath" : "") + " @" + std::to_string(x_) + ',' +
         std::to_string(y_) + '>';
}
