#include "tests/sources/Meaning.h"

#include <yaml-cpp/yaml.h>

#include <cctype>
#include <map>
#include <sstream>

namespace tavrel::sources {
namespace {

bool goesOn(char next) {
  const auto byte = static_cast<unsigned char>(next);
  return byte >= 0x80 || std::isalnum(byte) != 0;
}

std::string withSuits(std::string text) {
  static const std::map<char, std::string> suits = {{'c', "♣"}, {'d', "♦"}, {'h', "♥"}, {'s', "♠"}};
  for (std::size_t at = text.find('!'); at != std::string::npos; at = text.find('!', at + 1)) {
    const auto suit = suits.find(text[at + 1 < text.size() ? at + 1 : at]);
    const bool isWord = at + 2 < text.size() && goesOn(text[at + 2]);
    if (suit != suits.end() && !isWord) text.replace(at, 2, suit->second);
  }
  return text;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    line.erase(line.find_last_not_of(' ') + 1);
    lines.push_back(line);
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

std::vector<Words> paragraphsOf(const YAML::Node& text) {
  std::vector<Words> paragraphs(1);
  if (!text) return {};
  for (const std::string& line : linesOf(withSuits(text.Scalar()))) {
    if (line.empty()) paragraphs.emplace_back();
    for (const std::string& word : wordsOf(line)) paragraphs.back().push_back(word);
  }
  return paragraphs;
}

class Document {
 public:
  MeantChart read(const YAML::Node& root) {
    chart_.name = root["chart"].Scalar();
    chart_.intro = paragraphsOf(root["intro"]);
    if (root["width"]) chart_.width = root["width"].as<int>();
    for (const auto& each : root["boxes"]) readBox(each.second, each.first.Scalar());
    for (const Exit& exit : exits_) exitOf(exit) = numbers_.at(exit.id);
    chart_.start = numbers_.at(root["start"].Scalar());
    return std::move(chart_);
  }

 private:
  // An exit that names its box.
  struct Exit {
    int box;
    int MeantBox::*answer;
    std::string id;
  };

  int& exitOf(const Exit& exit) {
    return chart_.boxes[static_cast<std::size_t>(exit.box)].*exit.answer;
  }

  int readBox(const YAML::Node& map, const std::string& id) {
    const int number = static_cast<int>(chart_.boxes.size());
    if (!id.empty()) numbers_[id] = number;
    MeantBox box;
    box.lines = linesOf(withSuits(map["text"].Scalar()));
    box.comment = paragraphsOf(map["comment"]);
    if (map["chart"]) box.link = map["chart"].Scalar();
    chart_.boxes.push_back(box);
    readExit(number, &MeantBox::yes, map["yes"]);
    readExit(number, &MeantBox::no, map["no"]);
    return number;
  }

  void readExit(int box, int MeantBox::*answer, const YAML::Node& value) {
    if (!value) return;
    if (value.IsMap()) {
      const int inside = readBox(value, value["id"] ? value["id"].Scalar() : "");
      exitOf({box, answer, ""}) = inside;
    } else {
      exits_.push_back({box, answer, value.Scalar()});
    }
  }

  MeantChart chart_;
  std::map<std::string, int> numbers_;
  std::vector<Exit> exits_;
};

}  // namespace

Words wordsOf(const std::string& text) {
  std::istringstream in(text);
  Words words;
  for (std::string word; std::getline(in, word, ' ');) {
    if (!word.empty()) words.push_back(word);
  }
  return words;
}

MeantChart meaningOf(const std::string& source) { return Document().read(YAML::Load(source)); }

}  // namespace tavrel::sources
