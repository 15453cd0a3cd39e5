// A settings store held in memory, for tests and for programs that must not touch
// the user's files. It follows the same rules as the file store: names fold with
// vglobal::FoldCase, values and sub-keys list in creation order, ids are never reused.
#pragma once

#include <mutex>
#include <unordered_map>
#include <vector>

#include "vglobal/settings_store.h"

namespace vglobal::settings {

class MemoryStore final : public SettingsStore {
 public:
  MemoryStore();

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
  SettingsCheckReport Check() override;
  SettingsApplyResult Apply(const std::vector<SettingsChange>& changes) override;

 private:
  struct Value {
    std::wstring name, folded;
    SettingsValue value;
  };
  struct Key {
    SettingsKeyId parent = 0;
    std::wstring name, folded;
    std::vector<SettingsKeyId> children;  // creation order
    std::vector<Value> values;            // creation order
  };

  Key* Lookup(SettingsKeyId id);
  SettingsKeyId Child(const Key& key, std::wstring_view folded) const;
  Value* FindValue(Key& key, std::wstring_view name);
  SettingsResult<SettingsKeyId> Walk(SettingsKeyId parent, std::wstring_view path, bool create);
  void EraseBranch(SettingsKeyId id);
  SettingsError ApplyOne(const SettingsChange& change);

  // Recursive: a batch holds the lock while it runs the public operations.
  std::recursive_mutex mutex_;
  std::unordered_map<SettingsKeyId, Key> keys_;
  SettingsKeyId nextId_ = kSettingsRootKey + 1;
};

}  // namespace vglobal::settings
