// What is tried, as it answers requests: the object that hosts use, and the engine alone.

#ifndef TAVREL_TESTS_REFERENCE_NAVIGATORS_H
#define TAVREL_TESTS_REFERENCE_NAVIGATORS_H

#include <memory>
#include <optional>
#include <string>

#include "engine/CTavrel.h"
#include "facade/Tavrel.h"
#include "tests/reference/Reply.h"

namespace tavrel::reference {

/// Answers by a CTavrel.
class EngineRespondent : public Respondent {
 public:
  explicit EngineRespondent(const std::string& prefix) : engine_(prefix) {}
  CTavrel& engine() { return engine_; }

 private:
  void answer(const Request& request, Reply& reply) override;
  void askAbout(const Request& request, Reply& reply);

  CTavrel engine_;
};

/// Answers by a Tavrel.
class FacadeRespondent : public Respondent {
 public:
  explicit FacadeRespondent(const std::string& directory) : navigator_(directory) {}
  /// The engine within.
  CTavrel& engine();

 private:
  void answer(const Request& request, Reply& reply) override;
  void askAbout(const Request& request, Reply& reply);
  void move(const Request& request);

  Tavrel navigator_;
  std::optional<ScreenElement> kept_;
};

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_NAVIGATORS_H
