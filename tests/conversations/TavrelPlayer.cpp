// Conversations with the C++ form of the client interface, facade/Tavrel.h.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "Answer.h"
#include "Player.h"
#include "facade/Tavrel.h"
#include "tests/support/Named.h"

namespace tavrel {
namespace {

// --- From the interface's values to answers ---------------------------------

using LinesOfElement = const std::vector<std::string>& (ScreenElement::*)() const&;

ElementProperties::Lines linesOrNothing(LinesOfElement lines, const ScreenElement& element) {
  try {
    return (element.*lines)();
  } catch (const std::invalid_argument&) {
    return std::nullopt;
  }
}

ElementProperties propertiesOf(const ScreenElement& element) {
  ElementProperties properties;
  properties.isNode = element.isNode();
  properties.isOnPath = element.isOnPath();
  properties.x = element.x();
  properties.y = element.y();
  properties.xOffset = element.xOffset();
  properties.yOffset = element.yOffset();
  properties.yesDirection = element.yesDirection();
  properties.noDirection = element.noDirection();
  properties.intoDirection = element.intoDirection();
  properties.outOfDirection = element.outOfDirection();
  properties.boxText = linesOrNothing(&ScreenElement::boxText, element);
  properties.commentaryText = linesOrNothing(&ScreenElement::commentaryText, element);
  properties.nameOfNextFlowchart = element.nameOfNextFlowchart();
  return properties;
}

template <typename Value>
Answer answerOf(const Value& value) {
  return {notation(value)};
}

Answer answerOf(const std::vector<std::string>& lines) { return listAnswer(lines); }

Answer answerOf(const ScreenBounds& bounds) {
  return {boundsNotation(bounds.minX, bounds.maxX, bounds.minY, bounds.maxY)};
}

Answer answerOf(const std::tuple<std::string, std::int64_t, std::int64_t>& location) {
  const auto& [name, x, y] = location;
  return {notation(name) + " x " + notation(x) + " y " + notation(y)};
}

Answer answerOf(const ScreenElement& element) { return {notation(propertiesOf(element))}; }

Answer answerOf(const std::vector<ScreenElement>& elements) {
  std::vector<ElementProperties> properties;
  for (const ScreenElement& element : elements) properties.push_back(propertiesOf(element));
  return listAnswer(properties);
}

// --- From a line's arguments to the interface's -----------------------------

template <typename Value>
Value take(Arguments& arguments);

template <>
std::int64_t take(Arguments& arguments) {
  return arguments.integer();
}

template <>
std::string take(Arguments& arguments) {
  return arguments.text();
}

template <>
ScreenBounds take(Arguments& arguments) {
  ScreenBounds bounds;
  for (std::int64_t* edge : {&bounds.minX, &bounds.maxX, &bounds.minY, &bounds.maxY}) {
    *edge = arguments.integer();
  }
  return bounds;
}

// --- The operations by name -------------------------------------------------

/// What an operation answers and, if that is one element, the element.
struct Outcome {
  Answer answer;
  std::optional<ScreenElement> element;
};

template <typename Result>
Outcome outcomeOf(const Result& result) {
  if constexpr (std::is_same_v<Result, ScreenElement>) {
    return {answerOf(result), result};
  } else {
    return {answerOf(result), std::nullopt};
  }
}

/// Takes one argument for each of `Parameters`, calls, and writes the result.
template <typename Result, typename... Parameters, typename Call>
Outcome perform(const Call& call, Arguments arguments) {
  const std::tuple<std::decay_t<Parameters>...> values{
      take<std::decay_t<Parameters>>(arguments)...};
  arguments.finish();
  if constexpr (std::is_void_v<Result>) {
    std::apply(call, values);
    return {};
  } else {
    return outcomeOf<Result>(std::apply(call, values));
  }
}

template <typename Receiver>
using Operations = Named<std::function<Outcome(Receiver&, const Operation&)>>;

template <typename Receiver, typename Result, typename... Parameters, typename Member>
auto boundTo(Member member) {
  return [member](Receiver& receiver, const Operation& operation) {
    const auto call = [&](const auto&... values) { return (receiver.*member)(values...); };
    return perform<Result, Parameters...>(call, Arguments(operation));
  };
}

template <typename Receiver, typename Result, typename... Parameters>
auto bound(Result (Receiver::*member)(Parameters...)) {
  return boundTo<Receiver, Result, Parameters...>(member);
}

template <typename Receiver, typename Result, typename... Parameters>
auto bound(Result (Receiver::*member)(Parameters...) const) {
  return boundTo<const Receiver, Result, Parameters...>(member);
}

template <typename Receiver, typename Result>
auto bound(Result (Receiver::*member)() const&) {
  return boundTo<const Receiver, Result>(member);
}

/// Whether the next argument is `name`. The other choice is a -.
bool isGiven(const std::string& name, Arguments& arguments) {
  const std::string word = arguments.name();
  if (word != name && word != "-") throw NotationError("here stands " + name + " or -");
  return word == name;
}

/// `getCurrentLocationWithXY x y`, with a - for each pointer that isn't given.
Outcome currentLocation(Tavrel& navigator, const Operation& operation) {
  Arguments arguments(operation);
  const bool wantsX = isGiven("x", arguments);
  const bool wantsY = isGiven("y", arguments);
  arguments.finish();
  std::int64_t x = 0;
  std::int64_t y = 0;
  std::string text =
      notation(navigator.getCurrentLocationWithXY(wantsX ? &x : nullptr, wantsY ? &y : nullptr));
  if (wantsX) text += " x " + notation(x);
  if (wantsY) text += " y " + notation(y);
  return {{text}, std::nullopt};
}

const Operations<Tavrel>& navigatorOperations() {
  static const Operations<Tavrel> operations = {
      {"flowchartTitles", bound(&Tavrel::flowchartTitles)},
      {"indexOfFlowchartWithTitle", bound(&Tavrel::indexOfFlowchartWithTitle)},
      {"indexOfFlowchart", bound(&Tavrel::indexOfFlowchart)},
      {"introForFlowchartAtIndex", bound(&Tavrel::introForFlowchartAtIndex)},
      {"startNewPathForFlowchartAtIndexYesNoString",
       bound(&Tavrel::startNewPathForFlowchartAtIndexYesNoString)},
      {"resetToStartLocationForFlowchartAtIndex",
       bound(&Tavrel::resetToStartLocationForFlowchartAtIndex)},
      {"getCurrentLocationWithXY", currentLocation},
      {"currentLocation", bound(&Tavrel::currentLocation)},
      {"currentFlowchartBounds", bound(&Tavrel::currentFlowchartBounds)},
      {"currentCommentaryText", bound(&Tavrel::currentCommentaryText)},
      {"allElements", bound(&Tavrel::allElements)},
      {"elementAtXY", bound(&Tavrel::elementAtXY)},
      {"elementsInBounds", bound(&Tavrel::elementsInBounds)},
      {"currentElement", bound(&Tavrel::currentElement)},
      {"moveXPlus", bound(&Tavrel::moveXPlus)},
      {"moveXMinus", bound(&Tavrel::moveXMinus)},
      {"moveYPlus", bound(&Tavrel::moveYPlus)},
      {"moveYMinus", bound(&Tavrel::moveYMinus)},
      {"moveWithDirection", bound(&Tavrel::moveWithDirection)},
      {"moveYes", bound(&Tavrel::moveYes)},
      {"moveNo", bound(&Tavrel::moveNo)},
      {"moveToRoot", bound(&Tavrel::moveToRoot)},
      {"moveAlongPath", bound(&Tavrel::moveAlongPath)},
      {"moveBack", bound(&Tavrel::moveBack)},
  };
  return operations;
}

const Operations<const ScreenElement>& elementOperations() {
  static const Operations<const ScreenElement> operations = {
      {"properties",
       [](const ScreenElement& element, const Operation&) { return outcomeOf(element); }},
      {"x", bound(&ScreenElement::x)},
      {"y", bound(&ScreenElement::y)},
      {"xOffset", bound(&ScreenElement::xOffset)},
      {"yOffset", bound(&ScreenElement::yOffset)},
      {"isOnPath", bound(&ScreenElement::isOnPath)},
      {"isNode", bound(&ScreenElement::isNode)},
      {"nameOfNextFlowchart", bound(&ScreenElement::nameOfNextFlowchart)},
      {"boxText", bound(&ScreenElement::boxText)},
      {"commentaryText", bound(&ScreenElement::commentaryText)},
      {"yesDirection", bound(&ScreenElement::yesDirection)},
      {"noDirection", bound(&ScreenElement::noDirection)},
      {"intoDirection", bound(&ScreenElement::intoDirection)},
      {"outOfDirection", bound(&ScreenElement::outOfDirection)},
      {"debugDescription", bound(&ScreenElement::debugDescription)},
  };
  return operations;
}

Answer reversedDirection(const Operation& operation) {
  Arguments arguments(operation);
  const std::int64_t direction = arguments.integer();
  arguments.finish();
  return {notation(std::int64_t{reversed(direction)})};
}

template <typename Receiver>
Outcome askFor(const Operations<Receiver>& operations, Receiver& receiver,
               const Operation& operation) {
  const auto* const found = operations.find(operation.name);
  if (found == nullptr) throw NotationError("unknown operation " + operation.name);
  return (*found)(receiver, operation);
}

class TavrelPlayer : public Player {
 public:
  Answer play(const Operation& operation) override;

