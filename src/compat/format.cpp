// printf-style formatting by the Windows wide-printf rules.
//
// Map of this file:
//   1. Directive parsing: flags, width, precision, size prefix, conversion.
//   2. Argument sources: captured typed arguments, or a C va_list.
//   3. Rendering of one directive (numbers through snprintf in the classic locale,
//      text and characters by hand).
//   4. The driver loop.
//
// glibc's wide printf differs from the Windows one (%s means narrow there), so a
// legacy format is never handed to the C library as a whole: each directive is
// rendered on its own with a format we build ourselves.
#include <locale.h>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <string>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/unicode.h"

namespace vglobal::fmt {
namespace {

// ---- 1. Directive parsing ----

enum class Size { None, Char, Short, Long, LongLong, Ptr, LongDouble, Wide, Narrow };

struct Directive {
  std::string flags;
  bool widthStar = false;
  int width = -1;
  bool precisionStar = false;
  int precision = -1;
  Size size = Size::None;
  wchar_t conv = 0;
};

bool IsFlag(wchar_t c) {
  return c == L'-' || c == L'+' || c == L' ' || c == L'#' || c == L'0';
}

int ReadNumber(const wchar_t*& p) {
  long long v = 0;
  while (*p >= L'0' && *p <= L'9') {
    v = v * 10 + (*p - L'0');
    if (v > 100000) v = 100000;  // absurd widths are clamped, not trusted
    ++p;
  }
  return static_cast<int>(v);
}

// Parses the directive after '%'; returns false for an incomplete or unknown one.
bool ParseDirective(const wchar_t*& p, Directive& d) {
  while (IsFlag(*p)) d.flags.push_back(static_cast<char>(*p++));
  if (*p == L'*') {
    d.widthStar = true;
    ++p;
  } else if (*p >= L'0' && *p <= L'9') {
    d.width = ReadNumber(p);
  }
  if (*p == L'.') {
    ++p;
    if (*p == L'*') {
      d.precisionStar = true;
      ++p;
    } else {
      d.precision = ReadNumber(p);
    }
  }
  switch (*p) {
    case L'h':
      ++p;
      if (*p == L'h') {
        d.size = Size::Char;
        ++p;
      } else {
        d.size = Size::Short;
      }
      break;
    case L'l':
      ++p;
      if (*p == L'l') {
        d.size = Size::LongLong;
        ++p;
      } else {
        d.size = Size::Long;
      }
      break;
    case L'L':
      d.size = Size::LongDouble;
      ++p;
      break;
    case L'w':
      d.size = Size::Wide;
      ++p;
      break;
    case L'j':
    case L'z':
    case L't':
      d.size = Size::Ptr;
      ++p;
      break;
    case L'I':
      if (p[1] == L'6' && p[2] == L'4') {
        d.size = Size::LongLong;
        p += 3;
      } else if (p[1] == L'3' && p[2] == L'2') {
        d.size = Size::None;
        p += 3;
      } else {
        d.size = Size::Ptr;
        ++p;
      }
      break;
    default:
      break;
  }
  if (*p == 0) return false;
  d.conv = *p++;
  switch (d.conv) {
    case L'd':
    case L'i':
    case L'u':
    case L'o':
    case L'x':
    case L'X':
    case L'e':
    case L'E':
    case L'f':
    case L'F':
    case L'g':
    case L'G':
    case L'a':
    case L'A':
    case L'c':
    case L'C':
    case L's':
    case L'S':
    case L'p':
    case L'n':
      return true;
    default:
      return false;
  }
}

// ---- 2. Argument sources ----

class Source {
 public:
  virtual ~Source() = default;
  virtual bool Int(Size size, long long& out) = 0;
  virtual bool UInt(Size size, unsigned long long& out) = 0;
  virtual bool Float(Size size, long double& out) = 0;
  virtual bool WideChar(wchar_t& out) = 0;
  virtual bool NarrowChar(char& out) = 0;
  // Text arguments: exactly one of wide/narrow is set (both may be null pointers).
  virtual bool Text(bool narrow, const wchar_t*& wide, const char*& narrowText) = 0;
  virtual bool Pointer(const void*& out) = 0;
};

class TypedSource : public Source {
 public:
  TypedSource(const Arg* args, std::size_t count) : args_(args), count_(count) {}

