// Toolbar controls: the ToolBar kind's state (button records, sizes, image list, the
// row layout) and the CToolBarCtrl handle. The layout is computed here only, so the
// headless platform and the Qt widget put every button in the same place.
#include <algorithm>
#include <iterator>

#include "compat/dialog_state.h"
#include "vglobal/compat/image_list.h"
#include "vglobal/compat/resources.h"

namespace vglobal {
namespace {

constexpr int kLargestSize = 1024;

bool IsSeparator(const TBBUTTON& b) {
  return (b.fsStyle & TBSTYLE_SEP) != 0;
}

struct ToolBarState : ControlState {
  std::vector<TBBUTTON> buttons;
  CSize buttonSize{24, 22};
  CSize bitmapSize{16, 15};
  CImageList* images = nullptr;
  std::unique_ptr<CImageList> ownImages;  // made by AddBitmap when no list was given
  CToolBarCtrl::TipSource tips;

  std::unique_ptr<DialogControl> MakeHandle() const override {
    return std::make_unique<CToolBarCtrl>();
  }
  void Init(const wchar_t*) override {}
  bool TakesFocus() const override { return false; }
  bool InRange(int i) const { return i >= 0 && static_cast<std::size_t>(i) < buttons.size(); }

  // Each button's rectangle in the control's client area; empty for hidden ones.
  std::vector<CRect> Layout() const {
    std::vector<CRect> out(buttons.size());
    const int width = rect.Width();
    int x = 0, y = 0;
    bool rowEnded = false;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
      const TBBUTTON& b = buttons[i];
      if (b.fsState & TBSTATE_HIDDEN) continue;
      const int w = IsSeparator(b) ? CToolBarCtrl::kSeparatorWidth : buttonSize.cx;
      if (rowEnded || (x > 0 && width > 0 && x + w > width)) {
        x = 0;
        y += buttonSize.cy;
      }
      out[i] = CRect(x, y, x + w, y + buttonSize.cy);
      x += w;
      rowEnded = (b.fsState & TBSTATE_WRAP) != 0;
    }
    return out;
  }

  // A check button changes its state; in a check group the one clicked is checked
  // and the others of its run of group buttons are not.
  void Toggle(int item) {
    TBBUTTON& b = buttons[item];
    if (!(b.fsStyle & TBSTYLE_CHECK)) return;
    if (!(b.fsStyle & TBSTYLE_GROUP)) {
      b.fsState ^= TBSTATE_CHECKED;
      return;
    }
    auto inGroup = [this](int i) {
      return InRange(i) && (buttons[i].fsStyle & TBSTYLE_CHECKGROUP) == TBSTYLE_CHECKGROUP;
    };
    for (int i = item - 1; inGroup(i); --i) buttons[i].fsState &= ~TBSTATE_CHECKED;
    for (int i = item + 1; inGroup(i); ++i) buttons[i].fsState &= ~TBSTATE_CHECKED;
    b.fsState |= TBSTATE_CHECKED;
  }

  bool ClickItem(UserAction& act, int item) override {
    if (!InRange(item)) return false;
    const TBBUTTON& b = buttons[item];
    if (IsSeparator(b) || !(b.fsState & TBSTATE_ENABLED) || (b.fsState & TBSTATE_HIDDEN))
      return false;
    const int command = b.idCommand;
    Toggle(item);
    DialogAccess::Changed(*this, kAspectItems);
    NMHDR hdr{own->GetSafeHwnd(), static_cast<UINT_PTR>(command), BN_CLICKED};
    DialogAccess::Send(act.dialog(), command, BN_CLICKED, &hdr);
    return true;
  }
};

}  // namespace

namespace controls {
std::unique_ptr<ControlState> MakeToolBar() {
  return std::make_unique<ToolBarState>();
}
}  // namespace controls

}  // namespace vglobal

using vglobal::ControlKind;
using vglobal::StateAs;
using vglobal::ToolBarState;

bool CToolBarCtrl::Handles(ControlKind kind) const {
  return kind == ControlKind::ToolBar;
}

BOOL CToolBarCtrl::Create(UINT style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateControl(ControlKind::ToolBar, L"", style, rect, parent, id);
}

