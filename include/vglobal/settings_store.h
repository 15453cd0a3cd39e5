// The settings store: a tree of keys holding named, typed values, behind CVRegKey.
//
// Contract:
// - A store is a tree of keys addressed by key ids. The root key of every store has
//   the id kSettingsRootKey. Ids are never reused within a store, so an id held after
//   its key was deleted fails every operation instead of reaching a newer key.
// - Key and value names compare without regard to case (vglobal::FoldCase) and keep
//   the spelling they were created with. A key name is 1 to 255 characters without a
//   backslash; a value name is 0 to 16,383 characters (the empty name is the key's
//   default value). A path is key names joined by backslashes; the empty path is the
//   key itself.
// - Value names list in creation order; overwriting a value keeps its place and its
//   first spelling, and may change its type. Sub-keys list in creation order too.
// - Reads return the stored type; callers that want one type treat another type as a
//   missing value.
// - Every operation reports failure through SettingsError (or a SettingsResult holding
//   one) and never throws for a missing key, a bad name, or an unusable store file.
// - Stores are safe to call from several threads; a store is meant to be shared
//   through std::shared_ptr and lives as long as its last user.
// - The store of each root is chosen per process: by default the SQLite files named by
//   SettingsStorePath, replaceable in-process with SetSettingsStore.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "vglobal/compat/types.h"
#include "vglobal/export.h"

namespace vglobal {

using SettingsKeyId = std::int64_t;
inline constexpr SettingsKeyId kSettingsRootKey = 1;

// Longest key name and value name, in characters.
inline constexpr std::size_t kMaxSettingsKeyName = 255;
inline constexpr std::size_t kMaxSettingsValueName = 16383;
// Largest encoded value (a binary value, or a string or multi-string in UTF-8).
inline constexpr std::size_t kMaxSettingsValueBytes = 16u * 1024u * 1024u;

// The one error type of the settings module.
enum class SettingsError {
  None = 0,
  NotFound,     // no such key or value (also a deleted key's stale id)
  BadName,      // empty key name, backslash in a key name, name too long
  BadRoot,      // a root other than the current user's or the machine's
  TooLarge,     // value larger than kMaxSettingsValueBytes
  Unavailable,  // the store file is missing, unreadable, corrupt or not a store
  ReadOnly,     // the store can be read but not written
  Busy,         // another process held the store locked for too long
  Failed,       // the store reported an I/O or internal failure
};

// A short English description of an error, for messages of tools.
VGLOBAL_EXPORT const char* Describe(SettingsError error);

// A value or the error that prevented it.
template <typename T>
class SettingsResult {
 public:
  SettingsResult(const T& value) : v_(std::in_place_index<0>, value) {}        // NOLINT: implicit
  SettingsResult(T&& value) : v_(std::in_place_index<0>, std::move(value)) {}  // NOLINT
  SettingsResult(SettingsError error) : v_(std::in_place_index<1>, error) {}   // NOLINT
  bool ok() const { return v_.index() == 0; }
  explicit operator bool() const { return ok(); }
  SettingsError error() const { return ok() ? SettingsError::None : std::get<1>(v_); }
  // Only on success.
  const T& value() const& { return std::get<0>(v_); }
  T& value() & { return std::get<0>(v_); }
  T&& value() && { return std::get<0>(std::move(v_)); }
  const T& operator*() const& { return value(); }
  const T* operator->() const { return &value(); }

 private:
  std::variant<T, SettingsError> v_;
};

// Value types. The numbers are stored in store files: never renumber.
enum class SettingsValueType : int { Int = 1, Double = 2, String = 3, Binary = 4, MultiString = 5 };

// One typed value.
class VGLOBAL_EXPORT SettingsValue {
 public:
  static SettingsValue Int(std::int32_t v) { return SettingsValue(kInt, v); }
  static SettingsValue Double(double v) { return SettingsValue(kDouble, v); }
  static SettingsValue String(std::wstring v) { return SettingsValue(kString, std::move(v)); }
  static SettingsValue Binary(std::vector<std::uint8_t> v) {
    return SettingsValue(kBinary, std::move(v));
  }
  static SettingsValue MultiString(std::vector<std::wstring> v) {
    return SettingsValue(kMultiString, std::move(v));
  }

