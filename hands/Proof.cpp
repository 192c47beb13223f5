#include "hands/Proof.h"

#include <algorithm>
#include <deque>
#include <map>
#include <set>
#include <utility>

#include "hands/Contradiction.h"
#include "hands/Ways.h"

namespace tavrel::hands {
namespace {

const char* nameOf(Answer answer) { return answer == Answer::yes ? "yes" : "no"; }

Answer otherThan(Answer answer) { return answer == Answer::yes ? Answer::no : Answer::yes; }

std::string nameOfVariable(Variable variable) {
  const auto& names = variableNames();
  const auto found = std::find_if(names.begin(), names.end(), [variable](const VariableName& name) {
    return name.variable == variable;
  });
  return std::string(found->name);
}

std::string expressionOf(const Promise& promise) {
  const std::string name = nameOfVariable(promise.what);
  const std::string low = name + " >= " + std::to_string(promise.low);
  return promise.high ? low + " && " + name + " <= " + std::to_string(*promise.high) : low;
}

// Conditions, and what messages call them.
struct Conditioned {
  std::vector<Wanted> wanted;
  std::vector<std::string> names;

  void add(const Wanted& condition, const std::string& where) {
    if (std::find(wanted.begin(), wanted.end(), condition) != wanted.end()) return;
    wanted.push_back(condition);
    names.push_back(condition.text + ": " + (condition.isTrue ? "yes" : "no") + " (" + where + ")");
  }
};

// What a search on all ways to a box has come to.
struct WaySearch {
  Search search = {Verdict::none, {}};
  std::vector<Conditioned> ways;  // where there is no hand on any of them
};

class Examination {
 public:
  Examination(const Subject& subject, const Tally& tally, Feasibility& feasibility)
      : subject_(subject),
        chart_(subject.chart()),
        tally_(tally),
        feasibility_(feasibility),
        stands_(chart_.boxes().size(), Stand::unreached),
        cells_(chart_.boxes().size()) {
    for (BoxIndex box = 0; box < cells_.size(); ++box) cells_[subject.firstOf(box)].push_back(box);
  }

  Proof examine() {
    if (isForNoHand()) return std::move(proof_);
    visitAll();
    for (BoxIndex box = 0; box < stands_.size(); ++box) {
      if (subject_.firstOf(box) != box) continue;
      report(box);
      if (chart_[box].isEnd()) addEnd(box);
    }
    return std::move(proof_);
  }

 private:
  // How hands stand to a box.
  enum class Stand {
    unreached,  // none comes, and that is a finding
    excused,    // none comes, as the author says
    unsettled,  // none was found to come
    reached,
  };

  using Extras = std::vector<std::pair<Wanted, std::string>>;

  static constexpr std::size_t mostQuestions = 200;  // on a way that is searched

  // --- searching -------------------------------------------------------------------

  const Ways& waysTo(BoxIndex box) {
    const auto [found, isNew] = ways_.try_emplace(box);
    if (isNew) found->second = hands::waysTo(subject_, box);
    return found->second;
  }

  Conditioned conditionsOf(const Way& way) const {
    Conditioned conditions;
    const auto& hand = chart_.conditions().hand;
    if (hand) conditions.add({*hand, true}, "applies");
    for (const Step step : way) {
      if (const auto* when = whenOf(step.box)) {
        conditions.add({*when, step.answer == Answer::yes}, chart_.nameOf(step.box));
      }
    }
    return conditions;
  }

  const std::string* whenOf(BoxIndex box) const {
    const BoxConditions* const conditions = chart_[box].conditions;
    return conditions == nullptr || !conditions->when ? nullptr : &*conditions->when;
  }

