// What a comparison has met, and how often: figures that show what it was about.

#ifndef TAVREL_TESTS_REFERENCE_BEHAVIOURS_H
#define TAVREL_TESTS_REFERENCE_BEHAVIOURS_H

#include <cstddef>
#include <cstdint>

#include "tests/support/TimesMet.h"

namespace tavrel::reference {

// A name, and how a report says it.
// clang-format off
#define TAVREL_BEHAVIOURS(each)                                              \
  each(nameFound, "a file name found in the catalogue")                      \
  each(nameUnknown, "a name that is in no catalogue")                        \
  each(titleIsNoName, "a title asked for as a name")                         \
  each(fileMissing, "a file that cannot be opened")                          \
  each(fileAppeared, "a file read where an earlier read found none")         \
  each(readAlready, "a flowchart that is read already")                      \
  each(oneCellReadAgain, "a one-cell flowchart read again")                  \
  each(noCells, "a complete file without cells")                             \
  each(cutBeforeIntro, "cut before the introduction was whole")              \
  each(cutInNodes, "cut in the nodes")                                       \
  each(cutBeforeFirstCell, "cut behind the nodes, before a first cell")      \
  each(cutInBoxes, "cut in the boxes, behind a whole one")                   \
  each(cutInLines, "cut in the connector cells")                             \
  each(cutKeepsOldElement, "cut before a cell, an element read before kept") \
  each(noInteger, "no integer where one belongs")                            \
  each(negativeCount, "a negative count other than that of boxes")           \
  each(negativeBoxes, "a negative count of boxes")                           \
  each(nodeUnknown, "a box of a node that isn't there")                      \
  each(tooManyRows, "more rows than there may be")                           \
  each(offsetTooLarge, "an offset beyond 32 bits")                           \
  each(comment, "a comment behind a number line")                            \
  each(blankBeforeNumber, "blank lines before a number")                     \
  each(carriageReturn, "a carriage return kept at a line's end")             \
  each(nodeShared, "boxes that share a node")                                \
  each(oddExit, "an exit outside -1 to 4")                                   \
  each(oddLine, "a connector direction outside 0 to 4")                      \
  each(lineWithLink, "a connector cell that carries a link")                 \
  each(negativeColumn, "a cell left of the origin")                          \
  each(negativeRow, "a cell above the origin")                               \
  each(onOnePlace, "cells on one place")                                     \
  each(rootElsewhere, "a first element that isn't at the origin")            \
  each(boundsKept, "bounds wider than the cells read")                       \
  each(staleIndex, "a look-up by an older row index")                        \
  each(introOutside, "an introduction outside the catalogue")                \
  each(startOutside, "a new path outside the catalogue")                     \
  each(resetOutside, "a reset outside the catalogue")                        \
  each(marksCleared, "marks of an older path cleared")                       \
  each(marksNotCleared, "marks not cleared, the root having none")           \
  each(rootMissing, "a new path without a root, before the read")            \
  each(rootMissingAfterRead, "a path prepared without a root")               \
  each(answersNone, "no answers")                                            \
  each(answersLaid, "all answers laid")                                      \
  each(answersLeft, "answers left over")                                     \
  each(answersAllLeft, "the first answer left over with all others")         \
  each(answerOtherByte, "an answer other than y and n")                      \
  each(pathIntoNothing, "a path prepared into an empty cell")                \
  each(pathOntoLines, "a path prepared along a line")                        \
  each(marksOfOlderPath, "a linked flowchart entered with older marks")      \
  each(gridForward, "a grid move along an exit")                             \
  each(gridForwardFirst, "along an exit though the neighbour leads back")    \
  each(gridBackToBox, "a grid move back to a box next door")                 \
  each(gridBackAlongLine, "a grid move back along a line")                   \
  each(gridEmpty, "a grid move refused, the cell being empty")               \
  each(gridBoxElsewhere, "a grid move refused by a box")                     \
  each(gridLineElsewhere, "a grid move refused by a line")                   \
  each(answerMove, "a move along yes or no")                                 \
  each(answerRefused, "a move along an exit that isn't there")               \
  each(moveIntoNothing, "a move into an empty cell")                         \
  each(loopForward, "a loop met forward")                                    \
  each(loopBackward, "a loop met backward")                                  \
  each(loopMarked, "a loop met by a path")                                   \
  each(nowhere, "a line cell that steps nowhere")                            \
  each(pathYes, "a step of the path along yes")                              \
  each(pathNo, "a step of the path along no")                                \
  each(pathTie, "yes before no, both marked")                                \
  each(pathOff, "a path asked for off the marks")                            \
  each(pathEnd, "the end of a path")                                         \
  each(pathAheadEmpty, "a path whose next cell is empty")                    \
  each(linkEntered, "a link entered")                                        \
  each(linkToItself, "a link to its own flowchart")                          \
  each(linkUnread, "a link to a flowchart not yet read")                     \
  each(linkWithAnswers, "a link entered with answers left")                  \
  each(linkFailed, "a link whose flowchart throws")                          \
  each(linkUnknown, "a link to an unknown name")                             \
  each(noFlowchart, "a request while no flowchart is current")               \
  each(rootIsEmpty, "a move to a root that isn't there")                     \
  each(rootOnLine, "a move to a root that is a line cell")                   \
  each(noElement, "a move from no element")                                  \
  each(commentWithoutElement, "a commentary of no element")                  \
  each(cellEmpty, "an empty cell asked for")                                 \
  each(cellOutside, "a cell outside the rows asked for")                     \
  each(rectangleBelow, "a rectangle beyond the last row")                    \
  each(rectangleAbove, "a rectangle before the first row")                   \
  each(rectangleReversed, "a rectangle with its edges reversed")             \
  each(rectangleWhole, "a rectangle larger than the flowchart")              \
  each(rectangleOfOneCell, "a rectangle of one occupied cell")               \
  each(rectangleEmpty, "a rectangle of empty cells")                         \
  each(indexNarrowed, "an index of more than 32 bits")                       \
  each(placeNarrowed, "a place of more than 32 bits")                        \
  each(directionOdd, "a direction outside the table")                        \
  each(directionNone, "the direction that moves nowhere")                    \
  each(directionUnsigned, "a negative direction read without a sign")        \
  each(backByYes, "a step back by a yes exit")                               \
  each(backByNo, "a step back by a no exit")                                 \
  each(backByOddExit, "a step back by an odd exit")                          \
  each(backNone, "a step back without a match")                              \
  each(backAlone, "a step back with no element near")                        \
  each(backIntoNothing, "a step back past an exit into nothing")             \
  each(linkIsNoText, "a link that isn't UTF-8")                              \
  each(textIsNoText, "a line that isn't UTF-8")                              \
  each(textCut, "a line cut at a NUL")                                       \
  each(pointersNull, "a location asked for without its place")               \
  each(keptChanged, "an element kept while the navigator's changed")         \
  each(directoryWithoutEnd, "a directory without its separator")             \
  each(throwsOutOfRange, "throws out_of_range")                              \
  each(throwsStartText, "throws out_of_range, CTavrel::mStartNewPath()")     \
  each(throwsResetText, "throws out_of_range, CTavrel::mSetStartLocation()") \
  each(throwsLengthError, "throws length_error")                             \
  each(throwsInvalidArgument, "throws invalid_argument")
// clang-format on

enum class Behaviour : std::uint8_t {
#define TAVREL_BEHAVIOUR(name, words) name,
  TAVREL_BEHAVIOURS(TAVREL_BEHAVIOUR)
#undef TAVREL_BEHAVIOUR
};

inline constexpr const char* behaviourWords[] = {
#define TAVREL_BEHAVIOUR(name, words) words,
    TAVREL_BEHAVIOURS(TAVREL_BEHAVIOUR)
#undef TAVREL_BEHAVIOUR
};
constexpr std::size_t behaviourCount = sizeof behaviourWords / sizeof *behaviourWords;

/// How often each behaviour was met.
using Behaviours = TimesMet<Behaviour, behaviourCount>;

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_BEHAVIOURS_H
