#include "authoring/FvScreening.h"

#include <algorithm>
#include <string_view>

#include "authoring/Invisible.h"
#include "authoring/Places.h"
#include "text/Utf8.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t nowhere = std::string_view::npos;

// But for those that are blanks between numbers, and those that are faults of another kind.
bool isControl(std::string_view bytes, std::size_t at) {
  constexpr std::string_view others = "\t\v\f\r";
  return controlAt(bytes.substr(at)) > 0 && others.find(bytes[at]) == nowhere;
}

void checkUtf8(const SourceFile& file, Diagnostics& found) {
  const std::string_view bytes = file.bytes();
  Places wrong;
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t at = firstThatIsNotUtf8(bytes.substr(start));
    if (at == nowhere) break;
    wrong.add(start + at);
    start += at + 1;
  }
  wrong.say(file, Code::fileNotUtf8, "the bytes here are not UTF-8",
            "save the file in the encoding UTF-8", found);
}

void checkByteOrderMarks(const SourceFile& file, Diagnostics& found) {
  const std::string_view bytes = file.bytes();
  std::size_t at = byteOrderMarkAt(bytes);
  if (at > 0) {
    found.add(Code::byteOrderMarkInFile, {}, "the file begins with a byte order mark",
              "save it as \"UTF-8\" or \"UTF-8 without BOM\", not \"UTF-8 with BOM\"");
  }
  Places others;
  for (; at < bytes.size(); ++at) {
    const std::size_t size = byteOrderMarkAt(bytes.substr(at));
    if (size > 0) others.add(at, size);
  }
  others.say(file, Code::byteOrderMarkInFile, "a byte order mark stands here, which can't be seen",
             "take it away", found);
}

// Where all lines end as on Windows, that is one fault of the whole file.
void checkCarriageReturns(const SourceFile& file, Diagnostics& found) {
  const std::string_view bytes = file.bytes();
  Places returns;
  std::size_t count = 0, atEnds = 0;
  for (std::size_t at = bytes.find('\r'); at != nowhere; at = bytes.find('\r', at + 1)) {
    if (bytes.substr(at + 1, 1) == "\n") ++atEnds;
    ++count;
    returns.add(at);
  }
  constexpr const char* cure = "save the file with plain line feeds";
  const auto ends = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
  if (ends > 1 && atEnds == ends && count == ends) {
    found.add(Code::carriageReturn, file.placeOf(bytes.find('\r')),
              "this line and all others end with a carriage return", cure);
  } else {
    returns.say(file, Code::carriageReturn, "a carriage return stands here", cure, found);
  }
}

void checkControls(const SourceFile& file, Diagnostics& found) {
  const std::string_view bytes = file.bytes();
  Places controls;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (isControl(bytes, at)) controls.add(at, controlAt(bytes.substr(at)));
  }
  controls.say(file, Code::controlInFile, "a control character stands here", "take it away", found);
}

}  // namespace

bool mayFvBeRead(const SourceFile& file, Diagnostics& found) {
  if (isUtf16(file.bytes())) {
    found.add(Code::fileNotUtf8, {}, "the file is in the encoding UTF-16",
              "save the file in the encoding UTF-8");
    return false;
  }
  checkUtf8(file, found);
  checkByteOrderMarks(file, found);
  checkCarriageReturns(file, found);
  checkControls(file, found);
  return true;
}

}  // namespace tavrel::authoring
