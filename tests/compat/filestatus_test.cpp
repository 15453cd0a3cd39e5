// File status as the file-open checks compare it: every time to the nanosecond,
// size, attributes and the full name.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "vglobal/compat/filestatus.h"

namespace {

class FileStatus : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = std::filesystem::temp_directory_path() / ("vglobal-status-" + std::to_string(getpid()));
    std::filesystem::create_directories(dir_);
    file_ = dir_ / "sample.raw";
    std::ofstream(file_) << "12345";
  }
  void TearDown() override {
    std::error_code ignored;
    std::filesystem::permissions(file_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(dir_, ignored);
  }
  std::filesystem::path dir_, file_;
};

TEST_F(FileStatus, ReportsSizeFullNameAndAttributes) {
  CFileStatus status;
  ASSERT_TRUE(CFile::GetStatus(file_.wstring().c_str(), status));
  EXPECT_EQ(status.m_size, 5u);
  EXPECT_EQ(std::wstring(status.m_szFullName), file_.wstring());
  EXPECT_EQ(status.m_attribute & CFILE_DIRECTORY, 0);
  EXPECT_EQ(status.m_attribute & CFILE_READONLY, 0);
  chmod(file_.c_str(), 0444);
  ASSERT_TRUE(CFile::GetStatus(file_.wstring().c_str(), status));
  EXPECT_NE(status.m_attribute & CFILE_READONLY, 0);
  ASSERT_TRUE(CFile::GetStatus(dir_.wstring().c_str(), status));
  EXPECT_NE(status.m_attribute & CFILE_DIRECTORY, 0);
}

TEST_F(FileStatus, TimesKeepNanosecondsSoAnyChangeShows) {
  CFileStatus before, after;
  ASSERT_TRUE(CFile::GetStatus(file_.wstring().c_str(), before));
  struct timespec times[2] = {{1700000000, 123456789}, {1700000000, 987654321}};
  ASSERT_EQ(utimensat(AT_FDCWD, file_.c_str(), times, 0), 0);
  ASSERT_TRUE(CFile::GetStatus(file_.wstring().c_str(), after));
  EXPECT_EQ(after.m_atime.GetNanoseconds(), 1700000000123456789LL);
  EXPECT_EQ(after.m_mtime.GetNanoseconds(), 1700000000987654321LL);
  EXPECT_EQ(after.m_mtime.GetTime(), 1700000000);
  EXPECT_FALSE(after.m_mtime == before.m_mtime);
}

TEST_F(FileStatus, BadPathsFailAndLeaveTheStatusAlone) {
  CFileStatus status;
  status.m_size = 77;
  EXPECT_FALSE(CFile::GetStatus(nullptr, status));
  EXPECT_FALSE(CFile::GetStatus(L"", status));
  EXPECT_FALSE(CFile::GetStatus((dir_ / "missing.raw").wstring().c_str(), status));
  // A name longer than the status can hold fails instead of being cut.
  std::filesystem::path deep = dir_;
  while (deep.native().size() < 300) deep /= "abcdefghijklmnopqrstuvwxyz";
  std::filesystem::create_directories(deep);
  EXPECT_FALSE(CFile::GetStatus(deep.wstring().c_str(), status));
  EXPECT_EQ(status.m_size, 77u);
}

TEST(Time, SecondsRoundTowardMinusInfinityBeforeTheEpoch) {
  EXPECT_EQ(CTime::FromNanoseconds(-1).GetTime(), -1);
  EXPECT_EQ(CTime::FromNanoseconds(-1000000000).GetTime(), -1);
  EXPECT_EQ(CTime::FromNanoseconds(1999999999).GetTime(), 1);
}

}  // namespace
