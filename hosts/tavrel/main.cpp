// The command: what may stand on the command line, and how the program ends.

#include <CLI/CLI.hpp>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstring>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <utility>

#include "facade/Tavrel.h"
#include "hosts/tavrel/Bid.h"
#include "hosts/tavrel/Check.h"
#include "hosts/tavrel/Commands.h"
#include "hosts/tavrel/Compile.h"
#include "hosts/tavrel/Draw.h"
#include "hosts/tavrel/EndingSignals.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/Library.h"
#include "hosts/tavrel/Prove.h"
#include "hosts/tavrel/Quiz.h"
#include "hosts/tavrel/Words.h"
#include "text/Text.h"

namespace tavrel {
namespace {

// What the subcommands are told, and how one ended.
struct Invocation {
  Arguments arguments;
  CompileArguments compile;
  CheckArguments check;
  DrawArguments draw;
  BidArguments bid;
  QuizArguments quiz;
  ProveArguments prove;
  int status = 0;
};

// Options of the program may stand behind a subcommand as well as before it.
CLI::App* addCommand(CLI::App& app, const char* name, const char* what, std::function<void()> run) {
  CLI::App* command = app.add_subcommand(name, what);
  command->fallthrough();
  command->callback(std::move(run));
  return command;
}

CLI::App* addCommand(CLI::App& app, const Arguments& arguments, const char* name, const char* what,
                     void (*run)(const Arguments&)) {
  return addCommand(app, name, what, [&arguments, run] { run(arguments); });
}

void defineCompile(CLI::App& app, Invocation& invocation) {
  CompileArguments& arguments = invocation.compile;
  CLI::App* compile = addCommand(app, "compile", "Make flowchart files of sources", [&invocation] {
    invocation.status = compileSources(invocation.compile);
  });
  compile->add_option("SOURCE", arguments.sources, "Sources (NAME.yaml), or - for standard input")
      ->required();
  compile
      ->add_option("-o,--output", arguments.output,
                   "The file to write, a folder for NAME.fv, or - for standard output; without "
                   "it, NAME.fv beside its source")
      ->type_name("FILE|DIR");
  compile->add_flag("--watch", arguments.watches, "Compile again whenever a source is saved");
}

void defineCheck(CLI::App& app, Invocation& invocation) {
  CheckArguments& arguments = invocation.check;
  CLI::App* check = addCommand(app, "check", "Say what is wrong with charts", [&invocation] {
    const auto& charts = invocation.arguments.charts;
    invocation.status =
        checkCharts(invocation.check, charts ? *charts : defaultChartsDirectory().string());
  });
  check->add_option("FILE", arguments.paths,
                    "Sources, .fv files, folders of both, or - for a source from standard input; "
                    "without any, the charts directory");
  check->add_flag("--json", arguments.asJson, "Print a JSON array");
  check->add_flag("--strict", arguments.isStrict, "Let warnings count for the exit status");
}

void defineDraw(CLI::App& app, Invocation& invocation) {
  DrawArguments& arguments = invocation.draw;
  CLI::App* draw = addCommand(app, "draw", "Draw a flowchart into a file", [&invocation] {
    invocation.status = drawChart(invocation.draw, invocation.arguments.charts);
  });
  draw->add_option("NAME|FILE", arguments.chart,
                   "A flowchart's name or title, a source (.yaml), or a flowchart file (.fv)")
      ->required();
  draw->add_option("-o,--output", arguments.output,
                   "The file to write; without it, or with -, standard output")
      ->type_name("FILE");
  draw->add_option("--format", arguments.format,
                   "svg, pdf, png or txt; without it, what the file's name ends in, or svg")
      ->check(CLI::IsMember({"svg", "pdf", "png", "txt"}))
      ->type_name("FORMAT");
  draw->add_option("--answers", arguments.answers,
                   "Answers (y and n) whose path is lit, and the box they lead to")
      ->type_name("yyn...");
  draw->add_option("--at", arguments.at, "The column and row of the box to be lit as the place")
      ->type_name("X,Y");
  draw->add_option("--theme", arguments.theme, "light, dark, print (black on white) or two-colour")
      ->check(CLI::IsMember({"light", "dark", "print", "two-colour"}))
      ->type_name("THEME");
  draw->add_option("--page", arguments.page,
                   "The paper of a PDF: A4, Letter, or fit for a page of the drawing's size")
      ->check(CLI::IsMember({"A4", "Letter", "fit"}))
      ->type_name("PAGE");
}

void defineTable(CLI::App& command, TableArguments& table) {
  command.add_option("--auction", table.auction, "The calls so far, dealer first: \"1NT P 2C P\"")
      ->type_name("CALLS");
  command.add_option("--dealer", table.dealer, "N, E, S or W; without it, N")->type_name("SEAT");
  command.add_option("--vul", table.vulnerable, "Who is vulnerable: NS, EW, both or none")
      ->type_name("SIDE");
  command
      .add_option("--seat", table.seat,
                  "Whose the hand is: N, E, S or W; without it, of the player who calls next")
      ->type_name("SEAT");
  command.add_option("--partner", table.partner, "Partner's hand, for charts that go on with it")
      ->type_name("HAND");
}

void defineProve(CLI::App& app, Invocation& invocation) {
  ProveArguments& arguments = invocation.prove;
  CLI::App* prove = addCommand(app, "prove", "Prove charts by dealing hands", [&invocation] {
    const auto& charts = invocation.arguments.charts;
    invocation.status =
        proveCharts(invocation.prove, charts ? *charts : defaultChartsDirectory().string());
  });
  prove->add_option("CHART", arguments.charts,
                    "Names of charts, or sources (NAME.yaml); without any, all charts that say "
                    "anything of hands");
  prove->add_option("--deals", arguments.deals, "How many hands are dealt for each chart")
      ->check(CLI::Range(std::uint64_t{1}, std::uint64_t{1'000'000'000'000}))
      ->type_name("N");
  prove->add_option("--seed", arguments.seed, "Which hands: the same seed deals the same ones")
      ->type_name("N");
  prove
      ->add_option("--threads", arguments.threads,
                   "How many threads work; without it, as many as the machine runs at once")
      ->check(CLI::Range(1, 1024))
      ->type_name("N");
  prove->add_flag("--json", arguments.asJson, "Print JSON");
  prove
      ->add_option("--range", arguments.range,
                   "Only these deals of the seed, from A up to, and without, B")
      ->excludes("--deals")
      ->type_name("A..B");
  prove
      ->add_option("--merge", arguments.slices,
                   "Deal nothing, and add up what --range and --json have written")
      ->excludes("--range")
      ->excludes("--deals")
      ->excludes("--seed")
      ->type_name("FILE...");
  prove->add_flag("--update", arguments.updates,
                  "Write NAME.hands beside each chart: a hand for each of its ends");
}

void defineWalk(CLI::App& app, Invocation& invocation) {
  Arguments& arguments = invocation.arguments;
  CLI::App* walk = addCommand(app, "walk", "Walk a flowchart, box by box", [&invocation] {
    invocation.status = walkCharts(invocation.arguments);
  });
  walk->add_option("NAME", arguments.name,
                   "A flowchart's name or title, or a source (NAME.yaml); without it, pick from "
                   "the list");
  walk->add_option(
          "--answers", arguments.answers,
          "Answers (y and n) to lay out as a path: lit for Space on a terminal, and walked "
          "without one")
      ->type_name("yyn...");
  walk->add_flag("--watch", arguments.watches,
                 "Read a source again whenever it is saved, and stay at its box");
  walk->add_option("--hand", arguments.hand,
                   "A hand that answers by itself: a key a step on a terminal, all at once "
                   "without one")
      ->type_name("HAND");
  defineTable(*walk, arguments.table);
  walk->footer(
      "With input that is no terminal, a walk reads commands, one a line:\n"
      "  y, n        follow the yes or the no exit (yes, no)\n"
      "  b           one step back\n"
      "  r           to the root box\n"
      "  next        one box further along the prepared path\n"
      "  follow      into the flowchart that the box leads into\n"
      "  chart NAME  to another flowchart, by name or title\n"
      "  q           quit");
}

void defineBid(CLI::App& app, Invocation& invocation) {
  BidArguments& arguments = invocation.bid;
  CLI::App* bid = addCommand(app, "bid", "Say what a hand bids, and why", [&invocation] {
    invocation.status = bidHands(invocation.bid, invocation.arguments.charts);
  });
  bid->add_option(
         "HAND", arguments.hand,
         "A hand (AQ85.KJ7.KQ4.J62, spades first), a deal (\"N:… … … …\"), a file of deals "
         "(.pbn, .lin), or - for hands from standard input")
      ->required();
  bid->add_option(
      "CHART", arguments.chart,
      "A flowchart's name or title, or a source (NAME.yaml); without it, the one that is "
      "for the auction and the hand");
  defineTable(*bid, arguments.table);
  bid->add_flag("--explain", arguments.isExplained, "Print the commentary of each box too");
  bid->add_flag("--json", arguments.asJson,
                "Print all of it as JSON; of many hands, one line each");
  bid->footer(
      "From standard input come hands, one a line, or a file of deals; each has a line of the\n"
      "output, with tabs between call, hand, charts and answers. Of a deal it is the hand of the\n"
      "player who calls next, or of --seat.\n"
      "\n"
      "Exit status: 0 every hand has its call; 2 something can't be read, or no chart, or more "
      "than\n"
      "one, is for it; 3 a question takes judgement, and there is no terminal to ask on.");
}

void defineQuiz(CLI::App& app, Invocation& invocation) {
  QuizArguments& arguments = invocation.quiz;
  CLI::App* quiz = addCommand(app, "quiz", "Deal hands and ask for the call", [&invocation] {
    const auto& charts = invocation.arguments.charts;
    takeQuiz(invocation.quiz, charts ? *charts : defaultChartsDirectory().string());
  });
  quiz->add_option("CHART", arguments.charts,
                   "Names or titles of flowcharts; without any, all that hands can be dealt for");
  quiz->add_option("--n", arguments.questions, "How many questions; without it, 20")
      ->check(CLI::Range(1, 10000))
      ->type_name("COUNT");
  CLI::Option* teach =
      quiz->add_flag("--teach", "Say what was wrong at once; so it is without --exam");
  quiz->add_flag("--exam", arguments.isExam, "Say nothing until the end")->excludes(teach);
  quiz->add_option("--seed", arguments.seed, "The same number asks the same, for the same score")
      ->type_name("NUMBER");
  CLI::Option* report =
      quiz->add_flag("--report", arguments.reports, "Print the score so far, by flowchart and end");
  quiz->add_flag("--forget", arguments.forgets, "Forget the score so far")->excludes(report);
  quiz->footer(
      "Calls are typed as players write them: 1nt, 2c, p, x, xx. ? shows what else can be\n"
      "typed, q stops. The score is kept in $XDG_STATE_HOME/tavrel, or ~/.local/state/tavrel;\n"
      "ends that were missed come back sooner.");
}

void define(CLI::App& app, Invocation& invocation) {
  Arguments& arguments = invocation.arguments;
  app.require_subcommand(0, 1);
  app.set_version_flag("--version", std::string("tavrel ") + TavrelVersionString);
  app.add_option("--charts", arguments.charts, "The folder that holds the .fv files")
      ->type_name("DIR");
  addCommand(app, arguments, "list", "List the flowcharts: index, name, file or none, title",
             listCharts);
  addCommand(app, arguments, "intro", "Print the introduction of a flowchart", printIntroduction)
      ->add_option("NAME", arguments.name, "A flowchart's name or title")
      ->required();
  defineWalk(app, invocation);
  defineCompile(app, invocation);
  defineCheck(app, invocation);
  defineDraw(app, invocation);
  defineBid(app, invocation);
  defineQuiz(app, invocation);
  defineProve(app, invocation);
}

void parse(CLI::App& app, int argc, char** argv) try {
  app.parse(argc, argv);
  if (!app.get_subcommands().empty()) return;
  throw Failure(
      "list, intro, walk, compile, check, draw, bid, quiz or prove must stand here; "
      "'tavrel --help' shows the usage");
} catch (const CLI::Success& help) {
  app.exit(help);
} catch (const CLI::ParseError& error) {
  throw Failure(std::string(error.what()) + "; 'tavrel --help' shows the usage");
}

int fail(const std::string& what) {
  std::cout.exceptions(std::ios_base::goodbit);  // what can't be written now is lost
  std::cout.flush();
  return tellFailure(what);
}

int run(int argc, char** argv) try {
  Invocation invocation;
  CLI::App app("Walks you through contract-bridge bidding flowcharts.", "tavrel");
  define(app, invocation);
  parse(app, argc, argv);
  std::cout.flush();
  return invocation.status;
} catch (const std::ios_base::failure&) {
  return fail(std::string("cannot write to standard output: ") + std::strerror(errno));
} catch (const std::exception& error) {
  return fail(error.what());
}

}  // namespace
}  // namespace tavrel

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  std::setlocale(LC_NUMERIC, "C");
  std::signal(SIGPIPE, SIG_DFL);  // whoever reads no further ends the program, quietly
  std::cout.exceptions(std::ios_base::badbit | std::ios_base::failbit);
  const int status = tavrel::run(argc, argv);
  tavrel::EndingSignals::raiseNoted();
  return status;
}
