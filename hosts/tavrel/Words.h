// What the program says about a walk, in lines and on the screen alike.
//
// Refusals are clauses in lower case without a full stop. They say what is wrong,
// where, and what to do, and are made a sentence where they stand alone.

#ifndef TAVREL_HOSTS_TAVREL_WORDS_H
#define TAVREL_HOSTS_TAVREL_WORDS_H

#include <functional>
#include <string>
#include <vector>

#include "hosts/tavrel/Walk.h"
#include "text/Text.h"

namespace tavrel {

/// The charset of the locale in force.
Charset localeCharset();

/// The clause with a capital and a full stop.
std::string sentence(std::string clause);

/// Why a step was not made. REQUIRES: outcome != Outcome::moved; so below.
std::string refusalOf(const Walk& walk, WalkStep step, Outcome outcome);

/// Why the link of the current box was not followed.
std::string linkRefusalOf(const Walk& walk, Outcome outcome);

/// Why a flowchart was not entered.
std::string entryRefusalOf(const Library& library, const CatalogueEntry& chart, Outcome outcome);

/// Throws Failure if the flowchart's file can't be opened.
void requireFile(const Library& library, const CatalogueEntry& chart);

/// What can be done on the current box: "yes, no", "follow to RespNT", "the end".
std::string choicesOf(const ScreenElement& box);

/// Lines of a text, or one line that says that they are not UTF-8.
std::vector<std::string> readableLines(const std::function<std::vector<std::string>()>& lines);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_WORDS_H
