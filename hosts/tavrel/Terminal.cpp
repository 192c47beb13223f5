#include "hosts/tavrel/Terminal.h"

#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>

#include "hosts/tavrel/Failure.h"
#include "text/Text.h"

#define NCURSES_NOMACROS 1
#include <curses.h>
#include <term.h>

namespace tavrel {
namespace {

// What gives the terminal back from a signal handler, where curses can't be called.
volatile std::sig_atomic_t isTaken = 0;
termios modesBefore;
std::array<char, 256> farewell;
std::size_t farewellLength = 0;

// What the terminal that is set up is sent for something; nullptr if it can't do it.
const char* sequenceOf(const char* capability) {
  const char* sequence = tigetstr(capability);
  return sequence == reinterpret_cast<const char*>(-1) ? nullptr : sequence;
}

// The sequence without "$<50>": terminals needed time for it once.
std::string withoutDelay(const std::string& sequence) {
  return sequence.substr(0, sequence.find("$<"));
}

void composeFarewell() {
  farewellLength = 0;
  for (const char* name : {"sgr0", "rmkx", "cnorm", "rmcup"}) {
    const char* sequence = sequenceOf(name);
    if (sequence == nullptr) continue;
    const std::size_t length = std::strlen(sequence);
    if (farewellLength + length > farewell.size()) continue;
    std::memcpy(farewell.data() + farewellLength, sequence, length);
    farewellLength += length;
  }
}

void rescue() {
  if (isTaken == 0) return;
  const ssize_t ignored = write(STDOUT_FILENO, farewell.data(), farewellLength);
  static_cast<void>(ignored);
  tcsetattr(STDIN_FILENO, TCSANOW, &modesBefore);
}

// How long a signal, or what is due, may wait to be noticed.
constexpr int pollMilliseconds = 100;
// How long an Escape may be the start of a key's sequence.
constexpr int escapeMilliseconds = 25;

bool isColourWanted() {
  const char* noColor = std::getenv("NO_COLOR");
  return noColor == nullptr || *noColor == '\0';
}

short pairOf(Ink ink) { return static_cast<short>(static_cast<int>(ink) + 1); }

Key keyOf(int code) {
  switch (code) {
    case KEY_UP:
      return Key::up;
    case KEY_DOWN:
      return Key::down;
    case KEY_LEFT:
      return Key::left;
    case KEY_RIGHT:
      return Key::right;
    case KEY_PPAGE:
      return Key::pageUp;
    case KEY_NPAGE:
      return Key::pageDown;
    case KEY_HOME:
      return Key::home;
    case KEY_END:
      return Key::end;
    case KEY_ENTER:
      return Key::enter;
    case KEY_BACKSPACE:
      return Key::backspace;
    case KEY_RESIZE:
      return Key::resized;
    default:
      return Key::other;
  }
}

KeyPress characterOf(wint_t code) {
  constexpr wint_t del = 0x7F;
  if (code == '\n' || code == '\r') return {Key::enter, 0};
  if (code == '\b' || code == del) return {Key::backspace, 0};
  return {Key::character, code < del ? static_cast<char>(code) : '\0'};
}

// The text as far as it fits in `width` columns.
std::string_view cut(std::string_view text, int width) {
  std::size_t length = 0;
  for (const Glyph& glyph : glyphs(text)) {
    width -= glyph.width;
    if (width < 0) break;
    length += glyph.bytes.size();
  }
  return text.substr(0, length);
}

// A terminal that was closed sends nothing any more, and never waits.
bool isHungUp() {
  pollfd input = {STDIN_FILENO, POLLIN, 0};
  poll(&input, 1, 0);
  return (input.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

}  // namespace

int terminalColourOf(Ink ink, int colours) {
  const bool areMany = colours >= 256;
  switch (ink) {
    case Ink::clubs:
      return areMany ? 34 : COLOR_GREEN;
    case Ink::diamonds:
      return areMany ? 208 : COLOR_YELLOW;
    case Ink::hearts:
      return areMany ? 196 : COLOR_RED;
    case Ink::spades:
      return areMany ? 39 : COLOR_CYAN;
    case Ink::link:
      return areMany ? 135 : COLOR_MAGENTA;
    default:
      return -1;
  }
}

LineAbilities lineAbilities() {
  LineAbilities abilities;
  int status = 0;
  if (!isatty(STDOUT_FILENO) || setupterm(nullptr, STDOUT_FILENO, &status) != OK) return abilities;
  constexpr int fewColours = 8;
  const int colours = tigetnum("colors");
  if (isColourWanted() && colours >= fewColours) abilities.colours = colours;
  if (const char* clear = sequenceOf("clear")) abilities.clear = withoutDelay(clear);
  del_curterm(cur_term);
  return abilities;
}

bool Terminal::isUsable() {
  if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO)) return false;
  int status = 0;
  if (setupterm(nullptr, STDOUT_FILENO, &status) != OK) return false;
  const bool placesCursor = sequenceOf("cup") != nullptr;
  del_curterm(cur_term);
  return placesCursor;
}

Terminal::Screen::Screen() {
  tcgetattr(STDIN_FILENO, &modesBefore);
  if (newterm(nullptr, stdout, stdin) == nullptr) {
    throw Failure("the terminal can't be set up; TERM=dumb walks in lines");
  }
  composeFarewell();
  isTaken = 1;
}

Terminal::Screen::~Screen() {
  endwin();
  isTaken = 0;
}

Terminal::Terminal() : signals_(rescue) {
  cbreak();
  noecho();
  nonl();
  keypad(stdscr, true);
  set_escdelay(escapeMilliseconds);
  timeout(pollMilliseconds);
  curs_set(0);
  if (isColourWanted() && has_colors()) defineColours();
}

void Terminal::defineColours() {
  hasColours_ = true;
  start_color();
  use_default_colors();
  for (int ink = 0; ink <= static_cast<int>(Ink::spades); ++ink) {
    const int colour = terminalColourOf(static_cast<Ink>(ink), COLORS);
    init_pair(pairOf(static_cast<Ink>(ink)), static_cast<short>(colour), -1);
  }
}

int Terminal::height() const { return getmaxy(stdscr); }
int Terminal::width() const { return getmaxx(stdscr); }

void Terminal::clear() { erase(); }

void Terminal::put(int row, int column, std::string_view text, const Style& style) {
  if (row < 0 || row >= height() || column < 0 || column >= width()) return;
  attrset(static_cast<int>(attributesOf(style)));
  const std::string_view seen = cut(text, width() - column);
  mvaddnstr(row, column, seen.data(), static_cast<int>(seen.size()));
}

void Terminal::show() { refresh(); }

unsigned Terminal::attributesOf(const Style& style) const {
  unsigned attributes = A_NORMAL;
  if (style.bold) attributes |= A_BOLD;
  if (style.inverse) attributes |= A_REVERSE;
  if (style.dim) attributes |= A_DIM;
  if (hasColours_) attributes |= static_cast<unsigned>(COLOR_PAIR(pairOf(style.ink)));
  return attributes;
}

KeyPress Terminal::readKey(const std::function<bool()>& isDue) {
  while (EndingSignals::noted() == 0 && !isHungUp()) {
    wint_t code = 0;
    const int result = get_wch(&code);
    if (result == KEY_CODE_YES) return {keyOf(static_cast<int>(code)), 0};
    if (result == OK) return characterOf(code);
    if (isDue && isDue()) return {Key::due, 0};
  }
  return {Key::interrupted, 0};
}

}  // namespace tavrel
