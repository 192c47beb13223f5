// One operation of a conversation, its arguments taken one by one, and its answer.

#ifndef TAVREL_TESTS_SUPPORT_OPERATION_H
#define TAVREL_TESTS_SUPPORT_OPERATION_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/Notation.h"

namespace tavrel {

/// The line `kept = second.elementAtXY 2 0`, taken apart.
struct Operation {
  std::string result;           ///< the name for what comes back; empty: it isn't kept
  std::string receiver;         ///< the name of what is asked; empty: the first navigator
  std::string name;             ///< the operation's name in the client interface
  std::vector<Word> arguments;  ///< as they stand on the line
  std::string chart;            ///< the bytes of the lines that start with |
};

/// The lines of an answer, without indentation. An operation that returns
/// nothing answers with no line.
using Answer = std::vector<std::string>;

/// Takes apart one line. Throws NotationError for a line that is no operation.
Operation parseOperation(const std::string& line);

/// Hands out an operation's arguments from the first to the last. Each function
/// throws NotationError when the next argument is missing or of another kind.
class Arguments {
 public:
  /// REQUIRES: `operation` outlives this object.
  explicit Arguments(const Operation& operation) : words_(operation.arguments) {}

  /// A decimal number that fits 64 bits.
  std::int64_t integer();
  /// A quoted string.
  std::string text();
  /// Bare bytes that are neither.
  std::string name();
  /// Throws NotationError unless every argument was taken.
  void finish() const;

 private:
  const Word& take(bool isQuoted, const char* kind);

  const std::vector<Word>& words_;
  std::size_t next_ = 0;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_OPERATION_H
