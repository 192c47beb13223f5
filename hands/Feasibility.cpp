#include "hands/Feasibility.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

#include "hands/Dealer.h"
#include "hands/Expression.h"
#include "hands/ExpressionCheck.h"

namespace tavrel::hands {
namespace {

bool asksForCalls(const NameUse& use) {
  if (use.function == nullptr) return false;
  switch (use.function->function) {
    case Function::partner:
    case Function::left:
    case Function::right:
    case Function::own:
      return true;
    default:
      return false;
  }
}

bool hasUseInside(const CheckedExpression& checked, const NameUse& outer) {
  return std::any_of(checked.uses.begin(), checked.uses.end(), [&outer](const NameUse& use) {
    return use.offset > outer.offset && use.offset < outer.offset + outer.size;
  });
}

bool asksForTops(const NameUse& use) {
  return use.function != nullptr && (use.function->basis & topHonours) != 0;
}

// The first of the arguments between the parentheses of a call.
std::string firstArgument(std::string_view call) {
  const std::size_t first = call.find('(') + 1;
  int depth = 0;
  std::size_t end = first;
  for (; end < call.size(); ++end) {
    const char c = call[end];
    if (depth == 0 && (c == ',' || c == ')')) break;
    depth += c == '(' ? 1 : (c == ')' ? -1 : 0);
  }
  return std::string(call.substr(first, end - first));
}

}  // namespace

// An expression, and the parts of it that tell which tables and hands it can tell apart.
struct Feasibility::Known {
  Known(const std::string& text, Evaluation& evaluation)
      : checked(checkExpression(text, Type::truth)), program(text, evaluation) {
    for (const NameUse& use : checked.uses) {
      const std::string words = text.substr(use.offset, use.size);
      if (asksForTops(use)) addTopSuit(firstArgument(words), evaluation);
      if (asksForCalls(use)) {
        calls.emplace_back(words, evaluation);
        hasCallsOfHand = hasCallsOfHand || hasUseInside(checked, use);
      }
    }
  }

  // Points may decide which suit it is, and then it may be any.
  void addTopSuit(const std::string& suit, Evaluation& evaluation) {
    topSuits.emplace_back(suit, evaluation);
    const unsigned basis = checkExpression(suit, Type::suit).basis;
    hasTopsOfAny = hasTopsOfAny || (basis & ~static_cast<unsigned>(lengths)) != 0;
  }

  CheckedExpression checked;
  Expression program;
  std::vector<Expression> topSuits;  // those whose honours it looks at
  bool hasTopsOfAny = false;
  std::vector<Expression> calls;  // those that it looks at
  bool hasCallsOfHand = false;    // the number of a call isn't always the same
};

// The conditions of one search.
class Feasibility::Trial {
 public:
  Trial(Feasibility& owner, const std::vector<Wanted>& all)
      : owner_(owner), evaluation_(owner.evaluation_) {
    for (const Wanted& wanted : all) {
      const Known& known = owner.known(wanted.text);
      const unsigned basis = known.checked.basis;
      Stage& stage = stageOf(basis);
      stage.push_back({&known, wanted.isTrue});
      if (&stage == &ofSums_ || &stage == &ofTops_) basis_ |= basis;
    }
  }

  Search find() {
    const std::uint64_t most = std::min(owner_.mostForEach_, owner_.left_);
    if (most == 0) return {Verdict::unsettled, {}};
    std::uint64_t left = most;
    const Search search = tryAll(left);
    owner_.left_ -= most - left;
    return search.verdict == Verdict::unsettled ? steered() : search;
  }

 private:
  struct Condition {
    const Known* known;
    bool wanted;
  };
  using Stage = std::vector<Condition>;

  Stage& stageOf(unsigned basis) {
    if (basis == noCards) return ofTable_;
    if (basis == lengths) return ofLengths_;
    return (basis & topHonours) == 0 ? ofSums_ : ofTops_;
  }

  static bool isFulfilled(const Condition& condition) {
    return condition.known->program.isTrue() == condition.wanted;
  }

  static bool isFulfilled(const Stage& stage) {
    return std::all_of(stage.begin(), stage.end(),
                       [](const Condition& condition) { return isFulfilled(condition); });
  }

  Search tryAll(std::uint64_t& left) {
    Verdict verdict = Verdict::none;
    for (const std::uint32_t table : tables()) {
      const Search search = findAt(table, left);
      if (search.verdict == Verdict::found) return search;
      if (search.verdict == Verdict::unsettled) verdict = search.verdict;
    }
    return {verdict, {}};
  }

  Search findAt(std::uint32_t table, std::uint64_t& left) {
    bool isSettled = true;
    evaluation_.setTable(owner_.tables_[table]);
    if (!isFulfilled(ofTable_)) return {Verdict::none, {}};
    for (const Lengths& lengths : allLengths()) {
      evaluation_.setHand(handOf(lengths));
      if (!isFulfilled(ofLengths_)) continue;
      // Without the honours there are far fewer kinds: mostly these show that there is no hand.
      Search search = findWith(lengths, {basis_, 0}, false, table, left);
      if (search.verdict == Verdict::found && !ofTops_.empty()) {
        search = findWith(lengths, distinction(lengths), true, table, left);
      }
      if (search.verdict == Verdict::found) return search;
      isSettled = isSettled && search.verdict == Verdict::none;
    }
    return {isSettled ? Verdict::none : Verdict::unsettled, {}};
  }

