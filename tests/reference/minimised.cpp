// Makes a dialogue smaller for as long as something remains true of it: requests are
// dropped, then lines of charts with what counts them, then what requests carry.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "tests/reference/Comparison.h"

namespace tavrel::reference {
namespace {

using Holds = std::function<bool(const Dialogue&)>;

std::vector<std::string> linesOf(const std::string& bytes) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\n', begin), bytes.size() - 1) + 1;
    lines.push_back(bytes.substr(begin, end - begin));
    begin = end;
  }
  return lines;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line;
  return bytes;
}

/// Whether the line starts with a number that counts something.
bool isCount(const std::string& line) {
  return !line.empty() && line[0] >= '1' && line[0] <= '9' && line.find(' ') == std::string::npos;
}

class Minimiser {
 public:
  Minimiser(Dialogue dialogue, const Holds& holds) : best_(std::move(dialogue)), holds_(holds) {}

  Dialogue result() {
    if (!holds_(best_)) return best_;
    do {
      isSmaller_ = false;
      dropRequests();
      for (std::size_t i = 0; i < best_.requests.size(); ++i) simplify(i);
    } while (isSmaller_);
    return best_;
  }

 private:
  bool take(const Dialogue& candidate) {
    if (!holds_(candidate)) return false;
    best_ = candidate;
    return isSmaller_ = true;
  }

  /// Halves, quarters and so on, the last ones first, down to single requests.
  void dropRequests() {
    for (std::size_t size = best_.requests.size(); size > 0; size /= 2) {
      for (std::size_t end = best_.requests.size(); end > 0;) {
        const std::size_t begin = end > size ? end - size : 0;
        Dialogue candidate = best_;
        candidate.requests.erase(candidate.requests.begin() + static_cast<std::ptrdiff_t>(begin),
                                 candidate.requests.begin() + static_cast<std::ptrdiff_t>(end));
        take(candidate);
        end = begin;
      }
    }
  }

  void simplify(std::size_t number) {
    if (best_.requests[number].what == What::writeChart) {
      dropLines(number);
      shortenLines(number);
    } else if (best_.requests[number].what != What::makeNavigator) {
      shortenText(number);
    }
    for (std::size_t i = 0; i < best_.requests[number].numbers.size(); ++i) {
      simplifyNumber(number, i);
    }
  }

  bool takeFile(std::size_t number, const std::vector<std::string>& lines) {
    Dialogue candidate = best_;
    candidate.requests[number].file = joined(lines);
    return candidate.requests[number].file != best_.requests[number].file && take(candidate);
  }

  /// Drops runs of lines, each with a count before them made smaller, or else alone.
  void dropLines(std::size_t number) {
    for (std::size_t size :
         {std::size_t{16}, std::size_t{4}, std::size_t{3}, std::size_t{2}, std::size_t{1}}) {
      for (std::size_t end = linesOf(best_.requests[number].file).size(); end >= size; --end) {
        dropRun(number, end - size, end);
        end = std::min(end, linesOf(best_.requests[number].file).size() + 1);
      }
    }
  }

  void dropRun(std::size_t number, std::size_t begin, std::size_t end) {
    std::vector<std::string> lines = linesOf(best_.requests[number].file);
    if (end > lines.size()) return;
    const auto run = static_cast<std::int64_t>(end - begin);
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(begin),
                lines.begin() + static_cast<std::ptrdiff_t>(end));
    int counts = 0;
    for (std::size_t i = begin; i-- > 0 && counts < 6;) {
      if (!isCount(lines[i])) continue;
      ++counts;
      for (const std::int64_t less : {run, std::int64_t{1}}) {
        const std::int64_t count = std::strtoll(lines[i].c_str(), nullptr, 10) - less;
        if (count >= 0 && takeFile(number, with(lines, i, std::to_string(count) + "\n"))) return;
      }
    }
    takeFile(number, lines);
  }

  /// Empties lines of text, and puts 0 and -1 for numbers.
  void shortenLines(std::size_t number) {
    for (std::size_t i = 0; i < linesOf(best_.requests[number].file).size(); ++i) {
      std::vector<std::string> lines = linesOf(best_.requests[number].file);
      if (lines[i] != "\n") takeFile(number, with(lines, i, "\n"));
      for (std::size_t at = 0; at < lines[i].size(); ++at) {
        lines = linesOf(best_.requests[number].file);
        if (at < lines[i].size()) shortenWord(number, lines, i, at);
      }
    }
  }

  void shortenWord(std::size_t number, const std::vector<std::string>& lines, std::size_t i,
                   std::size_t at) {
    const std::string& line = lines[i];
    if (line[at] <= ' ' || (at > 0 && line[at - 1] > ' ')) return;
    const std::size_t end = std::min(line.find_first_of(" \n", at), line.size());
    const std::string word = line.substr(at, end - at);
    for (const char* simpler : {"0", "-1"}) {
      if (word == simpler || (word == "0" && *simpler == '-')) break;
      if (takeFile(number, with(lines, i, line.substr(0, at) + simpler + line.substr(end)))) break;
    }
  }

  static std::vector<std::string> with(std::vector<std::string> lines, std::size_t i,
                                       const std::string& line) {
    lines[i] = line;
    return lines;
  }

  void shortenText(std::size_t number) {
    const What what = best_.requests[number].what;
    if (what == What::removeChart || what == What::makeDirectory) return;
    for (std::size_t at = best_.requests[number].text.size(); at-- > 0;) {
      Dialogue candidate = best_;
      candidate.requests[number].text.erase(at, 1);
      take(candidate);
    }
  }

  void simplifyNumber(std::size_t number, std::size_t i) {
    for (const std::int64_t simpler : {0, 1}) {
      if (best_.requests[number].numbers[i] == simpler) return;
      Dialogue candidate = best_;
      candidate.requests[number].numbers[i] = simpler;
      if (take(candidate)) return;
    }
  }

  Dialogue best_;
  const Holds& holds_;
  bool isSmaller_ = false;
};

}  // namespace

Dialogue minimised(const Dialogue& dialogue, const Holds& holds) {
  return Minimiser(dialogue, holds).result();
}

Dialogue minimised(const Dialogue& dialogue, ChartFiles& files) {
  return minimised(
      dialogue, [&](const Dialogue& candidate) { return compare(candidate, files).has_value(); });
}

}  // namespace tavrel::reference
