// The file NAME.hands: for every end of a chart a hand that comes there, kept as a test.

#ifndef TAVREL_HANDS_WITNESSES_H
#define TAVREL_HANDS_WITNESSES_H

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "hands/Proof.h"
#include "hands/Subject.h"
#include "hands/Table.h"

namespace tavrel::hands {

/// A hand at a table, the call that it makes and the end where it makes it.
struct Witness {
  Hand hand;
  Table table;
  Call call = Call::none;  ///< none at an end without a call
  std::string end;         ///< HandChart::nameOf()
};

/// A line for each end that has an example in the proof:
/// HAND | AUCTION | VULNERABILITY | CALL | END.
std::string witnessFile(const Subject& subject, const Proof& proof);

/// Reads such a file; lines that begin with "#" are remarks. What comes back otherwise is the
/// number of the line that can't be read, from 1, and why.
std::variant<std::vector<Witness>, std::string> readWitnesses(std::string_view bytes);

/// Whether the hand comes to the end and makes the call there, with some answers to the questions
/// of judgement.
bool isTrue(const Witness& witness, const HandChart& chart);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_WITNESSES_H
