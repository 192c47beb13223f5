#include "hosts/tavrel/Commands.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iomanip>
#include <iostream>

#include "hosts/tavrel/Answers.h"
#include "hosts/tavrel/EndingSignals.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/Introduction.h"
#include "hosts/tavrel/Library.h"
#include "hosts/tavrel/LineWalk.h"
#include "hosts/tavrel/ScreenWalk.h"
#include "hosts/tavrel/SourceCharts.h"
#include "hosts/tavrel/Terminal.h"
#include "hosts/tavrel/Words.h"

namespace tavrel {
namespace {

using Answers = std::optional<std::string>;

std::filesystem::path directoryOf(const Arguments& arguments) {
  return arguments.charts ? std::filesystem::path(*arguments.charts) : defaultChartsDirectory();
}

Library libraryOf(const Arguments& arguments) { return Library(directoryOf(arguments)); }

void walkOnScreen(const Library& library, const CatalogueEntry* chart, const Answers& answers,
                  SourceCharts* watched) {
  Terminal terminal;
  ScreenWalk walk(library, terminal, localeCharset(), watched);
  if (chart) {
    walk.walk(*chart, answers.value_or(""));
  } else {
    walk.walkFromList();
  }
}

// A person sits at a terminal that can't place its cursor.
bool isConversation() { return isatty(STDIN_FILENO) && isatty(STDOUT_FILENO); }

void walkInLines(const Library& library, const CatalogueEntry* chart, const Answers& answers) {
  LineWalk walk(library, std::cout, localeCharset());
  if (!chart && isConversation()) return walk.converseFromList(std::cin);
  if (!chart) {
    throw Failure(
        "without a screen to pick from, walk needs the name of a flowchart; "
        "'tavrel list' shows them all");
  }
  if (answers) return walk.follow(*chart, *answers);
  if (isConversation()) return walk.converse(*chart, std::cin);
  walk.obey(*chart, std::cin);
  if (std::ferror(stdin) && EndingSignals::noted() == 0) {
    throw Failure(std::string("cannot read the commands from standard input: ") +
                  std::strerror(errno));
  }
}

bool endsIn(const std::string& name, const char* extension) {
  return std::filesystem::path(name).extension() == extension;
}

int walkSource(const Arguments& arguments, const Answers& answers) {
  const bool isOnScreen = Terminal::isUsable();
  if (arguments.watches && !isOnScreen) throw Failure("--watch needs the screen of a terminal");
  SourceCharts charts(arguments.name, directoryOf(arguments));
  const bool isFine = charts.compile();
  std::cerr << charts.said();
  if (!isFine) return 1;
  const Library library(charts.folder(), charts.origin());
  const CatalogueEntry* const chart = &library.find(charts.chart());
  if (isOnScreen) {
    walkOnScreen(library, chart, answers, arguments.watches ? &charts : nullptr);
  } else {
    const EndingSignals signals([] {});  // so that the folder is removed first
    walkInLines(library, chart, answers);
  }
  return 0;
}

}  // namespace

void listCharts(const Arguments& arguments) {
  const Library library = libraryOf(arguments);
  std::cout << "INDEX  NAME      FILE  TITLE\n";
  for (const CatalogueEntry& entry : library.entries()) {
    std::cout << std::setw(5) << std::right << entry.index << "  " << std::setw(8) << std::left
              << entry.name << "  " << (library.hasFile(entry) ? "yes " : "no  ") << "  "
              << entry.title << '\n';
  }
}

void printIntroduction(const Arguments& arguments) {
  const Library library = libraryOf(arguments);
  const CatalogueEntry& chart = library.find(arguments.name);
  for (const std::string& line : introductionOf(library, chart, localeCharset())) {
    std::cout << line << '\n';
  }
}

int walkCharts(const Arguments& arguments) {
  Answers answers;
  if (arguments.answers) answers = checkedAnswers(*arguments.answers);
  if (isSource(arguments.name)) return walkSource(arguments, answers);
  if (arguments.watches) {
    throw Failure("only a source can be watched: tavrel walk NAME.yaml --watch");
  }
  if (endsIn(arguments.name, ".fv")) {
    throw Failure("walk takes the name of a flowchart, without .fv; --charts names its folder");
  }
  const Library library = libraryOf(arguments);
  const CatalogueEntry* chart = arguments.name.empty() ? nullptr : &library.find(arguments.name);
  if (chart) requireFile(library, *chart);
  if (!chart && answers) {
    throw Failure(
        "answers need the name of the flowchart to lay them onto: "
        "tavrel walk NAME --answers " +
        *answers);
  }
  if (Terminal::isUsable()) {
    walkOnScreen(library, chart, answers, nullptr);
  } else {
    walkInLines(library, chart, answers);
  }
  return 0;
}

}  // namespace tavrel
