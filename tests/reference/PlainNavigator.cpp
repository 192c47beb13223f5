#include "tests/reference/PlainNavigator.h"

#include <stdexcept>
#include <utility>

#include "tests/reference/Integers.h"
#include "tests/unit/Catalogue.h"

namespace tavrel::reference {
namespace {

constexpr std::int64_t directionCount = 5;

std::int64_t withoutSign(std::int32_t direction) { return static_cast<std::uint32_t>(direction); }

/// Of a number that is no direction: that of the move it makes, toward larger x.
std::int64_t reversed(std::int64_t direction) {
  static const std::int64_t table[directionCount] = {2, 3, 0, 1, 4};
  return direction < 0 || direction >= directionCount ? table[1] : table[direction];
}

/// The bytes of a character, by its first byte; 0 for one that starts none.
std::size_t lengthOf(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xc2 && first < 0xe0) return 2;
  if (first >= 0xe0 && first < 0xf0) return 3;
  if (first >= 0xf0 && first < 0xf5) return 4;
  return 0;
}

/// Whether a character of this many bytes has the value that needs so many and is allowed.
bool isCharacter(std::uint32_t value, std::size_t length) {
  static const std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
  return value >= least[length] && value <= 0x10ffff && (value < 0xd800 || value > 0xdfff);
}

bool isUtf8(const std::string& text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto first = static_cast<unsigned char>(text[i]);
    const std::size_t length = lengthOf(first);
    if (length == 0 || text.size() - i < length) return false;
    std::uint32_t value = length == 1 ? first : first & (0xffu >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) {
      const auto next = static_cast<unsigned char>(text[i + k]);
      if (next >> 6 != 2) return false;
      value = value << 6 | (next & 0x3fu);
    }
    if (!isCharacter(value, length)) return false;
    i += length;
  }
  return true;
}

std::string prefixOf(std::string directory) {
  if (directory.empty() || directory.back() != '/') directory += '/';
  return directory;
}

ElementProperties raw(const PlainElement& e) {
  return {e.isNode, e.isOnPath, e.x,     e.y,       e.xOffset,     e.yOffset, e.yes,
          e.no,     e.into,     e.outOf, e.boxText, e.commentText, e.link};
}

}  // namespace

std::optional<std::string> asText(const std::string& bytes) {
  std::string text = bytes.substr(0, bytes.find('\0'));
  if (!isUtf8(text)) return std::nullopt;
  return text;
}

// --- The engine by itself ---------------------------------------------------------

void PlainEngineRespondent::answer(const Request& request, Reply& reply) {
  const auto n = [&](std::size_t i) { return low32(request.numbers[i]); };
  const auto addLines = [&](const Lines& lines) { reply.texts.assign(lines.begin(), lines.end()); };
  switch (request.what) {
    case What::titles:
      return addLines(PlainEngine::titles());
    case What::indexOfName:
      return reply.numbers.push_back(PlainEngine::indexOf(request.text));
    case What::intro:
      return addLines(engine.introOf(n(0)));
    case What::startNewPath:
      return engine.startNewPath(n(0), request.text);
    case What::reset:
      return engine.setStartLocation(n(0));
    case What::locationTriple:
      reply.texts.push_back(engine.name);
      reply.numbers = {engine.x, engine.y};
      return;
    case What::bounds: {
      const PlainChart& chart = engine.currentChart();
      reply.numbers = {chart.minX, chart.maxX, chart.minY, chart.maxY};
      return;
    }
    case What::commentary:
      return addLines(engine.currentCommentText());
    case What::allElements:
      for (const PlainElement& each : engine.currentChart().elements) {
        reply.elements.push_back(raw(each));
      }
      return;
    case What::elementAt:
      return reply.elements.push_back(raw(engine.elementAt(n(0), n(1))));
    case What::elementsIn:
      for (const PlainElement& each : engine.elementsIn(n(0), n(1), n(2), n(3))) {
        reply.elements.push_back(raw(each));
      }
      return;
    case What::moveXPlus:
      return engine.moveOnGrid(1);
    case What::moveXMinus:
      return engine.moveOnGrid(3);
    case What::moveYPlus:
      return engine.moveOnGrid(0);
    case What::moveYMinus:
      return engine.moveOnGrid(2);
    case What::moveYes:
      return engine.moveYes();
    case What::moveNo:
      return engine.moveNo();
    case What::moveToRoot:
      return engine.moveRoot();
    case What::moveAlongPath:
      return engine.moveOnPath();
    case What::readChart:
      return engine.readChart(n(0));
    case What::preparePath:
      return engine.preparePath();
    case What::buildIndex:
      return engine.buildIndex(n(0));
    case What::find:
      return reply.numbers.push_back(engine.find(n(0), n(1), n(2)));
    case What::stepX:
      return reply.numbers.push_back(PlainEngine::stepX(n(0)));
    case What::stepY:
      return reply.numbers.push_back(PlainEngine::stepY(n(0)));
    default:
      throw std::logic_error("not for the engine");
  }
}

