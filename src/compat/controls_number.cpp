#include "compat/controls_number.h"

#include <charconv>
#include <cmath>
#include <cwctype>

namespace vglobal::number {
namespace {

// The text without surrounding spaces, as ASCII; nullopt when it holds anything
// else, which cannot be part of a number.
std::optional<std::string> Ascii(std::wstring_view text) {
  while (!text.empty() && std::iswspace(static_cast<wint_t>(text.front()))) text.remove_prefix(1);
  while (!text.empty() && std::iswspace(static_cast<wint_t>(text.back()))) text.remove_suffix(1);
  std::string out;
  out.reserve(text.size());
  for (wchar_t c : text) {
    if (c <= 0 || c > 127) return std::nullopt;
    out.push_back(static_cast<char>(c));
  }
  return out;
}

// from_chars takes no leading "+"; a sign before another sign is not a number.
std::string_view WithoutPlus(const std::string& s) {
  std::string_view v(s);
  if (!v.empty() && v.front() == '+') {
    v.remove_prefix(1);
    if (!v.empty() && (v.front() == '+' || v.front() == '-')) return {};
  }
  return v;
}

}  // namespace

std::optional<long long> ParseInteger(std::wstring_view text) {
  auto s = Ascii(text);
  if (!s) return std::nullopt;
  std::string_view v = WithoutPlus(*s);
  if (v.empty()) return std::nullopt;
  long long value = 0;
  auto [end, ec] = std::from_chars(v.data(), v.data() + v.size(), value);
  if (ec != std::errc() || end != v.data() + v.size()) return std::nullopt;
  return value;
}

std::optional<double> ParseReal(std::wstring_view text) {
  auto s = Ascii(text);
  if (!s) return std::nullopt;
  std::string_view v = WithoutPlus(*s);
  // from_chars also reads "inf", "nan" and hexadecimal forms: a dialog field takes
  // decimal digits only.
  for (char c : v)
    if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '+' ||
          c == 'e' || c == 'E'))
      return std::nullopt;
  if (v.empty()) return std::nullopt;
  double value = 0;
  auto [end, ec] = std::from_chars(v.data(), v.data() + v.size(), value);
  if (ec != std::errc() || end != v.data() + v.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::wstring FormatReal(double value, int decimals) {
  char buf[400];
  std::to_chars_result r =
      decimals >= 0 ? std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed,
                                    decimals > 20 ? 20 : decimals)
                    : std::to_chars(buf, buf + sizeof buf, value, std::chars_format::general, 15);
  if (r.ec != std::errc()) return L"";
  std::wstring out(buf, r.ptr);
  // A negative number that rounds to zero shows as zero.
  if (!out.empty() && out[0] == L'-' && out.find_first_not_of(L"0.", 1) == std::wstring::npos)
    out.erase(0, 1);
  return out;
}

}  // namespace vglobal::number
