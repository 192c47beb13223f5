// The public operations of the engine and of the client interface, as values.

#ifndef TAVREL_TESTS_FAILURES_CALL_H
#define TAVREL_TESTS_FAILURES_CALL_H

#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "engine/CTavrel.h"
#include "facade/Tavrel.h"
#include "tests/failures/Model.h"
#include "tests/failures/Result.h"

namespace tavrel {

/// One operation with its arguments, for each subject that has it; the model has all.
struct Call {
  std::string name;
  std::function<Value(CTavrel&)> onEngine;
  std::function<Value(Tavrel&)> onFacade;
  std::function<Value(Model&)> onModel;

  const auto& on(const CTavrel*) const { return onEngine; }
  const auto& on(const Tavrel*) const { return onFacade; }
  const auto& on(const Model*) const { return onModel; }
};

/// Whether the subject has the operation.
template <typename Subject>
bool canMake(const Call& call) {
  return static_cast<bool>(call.on(static_cast<const Subject*>(nullptr)));
}

template <typename Subject>
Result make(const Call& call, Subject& subject) {
  return resultOf([&] { return call.on(&subject)(subject); });
}

/// Every public operation, with arguments that make it succeed, refuse and throw.
const std::vector<Call>& allCalls();

/// Calls that change nothing and tell what a navigator tells of its state.
const std::vector<Call>& callsThatShow();

/// Calls whose answers tell what else is held, of the flowcharts 0, 6 and 7 above all, and
/// whether the subject goes on as it should.
const std::vector<Call>& callsToGoOnWith();

Call startCall(std::int32_t index, const std::string& answers);
Call resetCall(std::int32_t index);
Call alongPathCall();
Call moveYesCall();
Call moveNoCall();
Call moveToRootCall();

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_CALL_H
