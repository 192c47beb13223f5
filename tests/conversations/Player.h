// What a form of the client interface offers to have conversations replayed.

#ifndef TAVREL_TESTS_CONVERSATIONS_PLAYER_H
#define TAVREL_TESTS_CONVERSATIONS_PLAYER_H

#include <memory>

#include "tests/support/Operation.h"

namespace tavrel {

/// A form of the client interface, with the navigators and the elements that the
/// conversation has named so far. A new player has none.
class Player {
 public:
  Player() = default;
  virtual ~Player() = default;
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  /// Performs the operation and returns its answer in the notation of Answer.h.
  /// An exception that ends the operation comes out as std::out_of_range,
  /// std::length_error or std::invalid_argument. Throws NotationError for an
  /// operation, a receiver or arguments that the interface doesn't have.
  virtual Answer play(const Operation& operation) = 0;
};

/// A new player of the form of the interface that this program is built with: each
/// form defines the function in a file of its own, and that is all it adds.
std::unique_ptr<Player> newPlayer();

}  // namespace tavrel

#endif  // TAVREL_TESTS_CONVERSATIONS_PLAYER_H