BOOL CToolBarCtrl::AddButtons(int count, LPCTBBUTTON buttons) {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || count < 0 || (count > 0 && !buttons)) return FALSE;
  c->buttons.insert(c->buttons.end(), buttons, buttons + count);
  Changed(vglobal::kAspectItems);
  return TRUE;
}

BOOL CToolBarCtrl::InsertButton(int index, LPCTBBUTTON button) {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || !button || index < 0 || static_cast<std::size_t>(index) > c->buttons.size())
    return FALSE;
  c->buttons.insert(c->buttons.begin() + index, *button);
  Changed(vglobal::kAspectItems);
  return TRUE;
}

BOOL CToolBarCtrl::DeleteButton(int index) {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || !c->InRange(index)) return FALSE;
  c->buttons.erase(c->buttons.begin() + index);
  Changed(vglobal::kAspectItems);
  return TRUE;
}

BOOL CToolBarCtrl::GetButton(int index, LPTBBUTTON button) const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || !button || !c->InRange(index)) return FALSE;
  *button = c->buttons[index];
  return TRUE;
}

int CToolBarCtrl::GetButtonCount() const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  return c ? static_cast<int>(c->buttons.size()) : 0;
}

int CToolBarCtrl::CommandToIndex(UINT command) const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c) return -1;
  for (std::size_t i = 0; i < c->buttons.size(); ++i)
    if (!vglobal::IsSeparator(c->buttons[i]) &&
        static_cast<UINT>(c->buttons[i].idCommand) == command)
      return static_cast<int>(i);
  return -1;
}

namespace {

// Sets or clears a state bit of the button with the command id.
BOOL SetStateBit(CToolBarCtrl& bar, ToolBarState* c, int command, BYTE bit, bool on) {
  const int i = bar.CommandToIndex(static_cast<UINT>(command));
  if (!c || i < 0) return FALSE;
  BYTE& state = c->buttons[i].fsState;
  const BYTE wanted = on ? (state | bit) : (state & ~bit);
  if (wanted != state) {
    state = wanted;
    vglobal::DialogAccess::Changed(*c, vglobal::kAspectItems);
  }
  return TRUE;
}

bool HasStateBit(const CToolBarCtrl& bar, ToolBarState* c, int command, BYTE bit) {
  const int i = bar.CommandToIndex(static_cast<UINT>(command));
  return c && i >= 0 && (c->buttons[i].fsState & bit);
}

bool Reasonable(CSize size) {
  return size.cx > 0 && size.cy > 0 && size.cx <= vglobal::kLargestSize &&
         size.cy <= vglobal::kLargestSize;
}

}  // namespace

BOOL CToolBarCtrl::EnableButton(int command, BOOL enable) {
  return SetStateBit(*this, StateAs<ToolBarState>(state()), command, TBSTATE_ENABLED, enable);
}
BOOL CToolBarCtrl::IsButtonEnabled(int command) const {
  return HasStateBit(*this, StateAs<ToolBarState>(state()), command, TBSTATE_ENABLED);
}
BOOL CToolBarCtrl::CheckButton(int command, BOOL check) {
  return SetStateBit(*this, StateAs<ToolBarState>(state()), command, TBSTATE_CHECKED, check);
}
BOOL CToolBarCtrl::IsButtonChecked(int command) const {
  return HasStateBit(*this, StateAs<ToolBarState>(state()), command, TBSTATE_CHECKED);
}
BOOL CToolBarCtrl::HideButton(int command, BOOL hide) {
  return SetStateBit(*this, StateAs<ToolBarState>(state()), command, TBSTATE_HIDDEN, hide);
}

BOOL CToolBarCtrl::SetButtonSize(CSize size) {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || !Reasonable(size)) return FALSE;
  c->buttonSize = size;
  Changed(vglobal::kAspectItems);
  return TRUE;
}

BOOL CToolBarCtrl::SetBitmapSize(CSize size) {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || !Reasonable(size)) return FALSE;
  c->bitmapSize = size;
  Changed(vglobal::kAspectItems);
  return TRUE;
}

