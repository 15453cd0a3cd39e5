// Spin buttons: the SpinButton kind's state (range, position, buddy) and the
// CSpinButtonCtrl handle.
//
// A spin button is a control of its own rather than a style of NumericEdit because
// the legacy dialog layouts have it so: an up-down control placed after its edit,
// taking that edit as its buddy. Any edit can then have one, and the edit keeps
// every rule of its own kind (a NumericEdit its range and decimal places).
#include <algorithm>

#include "compat/controls_number.h"
#include "compat/dialog_state.h"

namespace vglobal {
namespace {

struct SpinState : ControlState {
  int lower = 0;
  int upper = 100;
  int pos = 0;
  int buddy = -1;  // the buddy's index in the dialog

  std::unique_ptr<DialogControl> MakeHandle() const override {
    return std::make_unique<CSpinButtonCtrl>();
  }
  void Init(const wchar_t*) override {}
  bool TakesFocus() const override { return false; }

  // The buddy is the control before it; with kAlignRight the arrows take the
  // right end of the buddy's rectangle, as wide as the spin button was made.
  void DialogOpened() override {
    if (!HasStyle(kAutoBuddy) || index == 0) return;
    buddy = index - 1;
    ControlState* b = DialogAccess::At(*dialog, buddy);
    if (!b || !HasStyle(kAlignRight)) return;
    const int width = std::min(rect.Width(), b->rect.Width());
    rect = CRect(b->rect.right - width, b->rect.top, b->rect.right, b->rect.bottom);
    b->rect.right -= width;
  }

  ControlState* Buddy() const { return DialogAccess::At(*dialog, buddy); }
  int Low() const { return std::min(lower, upper); }
  int High() const { return std::max(lower, upper); }

  // The position: with kSetBuddyInt the buddy's number, else the last one set.
  int Position(bool* error) const {
    if (error) *error = false;
    ControlState* b = Buddy();
    if (!HasStyle(kSetBuddyInt) || !b) return pos;
    std::optional<long long> shown = number::ParseInteger(b->text);
    if (!shown) {
      if (error) *error = true;
      return pos;
    }
    return static_cast<int>(std::clamp<long long>(*shown, Low(), High()));
  }

  void Show(int position) {
    pos = std::clamp(position, Low(), High());
    if (!HasStyle(kSetBuddyInt) || !Buddy()) return;
    CString text;
    text.Format(L"%d", pos);
    ControlState* b = Buddy();
    (b->member ? b->member : b->own)->SetWindowText(text);
  }

  bool Spin(UserAction& act, int steps) override {
    const int before = Position(nullptr);
    const long long delta = upper >= lower ? steps : -static_cast<long long>(steps);
    const int clampedDelta =
        static_cast<int>(std::clamp<long long>(delta, -1000000000, 1000000000));
    NMUPDOWN record{{}, before, clampedDelta};
    if (DialogAccess::NotifyRecord(*this, UDN_DELTAPOS, record.hdr) != 0) return true;
    auto* c = StateAs<SpinState>(act.Usable());
    if (!c) return false;
    c->Show(static_cast<int>(
        std::clamp<long long>(static_cast<long long>(before) + clampedDelta, c->Low(), c->High())));
    return true;
  }
};

}  // namespace

namespace controls {
std::unique_ptr<ControlState> MakeSpinButton() {
  return std::make_unique<SpinState>();
}
}  // namespace controls

}  // namespace vglobal

using vglobal::ControlKind;
using vglobal::SpinState;
using vglobal::StateAs;

bool CSpinButtonCtrl::Handles(ControlKind kind) const {
  return kind == ControlKind::SpinButton;
}

BOOL CSpinButtonCtrl::Create(UINT style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateControl(ControlKind::SpinButton, L"", style, rect, parent, id);
}

CWnd* CSpinButtonCtrl::SetBuddy(CWnd* buddy) {
  SpinState* c = StateAs<SpinState>(state());
  if (!c) return nullptr;
  CWnd* previous = GetBuddy();
  auto* control = dynamic_cast<vglobal::DialogControl*>(buddy);
  vglobal::ControlState* b = control ? vglobal::ControlState::Of(*control) : nullptr;
  c->buddy = b && b->dialog == c->dialog && b != c ? b->index : -1;
  return previous;
}

CWnd* CSpinButtonCtrl::GetBuddy() const {
  SpinState* c = StateAs<SpinState>(state());
  vglobal::ControlState* b = c ? c->Buddy() : nullptr;
  if (!b) return nullptr;
  return b->member ? static_cast<CWnd*>(b->member) : b->own;
}

void CSpinButtonCtrl::SetRange32(int lower, int upper) {
  SpinState* c = StateAs<SpinState>(state());
  if (!c) return;
  c->lower = lower;
  c->upper = upper;
  c->pos = std::clamp(c->pos, c->Low(), c->High());
  Changed(vglobal::kAspectLimits);
}

void CSpinButtonCtrl::GetRange32(int& lower, int& upper) const {
  SpinState* c = StateAs<SpinState>(state());
  lower = c ? c->lower : 0;
  upper = c ? c->upper : 0;
}

int CSpinButtonCtrl::SetPos32(int position) {
  SpinState* c = StateAs<SpinState>(state());
  if (!c) return 0;
  const int previous = c->Position(nullptr);
  c->Show(position);
  Changed(vglobal::kAspectLimits);
  return previous;
}

int CSpinButtonCtrl::GetPos32(BOOL* error) const {
  SpinState* c = StateAs<SpinState>(state());
  bool failed = c == nullptr;
  const int position = c ? c->Position(&failed) : 0;
  if (error) *error = failed;
  return position;
}
