#include "hands/ExpressionTokens.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "authoring/InShort.h"
#include "hands/Call.h"
#include "text/NearMiss.h"
#include "text/Text.h"

namespace tavrel::hands {
namespace {

using authoring::Code;
using authoring::inShort;

constexpr std::size_t longestNumber = 15;  // in characters: doubles hold that many digits

struct Sign {
  std::string_view spelling;
  Operator sign;
};

constexpr std::array<Sign, 13> signs = {{
    {"||", Operator::either},
    {"&&", Operator::both},
    {"<", Operator::less},
    {"<=", Operator::atMost},
    {">", Operator::greater},
    {">=", Operator::atLeast},
    {"==", Operator::equal},
    {"!=", Operator::unequal},
    {"+", Operator::plus},
    {"-", Operator::minus},
    {"*", Operator::times},
    {"/", Operator::by},
    {"!", Operator::negation},
}};

// What stands for an operator elsewhere.
constexpr std::array<Sign, 22> foreignSigns = {{
    {"===", Operator::equal},  {"!==", Operator::unequal}, {"=<", Operator::atMost},
    {"=>", Operator::atLeast}, {"<>", Operator::unequal},  {"&", Operator::both},
    {"|", Operator::either},   {"≤", Operator::atMost},    {"⩽", Operator::atMost},
    {"≥", Operator::atLeast},  {"⩾", Operator::atLeast},   {"≠", Operator::unequal},
    {"−", Operator::minus},    {"×", Operator::times},     {"·", Operator::times},
    {"÷", Operator::by},       {"∧", Operator::both},      {"∨", Operator::either},
    {"¬", Operator::negation}, {"~", Operator::negation},  {"**", Operator::times},
    {"//", Operator::by},
}};

constexpr std::array<Sign, 4> foreignWords = {{
    {"and", Operator::both},
    {"or", Operator::either},
    {"not", Operator::negation},
    {"xor", Operator::unequal},
}};

constexpr std::array<std::string_view, 8> suitSymbols = {"♣", "♦", "♥", "♠", "♧", "♢", "♡", "♤"};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

bool startsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

// The length of what can belong to a name or a number at the start of a text: suits among them,
// as in "2♥".
std::size_t wordLength(std::string_view text) {
  if (text.empty()) return 0;
  if (isDigit(text[0]) || isLetter(text[0]) || text[0] == '.') return 1;
  for (const std::string_view symbol : suitSymbols) {
    if (startsWith(text, symbol)) return symbol.size();
  }
  return 0;
}

bool isNumber(std::string_view word) {
  const std::size_t point = std::min(word.find('.'), word.size());
  const std::string_view whole = word.substr(0, point);
  const bool hasDigits = !whole.empty() && std::all_of(whole.begin(), whole.end(), isDigit);
  if (point == word.size()) return hasDigits;
  const std::string_view part = word.substr(point + 1);
  return hasDigits && !part.empty() && std::all_of(part.begin(), part.end(), isDigit);
}

bool isName(std::string_view word) {
  return isLetter(word[0]) &&
         std::all_of(word.begin(), word.end(), [](char c) { return isDigit(c) || isLetter(c); });
}

class Tokenizer {
 public:
  Tokenizer(std::string_view text, std::vector<Fault>& faults) : text_(text), faults_(faults) {}

  std::vector<Token> tokens() {
    for (skipBlanks(); at_ < text_.size(); skipBlanks()) readToken();
    // What is missing at the end is missing behind the last token.
    put(TokenKind::end, 0);
    if (tokens_.size() > 1) tokens_.back().offset = tokens_[tokens_.size() - 2].end();
    return std::move(tokens_);
  }

 private:
  std::string_view rest() const { return text_.substr(at_); }

  void skipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }

  void put(TokenKind kind, std::size_t size, Operator sign = Operator::both) {
    tokens_.push_back({kind, at_, size, sign});
    at_ += size;
  }

  void fault(Code code, std::string text, std::string cure) {
    faults_.push_back({code, at_, std::move(text), std::move(cure)});
  }

  void readToken() {
    if (readPunctuation() || readWord() || readSign() || readText()) return;
    readUnknown();
  }

  bool readPunctuation() {
    constexpr std::string_view marks = "(),?:";
    const std::size_t mark = marks.find(text_[at_]);
    if (mark == std::string_view::npos) return false;
    put(static_cast<TokenKind>(static_cast<std::size_t>(TokenKind::open) + mark), 1);
    return true;
  }

