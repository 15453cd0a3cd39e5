// The row operations the list kinds share, and their scrolling.
#include <algorithm>

#include "compat/controls/list_rows.h"

namespace vglobal {
namespace {

bool SameNoCase(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && CString(a).CompareNoCase(CString(b)) == 0;
}

}  // namespace

int RowsState::FontHeight() const {
  return dialog ? DialogAccess::Of(*dialog).baseUnits.cy : 0;
}

int RowsState::PerPage() const {
  const int height = RowHeight();
  if (height <= 0) return 1;
  return std::max(1, (rect.Height() - RowsTop() - kBorder) / height);
}

bool RowsState::ClampTop() {
  const int top = std::clamp(topIndex, 0, std::max(0, Count() - PerPage()));
  if (top == topIndex) return false;
  topIndex = top;
  return true;
}

bool RowsState::ScrollTo(int row) {
  const int old = topIndex;
  if (row < topIndex)
    topIndex = row;
  else if (row >= topIndex + PerPage())
    topIndex = row - PerPage() + 1;
  ClampTop();
  return topIndex != old;
}

namespace rows {

int Insert(RowsState& c, int index, const wchar_t* text, bool sorted) {
  const int count = static_cast<int>(c.items.size());
  std::wstring t = text ? text : L"";
  if (sorted) {
    // After every row that does not sort after it: rows added in turn keep their order.
    CString key(t);
    auto it = std::upper_bound(c.items.begin(), c.items.end(), key,
                               [](const CString& k, const ListItem& row) {
                                 return k.CompareNoCase(row.text.c_str()) < 0;
                               });
    index = static_cast<int>(it - c.items.begin());
  } else if (index == -1) {
    index = count;
  } else if (index < 0 || index > count) {
    return -1;
  }
  c.items.insert(c.items.begin() + index, ListItem{std::move(t), {}, 0, -1, false});
  if (c.curSel >= index) ++c.curSel;
  if (c.caret >= index) ++c.caret;
  return index;
}

int Delete(RowsState& c, UINT index) {
  if (index >= c.items.size()) return -1;
  const int i = static_cast<int>(index);
  c.items.erase(c.items.begin() + i);
  if (c.curSel == i)
    c.curSel = -1;
  else if (c.curSel > i)
    --c.curSel;
  if (c.caret > i || c.caret >= static_cast<int>(c.items.size())) --c.caret;
  c.ClampTop();
  return static_cast<int>(c.items.size());
}

int Find(const RowsState& c, int startAfter, const wchar_t* text, bool exact) {
  const int count = static_cast<int>(c.items.size());
  if (count == 0) return -1;
  std::wstring_view wanted = text ? text : L"";
  if (startAfter < -1 || startAfter >= count) startAfter = -1;
  for (int n = 1; n <= count; ++n) {
    const int i = (startAfter + n) % count;
    std::wstring_view row = c.items[i].text;
    if (exact ? SameNoCase(row, wanted)
              : row.size() >= wanted.size() && SameNoCase(row.substr(0, wanted.size()), wanted))
      return i;
  }
  return -1;
}

int Text(const RowsState* c, int index, CString& text) {
  if (!c || !c->InRange(index)) {
    text.Empty();
    return -1;
  }
  text = c->items[index].text;
  return text.GetLength();
}

int TextLength(const RowsState* c, int index) {
  return c && c->InRange(index) ? static_cast<int>(c->items[index].text.size()) : -1;
}

DWORD_PTR Data(const RowsState* c, int index) {
  return c && c->InRange(index) ? c->items[index].data : static_cast<DWORD_PTR>(-1);
}

int SetData(RowsState* c, int index, DWORD_PTR data) {
  if (!c || !c->InRange(index)) return -1;
  c->items[index].data = data;
  return 0;
}

}  // namespace rows
}  // namespace vglobal
