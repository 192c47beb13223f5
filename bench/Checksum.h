// One number for everything that a contestant has made.

#ifndef TAVREL_BENCH_CHECKSUM_H
#define TAVREL_BENCH_CHECKSUM_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/CTavrel.h"

namespace tavrel::bench {

/// FNV-1a over all that is added, in its order. Sizes count, so that no text can be
/// taken for two.
class Checksum {
 public:
  Checksum& add(std::int64_t number) {
    for (int byte = 0; byte < 8; ++byte) mix(static_cast<unsigned char>(number >> (8 * byte)));
    return *this;
  }

  Checksum& add(std::string_view text) {
    add(static_cast<std::int64_t>(text.size()));
    for (const char byte : text) mix(static_cast<unsigned char>(byte));
    return *this;
  }

  Checksum& add(const std::vector<std::string>& lines) {
    add(static_cast<std::int64_t>(lines.size()));
    for (const std::string& line : lines) add(std::string_view(line));
    return *this;
  }

  /// Every field of the record.
  Checksum& add(const sScreenElement& element) {
    add(element.m_x).add(element.m_y).add(element.m_xOffset).add(element.m_yOffset);
    add(std::int64_t{element.m_isOnPath}).add(std::int64_t{element.m_isNode});
    add(std::string_view(element.m_newFlowchartName));
    add(element.m_boxText).add(element.m_commentText);
    add(element.m_yesDir).add(element.m_noDir);
    return add(element.m_directionInto).add(element.m_directionOutOf);
  }

  Checksum& add(const std::vector<sScreenElement>& elements) {
    add(static_cast<std::int64_t>(elements.size()));
    for (const sScreenElement& element : elements) add(element);
    return *this;
  }

  std::uint64_t value() const { return value_; }

 private:
  void mix(unsigned char byte) { value_ = (value_ ^ byte) * 0x100000001b3; }

  std::uint64_t value_ = 0xcbf29ce484222325;
};

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_CHECKSUM_H
