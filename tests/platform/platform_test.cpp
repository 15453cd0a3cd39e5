// The platform seam: the one in force, the headless platform, and the POSIX parts
// (the desktop's opener, the logon name, the tick count).
#include "vglobal/platform.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/scripted_platform.h"

namespace {

namespace fs = std::filesystem;
using vglobal::GetPlatform;
using vglobal::HeadlessPlatform;

TEST(PlatformSeam, HeadlessUnlessAnotherIsInstalled) {
  vglobal::Platform& standard = GetPlatform();
  EXPECT_NE(dynamic_cast<HeadlessPlatform*>(&standard), nullptr);
  {
    vglobal::testing::ScriptedPlatform scripted;  // installs itself
    EXPECT_EQ(&GetPlatform(), &scripted);
  }
  EXPECT_EQ(&GetPlatform(), &standard);
}

TEST(HeadlessPlatform, MessageBoxWritesCaptionAndTextToStandardErrorAndAnswersOk) {
  HeadlessPlatform headless;
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(headless.MessageBox(nullptr, L"Débit 5 µL", L"Save", MB_YESNO | MB_ICONQUESTION), IDOK);
  EXPECT_EQ(headless.MessageBox(nullptr, L"No caption", nullptr, MB_OK), IDOK);
  const std::string written = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(written, "Save: Débit 5 µL\n" + headless.ApplicationName().ToUtf8() + ": No caption\n");
  EXPECT_EQ(headless.ApplicationName(), L"platform_tests");
}

TEST(HeadlessPlatform, DialogsAnswerCancel) {
  HeadlessPlatform headless;
  CDialog dialog(5806u);
  EXPECT_EQ(headless.RunModal(dialog), IDCANCEL);
  EXPECT_FALSE(dialog.IsOpen());
}

TEST(HeadlessPlatform, HasNoStatusBarAndShowsStatusTextNowhere) {
  HeadlessPlatform headless;
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(headless.SetStatusBarText(L"Not able to open manual.pdf"));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(PosixPlatform, LogonNameIsTheEffectiveUsersName) {
  const passwd* entry = getpwuid(geteuid());
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(HeadlessPlatform().LogonName().ToUtf8(), entry->pw_name);
}

TEST(PosixPlatform, TickCountDoesNotGoBackwards) {
  HeadlessPlatform headless;
  const DWORD first = headless.TickCount();
  const DWORD second = headless.TickCount();
  EXPECT_LT(static_cast<DWORD>(second - first), 0x80000000u);  // forwards, across a wrap too
}

// A folder on PATH holding a stand-in for the desktop's opener.
class OpenerOnPath : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("vglobal-opener-" + std::to_string(getpid()));
    fs::create_directories(folder_);
    if (const char* path = std::getenv("PATH")) savedPath_ = path;
    setenv("PATH", folder_.c_str(), 1);
  }
  void TearDown() override {
    setenv("PATH", savedPath_.c_str(), 1);
    fs::remove_all(folder_);
  }
  // An opener that reports its arguments, session and process ids into a pipe.
  fs::path InstallReportingOpener() {
    const fs::path pipe = folder_ / "report";
    EXPECT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::ofstream script(folder_ / "xdg-open");
    // Shell built-ins only: PATH holds nothing else. Field 6 of stat is the session.
    script << "#!/bin/sh\n{ echo \"$#\"; printf '%s\\n' \"$1\"; read -r stat < /proc/$$/stat; "
              "set -- $stat; echo \"$6\"; echo $$; } > '"
           << pipe.string() << "'\n";
    script.close();
    fs::permissions(folder_ / "xdg-open", fs::perms::owner_all);
    return pipe;
  }
  static std::vector<std::string> ReadLines(const fs::path& pipe) {
    std::ifstream in(pipe);  // waits for the opener to write
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }

  fs::path folder_;
  std::string savedPath_;
};

TEST_F(OpenerOnPath, TargetReachesTheOpenerAsOneArgumentInANewSession) {
  const fs::path pipe = InstallReportingOpener();
  HeadlessPlatform headless;
  const std::wstring target = L"/data/a file; $(touch x) 'q'.raw";
  ASSERT_TRUE(headless.OpenWithDesktop(target));
  std::vector<std::string> lines = ReadLines(pipe);
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "1");
  EXPECT_EQ(lines[1], CString(target).ToUtf8());
  EXPECT_EQ(lines[2], lines[3]);  // session id = its own process id
  EXPECT_FALSE(fs::exists(folder_ / "x"));
}

TEST_F(OpenerOnPath, TargetThatLooksLikeAnOptionIsPassedAsAPath) {
  const fs::path pipe = InstallReportingOpener();
  ASSERT_TRUE(HeadlessPlatform().OpenWithDesktop(L"--help"));
  std::vector<std::string> lines = ReadLines(pipe);
  ASSERT_GE(lines.size(), 2u);
  EXPECT_EQ(lines[1], "./--help");
  EXPECT_FALSE(HeadlessPlatform().OpenWithDesktop(L""));
}

TEST_F(OpenerOnPath, HelpViewerIsAvailableOnlyWithAnExecutableOpener) {
  HeadlessPlatform headless;
  EXPECT_FALSE(headless.HelpViewerAvailable());
  EXPECT_FALSE(headless.OpenWithDesktop(L"/tmp/file"));
  std::ofstream(folder_ / "xdg-open") << "#!/bin/sh\n";
  fs::permissions(folder_ / "xdg-open", fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_FALSE(headless.HelpViewerAvailable());
  fs::permissions(folder_ / "xdg-open", fs::perms::owner_all);
  EXPECT_TRUE(headless.HelpViewerAvailable());
}

}  // namespace
