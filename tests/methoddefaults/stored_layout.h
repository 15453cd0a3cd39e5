// What a key of the current user's store holds: its value names with their types in
// creation order ("SpecEnabled:int NumMaxHits:double"), its sub-key names in creation
// order, and a check that a section reads back what was written.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/store_dump.h"
#include "vglobal/settings_store.h"

namespace stored_layout {

inline std::string Names(const std::wstring& path, bool subkeys) {
  auto store = vglobal::GetSettingsStore(HKEY_CURRENT_USER);
  auto key = store->FindKey(vglobal::kSettingsRootKey, vglobal::ResolveSettingsPath(path));
  if (!key) return "<absent>";
  const auto names = subkeys ? store->SubkeyNames(*key) : store->ValueNames(*key);
  std::string out;
  for (const std::wstring& name : *names) {
    if (!out.empty()) out += subkeys ? ", " : " ";
    out += vglobal::WideToUtf8(name);
    if (subkeys) continue;
    // The dump's first word is the type.
    const std::string value = vglobal::testing::DumpValue(*store->ReadValue(*key, name));
    out += ':';
    out.append(value, 0, value.find(' '));
  }
  return out;
}
inline std::string Values(const std::wstring& path) {
  return Names(path, false);
}
inline std::string Subkeys(const std::wstring& path) {
  return Names(path, true);
}

// Writes `saved`, reads it into a fresh record, and writes that record into a fresh
// store: both stores must hold the same text, so every value the writer stored was put
// back where it came from. `saved` should differ from a fresh record in every field.
template <typename Record>
void ExpectReadsBackWhatWasWritten(const Record& saved, void (*write)(Record*),
                                   int (*read)(Record*), const std::wstring& path) {
  vglobal::UseMemorySettingsStores first;
  Record original = saved;
  write(&original);
  Record back;
  read(&back);
  const std::string written = vglobal::testing::DumpUserStore(path);
  vglobal::UseMemorySettingsStores second;
  write(&back);
  EXPECT_EQ(vglobal::testing::DumpUserStore(path), written);
}

}  // namespace stored_layout
