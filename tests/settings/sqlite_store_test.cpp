// The SQLite store as a file shared by processes: permissions, concurrent and killed
// writers, damaged and foreign files, and the machine store that users only read.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <csignal>
#include <random>

#include "settings_test_support.h"
#include "vglobal/settings_store.h"

namespace {

using settings_test::FileBytes;
using settings_test::Spawn;
using settings_test::TempDir;
using settings_test::Wait;
using vglobal::kSettingsRootKey;
using vglobal::SettingsError;
using vglobal::SettingsFileKind;
using vglobal::SettingsStoreState;
using vglobal::SettingsValue;

std::shared_ptr<vglobal::SettingsStore> UserStore(const std::string& path) {
  return vglobal::OpenSqliteSettingsStore(path, SettingsFileKind::User, true);
}

std::shared_ptr<vglobal::SettingsStore> MachineStore(const std::string& path, bool create) {
  return vglobal::OpenSqliteSettingsStore(path, SettingsFileKind::Machine, create);
}

mode_t ModeOf(const std::string& path) {
  struct stat st {};
  stat(path.c_str(), &st);
  return st.st_mode & 07777;
}

TEST(SqliteStore, NewUserStoreIsPrivateToTheUser) {
  TempDir dir;
  auto store = UserStore(dir / "config/arvenis/user.db");
  ASSERT_EQ(store->Status().state, SettingsStoreState::Writable);
  EXPECT_EQ(ModeOf(dir / "config/arvenis"), 0700u);
  EXPECT_EQ(ModeOf(dir / "config/arvenis/user.db"), 0600u);
}

TEST(SqliteStore, KeyIdsAreNotReusedAcrossSessions) {
  TempDir dir;
  vglobal::SettingsKeyId deleted = 0;
  {
    auto store = UserStore(dir / "user.db");
    deleted = *store->CreateKey(kSettingsRootKey, L"A\\B");
    ASSERT_EQ(store->DeleteKey(*store->FindKey(kSettingsRootKey, L"A")), SettingsError::None);
  }
  auto store = UserStore(dir / "user.db");
  const auto fresh = store->CreateKey(kSettingsRootKey, L"C");
  ASSERT_TRUE(fresh.ok());
  EXPECT_GT(*fresh, deleted);
  EXPECT_EQ(store->WriteValue(deleted, L"v", SettingsValue::Int(1)), SettingsError::NotFound);
}

TEST(SqliteStore, DeepBranchDeletesCompletely) {
  TempDir dir;
  auto store = UserStore(dir / "user.db");
  std::wstring path = L"Deep";
  for (int i = 0; i < 1500; ++i) path += L"\\k";
  const auto leaf = store->CreateKey(kSettingsRootKey, path);
  ASSERT_TRUE(leaf.ok());
  ASSERT_EQ(store->WriteValue(*leaf, L"v", SettingsValue::Int(1)), SettingsError::None);
  ASSERT_EQ(store->DeleteKey(*store->FindKey(kSettingsRootKey, L"Deep")), SettingsError::None);
  EXPECT_EQ(store->SubkeyNames(kSettingsRootKey)->size(), 0u);
  EXPECT_TRUE(store->Check().ok());
}

TEST(SqliteStore, TwoProcessesWritingTheSameValuesNeverFail) {
  TempDir dir;
  const std::string path = dir / "user.db";
  UserStore(path);  // made before the children race to open it
  constexpr int kWrites = 1000;
  auto writer = [&](int base) {
    return [&, base] {
      auto store = UserStore(path);
      int failures = 0;
      for (int i = 0; i < kWrites; ++i) {
        auto key = store->CreateKey(kSettingsRootKey, L"Shared");
        if (!key.ok() || store->WriteValue(*key, L"Value", SettingsValue::Int(base + i)) !=
                             SettingsError::None) {
          ++failures;
        }
      }
      return failures > 0 ? 1 : 0;
    };
  };
  const pid_t first = Spawn(writer(0));
  const pid_t second = Spawn(writer(100000));
  EXPECT_EQ(Wait(first), 0);
  EXPECT_EQ(Wait(second), 0);

  auto store = UserStore(path);
  const auto report = store->Check();
  EXPECT_TRUE(report.ok()) << report.problems.front();
  const auto value = store->ReadValue(*store->FindKey(kSettingsRootKey, L"Shared"), L"Value");
  ASSERT_TRUE(value.ok());
  // Each writer ends with its own last value; whichever committed last wins.
  EXPECT_TRUE(*value->AsInt() == kWrites - 1 || *value->AsInt() == 100000 + kWrites - 1)
      << *value->AsInt();
}

TEST(SqliteStore, WriterKilledMidLoopLeavesASoundStore) {
  TempDir dir;
  const std::string path = dir / "user.db";
  int progress[2];
  ASSERT_EQ(pipe(progress), 0);
  const pid_t child = Spawn([&] {
    close(progress[0]);
    auto store = UserStore(path);
    const auto key = store->CreateKey(kSettingsRootKey, L"Loop");
    std::vector<std::uint8_t> blob(3000);
    for (int i = 0; i < 1000000; ++i) {
      blob.assign(blob.size(), static_cast<std::uint8_t>(i));
      store->WriteValue(*key, L"Counter", SettingsValue::Int(i));
      store->WriteValue(*key, L"Blob", SettingsValue::Binary(blob));
      if (i % 100 == 99 && write(progress[1], "x", 1) != 1) return 1;
    }
    return 0;
  });
  close(progress[1]);
  char signal = 0;
  for (int seen = 0; seen < 3; ++seen) ASSERT_EQ(read(progress[0], &signal, 1), 1);
  kill(child, SIGKILL);
  EXPECT_EQ(Wait(child), -1);
  close(progress[0]);

  auto store = UserStore(path);
  ASSERT_EQ(store->Status().state, SettingsStoreState::Writable) << store->Status().reason;
  const auto report = store->Check();
  EXPECT_TRUE(report.ok()) << report.problems.front();
  const auto key = store->FindKey(kSettingsRootKey, L"Loop");
  ASSERT_TRUE(key.ok());
  EXPECT_EQ(*store->ValueNames(*key), (std::vector<std::wstring>{L"Counter", L"Blob"}));
  const int counter = *store->ReadValue(*key, L"Counter")->AsInt();
  EXPECT_GE(counter, 299);
  const auto blob = *store->ReadValue(*key, L"Blob")->AsBinary();
  ASSERT_EQ(blob.size(), 3000u);
  // The blob is written after the counter, so it holds the counter's round or the one
  // before, and every byte of it comes from the same write.
  EXPECT_TRUE(blob.front() == static_cast<std::uint8_t>(counter) ||
              blob.front() == static_cast<std::uint8_t>(counter - 1));
  EXPECT_EQ(std::count(blob.begin(), blob.end(), blob.front()), 3000);
}

TEST(SqliteStore, AnotherProcessesWriteIsSeenAtTheNextKeyOpen) {
  TempDir dir;
  const std::string path = dir / "user.db";
  UserStore(path)->CreateKey(kSettingsRootKey, L"Seen");
  int go[2];
  ASSERT_EQ(pipe(go), 0);
  // The child is made before this process opens its connection: a connection must not
  // cross a fork.
  const pid_t child = Spawn([&] {
    close(go[1]);
    char c;
    if (read(go[0], &c, 1) != 1) return 1;
    auto store = UserStore(path);
    const auto key = store->FindKey(kSettingsRootKey, L"Seen");
    return key.ok() && store->WriteValue(*key, L"v", SettingsValue::Int(2)) == SettingsError::None
               ? 0
               : 1;
  });
  close(go[0]);
  auto store = UserStore(path);
  const auto key = store->FindKey(kSettingsRootKey, L"Seen");
  ASSERT_EQ(store->WriteValue(*key, L"v", SettingsValue::Int(1)), SettingsError::None);
  // Opened and read twice, so that everything this process knows is cached.
  for (int round = 0; round < 2; ++round) {
    ASSERT_EQ(*store->ReadValue(*store->FindKey(kSettingsRootKey, L"Seen"), L"v")->AsInt(), 1);
  }
  ASSERT_EQ(write(go[1], "x", 1), 1);
  ASSERT_EQ(Wait(child), 0);
  close(go[1]);

  const auto reopened = store->FindKey(kSettingsRootKey, L"Seen");
  ASSERT_TRUE(reopened.ok());
  EXPECT_EQ(*store->ReadValue(*reopened, L"v")->AsInt(), 2);
}

// ---- Files that are not sound stores ---------------------------------------

void MakeForeignDatabase(const std::string& path, std::uint32_t applicationId) {
  sqlite3* db = nullptr;
  sqlite3_open(path.c_str(), &db);
  const std::string sql = "PRAGMA application_id = " + std::to_string(applicationId) +
                          "; CREATE TABLE t (a, b); INSERT INTO t VALUES (1, 'x');";
  sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
  sqlite3_close(db);
}

struct DamagedFile {
  const char* name;
  std::function<void(const std::string&)> make;
};

void PrintTo(const DamagedFile& file, std::ostream* os) {
  *os << file.name;
}

class SqliteDamagedStore : public ::testing::TestWithParam<DamagedFile> {};

TEST_P(SqliteDamagedStore, FileIsLeftByteForByteAndReportedByName) {
  TempDir dir;
  const std::string path = dir / "user.db";
  GetParam().make(path);
  const std::vector<char> before = FileBytes(path);
  ASSERT_FALSE(before.empty());
  {
    auto store = UserStore(path);
    EXPECT_EQ(store->Status().state, SettingsStoreState::Unusable);
    EXPECT_FALSE(store->FindKey(kSettingsRootKey, L"").ok());
    EXPECT_EQ(store->CreateKey(kSettingsRootKey, L"New").error(), SettingsError::Unavailable);
    EXPECT_NE(store->WriteValue(kSettingsRootKey, L"v", SettingsValue::Int(1)),
              SettingsError::None);
    EXPECT_NE(store->DeleteContents(kSettingsRootKey), SettingsError::None);
    const auto report = store->Check();
    EXPECT_EQ(report.location, path);
    ASSERT_EQ(report.problems.size(), 1u);
    EXPECT_FALSE(report.problems[0].empty());
  }
  EXPECT_EQ(FileBytes(path), before);
  EXPECT_FALSE(std::filesystem::exists(path + "-wal"));
  EXPECT_FALSE(std::filesystem::exists(path + "-journal"));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, SqliteDamagedStore,
    ::testing::Values(
        DamagedFile{"RandomBytes",
                    [](const std::string& path) {
                      std::vector<char> bytes(8192);
                      std::mt19937 random(3);
                      for (char& b : bytes) b = static_cast<char>(random());
                      settings_test::WriteFileBytes(path, bytes);
                    }},
        DamagedFile{"AnotherProgramsDatabase",
                    [](const std::string& path) { MakeForeignDatabase(path, 0); }},
        DamagedFile{"OurIdButAnotherSchema",
                    [](const std::string& path) { MakeForeignDatabase(path, 0x41525653); }},
        DamagedFile{"TruncatedStore",
                    [](const std::string& path) {
                      {
                        auto store = UserStore(path);
                        const auto key = *store->CreateKey(kSettingsRootKey, L"Bulk");
                        const std::vector<std::uint8_t> blob(2000, 7);
                        for (int i = 0; i < 100; ++i) {
                          store->WriteValue(key, std::to_wstring(i), SettingsValue::Binary(blob));
                        }
                      }
                      std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
                    }}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(SqliteStore, ZeroLengthFileBecomesAnEmptyStore) {
  TempDir dir;
  settings_test::WriteFileBytes(dir / "user.db", {});
  auto store = UserStore(dir / "user.db");
  ASSERT_EQ(store->Status().state, SettingsStoreState::Writable);
  EXPECT_EQ(store->WriteValue(kSettingsRootKey, L"v", SettingsValue::Int(1)), SettingsError::None);
}

// ---- What the file is, and what its header says of it ------------------------

TEST(SqliteStore, WhatIsNotARegularFileIsRefusedWithoutWaitingOnIt) {
  TempDir dir;
  ASSERT_EQ(mkfifo((dir / "fifo.db").c_str(), 0600), 0);
  std::filesystem::create_directory(dir / "folder.db");
  std::filesystem::create_symlink(dir / "fifo.db", dir / "link.db");
  // In a child under an alarm: opening a FIFO for reading waits for a writer forever.
  const pid_t child = Spawn([&] {
    alarm(10);
    const std::pair<std::string, const char*> cases[] = {{dir / "fifo.db", "(a FIFO)"},
                                                         {dir / "link.db", "(a FIFO)"},
                                                         {dir / "folder.db", "(a folder)"},
                                                         {"/dev/null", "(a character device)"}};
    int failed = 0;
    for (const auto& [path, kind] : cases) {
      ++failed;
      const auto status = UserStore(path)->Status();
      if (status.state != SettingsStoreState::Unusable ||
          status.reason != std::string("not a regular file ") + kind) {
        return failed;
      }
    }
    return 0;
  });
  EXPECT_EQ(Wait(child), 0) << "-1: it hung; n: case n was not refused by its kind";
}

std::uint32_t Be32At(const std::vector<char>& bytes, std::size_t at) {
  std::uint32_t v = 0;
  for (std::size_t i = at; i < at + 4; ++i) v = v << 8 | static_cast<unsigned char>(bytes[i]);
  return v;
}

void SetBe32(std::vector<char>& bytes, std::size_t at, std::uint32_t v) {
  for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(v >> (24 - 8 * i));
}

TEST(SqliteStore, HeaderThatContradictsItselfOrTheFileIsRefusedAsCorrupt) {
  TempDir dir;
  {
    auto store = UserStore(dir / "sound.db");
    const auto key = *store->CreateKey(kSettingsRootKey, L"Bulk");
    for (int i = 0; i < 40; ++i) {
      store->WriteValue(key, std::to_wstring(i),
                        SettingsValue::Binary(std::vector<std::uint8_t>(2000, 7)));
    }
    ASSERT_EQ(store->DeleteKey(key), SettingsError::None);  // leaves free pages
  }
  const std::vector<char> sound = FileBytes(dir / "sound.db");
  const std::uint32_t pages = Be32At(sound, 28);
  ASSERT_EQ(pages * 4096ull, sound.size());
  ASSERT_GT(Be32At(sound, 36), 0u);
  const std::pair<const char*, std::function<void(std::vector<char>&)>> damages[] = {
      {"page count halved", [&](auto& b) { SetBe32(b, 28, pages / 2); }},
      {"a partial page at the end, count untrusted",
       [](auto& b) {
         b.resize(b.size() + 100);
         b[92] ^= 1;
       }},
      {"free list beyond the last page", [&](auto& b) { SetBe32(b, 32, pages + 1); }},
      {"every page free", [&](auto& b) { SetBe32(b, 36, pages); }},
      {"free list without a count", [](auto& b) { SetBe32(b, 36, 0); }},
      {"a count without a free list", [](auto& b) { SetBe32(b, 32, 0); }},
  };
  for (const auto& [what, damage] : damages) {
    std::vector<char> bytes = sound;
    damage(bytes);
    const std::string path = dir / (std::string(what) + ".db");
    settings_test::WriteFileBytes(path, bytes);
    const auto status = UserStore(path)->Status();
    EXPECT_EQ(status.state, SettingsStoreState::Unusable) << what;
    EXPECT_EQ(status.reason.rfind("corrupt: ", 0), 0u) << what << ": " << status.reason;
    EXPECT_EQ(FileBytes(path), bytes) << what;
  }
}

TEST(SqliteStore, StoreBeingWrittenByAnotherProcessAlwaysOpens) {
  TempDir dir;
  const std::string path = dir / "user.db";
  UserStore(path);
  int stop[2], started[2];
  ASSERT_EQ(pipe2(stop, O_NONBLOCK), 0);
  ASSERT_EQ(pipe(started), 0);
  // Each round opens and closes the store, so that its log is checkpointed (a few
  // hundred pages at a time), removed and made again; the deletes fill the free list.
  // The writer stops when this process closes its end of `stop`.
  const pid_t child = Spawn([&] {
    close(stop[1]);
    close(started[0]);
    char c;
    for (int round = 0; read(stop[0], &c, 1) < 0 && errno == EAGAIN; ++round) {
      auto store = UserStore(path);
      const auto key = store->CreateKey(kSettingsRootKey, L"Live");
      for (int i = 0; key.ok() && i < 20; ++i) {
        store->WriteValue(*key, std::to_wstring(round * 20 + i),
                          SettingsValue::Binary(std::vector<std::uint8_t>(30000, 1)));
      }
      if (round % 5 == 4 && key.ok()) store->DeleteKey(*key);
      if (round == 2 && write(started[1], "x", 1) != 1) return 1;
    }
    return 0;
  });
  close(stop[0]);
  close(started[1]);
  char c;
  const bool running = read(started[0], &c, 1) == 1;
  std::string refused;
  for (int i = 0; running && i < 300 && refused.empty(); ++i) {
    const auto status = UserStore(path)->Status();
    if (status.state != SettingsStoreState::Writable) {
      refused = "open " + std::to_string(i) + ": " + status.reason;
    }
  }
  close(stop[1]);
  close(started[0]);
  EXPECT_EQ(Wait(child), 0);
  EXPECT_TRUE(running);
  EXPECT_EQ(refused, "");
  EXPECT_TRUE(UserStore(path)->Check().ok());
}

// ---- The machine store -------------------------------------------------------

TEST(SqliteStore, MissingMachineStoreIsNeverCreated) {
  TempDir dir;
  auto store = MachineStore(dir / "machine.db", false);
  EXPECT_EQ(store->Status().state, SettingsStoreState::Absent);
  EXPECT_EQ(store->FindKey(kSettingsRootKey, L"Installation").error(), SettingsError::Unavailable);
  EXPECT_FALSE(store->CreateKey(kSettingsRootKey, L"Installation").ok());
  EXPECT_NE(store->WriteValue(kSettingsRootKey, L"v", SettingsValue::Int(1)), SettingsError::None);
  const auto report = store->Check();
  EXPECT_FALSE(report.present);
  EXPECT_TRUE(report.ok());
  EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
}

TEST(SqliteStore, ReadOnlyMachineStoreServesReadsAndRefusesWrites) {
  TempDir dir;
  const std::string path = dir / "machine.db";
  {
    auto admin = MachineStore(path, true);
    const auto key = admin->CreateKey(kSettingsRootKey, L"Software\\Ostrel\\Arvenis\\Installation");
    ASSERT_EQ(admin->WriteValue(*key, L"DataPath", SettingsValue::String(L"/data")),
              SettingsError::None);
  }
  EXPECT_EQ(ModeOf(path), 0644u) << "every user reads the machine store";
  chmod(dir.path().c_str(), 0755);
  chmod(path.c_str(), 0444);
  const std::vector<char> before = FileBytes(path);
  // An ordinary user: root may write any file, so the check runs as nobody then.
  const pid_t child = Spawn([&] {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return 10;
    auto store = MachineStore(path, false);
    if (store->Status().state != SettingsStoreState::ReadOnly) return 11;
    const auto key = store->FindKey(kSettingsRootKey, L"Software\\Ostrel\\Arvenis\\Installation");
    if (!key.ok()) return 12;
    const auto value = store->ReadValue(*key, L"DataPath");
    if (!value.ok() || *value->AsString() != L"/data") return 13;
    if (store->WriteValue(*key, L"DataPath", SettingsValue::String(L"/x")) !=
        SettingsError::ReadOnly) {
      return 14;
    }
    if (store->CreateKey(kSettingsRootKey, L"New").error() != SettingsError::ReadOnly) return 15;
    return store->Check().ok() ? 0 : 16;
  });
  EXPECT_EQ(Wait(child), 0);
  EXPECT_EQ(FileBytes(path), before);
}

}  // namespace
