// All the conversations, played one after another and written down.

#ifndef TAVREL_TESTS_BUILDS_TRANSCRIPT_H
#define TAVREL_TESTS_BUILDS_TRANSCRIPT_H

#include <string>
#include <vector>

namespace tavrel {

struct Transcript {
  std::string text;         ///< every operation with its answer, as this build gives it
  std::string differences;  ///< the answers that aren't those of the files; empty if none
};

/// Plays the conversations of these files. `charts` is the directory that they call
/// {charts}. What comes out says nothing of the place or the compiler: of an exception
/// its kind, and its text only where callers may rely on it. Throws ConversationError for
/// a file that can't be played.
Transcript transcriptOf(const std::vector<std::string>& files, const std::string& charts);

}  // namespace tavrel

#endif  // TAVREL_TESTS_BUILDS_TRANSCRIPT_H
