// Hands whose calls a bridge player worked out from the texts of the charts.

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "hands/AuctionText.h"
#include "hands/HandText.h"
#include "hands/Walker.h"
#include "tests/hands/BuiltCharts.h"

namespace tavrel::hands {
namespace {

struct ReviewedHand {
  std::size_t line;
  std::string hand, chart, auction, vulnerability, call, reason;
};

std::vector<std::string> fieldsOf(const std::string& line) {
  constexpr const char* separator = " | ";
  std::vector<std::string> fields;
  std::size_t from = 0;
  for (std::size_t at; (at = line.find(separator, from)) != std::string::npos; from = at + 3) {
    fields.push_back(line.substr(from, at - from));
  }
  fields.push_back(line.substr(from));
  return fields;
}

std::vector<ReviewedHand> reviewedHands() {
  std::ifstream file(TAVREL_CHART_SOURCES "/hands-reviewed.txt");
  std::vector<ReviewedHand> hands;
  std::string line;
  for (std::size_t number = 1; std::getline(file, line); ++number) {
    if (line.empty() || line[0] == '#') continue;
    const std::vector<std::string> fields = fieldsOf(line);
    if (fields.size() != 6) throw std::runtime_error("not six fields: " + line);
    hands.push_back({number, fields[0], fields[1], fields[2] == "-" ? "" : fields[2], fields[3],
                     fields[4], fields[5]});
  }
  return hands;
}

Table tableOf(const ReviewedHand& hand) {
  Table table;
  table.auction = std::get<Auction>(readAuction(hand.auction));
  table.isVulnerable = hand.vulnerability == "we" || hand.vulnerability == "both";
  table.areTheyVulnerable = hand.vulnerability == "they" || hand.vulnerability == "both";
  return table;
}

// Charts and their walkers, each made when a hand asks for it.
class Charts {
 public:
  Walker& operator[](const std::string& name) {
    Entry& entry = entries_[name];
    if (!entry.walker) {
      entry.chart = std::make_unique<HandChart>(builtChart(name));
      entry.walker = std::make_unique<Walker>(*entry.chart);
    }
    return *entry.walker;
  }

 private:
  struct Entry {
    std::unique_ptr<HandChart> chart;
    std::unique_ptr<Walker> walker;
  };
  std::map<std::string, Entry> entries_;
};

bool isForAuction(const Conditions& conditions, const Auction& auction) {
  for (const Auction& each : conditions.auctions) {
    if (each == auction) return true;
  }
  return false;
}

TEST(TheReviewedHands, AreTwoHundredDifferentOnes) {
  std::set<std::string> different;
  for (const ReviewedHand& hand : reviewedHands()) {
    different.insert(hand.hand + hand.auction);
    EXPECT_FALSE(hand.reason.empty()) << "line " << hand.line;
  }
  EXPECT_EQ(different.size(), 200U);
}

TEST(TheReviewedHands, AreBidAsTheReviewerBidThem) {
  Charts charts;
  for (const ReviewedHand& hand : reviewedHands()) {
    SCOPED_TRACE("line " + std::to_string(hand.line) + ": " + hand.hand);
    Walker& walker = charts[hand.chart];
    const Table table = tableOf(hand);
    walker.evaluation().setTable(table);
    walker.evaluation().setHand(std::get<Hand>(readHand(hand.hand)));
    EXPECT_TRUE(isForAuction(walker.chart().conditions(), table.auction));
    EXPECT_TRUE(walker.isForHand());
    ASSERT_EQ(walker.walk([](BoxIndex) { return std::optional<Answer>(); }), Ending::end);
    EXPECT_EQ(nameOf(walker.callAt(walker.end())), hand.call)
        << "at " << walker.chart().nameOf(walker.end()) << ", where the reviewer says "
        << hand.reason;
  }
}

}  // namespace
}  // namespace tavrel::hands
