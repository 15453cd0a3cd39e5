// Dialogs as models: CDialog, data exchange (DDX_/DDV_), and the two ends the
// platform uses to show one: vglobal::DialogObserver (model -> view) and
// vglobal::DialogDriver (user -> model).
//
// Map of this header:
//   1. CDialog             - the dialog base: template, controls by id, handlers
//   2. CDataExchange, DDX_ and DDV_ functions
//   3. vglobal::DialogObserver - what a view of the dialog is told
//   4. vglobal::DialogDriver   - acting on a dialog as its user does
//
// A dialog is written as on Windows: a class derived from CDialog with data members,
// a DoDataExchange, an OnInitDialog and handlers, registered in the constructor:
//
//   class CMyDlg : public CDialog {
//    public:
//     explicit CMyDlg(CWnd* parent) : CDialog(IDD_MY, parent) {
//       On(IDC_ADD, BN_CLICKED, &CMyDlg::OnAdd);
//       On(IDC_LIST, LBN_SELCHANGE, &CMyDlg::OnSelchangeList);
//     }
//     CString m_name;
//    protected:
//     void DoDataExchange(CDataExchange* dx) override { DDX_Text(dx, IDC_NAME, m_name); }
//     void OnAdd();
//     void OnSelchangeList();
//   };
//
// The dialog's controls exist while it is open, that is between the platform (or a
// test) opening it and its end; they are made from the template then, and are gone
// after DoModal returns, while the data members keep what was exchanged. Controls
// can also be added while it is open (CListBox::Create ...).
//
// A modeless dialog (Create) stays open until its window is destroyed
// (DestroyWindow, or the window's close command through the default OnClose).
// Its EndDialog, OnOK and OnCancel do not end a loop, since there is none:
//   - EndDialog records the code and hides the window; the window stays, so the
//     owner can show it again or read its controls.
//   - OnOK and OnCancel (and so the OK and Cancel buttons and the Enter and
//     Escape keys) destroy the window after what the modal ones do, because a
//     hidden window that nobody destroys would only linger.
//
// Geometry: the dialog's client size comes from the template in dialog units,
// turned into pixels with the platform's base units for the template's font
// (vglobal::Platform::DialogBaseUnits); so do its controls' rectangles. A dialog
// opens centred on its parent, or on the screen when it has none.
//
// Contract: user-interface thread only. Unknown control ids and out-of-range
// indices answer null, FALSE, 0 or the control's error value and change nothing.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

#include "vglobal/compat/controls.h"
#include "vglobal/compat/dialog_template.h"
#include "vglobal/compat/window.h"
#include "vglobal/export.h"

namespace vglobal {
class DialogObserver;
class DialogDriver;
struct DialogAccess;
struct DialogState;
// A message-map entry's call: the sender's id, the notification record, the result.
using DialogHandler = std::function<void(UINT id, NMHDR* hdr, LRESULT* result)>;
}  // namespace vglobal
class CDataExchange;

// ---- 1. CDialog ------------------------------------------------------------------

class VGLOBAL_EXPORT CDialog : public CWnd {
 public:
  CDialog();
  // A dialog on the template `templateId`, looked up in the resource chain when the
  // dialog opens. The help id defaults to the template id.
  explicit CDialog(UINT templateId, CWnd* parent = nullptr);
  // A dialog on a template given directly (static data that outlives the dialog).
  explicit CDialog(const vglobal::DialogTemplate& dialogTemplate, CWnd* parent = nullptr);
  ~CDialog() override;

  // Runs the dialog modally through the platform in force (vglobal::GetPlatform)
  // and returns its end code: IDOK, IDCANCEL, what was passed to EndDialog, or -1
  // when the dialog could not be shown (no template, already open).
  virtual INT_PTR DoModal();
  // Ends the modal dialog with `result` (the dialog closes when control returns to
  // the platform). Ending a dialog that is not open only records the code; a
  // modeless dialog records it and hides (see above).
  void EndDialog(int result);

