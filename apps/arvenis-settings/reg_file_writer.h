// Writes a branch of a store as a registry file, as the registry editor exports one.
//
// The file starts with "Windows Registry Editor Version 5.00"; each key follows as
// [ROOT\path] with its values and an empty line. Strings are written in quotes with
// \\ and \" escapes (never wrapped), integers as dword:, binary data as hex:,
// multi-strings as hex(7): (UTF-16LE, each string ended by a zero, and one more zero),
// doubles as hex(100000): (see reg_file_format.h), text holding a line break or a
// zero character as hex(1):. Hex data continues on the next line after ",\" once a
// line holds 77 characters, as the editor wraps it.
//
// Utf16: UTF-16LE with a byte-order mark and CRLF line ends, the editor's own form.
// Utf8: UTF-8 without a byte-order mark and with LF line ends, for tools and diffs.
#pragma once

#include <string>

#include "transfer.h"

namespace arvenis_settings {

enum class RegEncoding { Utf16, Utf8 };

// The file's bytes; or, when a key or value name holds a line break or a zero
// character (which no registry file can carry), an empty file and the reason.
struct RegFileOutput {
  std::string bytes;
  std::string error;
  bool ok() const { return error.empty(); }
};

RegFileOutput WriteRegFile(const ExportBranch& branch, Root root, RegEncoding encoding);

}  // namespace arvenis_settings
