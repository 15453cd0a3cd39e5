// Text fitting: names shortened to a number of characters, texts and paths to a
// width in pixels, word-wrapped blocks to a rectangle's height.
//
// Map of this file:
//   1. Path parts     - separators, where the name starts
//   2. By characters  - AbbreviateName and GetDisplayName
//   3. By pixels      - FitStringToWidth, FitPathToWidth, FitTextBlockToRect
//
// The work is done on std::wstring and views; the exported functions only move text
// in and out of the caller's buffers.
#include "vglobal/util/text_fit.h"

#include <algorithm>
#include <cwchar>
#include <string>
#include <string_view>

#include "vglobal/compat/types.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/compat/window.h"

namespace {

constexpr std::size_t npos = std::wstring_view::npos;
constexpr std::wstring_view kSeparators = L"\\/";
constexpr std::wstring_view kEllipsis = L"...";
// Display names fit a MAX_PATH buffer with its terminator.
constexpr int kMaxDisplayChars = MAX_PATH - 1;

// ---- 1. Path parts -------------------------------------------------------------

bool IsSeparator(wchar_t c) {
  return c == L'\\' || c == L'/';
}

// Where the name (the file title, extension included) starts: after the last
// separator, or at 0 when there is none.
std::size_t NameStart(std::wstring_view path) {
  const std::size_t last = path.find_last_of(kSeparators);
  return last == npos ? 0 : last + 1;
}

// The next separator at or after `from`, or the path's length when there is none, so
// that a head search that runs off the path ends at its end instead of past it.
std::size_t SeparatorFrom(std::wstring_view path, std::size_t from) {
  if (from >= path.size()) return path.size();
  const std::size_t at = path.find_first_of(kSeparators, from);
  return at == npos ? path.size() : at;
}

// ---- 2. By characters ----------------------------------------------------------

// The path shortened to at most `maxChars` characters; never longer than the path.
std::wstring Abbreviated(std::wstring_view path, long long maxChars, bool atLeastName) {
  const auto len = static_cast<long long>(path.size());
  if (maxChars >= len) return std::wstring(path);

  const std::size_t nameStart = NameStart(path);
  const std::wstring_view name = path.substr(nameStart);
  const auto nameLen = static_cast<long long>(name.size());
  if (maxChars < nameLen) {
    // Even the name is too long: its start and "...", if there is room for "...".
    if (!atLeastName || maxChars < static_cast<long long>(kEllipsis.size())) return {};
    std::wstring cut(name.substr(0, static_cast<std::size_t>(maxChars) - kEllipsis.size()));
    cut += kEllipsis;
    return cut;
  }

  // The head to keep: the drive ("C:") or the root of an absolute '/' path, or the
  // server of a network path, then the first folder (or the share).
  const bool twoSeparators = len >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]);
  std::size_t head = (len >= 1 && path[0] == L'/' && !twoSeparators) ? 0 : 2;
  if (twoSeparators && len >= 3 && !IsSeparator(path[2])) head = SeparatorFrom(path, 2);
  if (nameStart > 3 && head < path.size()) head = SeparatorFrom(path, head + 1);
  const auto headLen = static_cast<long long>(head);

  // Room for the head, "\...", a separator and the name?
  if (maxChars < headLen + 5 + nameLen) return std::wstring(name);

  // Drop folders after the head until the rest fits. The last separator (the one
  // before the name) always fits by the test above; the guard only protects against a
  // head that does not end at a separator.
  std::size_t rest = head;
  while (headLen + 4 + (len - static_cast<long long>(rest)) > maxChars) {
    const std::size_t next = SeparatorFrom(path, rest + 1);
    if (next >= path.size()) return std::wstring(name);
    rest = next;
  }
  if (rest >= path.size()) return std::wstring(name);
  std::wstring out(path.substr(0, head));
  out += path[rest];
  out += kEllipsis;
  out += path.substr(rest);
  return out;
}

}  // namespace

void AbbreviateName(wchar_t* path, int maxChars, int atLeastName) {
  if (!path) return;
  const std::size_t len = std::wcslen(path);
  const std::wstring out = Abbreviated(std::wstring_view(path, len), maxChars, atLeastName != 0);
  // The result is never longer than the path, so it stays inside the caller's buffer.
  if (out.size() > len) return;
  std::wmemcpy(path, out.data(), out.size());
  path[out.size()] = L'\0';
}

int GetDisplayName(CString& result, const CString& path, int maxChars, const wchar_t* currentDir,
                   int currentDirLength, int omitCurrentDir, int atLeastName) {
  const std::wstring_view full = path.view();
  const std::size_t nameStart = NameStart(full);
  const std::wstring_view folder = full.substr(0, nameStart);

  if (omitCurrentDir && currentDir && currentDirLength >= 0 &&
      folder.size() == static_cast<std::size_t>(currentDirLength) &&
      wcsnlen(currentDir, folder.size()) == folder.size() &&
      vglobal::FoldCase(folder) ==
          vglobal::FoldCase(std::wstring_view(currentDir, folder.size()))) {
    result = Abbreviated(full.substr(nameStart), kMaxDisplayChars, true);
    return 1;
  }
  if (maxChars == -1 && full.size() <= static_cast<std::size_t>(kMaxDisplayChars)) {
    result = full;
    return 1;
  }
  // -1 asks for the whole path; a path too long for a display name is abbreviated to
  // the longest one, so that its name stays visible.
  const int limit = maxChars == -1 ? kMaxDisplayChars : std::min(maxChars, kMaxDisplayChars);
  result = Abbreviated(full, limit, atLeastName != 0);
  return 1;
}

