// What is proved of a chart: where hands come to, and what is wrong with it.

#ifndef TAVREL_HANDS_PROOF_H
#define TAVREL_HANDS_PROOF_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "hands/Feasibility.h"
#include "hands/Subject.h"
#include "hands/Tally.h"

namespace tavrel::hands {

enum class FindingKind {
  noHand,           ///< the chart is for no hand
  deadExit,         ///< an answer that no hand gives
  neverReached,     ///< a box to which no hand comes
  gap,              ///< hands whose answer leads nowhere
  loop,             ///< hands that go round in a circle
  noCall,           ///< hands for which an end has no call
  illegalCall,      ///< calls that the laws don't allow
  falseShows,       ///< hands that aren't what an end's `shows` says
  falseText,        ///< nor what a box's text says
  boundNotReached,  ///< a range in a text that is wider than the hands that come
  neverGiven,       ///< an answer that was said never to be given, and is
  wrongAuction,     ///< a chart that goes on and isn't for the auction
  wrongHand,        ///< or not for the hand
};

/// "dead exit" and the like.
const char* nameOf(FindingKind kind);

/// Conditions of which one at least is not fulfilled by any hand, on one way through the chart.
struct Refutation {
  std::vector<std::string> conditions;
  bool isSmallest = true;  ///< no set of fewer conditions would do
};

struct Finding {
  FindingKind kind = FindingKind::noHand;
  BoxIndex box = noBox;
  std::optional<Answer> answer;
  std::uint64_t count = 0;           ///< of the deals in which it was seen
  std::optional<Position> position;  ///< an example, dealt or searched for
  std::string text;                  ///< what is wrong, behind the box's name
  std::string cure;
  std::vector<Refutation> proof;  ///< why no hand does it: one for each way, where it is proved
};

/// An end of the chart.
struct EndOfHands {
  BoxIndex box = noBox;
  std::vector<Call> calls;  ///< those that were made, in the order in which the end has them
  std::uint64_t count = 0;  ///< of the deals that came here
  std::optional<Position> position;  ///< the first of them, or one that was searched for
};

struct Proof {
  std::vector<EndOfHands> ends;
  std::vector<Finding> findings;
  std::vector<std::string> notes;  ///< what was excused or could not be settled; nothing wrong
};

/// Reads a tally. What no deal has shown is searched for, and what can't be is proved as far as
/// the search goes: see Feasibility.
Proof proofOf(const Subject& subject, const Tally& tally, Feasibility& feasibility);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_PROOF_H
