#include "authoring/MeaningCheck.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "authoring/RepeatedQuestions.h"
#include "authoring/Spelling.h"
#include "text/Text.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t mostLines = 6;           // that still look like a box
constexpr std::size_t mostMeasured = 10'000;   // bytes of a line, which is too wide by then
constexpr std::size_t mostQuestions = 50'000;  // that are looked for on paths

// Where walks from some boxes get to.
class Reach {
 public:
  explicit Reach(const ReadChart& chart) : chart_(chart), has_(chart.boxes.size(), false) {}

  bool has(BoxNumber box) const { return has_[static_cast<std::size_t>(box)]; }

  void addFrom(BoxNumber start) {
    std::vector<BoxNumber> next;
    add(start, next);
    while (!next.empty()) {
      const BoxNumber box = next.back();
      next.pop_back();
      for (const Answer answer : answers) add(chart_[box].exits[answer], next);
    }
  }

 private:
  void add(BoxNumber box, std::vector<BoxNumber>& next) {
    if (box == noBox || has(box)) return;
    has_[static_cast<std::size_t>(box)] = true;
    next.push_back(box);
  }

  const ReadChart& chart_;
  std::vector<bool> has_;
};

class MeaningCheck {
 public:
  MeaningCheck(const ReadChart& chart, Diagnostics& found) : chart_(chart), found_(found) {}

  void checkTexts(const Catalogue& catalogue) {
    names_.insert(catalogue.begin(), catalogue.end());
    checkIntroduction();
    for (std::size_t i = 0; i < chart_.contentCount; ++i) {
      const BoxContent content = chart_.content(i);
      if (content.isSure) checkContent(content);
    }
  }

  void checkBoxes() {
    const std::vector<bool> haveMarks = contentsWithMarks();
    std::vector<bool> isWarned(chart_.contentCount, false);  // of the question mark
    for (BoxNumber number = 0; number < boxCount(); ++number) {
      const ReadBox& box = chart_[number];
      if (!box.isSure) continue;
      checkExits(number);
      if (isWarned[box.content] || box.isEnd() != haveMarks[box.content]) continue;
      isWarned[box.content] = true;
      warnOfMark(box);
    }
  }

  void checkWays() {
    checkBoxes();
    checkReach();
    checkEnds();
    checkPaths();
  }

 private:
  BoxNumber boxCount() const { return static_cast<BoxNumber>(chart_.boxes.size()); }

  // --- texts ----------------------------------------------------------------------

  void checkIntroduction() {
    if (!chart_.hasSureIntro) return;
    if (chart_.intro.size() == 0) {
      found_.add(Code::noIntroduction, chart_.introPlace, "the chart has no introduction",
                 "say when to use the chart, and what its words mean");
    }
    checkSpelling(chart_.intro, chart_.introPlace, "the introduction");
  }

  void checkContent(const BoxContent& content) {
    checkSize(content);
    checkSpelling(content.text, content.textPlace, "the text");
    checkLoneCall(content);
    if (content.comment.size() == 0) {
      found_.add(Code::noComment, content.commentPlace, "the box has no comment",
                 "say why, or give an example");
    }
    checkSpelling(content.comment, content.commentPlace, "the comment");
    checkLink(content);
  }

  void checkSize(const BoxContent& content) {
    int widest = 0;
    for (std::size_t i = 0; i < content.text.size(); ++i) {
      widest = std::max(widest, displayWidth(content.text[i].substr(0, mostMeasured)));
    }
    if (widest > chart_.width) {
      found_.add(Code::textTooWide, content.textPlace,
                 "a line of the box takes " + std::to_string(widest) + " columns, and " +
                     std::to_string(chart_.width) + " are the most",
                 "break the line, or write less");
    }
    if (content.text.size() > mostLines) {
      found_.add(Code::textTooHigh, content.textPlace,
                 "the box has " + std::to_string(content.text.size()) + " lines",
                 "move the details into the comment");
    }
  }

  void report(const Misspelling& call, const TextLines& lines, Place place,
              const std::string& where) {
    found_.add(Code::callSpelling, chart_.placeOfWord(lines, place, call.offset, call.written),
               "a call is written as " + call.written + " in " + where, "write " + call.wanted);
  }

  // Of a call that is misspelled anywhere enough has been said.
  void checkLoneCall(const BoxContent& content) {
    const std::string text = content.text.joined();
    const auto call = misspelledLoneCall(text);
    if (call && misspelledCalls(text).empty()) {
      report(*call, content.text, content.textPlace, "the text");
    }
  }

