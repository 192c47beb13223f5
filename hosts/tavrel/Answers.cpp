#include "hosts/tavrel/Answers.h"
#include "hosts/tavrel/Failure.h"

namespace tavrel {
namespace {

char checkedAnswer(const std::string& answers, std::size_t place) {
  switch (answers[place]) {
    case 'y':
    case 'Y':
      return 'y';
    case 'n':
    case 'N':
      return 'n';
    default:
      throw Failure("answers are y and n only; number " + std::to_string(place + 1) + " of '" +
                    answers + "' is neither");
  }
}

}  // namespace

std::string checkedAnswers(const std::string& answers) {
  std::string checked;
  for (std::size_t place = 0; place < answers.size(); ++place) {
    checked += checkedAnswer(answers, place);
  }
  return checked;
}

std::string leftOver(const std::string& answers) {
  const std::size_t count = answers.size();
  return std::to_string(count) + (count == 1 ? " answer was" : " answers were") + " left over: '" +
         answers + "'";
}

}  // namespace tavrel
