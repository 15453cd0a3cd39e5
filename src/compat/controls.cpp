// What every control handle shares, and the two simplest controls: CStatic and
// CButton.
#include "compat/dialog_state.h"

namespace vglobal {

DialogControl::~DialogControl() {
  if (state_ && state_->member == this) state_->member = nullptr;
}

BOOL DialogControl::SubclassDlgItem(UINT id, CWnd* parent) {
  auto* dialog = dynamic_cast<CDialog*>(parent);
  if (!dialog || state_) return FALSE;
  ControlState* c = DialogAccess::Find(*dialog, static_cast<int>(id));
  if (!c || !Handles(c->kind) || c->member) return FALSE;
  c->member = this;
  ControlState::Attach(*this, c);
  SetPlatformWindow(c->own->PlatformWindow());
  return TRUE;
}

std::optional<ControlKind> DialogControl::Kind() const {
  if (!state_) return std::nullopt;
  return state_->kind;
}

void DialogControl::SetWindowText(const wchar_t* text) {
  if (!state_) return;
  state_->text = text ? text : L"";
  Changed(kAspectText);
}

void DialogControl::GetWindowText(CString& text) const {
  text = state_ ? CString(state_->text) : CString();
}

BOOL DialogControl::EnableWindow(BOOL enable) {
  if (!state_) return FALSE;
  const BOOL wasDisabled = !state_->enabled;
  if (state_->enabled != (enable != FALSE)) {
    state_->enabled = enable != FALSE;
    Changed(kAspectState);
    if (!state_->enabled) DialogAccess::LostAvailability(*state_);
  }
  return wasDisabled;
}

BOOL DialogControl::IsWindowEnabled() const {
  return state_ && state_->enabled;
}

BOOL DialogControl::ShowWindow(int cmdShow) {
  if (!state_) return FALSE;
  const BOOL wasVisible = state_->visible;
  if (state_->visible != (cmdShow != SW_HIDE)) {
    state_->visible = cmdShow != SW_HIDE;
    Changed(kAspectState);
    if (!state_->visible) DialogAccess::LostAvailability(*state_);
  }
  return wasVisible;
}

BOOL DialogControl::IsWindowVisible() const {
  return state_ && state_->visible;
}

int DialogControl::GetDlgCtrlID() const {
  return state_ ? state_->id : 0;
}

CWnd* DialogControl::SetFocus() {
  if (!state_) return nullptr;
  CWnd* previous = state_->dialog->GetFocus();
  DialogAccess::SetFocus(*state_->dialog, state_->index);
  return previous;
}

void DialogControl::Changed(unsigned aspects) const {
  if (state_) DialogAccess::Changed(*state_, aspects);
}

void DialogControl::Notify(UINT code) const {
  if (state_) DialogAccess::Notify(*state_, code);
}

}  // namespace vglobal

using vglobal::ControlKind;

bool CStatic::Handles(ControlKind kind) const {
  return kind == ControlKind::Static;
}

bool CButton::Handles(ControlKind kind) const {
  return kind == ControlKind::PushButton || kind == ControlKind::CheckBox ||
         kind == ControlKind::RadioButton || kind == ControlKind::GroupBox;
}

int CButton::GetCheck() const {
  vglobal::ControlState* c = state();
  if (!c || !(c->Is(ControlKind::CheckBox) || c->Is(ControlKind::RadioButton))) return 0;
  return c->check;
}

void CButton::SetCheck(int check) {
  vglobal::ControlState* c = state();
  if (!c || !(c->Is(ControlKind::CheckBox) || c->Is(ControlKind::RadioButton))) return;
  const bool triState = c->Is(ControlKind::CheckBox) && c->HasStyle(vglobal::kTriState);
  if (check < BST_UNCHECKED || check > (triState ? BST_INDETERMINATE : BST_CHECKED)) return;
  if (c->check == check) return;
  c->check = check;
  Changed(vglobal::kAspectCheck);
}
