// The examples of docs/bid.md, with the charts that come with the command.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "GoldenCase.h"
#include "tests/support/Files.h"

namespace tavrel {
namespace {

// What a shell gets for a command line that begins with "tavrel".
std::string outputOf(const std::string& command) {
  const std::string line = "LC_ALL=C.UTF-8 '" TAVREL_PROGRAM "'" + command.substr(6);
  FILE* const pipe = popen(line.c_str(), "r");
  std::string output;
  std::array<char, 4096> some;
  while (const std::size_t size = std::fread(some.data(), 1, some.size(), pipe)) {
    output.append(some.data(), size);
  }
  EXPECT_EQ(pclose(pipe), 0) << line;
  return output;
}

TEST(BidDocument, PrintsWhatTheProgramPrints) {
  const std::string document = readFile(TAVREL_BID_DOCUMENT);
  const std::string fence = "```console\n$ ";
  int count = 0;
  for (std::size_t at = 0; (at = document.find(fence, at)) != std::string::npos; ++count) {
    at += fence.size();
    const std::size_t end = document.find("```", at);
    const std::size_t lineEnd = document.find('\n', at);
    EXPECT_EQ(outputOf(document.substr(at, lineEnd - at)),
              document.substr(lineEnd + 1, end - lineEnd - 1));
    at = end;
  }
  EXPECT_EQ(count, 2);
}

}  // namespace
}  // namespace tavrel