  // A hand that comes to the box and fulfils some conditions more.
  WaySearch search(BoxIndex box, const Extras& extras) {
    WaySearch result;
    const Ways& ways = waysTo(box);
    if (!ways.areAll) result.search.verdict = Verdict::unsettled;
    for (const Way& way : ways.ways) {
      if (way.size() > mostQuestions) {  // nobody's way; its conditions would take for ever
        result.search.verdict = Verdict::unsettled;
        continue;
      }
      Conditioned conditions = conditionsOf(way);
      for (const auto& [wanted, where] : extras) conditions.add(wanted, where);
      const Search found = feasibility_.find(conditions.wanted);
      if (found.verdict == Verdict::found) return {found, {}};
      if (found.verdict == Verdict::unsettled) result.search.verdict = Verdict::unsettled;
      result.ways.push_back(std::move(conditions));
    }
    return result;
  }

  std::vector<Refutation> refutationsOf(const WaySearch& search) {
    std::vector<Refutation> all;
    for (const Conditioned& way : search.ways) {
      const Contradiction found = smallestContradiction(feasibility_, way.wanted);
      Refutation refutation;
      refutation.isSmallest = found.isSmallest;
      for (const std::size_t i : found.conditions) refutation.conditions.push_back(way.names[i]);
      const bool isNew = std::none_of(all.begin(), all.end(), [&refutation](const auto& other) {
        return other.conditions == refutation.conditions;
      });
      if (isNew) all.push_back(std::move(refutation));
    }
    return all;
  }

  // --- the way down from the root --------------------------------------------------

  bool isForNoHand() {
    const auto& hand = chart_.conditions().hand;
    if (!hand || tally_.deals > tally_.undealt) return false;
    const Search found = feasibility_.find({{*hand, true}});
    if (found.verdict == Verdict::found) return false;
    Finding finding;
    finding.box = 0;
    finding.text = found.verdict == Verdict::none
                       ? "the chart is for no hand: " + *hand + " is never true"
                       : "no hand was found for which " + *hand + " is true";
    finding.cure = "mend the hand of \"applies\"";
    proof_.findings.push_back(std::move(finding));
    return true;
  }

  void visitAll() {
    reach(0, Stand::reached);
    while (!open_.empty()) {
      const BoxIndex box = open_.front();
      open_.pop_front();
      if (!chart_[box].isEnd()) visit(box);
    }
  }

  // Where a box gets a better stand, what lies behind it may get one too.
  void reach(BoxIndex box, Stand stand) {
    if (box == noBox) return;
    const BoxIndex first = subject_.firstOf(box);
    if (stands_[first] >= stand) return;
    stands_[first] = stand;
    open_.push_back(first);
  }

  void visit(BoxIndex box) {
    for (const Answer answer : authoring::answers) {
      const Stand stand = std::min(stands_[box], standOf(box, answer));
      for (const BoxIndex each : cells_[box]) reach(chart_[each].exits[answer], stand);
    }
  }

  // How hands stand to an answer, wherever the box is reached.
  Stand standOf(BoxIndex box, Answer answer) {
    if (tally_.boxes[box].answers[answer].count > 0) return Stand::reached;
    if (stands_[box] == Stand::excused) return Stand::excused;
    const auto [found, isNew] = searches_.try_emplace({box, answer});
    if (isNew) found->second = search(box, answerAt(box, answer));
    const bool isExcused = excuseOf(box, answer) != nullptr;
    switch (found->second.search.verdict) {
      case Verdict::found:
        return Stand::reached;
      case Verdict::unsettled:
        return isExcused ? Stand::excused : Stand::unsettled;
      default:
        return isExcused ? Stand::excused : Stand::unreached;
    }
  }

  Extras answerAt(BoxIndex box, Answer answer) const {
    const std::string* const when = whenOf(box);
    if (when == nullptr) return {};
    return {{{*when, answer == Answer::yes}, chart_.nameOf(box)}};
  }

  const std::string* excuseOf(BoxIndex box, Answer answer) const {
    const BoxConditions* const conditions = chart_[box].conditions;
    if (conditions == nullptr || !conditions->never[answer]) return nullptr;
    return &*conditions->never[answer];
  }

  // --- what is wrong ---------------------------------------------------------------

