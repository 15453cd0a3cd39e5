// A settings store held in memory, for tests and for programs that must not touch
// the user's files. It follows the same rules as the file store: names fold with
// vglobal::FoldCase, values and sub-keys list in creation order, ids are never reused.
//
// Layout: keys live in a hash map by id (their addresses never change, even while a
// deleted key waits in an undo log). Each key keeps its sub-keys and its values in
// lists in creation order, indexed by spelling (found without folding the name asked
// for) and by folded name. Index entries are views of the names held in the keys and
// list nodes, which never move.
//
// Transactions: every change made while one is open records how to undo it; the
// outermost EndTransaction drops the log (commit) or plays it backwards (abandon or
// failure). A batch therefore costs what it changes, never what the store holds.
// Ids handed out inside an undone transaction stay used (nextId_ never goes back), so
// an id kept from it fails instead of reaching a newer key.
#pragma once

#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <variant>
#include <vector>

#include "vglobal/settings_store.h"

namespace vglobal::settings {

class MemoryStore final : public SettingsStore {
 public:
  MemoryStore();
  ~MemoryStore() override;

  std::string Location() const override { return "memory"; }
  SettingsStoreStatus Status() override { return {}; }
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
  SettingsError Sync() override { return SettingsError::None; }
  // Checks the indexes, links and names against each other.
  SettingsCheckReport Check() override;
  SettingsApplyResult Apply(const std::vector<SettingsChange>& changes) override;
  SettingsError BeginTransaction() override;
  SettingsError EndTransaction(bool commit) override;

 private:
  struct Key;
  struct Value {
    std::wstring name, folded;  // never change: the indexes view them
    SettingsValue value;
  };
  using ValueList = std::list<Value>;
  using ValueIndex = std::unordered_map<std::wstring_view, ValueList::iterator>;
  using ChildList = std::list<Key*>;
  using ChildIndex = std::unordered_map<std::wstring_view, Key*>;

  // What a key holds, moved out whole by DeleteContents.
  struct Contents {
    ChildList children;  // creation order
    ChildIndex childByName, childByFolded;
    ValueList values;  // creation order
    ValueIndex valueByName, valueByFolded;
  };
  struct Key {
    SettingsKeyId id = 0;
    Key* parent = nullptr;           // null for the root
    std::wstring name, folded;       // never change: the parent's indexes view them
    ChildList::iterator place;       // in the parent's children
    Contents contents;
  };
  using Keys = std::unordered_map<SettingsKeyId, Key>;
  using KeyNodes = std::vector<Keys::node_type>;

  // ---- The undo log: one entry per change, undone last first. ----
  struct CreatedKey {
    Key* key;
  };
  struct DeletedKey {
    Key* key;
    KeyNodes nodes;     // the key and its branch, out of keys_
    ChildList link;     // the key's node of the parent's children
    bool last;          // it was the parent's last child
    ChildList::iterator next;
  };
  struct ClearedKey {
    Key* key;
    std::unique_ptr<Contents> contents;
    KeyNodes nodes;  // the branches below the key, out of keys_
  };
  struct CreatedValue {
    Key* key;
    ValueList::iterator value;
  };
  struct ChangedValue {
    ValueList::iterator value;
    SettingsValue old;
  };
  struct DeletedValue {
    Key* key;
    ValueList node;  // the value's node, out of the key's list
    bool last;
    ValueList::iterator next;
  };
  using Undo =
      std::variant<CreatedKey, DeletedKey, ClearedKey, CreatedValue, ChangedValue, DeletedValue>;

  // Waits until no other thread holds a transaction.
  void WaitTurn(std::unique_lock<std::mutex>& lock);
  bool Logging() const { return depth_ > 0; }
  // A failed change dooms the open transaction (the first failure is kept).
  SettingsError Doom(SettingsError error);

  Key* Lookup(SettingsKeyId id);
  static Key* Child(Key& key, std::wstring_view name, std::wstring* folded);
  static ValueList::iterator FindValue(Key& key, std::wstring_view name, std::wstring* folded);
  SettingsResult<SettingsKeyId> WalkLocked(SettingsKeyId parent, std::wstring_view path,
                                           bool create);
  SettingsError WriteValueLocked(SettingsKeyId key, std::wstring_view name,
                                 const SettingsValue& value);
  SettingsError DeleteValueLocked(SettingsKeyId key, std::wstring_view name);
  SettingsError DeleteKeyLocked(SettingsKeyId key);
  SettingsError DeleteContentsLocked(SettingsKeyId key);
  // Moves every key below `key` (not `key` itself) out of keys_ into `nodes`.
  void TakeBranches(const Key& key, KeyNodes& nodes);
  static void SwapContents(Contents& a, Contents& b);
  static void IndexChild(Key& parent, Key& child);
  static void IndexValue(Key& key, ValueList::iterator value);
  static void UnindexValue(Key& key, const Value& value);
  void UndoOne(Undo& entry);
  SettingsError ApplyOne(const SettingsChange& change);

  std::mutex mutex_;
  std::condition_variable turn_;  // signalled when a transaction ends
  std::thread::id owner_;         // the thread holding the open transaction
  int depth_ = 0;                 // nesting of the open transaction; 0: none
  SettingsError doomed_ = SettingsError::None;  // the transaction's first failure
  bool abandoned_ = false;                       // an End(false) was called in it
  std::vector<Undo> undo_;

  Keys keys_;
  SettingsKeyId nextId_ = kSettingsRootKey + 1;
};

}  // namespace vglobal::settings
