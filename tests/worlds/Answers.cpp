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
  for (std::size_t i = 0; i < strings_.size(); ++i) {
    if (strings_[i].size() == longest) break;
    for (const char answer : {'y', 'n'}) strings_.push_back(strings_[i] + answer);
  }
}

std::string Answers::file(std::size_t number) const {
  reference::Choices choices(number);
  return reference::RandomChart(choices, catalogueNames()).file();
}

void Answers::tryChart(std::size_t index, Sheet& sheet) const {
  for (const std::string& answers : strings_) {
    sheet.ask(reference::startRequest(static_cast<std::int64_t>(index), answers));
    for (int step = 0; step < mostSteps; ++step) sheet.ask({What::moveAlongPath});
  }
  sheet.compareEverything();
}

}  // namespace tavrel::worlds