  Finding& add(FindingKind kind, BoxIndex box, std::string text, std::string cure) {
    Finding& finding = proof_.findings.emplace_back();
    finding.kind = kind;
    finding.box = box;
    finding.text = std::move(text);
    finding.cure = std::move(cure);
    return finding;
  }

  void addSeen(FindingKind kind, BoxIndex box, const Seen& seen, std::string text,
               std::string cure) {
    Finding& finding = add(kind, box, std::move(text), std::move(cure));
    finding.count = seen.count;
    finding.position = seen.position;
  }

  void note(BoxIndex box, const std::string& text) {
    proof_.notes.push_back(chart_.nameOf(box) + ": " + text);
  }

  void report(BoxIndex box) {
    switch (stands_[box]) {
      case Stand::unreached:
        add(FindingKind::neverReached, box, "no hand comes here",
            "mend the answers that lead here, or take the box away");
        return;
      case Stand::excused:
        return note(box, "no hand comes here, as \"never\" says");
      case Stand::unsettled:
        add(FindingKind::neverReached, box,
            "no hand was found that comes here; whether there is one isn't settled",
            "mend the answers that lead here, or take the box away");
        return;
      case Stand::reached:
        return chart_[box].isEnd() ? reportEnd(box) : reportQuestion(box);
    }
  }

  void reportQuestion(BoxIndex box) {
    for (const Answer answer : authoring::answers) reportAnswer(box, answer);
    reportText(box, tally_.boxes[box].answers.yes.count, answerAt(box, Answer::yes));
    reportWhole(box);
    const Seen& loop = tally_.boxes[box][Fall::loop];
    if (loop.count == 0) return;
    addSeen(FindingKind::loop, box, loop, "hands go round in a circle from here",
            "let an answer lead out of it");
  }

  void reportAnswer(BoxIndex box, Answer answer) {
    const Seen& seen = tally_.boxes[box].answers[answer];
    const auto found = searches_.find({box, answer});
    const bool isGiven = seen.count > 0 || found->second.search.verdict == Verdict::found;
    Seen example = seen;
    if (seen.count == 0 && isGiven) example.position = found->second.search.position;
    const bool leadsOn = chart_[box].exits[answer] != noBox;
    if (isGiven && !leadsOn) return addGap(box, answer, example);
    if (isGiven) return reportExcuse(box, answer, example);
    if (leadsOn) reportDead(box, answer, found->second);
  }

  void addGap(BoxIndex box, Answer answer, const Seen& seen) {
    addSeen(FindingKind::gap, box, seen,
            std::string("the answer ") + nameOf(answer) + " leads nowhere, and hands give it",
            "let it lead to a box");
    proof_.findings.back().answer = answer;
  }

  void reportExcuse(BoxIndex box, Answer answer, const Seen& seen) {
    if (excuseOf(box, answer) == nullptr) return;
    addSeen(FindingKind::neverGiven, box, seen,
            std::string("\"never\" excuses the answer ") + nameOf(answer) + ", and hands give it",
            "take the excuse away");
    proof_.findings.back().answer = answer;
  }

  void reportDead(BoxIndex box, Answer answer, const WaySearch& search) {
    const bool isProved = search.search.verdict == Verdict::none;
    if (const std::string* const why = excuseOf(box, answer)) {
      return note(box, std::string("never ") + nameOf(answer) + ": " + *why +
                           (isProved ? " (proved)" : " (no hand was found; not proved)"));
    }
    const std::string given = std::string("no hand ") +
                              (isProved ? "answers " : "was found that answers ") + nameOf(answer);
    const std::string text =
        isProved ? given + ": what is known before settles it as " + nameOf(otherThan(answer))
                 : given + "; whether there is one isn't settled";
    Finding& finding =
        add(FindingKind::deadExit, box, text,
            std::string("mend the question or those before it, or say why it stays: never: {") +
                nameOf(answer) + ": \"why\"}");
    finding.answer = answer;
    if (isProved) finding.proof = refutationsOf(search);
  }

