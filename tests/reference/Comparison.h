// The navigator and the plain reference asked the same, answer by answer.
//
//     TemporaryFiles files;                            // or files of one's own
//     Dialogue dialogue = dialogueFrom(choices);       // charts and requests
//     if (auto difference = compare(dialogue, files))
//       puts(inNotation(minimised(dialogue, files), files).c_str());
//
// A program that uses this links the engine and the client interface in the form that it
// wants to try; tavrel_comparison itself brings neither.

#ifndef TAVREL_TESTS_REFERENCE_COMPARISON_H
#define TAVREL_TESTS_REFERENCE_COMPARISON_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "tests/reference/Behaviours.h"
#include "tests/reference/ChartFiles.h"
#include "tests/reference/Choices.h"
#include "tests/reference/Dialogue.h"

namespace tavrel::reference {

/// Draws charts and requests. The same choices make the same dialogue.
Dialogue dialogueFrom(Choices& choices);

/// Where the two part.
struct Difference {
  std::size_t request;  ///< counting from 0; the number of requests where the end state differs
  std::string what;     ///< "answer", or the part of the state
  std::string reference, navigator;
};

/// Plays the dialogue to new navigators over `files`, which it empties first. After each
/// request the answers, the cursor, the bounds and the marks are compared; now and then,
/// and at the end, everything that is held of every flowchart.
std::optional<Difference> compare(const Dialogue& dialogue, ChartFiles& files,
                                  Behaviours* met = nullptr);

/// The dialogue without the requests, lines and cells that the difference does without. A
/// dialogue without difference comes back as it is.
Dialogue minimised(const Dialogue& dialogue, ChartFiles& files);

/// The same for any property of a dialogue.
Dialogue minimised(const Dialogue& dialogue, const std::function<bool(const Dialogue&)>& holds);

/// A conversation as of tests/conversations, with the answers of the reference.
std::string inNotation(const Dialogue& dialogue, ChartFiles& files);

/// The dialogue of a conversation's text. `charts` stands for {charts} in it.
/// Throws ConversationError or NotationError for what is none.
Dialogue dialogueOf(const std::string& name, const std::string& text,
                    const std::string& charts = "");

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_COMPARISON_H
