// The quiz as its player meets it, where no file can show it.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

#include "PseudoTerminal.h"
#include "facade/Tavrel.h"
#include "hands/Conditions.h"
#include "hands/Score.h"
#include "tests/support/ChartDirectory.h"
#include "tests/support/Files.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

const char* const chartNames[] = {"Opening", "RespNT", "Stayman"};

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

// --- the program without a terminal ---------------------------------------------------

// A folder for the score, and what the program writes.
class Place {
 public:
  fs::path score() const { return folder_.path() / "tavrel" / "quiz-score"; }
  fs::path file(const std::string& name) const { return folder_.path() / name; }

  // Starts "tavrel quiz WORDS" with this input; its output goes to the file "out" and a suffix.
  pid_t start(const std::string& words, const std::string& input,
              const std::string& suffix = "") const {
    writeFile(file("in" + suffix), input);
    const CommandLine command = parseCommandLine(wordsOf(line(words)));
    const pid_t process = fork();
    if (process == 0) {
      redirect(STDIN_FILENO, "in" + suffix, O_RDONLY);
      redirect(STDOUT_FILENO, "out" + suffix, O_WRONLY | O_CREAT | O_TRUNC);
      redirect(STDERR_FILENO, "err" + suffix, O_WRONLY | O_CREAT | O_TRUNC);
      alarm(60);
      become(command, "/");
    }
    return process;
  }

  static std::string endOf(pid_t process) {
    int status = 0;
    EXPECT_EQ(process, waitpid(process, &status, 0));
    return endNotation(status);
  }

  std::string end(const std::string& words, const std::string& input = "") const {
    return endOf(start(words, input));
  }

  std::string output(const std::string& words, const std::string& input) const {
    EXPECT_EQ("exit 0", end(words, input)) << readFile(file("err"));
    return readFile(file("out"));
  }

  std::string line(const std::string& words) const {
    return "XDG_STATE_HOME=" + folder_.path().string() +
           " tavrel quiz --charts " TAVREL_CHARTS " " + words;
  }

 private:
  void redirect(int descriptor, const std::string& name, int flags) const {
    const int opened = open(file(name).c_str(), flags, 0600);
    if (opened < 0 || dup2(opened, descriptor) < 0) _exit(126);
  }

  ChartDirectory folder_;
};

// --- what must not be seen --------------------------------------------------------------

struct Secrets {
  std::set<std::string> words;     // nowhere on the screen
  std::set<std::string> auctions;  // the lines that auctions may be
};

hands::Conditions conditionsOf(const std::string& chart) {
  auto read = hands::readConditions(readFile(fs::path(TAVREL_CHARTS) / (chart + ".when")));
  EXPECT_TRUE(std::holds_alternative<hands::Conditions>(read));
  return std::get<hands::Conditions>(std::move(read));
}

std::string cell(std::int64_t x, std::int64_t y) {
  return std::to_string(x) + "," + std::to_string(y);
}

void addTexts(Secrets& secrets, const std::string& chart) {
  Tavrel navigator(TAVREL_CHARTS);
  navigator.resetToStartLocationForFlowchartAtIndex(navigator.indexOfFlowchartWithTitle(chart));
  for (const ScreenElement& element : navigator.allElements()) {
    secrets.words.insert(cell(element.x(), element.y()));
    for (const std::string& text : element.boxText()) secrets.words.insert(text);
    for (const std::string& text : element.commentaryText()) {
      const bool isOneWord = text.find(' ') == std::string::npos;  // the end of a paragraph
      if (!isOneWord) secrets.words.insert(text);
    }
  }
}

// All texts, commentaries, cells, ids, conditions and calls of the chart, whatever the hand.
Secrets secretsOf(const std::string& chart) {
  Secrets secrets;
  addTexts(secrets, chart);
  const hands::Conditions conditions = conditionsOf(chart);
  for (const hands::BoxConditions& box : conditions.boxes) {
    if (!box.id.empty()) secrets.words.insert(box.id);
    if (box.when) secrets.words.insert(*box.when);
    if (box.shows) secrets.words.insert(*box.shows);
    for (const hands::CallChoice& choice : box.calls) {
      secrets.words.insert(nameOf(choice.call));
      secrets.words.insert(shown(choice.call, Charset::utf8));
    }
  }
  for (const hands::Auction& auction : conditions.auctions) {
    const std::string calls = shown(auction, Charset::utf8);
    secrets.auctions.insert(calls.empty() ? "  ?" : "  " + calls + " ?");
  }
  return secrets;
}

