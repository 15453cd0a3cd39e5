// The memory store: a map from key id to key, each key listing its children and
// values in creation order. Linear searches are fine at the sizes tests use.
#include "settings/memory_store.h"

#include <algorithm>

#include "settings/settings_names.h"
#include "vglobal/compat/unicode.h"

namespace vglobal {
namespace settings {

MemoryStore::MemoryStore() {
  keys_.emplace(kSettingsRootKey, Key{});
}

MemoryStore::Key* MemoryStore::Lookup(SettingsKeyId id) {
  auto it = keys_.find(id);
  return it == keys_.end() ? nullptr : &it->second;
}

SettingsKeyId MemoryStore::Child(const Key& key, std::wstring_view folded) const {
  for (SettingsKeyId child : key.children) {
    if (keys_.at(child).folded == folded) return child;
  }
  return 0;
}

MemoryStore::Value* MemoryStore::FindValue(Key& key, std::wstring_view name) {
  const std::wstring folded = FoldCase(name);
  for (Value& v : key.values) {
    if (v.folded == folded) return &v;
  }
  return nullptr;
}

SettingsResult<SettingsKeyId> MemoryStore::Walk(SettingsKeyId parent, std::wstring_view path,
                                                bool create) {
  auto names = SplitSettingsPath(path);
  if (!names) return names.error();
  std::lock_guard lock(mutex_);
  if (!Lookup(parent)) return SettingsError::NotFound;
  SettingsKeyId id = parent;
  for (const std::wstring& name : *names) {
    std::wstring folded = FoldCase(name);
    SettingsKeyId child = Child(keys_.at(id), folded);
    if (child == 0) {
      if (!create) return SettingsError::NotFound;
      child = nextId_++;
      keys_.emplace(child, Key{id, name, std::move(folded), {}, {}});
      keys_.at(id).children.push_back(child);
    }
    id = child;
  }
  return id;
}

SettingsResult<SettingsKeyId> MemoryStore::FindKey(SettingsKeyId parent, std::wstring_view path) {
  return Walk(parent, path, false);
}

SettingsResult<SettingsKeyId> MemoryStore::CreateKey(SettingsKeyId parent, std::wstring_view path) {
  return Walk(parent, path, true);
}

SettingsResult<SettingsValue> MemoryStore::ReadValue(SettingsKeyId key, std::wstring_view name) {
  if (CheckValueName(name) != SettingsError::None) return SettingsError::BadName;
  std::lock_guard lock(mutex_);
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  const Value* v = FindValue(*k, name);
  if (!v) return SettingsError::NotFound;
  return v->value;
}

SettingsError MemoryStore::WriteValue(SettingsKeyId key, std::wstring_view name,
                                      const SettingsValue& value) {
  if (CheckValueName(name) != SettingsError::None) return SettingsError::BadName;
  if (EncodedSize(value) > kMaxSettingsValueBytes) return SettingsError::TooLarge;
  std::lock_guard lock(mutex_);
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  if (Value* v = FindValue(*k, name)) {
    v->value = value;  // keeps the first spelling and the place in the list
  } else {
    k->values.push_back(Value{std::wstring(name), FoldCase(name), value});
  }
  return SettingsError::None;
}

SettingsError MemoryStore::DeleteValue(SettingsKeyId key, std::wstring_view name) {
  if (CheckValueName(name) != SettingsError::None) return SettingsError::BadName;
  std::lock_guard lock(mutex_);
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  const Value* v = FindValue(*k, name);
  if (!v) return SettingsError::NotFound;
  k->values.erase(k->values.begin() + (v - k->values.data()));
  return SettingsError::None;
}

void MemoryStore::EraseBranch(SettingsKeyId id) {
  // Iterative, so that a deep branch cannot exhaust the stack.
  std::vector<SettingsKeyId> pending{id};
  while (!pending.empty()) {
    const SettingsKeyId current = pending.back();
    pending.pop_back();
    auto it = keys_.find(current);
    pending.insert(pending.end(), it->second.children.begin(), it->second.children.end());
    keys_.erase(it);
  }
}

SettingsError MemoryStore::DeleteKey(SettingsKeyId key) {
  if (key == kSettingsRootKey) return SettingsError::BadName;
  std::lock_guard lock(mutex_);
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  auto& siblings = keys_.at(k->parent).children;
  siblings.erase(std::find(siblings.begin(), siblings.end(), key));
  EraseBranch(key);
  return SettingsError::None;
}

SettingsError MemoryStore::DeleteContents(SettingsKeyId key) {
  std::lock_guard lock(mutex_);
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  k->values.clear();
  const std::vector<SettingsKeyId> children = std::move(k->children);
  k->children.clear();
  for (SettingsKeyId child : children) EraseBranch(child);
  return SettingsError::None;
}

SettingsResult<std::vector<std::wstring>> MemoryStore::ValueNames(SettingsKeyId key) {
  std::lock_guard lock(mutex_);
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  std::vector<std::wstring> names;
  for (const Value& v : k->values) names.push_back(v.name);
  return names;
}

SettingsResult<std::vector<std::wstring>> MemoryStore::SubkeyNames(SettingsKeyId key) {
  std::lock_guard lock(mutex_);
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  std::vector<std::wstring> names;
  for (SettingsKeyId child : k->children) names.push_back(keys_.at(child).name);
  return names;
}

SettingsError MemoryStore::ApplyOne(const SettingsChange& change) {
  const auto missingIsDone = [](SettingsError e) {
    return e == SettingsError::NotFound ? SettingsError::None : e;
  };
  switch (change.kind) {
    case SettingsChange::Kind::CreateKey:
      return CreateKey(kSettingsRootKey, change.path).error();
    case SettingsChange::Kind::DeleteKey: {
      const auto key = FindKey(kSettingsRootKey, change.path);
      return key ? DeleteKey(*key) : missingIsDone(key.error());
    }
    case SettingsChange::Kind::WriteValue: {
      if (!change.value) return SettingsError::Failed;
      const auto key = CreateKey(kSettingsRootKey, change.path);
      return key ? WriteValue(*key, change.name, *change.value) : key.error();
    }
    case SettingsChange::Kind::DeleteValue: {
      const auto key = FindKey(kSettingsRootKey, change.path);
      return missingIsDone(key ? DeleteValue(*key, change.name) : key.error());
    }
  }
  return SettingsError::Failed;
}

SettingsApplyResult MemoryStore::Apply(const std::vector<SettingsChange>& changes) {
  // The lock is held for the whole batch, so no other thread sees part of it; a
  // failure puts the saved tree back. Ids handed out meanwhile stay used.
  std::lock_guard lock(mutex_);
  const std::unordered_map<SettingsKeyId, Key> saved = keys_;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    if (const SettingsError e = ApplyOne(changes[i]); e != SettingsError::None) {
      keys_ = saved;
      return {e, i};
    }
  }
  return {};
}

SettingsCheckReport MemoryStore::Check() {
  // The memory store has no file that could be damaged; its invariants are kept by
  // construction.
  return SettingsCheckReport{"memory", true, {}};
}

}  // namespace settings

std::shared_ptr<SettingsStore> MakeMemorySettingsStore() {
  return std::make_shared<settings::MemoryStore>();
}

}  // namespace vglobal
