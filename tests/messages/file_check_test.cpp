// Whether a file changed since its baseline, judged against real files on disk.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "vglobal/messages/file_check.h"

namespace {

class FileCheck : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    dir_ = std::filesystem::temp_directory_path() /
           ("vglobal-filecheck-" + std::to_string(getpid()) + "-" + test);
    std::filesystem::create_directories(dir_);
    file_ = dir_ / "sample.raw";
    std::ofstream(file_) << "12345";
    // Known times, so that every later change of them is a real one.
    SetTimes({1700000000, 100}, {1700000000, 200});
  }
  void TearDown() override {
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
  }
  void SetTimes(struct timespec access, struct timespec modification) {
    const struct timespec times[2] = {access, modification};
    ASSERT_EQ(utimensat(AT_FDCWD, file_.c_str(), times, 0), 0);
  }
  std::wstring Path() const { return file_.wstring(); }

  std::filesystem::path dir_, file_;
};

TEST_F(FileCheck, OnlyAnUpdateTakesTheBaselineAndResetForgetsIt) {
  CFileCheck check;
  EXPECT_EQ(check.Changed(Path().c_str(), 0), 1);
  EXPECT_EQ(check.Changed(Path().c_str(), 0), 1);
  EXPECT_EQ(check.Valid(), 0);
  EXPECT_EQ(check.Changed(Path().c_str(), 1), 1);
  EXPECT_NE(check.Valid(), 0);
  EXPECT_EQ(check.Changed(Path().c_str(), 0), 0);

  check.Reset();
  EXPECT_EQ(check.Valid(), 0);
  EXPECT_EQ(check.Changed(Path().c_str(), 0), 1);
}

TEST_F(FileCheck, AnyTimeSizeOrAttributeChangeCountsAsChanged) {
  CFileCheck check;
  check.Changed(Path().c_str(), 1);
  // Only read: the access time moved, on purpose a change.
  SetTimes({1700000000, 101}, {0, UTIME_OMIT});
  EXPECT_EQ(check.Changed(Path().c_str(), 1), 1);
  EXPECT_EQ(check.Changed(Path().c_str(), 1), 0);

  SetTimes({1700000000, 100}, {1700000000, 201});
  // Without an update the baseline stays, so the change shows again.
  EXPECT_EQ(check.Changed(Path().c_str(), 0), 1);
  EXPECT_EQ(check.Changed(Path().c_str(), 1), 1);
  EXPECT_EQ(check.Changed(Path().c_str(), 0), 0);

  // A longer file with its old times put back: the size alone tells.
  std::ofstream(file_, std::ios::app) << "6";
  SetTimes({1700000000, 100}, {1700000000, 201});
  EXPECT_EQ(check.Changed(Path().c_str(), 1), 1);

  // Made read-only, times kept: the attribute byte alone tells.
  ASSERT_EQ(chmod(file_.c_str(), 0444), 0);
  EXPECT_EQ(check.Changed(Path().c_str(), 1), 1);
  EXPECT_EQ(check.Changed(Path().c_str(), 1), 0);
}

// On Linux a name in other letter case is another file, so the same file is given two
// names that differ only in case (two hard links to one inode: every time, the size and
// the attributes are the same, only the full names differ). Both links exist before the
// baseline is taken, since adding a link moves the file's change time.
TEST_F(FileCheck, FullNameIsComparedWithoutRegardToCase) {
  const std::filesystem::path upper = dir_ / "SAMPLE.RAW";
  const std::filesystem::path other = dir_ / "sample2.raw";
  std::filesystem::create_hard_link(file_, upper);
  std::filesystem::create_hard_link(file_, other);

  CFileCheck check;
  check.Changed(Path().c_str(), 1);
  EXPECT_EQ(check.Changed(upper.wstring().c_str(), 0), 0);
  EXPECT_EQ(check.Changed(other.wstring().c_str(), 0), 1);
}

TEST_F(FileCheck, FileThatCannotBeExaminedCountsAsChanged) {
  CFileCheck check;
  check.Changed(Path().c_str(), 1);
  EXPECT_EQ(check.Changed(nullptr, 0), 1);
  std::filesystem::remove(file_);
  EXPECT_EQ(check.Changed(Path().c_str(), 1), 1);
  // Its baseline is now the all-zero status of a missing file, which a missing file
  // matches and a file that is back again does not.
  EXPECT_EQ(check.Changed(Path().c_str(), 0), 0);
  std::ofstream(file_) << "12345";
  EXPECT_EQ(check.Changed(Path().c_str(), 0), 1);
}

}  // namespace
