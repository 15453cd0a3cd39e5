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

// The leading number of `part`, 0 when it has none. The part is copied into
// `scratch` first, so that the conversion finds a terminator where the part ends.
double ReadNumber(std::wstring_view part, std::wstring& scratch) {
  scratch.assign(part);
  return wcstod_l(scratch.c_str(), nullptr, ClassicNumbers());
}

// Calls `piece` for each non-empty piece of `text` split at `delimiter`: runs of
// delimiters count as one and delimiters at either end produce no piece. Stops after
// `limit` + 1 pieces, so that an absurd text costs no more than the limit. Returns the
// number of pieces seen.
template <typename Piece>
std::size_t ForEachToken(std::wstring_view text, wchar_t delimiter, std::size_t limit,
                         Piece&& piece) {
  std::size_t count = 0;
  std::size_t at = 0;
  while (at < text.size() && count <= limit) {
    const std::size_t first = text.find_first_not_of(delimiter, at);
    if (first == std::wstring_view::npos) break;
    std::size_t end = text.find(delimiter, first);
    if (end == std::wstring_view::npos) end = text.size();
    piece(count++, text.substr(first, end - first));
    at = end;
  }
  return count;
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
  std::vector<std::wstring_view> items;
  ForEachToken(compact, m_separator[0], maximum,
               [&](std::size_t, std::wstring_view item) { items.push_back(item); });
  if (items.empty() || items.size() > maximum) return 0;

  // Each range is stored as soon as it is read, so a malformed item leaves the ranges
  // before it in place, as callers that look past a failed parse have always seen.
  if (m_lows.size() < items.size()) {
    m_lows.resize(items.size());
    m_highs.resize(items.size());
  }
  std::wstring scratch;
  for (std::size_t i = 0; i < items.size(); ++i) {
    // Two parts are a range; a third means the text is not a range list at all.
    std::wstring_view parts[2];
    const std::size_t count = ForEachToken(items[i], L'-', 2, [&](std::size_t k, auto part) {
      if (k < 2) parts[k] = part;
    });
    if (count == 0 || count > 2) return 0;
    m_lows[i] = ReadNumber(parts[0], scratch);
    m_highs[i] = ReadNumber(parts[count - 1], scratch);
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
