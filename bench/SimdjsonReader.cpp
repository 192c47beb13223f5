#include "bench/SimdjsonReader.h"

#include <simdjson.h>

#include <array>

#include "bench/WholeFile.h"

namespace tavrel::bench {
namespace {

using simdjson::ondemand::array;
using simdjson::ondemand::object;

LineRange readLines(array lines, ParsedChart& chart) {
  const std::size_t first = chart.lines.size();
  for (auto line : lines) chart.lines.push_back(std::string_view(line));
  return chart.linesSince(first);
}

template <std::size_t count>
std::array<std::int32_t, count> readNumbers(array values) {
  std::array<std::int32_t, count> numbers;
  auto* number = numbers.data();
  for (auto each : values) *number++ = static_cast<std::int32_t>(std::int64_t(each));
  return numbers;
}

Node readNode(object node, ParsedChart& chart) {
  const LineRange text = readLines(node["text"], chart);
  const LineRange commentary = readLines(node["commentary"], chart);
  return {text, commentary, std::string_view(node["next"])};
}

}  // namespace

struct SimdjsonReader::Parser {
  WholeFile json;
  simdjson::ondemand::parser parser;
};

SimdjsonReader::SimdjsonReader() : parser_(std::make_unique<Parser>()) {}
SimdjsonReader::~SimdjsonReader() = default;

ParsedChart SimdjsonReader::parse(const std::string& path) {
  parser_->json = wholeFile(path, simdjson::SIMDJSON_PADDING);
  const WholeFile& json = parser_->json;
  simdjson::ondemand::document document = parser_->parser.iterate(simdjson::padded_string_view(
      json.begin(), json.size, json.size + simdjson::SIMDJSON_PADDING));
  ParsedChart chart;
  chart.intro = readLines(document["intro"], chart);
  for (auto node : array(document["nodes"])) chart.nodes.push_back(readNode(node, chart));
  for (auto box : array(document["boxes"])) {
    const auto [node, x, y, yes, no] = readNumbers<5>(box);
    chart.boxes.push_back({node, x, y, yes, no});
  }
  for (auto connector : array(document["connectors"])) {
    const auto [into, outOf, x, y] = readNumbers<4>(connector);
    chart.connectors.push_back({into, outOf, x, y});
  }
  return chart;
}

}  // namespace tavrel::bench
