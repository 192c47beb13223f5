// What is wrong with a file, and how to mend it.

#ifndef TAVREL_AUTHORING_DIAGNOSTIC_H
#define TAVREL_AUTHORING_DIAGNOSTIC_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "authoring/SourceFile.h"

namespace tavrel::authoring {

enum class Severity : std::uint8_t { error, warning, note };

/// "error", "warning" or "note".
const char* nameOf(Severity severity);

/// What can be found. A number never changes its meaning, and is never used again. Of each
/// hundred: 1 the text of a source, 2 its meaning, 3 its drawing, 4 the file of a chart, 5 its
/// way, 6 what readers make of it, 7 charts together, 8 hands. docs/diagnostics.md has a section
/// for each.
enum class Code : std::uint16_t {
  tooLarge = 101,
  notUtf8 = 102,
  byteOrderMark = 103,
  controlCharacter = 104,
  tab = 105,
  bracketsTooDeep = 106,
  nestingTooDeep = 107,
  tooManyValues = 108,
  syntax = 109,
  tag = 110,
  anchor = 111,
  alias = 112,
  mergeKey = 113,
  noValue = 114,
  secondDocument = 115,
  doubleKey = 116,
  mustBeQuoted = 117,
  unquotedInBraces = 118,
  quoteNotClosed = 119,
  colonWithoutBlank = 120,
  missingColon = 121,
  indentation = 122,
  missingComma = 123,
  braceNotClosed = 124,
  invisibleCharacter = 125,
  unknownEscape = 126,
  directive = 127,

  notAMap = 201,
  unknownKey = 202,
  missingKey = 203,
  wrongType = 204,
  badId = 205,
  doubleId = 206,
  unknownId = 207,
  unknownChart = 208,
  wrongFileName = 209,
  emptyText = 210,

  noWayBack = 301,
  tooManyCells = 302,
  repeated = 303,

  fileNotUtf8 = 401,
  carriageReturn = 402,
  controlInFile = 403,
  fileEnds = 404,
  notANumber = 405,
  numberTooLarge = 406,
  tooFewNumbers = 407,
  numbersLeftOver = 408,
  negativeCount = 409,
  wrongCount = 410,
  unknownNode = 411,
  badDirection = 412,
  leftOver = 413,
  noBoxes = 414,
  byteOrderMarkInFile = 415,

  rootElsewhere = 501,
  doubleCell = 502,
  leadsNowhere = 503,
  intoAnotherLine = 504,
  lineInALoop = 505,
  noStepBack = 506,
  nothingLeadsHere = 507,
  tooManyRows = 508,
  tooLargeToDraw = 509,

  oneExit = 601,
  linkAndExits = 602,
  noQuestionMark = 603,
  questionAtEnd = 604,
  outOfReach = 605,
  linkOutsideCatalogue = 606,
  sameQuestionTwice = 607,
  sameBoxTwice = 608,
  noIntroduction = 609,
  noComment = 610,
  textTooWide = 611,
  textTooHigh = 612,
  callSpelling = 613,
  rangeSpelling = 614,
  suitSpelling = 615,
  noEnd = 616,
  pathsNotSearched = 617,

  linkWithoutFile = 701,
  nobodyLinks = 702,

  emptyExpression = 801,
  conditionAtEnd = 802,
  callAtQuestion = 803,
  twoConditions = 804,
  neverOfNoAnswer = 805,
  nextWithoutChart = 806,
  callsBehindSure = 807,

  questionWithoutCondition = 820,
  endWithoutCall = 821,

  badExpression = 830,
  foreignSpelling = 831,
  singleEqualsSign = 832,
  rangeSpelledOtherwise = 833,
  commaOutside = 834,
  unknownName = 835,
  argumentCount = 836,
  wrongKind = 837,
  wrongValue = 838,
  expressionTooLarge = 839,
  unknownCall = 840,
  badPattern = 841,
  impossibleAuction = 842,
  tooManyAuctions = 843,
  callNotAllowed = 844,
};

/// Every code there is, in the order of their numbers.
const std::vector<Code>& allCodes();

/// "T0109".
std::string nameOf(Code code);

/// Errors keep a chart from being compiled or walked; warnings are likely mistakes; notes say
/// what an author may want to know.
Severity severityOf(Code code);

/// One thing that was found.
struct Diagnostic {
  Code code;
  Place place;
  std::string text;  ///< what is wrong; no full stop at its end
  std::string cure;  ///< what to do about it; may be empty
};

/// What was found in one file, in the order in which it stands there.
class Diagnostics {
 public:
  /// How many are kept. More than that help nobody, and a hostile file has millions.
  static constexpr std::size_t mostKept = 10'000;

  void add(Code code, Place place, std::string text, std::string cure = {});

  /// Adds all that others hold, each at the place that `placeOf` gives for its own.
  void append(const Diagnostics& others, const std::function<Place(Place place)>& placeOf);

  std::size_t size() const { return all_.size(); }

  /// Forgets all but the first `size` that were found. REQUIRES: no more than mostKept were.
  void forgetFrom(std::size_t size);

  /// Forgets all that were found on a line and behind it.
  void forgetFromLine(std::size_t line);

  /// Those that are kept, sorted by place; what was found first comes first at one place.
  std::vector<Diagnostic> sorted() const;

  /// How many were found, kept or not.
  std::size_t count(Severity severity) const { return counts_[static_cast<std::size_t>(severity)]; }
  bool hasErrors() const { return count(Severity::error) > 0; }

 private:
  std::vector<Diagnostic> all_;
  std::array<std::size_t, 3> counts_ = {};  // by severity
};

/// A diagnostic for people: "file:line:col: error: text [T0109]", the line, a caret below the
/// place and, where one is known, the cure. Lines end with a line feed.
std::string shown(const Diagnostic& diagnostic, const SourceFile& file);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_DIAGNOSTIC_H
