// What sources have in them, and how often that was met: figures that show what the trips were
// about.

#ifndef TAVREL_TESTS_SOURCES_FEATURES_H
#define TAVREL_TESTS_SOURCES_FEATURES_H

#include <cstddef>
#include <cstdint>

#include "tests/support/TimesMet.h"

namespace tavrel::sources {

// A name, and how a report says it.
// clang-format off
#define TAVREL_SOURCE_FEATURES(each)                                       \
  each(oneBox, "a chart of one box")                                       \
  each(manyBoxes, "a chart of forty boxes or more")                        \
  each(startBehind, "a start that isn't the first box")                    \
  each(settingsBehind, "settings behind the boxes")                        \
  each(chartTurned, "a chart that is turned")                              \
  each(boxTurned, "a box that is turned")                                  \
  each(width, "a width of the author's")                                   \
  each(intro, "an introduction")                                           \
  each(remark, "a remark, which YAML drops")                               \
  each(inlineBlock, "a box inline, in block style")                        \
  each(inlineFlow, "a box inline, between braces")                         \
  each(inlineNamed, "a box inline that others lead to by its id")          \
  each(oddId, "an id that YAML might take for a truth or a number")        \
  each(plain, "a plain text")                                              \
  each(singleQuoted, "a text in single quotes")                            \
  each(doubleQuoted, "a text in double quotes")                            \
  each(literal, "a text block of lines")                                   \
  each(folded, "a text block that YAML folds")                             \
  each(suitWritten, "a suit written as !s")                                \
  each(suitTyped, "a suit typed as ♠")                                     \
  each(noSuit, "a word that begins like a suit, !shift")                   \
  each(accents, "letters with accents, composed and combining")            \
  each(wide, "letters two columns wide")                                   \
  each(wordTooWide, "a word wider than a box")                             \
  each(broken, "a text broken into lines")                                 \
  each(ownLines, "a text in lines of the author's")                        \
  each(comment, "a comment")                                               \
  each(commentWrapped, "a comment of several lines")                       \
  each(commentParagraphs, "a comment of several paragraphs")               \
  each(applies, "what a chart applies to")                                 \
  each(condition, "a condition of a question")                             \
  each(judgement, "a question that needs judgement")                       \
  each(reason, "a reason why an answer is never given")                    \
  each(call, "a call of an end")                                           \
  each(callsOfAList, "calls of an end in a list")                          \
  each(link, "a link of an end")                                           \
  each(questionWithLink, "a link of a box with exits")                     \
  each(oneExit, "a box with one exit")                                     \
  each(bothAlike, "both answers leading to one box")                       \
  each(sharedEnd, "an end that several boxes lead to")                     \
  each(sharedQuestion, "a box with exits that several lead to")            \
  each(lineBack, "an answer that leads back")                              \
  each(lineToItself, "an answer that leads to its own box")                \
  each(outOfReach, "a box that no answer leads to")                        \
  each(copied, "a box with exits that stands more than once")              \
  each(refused, "a line back that can't be drawn")
// clang-format on

enum class Feature : std::uint8_t {
#define TAVREL_SOURCE_FEATURE(name, words) name,
  TAVREL_SOURCE_FEATURES(TAVREL_SOURCE_FEATURE)
#undef TAVREL_SOURCE_FEATURE
};

inline constexpr const char* featureWords[] = {
#define TAVREL_SOURCE_FEATURE(name, words) words,
    TAVREL_SOURCE_FEATURES(TAVREL_SOURCE_FEATURE)
#undef TAVREL_SOURCE_FEATURE
};
constexpr std::size_t featureCount = sizeof featureWords / sizeof *featureWords;

/// How often each was met.
using Features = TimesMet<Feature, featureCount>;

}  // namespace tavrel::sources

#endif  // TAVREL_TESTS_SOURCES_FEATURES_H
