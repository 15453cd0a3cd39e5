// Starting programs (a real helper records how it was started), process handles,
// manuals and installed versions.
#include "vglobal/util/programs.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "program_fixture.h"
#include "support/scripted_platform.h"
#include "vglobal/settings.h"

namespace {

namespace fs = std::filesystem;
using vglobal::testing::ScriptedPlatform;
using Strings = std::vector<std::string>;

constexpr unsigned kQuanBrowser = 5207;  // "arvenis-quan-browser"

class InvokeAppTest : public vglobal::testing::ProgramFixture {};

TEST_F(InvokeAppTest, ByIdQuotesEveryArgumentTextThatDoesNotStartWithAQuote) {
  InstallProgram("arvenis-quan-browser");
  const std::pair<const wchar_t*, Strings> cases[] = {
      {L"a b", {"a b"}},
      {nullptr, {}},
      {L"", {}},
      {L"\"first\" second", {"first", "second"}},
      {L"ends in a quote\"", {"ends in a quote\""}},
      {L"C:\\data\\run 1.raw", {"C:\\data\\run 1.raw"}},
      {L"Débit µL", {"Débit µL"}},
  };
  for (const auto& [arguments, after] : cases) {
    void* process = reinterpret_cast<void*>(1);
    ASSERT_EQ(InvokeApp(kQuanBrowser, 0, &process, arguments), 1);
    Strings expected{"arvenis-quan-browser"};
    expected.insert(expected.end(), after.begin(), after.end());
    EXPECT_EQ(Collect(process).args, expected);
  }
}

TEST_F(InvokeAppTest, ProgramStartsInANewSessionInTheCallersFolderWithACleanSlate) {
  InstallProgram("arvenis-quan-browser");
  fs::create_directories(root_ / "work");
  const fs::path savedFolder = fs::current_path();
  fs::current_path(root_ / "work");
  // What this program has must not reach the started one: a descriptor without
  // close-on-exec, an ignored and a blocked signal, its own "minimised" request.
  const int leaked = open("/dev/null", O_RDONLY);
  struct sigaction ignore {
  }, savedPipe{};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &ignore, &savedPipe);
  sigset_t usr1, savedMask;
  sigemptyset(&usr1);
  sigaddset(&usr1, SIGUSR1);
  pthread_sigmask(SIG_BLOCK, &usr1, &savedMask);
  setenv("ARVENIS_START_MINIMIZED", "1", 1);

  void* process = nullptr;
  EXPECT_EQ(InvokeApp(kQuanBrowser, 0, &process, nullptr), 1);
  const vglobal::testing::StartedProgram normal = Collect(process);
  EXPECT_EQ(InvokeApp(kQuanBrowser, 1, &process, nullptr), 1);
  const vglobal::testing::StartedProgram minimized = Collect(process);

  unsetenv("ARVENIS_START_MINIMIZED");
  pthread_sigmask(SIG_SETMASK, &savedMask, nullptr);
  sigaction(SIGPIPE, &savedPipe, nullptr);
  close(leaked);
  fs::current_path(savedFolder);

  EXPECT_EQ(normal.Value("cwd"), (root_ / "work").string());
  EXPECT_EQ(normal.Value("sid"), normal.Value("pid"));  // leads a session of its own
  EXPECT_EQ(normal.All("fd"), Strings{});
  EXPECT_EQ(normal.Value("sigpipe"), "default");
  EXPECT_EQ(normal.Value("usr1"), "open");
  EXPECT_EQ(normal.All("minimized"), Strings{});
  EXPECT_EQ(minimized.All("minimized"), Strings{"1"});
}

