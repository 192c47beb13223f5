// The reference as it answers requests: the plain engine by itself, or behind a plain
// client interface that converts on the way.

#ifndef TAVREL_TESTS_REFERENCE_PLAINNAVIGATOR_H
#define TAVREL_TESTS_REFERENCE_PLAINNAVIGATOR_H

#include <optional>
#include <string>
#include <vector>

#include "tests/reference/PlainEngine.h"
#include "tests/reference/Reply.h"

namespace tavrel::reference {

/// The text up to its first NUL byte, or nothing where that isn't UTF-8.
std::optional<std::string> asText(const std::string& bytes);

/// Answers as CTavrel does.
class PlainEngineRespondent : public Respondent {
 public:
  PlainEngineRespondent(std::string prefix, ChartFiles& files, Behaviours& met)
      : engine(std::move(prefix), files, met) {}

  PlainEngine engine;

 private:
  void answer(const Request& request, Reply& reply) override;
};

/// Answers as Tavrel does.
class PlainNavigator : public Respondent {
 public:
  PlainNavigator(std::string directory, ChartFiles& files, Behaviours& met);

  void moveWithDirection(std::int64_t direction);
  void moveBack();
  /// What an element says of itself.
  std::string descriptionOf(const PlainElement& element);

  PlainEngine engine;

 private:
  void answer(const Request& request, Reply& reply) override;
  void askAbout(const Request& request, Reply& reply);
  void move(const Request& request);

  void addLines(const Lines& lines, Reply& reply);
  void addElement(const PlainElement& element, Reply& reply);
  void addElements(const std::vector<PlainElement>& elements, Reply& reply);
  void noteChange();
  std::optional<Lines> linesOf(const Lines& lines);
  std::int32_t narrowIndex(std::int64_t index);
  std::int32_t narrowPlace(std::int64_t place);
  void keepCurrent(Reply& reply);
  bool leadsHere(const PlainElement& box, std::int32_t exit);

  Behaviours& met_;
  std::optional<PlainElement> kept_;
};

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_PLAINNAVIGATOR_H
