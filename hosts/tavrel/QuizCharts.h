// The charts of a quiz, and the questions that can be asked of them.

#ifndef TAVREL_HOSTS_TAVREL_QUIZCHARTS_H
#define TAVREL_HOSTS_TAVREL_QUIZCHARTS_H

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "facade/Tavrel.h"
#include "hands/QuizDealer.h"
#include "hands/Score.h"
#include "hosts/tavrel/HandCharts.h"

namespace tavrel {

/// A chart with a dealer for it, and its commentary.
struct QuizChart {
  QuizChart(const Library& library, const CatalogueEntry& entry, const hands::HandChart& chart);

  const CatalogueEntry& entry;
  hands::QuizDealer dealer;
  std::vector<std::vector<std::string>> commentaries;  ///< by box, line by line
};

/// A question that has been dealt, and where it belongs.
struct DealtQuestion {
  QuizChart* chart;
  hands::EndName end;
  hands::BoxIndex box;  ///< where the end stands first
  hands::QuizQuestion question;
};

class QuizCharts {
 public:
  /// Of the charts of these names, or else of all in the library that say what they are for. Throws
  /// Failure where that is none. `charts` must outlive this.
  QuizCharts(HandCharts& charts, const std::vector<std::string>& names);

  /// Deals a question for the end that the score chooses. Ends for which no hand is found are left
  /// out from then on; std::nullopt once all are.
  std::optional<DealtQuestion> deal(const hands::Score& score, hands::Random& random);

 private:
  // An end that can be asked for.
  struct End {
    QuizChart* chart;
    std::size_t number;  // among those of the chart's dealer
  };

  void add(HandCharts& charts, const CatalogueEntry& entry);

  std::deque<QuizChart> charts_;  // which stay where they are
  std::vector<hands::EndName> names_;
  std::vector<End> ends_;  // by the names
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_QUIZCHARTS_H
