#include "tests/sources/RandomSource.h"

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/reference/Choices.h"

namespace tavrel::sources {
namespace {

using reference::Choices;

constexpr int deepestInline = 6;  // boxes within boxes; YAML may be nested 20 deep

// A box before it is written.
struct PlannedBox {
  std::string id;
  int exits[2] = {-1, -1};  // yes, no
  int parent = -1;          // the box that leads to it first, -1 for none
  bool isInline = false;    // stands where its parent's exit would name it
  bool isNamed = false;     // others name it, or it stands by itself
  int depth = 0;            // of boxes that it stands in
};

// A tree, with further exits that share its boxes and lead back to them.
class Plan {
 public:
  Plan(Choices& choices, Features& met) : choices_(choices), met_(met) {
    const int count = choices.chance(5) ? 1 : choices.between(2, choices.chance(10) ? 60 : 20);
    for (int i = 0; i < count; ++i) addBox(i);
    const int most = choices.chance(30) ? count : count / 5 + 1;
    const int shared = choices.chance(40) ? 0 : choices.between(1, most);
    const int back = choices.chance(20) ? 60 : 10;  // percent that lead back
    hub_ = choices.chance(50) ? -1 : choices.below(count);
    for (int i = 0; i < shared && !open_.empty(); ++i) share(choices.chance(back));
    if (choices.chance(60)) complete();
    if (choices.chance(10)) addUnreached();
    for (PlannedBox& box : boxes_) putInline(box);
  }

  const std::vector<PlannedBox>& boxes() const { return boxes_; }

 private:
  struct Exit {
    int box, answer;
  };

  PlannedBox& at(int box) { return boxes_[static_cast<std::size_t>(box)]; }

  std::string idFor(int number) {
    static const char* const odd[] = {"yes", "no", "true", "0x1F", "1e3", "007", "n", "off"};
    if (number < 8 && choices_.chance(10)) {
      met_.meet(Feature::oddId);
      return odd[number];
    }
    return choices_.from({"box-", "b", "B-"}) + std::to_string(number);
  }

  void addBox(int number) {
    boxes_.emplace_back();
    at(number).id = idFor(number);
    if (number > 0) {
      const Exit from = takeExit();
      at(from.box).exits[from.answer] = number;
      at(number).parent = from.box;
    }
    for (int answer = 0; answer < 2; ++answer) open_.push_back({number, answer});
  }

  // Now and then the newest, so that chains grow longer than in a random tree.
  Exit takeExit() {
    const std::size_t newest = open_.size() - 1;
    const bool isChain = choices_.chance(40);
    const std::size_t taken =
        isChain ? newest : static_cast<std::size_t>(choices_.below(static_cast<int>(open_.size())));
    std::swap(open_[taken], open_.back());
    const Exit exit = open_.back();
    open_.pop_back();
    return exit;
  }

  void share(bool goesBack) {
    const Exit from = takeExit();
    const int count = static_cast<int>(boxes_.size());
    int to = hub_ >= 0 && choices_.chance(80) ? hub_ : choices_.below(count);
    if (goesBack) {
      to = from.box;
      for (int steps = choices_.below(6); steps > 0 && at(to).parent >= 0; --steps) {
        to = at(to).parent;
      }
      met_.meet(Feature::lineBack);
    } else if (to <= from.box) {
      return;  // which might lead back
    }
    at(from.box).exits[from.answer] = to;
    at(to).isNamed = true;
  }

  // Boxes with one exit get another, to an end.
  void complete() {
    std::vector<int> ends;
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
      if (boxes_[i].exits[0] < 0 && boxes_[i].exits[1] < 0) ends.push_back(static_cast<int>(i));
    }
    if (ends.empty()) return;
    for (PlannedBox& box : boxes_) {
      if ((box.exits[0] < 0) == (box.exits[1] < 0)) continue;
      const int end = choices_.from(ends);
      box.exits[box.exits[0] < 0 ? 0 : 1] = end;
      at(end).isNamed = true;
    }
  }

  // A box that nothing leads to may lead to others.
  void addUnreached() {
    boxes_.emplace_back();
    boxes_.back().id = "lost";
    const int to = choices_.below(static_cast<int>(boxes_.size()));
    boxes_.back().exits[choices_.below(2)] = to;
    at(to).isNamed = true;
  }

