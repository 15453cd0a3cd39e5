// Inside an open dialog: what every control holds, the dialog's own state, and the
// few entry points through which controls, the driver and data exchange reach the
// dialog. Private to the compat units.
//
// A control's state is an object of its kind's class (src/compat/controls/<kind>.cpp),
// derived from ControlState: the kind decides what the control holds, which handle
// class stands for it, which notifications its focus sends and which of the user's
// actions it takes. Nothing outside a kind's own file asks which kind a control is.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vglobal/compat/dialog.h"

namespace vglobal {

class UserAction;

struct ControlState {
  virtual ~ControlState();

  CDialog* dialog = nullptr;
  int index = 0;  // position in the dialog's control list
  int id = 0;
  ControlKind kind = ControlKind::Static;
  UINT style = 0;
  std::wstring text;
  bool enabled = true;
  bool visible = true;
  CRect rect;  // in the dialog's client area, pixels

  // The dialog's own handle for this control, and a member attached to it
  // (DDX_Control, SubclassDlgItem, Create), which GetDlgItem prefers.
  DialogControl* own = nullptr;
  DialogControl* member = nullptr;

  bool HasStyle(UINT bit) const { return (style & bit) != 0; }
  bool CanFocus() const { return enabled && visible && TakesFocus(); }

  // ---- what a kind decides -------------------------------------------------
  virtual std::unique_ptr<DialogControl> MakeHandle() const = 0;
  // Fills the state from the template's text and style when the control is made.
  // The base takes the text as it stands.
  virtual void Init(const wchar_t* templateText);
  // Runs once every control of the dialog exists (a spin button finds its buddy).
  virtual void DialogOpened() {}
  virtual bool TakesFocus() const { return true; }
  // The notifications the focus sends {set, kill}; false when the kind sends none.
  virtual bool FocusCodes(UINT& set, UINT& kill) const;
  // The dialog moved the focus here with the keyboard or GotoDlgCtrl.
  virtual void FocusedByDialog() {}
  // Radio buttons: member of the group its kGroup marks delimit.
  virtual bool InRadioGroup() const { return false; }
  // Push buttons: Enter clicks the focused one.
  virtual bool PressedByEnter() const { return false; }
  // Multi-line edits with kWantReturn keep Enter for themselves.
  virtual bool WantsReturn() const { return false; }

  // ---- the user's actions (DialogDriver) --------------------------------------
  // Each answers false when the kind does not take the action (nothing changes,
  // the focus stays). The handlers an action runs may change anything, the
  // control's own state included: after a notification an implementation looks
  // itself up again through `act` and never touches `this`.
  virtual bool Type(UserAction& act, std::wstring typed);
  virtual bool Click(UserAction& act);
  virtual bool Select(UserAction& act, int row);
  virtual bool SelectRows(UserAction& act, const std::vector<int>& rows);
  virtual bool DoubleClick(UserAction& act, int row);
  virtual bool BeginDrag(UserAction& act, int row);
  virtual bool ClickColumn(UserAction& act, int column);
  virtual bool ClickItem(UserAction& act, int item);
  virtual bool Spin(UserAction& act, int steps);
  virtual bool Paint(UserAction& act, CDC& dc);

