// List controls in report view: columns with headings, rows with a text per column,
// an image, item data and a selected/focused state, scrolled by rows; the ListCtrl
// kind's state and the CListCtrl handle. Row texts are kept by column: column 0 is
// the row's text, column k its sub-item k.
#include <algorithm>
#include <iterator>

#include "compat/controls/list_rows.h"
#include "vglobal/compat/image_list.h"
#include "vglobal/platform.h"

namespace vglobal {
namespace {

struct ListColumn {
  std::wstring heading;
  int format = LVCFMT_LEFT;
  int width = -1;
};

struct ListCtrlState : RowsState {
  // Around a text in a cell or a heading, each side; between an image and its text.
  static constexpr int kTextMargin = 6;
  static constexpr int kImageGap = 4;

  std::vector<ListColumn> columns;
  DWORD extendedStyle = 0;
  CImageList* images[3] = {};  // by LVSIL_ value

  int SmallImageWidth() const {
    return images[LVSIL_SMALL] ? images[LVSIL_SMALL]->GetImageSize().cx : 0;
  }
  int RowHeight() const override {
    const int image = images[LVSIL_SMALL] ? images[LVSIL_SMALL]->GetImageSize().cy : 0;
    return std::max({FontHeight(), image, 1}) + 2;
  }
  int HeaderHeight() const { return FontHeight() + 8; }
  int RowsTop() const override { return kBorder + HeaderHeight(); }
  // The width a column needs for its texts (and its heading, when asked), measured
  // as `window` shows them.
  int FitWidth(const CWnd& window, int column, bool heading) const;

