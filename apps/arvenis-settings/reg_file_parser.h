// Reads a registry file as the registry editor writes it into the changes it asks for.
//
// Accepted: version 5.00 files in UTF-16LE (with or without a byte-order mark) or
// UTF-8 (with or without one), and the older "REGEDIT4" files (UTF-8, else Windows
// code page 1252 as Western workstations wrote them). Key lines [ROOT\path] and
// deletions [-ROOT\path] with HKEY_CURRENT_USER/HKCU or HKEY_LOCAL_MACHINE/HKLM;
// values "name"= and @= (the default value) as "text", dword:, hex:, hex(N): (1 and 2
// strings, 3 binary, 4 and 5 dwords, 7 multi-strings, 100000 doubles), deletions
// "name"=-; the escapes \\ and \"; hex data continued on the next line after a
// backslash; comments (;) and empty lines.
//
// Contract: any input gives either every change in file order, or none and the first
// error with its line and column and what was expected there. Refused: keys of the
// other root than `target` (the store the import goes to), keys outside
// ROOT\Software\Ostrel, names and values the settings store could not keep, and
// files larger than kMaxImportFileBytes. Touches no store; safe on any bytes.
#pragma once

#include <cstddef>
#include <string_view>

#include "transfer.h"

namespace arvenis_settings {

ImportPlan ParseRegFile(std::string_view bytes, Root target);

}  // namespace arvenis_settings
