#include "hosts/tavrel/LineWalk.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>

#include "hosts/tavrel/Answers.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/Words.h"
#include "text/NearMiss.h"

namespace tavrel {
namespace {

constexpr const char* prompt = "? ";

std::string unknownCommand(const std::string& command) {
  return "unknown command '" + command +
         "'; the commands are y, n, b, r, next, follow, chart NAME, q";
}

// Without the blanks at its ends, and the carriage return of a foreign line end.
std::string trimmed(const std::string& line) {
  constexpr const char* blanks = " \t\r";
  const std::size_t first = line.find_first_not_of(blanks);
  if (first == std::string::npos) return "";
  return line.substr(first, line.find_last_not_of(blanks) - first + 1);
}

}  // namespace

LineWalk::LineWalk(const Library& library, std::ostream& out, Charset charset)
    : walk_(library), out_(out), charset_(charset) {}

void LineWalk::obey(const CatalogueEntry& chart, std::istream& in) {
  enterFirst(chart, "");
  std::size_t number = 1;
  for (std::string line; std::getline(in, line); ++number) {
    const std::string command = trimmed(line);
    if (command == "q") return;
    if (isCommand(command)) continue;
    throw Failure("line " + std::to_string(number) + ": " + unknownCommand(command));
  }
}

void LineWalk::converse(const CatalogueEntry& chart, std::istream& in) {
  enterFirst(chart, "");
  std::string line;
  while (out_ << prompt << std::flush && std::getline(in, line)) {
    const std::string command = trimmed(line);
    if (command == "q") return;
    if (!isCommand(command)) say(unknownCommand(command));
  }
}

void LineWalk::converseFromList(std::istream& in) {
  tellList();
  std::string line;
  while (out_ << "chart" << prompt << std::flush && std::getline(in, line)) {
    const std::string name = trimmed(line);
    if (name == "q") return;
    try {
      const CatalogueEntry& chart = walk_.library().find(name);
      requireFile(walk_.library(), chart);
      return converse(chart, in);
    } catch (const Failure& failure) {
      say(failure.what());
    }
  }
}

void LineWalk::tellList() {
  const Library& library = walk_.library();
  for (const CatalogueEntry& entry : library.entries()) {
    if (library.hasFile(entry)) out_ << entry.name << ": " << entry.title << '\n';
  }
  out_ << '\n';
}

void LineWalk::follow(const CatalogueEntry& chart, const std::string& answers) {
  enterFirst(chart, answers);
  const std::string left = walkPath(answers);
  if (!left.empty()) say(leftOver(left));
}

void LineWalk::follow(const HandGuide& guide) {
  enterFirst(guide.chart(), guide.answers(guide.steps().size()));
  for (const HandGuide::Step& step : guide.steps()) {
    say(step.reason);
    if (!takeAlongPath()) break;
  }
  say(guide.result());
}

// Walks the path laid and returns the answers that were left over.
std::string LineWalk::walkPath(std::string answers) {
  std::set<std::int64_t> enteredSinceAnswer;
  while (!answers.empty()) {
    const bool leadsOn = walk_.box().nameOfNextFlowchart().has_value();
    if (!takeAlongPath()) break;
    if (!leadsOn) {
      answers.erase(0, 1);
      enteredSinceAnswer.clear();
    } else if (!enteredSinceAnswer.insert(walk_.chart().index).second) {
      say("the flowcharts lead into one another in a circle");
      break;
    }
  }
  return answers;
}

bool LineWalk::takeAlongPath() {
  const Outcome outcome = walk_.take(WalkStep::alongPath);
  if (outcome == Outcome::moved) {
    tellBox();
  } else if (outcome != Outcome::stayed) {
    say(refusalOf(walk_, WalkStep::alongPath, outcome));
  }
  return outcome == Outcome::moved;
}

void LineWalk::enterFirst(const CatalogueEntry& chart, const std::string& answers) {
  const Outcome outcome = answers.empty() ? walk_.enter(chart) : walk_.enter(chart, answers);
  if (outcome != Outcome::moved) throw Failure(entryRefusalOf(walk_.library(), chart, outcome));
  tellBox();
}

// Obeys a line, if it is a command or empty.
bool LineWalk::isCommand(const std::string& line) {
  static const std::map<std::string, WalkStep> steps = {
      {"y", WalkStep::yes}, {"yes", WalkStep::yes}, {"n", WalkStep::no},
      {"no", WalkStep::no}, {"r", WalkStep::root},  {"next", WalkStep::alongPath}};
  constexpr std::size_t chartLength = 6;  // "chart "
  if (const auto step = steps.find(lowerCase(line)); step != steps.end()) {
    take(step->second);
  } else if (line == "b") {
    back();
  } else if (line == "follow") {
    followLink();
  } else if (line.compare(0, chartLength, "chart ") == 0) {
    enter(trimmed(line.substr(chartLength)));
  } else {
    return line.empty();
  }
  return true;
}

void LineWalk::take(WalkStep step) {
  const Outcome outcome = walk_.take(step);
  if (outcome != Outcome::moved) return say(refusalOf(walk_, step, outcome));
  tellBox();
}

void LineWalk::followLink() {
  const Outcome outcome = walk_.followLink();
  if (outcome != Outcome::moved) return say(linkRefusalOf(walk_, outcome));
  tellBox();
}

void LineWalk::back() {
  if (walk_.back() != Outcome::moved) return say("the walk began here");
  tellBox();
}

void LineWalk::enter(const std::string& nameOrTitle) try {
  const CatalogueEntry& chart = walk_.library().find(nameOrTitle);
  const Outcome outcome = walk_.enter(chart);
  if (outcome != Outcome::moved) return say(entryRefusalOf(walk_.library(), chart, outcome));
  tellBox();
} catch (const Failure& unknown) {
  say(unknown.what());
}

void LineWalk::tellChart() {
  const CatalogueEntry& chart = walk_.chart();
  if (toldChart_ == chart.name) return;
  toldChart_ = chart.name;
  out_ << "== " << chart.name << ": " << chart.title << "\n\n";
}

void LineWalk::tellBox() {
  tellChart();
  const ScreenElement box = walk_.box();
  for (const std::string& line : readableLines([&] { return box.boxText(); })) {
    out_ << "| " << printable(line, charset_) << '\n';
  }
  for (const std::string& line : readableLines([&] { return box.commentaryText(); })) {
    out_ << "  " << printable(line, charset_) << '\n';
  }
  out_ << "> " << printable(choicesOf(box), charset_) << "\n\n";
}

void LineWalk::say(const std::string& clause) {
  out_ << "* " << printable(sentence(clause), charset_) << "\n\n";
}

}  // namespace tavrel
