// Rules for key and value names and for paths, shared by every store and CVRegKey,
// so that the memory store and the file store accept and refuse exactly the same
// names.
#pragma once

#include <cstddef>
#include <string_view>

#include "vglobal/settings_store.h"

namespace vglobal::settings {

// None, or BadName for an empty name, a name with a backslash, or a name longer than
// kMaxSettingsKeyName.
SettingsError CheckKeyName(std::wstring_view name);
// None, or BadName for a name longer than kMaxSettingsValueName.
SettingsError CheckValueName(std::wstring_view name);

// Bytes a value takes in a store file (UTF-8 text, length-prefixed lists), used to
// refuse values larger than kMaxSettingsValueBytes the same way in every store.
std::size_t EncodedSize(const SettingsValue& value);

}  // namespace vglobal::settings
