// Playing a conversation from its first line to its last.

#ifndef TAVREL_TESTS_CONVERSATIONS_REPLAY_H
#define TAVREL_TESTS_CONVERSATIONS_REPLAY_H

#include <filesystem>
#include <vector>

#include "Player.h"
#include "tests/support/Conversation.h"

namespace tavrel {

/// Plays every step and returns one answer for each. Chart files are written,
/// changed and removed here, in a directory of their own that lives as long as
/// the call; all else goes to `player`. `charts` is the directory that the
/// conversation calls {charts}. Throws ConversationError for a step that can't
/// be played.
std::vector<Answer> replay(const Conversation& conversation, Player& player,
                           const std::filesystem::path& charts);

}  // namespace tavrel

#endif  // TAVREL_TESTS_CONVERSATIONS_REPLAY_H
