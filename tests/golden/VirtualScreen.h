// A terminal's screen: takes the bytes that a program writes, and knows what they
// show.

#ifndef TAVREL_TESTS_GOLDEN_VIRTUALSCREEN_H
#define TAVREL_TESTS_GOLDEN_VIRTUALSCREEN_H

#include <vterm.h>

#include <memory>
#include <string>
#include <vector>

namespace tavrel {

class VirtualScreen {
 public:
  VirtualScreen(int columns, int rows);
  VirtualScreen(const VirtualScreen&) = delete;
  VirtualScreen& operator=(const VirtualScreen&) = delete;

  void write(const std::string& bytes);
  void resize(int columns, int rows);

  /// The rows from top to bottom, each as `|TEXT|`. Below a row with cells that are
  /// inverse, bold or both stands a row `:` with #, + or @ below these cells.
  std::vector<std::string> picture() const;

  /// The rows' text alone, as far as there is any, for a look at something within.
  std::string text() const;

  bool isAlternate() const { return isAlternate_; }
  bool isCursorVisible() const { return isCursorVisible_; }

 private:
  VTermScreenCell cellAt(int row, int column) const;
  std::string textOf(int row) const;
  std::string marksOf(int row) const;
  static int propertyChanged(VTermProp property, VTermValue* value, void* self);

  struct Free {
    void operator()(VTerm* terminal) const { vterm_free(terminal); }
  };

  int columns_;
  int rows_;
  std::unique_ptr<VTerm, Free> terminal_;
  VTermScreen* screen_;
  bool isAlternate_ = false;
  bool isCursorVisible_ = true;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_GOLDEN_VIRTUALSCREEN_H
