// Reading a branch of a store for export.
#include "store_transfer.h"

#include <utility>

#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

using vglobal::SettingsError;
using vglobal::SettingsKeyId;
using vglobal::SettingsResult;

// The path as the store spells it, and the key's id. A user types a path in any case,
// and an export must carry the store's own spelling, so that an import recreates it.
SettingsResult<std::pair<std::wstring, SettingsKeyId>> SpelledPath(vglobal::SettingsStore& store,
                                                                   std::wstring_view path) {
  const auto names = vglobal::SplitSettingsPath(path);
  if (!names) return names.error();
  std::wstring spelled;
  SettingsKeyId id = vglobal::kSettingsRootKey;
  for (const std::wstring& name : *names) {
    const auto children = store.SubkeyNames(id);
    if (!children) return children.error();
    const std::wstring folded = vglobal::FoldCase(name);
    const std::wstring* match = nullptr;
    for (const std::wstring& child : *children) {
      if (vglobal::FoldCase(child) == folded) match = &child;
    }
    if (!match) return SettingsError::NotFound;
    const auto child = store.FindKey(id, *match);
    if (!child) return child.error();
    if (!spelled.empty()) spelled += L'\\';
    spelled += *match;
    id = *child;
  }
  return std::make_pair(std::move(spelled), id);
}

}  // namespace

SettingsResult<ExportBranch> ReadBranch(vglobal::SettingsStore& store, std::wstring_view path) {
  auto top = SpelledPath(store, path);
  if (!top) return top.error();
  ExportBranch branch;
  // Depth first without recursion: a branch may be deeper than the stack is.
  std::vector<std::pair<std::wstring, SettingsKeyId>> pending{std::move(top.value())};
  while (!pending.empty()) {
    auto [keyPath, id] = std::move(pending.back());
    pending.pop_back();
    const auto names = store.ValueNames(id);
    if (!names) {
      if (names.error() == SettingsError::NotFound) continue;
      return names.error();
    }
    ExportKey key{std::move(keyPath), {}};
    key.values.reserve(names->size());
    for (const std::wstring& name : *names) {
      auto value = store.ReadValue(id, name);
      if (value) {
        key.values.emplace_back(name, std::move(value).value());
      } else if (value.error() != SettingsError::NotFound) {
        return value.error();
      }
    }
    const auto subkeys = store.SubkeyNames(id);
    if (!subkeys) {
      if (subkeys.error() == SettingsError::NotFound) continue;
      return subkeys.error();
    }
    for (auto it = subkeys->rbegin(); it != subkeys->rend(); ++it) {
      const auto child = store.FindKey(id, *it);
      if (!child) {
        if (child.error() == SettingsError::NotFound) continue;
        return child.error();
      }
      pending.emplace_back(key.path.empty() ? *it : key.path + L"\\" + *it, *child);
    }
    branch.push_back(std::move(key));
  }
  return branch;
}

std::size_t CountValueWrites(const ImportPlan& plan) {
  std::size_t n = 0;
  for (const vglobal::SettingsChange& change : plan.changes) {
    n += change.kind == vglobal::SettingsChange::Kind::WriteValue;
  }
  return n;
}

}  // namespace arvenis_settings
