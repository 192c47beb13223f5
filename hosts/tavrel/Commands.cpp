#include "hosts/tavrel/Commands.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iomanip>
#include <iostream>

#include "hosts/tavrel/Answers.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/Introduction.h"
#include "hosts/tavrel/Library.h"
#include "hosts/tavrel/LineWalk.h"
#include "hosts/tavrel/ScreenWalk.h"
#include "hosts/tavrel/Terminal.h"
#include "hosts/tavrel/Words.h"

namespace tavrel {
namespace {

using Answers = std::optional<std::string>;

Library libraryOf(const Arguments& arguments) {
  return Library(arguments.charts ? std::filesystem::path(*arguments.charts)
                                  : defaultChartsDirectory());
}

void walkOnScreen(const Library& library, const CatalogueEntry* chart, const Answers& answers) {
  Terminal terminal;
  ScreenWalk walk(library, terminal, localeCharset());
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
  if (std::ferror(stdin)) {
    throw Failure(std::string("cannot read the commands from standard input: ") +
                  std::strerror(errno));
  }
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

void walkCharts(const Arguments& arguments) {
  const Library library = libraryOf(arguments);
  Answers answers;
  if (arguments.answers) answers = checkedAnswers(*arguments.answers);
  const CatalogueEntry* chart = arguments.name.empty() ? nullptr : &library.find(arguments.name);
  if (chart) requireFile(library, *chart);
  if (!chart && answers) {
    throw Failure(
        "answers need the name of the flowchart to lay them onto: "
        "tavrel walk NAME --answers " +
        *answers);
  }
  if (Terminal::isUsable()) {
    walkOnScreen(library, chart, answers);
  } else {
    walkInLines(library, chart, answers);
  }
}

}  // namespace tavrel
