#include "tests/failures/Company.h"

#include <optional>

#include "tests/reference/Dialogue.h"
#include "tests/reference/Notation.h"
#include "tests/reference/State.h"

namespace tavrel {
namespace {

using reference::Front;
using reference::Request;
using reference::What;

bool has(Front front, const Request& request) {
  return *reference::nameOf(request.what, front) != '\0';
}

Parting textOf(const std::optional<reference::StateDifference>& difference) {
  if (!difference) return "";
  return difference->what + ": " + difference->navigator + " instead of " + difference->reference;
}

bool isAlike(const Request& request, reference::Respondent& plain, reference::Respondent& real) {
  return plain.ask(request) == real.ask(request);
}

// A plain one and a real one with the same request.
template <typename Plain, typename Real>
Parting askBoth(const Request& request, Plain& plain, Real& real) {
  if (!isAlike(request, plain, real)) return "answer";
  return textOf(differenceAtCursor(plain.engine, real.engine()));
}

Request requestFor(What what, std::int64_t index = 0, const std::string& text = "") {
  Request request;
  request.what = what;
  request.numbers[0] = index;
  request.text = text;
  return request;
}

}  // namespace

Parting Company::ask(const Request& request) {
  Parting parting;
  if (has(Front::engine, request)) parting = askBoth(request, plainEngine_, engine_);
  if (parting.empty() && has(Front::facade, request)) {
    parting = askBoth(request, plainNavigator_, navigator_);
  }
  if (parting.empty()) return parting;
  return std::string(reference::nameOf(request.what, Front::facade)) + ": " + parting;
}

Parting Company::ask(const std::vector<Request>& requests) {
  for (const Request& request : requests) {
    if (Parting parting = ask(request); !parting.empty()) return parting;
  }
  return "";
}

Parting Company::lookEverywhere() {
  Parting parting = textOf(differenceAnywhere(plainEngine_.engine, engine_.engine()));
  if (!parting.empty()) return "engine, " + parting;
  return textOf(differenceAnywhere(plainNavigator_.engine, navigator_.engine()));
}

Request startRequest(std::int32_t index, const std::string& answers) {
  return requestFor(What::startNewPath, index, answers);
}

std::vector<Request> conversationAbout(std::int32_t index) {
  return {
      startRequest(index, "ynyn"),     requestFor(What::allElements),
      requestFor(What::bounds),        requestFor(What::intro, index),
      requestFor(What::moveAlongPath), requestFor(What::moveBack),
      requestFor(What::moveAlongPath), requestFor(What::moveAlongPath),
      requestFor(What::moveNo),        requestFor(What::reset, index),
      requestFor(What::moveYes),       requestFor(What::moveXMinus),
      requestFor(What::commentary),
  };
}

}  // namespace tavrel