  // In-place construction, for containers that build the value where it lives:
  // SettingsValue(SettingsValue::kString, text).
  static constexpr std::in_place_index_t<0> kInt{};
  static constexpr std::in_place_index_t<1> kDouble{};
  static constexpr std::in_place_index_t<2> kString{};
  static constexpr std::in_place_index_t<3> kBinary{};
  static constexpr std::in_place_index_t<4> kMultiString{};
  template <std::size_t I, typename V>
  SettingsValue(std::in_place_index_t<I> index, V&& v) : data_(index, std::forward<V>(v)) {}

  SettingsValueType type() const { return static_cast<SettingsValueType>(data_.index() + 1); }
  // The value when it has that type, else null.
  const std::int32_t* AsInt() const { return std::get_if<0>(&data_); }
  const double* AsDouble() const { return std::get_if<1>(&data_); }
  const std::wstring* AsString() const { return std::get_if<2>(&data_); }
  const std::vector<std::uint8_t>* AsBinary() const { return std::get_if<3>(&data_); }
  const std::vector<std::wstring>* AsMultiString() const { return std::get_if<4>(&data_); }

  // Same type and same content; doubles compare bit for bit.
  bool SameAs(const SettingsValue& other) const;

 private:
  using Data = std::variant<std::int32_t, double, std::wstring, std::vector<std::uint8_t>,
                            std::vector<std::wstring>>;
  Data data_;
};

// The bytes a value takes in a store (text counted in UTF-8). Every store refuses a
// value larger than kMaxSettingsValueBytes with TooLarge; tools that check a whole
// batch before making it use this to refuse the same values.
VGLOBAL_EXPORT std::size_t SettingsValueSize(const SettingsValue& value);

// What a store can do right now.
enum class SettingsStoreState {
  Writable,  // reads and writes work
  ReadOnly,  // reads work, writes fail (the file may not be written by this user)
  Absent,    // no store file: reads miss, writes fail; nothing is created
  Unusable,  // the file is corrupt, foreign or unreadable: reads miss, writes fail
};

struct SettingsStoreStatus {
  SettingsStoreState state = SettingsStoreState::Writable;
  std::string reason;  // why the store is not writable; empty when it is
};

// Result of an integrity check.
struct SettingsCheckReport {
  std::string location;               // the store file, or "memory"
  bool present = true;                // false: there is no store file to check
  std::vector<std::string> problems;  // each names what is wrong; empty when sound
  bool ok() const { return problems.empty(); }
};

// One change of a batch that a store makes as a whole (SettingsStore::Apply). Paths
// run from the store's root key; the empty path is the root itself.
struct SettingsChange {
  enum class Kind {
    CreateKey,    // the key at `path`, with any missing key on the way
    DeleteKey,    // the key at `path` with its branch; a missing key is no error
    WriteValue,   // `value` as `name` of the key at `path`, creating the key
    DeleteValue,  // the value `name` of the key at `path`; a missing one is no error
  };
  Kind kind = Kind::CreateKey;
  std::wstring path;
  std::wstring name;                   // WriteValue and DeleteValue
  std::optional<SettingsValue> value;  // WriteValue
};

// The outcome of SettingsStore::Apply.
struct SettingsApplyResult {
  SettingsError error = SettingsError::None;
  // The index of the change that failed; the number of changes when the batch as a
  // whole could not be begun or committed.
  std::size_t failed = 0;
  bool ok() const { return error == SettingsError::None; }
};

// The abstract store. Paths passed here are relative to the given key; nothing here
// knows the suite's base location (see SplitSettingsPath).
class VGLOBAL_EXPORT SettingsStore {
 public:
  virtual ~SettingsStore();

  // The store file, or "memory".
  virtual std::string Location() const = 0;
  virtual SettingsStoreStatus Status() = 0;

