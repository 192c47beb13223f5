#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "hands/HandText.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/ProofReport.h"

namespace tavrel {
namespace {

using hands::BoxIndex;
using hands::BoxTally;
using hands::Extent;
using hands::HandChart;
using hands::Position;
using hands::Seen;
using hands::Subject;
using hands::Tally;
using Json = nlohmann::ordered_json;

constexpr int version = 1;

constexpr std::array answerNames = {"yes", "no"};
constexpr std::array fallNames = {"loop",      "noCall",       "illegalCall", "falseShows",
                                  "falseText", "wrongAuction", "wrongHand"};
static_assert(fallNames.size() == hands::fallCount);
constexpr std::array measureNames = {"hcp", "spades", "hearts", "diamonds", "clubs"};
static_assert(measureNames.size() == hands::measures.size());

const char* nameOf(hands::Answer answer) { return answerNames[static_cast<std::size_t>(answer)]; }

// --- writing ------------------------------------------------------------------------

Json written(const Seen& seen) {
  if (seen.count == 0) return {{"count", 0}};
  return {{"count", seen.count},
          {"deal", seen.deal},
          {"hand", hands::written(seen.position.hand)},
          {"table", seen.position.table}};
}

Json writtenFalls(const BoxTally& tally) {
  Json falls = Json::object();
  for (std::size_t i = 0; i < fallNames.size(); ++i) {
    if (tally.falls[i].count > 0) falls[fallNames[i]] = written(tally.falls[i]);
  }
  return falls;
}

Json writtenExtents(const BoxTally& tally) {
  Json extents = Json::object();
  for (std::size_t i = 0; i < measureNames.size(); ++i) {
    extents[measureNames[i]] = Json::array({tally.extents[i].least, tally.extents[i].most});
  }
  return extents;
}

Json written(const HandChart& chart, BoxIndex box, const BoxTally& tally) {
  Json object = {{"box", chart.nameOf(box)},
                 {"cell", Json::array({chart[box].cell.x, chart[box].cell.y})}};
  if (!chart[box].isEnd()) {
    object["yes"] = written(tally.answers.yes);
    object["no"] = written(tally.answers.no);
  } else {
    object["reached"] = written(tally.reached);
    for (const Seen& call : tally.calls) object["calls"].push_back(written(call));
    if (tally.reached.count > 0) object["extents"] = writtenExtents(tally);
  }
  const Json falls = writtenFalls(tally);
  if (!falls.empty()) object["falls"] = falls;
  return object;
}

Json written(const Subject& subject, const Tally& tally) {
  Json object = {{"deals", tally.deals}, {"undealt", tally.undealt}, {"boxes", Json::array()}};
  for (BoxIndex box = 0; box < tally.boxes.size(); ++box) {
    if (subject.firstOf(box) != box) continue;
    object["boxes"].push_back(written(subject.chart(), box, tally.boxes[box]));
  }
  return object;
}

void put(Json& object, const Subject& subject, const std::optional<Position>& position) {
  if (!position) return;
  const hands::Table& table = subject.tables()[position->table];
  object["hand"] = hands::written(position->hand);
  object["auction"] = hands::written(table.auction);
  object["vulnerability"] = hands::vulnerabilityOf(table);
}

Json written(const Subject& subject, const hands::EndOfHands& end, std::uint64_t deals) {
  Json object = {{"box", subject.chart().nameOf(end.box)}, {"calls", Json::array()}};
  for (const hands::Call call : end.calls) object["calls"].push_back(hands::nameOf(call));
  object["count"] = end.count;
  object["share"] = deals == 0 ? 0.0 : static_cast<double>(end.count) / static_cast<double>(deals);
  put(object, subject, end.position);
  return object;
}

Json written(const Subject& subject, const hands::Finding& finding) {
  Json object = {{"kind", hands::nameOf(finding.kind)},
                 {"box", subject.chart().nameOf(finding.box)}};
  if (finding.answer) object["answer"] = nameOf(*finding.answer);
  object["text"] = finding.text;
  object["cure"] = finding.cure;
  object["count"] = finding.count;
  put(object, subject, finding.position);
  for (const hands::Refutation& each : finding.proof) {
    object["proof"].push_back({{"conditions", each.conditions}, {"smallest", each.isSmallest}});
  }
  return object;
}

Json written(const ChartReport& report) {
  const Subject& subject = *report.subject;
  Json object = {{"chart", subject.chart().name()},
                 {"digest", subject.digest()},
                 {"tally", written(subject, report.tally)},
                 {"ends", Json::array()},
                 {"findings", Json::array()},
                 {"notes", report.proof.notes}};
  for (const hands::EndOfHands& end : report.proof.ends) {
    object["ends"].push_back(written(subject, end, report.tally.deals));
  }
  for (const hands::Finding& finding : report.proof.findings) {
    object["findings"].push_back(written(subject, finding));
  }
  return object;
}

// --- reading ------------------------------------------------------------------------

// What keeps a file from being a report; a clause.
struct Unreadable {
  std::string why;
};

Position positionIn(const Json& object, const Subject& subject) {
  const auto hand = hands::readHand(object.at("hand").get<std::string>());
  if (!std::holds_alternative<hands::Hand>(hand)) throw Unreadable{"a hand in it is none"};
  const auto table = object.at("table").get<std::uint64_t>();
  if (table >= subject.tables().size()) throw Unreadable{"a table in it isn't one of the chart"};
  return {std::get<hands::Hand>(hand), static_cast<std::uint32_t>(table)};
}

Seen seenIn(const Json& object, const Subject& subject) {
  Seen seen;
  seen.count = object.at("count").get<std::uint64_t>();
  if (seen.count == 0) return seen;
  seen.deal = object.at("deal").get<std::uint64_t>();
  seen.position = positionIn(object, subject);
  return seen;
}

void readEnd(const Json& object, const Subject& subject, BoxTally& tally) {
  tally.reached = seenIn(object.at("reached"), subject);
  for (std::size_t i = 0; i < tally.calls.size(); ++i) {
    tally.calls[i] = seenIn(object.at("calls").at(i), subject);
  }
  if (tally.reached.count == 0) return;
  for (std::size_t i = 0; i < measureNames.size(); ++i) {
    const Json& extent = object.at("extents").at(measureNames[i]);
    tally.extents[i] = {extent.at(0).get<int>(), extent.at(1).get<int>()};
  }
}

void readBox(const Json& object, const Subject& subject, BoxIndex box, BoxTally& tally) {
  if (object.at("box") != subject.chart().nameOf(box)) throw Unreadable{"it has other boxes"};
  if (subject.chart()[box].isEnd()) {
    readEnd(object, subject, tally);
  } else {
    tally.answers = {seenIn(object.at("yes"), subject), seenIn(object.at("no"), subject)};
  }
  if (!object.contains("falls")) return;
  for (std::size_t i = 0; i < fallNames.size(); ++i) {
    const Json& falls = object["falls"];
    if (falls.contains(fallNames[i])) tally.falls[i] = seenIn(falls[fallNames[i]], subject);
  }
}

Tally tallyOf(const Json& object, const Subject& subject) {
  Tally tally(subject.chart());
  tally.deals = object.at("deals").get<std::uint64_t>();
  tally.undealt = object.at("undealt").get<std::uint64_t>();
  std::size_t next = 0;
  for (BoxIndex box = 0; box < tally.boxes.size(); ++box) {
    if (subject.firstOf(box) != box) continue;
    readBox(object.at("boxes").at(next++), subject, box, tally.boxes[box]);
  }
  return tally;
}

const Json& chartIn(const Json& file, const std::string& name) {
  for (const Json& chart : file.at("charts")) {
    if (chart.at("chart") == name) return chart;
  }
  throw Unreadable{"the chart " + name + " isn't in it"};
}

[[noreturn]] void fail(const std::string& name, const std::string& why) {
  throw Failure("cannot merge '" + name + "': " + why);
}

constexpr const char* noReport = "it is no report of tavrel prove --json";

}  // namespace

std::string jsonOf(const ProofReport& report) {
  Json file = {{"version", version},
               {"seed", report.seed},
               {"first", report.range.first},
               {"end", report.range.end},
               {"charts", Json::array()}};
  for (const ChartReport& chart : report.charts) file["charts"].push_back(written(chart));
  return file.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

ProofSlice readSlice(const std::string& name, std::string_view bytes) try {
  ProofSlice slice;
  slice.name = name;
  slice.file = Json::parse(bytes);
  if (slice.file.at("version") != version) fail(name, "another version of tavrel made it");
  slice.seed = slice.file.at("seed").get<std::uint64_t>();
  slice.range.first = slice.file.at("first").get<std::uint64_t>();
  slice.range.end = slice.file.at("end").get<std::uint64_t>();
  if (slice.range.end <= slice.range.first) fail(name, noReport);
  for (const Json& chart : slice.file.at("charts")) {
    slice.charts.push_back(chart.at("chart").get<std::string>());
  }
  return slice;
} catch (const nlohmann::json::exception&) {
  fail(name, noReport);
}

hands::Tally tallyIn(const ProofSlice& slice, const hands::Subject& subject) try {
  const Json& chart = chartIn(slice.file, subject.chart().name());
  if (chart.at("digest") != subject.digest()) {
    throw Unreadable{"the chart " + subject.chart().name() +
                     ", or one that it leads into, was another then; prove all slices again"};
  }
  const Tally tally = tallyOf(chart.at("tally"), subject);
  if (tally.deals != slice.range.end - slice.range.first) throw Unreadable{noReport};
  return tally;
} catch (const Unreadable& unreadable) {
  fail(slice.name, unreadable.why);
} catch (const nlohmann::json::exception&) {
  fail(slice.name, noReport);
}

}  // namespace tavrel