  void putInline(PlannedBox& box) {
    if (box.parent < 0 || !choices_.chance(50)) return;
    box.depth = at(box.parent).isInline ? at(box.parent).depth + 1 : 1;
    box.isInline = box.depth <= deepestInline;
  }

  Choices& choices_;
  Features& met_;
  std::vector<PlannedBox> boxes_;
  std::vector<Exit> open_;
  int hub_ = -1;  // a box that many of the further exits lead to, -1 for none
};

class Author {
 public:
  Author(Choices& choices, Features& met) : choices_(choices), met_(met), plan_(choices, met) {}

  std::string write() {
    line(0, "chart: Opening");
    std::vector<std::string> settings = settingsOfChart();
    const bool isBehind = choices_.chance(20);
    met_.meet(Feature::settingsBehind, isBehind);
    if (!isBehind) append(settings);
    if (choices_.chance(80)) line(0, "start: " + reference(plan_.boxes()[0].id));
    const bool hasStart = text_.find("\nstart: ") != std::string::npos;
    line(0, "boxes:");
    writeBoxes();
    if (!hasStart) line(0, "start: " + reference(plan_.boxes()[0].id));
    if (isBehind) append(settings);
    return std::move(text_);
  }

 private:
  // --- the chart --------------------------------------------------------------------

  // Each with all of its lines.
  std::vector<std::string> settingsOfChart() {
    std::vector<std::string> settings;
    if (choices_.chance(60)) settings.push_back(textOf("intro", 0, true));
    if (choices_.chance(30)) settings.push_back("entry: " + either("true", "false") + "\n");
    if (choices_.chance(30)) {
      settings.push_back("width: " + std::to_string(choices_.between(8, 80)) + "\n");
      met_.meet(Feature::width);
    }
    if (choices_.chance(30)) {
      settings.push_back("turn: " + either("down", "right") + "\n");
      met_.meet(Feature::chartTurned, settings.back() == "turn: down\n");
    }
    if (choices_.chance(30)) {
      settings.push_back("applies: {auction: [\"(1C|1D) P\", \"\"], hand: " + expression() + "}\n");
      met_.meet(Feature::applies);
    }
    return settings;
  }

  std::string either(const char* one, const char* other) { return choices_.from({one, other}); }

  void append(const std::vector<std::string>& settings) {
    for (const std::string& each : settings) text_ += each;
  }

  void line(int indent, const std::string& text) {
    if (choices_.chance(3)) {
      text_ += std::string(static_cast<std::size_t>(indent), ' ') + "# for later: {!s} \"\n\n";
      met_.meet(Feature::remark);
    }
    text_ += std::string(static_cast<std::size_t>(indent), ' ') + text + "\n";
  }

  // --- boxes ------------------------------------------------------------------------

  void writeBoxes() {
    std::vector<const PlannedBox*> boxes;
    for (const PlannedBox& box : plan_.boxes()) {
      if (!box.isInline) boxes.push_back(&box);
    }
    const bool isShuffled = choices_.chance(30);
    for (std::size_t i = 0; isShuffled && i < boxes.size(); ++i) {
      std::swap(boxes[i],
                boxes[static_cast<std::size_t>(choices_.below(static_cast<int>(boxes.size())))]);
    }
    for (const PlannedBox* const box : boxes) {
      if (choices_.chance(15)) {
        line(2, box->id + ": " + inBraces(*box));
      } else {
        line(2, box->id + ":");
        writeBox(*box, 4);
      }
    }
  }

  const PlannedBox& at(int box) const { return plan_.boxes()[static_cast<std::size_t>(box)]; }

  static bool isEnd(const PlannedBox& box) { return box.exits[0] < 0 && box.exits[1] < 0; }

  // Where an id is a value, YAML would take some for a number or for true.
  static std::string reference(const std::string& id) {
    const bool isText = id != "true" && (id[0] < '0' || id[0] > '9');
    return isText ? id : "\"" + id + "\"";
  }

  bool needsId(const PlannedBox& box) {
    if (!box.isInline || (!box.isNamed && !choices_.chance(20))) return false;
    met_.meet(Feature::inlineNamed, box.isNamed);
    return true;
  }

