#include "tests/builds/Transcript.h"

#include "tests/conversations/Player.h"
#include "tests/conversations/replay.h"
#include "tests/support/Files.h"

namespace tavrel {
namespace {

std::string nameOf(const std::string& file) {
  const std::string name = file.substr(file.rfind('/') + 1);
  return name.substr(0, name.find('.'));
}

std::string written(const Conversation& conversation, const std::vector<Answer>& answers) {
  std::string text = "== " + nameOf(conversation.name()) + "\n";
  for (std::size_t i = 0; i < answers.size(); ++i) {
    const Step& step = conversation.steps()[i];
    text += std::to_string(step.line) + " " + step.operation.name + "\n";
    for (const std::string& line : answers[i]) text += "  " + line + "\n";
  }
  return text;
}

}  // namespace

Transcript transcriptOf(const std::vector<std::string>& files, const std::string& charts) {
  Transcript transcript;
  for (const std::string& file : files) {
    const Conversation conversation(file, readFile(file));
    const std::vector<Answer> answers = replay(conversation, *newPlayer(), charts);
    transcript.text += written(conversation, answers);
    transcript.differences += conversation.differences(answers);
  }
  return transcript;
}

}  // namespace tavrel
