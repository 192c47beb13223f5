#include "drawing/SvgChart.h"

#include <pugixml.hpp>
#include <sstream>
#include <tuple>

#include "drawing/ChartGeometry.h"
#include "drawing/ElementGrid.h"
#include "drawing/FontWidths.h"
#include "drawing/ReadingOrder.h"
#include "drawing/SvgBox.h"
#include "drawing/SvgLines.h"
#include "drawing/SvgMarkup.h"

namespace tavrel {

using namespace drawing;
using namespace drawing::svg;

namespace {

using pugi::xml_node;

constexpr const char* fonts = "Verdana, 'DejaVu Sans', 'Segoe UI', Roboto, sans-serif";

// The strokes, in hundredths of a unit to be exact in the file.
constexpr const char* plainStroke = "1.5";
constexpr const char* litStroke = "3.5";
constexpr const char* innerStroke = "1";
constexpr int innerInset = 5;  // of a double frame's inner one
constexpr int endRadius = 13;
constexpr int questionRadius = 3;
constexpr int discRadius = 7;

void set(xml_node node, const char* name, std::string_view value) {
  node.append_attribute(name).set_value(std::string(value).c_str());
}
void set(xml_node node, const char* name, std::int64_t value) {
  node.append_attribute(name).set_value(static_cast<long long>(value));
}

void write(xml_node node, std::string_view text) {
  node.append_child(pugi::node_pcdata).set_value(xmlText(text).c_str());
}

// Each on a line of its own, so that files can be compared.
xml_node append(xml_node parent, const char* name) {
  const xml_node child = parent.append_child(name);
  parent.append_child(pugi::node_pcdata).set_value("\n");
  return child;
}

bool isSuit(Ink ink) {
  return ink == Ink::clubs || ink == Ink::diamonds || ink == Ink::hearts || ink == Ink::spades;
}

struct Rectangle {
  std::int64_t left, top, width, height;

  Rectangle inside(std::int64_t inset) const {
    return {left + inset, top + inset, width - 2 * inset, height - 2 * inset};
  }
};

xml_node appendRectangle(xml_node parent, const Rectangle& area, std::int64_t radius) {
  const xml_node node = append(parent, "rect");
  set(node, "x", area.left);
  set(node, "y", area.top);
  set(node, "width", area.width);
  set(node, "height", area.height);
  if (radius > 0) set(node, "rx", radius);
  return node;
}

// "Pass" becomes "Pass.", and "12+?" stays.
std::string asSentence(std::string text) {
  const bool isEnded =
      !text.empty() && std::string_view(".?!").find(text.back()) != std::string::npos;
  return isEnded ? text : text + ".";
}

std::string spoken(const ScreenElement& box) {
  std::string text;
  for (const InkedText& line : textBoxOf(box, Charset::utf8).lines) {
    text += (text.empty() ? "" : " ") + plainText(line);
  }
  return text.empty() ? "(no text)" : text;
}

ElementGrid wholeChart(const Tavrel& navigator) {
  return ElementGrid(navigator.elementsInBounds(navigator.currentFlowchartBounds()));
}

ChartGeometry svgGeometry(const ElementGrid& grid) {
  return geometryOf(grid, svgReach, character, lineHeight);
}

std::vector<std::int64_t> cutsOf(const Axis& axis) {
  std::vector<std::int64_t> cuts;
  for (const Track& track : axis.tracks()) cuts.push_back(paperMargin + track.end);
  if (!cuts.empty()) cuts.pop_back();
  return cuts;
}

class Drawer {
 public:
  Drawer(const Tavrel& navigator, const SvgOptions& options)
      : navigator_(navigator),
        options_(options),
        colours_(coloursOf(options.theme)),
        grid_(wholeChart(navigator)),
        geometry_(svgGeometry(grid_)) {}

