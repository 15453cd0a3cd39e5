// List boxes: rows of text with item data and images, one row selected or several
// (kMultiSelect), scrolled by rows and drawn with tab stops; the ListBox kind's
// state and the CListBox handle.
#include <algorithm>

#include "vglobal/compat/image_list.h"

#include "compat/controls/list_rows.h"

namespace vglobal {
namespace {

struct ListBoxState : RowsState {
  std::vector<int> tabStops;
  CImageList* images = nullptr;
  int itemHeight = 0;  // set by the program; 0: from the font and the images

  int RowHeight() const override {
    if (itemHeight > 0) return itemHeight;
    return std::max({1, FontHeight(), images ? images->GetImageSize().cy : 0});
  }

  std::unique_ptr<DialogControl> MakeHandle() const override {
    return std::make_unique<CListBox>();
  }
  void Init(const wchar_t*) override {}
  bool FocusCodes(UINT& set, UINT& kill) const override {
    set = LBN_SETFOCUS;
    kill = LBN_KILLFOCUS;
    return true;
  }
  bool Select(UserAction& act, int row) override {
    if (!InRange(row)) return false;
    return Choose(act, {row});
  }
  bool SelectRows(UserAction& act, const std::vector<int>& rows) override {
    if (!std::all_of(rows.begin(), rows.end(), [this](int r) { return InRange(r); })) return false;
    if (!HasStyle(kMultiSelect)) return rows.size() == 1 && Choose(act, rows);
    return Choose(act, rows);
  }
  bool DoubleClick(UserAction& act, int row) override {
    if (!Select(act, row) || !act.Usable()) return false;
    act.Send(LBN_DBLCLK);
    return true;
  }

 private:
  // Makes exactly `rows` selected (the last one the caret) as the user's click
  // does; LBN_SELCHANGE when that changed anything.
  static bool Choose(UserAction& act, const std::vector<int>& rows) {
    auto* c = StateAs<ListBoxState>(act.TakeFocus());
    if (!c) return false;
    bool changed = false;
    if (c->HasStyle(kMultiSelect)) {
      for (int i = 0; i < static_cast<int>(c->items.size()); ++i) {
        const bool want = std::find(rows.begin(), rows.end(), i) != rows.end();
        changed |= c->items[i].selected != want;
        c->items[i].selected = want;
      }
      if (!rows.empty()) c->caret = rows.back();
    } else {
      changed = c->curSel != rows.front();
      c->curSel = rows.front();
    }
    if (changed) {
      DialogAccess::Changed(*c, kAspectSelection);
      act.Send(LBN_SELCHANGE);
    }
    return true;
  }
};

}  // namespace

namespace controls {
std::unique_ptr<ControlState> MakeListBox() {
  return std::make_unique<ListBoxState>();
}
}  // namespace controls

}  // namespace vglobal

using vglobal::ControlKind;
using vglobal::ListBoxState;
using vglobal::ListItem;
using vglobal::StateAs;
namespace rows = vglobal::rows;

bool CListBox::Handles(ControlKind kind) const {
  return kind == ControlKind::ListBox;
}

BOOL CListBox::Create(UINT style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateControl(ControlKind::ListBox, L"", style, rect, parent, id);
}

int CListBox::GetCount() const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  return c ? static_cast<int>(c->items.size()) : LB_ERR;
}

int CListBox::AddString(const wchar_t* text) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c) return LB_ERR;
  int index = rows::Insert(*c, -1, text, c->HasStyle(vglobal::kSort));
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return index;
}

int CListBox::InsertString(int index, const wchar_t* text) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c) return LB_ERR;
  index = rows::Insert(*c, index, text, false);
  if (index >= 0) Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return index < 0 ? LB_ERR : index;
}

int CListBox::DeleteString(UINT index) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c) return LB_ERR;
  int left = rows::Delete(*c, index);
  if (left >= 0) Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return left < 0 ? LB_ERR : left;
}

void CListBox::ResetContent() {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c) return;
  c->items.clear();
  c->curSel = c->caret = -1;
  c->topIndex = 0;
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
}

int CListBox::GetText(int index, CString& text) const {
  return rows::Text(StateAs<ListBoxState>(state()), index, text);
}
int CListBox::GetTextLen(int index) const {
  return rows::TextLength(StateAs<ListBoxState>(state()), index);
}

int CListBox::FindString(int startAfter, const wchar_t* text) const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  return c ? rows::Find(*c, startAfter, text, false) : LB_ERR;
}

int CListBox::FindStringExact(int startAfter, const wchar_t* text) const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  return c ? rows::Find(*c, startAfter, text, true) : LB_ERR;
}

int CListBox::SelectString(int startAfter, const wchar_t* text) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c) return LB_ERR;
  int found = rows::Find(*c, startAfter, text, false);
  if (found < 0) return LB_ERR;
  if (c->HasStyle(vglobal::kMultiSelect))
    SetSel(found, TRUE);
  else
    SetCurSel(found);
  return found;
}

int CListBox::GetCurSel() const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c) return LB_ERR;
  return c->HasStyle(vglobal::kMultiSelect) ? c->caret : c->curSel;
}

