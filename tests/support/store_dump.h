// A settings store written out as text, for golden-file comparisons: every key below a
// path (sub-keys in creation order), each value with its name, type and value, in the
// order the values were created.
//
//   [Processing Setup\Defaults\Quan\Identification]
//   DetectorType = int 0
//   RTSearchWindow = double 30
//   Keys = string "abc"
#pragma once

#include <charconv>
#include <cstdio>
#include <string>

#include "vglobal/compat/types.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/settings_store.h"

namespace vglobal::testing {

inline std::string DumpValue(const SettingsValue& v) {
  switch (v.type()) {
    case SettingsValueType::Int:
      return "int " + std::to_string(*v.AsInt());
    case SettingsValueType::Double: {
      char buffer[64];
      auto end = std::to_chars(buffer, buffer + sizeof buffer, *v.AsDouble()).ptr;
      return "double " + std::string(buffer, end);
    }
    case SettingsValueType::String:
      return "string \"" + WideToUtf8(*v.AsString()) + "\"";
    case SettingsValueType::Binary: {
      std::string hex = "binary ";
      char byte[3];
      for (std::uint8_t b : *v.AsBinary()) {
        std::snprintf(byte, sizeof byte, "%02X", b);
        hex += byte;
      }
      return hex;
    }
    case SettingsValueType::MultiString: {
      std::string text = "multi";
      for (const std::wstring& s : *v.AsMultiString()) text += " \"" + WideToUtf8(s) + "\"";
      return text;
    }
  }
  return "?";
}

inline void DumpKey(SettingsStore& store, SettingsKeyId key, const std::wstring& path,
                    std::string& out) {
  out += '[';
  out += WideToUtf8(path);
  out += "]\n";
  if (auto names = store.ValueNames(key)) {
    for (const std::wstring& name : *names) {
      auto value = store.ReadValue(key, name);
      out += WideToUtf8(name) + " = " + (value ? DumpValue(*value) : std::string("<unreadable>")) +
             "\n";
    }
  }
  if (auto subkeys = store.SubkeyNames(key)) {
    for (const std::wstring& name : *subkeys) {
      if (auto child = store.FindKey(key, name))
        DumpKey(store, *child, path.empty() ? name : path + L"\\" + name, out);
    }
  }
}

// The dump of every key below `path` (relative to the suite's base location) of the
// current user's store in force. Paths in the dump are relative to `path`'s parent
// so that the golden file reads like the settings layout.
inline std::string DumpUserStore(const std::wstring& path) {
  std::string out;
  auto store = GetSettingsStore(HKEY_CURRENT_USER);
  if (!store) return out;
  auto key = store->FindKey(kSettingsRootKey, ResolveSettingsPath(path));
  if (!key) return out;
  DumpKey(*store, *key, path, out);
  return out;
}

}  // namespace vglobal::testing
