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

std::vector<Request> conversationAbout(std::int32_t index) {
  return {
      reference::startRequest(index, "ynyn"),
      {What::allElements},
      {What::bounds},
      {What::intro, 0, {index}},
      {What::moveAlongPath},
      {What::moveBack},
      {What::moveAlongPath},
      {What::moveAlongPath},
      {What::moveNo},
      reference::resetRequest(index),
      {What::moveYes},
      {What::moveXMinus},
      {What::commentary},
  };
}

}  // namespace tavrel
