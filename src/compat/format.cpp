// printf-style formatting by the Windows wide-printf rules.
//
// Map of this file (directives are parsed by format_directive.h):
//   1. Argument sources: captured typed arguments, or a C va_list.
//   2. Rendering of one directive (numbers through snprintf in the classic locale,
//      text and characters by hand).
//   3. The driver loop.
//
// glibc's wide printf differs from the Windows one (%s means narrow there), so a
// legacy format is never handed to the C library as a whole: each directive is
// rendered on its own with a format we build ourselves.
#include <locale.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <string>

#include "compat/format_directive.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/unicode.h"

namespace vglobal::fmt {
namespace {

// ---- 1. Argument sources ----

class Source {
 public:
  virtual ~Source() = default;
  virtual bool Int(Length length, long long& out) = 0;
  virtual bool UInt(Length length, unsigned long long& out) = 0;
  virtual bool Float(Length length, long double& out) = 0;
  virtual bool WideChar(wchar_t& out) = 0;
  virtual bool NarrowChar(char& out) = 0;
  // Text arguments: exactly one of wide/narrow is set (both may be null pointers).
  virtual bool Text(bool narrow, const wchar_t*& wide, const char*& narrowText) = 0;
  virtual bool Pointer(const void*& out) = 0;
};

class TypedSource : public Source {
 public:
  TypedSource(const Arg* args, std::size_t count) : args_(args), count_(count) {}

  bool Int(Length, long long& out) override {
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
  bool UInt(Length length, unsigned long long& out) override {
    long long v;
    if (!Int(length, v)) return false;
    out = static_cast<unsigned long long>(v);
    return true;
  }
  bool Float(Length, long double& out) override {
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
    if (!Int(Length::None, v)) return false;
    out = static_cast<wchar_t>(v);
    return true;
  }
  bool NarrowChar(char& out) override {
    long long v;
    if (!Int(Length::None, v)) return false;
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

  bool Int(Length length, long long& out) override {
    switch (length) {
      case Length::Long:
        out = va_arg(args_, long);
        break;
      case Length::LongLong:
        out = va_arg(args_, long long);
        break;
      case Length::Ptr:
        out = va_arg(args_, std::intptr_t);
        break;
      default:
        out = va_arg(args_, int);
        break;
    }
    return true;
  }
  bool UInt(Length length, unsigned long long& out) override {
    switch (length) {
      case Length::Long:
        out = va_arg(args_, unsigned long);
        break;
      case Length::LongLong:
        out = va_arg(args_, unsigned long long);
        break;
      case Length::Ptr:
        out = va_arg(args_, std::uintptr_t);
        break;
      default:
        out = va_arg(args_, unsigned int);
        break;
    }
    return true;
  }
  bool Float(Length length, long double& out) override {
    out = length == Length::LongDouble ? va_arg(args_, long double) : va_arg(args_, double);
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

// ---- 2. Rendering ----

locale_t ClassicLocale() {
  static locale_t loc = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
  return loc;
}

// Runs snprintf in the classic locale, whatever the process or thread locale is.
std::string CFormat(const std::string& directive, auto value) {
  locale_t previous = uselocale(ClassicLocale());
  char small[128];
  int n = std::snprintf(small, sizeof small, directive.c_str(), value);
  std::string out;
  if (n >= 0 && static_cast<std::size_t>(n) < sizeof small) {
    out.assign(small, static_cast<std::size_t>(n));
  } else if (n >= 0) {
    out.resize(static_cast<std::size_t>(n) + 1);
    std::snprintf(out.data(), out.size(), directive.c_str(), value);
    out.resize(static_cast<std::size_t>(n));
  }
  uselocale(previous);
  return out;
}

// The narrow directive that renders a number of `d` with snprintf.
std::string NumberDirective(const Directive& d, int width, int precision,
                            const char* lengthModifier, char conversion) {
  std::string directive(1, '%');
  directive += d.flags;
  if (width >= 0) directive += std::to_string(width);
  if (precision >= 0) {
    directive.push_back('.');
    directive += std::to_string(precision);
  }
  directive += lengthModifier;
  directive.push_back(conversion);
  return directive;
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
    if (!src.Int(Length::None, w)) return;
    if (w < 0) {
      left = true;
      w = w < -kMaxDirectiveNumber ? kMaxDirectiveNumber : -w;  // -LLONG_MIN would overflow
    }
    width = static_cast<int>(std::min<long long>(w, kMaxDirectiveNumber));
  }
  if (d.precisionStar) {
    long long pr = 0;
    if (!src.Int(Length::None, pr)) return;
    precision = pr < 0 ? -1 : static_cast<int>(std::min<long long>(pr, kMaxDirectiveNumber));
  }
  Directive eff = d;
  if (left && eff.flags.find('-') == std::string::npos) eff.flags.push_back('-');

  switch (d.conversion) {
    case L'd':
    case L'i': {
      long long v;
      if (!src.Int(d.length, v)) return;
      if (d.length == Length::Short)
        v = static_cast<short>(v);
      else if (d.length == Length::Char)
        v = static_cast<signed char>(v);
      else if (d.length == Length::None)
        v = static_cast<int>(v);
      AppendAscii(out, CFormat(NumberDirective(eff, width, precision, "ll", 'd'), v));
      return;
    }
    case L'u':
    case L'o':
    case L'x':
    case L'X': {
      unsigned long long v;
      if (!src.UInt(d.length, v)) return;
      if (d.length == Length::Short)
        v = static_cast<unsigned short>(v);
      else if (d.length == Length::Char)
        v = static_cast<unsigned char>(v);
      else if (d.length == Length::None)
        v = static_cast<unsigned int>(v);
      AppendAscii(out, CFormat(NumberDirective(eff, width, precision, "ll",
                                               static_cast<char>(d.conversion)),
                               v));
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
      if (!src.Float(d.length, v)) return;
      AppendAscii(
          out,
          CFormat(NumberDirective(eff, width, precision, "L", static_cast<char>(d.conversion)), v));
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
          (d.conversion == L'C' && d.length != Length::Long && d.length != Length::Wide) ||
          d.length == Length::Short;
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
          (d.conversion == L'S' && d.length != Length::Long && d.length != Length::Wide) ||
          d.length == Length::Short;
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

// ---- 3. Driver ----

std::wstring Run(const wchar_t* format, Source& src) {
  std::wstring out;
  if (!format) return out;
  const std::wstring_view text(format);
  std::size_t pos = 0;
  while (pos < text.size()) {
    const std::size_t mark = text.find(L'%', pos);
    out.append(text.substr(pos, mark - pos));
    if (mark == std::wstring_view::npos) break;
    if (mark + 1 < text.size() && text[mark + 1] == L'%') {
      out.push_back(L'%');
      pos = mark + 2;
      continue;
    }
    pos = mark + 1;
    Directive d;
    // A malformed directive is kept as text.
    if (!ParseDirective(text, pos, d)) {
      out.append(text.substr(mark, pos - mark));
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
