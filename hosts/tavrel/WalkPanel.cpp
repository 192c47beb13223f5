#include "hosts/tavrel/WalkPanel.h"

#include <algorithm>
#include <utility>

#include "hosts/tavrel/MoreMarks.h"
#include "hosts/tavrel/Words.h"

namespace tavrel {
namespace {

std::string placeOf(const Walk& walk) {
  const auto [name, x, y] = walk.navigator().currentLocation();
  return name + ' ' + std::to_string(x) + ',' + std::to_string(y) + ": " + choicesOf(walk.box());
}

std::vector<std::string> commentaryOf(const Walk& walk) {
  return readableLines([&] { return walk.navigator().currentCommentaryText(); });
}

}  // namespace

WalkPanel::WalkPanel(Terminal& terminal, Charset charset)
    : terminal_(terminal), charset_(charset) {}

void WalkPanel::draw(const Walk& walk, const Area& area, const std::string& message,
                     const std::string& notice) {
  area_ = area;
  if (area_.height < 1) return;
  const auto fitted = [&](std::vector<std::string> lines) {
    for (std::string& line : lines) line = printable(line, charset_);
    return flowed(lines, textWidth());
  };
  const int titleRows = area_.height > 1 ? 1 : 0;
  std::vector<std::string> lines = {message.empty() ? placeOf(walk) : message};
  if (!notice.empty()) lines.insert(lines.begin(), notice);
  std::vector<std::string> status = fitted(std::move(lines));
  const int statusRows = std::min(static_cast<int>(status.size()), area_.height - titleRows);
  status.resize(static_cast<std::size_t>(statusRows));
  commentaryRoom_ = area_.height - titleRows - statusRows;

  if (titleRows > 0) drawTitle(printable(walk.chart().title, charset_));
  drawCommentary(fitted(commentaryOf(walk)));
  drawStatus(status, !message.empty() || !notice.empty());
}

void WalkPanel::drawTitle(const std::string& title) {
  const std::string_view rule = charset_ == Charset::utf8 ? "─" : "-";
  std::string line;
  for (int column = 0; column < area_.width; ++column) line += rule;
  terminal_.put(area_.top, area_.left, line, {Ink::line});
  terminal_.put(area_.top, area_.left + 1, ' ' + title + ' ', {Ink::text, true});
}

void WalkPanel::drawCommentary(const std::vector<std::string>& lines) {
  const int count = static_cast<int>(lines.size());
  isCommentaryCut_ = count > commentaryRoom_;
  commentaryTop_ = std::clamp(commentaryTop_, 0, std::max(0, count - commentaryRoom_));
  for (int row = 0; row < commentaryRoom_ && commentaryTop_ + row < count; ++row) {
    putLine(1 + row, lines[static_cast<std::size_t>(commentaryTop_ + row)]);
  }
  const Margin margin = {area_.top + 1, area_.left + area_.width - 1, commentaryRoom_};
  putMoreMarks(terminal_, margin, commentaryTop_, count);
}

void WalkPanel::drawStatus(const std::vector<std::string>& lines, bool isMessage) {
  int row = area_.height - static_cast<int>(lines.size());
  for (const std::string& line : lines) putLine(row++, line, {Ink::text, isMessage});
  drawHint(row - 1, displayWidth(lines.back()));
}

// At the end of a row, as much as there is room for.
void WalkPanel::drawHint(int row, int columnsTaken) {
  for (const std::string hint : {isCommentaryCut_ ? "PgDn more  ? help" : "? help", "? help"}) {
    const int column = textWidth() - displayWidth(hint);
    if (column < columnsTaken + 2) continue;
    terminal_.put(area_.top + row, area_.left + 1 + column, hint, {Ink::text, false, false, true});
    return;
  }
}

void WalkPanel::putLine(int row, const std::string& line, const Style& style) {
  terminal_.put(area_.top + row, area_.left + 1, line, style);
}

int WalkPanel::textWidth() const { return std::max(1, area_.width - 2); }

}  // namespace tavrel
