#include "hosts/tavrel/Introduction.h"

#include <stdexcept>

#include "facade/Tavrel.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/Words.h"

namespace tavrel {
namespace {

// A file that is cut short is told by a text of the library's own.
const std::vector<std::string> unread = {"Unable to read this flowchart intro."};

std::vector<std::string> readIntroduction(const Library& library, const CatalogueEntry& chart) {
  try {
    Tavrel reader(library.directory());
    const std::vector<std::string> lines = reader.introForFlowchartAtIndex(chart.index);
    if (lines != unread) return lines;
  } catch (const std::out_of_range&) {
  } catch (const std::length_error&) {
  } catch (const std::invalid_argument&) {
  }
  throw Failure("the file " + library.quotedFileOf(chart) +
                " has no introduction that can be read; docs/format.md describes the format");
}

}  // namespace

std::vector<std::string> introductionOf(const Library& library, const CatalogueEntry& chart,
                                        Charset charset) {
  requireFile(library, chart);
  std::vector<std::string> lines = readIntroduction(library, chart);
  for (std::string& line : lines) line = printable(line, charset);
  return lines;
}

}  // namespace tavrel
