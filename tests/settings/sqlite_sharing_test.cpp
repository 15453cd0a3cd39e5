// One store file shared by several connections (other programs, or other store objects
// of this one): transactions seen whole, caches that drop exactly what another
// connection changed, stores made before change generations, and damage that one
// connection finds stopping every connection of the file.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

#include "settings_test_support.h"
#include "vglobal/settings_store.h"

namespace {

using settings_test::FileBytes;
using settings_test::TempDir;
using vglobal::kSettingsRootKey;
using vglobal::SettingsError;
using vglobal::SettingsKeyId;
using vglobal::SettingsStore;
using vglobal::SettingsStoreState;
using vglobal::SettingsValue;

std::shared_ptr<SettingsStore> Open(
    const std::string& path, vglobal::SettingsOpenMode mode = vglobal::SettingsOpenMode::Create) {
  return vglobal::OpenSqliteSettingsStore(path, vglobal::SettingsFileKind::User, mode);
}

// The int `name` of the key at `path`, as the store serves it (from its cache if it has
// one), or nullopt.
std::optional<int> IntAt(SettingsStore& store, std::wstring_view path, std::wstring_view name) {
  const auto key = store.FindKey(kSettingsRootKey, path);
  if (!key) return std::nullopt;
  const auto value = store.ReadValue(*key, name);
  if (!value || !value->AsInt()) return std::nullopt;
  return *value->AsInt();
}

void Set(SettingsStore& store, std::wstring_view path, std::wstring_view name, int value) {
  const auto key = store.CreateKey(kSettingsRootKey, path);
  ASSERT_TRUE(key.ok());
  ASSERT_EQ(store.WriteValue(*key, name, SettingsValue::Int(value)), SettingsError::None);
}

// Runs SQL on the file through a connection of its own, as a program that knows
// nothing of the store's rules would.
void Raw(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  char* error = nullptr;
  const int rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error);
  EXPECT_EQ(rc, SQLITE_OK) << (error ? error : "");
  sqlite3_free(error);
  sqlite3_close(db);
}

// ---- Transactions -----------------------------------------------------------

TEST(SqliteTransaction, OtherConnectionsSeeAllOfItOrNone) {
  TempDir dir;
  auto writer = Open(dir / "user.db");
  auto reader = Open(dir / "user.db");
  ASSERT_EQ(writer->BeginTransaction(), SettingsError::None);
  Set(*writer, L"A", L"v", 1);
  ASSERT_EQ(writer->BeginTransaction(), SettingsError::None);  // a writer inside a writer
  Set(*writer, L"B", L"v", 2);
  ASSERT_EQ(writer->EndTransaction(true), SettingsError::None);
  EXPECT_EQ(IntAt(*writer, L"B", L"v"), 2);  // its own changes, seen at once
  EXPECT_EQ(IntAt(*reader, L"A", L"v"), std::nullopt);
  EXPECT_EQ(IntAt(*reader, L"B", L"v"), std::nullopt);
  ASSERT_EQ(writer->EndTransaction(true), SettingsError::None);
  EXPECT_EQ(IntAt(*reader, L"A", L"v"), 1);
  EXPECT_EQ(IntAt(*reader, L"B", L"v"), 2);
  EXPECT_EQ(writer->EndTransaction(true), SettingsError::Failed);  // none is open
}

// ---- Caches of other connections --------------------------------------------

// Two connections to one file, as two programs have.
class SqliteCache : public ::testing::Test {
 protected:
  TempDir dir_;
  const std::string path = dir_ / "user.db";
  std::shared_ptr<SettingsStore> reader = Open(path), writer = Open(path);
};

TEST_F(SqliteCache, AnotherConnectionsWriteDropsOnlyTheKeysItChanged) {
  Set(*writer, L"Changed", L"v", 1);
  Set(*writer, L"Untouched", L"v", 1);
  ASSERT_EQ(IntAt(*reader, L"Changed", L"v"), 1);
  ASSERT_EQ(IntAt(*reader, L"Untouched", L"v"), 1);

  Set(*writer, L"Changed", L"v", 2);
  // Behind the store's back, without a change generation: only a reader that kept
  // "Untouched" in its cache still serves 1.
  Raw(path,
      "UPDATE settings_value SET data = 9 WHERE name = 'v' AND key = "
      "(SELECT id FROM settings_key WHERE name = 'Untouched')");
  EXPECT_EQ(IntAt(*reader, L"Changed", L"v"), 2);
  EXPECT_EQ(IntAt(*reader, L"Untouched", L"v"), 1);
  // A commit that records no generation at all cannot be told apart: the whole cache goes.
  Raw(path, "UPDATE settings_value SET data = 7 WHERE name = 'v'");
  EXPECT_EQ(IntAt(*reader, L"Untouched", L"v"), 7);
}