bool isInWord(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return std::isalnum(byte) != 0 || byte >= 0x80 || c == '-';
}

bool hasWord(const std::string& text, const std::string& word) {
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
    const std::size_t end = at + word.size();
    const bool begins = at == 0 || !isInWord(text[at - 1]);
    if (begins && (end == text.size() || !isInWord(text[end]))) return true;
  }
  return false;
}

// Of a screen with a question: the auction is known, the other lines give nothing away. The
// cards are no words: "♣ A 9 8".
void expectNoSecretIn(const std::string& screen, const Secrets& secrets) {
  int auctions = 0;
  for (const std::string& line : linesOf(screen)) {
    if (secrets.auctions.count(line) == 1) {
      ++auctions;
      continue;
    }
    for (const std::string& word : secrets.words) {
      EXPECT_FALSE(hasWord(line, word)) << "'" << word << "' in '" << line << "'";
    }
  }
  EXPECT_EQ(1, auctions) << screen;
}

// What stands from each question to its prompt.
std::vector<std::string> questionsIn(const std::string& output) {
  std::vector<std::string> questions;
  bool isQuestion = false;
  for (const std::string& line : linesOf(output)) {
    if (line.rfind("Question ", 0) == 0) {
      questions.emplace_back();
      isQuestion = true;
    }
    if (line.rfind("Your call: ", 0) == 0) isQuestion = false;
    if (isQuestion) questions.back() += line + "\n";
  }
  return questions;
}

TEST(TheQuiz, GivesNothingAwayWhileAQuestionStands) {
  for (const char* chart : chartNames) {
    const Secrets secrets = secretsOf(chart);
    for (const char* mode : {" --teach", " --exam"}) {
      const std::string output =
          Place().output(chart + std::string(mode) + " --n 150 --seed 1", repeated("p\n", 150));
      const std::vector<std::string> questions = questionsIn(output);
      EXPECT_EQ(150U, questions.size());
      for (const std::string& question : questions) expectNoSecretIn(question, secrets);
    }
  }
}

// An exam tells nothing at all until the end: neither which answers were right.
TEST(TheQuiz, TellsNothingInAnExamUntilTheEnd) {
  const std::string output = Place().output("RespNT --exam --n 30 --seed 1", repeated("p\n", 30));
  const std::string before = output.substr(0, output.rfind("Your call: "));
  const Secrets secrets = secretsOf("RespNT");
  for (const std::string& line : linesOf(before)) {
    if (secrets.auctions.count(line) == 1 || line == "Your call: p") continue;
    for (const std::string& word : secrets.words) EXPECT_FALSE(hasWord(line, word)) << line;
    EXPECT_FALSE(hasWord(line, "Right")) << line;
    EXPECT_NE(0U, line.rfind("No: ", 0)) << line;
  }
  EXPECT_NE(std::string::npos, output.find(" of 30 right\n"));
}

TEST(TheQuiz, GivesTheSameHelpWhateverTheHand) {
  const std::string output =
      Place().output("Opening --exam --n 20 --seed 1", repeated("?\np\n", 20));
  std::set<std::string> helps;
  for (std::size_t at = output.find("Your call: ?"); at != std::string::npos;
       at = output.find("Your call: ?", at + 1)) {
    helps.insert(output.substr(at, output.find("Your call: p", at) - at));
  }
  EXPECT_EQ(1U, helps.size());
}

TEST(TheQuiz, IsTheSameForTheSameSeed) {
  const std::string input = repeated("1d\n", 20);
  const std::string output = Place().output("--exam --seed 7", input);
  EXPECT_EQ(output, Place().output("--exam --seed 7", input));
  EXPECT_NE(output, Place().output("--exam --seed 8", input));
}

