#include "tests/failures/FailedCalls.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>

#include "tests/failures/Call.h"
#include "tests/failures/FailingMemory.h"
#include "tests/failures/Situation.h"
#include "tests/failures/SmallCharts.h"
#include "tests/reference/ChartFiles.h"
#include "tests/reference/State.h"
#include "tests/support/Descriptors.h"

namespace tavrel {
namespace {

using Which = FailingAllocations::Which;

/// Calls `failOne` for each allocation in turn, alone and with all after it, until it says
/// that the allocation was no longer reached. A call that never says so is a finding.
template <typename FailOne>
void failEach(const std::string& what, const FailOne& failOne, Tally& tally) {
  constexpr long mostAllocations = 10000;
  for (const Which which : {Which::one, Which::allFromThere}) {
    for (long n = 0; failOne(n, which); ++n) {
      ++tally.tried;
      if (n < mostAllocations) continue;
      tally.findings.push_back(what + ": more than " + std::to_string(mostAllocations) +
                               " allocations");
      break;
    }
  }
}

// The directory as an engine wants it.
std::string prefixOf(const reference::TemporaryFiles& files) { return files.directory() + "/"; }

/// The answers to those of the calls that the subject, or the one compared with, has.
template <typename Compared, typename Subject>
std::string answersTo(const std::vector<Call>& calls, Subject& subject) {
  std::string all;
  for (const Call& call : calls) {
    if (canMake<Compared>(call)) all += call.name + ": " + textOf(make(call, subject)) + "\n";
  }
  return all;
}

template <typename Subject>
void makeWhatIsMadeOnce() {
  Subject subject("/no/such/directory/");
  answersTo<Subject>(callsToGoOnWith(), subject);
}

// --- One call in one situation ----------------------------------------------------

/// The reference after a call, and what it goes on to answer.
struct Expected {
  std::string answer;
  std::unique_ptr<Model> model;
  std::string shown;   // where only the answers to calls can be compared
  std::string wentOn;  // by another model of the same past
};

/// Which of the states that were expected a subject is in.
struct Seen {
  bool isBefore, isAfter, isSelected, isMissing;
};

template <typename Subject>
class Case {
 public:
  /// REQUIRES: the arguments outlive this object. `opening` is the file of flowchart 0.
  Case(reference::TemporaryFiles& files, const std::string& opening, const Situation& situation,
       const Call& call)
      : files_(files), opening_(opening), situation_(situation), call_(call) {
    const auto nothing = [](Model&) { return Result(); };
    before_ = expected(nothing);
    after_ = expected([this](Model& model) { return make(call_, model); });
    missing_ = expected([this](Model& model) { return withoutFiles(model); });
    const std::int32_t current = after_.model->current();
    const bool mayStandSelected = current >= 0 && !before_.model->isRead(current);
    selected_ = expected([&](Model& model) {
      if (mayStandSelected) model.makeCurrent(current);
      return Result();
    });
  }

  void tryAll(Tally& tally) {
    ++tally.calls;
    failEach(
        name(), [&](long n, Which which) { return tryOne(n, which, tally); }, tally);
  }

 private:
  /// The end of `act` on a model in the situation.
  Expected expected(const std::function<Result(Model&)>& act) {
    Expected state;
    state.model = std::make_unique<Model>(prefixOf(files_), files_);
    prepare(*state.model);
    state.answer = textOf(act(*state.model));
    state.shown = answersTo<Subject>(callsThatShow(), *state.model);
    Model another(prefixOf(files_), files_);
    prepare(another);
    act(another);
    state.wentOn = answersTo<Subject>(callsToGoOnWith(), another);
    return state;
  }

  template <typename Navigator>
  void prepare(Navigator& navigator) const {
    if (situation_.withoutFile) files_.remove("Opening");
    for (const Call& call : situation_.before) make(call, navigator);
    if (situation_.withoutFile) files_.write("Opening", opening_);
  }

  Result withoutFiles(Model& model) const {
    const std::string away = files_.directory() + ".away";
    std::filesystem::rename(files_.directory(), away);
    Result result = make(call_, model);
    std::filesystem::rename(away, files_.directory());
    return result;
  }

  /// False once the call no longer reaches the allocation.
  bool tryOne(long n, Which which, Tally& tally) const {
    const std::size_t held = bytesInUse();
    const int descriptor = nextDescriptor();
    bool isReached = false;
    std::string finding = findingOf(n, which, isReached);
    if (finding.empty() && bytesInUse() != held) finding = "memory is still allocated";
    if (nextDescriptor() != descriptor) finding += " a file is still open";
    if (!finding.empty()) report(n, which, finding, tally);
    return isReached;
  }

