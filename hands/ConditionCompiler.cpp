#include "hands/ConditionCompiler.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "authoring/ExpressionPlace.h"
#include "authoring/InShort.h"
#include "authoring/SourceReader.h"
#include "hands/AuctionPattern.h"
#include "hands/Call.h"
#include "hands/ExpressionCheck.h"

namespace tavrel::hands {
namespace {

using authoring::ChartSource;
using authoring::Code;
using authoring::Diagnostics;
using authoring::SourceBox;
using authoring::SourceCall;
using authoring::SourceExpression;
using authoring::SourceFile;

class Check {
 public:
  Check(const ChartSource& source, const SourceFile& file, Diagnostics& found)
      : source_(source), file_(file), found_(found) {}

  void check() {
    checkAuctions();
    checkCondition(source_.hand);
    for (const SourceBox& box : source_.boxes) {
      checkCondition(box.when);
      checkCondition(box.shows);
      for (const SourceCall& call : box.calls) check(call);
    }
  }

 private:
  void add(const Fault& fault, const SourceExpression& in) {
    found_.add(fault.code, placeIn(file_, in, fault.offset), fault.text, fault.cure);
  }

  void checkAuctions() {
    PatternAuctions auctions;
    for (const SourceExpression& pattern : source_.auctions) {
      const std::optional<Fault> fault = auctions.add(pattern.text);
      if (fault) add(*fault, pattern);
      hasSureAuctions_ = hasSureAuctions_ && !fault;
    }
    for (const Auction& auction : auctions.all()) noteAllowed(auction);
    hasSureAuctions_ = hasSureAuctions_ && !auctions.all().empty();
  }

  void noteAllowed(const Auction& auction) {
    for (std::size_t call = 0; call < isAllowed_.size(); ++call) {
      isAllowed_[call] = isAllowed_[call] || auction.allows(static_cast<Call>(call));
    }
  }

  void checkCondition(const std::optional<SourceExpression>& condition) {
    if (!condition) return;
    const CheckedExpression checked = checkExpression(condition->text, Type::truth);
    for (const Fault& fault : checked.faults) add(fault, *condition);
  }

  void check(const SourceCall& choice) {
    checkCondition(choice.when);
    const std::string& text = choice.call.text;
    const std::optional<Call> call = callIn(text);
    if (!call) {
      found_.add(Code::unknownCall, choice.call.place, authoring::inShort(text) + " is no call",
                 "calls are written as 1NT, 2C, P, X and XX");
    } else if (hasSureAuctions_ && !isAllowed_[static_cast<std::size_t>(*call)]) {
      found_.add(Code::callNotAllowed, choice.call.place,
                 "nobody may call " + nameOf(*call) + " after any auction that the chart is for",
                 "write another call, or other auctions behind applies");
    }
  }

  const ChartSource& source_;
  const SourceFile& file_;
  Diagnostics& found_;
  bool hasSureAuctions_ = true;
  std::array<bool, static_cast<std::size_t>(Call::sevenNotrump) + 1> isAllowed_ = {};
};

std::optional<std::string> textOf(const std::optional<SourceExpression>& expression) {
  if (!expression) return std::nullopt;
  return expression->text;
}

bool saysAnything(const SourceBox& box) {
  return box.when || box.asksJudgement || !box.calls.empty() || box.shows || box.forcing ||
         box.next || box.never.yes || box.never.no;
}

BoxConditions conditionsOf(const SourceBox& box, std::vector<Cell> cells) {
  BoxConditions conditions;
  conditions.cells = std::move(cells);
  conditions.id = box.id;
  conditions.when = textOf(box.when);
  conditions.asksJudgement = box.asksJudgement;
  for (const SourceCall& each : box.calls) {
    conditions.calls.push_back({textOf(each.when), callIn(each.call.text).value_or(Call::none)});
  }
  conditions.shows = textOf(box.shows);
  conditions.forcing = box.forcing;
  conditions.next = box.next;
  conditions.never = {textOf(box.never.yes), textOf(box.never.no)};
  return conditions;
}

// Where each box stands, in reading order.
std::vector<std::vector<Cell>> cellsByBox(const authoring::CompiledChart& chart) {
  std::vector<std::vector<Cell>> cells(chart.source.boxes.size());
  for (const authoring::PlacedBox& placed : chart.grid.boxes) {
    cells[static_cast<std::size_t>(placed.box)].push_back({placed.cell.x, placed.cell.y});
  }
  for (std::vector<Cell>& each : cells) std::sort(each.begin(), each.end());
  return cells;
}

}  // namespace

bool hasConditions(const ChartSource& source) { return source.saysOfHands(); }

void checkConditions(const ChartSource& source, const SourceFile& file, Diagnostics& found) {
  Check(source, file, found).check();
}

std::optional<authoring::CompiledChart> compileWithConditions(const SourceFile& file,
                                                              const authoring::Catalogue& catalogue,
                                                              Diagnostics& found) {
  std::optional<ChartSource> source = readInPart(file, catalogue, found);
  if (source) checkConditions(*source, file, found);
  if (!source || found.hasErrors()) return std::nullopt;
  return authoring::compile(std::move(*source), found);
}

Conditions conditionsOf(const authoring::CompiledChart& chart) {
  const ChartSource& source = chart.source;
  Conditions conditions;
  conditions.chart = source.chart;
  conditions.digest = digestOf(chart.bytes);
  PatternAuctions auctions;
  for (const SourceExpression& pattern : source.auctions) {
    conditions.patterns.push_back(pattern.text);
    auctions.add(pattern.text);
  }
  conditions.auctions = auctions.all();
  conditions.hand = textOf(source.hand);
  std::vector<std::vector<Cell>> cells = cellsByBox(chart);
  for (std::size_t i = 0; i < source.boxes.size(); ++i) {
    if (!saysAnything(source.boxes[i])) continue;
    conditions.boxes.push_back(conditionsOf(source.boxes[i], std::move(cells[i])));
  }
  return conditions;
}

}  // namespace tavrel::hands
