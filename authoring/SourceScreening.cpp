#include "authoring/SourceScreening.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "authoring/FlowScan.h"
#include "authoring/Invisible.h"
#include "authoring/Places.h"
#include "authoring/TabIndents.h"
#include "text/Utf8.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t mostBytes = 2'000'000;
constexpr std::size_t deepestBrackets = 20;
constexpr std::size_t nowhere = std::string_view::npos;
constexpr std::size_t noLine = std::numeric_limits<std::size_t>::max();

// What may not stand in a source.
enum class Kind : std::uint8_t { notUtf8, markAtStart, mark, control, carriageReturn, tab };

struct Words {
  Code code;
  const char* text;
  const char* cure;
};

constexpr std::array<Words, 6> wordsOfKinds = {{
    {Code::notUtf8, "the bytes here are not UTF-8",
     "let the editor save the file in the encoding UTF-8"},
    {Code::byteOrderMark, "the file begins with a byte order mark",
     "let the editor save it as \"UTF-8\" or \"UTF-8 without BOM\", not \"UTF-8 with BOM\""},
    {Code::byteOrderMark, "a byte order mark stands here, which can't be seen", "take it away"},
    {Code::controlCharacter, "a control character stands here", "take it away"},
    {Code::controlCharacter, "a carriage return stands here",
     "let the editor save the file with the line ends of Windows or of Unix"},
    {Code::tab, "a tab stands here", "write blanks instead"},
}};

class Screening {
 public:
  explicit Screening(const SourceFile& file) : file_(file), bytes_(file.bytes()) {}

  Screened run(Diagnostics& found) {
    text_.reserve(bytes_.size());
    nextBad_ = firstThatIsNotUtf8(bytes_);
    for (std::size_t line = 1; line <= file_.lineCount(); ++line) takeLine(line);
    for (std::size_t kind = 0; kind < places_.size(); ++kind) {
      const Words& words = wordsOfKinds[kind];
      places_[kind].say(file_, words.code, words.text, words.cure, found);
    }
    return {SourceFile(file_.name(), std::move(text_)), std::move(shifts_), doubtfulLine_};
  }

 private:
  void takeLine(std::size_t line) {
    at_ = file_.startOf(line);
    const std::size_t end = at_ + file_.line(line).size();
    takeIndent(line, end);
    while (at_ < end) step(line, end);
    if (end < bytes_.size()) text_ += '\n';
  }

  // A remark may have tabs before it: they mislead nobody but YAML.
  void takeIndent(std::size_t line, std::size_t end) {
    const std::string_view whole = bytes_.substr(at_, end - at_);
    const std::size_t content = whole.find_first_not_of(" \t");
    if (content == nowhere || whole[content] == '#') return;
    const std::string_view indent = whole.substr(0, content);
    const std::size_t blanks = indents_.blanksOf(indent, whole.substr(content));
    if (indent.find('\t') == nowhere) return;
    for (std::size_t at = 0; at < content; ++at) {
      if (indent[at] == '\t') places(Kind::tab).add(at_ + at);
    }
    doubtfulLine_ = std::min(doubtfulLine_, line);
    text_.append(blanks, ' ');
    at_ += content;
    shift();
  }

  void step(std::size_t line, std::size_t end) {
    if (at_ == nextBad_) return replace(Kind::notUtf8, 'x');
    const std::string_view rest = bytes_.substr(at_, end - at_);
    if (const std::size_t mark = byteOrderMarkAt(rest)) {
      drop(at_ == 0 ? Kind::markAtStart : Kind::mark, mark);
    } else if (rest[0] == '\t') {
      replace(Kind::tab, ' ');
    } else if (rest[0] == '\r') {
      takeCarriageReturn(line, rest.size() == 1 && end < bytes_.size());
    } else if (const std::size_t control = controlAt(rest)) {
      drop(Kind::control, control);
    } else {
      text_ += rest[0];
      ++at_;
    }
  }

  void takeCarriageReturn(std::size_t line, bool isLineEnd) {
    if (isLineEnd) {
      text_ += '\r';
      ++at_;
    } else {
      doubtfulLine_ = std::min(doubtfulLine_, line);
      replace(Kind::carriageReturn, ' ');
    }
  }