  void reportEnd(BoxIndex box) {
    const BoxTally& tally = tally_.boxes[box];
    reportCalls(box);
    reportShows(box);
    reportText(box, tally.reached.count, {});
    reportBounds(box);
    reportLink(box);
    const Seen& illegal = tally[Fall::illegalCall];
    if (illegal.count > 0) {
      addSeen(FindingKind::illegalCall, box, illegal,
              "the laws don't allow the call in the auction",
              "mend the call or the auctions of \"applies\"");
    }
  }

  // Chance has found hands with a fault, or the search finds one.
  void reportFall(FindingKind kind, BoxIndex box, Fall fall, const Extras& extras,
                  const std::string& text, const std::string& cure) {
    Seen seen = tally_.boxes[box][fall];
    if (seen.count == 0) {
      const Search found = search(box, extras).search;
      if (found.verdict == Verdict::unsettled) {
        return note(box, "whether there is a hand for this isn't settled: " + text);
      }
      if (found.verdict == Verdict::none) return;
      seen.position = found.position;
    }
    addSeen(kind, box, seen, text, cure);
  }

  void reportCalls(BoxIndex box) {
    const BoxConditions* const conditions = chart_[box].conditions;
    if (conditions == nullptr || conditions->calls.empty()) return;
    Extras extras;
    for (const CallChoice& choice : conditions->calls) {
      if (!choice.when) return;
      extras.push_back({{*choice.when, false}, hands::nameOf(choice.call)});
    }
    reportFall(FindingKind::noCall, box, Fall::noCall, extras, "none of the calls fits",
               "add a call for these hands, the last one without \"when\"");
  }

  void reportShows(BoxIndex box) {
    const BoxConditions* const conditions = chart_[box].conditions;
    if (conditions == nullptr || !conditions->shows) return;
    const std::string& shows = *conditions->shows;
    reportFall(FindingKind::falseShows, box, Fall::notAsShown, {{{shows, false}, "shows"}},
               "\"shows\" is false: " + shows, "mend it, or the questions on the way");
  }

  void reportText(BoxIndex box, std::uint64_t count, Extras extras) {
    if (subject_.promisesOf(box).empty() || (whenOf(box) == nullptr && !chart_[box].isEnd()))
      return;
    std::string all, words;
    for (const Promise& promise : subject_.promisesOf(box)) {
      all += (all.empty() ? "" : " && ") + expressionOf(promise);
      words += (words.empty() ? "" : ", ") + promise.words;
    }
    if (count == 0 && !chart_[box].isEnd()) return;
    extras.push_back({{all, false}, "the text"});
    reportFall(FindingKind::falseText, box, Fall::notAsText, extras,
               "the text says \"" + words + "\", which is false",
               "mend the text, or the conditions");
  }

  // Where a question is a range and nothing else, every hand in it answers yes.
  void reportWhole(BoxIndex box) {
    const std::string* const when = whenOf(box);
    if (when == nullptr || subject_.promisesOf(box).size() != 1) return;
    const Promise& promise = subject_.promisesOf(box).front();
    if (textOf(box) != promise.words && textOf(box) != promise.words + "?") return;
    const WaySearch found =
        search(box, {{{*when, false}, chart_.nameOf(box)}, {{expressionOf(promise), true}, ""}});
    if (found.search.verdict != Verdict::found) return;
    Seen seen;
    seen.position = found.search.position;
    addSeen(FindingKind::falseText, box, seen,
            "the text asks for \"" + promise.words + "\", and hands with that answer no",
            "mend the text, or the condition");
  }

  std::string textOf(BoxIndex box) const {
    std::string text;
    for (const std::string& line : chart_[box].text) text += (text.empty() ? "" : " ") + line;
    return text;
  }

  void reportBounds(BoxIndex box) {
    const BoxTally& tally = tally_.boxes[box];
    for (const Promise& promise : subject_.promisesOf(box)) {
      const auto place = std::find(measures.begin(), measures.end(), promise.what);
      const Extent& extent = tally.extents[static_cast<std::size_t>(place - measures.begin())];
      if (extent.least > promise.low) reportBound(box, promise, promise.low, extent);
      if (promise.high && extent.most < *promise.high) {
        reportBound(box, promise, *promise.high, extent);
      }
    }
  }