  bool Int(Size, long long& out) override {
    const Arg* a = Next();
    if (!a) return false;
    switch (a->kind) {
      case Arg::Kind::Int:
        out = a->i;
        return true;
      case Arg::Kind::UInt:
        out = static_cast<long long>(a->u);
        return true;
      case Arg::Kind::Double:
        out = ClampToInt(a->d);
        return true;
      case Arg::Kind::Pointer:
        out = static_cast<long long>(reinterpret_cast<std::uintptr_t>(a->p));
        return true;
      default:
        return false;
    }
  }
  bool UInt(Size size, unsigned long long& out) override {
    long long v;
    if (!Int(size, v)) return false;
    out = static_cast<unsigned long long>(v);
    return true;
  }
  bool Float(Size, long double& out) override {
    const Arg* a = Next();
    if (!a) return false;
    switch (a->kind) {
      case Arg::Kind::Int:
        out = static_cast<long double>(a->i);
        return true;
      case Arg::Kind::UInt:
        out = static_cast<long double>(a->u);
        return true;
      case Arg::Kind::Double:
        out = a->d;
        return true;
      default:
        return false;
    }
  }
  bool WideChar(wchar_t& out) override {
    long long v;
    if (!Int(Size::None, v)) return false;
    out = static_cast<wchar_t>(v);
    return true;
  }
  bool NarrowChar(char& out) override {
    long long v;
    if (!Int(Size::None, v)) return false;
    out = static_cast<char>(v);
    return true;
  }
  bool Text(bool narrow, const wchar_t*& wide, const char*& narrowText) override {
    // The argument's own type decides how its bytes are read, whatever the
    // directive says: a captured argument cannot be misread.
    (void)narrow;
    const Arg* a = Next();
    if (!a) return false;
    if (a->kind == Arg::Kind::Wide) {
      wide = a->ws;
      narrowText = nullptr;
      return true;
    }
    if (a->kind == Arg::Kind::Narrow) {
      wide = nullptr;
      narrowText = a->ns;
      return true;
    }
    if (a->kind == Arg::Kind::Pointer && a->p == nullptr) {
      wide = nullptr;
      narrowText = nullptr;
      return true;
    }
    return false;
  }
  bool Pointer(const void*& out) override {
    const Arg* a = Next();
    if (!a) return false;
    switch (a->kind) {
      case Arg::Kind::Pointer:
        out = a->p;
        return true;
      case Arg::Kind::Wide:
        out = a->ws;
        return true;
      case Arg::Kind::Narrow:
        out = a->ns;
        return true;
      case Arg::Kind::Int:
        out = reinterpret_cast<const void*>(static_cast<std::uintptr_t>(a->i));
        return true;
      case Arg::Kind::UInt:
        out = reinterpret_cast<const void*>(static_cast<std::uintptr_t>(a->u));
        return true;
      default:
        return false;
    }
  }

 private:
  static long long ClampToInt(double d) {
    if (std::isnan(d)) return 0;
    if (d >= 9.2e18) return 9223372036854775807LL;
    if (d <= -9.2e18) return -9223372036854775807LL - 1;
    return static_cast<long long>(d);
  }
  const Arg* Next() { return next_ < count_ ? &args_[next_++] : nullptr; }

  const Arg* args_;
  std::size_t count_;
  std::size_t next_ = 0;
};

// Reads arguments as the C calling convention passed them. The caller promised the
// types by the format, exactly as with any printf.
class VaSource : public Source {
 public:
  explicit VaSource(va_list args) { va_copy(args_, args); }
  ~VaSource() override { va_end(args_); }

