// Brackets and what stands between them, counted before YAML is read.

#ifndef TAVREL_AUTHORING_FLOWSCAN_H
#define TAVREL_AUTHORING_FLOWSCAN_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace tavrel::authoring {

/// What no chart needs, and the reader of YAML would hold in memory all at once.
struct Excess {
  std::size_t offset;
  bool isDeep;  ///< too many brackets are open; else too many values have been counted
};

/// The first place where more than `deepest` brackets and braces are open, or where more than
/// `most` values have begun. Those in quotes, blocks, remarks and other texts are none. Of the
/// values only those are counted that cost least to write: whoever builds them counts for
/// himself. Cost: one pass.
std::optional<Excess> firstExcess(std::string_view bytes, std::size_t deepest, std::size_t most);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_FLOWSCAN_H
