#include "hosts/tavrel/Bid.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <optional>
#include <utility>

#include "authoring/InShort.h"
#include "hands/HandFile.h"
#include "hosts/tavrel/BidReport.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/HandCharts.h"
#include "hosts/tavrel/HandStart.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/Judge.h"
#include "hosts/tavrel/SourceCharts.h"
#include "hosts/tavrel/Words.h"
#include "text/NearMiss.h"
#include "text/Text.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using namespace hands;

// Line by line, so that the ends of lines stay.
std::string printableLines(const std::string& text) {
  std::string all;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    all += printable(text.substr(begin, end - begin), localeCharset()) + "\n";
    begin = end + 1;
  }
  return all;
}

// Bids one hand after another with the same charts.
class Bidder {
 public:
  Bidder(const BidArguments& arguments, const Library& library, std::string chart)
      : arguments_(arguments),
        library_(library),
        charts_(library),
        walk_(walkThrough(charts_)),
        chart_(std::move(chart)) {}

  // One hand, told at length.
  int bidOne() {
    const Bid bid = bidOf(seated(arguments_.hand, tableOf(arguments_.table), arguments_.table),
                          askOnTerminal());
    if (arguments_.asJson) {
      std::cout << reportJson(bid, library_, false) << "\n";
    } else {
      std::cout << printableLines(report(bid, library_, arguments_.isExplained));
    }
    const std::string open = openEndOf(bid);
    if (open.empty()) return 0;
    std::cout.flush();
    tellFailure(printable(open, localeCharset()));
    return statusOf(bid);
  }

  // Hands from standard input, a line each, or a file of deals.
  int bidAll() {
    int status = 0;
    std::size_t number = 0;
    bool isFirst = true;  // of those that say anything
    for (std::string line; readLine(line);) {
      ++number;
      if (number == 1) removeByteOrderMark(line);
      if (line.find_first_not_of(" \t\r") == std::string::npos || line[0] == '#') continue;
      if (isFirst && isDealFile(line)) return bidFile(line + "\n" + restOfInput());
      isFirst = false;
      tell(bidLine(line, "line " + std::to_string(number)), status);
    }
    return status;
  }

  // Every board of a file, with its own dealer, vulnerability and unfinished auction.
  int bidFile(const std::string& bytes) {
    int status = 0, count = 0;
    readBoards(bytes, [&](const Board& board) {
      ++count;
      tell(bidBoard(board), status);
    });
    if (count == 0) throw Failure("there is no deal in the file; it is read as PBN or LIN");
    return status;
  }

 private:
  // A file of deals may stand in one line; more than that can't be anybody's hand.
  static bool readLine(std::string& line) {
    constexpr std::size_t longest = std::size_t{1} << 20;
    line.clear();
    int byte = 0;
    while ((byte = std::cin.get()) != std::istream::traits_type::eof() && byte != '\n') {
      if (line.size() < longest) line += static_cast<char>(byte);
    }
    return byte == '\n' || !line.empty();
  }

