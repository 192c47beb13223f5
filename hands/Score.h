// What a player of the quiz knows by now, and what is asked next.

#ifndef TAVREL_HANDS_SCORE_H
#define TAVREL_HANDS_SCORE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>
#include <vector>

#include "hands/Deal.h"

namespace tavrel::hands {

/// A chart and the name of one of its ends.
struct EndName {
  std::string chart, end;

  friend bool operator<(const EndName& a, const EndName& b) {
    return std::tie(a.chart, a.end) < std::tie(b.chart, b.end);
  }
};

/// How an end has been answered.
struct EndScore {
  std::uint32_t asked = 0;
  std::uint32_t right = 0;
  std::uint32_t last = 0;   ///< the number of the answer given last, of all in the score, from 1
  std::uint32_t inRow = 0;  ///< right ones since the last miss, up to Score::mostInRow
};

/// The answers given so far, by chart and end.
///
/// When an end's time comes again follows from how often in a row it was right: after a miss with
/// three others between, then with 9, 29, 99 and 299. Every second question is for an end that was
/// missed and whose time has come; it waits for the next one if need be. The other questions, and
/// those for which there is none, are for ends that were never asked, or else for any whose time
/// has come, or else for any but the three asked last. Chance decides among them.
class Score {
 public:
  static constexpr std::uint32_t mostInRow = 4;

  /// Answers from one question to the next of the same end, by the right ones in a row.
  static constexpr std::array<std::uint32_t, mostInRow + 1> intervals = {4, 10, 30, 100, 300};

  /// Of the bytes of a file, which bytes() made; otherwise why they are none, as a clause.
  static std::variant<Score, std::string> read(std::string_view bytes);

  /// Lines of text, the same for the same score.
  std::string bytes() const;

  /// Nothing but zeros for an end that wasn't asked.
  EndScore of(const EndName& end) const;

  const std::map<EndName, EndScore>& ends() const { return ends_; }

  /// An answer was given.
  void note(const EndName& end, bool isRight);

  /// Forgets all ends of a chart; without any left, the score is a new one. Returns how many
  /// answers there were.
  std::uint64_t forget(std::string_view chart);

  /// Which of the ends is asked next. REQUIRES: there is one.
  std::size_t next(const std::vector<EndName>& ends, Random& random) const;

 private:
  std::uint32_t age(const EndScore& end) const { return answers_ + 1 - end.last; }

  std::uint32_t answers_ = 0;  // in all, those forgotten included
  std::map<EndName, EndScore> ends_;
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_SCORE_H
