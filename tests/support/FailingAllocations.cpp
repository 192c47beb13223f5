#include <atomic>

#include "tests/support/Allocations.h"

namespace tavrel {
namespace {

std::atomic<long> untilFailure{-1};  // negative: none fails
std::atomic<bool> failOn{false};     // the allocations after the one that fails
std::atomic<bool> hasFailed{false};

}  // namespace

FailingAllocations::FailingAllocations(long n, Which which) {
  hasFailed = false;
  failOn = which == Which::allFromThere;
  untilFailure = n;
}

FailingAllocations::~FailingAllocations() { untilFailure = -1; }

bool FailingAllocations::wereReached() const { return hasFailed; }

bool FailingAllocations::nextMustFail() noexcept {
  if (untilFailure < 0) return false;
  if (untilFailure > 0) {
    --untilFailure;
    return false;
  }
  if (!failOn) untilFailure = -1;
  return hasFailed = true;
}

}  // namespace tavrel