  static void Attach(DialogControl& handle, ControlState* state) {
    handle.state_ = state;
    handle.parent_ = state ? state->dialog : nullptr;
  }
  static ControlState* Of(const DialogControl& handle) { return handle.state_; }
};

// The state of a handle as the kind's class S; null when detached or of another
// class (a handle never reads a state it was not made for).
template <typename S>
S* StateAs(ControlState* c) {
  return dynamic_cast<S*>(c);
}

// A kind as the dialog makes it: its state, blank, and the style bits it reads
// beyond those every control reads (kGroup, kTabStop, kDisabled, kHidden).
struct ControlClass {
  std::unique_ptr<ControlState> (*make)();
  UINT styles;
};
// The class of a kind; null for a value that names no kind.
const ControlClass* FindControlClass(ControlKind kind);

// The dialog's state and its window while open.
struct DialogState {
  struct Route {
    int first, last;
    UINT code;
    // In a block of its own, which stays where it is when a running handler adds
    // routes: a notification calls it in place, without a copy.
    std::unique_ptr<const DialogHandler> handler;
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
  bool modeless = false;
  bool visible = true;
  CRect window;  // screen coordinates; the client area is all of it
  CSize baseUnits{6, 13};
  const DialogTemplate* openTemplate = nullptr;
  // Every control's template: the dialog template's, then those made at run time,
  // whose texts `createdTexts` keeps.
  std::vector<ControlTemplate> templates;
  std::vector<std::unique_ptr<std::wstring>> createdTexts;
  std::vector<std::unique_ptr<ControlState>> controls;
  std::vector<std::unique_ptr<DialogControl>> handles;
  int focus = -1;
};

// The dialog's entry points for its controls, the driver and data exchange.
struct DialogAccess {
  static DialogState& Of(CDialog& d) { return *d.impl_; }
  static const DialogState& Of(const CDialog& d) { return *d.impl_; }

  // The control with `id` (the first one in order), or null.
  static ControlState* Find(const CDialog& d, int id);
  static ControlState* At(const CDialog& d, int index);

  // Tells the observer.
  static void Changed(const ControlState& c, unsigned aspects);
  static void DialogChanged(CDialog& d, unsigned aspects);
  // Runs the handler of a notification; true when a route or a default took it.
  // `result` (optional) receives what the handler answered.
  static bool Send(CDialog& d, int id, UINT code, NMHDR* hdr = nullptr, LRESULT* result = nullptr);
  // Sends a notification from a control with a bare NMHDR.
  static void Notify(const ControlState& c, UINT code);
  // Sends a notification whose record starts with an NMHDR the dialog fills in;
  // answers what the handler answered (0 when none ran or the dialog is closed).
  static LRESULT NotifyRecord(const ControlState& c, UINT code, NMHDR& hdr);
  // Moves the focus (-1: none), sending kill- and set-focus notifications.
  static void SetFocus(CDialog& d, int index);
  // A control became disabled or hidden: it loses the focus.
  static void LostAvailability(const ControlState& c);

  // Opening fails (false, nothing made) when the template names a kind that does
  // not exist.
  static bool Open(CDialog& d);
  static void Destroy(CDialog& d);
  // Adds a control to the open dialog; its index, or -1 when the dialog is closed
  // or the kind does not exist.
  static int AddControl(CDialog& d, const ControlTemplate& ct, const wchar_t* text,
                        const CRect& rect);
  static bool OnInitDialog(CDialog& d) { return d.OnInitDialog() != FALSE; }
  static void OnClose(CDialog& d) { d.OnClose(); }
  static void OnDrawItem(CDialog& d, int id, DRAWITEMSTRUCT* dis) { d.OnDrawItem(id, dis); }
};

// One user action on control `id`: the driver hands it to the control's kind,
// which uses it to reach the control again after each step.
class UserAction {
 public:
  UserAction(CDialog& dialog, int id) : dialog_(dialog), id_(id) {}
  CDialog& dialog() const { return dialog_; }
  int id() const { return id_; }
  // The control if the user can act on it now (the dialog open and not ended, the
  // control enabled and visible), else null.
  ControlState* Usable() const;
  // Moves the focus to the control as a click or keystroke does. Answers the
  // control again, or null when the focus handlers made it unusable.
  ControlState* TakeFocus();
  // Sends a notification from the control if it is still usable.
  void Send(UINT code) const;

 private:
  CDialog& dialog_;
  int id_;
};

// The radio group of control `index`: [first, last) positions between kGroup marks.
std::pair<int, int> GroupOf(const DialogState& w, int index);

}  // namespace vglobal
