// CString: the wide string of the legacy API.
//
// Contract:
// - Holds wide text (wchar_t, 32-bit here). Stores and files keep UTF-8; the
//   conversions live in vglobal/compat/unicode.h.
// - Format/FormatV/AppendFormat follow the Windows wide-printf rules, not glibc's:
//   in a wide format %s and %c take wide arguments, %S, %hs and %hc narrow (UTF-8)
//   ones, %ls/%ws/%lc wide ones; I64/I32/I size prefixes are understood; %n writes
//   nothing. Numbers are printed in the classic "C" locale whatever the process
//   locale is. A malformed directive is copied to the output as it stands.
// - The variadic Format is a template: each argument is captured with its real type,
//   so a CString can be passed directly, and a directive whose argument is missing or
//   of an unsuitable kind prints nothing instead of reading past the arguments.
// - LoadString searches the resource chain (vglobal/compat/resources.h), the
//   application's table first; a failed load leaves the string empty.
// - Not thread-safe for concurrent mutation, like any value type.
#pragma once

#include <compare>
#include <cstdarg>
#include <string>
#include <string_view>
#include <vector>

#include "vglobal/compat/types.h"
#include "vglobal/export.h"

using BSTR = wchar_t*;

namespace vglobal::fmt {
// One captured printf argument.
struct Arg {
  enum class Kind { Int, UInt, Double, Wide, Narrow, Pointer };
  Kind kind;
  union {
    long long i;
    unsigned long long u;
    double d;
    const wchar_t* ws;
    const char* ns;
    const void* p;
  };
};

// Formats `format` by the Windows wide-printf rules with the given arguments.
VGLOBAL_EXPORT std::wstring Format(const wchar_t* format, const Arg* args, std::size_t count);
// The same from a C variable-argument list (for legacy variadic entry points).
VGLOBAL_EXPORT std::wstring FormatV(const wchar_t* format, va_list args);
}  // namespace vglobal::fmt

class VGLOBAL_EXPORT CString {
 public:
  CString() = default;
  CString(const wchar_t* text);  // NOLINT: implicit as in the legacy API; null gives empty
  CString(const wchar_t* text, int length);
  CString(const char* utf8);  // NOLINT: narrow text is UTF-8
  CString(wchar_t ch, int repeat = 1);
  CString(std::wstring_view text);  // NOLINT
  CString(std::wstring text);       // NOLINT

  // Access
  int GetLength() const { return static_cast<int>(s_.size()); }
  bool IsEmpty() const { return s_.empty(); }
  void Empty() { s_.clear(); }
  const wchar_t* GetString() const { return s_.c_str(); }
  operator const wchar_t*() const { return s_.c_str(); }  // NOLINT
  wchar_t GetAt(int index) const;
  void SetAt(int index, wchar_t ch);
  wchar_t operator[](int index) const { return GetAt(index); }
  const std::wstring& str() const { return s_; }
  std::wstring_view view() const { return s_; }
  std::string ToUtf8() const;

  // Assignment and concatenation
  CString& operator=(const wchar_t* text);
  CString& operator=(wchar_t ch);
  CString& operator+=(const CString& other);
  CString& operator+=(const wchar_t* text);
  CString& operator+=(wchar_t ch);
  void Append(const wchar_t* text, int length);
  void AppendChar(wchar_t ch) { s_.push_back(ch); }
  friend VGLOBAL_EXPORT CString operator+(const CString& a, const CString& b);
  friend VGLOBAL_EXPORT CString operator+(const CString& a, const wchar_t* b);
  friend VGLOBAL_EXPORT CString operator+(const wchar_t* a, const CString& b);
  friend VGLOBAL_EXPORT CString operator+(const CString& a, wchar_t b);
  friend VGLOBAL_EXPORT CString operator+(wchar_t a, const CString& b);