  Search findWith(const Lengths& lengths, const Distinction& distinction, bool withTops,
                  std::uint32_t table, std::uint64_t& left) {
    const std::vector<Hand>* const hands = owner_.kinds_.of(lengths, distinction);
    const std::size_t cost = hands == nullptr ? 0 : hands->size() * (1 + conditionCount() / 8);
    if (hands == nullptr || cost > left) return {Verdict::unsettled, {}};
    left -= cost;
    for (const Hand hand : *hands) {
      evaluation_.setHand(hand);
      if (!isFulfilled(ofSums_) || (withTops && !isFulfilled(ofTops_))) continue;
      return {Verdict::found, {hand, table}};
    }
    return {Verdict::none, {}};
  }

  // Lengths and table decide what a suit is that conditions name, as the longest or partner's.
  Distinction distinction(const Lengths& lengths) const {
    evaluation_.setHand(handOf(lengths));
    Distinction distinction = {basis_, 0};
    for (const Condition& condition : ofTops_) {
      if (condition.known->hasTopsOfAny) distinction.topSuits = (1U << suits.size()) - 1;
      for (const Expression& suit : condition.known->topSuits) {
        const double number = suit.value();
        if (number >= 1 && number <= static_cast<double>(suits.size())) {
          distinction.topSuits |= 1U << (static_cast<unsigned>(number) - 1);
        }
      }
    }
    return distinction;
  }

  // One of all tables that are alike for the conditions.
  std::vector<std::uint32_t> tables() const {
    std::vector<std::uint32_t> chosen;
    std::set<std::vector<double>> seen;
    for (std::uint32_t table = 0; table < owner_.tables_.size(); ++table) {
      evaluation_.setTable(owner_.tables_[table]);
      if (seen.insert(lookOfTable(table)).second) chosen.push_back(table);
    }
    return chosen;
  }

  std::vector<double> lookOfTable(std::uint32_t table) const {
    std::vector<double> look;
    for (const Stage* stage : stages()) {
      for (const auto& [known, wanted] : *stage) addLook(*known, table, look);
    }
    return look;
  }

  void addLook(const Known& known, std::uint32_t table, std::vector<double>& look) const {
    if (known.hasCallsOfHand) look.push_back(table);
    for (const Expression& call : known.calls) look.push_back(call.value());
    for (const NameUse& use : known.checked.uses) {
      if (use.variable == nullptr) continue;
      const Variable variable = use.variable->variable;
      if (use.variable->basis == noCards) look.push_back(evaluation_[variable]);
      if (variable == Variable::support) look.push_back(evaluation_[Variable::partners]);
    }
  }

  // Changes hands card by card, and never back to fewer of the conditions.
  Search steered() {
    constexpr int attempts = 20, steps = 1000;
    owner_.left_ -= std::min<std::uint64_t>(owner_.left_, attempts * steps);
    if (owner_.left_ == 0) return {Verdict::unsettled, {}};
    Random random(1);
    for (int attempt = 0; attempt < attempts; ++attempt) {
      const auto table = random.below(static_cast<std::uint32_t>(owner_.tables_.size()));
      evaluation_.setTable(owner_.tables_[table]);
      Hand hand = dealHand(random);
      std::size_t best = scoreOf(hand);
      for (int step = 0; step < steps && best < conditionCount(); ++step) {
        const Hand other = withAnotherCard(hand, random);
        const std::size_t score = scoreOf(other);
        if (score < best) continue;
        hand = other;
        best = score;
      }
      if (best == conditionCount()) return {Verdict::found, {hand, table}};
    }
    return {Verdict::unsettled, {}};
  }

  std::array<const Stage*, 4> stages() const {
    return {&ofTable_, &ofLengths_, &ofSums_, &ofTops_};
  }

  std::size_t conditionCount() const {
    return ofTable_.size() + ofLengths_.size() + ofSums_.size() + ofTops_.size();
  }

  std::size_t scoreOf(Hand hand) const {
    evaluation_.setHand(hand);
    std::ptrdiff_t score = 0;
    for (const Stage* stage : stages()) {
      score += std::count_if(stage->begin(), stage->end(),
                             [](const Condition& condition) { return isFulfilled(condition); });
    }
    return static_cast<std::size_t>(score);
  }

  Feasibility& owner_;
  Evaluation& evaluation_;
  Stage ofTable_, ofLengths_, ofSums_, ofTops_;  // by what they look at
  unsigned basis_ = noCards;                     // of the last two
};

Feasibility::Feasibility(const std::vector<Table>& tables, std::uint64_t mostForEach)
    : tables_(tables), mostForEach_(mostForEach) {}

Feasibility::~Feasibility() = default;

const Feasibility::Known& Feasibility::known(const std::string& text) {
  auto& known = known_[text];
  if (!known) known = std::make_unique<const Known>(text, evaluation_);
  return *known;
}

Search Feasibility::find(const std::vector<Wanted>& all) { return Trial(*this, all).find(); }

std::vector<bool> Feasibility::fulfilled(const std::vector<Wanted>& all, Position position) {
  evaluation_.setTable(tables_[position.table]);
  evaluation_.setHand(position.hand);
  std::vector<bool> are;
  for (const Wanted& wanted : all) {
    are.push_back(known(wanted.text).program.isTrue() == wanted.isTrue);
  }
  return are;
}

}  // namespace tavrel::hands