// Every one of the ends of a chart comes before any comes twice.
TEST(TheQuiz, AsksForAllEndsAlike) {
  const std::set<std::string> ends = [] {
    std::set<std::string> names;
    for (const auto& box : conditionsOf("RespNT").boxes) {
      if (!box.calls.empty()) names.insert(box.id);
    }
    return names;
  }();
  const Place place;
  const std::string count = std::to_string(2 * ends.size());
  place.output("RespNT --exam --seed 3 --n " + count,
               repeated("7s\n", 2 * static_cast<int>(ends.size())));
  const auto score = hands::Score::read(readFile(place.score()));
  for (const std::string& end : ends) {
    EXPECT_GT(std::get<hands::Score>(score).of({"RespNT", end}).asked, 0U) << end;
  }
}

// --- the score --------------------------------------------------------------------------

TEST(TheScore, IsLeftAloneWhereItIsSomethingElse) {
  for (const char* bytes : {"", "my diary\n", "tavrel quiz score 1\nanswers 9\nOpening 1 1"}) {
    const Place place;
    fs::create_directories(place.score().parent_path());
    writeFile(place.score(), bytes);
    for (const char* words : {"--n 1", "--report", "--forget"}) {
      EXPECT_EQ("exit 2", place.end(words, "p\n"));
      EXPECT_NE(std::string::npos, readFile(place.file("err")).find("is no score of the quiz"));
      EXPECT_EQ("", readFile(place.file("out")));
      EXPECT_EQ(bytes, readFile(place.score()));
    }
  }
}

TEST(TheScore, IsReadFromNoFolderAndNoPipe) {
  const Place folder, pipe;
  fs::create_directories(folder.score());
  fs::create_directories(pipe.score().parent_path());
  ASSERT_EQ(0, mkfifo(pipe.score().c_str(), 0600));
  for (const Place* place : {&folder, &pipe}) {
    EXPECT_EQ("exit 2", place->end("--n 1", "p\n"));
    EXPECT_EQ("exit 2", place->end("--report"));
    EXPECT_NE(std::string::npos, readFile(place->file("err")).find("it is no file"));
  }
}

TEST(TheScore, LosesNoAnswerToAnotherProgram) {
  const Place place;
  std::vector<pid_t> processes;
  for (int i = 0; i < 6; ++i) {
    processes.push_back(place.start("--exam --n 25", repeated("p\n", 25), std::to_string(i)));
  }
  for (const pid_t process : processes) EXPECT_EQ("exit 0", Place::endOf(process));
  const auto read = hands::Score::read(readFile(place.score()));
  ASSERT_TRUE(std::holds_alternative<hands::Score>(read));
  std::uint32_t asked = 0;
  for (const auto& [name, end] : std::get<hands::Score>(read).ends()) asked += end.asked;
  EXPECT_EQ(150U, asked);
}

TEST(TheScore, LeavesNoOtherFilesBehind) {
  const Place place;
  place.output("--exam --n 5", repeated("p\n", 5));
  std::set<std::string> files;
  for (const auto& entry : fs::directory_iterator(place.score().parent_path())) {
    files.insert(entry.path().filename().string());
  }
  EXPECT_EQ((std::set<std::string>{"quiz-score", "quiz-score.lock"}), files);
}

// --- on a terminal ----------------------------------------------------------------------

class QuizScreen : public testing::Test {
 protected:
  PseudoTerminal& start(const std::string& words, const std::string& variables = "") {
    terminal_ = std::make_unique<PseudoTerminal>(
        parseCommandLine(wordsOf(variables + " " + place_.line(words))), "/", ScreenSize{100, 50});
    return *terminal_;
  }

  bool shows(const std::string& text) const {
    return terminal_->screen().text().find(text) != std::string::npos;
  }

  Place place_;
  std::unique_ptr<PseudoTerminal> terminal_;
};

TEST_F(QuizScreen, ShowsNothingButTheQuestion) {
  const Secrets secrets = secretsOf("RespNT");
  PseudoTerminal& terminal = start("RespNT --seed 2 --n 25");
  for (int number = 1; number <= 25; ++number) {
    ASSERT_TRUE(shows("Question " + std::to_string(number) + " of 25"));
    expectNoSecretIn(terminal.screen().text(), secrets);
    terminal.type(number % 3 == 0 ? "p\n" : "3nt\n");
    if (!shows("Enter: the next hand")) continue;
    terminal.type("m\n");
    terminal.type("\n");
  }
  EXPECT_TRUE(shows(" of 25 right"));
  EXPECT_EQ(0, terminal.status());
}

