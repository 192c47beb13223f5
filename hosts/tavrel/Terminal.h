// The terminal as a grid of characters: placed text out, keys in.

#ifndef TAVREL_HOSTS_TAVREL_TERMINAL_H
#define TAVREL_HOSTS_TAVREL_TERMINAL_H

#include <functional>
#include <string>
#include <string_view>

#include "drawing/TextPicture.h"
#include "hosts/tavrel/EndingSignals.h"

namespace tavrel {

struct Style {
  Ink ink = Ink::text;
  bool bold = false;
  bool inverse = false;
  bool dim = false;
};

enum class Key {
  character,  ///< any key that writes a character; Escape and Tab are such
  up,
  down,
  left,
  right,
  pageUp,
  pageDown,
  home,
  end,
  enter,
  backspace,
  resized,      ///< no key: the terminal has another size now
  due,          ///< no key: there is something else to do
  interrupted,  ///< no key, now and ever after: a signal or a hang-up ends the program
  other,
};

struct KeyPress {
  Key key;
  char character;  ///< for Key::character, in ASCII; 0 beyond it
};

/// The number of an ink's colour on a terminal with so many; -1 for that of its text.
int terminalColourOf(Ink ink, int colours);

/// What standard output can do while lines go by; nothing, where it is no terminal.
struct LineAbilities {
  int colours = 0;    ///< that there are and that are wanted
  std::string clear;  ///< what clears the screen; may be empty
};

LineAbilities lineAbilities();

/// Takes the terminal over for as long as it lives and gives it back as it was,
/// also when a signal ends the program: EndingSignals notes it, keys are
/// Key::interrupted from then on, and main raises it again at its end.
///
/// Colours are used where the terminal has them and NO_COLOR is unset or empty.
class Terminal {
 public:
  /// Whether standard input and output are a terminal that can place its cursor.
  static bool isUsable();

  /// REQUIRES: isUsable(), and no other Terminal. Throws Failure if the terminal
  /// can't be set up.
  Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  int height() const;
  int width() const;

  /// Draws: clear, put what is to be seen, show. What lies outside is cut off, a
  /// wide character as a whole. REQUIRES of the text: printable.
  void clear();
  void put(int row, int column, std::string_view text, const Style& style = {});
  void show();

  /// Waits for a key, or until `isDue` is true. It is asked ten times a second.
  KeyPress readKey(const std::function<bool()>& isDue = nullptr);

 private:
  // Curses, as long as it holds the terminal.
  struct Screen {
    Screen();
    ~Screen();
  };

  void defineColours();
  unsigned attributesOf(const Style& style) const;

  EndingSignals signals_;  // outlives the screen, which no signal may keep from its end
  Screen screen_;
  bool hasColours_ = false;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_TERMINAL_H