  // Creates the dialog as a modeless window through the platform in force
  // (vglobal::Platform::CreateModeless), on the template `templateId` (0: the one
  // the dialog was made with) or the template given. The window shows at once.
  // FALSE when it cannot be opened (no template, open already).
  virtual BOOL Create(UINT templateId = 0, CWnd* parent = nullptr);
  BOOL Create(const vglobal::DialogTemplate& dialogTemplate, CWnd* parent = nullptr);
  // Destroys a modeless dialog's window (OnDestroy runs, the controls go). FALSE
  // for a dialog that is not an open modeless one: a modal dialog ends with
  // EndDialog.
  BOOL DestroyWindow();
  BOOL IsModeless() const;
  // Shows or hides the open dialog's window (a hidden dialog takes no input).
  BOOL ShowWindow(int cmdShow) override;
  BOOL IsWindowVisible() const override;
  // Turns a rectangle in this dialog's units into pixels (the template's font);
  // without a template, with the platform's default font.
  void MapDialogRect(LPRECT rect) const;

  // The template: the one given, else the one the resource chain has for the id
  // (null when there is none).
  const vglobal::DialogTemplate* GetTemplate() const;
  UINT GetTemplateID() const;
  void SetHelpID(UINT helpId);
  UINT GetHelpID() const;
  // Whether the dialog is open (its controls exist), and whether it has ended.
  BOOL IsOpen() const;
  BOOL IsEnded() const;
  INT_PTR GetEndCode() const;

  // Data exchange between data members and controls. save = FALSE shows the data
  // members; save = TRUE reads and validates the controls. Returns FALSE when a
  // value is refused (the user has been told and the focus is on the control) or
  // when the dialog is not open.
  BOOL UpdateData(BOOL saveAndValidate = TRUE);

