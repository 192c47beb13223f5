#include "hosts/tavrel/Quiz.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <random>

#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/InkedLines.h"
#include "hosts/tavrel/QuizCharts.h"
#include "hosts/tavrel/QuizRound.h"
#include "hosts/tavrel/QuizTable.h"
#include "hosts/tavrel/QuizWords.h"
#include "hosts/tavrel/ScoreFile.h"
#include "hosts/tavrel/Words.h"

namespace tavrel {
namespace {

using Names = std::vector<std::string>;

// The charts' names in the catalogue.
Names namesOf(const Names& namesOrTitles, const Library& library) {
  Names names;
  for (const std::string& each : namesOrTitles) names.push_back(library.find(each).name);
  return names;
}

bool isAmong(const std::string& chart, const Names& wanted) {
  return wanted.empty() || std::find(wanted.begin(), wanted.end(), chart) != wanted.end();
}

// What the ends of a chart are called; nothing if it can't be read any more.
std::map<std::string, std::string> endsOf(HandCharts& charts, const CatalogueEntry& entry) try {
  std::map<std::string, std::string> ends;
  const hands::HandChart& chart = charts.chart(entry);
  for (hands::BoxIndex box = 0; box < chart.boxes().size(); ++box) {
    ends.emplace(chart.nameOf(box), shownEnd(chart, box));
  }
  return ends;
} catch (const Failure&) {
  return {};
}

void report(const hands::Score& score, const Names& wanted, HandCharts& charts, InkedLines& out) {
  QuizTable table;
  std::string chart;
  std::map<std::string, std::string> ends;
  for (const auto& [name, end] : score.ends()) {
    if (!isAmong(name.chart, wanted)) continue;
    const CatalogueEntry& entry = charts.library().find(name.chart);
    if (chart != name.chart) ends = endsOf(charts, entry);
    chart = name.chart;
    const auto found = ends.find(name.end);
    table.add(entry.name + ": " + entry.title, found == ends.end() ? name.end : found->second,
              end.right, end.asked);
  }
  const Lines lines = table.lines();
  out.block(lines.empty() ? Lines{"Nothing has been asked yet."} : lines);
}

void forget(const ScoreFile& file, const Names& wanted, InkedLines& out) {
  std::uint64_t answers = 0;
  file.change([&](hands::Score& score) {
    const std::map<hands::EndName, hands::EndScore> ends = score.ends();
    for (const auto& [name, end] : ends) {
      if (isAmong(name.chart, wanted)) answers += score.forget(name.chart);
    }
  });
  out.line(answers == 0   ? "There was nothing to forget."
           : answers == 1 ? "Forgot 1 answer."
                          : "Forgot " + std::to_string(answers) + " answers.");
}

std::uint64_t anySeed() { return std::random_device()(); }

}  // namespace

void takeQuiz(const QuizArguments& arguments, const std::string& directory) {
  const Library library(directory);
  const Names names = namesOf(arguments.charts, library);
  HandCharts handCharts(library);
  const ScoreFile score;
  InkedLines out(std::cout, localeCharset());
  if (arguments.reports) return report(score.read(), names, handCharts, out);
  if (arguments.forgets) return forget(score, names, out);
  QuizCharts charts(handCharts, names);
  QuizRound round(charts, score, out, std::cin);
  round.play(arguments.questions, arguments.isExam,
             hands::Random(arguments.seed ? *arguments.seed : anySeed()));
}

}  // namespace tavrel
