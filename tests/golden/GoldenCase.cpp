#include "GoldenCase.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/support/Conversation.h"
#include "tests/support/Files.h"
#include "tests/support/GoldenFiles.h"

namespace tavrel {
namespace {

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

std::string takeName(const Operation& operation) {
  Arguments arguments(operation);
  const std::string name = arguments.name();
  arguments.finish();
  return name;
}

// A chart that many cases walk.
std::string goldenChart(const std::string& name) {
  return readFile(std::filesystem::path(TAVREL_GOLDEN) / "charts" / (name + ".fv"));
}

Answer playStep(const Operation& operation, const Places& places, const PlayStep& play) {
  const ChartDirectory& here = places.here();
  if (operation.name == "chart") {
    here.write(takeName(operation), operation.chart);
  } else if (operation.name == "source") {
    writeFile(here.path() / (takeName(operation) + ".yaml"), operation.chart);
  } else if (operation.name == "use") {
    here.write(takeName(operation), goldenChart(takeName(operation)));
  } else if (operation.name == "directoryInsteadOfChart") {
    here.makeDirectory(takeName(operation));
  } else {
    return play(operation, places);
  }
  return {};
}

std::vector<Answer> answersOf(const Conversation& steps, const PlayStep& play) {
  const Places places;
  std::vector<Answer> answers;
  for (const Step& step : steps.steps()) {
    try {
      answers.push_back(playStep(step.operation, places, play));
    } catch (const NotationError& error) {
      throw ConversationError(steps.name(), step.line, error.what());
    }
  }
  return answers;
}

}  // namespace

std::string Places::expanded(std::string text) const {
  return replaced(replaced(std::move(text), "{here}", here_.path().string()), "{charts}",
                  TAVREL_CHARTS);
}

std::vector<Word> Places::expanded(std::vector<Word> words) const {
  for (Word& word : words) word.text = expanded(word.text);
  return words;
}

std::string Places::abstracted(std::string text) const {
  text = replaced(std::move(text), here_.path().string(), "{here}");
  return replaced(std::move(text), TAVREL_CHARTS, "{charts}");
}

void playGoldenCase(const std::filesystem::path& file, const PlayStep& play) {
  const Conversation steps(file.string(), readFile(file));
  const std::vector<Answer> answers = answersOf(steps, play);
  if (isUpdatingGoldenFiles()) return writeFile(file, steps.withAnswers(answers));
  const std::string report = steps.differences(answers);
  EXPECT_TRUE(report.empty()) << report;
}

}  // namespace tavrel
