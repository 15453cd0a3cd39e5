// CListCtrl: a list control in report view. Row texts are kept by column: column 0
// is the row's text, column k its sub-item k.
#include <algorithm>

#include "compat/dialog_state.h"

using vglobal::ControlKind;
using vglobal::ControlState;
using vglobal::ListItem;

namespace {

UINT StateOf(const ControlState& c, int row) {
  return (c.items[row].selected ? LVIS_SELECTED : 0) | (c.caret == row ? LVIS_FOCUSED : 0);
}

}  // namespace

bool CListCtrl::Handles(ControlKind kind) const {
  return kind == ControlKind::ListCtrl;
}

int CListCtrl::InsertColumn(int column, const wchar_t* heading, int format, int width,
                            int /*subItem*/) {
  ControlState* c = state();
  if (!c || column < 0) return -1;
  const int count = static_cast<int>(c->columns.size());
  column = std::min(column, count);
  c->columns.insert(c->columns.begin() + column, {heading ? heading : L"", format, width});
  // Rows keep their texts under the columns they were in.
  for (ListItem& row : c->items) {
    if (column == 0 && count > 0) {
      row.subItems.insert(row.subItems.begin(), std::move(row.text));
      row.text.clear();
    } else if (column > 0 && static_cast<int>(row.subItems.size()) >= column) {
      row.subItems.insert(row.subItems.begin() + (column - 1), std::wstring());
    }
  }
  Changed(vglobal::kAspectItems);
  return column;
}

BOOL CListCtrl::DeleteColumn(int column) {
  ControlState* c = state();
  if (!c || column < 0 || column >= static_cast<int>(c->columns.size())) return FALSE;
  c->columns.erase(c->columns.begin() + column);
  for (ListItem& row : c->items) {
    if (column == 0) {
      row.text = row.subItems.empty() ? std::wstring() : std::move(row.subItems.front());
      if (!row.subItems.empty()) row.subItems.erase(row.subItems.begin());
    } else if (static_cast<int>(row.subItems.size()) >= column) {
      row.subItems.erase(row.subItems.begin() + (column - 1));
    }
  }
  Changed(vglobal::kAspectItems);
  return TRUE;
}

int CListCtrl::GetColumnCount() const {
  return state() ? static_cast<int>(state()->columns.size()) : 0;
}

CString CListCtrl::GetColumnHeading(int column) const {
  ControlState* c = state();
  if (!c || column < 0 || column >= static_cast<int>(c->columns.size())) return {};
  return CString(c->columns[column].heading);
}

int CListCtrl::GetColumnFormat(int column) const {
  ControlState* c = state();
  if (!c || column < 0 || column >= static_cast<int>(c->columns.size())) return -1;
  return c->columns[column].format;
}

int CListCtrl::GetColumnWidth(int column) const {
  ControlState* c = state();
  if (!c || column < 0 || column >= static_cast<int>(c->columns.size())) return 0;
  return c->columns[column].width;
}

BOOL CListCtrl::SetColumnWidth(int column, int width) {
  ControlState* c = state();
  if (!c || column < 0 || column >= static_cast<int>(c->columns.size())) return FALSE;
  c->columns[column].width = width;
  Changed(vglobal::kAspectItems);
  return TRUE;
}

int CListCtrl::GetItemCount() const {
  return state() ? static_cast<int>(state()->items.size()) : 0;
}

int CListCtrl::InsertItem(int item, const wchar_t* text) {
  return InsertItem(item, text, -1);
}

int CListCtrl::InsertItem(int item, const wchar_t* text, int image) {
  ControlState* c = state();
  if (!c || item < 0) return -1;
  item = std::min(item, static_cast<int>(c->items.size()));
  c->items.insert(c->items.begin() + item, ListItem{text ? text : L"", {}, 0, image, false});
  if (c->caret >= item) ++c->caret;
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return item;
}

BOOL CListCtrl::DeleteItem(int item) {
  ControlState* c = state();
  if (!c || !c->InRange(item)) return FALSE;
  c->items.erase(c->items.begin() + item);
  if (c->caret == item)
    c->caret = -1;
  else if (c->caret > item)
    --c->caret;
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return TRUE;
}

BOOL CListCtrl::DeleteAllItems() {
  ControlState* c = state();
  if (!c) return FALSE;
  c->items.clear();
  c->caret = -1;
  c->topIndex = 0;
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return TRUE;
}

BOOL CListCtrl::SetItemText(int item, int subItem, const wchar_t* text) {
  ControlState* c = state();
  if (!c || !c->InRange(item) || subItem < 0) return FALSE;
  if (subItem > 0 && subItem >= static_cast<int>(c->columns.size())) return FALSE;
  ListItem& row = c->items[item];
  if (subItem == 0) {
    row.text = text ? text : L"";
  } else {
    if (static_cast<int>(row.subItems.size()) < subItem) row.subItems.resize(subItem);
    row.subItems[subItem - 1] = text ? text : L"";
  }
  Changed(vglobal::kAspectItems);
  return TRUE;
}