  // What a box says about hands: its keys and their values, as they may stand anywhere.
  std::vector<std::string> ofHands(const PlannedBox& box) {
    if (choices_.chance(70)) return {};
    return isEnd(box) ? ofEnd() : ofQuestion(box);
  }

  std::vector<std::string> ofQuestion(const PlannedBox& box) {
    std::vector<std::string> entries;
    const bool isJudgement = choices_.chance(20);
    met_.meet(isJudgement ? Feature::judgement : Feature::condition);
    entries.push_back(isJudgement ? "asks: judgement" : "when: " + expression());
    if (choices_.chance(20)) {
      const char* const answer = box.exits[0] < 0 ? "no" : "yes";
      entries.push_back("never: {" + std::string(answer) + ": " + doubleQuoted(sentence(12)) + "}");
      met_.meet(Feature::reason);
    }
    return entries;
  }

  std::vector<std::string> ofEnd() {
    std::vector<std::string> entries;
    const bool isList = choices_.chance(40);
    met_.meet(isList ? Feature::callsOfAList : Feature::call);
    entries.push_back("call: " + std::string(choices_.from({"2H", "\"P\"", "XX", "1NT"})));
    if (isList) entries.back() = "call: [{when: " + expression() + ", call: 1S}, {call: X}]";
    if (choices_.chance(30)) entries.push_back("shows: " + expression());
    if (choices_.chance(30)) {
      entries.push_back("forcing: " + std::string(choices_.from({"no", "round", "\"game\""})));
    }
    return entries;
  }

  std::string expression() {
    return choices_.from({"\"hcp >= 12\"", "\"shape(5,3,3,2) && !balanced\"",
                          "\"length(S) >= 5 || suitOf(partner(1)) == H\""});
  }

  bool hasLink(const PlannedBox& box) { return choices_.chance(isEnd(box) ? 30 : 3); }

  std::string link() { return choices_.from({"RespNT", "Stayman", "Opening"}); }

  void writeBox(const PlannedBox& box, int indent) {
    if (needsId(box)) line(indent, "id: " + reference(box.id));
    text_ += textOf("text", indent, false);
    if (choices_.chance(50)) text_ += textOf("comment", indent, true);
    if (hasLink(box)) line(indent, "chart: " + link());
    if (choices_.chance(10)) {
      line(indent, "turn: " + either("down", "right"));
      met_.meet(Feature::boxTurned);
    }
    for (const std::string& entry : ofHands(box)) line(indent, entry);
    const bool isNoFirst = choices_.chance(20);
    for (const int answer : {isNoFirst ? 1 : 0, isNoFirst ? 0 : 1}) {
      if (box.exits[answer] >= 0) writeExit(box, answer, indent);
    }
  }

  bool standsHere(const PlannedBox& from, int answer) const {
    const PlannedBox& to = at(from.exits[answer]);
    const bool isFirst = answer == 0 || from.exits[0] != from.exits[1];
    return to.isInline && isFirst && to.parent >= 0 && &at(to.parent) == &from;
  }

  void writeExit(const PlannedBox& box, int answer, int indent) {
    const std::string key = answer == 0 ? "yes" : "no";
    const PlannedBox& to = at(box.exits[answer]);
    if (!standsHere(box, answer)) {
      line(indent, key + ": " + reference(to.id));
    } else if (choices_.chance(40)) {
      line(indent, key + ": " + inBraces(to));
      met_.meet(Feature::inlineFlow);
    } else {
      line(indent, key + ":");
      writeBox(to, indent + 2);
      met_.meet(Feature::inlineBlock);
    }
  }

  std::string inBraces(const PlannedBox& box) {
    std::string text = "{";
    if (needsId(box)) text += "id: " + reference(box.id) + ", ";
    text += "text: " + doubleQuoted(sentence(12));
    if (choices_.chance(50)) text += ", comment: " + doubleQuoted(sentence(30));
    if (hasLink(box)) text += ", chart: " + link();
    for (const std::string& entry : ofHands(box)) text += ", " + entry;
    for (const int answer : {0, 1}) {
      if (box.exits[answer] < 0) continue;
      const PlannedBox& to = at(box.exits[answer]);
      text += answer == 0 ? ", yes: " : ", no: ";
      if (standsHere(box, answer)) met_.meet(Feature::inlineFlow);
      text += standsHere(box, answer) ? inBraces(to) : reference(to.id);
    }
    return text + "}";
  }