// --- The client interface -----------------------------------------------------------

PlainNavigator::PlainNavigator(std::string directory, ChartFiles& files, Behaviours& met)
    : engine(prefixOf(std::move(directory)), files, met), met_(met) {}

void PlainNavigator::answer(const Request& request, Reply& reply) {
  switch (request.what) {
    case What::moveXPlus:
    case What::moveXMinus:
    case What::moveYPlus:
    case What::moveYMinus:
    case What::moveWithDirection:
    case What::moveYes:
    case What::moveNo:
    case What::moveToRoot:
    case What::moveAlongPath:
    case What::moveBack:
      return move(request);
    case What::startNewPath:
      return engine.startNewPath(narrowIndex(request.numbers[0]), request.text);
    case What::reset:
      return engine.setStartLocation(narrowIndex(request.numbers[0]));
    case What::intro:
      return addLines(engine.introOf(narrowIndex(request.numbers[0])), reply);
    default:
      return askAbout(request, reply);
  }
}

void PlainNavigator::move(const Request& request) {
  switch (request.what) {
    case What::moveXPlus:
      return engine.moveOnGrid(1);
    case What::moveXMinus:
      return engine.moveOnGrid(3);
    case What::moveYPlus:
      return engine.moveOnGrid(0);
    case What::moveYMinus:
      return engine.moveOnGrid(2);
    case What::moveWithDirection:
      return moveWithDirection(request.numbers[0]);
    case What::moveYes:
      return engine.moveYes();
    case What::moveNo:
      return engine.moveNo();
    case What::moveToRoot:
      return engine.moveRoot();
    case What::moveAlongPath:
      return engine.moveOnPath();
    default:
      return moveBack();
  }
}

void PlainNavigator::askAbout(const Request& request, Reply& reply) {
  const auto& n = request.numbers;
  const auto place = [&](std::size_t i) { return narrowPlace(n[i]); };
  switch (request.what) {
    case What::titles:
      return addLines(PlainEngine::titles(), reply);
    case What::indexOfName:
    case What::optionalIndexOfName: {
      const std::int32_t index = PlainEngine::indexOf(request.text);
      met_.meet(index < 0 ? Behaviour::nameUnknown : Behaviour::nameFound);
      for (const CatalogueEntry& entry : catalogue) {
        if (request.text == entry.title) met_.meet(Behaviour::titleIsNoName);
      }
      if (index >= 0 || request.what == What::indexOfName) reply.numbers.push_back(index);
      return;
    }
    case What::location:
      reply.texts.push_back(asText(engine.name));
      if (n[0] == 0 || n[1] == 0) met_.meet(Behaviour::pointersNull);
      reply.numbers = {n[0] != 0 ? engine.x : 0, n[1] != 0 ? engine.y : 0};
      return;
    case What::locationTriple:
      reply.texts.push_back(asText(engine.name).value_or(""));
      reply.numbers = {engine.x, engine.y};
      return;
    case What::bounds: {
      const PlainChart& chart = engine.currentChart();
      reply.numbers = {chart.minX, chart.maxX, chart.minY, chart.maxY};
      return;
    }
    case What::commentary:
      return addLines(engine.currentCommentText(), reply);
    case What::allElements:
      return addElements(engine.currentChart().elements, reply);
    case What::elementAt:
      return addElement(engine.elementAt(place(0), place(1)), reply);
    case What::elementsIn:
      return addElements(engine.elementsIn(place(0), place(1), place(2), place(3)), reply);
    case What::currentElement:
      return addElement(engine.elementAt(engine.x, engine.y), reply);
    case What::reverse:
      return reply.numbers.push_back(reversed(n[0]));
    case What::keepCurrent:
      return keepCurrent(reply);
    case What::keptProperties:
      if (kept_) addElement(*kept_, reply);
      return noteChange();
    case What::keptDescription:
      if (kept_) reply.texts.push_back(descriptionOf(*kept_));
      return;
    default:
      throw std::logic_error("not for the client interface");
  }
}

// --- Conversions --------------------------------------------------------------------

std::int32_t PlainNavigator::narrowIndex(std::int64_t index) {
  if (index != low32(index)) met_.meet(Behaviour::indexNarrowed);
  return low32(index);
}

std::int32_t PlainNavigator::narrowPlace(std::int64_t place) {
  if (place != low32(place)) met_.meet(Behaviour::placeNarrowed);
  return low32(place);
}

