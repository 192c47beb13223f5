#include "bench/JsonChart.h"

#include <initializer_list>

namespace tavrel::bench {
namespace {

std::string quoted(std::string_view text) {
  std::string json = "\"";
  for (const char byte : text) {
    if (byte == '"' || byte == '\\') json += '\\';
    json += byte;
  }
  return json + '"';
}

template <typename Items, typename ToJson>
std::string listOf(const Items& items, const ToJson& toJson) {
  std::string json = "[";
  for (const auto& item : items) {
    if (json.size() > 1) json += ',';
    json += toJson(item);
  }
  return json + ']';
}

std::string numbers(std::initializer_list<std::int32_t> values) {
  return listOf(values, [](std::int32_t value) { return std::to_string(value); });
}

std::string linesOf(const ParsedChart& chart, const LineRange& range) {
  const auto first = chart.lines.begin() + static_cast<std::ptrdiff_t>(range.first);
  const std::vector<std::string_view> lines(first,
                                            first + static_cast<std::ptrdiff_t>(range.count));
  return listOf(lines, quoted);
}

}  // namespace

std::string jsonOf(const ParsedChart& chart) {
  const auto node = [&](const Node& n) {
    return "{\"text\":" + linesOf(chart, n.text) +
           ",\"commentary\":" + linesOf(chart, n.commentary) + ",\"next\":" + quoted(n.next) + "}";
  };
  const auto box = [](const BoxCell& b) { return numbers({b.node, b.x, b.y, b.yes, b.no}); };
  const auto connector = [](const ConnectorCell& c) {
    return numbers({c.into, c.outOf, c.x, c.y});
  };
  return "{\"intro\":" + linesOf(chart, chart.intro) + ",\"nodes\":" + listOf(chart.nodes, node) +
         ",\"boxes\":" + listOf(chart.boxes, box) +
         ",\"connectors\":" + listOf(chart.connectors, connector) + "}\n";
}

}  // namespace tavrel::bench
