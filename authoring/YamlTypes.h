// What a plain word is to a reader of YAML 1.2: a text, or something else.

#ifndef TAVREL_AUTHORING_YAMLTYPES_H
#define TAVREL_AUTHORING_YAMLTYPES_H

#include <optional>
#include <string_view>

namespace tavrel::authoring {

/// Its value if it is true or false: in small letters, in capitals, or with one.
std::optional<bool> booleanIn(std::string_view plain);

/// Whether it is a number: 24, -1, 0x1F, 0o17, 1.5, 1e3, .inf or .nan.
bool isNumber(std::string_view plain);

/// Its value if it is a whole number of no more than a million, however it is written.
std::optional<int> wholeNumberIn(std::string_view plain);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_YAMLTYPES_H
