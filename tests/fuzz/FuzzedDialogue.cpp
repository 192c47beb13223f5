#include "tests/fuzz/FuzzedDialogue.h"

#include <array>
#include <utility>

#include "tests/fuzz/ChartPen.h"
#include "tests/fuzz/RequestReader.h"
#include "tests/fuzz/TallCharts.h"
#include "tests/unit/Catalogue.h"

namespace tavrel::fuzz {
namespace {

using reference::Dialogue;
using reference::Front;
using reference::removeRequest;
using reference::Request;
using reference::writeRequest;

constexpr std::uint8_t endOfChart = 255;
constexpr std::uint8_t rawFile = 254;  // as the first byte of a chart

std::string rest(Bytes& bytes, std::uint8_t first) {
  std::string all;
  for (std::uint8_t byte = first; byte != endOfChart; byte = bytes.take()) {
    all += static_cast<char>(byte);
    if (bytes.areAtEnd()) break;
  }
  return all;
}

// A tall one is left to the target `reader`.
Request rawChart(const std::string& name, std::string file) {
  return mayBeTall(file) ? removeRequest(name) : writeRequest(name, std::move(file));
}

Request drawChart(Bytes& bytes, const Names& names, std::size_t which) {
  std::uint8_t stroke = bytes.areAtEnd() ? endOfChart : bytes.take();
  if (stroke == rawFile) return rawChart(names[which], rest(bytes, bytes.take()));
  ChartPen pen(names);
  for (; stroke != endOfChart; stroke = bytes.areAtEnd() ? endOfChart : bytes.take()) {
    pen.draw(stroke);
  }
  return pen.hasFile() ? writeRequest(names[which], pen.text()) : removeRequest(names[which]);
}

Names namesFrom(std::size_t firstChart) {
  Names names;
  for (std::size_t i = 0; i < chartsOfDialogue; ++i) names[i] = catalogueNames()[firstChart + i];
  names.back() = catalogueNames().back();
  return names;
}

}  // namespace

Front frontOf(const std::uint8_t* data, std::size_t size) {
  return Bytes(data, size).take() % 4 == 3 ? Front::engine : Front::facade;
}

Dialogue dialogueOf(const std::uint8_t* data, std::size_t size, std::size_t firstChart) {
  Bytes bytes(data, size);
  const Names names = namesFrom(firstChart);
  Dialogue dialogue;
  dialogue.front = frontOf(data, size);
  bytes.take();
  dialogue.requests.reserve(size);
  for (std::size_t which = 0; which < chartsOfDialogue; ++which) {
    dialogue.requests.push_back(drawChart(bytes, names, which));
  }
  RequestReader reader(bytes, dialogue, names, static_cast<std::int64_t>(firstChart));
  while (!bytes.areAtEnd()) dialogue.requests.push_back(reader.read());
  return dialogue;
}

}  // namespace tavrel::fuzz
