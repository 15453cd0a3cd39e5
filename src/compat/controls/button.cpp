// The button family: push buttons, check boxes, radio buttons and group boxes, all
// behind CButton. A click takes the focus, changes the check state as the kind
// does, then sends BN_CLICKED.
#include "compat/dialog_state.h"

namespace vglobal {

// The state the CButton handle reads: a check state and the highest one the kind
// can take (-1: none, the button has no check state).
struct ButtonState : ControlState {
  int check = BST_UNCHECKED;
  std::unique_ptr<DialogControl> MakeHandle() const override { return std::make_unique<CButton>(); }
  virtual int MaxCheck() const { return -1; }
  // What a click does to the check state before BN_CLICKED.
  virtual void Toggle(UserAction&) {}
  bool Click(UserAction& act) override {
    ControlState* c = act.TakeFocus();
    if (!c) return false;
    if (auto* b = StateAs<ButtonState>(c)) b->Toggle(act);
    act.Send(BN_CLICKED);
    return true;
  }
};

namespace {

struct PushButtonState : ButtonState {
  bool PressedByEnter() const override { return true; }
};

struct CheckBoxState : ButtonState {
  int MaxCheck() const override { return HasStyle(kTriState) ? BST_INDETERMINATE : BST_CHECKED; }
  void Toggle(UserAction&) override {
    check = HasStyle(kTriState) ? (check + 1) % 3
                                : (check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED);
    DialogAccess::Changed(*this, kAspectCheck);
  }
};

struct RadioButtonState : ButtonState {
  int MaxCheck() const override { return BST_CHECKED; }
  bool InRadioGroup() const override { return true; }
  // Checked, and every other radio button of its group unchecked.
  void Toggle(UserAction& act) override {
    const DialogState& w = DialogAccess::Of(act.dialog());
    auto [first, last] = GroupOf(w, index);
    for (int i = first; i < last; ++i) {
      auto* other = StateAs<ButtonState>(w.controls[i].get());
      if (i != index && other && other->InRadioGroup() && other->check != BST_UNCHECKED) {
        other->check = BST_UNCHECKED;
        DialogAccess::Changed(*other, kAspectCheck);
      }
    }
    if (check != BST_CHECKED) {
      check = BST_CHECKED;
      DialogAccess::Changed(*this, kAspectCheck);
    }
  }
};

struct GroupBoxState : ButtonState {
  bool TakesFocus() const override { return false; }
  bool Click(UserAction&) override { return false; }
};

}  // namespace

namespace controls {
std::unique_ptr<ControlState> MakePushButton() {
  return std::make_unique<PushButtonState>();
}
std::unique_ptr<ControlState> MakeCheckBox() {
  return std::make_unique<CheckBoxState>();
}
std::unique_ptr<ControlState> MakeRadioButton() {
  return std::make_unique<RadioButtonState>();
}
std::unique_ptr<ControlState> MakeGroupBox() {
  return std::make_unique<GroupBoxState>();
}
}  // namespace controls

}  // namespace vglobal

using vglobal::ButtonState;
using vglobal::ControlKind;
using vglobal::StateAs;

bool CButton::Handles(ControlKind kind) const {
  return kind == ControlKind::PushButton || kind == ControlKind::CheckBox ||
         kind == ControlKind::RadioButton || kind == ControlKind::GroupBox;
}

BOOL CButton::Create(const wchar_t* caption, UINT style, const RECT& rect, CWnd* parent, UINT id,
                     ControlKind kind) {
  return CreateControl(kind, caption, style, rect, parent, id);
}

int CButton::GetCheck() const {
  ButtonState* c = StateAs<ButtonState>(state());
  return c && c->MaxCheck() >= 0 ? c->check : 0;
}

void CButton::SetCheck(int check) {
  ButtonState* c = StateAs<ButtonState>(state());
  if (!c || check < BST_UNCHECKED || check > c->MaxCheck() || c->check == check) return;
  c->check = check;
  Changed(vglobal::kAspectCheck);
}
