// Dialog templates: what a dialog resource says about a dialog and its controls.
//
// Contract:
// - Templates are static data (aggregates, usually constexpr) that outlive every
//   dialog made from them. They are registered in a module's resources
//   (vglobal/compat/resources.h) and found by id, or given to a dialog directly.
// - Geometry is in dialog units, as in the legacy resources: the platform turns
//   them into pixels from the dialog font (a horizontal unit is a quarter of the
//   font's average character width, a vertical unit an eighth of its height).
// - The order of the controls is the tab order and the order in which groups
//   (kGroup) are delimited.
// - A kind is an extension point: what a kind's control holds and does lives in
//   its own units (src/compat/controls/<kind>.cpp in core, src/platform/qt/controls/
//   <kind>.cpp for its widget); a new kind adds an enumerator here and registers
//   itself in both registries.
#pragma once

#include <cstddef>

#include "vglobal/compat/types.h"

namespace vglobal {

enum class ControlKind : unsigned char {
  Static,       // a label
  Edit,         // a text field
  NumericEdit,  // a text field for a number with a range (vglobal::NumericEdit)
  ListBox,
  ComboBox,
  CheckBox,
  RadioButton,
  PushButton,
  GroupBox,
  ListCtrl,    // a list control in report view: columns and rows
  ToolBar,     // a row of command buttons with images (CToolBarCtrl)
  OwnerDrawn,  // painted by the program through a CDC (CStatic::DrawItem, OnDrawItem)
  Frame,       // an etched line or frame, a black or gray rectangle
  SpinButton,  // up and down arrows that step a number (CSpinButtonCtrl)
};

// Style bits of a control template. Bits that do not apply to a control's kind are
// ignored.
enum ControlStyle : UINT {
  kGroup = 1u << 0,          // starts a group (radio buttons, DDX_Radio)
  kTabStop = 1u << 1,        // reached with the Tab key
  kDisabled = 1u << 2,       // starts disabled
  kHidden = 1u << 3,         // starts hidden
  kDefault = 1u << 4,        // push button: the default button (Enter)
  kMultiline = 1u << 5,      // edit: several lines
  kWantReturn = 1u << 6,     // multiline edit: Enter makes a new line instead of pressing OK
  kReadOnly = 1u << 7,       // edit: the user cannot change the text
  kNumber = 1u << 8,         // edit: typing accepts digits only
  kPassword = 1u << 9,       // edit: characters are hidden
  kSort = 1u << 10,          // list box, combo box: AddString inserts in order
  kMultiSelect = 1u << 11,   // list box, list control: several rows may be selected
  kDropDownList = 1u << 12,  // combo box: choose from the list only (no edit field)
  kTriState = 1u << 13,      // check box: cycles unchecked, checked, indeterminate
  kCenter = 1u << 14,        // static text: centred
  kRight = 1u << 15,         // static text: right-aligned
  kNoPrefix = 1u << 16,      // static text: "&" is shown, not a mnemonic
  kUseTabStops = 1u << 17,   // list box: tabs in item texts align at tab stops
  kEtchedHorz = 1u << 18,    // frame: an etched line along the top edge (a divider)
  kEtchedFrame = 1u << 19,   // frame: an etched rectangle (the default)
  kBlackRect = 1u << 20,     // frame: a filled black rectangle
  kGrayRect = 1u << 21,      // frame: a filled gray rectangle
  kAutoBuddy = 1u << 22,     // spin button: its buddy is the control before it
  kSetBuddyInt = 1u << 23,   // spin button: its position is the buddy's text
  kAlignRight = 1u << 24,    // spin button: sits inside the buddy's right edge
};

struct ControlTemplate {
  int id;  // control id; -1 (IDC_STATIC) for controls that are never addressed
  ControlKind kind;
  const wchar_t* text;
  int x, y, cx, cy;  // dialog units
  UINT style;        // ControlStyle bits
};

struct DialogTemplate {
  UINT id;  // resource id; the resource chain finds templates by it
  const wchar_t* title;
  int cx, cy;    // client size in dialog units
  int fontSize;  // points; 0 means the platform's dialog font size
  const ControlTemplate* controls;
  std::size_t controlCount;
};

}  // namespace vglobal

constexpr int IDC_STATIC = -1;