TEST_F(QuizScreen, ShowsNothingButTheQuestionInAnExam) {
  const Secrets secrets = secretsOf("Opening");
  PseudoTerminal& terminal = start("Opening --exam --seed 2 --n 10");
  for (int number = 1; number <= 10; ++number) {
    ASSERT_TRUE(shows("Question " + std::to_string(number) + " of 10"));
    EXPECT_FALSE(shows("Question " + std::to_string(number - 1) + " of 10"));
    EXPECT_FALSE(shows("Right"));
    expectNoSecretIn(terminal.screen().text(), secrets);
    terminal.type("p\n");
  }
  EXPECT_TRUE(shows(" of 10 right"));
}

TEST_F(QuizScreen, ShowsNoWayOfAnEarlierHandBesideAQuestion) {
  PseudoTerminal& terminal = start("RespNT --seed 2");
  terminal.type("7s\n");
  terminal.type("\n");
  terminal.type("m\n");
  EXPECT_TRUE(shows("There is no way of a hand before to show."));
}

TEST_F(QuizScreen, StopsWhereThePlayerReads) {
  PseudoTerminal& terminal = start("RespNT --seed 2");
  terminal.type("7s\n");
  EXPECT_TRUE(shows("No: the chart says"));
  terminal.type("q\n");
  EXPECT_TRUE(shows("0 of 1 right"));
  EXPECT_EQ(0, terminal.status());
}

TEST_F(QuizScreen, ColoursTheSuits) {
  const PseudoTerminal& terminal = start("RespNT --seed 2");
  for (const char* suit :
       {"\033[38;5;39m♠", "\033[38;5;196m♥", "\033[38;5;208m♦", "\033[38;5;34m♣"}) {
    EXPECT_NE(std::string::npos, terminal.raw().find(suit)) << suit;
  }
}

TEST_F(QuizScreen, HasTheFewColoursOfATerminalWithFew) {
  const PseudoTerminal& terminal = start("RespNT --seed 2", "TERM=xterm");
  EXPECT_NE(std::string::npos, terminal.raw().find("\033[31m♥"));
}

TEST_F(QuizScreen, HasNoColourWhereNoneIsWantedOrThere) {
  for (const char* variable : {"NO_COLOR=1", "TERM=vt220", "TERM=dumb"}) {
    const PseudoTerminal& terminal = start("RespNT --seed 2", variable);
    EXPECT_TRUE(shows("♥"));
    EXPECT_EQ(std::string::npos, terminal.raw().find("\033[3")) << variable;
  }
}

// The terminal was given time for this once, as "$<50>" in its description says.
TEST_F(QuizScreen, BeginsANewPageOnAnOldTerminalToo) {
  PseudoTerminal& terminal = start("RespNT --exam --seed 2", "TERM=vt100");
  terminal.type("p\n");
  EXPECT_FALSE(shows("Question 1 "));
  EXPECT_TRUE(shows("Question 2 "));
  EXPECT_FALSE(shows("$<"));
}

TEST_F(QuizScreen, HasColouredLettersWhereThereAreNoSymbols) {
  const PseudoTerminal& terminal = start("RespNT --seed 2", "LC_ALL=C");
  EXPECT_NE(std::string::npos, terminal.raw().find("\033[38;5;196mH\033[39m "));
}

TEST_F(QuizScreen, BreaksLinesAtBlanksAndKeepsTheirIndentation) {
  PseudoTerminal terminal(parseCommandLine(wordsOf(place_.line("RespNT --seed 2"))), "/", {40, 50});
  terminal.type("7s\n");
  const std::vector<std::string> lines = linesOf(terminal.screen().text());
  const auto count = [&](const char* line) { return std::count(lines.begin(), lines.end(), line); };
  EXPECT_EQ(1, count("No end of the chart makes that call"));
  EXPECT_EQ(1, count("here. It begins so:"));
  EXPECT_EQ(1, count("  A major-suit fit comes before"));
  EXPECT_EQ(1, count("  everything else. Partner has at least"));
}

}  // namespace
}  // namespace tavrel
