// DialogDriver: the user's actions on an open dialog. Each action on a control is
// handed to the control's kind (ControlState), which carries it out as the
// windowing system does: focus first, then the control's state, then the
// notification. Keys, the close command and the window's geometry are the
// dialog's own and are handled here.
//
// Handlers run in the middle of an action and may change anything, close the
// dialog included, so each step looks the control up again by id (UserAction).
#include "compat/dialog_state.h"

namespace vglobal {
namespace {

bool Takes(const DialogState& w) {
  return w.open && !w.ended && !w.closing && w.visible;
}

// Clicks the button `id` by key: false when that button exists but is unavailable.
bool PressButton(CDialog& d, int id) {
  if (!Takes(DialogAccess::Of(d))) return false;
  if (ControlState* b = DialogAccess::Find(d, id); b && (!b->enabled || !b->visible)) return false;
  DialogAccess::Send(d, id, BN_CLICKED);
  return true;
}

}  // namespace

// ---- UserAction ---------------------------------------------------------------

ControlState* UserAction::Usable() const {
  if (!Takes(DialogAccess::Of(dialog_))) return nullptr;
  ControlState* c = DialogAccess::Find(dialog_, id_);
  return c && c->enabled && c->visible ? c : nullptr;
}

ControlState* UserAction::TakeFocus() {
  ControlState* c = Usable();
  if (!c) return nullptr;
  if (c->CanFocus()) DialogAccess::SetFocus(dialog_, c->index);
  return Usable();
}

void UserAction::Send(UINT code) const {
  if (ControlState* c = Usable()) DialogAccess::Notify(*c, code);
}

// ---- the driver -------------------------------------------------------------------

bool DialogDriver::Open() {
  DialogState& w = DialogAccess::Of(dialog_);
  if (w.open || !dialog_.GetTemplate() || !DialogAccess::Open(dialog_)) return false;
  const bool defaultFocus = DialogAccess::OnInitDialog(dialog_);
  if (!defaultFocus || !w.open || w.ended || w.focus >= 0) return true;
  // The first control reached with Tab, else the first that can take the focus.
  ControlState* first = nullptr;
  for (const auto& c : w.controls)
    if (c->CanFocus() && (c->HasStyle(kTabStop) || !first)) {
      first = c.get();
      if (c->HasStyle(kTabStop)) break;
    }
  if (first) dialog_.GotoDlgCtrl(first->own);
  return true;
}

void DialogDriver::Destroy() {
  DialogAccess::Destroy(dialog_);
}

bool DialogDriver::Type(int id, const wchar_t* text) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  return c && c->Type(act, text ? text : L"");
}

bool DialogDriver::Click(int id) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  return c && c->Click(act);
}

bool DialogDriver::Select(int id, int index) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  return c && c->Select(act, index);
}

bool DialogDriver::SelectRows(int id, const std::vector<int>& rows) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  return c && c->SelectRows(act, rows);
}

bool DialogDriver::DoubleClick(int id, int index) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  return c && c->DoubleClick(act, index);
}

bool DialogDriver::BeginDrag(int id, int index) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  return c && c->BeginDrag(act, index);
}

bool DialogDriver::ClickColumn(int id, int column) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  return c && c->ClickColumn(act, column);
}

bool DialogDriver::ClickItem(int id, int item) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  return c && c->ClickItem(act, item);
}

bool DialogDriver::Spin(int id, int steps) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  return c && c->Spin(act, steps);
}

// Painting is the windowing system's, not the user's: a disabled or hidden
// control is painted too (a hidden one is never asked to by a platform).
bool DialogDriver::Paint(int id, CDC& dc) {
  UserAction act(dialog_, id);
  const DialogState& w = DialogAccess::Of(dialog_);
  ControlState* c = w.open && !w.closing ? DialogAccess::Find(dialog_, id) : nullptr;
  return c && c->Paint(act, dc);
}

bool DialogDriver::Focus(int id) {
  UserAction act(dialog_, id);
  ControlState* c = act.Usable();
  if (!c || !c->CanFocus()) return false;
  DialogAccess::SetFocus(dialog_, c->index);
  return DialogAccess::Of(dialog_).focus == c->index;
}

bool DialogDriver::PressEnter() {
  const DialogState& w = DialogAccess::Of(dialog_);
  if (!Takes(w)) return false;
  const ControlState* f = DialogAccess::At(dialog_, w.focus);
  if (f && f->WantsReturn()) return false;
  const int target =
      f && f->PressedByEnter() ? f->id : static_cast<int>(dialog_.GetDefID() & 0xFFFF);
  return PressButton(dialog_, target);
}

bool DialogDriver::PressEscape() {
  return PressButton(dialog_, IDCANCEL);
}

bool DialogDriver::PressHelp() {
  return PressButton(dialog_, IDHELP);
}

bool DialogDriver::Close() {
  if (!Takes(DialogAccess::Of(dialog_))) return false;
  DialogAccess::OnClose(dialog_);
  return true;
}

bool DialogDriver::MoveWindow(const RECT& rect) {
  const DialogState& w = DialogAccess::Of(dialog_);
  if (!w.open || w.closing) return false;
  CRect r(rect);
  r.NormalizeRect();
  dialog_.MoveWindow(&r);
  return true;
}

}  // namespace vglobal
