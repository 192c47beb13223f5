// Prints the transcript of conversations.
//
//     transcript CHARTS CONVERSATION...
//
// Status 1, after words on standard error, if an answer isn't the one in its file; 2 if
// a file can't be played. Does without GoogleTest and without streams, so that it can be
// built for a word size and a sanitizer that Debian has no such libraries for.

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "tests/builds/Transcript.h"
#include "tests/support/ExceptionText.h"

namespace {

int print(const tavrel::Transcript& transcript) {
  const std::string& text = transcript.text;
  const bool isPrinted =
      std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  std::fputs(transcript.differences.c_str(), stderr);
  return isPrinted && transcript.differences.empty() ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fputs("usage: transcript CHARTS CONVERSATION...\n", stderr);
    return 2;
  }
  try {
    return print(tavrel::transcriptOf({arguments + 2, arguments + count}, arguments[1]));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "transcript: %s\n", tavrel::textOf(error).c_str());
    return 2;
  }
}
