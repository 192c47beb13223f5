#include "hosts/tavrel/ProgressBar.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <utility>

namespace tavrel {
namespace {

constexpr int width = 40;  // of the bar, in columns

}  // namespace

ProgressBar::ProgressBar(std::string label, std::uint64_t all)
    : label_(std::move(label)),
      all_(std::max<std::uint64_t>(all, 1)),
      isShown_(isatty(STDERR_FILENO) != 0) {
  advance(0);
}

ProgressBar::~ProgressBar() {
  if (!isShown_) return;
  const std::size_t columns = label_.size() + width + 8;
  std::cerr << '\r' << std::string(columns, ' ') << '\r' << std::flush;
}

void ProgressBar::advance(std::uint64_t more) {
  done_ += more;
  const int percent =
      static_cast<int>(100.0 * static_cast<double>(done_) / static_cast<double>(all_));
  if (!isShown_ || percent == percent_) return;
  percent_ = percent;
  show();
}

void ProgressBar::show() const {
  const int filled = std::min(percent_, 100) * width / 100;
  const std::string bar(static_cast<std::size_t>(filled), '#');
  const std::string rest(static_cast<std::size_t>(width - filled), '.');
  std::cerr << '\r' << label_ << " [" << bar << rest << "] " << percent_ << "%" << std::flush;
}

}  // namespace tavrel