  static void removeByteOrderMark(std::string& line) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (line.compare(0, mark.size(), mark) == 0) line.erase(0, mark.size());
  }

  static std::string restOfInput() {
    return std::cin.eof() ? std::string() : std::string(readInput("-").bytes());
  }

  Bid bidOf(const HandAtTable& hand, const HandWalk::Judge& judge) {
    const HandStart start = chart_.empty()
                                ? startAnywhere(charts_, hand, walk_)
                                : startIn(charts_.chart(library_.find(chart_)), hand, walk_);
    return {hand.situation, walk_.walk(*start.chart, hand.situation, start.turn, judge)};
  }

  static HandWalk::Judge nobody() {
    return [](const HandChart&, BoxIndex) { return std::nullopt; };
  }

  // What is told of one hand of many, and its part of the exit status.
  struct Result {
    std::string line;
    int status;
  };

  // What can't be bid has a line as well, so that lines keep their places.
  template <typename Seat>
  Result bidWith(Seat seat, const std::string& place, const std::string& text) try {
    const Bid bid = bidOf(seat(), nobody());
    const std::string open = openEndOf(bid);
    if (!open.empty()) tellFailure(place + ": " + printable(open, localeCharset()));
    if (arguments_.asJson) return {reportJson(bid, library_, true), statusOf(bid)};
    return {reportLine(bid), statusOf(bid)};
  } catch (const Failure& failure) {
    tellFailure(place + ": " + failure.what());
    const std::string why = printable(failure.what(), Charset::utf8);
    return {arguments_.asJson ? failureJson(why) : "!\t" + authoring::inShort(text), failureStatus};
  }

  Result bidLine(const std::string& line, const std::string& place) {
    const auto seat = [&] { return seated(line, tableOf(arguments_.table), arguments_.table); };
    return bidWith(seat, place, line);
  }

  Result bidBoard(const Board& board) {
    const std::string place =
        "line " + std::to_string(board.line) + (board.name.empty() ? "" : ", board " + board.name);
    const auto seat = [&] { return seatedAs(board); };
    return bidWith(seat, place, board.name);
  }

  // The command line goes before what the file says.
  HandAtTable seatedAs(const Board& board) const {
    if (board.fault) throw Failure(shown(*board.fault));
    const TableArguments& table = arguments_.table;
    Situation situation = tableOf(table);
    situation.hands = board.hands;
    if (!table.dealer && board.dealer) situation.dealer = *board.dealer;
    if (!table.vulnerable && board.vulnerability) situation.vulnerability = *board.vulnerability;
    if (!table.auction && board.auction && !board.auction->isOver()) {
      situation.auction = *board.auction;
    }
    const Seat seat = seatMeant(situation, table);
    if (!handOf(situation.hands, seat)) {
      throw Failure(std::string("there is no hand of ") + nameOf(seat) + "'s, who calls next");
    }
    return {std::move(situation), seat};
  }

  static void tell(const Result& result, int& status) {
    std::cout << printableFields(result.line) << std::endl;
    const bool isWorse = result.status == failureStatus || status == 0;
    if (result.status != 0 && isWorse) status = result.status;
  }

  // Tabs stand between fields.
  static std::string printableFields(const std::string& line) {
    std::string all;
    for (std::size_t begin = 0; begin <= line.size();) {
      const std::size_t end = std::min(line.find('\t', begin), line.size());
      all += (begin == 0 ? "" : "\t") + printable(line.substr(begin, end - begin), localeCharset());
      begin = end + 1;
    }
    return all;
  }

  const BidArguments& arguments_;
  const Library& library_;
  HandCharts charts_;
  HandWalk walk_;
  const std::string chart_;  // empty for the one that fits
};

bool isDealFileName(const std::string& name) {
  const std::string extension = lowerCase(fs::path(name).extension().string());
  return extension == ".pbn" || extension == ".lin";
}

int bidWith(const BidArguments& arguments, const Library& library, const std::string& chart) {
  Bidder bidder(arguments, library, chart);
  const bool isFile = isDealFileName(arguments.hand);
  if (arguments.hand != "-" && !isFile) return bidder.bidOne();
  if (arguments.isExplained) throw Failure("--explain is for one hand; --json tells all of many");
  tableOf(arguments.table);
  return isFile ? bidder.bidFile(std::string(readInput(arguments.hand).bytes())) : bidder.bidAll();
}

}  // namespace

int bidHands(const BidArguments& arguments, const std::optional<std::string>& charts) {
  const fs::path directory = charts ? fs::path(*charts) : defaultChartsDirectory();
  if (!isSource(arguments.chart)) return bidWith(arguments, Library(directory), arguments.chart);
  SourceCharts source(arguments.chart, directory);
  const bool isFine = source.compile();
  std::cerr << source.said();
  if (!isFine) return 1;
  return bidWith(arguments, Library(source.folder(), source.origin()), source.chart());
}

}  // namespace tavrel
