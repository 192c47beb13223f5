// A chart as its readers meet it, whether it was read from a source or from a flowchart file.

#ifndef TAVREL_AUTHORING_READCHART_H
#define TAVREL_AUTHORING_READCHART_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/ChartGraph.h"
#include "authoring/FvFile.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// Lines of a text, which stay where they are: in a list or in a file, which must outlive it.
class TextLines {
 public:
  TextLines() = default;
  explicit TextLines(const std::vector<std::string>& lines)
      : list_(&lines), lines_({0, static_cast<LineNumber>(lines.size())}) {}
  TextLines(const SourceFile& file, LineRange lines) : file_(&file), lines_(lines) {}

  std::size_t size() const { return lines_.count; }
  std::string_view operator[](std::size_t i) const {
    return list_ != nullptr ? std::string_view((*list_)[i]) : file_->line(lines_.first + i);
  }

  /// The lines with a blank between them.
  std::string joined() const {
    std::string text;
    for (std::size_t i = 0; i < size(); ++i) text.append(i == 0 ? "" : " ").append((*this)[i]);
    return text;
  }

  /// Where a byte of joined() stands: in the file blanks are line feeds. REQUIRES: the lines are
  /// those of a file, and not none.
  Place placeOf(std::size_t offset) const {
    return file_->placeOf(file_->startOf(lines_.first) + offset);
  }

 private:
  const std::vector<std::string>* list_ = nullptr;
  const SourceFile* file_ = nullptr;
  LineRange lines_;
};

/// What one box shows, or several.
struct BoxContent {
  Place textPlace;
  TextLines text;
  Place commentPlace;  ///< where a comment stands or should stand
  TextLines comment;
  Place linkPlace;
  std::string_view link;  ///< empty for none
  bool isSure = true;     ///< nothing of it was left out because of an error
};

struct ReadBox {
  std::uint32_t content = 0;
  ByAnswer<BoxNumber> exits = {noBox, noBox};
  bool isSure = true;  ///< content and exits have no error

  bool isEnd() const { return exits.yes == noBox && exits.no == noBox; }
};

/// Contents and places are made when they are asked for, and take no memory.
struct ReadChart {
  Place introPlace;
  TextLines intro;
  bool hasSureIntro = true;  ///< it wasn't left out because of an error
  int width = 0;             ///< of a line in a box, at most, in columns
  std::size_t contentCount = 0;
  std::function<BoxContent(std::size_t content)> content;
  BoxNumber start = 0;
  std::vector<ReadBox> boxes;
  std::function<Place(BoxNumber box)> placeOf;
  std::function<std::size_t(BoxNumber box)> lineOf;  ///< that of the place
  /// Where a word stands that has the offset in the joined lines of a text.
  std::function<Place(const TextLines& text, Place place, std::size_t offset,
                      const std::string& word)>
      placeOfWord;

  const ReadBox& operator[](BoxNumber box) const { return boxes[static_cast<std::size_t>(box)]; }
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_READCHART_H