  std::unique_ptr<DialogControl> MakeHandle() const override {
    return std::make_unique<CListCtrl>();
  }
  void Init(const wchar_t*) override {}
  bool FocusCodes(UINT& set, UINT& kill) const override {
    set = NM_SETFOCUS;
    kill = NM_KILLFOCUS;
    return true;
  }
  bool Select(UserAction& act, int row) override;
  bool SelectRows(UserAction& act, const std::vector<int>& rows) override;
  bool DoubleClick(UserAction& act, int row) override;
  bool BeginDrag(UserAction& act, int row) override;
  bool ClickColumn(UserAction& act, int column) override;
};

int ListCtrlState::FitWidth(const CWnd& window, int column, bool heading) const {
  Platform& platform = GetPlatform();
  auto width = [&](const std::wstring& text) {
    return platform.MeasureText(window, text).cx + 2 * kTextMargin;
  };
  int widest = heading ? width(columns[column].heading) : 0;
  const int image = column == 0 && SmallImageWidth() > 0 ? SmallImageWidth() + kImageGap : 0;
  for (const ListItem& row : items) {
    const std::wstring* text = column == 0 ? &row.text
                               : static_cast<std::size_t>(column) <= row.subItems.size()
                                   ? &row.subItems[column - 1]
                                   : nullptr;
    widest = std::max(widest, image + (text ? width(*text) : 2 * kTextMargin));
  }
  return widest;
}

UINT StateOf(const ListCtrlState& c, int row) {
  return (c.items[row].selected ? LVIS_SELECTED : 0) | (c.caret == row ? LVIS_FOCUSED : 0);
}

// Sends a list-view notification with its record: NM_CLICK and NM_DBLCLK carry an
// NMITEMACTIVATE, the LVN_ codes an NMLISTVIEW.
void NotifyListView(const ListCtrlState& c, UINT code, int item, int subItem, UINT oldState,
                    UINT newState) {
  LPARAM data = c.InRange(item) ? static_cast<LPARAM>(c.items[item].data) : 0;
  UINT changed = oldState != newState ? LVIF_STATE : 0;
  NMHDR hdr{};
  if (code == NM_CLICK || code == NM_DBLCLK) {
    NMITEMACTIVATE record{hdr, item, subItem, newState, oldState, changed, {0, 0}, data, 0};
    DialogAccess::NotifyRecord(c, code, record.hdr);
  } else {
    NMLISTVIEW record{hdr, item, subItem, newState, oldState, changed, {0, 0}, data};
    DialogAccess::NotifyRecord(c, code, record.hdr);
  }
}

// Makes exactly `rows` selected, as the user's click does (each changed row sends
// LVN_ITEMCHANGED through CListCtrl::SetItemState), and focuses `focusRow`.
void SelectExactly(UserAction& act, const std::vector<int>& rows, int focusRow) {
  auto* list = act.dialog().GetDlgItemAs<CListCtrl>(act.id());
  if (!list) return;
  for (int i = 0; i < list->GetItemCount(); ++i)
    if (std::find(rows.begin(), rows.end(), i) == rows.end() &&
        list->GetItemState(i, LVIS_SELECTED))
      list->SetItemState(i, 0, LVIS_SELECTED);
  for (int row : rows) {
    if (!act.Usable()) return;
    UINT state = LVIS_SELECTED | (row == focusRow ? LVIS_FOCUSED : 0);
    list->SetItemState(row, state, state);
  }
}

bool ListCtrlState::Select(UserAction& act, int row) {
  if (!InRange(row) || !act.TakeFocus()) return false;
  SelectExactly(act, {row}, row);
  if (auto* c = StateAs<ListCtrlState>(act.Usable())) NotifyListView(*c, NM_CLICK, row, 0, 0, 0);
  return true;
}

bool ListCtrlState::SelectRows(UserAction& act, const std::vector<int>& rows) {
  if (!std::all_of(rows.begin(), rows.end(), [this](int r) { return InRange(r); })) return false;
  if (!HasStyle(kMultiSelect)) return rows.size() == 1 && Select(act, rows.front());
  if (!act.TakeFocus()) return false;
  SelectExactly(act, rows, rows.empty() ? -1 : rows.back());
  return true;
}

bool ListCtrlState::DoubleClick(UserAction& act, int row) {
  if (!Select(act, row)) return false;
  auto* c = StateAs<ListCtrlState>(act.Usable());
  if (!c) return false;
  NotifyListView(*c, NM_DBLCLK, row, 0, 0, 0);
  return true;
}

bool ListCtrlState::BeginDrag(UserAction& act, int row) {
  if (!InRange(row)) return false;
  auto* c = StateAs<ListCtrlState>(act.TakeFocus());
  if (!c || !c->InRange(row)) return false;
  UINT state = c->items[row].selected ? LVIS_SELECTED : 0;
  NotifyListView(*c, LVN_BEGINDRAG, row, 0, state, state);
  return true;
}

bool ListCtrlState::ClickColumn(UserAction& act, int column) {
  if (column < 0 || static_cast<std::size_t>(column) >= columns.size()) return false;
  auto* c = StateAs<ListCtrlState>(act.TakeFocus());
  if (!c) return false;
  NotifyListView(*c, LVN_COLUMNCLICK, -1, column, 0, 0);
  return true;
}

}  // namespace

namespace controls {
std::unique_ptr<ControlState> MakeListCtrl() {
  return std::make_unique<ListCtrlState>();
}
}  // namespace controls

}  // namespace vglobal

using vglobal::ControlKind;
using vglobal::ListCtrlState;
using vglobal::ListItem;
using vglobal::StateAs;

bool CListCtrl::Handles(ControlKind kind) const {
  return kind == ControlKind::ListCtrl;
}

BOOL CListCtrl::Create(UINT style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateControl(ControlKind::ListCtrl, L"", style, rect, parent, id);
}

CImageList* CListCtrl::SetImageList(CImageList* images, int which) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || which < 0 || which >= static_cast<int>(std::size(c->images))) return nullptr;
  CImageList* previous = c->images[which];
  c->images[which] = images;
  c->ClampTop();  // the rows may be higher now
  Changed(vglobal::kAspectItems | vglobal::kAspectScroll);
  return previous;
}

CImageList* CListCtrl::GetImageList(int which) const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || which < 0 || which >= static_cast<int>(std::size(c->images))) return nullptr;
  return c->images[which];
}

