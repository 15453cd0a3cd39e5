// The SQLite settings store.
//
// Map of this file:
//   1. Schema      the tables, and the check that an opened file really has them
//   2. Opening     inspection, creation, connection settings, initialisation
//   3. Errors      SQLite results as SettingsError; damaged files become Unusable
//   4. Cache       key paths and key values; what another process changed is dropped
//   5. Keys        find, create, delete
//   6. Values      read, write, delete, list
//   7. Transactions  many changes in one: Begin/EndTransaction, Apply; generations
//   8. Durability  Sync
//   9. Check       the integrity report
#include "settings/sqlite_store.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

#include "settings/settings_names.h"
#include "settings/sqlite_codec.h"
#include "settings/sqlite_file.h"
#include "vglobal/compat/unicode.h"

namespace vglobal::settings {

// ---- 1. Schema ----------------------------------------------------------

namespace {

// Version 1 had the keys and values only; version 2 added the change generations. A
// version 1 file is upgraded by the first program that opens it for writing.
constexpr int kSchemaVersion = 2;

// Names are kept as spelled and folded (vglobal::FoldCase, upper case for all of
// Unicode); uniqueness is on the folded name, which the library computes itself so
// that every store folds exactly as the memory store does. AUTOINCREMENT keeps key ids
// from being reused after a delete: an open key object holding a deleted key's id must
// fail, not reach a newer key.
constexpr std::string_view kCreateKeyTable =
    "CREATE TABLE settings_key (\n"
    "  id INTEGER PRIMARY KEY AUTOINCREMENT,\n"
    "  parent INTEGER REFERENCES settings_key (id) ON DELETE CASCADE,\n"
    "  name TEXT NOT NULL,\n"
    "  folded TEXT NOT NULL,\n"
    "  UNIQUE (parent, folded)\n"
    ")";
// A value's row id gives the order of value names: a new value takes the largest id so
// far, and an overwrite (an upsert) keeps its row.
constexpr std::string_view kCreateValueTable =
    "CREATE TABLE settings_value (\n"
    "  id INTEGER PRIMARY KEY,\n"
    "  key INTEGER NOT NULL REFERENCES settings_key (id) ON DELETE CASCADE,\n"
    "  name TEXT NOT NULL,\n"
    "  folded TEXT NOT NULL,\n"
    "  type INTEGER NOT NULL,\n"
    "  data BLOB NOT NULL,\n"
    "  UNIQUE (key, folded)\n"
    ")";
// The generation of the last commit that changed each key's values, and as key 0 the
// generation of the last commit that added or removed any key. A commit takes the
// largest generation so far plus one. Rows go with their keys.
constexpr std::string_view kCreateChangeTable =
    "CREATE TABLE settings_change (\n"
    "  key INTEGER PRIMARY KEY,\n"
    "  generation INTEGER NOT NULL\n"
    ")";
constexpr std::string_view kCreateChangeIndex =
    "CREATE INDEX settings_change_generation ON settings_change (generation)";
// The key standing for the shape of the tree in settings_change.
constexpr SettingsKeyId kTreeChange = 0;

struct SchemaObject {
  std::string_view type, name, sql;  // empty sql: made by SQLite itself
  int since;                         // the schema version that added it
};
constexpr std::array<SchemaObject, 7> kSchema{{
    {"table", "settings_key", kCreateKeyTable, 1},
    {"table", "settings_value", kCreateValueTable, 1},
    {"table", "sqlite_sequence", "CREATE TABLE sqlite_sequence(name,seq)", 1},
    {"index", "sqlite_autoindex_settings_key_1", "", 1},
    {"index", "sqlite_autoindex_settings_value_1", "", 1},
    {"table", "settings_change", kCreateChangeTable, 2},
    {"index", "settings_change_generation", kCreateChangeIndex, 2},
}};

std::string ErrorText(sqlite3* db) {
  return db ? sqlite3_errmsg(db) : "out of memory";
}

}  // namespace

std::string SqliteStore::CheckSchemaLocked() {
  sqlite3_stmt* raw = nullptr;
  auto scalar = [&](const char* sql, std::int64_t& out) {
    int rc = sqlite3_prepare_v2(db_, sql, -1, &raw, nullptr);
    if (rc == SQLITE_OK) rc = sqlite3_step(raw);
    if (rc == SQLITE_ROW) out = sqlite3_column_int64(raw, 0);
    sqlite3_finalize(raw);
    return rc == SQLITE_ROW;
  };
  std::int64_t id = 0, version = 0;
  if (!scalar("PRAGMA application_id", id) || !scalar("PRAGMA user_version", version)) {
    return "cannot be read: " + ErrorText(db_);
  }
  if (id != kStoreApplicationId) return "not a settings store (another program's database)";
  if (version > kSchemaVersion) {
    return "written by a newer version of the suite (schema " + std::to_string(version) + ")";
  }
  if (version < 1) return "unknown schema version " + std::to_string(version);

  Statement list;
  if (list.Prepare(db_, "SELECT type, name, sql FROM sqlite_schema ORDER BY name") != SQLITE_OK) {
    return "cannot be read: " + ErrorText(db_);
  }
  Query q(list);
  std::size_t seen = 0, expected = 0;
  for (const SchemaObject& o : kSchema) expected += o.since <= version ? 1 : 0;
  for (int rc; (rc = q.Step()) != SQLITE_DONE;) {
    if (rc != SQLITE_ROW) return "cannot be read: " + ErrorText(db_);
    bool known = false;
    for (const SchemaObject& o : kSchema) {
      known = known || (o.since <= version && q.Text(0) == o.type && q.Text(1) == o.name &&
                        q.Text(2) == o.sql);
    }
    if (!known) return "unexpected schema object '" + std::string(q.Text(1)) + "'";
    ++seen;
  }
  if (seen != expected) return "incomplete schema";
  generations_ = version >= 2;
  return {};
}

// ---- 2. Opening -----------------------------------------------------------

SqliteStore::SqliteStore(std::string path, SettingsFileKind kind, SettingsOpenMode mode)
    : path_(std::move(path)), kind_(kind), mode_(mode) {
  std::lock_guard lock(mutex_);
  OpenLocked();
}

SqliteStore::~SqliteStore() {
  std::lock_guard lock(mutex_);
  CloseLocked();
}

std::unique_lock<std::mutex> SqliteStore::Acquire() {
  std::unique_lock lock(mutex_);
  transactionEnded_.wait(lock, [&] { return depth_ == 0 || owner_ == std::this_thread::get_id(); });
  FollowDamageLocked();
  return lock;
}

void SqliteStore::OpenLocked() {
  // A file that another store object of this process has open was inspected when that
  // one opened it, and must not be opened and closed again beside SQLite: closing any
  // descriptor of a file drops every POSIX lock the process holds on it, SQLite's too.
  const std::optional<FileIdentity> known = IdentifyFile(path_);
  FileInspection file = known && FileIsOpen(*known) ? FileInspection{FileState::Database, {}}
                                                    : InspectStoreFile(path_);
  if (file.state == FileState::Missing && mode_ == SettingsOpenMode::Create) {
    // The user's store is private to the user; the machine store is written by the
    // administrator and read by everyone.
    const bool user = kind_ == SettingsFileKind::User;
    const std::string error = CreateStoreFile(path_, user ? 0700 : 0755, user ? 0600 : 0644);
    if (!error.empty()) {
      status_ = {SettingsStoreState::Unusable, error};
      return;
    }
    file = InspectStoreFile(path_);
  }
  switch (file.state) {
    case FileState::Missing:
      status_ = {SettingsStoreState::Absent, "no store file"};
      return;
    case FileState::Unusable:
      status_ = {SettingsStoreState::Unusable, file.reason};
      // Store objects of this file that were opened before the damage must stop too.
      if (file.reason.rfind("corrupt", 0) == 0) {
        if (auto identity = IdentifyFile(path_)) MarkFileDamaged(*identity, file.reason);
      }
      return;
    case FileState::Empty:
      if (mode_ != SettingsOpenMode::Create) {
        status_ = {SettingsStoreState::Absent, "the store file is empty (not initialised)"};
        return;
      }
      break;
    case FileState::Database:
      break;
  }
  file_ = IdentifyFile(path_);
  if (file_) {
    if (std::optional<std::string> damage = FileDamage(*file_)) {
      status_ = {SettingsStoreState::Unusable, *damage};
      file_.reset();
      return;
    }
    NoteFileOpen(*file_);
  }
  damageEpoch_ = DamageEpoch();
  const std::string error = ConnectLocked(file.state == FileState::Empty);
  if (!error.empty()) {
    CloseLocked();
    status_ = {SettingsStoreState::Unusable, error};
  }
}

bool SqliteStore::EnsureOpenLocked() {
  // A missing store may be created by the administrator while programs run.
  if (status_.state == SettingsStoreState::Absent) OpenLocked();
  return UsableLocked();
}

struct SqliteStore::StatementText {
  Statement Statements::*statement;
  const char* sql;
  bool generations;  // only in a file that keeps change generations
};

std::span<const SqliteStore::StatementText> SqliteStore::StatementTexts() {
  static constexpr StatementText kTexts[] = {
      {&Statements::begin, "BEGIN IMMEDIATE", false},
      {&Statements::beginRead, "BEGIN", false},
      {&Statements::commit, "COMMIT", false},
      {&Statements::rollback, "ROLLBACK", false},
      {&Statements::dataVersion, "PRAGMA data_version", false},
      {&Statements::keyExists, "SELECT 1 FROM settings_key WHERE id = ?1", false},
      {&Statements::findChild, "SELECT id FROM settings_key WHERE parent = ?1 AND folded = ?2",
       false},
      {&Statements::insertKey,
       "INSERT INTO settings_key (parent, name, folded) VALUES (?1, ?2, ?3)", false},
      {&Statements::keyValues,
       "SELECT v.name, v.folded, v.type, v.data FROM settings_key AS k "
       "LEFT JOIN settings_value AS v ON v.key = k.id WHERE k.id = ?1 ORDER BY v.id",
       false},
      {&Statements::subkeys, "SELECT name FROM settings_key WHERE parent = ?1 ORDER BY id", false},
      {&Statements::branch,
       "WITH RECURSIVE branch (id) AS (SELECT id FROM settings_key WHERE id = ?1 "
       "UNION ALL SELECT k.id FROM settings_key AS k JOIN branch AS b ON k.parent = b.id) "
       "SELECT id FROM branch ORDER BY id DESC",
       false},
      {&Statements::deleteKey, "DELETE FROM settings_key WHERE id = ?1", false},
      {&Statements::upsertValue,
       "INSERT INTO settings_value (key, name, folded, type, data) VALUES (?1, ?2, ?3, ?4, ?5) "
       "ON CONFLICT (key, folded) DO UPDATE SET type = excluded.type, data = excluded.data",
       false},
      {&Statements::deleteValue, "DELETE FROM settings_value WHERE key = ?1 AND folded = ?2",
       false},
      {&Statements::deleteValues, "DELETE FROM settings_value WHERE key = ?1", false},
      // max() alone, so that SQLite takes it from the end of the index; NULL (read as
      // 0) when nothing was recorded yet.
      {&Statements::lastGeneration, "SELECT max(generation) FROM settings_change", true},
      {&Statements::changedSince,
       "SELECT key, generation FROM settings_change WHERE generation > ?1", true},
      {&Statements::recordChange,
       "INSERT INTO settings_change (key, generation) VALUES (?1, ?2) "
       "ON CONFLICT (key) DO UPDATE SET generation = excluded.generation",
       true},
      {&Statements::forgetChange, "DELETE FROM settings_change WHERE key = ?1", true},
  };
  return kTexts;
}

int SqliteStore::OnBusy(void* self, int attempt) {
  // SQLite's own busy timeout sleeps in steps growing to 100 ms, far longer than a
  // settings write holds the lock; two programs writing in turn would mostly sleep.
  // This polls from 50 us upwards, capped at 5 ms, and gives up after 10 s.
  auto* store = static_cast<SqliteStore*>(self);
  const auto now = std::chrono::steady_clock::now();
  if (attempt == 0) store->busySince_ = now;
  if (now - store->busySince_ > std::chrono::seconds(10)) return 0;
  const int shift = attempt < 7 ? attempt : 7;
  const auto pause = std::chrono::microseconds(50 << shift);
  std::this_thread::sleep_for(
      std::min<std::chrono::microseconds>(pause, std::chrono::milliseconds(5)));
  return 1;
}

std::string SqliteStore::ConnectLocked(bool initialise) {
  // READWRITE without CREATE: SQLite never makes the file; it opens read-only by itself
  // when the file may not be written.
  const int access =
      mode_ == SettingsOpenMode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  int rc = sqlite3_open_v2(path_.c_str(), &db_, access | SQLITE_OPEN_NOMUTEX, nullptr);
  if (rc != SQLITE_OK) return "cannot be opened: " + ErrorText(db_);
  sqlite3_extended_result_codes(db_, 1);
  sqlite3_busy_handler(db_, &SqliteStore::OnBusy, this);
  // Connection settings only; none of these writes to the file. The user store commits
  // without a sync (a commit in the write-ahead log survives a crash of the program;
  // Sync() makes it survive a power failure). The machine store syncs each commit:
  // its writes are rare and come from an administrator's tool.
  const char* setup = kind_ == SettingsFileKind::User
                          ? "PRAGMA foreign_keys = ON; PRAGMA trusted_schema = OFF;"
                            "PRAGMA cell_size_check = ON; PRAGMA synchronous = NORMAL;"
                          : "PRAGMA foreign_keys = ON; PRAGMA trusted_schema = OFF;"
                            "PRAGMA cell_size_check = ON; PRAGMA synchronous = FULL;";
  if (sqlite3_exec(db_, setup, nullptr, nullptr, nullptr) != SQLITE_OK) {
    return "cannot be opened: " + ErrorText(db_);
  }
  const bool readOnly =
      mode_ == SettingsOpenMode::ReadOnly || sqlite3_db_readonly(db_, "main") == 1;
  if (initialise) {
    if (std::string error = InitialiseLocked(); !error.empty()) return error;
  }
  if (std::string error = CheckSchemaLocked(); !error.empty()) return error;
  if (!generations_ && !readOnly) {
    if (std::string error = UpgradeLocked(); !error.empty()) return error;
  }

  for (const StatementText& t : StatementTexts()) {
    if (t.generations && !generations_) continue;
    if ((st_.*t.statement).Prepare(db_, t.sql) != SQLITE_OK) {
      return "cannot be used: " + ErrorText(db_);
    }
  }
  if (mode_ == SettingsOpenMode::ReadOnly) {
    status_ = {SettingsStoreState::ReadOnly, "opened for reading only"};
  } else if (readOnly) {
    status_ = {SettingsStoreState::ReadOnly, "no permission to write"};
  } else {
    status_ = {SettingsStoreState::Writable, {}};
  }
  // Asking for the journal mode without giving one changes nothing.
  walIndex_ = false;
  if (Statement mode; mode.Prepare(db_, "PRAGMA journal_mode") == SQLITE_OK) {
    Query q(mode);
    walIndex_ = q.Step() == SQLITE_ROW && q.Text(0) == "wal";
  }
  dataVersion_ = -1;
  logHeader_.reset();
  seenGeneration_ = -1;  // unknown: the first refresh starts the cache afresh
  RefreshCacheLocked();
  return {};
}

std::string SqliteStore::InitialiseLocked() {
  // Two programs may find the same empty file at once: the schema is made inside one
  // write transaction, and only when the file still has none.
  const std::string setup =
      "PRAGMA application_id = " + std::to_string(kStoreApplicationId) +
      "; PRAGMA user_version = " + std::to_string(kSchemaVersion) + "; " +
      std::string(kCreateKeyTable) + "; " + std::string(kCreateValueTable) + "; " +
      std::string(kCreateChangeTable) + "; " + std::string(kCreateChangeIndex) +
      "; INSERT INTO settings_key (id, parent, name, folded) VALUES (1, NULL, '', '');";
  if (sqlite3_exec(db_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK) {
    return "cannot be initialised: " + ErrorText(db_);
  }
  bool empty = false;
  sqlite3_stmt* count = nullptr;
  if (sqlite3_prepare_v2(db_, "SELECT count(*) FROM sqlite_schema", -1, &count, nullptr) ==
          SQLITE_OK &&
      sqlite3_step(count) == SQLITE_ROW) {
    empty = sqlite3_column_int64(count, 0) == 0;
  }
  sqlite3_finalize(count);
  int rc = empty ? sqlite3_exec(db_, setup.c_str(), nullptr, nullptr, nullptr) : SQLITE_OK;
  if (rc == SQLITE_OK) rc = sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) {
    std::string error = "cannot be initialised: " + ErrorText(db_);
    sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    return error;
  }
  // The first commit went through a rollback journal, straight into the file, so the
  // file's own header carries our application id from the start: other programs
  // inspect that header before they open the file, and in write-ahead-log mode the
  // header is otherwise updated only at checkpoints. The journal mode is chosen here,
  // once, by the program that made the schema, and never changed later.
  if (empty && kind_ == SettingsFileKind::User &&
      sqlite3_exec(db_, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr) != SQLITE_OK) {
    return "cannot be initialised: " + ErrorText(db_);
  }
  return {};
}

std::string SqliteStore::UpgradeLocked() {
  // A store made before change generations existed gets them. Another program may be
  // upgrading the same file: the version is looked at again inside the transaction.
  const std::string upgrade = std::string(kCreateChangeTable) + "; " +
                              std::string(kCreateChangeIndex) +
                              "; PRAGMA user_version = " + std::to_string(kSchemaVersion) + ";";
  if (sqlite3_exec(db_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK) {
    return "cannot be upgraded: " + ErrorText(db_);
  }
  int rc = SQLITE_OK;
  if (std::string schema = CheckSchemaLocked(); !schema.empty()) {
    sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    return schema;
  }
  if (!generations_) rc = sqlite3_exec(db_, upgrade.c_str(), nullptr, nullptr, nullptr);
  if (rc == SQLITE_OK) rc = sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) {
    std::string error = "cannot be upgraded: " + ErrorText(db_);
    sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    return error;
  }
  generations_ = true;
  return {};
}

void SqliteStore::CloseLocked() {
  for (const StatementText& t : StatementTexts()) (st_.*t.statement).Finalize();
  // The last connection to close checkpoints the log into the file, which must not
  // happen to a file that this process or another store object of it found damaged.
  FollowDamageLocked();
  if (db_ && status_.state == SettingsStoreState::Unusable) {
    sqlite3_db_config(db_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  }
  sqlite3_close_v2(db_);  // an open transaction is rolled back
  db_ = nullptr;
  if (file_) NoteFileClosed(*file_);
  file_.reset();
  generations_ = false;
  DropCacheLocked();
}

SettingsStoreStatus SqliteStore::Status() {
  auto lock = Acquire();
  EnsureOpenLocked();
  return status_;
}

// ---- 3. Errors ------------------------------------------------------------

void SqliteStore::MarkUnusableLocked(std::string reason) {
  // A damaged file is left as it is from now on: no more writes, and no checkpoint
  // into it when the connection closes.
  if (db_) sqlite3_db_config(db_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  if (file_) MarkFileDamaged(*file_, reason);
  damageEpoch_ = DamageEpoch();
  status_ = {SettingsStoreState::Unusable, std::move(reason)};
  DropCacheLocked();
}

void SqliteStore::FollowDamageLocked() {
  if (!file_ || status_.state == SettingsStoreState::Unusable) return;
  const std::uint64_t epoch = DamageEpoch();
  if (epoch == damageEpoch_) return;
  damageEpoch_ = epoch;
  if (std::optional<std::string> damage = FileDamage(*file_)) MarkUnusableLocked(*damage);
}

SettingsError SqliteStore::FromSqlite(int rc) {
  switch (rc & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
      return SettingsError::None;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return SettingsError::Busy;
    case SQLITE_READONLY:
      return SettingsError::ReadOnly;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      MarkUnusableLocked("corrupt: " + ErrorText(db_));
      return SettingsError::Unavailable;
    case SQLITE_CONSTRAINT:
      // The only constraint a caller can meet is a key id that no longer exists.
      return rc == SQLITE_CONSTRAINT_FOREIGNKEY ? SettingsError::NotFound : SettingsError::Failed;
    case SQLITE_TOOBIG:
      return SettingsError::TooLarge;
    default:
      return SettingsError::Failed;
  }
}

bool SqliteStore::UsableLocked() const {
  return status_.state == SettingsStoreState::Writable ||
         status_.state == SettingsStoreState::ReadOnly;
}

SettingsError SqliteStore::WritableLocked() const {
  switch (status_.state) {
    case SettingsStoreState::Writable:
      return SettingsError::None;
    case SettingsStoreState::ReadOnly:
      return SettingsError::ReadOnly;
    default:
      return SettingsError::Unavailable;
  }
}

SettingsError SqliteStore::StepDone(Query& query) {
  const int rc = query.Step();
  return rc == SQLITE_DONE ? SettingsError::None : FromSqlite(rc);
}

// ---- 4. Cache -------------------------------------------------------------
//
// Reads are served from memory: the ids of key paths already looked up, and the values
// of keys already read. Our own writes update the cache as they commit. Another
// process's commit changes PRAGMA data_version, which is checked at every key lookup
// and when a transaction begins: a reader sees another program's write no later than
// the next key it opens. What that commit changed is then read from its change
// generations, and only those keys leave the cache.

void SqliteStore::CachedKey::Index() {
  byName.clear();
  byFolded.clear();
  for (std::size_t i = 0; i < values.size(); ++i) {
    byName.emplace(values[i].name, i);
    byFolded.emplace(values[i].folded, i);
  }
}

void SqliteStore::DropCacheLocked() {
  paths_.clear();
  values_.clear();
}

std::optional<SqliteStore::LogHeader> SqliteStore::ReadLogHeaderLocked() {
  // The first 48 bytes of the write-ahead log's shared-memory index are its header,
  // which every commit rewrites (a change counter, the frame count, salts and a
  // checksum). Processes running different SQLite versions share this index, so its
  // layout is a fixed protocol. Only for a writable store in WAL mode: there the index
  // is the shared file mapping that other processes update.
  if (!walIndex_ || status_.state != SettingsStoreState::Writable) return std::nullopt;
  sqlite3_file* file = nullptr;
  if (sqlite3_file_control(db_, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || !file ||
      !file->pMethods || file->pMethods->iVersion < 2 || !file->pMethods->xShmMap) {
    return std::nullopt;
  }
  volatile void* region = nullptr;
  if (file->pMethods->xShmMap(file, 0, 32768, 0, &region) != SQLITE_OK || !region) {
    return std::nullopt;
  }
  LogHeader header;
  const auto* bytes = static_cast<const volatile unsigned char*>(region);
  for (std::size_t i = 0; i < header.size(); ++i) header[i] = bytes[i];
  std::atomic_thread_fence(std::memory_order_acquire);
  return header;
}

void SqliteStore::RefreshCacheLocked() {
  // PRAGMA data_version starts a read transaction, which costs a pair of file-lock
  // system calls: most of the price of opening a key. So it runs only when the log
  // header has moved since the last time it ran. The header is read first: a commit
  // published before that read is then seen by this data_version, and one published
  // after it moves the header for the next key open.
  const std::optional<LogHeader> header = ReadLogHeaderLocked();
  if (header && logHeader_ && *header == *logHeader_) return;
  const bool outside = sqlite3_get_autocommit(db_) != 0;
  // The version and the generations are read in one read transaction, so that the
  // keys found changed are exactly those of the commits the version counts.
  if (outside) Query(st_.beginRead).Step();
  Query q(st_.dataVersion);
  const int rc = q.Step();
  bool current = rc == SQLITE_ROW && q.Int(0) == dataVersion_;
  if (rc == SQLITE_ROW && !current) current = DropChangedLocked();
  if (rc == SQLITE_ROW) dataVersion_ = q.Int(0);
  q.Reset();
  if (outside) Query(st_.commit).Step();
  if (rc != SQLITE_ROW) FromSqlite(rc);
  if (!current) {
    DropCacheLocked();
    if (rc != SQLITE_ROW) dataVersion_ = -1;
  }
  logHeader_ = rc == SQLITE_ROW ? header : std::nullopt;
}

bool SqliteStore::DropChangedLocked() {
  // Another program committed. Drops the keys it changed and returns true, or returns
  // false when the commit cannot be told apart (the file keeps no generations, or a
  // program that keeps none wrote it, or the file was replaced by an older one): then
  // the whole cache goes.
  if (!generations_ || seenGeneration_ < 0) {
    if (generations_) {
      Query last(st_.lastGeneration);
      if (last.Step() == SQLITE_ROW) seenGeneration_ = last.Int(0);
    }
    return false;
  }
  Query q(st_.changedSince);
  q.Bind(1, seenGeneration_);
  std::int64_t newest = seenGeneration_;
  bool tree = false;
  for (int rc; (rc = q.Step()) != SQLITE_DONE;) {
    if (rc != SQLITE_ROW) return false;
    const SettingsKeyId key = q.Int(0);
    newest = std::max(newest, q.Int(1));
    if (key == kTreeChange) {
      tree = true;
    } else {
      values_.erase(key);
    }
  }
  if (newest == seenGeneration_) {
    // No generation came: the commit was made by a program that keeps none, or the
    // file was put back to an older state: the whole cache goes, and counting starts
    // again from the file's newest generation.
    Query last(st_.lastGeneration);
    seenGeneration_ = last.Step() == SQLITE_ROW ? last.Int(0) : -1;
    return false;
  }
  seenGeneration_ = newest;
  if (tree) {
    // Keys were added or removed: paths may lead elsewhere now, and values cached for
    // a removed key must not be served to a key object that still holds its id.
    paths_.clear();
    for (auto it = values_.begin(); it != values_.end();) {
      Query exists(st_.keyExists);
      exists.Bind(1, it->first);
      const int rc = exists.Step();
      if (rc == SQLITE_ROW) {
        ++it;
      } else if (rc == SQLITE_DONE) {
        it = values_.erase(it);
      } else {
        return false;
      }
    }
  }
  return true;
}

SettingsResult<SqliteStore::CachedKey*> SqliteStore::LoadValuesLocked(SettingsKeyId key) {
  if (auto it = values_.find(key); it != values_.end()) return &it->second;
  Query q(st_.keyValues);
  q.Bind(1, key);
  CachedKey cached;
  bool exists = false;
  for (int rc; (rc = q.Step()) != SQLITE_DONE;) {
    if (rc != SQLITE_ROW) return FromSqlite(rc);
    exists = true;
    if (q.Type(0) == SQLITE_NULL) continue;  // the key has no values
    // A damaged value reads as missing; Check() reports it.
    std::optional<SettingsValue> value = ColumnValue(q, q.Int(2), 3);
    if (!value) continue;
    cached.values.push_back(
        CachedValue{Utf8ToWide(q.Text(0)), Utf8ToWide(q.Text(1)), std::move(*value)});
  }
  if (!exists) return SettingsError::NotFound;
  cached.Index();
  return &values_.emplace(key, std::move(cached)).first->second;
}

// ---- 5. Keys --------------------------------------------------------------

SettingsResult<SettingsKeyId> SqliteStore::ChildLocked(SettingsKeyId parent,
                                                       const std::string& folded) {
  Query q(st_.findChild);
  q.Bind(1, parent).Bind(2, folded);
  const int rc = q.Step();
  if (rc == SQLITE_ROW) return q.Int(0);
  if (rc == SQLITE_DONE) return SettingsError::NotFound;
  return FromSqlite(rc);
}

SettingsResult<SettingsKeyId> SqliteStore::LookupLocked(SettingsKeyId parent,
                                                        std::wstring_view path, bool create) {
  if (auto known = paths_.find(parent); known != paths_.end()) {
    if (auto it = known->second.find(path); it != known->second.end()) {
      if (it->second != 0) return it->second;
      if (!create) return SettingsError::NotFound;
    }
  }
  auto names = SplitSettingsPath(path);
  if (!names) return names.error();
  std::vector<std::string> spelled, folded;
  for (const std::wstring& name : *names) {
    spelled.push_back(WideToUtf8(name));
    folded.push_back(WideToUtf8(FoldCase(name)));
  }

  auto walk = [&](bool insert) -> SettingsResult<SettingsKeyId> {
    SettingsKeyId id = parent;
    if (names->empty()) {
      Query q(st_.keyExists);
      q.Bind(1, parent);
      const int rc = q.Step();
      if (rc == SQLITE_DONE) return SettingsError::NotFound;
      if (rc != SQLITE_ROW) return FromSqlite(rc);
    }
    for (std::size_t i = 0; i < folded.size(); ++i) {
      auto child = ChildLocked(id, folded[i]);
      if (child.ok()) {
        id = *child;
        continue;
      }
      if (!insert || child.error() != SettingsError::NotFound) return child.error();
      Query q(st_.insertKey);
      q.Bind(1, id).Bind(2, spelled[i]).Bind(3, folded[i]);
      if (SettingsError e = StepDone(q); e != SettingsError::None) return e;
      id = sqlite3_last_insert_rowid(db_);
      changedTree_ = true;
    }
    return id;
  };

  auto found = walk(false);
  if (create && found.error() == SettingsError::NotFound) {
    if (SettingsError e = WritableLocked(); e != SettingsError::None) return e;
    // Looked up again inside the write transaction: another program may have made
    // part of the path since.
    found = SettingsError::NotFound;
    const SettingsError e = TransactLocked([&] {
      found = walk(true);
      return found.error();
    });
    if (e != SettingsError::None) return e;
    paths_.clear();  // forgets keys recorded as missing, now that some exist
  }
  if (found.ok() || found.error() == SettingsError::NotFound) {
    paths_[parent][std::wstring(path)] = found.ok() ? *found : 0;
  }
  return found;
}

SettingsResult<SettingsKeyId> SqliteStore::FindKey(SettingsKeyId parent, std::wstring_view path) {
  auto lock = Acquire();
  if (!EnsureOpenLocked()) return SettingsError::Unavailable;
  RefreshCacheLocked();
  return LookupLocked(parent, path, false);
}

SettingsResult<SettingsKeyId> SqliteStore::CreateKey(SettingsKeyId parent, std::wstring_view path) {
  auto lock = Acquire();
  if (!EnsureOpenLocked()) return Doom(SettingsError::Unavailable);
  RefreshCacheLocked();
  auto key = LookupLocked(parent, path, true);
  if (!key) Doom(key.error());
  return key;
}

SettingsError SqliteStore::DeleteBranchesLocked(SettingsKeyId key, bool includingKey) {
  // Deleted one key at a time, deepest first: a child always has a larger id than its
  // parent, so descending ids reach every child before its parent. Each delete then
  // cascades only to that key's values, however deep the branch (a single cascading
  // delete of the top key would stop at SQLite's trigger depth limit).
  std::vector<SettingsKeyId> branch;
  {
    Query q(st_.branch);
    q.Bind(1, key);
    for (int rc; (rc = q.Step()) != SQLITE_DONE;) {
      if (rc != SQLITE_ROW) return FromSqlite(rc);
      branch.push_back(q.Int(0));
    }
  }
  if (branch.empty()) return SettingsError::NotFound;
  for (SettingsKeyId id : branch) {
    const bool keep = id == key && !includingKey;
    Query q(keep ? st_.deleteValues : st_.deleteKey);
    q.Bind(1, id);
    if (SettingsError e = StepDone(q); e != SettingsError::None) return e;
    values_.erase(id);
    if (keep) {
      changedKeys_.insert(id);
      continue;
    }
    changedKeys_.erase(id);
    changedTree_ = true;
    if (generations_) {
      Query forget(st_.forgetChange);
      forget.Bind(1, id);
      if (SettingsError e = StepDone(forget); e != SettingsError::None) return e;
    }
  }
  if (branch.size() > 1 || includingKey) paths_.clear();
  return SettingsError::None;
}

SettingsError SqliteStore::DeleteKey(SettingsKeyId key) {
  auto lock = Acquire();
  if (key == kSettingsRootKey) return Doom(SettingsError::BadName);
  if (SettingsError e = WritableLocked(); e != SettingsError::None) return Doom(e);
  return TransactLocked([&] { return DeleteBranchesLocked(key, true); });
}

SettingsError SqliteStore::DeleteContents(SettingsKeyId key) {
  auto lock = Acquire();
  if (SettingsError e = WritableLocked(); e != SettingsError::None) return Doom(e);
  return TransactLocked([&] { return DeleteBranchesLocked(key, false); });
}

SettingsResult<std::vector<std::wstring>> SqliteStore::SubkeyNames(SettingsKeyId key) {
  auto lock = Acquire();
  if (!UsableLocked()) return SettingsError::Unavailable;
  {
    Query q(st_.keyExists);
    q.Bind(1, key);
    const int rc = q.Step();
    if (rc == SQLITE_DONE) return SettingsError::NotFound;
    if (rc != SQLITE_ROW) return FromSqlite(rc);
  }
  std::vector<std::wstring> names;
  Query q(st_.subkeys);
  q.Bind(1, key);
  for (int rc; (rc = q.Step()) != SQLITE_DONE;) {
    if (rc != SQLITE_ROW) return FromSqlite(rc);
    names.push_back(Utf8ToWide(q.Text(0)));
  }
  return names;
}

// ---- 6. Values ------------------------------------------------------------

SettingsResult<SettingsValue> SqliteStore::ReadValue(SettingsKeyId key, std::wstring_view name) {
  if (CheckValueName(name) != SettingsError::None) return SettingsError::BadName;
  auto lock = Acquire();
  if (!UsableLocked()) return SettingsError::Unavailable;
  auto loaded = LoadValuesLocked(key);
  if (!loaded) return loaded.error();
  const CachedKey& cached = **loaded;
  // Callers read with the spelling they wrote with; folding is the fallback.
  if (auto it = cached.byName.find(name); it != cached.byName.end()) {
    return cached.values[it->second].value;
  }
  if (auto it = cached.byFolded.find(FoldCase(name)); it != cached.byFolded.end()) {
    return cached.values[it->second].value;
  }
  return SettingsError::NotFound;
}

SettingsError SqliteStore::WriteValue(SettingsKeyId key, std::wstring_view name,
                                      const SettingsValue& value) {
  auto lock = Acquire();
  if (CheckValueName(name) != SettingsError::None) return Doom(SettingsError::BadName);
  if (EncodedSize(value) > kMaxSettingsValueBytes) return Doom(SettingsError::TooLarge);
  if (SettingsError e = WritableLocked(); e != SettingsError::None) return Doom(e);
  return WriteValueLocked(key, name, value);
}

SettingsError SqliteStore::WriteValueLocked(SettingsKeyId key, std::wstring_view name,
                                            const SettingsValue& value) {
  std::wstring folded = FoldCase(name);
  const SettingsError e = TransactLocked([&] {
    Query q(st_.upsertValue);
    q.Bind(1, key).Bind(2, WideToUtf8(name)).Bind(3, WideToUtf8(folded));
    q.Bind(4, static_cast<std::int64_t>(value.type()));
    BindValue(q, 5, value);
    const SettingsError step = StepDone(q);
    if (step == SettingsError::None) changedKeys_.insert(key);
    return step;
  });
  if (e != SettingsError::None) return e;
  if (auto it = values_.find(key); it != values_.end()) {
    CachedKey& cached = it->second;
    if (auto f = cached.byFolded.find(folded); f != cached.byFolded.end()) {
      cached.values[f->second].value = value;
    } else {
      cached.byName.emplace(std::wstring(name), cached.values.size());
      cached.byFolded.emplace(folded, cached.values.size());
      cached.values.push_back(CachedValue{std::wstring(name), std::move(folded), value});
    }
  }
  return SettingsError::None;
}

SettingsError SqliteStore::DeleteValue(SettingsKeyId key, std::wstring_view name) {
  auto lock = Acquire();
  if (CheckValueName(name) != SettingsError::None) return Doom(SettingsError::BadName);
  if (SettingsError e = WritableLocked(); e != SettingsError::None) return Doom(e);
  return DeleteValueLocked(key, name);
}

SettingsError SqliteStore::DeleteValueLocked(SettingsKeyId key, std::wstring_view name) {
  const std::wstring folded = FoldCase(name);
  bool deleted = false;
  const SettingsError e = TransactLocked([&] {
    Query q(st_.deleteValue);
    q.Bind(1, key).Bind(2, WideToUtf8(folded));
    if (SettingsError step = StepDone(q); step != SettingsError::None) return step;
    deleted = sqlite3_changes(db_) > 0;
    if (deleted) changedKeys_.insert(key);
    return SettingsError::None;
  });
  if (e != SettingsError::None) return e;
  if (!deleted) return SettingsError::NotFound;
  if (auto it = values_.find(key); it != values_.end()) {
    CachedKey& cached = it->second;
    if (auto f = cached.byFolded.find(folded); f != cached.byFolded.end()) {
      cached.values.erase(cached.values.begin() + static_cast<std::ptrdiff_t>(f->second));
      cached.Index();
    }
  }
  return SettingsError::None;
}

SettingsResult<std::vector<std::wstring>> SqliteStore::ValueNames(SettingsKeyId key) {
  auto lock = Acquire();
  if (!UsableLocked()) return SettingsError::Unavailable;
  auto loaded = LoadValuesLocked(key);
  if (!loaded) return loaded.error();
  std::vector<std::wstring> names;
  for (const CachedValue& v : (*loaded)->values) names.push_back(v.name);
  return names;
}

// ---- 7. Transactions and batches ------------------------------------------

SettingsError SqliteStore::BeginLocked() {
  if (depth_ > 0) {
    ++depth_;  // joins the transaction this thread holds
    return SettingsError::None;
  }
  if (!EnsureOpenLocked()) return SettingsError::Unavailable;
  if (SettingsError e = WritableLocked(); e != SettingsError::None) return e;
  // BEGIN IMMEDIATE takes the write lock before anything is read, so two writers queue
  // on the busy handler instead of deadlocking on a read-to-write upgrade.
  Query begin(st_.begin);
  if (SettingsError e = StepDone(begin); e != SettingsError::None) return e;
  depth_ = 1;
  owner_ = std::this_thread::get_id();
  doomed_ = SettingsError::None;
  changedKeys_.clear();
  changedTree_ = false;
  syncWanted_ = false;
  // What other programs committed before the lock was taken leaves the cache now, so
  // that this transaction's generation follows every generation the cache has seen.
  RefreshCacheLocked();
  return SettingsError::None;
}

SettingsError SqliteStore::Doom(SettingsError error) {
  // A missing key or value is an answer, not a failed change.
  if (depth_ > 0 && doomed_ == SettingsError::None && error != SettingsError::None &&
      error != SettingsError::NotFound) {
    doomed_ = error;
  }
  return error;
}

SettingsError SqliteStore::RecordChangesLocked() {
  if (!generations_ || (changedKeys_.empty() && !changedTree_)) return SettingsError::None;
  Query last(st_.lastGeneration);
  const int rc = last.Step();
  if (rc != SQLITE_ROW) return FromSqlite(rc);
  const std::int64_t generation = last.Int(0) + 1;
  last.Reset();
  auto record = [&](SettingsKeyId key) {
    Query q(st_.recordChange);
    q.Bind(1, key).Bind(2, generation);
    return StepDone(q);
  };
  for (SettingsKeyId key : changedKeys_) {
    if (SettingsError e = record(key); e != SettingsError::None) return e;
  }
  if (changedTree_) {
    if (SettingsError e = record(kTreeChange); e != SettingsError::None) return e;
  }
  seenGeneration_ = generation;
  return SettingsError::None;
}

SettingsError SqliteStore::EndLocked(bool commit) {
  if (depth_ == 0 || owner_ != std::this_thread::get_id()) return SettingsError::Failed;
  if (--depth_ > 0) {
    // An inner scope that gives up gives up the whole transaction.
    if (!commit) Doom(SettingsError::Failed);
    return SettingsError::None;
  }
  const std::int64_t seen = seenGeneration_;
  SettingsError error = commit ? doomed_ : SettingsError::None;
  const bool keep = commit && error == SettingsError::None && UsableLocked();
  if (keep) error = RecordChangesLocked();
  if (keep && error == SettingsError::None) {
    Query q(st_.commit);
    error = StepDone(q);
  }
  const bool committed = keep && error == SettingsError::None;
  if (!committed && db_ && !sqlite3_get_autocommit(db_)) {
    Query rollback(st_.rollback);
    rollback.Step();
  }
  if (!committed) {
    // The cache followed the transaction's writes, which are gone.
    DropCacheLocked();
    seenGeneration_ = seen;
  }
  // Kept whatever the sync says: the commit already survives a crash of the program.
  if (committed && syncWanted_) SyncLogLocked();
  owner_ = std::thread::id();
  changedKeys_.clear();
  changedTree_ = false;
  transactionEnded_.notify_all();
  if (!commit) return SettingsError::None;
  if (!committed && error == SettingsError::None) error = SettingsError::Unavailable;
  return error;
}

SettingsError SqliteStore::TransactLocked(const std::function<SettingsError()>& body) {
  // Inside a transaction the change joins it, and a failure dooms it.
  if (depth_ > 0) return Doom(body());
  if (SettingsError e = BeginLocked(); e != SettingsError::None) return e;
  const SettingsError error = Doom(body());
  const SettingsError end = EndLocked(true);
  return error != SettingsError::None ? error : end;
}

SettingsError SqliteStore::BeginTransaction() {
  auto lock = Acquire();
  return BeginLocked();
}

SettingsError SqliteStore::EndTransaction(bool commit) {
  auto lock = Acquire();
  return EndLocked(commit);
}

SettingsError SqliteStore::ApplyLocked(const SettingsChange& change) {
  const auto missingIsDone = [](SettingsError e) {
    return e == SettingsError::NotFound ? SettingsError::None : e;
  };
  switch (change.kind) {
    case SettingsChange::Kind::CreateKey:
      return LookupLocked(kSettingsRootKey, change.path, true).error();
    case SettingsChange::Kind::DeleteKey: {
      if (change.path.empty()) return SettingsError::BadName;  // the root stays
      const auto key = LookupLocked(kSettingsRootKey, change.path, false);
      if (!key) return missingIsDone(key.error());
      return DeleteBranchesLocked(*key, true);
    }
    case SettingsChange::Kind::WriteValue: {
      if (!change.value) return SettingsError::Failed;
      if (CheckValueName(change.name) != SettingsError::None) return SettingsError::BadName;
      if (EncodedSize(*change.value) > kMaxSettingsValueBytes) return SettingsError::TooLarge;
      const auto key = LookupLocked(kSettingsRootKey, change.path, true);
      return key ? WriteValueLocked(*key, change.name, *change.value) : key.error();
    }
    case SettingsChange::Kind::DeleteValue: {
      if (CheckValueName(change.name) != SettingsError::None) return SettingsError::BadName;
      const auto key = LookupLocked(kSettingsRootKey, change.path, false);
      return missingIsDone(key ? DeleteValueLocked(*key, change.name) : key.error());
    }
  }
  return SettingsError::Failed;
}

SettingsApplyResult SqliteStore::Apply(const std::vector<SettingsChange>& changes) {
  auto lock = Acquire();
  if (SettingsError e = BeginLocked(); e != SettingsError::None) return {e, changes.size()};
  SettingsApplyResult result{SettingsError::None, changes.size()};
  for (std::size_t i = 0; i < changes.size() && result.ok(); ++i) {
    result.error = ApplyLocked(changes[i]);
    if (!result.ok()) {
      result.failed = i;
      Doom(result.error == SettingsError::NotFound ? SettingsError::Failed : result.error);
    }
  }
  const SettingsError end = EndLocked(result.ok());
  if (result.ok()) result.error = end;
  if (result.ok()) result.failed = 0;
  return result;
}

// ---- 8. Durability --------------------------------------------------------

SettingsError SqliteStore::Sync() {
  auto lock = Acquire();
  if (depth_ > 0) {
    syncWanted_ = true;  // one sync when the transaction commits
    return SettingsError::None;
  }
  return SyncLogLocked();
}

SettingsError SqliteStore::SyncLogLocked() {
  // Commits go to the write-ahead log without a sync, which already survives a crash
  // of the program. Syncing the log makes every commit so far survive a power failure
  // too; it is one fsync, whatever other programs are reading, where a checkpoint
  // would sync only when no reader holds back the frames it copies.
  if (!db_ || WritableLocked() != SettingsError::None) return SettingsError::None;
  sqlite3_file* log = nullptr;
  if (sqlite3_file_control(db_, "main", SQLITE_FCNTL_JOURNAL_POINTER, &log) != SQLITE_OK || !log ||
      !log->pMethods) {
    return SettingsError::None;  // no log open: nothing was committed through it
  }
  return log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) == SQLITE_OK ? SettingsError::None
                                                                    : SettingsError::Failed;
}

// ---- 9. Check -------------------------------------------------------------

SettingsCheckReport SqliteStore::Check() {
  auto lock = Acquire();
  SettingsCheckReport report;
  report.location = path_;
  if (!EnsureOpenLocked()) {
    if (status_.state == SettingsStoreState::Absent) {
      // An empty file is a store nobody has written to yet: nothing wrong with it.
      report.present = InspectStoreFile(path_).state != FileState::Missing;
    } else {
      report.problems.push_back(status_.reason);
    }
    return report;
  }
  constexpr std::size_t kMaxProblems = 50;
  auto problem = [&](std::string text) {
    if (report.problems.size() < kMaxProblems) report.problems.push_back(std::move(text));
  };
  // Runs one statement over every row; false when SQLite failed (the reason recorded).
  auto each = [&](const char* sql, const std::function<void(const Query&)>& row) {
    Statement statement;
    int rc = statement.Prepare(db_, sql);
    if (rc == SQLITE_OK) {
      Query q(statement);
      while ((rc = q.Step()) == SQLITE_ROW) row(q);
    }
    if (rc == SQLITE_DONE) return true;
    problem("cannot be read: " + ErrorText(db_));
    FromSqlite(rc);
    return false;
  };

  // One read transaction, so that every scan sees the same state of the file.
  sqlite3_exec(db_, "BEGIN", nullptr, nullptr, nullptr);
  bool readable = each("PRAGMA integrity_check", [&](const Query& q) {
    if (q.Text(0) != "ok") problem("damaged: " + std::string(q.Text(0)));
  });
  if (readable) {
    if (std::string schema = CheckSchemaLocked(); !schema.empty()) problem(schema);
  }
  if (readable && report.ok()) {
    each("PRAGMA foreign_key_check", [&](const Query& q) {
      problem(std::string(q.Text(0)) + " row " + std::to_string(q.Int(1)) +
              " refers to a missing key");
    });
    bool root = false;
    each("SELECT id, parent, name, folded FROM settings_key", [&](const Query& q) {
      const std::wstring name = Utf8ToWide(q.Text(2));
      const std::string where =
          "key " + std::to_string(q.Int(0)) + " ('" + std::string(q.Text(2)) + "')";
      if (q.Int(0) == kSettingsRootKey) {
        root = q.Type(1) == SQLITE_NULL;
        return;
      }
      if (CheckKeyName(name) != SettingsError::None) problem(where + ": invalid name");
      if (WideToUtf8(FoldCase(name)) != q.Text(3)) problem(where + ": wrong folded name");
    });
    if (!root) problem("the root key is missing");
    each("SELECT key, name, folded, type, data FROM settings_value", [&](const Query& q) {
      const std::wstring name = Utf8ToWide(q.Text(1));
      const std::string where =
          "value '" + std::string(q.Text(1)) + "' of key " + std::to_string(q.Int(0));
      if (CheckValueName(name) != SettingsError::None) problem(where + ": name too long");
      if (WideToUtf8(FoldCase(name)) != q.Text(2)) problem(where + ": wrong folded name");
      if (!ColumnValue(q, q.Int(3), 4)) {
        problem(where + ": damaged data for type " + std::to_string(q.Int(3)));
      }
    });
  }
  sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
  return report;
}

}  // namespace vglobal::settings

namespace vglobal {

std::shared_ptr<SettingsStore> OpenSqliteSettingsStore(const std::string& path,
                                                       SettingsFileKind kind,
                                                       SettingsOpenMode mode) {
  return std::make_shared<settings::SqliteStore>(path, kind, mode);
}

std::shared_ptr<SettingsStore> OpenSqliteSettingsStore(const std::string& path,
                                                       SettingsFileKind kind,
                                                       bool createIfMissing) {
  return OpenSqliteSettingsStore(
      path, kind, createIfMissing ? SettingsOpenMode::Create : SettingsOpenMode::ReadWrite);
}

}  // namespace vglobal
