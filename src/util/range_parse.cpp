// Range lists typed by the user (see range_parse.h).
#include "vglobal/util/range_parse.h"

#include <langinfo.h>
#include <locale.h>
#include <wchar.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "vglobal/compat/unicode.h"

namespace {

// The environment's own list separator. The process locale is left alone (the
// library never calls setlocale): the environment's numeric locale is opened as an
// object of its own just long enough to ask for its decimal mark. Where decimals are
// written with ',' a list cannot use it, so ';' separates the items.
wchar_t UserListSeparator() {
  if (const char* chosen = std::getenv("ARVENIS_LIST_SEPARATOR"); chosen && *chosen) {
    const std::wstring wide = vglobal::Utf8ToWide(chosen);
    if (!wide.empty()) return wide.front();
  }
  wchar_t separator = L',';
  if (locale_t user = newlocale(LC_NUMERIC_MASK, "", static_cast<locale_t>(0))) {
    const char* radix = nl_langinfo_l(RADIXCHAR, user);
    if (radix && std::strcmp(radix, ",") == 0) separator = L';';
    freelocale(user);
  }
  return separator;
}

locale_t ClassicNumbers() {
  static const locale_t classic = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
  return classic;
}

// The leading number of `part`, 0 when it has none. `part` is a copy, so that the
// conversion finds a terminator.
double ReadNumber(const std::wstring& part) {
  return wcstod_l(part.c_str(), nullptr, ClassicNumbers());
}

// Splits `text` at `delimiter` into its non-empty pieces: runs of delimiters count as
// one and delimiters at either end produce no piece. Stops once more than `limit`
// pieces were found, so that an absurd text costs no more than the limit.
std::vector<std::wstring> Tokens(std::wstring_view text, wchar_t delimiter, std::size_t limit) {
  std::vector<std::wstring> pieces;
  std::size_t at = 0;
  while (at < text.size() && pieces.size() <= limit) {
    const std::size_t first = text.find_first_not_of(delimiter, at);
    if (first == std::wstring_view::npos) break;
    std::size_t end = text.find(delimiter, first);
    if (end == std::wstring_view::npos) end = text.size();
    pieces.emplace_back(text.substr(first, end - first));
    at = end;
  }
  return pieces;
}

}  // namespace

VDoubleRngParse::VDoubleRngParse() : VDoubleRngParse(3) {}

VDoubleRngParse::VDoubleRngParse(int maximum)
    : m_maximum(maximum), m_separator{UserListSeparator(), 0} {}

int VDoubleRngParse::Parse(const CString& text) {
  if (m_maximum <= 0) return 0;

  std::wstring compact = text.str();
  std::erase(compact, L' ');

  const auto maximum = static_cast<std::size_t>(m_maximum);
  const std::vector<std::wstring> items = Tokens(compact, m_separator[0], maximum);
  if (items.empty() || items.size() > maximum) return 0;

  // Each range is stored as soon as it is read, so a malformed item leaves the ranges
  // before it in place, as callers that look past a failed parse have always seen.
  if (m_lows.size() < items.size()) {
    m_lows.resize(items.size());
    m_highs.resize(items.size());
  }
  for (std::size_t i = 0; i < items.size(); ++i) {
    // Two parts are a range; a third means the text is not a range list at all.
    const std::vector<std::wstring> parts = Tokens(items[i], L'-', 2);
    if (parts.empty() || parts.size() > 2) return 0;
    m_lows[i] = ReadNumber(parts.front());
    m_highs[i] = ReadNumber(parts.back());
  }
  return static_cast<int>(items.size());
}

double VDoubleRngParse::GetLow(int i) const {
  return i >= 0 && static_cast<std::size_t>(i) < m_lows.size() ? m_lows[static_cast<std::size_t>(i)]
                                                               : 0.0;
}

double VDoubleRngParse::GetHigh(int i) const {
  return i >= 0 && static_cast<std::size_t>(i) < m_highs.size()
             ? m_highs[static_cast<std::size_t>(i)]
             : 0.0;
}