int CListCtrl::InsertColumn(int column, const wchar_t* heading, int format, int width,
                            int /*subItem*/) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || column < 0) return -1;
  const int count = static_cast<int>(c->columns.size());
  column = std::min(column, count);
  c->columns.insert(c->columns.begin() + column, {heading ? heading : L"", format, 0});
  // -1 (or any width below 0) fits the heading, the width the user sees.
  c->columns[column].width =
      width >= 0 ? width
                 : vglobal::GetPlatform().MeasureText(*c->own, c->columns[column].heading).cx +
                       2 * ListCtrlState::kTextMargin;
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
  ListCtrlState* c = StateAs<ListCtrlState>(state());
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
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  return c ? static_cast<int>(c->columns.size()) : 0;
}

CString CListCtrl::GetColumnHeading(int column) const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || column < 0 || column >= static_cast<int>(c->columns.size())) return {};
  return CString(c->columns[column].heading);
}

int CListCtrl::GetColumnFormat(int column) const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || column < 0 || column >= static_cast<int>(c->columns.size())) return -1;
  return c->columns[column].format;
}

int CListCtrl::GetColumnWidth(int column) const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || column < 0 || column >= static_cast<int>(c->columns.size())) return 0;
  return c->columns[column].width;
}

BOOL CListCtrl::SetColumnWidth(int column, int width) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  const int count = c ? static_cast<int>(c->columns.size()) : 0;
  if (!c || column < 0 || column >= count) return FALSE;
  if (width == LVSCW_AUTOSIZE || width == LVSCW_AUTOSIZE_USEHEADER) {
    const bool heading = width == LVSCW_AUTOSIZE_USEHEADER;
    width = c->FitWidth(*c->own, column, heading);
    if (heading && column == count - 1) {
      // The last column takes what the others leave of the control's width, beside
      // the scroll bar when the rows need one.
      int rest = c->rect.Width() - 2 * ListCtrlState::kBorder;
      if (c->Count() > c->PerPage()) rest -= ListCtrlState::kScrollBarWidth;
      for (int i = 0; i < column; ++i) rest -= c->columns[i].width;
      width = std::max(width, rest);
    }
  } else if (width < 0) {
    return FALSE;
  }
  c->columns[column].width = width;
  Changed(vglobal::kAspectItems);
  return TRUE;
}

int CListCtrl::GetItemCount() const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  return c ? static_cast<int>(c->items.size()) : 0;
}

int CListCtrl::InsertItem(int item, const wchar_t* text) {
  return InsertItem(item, text, -1);
}

int CListCtrl::InsertItem(int item, const wchar_t* text, int image) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || item < 0) return -1;
  item = std::min(item, static_cast<int>(c->items.size()));
  c->items.insert(c->items.begin() + item, ListItem{text ? text : L"", {}, 0, image, false});
  if (c->caret >= item) ++c->caret;  // the top index stays: the rows below it move down
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return item;
}

BOOL CListCtrl::DeleteItem(int item) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || !c->InRange(item)) return FALSE;
  c->items.erase(c->items.begin() + item);
  if (c->caret == item)
    c->caret = -1;
  else if (c->caret > item)
    --c->caret;
  c->ClampTop();
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return TRUE;
}

BOOL CListCtrl::DeleteAllItems() {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c) return FALSE;
  c->items.clear();
  c->caret = -1;
  c->topIndex = 0;
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return TRUE;
}

BOOL CListCtrl::SetItemText(int item, int subItem, const wchar_t* text) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
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
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || !c->InRange(item) || subItem < 0) return {};
  const ListItem& row = c->items[item];
  if (subItem == 0) return CString(row.text);
  if (subItem > static_cast<int>(row.subItems.size())) return {};
  return CString(row.subItems[subItem - 1]);
}

BOOL CListCtrl::SetItemData(int item, DWORD_PTR data) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || !c->InRange(item)) return FALSE;
  c->items[item].data = data;
  return TRUE;
}

DWORD_PTR CListCtrl::GetItemData(int item) const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  return c && c->InRange(item) ? c->items[item].data : 0;
}

int CListCtrl::GetItemImage(int item) const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  return c && c->InRange(item) ? c->items[item].image : -1;
}

