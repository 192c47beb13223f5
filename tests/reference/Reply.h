// What a request brings back, in a form that all sides share.

#ifndef TAVREL_TESTS_REFERENCE_REPLY_H
#define TAVREL_TESTS_REFERENCE_REPLY_H

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/conversations/Answer.h"
#include "tests/reference/Dialogue.h"

namespace tavrel::reference {

/// The exceptions that callers may tell apart: by type, and by the two texts prescribed.
enum class Thrown : std::uint8_t {
  nothing,
  outOfRange,
  startText,
  resetText,
  lengthError,
  invalidArgument,
};

struct Reply {
  Thrown thrown = Thrown::nothing;
  std::vector<std::int64_t> numbers;
  std::vector<std::optional<std::string>> texts;
  std::vector<ElementProperties> elements;
};

bool operator==(const Reply& a, const Reply& b);

/// What a request of this kind answers, in the notation of the conversations.
Answer answerOf(const Request& request, const Reply& reply);

/// Somebody to put requests to. An exception other than those of Thrown passes.
class Respondent {
 public:
  virtual ~Respondent() = default;
  Reply ask(const Request& request);

 private:
  virtual void answer(const Request& request, Reply& reply) = 0;
};

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_REPLY_H
