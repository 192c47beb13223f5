// Answers counted by chart and end.

#ifndef TAVREL_HOSTS_TAVREL_QUIZTABLE_H
#define TAVREL_HOSTS_TAVREL_QUIZTABLE_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tavrel {

/// Charts and ends stand in the order in which they first came.
class QuizTable {
 public:
  /// Adds answers to those of an end. No end's answers lie beyond 32 bits.
  void add(const std::string& chart, const std::string& end, std::uint64_t right,
           std::uint64_t asked);

  /// Numbers stand below one another.
  std::vector<std::string> lines() const;

 private:
  struct Count {
    std::uint64_t right = 0, asked = 0;
  };
  struct Chart {
    Count all;
    std::vector<std::pair<std::string, Count>> ends;
  };

  std::vector<std::pair<std::string, Chart>> charts_;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_QUIZTABLE_H
