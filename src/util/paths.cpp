// Splitting and completing file paths (see paths.h).
//
// Paths written on Windows (with '\') keep their documented results exactly; paths of
// this system (with '/') get the same treatment with their own separator, so that a
// prefix composed from a POSIX data folder is a POSIX path.
#include "vglobal/util/paths.h"

#include <string>
#include <string_view>

#include "vglobal/settings.h"

namespace {

constexpr std::wstring_view kSeparators = L"\\/";

bool IsSeparator(wchar_t c) {
  return c == L'\\' || c == L'/';
}

bool IsDriveLetter(wchar_t c) {
  return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

// "C:\..." and, on this system, "C:/...".
bool IsDrivePath(std::wstring_view path) {
  return path.size() >= 3 && IsDriveLetter(path[0]) && path[1] == L':' && IsSeparator(path[2]);
}

bool IsNetworkPath(std::wstring_view path) {
  return path.size() > 2 && path[0] == L'\\' && path[1] == L'\\';
}

// The last separator that `path` uses, or `fallback` when it uses none.
wchar_t SeparatorOf(std::wstring_view path, wchar_t fallback) {
  const std::size_t at = path.find_last_of(kSeparators);
  return at == std::wstring_view::npos ? fallback : path[at];
}

}  // namespace

void GetFileName(const CString& path, CString& name) {
  const std::wstring_view text = path.view();
  const std::size_t last = text.find_last_of(kSeparators);
  name = last == std::wstring_view::npos ? text : text.substr(last + 1);
}

void GetPathName(const CString& path, CString& directory) {
  const std::wstring_view text = path.view();
  const std::size_t last = text.find_last_of(kSeparators);
  if (last == std::wstring_view::npos) {
    directory.Empty();
    return;
  }
  // Keep the first separator of the run that ends the directory.
  std::size_t first = last;
  while (first > 0 && IsSeparator(text[first - 1])) --first;
  directory = text.substr(0, first + 1);
}

void PrefixPath(const CString& path, CString& prefix) {
  const std::wstring_view text = path.view();
  std::wstring composed;
  if (IsDrivePath(text) || (!text.empty() && text[0] == L'/')) {
    composed = text;
  } else if (IsNetworkPath(text)) {
    composed = L"UNC";
    composed += text.substr(1);
  } else {
    CString folder;
    GetArvenisDataPath(folder);
    composed = folder.str();
    const bool folderEnds = !composed.empty() && IsSeparator(composed.back());
    const bool pathBegins = !text.empty() && IsSeparator(text[0]);
    if (!folderEnds && !pathBegins) composed.push_back(SeparatorOf(composed, L'\\'));
    composed += text;
  }
  const wchar_t separator = SeparatorOf(composed, L'\\');
  const std::size_t kept = composed.find_last_not_of(kSeparators);
  composed.erase(kept == std::wstring::npos ? 0 : kept + 1);
  composed.push_back(separator);
  prefix = CString(std::move(composed));
}
