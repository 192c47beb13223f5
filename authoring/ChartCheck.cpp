#include "authoring/ChartCheck.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "authoring/Compiler.h"
#include "authoring/ConditionCheck.h"
#include "authoring/FvReader.h"
#include "authoring/MeaningCheck.h"
#include "authoring/NumberLine.h"
#include "authoring/ReadChart.h"
#include "authoring/SizeCheck.h"
#include "authoring/WalkCheck.h"

namespace tavrel::authoring {
namespace {

namespace fs = std::filesystem;

// No file says how wide its boxes should be; this is what a screen still bears.
constexpr int widestInFiles = 40;

BoxContent contentOf(const SourceBox& box) {
  BoxContent content;
  content.textPlace = box.text.place;
  content.text = TextLines(box.text.lines);
  content.commentPlace = box.comment.lines.empty() ? box.place : box.comment.place;
  content.comment = TextLines(box.comment.lines);
  if (box.link) {
    content.linkPlace = box.link->place;
    content.link = box.link->chart;
  }
  content.isSure = box.hasSureTexts;
  return content;
}

bool isPartOfWord(std::string_view bytes, std::size_t at) {
  return at < bytes.size() && std::isalnum(static_cast<unsigned char>(bytes[at])) != 0;
}

// Where a word stands next, from an offset on; npos for nowhere.
std::size_t findWord(std::string_view bytes, std::string_view word, std::size_t from) {
  for (std::size_t at = bytes.find(word, from); at != std::string_view::npos;
       at = bytes.find(word, at + 1)) {
    const bool isPart = (at > 0 && isPartOfWord(word, 0) && isPartOfWord(bytes, at - 1)) ||
                        isPartOfWord(bytes, at + word.size());
    if (!isPart) return at;
  }
  return std::string_view::npos;
}

// As suits may be written in a source.
std::string withoutSuits(std::string word) {
  for (const auto& [suit, written] :
       {std::pair("♣", "!c"), {"♦", "!d"}, {"♥", "!h"}, {"♠", "!s"}}) {
    const std::size_t at = word.find(suit);
    if (at != std::string::npos) word.replace(at, std::string_view(suit).size(), written);
  }
  return word;
}

// The text of a source has been wrapped and its quotes taken away, but words stay as they are:
// the n-th in the text is the n-th in the source. Where the word isn't found, the text's own
// place has to do.
Place placeOfWord(const SourceFile& file, const TextLines& text, Place place, std::size_t offset,
                  const std::string& word) {
  const std::string joined = text.joined();
  const std::size_t start = file.startOf(place.line);
  const std::size_t size = 2 * joined.size() + 200;  // room for indentation
  const std::string_view bytes = file.bytes().substr(start, place.column - 1 + size);
  for (const std::string& written : {word, withoutSuits(word)}) {
    std::size_t at = findWord(bytes, written, place.column - 1);
    for (std::size_t before = findWord(joined, word, 0); before < offset;
         before = findWord(joined, word, before + 1)) {
      if (at != std::string_view::npos) at = findWord(bytes, written, at + 1);
    }
    if (at != std::string_view::npos) return file.placeOf(start + at);
  }
  return place;
}

ReadChart readChartOf(const ChartSource& source, const SourceFile& file) {
  ReadChart chart;
  chart.introPlace = source.intro.place;
  chart.intro = TextLines(source.intro.lines);
  chart.hasSureIntro = source.hasSureIntro;
  chart.width = source.width;
  chart.contentCount = source.boxes.size();
  chart.content = [&source](std::size_t content) { return contentOf(source.boxes[content]); };
  chart.start = source.start;
  for (const SourceBox& box : source.boxes) {
    chart.boxes.push_back({static_cast<std::uint32_t>(chart.boxes.size()), box.exits,
                           box.hasSureTexts && box.hasSureExits});
  }
  chart.placeOf = [&source](BoxNumber box) { return source[box].place; };
  chart.lineOf = [&source](BoxNumber box) { return source[box].place.line; };
  chart.placeOfWord = [&file](const TextLines& text, Place place, std::size_t offset,
                              const std::string& word) {
    return placeOfWord(file, text, place, offset, word);
  };
  return chart;
}

// The count before some lines, where there are none to point at.
Place placeOf(const LineRange& lines) {
  return {lines.count > 0 ? lines.first : lines.first - 1, 1};
}

BoxContent contentOf(const FvNode& node, const SourceFile& file) {
  BoxContent content;
  content.textPlace = placeOf(node.text);
  content.text = TextLines(file, node.text);
  content.commentPlace = placeOf(node.comment);
  content.comment = TextLines(file, node.comment);
  content.linkPlace = {node.linkLine(), 1};
  content.link = file.line(node.linkLine());
  if (!content.link.empty() && content.link.back() == '\r') content.link.remove_suffix(1);
  return content;
}

// Without its boxes, which have to be read and to be walked.
ReadChart textsOf(const FvFile& read, const SourceFile& file) {
  ReadChart chart;
  chart.introPlace = placeOf(read.intro);
  chart.intro = TextLines(file, read.intro);
  chart.width = widestInFiles;
  chart.contentCount = read.nodes.size();
  chart.content = [&](std::size_t content) { return contentOf(read.nodes[content], file); };
  chart.placeOfWord = [](const TextLines& text, Place, std::size_t offset, const std::string&) {
    return text.placeOf(offset);
  };
  return chart;
}

// The root is the first box of a file, as it is of a chart that has just been made.
void addBoxes(ReadChart& chart, const FvFile& read, const std::vector<ByAnswer<BoxNumber>>& exits,
              const SourceFile& file) {
  for (std::size_t i = 0; i < read.boxes.size(); ++i) {
    chart.boxes.push_back({static_cast<std::uint32_t>(read.boxes[i].node), exits[i], true});
  }
  chart.lineOf = [&](BoxNumber box) -> std::size_t {
    return read.boxes[static_cast<std::size_t>(box)].line;
  };
  chart.placeOf = [&](BoxNumber box) {
    return placeOfNumber(file, read.boxes[static_cast<std::size_t>(box)].line, 0);
  };
}

void checkTexts(const ReadChart& chart, const Catalogue& catalogue, CheckedChart& checked) {
  checkTexts(chart, catalogue, checked.found);
  const std::unordered_set<std::string_view> names(catalogue.begin(), catalogue.end());
  for (std::size_t i = 0; i < chart.contentCount; ++i) {
    const BoxContent content = chart.content(i);
    if (names.count(content.link) == 0) continue;
    checked.links.emplace(content.link, content.linkPlace);
  }
}

// What is wrong in one box is no reason to keep silent about the others. Ways may lead through it.
void checkSource(const SourceFile& file, const Catalogue& catalogue,
                 const SourceCheck& furtherCheck, CheckedChart& checked) {
  const std::optional<ChartSource> source = readInPart(file, catalogue, checked.found);
  if (!source) return;
  const bool isWhole = !checked.found.hasErrors();
  if (isWhole) compile(*source, checked.found);
  checked.place = source->chartPlace;
  checked.mayBeUnlinked = source->isEntry;
  const bool hasNames = !checked.name.empty() && !source->chart.empty();
  if (hasNames) checkFileName(*source, file.name(), checked.found);
  const ReadChart chart = readChartOf(*source, file);
  checkTexts(chart, catalogue, checked);
  checkConditions(*source, checked.found);
  if (furtherCheck) furtherCheck(*source, file, checked.found);
  if (!isWhole) return checkBoxes(chart, checked.found);
  checkWays(chart, checked.found);
}

// Texts don't depend on cells, nor does their meaning.
void checkFv(const SourceFile& file, const Catalogue& catalogue, CheckedChart& checked) {
  const std::optional<FvFile> read = readFv(file, checked.found);
  if (!read) return;
  ReadChart chart = textsOf(*read, file);
  checkTexts(chart, catalogue, checked);
  if (!read->hasAllCells) return;
  if (!checkSize(*read, file, checked.found)) return;  // no reader gets as far as a walk
  const std::size_t errors = checked.found.count(Severity::error);
  const auto exits = checkWalk(*read, file, checked.found);
  if (checked.found.count(Severity::error) > errors) return;
  addBoxes(chart, *read, exits, file);
  checkWays(chart, checked.found);
}

}  // namespace

CheckedChart checkChart(const SourceFile& file, const Catalogue& catalogue,
                        const SourceCheck& furtherCheck) {
  CheckedChart checked;
  const fs::path path = file.name();
  if (path.has_extension()) checked.name = path.stem().string();
  checked.mayBeUnlinked = true;
  if (path.extension() == ".fv") {
    checkFv(file, catalogue, checked);
  } else {
    checkSource(file, catalogue, furtherCheck, checked);
  }
  return checked;
}

void checkLinks(CheckedChart& chart, const std::set<std::string>& there) {
  for (const auto& [name, place] : chart.links) {
    if (there.count(name) > 0) continue;
    chart.found.add(Code::linkWithoutFile, place, "the chart " + name + " has no file here",
                    "write " + name + ".yaml, or take the link away");
  }
}

void noteUnlinked(std::vector<CheckedChart>& charts) {
  const auto isBroken = [](const CheckedChart& chart) { return chart.found.hasErrors(); };
  if (std::any_of(charts.begin(), charts.end(), isBroken)) return;
  std::set<std::string> linked;
  for (const CheckedChart& chart : charts) {
    for (const auto& [name, place] : chart.links) {
      if (name != chart.name) linked.insert(name);
    }
  }
  for (CheckedChart& chart : charts) {
    if (chart.mayBeUnlinked || linked.count(chart.name) > 0) continue;
    chart.found.add(Code::nobodyLinks, chart.place, "no other chart links to " + chart.name,
                    "write \"entry: true\" if players come in from the table");
  }
}

}  // namespace tavrel::authoring
