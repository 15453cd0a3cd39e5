// The control kinds the dialogs know: each kind's state maker (in the kind's own
// unit) and the style bits it reads. A new kind adds a line here.
#include <iterator>

#include "compat/dialog_state.h"

namespace vglobal {

namespace controls {
std::unique_ptr<ControlState> MakeStatic();
std::unique_ptr<ControlState> MakeFrame();
std::unique_ptr<ControlState> MakeOwnerDrawn();
std::unique_ptr<ControlState> MakePushButton();
std::unique_ptr<ControlState> MakeCheckBox();
std::unique_ptr<ControlState> MakeRadioButton();
std::unique_ptr<ControlState> MakeGroupBox();
std::unique_ptr<ControlState> MakeEdit();
std::unique_ptr<ControlState> MakeNumericEdit();
std::unique_ptr<ControlState> MakeListBox();
std::unique_ptr<ControlState> MakeComboBox();
std::unique_ptr<ControlState> MakeListCtrl();
std::unique_ptr<ControlState> MakeToolBar();
std::unique_ptr<ControlState> MakeSpinButton();
}  // namespace controls

namespace {

constexpr UINT kEditStyles = kMultiline | kWantReturn | kReadOnly | kNumber | kPassword;

struct Entry {
  ControlKind kind;
  ControlClass cls;
};

constexpr Entry kKinds[] = {
    {ControlKind::Static, {controls::MakeStatic, kCenter | kRight | kNoPrefix}},
    {ControlKind::Frame,
     {controls::MakeFrame, kEtchedHorz | kEtchedFrame | kBlackRect | kGrayRect}},
    {ControlKind::OwnerDrawn, {controls::MakeOwnerDrawn, 0}},
    {ControlKind::PushButton, {controls::MakePushButton, kDefault}},
    {ControlKind::CheckBox, {controls::MakeCheckBox, kTriState}},
    {ControlKind::RadioButton, {controls::MakeRadioButton, 0}},
    {ControlKind::GroupBox, {controls::MakeGroupBox, 0}},
    {ControlKind::Edit, {controls::MakeEdit, kEditStyles}},
    {ControlKind::NumericEdit, {controls::MakeNumericEdit, kEditStyles}},
    {ControlKind::ListBox, {controls::MakeListBox, kSort | kMultiSelect | kUseTabStops}},
    {ControlKind::ComboBox, {controls::MakeComboBox, kSort | kDropDownList}},
    {ControlKind::ListCtrl, {controls::MakeListCtrl, kMultiSelect}},
    {ControlKind::ToolBar, {controls::MakeToolBar, 0}},
    {ControlKind::SpinButton, {controls::MakeSpinButton, kAutoBuddy | kSetBuddyInt | kAlignRight}},
};

}  // namespace

const ControlClass* FindControlClass(ControlKind kind) {
  for (const Entry& e : kKinds)
    if (e.kind == kind) return &e.cls;
  return nullptr;
}

}  // namespace vglobal
