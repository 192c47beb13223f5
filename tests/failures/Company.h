// An engine and a navigator, each beside the reference.

#ifndef TAVREL_TESTS_FAILURES_COMPANY_H
#define TAVREL_TESTS_FAILURES_COMPANY_H

#include <cstdint>
#include <string>
#include <vector>

#include "tests/reference/ChartFiles.h"
#include "tests/reference/Navigators.h"
#include "tests/reference/PlainNavigator.h"

namespace tavrel {

/// Where two of them part: "" nowhere.
using Parting = std::string;

class Company {
 public:
  /// Engine and navigator find their files in `directory`, the reference in that of `files`.
  /// REQUIRES: `files` outlives this object.
  Company(const std::string& directory, reference::ChartFiles& files)
      : plainEngine_(files.directory() + "/", files, met_),
        engine_(directory + "/"),
        plainNavigator_(files.directory(), files, met_),
        navigator_(directory) {}

  /// Puts the request to all whose operation it is, and compares answer and state.
  Parting ask(const reference::Request& request);
  /// The same for one request after another, up to the first that parts them.
  Parting ask(const std::vector<reference::Request>& requests);

  /// Compares everything that is held of every flowchart.
  Parting lookEverywhere();

  /// Puts a request to all, to engine and navigator while an object that `trouble` makes is
  /// there.
  template <typename Trouble>
  Parting askInTrouble(const reference::Request& request, const Trouble& trouble) {
    using reference::Respondent;
    const auto isAlike = [&](Respondent& plain, Respondent& real) {
      const reference::Reply expected = plain.ask(request);
      const auto during = trouble();
      return real.ask(request) == expected;
    };
    if (!isAlike(plainEngine_, engine_)) return "the engine's answer";
    if (!isAlike(plainNavigator_, navigator_)) return "the navigator's answer";
    return lookEverywhere();
  }

 private:
  reference::Behaviours met_;
  reference::PlainEngineRespondent plainEngine_;
  reference::EngineRespondent engine_;
  reference::PlainNavigator plainNavigator_;
  reference::FacadeRespondent navigator_;
};

/// A conversation about a flowchart: selected, walked, asked for all that it holds.
std::vector<reference::Request> conversationAbout(std::int32_t index);

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_COMPANY_H