  bool Int(Size size, long long& out) override {
    switch (size) {
      case Size::Long:
        out = va_arg(args_, long);
        break;
      case Size::LongLong:
        out = va_arg(args_, long long);
        break;
      case Size::Ptr:
        out = va_arg(args_, std::intptr_t);
        break;
      default:
        out = va_arg(args_, int);
        break;
    }
    return true;
  }
  bool UInt(Size size, unsigned long long& out) override {
    switch (size) {
      case Size::Long:
        out = va_arg(args_, unsigned long);
        break;
      case Size::LongLong:
        out = va_arg(args_, unsigned long long);
        break;
      case Size::Ptr:
        out = va_arg(args_, std::uintptr_t);
        break;
      default:
        out = va_arg(args_, unsigned int);
        break;
    }
    return true;
  }
  bool Float(Size size, long double& out) override {
    out = size == Size::LongDouble ? va_arg(args_, long double) : va_arg(args_, double);
    return true;
  }
  bool WideChar(wchar_t& out) override {
    out = static_cast<wchar_t>(va_arg(args_, wint_t));
    return true;
  }
  bool NarrowChar(char& out) override {
    out = static_cast<char>(va_arg(args_, int));
    return true;
  }
  bool Text(bool narrow, const wchar_t*& wide, const char*& narrowText) override {
    if (narrow) {
      narrowText = va_arg(args_, const char*);
      wide = nullptr;
    } else {
      wide = va_arg(args_, const wchar_t*);
      narrowText = nullptr;
    }
    return true;
  }
  bool Pointer(const void*& out) override {
    out = va_arg(args_, const void*);
    return true;
  }