  // Comparison (ordinal; CompareNoCase folds case for all of Unicode)
  int Compare(const wchar_t* other) const;
  int CompareNoCase(const wchar_t* other) const;
  friend bool operator==(const CString& a, const CString& b) { return a.s_ == b.s_; }
  friend bool operator==(const CString& a, const wchar_t* b) { return a.s_ == (b ? b : L""); }
  friend std::strong_ordering operator<=>(const CString& a, const CString& b) {
    return a.s_ <=> b.s_;
  }

  // Searching (-1 when not found; a start outside the string finds nothing)
  int Find(wchar_t ch, int start = 0) const;
  int Find(const wchar_t* sub, int start = 0) const;
  int ReverseFind(wchar_t ch) const;
  int FindOneOf(const wchar_t* chars) const;

  // Extraction (counts and positions are clamped to the string, as the legacy class did)
  CString Mid(int first) const;
  CString Mid(int first, int count) const;
  CString Left(int count) const;
  CString Right(int count) const;
  CString SpanIncluding(const wchar_t* chars) const;
  CString SpanExcluding(const wchar_t* chars) const;
  CString Tokenize(const wchar_t* delimiters, int& start) const;

  // Modification
  CString& MakeUpper();
  CString& MakeLower();
  CString& MakeReverse();
  CString& Trim();
  CString& Trim(wchar_t ch);
  CString& Trim(const wchar_t* chars);
  CString& TrimLeft();
  CString& TrimLeft(wchar_t ch);
  CString& TrimLeft(const wchar_t* chars);
  CString& TrimRight();
  CString& TrimRight(wchar_t ch);
  CString& TrimRight(const wchar_t* chars);
  int Replace(wchar_t from, wchar_t to);
  int Replace(const wchar_t* from, const wchar_t* to);
  int Remove(wchar_t ch);
  int Insert(int index, wchar_t ch);
  int Insert(int index, const wchar_t* text);
  int Delete(int index, int count = 1);
  void Truncate(int length);

  // Direct buffer access. GetBuffer gives room for at least `minLength` characters
  // plus the terminator; ReleaseBuffer(-1) takes the length up to the first zero.
  wchar_t* GetBuffer(int minLength = 0);
  wchar_t* GetBufferSetLength(int length);
  void ReleaseBuffer(int newLength = -1);

  // Formatting (Windows wide-printf rules, see above)
  template <typename... Args>
  void Format(const wchar_t* format, const Args&... args) {
    const vglobal::fmt::Arg captured[] = {Capture(args)..., {}};
    s_ = vglobal::fmt::Format(format, captured, sizeof...(Args));
  }
  template <typename... Args>
  void AppendFormat(const wchar_t* format, const Args&... args) {
    const vglobal::fmt::Arg captured[] = {Capture(args)..., {}};
    s_ += vglobal::fmt::Format(format, captured, sizeof...(Args));
  }
  template <typename... Args>
  void Format(UINT formatId, const Args&... args) {
    CString format;
    format.LoadString(formatId);
    Format(format.GetString(), args...);
  }
  void FormatV(const wchar_t* format, va_list args);
  void AppendFormatV(const wchar_t* format, va_list args);

  // Resources
  BOOL LoadString(UINT id);

  // Automation string of this text; the caller frees it with SysFreeString.
  BSTR AllocSysString() const;

