// Files whose reading goes wrong, or goes on in an unusual way.

#include <cerrno>
#include <cstddef>
#include <fstream>

#include "tests/failures/FailingFileTest.h"
#include "tests/failures/TroubledReads.h"
#include "tests/reference/State.h"

namespace tavrel {
namespace {

class FailingReads : public FailingFileTest {
 protected:
  /// A file of these bytes, read in this trouble, is what the reference finds in a file of
  /// the bytes `expected`; so is the next one, read without trouble.
  void expectAsIf(const std::string& expected, const std::string& bytes, const Trouble& trouble) {
    plain.write("Opening", expected);
    Company company(directory.path().string(), plain);
    const auto begin = [&] {
      writeFile(file, bytes);
      return TroubledReads(trouble);
    };
    EXPECT_EQ(company.askInTrouble(startRequest(opening, "ynyn"), begin), "");
    writeFile(file, expected);  // a file of one cell is read again
    EXPECT_EQ(company.ask(conversationAbout(opening)), "");
  }

  /// Whether the engine holds what the reference finds in a file of these bytes.
  bool isReadOf(const CTavrel& engine, const std::string& bytes) {
    plain.write("Opening", bytes);
    reference::Behaviours ignored;
    reference::PlainEngine expected(plain.directory() + "/", plain, ignored);
    expected.setStartLocation(opening);
    return !differenceAnywhere(expected, engine);
  }

  /// As much as stands before `after` in each of the charts, for every `stride`-th `after`.
  void expectCutWhereReadsFail(const Trouble& trouble, std::size_t stride) {
    for (const std::string& whole : smallCharts()) {
      for (std::size_t after = 0; after <= whole.size(); after += stride) {
        SCOPED_TRACE(whole.substr(0, after));
        Trouble there = trouble;
        there.after = after;
        expectAsIf(whole.substr(0, after), whole, there);
        ASSERT_FALSE(HasFailure());
      }
    }
  }
};

TEST_F(FailingReads, TheTroubleIsMet) {
  writeFile(file, chart());
  Trouble trouble;
  trouble.most = 1;
  const TroubledReads reads(trouble);
  CTavrel engine(directory.prefix());
  engine.mSetStartLocation(opening);
  EXPECT_GE(reads.count(), static_cast<long>(chart().size()));
}

TEST_F(FailingReads, AnErrorIsTheEndOfTheFile) {
  Trouble trouble;
  trouble.error = EIO;
  expectCutWhereReadsFail(trouble, 2);
}

TEST_F(FailingReads, AnErrorThatIsOverAtTheNextReadIsTheEndOfTheFileToo) {
  Trouble trouble;
  trouble.error = EIO;
  trouble.failing = 1;
  expectCutWhereReadsFail(trouble, 5);
}

TEST_F(FailingReads, AnInterruptionByASignalIsPassedOver) {
  for (std::size_t after = 0; after <= chart().size(); after += 5) {
    writeFile(file, chart());
    CTavrel engine(directory.prefix());
    Trouble trouble;
    trouble.error = EINTR;
    trouble.failing = 1;
    trouble.after = after;
    {
      const TroubledReads reads(trouble);
      engine.mSetStartLocation(opening);
    }
    EXPECT_TRUE(isReadOf(engine, chart())) << after;
  }
}

TEST_F(FailingReads, AFileThatEndsEarlierThanItsSizeEndsThere) {
  Trouble trouble;
  trouble.error = 0;
  expectCutWhereReadsFail(trouble, 5);
}

TEST_F(FailingReads, ReadsMayBringAFewBytesAtATime) {
  for (const std::string& whole : smallCharts()) {
    for (const std::size_t most : {1U, 2U, 3U, 7U, 64U}) {
      Trouble trouble;
      trouble.most = most;
      expectAsIf(whole, whole, trouble);
    }
  }
}

TEST_F(FailingReads, AFileMayShrinkBeforeItIsRead) {
  for (const std::string& whole : smallCharts()) {
    for (std::size_t size = 0; size < whole.size(); size += 7) {
      Trouble trouble;
      trouble.atFirst = [&] { std::filesystem::resize_file(file, size); };
      expectAsIf(whole.substr(0, size), whole, trouble);
    }
  }
}

TEST_F(FailingReads, AFileMayGrowBeforeItIsRead) {
  for (const std::string& whole : smallCharts()) {
    for (std::size_t size = 0; size < whole.size(); size += 7) {
      Trouble trouble;
      trouble.most = 50;
      trouble.atFirst = [&] {
        std::ofstream(file, std::ios::binary | std::ios::app) << whole.substr(size);
      };
      expectAsIf(whole, whole.substr(0, size), trouble);
    }
  }
}

}  // namespace
}  // namespace tavrel