  Places& places(Kind kind) { return places_[static_cast<std::size_t>(kind)]; }

  void replace(Kind kind, char by) {
    places(kind).add(at_);
    text_ += by;
    ++at_;
    if (kind != Kind::notUtf8) return;
    shift();
    const std::size_t next = firstThatIsNotUtf8(bytes_.substr(at_));
    nextBad_ = next == nowhere ? nowhere : at_ + next;
  }

  void drop(Kind kind, std::size_t size) {
    places(kind).add(at_, size);
    at_ += size;
    shift();
  }

  // From here on the text lies elsewhere than in the file, or its columns are others.
  void shift() {
    const auto offset = static_cast<std::uint32_t>(text_.size());
    const auto bytes = static_cast<std::int32_t>(at_) - static_cast<std::int32_t>(offset);
    if (!shifts_.empty() && shifts_.back().bytes == bytes) return;
    if (!shifts_.empty() && shifts_.back().offset == offset) shifts_.pop_back();
    shifts_.push_back({offset, bytes});
  }

  const SourceFile& file_;
  std::string_view bytes_;
  std::size_t at_ = 0;
  std::size_t nextBad_ = nowhere;  // the next byte that is no UTF-8
  std::string text_;
  std::vector<Screened::Shift> shifts_;
  std::array<Places, wordsOfKinds.size()> places_;
  TabIndents indents_;
  std::size_t doubtfulLine_ = noLine;
};

// As the first editors of the Macintosh wrote them.
bool hasOtherLineEnds(std::string_view bytes) {
  return bytes.find('\n') == nowhere && bytes.find('\r') != nowhere;
}

bool isReadable(const SourceFile& file, Diagnostics& found) {
  if (file.bytes().size() > mostBytes) {
    found.add(Code::tooLarge, {}, "the file is larger than 2 MB",
              "no chart needs that: split it into several");
    return false;
  }
  if (isUtf16(file.bytes())) {
    found.add(Code::notUtf8, {}, "the file is in the encoding UTF-16",
              "let the editor save it as \"UTF-8\"");
    return false;
  }
  if (hasOtherLineEnds(file.bytes())) {
    found.add(Code::controlCharacter, file.placeOf(file.bytes().find('\r')),
              "the lines end with carriage returns alone",
              "let the editor save the file with the line ends of Windows or of Unix");
    return false;
  }
  return true;
}

bool isBearable(const Screened& screened, const SourceFile& file, Diagnostics& found) {
  const SourceFile& text = screened.text();
  const auto excess = firstExcess(text.bytes(), deepestBrackets, mostValues);
  if (!excess) return true;
  const Place place = screened.placeIn(file, text.placeOf(excess->offset));
  if (excess->isDeep) {
    found.add(Code::bracketsTooDeep, place, "more than 20 brackets and braces are open here",
              "close them, or write the boxes one below the other");
  } else {
    sayTooManyValues(place, found);
  }
  return false;
}

}  // namespace

Place Screened::placeIn(const SourceFile& file, Place place) const {
  if (shifts_.empty()) return place;
  const std::size_t offset = text_.offsetOf(place);
  const auto behind =
      std::upper_bound(shifts_.begin(), shifts_.end(), offset,
                       [](std::size_t at, const Shift& shift) { return at < shift.offset; });
  const std::int32_t bytes = behind == shifts_.begin() ? 0 : std::prev(behind)->bytes;
  const auto moved = static_cast<std::int64_t>(offset) + bytes;
  return file.placeOf(static_cast<std::size_t>(moved));
}

void sayTooManyValues(Place place, Diagnostics& found) {
  found.add(Code::tooManyValues, place, "the file has more than 100,000 values",
            "no chart needs that: split it into several");
}

std::optional<Screened> screen(const SourceFile& file, Diagnostics& found) {
  if (!isReadable(file, found)) return std::nullopt;
  Screened screened = Screening(file).run(found);
  if (!isBearable(screened, file, found)) return std::nullopt;
  return screened;
}

}  // namespace tavrel::authoring
