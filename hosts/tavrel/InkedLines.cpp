#include "hosts/tavrel/InkedLines.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstddef>
#include <utility>

#include "drawing/TextBox.h"
#include "hosts/tavrel/Terminal.h"

namespace tavrel {
namespace {

// Of a terminal that doesn't say how wide it is.
constexpr int usualWidth = 80;

// The sequences that every terminal with colours knows.
std::string colourSequence(int colour) {
  const std::string number = std::to_string(colour);
  return colour < 8 ? "\033[3" + number + "m" : "\033[38;5;" + number + "m";
}

constexpr const char* plainSequence = "\033[39m";

}  // namespace

InkedLines::InkedLines(std::ostream& out, Charset charset)
    : out_(out), charset_(charset), isTerminal_(isatty(STDIN_FILENO) && isatty(STDOUT_FILENO)) {
  LineAbilities abilities = lineAbilities();
  colours_ = abilities.colours;
  if (isTerminal_) clear_ = std::move(abilities.clear);
}

int InkedLines::width() const {
  winsize size = {};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return usualWidth;
  return size.ws_col;
}

std::string InkedLines::inked(std::string_view text) const {
  std::string line;
  for (const drawing::InkedGlyph& glyph : drawing::inked(text, Ink::text, charset_)) {
    const int colour = colours_ == 0 ? -1 : terminalColourOf(glyph.ink, colours_);
    line += colour < 0 ? glyph.glyph : colourSequence(colour) + glyph.glyph + plainSequence;
  }
  return line;
}

// The parts of a line that is broken keep its indentation.
void InkedLines::line(std::string_view text) {
  isEmpty_ = false;
  if (!isTerminal_) {
    out_ << inked(text) << '\n';
    return;
  }
  const std::size_t first = text.find_first_not_of(' ');
  const std::size_t indent = first == std::string_view::npos ? 0 : first;
  const std::string blanks(indent, ' ');
  const int room = width() - static_cast<int>(indent);
  for (const std::string& part : wrapped({std::string(text.substr(indent))}, room)) {
    out_ << blanks << inked(part) << '\n';
  }
}

void InkedLines::block(const std::vector<std::string>& all) {
  for (const std::string& each : all) line(each);
}

void InkedLines::prompt(std::string_view text) {
  isEmpty_ = false;
  out_ << inked(text) << std::flush;
}

void InkedLines::newPage() {
  if (!clear_.empty()) {
    out_ << clear_;
  } else if (!isEmpty_) {
    out_ << '\n';
  }
  isEmpty_ = true;
}

}  // namespace tavrel
