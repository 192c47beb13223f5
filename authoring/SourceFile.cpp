#include "authoring/SourceFile.h"

#include <algorithm>
#include <utility>

namespace tavrel::authoring {
namespace {

// A byte that goes on with a character. Where the bytes are no UTF-8, columns mean little.
bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

}  // namespace

std::size_t charactersIn(std::string_view bytes) {
  const auto further = std::count_if(bytes.begin(), bytes.end(), isContinuation);
  return bytes.size() - static_cast<std::size_t>(further);
}

SourceFile::SourceFile(std::string name, std::string bytes)
    : name_(std::move(name)), bytes_(std::move(bytes)), starts_{0} {
  for (std::size_t at = bytes_.find('\n'); at != std::string::npos;
       at = bytes_.find('\n', at + 1)) {
    starts_.push_back(at + 1);
  }
}

std::string_view SourceFile::line(std::size_t number) const {
  if (number < 1 || number > starts_.size()) return {};
  const std::size_t start = starts_[number - 1];
  const std::size_t end = number < starts_.size() ? starts_[number] - 1 : bytes_.size();
  return bytes().substr(start, end - start);
}

Place SourceFile::placeOf(std::size_t offset) const {
  offset = std::min(offset, bytes_.size());
  const auto behind = std::upper_bound(starts_.begin(), starts_.end(), offset);
  const auto line = static_cast<std::size_t>(behind - starts_.begin());
  const auto before = bytes().substr(starts_[line - 1], offset - starts_[line - 1]);
  return {line, charactersIn(before) + 1};
}

}  // namespace tavrel::authoring
