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

// UTF-16LE bytes (files, messages and records of the suite's programs) as wide text,
// on any host. Pairs of surrogates make one character; an unpaired surrogate, and an
// odd last byte (half a unit), each become U+FFFD. A zero unit is kept as L'\0':
// where the text ends is the caller's rule.
VGLOBAL_EXPORT std::wstring Utf16LeToWide(std::string_view bytes);

// Legacy 8-bit text, as the suite's programs and instruments wrote it in the
// workstation's code page. Bytes that are well-formed UTF-8 throughout (encoded
// surrogates not allowed) are read as UTF-8, since newer programs write UTF-8;
// anything else is read as Windows code page 1252 (Windows1252ToWide).
VGLOBAL_EXPORT std::wstring EightBitToWide(std::string_view bytes);

// Windows code page 1252, each byte one character. This is the one reading of 8-bit
// text that is not UTF-8: it is what the suite's Windows programs wrote, and it agrees
// with Latin-1 on every printable character Latin-1 has, adding the euro sign,
// typographic quotes and dashes in 0x80 to 0x9F. The five bytes 1252 leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the control characters of the same number,
// as Latin-1 reads them, so that no byte is lost and the text can be written back.
VGLOBAL_EXPORT std::wstring Windows1252ToWide(std::string_view bytes);

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