CString CListCtrl::GetItemText(int item, int subItem) const {
  ControlState* c = state();
  if (!c || !c->InRange(item) || subItem < 0) return {};
  const ListItem& row = c->items[item];
  if (subItem == 0) return CString(row.text);
  if (subItem > static_cast<int>(row.subItems.size())) return {};
  return CString(row.subItems[subItem - 1]);
}

BOOL CListCtrl::SetItemData(int item, DWORD_PTR data) {
  ControlState* c = state();
  if (!c || !c->InRange(item)) return FALSE;
  c->items[item].data = data;
  return TRUE;
}

DWORD_PTR CListCtrl::GetItemData(int item) const {
  ControlState* c = state();
  return c && c->InRange(item) ? c->items[item].data : 0;
}

int CListCtrl::GetItemImage(int item) const {
  ControlState* c = state();
  return c && c->InRange(item) ? c->items[item].image : -1;
}

BOOL CListCtrl::SetItemState(int item, UINT newState, UINT mask) {
  ControlState* c = state();
  if (!c) return FALSE;
  mask &= LVIS_SELECTED | LVIS_FOCUSED;
  if (item == -1) {
    BOOL ok = TRUE;
    for (int i = 0; i < GetItemCount(); ++i) ok &= SetItemState(i, newState, mask);
    return ok;
  }
  if (!c->InRange(item)) return FALSE;
  const UINT wanted = (StateOf(*c, item) & ~mask) | (newState & mask);
  // Other rows give up what only one row may have, each with its own notice.
  for (int i = 0; i < GetItemCount(); ++i) {
    if (!state() || i == item) continue;
    UINT other = StateOf(*state(), i), keep = other;
    if ((wanted & LVIS_SELECTED) && !state()->HasStyle(vglobal::kMultiSelect))
      keep &= ~LVIS_SELECTED;
    if (wanted & LVIS_FOCUSED) keep &= ~LVIS_FOCUSED;
    if (keep == other) continue;
    state()->items[i].selected = keep & LVIS_SELECTED;
    if (!(keep & LVIS_FOCUSED) && state()->caret == i) state()->caret = -1;
    Changed(vglobal::kAspectSelection);
    vglobal::DialogAccess::NotifyListView(*state(), LVN_ITEMCHANGED, i, 0, other, keep);
  }
  c = state();
  if (!c || !c->InRange(item)) return FALSE;
  const UINT old = StateOf(*c, item);
  if (old == wanted) return TRUE;
  c->items[item].selected = wanted & LVIS_SELECTED;
  if (wanted & LVIS_FOCUSED)
    c->caret = item;
  else if (c->caret == item)
    c->caret = -1;
  Changed(vglobal::kAspectSelection);
  vglobal::DialogAccess::NotifyListView(*c, LVN_ITEMCHANGED, item, 0, old, wanted);
  return TRUE;
}

UINT CListCtrl::GetItemState(int item, UINT mask) const {
  ControlState* c = state();
  return c && c->InRange(item) ? StateOf(*c, item) & mask : 0;
}

int CListCtrl::GetNextItem(int start, int flags) const {
  ControlState* c = state();
  if (!c) return -1;
  const UINT wanted =
      (flags & LVNI_SELECTED ? LVIS_SELECTED : 0) | (flags & LVNI_FOCUSED ? LVIS_FOCUSED : 0);
  for (int i = std::max(start + 1, 0); i < static_cast<int>(c->items.size()); ++i)
    if ((StateOf(*c, i) & wanted) == wanted) return i;
  return -1;
}

UINT CListCtrl::GetSelectedCount() const {
  ControlState* c = state();
  if (!c) return 0;
  return static_cast<UINT>(std::count_if(c->items.begin(), c->items.end(),
                                         [](const ListItem& r) { return r.selected; }));
}

BOOL CListCtrl::EnsureVisible(int item, BOOL /*partialOk*/) {
  ControlState* c = state();
  if (!c || !c->InRange(item)) return FALSE;
  c->topIndex = item;
  Changed(vglobal::kAspectScroll);
  return TRUE;
}

int CListCtrl::GetTopIndex() const {
  return state() ? state()->topIndex : 0;
}

DWORD CListCtrl::SetExtendedStyle(DWORD style) {
  ControlState* c = state();
  if (!c) return 0;
  DWORD previous = c->extendedStyle;
  c->extendedStyle = style;
  Changed(vglobal::kAspectItems);
  return previous;
}

DWORD CListCtrl::GetExtendedStyle() const {
  return state() ? state()->extendedStyle : 0;
}
