#include "bench/NlohmannReader.h"

#include <nlohmann/json.hpp>

#include "bench/WholeFile.h"

namespace tavrel::bench {
namespace {

using nlohmann::json;

std::string_view textOf(const json& value) { return value.get_ref<const std::string&>(); }

LineRange readLines(const json& lines, ParsedChart& chart) {
  const std::size_t first = chart.lines.size();
  for (const json& line : lines) chart.lines.push_back(textOf(line));
  return chart.linesSince(first);
}

Node readNode(const json& node, ParsedChart& chart) {
  const LineRange text = readLines(node["text"], chart);
  const LineRange commentary = readLines(node["commentary"], chart);
  return {text, commentary, textOf(node["next"])};
}

}  // namespace

struct NlohmannReader::Document {
  json value;
};

NlohmannReader::NlohmannReader() : document_(std::make_unique<Document>()) {}
NlohmannReader::~NlohmannReader() = default;

ParsedChart NlohmannReader::parse(const std::string& path) {
  const WholeFile file = wholeFile(path);
  document_->value = json::parse(file.begin(), file.end());
  const json& document = document_->value;
  ParsedChart chart;
  chart.intro = readLines(document["intro"], chart);
  chart.nodes.reserve(document["nodes"].size());
  for (const json& node : document["nodes"]) chart.nodes.push_back(readNode(node, chart));
  chart.boxes.reserve(document["boxes"].size());
  for (const json& b : document["boxes"]) chart.boxes.push_back({b[0], b[1], b[2], b[3], b[4]});
  chart.connectors.reserve(document["connectors"].size());
  for (const json& c : document["connectors"]) {
    chart.connectors.push_back({c[0], c[1], c[2], c[3]});
  }
  return chart;
}

}  // namespace tavrel::bench
