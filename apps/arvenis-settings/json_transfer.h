// Export and import as JSON: the same content as a registry file, for scripts.
//
//   {
//     "format": "arvenis-settings",
//     "version": 1,
//     "root": "HKEY_CURRENT_USER",
//     "keys": [
//       {"path": "Software\\Ostrel\\Arvenis\\Tools",
//        "values": [{"name": "Count", "type": "REG_DWORD", "data": 3}, ...]},
//       ...
//     ]
//   }
//
// Keys in the order of a registry file (each key before its sub-keys), values in the
// store's order; "name" "" is the key's default value. "data" by "type":
//   REG_DWORD     an integer, -2147483648 to 4294967295 (kept as 32 bits)
//   REG_DOUBLE    a number; an infinity or NaN, which JSON numbers cannot hold, as a
//                 string "0x" and the 16 hexadecimal digits of the IEEE bits (import
//                 takes that form for any double). Numbers are written so that they
//                 read back bit for bit.
//   REG_SZ        a string
//   REG_BINARY    a string of hexadecimal digit pairs
//   REG_MULTI_SZ  an array of strings
// An import creates every key listed and writes every value; it deletes nothing.
#pragma once

#include <string>
#include <string_view>

#include "transfer.h"

namespace arvenis_settings {

// The text, ending in a line break; or, when the branch holds text that is not valid
// Unicode (an unpaired surrogate, which JSON cannot carry), no text and the reason.
struct JsonOutput {
  std::string text;
  std::string error;
  bool ok() const { return error.empty(); }
};

JsonOutput WriteJson(const ExportBranch& branch, Root root);

// Checks the whole document like ParseRegFile does a registry file: every change, or
// none and the first error with its line and column.
ImportPlan ParseJson(std::string_view text, Root target);

}  // namespace arvenis_settings
