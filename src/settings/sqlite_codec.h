// How each value type is kept in the `data` column of the value table:
//   Int          SQLite integer
//   Double       8-byte blob, the IEEE bits little-endian (keeps -0.0 and NaN payloads)
//   String       UTF-8 text
//   Binary       blob
//   MultiString  blob: a 4-byte little-endian count, then per string a 4-byte
//                little-endian byte length and the UTF-8 bytes (empty strings survive)
#pragma once

#include <optional>

#include "settings/sqlite_statement.h"
#include "vglobal/settings_store.h"

namespace vglobal::settings {

// Binds the stored form of `value` to parameter `index`.
void BindValue(Query& query, int index, const SettingsValue& value);

// The value stored with `type` in column `column` of the current row; nullopt when the
// row does not hold a well-formed value of that type.
std::optional<SettingsValue> ColumnValue(const Query& query, std::int64_t type, int column);

}  // namespace vglobal::settings
