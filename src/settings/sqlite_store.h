// The settings store kept in an SQLite database file: the default store of both roots.
//
// Contract:
// - One connection per store object; the process keeps one store object per file (see
//   store_registry.cpp). All calls are serialised by a mutex.
// - The file is opened when the object is made. A missing file is created only when
//   the object was made with createIfMissing; otherwise the store stays Absent and
//   looks for the file again at each key lookup. A file that is not one of our stores,
//   or is damaged, is never written: the store becomes Unusable for the rest of the
//   process, and Check() names the reason.
// - Each write is its own transaction, committed before the call returns; Apply
//   makes a whole batch of changes in one.
// - A store object must not be used in a child made by fork() after the parent opened
//   it (an SQLite rule); the child opens its own.
#pragma once

#include <sqlite3.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "settings/sqlite_statement.h"
#include "vglobal/settings_store.h"

namespace vglobal::settings {

class SqliteStore final : public SettingsStore {
 public:
  SqliteStore(std::string path, SettingsFileKind kind, bool createIfMissing);
  ~SqliteStore() override;
  SqliteStore(const SqliteStore&) = delete;
  SqliteStore& operator=(const SqliteStore&) = delete;

  std::string Location() const override { return path_; }
  SettingsStoreStatus Status() override;
  SettingsResult<SettingsKeyId> FindKey(SettingsKeyId parent, std::wstring_view path) override;
  SettingsResult<SettingsKeyId> CreateKey(SettingsKeyId parent, std::wstring_view path) override;
  SettingsResult<SettingsValue> ReadValue(SettingsKeyId key, std::wstring_view name) override;
  SettingsError WriteValue(SettingsKeyId key, std::wstring_view name,
                           const SettingsValue& value) override;
  SettingsError DeleteValue(SettingsKeyId key, std::wstring_view name) override;
  SettingsError DeleteKey(SettingsKeyId key) override;
  SettingsError DeleteContents(SettingsKeyId key) override;
  SettingsResult<std::vector<std::wstring>> ValueNames(SettingsKeyId key) override;
  SettingsResult<std::vector<std::wstring>> SubkeyNames(SettingsKeyId key) override;
  SettingsError Sync() override;
  SettingsCheckReport Check() override;
  SettingsApplyResult Apply(const std::vector<SettingsChange>& changes) override;

 private:
  // Hash of wide strings that also finds entries by std::wstring_view, so that cache
  // lookups do not build a string.
  struct WideHash {
    using is_transparent = void;
    std::size_t operator()(std::wstring_view s) const noexcept {
      return std::hash<std::wstring_view>()(s);
    }
  };
  template <typename T>
  using WideMap = std::unordered_map<std::wstring, T, WideHash, std::equal_to<>>;

  // The values of one key as last read, in creation order, found by spelling or by
  // folded name.
  struct CachedValue {
    std::wstring name, folded;
    SettingsValue value;
  };
  struct CachedKey {
    std::vector<CachedValue> values;
    WideMap<std::size_t> byName, byFolded;
    void Index();
  };

  // Opening
  void OpenLocked();
  bool EnsureOpenLocked();
  std::string ConnectLocked(bool initialise);
  std::string InitialiseLocked();
  std::string CheckSchemaLocked();
  void CloseLocked();
  void MarkUnusableLocked(std::string reason);
  SettingsError FromSqlite(int rc);
  bool UsableLocked() const;
  SettingsError WritableLocked() const;

  // Cache
  using LogHeader = std::array<unsigned char, 48>;
  std::optional<LogHeader> ReadLogHeaderLocked();
  void RefreshCacheLocked();
  void DropCacheLocked();
  SettingsResult<CachedKey*> LoadValuesLocked(SettingsKeyId key);

  // Keys
  SettingsResult<SettingsKeyId> ChildLocked(SettingsKeyId parent, const std::string& folded);
  SettingsResult<SettingsKeyId> LookupLocked(SettingsKeyId parent, std::wstring_view path,
                                             bool create);
  SettingsError DeleteBranchesLocked(SettingsKeyId key, bool includingKey);

  // Values
  SettingsError WriteValueLocked(SettingsKeyId key, std::wstring_view name,
                                 const SettingsValue& value);
  SettingsError DeleteValueLocked(SettingsKeyId key, std::wstring_view name);
  SettingsError ApplyLocked(const SettingsChange& change);

  // Writes
  static int OnBusy(void* self, int attempt);
  SettingsError TransactLocked(const std::function<SettingsError()>& body);
  SettingsError StepDone(Query& query);

  std::mutex mutex_;
  const std::string path_;
  const SettingsFileKind kind_;
  const bool createIfMissing_;
  SettingsStoreStatus status_;
  sqlite3* db_ = nullptr;
  bool batch_ = false;  // Apply's transaction is open: every write joins it

  struct Statements {
    Statement begin, commit, rollback, dataVersion;
    Statement keyExists, findChild, insertKey, keyValues, subkeys, branch, deleteKey;
    Statement upsertValue, deleteValue, deleteValues;
  } st_;

  std::chrono::steady_clock::time_point busySince_;
  std::int64_t dataVersion_ = -1;
  bool walIndex_ = false;               // the file uses a write-ahead log
  std::optional<LogHeader> logHeader_;  // as read before the last data_version
  // (parent, path as spelled by the caller) -> key id; 0 records a key found missing.
  std::unordered_map<SettingsKeyId, WideMap<SettingsKeyId>> paths_;
  std::unordered_map<SettingsKeyId, CachedKey> values_;
};

}  // namespace vglobal::settings
