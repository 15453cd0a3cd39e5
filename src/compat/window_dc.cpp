// CDC::DrawText: lays text out in a rectangle on top of the platform's measuring
// and writing primitives, so that every platform breaks, aligns and shortens text
// the same way.
#include <algorithm>
#include <cwchar>
#include <string>
#include <string_view>
#include <vector>

#include "vglobal/compat/window.h"

namespace {

struct Line {
  std::wstring text;
  int mnemonic = -1;  // position of the underlined character, -1 for none
};

// A paragraph with its "&" marks resolved: the text to show and where the
// mnemonic character lies in it.
Line StripPrefix(std::wstring_view in, bool noPrefix) {
  Line out;
  if (noPrefix) {
    out.text.assign(in);
    return out;
  }
  out.text.reserve(in.size());
  for (std::size_t i = 0; i < in.size(); ++i) {
    if (in[i] == L'&' && i + 1 < in.size()) {
      ++i;  // "&&" shows one "&"; "&x" shows x, underlined
      if (in[i] != L'&') out.mnemonic = static_cast<int>(out.text.size());
    } else if (in[i] == L'&') {
      continue;  // a trailing "&" marks nothing
    }
    out.text.push_back(in[i]);
  }
  return out;
}

// Tab stops every eight characters.
std::wstring ExpandTabs(std::wstring_view in) {
  std::wstring out;
  for (wchar_t c : in) {
    if (c != L'\t') {
      out.push_back(c);
      continue;
    }
    do out.push_back(L' ');
    while (out.size() % 8 != 0);
  }
  return out;
}

std::vector<std::wstring_view> SplitParagraphs(std::wstring_view text, bool singleLine) {
  std::vector<std::wstring_view> out;
  if (singleLine) {
    out.push_back(text);
    return out;
  }
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != L'\r' && text[i] != L'\n') continue;
    out.push_back(text.substr(start, i - start));
    if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
    start = i + 1;
  }
  out.push_back(text.substr(start));
  return out;
}

}  // namespace

CDC::~CDC() = default;

CSize CDC::GetTextExtent(const CString& text) const {
  return GetTextExtent(text.GetString(), text.GetLength());
}

BOOL CDC::TextOut(int x, int y, const CString& text) {
  return TextOut(x, y, text.GetString(), text.GetLength());
}

int CDC::DrawText(const CString& text, LPRECT rect, UINT format) {
  return DrawText(text.GetString(), text.GetLength(), rect, format);
}

void CDC::DrawLine(int x, int y, const std::wstring& line, int /*mnemonic*/) {
  TextOut(x, y, line.c_str(), static_cast<int>(line.size()));
}

int CDC::DrawText(const wchar_t* text, int count, LPRECT rect, UINT format) {
  if (!text || !rect) return 0;
  std::wstring_view all(text, count < 0 ? std::wcslen(text) : static_cast<std::size_t>(count));
  const bool singleLine = format & DT_SINGLELINE;
  const bool wordBreak = (format & DT_WORDBREAK) && !singleLine;
  const int width = CRect(*rect).Width();
  auto widthOf = [this](std::wstring_view s) {
    return s.empty() ? 0 : GetTextExtent(s.data(), static_cast<int>(s.size())).cx;
  };

  TEXTMETRIC tm{};
  int lineHeight = GetTextMetrics(&tm) ? tm.tmHeight : GetTextExtent(L"X", 1).cy;

  std::vector<Line> lines;
  if (!all.empty()) {
    for (std::wstring_view paragraph : SplitParagraphs(all, singleLine)) {
      Line whole = StripPrefix(paragraph, format & DT_NOPREFIX);
      if (format & DT_EXPANDTABS) {
        // The mnemonic moves with the spaces the tabs before it became.
        if (whole.mnemonic >= 0)
          whole.mnemonic = static_cast<int>(
              ExpandTabs(std::wstring_view(whole.text).substr(0, whole.mnemonic)).size());
        whole.text = ExpandTabs(whole.text);
      }
      const std::wstring& s = whole.text;
      if (!wordBreak) {
        lines.push_back(whole);
        continue;
      }
      // Greedy breaking between words; a word wider than the rectangle stays whole.
      std::size_t pos = 0;
      do {
        std::size_t lineStart = pos, fitEnd = std::wstring::npos, i = pos;
        while (i < s.size()) {
          std::size_t wordEnd = i;
          while (wordEnd < s.size() && s[wordEnd] == L' ') ++wordEnd;
          while (wordEnd < s.size() && s[wordEnd] != L' ') ++wordEnd;
          std::wstring_view candidate(s.data() + lineStart, wordEnd - lineStart);
          while (!candidate.empty() && candidate.back() == L' ') candidate.remove_suffix(1);
          if (fitEnd != std::wstring::npos && widthOf(candidate) > width) break;
          fitEnd = wordEnd;
          i = wordEnd;
        }
        if (fitEnd == std::wstring::npos) fitEnd = s.size();
        std::size_t lineEnd = fitEnd;
        while (lineEnd > lineStart && s[lineEnd - 1] == L' ') --lineEnd;
        Line line{s.substr(lineStart, lineEnd - lineStart), -1};
        if (whole.mnemonic >= static_cast<int>(lineStart) &&
            whole.mnemonic < static_cast<int>(lineEnd))
          line.mnemonic = whole.mnemonic - static_cast<int>(lineStart);
        lines.push_back(std::move(line));
        pos = fitEnd;
        while (pos < s.size() && s[pos] == L' ') ++pos;
      } while (pos < s.size());
    }
  }

  if (format & DT_END_ELLIPSIS) {
    for (Line& line : lines) {
      if (widthOf(line.text) <= width) continue;
      std::wstring cut = line.text;
      while (!cut.empty() && widthOf(cut + L"...") > width) cut.pop_back();
      if (line.mnemonic >= static_cast<int>(cut.size())) line.mnemonic = -1;
      line.text = cut + L"...";
    }
  }

  const int height = static_cast<int>(lines.size()) * lineHeight;
  if (format & DT_CALCRECT) {
    int widest = 0;
    for (const Line& line : lines) widest = std::max(widest, widthOf(line.text));
    rect->right = vglobal::geometry::Add(rect->left, widest);
    rect->bottom = vglobal::geometry::Add(rect->top, height);
    return height;
  }

  int y = rect->top;
  if (singleLine && (format & DT_VCENTER))
    y = rect->top + (CRect(*rect).Height() - lineHeight) / 2;
  else if (singleLine && (format & DT_BOTTOM))
    y = rect->bottom - lineHeight;
  for (const Line& line : lines) {
    int x = rect->left;
    int w = widthOf(line.text);
    if (format & DT_CENTER)
      x = rect->left + (width - w) / 2;
    else if (format & DT_RIGHT)
      x = rect->right - w;
    DrawLine(x, y, line.text, line.mnemonic);
    y += lineHeight;
  }
  return height;
}

BOOL CDC::DrawImage(const vglobal::ImageCell& /*cell*/, int /*x*/, int /*y*/, UINT /*style*/) {
  return FALSE;
}