TEST_F(SqliteCache, KeysAddedOrRemovedElsewhereAreSeen) {
  Set(*writer, L"Doomed", L"v", 1);
  ASSERT_EQ(IntAt(*reader, L"Later", L"v"), std::nullopt);  // remembered as missing
  const SettingsKeyId held = *reader->FindKey(kSettingsRootKey, L"Doomed");
  ASSERT_TRUE(reader->ReadValue(held, L"v").ok());

  Set(*writer, L"Later", L"v", 2);
  ASSERT_EQ(writer->DeleteKey(*writer->FindKey(kSettingsRootKey, L"Doomed")), SettingsError::None);
  EXPECT_EQ(IntAt(*reader, L"Later", L"v"), 2);
  EXPECT_EQ(reader->ReadValue(held, L"v").error(), SettingsError::NotFound);
}

// ---- Stores made before change generations ----------------------------------

TEST(SqliteStoreFile, AnOlderStoreIsUpgradedByTheFirstWriterAndReadByAnyone) {
  TempDir dir;
  const std::string path = dir / "user.db";
  Set(*Open(path), L"K", L"v", 1);
  Raw(path, "DROP TABLE settings_change; PRAGMA user_version = 1;");

  auto looking = Open(path, vglobal::SettingsOpenMode::ReadOnly);
  EXPECT_EQ(IntAt(*looking, L"K", L"v"), 1);
  auto writing = Open(path, vglobal::SettingsOpenMode::ReadWrite);
  EXPECT_EQ(writing->Status().state, SettingsStoreState::Writable);
  Set(*writing, L"K", L"v", 2);
  EXPECT_EQ(IntAt(*looking, L"K", L"v"), 2);
  EXPECT_TRUE(writing->Check().ok());
}

// ---- Damage ------------------------------------------------------------------

// Overwrites every page after the first with garbage: the header and the schema stay
// sound, so the damage shows only when a statement reaches a table.
void DamagePagesAfterTheFirst(const std::string& path) {
  std::vector<char> bytes = FileBytes(path);
  const std::size_t page =
      (static_cast<unsigned char>(bytes[16]) << 8) | static_cast<unsigned char>(bytes[17]);
  for (std::size_t i = page; i < bytes.size(); ++i) bytes[i] = static_cast<char>(0xA5 ^ i);
  settings_test::WriteFileBytes(path, bytes);
}

TEST(SqliteDamage, DamageOneConnectionFindsStopsEveryConnectionOfTheFile) {
  TempDir dir;
  const std::string path = dir / "user.db";
  {
    auto store = Open(path);
    for (int k = 0; k < 20; ++k) Set(*store, L"Key " + std::to_wstring(k), L"v", k);
  }
  ASSERT_FALSE(std::filesystem::exists(path + "-wal"));  // all in the file
  DamagePagesAfterTheFirst(path);
  const std::vector<char> damaged = FileBytes(path);
  {
    auto first = Open(path);
    auto second = Open(path);
    ASSERT_EQ(second->Status().state, SettingsStoreState::Writable);  // not found yet
    EXPECT_FALSE(first->FindKey(kSettingsRootKey, L"Key 3").ok());
    EXPECT_EQ(first->Status().state, SettingsStoreState::Unusable);
    EXPECT_EQ(second->WriteValue(kSettingsRootKey, L"v", SettingsValue::Int(1)),
              SettingsError::Unavailable);
    EXPECT_EQ(second->Status().state, SettingsStoreState::Unusable);
    EXPECT_NE(second->Status().reason.find("corrupt"), std::string::npos);
    // A store object opened afterwards in this process knows it too.
    EXPECT_EQ(Open(path)->Status().state, SettingsStoreState::Unusable);
  }
  EXPECT_EQ(FileBytes(path), damaged);
}

TEST(SqliteOpenMode, ReadOnlyNeverWritesTheFileEvenWithAPendingLog) {
  TempDir dir;
  const std::string path = dir / "user.db";
  // A program that wrote and died leaves its commits in the log, not yet in the file.
  const pid_t child = settings_test::Spawn([&]() -> int {
    auto store = Open(path);
    for (int k = 0; k < 50; ++k) Set(*store, L"Key " + std::to_wstring(k), L"v", k);
    _exit(0);
  });
  ASSERT_EQ(settings_test::Wait(child), 0);
  ASSERT_GT(std::filesystem::file_size(path + "-wal"), 0u);
  const std::vector<char> before = FileBytes(path);
  {
    auto store = Open(path, vglobal::SettingsOpenMode::ReadOnly);
    EXPECT_EQ(store->Status().state, SettingsStoreState::ReadOnly);
    EXPECT_EQ(IntAt(*store, L"Key 49", L"v"), 49);
    EXPECT_EQ(store->WriteValue(kSettingsRootKey, L"v", SettingsValue::Int(1)),
              SettingsError::ReadOnly);
    EXPECT_TRUE(store->Check().ok());
  }
  EXPECT_EQ(FileBytes(path), before);
  EXPECT_EQ(Open(path, vglobal::SettingsOpenMode::ReadOnly)->Status().state,
            SettingsStoreState::ReadOnly);
  EXPECT_EQ(Open(dir / "missing.db", vglobal::SettingsOpenMode::ReadOnly)->Status().state,
            SettingsStoreState::Absent);
  EXPECT_FALSE(std::filesystem::exists(dir / "missing.db"));
}

}  // namespace