  void checkSpelling(const TextLines& lines, Place place, const std::string& where) {
    const std::string text = lines.joined();
    for (const Misspelling& call : misspelledCalls(text)) report(call, lines, place, where);
    for (const Misspelling& range : misspelledRanges(text)) {
      const bool hasEnDash = range.written.find("–") != std::string::npos;
      found_.add(Code::rangeSpelling, chart_.placeOfWord(lines, place, range.offset, range.written),
                 "a range is written as " + range.written + " in " + where,
                 "write " + range.wanted + (hasEnDash ? ", without blanks" : ", with an en dash"));
    }
    for (const Misspelling& suit : misspelledSuits(text)) {
      found_.add(Code::suitSpelling, chart_.placeOfWord(lines, place, suit.offset, suit.written),
                 "a suit is written as " + suit.written + " in " + where,
                 "write " + suit.wanted + ", or !c !d !h !s in a source");
    }
  }

  void checkLink(const BoxContent& content) {
    if (content.link.empty() || names_.count(content.link) > 0) return;
    constexpr std::size_t mostShown = 40;
    const std::string name = printable(content.link.substr(0, mostShown), Charset::utf8);
    found_.add(Code::linkOutsideCatalogue, content.linkPlace, "the catalogue has no chart " + name,
               "'tavrel list' shows the names; capitals matter");
  }

  // --- boxes ----------------------------------------------------------------------

  std::vector<bool> contentsWithMarks() const {
    std::vector<bool> haveMarks;
    for (std::size_t i = 0; i < chart_.contentCount; ++i) {
      const TextLines text = chart_.content(i).text;
      bool hasMark = false;
      for (std::size_t line = 0; line < text.size() && !hasMark; ++line) {
        hasMark = text[line].find('?') != std::string_view::npos;
      }
      haveMarks.push_back(hasMark);
    }
    return haveMarks;
  }

  void warnOfMark(const ReadBox& box) {
    const Place place = chart_.content(box.content).textPlace;
    if (box.isEnd()) {
      found_.add(Code::questionAtEnd, place, "a question stands at an end",
                 "say what to bid, or lead the answers on");
    } else {
      found_.add(Code::noQuestionMark, place, "the question has no question mark",
                 "ask for yes or no");
    }
  }

  void checkExits(BoxNumber number) {
    const ReadBox& box = chart_[number];
    if (box.isEnd()) return;
    if (box.exits.yes == noBox || box.exits.no == noBox) {
      found_.add(
          Code::oneExit, chart_.placeOf(number),
          std::string("the box has a ") + (box.exits.yes == noBox ? "no" : "yes") + " exit alone",
          "say where both answers lead, or leave out the question");
    } else if (isSameForReaders(box.exits.yes, box.exits.no)) {
      found_.add(Code::sameBoxTwice, chart_.placeOf(number), "both answers lead to the same box",
                 "leave out the question, or lead one answer elsewhere");
    }
    if (!chart_.content(box.content).link.empty()) {
      found_.add(Code::linkAndExits, chart_.placeOf(number),
                 "the box leads into another chart and has exits too",
                 "keep the link, or the exits");
    }
  }

  // An end is repeated for each question that leads to it.
  bool isSameForReaders(BoxNumber a, BoxNumber b) const {
    return a == b ||
           (chart_[a].content == chart_[b].content && chart_[a].isEnd() && chart_[b].isEnd());
  }

  // --- ways -----------------------------------------------------------------------

  // Of boxes out of reach that hang together, the one that comes first on their way. Where an
  // answer is missing, that is what may have led to them.
  void checkReach() {
    Reach reach(chart_);
    reach.addFrom(chart_.start);
    for (BoxNumber number = 0; number < boxCount(); ++number) {
      const ReadBox& box = chart_[number];
      const bool hasOneExit = !box.isEnd() && (box.exits.yes == noBox || box.exits.no == noBox);
      if (hasOneExit && reach.has(number)) return;
    }
    std::vector<bool> isLedTo(chart_.boxes.size(), false);
    for (BoxNumber number = 0; number < boxCount(); ++number) {
      for (const Answer answer : answers) {
        const BoxNumber next = chart_[number].exits[answer];
        if (next != noBox && next != number) isLedTo[static_cast<std::size_t>(next)] = true;
      }
    }
    for (const bool isLoop : {false, true}) {
      for (BoxNumber number = 0; number < boxCount(); ++number) {
        if (reach.has(number) || isLedTo[static_cast<std::size_t>(number)] != isLoop) continue;
        found_.add(Code::outOfReach, chart_.placeOf(number),
                   "no way leads from the start to the box",
                   "lead an answer to it, or take it away");
        reach.addFrom(number);
      }
    }
  }

  using Boxes = std::vector<BoxNumber>;

  // For each box those that lead to it.
  std::vector<Boxes> boxesBefore() const {
    std::vector<Boxes> before(chart_.boxes.size());
    for (BoxNumber number = 0; number < boxCount(); ++number) {
      for (const Answer answer : answers) {
        const BoxNumber exit = chart_[number].exits[answer];
        if (exit != noBox) before[static_cast<std::size_t>(exit)].push_back(number);
      }
    }
    return before;
  }

