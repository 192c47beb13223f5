// docs/diagnostics.md: each code has a section, and each section's example gives exactly the
// message that stands there. TAVREL_UPDATE=1 writes the messages anew.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "authoring/ChartCheck.h"
#include "hands/ConditionCompiler.h"
#include "tests/support/Files.h"

namespace tavrel::authoring {
namespace {

const Catalogue catalogue = {"Opening", "RespNT", "Stayman"};

struct Example {
  std::string info;  // behind the fence: "yaml escaped name=Start.yaml"
  std::string text;

  bool is(const std::string& word) const { return info.find(word) != std::string::npos; }

  std::string fileName() const {
    const std::size_t name = info.find("name=");
    if (name != std::string::npos) return info.substr(name + 5);
    return is("fv") ? "Opening.fv" : "Opening.yaml";
  }
};

struct Section {
  std::string code;
  std::vector<Example> examples;
  std::string message;
};

std::vector<std::string> linesOfDocument() {
  std::vector<std::string> lines;
  std::istringstream document(readFile(TAVREL_DIAGNOSTICS_DOCUMENT));
  for (std::string line; std::getline(document, line);) lines.push_back(line);
  return lines;
}

// What stands between the fences of the block that begins with line `at`, which moves on to the
// closing fence.
std::string block(const std::vector<std::string>& lines, std::size_t& at) {
  std::string text;
  for (++at; at < lines.size() && lines[at] != "```"; ++at) text += lines[at] + '\n';
  return text;
}

std::vector<Section> readSections() {
  const std::vector<std::string> lines = linesOfDocument();
  std::vector<Section> sections;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    if (lines[at].rfind("## ", 0) == 0) {
      sections.push_back({lines[at].substr(3, 5), {}, {}});
    } else if (lines[at].rfind("```", 0) == 0 && !sections.empty()) {
      const std::string info = lines[at].substr(3);
      const std::string text = block(lines, at);
      if (info == "text") {
        sections.back().message = text;
      } else {
        sections.back().examples.push_back({info, text});
      }
    }
  }
  return sections;
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
  return text;
}

// "\r", "\t" and "\xNN" are the bytes that they name.
std::string unescaped(const std::string& text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::string sequence = text.substr(at, 2);
    if (sequence == "\\r" || sequence == "\\t") {
      bytes += sequence == "\\r" ? '\r' : '\t';
      ++at;
    } else if (sequence == "\\x") {
      bytes += static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16));
      at += 3;
    } else {
      bytes += text[at];
    }
  }
  return bytes;
}

// "3 × TEXT" stands for three lines, "3 × TEXT⏎TEXT" for six.
std::string repeated(const std::string& text) {
  const std::string times = " × ";
  std::string all;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
    if (digits == 0 || line.compare(digits, times.size(), times) != 0) {
      all += line + '\n';
      continue;
    }
    const std::string what = replaced(line.substr(digits + times.size()), "⏎", "\n");
    for (int n = 0; n < std::stoi(line); ++n) {
      std::string one = replaced(what, "{n}", std::to_string(n));
      for (const int more : {1, 5}) {
        one = replaced(one, "{n+" + std::to_string(more) + "}", std::to_string(n + more));
      }
      all += one + '\n';
    }
  }
  return all;
}

SourceFile fileOf(const Example& example) {
  std::string text = example.text;
  if (example.is("escaped")) text = unescaped(text);
  if (example.is("repeated")) text = repeated(text);
  return SourceFile(example.fileName(), text);
}

// What is said of the files of a section, as those of a folder where there are several.
std::string messageOf(const Section& section) {
  std::vector<SourceFile> files;
  std::vector<CheckedChart> charts;
  std::set<std::string> there;
  for (const Example& example : section.examples) {
    files.push_back(fileOf(example));
    charts.push_back(checkChart(files.back(), catalogue, hands::checkConditions));
    there.insert(charts.back().name);
  }
  for (CheckedChart& chart : charts) checkLinks(chart, there);
  if (charts.size() > 1) noteUnlinked(charts);
  std::string message;
  for (std::size_t i = 0; i < charts.size(); ++i) {
    for (const Diagnostic& each : charts[i].found.sorted()) message += shown(each, files[i]);
  }
  return message;
}

std::size_t countOf(const std::string& text, const std::string& piece) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(piece, at)) != std::string::npos; ++at) ++count;
  return count;
}

void updateDocument() {
  const std::vector<std::string> lines = linesOfDocument();
  const std::vector<Section> sections = readSections();
  std::string document;
  std::size_t section = 0;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    document += lines[at] + '\n';
    if (lines[at].rfind("## ", 0) == 0) ++section;
    if (lines[at] != "```text") continue;
    block(lines, at);
    document += messageOf(sections[section - 1]) + "```\n";
  }
  writeFile(TAVREL_DIAGNOSTICS_DOCUMENT, document);
}

TEST(DiagnosticsDocument, HasASectionForEachCodeInTheirOrderAndNoOther) {
  std::vector<std::string> sections, codes;
  for (const Section& section : readSections()) sections.push_back(section.code);
  for (const Code code : allCodes()) codes.push_back(nameOf(code));
  EXPECT_EQ(sections, codes);
}

TEST(DiagnosticsDocument, HasExamplesThatGiveExactlyTheMessageOfTheirSection) {
  if (std::getenv("TAVREL_UPDATE") != nullptr) updateDocument();
  for (const Section& section : readSections()) {
    SCOPED_TRACE(section.code);
    EXPECT_FALSE(section.examples.empty());
    const std::string message = messageOf(section);
    EXPECT_EQ(message, section.message);
    const bool isAlias = section.code == nameOf(Code::alias);  // which needs an anchor
    EXPECT_EQ(countOf(message, " [T"), isAlias ? 2U : 1U);
    EXPECT_EQ(countOf(message, " [" + section.code + "]\n"), 1U);
  }
}

}  // namespace
}  // namespace tavrel::authoring
