#include "hosts/tavrel/Words.h"

#include <langinfo.h>

#include <cctype>
#include <stdexcept>
#include <string_view>

#include "hosts/tavrel/Failure.h"

namespace tavrel {
namespace {

std::string stayedAt(const Walk& walk, WalkStep step) {
  switch (step) {
    case WalkStep::yes:
      return "this box has no yes exit";
    case WalkStep::no:
      return "this box has no no exit";
    case WalkStep::alongPath:
      return walk.box().isOnPath() ? "the path ends here" : "this box is not on the path";
    case WalkStep::root:
      return "this is the root box";
    default:
      return "no line leads there";
  }
}

std::string brokenAt(const Walk& walk, WalkStep step) {
  const std::string file = walk.library().quotedFileOf(walk.chart());
  if (step == WalkStep::root) return "there is no box at 0,0; " + file + " is at fault";
  return "the line ahead leads to no box; " + file + " is at fault";
}

}  // namespace

Charset localeCharset() {
  return std::string_view(nl_langinfo(CODESET)) == "UTF-8" ? Charset::utf8 : Charset::plain;
}

std::string sentence(std::string clause) {
  clause.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(clause.front())));
  return clause + '.';
}

std::string refusalOf(const Walk& walk, WalkStep step, Outcome outcome) {
  if (outcome == Outcome::stayed) return stayedAt(walk, step);
  if (outcome == Outcome::broken) return brokenAt(walk, step);
  return linkRefusalOf(walk, outcome);
}

std::string linkRefusalOf(const Walk& walk, Outcome outcome) {
  const std::string name = walk.box().nameOfNextFlowchart().value_or("");
  if (outcome == Outcome::noLink) return "this box leads into no other flowchart";
  if (outcome == Outcome::noChart) {
    return "this box leads into '" + name + "', and there is no such flowchart";
  }
  return entryRefusalOf(walk.library(), walk.library().find(name), outcome);
}

std::string entryRefusalOf(const Library& library, const CatalogueEntry& chart, Outcome outcome) {
  if (outcome == Outcome::noFile) {
    return "the flowchart " + chart.name + " can't be read: " + library.faultOf(chart);
  }
  const std::string file = library.quotedFileOf(chart);
  if (outcome == Outcome::broken) {
    return "a line that the answers follow leads to no box; " + file + " is at fault";
  }
  const std::string fault = outcome == Outcome::malformed
                                ? " is malformed: a box names a text that isn't there, a count is "
                                  "negative, or the cells lie too far apart"
                                : " is no flowchart with a box at 0,0";
  return "the file " + file + fault + "; docs/format.md describes the format";
}

void requireFile(const Library& library, const CatalogueEntry& chart) {
  if (library.faultOf(chart).empty()) return;
  throw Failure(entryRefusalOf(library, chart, Outcome::noFile) +
                "; 'tavrel list' shows which flowcharts have a file");
}

std::string choicesOf(const ScreenElement& box) {
  std::string choices;
  const auto add = [&](const std::string& choice) {
    choices += (choices.empty() ? "" : ", ") + choice;
  };
  if (box.yesDirection() != XYDirectionNone) add("yes");
  if (box.noDirection() != XYDirectionNone) add("no");
  if (const auto name = box.nameOfNextFlowchart()) add("follow to " + *name);
  return choices.empty() ? "the end" : choices;
}

std::vector<std::string> readableLines(const std::function<std::vector<std::string>()>& lines) try {
  return lines();
} catch (const std::invalid_argument&) {
  return {"(not UTF-8)"};
}

}  // namespace tavrel