TEST_F(InvokeAppTest, FailedStartIsShownWithTheCommandLineAndGivesZero) {
  ScriptedPlatform platform;
  void* process = reinterpret_cast<void*>(1);
  EXPECT_EQ(InvokeApp(kQuanBrowser, 0, &process, L"x y"), 0);
  EXPECT_EQ(process, nullptr);
  // Found, but not executable, or not a program at all: known before InvokeApp returns.
  const fs::path program = bin_ / "arvenis-quan-browser";
  std::ofstream(program) << "not a program\n";
  EXPECT_EQ(InvokeApp(kQuanBrowser, 0, nullptr, nullptr), 0);
  fs::permissions(program, fs::perms::owner_all);
  EXPECT_EQ(InvokeApp(kQuanBrowser, 0, nullptr, nullptr), 0);
  EXPECT_EQ(InvokeApp(64999u, 0, nullptr, L"x"), 0);  // no such string: no message

  ASSERT_EQ(platform.messages.size(), 3u);
  EXPECT_EQ(platform.messages[0].text, L"Cannot invoke application arvenis-quan-browser \"x y\".");
  EXPECT_FALSE(platform.messages[0].hasCaption);
  EXPECT_EQ(platform.messages[0].style, MB_OK);
  EXPECT_EQ(platform.messages[2].text, L"Cannot invoke application arvenis-quan-browser .");
}

TEST_F(InvokeAppTest, ProfileProgramLivesInTheFolderOfTheMachineStore) {
  vglobal::UseMemorySettingsStores stores;
  ScriptedPlatform platform;
  InstallProgram("nist ms/NistMS.exe");
  const std::wstring folder = (bin_ / "nist ms").wstring() + L"/";
  CVRegKey profile(HKEY_LOCAL_MACHINE, L"Software\\Ostrel\\System Profile\\NISTMS", 1, 0);
  ASSERT_TRUE(profile.WriteStr(L"Path32", folder.c_str()));
  void* process = nullptr;
  ASSERT_EQ(InvokeApp(10005u, 0, &process, L"spectrum 1"), 1);
  EXPECT_EQ(Collect(process).args,
            (Strings{CString(folder).ToUtf8() + "NistMS.exe", "spectrum 1"}));

  ASSERT_TRUE(profile.DeleteValue(L"Path32"));
  if (!fs::exists("/opt/nistms/NistMS.exe")) {  // the default folder, unless installed here
    EXPECT_EQ(InvokeApp(10005u, 0, nullptr, nullptr), 0);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, L"Cannot invoke application /opt/nistms/NistMS.exe .");
  }
}

TEST_F(InvokeAppTest, CommandLineFormResolvesSpacedPathsAndReturnsTheErrorText) {
  ScriptedPlatform platform;
  InstallProgram("my progs/run");
  const CString command = (bin_ / "my progs" / "run").wstring();
  void* process = nullptr;
  EXPECT_EQ(InvokeApp(command, 0, &process, L"a b \"c d\""), L"");
  EXPECT_EQ(Collect(process).args, (Strings{command.ToUtf8(), "a", "b", "c d"}));

  InstallProgram("my");  // the shortest prefix naming a program wins
  EXPECT_EQ(InvokeApp(command, 0, &process, L"x"), L"");
  EXPECT_EQ(Collect(process).args, (Strings{(bin_ / "my").string(), "progs/run", "x"}));

  EXPECT_EQ(InvokeApp(CString(L"/no/such/program"), 0, &process, L"\"q\""),
            L"Cannot invoke application /no/such/program \"q\".");
  EXPECT_EQ(process, nullptr);
  EXPECT_TRUE(platform.messages.empty());  // the caller reports it
}