 private:
  Answer create(const Operation& operation);
  Answer destroy(const Operation& operation);
  Answer ask(Tavrel& navigator, const Operation& operation);
  Tavrel& navigatorOf(const Operation& operation);

  Named<Tavrel> navigators_;  // the first one under the empty name
  Named<ScreenElement> elements_;
};

Answer TavrelPlayer::play(const Operation& operation) {
  if (operation.name == "Tavrel") return create(operation);
  if (operation.name == "destroy") return destroy(operation);
  if (operation.name == "reversed") return reversedDirection(operation);
  const ScreenElement* const element = elements_.find(operation.receiver);
  if (element == nullptr) return ask(navigatorOf(operation), operation);
  return askFor(elementOperations(), *element, operation).answer;
}

Answer TavrelPlayer::create(const Operation& operation) {
  Arguments arguments(operation);
  const std::string directory = arguments.text();
  arguments.finish();
  navigators_.set(operation.result, Tavrel(directory));
  return {};
}

Answer TavrelPlayer::destroy(const Operation& operation) {
  navigatorOf(operation);
  navigators_.erase(operation.receiver);
  return {};
}

Answer TavrelPlayer::ask(Tavrel& navigator, const Operation& operation) {
  Outcome outcome = askFor(navigatorOperations(), navigator, operation);
  if (operation.result.empty()) return outcome.answer;
  if (!outcome.element) throw NotationError("only an element can be kept");
  elements_.set(operation.result, *std::move(outcome.element));
  return outcome.answer;
}

Tavrel& TavrelPlayer::navigatorOf(const Operation& operation) {
  Tavrel* const found = navigators_.find(operation.receiver);
  if (found == nullptr) throw NotationError("no navigator " + operation.receiver);
  return *found;
}

}  // namespace

std::unique_ptr<Player> newPlayer() { return std::make_unique<TavrelPlayer>(); }

}  // namespace tavrel
