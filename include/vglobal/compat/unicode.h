// The one place where wide text meets bytes. wchar_t is 32-bit here: every
// conversion between wide text and UTF-8 or UTF-16 goes through these functions.
//
// Contract: conversions never fail and never lose a valid character. Invalid input
// (a malformed UTF-8 sequence, an unpaired UTF-16 surrogate, a code point above
// U+10FFFF) becomes U+FFFD, except that Utf8ToWide/WideToUtf8 carry unpaired
// surrogates through unchanged so that any wide text written to a store reads back
// as it was.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vglobal/export.h"

namespace vglobal {

VGLOBAL_EXPORT std::string WideToUtf8(std::wstring_view text);
VGLOBAL_EXPORT std::wstring Utf8ToWide(std::string_view text);
VGLOBAL_EXPORT std::u16string WideToUtf16(std::wstring_view text);
VGLOBAL_EXPORT std::wstring Utf16ToWide(std::u16string_view text);

// The offset of the first byte of `text` that does not begin a well-formed UTF-8
// character, or npos when all of it is UTF-8. Encoded surrogates (the form in which
// WideToUtf8 carries unpaired ones) count as well-formed only when allowed.
VGLOBAL_EXPORT std::size_t FindInvalidUtf8(std::string_view text, bool surrogatesAllowed = false);

// Case folding for names that compare without regard to case (settings key and
// value names, file paths): each character is mapped to its upper case for all of
// Unicode, as the settings store of the suite always compared names.
VGLOBAL_EXPORT std::wstring FoldCase(std::wstring_view text);
VGLOBAL_EXPORT wchar_t FoldCase(wchar_t ch);
// Lower case of one character, for all of Unicode.
VGLOBAL_EXPORT wchar_t LowerCase(wchar_t ch);

}  // namespace vglobal