  // Controls by id. GetDlgItem answers null for an id the dialog does not have;
  // GetDlgItemAs also when the control is not of class T.
  CWnd* GetDlgItem(int id) const;
  template <typename T>
  T* GetDlgItemAs(int id) const {
    return dynamic_cast<T*>(GetDlgItem(id));
  }
  void SetDlgItemText(int id, const wchar_t* text);
  // Returns the text's length (0 and an empty text for an unknown id).
  int GetDlgItemText(int id, CString& text) const;
  void SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE);
  // Reads a whole number (spaces around it allowed). *translated (optional) tells
  // whether the text was one; if not, or if it is out of range, answers 0.
  UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const;
  void CheckDlgButton(int id, UINT check);
  UINT IsDlgButtonChecked(int id) const;
  // Checks `check` and unchecks the other buttons whose ids lie in [first, last].
  void CheckRadioButton(int first, int last, int check);
  // The first id in [first, last] whose button is checked, 0 when none.
  int GetCheckedRadioButton(int first, int last) const;
  // Safe forms of GetDlgItem(id)->EnableWindow / ShowWindow: FALSE for an unknown id,
  // otherwise what the control answers.
  BOOL EnableDlgItem(int id, BOOL enable = TRUE);
  BOOL ShowDlgItem(int id, int cmdShow);
  // The control with the keyboard focus, or null.
  CWnd* GetFocus() const;
  // Moves the focus to a control of this dialog (an edit gets all its text selected).
  void GotoDlgCtrl(CWnd* control);
  // The default button: the one Enter presses when the focus is not on a button.
  void SetDefID(UINT id);
  DWORD GetDefID() const;

  // The title.
  void SetWindowText(const wchar_t* text) override;
  void GetWindowText(CString& text) const override;
  using CWnd::GetWindowText;

  // For platforms and views: the controls in template order, then those made while
  // open. A control's template (null out of range) is valid until the next control is
  // made or the dialog closes; one made while open has no place in dialog units (its
  // x, y, cx and cy are 0): its rectangle is the window's (CWnd::GetWindowRect).
  int GetControlCount() const;
  CWnd* GetControlAt(int index) const;  // the dialog's own handle, null out of range
  const vglobal::ControlTemplate* GetControlTemplateAt(int index) const;
  // The observer is told of every change while the dialog is open (not owned; null
  // removes it).
  void SetObserver(vglobal::DialogObserver* observer);

 protected:
  // Runs when the dialog opens, after its controls exist. The base shows the data
  // members (UpdateData(FALSE)) and answers TRUE: the platform then gives the focus
  // to the first control. Answer FALSE after moving the focus yourself.
  virtual BOOL OnInitDialog();
  // IDOK: the base takes the data (UpdateData(TRUE)) and ends with IDOK if it is valid.
  virtual void OnOK();
  // IDCANCEL: the base ends with IDCANCEL.
  virtual void OnCancel();
  // IDHELP and the F1 key: the base asks the help handler
  // (vglobal::SetDialogHelpHandler) for the help id, if it is not 0.
  virtual void OnHelp();
  // The window's close command: the base acts as the Cancel button does (nothing
  // when the dialog has a Cancel button that is disabled). WM_CLOSE comes here too.
  void OnClose() override;
  // Runs as the dialog's window goes away (the controls still exist).
  virtual void OnDestroy();
  // Paints an owner-drawn control (ControlKind::OwnerDrawn). The base hands the
  // painting to the control's handle: CStatic::DrawItem of the member attached to
  // it (a class derived from CStatic overrides it).
  virtual void OnDrawItem(int id, LPDRAWITEMSTRUCT drawItem);
  // WM_COMMAND sent or posted to an open dialog reaches its notification routes
  // first, as if the control `LOWORD(wParam)` had sent code `HIWORD(wParam)` (so a
  // command IDOK presses OK); what no route takes goes on to the command map.
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  std::optional<CRect> RectInParent() const override;
  bool PlaceInParent(const CRect& rect) override;
  const CWnd* PlacedIn() const override { return nullptr; }
  virtual void DoDataExchange(CDataExchange* dx);

  // The message map: routes a notification `code` from control `id` to a member
  // function of the dialog class D. Routes are tried in the order they were added;
  // the first match runs. IDOK, IDCANCEL and IDHELP clicks that no route takes go to
  // OnOK, OnCancel and OnHelp.
  template <typename D>
  void On(int id, UINT code, void (D::*handler)()) {
    static_assert(std::is_base_of_v<CDialog, D>, "handlers belong to the dialog class");
    AddRoute(id, id, code,
             [this, handler](UINT, NMHDR*, LRESULT*) { (static_cast<D*>(this)->*handler)(); });
  }
  // A handler that reads the notification record (list-control notifications).
  template <typename D>
  void On(int id, UINT code, void (D::*handler)(NMHDR*, LRESULT*)) {
    static_assert(std::is_base_of_v<CDialog, D>, "handlers belong to the dialog class");
    AddRoute(id, id, code, [this, handler](UINT, NMHDR* hdr, LRESULT* result) {
      (static_cast<D*>(this)->*handler)(hdr, result);
    });
  }
  // One handler for the controls first..last, given the id of the one that sent.
  template <typename D>
  void OnRange(int first, int last, UINT code, void (D::*handler)(UINT)) {
    static_assert(std::is_base_of_v<CDialog, D>, "handlers belong to the dialog class");
    AddRoute(first, last, code,
             [this, handler](UINT id, NMHDR*, LRESULT*) { (static_cast<D*>(this)->*handler)(id); });
  }

  CWnd* m_pParentWnd = nullptr;

 private:
  friend struct vglobal::DialogAccess;
  friend class vglobal::DialogDriver;
  void AddRoute(int first, int last, UINT code, vglobal::DialogHandler handler);
  std::unique_ptr<vglobal::DialogState> impl_;
};

namespace vglobal {
// Where CDialog::OnHelp sends a help request: the library frame installs the help
// launcher here. Null (the default) makes help requests do nothing.
using DialogHelpHandler = void (*)(CDialog& dialog, UINT helpId);
VGLOBAL_EXPORT void SetDialogHelpHandler(DialogHelpHandler handler);
}  // namespace vglobal

