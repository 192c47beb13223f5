#include "tests/sources/Trip.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

#include "authoring/Compiler.h"
#include "tests/support/Files.h"
#include "text/Text.h"

namespace tavrel::sources {
namespace {

constexpr int paragraphWidth = 72;

using Lines = std::vector<std::string>;

// Lines of a width, each as full as it can be.
std::size_t leastLines(const Words& words, int width) {
  std::size_t lines = 0;
  int left = -1;
  for (const std::string& word : words) {
    const int wide = displayWidth(word);
    if (left < wide + 1) {
      ++lines;
      left = width - wide;
    } else {
      left -= wide + 1;
    }
  }
  return lines;
}

int widest(const Lines& lines) {
  int width = 0;
  for (const std::string& line : lines) width = std::max(width, displayWidth(line));
  return width;
}

// Whether the lines hold these words, in as few lines of this width as there can be. A word that
// is wider has a line to itself.
bool isFilled(const Lines& lines, const Words& words, int width) {
  Words all;
  for (const std::string& line : lines) {
    const Words here = wordsOf(line);
    if (here.size() > 1 && displayWidth(line) > width) return false;
    all.insert(all.end(), here.begin(), here.end());
  }
  return all == words && lines.size() == leastLines(words, width);
}

// As the above, and no narrower lines would do.
bool isBroken(const Lines& lines, const Words& words, int width) {
  const int used = widest(lines);
  return isFilled(lines, words, width) &&
         (used > width || leastLines(words, used - 1) > lines.size() ||
          std::any_of(words.begin(), words.end(),
                      [used](const std::string& word) { return displayWidth(word) == used; }));
}

bool isTextOf(const Lines& lines, const MeantBox& box, int width) {
  return box.lines.size() == 1 ? isBroken(lines, wordsOf(box.lines[0]), width) : lines == box.lines;
}

// Paragraphs are parted by empty lines; those without words don't count.
bool areParagraphs(const Lines& lines, const std::vector<Words>& meant) {
  std::vector<Lines> paragraphs(1);
  for (const std::string& line : lines) {
    if (line.empty()) {
      paragraphs.emplace_back();
    } else {
      paragraphs.back().push_back(line);
    }
  }
  const auto isEmpty = [](const auto& each) { return each.empty(); };
  std::vector<Words> wanted = meant;
  wanted.erase(std::remove_if(wanted.begin(), wanted.end(), isEmpty), wanted.end());
  paragraphs.erase(std::remove_if(paragraphs.begin(), paragraphs.end(), isEmpty), paragraphs.end());
  return std::equal(paragraphs.begin(), paragraphs.end(), wanted.begin(), wanted.end(),
                    [](const Lines& paragraph, const Words& words) {
                      return isFilled(paragraph, words, paragraphWidth);
                    });
}

class Walk {
 public:
  Walk(Tavrel& navigator, const MeantChart& meant) : navigator_(navigator), meant_(meant) {}

  std::string difference() {
    const std::string name = std::get<0>(navigator_.currentLocation());
    const std::int64_t index = navigator_.indexOfFlowchartWithTitle(name);
    if (name != meant_.name) return "another name";
    if (!areParagraphs(navigator_.introForFlowchartAtIndex(index), meant_.intro)) {
      return "another introduction";
    }
    goBy("");
    visit("", meant_.start);
    while (!open_.empty() && difference_.empty()) {
      const auto [way, box] = open_.back();
      open_.pop_back();
      follow(way, meant_[box].yes, 'y');
      follow(way, meant_[box].no, 'n');
    }
    if (difference_.empty()) countBoxes();
    return difference_;
  }

 private:
  using Place = std::pair<std::int64_t, std::int64_t>;

  Place place() const {
    const auto [name, x, y] = navigator_.currentLocation();
    return {x, y};
  }

  void differ(const std::string& what, const std::string& way) {
    if (difference_.empty()) difference_ = what + (way.empty() ? ", at the start" : ", by " + way);
  }

  void goBy(const std::string& way) {
    navigator_.moveToRoot();
    for (const char each : way) each == 'y' ? navigator_.moveYes() : navigator_.moveNo();
  }

  // On the navigator's box, reached by some answers.
  void visit(const std::string& way, int box) {
    const auto [known, isNew] = seen_.insert({place(), box});
    if (known->second != box) differ("two boxes in one cell", way);
    if (!isNew) return;
    compare(way, meant_[box]);
    open_.push_back({way, box});
  }

  void compare(const std::string& way, const MeantBox& box) {
    const ScreenElement element = navigator_.currentElement();
    if (!element.isNode()) return differ("no box", way);
    if (!isTextOf(element.boxText(), box, meant_.width)) differ("another text", way);
    if (!areParagraphs(element.commentaryText(), box.comment)) differ("another comment", way);
    if (element.nameOfNextFlowchart().value_or("") != box.link) differ("another link", way);
    const auto isNone = [](std::int64_t exit) { return exit == XYDirectionNone; };
    if (isNone(element.yesDirection()) != (box.yes < 0)) differ("another yes", way);
    if (isNone(element.noDirection()) != (box.no < 0)) differ("another no", way);
  }

  void follow(const std::string& way, int next, char answer) {
    if (next < 0 || !difference_.empty()) return;
    goBy(way);
    const Place from = place();
    goBy(way + answer);
    visit(way + answer, next);
    if (!leadsBack(way + answer, from)) differ("no way back", way + answer);
  }

