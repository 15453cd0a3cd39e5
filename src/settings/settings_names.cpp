// Name rules and the suite's path convention.
#include "settings/settings_names.h"

#include "vglobal/compat/unicode.h"

namespace vglobal {
namespace settings {

SettingsError CheckKeyName(std::wstring_view name) {
  if (name.empty() || name.size() > kMaxSettingsKeyName) return SettingsError::BadName;
  if (name.find(L'\\') != std::wstring_view::npos) return SettingsError::BadName;
  return SettingsError::None;
}

SettingsError CheckValueName(std::wstring_view name) {
  return name.size() > kMaxSettingsValueName ? SettingsError::BadName : SettingsError::None;
}

namespace {

std::size_t Utf8Size(std::wstring_view text) {
  std::size_t n = 0;
  for (wchar_t c : text) {
    const auto u = static_cast<std::uint32_t>(c);
    n += u < 0x80 ? 1 : u < 0x800 ? 2 : u < 0x10000 ? 3 : 4;
  }
  return n;
}

}  // namespace

std::size_t EncodedSize(const SettingsValue& value) {
  switch (value.type()) {
    case SettingsValueType::Int:
      return 4;
    case SettingsValueType::Double:
      return 8;
    case SettingsValueType::String:
      return Utf8Size(*value.AsString());
    case SettingsValueType::Binary:
      return value.AsBinary()->size();
    case SettingsValueType::MultiString: {
      std::size_t n = 4;
      for (const std::wstring& s : *value.AsMultiString()) n += 4 + Utf8Size(s);
      return n;
    }
  }
  return 0;
}

}  // namespace settings

std::size_t SettingsValueSize(const SettingsValue& value) {
  return settings::EncodedSize(value);
}

std::wstring ResolveSettingsPath(std::wstring_view path) {
  // Callers name their keys relative to the suite's base location; the few that read
  // another product's key (installed version information) spell it from "Software".
  constexpr std::wstring_view kSoftware = L"SOFTWARE";
  const std::wstring_view first = path.substr(0, path.find(L'\\'));
  if (first.size() == kSoftware.size() && FoldCase(first) == kSoftware) return std::wstring(path);
  std::wstring full(kSettingsBasePath);
  if (!path.empty()) {
    full += L'\\';
    full += path;
  }
  return full;
}

SettingsResult<std::vector<std::wstring>> SplitSettingsPath(std::wstring_view path) {
  std::vector<std::wstring> names;
  if (path.empty()) return names;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = path.find(L'\\', start);
    const std::wstring_view name =
        path.substr(start, end == std::wstring_view::npos ? std::wstring_view::npos : end - start);
    if (settings::CheckKeyName(name) != SettingsError::None) return SettingsError::BadName;
    names.emplace_back(name);
    if (end == std::wstring_view::npos) break;
    start = end + 1;
  }
  return names;
}

}  // namespace vglobal
