// The registry editor's text format as both the reader and the writer of registry
// files know it: the first lines, the value type numbers of hex(N): data, and the
// type number chosen for doubles.
#pragma once

#include <cstdint>
#include <string_view>

namespace arvenis_settings::reg_file {

inline constexpr std::wstring_view kVersion5Header = L"Windows Registry Editor Version 5.00";
// The older form: 8-bit text, and 8-bit string data in hex(1), hex(2) and hex(7).
inline constexpr std::wstring_view kVersion4Header = L"REGEDIT4";

// Value type numbers of hex(N): data.
enum ValueType : std::uint32_t {
  kNone = 0,
  kString = 1,
  kExpandString = 2,  // a string that may name environment variables
  kBinary = 3,
  kDword = 4,  // little-endian
  kDwordBigEndian = 5,
  kMultiString = 7,
  kQword = 0xb,
  // The settings store keeps doubles as a type of their own, which the registry does
  // not have. They are written as hex(100000): with the 8 bytes of the IEEE value,
  // little-endian: a number no registry type uses, so the store's type comes back on
  // import and every double comes back bit for bit. The registry editor takes any
  // type number in hex(N):, so such a file still imports on Windows.
  kDouble = 0x100000,
};

// The editor continues hex data on a new line, after ",\" and an indent of two
// spaces, once a line holds this many characters or more.
inline constexpr std::size_t kHexWrapColumn = 77;

}  // namespace arvenis_settings::reg_file
