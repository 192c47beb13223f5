#include "hosts/tavrel/Judge.h"

#include <unistd.h>

#include <iostream>
#include <optional>
#include <string>

#include "hosts/tavrel/Words.h"
#include "text/NearMiss.h"
#include "text/Text.h"

namespace tavrel {
namespace {

using namespace hands;

std::optional<Answer> answerIn(const std::string& line) {
  const std::string word = lowerCase(line);
  if (word == "y" || word == "yes") return Answer::yes;
  if (word == "n" || word == "no") return Answer::no;
  return std::nullopt;
}

std::optional<Answer> ask(const HandBox& box) {
  std::string question;
  for (const std::string& each : box.text) question += each + " ";
  std::string line;
  while (std::cerr << printable(question, localeCharset()) << "(y or n) " &&
         std::getline(std::cin, line)) {
    if (const auto answer = answerIn(line)) return answer;
  }
  return std::nullopt;
}

}  // namespace

HandWalk::Judge askOnTerminal() {
  if (!isatty(STDIN_FILENO) || !isatty(STDERR_FILENO)) {
    return [](const HandChart&, BoxIndex) { return std::nullopt; };
  }
  return [](const HandChart& chart, BoxIndex box) { return ask(chart[box]); };
}

}  // namespace tavrel