  bool readWord() {
    std::size_t size = 0;
    for (std::size_t more; (more = wordLength(rest().substr(size))) > 0;) size += more;
    if (size == 0) return false;
    const std::string_view word = rest().substr(0, size);
    if (isName(word)) {
      readName(word);
    } else if (isNumber(word) && size <= longestNumber) {
      put(TokenKind::number, size);
    } else {
      faultInWord(word);
      put(TokenKind::unknown, size);
    }
    return true;
  }

  void readName(std::string_view word) {
    const std::string lower = lowerCase(word);
    for (const Sign& foreign : foreignWords) {
      if (lower == foreign.spelling) return readForeign(word, foreign.sign);
    }
    put(TokenKind::name, word.size());
  }

  void faultInWord(std::string_view word) {
    const std::optional<Call> call = callIn(word);
    std::string cure = "write a number with digits alone, as 12 or 1.5";
    if (call) {
      cure = "write c" + nameOf(*call);
    } else if (isNumber(word)) {
      cure = "no number in bridge is as long";
    } else if (isNumber("0" + std::string(word))) {
      cure = "write 0" + std::string(word);
    } else if (!isDigit(word[0]) && word[0] != '.') {
      cure =
          "suits are written as C, D, H and S, and their lengths as clubs, diamonds, hearts "
          "and spades";
    }
    fault(Code::foreignSpelling,
          inShort(word) + (call ? " is no name of a call here" : " is no number or name"), cure);
  }

  // The longest of those that fit.
  template <typename Signs>
  const Sign* signIn(const Signs& among) const {
    const Sign* found = nullptr;
    for (const Sign& sign : among) {
      const bool fits = startsWith(rest(), sign.spelling);
      if (fits && (found == nullptr || sign.spelling.size() > found->spelling.size()))
        found = &sign;
    }
    return found;
  }

  bool readSign() {
    const Sign* const own = signIn(signs);
    const Sign* const foreign = signIn(foreignSigns);
    if (foreign != nullptr && (own == nullptr || foreign->spelling.size() > own->spelling.size())) {
      readForeign(foreign->spelling, foreign->sign);
    } else if (own != nullptr) {
      put(TokenKind::sign, own->spelling.size(), own->sign);
    } else if (text_[at_] == '=') {
      fault(Code::singleEqualsSign, "a single = doesn't compare", "write ==");
      put(TokenKind::sign, 1, Operator::equal);
    } else {
      return false;
    }
    return true;
  }

  void readForeign(std::string_view spelling, Operator sign) {
    fault(Code::foreignSpelling, std::string(spelling) + " is no operator here",
          "write " + std::string(spellingOf(sign)));
    put(TokenKind::sign, spelling.size(), sign);
  }

  // "C" in quotation marks.
  bool readText() {
    const char quote = text_[at_];
    if (quote != '"' && quote != '\'') return false;
    const std::size_t end = text_.find(quote, at_ + 1);
    fault(Code::foreignSpelling, "there are no quotation marks in expressions",
          "write names, suits and calls without them");
    put(TokenKind::unknown, std::min(end, text_.size() - 1) + 1 - at_);
    return true;
  }

  void readUnknown() {
    constexpr std::size_t mostBytes = 16;  // of a character that is worth to be shown
    const std::string character(glyphs(rest().substr(0, mostBytes)).front().bytes);
    fault(Code::foreignSpelling, inShort(character) + " means nothing in expressions",
          cureOf(character));
    put(kindOf(character), character.size());
  }

  static TokenKind kindOf(const std::string& character) {
    if (character == "[" || character == "{") return TokenKind::open;
    if (character == "]" || character == "}") return TokenKind::close;
    return TokenKind::unknown;
  }

  static std::string cureOf(const std::string& character) {
    if (character == "–" || character == "—") {
      return "write a range as hcp >= 15 && hcp <= 17, and a difference with -";
    }
    if (character == "^") return "write a product: there are no powers";
    if (character == "%") return "there are no remainders and no per cent";
    if (character == "[" || character == "{") return "write (";
    if (character == "]" || character == "}") return "write )";
    return "take it away";
  }

  std::string_view text_;
  std::vector<Fault>& faults_;
  std::size_t at_ = 0;
  std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> tokensOf(std::string_view text, std::vector<Fault>& faults) {
  return Tokenizer(text, faults).tokens();
}

std::string_view spellingOf(Operator sign) {
  return signs[static_cast<std::size_t>(sign)].spelling;
}

}  // namespace tavrel::hands
