// What a call of an engine or a navigator gives back, as it came and as text.

#ifndef TAVREL_TESTS_FAILURES_RESULT_H
#define TAVREL_TESTS_FAILURES_RESULT_H

#include <cstdint>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

#include "engine/CTavrel.h"
#include "facade/Tavrel.h"

namespace tavrel {

/// The value of a call. Taking it over allocates nothing.
using Value = std::variant<std::monostate, std::int64_t, std::string, std::vector<std::string>,
                           sScreenElement, std::vector<sScreenElement>,
                           sFlowchartNameAndCoordinates, std::optional<std::int64_t>,
                           std::optional<std::string>, ScreenElement, std::vector<ScreenElement>,
                           ScreenBounds, std::tuple<std::string, std::int64_t, std::int64_t>>;

/// The value as text: what an engine and a navigator mean alike reads alike.
std::string textOf(const Value& value);

/// How a call ended.
struct Result {
  Value value;
  const char* thrown = "";  ///< the exception's type, without "std::"; "" for none
};

inline std::string textOf(const Result& answer) {
  return *answer.thrown == '\0' ? textOf(answer.value) : answer.thrown;
}

/// Makes a call and keeps what comes of it, allocating nothing on its own. An exception
/// that no call may throw passes.
template <typename Call>
Result resultOf(const Call& call) {
  try {
    return {call(), ""};
  } catch (const std::out_of_range&) {
    return {{}, "out_of_range"};
  } catch (const std::length_error&) {
    return {{}, "length_error"};
  } catch (const std::invalid_argument&) {
    return {{}, "invalid_argument"};
  } catch (const std::bad_alloc&) {
    return {{}, "bad_alloc"};
  }
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_RESULT_H
