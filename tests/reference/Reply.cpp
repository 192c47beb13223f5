#include "tests/reference/Reply.h"

#include <cstring>
#include <tuple>

namespace tavrel::reference {
namespace {

auto all(const ElementProperties& e) {
  return std::tie(e.isNode, e.isOnPath, e.x, e.y, e.xOffset, e.yOffset, e.yesDirection,
                  e.noDirection, e.intoDirection, e.outOfDirection, e.boxText, e.commentaryText,
                  e.nameOfNextFlowchart);
}

bool isEqual(const std::vector<ElementProperties>& a, const std::vector<ElementProperties>& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (all(a[i]) != all(b[i])) return false;
  }
  return true;
}

Thrown kindOf(const std::out_of_range& error) {
  if (std::strcmp(error.what(), "CTavrel::mStartNewPath()") == 0) return Thrown::startText;
  if (std::strcmp(error.what(), "CTavrel::mSetStartLocation()") == 0) return Thrown::resetText;
  return Thrown::outOfRange;
}

const char* words(Thrown thrown) {
  static const char* const all[] = {"",
                                    "throws out_of_range",
                                    "throws out_of_range \"CTavrel::mStartNewPath()\"",
                                    "throws out_of_range \"CTavrel::mSetStartLocation()\"",
                                    "throws length_error",
                                    "throws invalid_argument"};
  return all[static_cast<std::size_t>(thrown)];
}

/// The name, and the coordinates asked for.
std::string location(const Request& request, const Reply& reply) {
  std::string text = notation(reply.texts[0]);
  if (request.numbers[0] != 0) text += " x " + notation(reply.numbers[0]);
  if (request.numbers[1] != 0) text += " y " + notation(reply.numbers[1]);
  return text;
}

std::string triple(const Reply& reply) {
  return notation(reply.texts[0]) + " x " + notation(reply.numbers[0]) + " y " +
         notation(reply.numbers[1]);
}

}  // namespace

bool operator==(const Reply& a, const Reply& b) {
  return a.thrown == b.thrown && a.numbers == b.numbers && a.texts == b.texts &&
         isEqual(a.elements, b.elements);
}

Answer answerOf(const Request& request, const Reply& reply) {
  if (reply.thrown != Thrown::nothing) return {words(reply.thrown)};
  const std::vector<std::int64_t>& n = reply.numbers;
  switch (request.what) {
    case What::titles:
    case What::intro:
    case What::commentary:
      return listAnswer(reply.texts);
    case What::allElements:
    case What::elementsIn:
      return listAnswer(reply.elements);
    case What::location:
      return {location(request, reply)};
    case What::locationTriple:
      return {triple(reply)};
    case What::bounds:
      return {boundsNotation(n[0], n[1], n[2], n[3])};
    case What::optionalIndexOfName:
      return {n.empty() ? "nil" : notation(n[0])};
    default:
      break;
  }
  if (!reply.elements.empty()) return {notation(reply.elements[0])};
  if (!reply.texts.empty()) return {notation(reply.texts[0])};
  if (!n.empty()) return {notation(n[0])};
  return {};
}

Reply Respondent::ask(const Request& request) {
  Reply reply;
  try {
    answer(request, reply);
    return reply;
  } catch (const std::out_of_range& error) {
    reply = Reply();
    reply.thrown = kindOf(error);
  } catch (const std::length_error&) {
    reply = Reply();
    reply.thrown = Thrown::lengthError;
  } catch (const std::invalid_argument&) {
    reply = Reply();
    reply.thrown = Thrown::invalidArgument;
  }
  return reply;
}

}  // namespace tavrel::reference