namespace {

// ---- 3. By pixels --------------------------------------------------------------

// The width of a text laid out as one line on the context, as the legacy callers
// measured it: a layout calculation on an empty rectangle.
int WidthOf(CDC& dc, std::wstring_view text) {
  CRect rect(0, 0, 0, 0);
  dc.DrawText(text.data(), static_cast<int>(text.size()), &rect, DT_CALCRECT);
  return rect.Width();
}

// The longest start of `text` followed by "..." that is at most `width` wide ("..."
// alone when none is), or the text itself when it is narrower than `width`.
std::wstring FittedString(CDC& dc, std::wstring_view text, int width) {
  if (text.empty() || WidthOf(dc, text) < width) return std::wstring(text);
  std::wstring candidate;
  for (std::size_t n = text.size() + 1; n-- > 0;) {
    // n = the whole text is tried too: a text as wide as `width` plus "..." never
    // fits, so the first start that can is one character shorter.
    candidate.assign(text.substr(0, n));
    candidate += kEllipsis;
    if (WidthOf(dc, candidate) <= width) break;
  }
  return candidate;
}

std::wstring FittedPath(CDC& dc, std::wstring_view path, int width) {
  if (path.empty() || WidthOf(dc, path) < width) return std::wstring(path);

  // The tail T (the name, with a final separator if the path had one) and the folders
  // D before it. The separator before the name is the one the ellipsis uses.
  std::wstring tail;
  std::wstring_view folders = path;
  if (IsSeparator(folders.back())) {
    tail.assign(1, folders.back());
    folders.remove_suffix(1);
  }
  wchar_t separator = tail.empty() ? L'\\' : tail[0];
  const std::size_t last = folders.find_last_of(kSeparators);
  if (last == npos) {
    tail.insert(0, folders);
    folders = {};
  } else {
    tail.insert(0, folders.substr(last + 1));
    separator = folders[last];
    folders = folders.substr(0, last);
  }

  if (WidthOf(dc, tail) > width) return FittedString(dc, tail, width);
  if (folders.find_first_of(kSeparators) == npos) return tail;

  // The head H. A '\' root and the folder after it form the first head, without the
  // separator between them ("\dir", "\\server"); the folders that follow are added
  // with their own separators only. A drive path starts with an empty head, and so
  // does an absolute '/' path, whose root is its first (empty) folder.
  std::wstring head;
  if (folders[0] == L'\\') {
    head += folders[0];
    folders.remove_prefix(1);
    if (!folders.empty() && IsSeparator(folders[0])) {
      head += folders[0];
      folders.remove_prefix(1);
    }
    const std::size_t end = folders.find_first_of(kSeparators);
    if (end == npos) {
      head += folders;
      folders = {};
    } else {
      head += folders.substr(0, end);
      folders.remove_prefix(end + 1);
    }
  }

  std::wstring candidate = head;
  candidate += separator;
  candidate += kEllipsis;
  candidate += separator;
  candidate += tail;
  if (WidthOf(dc, candidate) > width) return tail;

  // Grow the head one folder at a time while the candidate stays narrower than the
  // width. Once the folders run out the next candidate would be the whole path with
  // "..." in it, which is wider than the path itself, so the search ends there.
  std::wstring best;
  do {
    best = candidate;
    if (folders.empty()) break;
    const std::size_t end = folders.find_first_of(kSeparators);
    if (end == npos) {
      head += folders;
      head += separator;
      folders = {};
    } else {
      head += folders.substr(0, end + 1);
      folders.remove_prefix(end + 1);
    }
    candidate = head;
    candidate += kEllipsis;
    candidate += separator;
    candidate += tail;
  } while (WidthOf(dc, candidate) < width);
  return best;
}

}  // namespace

void FitStringToWidth(CDC* dc, CString& text, int width) {
  if (!dc) return;
  text = FittedString(*dc, text.view(), width);
}

void FitPathToWidth(CDC* dc, CString& path, int width) {
  if (!dc) return;
  path = FittedPath(*dc, path.view(), width);
}

int FitTextBlockToRect(CDC* dc, CString& text, const CRect& rect) {
  if (!dc) return 0;
  const int height = rect.Height();
  auto blockHeight = [&](std::wstring_view block) {
    CRect layout(rect);
    return dc->DrawText(block.data(), static_cast<int>(block.size()), &layout,
                        DT_CALCRECT | DT_WORDBREAK);
  };

  std::wstring block = text.str();
  int measured = blockHeight(block);
  if (block.empty() || measured <= height) return measured;

  // Too tall: let the text flow as one paragraph before cutting any of it.
  std::replace_if(
      block.begin(), block.end(), [](wchar_t c) { return c == L'\r' || c == L'\n'; }, L' ');
  measured = blockHeight(block);
  if (measured <= height) {
    text = block;
    return measured;
  }

  // Cut at the end until the text and "..." fit; when not even "..." fits there is
  // nothing left to cut, and "..." is what remains.
  std::wstring candidate;
  while (!block.empty()) {
    block.pop_back();
    candidate = block;
    candidate += kEllipsis;
    measured = blockHeight(candidate);
    if (measured <= height) break;
  }
  text = candidate;
  return measured;
}
