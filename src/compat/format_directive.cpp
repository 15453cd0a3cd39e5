// The parser of printf directives (contract in format_directive.h).
#include "compat/format_directive.h"

#include <algorithm>

namespace vglobal::fmt {
namespace {

bool IsFlag(wchar_t c) {
  return c == L'-' || c == L'+' || c == L' ' || c == L'#' || c == L'0';
}

bool IsDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

int ReadNumber(std::wstring_view text, std::size_t& pos) {
  int value = 0;
  for (; pos < text.size() && IsDigit(text[pos]); ++pos)
    value = std::min(value * 10 + (text[pos] - L'0'), kMaxDirectiveNumber);
  return value;
}

// The length modifiers, longest first where one begins another.
struct LengthSpelling {
  std::wstring_view text;
  Length length;
};
constexpr LengthSpelling kLengths[] = {
    {L"hh", Length::Char},      {L"h", Length::Short},      {L"ll", Length::LongLong},
    {L"l", Length::Long},       {L"L", Length::LongDouble}, {L"w", Length::Wide},
    {L"j", Length::Ptr},        {L"z", Length::Ptr},        {L"t", Length::Ptr},
    {L"I64", Length::LongLong}, {L"I32", Length::None},     {L"I", Length::Ptr},
};

bool IsConversion(wchar_t c) {
  return std::wstring_view(L"diuoxXeEfFgGaAcCsSpn").find(c) != std::wstring_view::npos;
}

}  // namespace

bool ParseDirective(std::wstring_view text, std::size_t& pos, Directive& directive) {
  auto at = [&](std::size_t k) { return k < text.size() ? text[k] : L'\0'; };
  while (IsFlag(at(pos))) directive.flags.push_back(static_cast<char>(text[pos++]));
  if (at(pos) == L'*') {
    directive.widthStar = true;
    ++pos;
  } else if (IsDigit(at(pos))) {
    directive.width = ReadNumber(text, pos);
  }
  if (at(pos) == L'.') {
    ++pos;
    if (at(pos) == L'*') {
      directive.precisionStar = true;
      ++pos;
    } else {
      directive.precision = ReadNumber(text, pos);
    }
  }
  for (const LengthSpelling& spelling : kLengths) {
    if (text.substr(std::min(pos, text.size())).starts_with(spelling.text)) {
      directive.length = spelling.length;
      pos += spelling.text.size();
      break;
    }
  }
  if (pos >= text.size()) {
    pos = text.size();
    return false;
  }
  directive.conversion = text[pos++];
  return IsConversion(directive.conversion);
}

}  // namespace vglobal::fmt
