#include "tests/reference/Notation.h"

#include <cstddef>
#include <map>

#include "tests/reference/Comparison.h"
#include "tests/support/Conversation.h"
#include "tests/support/Notation.h"

namespace tavrel::reference {
namespace {

// --- Writing ----------------------------------------------------------------------

std::string chartLines(const std::string& bytes) {
  std::string lines;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = bytes.find('\n', begin);
    const std::string quoted = quote(bytes.substr(begin, end - begin));
    lines += "\n| " + quoted.substr(1, quoted.size() - 2);
    if (end == std::string::npos) return lines + "\\";
    begin = end + 1;
  }
  return lines;
}

std::string receiver(const Request& request) {
  return request.navigator == 0 ? "" : "navigator" + std::to_string(request.navigator);
}

std::string kept(const Request& request) { return "kept" + std::to_string(request.navigator); }

/// What stands before the operation's name.
std::string before(const Request& request) {
  const std::string name = receiver(request);
  const std::string asked = name.empty() ? "" : name + ".";
  switch (request.what) {
    case What::writeChart:
    case What::removeChart:
    case What::makeDirectory:
    case What::reverse:
      return "";
    case What::makeNavigator:
      return name.empty() ? "" : name + " = ";
    case What::keepCurrent:
      return kept(request) + " = " + asked;
    case What::keptProperties:
    case What::keptDescription:
      return kept(request) + ".";
    default:
      return asked;
  }
}

std::string pointers(const Request& request) {
  return std::string(" ") + (request.numbers[0] != 0 ? "x" : "-") + " " +
         (request.numbers[1] != 0 ? "y" : "-");
}

std::string argumentsOf(const Request& request) {
  std::string text;
  std::size_t next = 0;
  for (const char* kind = formOf(request.what).arguments; *kind != '\0'; ++kind) {
    if (*kind == 'p') return pointers(request);
    if (*kind == 'i') text += " " + std::to_string(request.numbers[next++]);
    if (*kind == 's') text += " " + quote(request.text);
    if (*kind == 'n') text += " " + request.text;
  }
  return text;
}

// --- Reading ----------------------------------------------------------------------

using Navigators = std::map<std::string, std::uint8_t>;

bool isGiven(const std::string& word) { return word != "-"; }

Request takeArguments(What what, const Operation& operation) {
  Request request{what};
  Arguments arguments(operation);
  std::size_t next = 0;
  for (const char* kind = formOf(what).arguments; *kind != '\0'; ++kind) {
    if (*kind == 'i') request.numbers[next++] = arguments.integer();
    if (*kind == 's') request.text = arguments.text();
    if (*kind == 'n') request.text = arguments.name();
    if (*kind != 'p') continue;
    request.numbers[0] = isGiven(arguments.name()) ? 1 : 0;
    request.numbers[1] = isGiven(arguments.name()) ? 1 : 0;
  }
  request.file = operation.chart;
  return request;
}

/// The form of that name, or none. keepCurrent shares its name, and isn't found.
const Form* formNamed(const std::string& name, Front front) {
  for (std::size_t i = 0; i < whatCount; ++i) {
    if (name == nameOf(static_cast<What>(i), front)) return &formOf(static_cast<What>(i));
  }
  return nullptr;
}

void insertCharts(std::string& text, const std::string& charts) {
  const std::string placeholder = "{charts}";
  const std::size_t at = text.find(placeholder);
  if (at != std::string::npos) text.replace(at, placeholder.size(), charts);
}

/// Adds the operation, unless it asks an element or ends a navigator: all that an element
/// can be asked is compared when it is got.
void addRequest(const Operation& operation, const std::string& charts, Navigators& navigators,
                Dialogue& dialogue) {
  const std::string& receiver = operation.name == "Tavrel" || operation.name == "CTavrel"
                                    ? operation.result
                                    : operation.receiver;
  if (operation.name == "CTavrel") dialogue.front = Front::engine;
  if (operation.name == "Tavrel" || operation.name == "CTavrel") {
    navigators.emplace(receiver, static_cast<std::uint8_t>(navigators.size()));
    if (navigators.size() > mostNavigators) {
      throw NotationError("more than " + std::to_string(mostNavigators) + " navigators");
    }
  }
  const bool isKept = operation.receiver.compare(0, 4, "kept") == 0;
  if (operation.name == "destroy") return;
  if (!receiver.empty() && !isKept && navigators.count(receiver) == 0) return;
  const Form* const form = formNamed(operation.name, dialogue.front);
  if (form == nullptr) {
    if (isKept) return;
    throw NotationError("unknown operation " + operation.name);
  }
  const bool keeps = operation.result.compare(0, 4, "kept") == 0;
  Request request = takeArguments(
      keeps && form->what == What::currentElement ? What::keepCurrent : form->what, operation);
  if (isKept || keeps) request.navigator = isKept && operation.receiver == "kept1" ? 1 : 0;
  if (!isKept && !receiver.empty()) request.navigator = navigators[receiver];
  insertCharts(request.text, charts);
  dialogue.requests.push_back(request);
}

}  // namespace

std::string lineOf(const Request& request, Front front) {
  return before(request) + nameOf(request.what, front) + argumentsOf(request) +
         (request.what == What::writeChart ? chartLines(request.file) : "");
}

Dialogue dialogueOf(const std::string& name, const std::string& text, const std::string& charts) {
  const Conversation conversation(name, text);
  Dialogue dialogue;
  for (const Step& step : conversation.steps()) {
    if (step.operation.name == "CTavrel") dialogue.front = Front::engine;
  }
  Navigators navigators{{"", std::uint8_t{0}}};
  for (const Step& step : conversation.steps()) {
    try {
      addRequest(step.operation, charts, navigators, dialogue);
    } catch (const NotationError& error) {
      throw ConversationError(name, step.line, error.what());
    }
  }
  return dialogue;
}

}  // namespace tavrel::reference
