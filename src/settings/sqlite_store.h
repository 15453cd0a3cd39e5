// The settings store kept in an SQLite database file: the default store of both roots.
//
// Contract:
// - One connection per store object; a program opens each file once (see
//   store_registry.cpp). All calls are serialised by a mutex; while a thread holds a
//   transaction (BeginTransaction), calls from other threads wait for its end.
// - The file is opened when the object is made. A missing file is created only in mode
//   Create; otherwise the store stays Absent and looks for the file again at each key
//   lookup. A file that is not one of our stores, or is damaged, is never written: the
//   store becomes Unusable for the rest of the process, every other store object of
//   the same file in this process follows (damaged_files.h), none of them checkpoints
//   into it, and Check() names the reason.
// - Each write outside a transaction is its own transaction, committed before the call
//   returns; BeginTransaction/EndTransaction and Apply make many writes one.
// - Every commit records, in the same transaction, a change generation for each key it
//   changed, so that other processes drop from their caches only what changed.
// - A store object must not be used in a child made by fork() after the parent opened
//   it (an SQLite rule); the child opens its own.
#pragma once

#include <sqlite3.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "settings/damaged_files.h"
#include "settings/sqlite_statement.h"
#include "vglobal/settings_store.h"

namespace vglobal::settings {

class SqliteStore final : public SettingsStore {
 public:
  SqliteStore(std::string path, SettingsFileKind kind, SettingsOpenMode mode);
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
  SettingsError BeginTransaction() override;
  SettingsError EndTransaction(bool commit) override;

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

  // Locking: the mutex, once no other thread holds a transaction.
  std::unique_lock<std::mutex> Acquire();

  // Opening
  void OpenLocked();
  bool EnsureOpenLocked();
  std::string ConnectLocked(bool initialise);
  std::string InitialiseLocked();
  std::string UpgradeLocked();
  std::string CheckSchemaLocked();
  void CloseLocked();
  void MarkUnusableLocked(std::string reason);
  void FollowDamageLocked();
  SettingsError FromSqlite(int rc);
  bool UsableLocked() const;
  SettingsError WritableLocked() const;

  // Cache
  using LogHeader = std::array<unsigned char, 48>;
  std::optional<LogHeader> ReadLogHeaderLocked();
  void RefreshCacheLocked();
  bool DropChangedLocked();
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

  // Transactions
  static int OnBusy(void* self, int attempt);
  SettingsError BeginLocked();
  SettingsError EndLocked(bool commit);
  SettingsError Doom(SettingsError error);
  SettingsError RecordChangesLocked();
  SettingsError TransactLocked(const std::function<SettingsError()>& body);
  SettingsError StepDone(Query& query);
  SettingsError SyncLogLocked();

  std::mutex mutex_;
  std::condition_variable transactionEnded_;
  const std::string path_;
  const SettingsFileKind kind_;
  const SettingsOpenMode mode_;
  SettingsStoreStatus status_;
  sqlite3* db_ = nullptr;
  std::optional<FileIdentity> file_;  // the file the connection has open
  std::uint64_t damageEpoch_ = 0;     // of damaged_files.h, as last consulted

  // The open transaction: its depth of nesting, its thread, its first failure, the keys
  // it changed, whether it added or removed keys, and whether a sync was asked for.
  int depth_ = 0;
  std::thread::id owner_;
  SettingsError doomed_ = SettingsError::None;
  std::unordered_set<SettingsKeyId> changedKeys_;
  bool changedTree_ = false;
  bool syncWanted_ = false;

  struct Statements {
    Statement begin, beginRead, commit, rollback, dataVersion;
    Statement keyExists, findChild, insertKey, keyValues, subkeys, branch, deleteKey;
    Statement upsertValue, deleteValue, deleteValues;
    // Change generations; prepared only when the file has them.
    Statement lastGeneration, changedSince, recordChange, forgetChange;
  } st_;
  // The text of each statement above (sqlite_store.cpp).
  struct StatementText;
  static std::span<const StatementText> StatementTexts();

  std::chrono::steady_clock::time_point busySince_;
  std::int64_t dataVersion_ = -1;
  bool walIndex_ = false;               // the file uses a write-ahead log
  std::optional<LogHeader> logHeader_;  // as read before the last data_version
  bool generations_ = false;            // the file records change generations
  std::int64_t seenGeneration_ = 0;     // every change up to this one is in the cache
  // (parent, path as spelled by the caller) -> key id; 0 records a key found missing.
  std::unordered_map<SettingsKeyId, WideMap<SettingsKeyId>> paths_;
  std::unordered_map<SettingsKeyId, CachedKey> values_;
};

}  // namespace vglobal::settings