// ---- 2. data exchange ------------------------------------------------------------

// One pass of UpdateData. The DDX_ functions move a value between a data member
// and a control; the DDV_ functions that follow a DDX_ check the value just read.
// A refused value is reported to the user in a message box (vglobal::Platform), the
// focus goes back to the control, and the pass ends (UpdateData answers FALSE); data
// members exchanged before keep their new values, the others are left alone.
// A DDX_ for a control id the dialog does not have leaves the member unchanged.
class VGLOBAL_EXPORT CDataExchange {
 public:
  CDataExchange(CDialog* dialog, BOOL saveAndValidate);

  BOOL m_bSaveAndValidate;
  CDialog* m_pDlgWnd;
  int m_idLastControl = 0;
  BOOL m_bEditLastControl = FALSE;

  // Remembers the control for DDV_ and Fail and returns it (null for an unknown id).
  CWnd* PrepareCtrl(int id);
  CWnd* PrepareEditCtrl(int id);
  // Ends the pass as refused: focus to the last control, UpdateData answers FALSE.
  [[noreturn]] void Fail();
};

VGLOBAL_EXPORT void DDX_Text(CDataExchange* dx, int id, CString& value);
VGLOBAL_EXPORT void DDX_Text(CDataExchange* dx, int id, int& value);
VGLOBAL_EXPORT void DDX_Text(CDataExchange* dx, int id, UINT& value);
// Shown with 15 significant digits, or with the field's decimal places for a
// vglobal::NumericEdit that has them.
VGLOBAL_EXPORT void DDX_Text(CDataExchange* dx, int id, double& value);
VGLOBAL_EXPORT void DDX_Check(CDataExchange* dx, int id, int& value);
// value: the index of the checked radio button in the group that begins at `id`
// (up to the next control with kGroup), -1 when none is checked.
VGLOBAL_EXPORT void DDX_Radio(CDataExchange* dx, int id, int& value);
VGLOBAL_EXPORT void DDX_LBIndex(CDataExchange* dx, int id, int& index);
VGLOBAL_EXPORT void DDX_CBIndex(CDataExchange* dx, int id, int& index);
VGLOBAL_EXPORT void DDX_LBString(CDataExchange* dx, int id, CString& value);
VGLOBAL_EXPORT void DDX_CBString(CDataExchange* dx, int id, CString& value);
// Attaches a control member of the dialog class to its control (once).
VGLOBAL_EXPORT void DDX_Control(CDataExchange* dx, int id, CWnd& control);

// When showing, DDV_MaxChars also limits the last edit to maxChars.
VGLOBAL_EXPORT void DDV_MaxChars(CDataExchange* dx, const CString& value, int maxChars);
VGLOBAL_EXPORT void DDV_MinMaxInt(CDataExchange* dx, int value, int min, int max);
VGLOBAL_EXPORT void DDV_MinMaxUInt(CDataExchange* dx, UINT value, UINT min, UINT max);
VGLOBAL_EXPORT void DDV_MinMaxDouble(CDataExchange* dx, const double& value, double min,
                                     double max);

