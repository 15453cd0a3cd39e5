// CListBox and CComboBox: rows of text with item data and a selection. The row
// operations are shared; the two classes differ in how selection is kept (one row or
// several) and in the combo box's edit text.
#include <algorithm>

#include "compat/dialog_state.h"

using vglobal::ControlKind;
using vglobal::ControlState;
using vglobal::ListItem;

namespace {

constexpr int kLargestLimit = 0x7FFFFFFE;

bool SameNoCase(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && CString(a).CompareNoCase(CString(b)) == 0;
}

// Inserts a row and keeps the selection on the rows it was on. -1 for an index
// outside 0..count (index -1 appends).
int InsertRow(ControlState& c, int index, const wchar_t* text, bool sorted) {
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

// Removes a row; a selection on it goes away. Returns the rows left, or -1.
int DeleteRow(ControlState& c, UINT index) {
  if (index >= c.items.size()) return -1;
  const int i = static_cast<int>(index);
  c.items.erase(c.items.begin() + i);
  if (c.curSel == i)
    c.curSel = -1;
  else if (c.curSel > i)
    --c.curSel;
  if (c.caret > i || c.caret >= static_cast<int>(c.items.size())) --c.caret;
  c.topIndex = std::clamp(c.topIndex, 0, std::max(0, static_cast<int>(c.items.size()) - 1));
  return static_cast<int>(c.items.size());
}

// The first row after startAfter, wrapping around, whose text begins with (or
// equals) `text` ignoring case; -1 when none.
int FindRow(const ControlState& c, int startAfter, const wchar_t* text, bool exact) {
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

int RowText(const ControlState* c, int index, CString& text) {
  if (!c || !c->InRange(index)) {
    text.Empty();
    return -1;
  }
  text = c->items[index].text;
  return text.GetLength();
}

int RowTextLength(const ControlState* c, int index) {
  return c && c->InRange(index) ? static_cast<int>(c->items[index].text.size()) : -1;
}

DWORD_PTR RowData(const ControlState* c, int index) {
  return c && c->InRange(index) ? c->items[index].data : static_cast<DWORD_PTR>(-1);
}

int SetRowData(ControlState* c, int index, DWORD_PTR data) {
  if (!c || !c->InRange(index)) return -1;
  c->items[index].data = data;
  return 0;
}

}  // namespace

// ---- CListBox ----------------------------------------------------------------------

bool CListBox::Handles(ControlKind kind) const {
  return kind == ControlKind::ListBox;
}

int CListBox::GetCount() const {
  return state() ? static_cast<int>(state()->items.size()) : LB_ERR;
}

int CListBox::AddString(const wchar_t* text) {
  ControlState* c = state();
  if (!c) return LB_ERR;
  int index = InsertRow(*c, -1, text, c->HasStyle(vglobal::kSort));
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return index;
}

int CListBox::InsertString(int index, const wchar_t* text) {
  ControlState* c = state();
  if (!c) return LB_ERR;
  index = InsertRow(*c, index, text, false);
  if (index >= 0) Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return index < 0 ? LB_ERR : index;
}

int CListBox::DeleteString(UINT index) {
  ControlState* c = state();
  if (!c) return LB_ERR;
  int left = DeleteRow(*c, index);
  if (left >= 0) Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return left < 0 ? LB_ERR : left;
}

void CListBox::ResetContent() {
  ControlState* c = state();
  if (!c) return;
  c->items.clear();
  c->curSel = c->caret = -1;
  c->topIndex = 0;
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
}

int CListBox::GetText(int index, CString& text) const {
  return RowText(state(), index, text);
}
int CListBox::GetTextLen(int index) const {
  return RowTextLength(state(), index);
}

int CListBox::FindString(int startAfter, const wchar_t* text) const {
  return state() ? FindRow(*state(), startAfter, text, false) : LB_ERR;
}

int CListBox::FindStringExact(int startAfter, const wchar_t* text) const {
  return state() ? FindRow(*state(), startAfter, text, true) : LB_ERR;
}

int CListBox::SelectString(int startAfter, const wchar_t* text) {
  ControlState* c = state();
  if (!c) return LB_ERR;
  int found = FindRow(*c, startAfter, text, false);
  if (found < 0) return LB_ERR;
  if (c->HasStyle(vglobal::kMultiSelect))
    SetSel(found, TRUE);
  else
    SetCurSel(found);
  return found;
}

int CListBox::GetCurSel() const {
  ControlState* c = state();
  if (!c) return LB_ERR;
  return c->HasStyle(vglobal::kMultiSelect) ? c->caret : c->curSel;
}

int CListBox::SetCurSel(int index) {
  ControlState* c = state();
  if (!c || c->HasStyle(vglobal::kMultiSelect)) return LB_ERR;
  const int selection = c->InRange(index) ? index : -1;
  if (c->curSel != selection) {
    c->curSel = selection;
    Changed(vglobal::kAspectSelection);
  }
  return selection < 0 ? LB_ERR : selection;
}

int CListBox::GetSel(int index) const {
  ControlState* c = state();
  if (!c || !c->InRange(index)) return LB_ERR;
  if (c->HasStyle(vglobal::kMultiSelect)) return c->items[index].selected ? 1 : 0;
  return c->curSel == index ? 1 : 0;
}

int CListBox::SetSel(int index, BOOL select) {
  ControlState* c = state();
  if (!c || !c->HasStyle(vglobal::kMultiSelect)) return LB_ERR;
  if (index == -1) {
    for (ListItem& row : c->items) row.selected = select != FALSE;
  } else if (c->InRange(index)) {
    c->items[index].selected = select != FALSE;
    c->caret = index;
  } else {
    return LB_ERR;
  }
  Changed(vglobal::kAspectSelection);
  return LB_OKAY;
}

int CListBox::GetSelCount() const {
  ControlState* c = state();
  if (!c || !c->HasStyle(vglobal::kMultiSelect)) return LB_ERR;
  return static_cast<int>(std::count_if(c->items.begin(), c->items.end(),
                                        [](const ListItem& r) { return r.selected; }));
}

int CListBox::GetSelItems(int maxItems, int* items) const {
  ControlState* c = state();
  if (!c || !c->HasStyle(vglobal::kMultiSelect)) return LB_ERR;
  if (!items || maxItems <= 0) return 0;
  int n = 0;
  for (int i = 0; i < static_cast<int>(c->items.size()) && n < maxItems; ++i)
    if (c->items[i].selected) items[n++] = i;
  return n;
}

int CListBox::GetCaretIndex() const {
  ControlState* c = state();
  if (!c) return LB_ERR;
  return c->HasStyle(vglobal::kMultiSelect) ? c->caret : c->curSel;
}

DWORD_PTR CListBox::GetItemData(int index) const {
  return RowData(state(), index);
}
int CListBox::SetItemData(int index, DWORD_PTR data) {
  return SetRowData(state(), index, data);
}

void* CListBox::GetItemDataPtr(int index) const {
  ControlState* c = state();
  return c && c->InRange(index) ? reinterpret_cast<void*>(c->items[index].data) : nullptr;
}

int CListBox::SetItemDataPtr(int index, void* data) {
  return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
}

int CListBox::GetTopIndex() const {
  return state() ? state()->topIndex : LB_ERR;
}

int CListBox::SetTopIndex(int index) {
  ControlState* c = state();
  if (!c || !c->InRange(index)) return LB_ERR;
  c->topIndex = index;
  Changed(vglobal::kAspectScroll);
  return LB_OKAY;
}

BOOL CListBox::SetTabStops(int count, const int* stops) {
  ControlState* c = state();
  if (!c || count < 0 || (count > 0 && !stops)) return FALSE;
  c->tabStops.assign(stops, stops + count);
  Changed(vglobal::kAspectItems);
  return TRUE;
}

std::vector<int> CListBox::GetTabStops() const {
  return state() ? state()->tabStops : std::vector<int>{};
}

// ---- CComboBox -----------------------------------------------------------------

bool CComboBox::Handles(ControlKind kind) const {
  return kind == ControlKind::ComboBox;
}

BOOL CComboBox::IsDropDownList() const {
  return state() && state()->HasStyle(vglobal::kDropDownList);
}

void CComboBox::SetWindowText(const wchar_t* text) {
  ControlState* c = state();
  if (!c) return;
  if (IsDropDownList()) {
    int found = FindRow(*c, -1, text, true);
    if (found >= 0) SetCurSel(found);
    return;
  }
  std::wstring t = text ? text : L"";
  if (t.size() > static_cast<std::size_t>(c->limit)) t.resize(static_cast<std::size_t>(c->limit));
  c->text = std::move(t);
  Changed(vglobal::kAspectText);
}

int CComboBox::GetCount() const {
  return state() ? static_cast<int>(state()->items.size()) : CB_ERR;
}

int CComboBox::AddString(const wchar_t* text) {
  ControlState* c = state();
  if (!c) return CB_ERR;
  int index = InsertRow(*c, -1, text, c->HasStyle(vglobal::kSort));
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return index;
}

int CComboBox::InsertString(int index, const wchar_t* text) {
  ControlState* c = state();
  if (!c) return CB_ERR;
  index = InsertRow(*c, index, text, false);
  if (index >= 0) Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return index < 0 ? CB_ERR : index;
}

int CComboBox::DeleteString(UINT index) {
  ControlState* c = state();
  if (!c) return CB_ERR;
  const bool wasSelected = c->curSel == static_cast<int>(index);
  int left = DeleteRow(*c, index);
  if (left < 0) return CB_ERR;
  if (wasSelected && IsDropDownList()) c->text.clear();
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection | vglobal::kAspectText);
  return left;
}

void CComboBox::ResetContent() {
  ControlState* c = state();
  if (!c) return;
  c->items.clear();
  c->curSel = -1;
  c->text.clear();
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection | vglobal::kAspectText);
}