  // The boxes from which a walk can come to an end, or to an answer that leads nowhere.
  std::vector<bool> thoseThatEnd(const std::vector<Boxes>& before) const {
    std::vector<bool> ends(chart_.boxes.size(), false);
    Boxes next;
    for (BoxNumber number = 0; number < boxCount(); ++number) {
      const ReadBox& box = chart_[number];
      if (box.exits.yes == noBox || box.exits.no == noBox) next.push_back(number);
    }
    while (!next.empty()) {
      const auto box = static_cast<std::size_t>(next.back());
      next.pop_back();
      if (ends[box]) continue;
      ends[box] = true;
      next.insert(next.end(), before[box].begin(), before[box].end());
    }
    return ends;
  }

  // Counts a box and those that hang together with it, and takes them for seen.
  std::size_t countGroup(BoxNumber first, const std::vector<Boxes>& before,
                         std::vector<bool>& seen) const {
    std::size_t count = 0;
    Boxes next = {first};
    while (!next.empty()) {
      const BoxNumber number = next.back();
      const auto box = static_cast<std::size_t>(number);
      next.pop_back();
      if (seen[box]) continue;
      seen[box] = true;
      ++count;
      for (const Answer answer : answers) next.push_back(chart_[number].exits[answer]);
      next.insert(next.end(), before[box].begin(), before[box].end());
    }
    return count;
  }

  // Of boxes that lead round in loops without an end, the first.
  void checkEnds() {
    const std::vector<Boxes> before = boxesBefore();
    std::vector<bool> seen = thoseThatEnd(before);
    for (BoxNumber number = 0; number < boxCount(); ++number) {
      if (seen[static_cast<std::size_t>(number)]) continue;
      const std::size_t count = countGroup(number, before, seen);
      found_.add(Code::noEnd, chart_.placeOf(number),
                 count == 1 ? "the box leads to nothing but itself"
                            : "no walk comes to an end from here: " + std::to_string(count) +
                                  " boxes lead to nothing but each other",
                 "lead one of their answers to an end");
    }
  }

  // --- paths ----------------------------------------------------------------------

  // By content, the number of its text; texts that are the same have one number.
  std::vector<QuestionNumber> textNumbers() const {
    std::vector<QuestionNumber> numbers;
    std::unordered_map<std::string, QuestionNumber> byText;
    for (std::size_t i = 0; i < chart_.contentCount; ++i) {
      const auto next = static_cast<QuestionNumber>(byText.size());
      numbers.push_back(byText.emplace(chart_.content(i).text.joined(), next).first->second);
    }
    return numbers;
  }

  void checkPaths() {
    const std::vector<QuestionNumber> texts = textNumbers();
    std::vector<std::uint32_t> boxes(texts.size(), 0);  // by text, that ask it
    for (const ReadBox& box : chart_.boxes) {
      if (!box.isEnd()) ++boxes[texts[box.content]];
    }
    std::vector<QuestionNumber> byText(texts.size(), noQuestion), questions;
    std::uint32_t count = 0;
    for (const ReadBox& box : chart_.boxes) {
      const QuestionNumber text = texts[box.content];
      const bool isShared = !box.isEnd() && boxes[text] > 1;
      if (isShared && byText[text] == noQuestion) byText[text] = count++;
      questions.push_back(isShared ? byText[text] : noQuestion);
    }
    checkPaths(questions, count);
  }

  void checkPaths(const std::vector<QuestionNumber>& questions, std::size_t count) {
    if (count > mostQuestions) {
      found_.add(Code::pathsNotSearched, chart_.placeOf(chart_.start),
                 std::to_string(count) +
                     " questions are asked by several boxes each, too many to look for one that "
                     "comes twice on a path",
                 "split the chart into several");
      return;
    }
    for (const RepeatedQuestion& repeated : repeatedQuestions(chart_, questions, count)) {
      found_.add(Code::sameQuestionTwice, chart_.placeOf(repeated.box),
                 repeated.asked == noBox ? "the question was asked already, on the way here"
                                         : "the question was asked already, on line " +
                                               std::to_string(chart_.lineOf(repeated.asked)),
                 "the answer is known here: leave the question out");
    }
  }

  const ReadChart& chart_;
  std::unordered_set<std::string_view> names_;
  Diagnostics& found_;
};

}  // namespace

void checkTexts(const ReadChart& chart, const Catalogue& catalogue, Diagnostics& found) {
  MeaningCheck(chart, found).checkTexts(catalogue);
}

void checkBoxes(const ReadChart& chart, Diagnostics& found) {
  MeaningCheck(chart, found).checkBoxes();
}

void checkWays(const ReadChart& chart, Diagnostics& found) {
  MeaningCheck(chart, found).checkWays();
}

}  // namespace tavrel::authoring
