// What an author or a file says of hands, from any bytes. The first decides which: an expression,
// a pattern of auctions, or a file of conditions. What is wrong has a place in the text and words
// that can be printed; what is taken is worth the same to muParser and to a plain evaluation, is
// lawful, or is written again as it was read.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "hands/AuctionPattern.h"
#include "hands/Conditions.h"
#include "hands/Deal.h"
#include "hands/Expression.h"
#include "hands/ExpressionCheck.h"
#include "tests/fuzz/Finding.h"
#include "tests/hands/PlainEvaluation.h"
#include "text/Text.h"

namespace tavrel::fuzz {
namespace {

using namespace hands;

constexpr std::size_t mostWords = 1000;  // bytes that are said of one fault

void checkFault(const Fault& fault, std::string_view text) {
  require(fault.offset <= text.size(), "a fault has a place in the text");
  require(!fault.text.empty() && !fault.cure.empty(), "a fault has words and a cure");
  for (const std::string& words : {fault.text, fault.cure}) {
    require(words.size() <= mostWords, "words about a fault are short");
    require(printable(words, Charset::utf8) == words, "words about a fault can be printed");
  }
}

void checkValue(const std::string& text) {
  Random random(text.size());
  Table table;
  if (auto auctions = auctionsOf("1NT P 2C X"); text.size() % 2 == 0) {
    table.auction = std::get<std::vector<Auction>>(auctions).front();
  }
  Evaluation evaluation;
  evaluation.setTable(table);
  const Expression program(text, evaluation);
  const PlainEvaluation plain(evaluation);
  for (int i = 0; i < 3; ++i) {
    evaluation.setHand(dealHand(random));
    const double value = program.value(), expected = plain.valueOf(text);
    require(value == expected || !plain.wasExact(), "an expression is worth what its tree says");
  }
}

void tryExpression(const std::string& text) {
  for (const Type type : {Type::number, Type::truth, Type::suit, Type::call}) {
    const CheckedExpression checked = checkExpression(text, type);
    for (const Fault& fault : checked.faults) checkFault(fault, text);
    for (const NameUse& use : checked.uses) {
      require(use.offset + use.size <= text.size(), "a use has a place in the text");
      require((use.variable == nullptr) != (use.function == nullptr), "a use is of one name");
    }
    if (checked.faults.empty()) checkValue(text);
  }
}

void tryPattern(std::string_view text) {
  const auto read = auctionsOf(text);
  if (const auto* fault = std::get_if<Fault>(&read)) return checkFault(*fault, text);
  const auto& all = std::get<std::vector<Auction>>(read);
  require(!all.empty() && all.size() <= mostAuctions, "a pattern stands for some auctions");
  for (const Auction& auction : all) {
    require(!auction.isOver(), "somebody calls next");
    for (std::size_t i = 0; i < auction.size(); ++i) {
      require(auction.first(i).allows(auction[i]), "the laws allow each call");
    }
  }
}

void tryFile(std::string_view bytes) {
  const auto read = readConditions(bytes);
  if (const auto* why = std::get_if<std::string>(&read)) {
    require(!why->empty() && why->size() <= mostWords, "it is said shortly what is wrong");
    return;
  }
  const std::string written = conditionsFile(std::get<Conditions>(read));
  const auto again = readConditions(written);
  require(std::holds_alternative<Conditions>(again), "what was written is read");
  require(conditionsFile(std::get<Conditions>(again)) == written, "and is written again");
}

}  // namespace
}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0]) {
    case '{':
      tavrel::fuzz::tryFile("{" + text);
      break;
    case '@':
      tavrel::fuzz::tryPattern(text);
      break;
    default:
      tavrel::fuzz::tryExpression(text);
  }
  return 0;
}