int CListBox::SetCurSel(int index) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c || c->HasStyle(vglobal::kMultiSelect)) return LB_ERR;
  const int selection = c->InRange(index) ? index : -1;
  if (c->curSel != selection) {
    c->curSel = selection;
    Changed(vglobal::kAspectSelection);
  }
  if (selection >= 0 && c->ScrollTo(selection)) Changed(vglobal::kAspectScroll);
  return selection < 0 ? LB_ERR : selection;
}

int CListBox::GetSel(int index) const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c || !c->InRange(index)) return LB_ERR;
  if (c->HasStyle(vglobal::kMultiSelect)) return c->items[index].selected ? 1 : 0;
  return c->curSel == index ? 1 : 0;
}

int CListBox::SetSel(int index, BOOL select) {
  ListBoxState* c = StateAs<ListBoxState>(state());
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
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c || !c->HasStyle(vglobal::kMultiSelect)) return LB_ERR;
  return static_cast<int>(std::count_if(c->items.begin(), c->items.end(),
                                        [](const ListItem& r) { return r.selected; }));
}

int CListBox::GetSelItems(int maxItems, int* items) const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c || !c->HasStyle(vglobal::kMultiSelect)) return LB_ERR;
  if (!items || maxItems <= 0) return 0;
  int n = 0;
  for (int i = 0; i < static_cast<int>(c->items.size()) && n < maxItems; ++i)
    if (c->items[i].selected) items[n++] = i;
  return n;
}

int CListBox::GetCaretIndex() const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c) return LB_ERR;
  return c->HasStyle(vglobal::kMultiSelect) ? c->caret : c->curSel;
}

DWORD_PTR CListBox::GetItemData(int index) const {
  return rows::Data(StateAs<ListBoxState>(state()), index);
}
int CListBox::SetItemData(int index, DWORD_PTR data) {
  return rows::SetData(StateAs<ListBoxState>(state()), index, data);
}

void* CListBox::GetItemDataPtr(int index) const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  return c && c->InRange(index) ? reinterpret_cast<void*>(c->items[index].data) : nullptr;
}

int CListBox::SetItemDataPtr(int index, void* data) {
  return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
}

int CListBox::GetTopIndex() const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  return c ? c->topIndex : LB_ERR;
}

int CListBox::SetTopIndex(int index) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c || !c->InRange(index)) return LB_ERR;
  c->topIndex = index;
  c->ClampTop();
  Changed(vglobal::kAspectScroll);
  return LB_OKAY;
}

int CListBox::GetItemHeight(int /*index*/) const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  return c ? c->RowHeight() : LB_ERR;
}

int CListBox::SetItemHeight(int /*index*/, UINT height) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c || height == 0 || height > 255) return LB_ERR;
  c->itemHeight = static_cast<int>(height);
  c->ClampTop();  // a page holds another number of rows now
  Changed(vglobal::kAspectItems | vglobal::kAspectScroll);
  return LB_OKAY;
}

BOOL CListBox::SetTabStops(int count, const int* stops) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c || count < 0 || (count > 0 && !stops)) return FALSE;
  c->tabStops.assign(stops, stops + count);
  Changed(vglobal::kAspectItems);
  return TRUE;
}

std::vector<int> CListBox::GetTabStops() const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  return c ? c->tabStops : std::vector<int>{};
}

int CListBox::NextTabStop(int x) const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c || !c->HasStyle(vglobal::kUseTabStops) || !c->dialog) return -1;
  const int unit = vglobal::DialogAccess::Of(*c->dialog).baseUnits.cx;  // four dialog units
  auto pixels = [unit](long long units) {
    return static_cast<int>(std::clamp(units * unit / 4, 1LL, 1LL << 30));
  };
  x = std::clamp(x, 0, 1 << 29);
  const std::vector<int>& stops = c->tabStops;
  // Several stops: the nearest given stop right of x, in whatever order they came.
  if (stops.size() > 1) {
    int best = -1;
    for (int stop : stops) {
      const int at = stop > 0 ? pixels(stop) : 0;
      if (at > x && (best < 0 || at < best)) best = at;
    }
    if (best >= 0) return best;
  }
  // Otherwise regular stops: every that many units for one stop, every 32 (eight
  // average characters) without or past the given ones.
  const int every = stops.size() == 1 && stops[0] > 0 ? pixels(stops[0]) : pixels(32);
  return (x / every + 1) * every;
}

CImageList* CListBox::SetImageList(CImageList* images) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c) return nullptr;
  CImageList* previous = c->images;
  c->images = images;
  c->ClampTop();  // the rows may be higher now
  Changed(vglobal::kAspectItems | vglobal::kAspectScroll);
  return previous;
}

CImageList* CListBox::GetImageList() const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  return c ? c->images : nullptr;
}

int CListBox::SetItemImage(int index, int image) {
  ListBoxState* c = StateAs<ListBoxState>(state());
  if (!c || !c->InRange(index)) return LB_ERR;
  c->items[index].image = image < 0 ? -1 : image;
  Changed(vglobal::kAspectItems);
  return LB_OKAY;
}

int CListBox::GetItemImage(int index) const {
  ListBoxState* c = StateAs<ListBoxState>(state());
  return c && c->InRange(index) ? c->items[index].image : -1;
}
