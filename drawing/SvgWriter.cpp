#include "drawing/SvgWriter.h"

#include <algorithm>
#include <cstdint>
#include <pugixml.hpp>
#include <sstream>
#include <string_view>

#include "drawing/CellSides.h"
#include "drawing/SvgBox.h"
#include "drawing/SvgLines.h"
#include "drawing/SvgMarkup.h"
#include "drawing/TextBox.h"

namespace tavrel::drawing {

using namespace svg;

namespace {

using pugi::xml_node;

// The fonts of symbols are for the suits: where none is named, telephones look for them among
// their coloured pictures.
constexpr const char* fonts =
    "Verdana, 'DejaVu Sans', 'Segoe UI', Roboto, 'Segoe UI Symbol', 'Apple Symbols', sans-serif";

// Of strokes, in units, as they stand in the file.
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

void appendCharacters(xml_node node, std::string_view text) {
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

SvgArea inside(const SvgArea& area, std::int64_t inset) {
  return {area.left + inset, area.top + inset, area.width - 2 * inset, area.height - 2 * inset};
}

xml_node appendRectangle(xml_node parent, const SvgArea& area, std::int64_t radius) {
  const xml_node node = append(parent, "rect");
  set(node, "x", area.left);
  set(node, "y", area.top);
  set(node, "width", area.width);
  set(node, "height", area.height);
  if (radius > 0) set(node, "rx", radius);
  return node;
}

// Writes one area of a chart.
class SvgWriter {
 public:
  // The scene must outlive it.
  SvgWriter(const SvgScene& scene, const SvgArea& area)
      : scene_(scene), colours_(coloursOf(scene.theme)), area_(area) {}

  std::string write() const {
    pugi::xml_document document;
    const xml_node root = document.append_child("svg");
    writeRoot(root);
    writeLines(root);
    for (const WrittenBox& box : scene_.boxes) {
      if (isInside(*box.element)) writeBox(root, box);
    }
    std::ostringstream out;
    document.save(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + out.str() + "\n";
  }

 private:
  bool isInside(const ScreenElement& element) const {
    const Track& column = *scene_.geometry.columns.find(element.x());
    const Track& row = *scene_.geometry.rows.find(element.y());
    return column.end > area_.left && column.start < area_.left + area_.width &&
           row.end > area_.top && row.start < area_.top + area_.height;
  }

  void writeRoot(xml_node root) const {
    set(root, "xmlns", "http://www.w3.org/2000/svg");
    set(root, "width", area_.width);
    set(root, "height", area_.height);
    set(root, "viewBox",
        std::to_string(area_.left) + " " + std::to_string(area_.top) + " " +
            std::to_string(area_.width) + " " + std::to_string(area_.height));
    set(root, "role", "graphics-document document");
    set(root, "aria-roledescription", "flowchart");
    set(root, "font-family", fonts);
    set(root, "font-size", fontSize);
    set(root, "text-anchor", "middle");
    set(root, "style", "font-variant-emoji:text");  // or some systems draw hearts as pictures
    set(root, "xml:space", "preserve");
    root.append_child(pugi::node_pcdata).set_value("\n");
    appendCharacters(append(root, "title"), scene_.title);
    set(appendRectangle(root, area_, 0), "fill", colours_.paper);
  }

  void writeLines(xml_node root) const {
    SvgLines lines(scene_.geometry);
    for (const ScreenElement& element : scene_.grid.elements()) {
      if (isInside(element)) lines.add(element, sidesOf(scene_.grid, element));
    }
    const xml_node group = append(root, "g");
    set(group, "aria-hidden", "true");
    appendCharacters(group, "\n");
    writeShapes(group, lines.plain(), colours_.line, plainStroke);
    writeShapes(group, lines.lit(), colours_.path, litStroke);
    for (const SvgLabel& label : lines.labels()) writeLabel(group, label);
  }

  static void writeShapes(xml_node parent, const SvgShapes& shapes, std::string_view colour,
                          const char* stroke) {
    if (!shapes.lines.empty()) {
      const xml_node lines = append(parent, "path");
      set(lines, "fill", "none");
      set(lines, "stroke", colour);
      set(lines, "stroke-width", stroke);
      set(lines, "stroke-linecap", "round");  // where lines join at a corner, none is missing
      set(lines, "d", shapes.lines);
    }
    if (shapes.heads.empty()) return;
    const xml_node heads = append(parent, "path");
    set(heads, "fill", colour);
    set(heads, "d", shapes.heads);
  }

  void writeLabel(xml_node parent, const SvgLabel& label) const {
    const xml_node text =
        appendText(parent, label.at.x, label.at.y, label.lit ? colours_.path : colours_.label);
    set(text, "font-size", smallFontSize);
    set(text, "text-anchor", label.atRight ? "end" : "start");
    if (label.lit) set(text, "font-weight", "bold");
    appendCharacters(text, label.word);
  }

  void writeBox(xml_node root, const WrittenBox& box) const {
    const ScreenElement& element = *box.element;
    const SvgBox measured = svgBoxOf(element);
    const xml_node group = appendGroup(root, box);
    if (box.isPlace) set(group, "aria-current", "location");
    appendCharacters(group, "\n");
    appendCharacters(append(group, "title"), box.title);
    const xml_node seen = append(group, "g");
    set(seen, "aria-hidden", "true");  // the title has said it
    appendCharacters(seen, "\n");
    const std::int64_t left =
        scene_.geometry.columns.find(element.x())->centre - measured.width / 2;
    const std::int64_t top = scene_.geometry.rows.find(element.y())->centre - measured.height / 2;
    writeFrame(seen, {left, top, measured.width, measured.height}, measured, box);
    writeText(seen, measured, left + measured.width / 2, top + rowPadding);
  }

  // A link is a group of its own: one round another would be read out twice.
  static xml_node appendGroup(xml_node root, const WrittenBox& box) {
    const ScreenElement& element = *box.element;
    const xml_node group = append(root, box.link.empty() ? "g" : "a");
    set(group, "id", "box-" + std::to_string(element.x()) + "-" + std::to_string(element.y()));
    if (box.link.empty()) {
      set(group, "role", "img");
    } else {
      set(group, "href", box.link);
    }
    return group;
  }

  void writeFrame(xml_node group, const SvgArea& area, const SvgBox& measured,
                  const WrittenBox& box) const {
    const bool here = box.isPlace;
    const bool lit = box.element->isOnPath();
    const std::string_view colour = lit || here ? colours_.path : colours_.frame;
    const std::int64_t radius = measured.text.isEnd ? endRadius : questionRadius;
    const xml_node frame = appendRectangle(group, area, radius);
    set(frame, "fill", here ? colours_.place : colours_.box);
    set(frame, "stroke", colour);
    set(frame, "stroke-width", lit || here ? litStroke : plainStroke);
    if (lit) {
      const xml_node inner = appendRectangle(group, inside(area, innerInset),
                                             std::max<std::int64_t>(radius - innerInset, 1));
      set(inner, "fill", "none");
      set(inner, "stroke", colour);
      set(inner, "stroke-width", innerStroke);
    }
    if (here) writeDisc(group, area);
  }

  void writeDisc(xml_node group, const SvgArea& area) const {
    const xml_node disc = append(group, "circle");
    set(disc, "cx", area.left + 2);
    set(disc, "cy", area.top + 2);
    set(disc, "r", discRadius);
    set(disc, "fill", colours_.path);
    set(disc, "stroke", colours_.paper);
    set(disc, "stroke-width", "2");
  }

  void writeText(xml_node group, const SvgBox& box, std::int64_t centre, std::int64_t top) const {
    for (const InkedText& line : box.text.lines) {
      writeLine(group, line, centre, top + baseline);
      top += lineHeight;
    }
    if (box.text.link.empty()) return;
    const xml_node link = appendText(group, centre, top + baseline, colours_.link);
    set(link, "font-size", smallFontSize);
    set(link, "text-decoration", "underline");
    appendCharacters(link, "→ " + plainText(box.text.link));
  }

  void writeLine(xml_node group, const InkedText& line, std::int64_t x, std::int64_t y) const {
    xml_node text = appendText(group, x, y, colours_.text);
    for (const InkedGlyph& run : inRuns(line)) {
      if (!isSuit(run.ink)) {
        appendCharacters(text, run.glyph);
        continue;
      }
      const xml_node piece = text.append_child("tspan");
      set(piece, "fill", colourOf(run.ink, colours_));
      set(piece, "font-size", suitSize);
      appendCharacters(piece, run.glyph);
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

  const SvgScene& scene_;
  const Colours& colours_;
  SvgArea area_;
};

}  // namespace

std::string written(const SvgScene& scene, const SvgArea& area) {
  return SvgWriter(scene, area).write();
}

}  // namespace tavrel::drawing
