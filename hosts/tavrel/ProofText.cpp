#include <algorithm>
#include <array>
#include <cstdio>

#include "hands/Dealer.h"
#include "hosts/tavrel/ProofReport.h"

namespace tavrel {
namespace {

using hands::EndOfHands;
using hands::Finding;
using hands::Position;
using hands::Table;

// "1,234,567".
std::string grouped(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, 1, ',');
  return digits;
}

std::string counted(std::uint64_t count, const char* what) {
  return grouped(count) + " " + what + (count == 1 ? "" : "s");
}

std::string shareOf(std::uint64_t count, std::uint64_t all) {
  std::array<char, 32> text = {};
  const double share = all == 0 ? 0 : 100.0 * static_cast<double>(count) / static_cast<double>(all);
  std::snprintf(text.data(), text.size(), count > 0 && share < 0.01 ? "%.4f %%" : "%.2f %%", share);
  return text.data();
}

std::string whoIsVulnerable(const Table& table) {
  if (table.isVulnerable) return table.areTheyVulnerable ? "all vulnerable" : "you vulnerable";
  return table.areTheyVulnerable ? "they vulnerable" : "none vulnerable";
}

// Left-aligned columns; the last one is as wide as it likes, and numbers stand at the right.
class Columns {
 public:
  explicit Columns(std::vector<bool> areNumbers)
      : areNumbers_(std::move(areNumbers)), widths_(areNumbers_.size()) {}

  void add(std::vector<std::string> row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths_[i] = std::max(widths_[i], displayWidth(row[i]));
    }
    rows_.push_back(std::move(row));
  }

  std::string text() const {
    std::string text;
    for (const auto& row : rows_) {
      std::string line;
      for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string room(static_cast<std::size_t>(widths_[i] - displayWidth(row[i])), ' ');
        line += "  " + (areNumbers_[i] ? room + row[i] : row[i] + room);
      }
      text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
  }

 private:
  const std::vector<bool> areNumbers_;
  std::vector<int> widths_;
  std::vector<std::vector<std::string>> rows_;
};

class Writer {
 public:
  Writer(const ProofReport& report, Charset charset) : report_(report), charset_(charset) {}

  std::string text() {
    for (const ChartReport& chart : report_.charts) write(chart);
    add(counted(report_.charts.size(), "chart") +
        " proved: " + counted(report_.findingCount(), "finding"));
    return text_;
  }

 private:
  void add(const std::string& line) { text_ += printable(line, charset_) + "\n"; }

  void write(const ChartReport& chart) {
    const hands::DealRange& range = report_.range;
    const std::string part =
        range.first == 0 ? "" : ", from the deal " + grouped(range.first) + " on";
    add(chart.subject->chart().name() + ": " + counted(chart.tally.deals, "deal") + " of seed " +
        std::to_string(report_.seed) + part);
    if (chart.tally.undealt > 0) {
      add("  no hand was found for " + grouped(chart.tally.undealt) + " of them");
    }
    writeEnds(chart);
    for (const Finding& finding : chart.proof.findings) write(chart, finding);
    if (!chart.proof.notes.empty()) text_ += "\n";
    for (const std::string& note : chart.proof.notes) add("note: " + note);
    text_ += "\n";
  }

  void writeEnds(const ChartReport& chart) {
    Columns columns({false, false, true, true, false, false});
    columns.add({"end", "call", "deals", "share", "first hand", "its auction"});
    for (const EndOfHands& end : chart.proof.ends) {
      columns.add({printable(chart.subject->chart().nameOf(end.box), charset_), callsOf(end),
                   grouped(end.count), shareOf(end.count, chart.tally.deals),
                   end.position ? written(end.position->hand) : "none",
                   end.position ? auctionOf(chart, *end.position) : ""});
    }
    text_ += "\n" + columns.text();
  }

  std::string callsOf(const EndOfHands& end) const {
    std::string calls;
    for (const hands::Call call : end.calls) {
      const std::string name = shown(call, charset_);
      const bool isNew = (" " + calls + " ").find(" " + name + " ") == std::string::npos;
      if (isNew) calls += (calls.empty() ? "" : " ") + name;
    }
    return calls;
  }

  std::string auctionOf(const ChartReport& chart, const Position& position) const {
    const Table& table = chart.subject->tables()[position.table];
    const std::string calls = shown(table.auction, charset_);
    return (calls.empty() ? "none yet" : calls) + ", " + whoIsVulnerable(table);
  }

  void write(const ChartReport& chart, const Finding& finding) {
    text_ += "\n";
    add(std::string(nameOf(finding.kind)) + ": " + chart.subject->chart().nameOf(finding.box) +
        ": " + finding.text);
    if (finding.position) writeExample(chart, finding);
    for (const hands::Refutation& each : finding.proof) write(each);
    add("  " + finding.cure);
  }

  void writeExample(const ChartReport& chart, const Finding& finding) {
    const std::string seen = finding.count == 0
                                 ? "in none of the deals, but with"
                                 : "in " + counted(finding.count, "deal") + ", first with";
    add("  " + seen + " " + written(finding.position->hand) + " (" +
        auctionOf(chart, *finding.position) + ")");
  }

  void write(const hands::Refutation& refutation) {
    const bool isOne = refutation.conditions.size() == 1;
    add(isOne ? "  no hand fulfils" : "  no hand fulfils all of");
    for (const std::string& condition : refutation.conditions) add("    " + condition);
  }

  const ProofReport& report_;
  const Charset charset_;
  std::string text_;
};

}  // namespace

std::size_t ProofReport::findingCount() const {
  std::size_t count = 0;
  for (const ChartReport& chart : charts) count += chart.proof.findings.size();
  return count;
}

std::string textOf(const ProofReport& report, Charset charset) {
  return Writer(report, charset).text();
}

}  // namespace tavrel
