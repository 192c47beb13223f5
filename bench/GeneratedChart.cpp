#include "bench/GeneratedChart.h"

#include <algorithm>
#include <array>
#include <vector>

#include "bench/Random.h"

namespace tavrel::bench {
namespace {

constexpr std::int32_t down = 0, right = 1, left = 3, noExit = -1;
constexpr std::size_t rowDistance = 7;                // from row to row of the main line
constexpr std::size_t longestStub = rowDistance - 2;  // a call stays above the next row
constexpr std::size_t longestPart = 12;               // between questions of a row

struct Question {
  std::int32_t direction;  // of the yes exit
  std::size_t line;        // connector cells along yes
  std::size_t stub;        // connector cells along no; 0 without a no exit
};

// Which questions there are, and how long their lines.
class Plan {
 public:
  Plan(const ChartSize& size, Random& random) : size_(size), random_(random) {
    const std::size_t calls = size.boxes / 3;
    for (std::size_t i = 0; i < size.boxes - calls; ++i) addQuestion(i);
    questions_.back() = {noExit, 0, 0};
    spread(calls, &Question::stub, 1, [](const Question& question) {
      return question.direction != noExit && question.direction != down;
    });
    std::size_t cells = calls;
    for (const Question& question : questions_) cells += question.line;
    while (cells < size_.connectors) cells += lengthenOne();
  }

  const std::vector<Question>& questions() const { return questions_; }

 private:
  void addQuestion(std::size_t i) {
    const bool isRowEnd = (i + 1) % size_.columns == 0;
    const bool isEvenRow = i / size_.columns % 2 == 0;
    const std::int32_t direction = isRowEnd ? down : isEvenRow ? right : left;
    questions_.push_back({direction, isRowEnd ? rowDistance - 1 : 1, 0});
  }

  Question& any() { return questions_[random_.below(questions_.size())]; }

  // Gives `count` questions that have none of it yet and may have it, a length.
  template <typename May>
  void spread(std::size_t count, std::size_t Question::*length, std::size_t value, May may) {
    while (count > 0) {
      Question& question = any();
      if (question.*length > 0 || !may(question)) continue;
      question.*length = value;
      --count;
    }
  }

  // The number of cells added, one or none.
  std::size_t lengthenOne() {
    Question& question = any();
    std::size_t& length = random_.onceIn(3) ? question.stub : question.line;
    const bool isStub = &length == &question.stub;
    if (length == 0 || length >= (isStub ? longestStub : longestPart)) return 0;
    if (!isStub && question.direction == down) return 0;
    ++length;
    return 1;
  }

  const ChartSize& size_;
  Random& random_;
  std::vector<Question> questions_;
};

class Writer {
 public:
  explicit Writer(Random& random) : random_(random) {}

  void question(const Question& question) {
    const std::int32_t x = x_, y = y_;
    box(newNode(true), question.direction, question.stub > 0 ? down : noExit);
    if (question.stub > 0) stub(question.stub);
    x_ = x;
    y_ = y;
    line(question.direction, question.line);
    step(question.direction);
  }

  std::string file() const {
    return "Generated flowchart\nto measure with\n3\n" + textLine(40, 68) + textLine(40, 68) +
           textLine(10, 68) + counted(nodeCount_, nodes_) + counted(boxCount_, boxes_) +
           counted(connectorCount_, connectors_);
  }

 private:
  static std::string counted(std::size_t count, const std::string& items) {
    return std::to_string(count) + '\n' + items;
  }

  void stub(std::size_t length) {
    line(down, length);
    step(down);
    const bool shares = !calls_.empty() && random_.onceIn(4);
    if (!shares) calls_.push_back(newNode(false));
    box(shares ? calls_[random_.below(calls_.size())] : calls_.back(), noExit, noExit);
  }

  void line(std::int32_t direction, std::size_t length) {
    for (; length > 0; --length, ++connectorCount_) {
      step(direction);
      connectors_ += numbers({0, 0, 0, direction, direction, x_, y_});
    }
  }

  void step(std::int32_t direction) {
    x_ += direction == right ? 1 : direction == left ? -1 : 0;
    y_ += direction == down ? 1 : 0;
  }

  void box(std::size_t node, std::int32_t yes, std::int32_t no) {
    boxes_ += numbers({static_cast<std::int32_t>(node), x_, y_, 0, 0, yes, no});
    ++boxCount_;
  }

  // Returns its number.
  std::size_t newNode(bool isQuestion) {
    lines(random_.between(1, 3), 6, 21);
    lines(random_.between(2, 5), 40, 68);
    nodes_ += !isQuestion && random_.onceIn(4) ? "RespNT\n" : "\n";
    return nodeCount_++;
  }

  void lines(std::int32_t count, std::int32_t shortest, std::int32_t longest) {
    nodes_ += std::to_string(count) + '\n';
    for (; count > 0; --count) nodes_ += textLine(shortest, longest);
  }

  // A text line of about so many bytes.
  std::string textLine(std::int32_t shortest, std::int32_t longest) const {
    static constexpr std::array<const char*, 24> words = {
        "hand",   "points", "with", "a",    "balanced", "suit", "15–17", "or",
        "longer", "♠",      "♥",    "♦",    "♣",        "bid",  "pass",  "partner",
        "opens",  "if",     "HCP",  "five", "cards",    "the",  "major", "raises"};
    const auto length = static_cast<std::size_t>(random_.between(shortest, longest));
    std::string text = words[random_.below(words.size())];
    while (text.size() < length) text += std::string(" ") + words[random_.below(words.size())];
    return text + '\n';
  }

  static std::string numbers(const std::array<std::int32_t, 7>& values) {
    std::string text;
    for (const std::int32_t value : values)
      text += (text.empty() ? "" : " ") + std::to_string(value);
    return text + '\n';
  }

  Random& random_;
  std::int32_t x_ = 0;
  std::int32_t y_ = 0;
  std::vector<std::size_t> calls_;  // the nodes of calls so far
  std::string nodes_, boxes_, connectors_;
  std::size_t nodeCount_ = 0, boxCount_ = 0, connectorCount_ = 0;
};

}  // namespace

std::string generatedChart(const ChartSize& size, std::uint64_t seed) {
  Random random(seed);
  const Plan plan(size, random);
  Writer writer(random);
  for (const Question& question : plan.questions()) writer.question(question);
  return writer.file();
}

}  // namespace tavrel::bench
