// Conversions between wide text (UTF-32 in wchar_t) and UTF-8 / UTF-16, the
// decoders of UTF-16LE bytes and legacy 8-bit text, and the case folding used for
// names that compare without regard to case.
#include "vglobal/compat/unicode.h"

#include <locale.h>
#include <clocale>
#include <cwctype>

namespace vglobal {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

void AppendUtf8(std::string& out, char32_t c) {
  if (c > 0x10FFFF) c = kReplacement;
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else if (c < 0x10000) {
    // Unpaired surrogates are carried through in the same three-byte form so that
    // any wide text written to a store or file reads back unchanged.
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (c >> 18)));
    out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  }
}

// The C.UTF-8 locale carries glibc's full Unicode case tables; the classic locale
// only knows ASCII, so it is the fallback when C.UTF-8 is missing.
locale_t CaseLocale() {
  static locale_t loc = [] {
    locale_t l = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(0));
    if (!l) l = newlocale(LC_CTYPE_MASK, "C", static_cast<locale_t>(0));
    return l;
  }();
  return loc;
}

}  // namespace

std::string WideToUtf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (wchar_t w : text) AppendUtf8(out, static_cast<char32_t>(w));
  return out;
}

namespace {

// The character that starts at p[i], when a well-formed sequence (encoded
// surrogates included) starts there: its code point in *c and its length in bytes.
// 0 when the bytes at p[i] are not a character.
std::size_t DecodeUtf8(const unsigned char* p, std::size_t n, std::size_t i, char32_t* c) {
  const unsigned char b = p[i];
  if (b < 0x80) {
    *c = b;
    return 1;
  }
  std::size_t extra;
  char32_t value;
  char32_t min;
  if ((b & 0xE0) == 0xC0) {
    extra = 1, value = b & 0x1F, min = 0x80;
  } else if ((b & 0xF0) == 0xE0) {
    extra = 2, value = b & 0x0F, min = 0x800;
  } else if ((b & 0xF8) == 0xF0) {
    extra = 3, value = b & 0x07, min = 0x10000;
  } else {
    return 0;
  }
  if (n - i <= extra) return 0;  // the sequence runs past the end of the input
  for (std::size_t k = 1; k <= extra; ++k) {
    if ((p[i + k] & 0xC0) != 0x80) return 0;
    value = (value << 6) | (p[i + k] & 0x3F);
  }
  if (value < min || value > 0x10FFFF) return 0;
  *c = value;
  return extra + 1;
}

}  // namespace

std::wstring Utf8ToWide(std::string_view text) {
  std::wstring out;
  out.reserve(text.size());
  const auto* p = reinterpret_cast<const unsigned char*>(text.data());
  const std::size_t n = text.size();
  std::size_t i = 0;
  while (i < n) {
    char32_t c;
    if (const std::size_t length = DecodeUtf8(p, n, i, &c)) {
      out.push_back(static_cast<wchar_t>(c));
      i += length;
    } else {
      out.push_back(static_cast<wchar_t>(kReplacement));
      ++i;
    }
  }
  return out;
}

std::size_t FindInvalidUtf8(std::string_view text, bool surrogatesAllowed) {
  const auto* p = reinterpret_cast<const unsigned char*>(text.data());
  const std::size_t n = text.size();
  std::size_t i = 0;
  while (i < n) {
    char32_t c;
    const std::size_t length = DecodeUtf8(p, n, i, &c);
    if (length == 0 || (!surrogatesAllowed && c >= 0xD800 && c <= 0xDFFF)) return i;
    i += length;
  }
  return std::string_view::npos;
}

std::u16string WideToUtf16(std::wstring_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (wchar_t w : text) {
    auto c = static_cast<char32_t>(w);
    if (c > 0x10FFFF) c = kReplacement;
    if (c >= 0x10000) {
      c -= 0x10000;
      out.push_back(static_cast<char16_t>(0xD800 + (c >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
    } else {
      out.push_back(static_cast<char16_t>(c));
    }
  }
  return out;
}

std::wstring Utf16ToWide(std::u16string_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] <= 0xDFFF) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[i + 1] - 0xDC00);
      ++i;
    } else if (IsSurrogate(c)) {
      c = kReplacement;
    }
    out.push_back(static_cast<wchar_t>(c));
  }
  return out;
}

std::wstring Utf16LeToWide(std::string_view bytes) {
  std::u16string units(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < units.size(); ++i) {
    units[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                     static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
  }
  std::wstring out = Utf16ToWide(units);
  if (bytes.size() % 2 != 0) out.push_back(static_cast<wchar_t>(kReplacement));
  return out;
}

std::wstring Windows1252ToWide(std::string_view bytes) {
  // 0x80 to 0x9F; the undefined bytes keep their own number (see the header).
  static constexpr char16_t kHigh[32] = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  std::wstring out;
  out.reserve(bytes.size());
  for (const char ch : bytes) {
    const auto b = static_cast<unsigned char>(ch);
    out.push_back(static_cast<wchar_t>(b >= 0x80 && b < 0xA0 ? kHigh[b - 0x80] : b));
  }
  return out;
}

std::wstring EightBitToWide(std::string_view bytes) {
  if (FindInvalidUtf8(bytes) == std::string_view::npos) return Utf8ToWide(bytes);
  return Windows1252ToWide(bytes);
}

wchar_t FoldCase(wchar_t ch) {
  if (ch < 0x80) return (ch >= L'a' && ch <= L'z') ? static_cast<wchar_t>(ch - 32) : ch;
  if (IsSurrogate(static_cast<char32_t>(ch)) || static_cast<char32_t>(ch) > 0x10FFFF) return ch;
  return static_cast<wchar_t>(towupper_l(static_cast<wint_t>(ch), CaseLocale()));
}

wchar_t LowerCase(wchar_t ch) {
  if (ch < 0x80) return (ch >= L'A' && ch <= L'Z') ? static_cast<wchar_t>(ch + 32) : ch;
  if (IsSurrogate(static_cast<char32_t>(ch)) || static_cast<char32_t>(ch) > 0x10FFFF) return ch;
  return static_cast<wchar_t>(towlower_l(static_cast<wint_t>(ch), CaseLocale()));
}

std::wstring FoldCase(std::wstring_view text) {
  std::wstring out(text);
  for (wchar_t& c : out) c = FoldCase(c);
  return out;
}

}  // namespace vglobal
