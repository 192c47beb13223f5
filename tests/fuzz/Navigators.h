// Navigators for many inputs.

#ifndef TAVREL_TESTS_FUZZ_NAVIGATORS_H
#define TAVREL_TESTS_FUZZ_NAVIGATORS_H

#include <cstddef>
#include <memory>
#include <string>

#include "tests/fuzz/MemoryFiles.h"

namespace tavrel::fuzz {

/// Hands out the flowcharts of one navigator's catalogue, some to each input, so that none
/// is ever read for two; another navigator follows when they are used up. Making one costs
/// as much as several inputs. The catalogue's last flowchart is handed out to none: `begin`
/// may put the cursor there, so that all inputs begin alike.
template <typename Navigator>
class Navigators {
 public:
  Navigators(std::size_t catalogueSize, std::size_t perInput,
             void (*begin)(Navigator&, std::size_t last))
      : last_(catalogueSize - 1), perInput_(perInput), begin_(begin), next_(catalogueSize) {}

  /// The first flowchart of the next input.
  std::size_t nextCharts() {
    if (next_ + perInput_ > last_) {
      navigator_ = make();
      next_ = 0;
    }
    begin_(*navigator_, last_);
    const std::size_t first = next_;
    next_ += perInput_;
    return first;
  }

  Navigator& navigator() { return *navigator_; }

  /// Puts a new navigator in the place of this one, whose flowcharts are all unread.
  void renew() { navigator_ = make(); }

 private:
  static std::unique_ptr<Navigator> make() {
    return std::make_unique<Navigator>(std::string(memoryFolder) + "/");
  }

  std::size_t last_, perInput_;
  void (*begin_)(Navigator&, std::size_t last);
  std::size_t next_;
  std::unique_ptr<Navigator> navigator_;
};

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_NAVIGATORS_H
