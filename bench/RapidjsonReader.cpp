#include "bench/RapidjsonReader.h"

#ifdef __SSE2__
#define RAPIDJSON_SSE2  // it is faster for it
#endif
#include <rapidjson/document.h>
#include <rapidjson/reader.h>

#include <array>
#include <cstring>

namespace tavrel::bench {
namespace {

// Takes events in the order that jsonOf writes things in. A key is known by its first
// letter: no two start alike.
class ChartHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, ChartHandler> {
 public:
  explicit ChartHandler(char* texts) : nextText_(texts) {}

  ParsedChart take() { return std::move(chart_); }

  bool Key(const char* key, rapidjson::SizeType, bool) {
    key_ = *key;
    return true;
  }

  bool StartObject() {
    if (key_ != '\0') chart_.nodes.emplace_back();
    return true;
  }

  bool StartArray() {
    firstLine_ = chart_.lines.size();
    numberCount_ = 0;
    return true;
  }

  bool EndArray(rapidjson::SizeType) {
    if (key_ == 'i') chart_.intro = chart_.linesSince(firstLine_);
    if (key_ == 't') chart_.nodes.back().text = chart_.linesSince(firstLine_);
    // The end of the nodes comes behind a "next", that of all cells without numbers.
    if (key_ == 'c' && numberCount_ == 0 && !areCells_) {
      chart_.nodes.back().commentary = chart_.linesSince(firstLine_);
    }
    if (numberCount_ > 0) addCell();
    numberCount_ = 0;
    return true;
  }

  bool String(const char* text, rapidjson::SizeType length, bool) {
    std::memcpy(nextText_, text, length);
    const std::string_view copy(nextText_, length);
    nextText_ += length;
    if (key_ == 'n') {
      chart_.nodes.back().next = copy;
    } else {
      chart_.lines.push_back(copy);
    }
    return true;
  }

  bool Int(int number) {
    numbers_[numberCount_++] = number;
    return true;
  }

  bool Uint(unsigned number) { return Int(static_cast<int>(number)); }

 private:
  void addCell() {
    const auto& n = numbers_;
    areCells_ = true;
    if (key_ == 'b') {
      chart_.boxes.push_back({n[0], n[1], n[2], n[3], n[4]});
    } else {
      chart_.connectors.push_back({n[0], n[1], n[2], n[3]});
    }
  }

  char* nextText_;
  ParsedChart chart_;
  char key_ = '\0';
  bool areCells_ = false;
  std::size_t firstLine_ = 0;
  std::array<std::int32_t, 5> numbers_ = {};
  std::size_t numberCount_ = 0;
};

std::string_view textOf(const rapidjson::Value& value) {
  return {value.GetString(), value.GetStringLength()};
}

LineRange readLines(const rapidjson::Value& lines, ParsedChart& chart) {
  const std::size_t first = chart.lines.size();
  for (const rapidjson::Value& line : lines.GetArray()) chart.lines.push_back(textOf(line));
  return chart.linesSince(first);
}

Node readNode(const rapidjson::Value& node, ParsedChart& chart) {
  const LineRange text = readLines(node["text"], chart);
  const LineRange commentary = readLines(node["commentary"], chart);
  return {text, commentary, textOf(node["next"])};
}

}  // namespace

ParsedChart RapidjsonSaxReader::parse(const std::string& path) {
  const WholeFile file = wholeFile(path);
  texts_.reset(new char[file.size]);
  ChartHandler handler(texts_.get());
  rapidjson::StringStream stream(file.begin());
  rapidjson::Reader().Parse(stream, handler);
  return handler.take();
}

ParsedChart RapidjsonInsituReader::parse(const std::string& path) {
  file_ = wholeFile(path);
  rapidjson::Document document;
  document.ParseInsitu(file_.bytes.get());
  ParsedChart chart;
  chart.intro = readLines(document["intro"], chart);
  chart.nodes.reserve(document["nodes"].Size());
  for (const auto& node : document["nodes"].GetArray()) {
    chart.nodes.push_back(readNode(node, chart));
  }
  chart.boxes.reserve(document["boxes"].Size());
  for (const auto& b : document["boxes"].GetArray()) {
    chart.boxes.push_back(
        {b[0].GetInt(), b[1].GetInt(), b[2].GetInt(), b[3].GetInt(), b[4].GetInt()});
  }
  chart.connectors.reserve(document["connectors"].Size());
  for (const auto& c : document["connectors"].GetArray()) {
    chart.connectors.push_back({c[0].GetInt(), c[1].GetInt(), c[2].GetInt(), c[3].GetInt()});
  }
  return chart;
}

}  // namespace tavrel::bench
