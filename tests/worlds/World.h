// A world: all the charts of some small kind, each tried on the navigator and on the plain
// reference.

#ifndef TAVREL_TESTS_WORLDS_WORLD_H
#define TAVREL_TESTS_WORLDS_WORLD_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/reference/Navigators.h"
#include "tests/reference/PlainNavigator.h"

namespace tavrel::worlds {

/// What is thrown for a difference. The message has the chart and what was asked.
class Differs : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Up to 45 charts at a time, read by a navigator and by the reference.
class Sheet {
 public:
  static constexpr std::size_t room = 45;

  Sheet();
  /// New navigators over these files. REQUIRES: no more than `room`.
  void lay(const std::vector<std::string>& files);

  /// Puts the request to both, and compares answers, cursor, bounds and marks. Throws
  /// Differs.
  void ask(const reference::Request& request);
  /// Compares all that is held of one flowchart, or of all. Throws Differs.
  void compareChart(std::size_t index);
  void compareEverything();
  /// Puts both cursors on an element of the current flowchart, without a move.
  void putCursorOn(std::size_t element);

  const reference::PlainEngine& plain() const { return plain_->engine; }
  CTavrel& engine() { return navigator_->engine(); }
  std::uint64_t requests() const { return requests_; }

  [[noreturn]] void fail(const std::string& what, const std::string& reference,
                         const std::string& navigator) const;

 private:
  std::vector<std::string> files_;
  reference::Behaviours met_;
  reference::TemporaryFiles directory_;
  std::unique_ptr<reference::PlainNavigator> plain_;
  std::unique_ptr<reference::FacadeRespondent> navigator_;
  std::uint64_t requests_ = 0;
};

class World {
 public:
  virtual ~World() = default;
  /// How many charts there are; each has a number below.
  virtual std::size_t size() const = 0;
  /// The bytes of one.
  virtual std::string file(std::size_t number) const = 0;
  /// Tries the flowchart of this index, which is one of the world.
  virtual void tryChart(std::size_t index, Sheet& sheet) const = 0;
};

}  // namespace tavrel::worlds

#endif  // TAVREL_TESTS_WORLDS_WORLD_H