  // --- texts ------------------------------------------------------------------------

  struct Word {
    const char* text;
    bool isPlain;  // may stand anywhere in a text without quotes
  };

  void noteWord(std::string_view word) {
    const auto has = [&](const char* part) { return word.find(part) != std::string_view::npos; };
    met_.meet(Feature::suitWritten, word == "2!h" || word == "!s");
    met_.meet(Feature::suitTyped, has("♠") || has("♥"));
    met_.meet(Feature::noSuit, has("!shift") || has("!cé"));
    met_.meet(Feature::accents, has("é") || has("ï") || has("e\u0301"));
    met_.meet(Feature::wide, has("界"));
  }

  std::string word(bool isPlain) {
    static constexpr Word words[] = {
        {"12+", true},       {"HCP", true},
        {"15–17", true},     {"a", true},
        {"balanced?", true}, {"2♥", true},
        {"♠", true},         {"2!h", true},
        {"naïve", true},     {"cafe\u0301", true},
        {"橋界", true},      {"(1NT)", true},
        {"4=4=3=2", true},   {"playing-tricks-without-a-blank", true},
        {"it's", true},      {"\\", true},
        {"!s", false},       {"!shift", false},
        {"!cé", false},      {"\"no\"", false},
        {"first:", false},   {"#1", false},
        {"{x}", false},      {"-", false},
        {"&", false},        {"%", false},
    };
    const Word* chosen = &choices_.from(words);
    while (isPlain && !chosen->isPlain) chosen = &choices_.from(words);
    noteWord(chosen->text);
    return chosen->text;
  }

  std::string sentence(int most, bool isPlain = false) {
    std::string text = isPlain ? "So" : word(false);  // what begins a plain text is delicate
    for (int i = choices_.below(most); i > 0; --i) {
      text += choices_.chance(95) || isPlain ? " " : "  ";
      text += word(isPlain);
    }
    return text;
  }

  std::string doubleQuoted(const std::string& text) {
    met_.meet(Feature::doubleQuoted);
    std::string quoted = "\"";
    for (const char each : text) {
      if (each == '"' || each == '\\') quoted += '\\';
      quoted += each;
    }
    return quoted + "\"";
  }

  std::string singleQuoted(const std::string& text) {
    met_.meet(Feature::singleQuoted);
    std::string quoted = "'";
    for (const char each : text) quoted += each == '\'' ? "''" : std::string(1, each);
    return quoted + "'";
  }

  // A text block. One that YAML folds has paragraphs where there are empty lines too.
  std::string block(int indent, int most, bool hasParagraphs) {
    const bool isFolded = choices_.chance(30);
    met_.meet(isFolded ? Feature::folded : Feature::literal);
    std::string text = isFolded ? ">" : "|";
    text += std::string(choices_.from({"", "-", "+"})) + "\n";
    for (int lines = choices_.between(1, hasParagraphs ? 6 : 3); lines > 0; --lines) {
      text += std::string(static_cast<std::size_t>(indent) + 2, ' ') + sentence(most) + "\n";
      if (hasParagraphs && lines > 1 && choices_.chance(30)) text += "\n";
    }
    text.pop_back();
    return text;
  }

  std::string textOf(const std::string& key, int indent, bool hasParagraphs) {
    const int most = hasParagraphs ? 30 : 12;
    std::string value;
    switch (choices_.below(4)) {
      case 0:
        value = sentence(most, true);
        met_.meet(Feature::plain);
        break;
      case 1:
        value = doubleQuoted(sentence(most));
        break;
      case 2:
        value = singleQuoted(sentence(most));
        break;
      default:
        value = block(indent, most, hasParagraphs);
    }
    return std::string(static_cast<std::size_t>(indent), ' ') + key + ": " + value + "\n";
  }

  Choices& choices_;
  Features& met_;
  Plan plan_;
  std::string text_;
};

}  // namespace

std::string randomSource(std::uint64_t seed, Features& met) {
  Choices choices(seed);
  return Author(choices, met).write();
}

}  // namespace tavrel::sources
