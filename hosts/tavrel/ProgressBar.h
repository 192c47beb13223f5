// How far long work has come, on a terminal.

#ifndef TAVREL_HOSTS_TAVREL_PROGRESSBAR_H
#define TAVREL_HOSTS_TAVREL_PROGRESSBAR_H

#include <cstdint>
#include <string>

namespace tavrel {

/// One line on standard error, where that is a terminal; elsewhere nothing is shown. It goes
/// when the object does.
class ProgressBar {
 public:
  ProgressBar(std::string label, std::uint64_t all);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void advance(std::uint64_t more);

 private:
  void show() const;

  const std::string label_;
  const std::uint64_t all_;
  const bool isShown_;
  std::uint64_t done_ = 0;
  int percent_ = -1;  // as shown
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_PROGRESSBAR_H
