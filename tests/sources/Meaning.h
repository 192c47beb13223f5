// What a source means, read in another way than by the reader of sources: from yaml-cpp's tree
// of the document, without a check.

#ifndef TAVREL_TESTS_SOURCES_MEANING_H
#define TAVREL_TESTS_SOURCES_MEANING_H

#include <cstddef>
#include <string>
#include <vector>

namespace tavrel::sources {

/// The words of a line or a paragraph.
using Words = std::vector<std::string>;

struct MeantBox {
  std::vector<std::string> lines;  ///< of its text, as its author wrote them; suits as ♣ ♦ ♥ ♠
  std::vector<Words> comment;      ///< by paragraphs
  std::string link;                ///< empty for none
  int yes = -1, no = -1;           ///< the boxes that the answers lead to, -1 for none
};

struct MeantChart {
  std::string name;
  std::vector<Words> intro;  ///< by paragraphs
  int width = 24;            ///< columns of a line that the compiler breaks
  int start = 0;
  std::vector<MeantBox> boxes;

  const MeantBox& operator[](int box) const { return boxes[static_cast<std::size_t>(box)]; }
};

Words wordsOf(const std::string& text);

/// REQUIRES: the compiler takes the source. Throws what yaml-cpp throws, or std::out_of_range,
/// for others.
MeantChart meaningOf(const std::string& source);

}  // namespace tavrel::sources

#endif  // TAVREL_TESTS_SOURCES_MEANING_H
