#include "tests/support/Conversation.h"

#include <algorithm>
#include <utility>

namespace tavrel {
namespace {

const std::string kIndent = "  ";

bool startsWith(const std::string& line, const std::string& start) {
  return line.compare(0, start.size(), start) == 0;
}

/// Whether the line's last byte is a backslash that isn't itself escaped.
bool endsInBackslash(const std::string& line) {
  const auto isBackslash = [](char byte) { return byte == '\\'; };
  const auto end = std::find_if_not(line.rbegin(), line.rend(), isBackslash);
  return (end - line.rbegin()) % 2 == 1;
}

/// The bytes that a line `| TEXT` of a chart stands for.
std::string chartBytes(const std::string& line) {
  std::string text = line.substr(startsWith(line, "| ") ? 2 : 1);
  const bool isOpen = endsInBackslash(text);
  if (isOpen) text.pop_back();
  return unescape(text) + (isOpen ? "" : "\n");
}

/// The lines without their line feeds; the last one may lack its own.
std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

std::size_t firstDifference(const Answer& one, const Answer& other) {
  const auto ends = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
  return static_cast<std::size_t>(ends.first - one.begin());
}

std::string indented(const std::string& title, const Answer& answer) {
  std::string text = kIndent + title + "\n";
  for (const std::string& line : answer) text += kIndent + kIndent + line + "\n";
  return text;
}

}  // namespace

ConversationError::ConversationError(const std::string& file, std::size_t line,
                                     const std::string& message)
    : std::runtime_error(file + ":" + std::to_string(line) + ": " + message) {}

Conversation::Conversation(std::string name, const std::string& text) : name_(std::move(name)) {
  for (std::string& line : linesOf(text)) {
    lines_.push_back(std::move(line));
    try {
      parseLine(lines_.back());
    } catch (const NotationError& error) {
      throw ConversationError(name_, lines_.size(), error.what());
    }
  }
}

void Conversation::parseLine(const std::string& line) {
  if (line.empty() || line[0] == '#') return;
  if (line[0] == '|') return parseChartLine(line);
  if (startsWith(line, kIndent)) return parseAnswerLine(line);
  parseOperationLine(line);
}

void Conversation::parseChartLine(const std::string& line) {
  if (steps_.empty() || steps_.back().answerLine != lines_.size()) {
    throw NotationError("a line of a chart must follow its operation");
  }
  steps_.back().operation.chart += chartBytes(line);
  ++steps_.back().answerLine;
}

void Conversation::parseAnswerLine(const std::string& line) {
  if (steps_.empty() || steps_.back().answerLine + steps_.back().expected.size() != lines_.size()) {
    throw NotationError("an answer must follow its operation");
  }
  steps_.back().expected.push_back(line.substr(kIndent.size()));
}

void Conversation::parseOperationLine(const std::string& line) {
  if (line[0] == ' ') throw NotationError("an answer is indented by two blanks");
  steps_.push_back({parseOperation(line), {}, lines_.size(), lines_.size() + 1});
}

std::string Conversation::differences(const std::vector<Answer>& answers) const {
  std::string report;
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    const Step& step = steps_[i];
    if (step.expected == answers[i]) continue;
    const std::size_t line = step.answerLine + firstDifference(step.expected, answers[i]);
    report += name_ + ":" + std::to_string(line) + ": " + lines_[step.line - 1] + "\n" +
              indented("expected", step.expected) + indented("got", answers[i]);
  }
  return report;
}

std::string Conversation::withAnswers(const std::vector<Answer>& answers) const {
  std::string text;
  std::size_t copied = 0;
  const auto copyUpTo = [&](std::size_t end) {
    for (; copied < end; ++copied) text += lines_[copied] + "\n";
  };
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    copyUpTo(steps_[i].answerLine - 1);
    for (const std::string& line : answers[i]) text += kIndent + line + "\n";
    copied += steps_[i].expected.size();
  }
  copyUpTo(lines_.size());
  return text;
}

}  // namespace tavrel