  std::string findingOf(long n, Which which, bool& isReached) const {
    Subject subject(prefixOf(files_));
    prepare(subject);
    Result result;
    {
      const FailingAllocations failing(n, which);
      result = make(call_, subject);
      isReached = failing.wereReached();
    }
    const std::string text = textOf(result);
    Seen seen = seenOf(subject);
    const std::string wentOn = answersTo<Subject>(callsToGoOnWith(), subject);
    seen.isBefore &= wentOn == before_.wentOn;
    seen.isAfter &= wentOn == after_.wentOn;
    seen.isSelected &= wentOn == selected_.wentOn;
    seen.isMissing &= wentOn == missing_.wentOn;
    if (isAllowed(text, seen, isReached)) return "";
    return "answers " + text + " instead of " + after_.answer + ", then\n" + wentOn;
  }

  // Of an engine everything counts, of a navigator what it tells.
  Seen seenOf(CTavrel& engine) const {
    const auto isIn = [&](const Expected& state) {
      return !reference::differenceAnywhere(state.model->plain(), engine);
    };
    return {isIn(before_), isIn(after_), isIn(selected_), isIn(missing_)};
  }

  Seen seenOf(Tavrel& navigator) const {
    const std::string shown = answersTo<Subject>(callsThatShow(), navigator);
    const auto isIn = [&](const Expected& state) { return state.shown == shown; };
    return {isIn(before_), isIn(after_), isIn(selected_), isIn(missing_)};
  }

  bool isAllowed(const std::string& answer, const Seen& seen, bool isReached) const {
    if (isReached && answer == "bad_alloc") return seen.isBefore || seen.isAfter || seen.isSelected;
    if (answer == after_.answer && seen.isAfter) return true;
    return isReached && filesNeedMemory() && answer == missing_.answer && seen.isMissing;
  }

  std::string name() const { return call_.name + ", on " + situation_.name; }

  void report(long n, Which which, const std::string& finding, Tally& tally) const {
    tally.findings.push_back(name() + ", allocation " + std::to_string(n) +
                             (which == Which::one ? "" : " and all after it") + ": " + finding);
  }

  reference::TemporaryFiles& files_;
  const std::string& opening_;
  const Situation& situation_;
  const Call& call_;
  Expected before_, after_, selected_, missing_;
};

template <typename Subject>
Tally failCalls(const Share& share) {
  Tally tally;
  long number = 0;
  makeWhatIsMadeOnce<Subject>();
  for (const std::string& chart : smallCharts()) {
    reference::TemporaryFiles files;
    writeNeighbours(files.directory());
    files.write("Opening", chart);
    for (const Situation& situation : situations()) {
      for (const Call& call : allCalls()) {
        if (!canMake<Subject>(call) || !share.takes(number++)) continue;
        Case<Subject>(files, chart, situation, call).tryAll(tally);
      }
    }
  }
  return tally;
}

// --- Making -----------------------------------------------------------------------

template <typename Subject>
Result construct(const std::string& directory) {
  return resultOf([&]() -> Value {
    const Subject subject(directory);
    return {};
  });
}

template <typename Subject>
bool isAsGoodAsEver(reference::TemporaryFiles& files) {
  Subject subject(prefixOf(files));
  Model model(prefixOf(files), files);
  return answersTo<Subject>(callsToGoOnWith(), subject) ==
         answersTo<Subject>(callsToGoOnWith(), model);
}

/// False once the construction no longer reaches the allocation.
template <typename Subject>
bool failOneConstruction(reference::TemporaryFiles& files, long n, Which which, Tally& tally) {
  const std::string directory = prefixOf(files);
  const std::size_t held = bytesInUse();
  Result result;
  bool isReached = false;
  {
    const FailingAllocations failing(n, which);
    result = construct<Subject>(directory);
    isReached = failing.wereReached();
  }
  const std::string expected = isReached ? "bad_alloc" : "";
  const bool isLeft = bytesInUse() != held;
  if (textOf(result) != expected || isLeft || !isAsGoodAsEver<Subject>(files)) {
    tally.findings.push_back("construction, allocation " + std::to_string(n) + ": " +
                             textOf(result) + (isLeft ? ", memory is still allocated" : ""));
  }
  return isReached;
}

template <typename Subject>
void failConstructionOf(Tally& tally) {
  reference::TemporaryFiles files;
  writeNeighbours(files.directory());
  files.write("Opening", smallCharts()[0]);
  makeWhatIsMadeOnce<Subject>();
  ++tally.calls;
  failEach(
      "construction",
      [&](long n, Which which) { return failOneConstruction<Subject>(files, n, which, tally); },
      tally);
}

}  // namespace

Tally failEngineCalls(const Share& share) { return failCalls<CTavrel>(share); }
Tally failFacadeCalls(const Share& share) { return failCalls<Tavrel>(share); }

Tally failConstruction() {
  Tally tally;
  failConstructionOf<CTavrel>(tally);
  failConstructionOf<Tavrel>(tally);
  return tally;
}

}  // namespace tavrel