  // The key at `path` below `parent`, without creating anything. The empty path is
  // `parent` itself (NotFound when that key no longer exists).
  virtual SettingsResult<SettingsKeyId> FindKey(SettingsKeyId parent, std::wstring_view path) = 0;
  // The same, creating the key and any missing key on the way.
  virtual SettingsResult<SettingsKeyId> CreateKey(SettingsKeyId parent, std::wstring_view path) = 0;

  virtual SettingsResult<SettingsValue> ReadValue(SettingsKeyId key, std::wstring_view name) = 0;
  virtual SettingsError WriteValue(SettingsKeyId key, std::wstring_view name,
                                   const SettingsValue& value) = 0;
  virtual SettingsError DeleteValue(SettingsKeyId key, std::wstring_view name) = 0;
  // Removes the key with every key and value below it. The root key cannot be removed.
  virtual SettingsError DeleteKey(SettingsKeyId key) = 0;
  // Removes every value and sub-key of the key; the key itself stays.
  virtual SettingsError DeleteContents(SettingsKeyId key) = 0;

  virtual SettingsResult<std::vector<std::wstring>> ValueNames(SettingsKeyId key) = 0;
  virtual SettingsResult<std::vector<std::wstring>> SubkeyNames(SettingsKeyId key) = 0;

  // Makes every write done so far durable (survives a power failure). Writes are
  // already safe from a crash of the process once WriteValue returns.
  virtual SettingsError Sync() = 0;

  // Reads the whole store and reports what is wrong with it. Never modifies it.
  virtual SettingsCheckReport Check() = 0;

  // Makes the changes in order as one transaction: either every change is stored, or
  // on the first failure none is and the store is as it was before the call. Other
  // users of the store see the batch whole or not at all. Key ids taken before stay
  // valid unless the batch deleted their key. This default refuses every batch
  // (Failed) and changes nothing: a store that cannot undo part of a batch must not
  // pretend to make one.
  virtual SettingsApplyResult Apply(const std::vector<SettingsChange>& changes);

  // ---- Transactions ----
  // Everything the store is asked to change between BeginTransaction and the matching
  // EndTransaction is one transaction: other users of the store, in this process or
  // another, see all of it or none of it, and a crash in between loses all of it.
  // Reads inside the transaction see its own changes. Transactions nest: an inner
  // Begin/End pair joins the outer one and only the outermost End commits. A change
  // that fails while a transaction is open dooms it: the outermost End then undoes
  // every change of the transaction and returns the first failure, so a caller that
  // ignores the results of its writes still never leaves half of them behind.
  // The transaction belongs to the thread that began it; calls from other threads
  // wait until it ends. Every Begin that succeeded must be ended, on the same thread.
  // These defaults refuse (Failed): a store that cannot undo must not pretend to.
  virtual SettingsError BeginTransaction();
  // commit false abandons the transaction (the outermost End then undoes it all).
  virtual SettingsError EndTransaction(bool commit);
};

// A transaction on a store held by a scope (see SettingsStore::BeginTransaction):
// commits with Commit(), and is abandoned by the destructor when Commit was not
// called. CVRegKey reads and writes on the same store join it, which is how the
// writers of a whole settings section make the section one transaction:
//   vglobal::SettingsTransaction transaction(HKEY_CURRENT_USER);
//   ... CVRegKey writes ...
//   transaction.Commit();
// When the transaction cannot begin (no usable store), the scope still runs: the
// writes then fail or stand on their own, as they would without it.
class VGLOBAL_EXPORT SettingsTransaction {
 public:
  explicit SettingsTransaction(HKEY root);
  explicit SettingsTransaction(std::shared_ptr<SettingsStore> store);
  ~SettingsTransaction();
  SettingsTransaction(const SettingsTransaction&) = delete;
  SettingsTransaction& operator=(const SettingsTransaction&) = delete;

  // True when the transaction began and has not ended yet.
  bool active() const { return active_; }
  // Ends the transaction, keeping its changes; the error when they could not be
  // kept (then none of them is). None when the transaction never began.
  SettingsError Commit();