  // Whether a move over the grid leads back to the box that the last answer came from.
  bool leadsBack(const std::string& way, Place from) {
    for (std::int64_t direction = 0; direction < 4; ++direction) {
      goBy(way);
      try {
        navigator_.moveWithDirection(direction);
      } catch (const std::out_of_range&) {
        return false;
      }
      if (place() == from) return true;
    }
    return false;
  }

  void countBoxes() {
    const std::vector<ScreenElement> all = navigator_.allElements();
    const auto boxes = std::count_if(all.begin(), all.end(),
                                     [](const ScreenElement& each) { return each.isNode(); });
    if (static_cast<std::size_t>(boxes) != seen_.size()) difference_ = "boxes that no walk meets";
  }

  Tavrel& navigator_;
  const MeantChart& meant_;
  std::map<Place, int> seen_;
  std::vector<std::pair<std::string, int>> open_;
  std::string difference_;
};

std::vector<std::string> namesOfCatalogue() {
  Tavrel navigator("/dev/null");
  std::vector<std::string> names;
  for (std::size_t i = 0; i < navigator.flowchartTitles().size(); ++i) {
    navigator.resetToStartLocationForFlowchartAtIndex(static_cast<std::int64_t>(i));
    names.push_back(std::get<0>(navigator.currentLocation()));
  }
  return names;
}

const std::vector<std::string>& catalogue() {
  static const std::vector<std::string> names = namesOfCatalogue();
  return names;
}

// --- What was met ---------------------------------------------------------------------

void meetText(const MeantBox& box, int width, Features& met) {
  const bool isOne = box.lines.size() == 1;
  const Words words = isOne ? wordsOf(box.lines[0]) : Words{};
  met.meet(Feature::ownLines, !isOne);
  met.meet(Feature::broken, isOne && leastLines(words, width) > 1);
  met.meet(Feature::wordTooWide, widest(words) > width);
  met.meet(Feature::comment, !box.comment.empty());
  met.meet(Feature::commentParagraphs, box.comment.size() > 1);
  met.meet(Feature::commentWrapped,
           std::any_of(box.comment.begin(), box.comment.end(), [](const Words& paragraph) {
             return leastLines(paragraph, paragraphWidth) > 1;
           }));
}

void meetExits(const MeantBox& box, Features& met) {
  const bool isEnd = box.yes < 0 && box.no < 0;
  met.meet(Feature::link, isEnd && !box.link.empty());
  met.meet(Feature::questionWithLink, !isEnd && !box.link.empty());
  met.meet(Feature::oneExit, (box.yes < 0) != (box.no < 0));
  met.meet(Feature::bothAlike, !isEnd && box.yes == box.no);
}

void meet(const MeantChart& meant, Features& met) {
  std::vector<int> arrivals(meant.boxes.size(), 0);
  for (std::size_t i = 0; i < meant.boxes.size(); ++i) {
    const int number = static_cast<int>(i);
    const MeantBox& box = meant.boxes[i];
    meetText(box, meant.width, met);
    meetExits(box, met);
    met.meet(Feature::lineToItself, box.yes == number || box.no == number);
    for (const int next : {box.yes, box.no}) {
      if (next >= 0) ++arrivals[static_cast<std::size_t>(next)];
    }
  }
  for (std::size_t i = 0; i < meant.boxes.size(); ++i) {
    const bool isEnd = meant.boxes[i].yes < 0 && meant.boxes[i].no < 0;
    met.meet(isEnd ? Feature::sharedEnd : Feature::sharedQuestion, arrivals[i] > 1);
    met.meet(Feature::outOfReach, arrivals[i] == 0 && static_cast<int>(i) != meant.start);
  }
  met.meet(Feature::oneBox, meant.boxes.size() == 1);
  met.meet(Feature::manyBoxes, meant.boxes.size() >= 40);
  met.meet(Feature::startBehind, meant.start != 0);
  met.meet(Feature::intro, !meant.intro.empty());
}

}  // namespace

std::string differenceOf(Tavrel& navigator, const MeantChart& meant) {
  try {
    return Walk(navigator, meant).difference();
  } catch (const std::out_of_range&) {
    return "an exit into nothing";
  }
}

Result Traveller::travel(const std::string& name, const std::string& source, Features& met) {
  const authoring::SourceFile file(name, source);
  authoring::Diagnostics found;
  const auto chart = authoring::compile(file, catalogue(), found);
  std::string said;
  for (const authoring::Diagnostic& each : found.sorted()) {
    said += shown(each, file);
    met.meet(Feature::copied, each.code == authoring::Code::repeated);
    met.meet(Feature::refused, each.code == authoring::Code::noWayBack);
  }
  if (!chart) {
    const bool isNoWay = found.sorted().front().code == authoring::Code::noWayBack;
    return {isNoWay ? Outcome::noWayBack : Outcome::refused, said};
  }
  const MeantChart meant = meaningOf(source);
  meet(meant, met);
  writeFile(directory_.chart(meant.name), chart->bytes);
  Tavrel navigator(directory_.path());
  const auto place = std::find(catalogue().begin(), catalogue().end(), meant.name);
  navigator.resetToStartLocationForFlowchartAtIndex(place - catalogue().begin());
  const std::string difference = differenceOf(navigator, meant);
  return {difference.empty() ? Outcome::alike : Outcome::differs, difference};
}

}  // namespace tavrel::sources
