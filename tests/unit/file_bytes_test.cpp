// Reading a file in one go.

#include "engine/FileBytes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/TemporaryDirectory.h"

namespace tavrel {
namespace {

using engine::FileBytes;

std::string streamed(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(FileBytes, AnEmptyFileHasNoBytesAndANulBehindThem) {
  const TemporaryDirectory directory;
  const std::string path = (directory.path() / "empty").string();
  std::ofstream{path};
  const auto bytes = FileBytes::read(path);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(bytes->view().size(), 0U);
  EXPECT_EQ(*bytes->view().data(), '\0');
}

TEST(FileBytes, AFileThatReportsNoSizeIsReadToItsEnd) {
  const std::string path = "/proc/self/cmdline";  // a regular file of "0 bytes"
  const auto bytes = FileBytes::read(path);
  ASSERT_TRUE(bytes);
  EXPECT_GT(bytes->view().size(), 1U);
  EXPECT_EQ(bytes->view(), streamed(path));
  EXPECT_EQ(bytes->view().data()[bytes->view().size()], '\0');
}

TEST(FileBytes, APathWithANulByteNamesNoFile) {
  const TemporaryDirectory directory;
  const std::string path = (directory.path() / "file").string();
  std::ofstream{path} << "text";
  EXPECT_TRUE(FileBytes::read(path));
  EXPECT_FALSE(FileBytes::read(path + '\0' + "more"));
}

}  // namespace
}  // namespace tavrel
