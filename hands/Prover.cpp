#include "hands/Prover.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace tavrel::hands {
namespace {

// Threads that are waited for, whatever happens meanwhile.
class Threads {
 public:
  Threads() = default;
  Threads(const Threads&) = delete;
  Threads& operator=(const Threads&) = delete;
  ~Threads() {
    for (std::thread& each : all_) each.join();
  }

  template <typename Work>
  void start(Work work) {
    all_.emplace_back(std::move(work));
  }

 private:
  std::vector<std::thread> all_;
};

// Whether a hand may go on in the chart that an end leads into.
class Arrival {
 public:
  explicit Arrival(const LinkedChart& link) {
    const std::optional<std::string>& hand = link.conditions->hand;
    if (hand) hand_.emplace(*hand, evaluation_);
  }

  bool isFor(Hand hand, const Table& table, const Auction& auction) {
    if (!hand_) return true;
    table_ = {auction, table.isVulnerable, table.areTheyVulnerable};
    evaluation_.setTable(table_);
    evaluation_.setHand(hand);
    return hand_->isTrue();
  }

 private:
  Table table_;
  Evaluation evaluation_;
  std::optional<Expression> hand_;
};

// What one thread has counted.
class Counter {
 public:
  Counter(const Subject& subject, std::uint64_t seed, const std::optional<Position>& known)
      : subject_(subject),
        seed_(seed),
        walker_(subject.chart()),
        dealer_(walker_, subject.tables(), known),
        tally_(subject.chart()) {
    for (BoxIndex box = 0; box < subject.chart().boxes().size(); ++box) {
      const LinkedChart* const link = subject.linkOf(box);
      arrivals_.push_back(link == nullptr ? nullptr : std::make_unique<Arrival>(*link));
    }
  }

  const Tally& tally() const { return tally_; }

  void count(std::uint64_t number) {
    Random random(seed_, number);
    ++tally_.deals;
    const std::optional<Position> position = dealer_.deal(random);
    if (!position) {
      ++tally_.undealt;
      return;
    }
    number_ = number;
    position_ = *position;
    const Ending ending = walker_.walk(
        [&random](BoxIndex) { return random.below(2) == 0 ? Answer::no : Answer::yes; });
    for (const Step step : walker_.steps()) noteStep(step);
    if (ending == Ending::end) noteEnd(walker_.end());
    if (ending == Ending::loop) note(at(walker_.end())[Fall::loop]);
  }

 private:
  BoxTally& at(BoxIndex box) { return tally_.boxes[subject_.firstOf(box)]; }
  void note(Seen& seen) { seen.note(number_, position_); }

  void noteStep(Step step) {
    BoxTally& box = at(step.box);
    note(box.answers[step.answer]);
    if (step.answer == Answer::yes) notePromises(step.box, box);
  }

  void notePromises(BoxIndex box, BoxTally& tally) {
    for (const Promise& promise : subject_.promisesOf(box)) {
      if (!promise.isKeptBy(walker_.evaluation())) return note(tally[Fall::notAsText]);
    }
  }

  void noteEnd(BoxIndex end) {
    BoxTally& box = at(end);
    note(box.reached);
    box.measure(walker_.evaluation());
    notePromises(end, box);
    if (!walker_.isAsShownAt(end)) note(box[Fall::notAsShown]);
    const std::optional<std::size_t> choice = walker_.choiceAt(end);
    if (choice) {
      noteCall(end, *choice, box);
    } else if (!box.calls.empty()) {
      return note(box[Fall::noCall]);
    }
    noteLink(subject_.firstOf(end), choice.value_or(0), box);
  }

  void noteCall(BoxIndex end, std::size_t choice, BoxTally& box) {
    note(box.calls[choice]);
    const Auction& auction = subject_.tables()[position_.table].auction;
    const Call call = subject_.chart()[end].conditions->calls[choice].call;
    if (!auction.allows(call)) note(box[Fall::illegalCall]);
  }

  void noteLink(BoxIndex end, std::size_t choice, BoxTally& box) {
    if (!arrivals_[end]) return;
    const auto& following = subject_.following(end, position_.table, choice);
    if (!following) return note(box[Fall::wrongAuction]);
    if (following->turn == Next::partner) return;
    const Table& table = subject_.tables()[position_.table];
    if (!arrivals_[end]->isFor(position_.hand, table, following->auction))
      note(box[Fall::wrongHand]);
  }

  const Subject& subject_;
  const std::uint64_t seed_;
  Walker walker_;
  Dealer dealer_;
  Tally tally_;
  std::vector<std::unique_ptr<Arrival>> arrivals_;  // by box
  std::uint64_t number_ = 0;                        // of the deal
  Position position_;
};

// Hands out the deals in blocks, and adds up what came of them.
class Crew {
 public:
  Crew(const Subject& subject, const Proving& proving, std::optional<Position> known,
       const std::function<void(std::uint64_t)>& tell)
      : subject_(subject), proving_(proving), known_(known), tell_(tell), sum_(subject.chart()) {
    next_ = proving.range.first;
  }

  Tally run() {
    {
      Threads others;
      for (unsigned i = 1; i < proving_.threads; ++i) others.start([this] { work(); });
      work();
    }
    if (failure_) std::rethrow_exception(failure_);
    return sum_;
  }

 private:
  static constexpr std::uint64_t block = 2000;

  void work() try {
    Counter counter(subject_, proving_.seed, known_);
    const std::uint64_t end = proving_.range.end;
    for (std::uint64_t first; !isStopped_ && (first = next_.fetch_add(block)) < end;) {
      const std::uint64_t last = first + std::min(block, end - first);
      for (std::uint64_t number = first; number < last; ++number) counter.count(number);
      const std::lock_guard lock(mutex_);
      tell_(last - first);
    }
    const std::lock_guard lock(mutex_);
    sum_ += counter.tally();
  } catch (...) {
    const std::lock_guard lock(mutex_);
    if (!failure_) failure_ = std::current_exception();
    isStopped_ = true;
  }

  const Subject& subject_;
  const Proving& proving_;
  const std::optional<Position> known_;
  const std::function<void(std::uint64_t)>& tell_;
  std::atomic<std::uint64_t> next_ = 0;
  std::atomic<bool> isStopped_ = false;
  std::mutex mutex_;  // of what follows, and of tell_
  Tally sum_;
  std::exception_ptr failure_;
};

Tally nothingDealt(const Subject& subject, DealRange range) {
  Tally tally(subject.chart());
  tally.deals = tally.undealt = range.end - range.first;
  return tally;
}

}  // namespace

Tally tallyOf(const Subject& subject, Feasibility& feasibility, const Proving& proving,
              const std::function<void(std::uint64_t)>& tell) {
  std::optional<Position> known;
  if (const auto& hand = subject.chart().conditions().hand) {
    const Search search = feasibility.find({{*hand, true}});
    if (search.verdict == Verdict::none) return nothingDealt(subject, proving.range);
    if (search.verdict == Verdict::found) known = search.position;
  }
  return Crew(subject, proving, known, tell).run();
}

}  // namespace tavrel::hands
