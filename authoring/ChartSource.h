// A chart as its author wrote it.

#ifndef TAVREL_AUTHORING_CHARTSOURCE_H
#define TAVREL_AUTHORING_CHARTSOURCE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "authoring/ChartGraph.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// The columns that a line in a box takes at most, where the author has not said.
constexpr int usualWidth = 24;

/// Lines of text, and where they stand in the source.
struct SourceText {
  Place place;
  std::vector<std::string> lines;
};

/// Another chart that a box leads into.
struct SourceLink {
  Place place;
  std::string chart;
};

/// A text that is for machines: a condition, a call, the calls of an auction. It stands here as
/// YAML reads it, with blanks for the ends of its lines; placeIn() finds its bytes in the source.
struct SourceExpression {
  Place place;
  std::string text;
};

/// A call that an end makes: in any case, or where a condition is true.
struct SourceCall {
  SourceExpression call;
  std::optional<SourceExpression> when;
};

/// How far a call obliges partner to go on.
enum class Forcing : std::uint8_t { no, round, game };

/// Whose hand goes on in the chart that a box leads into.
enum class Next : std::uint8_t { self, partner };

/// A box as it stands in the source; suits are written as ♣ ♦ ♥ ♠.
struct SourceBox {
  std::string id;  ///< empty for a box that stands inline without one
  Place place;
  SourceText text;     ///< as it will stand in the box
  SourceText comment;  ///< wrapped
  std::optional<SourceLink> link;
  ByAnswer<BoxNumber> exits = {noBox, noBox};
  ByAnswer<Place> exitPlaces;
  Turn turn = Turn::right;
  bool isTurnFixed = false;               ///< said of this very box
  std::optional<SourceExpression> when;   ///< true of the hands whose answer is yes
  bool asksJudgement = false;             ///< no condition can answer
  std::vector<SourceCall> calls;          ///< of an end: the first whose condition is true is made
  std::optional<SourceExpression> shows;  ///< of an end: true of every hand that makes the call
  std::optional<Forcing> forcing;
  std::optional<Next> next;
  ByAnswer<std::optional<SourceExpression>> never;  ///< why no hand gives that answer
  bool hasSureTexts = true;  ///< text, comment and link are as the author wants them, or left out
  bool hasSureExits = true;  ///< so are the exits
  bool hasSureHands = true;  ///< so is what the box says about hands
};

struct ChartSource {
  std::string chart;  ///< the file name of the catalogue that it is for
  Place chartPlace;
  SourceText intro;
  bool hasSureIntro = true;  ///< it is as the author wants it, or left out
  bool isEntry = false;      ///< players come in from the table
  int width = usualWidth;    ///< of a line in a box, at most, in columns
  bool hasApplies = false;   ///< it says when it is the right chart
  Place appliesPlace;
  std::vector<SourceExpression> auctions;  ///< it is for any of these
  std::optional<SourceExpression> hand;    ///< what it assumes of the player's hand; none: nothing
  BoxNumber start = noBox;
  std::vector<SourceBox> boxes;  ///< in the author's order, inline ones behind the box they are in

  const SourceBox& operator[](BoxNumber box) const { return boxes[static_cast<std::size_t>(box)]; }

  /// What a message calls a box: its id, or its text.
  std::string nameOf(BoxNumber box) const;

  ChartGraph graph() const;

  /// Whether it says anything about hands: when it applies, how a question is answered, or which
  /// call an end makes. A chart that doesn't is for people alone.
  bool saysOfHands() const;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_CHARTSOURCE_H
