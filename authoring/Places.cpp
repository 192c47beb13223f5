#include "authoring/Places.h"

#include <string>
#include <utility>

namespace tavrel::authoring {
namespace {

constexpr std::size_t mostNamed = 100;

}  // namespace

void Places::add(std::size_t offset, std::size_t size) {
  const bool goesOn = count_ > 0 && offset == end_;
  end_ = offset + size;
  if (goesOn) return;
  if (++count_ <= mostNamed) named_.push_back(offset);
}

void Places::say(const SourceFile& file, Code code, const char* text, const char* cure,
                 Diagnostics& found) const {
  const std::size_t unnamed = count_ - named_.size();
  for (const std::size_t offset : named_) {
    std::string said = text;
    if (unnamed > 0 && offset == named_.back()) {
      said += ", and in " + std::to_string(unnamed) + " more place" + (unnamed == 1 ? "" : "s");
    }
    found.add(code, file.placeOf(offset), std::move(said), cure);
  }
}

}  // namespace tavrel::authoring
