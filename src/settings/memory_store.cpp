// The memory store (see memory_store.h for its layout and its undo log).
#include "settings/memory_store.h"

#include <iterator>
#include <utility>

#include "settings/settings_names.h"
#include "vglobal/compat/unicode.h"

namespace vglobal {
namespace settings {

namespace {

// Calls visit(name) for each name of a backslash-separated path, until it returns false.
template <typename Visit>
void ForEachName(std::wstring_view path, Visit visit) {
  if (path.empty()) return;
  for (std::size_t start = 0;;) {
    const std::size_t end = path.find(L'\\', start);
    const bool last = end == std::wstring_view::npos;
    if (!visit(path.substr(start, last ? std::wstring_view::npos : end - start)) || last) return;
    start = end + 1;
  }
}

}  // namespace

MemoryStore::MemoryStore() {
  keys_[kSettingsRootKey].id = kSettingsRootKey;
}

MemoryStore::~MemoryStore() = default;

// ---- Turns and transactions ------------------------------------------------

void MemoryStore::WaitTurn(std::unique_lock<std::mutex>& lock) {
  const std::thread::id me = std::this_thread::get_id();
  turn_.wait(lock, [&] { return depth_ == 0 || owner_ == me; });
}

SettingsError MemoryStore::Doom(SettingsError error) {
  // A missing key or value is an answer, not a failed change.
  if (depth_ > 0 && doomed_ == SettingsError::None && error != SettingsError::NotFound) {
    doomed_ = error;
  }
  return error;
}

SettingsError MemoryStore::BeginTransaction() {
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  if (depth_++ == 0) owner_ = std::this_thread::get_id();
  return SettingsError::None;
}

SettingsError MemoryStore::EndTransaction(bool commit) {
  std::unique_lock lock(mutex_);
  if (depth_ == 0 || owner_ != std::this_thread::get_id()) return SettingsError::Failed;
  abandoned_ = abandoned_ || !commit;
  // A commit of an abandoned transaction fails without a change to blame.
  const SettingsError result = doomed_ != SettingsError::None ? doomed_
                               : commit && abandoned_         ? SettingsError::Failed
                                                              : SettingsError::None;
  if (--depth_ > 0) return result;
  if (doomed_ != SettingsError::None || abandoned_) {
    for (auto it = undo_.rbegin(); it != undo_.rend(); ++it) UndoOne(*it);
  }
  undo_.clear();
  owner_ = {};
  doomed_ = SettingsError::None;
  abandoned_ = false;
  lock.unlock();
  turn_.notify_all();
  return result;
}

// ---- Indexes -----------------------------------------------------------------

MemoryStore::Key* MemoryStore::Lookup(SettingsKeyId id) {
  auto it = keys_.find(id);
  return it == keys_.end() ? nullptr : &it->second;
}

// The spelling first: a caller that spells a name as it was created never folds it.
// On a miss by spelling, *folded holds the folded name.
MemoryStore::Key* MemoryStore::Child(Key& key, std::wstring_view name, std::wstring* folded) {
  const Contents& c = key.contents;
  if (auto it = c.childByName.find(name); it != c.childByName.end()) return it->second;
  *folded = FoldCase(name);
  auto it = c.childByFolded.find(*folded);
  return it == c.childByFolded.end() ? nullptr : it->second;
}

MemoryStore::ValueList::iterator MemoryStore::FindValue(Key& key, std::wstring_view name,
                                                        std::wstring* folded) {
  Contents& c = key.contents;
  if (auto it = c.valueByName.find(name); it != c.valueByName.end()) return it->second;
  *folded = FoldCase(name);
  auto it = c.valueByFolded.find(*folded);
  return it == c.valueByFolded.end() ? c.values.end() : it->second;
}

void MemoryStore::SwapContents(Contents& a, Contents& b) {
  // Member swaps keep every iterator and view valid.
  a.children.swap(b.children);
  a.childByName.swap(b.childByName);
  a.childByFolded.swap(b.childByFolded);
  a.values.swap(b.values);
  a.valueByName.swap(b.valueByName);
  a.valueByFolded.swap(b.valueByFolded);
}

void MemoryStore::IndexChild(Key& parent, Key& child) {
  parent.contents.childByName.emplace(child.name, &child);
  parent.contents.childByFolded.emplace(child.folded, &child);
}

void MemoryStore::IndexValue(Key& key, ValueList::iterator value) {
  key.contents.valueByName.emplace(value->name, value);
  key.contents.valueByFolded.emplace(value->folded, value);
}

void MemoryStore::UnindexValue(Key& key, const Value& value) {
  key.contents.valueByName.erase(value.name);
  key.contents.valueByFolded.erase(value.folded);
}

void MemoryStore::TakeBranches(const Key& key, KeyNodes& nodes) {
  // Iterative, so that a deep branch cannot exhaust the stack.
  std::vector<const Key*> pending{&key};
  while (!pending.empty()) {
    const Key* current = pending.back();
    pending.pop_back();
    for (Key* child : current->contents.children) {
      pending.push_back(child);
      nodes.push_back(keys_.extract(child->id));  // the key stays where it is
    }
  }
}

// ---- Keys ----------------------------------------------------------------------

SettingsResult<SettingsKeyId> MemoryStore::WalkLocked(SettingsKeyId parent, std::wstring_view path,
                                                      bool create) {
  bool bad = false;  // a bad name anywhere refuses the path before anything is looked at
  ForEachName(path, [&](std::wstring_view name) {
    bad = CheckKeyName(name) != SettingsError::None;
    return !bad;
  });
  if (bad) return SettingsError::BadName;
  Key* key = Lookup(parent);
  if (!key) return SettingsError::NotFound;
  ForEachName(path, [&](std::wstring_view name) {
    std::wstring folded;
    if (Key* child = Child(*key, name, &folded)) {
      key = child;
      return true;
    }
    if (!create) {
      key = nullptr;
      return false;
    }
    const SettingsKeyId id = nextId_++;
    Key& child = keys_[id];
    child.id = id;
    child.parent = key;
    child.name = name;
    child.folded = std::move(folded);
    child.place = key->contents.children.insert(key->contents.children.end(), &child);
    IndexChild(*key, child);
    if (Logging()) undo_.emplace_back(CreatedKey{&child});
    key = &child;
    return true;
  });
  if (!key) return SettingsError::NotFound;
  return key->id;
}

SettingsResult<SettingsKeyId> MemoryStore::FindKey(SettingsKeyId parent, std::wstring_view path) {
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  return WalkLocked(parent, path, false);
}

SettingsResult<SettingsKeyId> MemoryStore::CreateKey(SettingsKeyId parent, std::wstring_view path) {
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  auto id = WalkLocked(parent, path, true);
  Doom(id.error());
  return id;
}

SettingsError MemoryStore::DeleteKeyLocked(SettingsKeyId id) {
  if (id == kSettingsRootKey) return SettingsError::BadName;
  Key* key = Lookup(id);
  if (!key) return SettingsError::NotFound;
  Contents& siblings = key->parent->contents;
  siblings.childByName.erase(key->name);
  siblings.childByFolded.erase(key->folded);
  KeyNodes nodes;
  TakeBranches(*key, nodes);
  nodes.push_back(keys_.extract(id));
  if (!Logging()) {
    siblings.children.erase(key->place);
    return SettingsError::None;  // the nodes go with the branch
  }
  DeletedKey entry{key, std::move(nodes), {}, false, std::next(key->place)};
  entry.last = entry.next == siblings.children.end();
  entry.link.splice(entry.link.end(), siblings.children, key->place);
  undo_.emplace_back(std::move(entry));
  return SettingsError::None;
}

SettingsError MemoryStore::DeleteKey(SettingsKeyId key) {
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  return Doom(DeleteKeyLocked(key));
}

SettingsError MemoryStore::DeleteContentsLocked(SettingsKeyId id) {
  Key* key = Lookup(id);
  if (!key) return SettingsError::NotFound;
  ClearedKey entry{key, std::make_unique<Contents>(), {}};
  TakeBranches(*key, entry.nodes);
  SwapContents(key->contents, *entry.contents);
  if (Logging()) undo_.emplace_back(std::move(entry));
  return SettingsError::None;
}

SettingsError MemoryStore::DeleteContents(SettingsKeyId key) {
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  return Doom(DeleteContentsLocked(key));
}

SettingsResult<std::vector<std::wstring>> MemoryStore::SubkeyNames(SettingsKeyId key) {
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  const Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  std::vector<std::wstring> names;
  names.reserve(k->contents.children.size());
  for (const Key* child : k->contents.children) names.push_back(child->name);
  return names;
}

// ---- Values ----------------------------------------------------------------------

SettingsResult<SettingsValue> MemoryStore::ReadValue(SettingsKeyId key, std::wstring_view name) {
  if (CheckValueName(name) != SettingsError::None) return SettingsError::BadName;
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  std::wstring folded;
  const auto v = FindValue(*k, name, &folded);
  if (v == k->contents.values.end()) return SettingsError::NotFound;
  return v->value;
}

SettingsError MemoryStore::WriteValueLocked(SettingsKeyId key, std::wstring_view name,
                                            const SettingsValue& value) {
  if (CheckValueName(name) != SettingsError::None) return SettingsError::BadName;
  if (EncodedSize(value) > kMaxSettingsValueBytes) return SettingsError::TooLarge;
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  ValueList& values = k->contents.values;
  std::wstring folded;
  if (auto v = FindValue(*k, name, &folded); v != values.end()) {
    // Keeps the first spelling and the place in the list.
    if (Logging()) undo_.emplace_back(ChangedValue{v, std::move(v->value)});
    v->value = value;
    return SettingsError::None;
  }
  const auto v = values.insert(values.end(), Value{std::wstring(name), std::move(folded), value});
  IndexValue(*k, v);
  if (Logging()) undo_.emplace_back(CreatedValue{k, v});
  return SettingsError::None;
}

SettingsError MemoryStore::WriteValue(SettingsKeyId key, std::wstring_view name,
                                      const SettingsValue& value) {
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  return Doom(WriteValueLocked(key, name, value));
}

SettingsError MemoryStore::DeleteValueLocked(SettingsKeyId key, std::wstring_view name) {
  if (CheckValueName(name) != SettingsError::None) return SettingsError::BadName;
  Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  ValueList& values = k->contents.values;
  std::wstring folded;
  const auto v = FindValue(*k, name, &folded);
  if (v == values.end()) return SettingsError::NotFound;
  UnindexValue(*k, *v);
  if (!Logging()) {
    values.erase(v);
    return SettingsError::None;
  }
  DeletedValue entry{k, {}, false, std::next(v)};
  entry.last = entry.next == values.end();
  entry.node.splice(entry.node.end(), values, v);
  undo_.emplace_back(std::move(entry));
  return SettingsError::None;
}

SettingsError MemoryStore::DeleteValue(SettingsKeyId key, std::wstring_view name) {
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  return Doom(DeleteValueLocked(key, name));
}

SettingsResult<std::vector<std::wstring>> MemoryStore::ValueNames(SettingsKeyId key) {
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  const Key* k = Lookup(key);
  if (!k) return SettingsError::NotFound;
  std::vector<std::wstring> names;
  names.reserve(k->contents.values.size());
  for (const Value& v : k->contents.values) names.push_back(v.name);
  return names;
}

// ---- Undo ------------------------------------------------------------------------
// Entries are undone last first, so each finds the store exactly as its change left
// it: the neighbours it recorded are back in place, the keys it names exist again.

void MemoryStore::UndoOne(Undo& entry) {
  if (auto* e = std::get_if<CreatedKey>(&entry)) {
    Contents& siblings = e->key->parent->contents;
    siblings.childByName.erase(e->key->name);
    siblings.childByFolded.erase(e->key->folded);
    siblings.children.erase(e->key->place);
    keys_.erase(e->key->id);  // nextId_ stays: the id was handed out
  } else if (auto* e = std::get_if<DeletedKey>(&entry)) {
    for (Keys::node_type& node : e->nodes) keys_.insert(std::move(node));
    Key& parent = *e->key->parent;
    ChildList& siblings = parent.contents.children;
    siblings.splice(e->last ? siblings.end() : e->next, e->link);
    IndexChild(parent, *e->key);
  } else if (auto* e = std::get_if<ClearedKey>(&entry)) {
    for (Keys::node_type& node : e->nodes) keys_.insert(std::move(node));
    SwapContents(e->key->contents, *e->contents);
  } else if (auto* e = std::get_if<CreatedValue>(&entry)) {
    UnindexValue(*e->key, *e->value);
    e->key->contents.values.erase(e->value);
  } else if (auto* e = std::get_if<ChangedValue>(&entry)) {
    e->value->value = std::move(e->old);
  } else if (auto* e = std::get_if<DeletedValue>(&entry)) {
    ValueList& values = e->key->contents.values;
    const auto v = e->node.begin();
    values.splice(e->last ? values.end() : e->next, e->node);
    IndexValue(*e->key, v);
  }
}

// ---- Batches -----------------------------------------------------------------------

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
  // A transaction of its own, or a part of the caller's: other threads wait until it
  // ends, and a failure dooms it, so the outermost End undoes the batch with the rest.
  if (const SettingsError e = BeginTransaction(); e != SettingsError::None) {
    return {e, changes.size()};
  }
  for (std::size_t i = 0; i < changes.size(); ++i) {
    if (const SettingsError e = ApplyOne(changes[i]); e != SettingsError::None) {
      {
        std::lock_guard lock(mutex_);
        Doom(e);  // a refusal of Apply itself (no value) is a failure too
      }
      EndTransaction(false);
      return {e, i};
    }
  }
  if (const SettingsError e = EndTransaction(true); e != SettingsError::None) {
    return {e, changes.size()};
  }
  return {};
}

// ---- Check ---------------------------------------------------------------------------

SettingsCheckReport MemoryStore::Check() {
  // No file can be damaged; this checks that the indexes and links agree.
  std::unique_lock lock(mutex_);
  WaitTurn(lock);
  SettingsCheckReport report{"memory", true, {}};
  const auto problem = [&](const Key& key, const char* what) {
    report.problems.push_back("key " + std::to_string(key.id) + ": " + what);
  };
  const Key* root = Lookup(kSettingsRootKey);
  if (!root || root->parent) {
    report.problems.push_back("no root key");
    return report;
  }
  std::size_t reached = 1;
  std::vector<const Key*> pending{root};
  while (!pending.empty()) {
    const Key& key = *pending.back();
    pending.pop_back();
    const Contents& c = key.contents;
    if (c.childByName.size() != c.children.size() || c.childByFolded.size() != c.children.size())
      problem(key, "sub-key indexes out of step");
    for (auto it = c.children.begin(); it != c.children.end(); ++it) {
      const Key& child = **it;
      const auto byName = c.childByName.find(child.name);
      const auto byFolded = c.childByFolded.find(child.folded);
      if (child.parent != &key || child.place != it || Lookup(child.id) != &child ||
          child.id >= nextId_)
        problem(child, "wrong link to its parent or id");
      if (byName == c.childByName.end() || byName->second != &child ||
          byFolded == c.childByFolded.end() || byFolded->second != &child)
        problem(child, "not indexed by its parent");
      if (CheckKeyName(child.name) != SettingsError::None || child.folded != FoldCase(child.name))
        problem(child, "bad name");
      pending.push_back(&child);
      ++reached;
    }
    if (c.valueByName.size() != c.values.size() || c.valueByFolded.size() != c.values.size())
      problem(key, "value indexes out of step");
    for (auto it = c.values.begin(); it != c.values.end(); ++it) {
      const auto byName = c.valueByName.find(it->name);
      const auto byFolded = c.valueByFolded.find(it->folded);
      if (byName == c.valueByName.end() || byName->second != it ||
          byFolded == c.valueByFolded.end() || byFolded->second != it ||
          it->folded != FoldCase(it->name))
        problem(key, "a value not indexed by its name");
    }
  }
  if (reached != keys_.size()) report.problems.push_back("keys out of the tree");
  return report;
}

}  // namespace settings

std::shared_ptr<SettingsStore> MakeMemorySettingsStore() {
  return std::make_shared<settings::MemoryStore>();
}

}  // namespace vglobal
