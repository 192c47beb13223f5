#include "tests/reference/RandomChart.h"
#include "tests/unit/Catalogue.h"
#include "tests/worlds/Worlds.h"

namespace tavrel::worlds {
namespace {

using reference::What;

constexpr std::size_t longest = 6;
constexpr int mostSteps = 12;  // a path of six answers, and a few links

}  // namespace

Answers::Answers() : strings_{""} {
  for (const CatalogueEntry& entry : catalogue) names_.push_back(entry.fileName);
  for (std::size_t i = 0; i < strings_.size(); ++i) {
    if (strings_[i].size() == longest) break;
    for (const char answer : {'y', 'n'}) strings_.push_back(strings_[i] + answer);
  }
}

std::string Answers::file(std::size_t number) const {
  reference::Choices choices(number);
  return reference::RandomChart(choices, names_).file();
}

void Answers::tryChart(std::size_t index, Sheet& sheet) const {
  for (const std::string& answers : strings_) {
    reference::Request start{What::startNewPath};
    start.numbers[0] = static_cast<std::int64_t>(index);
    start.text = answers;
    sheet.ask(start);
    for (int step = 0; step < mostSteps; ++step) sheet.ask({What::moveAlongPath});
  }
  sheet.compareEverything();
}

}  // namespace tavrel::worlds