BOOL CListCtrl::SetItemState(int item, UINT newState, UINT mask) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
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
    ListCtrlState* live = StateAs<ListCtrlState>(state());  // a handler may have closed it
    if (!live || i == item) continue;
    UINT other = StateOf(*live, i), keep = other;
    if ((wanted & LVIS_SELECTED) && !live->HasStyle(vglobal::kMultiSelect)) keep &= ~LVIS_SELECTED;
    if (wanted & LVIS_FOCUSED) keep &= ~LVIS_FOCUSED;
    if (keep == other) continue;
    live->items[i].selected = keep & LVIS_SELECTED;
    if (!(keep & LVIS_FOCUSED) && live->caret == i) live->caret = -1;
    Changed(vglobal::kAspectSelection);
    NotifyListView(*live, LVN_ITEMCHANGED, i, 0, other, keep);
  }
  c = StateAs<ListCtrlState>(state());
  if (!c || !c->InRange(item)) return FALSE;
  const UINT old = StateOf(*c, item);
  if (old == wanted) return TRUE;
  c->items[item].selected = wanted & LVIS_SELECTED;
  if (wanted & LVIS_FOCUSED)
    c->caret = item;
  else if (c->caret == item)
    c->caret = -1;
  Changed(vglobal::kAspectSelection);
  NotifyListView(*c, LVN_ITEMCHANGED, item, 0, old, wanted);
  return TRUE;
}

UINT CListCtrl::GetItemState(int item, UINT mask) const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  return c && c->InRange(item) ? StateOf(*c, item) & mask : 0;
}

int CListCtrl::GetNextItem(int start, int flags) const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c) return -1;
  const UINT wanted =
      (flags & LVNI_SELECTED ? LVIS_SELECTED : 0) | (flags & LVNI_FOCUSED ? LVIS_FOCUSED : 0);
  for (int i = std::max(start + 1, 0); i < static_cast<int>(c->items.size()); ++i)
    if ((StateOf(*c, i) & wanted) == wanted) return i;
  return -1;
}

UINT CListCtrl::GetSelectedCount() const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c) return 0;
  return static_cast<UINT>(std::count_if(c->items.begin(), c->items.end(),
                                         [](const ListItem& r) { return r.selected; }));
}

BOOL CListCtrl::EnsureVisible(int item, BOOL /*partialOk*/) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || !c->InRange(item)) return FALSE;
  if (c->ScrollTo(item)) Changed(vglobal::kAspectScroll);
  return TRUE;
}

int CListCtrl::GetTopIndex() const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  return c ? c->topIndex : 0;
}

int CListCtrl::GetCountPerPage() const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  return c ? c->PerPage() : 0;
}

BOOL CListCtrl::GetItemRect(int item, LPRECT rect, UINT code) const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (!c || !c->InRange(item) || !rect || code != LVIR_BOUNDS) return FALSE;
  int width = 0;
  for (const auto& column : c->columns) width += column.width;
  const int top = c->RowsTop() + (item - c->topIndex) * c->RowHeight();
  *rect = CRect(ListCtrlState::kBorder, top, ListCtrlState::kBorder + width, top + c->RowHeight());
  return TRUE;
}

DWORD CListCtrl::SetExtendedStyle(DWORD style) {
  return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style));
}

LRESULT CListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  if (c && message == LVM_GETEXTENDEDLISTVIEWSTYLE) return c->extendedStyle;
  if (c && message == LVM_SETEXTENDEDLISTVIEWSTYLE) {
    const DWORD previous = c->extendedStyle;
    const DWORD mask = wParam ? static_cast<DWORD>(wParam) : ~DWORD{0};
    c->extendedStyle = (previous & ~mask) | (static_cast<DWORD>(lParam) & mask);
    if (c->extendedStyle != previous) Changed(vglobal::kAspectItems);
    return previous;
  }
  return DialogControl::WindowProc(message, wParam, lParam);
}

DWORD CListCtrl::GetExtendedStyle() const {
  ListCtrlState* c = StateAs<ListCtrlState>(state());
  return c ? c->extendedStyle : 0;
}