DWORD CToolBarCtrl::GetButtonSize() const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c) return 0;
  return static_cast<DWORD>(c->buttonSize.cx) | (static_cast<DWORD>(c->buttonSize.cy) << 16);
}

CSize CToolBarCtrl::GetBitmapSize() const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  return c ? c->bitmapSize : CSize();
}

CImageList* CToolBarCtrl::SetImageList(CImageList* images) {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c) return nullptr;
  CImageList* previous = c->images;
  c->images = images;
  Changed(vglobal::kAspectItems);
  return previous;
}

CImageList* CToolBarCtrl::GetImageList() const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  return c ? c->images : nullptr;
}

BOOL CToolBarCtrl::GetItemRect(int index, LPRECT rect) const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || !rect || !c->InRange(index)) return FALSE;
  const CRect r = c->Layout()[index];
  if (r.IsRectEmpty()) return FALSE;
  *rect = r;
  return TRUE;
}

int CToolBarCtrl::HitTest(LPPOINT point) const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || !point) return -1;
  const std::vector<CRect> layout = c->Layout();
  for (std::size_t i = 0; i < layout.size(); ++i)
    if (!vglobal::IsSeparator(c->buttons[i]) && layout[i].PtInRect(*point))
      return static_cast<int>(i);
  return -1;
}

void CToolBarCtrl::SetRows(int rows, BOOL /*larger*/, LPRECT rect) {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c) return;
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < c->buttons.size(); ++i) {
    c->buttons[i].fsState &= ~TBSTATE_WRAP;
    if (!(c->buttons[i].fsState & TBSTATE_HIDDEN)) shown.push_back(i);
  }
  rows = std::clamp(rows, 1, std::max(1, static_cast<int>(shown.size())));
  const std::size_t perRow = (shown.size() + rows - 1) / rows;
  for (std::size_t n = perRow; n < shown.size(); n += perRow)
    c->buttons[shown[n - 1]].fsState |= TBSTATE_WRAP;
  Changed(vglobal::kAspectItems);
  if (!rect) return;
  CRect bounds;
  for (const CRect& r : c->Layout()) bounds.UnionRect(bounds, r);
  *rect = bounds;
}

int CToolBarCtrl::GetRows() const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c) return 0;
  int rows = 0, lastTop = -1;
  for (const CRect& r : c->Layout())
    if (!r.IsRectEmpty() && r.top != lastTop) {
      ++rows;
      lastTop = r.top;
    }
  return rows;
}

void CToolBarCtrl::SetTipSource(TipSource source) {
  if (ToolBarState* c = StateAs<ToolBarState>(state())) c->tips = std::move(source);
}

CString CToolBarCtrl::GetButtonTip(int index) const {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || !c->InRange(index) || vglobal::IsSeparator(c->buttons[index])) return {};
  const UINT command = static_cast<UINT>(c->buttons[index].idCommand);
  if (c->tips) return c->tips(command);
  std::optional<std::wstring_view> text = vglobal::FindResourceString(command);
  if (!text) return {};
  const std::size_t lineFeed = text->find(L'\n');
  return lineFeed == std::wstring_view::npos ? CString() : CString(text->substr(lineFeed + 1));
}

int CToolBarCtrl::AddBitmap(int numButtons, UINT bitmapId) {
  ToolBarState* c = StateAs<ToolBarState>(state());
  if (!c || numButtons <= 0 || numButtons > 4096) return -1;
  CBitmap strip;
  if (!strip.LoadBitmap(bitmapId)) return -1;
  CImageList* list = c->images ? c->images : c->ownImages.get();
  const CSize imageSize = list ? list->GetImageSize() : c->bitmapSize;
  if (strip.GetSize() != CSize(numButtons * imageSize.cx, imageSize.cy)) return -1;
  if (!list) {
    c->ownImages = std::make_unique<CImageList>();
    c->ownImages->Create(imageSize.cx, imageSize.cy, ILC_COLOR32 | ILC_MASK, numButtons, 0);
    list = c->images = c->ownImages.get();
  }
  const int first = list->Add(&strip, static_cast<CBitmap*>(nullptr));
  if (first >= 0) Changed(vglobal::kAspectItems);
  return first;
}
