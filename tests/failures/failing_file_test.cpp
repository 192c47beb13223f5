// What stands where a flowchart's file should, and is none, or can't be opened.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <climits>
#include <fstream>

#include "engine/FileBytes.h"
#include "tests/failures/FailingFileTest.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

class FailingFiles : public FailingFileTest {};

TEST_F(FailingFiles, Missing) { expectUnread(); }

TEST_F(FailingFiles, ADirectory) {
  fs::create_directory(file);
  expectUnread();
}

TEST_F(FailingFiles, AnEmptyFile) {
  writeFile(file, "");
  expectRead("");
  expectUnread();
}

TEST_F(FailingFiles, APipeThatNobodyWrites) {
  ASSERT_EQ(mkfifo(file.c_str(), 0666), 0);
  expectUnread();
}

TEST_F(FailingFiles, APipeWithAChartInIt) {
  ASSERT_EQ(mkfifo(file.c_str(), 0666), 0);
  const int pipe = open(file.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(write(pipe, chart().data(), chart().size()), static_cast<ssize_t>(chart().size()));
  expectUnread();
  close(pipe);
}

TEST_F(FailingFiles, ASocket) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  ASSERT_LT(file.native().size(), sizeof address.sun_path);
  file.native().copy(address.sun_path, file.native().size());
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  expectUnread();
  close(socket);
}

TEST_F(FailingFiles, ADevice) {
  for (const char* device : {"/dev/null", "/dev/zero", "/dev/full", "/dev/tty"}) {
    SCOPED_TRACE(device);
    fs::remove(file);
    fs::create_symlink(device, file);
    expectUnread();
  }
}

TEST_F(FailingFiles, ALinkToAFileIsThatFile) {
  writeFile(directory.path() / "elsewhere", chart());
  fs::create_symlink("elsewhere", file);
  expectRead(chart());
}

TEST_F(FailingFiles, ALinkToNothing) {
  fs::create_symlink("nowhere", file);
  expectUnread();
}

TEST_F(FailingFiles, ALinkToItself) {
  fs::create_symlink(file.filename(), file);
  expectUnread();
}

TEST_F(FailingFiles, AFileInTheDirectorysPlace) {
  writeFile(directory.path() / "file", chart());
  reference::TemporaryFiles nothing;
  Company company((directory.path() / "file").string(), nothing);
  EXPECT_EQ(company.ask(conversationAbout(opening)), "");
}

TEST_F(FailingFiles, ANameThatIsTooLong) {
  writeFile(file, chart());
  const std::string name = directory.path().string() + "/" + std::string(NAME_MAX + 1, 'n');
  expectUnreadIn(name);
  std::string path = directory.path().string();
  while (path.size() <= PATH_MAX) path += "/.";
  expectUnreadIn(path);
}

TEST_F(FailingFiles, ADirectoryWithANulByteInItsName) {
  writeFile(file, chart());
  using std::string_literals::operator""s;
  expectUnreadIn(directory.path().string() + "/\0"s);
  expectUnreadIn(directory.path().string() + "/\0/more"s);
  expectUnreadIn("\0"s);
}

// --- Rights -----------------------------------------------------------------------

/// Without the rights of root, who may read everything, until destroyed.
class WithoutRights {
 public:
  WithoutRights() {
    constexpr uid_t nobody = 65534;
    if (isRoot_ && seteuid(nobody) != 0) throw std::runtime_error("can't give up root's rights");
  }
  ~WithoutRights() {
    if (isRoot_ && seteuid(0) != 0) std::abort();
  }
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;

 private:
  const bool isRoot_ = geteuid() == 0;
};

class UnreadableFiles : public FailingFileTest {
 protected:
  UnreadableFiles() {
    writeFile(file, chart());
    for (const fs::path& each : {directory.path(), fs::path(plain.directory())}) {
      fs::permissions(each, fs::perms(0755));
    }
  }
  ~UnreadableFiles() override { fs::permissions(directory.path(), fs::perms(0755)); }

  void expectUnreadableUntilItIsAllowed() {
    {
      const WithoutRights without;
      ASSERT_EQ(open(file.c_str(), O_RDONLY), -1);
      ASSERT_EQ(errno, EACCES);
      expectUnreadIn(directory.path().string());
    }
    fs::permissions(directory.path(), fs::perms(0755));
    fs::permissions(file, fs::perms(0644));
    plain.write("Opening", chart());
    fs::permissions(plain.directory() + "/Opening.fv", fs::perms(0644));
    const WithoutRights without;
    Company company(directory.path().string(), plain);
    EXPECT_EQ(company.ask(conversationAbout(opening)), "");
  }
};

TEST_F(UnreadableFiles, AFileThatMayNotBeRead) {
  fs::permissions(file, fs::perms(0));
  expectUnreadableUntilItIsAllowed();
}

TEST_F(UnreadableFiles, ADirectoryThatMayNotBeEntered) {
  for (const char* name : {"RespNT", "Leben", "Forced"}) {
    fs::remove(plain.directory() + "/" + name + ".fv");
    fs::remove(directory.chart(name));
  }
  fs::permissions(directory.path(), fs::perms(0));
  expectUnreadableUntilItIsAllowed();
}

// --- Descriptors ------------------------------------------------------------------

/// No file can be opened until destroyed.
class WithoutDescriptors {
 public:
  WithoutDescriptors() {
    getrlimit(RLIMIT_NOFILE, &before_);
    const rlimit none = {0, before_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
  }
  ~WithoutDescriptors() { setrlimit(RLIMIT_NOFILE, &before_); }
  WithoutDescriptors(const WithoutDescriptors&) = delete;
  WithoutDescriptors& operator=(const WithoutDescriptors&) = delete;

 private:
  rlimit before_;
};

TEST_F(FailingFiles, NoDescriptorLeft) {
  writeFile(file, chart());
  Company company(directory.path().string(), plain);
  // A sanitizer looks at an object through a pipe, the first time.
  EXPECT_EQ(company.ask({startRequest(respNT, "yn")}), "");
  EXPECT_EQ(company.askInTrouble(startRequest(opening, "yn"), [] { return WithoutDescriptors(); }),
            "");
  plain.write("Opening", chart());
  EXPECT_EQ(company.ask(conversationAbout(opening)), "");
}

// --- Bytes ------------------------------------------------------------------------

TEST(FileBytes, AnEmptyFileHasNoBytesAndANulBehindThem) {
  const TemporaryDirectory directory;
  const std::string path = (directory.path() / "empty").string();
  std::ofstream{path};
  const auto bytes = engine::FileBytes::read(path);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(bytes->view().size(), 0U);
  EXPECT_EQ(*bytes->view().data(), '\0');
}

TEST(FileBytes, AFileThatReportsNoSizeIsReadToItsEnd) {
  const std::string path = "/proc/self/cmdline";  // a regular file of "0 bytes"
  const auto bytes = engine::FileBytes::read(path);
  ASSERT_TRUE(bytes);
  EXPECT_GT(bytes->view().size(), 1U);
  EXPECT_EQ(bytes->view(), readFile(path));
  EXPECT_EQ(bytes->view().data()[bytes->view().size()], '\0');
}

TEST(FileBytes, APathWithANulByteNamesNoFile) {
  const TemporaryDirectory directory;
  const std::string path = (directory.path() / "file").string();
  std::ofstream{path} << "text";
  EXPECT_TRUE(engine::FileBytes::read(path));
  EXPECT_FALSE(engine::FileBytes::read(path + '\0' + "more"));
}

}  // namespace
}  // namespace tavrel