namespace vglobal {

// ---- 3. the observer --------------------------------------------------------------

// A view of an open dialog (the Qt layer's binder) is told what changes in the
// model, whoever changed it. Indices are positions in the template
// (CDialog::GetControlAt).
class VGLOBAL_EXPORT DialogObserver {
 public:
  virtual ~DialogObserver();
  // The controls exist (OnInitDialog has not run yet).
  virtual void Opened() = 0;
  virtual void ControlChanged(int index, unsigned aspects) = 0;  // ControlAspect bits
  virtual void FocusChanged(int index) = 0;                      // -1: none
  virtual void TitleChanged() = 0;
  virtual void Ended(INT_PTR code) = 0;
  // The controls are about to go; the observer is removed afterwards.
  virtual void Closing() = 0;
  // A control was added while the dialog is open (its index is the last one).
  virtual void ControlAdded(int index);
  // The dialog's own window changed: kAspectState (shown or hidden) or
  // kAspectGeometry (moved or resized).
  virtual void DialogChanged(unsigned aspects);
};

// ---- 4. the driver ---------------------------------------------------------------

// Acts on a dialog as its user and the windowing system do. Tests use it to run a
// dialog without a display; the Qt layer turns every user action on a widget into
// one of these calls, so the model and what the user sees stay in step.
//
// User actions answer false and change nothing when the dialog is not open or has
// ended, when there is no such control, when it is disabled or hidden, or when it
// does not take that action (typing into a button, clicking a list ...). Each moves
// the focus to the control first, as the user's click or typing does (so the
// control that had it gets its kill-focus notification first).
class VGLOBAL_EXPORT DialogDriver {
 public:
  explicit DialogDriver(CDialog& dialog) : dialog_(dialog) {}

  // Opens the dialog: makes its controls from its template and runs OnInitDialog.
  // False when it is open already or has no template.
  bool Open();
  // Closes it: runs OnDestroy, detaches every control handle and forgets the
  // controls. Nothing happens when it is not open. The platform calls it once the
  // dialog has ended; a handler of the dialog must not (its control is freed under
  // it): it calls EndDialog.
  void Destroy();

  // Replaces the text of an edit (or a combo box's edit field) with what the user
  // typed: digits only for kNumber edits, cut at the limit (EN_MAXTEXT), refused for
  // read-only fields and for a NumericEdit that does not accept it. Sends EN_UPDATE
  // and EN_CHANGE (CBN_EDITUPDATE and CBN_EDITCHANGE) when the text changed.
  bool Type(int id, const wchar_t* text);
  // Clicks a push button, check box or radio button: a check box changes its state,
  // a radio button is checked and the others of its group unchecked; then BN_CLICKED.
  bool Click(int id);
  // Selects a row of a list box, combo box or list control (only that row); sends
  // LBN_SELCHANGE, CBN_SELCHANGE and CBN_SELENDOK, or LVN_ITEMCHANGED per row that
  // changed and NM_CLICK, when the selection changed.
  bool Select(int id, int index);
  // Selects exactly these rows of a multi-selection list box or list control.
  bool SelectRows(int id, const std::vector<int>& rows);
  // Selects the row and double-clicks it (LBN_DBLCLK, NM_DBLCLK).
  bool DoubleClick(int id, int index);
  // List controls: starts dragging a row (LVN_BEGINDRAG), clicks a heading
  // (LVN_COLUMNCLICK).
  bool BeginDrag(int id, int index);
  bool ClickColumn(int id, int column);
  // Gives the focus to a control.
  bool Focus(int id);
  // Clicks item `item` of a control made of items: a toolbar button sends its
  // command as BN_CLICKED from the command's id (a check button changes its state
  // first). False for a disabled or hidden button and for separators.
  bool ClickItem(int id, int item);
  // Clicks a spin button's arrows `steps` times up (negative: down). The dialog
  // sees UDN_DELTAPOS first (a non-zero answer refuses the change); the position
  // stays within the range, and with kSetBuddyInt the buddy shows it.
  bool Spin(int id, int steps);
  // The windowing system asks an owner-drawn control to paint itself into `dc`
  // (the control's client area at the origin). False for other kinds.
  bool Paint(int id, CDC& dc);
  // The user moved or resized the dialog's window to `rect` (screen coordinates).
  bool MoveWindow(const RECT& rect);

  // Keys and the window's close command. Enter clicks the focused push button, else
  // the default button (SetDefID, a kDefault button, else IDOK); Escape clicks
  // IDCANCEL; F1 clicks IDHELP. Each answers false when the button it would click
  // exists but is disabled or hidden. Enter in a kWantReturn edit belongs to the
  // edit and answers false.
  bool PressEnter();
  bool PressEscape();
  bool PressHelp();
  bool Close();

 private:
  CDialog& dialog_;
};

}  // namespace vglobal