TEST_F(InvokeAppTest, HandleTellsTheExitCodeAndNeverLeavesAZombie) {
  InstallProgram("arvenis-quan-browser");
  setenv("RECORD_ARGS_EXIT", "7", 1);
  void* waited = nullptr;
  void* unwaited = nullptr;
  ASSERT_EQ(InvokeApp(kQuanBrowser, 0, &waited, nullptr), 1);
  ASSERT_EQ(InvokeApp(kQuanBrowser, 0, &unwaited, nullptr), 1);
  unsetenv("RECORD_ARGS_EXIT");

  int code = -1;
  EXPECT_EQ(vglobal::WaitForProcess(waited, true, &code), vglobal::ProcessWait::Exited);
  EXPECT_EQ(code, 7);
  code = -1;
  EXPECT_EQ(vglobal::WaitForProcess(waited, false, &code), vglobal::ProcessWait::Exited);
  EXPECT_EQ(code, 7);
  vglobal::CloseProcess(waited);
  EXPECT_EQ(vglobal::ProcessId(waited), 0);  // a closed handle is told apart, not used
  EXPECT_EQ(vglobal::WaitForProcess(&code, true, &code), vglobal::ProcessWait::Unknown);
  vglobal::CloseProcess(waited);

  // Ended, never waited for: closing the handle collects it.
  const pid_t pid = vglobal::ProcessId(unwaited);
  siginfo_t info{};
  ASSERT_EQ(waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOWAIT), 0);
  vglobal::CloseProcess(unwaited);
  EXPECT_EQ(waitpid(pid, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(InvokeAppTest, MissingManualGoesToTheStatusBarOnlyAndAPresentOneToTheOpener) {
  ScriptedPlatform platform;
  const std::wstring folder = root_.wstring() + L"/";
  const std::wstring file = folder + L"arvenis-quan-browser.pdf";  // string 5207's text
  OpenPDFManual(CString(folder), kQuanBrowser);
  EXPECT_EQ(platform.statusTexts, std::vector<std::wstring>{L"Not able to open " + file});
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_TRUE(platform.opened.empty());

  std::ofstream(root_ / "arvenis-quan-browser.pdf") << "%PDF-1.4\n";
  OpenPDFManual(CString(folder), kQuanBrowser);
  EXPECT_EQ(platform.opened, std::vector<std::wstring>{file});
  EXPECT_EQ(platform.statusTexts.size(), 1u);
}

TEST(InstalledVersions, ReadsTheItemOfTheApplicationFromTheMachineStore) {
  vglobal::UseMemorySettingsStores stores;
  CVRegKey app(HKEY_LOCAL_MACHINE,
               L"Software\\Ostrel\\Installed Version Info\\arvenis-quan-browser", 1, 0);
  ASSERT_TRUE(app.WriteStr(L"ApplicationPath", L"/opt/arvenis/quan"));
  ASSERT_TRUE(app.WriteInt(L"Build", 12));
  const std::wstring longest(1023, L'x');
  ASSERT_TRUE(app.WriteStr(L"Longest", longest.c_str()));
  ASSERT_TRUE(app.WriteStr(L"TooLong", (longest.substr(1) + L"\U0001D11E").c_str()));

  CString value = L"stale";
  EXPECT_EQ(GetApplicationInfoFromInstalledVerionsInfo(5207u, 10017u, value), 1);
  EXPECT_EQ(value, L"/opt/arvenis/quan");
  EXPECT_EQ(GetApplicationInfoFromInstalledVerionsInfo(L"arvenis-quan-browser", L"Longest", value),
            1);
  EXPECT_EQ(value, CString(longest));

  // Each failure leaves the value empty.
  const std::pair<const wchar_t*, const wchar_t*> misses[] = {
      {L"", L"ApplicationPath"},
      {L"arvenis-quan-browser", L""},
      {L"Other", L"ApplicationPath"},
      {L"arvenis-quan-browser", L"Missing"},
      {L"arvenis-quan-browser", L"Build"},    // not a string
      {L"arvenis-quan-browser", L"TooLong"},  // 1024 UTF-16 units: no room for the terminator
  };
  for (const auto& [application, item] : misses) {
    value = L"stale";
    EXPECT_EQ(GetApplicationInfoFromInstalledVerionsInfo(application, item, value), 0);
    EXPECT_TRUE(value.IsEmpty());
  }
}

}  // namespace
