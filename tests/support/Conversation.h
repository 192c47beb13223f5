// A conversation: a text file of operations, each followed by the answer expected.
// tests/conversations/README.md describes the notation.

#ifndef TAVREL_TESTS_SUPPORT_CONVERSATION_H
#define TAVREL_TESTS_SUPPORT_CONVERSATION_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/Operation.h"

namespace tavrel {

/// What is thrown for a conversation that can't be read or played. The message
/// starts with FILE:LINE.
class ConversationError : public std::runtime_error {
 public:
  ConversationError(const std::string& file, std::size_t line, const std::string& message);
};

/// An operation with the answer it shall get.
struct Step {
  Operation operation;
  Answer expected;
  std::size_t line;        ///< where the operation stands in the file, from 1
  std::size_t answerLine;  ///< where its answer begins, or would begin
};

class Conversation {
 public:
  /// Parses `text`. `name` stands for the file in messages. Throws
  /// ConversationError for the first line that doesn't follow the notation.
  Conversation(std::string name, const std::string& text);

  const std::string& name() const { return name_; }
  const std::vector<Step>& steps() const { return steps_; }

  /// A report of every step whose answer in `answers` isn't the one expected;
  /// empty when there is none. REQUIRES: one answer for each step.
  std::string differences(const std::vector<Answer>& answers) const;

  /// The conversation's text with its answers replaced, comments and blank lines
  /// as they were. REQUIRES: one answer for each step.
  std::string withAnswers(const std::vector<Answer>& answers) const;

 private:
  void parseLine(const std::string& line);
  void parseChartLine(const std::string& line);
  void parseAnswerLine(const std::string& line);
  void parseOperationLine(const std::string& line);

  std::string name_;
  std::vector<std::string> lines_;
  std::vector<Step> steps_;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_CONVERSATION_H
