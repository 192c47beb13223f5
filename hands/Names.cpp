#include "hands/Names.h"

#include "hands/Call.h"

namespace tavrel::hands {
namespace {

ConstantName nameOfSuit(const char* name, Strain strain) {
  return {name, static_cast<double>(strain), Type::suit};
}

ConstantName nameOfCall(const std::string& name, Call call) {
  return {name, static_cast<double>(call), Type::call};
}

std::vector<ConstantName> allConstants() {
  std::vector<ConstantName> all = {
      nameOfSuit("C", Strain::clubs),    nameOfSuit("D", Strain::diamonds),
      nameOfSuit("H", Strain::hearts),   nameOfSuit("S", Strain::spades),
      nameOfSuit("NT", Strain::notrump), nameOfSuit("noSuit", Strain::none),
      nameOfCall("noCall", Call::none),  nameOfCall("cP", Call::pass),
      nameOfCall("cX", Call::doubled),   nameOfCall("cXX", Call::redoubled),
  };
  for (int call = static_cast<int>(Call::oneClub); call <= static_cast<int>(Call::sevenNotrump);
       ++call) {
    all.push_back(nameOfCall("c" + nameOf(static_cast<Call>(call)), static_cast<Call>(call)));
  }
  return all;
}

}  // namespace

const std::vector<VariableName>& variableNames() {
  static const std::vector<VariableName> names = {
      {"hcp", Variable::hcp, Type::number, highCardPoints, 37},
      {"points", Variable::points, Type::number, highCardPoints | lengths, 50},
      {"spades", Variable::spades, Type::number, lengths, 13},
      {"hearts", Variable::hearts, Type::number, lengths, 13},
      {"diamonds", Variable::diamonds, Type::number, lengths, 13},
      {"clubs", Variable::clubs, Type::number, lengths, 13},
      {"longest", Variable::longest, Type::number, lengths, 13},
      {"second", Variable::second, Type::number, lengths, 6},
      {"longestSuit", Variable::longestSuit, Type::suit, lengths, 4},
      {"secondSuit", Variable::secondSuit, Type::suit, lengths, 4},
      {"balanced", Variable::balanced, Type::truth, lengths, 1},
      {"semibalanced", Variable::semibalanced, Type::truth, lengths, 1},
      {"quick", Variable::quick, Type::number, quickTricks, 8, 2},
      {"losers", Variable::losers, Type::number, loserCount, 12},
      {"controls", Variable::controls, Type::number, controlCount, 12},
      {"aces", Variable::aces, Type::number, aceCount, 4},
      {"kings", Variable::kings, Type::number, kingCount, 4},
      {"voids", Variable::voids, Type::number, lengths, 3},
      {"singletons", Variable::singletons, Type::number, lengths, 3},
      {"doubletons", Variable::doubletons, Type::number, lengths, 3},
      {"support", Variable::support, Type::number, lengths, 13},
      {"theirs", Variable::theirs, Type::suit, noCards, 4},
      {"partners", Variable::partners, Type::suit, noCards, 4},
      {"seat", Variable::seat, Type::number, noCards, 4},
      {"vulnerable", Variable::vulnerable, Type::truth, noCards, 1},
      {"theyVulnerable", Variable::theyVulnerable, Type::truth, noCards, 1},
      {"passedHand", Variable::passedHand, Type::truth, noCards, 1},
  };
  return names;
}

const std::vector<ConstantName>& constantNames() {
  static const std::vector<ConstantName> names = allConstants();
  return names;
}

const std::vector<FunctionName>& functionNames() {
  constexpr Type number = Type::number;
  static const std::vector<FunctionName> names = {
      {"length", Function::length, {Type::suit}, false, number, lengths},
      {"shape", Function::shape, {number, number, number, number}, false, Type::truth, lengths},
      {"exact", Function::exact, {number, number, number, number}, false, Type::truth, lengths},
      {"stopper", Function::stopper, {Type::suit}, false, Type::truth, lengths | topHonours},
      {"tops", Function::tops, {Type::suit, number}, false, number, topHonours},
      {"partner", Function::partner, {number}, false, Type::call, noCards},
      {"left", Function::left, {number}, false, Type::call, noCards},
      {"right", Function::right, {number}, false, Type::call, noCards},
      {"own", Function::own, {number}, false, Type::call, noCards},
      {"suitOf", Function::suitOf, {Type::call}, false, Type::suit, noCards},
      {"level", Function::level, {Type::call}, false, number, noCards},
      {"max", Function::max, {number}, true, number, noCards},
      {"min", Function::min, {number}, true, number, noCards},
  };
  return names;
}

}  // namespace tavrel::hands