 private:
  va_list args_;
};

// ---- 3. Rendering ----

locale_t ClassicLocale() {
  static locale_t loc = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
  return loc;
}

// Runs snprintf in the classic locale, whatever the process or thread locale is.
std::string CFormat(const std::string& spec, auto value) {
  locale_t previous = uselocale(ClassicLocale());
  char small[128];
  int n = std::snprintf(small, sizeof small, spec.c_str(), value);
  std::string out;
  if (n >= 0 && static_cast<std::size_t>(n) < sizeof small) {
    out.assign(small, static_cast<std::size_t>(n));
  } else if (n >= 0) {
    out.resize(static_cast<std::size_t>(n) + 1);
    std::snprintf(out.data(), out.size(), spec.c_str(), value);
    out.resize(static_cast<std::size_t>(n));
  }
  uselocale(previous);
  return out;
}

std::string NumberSpec(const Directive& d, int width, int precision, const char* length,
                       char conv) {
  std::string spec(1, '%');
  spec += d.flags;
  if (width >= 0) spec += std::to_string(width);
  if (precision >= 0) {
    spec.push_back('.');
    spec += std::to_string(precision);
  }
  spec += length;
  spec.push_back(conv);
  return spec;
}

void Pad(std::wstring& out, std::wstring_view body, int width, bool left) {
  std::size_t pad = width > 0 && static_cast<std::size_t>(width) > body.size()
                        ? static_cast<std::size_t>(width) - body.size()
                        : 0;
  if (!left) out.append(pad, L' ');
  out.append(body);
  if (left) out.append(pad, L' ');
}

void AppendAscii(std::wstring& out, const std::string& s) {
  for (char c : s) out.push_back(static_cast<wchar_t>(static_cast<unsigned char>(c)));
}

void Render(const Directive& d, Source& src, std::wstring& out) {
  int width = d.width;
  int precision = d.precision;
  bool left = d.flags.find('-') != std::string::npos;
  if (d.widthStar) {
    long long w = 0;
    if (!src.Int(Size::None, w)) return;
    if (w < 0) {
      left = true;
      w = -w;
    }
    width = static_cast<int>(w > 100000 ? 100000 : w);
  }
  if (d.precisionStar) {
    long long pr = 0;
    if (!src.Int(Size::None, pr)) return;
    precision = pr < 0 ? -1 : static_cast<int>(pr > 100000 ? 100000 : pr);
  }
  Directive eff = d;
  if (left && eff.flags.find('-') == std::string::npos) eff.flags.push_back('-');

  switch (d.conv) {
    case L'd':
    case L'i': {
      long long v;
      if (!src.Int(d.size, v)) return;
      if (d.size == Size::Short)
        v = static_cast<short>(v);
      else if (d.size == Size::Char)
        v = static_cast<signed char>(v);
      else if (d.size == Size::None)
        v = static_cast<int>(v);
      AppendAscii(out, CFormat(NumberSpec(eff, width, precision, "ll", 'd'), v));
      return;
    }
    case L'u':
    case L'o':
    case L'x':
    case L'X': {
      unsigned long long v;
      if (!src.UInt(d.size, v)) return;
      if (d.size == Size::Short)
        v = static_cast<unsigned short>(v);
      else if (d.size == Size::Char)
        v = static_cast<unsigned char>(v);
      else if (d.size == Size::None)
        v = static_cast<unsigned int>(v);
      AppendAscii(out,
                  CFormat(NumberSpec(eff, width, precision, "ll", static_cast<char>(d.conv)), v));
      return;
    }
    case L'e':
    case L'E':
    case L'f':
    case L'F':
    case L'g':
    case L'G':
    case L'a':
    case L'A': {
      long double v;
      if (!src.Float(d.size, v)) return;
      AppendAscii(out,
                  CFormat(NumberSpec(eff, width, precision, "L", static_cast<char>(d.conv)), v));
      return;
    }
    case L'p': {
      const void* p;
      if (!src.Pointer(p)) return;
      // Pointers print as 16 upper-case hexadecimal digits without a prefix.
      std::string body =
          CFormat("%016llX", static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(p)));
      std::wstring wbody;
      AppendAscii(wbody, body);
      Pad(out, wbody, width, left);
      return;
    }
    case L'c':
    case L'C': {
      // In a wide format %c and %lc/%wc are wide; %C and %hc are narrow.
      bool narrow =
          (d.conv == L'C' && d.size != Size::Long && d.size != Size::Wide) || d.size == Size::Short;
      wchar_t ch;
      if (narrow) {
        char c;
        if (!src.NarrowChar(c)) return;
        ch = static_cast<wchar_t>(static_cast<unsigned char>(c));
      } else if (!src.WideChar(ch)) {
        return;
      }
      Pad(out, std::wstring_view(&ch, 1), width, left);
      return;
    }
    case L's':
    case L'S': {
      // In a wide format %s, %ls and %ws are wide; %S and %hs are narrow (UTF-8).
      bool narrow =
          (d.conv == L'S' && d.size != Size::Long && d.size != Size::Wide) || d.size == Size::Short;
      const wchar_t* w = nullptr;
      const char* n = nullptr;
      if (!src.Text(narrow, w, n)) return;
      std::wstring converted;
      std::wstring_view body;
      if (w) {
        body = w;
      } else if (n) {
        converted = Utf8ToWide(n);
        body = converted;
      } else {
        body = L"(null)";
      }
      if (precision >= 0 && static_cast<std::size_t>(precision) < body.size())
        body = body.substr(0, static_cast<std::size_t>(precision));
      Pad(out, body, width, left);
      return;
    }
    case L'n': {
      // Writing through a pointer from the format is refused: the argument is
      // consumed so that later directives stay in step, and nothing is written.
      const void* ignored;
      src.Pointer(ignored);
      return;
    }
    default:
      return;
  }
}

// ---- 4. Driver ----

std::wstring Run(const wchar_t* format, Source& src) {
  std::wstring out;
  if (!format) return out;
  const wchar_t* p = format;
  while (*p) {
    if (*p != L'%') {
      const wchar_t* start = p;
      while (*p && *p != L'%') ++p;
      out.append(start, static_cast<std::size_t>(p - start));
      continue;
    }
    if (p[1] == L'%') {
      out.push_back(L'%');
      p += 2;
      continue;
    }
    const wchar_t* start = p;
    ++p;
    Directive d;
    if (!ParseDirective(p, d)) {
      // A malformed directive is kept as text.
      if (*p == 0) {
        out.append(start);
        break;
      }
      out.append(start, static_cast<std::size_t>(p - start));
      continue;
    }
    Render(d, src, out);
  }
  return out;
}

}  // namespace

std::wstring Format(const wchar_t* format, const Arg* args, std::size_t count) {
  TypedSource src(args, count);
  return Run(format, src);
}

std::wstring FormatV(const wchar_t* format, va_list args) {
  VaSource src(args);
  return Run(format, src);
}

}  // namespace vglobal::fmt
