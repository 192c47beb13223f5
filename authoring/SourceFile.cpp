#include "authoring/SourceFile.h"

#include <algorithm>
#include <utility>

#include "text/Utf8.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t blockBytes = 512;

std::size_t charactersIn(std::string_view bytes) {
  const auto further = std::count_if(bytes.begin(), bytes.end(), isContinuation);
  return bytes.size() - static_cast<std::size_t>(further);
}

}  // namespace

SourceFile::SourceFile(std::string name, std::string bytes)
    : name_(std::move(name)), bytes_(std::move(bytes)), starts_{0} {
  for (std::size_t at = bytes_.find('\n'); at != std::string::npos;
       at = bytes_.find('\n', at + 1)) {
    starts_.push_back(at + 1);
  }
  std::size_t before = 0;
  for (std::size_t at = 0; at <= bytes_.size(); at += blockBytes) {
    characters_.push_back(before);
    before += charactersIn(this->bytes().substr(at, blockBytes));
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
  return {line, charactersBefore(offset) - charactersBefore(starts_[line - 1]) + 1};
}

std::size_t SourceFile::offsetOf(Place place) const {
  const std::size_t start = startOf(place.line);
  const std::size_t end = start + line(place.line).size();
  const std::size_t before = charactersBefore(start) + place.column - 1;
  const auto block = std::upper_bound(characters_.begin(), characters_.end(), before) - 1;
  std::size_t at = static_cast<std::size_t>(block - characters_.begin()) * blockBytes;
  std::size_t left = before - *block;
  for (; at < end && (left > 0 || isContinuation(bytes_[at])); ++at) {
    if (!isContinuation(bytes_[at])) --left;
  }
  return std::min(std::max(at, start), end);
}

std::size_t SourceFile::charactersBefore(std::size_t offset) const {
  const std::size_t block = offset / blockBytes;
  const std::size_t start = block * blockBytes;
  return characters_[block] + charactersIn(bytes().substr(start, offset - start));
}

}  // namespace tavrel::authoring