  void reportBound(BoxIndex box, const Promise& promise, int bound, const Extent& extent) {
    const std::string value = nameOfVariable(promise.what) + " == " + std::to_string(bound);
    const WaySearch found = search(box, {{{value, true}, "the text"}});
    if (found.search.verdict != Verdict::none) return;
    std::string text = "the text says \"" + promise.words + "\", and no hand with " +
                       std::to_string(bound) + " comes here";
    if (extent.least <= extent.most) {
      text += ": those that come have " + std::to_string(extent.least) + "–" +
              std::to_string(extent.most);
    }
    Finding& finding =
        add(FindingKind::boundNotReached, box, text, "mend the text, or the questions on the way");
    finding.proof = refutationsOf(found);
  }

  void reportLink(BoxIndex box) {
    const BoxTally& tally = tally_.boxes[box];
    const std::string& link = chart_[box].link;
    if (link.empty()) return;
    if (subject_.linkOf(box) == nullptr) {
      return note(box, "nothing is known of the auctions that " + link + " is for");
    }
    if (tally[Fall::wrongAuction].count > 0) {
      addSeen(FindingKind::wrongAuction, box, tally[Fall::wrongAuction],
              link + " isn't for the auction that follows",
              "lead into another chart, or mend \"next\", or the auctions of " + link);
    }
    if (tally[Fall::wrongHand].count > 0) {
      addSeen(FindingKind::wrongHand, box, tally[Fall::wrongHand],
              link + " assumes another hand: " + *subject_.linkOf(box)->conditions->hand,
              "lead into another chart, or mend the hand of " + link);
    }
  }

  // --- ends ------------------------------------------------------------------------

  void addEnd(BoxIndex box) {
    const BoxTally& tally = tally_.boxes[box];
    EndOfHands& end = proof_.ends.emplace_back();
    end.box = box;
    end.count = tally.reached.count;
    for (std::size_t i = 0; i < tally.calls.size(); ++i) {
      if (tally.calls[i].count > 0) end.calls.push_back(chart_[box].conditions->calls[i].call);
    }
    if (end.count > 0) {
      end.position = tally.reached.position;
    } else if (stands_[box] == Stand::reached) {
      const Search found = search(box, {}).search;
      if (found.verdict == Verdict::found) end.position = found.position;
    }
  }

  const Subject& subject_;
  const HandChart& chart_;
  const Tally& tally_;
  Feasibility& feasibility_;
  std::vector<Stand> stands_;                 // by box; of the first of several cells
  std::vector<std::vector<BoxIndex>> cells_;  // by the first box: all that it stands for
  std::deque<BoxIndex> open_;
  std::map<BoxIndex, Ways> ways_;
  std::map<std::pair<BoxIndex, Answer>, WaySearch> searches_;  // of answers never dealt
  Proof proof_;
};

}  // namespace

const char* nameOf(FindingKind kind) {
  switch (kind) {
    case FindingKind::noHand:
      return "no hand";
    case FindingKind::deadExit:
      return "dead exit";
    case FindingKind::neverReached:
      return "never reached";
    case FindingKind::gap:
      return "gap";
    case FindingKind::loop:
      return "loop";
    case FindingKind::noCall:
      return "no call";
    case FindingKind::illegalCall:
      return "illegal call";
    case FindingKind::falseShows:
      return "false promise";
    case FindingKind::falseText:
      return "false text";
    case FindingKind::boundNotReached:
      return "range too wide";
    case FindingKind::neverGiven:
      return "false excuse";
    case FindingKind::wrongAuction:
      return "wrong chart";
    default:
      return "wrong hand";
  }
}

Proof proofOf(const Subject& subject, const Tally& tally, Feasibility& feasibility) {
  return Examination(subject, tally, feasibility).examine();
}

}  // namespace tavrel::hands
