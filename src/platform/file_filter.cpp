// The legacy filter text of file choosers: "|"-separated pairs of a label and a
// ";"-separated pattern list, ended by an empty entry.
#include <cwctype>

#include "vglobal/choosers.h"

namespace vglobal {
namespace {

std::wstring_view Trim(std::wstring_view s) {
  while (!s.empty() && std::iswspace(s.front())) s.remove_prefix(1);
  while (!s.empty() && std::iswspace(s.back())) s.remove_suffix(1);
  return s;
}

std::vector<std::wstring> Patterns(std::wstring_view list) {
  std::vector<std::wstring> out;
  while (true) {
    const std::size_t end = list.find(L';');
    const std::wstring_view one = Trim(list.substr(0, end));
    // "*.*" has always meant every file, including names without an extension.
    if (one == L"*.*")
      out.emplace_back(L"*");
    else if (!one.empty())
      out.emplace_back(one);
    if (end == std::wstring_view::npos) return out;
    list.remove_prefix(end + 1);
  }
}

// Pairs fields up into entries until an empty label or pattern list ends the list.
std::vector<FileFilter> Pair(const std::vector<std::wstring_view>& fields) {
  std::vector<FileFilter> out;
  for (std::size_t i = 0; i + 1 < fields.size(); i += 2) {
    FileFilter entry{std::wstring(Trim(fields[i])), Patterns(fields[i + 1])};
    if (entry.label.empty() || entry.patterns.empty()) break;
    out.push_back(std::move(entry));
  }
  return out;
}

}  // namespace

std::vector<FileFilter> ParseLegacyFilter(const wchar_t* text) {
  if (!text) return {};
  std::vector<std::wstring_view> fields;
  std::wstring_view rest(text);
  while (true) {
    const std::size_t bar = rest.find(L'|');
    fields.push_back(rest.substr(0, bar));
    if (bar == std::wstring_view::npos) break;
    rest.remove_prefix(bar + 1);
  }
  return Pair(fields);
}

std::vector<FileFilter> ParseNulSeparatedFilter(const wchar_t* list, std::size_t maxChars) {
  if (!list) return {};
  std::vector<std::wstring_view> fields;
  std::size_t start = 0;
  for (std::size_t i = 0; i < maxChars; ++i) {
    if (list[i] != L'\0') continue;
    if (i == start) break;  // the second NUL ends the list
    fields.emplace_back(list + start, i - start);
    start = i + 1;
  }
  return Pair(fields);
}

}  // namespace vglobal