  // Argument capture for Format: public so that other variadic entry points of the
  // library can capture the same way.
  static vglobal::fmt::Arg Capture(const CString& v) { return Wide(v.GetString()); }
  static vglobal::fmt::Arg Capture(const std::wstring& v) { return Wide(v.c_str()); }
  static vglobal::fmt::Arg Capture(const wchar_t* v) { return Wide(v); }
  static vglobal::fmt::Arg Capture(wchar_t* v) { return Wide(v); }
  static vglobal::fmt::Arg Capture(const char* v) {
    vglobal::fmt::Arg a{vglobal::fmt::Arg::Kind::Narrow, {}};
    a.ns = v;
    return a;
  }
  static vglobal::fmt::Arg Capture(char* v) { return Capture(static_cast<const char*>(v)); }
  static vglobal::fmt::Arg Capture(const std::string& v) { return Capture(v.c_str()); }
  static vglobal::fmt::Arg Capture(double v) {
    vglobal::fmt::Arg a{vglobal::fmt::Arg::Kind::Double, {}};
    a.d = v;
    return a;
  }
  static vglobal::fmt::Arg Capture(float v) { return Capture(static_cast<double>(v)); }
  // Captured as a double: the argument list carries no wider floating type.
  static vglobal::fmt::Arg Capture(long double v) { return Capture(static_cast<double>(v)); }
  static vglobal::fmt::Arg Capture(bool v) { return Signed(v ? 1 : 0); }
  static vglobal::fmt::Arg Capture(char v) { return Signed(v); }
  static vglobal::fmt::Arg Capture(signed char v) { return Signed(v); }
  static vglobal::fmt::Arg Capture(unsigned char v) { return Unsigned(v); }
  static vglobal::fmt::Arg Capture(wchar_t v) { return Unsigned(static_cast<std::uint32_t>(v)); }
  static vglobal::fmt::Arg Capture(short v) { return Signed(v); }
  static vglobal::fmt::Arg Capture(unsigned short v) { return Unsigned(v); }
  static vglobal::fmt::Arg Capture(int v) { return Signed(v); }
  static vglobal::fmt::Arg Capture(unsigned int v) { return Unsigned(v); }
  static vglobal::fmt::Arg Capture(long v) { return Signed(v); }
  static vglobal::fmt::Arg Capture(unsigned long v) { return Unsigned(v); }
  static vglobal::fmt::Arg Capture(long long v) { return Signed(v); }
  static vglobal::fmt::Arg Capture(unsigned long long v) { return Unsigned(v); }
  template <typename E>
  requires std::is_enum_v<E>
  static vglobal::fmt::Arg Capture(E v) { return Signed(static_cast<long long>(v)); }
  template <typename T>
  static vglobal::fmt::Arg Capture(T* v) {
    vglobal::fmt::Arg a{vglobal::fmt::Arg::Kind::Pointer, {}};
    a.p = v;
    return a;
  }
  static vglobal::fmt::Arg Capture(std::nullptr_t) { return Capture(static_cast<void*>(nullptr)); }

 private:
  static vglobal::fmt::Arg Wide(const wchar_t* v) {
    vglobal::fmt::Arg a{vglobal::fmt::Arg::Kind::Wide, {}};
    a.ws = v;
    return a;
  }
  static vglobal::fmt::Arg Signed(long long v) {
    vglobal::fmt::Arg a{vglobal::fmt::Arg::Kind::Int, {}};
    a.i = v;
    return a;
  }
  static vglobal::fmt::Arg Unsigned(unsigned long long v) {
    vglobal::fmt::Arg a{vglobal::fmt::Arg::Kind::UInt, {}};
    a.u = v;
    return a;
  }

  std::wstring s_;
};

// Automation strings (BSTR): length-prefixed wide strings owned by the receiver.
VGLOBAL_EXPORT BSTR SysAllocString(const wchar_t* text);
VGLOBAL_EXPORT BSTR SysAllocStringLen(const wchar_t* text, UINT length);
VGLOBAL_EXPORT void SysFreeString(BSTR text);
VGLOBAL_EXPORT UINT SysStringLen(BSTR text);

// The `index`-th piece (from 0) of `full` cut at each `separator`, as status-bar
// and tooltip texts are kept in one resource string ("status\ntip"). FALSE, with
// `piece` empty, when the text has fewer pieces or is null, or index is negative.
VGLOBAL_EXPORT BOOL AfxExtractSubString(CString& piece, const wchar_t* full, int index,
                                        wchar_t separator = L'\n');