std::optional<Lines> PlainNavigator::linesOf(const Lines& lines) {
  Lines texts;
  for (const std::string& line : lines) {
    const std::optional<std::string> text = asText(line);
    if (!text) {
      met_.meet(Behaviour::textIsNoText);
      return std::nullopt;
    }
    if (text->size() < line.size()) met_.meet(Behaviour::textCut);
    texts.push_back(*text);
  }
  return texts;
}

void PlainNavigator::addLines(const Lines& lines, Reply& reply) {
  const std::optional<Lines> texts = linesOf(lines);
  if (!texts) throw std::invalid_argument("not UTF-8");
  reply.texts.assign(texts->begin(), texts->end());
}

void PlainNavigator::addElement(const PlainElement& element, Reply& reply) {
  std::optional<std::string> next = asText(element.link);
  if (!next) met_.meet(Behaviour::linkIsNoText);
  if (next && next->empty()) next.reset();
  if (element.into < 0 || element.yes < 0) met_.meet(Behaviour::directionUnsigned);
  reply.elements.push_back({element.isNode, element.isOnPath, element.x, element.y, element.xOffset,
                            element.yOffset, withoutSign(element.yes), withoutSign(element.no),
                            withoutSign(element.into), withoutSign(element.outOf),
                            linesOf(element.boxText), linesOf(element.commentText), next});
}

void PlainNavigator::addElements(const std::vector<PlainElement>& elements, Reply& reply) {
  for (const PlainElement& each : elements) addElement(each, reply);
}

void PlainNavigator::keepCurrent(Reply& reply) {
  kept_ = engine.elementAt(engine.x, engine.y);
  addElement(*kept_, reply);
}

void PlainNavigator::noteChange() {
  if (!kept_ || engine.current < 0) return;
  for (const PlainElement& each : engine.currentChart().elements) {
    const bool isSame = each.x == kept_->x && each.y == kept_->y && each.boxText == kept_->boxText;
    if (isSame && each.isOnPath != kept_->isOnPath) met_.meet(Behaviour::keptChanged);
  }
}

std::string PlainNavigator::descriptionOf(const PlainElement& element) {
  std::string text = "<ScreenElement ";
  if (element.isNode) {
    const std::optional<Lines> lines = linesOf(element.boxText);
    if (!lines) throw std::invalid_argument("not UTF-8");
    std::string joined;
    for (std::size_t i = 0; i < lines->size(); ++i) joined += (i > 0 ? " " : "") + (*lines)[i];
    text += "node \"" + joined + "\"";
  } else {
    text += "line";
  }
  if (element.isOnPath) text += " onPath";
  return text + " @" + std::to_string(element.x) + "," + std::to_string(element.y) + ">";
}

// --- Moves of the client interface --------------------------------------------------

void PlainNavigator::moveWithDirection(std::int64_t direction) {
  if (direction == 4) return met_.meet(Behaviour::directionNone);
  const bool isKnown = direction == 0 || direction == 2 || direction == 3;
  if (!isKnown && direction != 1) met_.meet(Behaviour::directionOdd);
  engine.moveOnGrid(isKnown ? static_cast<std::int32_t>(direction) : 1);
}

/// Whether the cell that this exit of a box leads to is the cursor's.
bool PlainNavigator::leadsHere(const PlainElement& box, std::int32_t exit) {
  if (exit == noDirection) return false;
  const std::int32_t way = exit == 0 || exit == 2 || exit == 3 ? exit : 1;
  const std::int64_t x = std::int64_t{box.x} + PlainEngine::stepX(way);
  const std::int64_t y = std::int64_t{box.y} + PlainEngine::stepY(way);
  const std::int32_t found = engine.find(engine.current, low32(x), low32(y));
  if (found < 0) met_.meet(Behaviour::backIntoNothing);
  const PlainElement& cell = engine.currentChart().elements.at(at(found));
  if (cell.x != engine.x || cell.y != engine.y) return false;
  if (exit != way) met_.meet(Behaviour::backByOddExit);
  return true;
}

void PlainNavigator::moveBack() {
  const std::int64_t x = engine.x, y = engine.y;
  const std::vector<PlainElement> near =
      engine.elementsIn(low32(x - 1), low32(x + 1), low32(y - 1), low32(y + 1));
  if (near.empty()) return met_.meet(Behaviour::backAlone);
  for (const PlainElement& box : near) {
    if (!box.isNode) continue;
    if (leadsHere(box, box.yes)) {
      met_.meet(Behaviour::backByYes);
      return moveWithDirection(reversed(withoutSign(box.yes)));
    }
    if (leadsHere(box, box.no)) {
      met_.meet(Behaviour::backByNo);
      return moveWithDirection(reversed(withoutSign(box.no)));
    }
  }
  met_.meet(Behaviour::backNone);
}

}  // namespace tavrel::reference
