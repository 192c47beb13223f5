#include "hosts/tavrel/Draw.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include "drawing/SvgChart.h"
#include "drawing/TextChart.h"
#include "hosts/tavrel/Answers.h"
#include "hosts/tavrel/ChartToDraw.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/OutputFile.h"
#include "hosts/tavrel/PictureModule.h"
#include "hosts/tavrel/Walk.h"
#include "hosts/tavrel/Words.h"
#include "text/Text.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

enum class Format { svg, pdf, png, txt };

// In the order of their numbers.
constexpr std::string_view formatNames[] = {"svg", "pdf", "png", "txt"};

// Of a drawing with characters.
constexpr std::int64_t mostCharacters = 64'000'000;
constexpr std::int64_t longestLine = 1'000'000;

std::string_view nameOf(Format format) { return formatNames[static_cast<std::size_t>(format)]; }

std::optional<Format> formatNamed(std::string_view name) {
  for (const Format format : {Format::svg, Format::pdf, Format::png, Format::txt}) {
    if (nameOf(format) == name) return format;
  }
  return std::nullopt;
}

bool goesToStandardOutput(const DrawArguments& arguments) {
  return !arguments.output || *arguments.output == "-";
}

Format formatOf(const DrawArguments& arguments) {
  if (!arguments.format && goesToStandardOutput(arguments)) return Format::svg;
  const std::string extension = fs::path(arguments.output.value_or("")).extension().string();
  const std::string name = arguments.format
                               ? *arguments.format
                               : extension.substr(std::min<std::size_t>(1, extension.size()));
  if (const auto format = formatNamed(name)) return *format;
  throw Failure("'" + *arguments.output +
                "' doesn't end in .svg, .pdf, .png or .txt; name the format with --format");
}

void checkUsage(const DrawArguments& arguments, Format format) {
  if (arguments.page && format != Format::pdf) {
    throw Failure("--page is for PDF alone; name a file that ends in .pdf, or --format pdf");
  }
  if (arguments.theme && format == Format::txt) {
    throw Failure("--theme is for pictures; text has no colours");
  }
  const bool isBinary = format == Format::pdf || format == Format::png;
  if (isBinary && goesToStandardOutput(arguments) && isatty(STDOUT_FILENO) != 0) {
    throw Failure("a terminal can't show a picture; name a file with -o FILE");
  }
}

[[noreturn]] void failAtPlace(const std::string& text) {
  throw Failure("--at takes a box's column and row, as in --at 0,2; '" + text + "' is neither");
}

std::int64_t coordinate(std::string_view digits, const std::string& text) {
  std::int32_t value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
  if (error != std::errc() || stop != end) failAtPlace(text);
  return value;
}

GridPlace placeAt(const std::string& text, const Tavrel& navigator) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) failAtPlace(text);
  const std::string_view view = text;
  const GridPlace place{coordinate(view.substr(0, comma), text),
                        coordinate(view.substr(comma + 1), text)};
  const auto found = navigator.elementsInBounds({place.x, place.x, place.y, place.y});
  if (!found.empty() && found.front().isNode()) return place;
  throw Failure("there is no box at " + text + "; the ids in an SVG drawing tell them all");
}

// Where the answers lead within the chart. Those that are left at a link go on in the next.
GridPlace endOfPath(Walk& walk, const std::string& answers) {
  std::size_t taken = 0;
  while (taken < answers.size() && !walk.box().nameOfNextFlowchart() &&
         walk.take(WalkStep::alongPath) == Outcome::moved) {
    ++taken;
  }
  const ScreenElement box = walk.box();
  if (taken < answers.size() && !box.nameOfNextFlowchart()) {
    std::cerr << "tavrel: " << leftOver(answers.substr(taken)) << '\n';
  }
  return {box.x(), box.y()};
}

// A file that was copied is named as the user did.
std::string refusalOf(const Walk& walk, const CatalogueEntry& entry, Outcome outcome,
                      const std::string& givenName, bool isCopy) {
  std::string refusal = entryRefusalOf(walk.library(), entry, outcome);
  const std::string file = walk.library().fileOf(entry).string();
  const std::size_t at = refusal.find(file);
  if (isCopy && at != std::string::npos) refusal.replace(at, file.size(), givenName);
  return refusal;
}

