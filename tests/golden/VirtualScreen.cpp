#include "VirtualScreen.h"

#include <cstdint>

namespace tavrel {
namespace {

void appendUtf8(std::string& out, std::uint32_t character) {
  const auto add = [&](std::uint32_t byte) { out += static_cast<char>(byte); };
  const auto addRest = [&](int pieces) {
    while (pieces-- > 0) add(0x80U | ((character >> (6 * pieces)) & 0x3FU));
  };
  if (character < 0x80U) return add(character);
  if (character < 0x800U) return add(0xC0U | (character >> 6)), addRest(1);
  if (character < 0x10000U) return add(0xE0U | (character >> 12)), addRest(2);
  add(0xF0U | (character >> 18));
  addRest(3);
}

std::string withoutBlanksAtEnd(const std::string& text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

VirtualScreen::VirtualScreen(int columns, int rows)
    : columns_(columns), rows_(rows), terminal_(vterm_new(rows, columns)) {
  static const VTermScreenCallbacks callbacks = [] {
    VTermScreenCallbacks all = {};
    all.settermprop = propertyChanged;
    return all;
  }();
  vterm_set_utf8(terminal_.get(), 1);
  screen_ = vterm_obtain_screen(terminal_.get());
  vterm_screen_set_callbacks(screen_, &callbacks, this);
  vterm_screen_enable_altscreen(screen_, 1);
  vterm_screen_reset(screen_, 1);
}

void VirtualScreen::write(const std::string& bytes) {
  vterm_input_write(terminal_.get(), bytes.data(), bytes.size());
  vterm_screen_flush_damage(screen_);
}

void VirtualScreen::resize(int columns, int rows) {
  columns_ = columns;
  rows_ = rows;
  vterm_set_size(terminal_.get(), rows, columns);
}

std::vector<std::string> VirtualScreen::picture() const {
  std::vector<std::string> lines;
  for (int row = 0; row < rows_; ++row) {
    lines.push_back('|' + textOf(row) + '|');
    const std::string marks = withoutBlanksAtEnd(marksOf(row));
    if (!marks.empty()) lines.push_back(':' + marks);
  }
  return lines;
}

std::string VirtualScreen::text() const {
  std::string all;
  for (int row = 0; row < rows_; ++row) all += withoutBlanksAtEnd(textOf(row)) + '\n';
  return all;
}

VTermScreenCell VirtualScreen::cellAt(int row, int column) const {
  VTermScreenCell cell = {};
  vterm_screen_get_cell(screen_, {row, column}, &cell);
  return cell;
}

std::string VirtualScreen::textOf(int row) const {
  std::string text;
  for (int column = 0; column < columns_;) {
    const VTermScreenCell cell = cellAt(row, column);
    if (cell.chars[0] == 0) text += ' ';
    for (int i = 0; i < VTERM_MAX_CHARS_PER_CELL && cell.chars[i] != 0; ++i) {
      appendUtf8(text, cell.chars[i]);
    }
    column += cell.width > 0 ? cell.width : 1;
  }
  return text;
}

std::string VirtualScreen::marksOf(int row) const {
  std::string marks;
  for (int column = 0; column < columns_; ++column) {
    const VTermScreenCell cell = cellAt(row, column);
    const bool isBold = cell.attrs.bold != 0;
    const bool isInverse = cell.attrs.reverse != 0;
    marks += isInverse ? (isBold ? '@' : '#') : (isBold ? '+' : ' ');
  }
  return marks;
}

int VirtualScreen::propertyChanged(VTermProp property, VTermValue* value, void* self) {
  auto& screen = *static_cast<VirtualScreen*>(self);
  if (property == VTERM_PROP_ALTSCREEN) screen.isAlternate_ = value->boolean != 0;
  if (property == VTERM_PROP_CURSORVISIBLE) screen.isCursorVisible_ = value->boolean != 0;
  return 1;
}

}  // namespace tavrel
