// What stands between braces, and what is wrong with it.

#ifndef TAVREL_AUTHORING_BRACESCAN_H
#define TAVREL_AUTHORING_BRACESCAN_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/Cause.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// Goes from an opening brace or bracket to the one that closes it. Cost: one pass over what
/// stands between.
class BraceScan {
 public:
  /// REQUIRES: a brace or bracket opens at the offset.
  BraceScan(const SourceFile& file, std::size_t offset);

  /// What keeps YAML from reading it, nothing if it can be read.
  std::optional<Cause> run();

  /// Behind the closing brace, once run() has found nothing.
  std::size_t end() const { return at_; }

 private:
  // A text in quotes.
  struct Quoted {
    std::size_t begin, end;  // the offsets of the quotes
  };

  std::optional<Cause> step();
  std::optional<Cause> quoted();
  std::optional<Cause> plain();
  void separate();
  void skipRemark();
  Cause droppedText() const;
  Cause unquoted(std::size_t begin) const;
  std::optional<Cause> unseparated() const;
  std::optional<Cause> lateQuote() const;
  Cause notClosed() const;
  char byteAt(std::size_t offset) const;
  bool isItem() const;
  bool isRemark() const;
  bool isKeptForItself() const;
  bool isEndOfKey(std::size_t offset) const;
  bool isFirstOnLine(std::size_t offset) const;

  const SourceFile& file_;
  std::string_view bytes_;
  std::size_t at_;
  std::vector<std::size_t> open_;  // the offsets of the braces and brackets that are open
  bool isSeparated_ = true;        // behind a comma, a colon or an opening brace
  bool isValue_ = false;           // behind a colon
  std::optional<Quoted> last_;     // what stands before, if it is a text in quotes
};

/// "KEY:" at the offset: the key, empty if none stands there.
std::string_view keyAt(std::string_view bytes, std::size_t offset);

/// What is said of a quote that is closed by the opening quote of another text, on a later line.
Cause closedTooLate(const SourceFile& file, std::size_t opening, std::size_t closing);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_BRACESCAN_H
