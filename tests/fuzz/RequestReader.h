// Requests from bytes: one byte says what is requested, and those behind it what it is
// about, where that doesn't follow already.

#ifndef TAVREL_TESTS_FUZZ_REQUESTREADER_H
#define TAVREL_TESTS_FUZZ_REQUESTREADER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/fuzz/Bytes.h"
#include "tests/fuzz/ChartPen.h"
#include "tests/reference/Dialogue.h"

namespace tavrel::fuzz {

class RequestReader {
 public:
  /// `charts` is the dialogue that the requests are for: its first requests give the
  /// flowcharts of `names` their files. REQUIRES: all three outlive this object.
  RequestReader(Bytes& bytes, const reference::Dialogue& charts, const Names& names,
                std::int64_t firstChart)
      : bytes_(bytes), charts_(charts), names_(names), firstChart_(firstChart) {}

  reference::Request read();

 private:
  using What = reference::What;

  reference::Request readAbout(What what, int choice);
  void readNumbers(reference::Request& request, int choice);
  reference::Request chartAnew(int choice) const;
  std::int64_t index(int choice) const;
  std::array<std::int64_t, 4> rectangle();
  std::string name();
  std::string answers();

  Bytes& bytes_;
  const reference::Dialogue& charts_;
  const Names& names_;
  std::int64_t firstChart_;
};

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_REQUESTREADER_H
