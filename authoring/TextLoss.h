// Texts that YAML reads, but not as they were written.

#ifndef TAVREL_AUTHORING_TEXTLOSS_H
#define TAVREL_AUTHORING_TEXTLOSS_H

#include <cstddef>
#include <optional>
#include <string_view>

#include "authoring/Cause.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// What YAML has dropped of a text, or taken into it, that its author can't have meant: a remark
/// before it, behind it or within it, which may be no remark; a key without a blank behind its
/// colon; a number before a block. `key` and `begin` are the offsets where its key and the text
/// itself begin, outside all braces, and `text` is what YAML has read. Nothing for a text that
/// is read as it was written. Cost: the length of the text in the file.
std::optional<Cause> lossIn(const SourceFile& file, std::size_t key, std::size_t begin,
                            std::string_view text);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_TEXTLOSS_H
