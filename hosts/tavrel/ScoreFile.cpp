#include "hosts/tavrel/ScoreFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>
#include <variant>

#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/OutputFile.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

// A path that doesn't begin at the root counts as none.
fs::path folderIn(const char* variable) {
  const char* value = std::getenv(variable);
  const fs::path folder = value == nullptr ? "" : value;
  return folder.is_absolute() ? folder : fs::path();
}

fs::path stateDirectory() {
  if (fs::path folder = folderIn("XDG_STATE_HOME"); !folder.empty()) return folder;
  if (const fs::path home = folderIn("HOME"); !home.empty()) return home / ".local" / "state";
  throw Failure("neither XDG_STATE_HOME nor HOME names a folder to keep the score of the quiz in");
}

[[noreturn]] void fail(const fs::path& path, const std::string& why) {
  throw Failure("cannot keep the score of the quiz in '" + path.string() + "': " + why);
}

// Held by one program at a time, as long as it lives.
class Lock {
 public:
  explicit Lock(const fs::path& path)
      : file_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    if (file_ < 0) fail(path, std::strerror(errno));
    while (flock(file_, LOCK_EX) != 0) {
      if (errno != EINTR) fail(path, std::strerror(errno));
    }
  }
  ~Lock() { close(file_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  int file_;
};

}  // namespace

ScoreFile::ScoreFile() : path_(stateDirectory() / "tavrel" / "quiz-score") {}

hands::Score ScoreFile::read() const {
  std::error_code unseen;
  if (!fs::exists(path_, unseen) && !unseen) return {};
  if (!isFileOrNothing(path_)) fail(path_, "it is no file");
  auto score = hands::Score::read(readInput(path_).bytes());
  if (const auto* why = std::get_if<std::string>(&score)) {
    throw Failure("'" + path_.string() + "' is no score of the quiz: " + *why +
                  "; move it away, and the quiz begins a new one");
  }
  return std::get<hands::Score>(std::move(score));
}

hands::Score ScoreFile::change(const std::function<void(hands::Score&)>& change) const {
  std::error_code failed;
  fs::create_directories(path_.parent_path(), failed);
  if (failed) fail(path_, failed.message());
  const Lock lock(path_.string() + ".lock");
  hands::Score score = read();
  change(score);
  writeOutput(path_, score.bytes());
  return score;
}

}  // namespace tavrel
