// The widgets of the control kinds: each kind's binding maker (in the kind's own
// unit). A new kind adds a line here.
#include "platform/qt/controls/control_binding.h"

namespace vglobal::qt {

namespace bindings {
using Make = std::unique_ptr<ControlBinding>(BindingHost&, int index, int id, UINT style);
Make MakeStatic, MakeFrame, MakeOwnerDrawn, MakePushButton, MakeCheckBox, MakeRadioButton,
    MakeGroupBox, MakeEdit, MakeNumericEdit, MakeListBox, MakeComboBox, MakeListCtrl, MakeToolBar,
    MakeSpinButton;
}  // namespace bindings

namespace {

struct Entry {
  ControlKind kind;
  bindings::Make* make;
};

constexpr Entry kKinds[] = {
    {ControlKind::Static, bindings::MakeStatic},
    {ControlKind::Frame, bindings::MakeFrame},
    {ControlKind::OwnerDrawn, bindings::MakeOwnerDrawn},
    {ControlKind::PushButton, bindings::MakePushButton},
    {ControlKind::CheckBox, bindings::MakeCheckBox},
    {ControlKind::RadioButton, bindings::MakeRadioButton},
    {ControlKind::GroupBox, bindings::MakeGroupBox},
    {ControlKind::Edit, bindings::MakeEdit},
    {ControlKind::NumericEdit, bindings::MakeNumericEdit},
    {ControlKind::ListBox, bindings::MakeListBox},
    {ControlKind::ComboBox, bindings::MakeComboBox},
    {ControlKind::ListCtrl, bindings::MakeListCtrl},
    {ControlKind::ToolBar, bindings::MakeToolBar},
    {ControlKind::SpinButton, bindings::MakeSpinButton},
};

}  // namespace

std::unique_ptr<ControlBinding> MakeBinding(ControlKind kind, BindingHost& host, int index, int id,
                                            UINT style) {
  for (const Entry& e : kKinds)
    if (e.kind == kind) return e.make(host, index, id, style);
  return nullptr;
}

}  // namespace vglobal::qt