int CComboBox::GetLBText(int index, CString& text) const {
  return RowText(state(), index, text);
}
int CComboBox::GetLBTextLen(int index) const {
  return RowTextLength(state(), index);
}

int CComboBox::FindString(int startAfter, const wchar_t* text) const {
  return state() ? FindRow(*state(), startAfter, text, false) : CB_ERR;
}

int CComboBox::FindStringExact(int startAfter, const wchar_t* text) const {
  return state() ? FindRow(*state(), startAfter, text, true) : CB_ERR;
}

int CComboBox::SelectString(int startAfter, const wchar_t* text) {
  ControlState* c = state();
  if (!c) return CB_ERR;
  int found = FindRow(*c, startAfter, text, false);
  return found < 0 ? CB_ERR : SetCurSel(found);
}

int CComboBox::GetCurSel() const {
  return state() ? state()->curSel : CB_ERR;
}

int CComboBox::SetCurSel(int index) {
  ControlState* c = state();
  if (!c) return CB_ERR;
  const int selection = c->InRange(index) ? index : -1;
  c->curSel = selection;
  c->text = selection >= 0 ? c->items[selection].text : L"";
  Changed(vglobal::kAspectSelection | vglobal::kAspectText);
  return selection < 0 ? CB_ERR : selection;
}

DWORD_PTR CComboBox::GetItemData(int index) const {
  return RowData(state(), index);
}
int CComboBox::SetItemData(int index, DWORD_PTR data) {
  return SetRowData(state(), index, data);
}

void* CComboBox::GetItemDataPtr(int index) const {
  ControlState* c = state();
  return c && c->InRange(index) ? reinterpret_cast<void*>(c->items[index].data) : nullptr;
}

int CComboBox::SetItemDataPtr(int index, void* data) {
  return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
}

BOOL CComboBox::LimitText(int maxChars) {
  ControlState* c = state();
  if (!c || IsDropDownList()) return FALSE;
  c->limit = maxChars <= 0 ? kLargestLimit : maxChars;
  Changed(vglobal::kAspectLimits);
  return TRUE;
}