  std::string draw() {
    pugi::xml_document document;
    const xml_node root = document.append_child("svg");
    drawRoot(root);
    drawLines(root);
    for (const ReadBox& box : readingOrder(grid_)) drawBox(root, box);
    std::ostringstream out;
    document.save(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + out.str() + "\n";
  }

 private:
  void drawRoot(xml_node root) const {
    const std::int64_t width = geometry_.columns.length() + 2 * paperMargin;
    const std::int64_t height = geometry_.rows.length() + 2 * paperMargin;
    const std::string origin = std::to_string(-paperMargin);
    set(root, "xmlns", "http://www.w3.org/2000/svg");
    set(root, "width", width);
    set(root, "height", height);
    set(root, "viewBox",
        origin + " " + origin + " " + std::to_string(width) + " " + std::to_string(height));
    set(root, "role", "graphics-document document");
    set(root, "aria-roledescription", "flowchart");
    set(root, "aria-labelledby", "title");
    set(root, "font-family", fonts);
    set(root, "font-size", fontSize);
    set(root, "text-anchor", "middle");
    set(root, "style", "font-variant-emoji:text");  // or some systems draw hearts as pictures
    set(root, "xml:space", "preserve");
    root.append_child(pugi::node_pcdata).set_value("\n");
    const xml_node title = append(root, "title");
    set(title, "id", "title");
    write(title, options_.title.empty()
                     ? printable(std::get<0>(navigator_.currentLocation()), Charset::utf8)
                     : options_.title);
    set(appendRectangle(root, {-paperMargin, -paperMargin, width, height}, 0), "fill",
        colours_.paper);
  }

  void drawLines(xml_node root) const {
    SvgLines lines(geometry_);
    for (const ScreenElement& element : grid_.elements()) {
      lines.add(element, sidesOf(grid_, element));
    }
    const xml_node group = append(root, "g");
    set(group, "aria-hidden", "true");
    write(group, "\n");
    drawShapes(group, lines.plain(), colours_.line, plainStroke);
    drawShapes(group, lines.lit(), colours_.path, litStroke);
    for (const SvgLabel& label : lines.labels()) drawLabel(group, label);
  }

  static void drawShapes(xml_node parent, const SvgShapes& shapes, std::string_view colour,
                         const char* stroke) {
    if (!shapes.lines.empty()) {
      const xml_node lines = append(parent, "path");
      set(lines, "fill", "none");
      set(lines, "stroke", colour);
      set(lines, "stroke-width", stroke);
      set(lines, "d", shapes.lines);
    }
    if (shapes.heads.empty()) return;
    const xml_node heads = append(parent, "path");
    set(heads, "fill", colour);
    set(heads, "d", shapes.heads);
  }

  void drawLabel(xml_node parent, const SvgLabel& label) const {
    const xml_node text =
        appendText(parent, label.at.x, label.at.y, label.lit ? colours_.path : colours_.label);
    set(text, "font-size", smallFontSize);
    set(text, "text-anchor", label.atRight ? "end" : "start");
    if (label.lit) set(text, "font-weight", "bold");
    write(text, label.word);
  }

  void drawBox(xml_node root, const ReadBox& read) const {
    const ScreenElement& element = *read.box;
    const SvgBox box = svgBoxOf(element);
    const std::string id = "box-" + std::to_string(element.x()) + "-" + std::to_string(element.y());
    const xml_node group = append(linked(root, element), "g");
    set(group, "id", id);
    set(group, "role", "img");
    set(group, "aria-labelledby", id + "-title");
    if (isPlace(element)) set(group, "aria-current", "location");
    write(group, "\n");
    const xml_node title = append(group, "title");
    set(title, "id", id + "-title");
    write(title, titleOf(read));
    const std::int64_t left = geometry_.columns.find(element.x())->centre - box.width / 2;
    const std::int64_t top = geometry_.rows.find(element.y())->centre - box.height / 2;
    drawFrame(group, {left, top, box.width, box.height}, box, element);
    drawText(group, box, left + box.width / 2, top + rowPadding);
  }

  // Links lead to flowcharts of the catalogue alone: there is no file of any other.
  xml_node linked(xml_node root, const ScreenElement& element) const {
    const auto name = element.nameOfNextFlowchart();
    if (!name || !navigator_.indexOfFlowchart(*name)) return root;
    const xml_node link = append(root, "a");
    set(link, "href", linkTo(*name + options_.linkExtension));
    write(link, "\n");
    return link;
  }

  bool isPlace(const ScreenElement& element) const {
    return options_.place && options_.place->x == element.x() && options_.place->y == element.y();
  }

  std::string titleOf(const ReadBox& read) const {
    const ScreenElement& box = *read.box;
    std::string title = asSentence(spoken(box));
    title += exitTitle("Yes", box.yesDirection(), read.yes);
    title += exitTitle("No", box.noDirection(), read.no);
    if (const auto name = box.nameOfNextFlowchart()) {
      title += " Leads into " + printable(*name, Charset::utf8) + ".";
    }
    if (box.isOnPath()) title += " On the path.";
    if (isPlace(box)) title += " You are here.";
    return title;
  }

  static std::string exitTitle(const char* word, std::int64_t direction, const ScreenElement* to) {
    if (direction == XYDirectionNone) return "";
    return std::string(" ") + word + ": " + (to == nullptr ? "nothing." : asSentence(spoken(*to)));
  }

  void drawFrame(xml_node group, const Rectangle& area, const SvgBox& box,
                 const ScreenElement& element) const {
    const bool here = isPlace(element);
    const bool lit = element.isOnPath();
    const std::string_view colour = lit || here ? colours_.path : colours_.frame;
    const std::int64_t radius = box.text.isEnd ? endRadius : questionRadius;
    const xml_node frame = appendRectangle(group, area, radius);
    set(frame, "fill", here ? colours_.place : colours_.box);
    set(frame, "stroke", colour);
    set(frame, "stroke-width", lit || here ? litStroke : plainStroke);
    if (lit) {
      const xml_node inner = appendRectangle(group, area.inside(innerInset),
                                             std::max<std::int64_t>(radius - innerInset, 1));
      set(inner, "fill", "none");
      set(inner, "stroke", colour);
      set(inner, "stroke-width", innerStroke);
    }
    if (here) drawDisc(group, area);
  }

  void drawDisc(xml_node group, const Rectangle& area) const {
    const xml_node disc = append(group, "circle");
    set(disc, "cx", area.left + 2);
    set(disc, "cy", area.top + 2);
    set(disc, "r", discRadius);
    set(disc, "fill", colours_.path);
    set(disc, "stroke", colours_.paper);
    set(disc, "stroke-width", "2");
  }

  void drawText(xml_node group, const SvgBox& box, std::int64_t centre, std::int64_t top) const {
    for (const InkedText& line : box.text.lines) {
      drawLine(group, line, centre, top + baseline);
      top += lineHeight;
    }
    if (box.text.link.empty()) return;
    const xml_node link = appendText(group, centre, top + baseline, colours_.link);
    set(link, "font-size", smallFontSize);
    set(link, "text-decoration", "underline");
    write(link, "→ " + plainText(box.text.link));
  }

  void drawLine(xml_node group, const InkedText& line, std::int64_t x, std::int64_t y) const {
    xml_node text = appendText(group, x, y, colours_.text);
    for (const InkedGlyph& run : inRuns(line)) {
      if (!isSuit(run.ink)) {
        write(text, run.glyph);
        continue;
      }
      const xml_node piece = text.append_child("tspan");
      set(piece, "fill", colourOf(run.ink, colours_));
      set(piece, "font-size", suitSize);
      write(piece, run.glyph);
    }
  }

  static xml_node appendText(xml_node parent, std::int64_t x, std::int64_t y,
                             std::string_view colour) {
    const xml_node text = append(parent, "text");
    set(text, "x", x);
    set(text, "y", y);
    set(text, "fill", colour);
    return text;
  }

  const Tavrel& navigator_;
  const SvgOptions& options_;
  const Colours& colours_;
  ElementGrid grid_;
  ChartGeometry geometry_;
};

}  // namespace

std::string svgOf(const Tavrel& navigator, const SvgOptions& options) {
  return Drawer(navigator, options).draw();
}

SvgCuts svgCutsOf(const Tavrel& navigator) {
  const ChartGeometry geometry = svgGeometry(wholeChart(navigator));
  return {cutsOf(geometry.columns), cutsOf(geometry.rows)};
}

}  // namespace tavrel
