// What every control shares: the handle (vglobal::DialogControl) and the base of
// every kind's state, whose defaults say "this kind does not take that action".
#include "compat/dialog_state.h"

namespace vglobal {

// ---- the state every kind derives from ------------------------------------------

ControlState::~ControlState() = default;

void ControlState::Init(const wchar_t* templateText) {
  text = templateText ? templateText : L"";
}

bool ControlState::FocusCodes(UINT& /*set*/, UINT& /*kill*/) const {
  return false;
}

bool ControlState::Type(UserAction&, std::wstring) {
  return false;
}
bool ControlState::Click(UserAction&) {
  return false;
}
bool ControlState::Select(UserAction&, int) {
  return false;
}
bool ControlState::SelectRows(UserAction&, const std::vector<int>&) {
  return false;
}
bool ControlState::DoubleClick(UserAction&, int) {
  return false;
}
bool ControlState::BeginDrag(UserAction&, int) {
  return false;
}
bool ControlState::ClickColumn(UserAction&, int) {
  return false;
}
bool ControlState::ClickItem(UserAction&, int) {
  return false;
}
bool ControlState::Spin(UserAction&, int) {
  return false;
}
bool ControlState::Paint(UserAction&, CDC&) {
  return false;
}

// ---- the handle --------------------------------------------------------------------

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

BOOL DialogControl::CreateControl(ControlKind kind, const wchar_t* text, UINT style,
                                  const RECT& rect, CWnd* parent, UINT id) {
  auto* dialog = dynamic_cast<CDialog*>(parent);
  if (!dialog || !dialog->IsOpen() || state_ || !Handles(kind)) return FALSE;
  const ControlTemplate ct{static_cast<int>(id), kind, nullptr, 0, 0, 0, 0, style};
  CRect r(rect);
  r.NormalizeRect();
  const int index = DialogAccess::AddControl(*dialog, ct, text, r);
  ControlState* c = DialogAccess::At(*dialog, index);
  if (!c) return FALSE;
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

void DialogControl::Invalidate(BOOL /*erase*/) {
  Changed(kAspectPaint);
}

std::optional<CRect> DialogControl::RectInParent() const {
  if (!state_) return std::nullopt;
  return state_->rect;
}

bool DialogControl::PlaceInParent(const CRect& rect) {
  if (!state_) return false;
  if (state_->rect != rect) {
    state_->rect = rect;
    Changed(kAspectGeometry);
  }
  return true;
}

void DialogControl::Changed(unsigned aspects) const {
  if (state_) DialogAccess::Changed(*state_, aspects);
}

void DialogControl::Notify(UINT code) const {
  if (state_) DialogAccess::Notify(*state_, code);
}

}  // namespace vglobal
