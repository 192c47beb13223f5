// Text on its way from the engine to the host.

#ifndef TAVREL_FACADE_UTF8_H
#define TAVREL_FACADE_UTF8_H

#include <string>
#include <string_view>
#include <vector>

namespace tavrel::facade {

/// Whether `text` is valid UTF-8: no overlong form, no surrogate, nothing above
/// U+10FFFF, no sequence cut short. One pass.
bool isUtf8(std::string_view text) noexcept;

/// `text` up to its first NUL byte.
std::string endedAtNul(std::string&& text) noexcept;

/// The lines, each up to its first NUL byte.
std::vector<std::string> endedAtNul(std::vector<std::string>&& lines) noexcept;

/// Throws std::invalid_argument that names the first line, counting from 0, that is
/// not valid UTF-8.
void checkUtf8(const std::vector<std::string>& lines);

/// Lines up to their first NUL bytes, checked.
std::vector<std::string> hostLines(std::vector<std::string>&& lines);

}  // namespace tavrel::facade

#endif  // TAVREL_FACADE_UTF8_H
