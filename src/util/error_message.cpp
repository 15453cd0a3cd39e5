// Resource texts filled with arguments by the message-formatter rules (see
// error_message.h).
//
// Each insert is rendered on its own: its printf conversion is read by the directive
// parser that CString::Format uses, checked against the one captured argument it
// names, then handed to the library's wide-printf formatter with that argument alone. A conversion
// can therefore never consume another insert's argument or read past the list.
#include "vglobal/util/error_message.h"

#include <optional>

#include "compat/format_directive.h"

namespace vglobal {
namespace {

constexpr std::size_t kMaxInsert = 99;

enum class Wants { Text, Integer, Floating, Pointer };

bool IsDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

// The kind of argument that `conversion` takes, when it is exactly one printf
// conversion whose width and precision are written out.
std::optional<Wants> ConversionOf(std::wstring_view conversion) {
  fmt::Directive directive;
  std::size_t end = 0;
  if (!fmt::ParseDirective(conversion, end, directive) || end != conversion.size() ||
      directive.widthStar || directive.precisionStar)
    return std::nullopt;
  switch (directive.conversion) {
    case L's':
    case L'S':
      return Wants::Text;
    case L'd':
    case L'i':
    case L'u':
    case L'o':
    case L'x':
    case L'X':
    case L'c':
    case L'C':
      return Wants::Integer;
    case L'e':
    case L'E':
    case L'f':
    case L'F':
    case L'g':
    case L'G':
    case L'a':
    case L'A':
      return Wants::Floating;
    case L'p':
      return Wants::Pointer;
    default:  // n: writing through an argument is never allowed
      return std::nullopt;
  }
}

bool Suits(Wants wants, fmt::Arg::Kind kind) {
  using Kind = fmt::Arg::Kind;
  switch (wants) {
    case Wants::Text:
      return kind == Kind::Wide || kind == Kind::Narrow;
    case Wants::Integer:
      return kind == Kind::Int || kind == Kind::UInt;
    case Wants::Floating:
      return kind == Kind::Double;
    case Wants::Pointer:
      return kind == Kind::Pointer;
  }
  return false;
}

bool RenderInsert(std::wstring_view conversion, const fmt::Arg& arg, std::wstring& out) {
  const std::optional<Wants> wants = ConversionOf(conversion);
  if (!wants || !Suits(*wants, arg.kind)) return false;
  std::wstring directive(1, L'%');
  directive += conversion;
  out += fmt::Format(directive.c_str(), &arg, 1);
  return true;
}

}  // namespace

bool FormatMessageText(std::wstring_view format, const fmt::Arg* args, std::size_t count,
                       std::wstring& out) {
  std::wstring text;
  std::size_t i = 0;
  while (i < format.size()) {
    const std::size_t mark = format.find(L'%', i);
    if (mark == std::wstring_view::npos) {
      text += format.substr(i);
      break;
    }
    text += format.substr(i, mark - i);
    if (mark + 1 == format.size()) return false;
    const wchar_t escape = format[mark + 1];
    i = mark + 2;
    if (escape == L'0') break;
    if (!IsDigit(escape)) {
      switch (escape) {
        case L'n':
          text += L"\r\n";
          break;
        case L'r':
          text += L'\r';
          break;
        case L't':
          text += L'\t';
          break;
        default:
          // %%, %., %!, "% " and any other character stand for themselves.
          text += escape;
          break;
      }
      continue;
    }
    std::size_t number = static_cast<std::size_t>(escape - L'0');
    while (i < format.size() && IsDigit(format[i])) {
      number = number * 10 + static_cast<std::size_t>(format[i] - L'0');
      if (number > kMaxInsert) return false;
      ++i;
    }
    std::wstring_view conversion = L"s";
    if (i < format.size() && format[i] == L'!') {
      const std::size_t close = format.find(L'!', i + 1);
      if (close == std::wstring_view::npos) return false;
      conversion = format.substr(i + 1, close - i - 1);
      i = close + 1;
    }
    if (number > count || !args) return false;
    if (!RenderInsert(conversion, args[number - 1], text)) return false;
  }
  out = std::move(text);
  return true;
}

}  // namespace vglobal

int FormatErrorMessageFromArgs(unsigned int stringId, CString* result,
                               const vglobal::fmt::Arg* args, std::size_t count) {
  if (!result) return 0;
  CString format;
  if (!format.LoadString(stringId)) return 0;
  std::wstring text;
  if (!vglobal::FormatMessageText(format.view(), args, count, text)) return 0;
  *result = CString(std::move(text));
  return 1;
}
