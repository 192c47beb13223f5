#include "authoring/FvScreening.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "authoring/Invisible.h"
#include "text/Utf8.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t mostSaid = 10;
constexpr std::size_t nowhere = std::string_view::npos;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool beginsWith(std::string_view bytes, std::string_view start) {
  return bytes.substr(0, start.size()) == start;
}

// But for those that are blanks between numbers, and those that are faults of another kind.
bool isControl(std::string_view bytes, std::size_t at) {
  constexpr std::string_view others = "\t\v\f\r";
  return controlAt(bytes.substr(at)) > 0 && others.find(bytes[at]) == nowhere;
}

// Bytes side by side are one place.
void checkUtf8(const SourceFile& file, Diagnostics& found) {
  const std::string_view bytes = file.bytes();
  Places wrong;
  std::size_t behind = 0;  // the last that is wrong
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t at = firstThatIsNotUtf8(bytes.substr(start));
    if (at == nowhere) break;
    start += at + 1;
    if (wrong.count() == 0 || start - 1 > behind) wrong.add(start - 1);
    behind = start;
  }
  wrong.say(file, Code::fileNotUtf8, "the bytes here are not UTF-8",
            "save the file in the encoding UTF-8", found);
}

void checkByteOrderMarks(const SourceFile& file, Diagnostics& found) {
  const std::string_view bytes = file.bytes();
  std::size_t start = 0;
  if (beginsWith(bytes, byteOrderMark)) {
    start = byteOrderMark.size();
    found.add(Code::byteOrderMarkInFile, {}, "the file begins with a byte order mark",
              "save it as \"UTF-8\" or \"UTF-8 without BOM\", not \"UTF-8 with BOM\"");
  }
  Places others;
  for (std::size_t at = bytes.find(byteOrderMark, start); at != nowhere;
       at = bytes.find(byteOrderMark, at + 1)) {
    others.add(at);
  }
  others.say(file, Code::byteOrderMarkInFile, "a byte order mark stands here, which can't be seen",
             "take it away", found);
}

// Where all lines end as on Windows, that is one fault of the whole file.
void checkCarriageReturns(const SourceFile& file, Diagnostics& found) {
  const std::string_view bytes = file.bytes();
  Places returns;
  std::size_t atEnds = 0;
  for (std::size_t at = bytes.find('\r'); at != nowhere; at = bytes.find('\r', at + 1)) {
    if (bytes.substr(at + 1, 1) == "\n") ++atEnds;
    returns.add(at);
  }
  constexpr const char* cure = "save the file with plain line feeds";
  const auto ends = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
  if (ends > 1 && atEnds == ends && returns.count() == ends) {
    found.add(Code::carriageReturn, file.placeOf(bytes.find('\r')),
              "this line and all others end with a carriage return", cure);
  } else {
    returns.say(file, Code::carriageReturn, "a carriage return stands here", cure, found);
  }
}

void checkControls(const SourceFile& file, Diagnostics& found) {
  Places controls;
  for (std::size_t at = 0; at < file.bytes().size(); ++at) {
    if (isControl(file.bytes(), at)) controls.add(at);
  }
  controls.say(file, Code::controlInFile, "a control character stands here", "take it away", found);
}

}  // namespace

void Places::add(std::size_t offset) {
  if (++count_ <= mostSaid) first_.push_back(offset);
}

void Places::say(const SourceFile& file, Code code, const char* text, const char* cure,
                 Diagnostics& found) const {
  for (std::size_t i = 0; i < first_.size(); ++i) {
    const std::size_t more = i + 1 == mostSaid ? count_ - mostSaid : 0;
    const std::string others =
        more == 0 ? ""
                  : ", and in " + std::to_string(more) + " more place" + (more == 1 ? "" : "s");
    found.add(code, file.placeOf(first_[i]), text + others, cure);
  }
}

bool mayFvBeRead(const SourceFile& file, Diagnostics& found) {
  if (beginsWith(file.bytes(), "\xFF\xFE") || beginsWith(file.bytes(), "\xFE\xFF")) {
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