 private:
  std::shared_ptr<SettingsStore> store_;
  bool active_ = false;
};

// ---- Store selection -------------------------------------------------------

// The store of a root: HKEY_CURRENT_USER or HKEY_LOCAL_MACHINE; null for any other
// root. The default stores are opened on first use, reading ARVENIS_SETTINGS_DIR then.
VGLOBAL_EXPORT std::shared_ptr<SettingsStore> GetSettingsStore(HKEY root);
// Replaces the store of a root in this process; null restores the default store.
// Keys already open keep the store they were opened in. False for an unknown root.
VGLOBAL_EXPORT bool SetSettingsStore(HKEY root, std::shared_ptr<SettingsStore> store);
// The file of a root's default store ($ARVENIS_SETTINGS_DIR/user.db or machine.db,
// else the XDG location for the user and /etc/arvenis/machine.db for the machine);
// empty for an unknown root.
VGLOBAL_EXPORT std::string SettingsStorePath(HKEY root);

// A fresh, empty in-memory store with the same rules as the file store.
VGLOBAL_EXPORT std::shared_ptr<SettingsStore> MakeMemorySettingsStore();

// How a store file is kept. The user store is private to its user and journals
// through a write-ahead log; the machine store is readable by every user, who may not
// be able to create files beside it, so it uses a rollback journal, which readers
// need not create.
enum class SettingsFileKind { User, Machine };

// How a program opens a store file.
enum class SettingsOpenMode {
  // Reads only: the file is never created, written, or checkpointed into, whoever
  // else has it open; the store reports ReadOnly. For commands that only look.
  ReadOnly,
  // Reads, and writes when the user may write the file; a missing file stays missing.
  ReadWrite,
  // As ReadWrite, creating the file (and its folder) when it is missing.
  Create,
};

// Opens the SQLite store file at `path`. Never fails: a store that cannot be used
// reports why through Status(). A file that is not a regular file (a FIFO, a device,
// a folder, or a link to one) is refused at once without being opened, and a file
// whose header contradicts itself or its size is refused as damaged.
VGLOBAL_EXPORT std::shared_ptr<SettingsStore> OpenSqliteSettingsStore(const std::string& path,
                                                                      SettingsFileKind kind,
                                                                      SettingsOpenMode mode);
// The same with mode Create (createIfMissing) or ReadWrite.
VGLOBAL_EXPORT std::shared_ptr<SettingsStore> OpenSqliteSettingsStore(const std::string& path,
                                                                      SettingsFileKind kind,
                                                                      bool createIfMissing);

// For tests: both roots use fresh memory stores while this object lives; the stores
// in force before are restored when it is destroyed.
class VGLOBAL_EXPORT UseMemorySettingsStores {
 public:
  UseMemorySettingsStores();
  ~UseMemorySettingsStores();
  UseMemorySettingsStores(const UseMemorySettingsStores&) = delete;
  UseMemorySettingsStores& operator=(const UseMemorySettingsStores&) = delete;

  std::shared_ptr<SettingsStore> user() const { return user_; }
  std::shared_ptr<SettingsStore> machine() const { return machine_; }

 private:
  std::shared_ptr<SettingsStore> user_, machine_;
  std::shared_ptr<SettingsStore> savedUser_, savedMachine_;
};

// ---- Paths as the suite spells them --------------------------------------

// The suite's base location below each root.
inline constexpr std::wstring_view kSettingsBasePath = L"Software\\Ostrel\\Arvenis";

// The path from the root of a path as callers give it: a path whose first name is
// "Software" (any case) stands as it is; any other path is taken below
// kSettingsBasePath, and the empty path is kSettingsBasePath itself.
VGLOBAL_EXPORT std::wstring ResolveSettingsPath(std::wstring_view path);

// The key names of a backslash-separated path (none for the empty path); BadName
// when a name is empty or longer than kMaxSettingsKeyName.
VGLOBAL_EXPORT SettingsResult<std::vector<std::wstring>> SplitSettingsPath(std::wstring_view path);

}  // namespace vglobal
