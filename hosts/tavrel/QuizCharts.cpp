#include "hosts/tavrel/QuizCharts.h"

#include <algorithm>

#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/Walk.h"
#include "hosts/tavrel/Words.h"

namespace tavrel {
namespace {

using Commentaries = std::vector<std::vector<std::string>>;

Commentaries commentariesOf(const Library& library, const CatalogueEntry& entry,
                            const hands::HandChart& chart) {
  Walk walk(library);
  walk.enter(entry);
  Commentaries commentaries(chart.boxes().size());
  for (const ScreenElement& element : walk.navigator().allElements()) {
    const hands::BoxIndex box = chart.at({element.x(), element.y()});
    if (!element.isNode() || box == hands::noBox || !commentaries[box].empty()) continue;
    commentaries[box] = readableLines([&] { return element.commentaryText(); });
  }
  return commentaries;
}

}  // namespace

QuizChart::QuizChart(const Library& library, const CatalogueEntry& itsEntry,
                     const hands::HandChart& chart)
    : entry(itsEntry), dealer(chart), commentaries(commentariesOf(library, itsEntry, chart)) {}

QuizCharts::QuizCharts(HandCharts& charts, const std::vector<std::string>& names) {
  const Library& library = charts.library();
  for (const std::string& name : names) {
    const CatalogueEntry& entry = library.find(name);
    if (charts.chart(entry).conditions().auctions.empty()) {
      throw Failure("the chart " + entry.name +
                    " doesn't say which auctions it is for, so no hands can be dealt for it; its "
                    "source says so with 'applies'");
    }
    add(charts, entry);
  }
  if (names.empty()) {
    for (const hands::HandChart* chart : charts.all()) add(charts, charts.entryOf(*chart));
  }
  if (!ends_.empty()) return;
  throw Failure("there is nothing to ask: no chart in '" + library.directory().string() +
                "' says which auctions it is for and what it bids");
}

void QuizCharts::add(HandCharts& charts, const CatalogueEntry& entry) {
  const bool isThere = std::any_of(charts_.begin(), charts_.end(), [&](const QuizChart& each) {
    return each.entry.index == entry.index;
  });
  if (isThere) return;
  QuizChart& chart = charts_.emplace_back(charts.library(), entry, charts.chart(entry));
  const std::vector<std::string>& ends = chart.dealer.ends();
  for (std::size_t number = 0; number < ends.size(); ++number) {
    ends_.push_back({&chart, number});
    names_.push_back({entry.name, ends[number]});
  }
}

std::optional<DealtQuestion> QuizCharts::deal(const hands::Score& score, hands::Random& random) {
  while (!ends_.empty()) {
    const std::size_t i = score.next(names_, random);
    const auto [chart, number] = ends_[i];
    auto question = chart->dealer.deal(number, random);
    if (question) {
      return DealtQuestion{chart, names_[i], chart->dealer.boxOf(number), std::move(*question)};
    }
    ends_.erase(ends_.begin() + static_cast<std::ptrdiff_t>(i));
    names_.erase(names_.begin() + static_cast<std::ptrdiff_t>(i));
  }
  return std::nullopt;
}

}  // namespace tavrel