// Enters the chart, lays its path, and tells the place.
std::optional<GridPlace> enter(Walk& walk, const ChartToDraw& chart,
                               const DrawArguments& arguments) {
  const CatalogueEntry& entry = *chart.entry;
  const std::string answers = checkedAnswers(arguments.answers.value_or(""));
  const Outcome outcome = answers.empty() ? walk.enter(entry) : walk.enter(entry, answers);
  if (outcome != Outcome::moved) {
    throw Failure(refusalOf(walk, entry, outcome, arguments.chart, chart.folder != nullptr));
  }
  if (arguments.at) return placeAt(*arguments.at, walk.navigator());
  if (arguments.answers) return endOfPath(walk, answers);
  return std::nullopt;
}

// Text has no colours to light the place by: its frame's first corner becomes a mark.
void markPlace(TextPicture& line, const TextWindow& frame, Charset charset) {
  line.at(0, static_cast<int>(frame.left)).glyph = charset == Charset::utf8 ? "●" : "*";
}

// Line by line: a picture of all of them takes much more memory than its text.
std::string textOf(const Tavrel& navigator, const std::optional<GridPlace>& place,
                   Charset charset) {
  const TextChart chart(navigator, charset);
  const std::int64_t width = chart.width();
  const std::int64_t height = chart.height();
  if (width > longestLine || (height > 0 && width > mostCharacters / height)) {
    throw Failure("the drawing would be " + std::to_string(width) + " characters wide and " +
                  std::to_string(height) + " lines high, which is too large for text; draw an SVG");
  }
  const TextWindow lit = place ? chart.frameOf(place->x, place->y) : TextWindow{0, -1, 0, 0};
  std::string text;
  for (std::int64_t row = 0; row < height; ++row) {
    TextPicture line = chart.paint(navigator, {0, row, static_cast<int>(width), 1});
    if (row == lit.top) markPlace(line, lit, charset);
    text += line.line(0) + '\n';
  }
  return text;
}

// Also checked where the command line is read.
Theme themeNamed(std::string_view name) {
  if (name == "dark") return Theme::dark;
  if (name == "print") return Theme::print;
  return name == "two-colour" ? Theme::twoColour : Theme::light;
}

Paper paperNamed(std::string_view name) {
  if (name == "A4") return Paper::a4;
  return name == "Letter" ? Paper::letter : Paper::fit;
}

// Links lead from a picture to pictures of its kind.
std::string linkExtension(const DrawArguments& arguments, Format format) {
  const std::string own = fs::path(arguments.output.value_or("")).extension().string();
  return own.empty() ? "." + std::string(nameOf(format)) : own;
}

std::string draw(const Tavrel& navigator, Format format, const SvgOptions& options,
                 const DrawArguments& arguments) {
  if (format == Format::txt) {
    return textOf(navigator, options.place,
                  goesToStandardOutput(arguments) ? localeCharset() : Charset::utf8);
  }
  const SvgChart chart(navigator, options);
  if (format == Format::svg) return chart.svg();
  const PictureMakers& make = pictureMakers();
  try {
    if (format == Format::png) return make.png(chart);
    return make.pdf(chart, {paperNamed(arguments.page.value_or("fit")), options.title});
  } catch (const std::runtime_error& error) {
    throw Failure("cannot draw '" + arguments.chart + "': " + error.what());
  }
}

}  // namespace

int drawChart(const DrawArguments& arguments, const std::optional<std::string>& chartsDirectory) {
  const Format format = formatOf(arguments);
  checkUsage(arguments, format);
  const std::optional<ChartToDraw> chart = chartToDraw(
      arguments.chart, chartsDirectory ? fs::path(*chartsDirectory) : defaultChartsDirectory());
  if (!chart) return 1;
  Walk walk(chart->library);
  SvgOptions options;
  options.title = chart->title;
  options.theme = themeNamed(arguments.theme.value_or("light"));
  options.place = enter(walk, *chart, arguments);
  options.linkExtension = linkExtension(arguments, format);
  writeOutput(arguments.output.value_or("-"), draw(walk.navigator(), format, options, arguments));
  return 0;
}

}  // namespace tavrel
