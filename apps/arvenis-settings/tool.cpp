// Shared parts of arvenis-settings.
#include "tool.h"

#include <charconv>
#include <cstdio>
#include <iostream>

#include "vglobal/compat/unicode.h"

namespace arvenis_settings {

void Fail(ExitCode code, const std::string& message) {
  std::cerr << "arvenis-settings: " << message << '\n';
  throw CLI::RuntimeError(code);
}

void Fail(vglobal::SettingsError error, const std::string& what) {
  using vglobal::SettingsError;
  const bool input = error == SettingsError::NotFound || error == SettingsError::BadName ||
                     error == SettingsError::TooLarge;
  Fail(input ? kBadInput : kUnavailable, Escaped(what) + ": " + vglobal::Describe(error));
}

std::string Escaped(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  auto escape = [&](const char* format, unsigned code) {
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, format, code);
    shown += buffer;
  };
  while (!text.empty()) {
    const std::size_t bad = vglobal::FindInvalidUtf8(text);
    const std::string_view valid = text.substr(0, bad);
    for (std::size_t i = 0; i < valid.size(); ++i) {
      const auto byte = static_cast<unsigned char>(valid[i]);
      const auto next = i + 1 < valid.size() ? static_cast<unsigned char>(valid[i + 1]) : 0;
      if (byte < 0x20 || byte == 0x7F) {
        escape("\\x%02X", byte);
      } else if (byte == 0xC2 && next >= 0x80 && next <= 0x9F) {
        escape("\\u%04X", next);  // U+0080 to U+009F: terminal controls too
        ++i;
      } else {
        shown += valid[i];
      }
    }
    if (bad == std::string_view::npos) break;
    escape("\\x%02X", static_cast<unsigned char>(text[bad]));
    text.remove_prefix(bad + 1);
  }
  return shown;
}

std::shared_ptr<vglobal::SettingsStore> OpenStore(bool machine, Access access) {
  using vglobal::SettingsOpenMode;
  const HKEY root = machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
  const std::string path = vglobal::SettingsStorePath(root);
  const SettingsOpenMode mode = access == Access::Read ? SettingsOpenMode::ReadOnly
                                : access == Access::Create && !machine
                                    ? SettingsOpenMode::Create
                                    : SettingsOpenMode::ReadWrite;
  auto store = vglobal::OpenSqliteSettingsStore(
      path, machine ? vglobal::SettingsFileKind::Machine : vglobal::SettingsFileKind::User, mode);
  const vglobal::SettingsStoreStatus status = store->Status();
  switch (status.state) {
    case vglobal::SettingsStoreState::Writable:
      break;
    case vglobal::SettingsStoreState::ReadOnly:
      if (access != Access::Read) Fail(kUnavailable, path + ": " + status.reason);
      break;
    case vglobal::SettingsStoreState::Absent:
      // A user who has saved nothing yet has an empty store, and looking does not make one.
      if (!machine && access != Access::Create) return nullptr;
      Fail(kUnavailable, path + ": " + status.reason +
                             (machine ? "; create it with 'arvenis-settings init --machine'" : ""));
    case vglobal::SettingsStoreState::Unusable:
      Fail(kUnavailable, path + ": " + status.reason);
  }
  vglobal::SetSettingsStore(root, store);
  return store;
}

const std::string& Utf8Argument(const std::string& typed, std::string_view what) {
  const std::size_t bad = vglobal::FindInvalidUtf8(typed, true);
  if (bad != std::string_view::npos) {
    Fail(kBadInput, std::string(what) + " is not UTF-8 text (byte " + std::to_string(bad + 1) +
                        " is not part of a UTF-8 character): '" + Escaped(typed) + "'");
  }
  return typed;
}

std::wstring KeyPath(const std::string& typed) {
  return vglobal::ResolveSettingsPath(vglobal::Utf8ToWide(typed));
}

std::string DisplayPath(bool machine, const std::wstring& path) {
  std::string text = machine ? "HKEY_LOCAL_MACHINE" : "HKEY_CURRENT_USER";
  if (!path.empty()) text += "\\" + vglobal::WideToUtf8(path);
  return text;
}

std::string ValueText(const vglobal::SettingsValue& value) {
  char buffer[64];
  if (const std::int32_t* i = value.AsInt()) {
    std::snprintf(buffer, sizeof buffer, "0x%x (%d)", static_cast<unsigned>(*i), *i);
    return buffer;
  }
  if (const double* d = value.AsDouble()) {
    // The shortest text that reads back as the same double.
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, *d).ptr;
    return std::string(buffer, end);
  }
  if (const std::wstring* s = value.AsString()) return vglobal::WideToUtf8(*s);
  if (const auto* bytes = value.AsBinary()) {
    std::string hex;
    for (std::uint8_t b : *bytes) {
      std::snprintf(buffer, sizeof buffer, "%02X", b);
      hex += buffer;
    }
    return hex;
  }
  std::string joined;
  const auto& strings = *value.AsMultiString();
  for (std::size_t i = 0; i < strings.size(); ++i) {
    if (i > 0) joined += "\\0";
    joined += vglobal::WideToUtf8(strings[i]);
  }
  return joined;
}

}  // namespace arvenis_settings
