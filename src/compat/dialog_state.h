// Inside an open dialog: the state of each control, the dialog's own state, and the
// few entry points through which controls, the driver and data exchange reach the
// dialog. Private to the compat units.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vglobal/compat/dialog.h"

namespace vglobal {

struct ListItem {
  std::wstring text;                   // the row's text (column 0 of a list control)
  std::vector<std::wstring> subItems;  // list controls: columns 1...
  DWORD_PTR data = 0;
  int image = -1;
  bool selected = false;
};

struct ListColumn {
  std::wstring heading;
  int format = LVCFMT_LEFT;
  int width = -1;
};

// Everything a control holds. One struct for every kind keeps the handles thin;
// fields that do not apply to a kind stay at their defaults.
struct ControlState {
  CDialog* dialog = nullptr;
  int index = 0;  // position in the template
  int id = 0;
  ControlKind kind = ControlKind::Static;
  UINT style = 0;

  std::wstring text;
  bool enabled = true;
  bool visible = true;

  // edits and the edit field of combo boxes
  int limit = CEdit::kDefaultLimit;
  bool readOnly = false;
  bool modified = false;
  int selStart = 0;
  int selEnd = 0;
  // numeric edits
  double min = -1.7976931348623157e308;
  double max = 1.7976931348623157e308;
  int decimals = -1;
  bool integer = false;
  // buttons
  int check = BST_UNCHECKED;
  // list boxes, combo boxes, list controls
  std::vector<ListItem> items;
  int curSel = -1;  // single-selection list box and combo box
  int caret = -1;   // multi-selection list box: caret row; list control: focused row
  int topIndex = 0;
  std::vector<int> tabStops;
  std::vector<ListColumn> columns;
  DWORD extendedStyle = 0;

  // The dialog's own handle for this control, and a member attached to it
  // (DDX_Control), which GetDlgItem prefers.
  DialogControl* own = nullptr;
  DialogControl* member = nullptr;

  bool Is(ControlKind k) const { return kind == k; }
  bool IsButton() const {
    return kind == ControlKind::PushButton || kind == ControlKind::CheckBox ||
           kind == ControlKind::RadioButton;
  }
  bool IsEdit() const { return kind == ControlKind::Edit || kind == ControlKind::NumericEdit; }
  bool HasStyle(UINT bit) const { return (style & bit) != 0; }
  bool CanFocus() const;
  bool InRange(int row) const { return row >= 0 && static_cast<std::size_t>(row) < items.size(); }

  static void Attach(DialogControl& handle, ControlState* state) {
    handle.state_ = state;
    handle.parent_ = state ? state->dialog : nullptr;
  }
  static ControlState* Of(const DialogControl& handle) { return handle.state_; }
};

// The dialog's state and its window while open.
struct DialogState {
  struct Route {
    int first, last;
    UINT code;
    DialogHandler handler;
  };

  const DialogTemplate* givenTemplate = nullptr;
  UINT templateId = 0;
  UINT helpId = 0;
  CString title;
  bool titleSet = false;  // set by code: replaces the template's title when it opens
  std::vector<Route> routes;
  DialogObserver* observer = nullptr;
  bool ended = false;
  INT_PTR endCode = 0;
  UINT defId = 0;  // 0: from the template

  // The window: exists while the dialog is open.
  bool open = false;
  bool closing = false;
  const DialogTemplate* openTemplate = nullptr;
  std::vector<std::unique_ptr<ControlState>> controls;
  std::vector<std::unique_ptr<DialogControl>> handles;
  int focus = -1;
};

// The dialog's entry points for its controls, the driver and data exchange.
struct DialogAccess {
  static DialogState& Of(CDialog& d) { return *d.impl_; }
  static const DialogState& Of(const CDialog& d) { return *d.impl_; }

  // The control with `id` (the first one in template order), or null.
  static ControlState* Find(const CDialog& d, int id);
  static ControlState* At(const CDialog& d, int index);

  // Tells the observer.
  static void Changed(const ControlState& c, unsigned aspects);
  // Runs the handler of a notification; true when a route or a default took it.
  static bool Send(CDialog& d, int id, UINT code, NMHDR* hdr = nullptr);
  // Sends a notification from a control with the right record for its kind.
  static void Notify(const ControlState& c, UINT code);
  static void NotifyListView(const ControlState& c, UINT code, int item, int subItem, UINT oldState,
                             UINT newState);
  // Moves the focus (-1: none), sending kill- and set-focus notifications.
  static void SetFocus(CDialog& d, int index);
  // A control became disabled or hidden: it loses the focus.
  static void LostAvailability(const ControlState& c);

  static void Open(CDialog& d);
  static void Destroy(CDialog& d);
  static bool OnInitDialog(CDialog& d) { return d.OnInitDialog() != FALSE; }
  static void OnClose(CDialog& d) { d.OnClose(); }
};

// The radio group of control `index`: [first, last) template positions between
// kGroup marks.
std::pair<int, int> GroupOf(const DialogState& w, int index);

}  // namespace vglobal
