// The arvenis-settings tool, run as a real process on stores in a temporary folder.
#include <gtest/gtest.h>
#include <spawn.h>

#include <random>

#include "settings_test_support.h"
#include "vglobal/compat/app.h"
#include "vglobal/settings_store.h"

extern char** environ;

namespace {

using settings_test::FileBytes;
using settings_test::TempDir;

struct ToolRun {
  int exit = -1;
  std::string out, err;
};

std::string ReadAll(int fd) {
  std::string text;
  char buffer[4096];
  for (ssize_t n; (n = read(fd, buffer, sizeof buffer)) > 0;) text.append(buffer, n);
  close(fd);
  return text;
}

class Tool : public ::testing::Test {
 protected:
  // Runs the tool with `input` on its standard input.
  ToolRun Settings(std::vector<std::string> args, const std::string& input = {}) {
    args.insert(args.begin(), ARVENIS_SETTINGS_TOOL);
    args.insert(args.begin(), launcher_.begin(), launcher_.end());
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    std::vector<std::string> env{"ARVENIS_SETTINGS_DIR=" + dir_.path()};
    for (char** e = environ; *e; ++e) {
      if (std::string_view(*e).rfind("ARVENIS_SETTINGS_DIR=", 0) != 0) env.emplace_back(*e);
    }
    std::vector<char*> envp;
    for (std::string& e : env) envp.push_back(e.data());
    envp.push_back(nullptr);

    int in[2], out[2], err[2];
    if (pipe(in) != 0 || pipe(out) != 0 || pipe(err) != 0) return {};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in[0], 0);
    posix_spawn_file_actions_adddup2(&actions, out[1], 1);
    posix_spawn_file_actions_adddup2(&actions, err[1], 2);
    posix_spawn_file_actions_addclose(&actions, in[1]);
    posix_spawn_file_actions_addclose(&actions, out[0]);
    posix_spawn_file_actions_addclose(&actions, err[0]);
    pid_t pid = -1;
    const int spawned = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    close(in[0]);
    close(out[1]);
    close(err[1]);
    // The input is a line or two, far below a pipe's capacity.
    if (!input.empty()) {
      EXPECT_EQ(write(in[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
    }
    close(in[1]);
    ToolRun run;
    run.out = ReadAll(out[0]);  // the tool's output is far below a pipe's capacity
    run.err = ReadAll(err[0]);
    if (spawned == 0) run.exit = settings_test::Wait(pid);
    return run;
  }

  TempDir dir_;
  std::vector<std::string> launcher_;  // a program that runs the tool, such as timeout
};

TEST_F(Tool, SetThenQueryPrintsEveryTypeLikeARegistryQuery) {
  for (const auto& args : std::vector<std::vector<std::string>>{
           {"set", "Tools", "Count", "--int", "-5"},
           {"set", "Tools", "Ratio", "--double", "0.1"},
           {"set", "Tools", "Name", "--string", "Ünï"},
           {"set", "Tools", "Blob", "--binary", "0a0BFF"},
           {"set", "Tools", "List", "--multi", "a", "--multi", "", "--multi", "c"},
           {"set", "Tools\\Sub", "", "--int", "0x80000000"},
       }) {
    const ToolRun run = Settings(args);
    ASSERT_EQ(run.exit, 0) << args[2] << ": " << run.err;
  }
  const ToolRun query = Settings({"query", "tools"});
  EXPECT_EQ(query.exit, 0) << query.err;
  EXPECT_EQ(query.out,
            "HKEY_CURRENT_USER\\Software\\Ostrel\\Arvenis\\tools\n"
            "    Count    REG_DWORD    0xfffffffb (-5)\n"
            "    Ratio    REG_DOUBLE    0.1\n"
            "    Name    REG_SZ    Ünï\n"
            "    Blob    REG_BINARY    0A0BFF\n"
            "    List    REG_MULTI_SZ    a\\0\\0c\n"
            "\n"
            "HKEY_CURRENT_USER\\Software\\Ostrel\\Arvenis\\tools\\Sub\n"
            "    (Default)    REG_DWORD    0x80000000 (-2147483648)\n"
            "\n");
  EXPECT_EQ(std::filesystem::status(dir_ / "user.db").permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(Tool, ANewUserHasAnEmptyStoreThatLookingDoesNotCreate) {
  const ToolRun first = Settings({"query"});
  EXPECT_EQ(first.exit, 0);
  EXPECT_TRUE(first.out.empty());
  EXPECT_NE(first.err.find("no settings are stored yet"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(dir_ / "user.db"));
  // A store holding only keys outside the suite's own shows nothing, successfully.
  ASSERT_EQ(Settings({"set", "Software\\Other", "v", "--int", "1"}).exit, 0);
  const ToolRun second = Settings({"query"});
  EXPECT_EQ(second.exit, 0);
  EXPECT_TRUE(second.out.empty());
  EXPECT_EQ(Settings({"query", "Tools"}).exit, 1);
}

TEST_F(Tool, DefaultsShowTheBuiltInRecordsUntilASampleIsWritten) {
  const ToolRun empty = Settings({"defaults", "show"});
  EXPECT_EQ(empty.exit, 0);
  EXPECT_NE(empty.out.find("Default processing method (incomplete)"), std::string::npos);
  EXPECT_NE(empty.out.find("section Reports: incomplete"), std::string::npos);
  EXPECT_NE(empty.out.find("PeakDetection.SNThreshold = 3.0"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(dir_ / "user.db"));

  ASSERT_EQ(Settings({"defaults", "write-sample"}).exit, 0);
  const ToolRun json = Settings({"defaults", "show", "--json"});
  ASSERT_EQ(json.exit, 0);
  // The sample's rows and levels come back through the readers.
  EXPECT_NE(json.out.find("\"Reports\": \"complete\""), std::string::npos);
  EXPECT_NE(json.out.find("\"Name\": \"Quantitation Report\""), std::string::npos);
  EXPECT_NE(json.out.find("\"LevelName\": \"Cal 4\""), std::string::npos);
  EXPECT_NE(json.out.find("\"ProgramName\": \"/opt/arvenis/bin/export-lims\""), std::string::npos);
  EXPECT_EQ(Settings({"defaults"}).exit, 1);
}

TEST_F(Tool, BadInputExitsOneAndCreatesNothing) {
  for (const auto& args : std::vector<std::vector<std::string>>{
           {"set", "Tools", "Count", "--int", "12abc"},
           {"set", "Tools", "Count", "--int", "4294967296"},
           {"set", "Tools", "Count", "--double", "1.5x"},
           {"set", "Tools", "Count", "--binary", "ABC"},
           {"set", "Tools", "Count", "--int", "1", "--string", "x"},
           {"set", "Tools", "Count"},
           {"rename", "Tools"},
       }) {
    const ToolRun run = Settings(args);
    EXPECT_EQ(run.exit, 1) << args.back();
    EXPECT_FALSE(run.err.empty());
    EXPECT_TRUE(run.out.empty());
  }
  EXPECT_FALSE(std::filesystem::exists(dir_ / "user.db"));
  ASSERT_EQ(Settings({"set", "Tools", "Count", "--int", "1"}).exit, 0);
  EXPECT_EQ(Settings({"query", "No\\Such\\Key"}).exit, 1);
  EXPECT_EQ(Settings({"set", "Bad\\\\Path", "v", "--int", "1"}).exit, 1);
}

TEST_F(Tool, MachineStoreIsMadeOnlyByInit) {
  const ToolRun refused =
      Settings({"set", "--machine", "Installation", "DataPath", "--string", "/d"});
  EXPECT_EQ(refused.exit, 2);
  EXPECT_NE(refused.err.find("init --machine"), std::string::npos) << refused.err;
  EXPECT_FALSE(std::filesystem::exists(dir_ / "machine.db"));

  ASSERT_EQ(Settings({"init", "--machine"}).exit, 0);
  EXPECT_EQ(std::filesystem::status(dir_ / "machine.db").permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write |
                std::filesystem::perms::group_read | std::filesystem::perms::others_read);
  ASSERT_EQ(Settings({"set", "--machine", "Installation", "DataPath", "--string", "/d"}).exit, 0);
  const ToolRun query = Settings({"query", "--machine", "Installation"});
  EXPECT_EQ(query.exit, 0);
  EXPECT_NE(query.out.find("HKEY_LOCAL_MACHINE\\Software\\Ostrel\\Arvenis\\Installation\n"
                           "    DataPath    REG_SZ    /d\n"),
            std::string::npos)
      << query.out;
  EXPECT_FALSE(std::filesystem::exists(dir_ / "user.db")) << "the user store was not needed";
}

TEST_F(Tool, DeleteRemovesValuesAndBranches) {
  EXPECT_EQ(Settings({"delete", "Tools"}).exit, 1) << "a user without a store has no keys";
  EXPECT_FALSE(std::filesystem::exists(dir_ / "user.db"));
  ASSERT_EQ(Settings({"set", "Tools\\Item 0", "Command", "--string", "ls"}).exit, 0);
  ASSERT_EQ(Settings({"set", "Tools", "Count", "--int", "1"}).exit, 0);
  EXPECT_EQ(Settings({"delete", "Tools", "count"}).exit, 0);
  EXPECT_EQ(Settings({"delete", "Tools", "Count"}).exit, 1);
  EXPECT_EQ(Settings({"delete", "Tools"}).exit, 0);
  EXPECT_EQ(Settings({"query", "Tools\\Item 0"}).exit, 1);
  EXPECT_EQ(Settings({"query", "Tools"}).exit, 1);
}

TEST_F(Tool, CheckNamesADamagedStoreAndLeavesIt) {
  ASSERT_EQ(Settings({"init"}).exit, 0);
  const ToolRun sound = Settings({"check"});
  EXPECT_EQ(sound.exit, 0);
  EXPECT_EQ(sound.out, dir_ / "user.db" + ": ok\n" + dir_ / "machine.db" + ": not present\n");

  std::vector<char> noise(4096);
  std::mt19937 random(11);
  for (char& b : noise) b = static_cast<char>(random());
  settings_test::WriteFileBytes(dir_ / "user.db", noise);
  const ToolRun damaged = Settings({"check"});
  EXPECT_EQ(damaged.exit, 2);
  EXPECT_NE(damaged.out.find(dir_ / "user.db" + ": not a settings store"), std::string::npos)
      << damaged.out;
  EXPECT_EQ(Settings({"set", "Tools", "Count", "--int", "1"}).exit, 2);
  EXPECT_EQ(FileBytes(dir_ / "user.db"), noise);
}

TEST_F(Tool, CommandsThatOnlyLookNeverWriteTheStoreFile) {
  // A program that wrote and died leaves its commits in the log, not yet in the file:
  // a command that only looks must not move them there (a damaged file would be
  // changed by that as much as a sound one).
  const std::string path = dir_ / "user.db";
  const pid_t writer = settings_test::Spawn([&]() -> int {
    auto store = vglobal::OpenSqliteSettingsStore(path, vglobal::SettingsFileKind::User, true);
    const auto key =
        store->CreateKey(vglobal::kSettingsRootKey, L"Software\\Ostrel\\Arvenis\\Tools");
    for (int i = 0; i < 50; ++i) {
      store->WriteValue(*key, L"v" + std::to_wstring(i), vglobal::SettingsValue::Int(i));
    }
    _exit(0);
  });
  ASSERT_EQ(settings_test::Wait(writer), 0);
  const std::vector<char> before = FileBytes(path);
  for (const std::vector<std::string>& look :
       {std::vector<std::string>{"query"}, {"export", "--utf8"}, {"defaults", "show"}, {"check"}}) {
    const ToolRun run = Settings(look);
    EXPECT_EQ(run.exit, 0) << look[0] << ": " << run.err;
    EXPECT_EQ(FileBytes(path), before) << look[0] << " changed the store file";
  }
  EXPECT_NE(Settings({"query", "Tools"}).out.find("v49    REG_DWORD    0x31 (49)"),
            std::string::npos);
}

TEST_F(Tool, ImportsAWindowsExportAndExportsWhatCameIn) {
  const ToolRun import = Settings({"import", VGLOBAL_TEST_DATA_DIR "/windows_export.reg"});
  ASSERT_EQ(import.exit, 0) << import.err;
  EXPECT_NE(import.err.find("12 values imported"), std::string::npos) << import.err;
  const ToolRun query = Settings({"query", "Tools"});
  EXPECT_NE(query.out.find("    (Default)    REG_SZ    Tools menu\n"
                           "    Count    REG_DWORD    0x2 (2)\n"
                           "    Offset    REG_DWORD    0xffffffff (-1)\n"),
            std::string::npos)
      << query.out;

  // Out again, into another user's store, and back out: the same text.
  ASSERT_EQ(Settings({"export", "-o", dir_ / "out.reg"}).exit, 0);
  const ToolRun json = Settings({"export", "--json", "Tools"});
  ASSERT_EQ(json.exit, 0);
  EXPECT_EQ(json.out.rfind("{\n  \"format\": \"arvenis-settings\"", 0), 0u) << json.out;
  const ToolRun utf8 = Settings({"export", "--utf8"});
  EXPECT_EQ(utf8.out.rfind("Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\", 0), 0u);
  std::filesystem::rename(dir_ / "user.db", dir_ / "first.db");
  ASSERT_EQ(Settings({"import", dir_ / "out.reg"}).exit, 0);
  EXPECT_EQ(Settings({"export", "--utf8"}).out, utf8.out);
  EXPECT_EQ(settings_test::FileBytes(dir_ / "out.reg")[0], '\xFF');

  EXPECT_EQ(Settings({"export", "Software\\Other"}).exit, 1);
  EXPECT_EQ(Settings({"export", "No Such Key"}).exit, 1);
  EXPECT_EQ(Settings({"export", "--json", "--utf8"}).exit, 1);
}

// An application's profile lies beside the suite's keys, below Software\Ostrel, and
// moves between users like any other key.
TEST_F(Tool, ExportAndImportCarryAnApplicationsProfile) {
  std::vector<BYTE> layout(300);
  for (std::size_t i = 0; i < layout.size(); ++i) layout[i] = static_cast<BYTE>(i * 7);
  auto write = [&] {
    CWinApp app(L"Workbench");
    vglobal::SetSettingsStore(
        HKEY_CURRENT_USER,
        vglobal::OpenSqliteSettingsStore(dir_ / "user.db", vglobal::SettingsFileKind::User,
                                         vglobal::SettingsOpenMode::Create));
    EXPECT_TRUE(app.WriteProfileBinary(L"Toolbars\\Bar 1", L"Layout", layout.data(), 300));
    EXPECT_TRUE(app.WriteProfileString(L"Toolbars", L"Version", L"2.1"));
    vglobal::SetSettingsStore(HKEY_CURRENT_USER, nullptr);
  };
  write();
  ASSERT_EQ(Settings({"export", "Software\\Ostrel\\Workbench", "-o", dir_ / "p.reg"}).exit, 0);
  std::filesystem::rename(dir_ / "user.db", dir_ / "first.db");
  ASSERT_EQ(Settings({"import", dir_ / "p.reg"}).exit, 0);

  CWinApp app(L"Workbench");
  vglobal::SetSettingsStore(
      HKEY_CURRENT_USER,
      vglobal::OpenSqliteSettingsStore(dir_ / "user.db", vglobal::SettingsFileKind::User,
                                       vglobal::SettingsOpenMode::ReadOnly));
  BYTE* data = nullptr;
  UINT bytes = 0;
  EXPECT_TRUE(app.GetProfileBinary(L"Toolbars\\Bar 1", L"Layout", &data, &bytes));
  std::unique_ptr<BYTE[]> owned(data);
  EXPECT_EQ(std::vector<BYTE>(data, data + bytes), layout);
  EXPECT_EQ(app.GetProfileString(L"Toolbars", L"Version"), CString(L"2.1"));
  vglobal::SetSettingsStore(HKEY_CURRENT_USER, nullptr);
}

TEST_F(Tool, ABadImportFileChangesNothingAndSaysWhere) {
  settings_test::WriteFileBytes(dir_ / "bad.reg", [] {
    const std::string text =
        "Windows Registry Editor Version 5.00\r\n\r\n"
        "[HKEY_CURRENT_USER\\Software\\Ostrel\\Arvenis\\Tools]\r\n"
        "\"Count\"=dword:00000007\r\n"
        "\"Path\"=\"C:\\Program Files\"\r\n";
    return std::vector<char>(text.begin(), text.end());
  }());
  const ToolRun first = Settings({"import", dir_ / "bad.reg"});
  EXPECT_EQ(first.exit, 1);
  EXPECT_NE(first.err.find("bad.reg: line 5, column 11: expected \\\\ or \\\""), std::string::npos)
      << first.err;
  EXPECT_NE(first.err.find("nothing was imported"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(dir_ / "user.db")) << "no store is made for a bad file";

  ASSERT_EQ(Settings({"set", "Tools", "Count", "--int", "1"}).exit, 0);
  const std::vector<char> before = FileBytes(dir_ / "user.db");
  EXPECT_EQ(Settings({"import", dir_ / "bad.reg"}).exit, 1);
  EXPECT_EQ(Settings({"import", "--json", dir_ / "bad.reg"}).exit, 1);
  EXPECT_EQ(Settings({"import", dir_ / "missing.reg"}).exit, 1);
  EXPECT_EQ(FileBytes(dir_ / "user.db"), before);
  EXPECT_NE(Settings({"query", "Tools"}).out.find("Count    REG_DWORD    0x1 (1)"),
            std::string::npos);

  // A file for the user's store does not go to the machine store, and the other way.
  ASSERT_EQ(Settings({"init", "--machine"}).exit, 0);
  const ToolRun machine =
      Settings({"import", "--machine", VGLOBAL_TEST_DATA_DIR "/windows_export.reg"});
  EXPECT_EQ(machine.exit, 1);
  EXPECT_NE(machine.err.find("line 3, column 2: the key is in HKEY_CURRENT_USER"),
            std::string::npos)
      << machine.err;
}

TEST_F(Tool, ImportFromStandardInputAndIntoAMissingMachineStore) {
  const std::string file =
      "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Ostrel\\Arvenis\\Installation]\n"
      "\"DataPath\"=\"/srv/arvenis\"\n";
  const ToolRun missing = Settings({"import", "--machine", "-"}, file);
  EXPECT_EQ(missing.exit, 2);
  EXPECT_NE(missing.err.find("init --machine"), std::string::npos) << missing.err;
  ASSERT_EQ(Settings({"init", "--machine"}).exit, 0);
  ASSERT_EQ(Settings({"import", "--machine", "-"}, file).exit, 0);
  EXPECT_NE(Settings({"query", "--machine", "Installation"})
                .out.find("DataPath    REG_SZ    /srv/arvenis"),
            std::string::npos);
}

TEST_F(Tool, DefaultsResetAsksFirstAndKnowsItsSections) {
  EXPECT_EQ(Settings({"defaults", "reset", "--yes"}).exit, 0) << "nothing stored: nothing to do";
  EXPECT_FALSE(std::filesystem::exists(dir_ / "user.db"));
  ASSERT_EQ(Settings({"defaults", "write-sample"}).exit, 0);
  const std::string search = "Processing Setup\\Defaults\\Qual\\Library Search Options";
  ASSERT_EQ(Settings({"query", search}).exit, 0);

  const ToolRun declined = Settings({"defaults", "reset", "qual\\library search options"}, "n\n");
  EXPECT_EQ(declined.exit, 1);
  EXPECT_NE(declined.err.find("[y/N]"), std::string::npos);
  EXPECT_NE(declined.err.find("nothing was removed"), std::string::npos);
  EXPECT_EQ(Settings({"defaults", "reset", "Qual\\Library Search Options"}).exit, 1)
      << "no answer is no";
  ASSERT_EQ(Settings({"query", search}).exit, 0);

  const ToolRun confirmed = Settings({"defaults", "reset", "qual\\library search options"}, "y\n");
  EXPECT_EQ(confirmed.exit, 0) << confirmed.err;
  EXPECT_EQ(Settings({"query", search}).exit, 1);
  EXPECT_EQ(Settings({"query", "Processing Setup\\Defaults\\Quan\\Levels"}).exit, 0)
      << "other sections stay";
  const ToolRun show = Settings({"defaults", "show"});
  EXPECT_NE(show.out.find("section Qual\\Library Search Options: incomplete"), std::string::npos);

  const ToolRun unknown = Settings({"defaults", "reset", "Qual\\Library"});
  EXPECT_EQ(unknown.exit, 1);
  EXPECT_NE(unknown.err.find("the sections are:\n  Qual\\Identification\n"), std::string::npos)
      << unknown.err;
  EXPECT_NE(unknown.err.find("  Quan\\Levels\n"), std::string::npos);

  EXPECT_EQ(Settings({"defaults", "reset", "--yes"}).exit, 0);
  EXPECT_EQ(Settings({"query", "Processing Setup\\Defaults"}).exit, 1);
  EXPECT_EQ(Settings({"query", "Processing Setup"}).exit, 0);
}

// ---- Hostile files and arguments ---------------------------------------------

TEST_F(Tool, AStoreThatIsNotARegularFileIsRefusedAtOnce) {
  ASSERT_EQ(mkfifo((dir_ / "user.db").c_str(), 0600), 0);
  launcher_ = {"/usr/bin/timeout", "10"};  // a regression waits on the FIFO: exit 124
  const ToolRun check = Settings({"check"});
  EXPECT_EQ(check.exit, 2);
  EXPECT_NE(check.out.find(dir_ / "user.db" + ": not a regular file (a FIFO)\n"), std::string::npos)
      << check.out;
  for (const auto& args : std::vector<std::vector<std::string>>{
           {"query"}, {"set", "Tools", "v", "--int", "1"}, {"defaults", "show"}}) {
    const ToolRun run = Settings(args);
    EXPECT_EQ(run.exit, 2) << args[0];
    EXPECT_NE(run.err.find("not a regular file (a FIFO)"), std::string::npos) << run.err;
  }
}

TEST_F(Tool, EveryJsonReaderErrorIsBadInputWithItsPlace) {
  const std::string head =
      "{\"format\": \"arvenis-settings\", \"version\": 1, \"root\": \"HKEY_CURRENT_USER\",\n";
  const ToolRun huge =
      Settings({"import", "--json", "-"},
               head +
                   "\"keys\": [{\"path\": \"Software\\\\Ostrel\\\\Arvenis\\\\T\", \"values\": [\n"
                   "  {\"name\": \"v\", \"type\": \"REG_DOUBLE\", \"data\": 1e999}]}]}\n");
  EXPECT_EQ(huge.exit, 1);
  EXPECT_NE(huge.err.find("-: line 3, column 47: expected JSON: number overflow parsing '1e999'; "
                          "nothing was imported"),
            std::string::npos)
      << huge.err;
  // A member name holding a zero character is quoted escaped.
  const ToolRun zero = Settings({"import", "--json", "-"}, head + "\"\\u0000\\u001b\": 1}");
  EXPECT_EQ(zero.exit, 1);
  EXPECT_NE(zero.err.find("unexpected member \"\\x00\\x1B\""), std::string::npos) << zero.err;
  EXPECT_EQ(zero.err.find('\0'), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(dir_ / "user.db"));
}

TEST_F(Tool, ArgumentsThatAreNotUtf8AreRefusedAsAnImportRefusesThem) {
  for (const auto& args : std::vector<std::vector<std::string>>{
           {"set", "Tools", "v", "--string", "a\xFF"},
           {"set", "Tools", "v", "--multi", "ok", "--multi", "\xC3("},
           {"set", "Tools\xC0\xAF", "v", "--int", "1"},
           {"set", "Tools", "v\xFE", "--int", "1"},
           {"query", "Tools\xFF"},
           {"delete", "Tools", "v\xFF"},
           {"export", "\xFF"},
           {"defaults", "reset", "--yes", "Qual\xFF"},
       }) {
    const ToolRun run = Settings(args);
    EXPECT_EQ(run.exit, 1) << args[0] << " " << args[1];
    EXPECT_NE(run.err.find("is not UTF-8 text"), std::string::npos) << run.err;
    EXPECT_EQ(run.err.find_first_of("\xFF\xFE\xC0"), std::string::npos) << run.err;
  }
  EXPECT_FALSE(std::filesystem::exists(dir_ / "user.db"));
  // What query prints for an unpaired surrogate goes back in; a stored one does not
  // stop the records from being shown.
  ASSERT_EQ(Settings({"set", "Processing Setup\\Defaults\\Quan\\Identification", "Keys", "--string",
                      "k\xED\xA0\x80"})
                .exit,
            0);
  for (const auto& args : std::vector<std::vector<std::string>>{{"defaults", "show"},
                                                                {"defaults", "show", "--json"}}) {
    const ToolRun show = Settings(args);
    EXPECT_EQ(show.exit, 0) << args.size() << show.err;
    EXPECT_NE(show.out.find("k\xEF\xBF\xBD"), std::string::npos) << args.size();
  }
  // Control characters in what a message quotes are escaped.
  const ToolRun control = Settings({"set", "Tools", "v", "--int", "1\x1B[2J"});
  EXPECT_NE(control.err.find("not a 32-bit integer: '1\\x1B[2J'"), std::string::npos)
      << control.err;
  const ToolRun missing = Settings({"query", "No\x01Such\xC2\x9B"});
  EXPECT_NE(missing.err.find("Arvenis\\No\\x01Such\\u009B: "), std::string::npos) << missing.err;
}

TEST_F(Tool, EveryCommandHasHelp) {
  for (const char* command : {"query", "set", "delete", "check", "init", "export", "import"}) {
    const ToolRun run = Settings({command, "--help"});
    EXPECT_EQ(run.exit, 0) << command;
    EXPECT_NE(run.out.find("Usage"), std::string::npos) << command;
  }
}

}  // namespace
