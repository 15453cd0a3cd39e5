// Dialog controls: CStatic, CButton, CEdit, vglobal::NumericEdit, CListBox,
// CComboBox, CListCtrl, CToolBarCtrl, CSpinButtonCtrl, their notification codes,
// records and return values.
//
// Map of this header:
//   1. notification codes, return values, notification records (NMHDR ...)
//   2. vglobal::DialogControl - what every control handle shares
//   3. the control handles, one class per kind
//
// Contract:
// - A control object is a handle, as on Windows: the control's state (text, items,
//   selection, check ...) lives in the open dialog (vglobal/compat/dialog.h) and a
//   handle is attached to it. The dialog attaches one handle of the right class per
//   control when it opens (CDialog::GetDlgItem); a member of a dialog class is
//   attached with DDX_Control or SubclassDlgItem, or made with Create. When the
//   dialog closes, every handle is detached.
// - Image lists given to controls (SetImageList) are not owned: the caller keeps
//   them alive while a control shows them.
// - A detached handle, an index out of range and a null text never crash: the call
//   answers the documented failure value (LB_ERR, CB_ERR, -1, FALSE, 0, empty) and
//   changes nothing.
// - Changes made by code notify as the Windows controls do (this is observable by
//   a dialog's handlers):
//     * SetWindowText on a single-line edit sends EN_UPDATE and EN_CHANGE, also
//       when the text does not change; on a multi-line edit it sends nothing.
//       ReplaceSel sends them on both.
//     * List control item state changes (SetItemState) send LVN_ITEMCHANGED.
//     * Focus changes send the kill-focus and set-focus codes.
//     * Everything else (check states, list and combo selections, items, limits,
//       enabled and visible states) sends nothing; the user's actions do
//       (vglobal::DialogDriver).
// - An edit never holds more than its limit: text set by code is cut at the limit
//   like typed text, so what the dialog reads back is what the user sees.
// - User-interface thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "vglobal/compat/dialog_template.h"
#include "vglobal/compat/window.h"

class CDialog;
class CImageList;

// ---- 1. notification codes and records ------------------------------------------

// Buttons
constexpr UINT BN_CLICKED = 0;
constexpr UINT BN_DOUBLECLICKED = 5;
// Edits
constexpr UINT EN_SETFOCUS = 0x0100;
constexpr UINT EN_KILLFOCUS = 0x0200;
constexpr UINT EN_CHANGE = 0x0300;
constexpr UINT EN_UPDATE = 0x0400;
constexpr UINT EN_MAXTEXT = 0x0501;  // typed text was cut at the limit
// List boxes
constexpr UINT LBN_SELCHANGE = 1;
constexpr UINT LBN_DBLCLK = 2;
constexpr UINT LBN_SETFOCUS = 4;
constexpr UINT LBN_KILLFOCUS = 5;
// Combo boxes
constexpr UINT CBN_SELCHANGE = 1;
constexpr UINT CBN_SETFOCUS = 3;
constexpr UINT CBN_KILLFOCUS = 4;
constexpr UINT CBN_EDITCHANGE = 5;
constexpr UINT CBN_EDITUPDATE = 6;
constexpr UINT CBN_SELENDOK = 9;
// Spin buttons (sent with an NMUPDOWN)
constexpr UINT UDN_DELTAPOS = static_cast<UINT>(-722);
// Common and list-control notifications (sent with a record, see below)
constexpr UINT NM_CLICK = static_cast<UINT>(-2);
constexpr UINT NM_DBLCLK = static_cast<UINT>(-3);
constexpr UINT NM_SETFOCUS = static_cast<UINT>(-7);
constexpr UINT NM_KILLFOCUS = static_cast<UINT>(-8);
constexpr UINT LVN_ITEMCHANGED = static_cast<UINT>(-101);
constexpr UINT LVN_COLUMNCLICK = static_cast<UINT>(-108);
constexpr UINT LVN_BEGINDRAG = static_cast<UINT>(-109);

// Return values
constexpr int LB_OKAY = 0;
constexpr int LB_ERR = -1;
constexpr int CB_OKAY = 0;
constexpr int CB_ERR = -1;
constexpr int BST_UNCHECKED = 0;
constexpr int BST_CHECKED = 1;
constexpr int BST_INDETERMINATE = 2;

// List controls
constexpr UINT LVIS_FOCUSED = 0x0001;
constexpr UINT LVIS_SELECTED = 0x0002;
constexpr int LVNI_ALL = 0x0000;
constexpr int LVNI_FOCUSED = 0x0001;
constexpr int LVNI_SELECTED = 0x0002;
constexpr int LVCFMT_LEFT = 0x0000;
constexpr int LVCFMT_RIGHT = 0x0001;
constexpr int LVCFMT_CENTER = 0x0002;
constexpr UINT LVIF_STATE = 0x0008;
constexpr int LVSCW_AUTOSIZE = -1;
constexpr int LVSCW_AUTOSIZE_USEHEADER = -2;
constexpr DWORD LVS_EX_GRIDLINES = 0x0001;
constexpr DWORD LVS_EX_FULLROWSELECT = 0x0020;
constexpr UINT LVIR_BOUNDS = 0;

// Messages the controls answer through SendMessage (Windows numbers), for callers
// written against the messages rather than the member functions.
// EM_GETMODIFY answers the modified flag; EM_SETMODIFY sets it from wParam.
constexpr UINT EM_GETMODIFY = 0x00B8;
constexpr UINT EM_SETMODIFY = 0x00B9;
// wParam: the bits to change (0: all of them); lParam: their new values. Answers
// the previous style.
constexpr UINT LVM_SETEXTENDEDLISTVIEWSTYLE = 0x1036;
constexpr UINT LVM_GETEXTENDEDLISTVIEWSTYLE = 0x1037;

// The record that comes with a notification. List-control notifications come with
// the larger records below, whose first member is the NMHDR, so that a handler casts
// as it did on Windows: LVN_* codes carry an NMLISTVIEW, NM_CLICK and NM_DBLCLK an
// NMITEMACTIVATE. Other notifications carry a bare NMHDR.
struct NMHDR {
  HWND hwndFrom;  // the control's platform window (may be null)
  UINT_PTR idFrom;
  UINT code;
};
struct NMLISTVIEW {
  NMHDR hdr;
  int iItem;     // the row, -1 for none
  int iSubItem;  // the column (LVN_COLUMNCLICK) or 0
  UINT uNewState;
  UINT uOldState;
  UINT uChanged;  // LVIF_STATE when the state changed
  POINT ptAction;
  LPARAM lParam;  // the row's item data
};
struct NMITEMACTIVATE {
  NMHDR hdr;
  int iItem;
  int iSubItem;
  UINT uNewState;
  UINT uOldState;
  UINT uChanged;
  POINT ptAction;
  LPARAM lParam;
  UINT uKeyFlags;
};
struct NMUPDOWN {
  NMHDR hdr;
  int iPos;    // the position before the change
  int iDelta;  // the change asked for
};
using LPNMHDR = NMHDR*;
using LPNMLISTVIEW = NMLISTVIEW*;
using LPNMITEMACTIVATE = NMITEMACTIVATE*;
using LPNMUPDOWN = NMUPDOWN*;

// Owner-drawn controls: what to paint and where. The drawing context is the
// library's CDC, valid during the call only.
constexpr UINT ODT_STATIC = 5;
constexpr UINT ODA_DRAWENTIRE = 0x0001;
constexpr UINT ODS_DISABLED = 0x0004;
constexpr UINT ODS_FOCUS = 0x0010;
struct DRAWITEMSTRUCT {
  UINT CtlType;  // ODT_STATIC
  UINT CtlID;
  UINT itemID;      // 0
  UINT itemAction;  // ODA_DRAWENTIRE
  UINT itemState;   // ODS_DISABLED when the control is disabled
  HWND hwndItem;
  CDC* pDC;
  RECT rcItem;  // the control's client area
  DWORD_PTR itemData;
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

// List-control image lists.
constexpr int LVSIL_NORMAL = 0;
constexpr int LVSIL_SMALL = 1;
constexpr int LVSIL_STATE = 2;

// Toolbar buttons. In memory the record is the natural struct below (32 bytes on
// this 64-bit system); where a layout is stored (a toolbar's saved state) it is
// the legacy 20-byte record, written and read field by field by whoever stores it.
constexpr BYTE TBSTATE_CHECKED = 0x01;
constexpr BYTE TBSTATE_PRESSED = 0x02;
constexpr BYTE TBSTATE_ENABLED = 0x04;
constexpr BYTE TBSTATE_HIDDEN = 0x08;
constexpr BYTE TBSTATE_INDETERMINATE = 0x10;
constexpr BYTE TBSTATE_WRAP = 0x20;  // the button ends its row
constexpr BYTE TBSTYLE_BUTTON = 0x00;
constexpr BYTE TBSTYLE_SEP = 0x01;
constexpr BYTE TBSTYLE_CHECK = 0x02;
constexpr BYTE TBSTYLE_GROUP = 0x04;
constexpr BYTE TBSTYLE_CHECKGROUP = TBSTYLE_GROUP | TBSTYLE_CHECK;
struct TBBUTTON {
  int iBitmap;    // image index; for a separator, ignored (separators are 8 pixels wide)
  int idCommand;  // command id (0 for separators)
  BYTE fsState;   // TBSTATE_ bits
  BYTE fsStyle;   // TBSTYLE_ bits
  BYTE bReserved[2];
  DWORD_PTR dwData;
  INT_PTR iString;
};
using LPTBBUTTON = TBBUTTON*;
using LPCTBBUTTON = const TBBUTTON*;

// ---- 2. what every control handle shares ---------------------------------------

namespace vglobal {

struct ControlState;
class DialogDriver;

// Bits of a change notice (vglobal::DialogObserver::ControlChanged): which part of a
// control's state changed.
enum ControlAspect : unsigned {
  kAspectText = 1u << 0,       // text (edit, static, button caption, combo edit)
  kAspectState = 1u << 1,      // enabled or visible
  kAspectItems = 1u << 2,      // list items, texts, columns
  kAspectSelection = 1u << 3,  // list selection
  kAspectCheck = 1u << 4,      // check state
  kAspectLimits = 1u << 5,     // text limit, read-only, numeric range
  kAspectScroll = 1u << 6,     // the row that should be shown
  kAspectGeometry = 1u << 7,   // the window's rectangle
  kAspectPaint = 1u << 8,      // the program asked for a repaint (Invalidate)
};

class VGLOBAL_EXPORT DialogControl : public CWnd {
 public:
  ~DialogControl() override;

  // Attaches this handle to the control `id` of an open dialog, as DDX_Control
  // does. FALSE when the dialog is not open, has no such control, the control is of
  // a kind this class does not handle, or this handle is attached already.
  BOOL SubclassDlgItem(UINT id, CWnd* parent);
  BOOL IsAttached() const { return state_ != nullptr; }
  // The control's kind; nullopt when detached.
  std::optional<ControlKind> Kind() const;
  // Whether this class can stand for a control of `kind`.
  virtual bool Handles(ControlKind kind) const = 0;

  void SetWindowText(const wchar_t* text) override;
  void GetWindowText(CString& text) const override;
  using CWnd::GetWindowText;
  BOOL EnableWindow(BOOL enable = TRUE) override;
  BOOL IsWindowEnabled() const override;
  BOOL ShowWindow(int cmdShow) override;
  BOOL IsWindowVisible() const override;
  int GetDlgCtrlID() const override;
  CWnd* SetFocus() override;
  // Asks the platform to paint the control again (owner-drawn controls repaint
  // through their DrawItem or the dialog's OnDrawItem).
  void Invalidate(BOOL erase = TRUE);

  // Adds a control of `kind` to an open dialog, at `rect` (pixels in the dialog's
  // client area), and attaches this handle to it. The dialog's observer is told,
  // so a view makes its widget. FALSE when `parent` is not an open dialog, this
  // class cannot stand for `kind`, or this handle is attached already. The
  // classes' Create functions call it with their own kind.
  BOOL CreateControl(ControlKind kind, const wchar_t* text, UINT style, const RECT& rect,
                     CWnd* parent, UINT id);

 protected:
  DialogControl() = default;
  std::optional<CRect> RectInParent() const override;
  bool PlaceInParent(const CRect& rect) override;
  ControlState* state() const { return state_; }
  // Tells the dialog's observer what changed.
  void Changed(unsigned aspects) const;
  // Sends a notification to the dialog's handlers.
  void Notify(UINT code) const;

 private:
  friend struct ControlState;
  ControlState* state_ = nullptr;
};

}  // namespace vglobal

// ---- 3. the control handles ------------------------------------------------------

// A static text, and the other controls of the static family: a frame or divider
// (ControlKind::Frame) and an owner-drawn control (ControlKind::OwnerDrawn).
class VGLOBAL_EXPORT CStatic : public vglobal::DialogControl {
 public:
  bool Handles(vglobal::ControlKind kind) const override;
  BOOL Create(const wchar_t* text, UINT style, const RECT& rect, CWnd* parent,
              UINT id = static_cast<UINT>(IDC_STATIC));
  // Paints an owner-drawn control (through CDialog::OnDrawItem). The base paints
  // nothing: a class derived from CStatic draws here.
  virtual void DrawItem(LPDRAWITEMSTRUCT drawItem);
};

// A push button, check box, radio button or group box.
class VGLOBAL_EXPORT CButton : public vglobal::DialogControl {
 public:
  bool Handles(vglobal::ControlKind kind) const override;
  // BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE; 0 for push buttons.
  int GetCheck() const;
  // Sets the check state; a state the button cannot take (indeterminate on a
  // two-state box) is refused, as is any state on a push button or group box.
  void SetCheck(int check);
  // kind: PushButton, CheckBox, RadioButton or GroupBox.
  BOOL Create(const wchar_t* caption, UINT style, const RECT& rect, CWnd* parent, UINT id,
              vglobal::ControlKind kind = vglobal::ControlKind::PushButton);
};

// A text field. Typing and ReplaceSel are cut at the text limit (default 32767
// characters); SetWindowText is too (see the header's contract).
class VGLOBAL_EXPORT CEdit : public vglobal::DialogControl {
 public:
  static constexpr int kDefaultLimit = 32767;

  bool Handles(vglobal::ControlKind kind) const override;
  void SetWindowText(const wchar_t* text) override;
  BOOL Create(UINT style, const RECT& rect, CWnd* parent, UINT id);

  // Limits what the control holds; 0 means the largest limit (0x7FFFFFFE). Text
  // already longer stays as it is until it is next set.
  void LimitText(int maxChars = 0);
  void SetLimitText(UINT maxChars) { LimitText(static_cast<int>(maxChars & 0x7FFFFFFF)); }
  UINT GetLimitText() const;
  // Selection as character positions; (0, -1) selects everything. Positions are
  // clamped to the text.
  void SetSel(int start, int end, BOOL noScroll = FALSE);
  void GetSel(int& start, int& end) const;
  // Replaces the selection with text (cut at the limit) and sends EN_UPDATE and
  // EN_CHANGE.
  void ReplaceSel(const wchar_t* text, BOOL canUndo = FALSE);
  BOOL SetReadOnly(BOOL readOnly = TRUE);
  BOOL IsReadOnly() const;
  // Whether the text was changed since the flag was last cleared: typing and
  // ReplaceSel set it, SetWindowText clears it (the program's own text is not an
  // edit), as does SetModify(FALSE).
  BOOL GetModify() const;
  void SetModify(BOOL modified = TRUE);
  BOOL IsMultiline() const;

 protected:
  // EM_GETMODIFY and EM_SETMODIFY; the rest goes on to CWnd.
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

namespace vglobal {

// A text field for a number: a range, integer or decimal, a number of decimal
// places. The text is what counts; the value is read from it. While typing, only
// text that can still become a number is accepted (digits, one decimal point unless
// integer, a leading minus sign when the range admits negative numbers, at most the
// given number of decimal places); whether the number is in range is asked with
// IsValid.
class VGLOBAL_EXPORT NumericEdit : public CEdit {
 public:
  bool Handles(ControlKind kind) const override;
  BOOL Create(UINT style, const RECT& rect, CWnd* parent, UINT id);

  // Sets range and decimal places (-1: as many as typed) and shows `value`.
  void InitDouble(double value, double min, double max, int decimals);
  // Integer field: no decimal point.
  void InitInt(int value, int min, int max);
  void SetRange(double min, double max);
  double GetMin() const;
  double GetMax() const;
  int GetDecimals() const;  // -1 for free, 0 for integers
  BOOL IsInteger() const;

  // The value shown; nullopt when the text is not a number. The text is read in
  // the classic "C" locale (decimal point ".").
  std::optional<double> Value() const;
  double GetValue() const { return Value().value_or(0.0); }
  int GetIntValue() const;  // the value rounded to the nearest int (0 if none)
  // Shows the value with the field's decimal places (sends EN_CHANGE).
  void SetValue(double value);
  // Whether the text is a number within the range (and whole for integer fields).
  BOOL IsValid() const;
  // Whether `text` is acceptable while typing (see the class comment).
  BOOL AcceptsInput(const wchar_t* text) const;
};

}  // namespace vglobal

// A list of text rows with item data; one row selected, or several with kMultiSelect.
// With kSort, AddString inserts in order (case-insensitive); InsertString never sorts.
// Rows may show an image of an image list before their text (SetImageList,
// SetItemImage), as the owner-drawn image lists of the suite did.
//
// Scrolling, the same headless and on screen: every row is GetItemHeight pixels
// high (the dialog font's height, or the images' when they are taller), inside a
// 1-pixel border; the rows that fit whole are a page. The top index is a row
// number, as on Windows: inserts and deletes leave it where it is, except that the
// list never scrolls past the point where its last row is at the bottom, and goes
// back to the top once every row fits.
class VGLOBAL_EXPORT CListBox : public vglobal::DialogControl {
 public:
  bool Handles(vglobal::ControlKind kind) const override;
  BOOL Create(UINT style, const RECT& rect, CWnd* parent, UINT id);

  int GetCount() const;
  // Return the new row's index, or LB_ERR.
  int AddString(const wchar_t* text);
  int InsertString(int index, const wchar_t* text);  // index -1 appends
  // Returns the number of rows left, or LB_ERR.
  int DeleteString(UINT index);
  void ResetContent();
  // Returns the text's length, or LB_ERR (text then empty).
  int GetText(int index, CString& text) const;
  int GetTextLen(int index) const;
  // The first row after startAfter (-1: from the top), wrapping around, whose text
  // begins with (FindString) or equals (FindStringExact) `text`, ignoring case;
  // LB_ERR when none.
  int FindString(int startAfter, const wchar_t* text) const;
  int FindStringExact(int startAfter, const wchar_t* text) const;
  // Selects the row FindString finds; returns it or LB_ERR.
  int SelectString(int startAfter, const wchar_t* text);

  // Single selection: the selected row or LB_ERR. Multi-selection: the caret row.
  int GetCurSel() const;
  // Single selection: selects the row and scrolls it into view; -1 or an index out
  // of range clears the selection and answers LB_ERR. Multi-selection lists answer
  // LB_ERR.
  int SetCurSel(int index);
  // Multi-selection. GetSel: positive when selected, 0 when not, LB_ERR out of range
  // (also usable on single-selection lists). SetSel: index -1 means every row;
  // LB_ERR on single-selection lists.
  int GetSel(int index) const;
  int SetSel(int index, BOOL select = TRUE);
  int GetSelCount() const;  // LB_ERR on single-selection lists
  // Writes at most maxItems selected rows to items; returns how many (LB_ERR on
  // single-selection lists).
  int GetSelItems(int maxItems, int* items) const;
  int GetCaretIndex() const;

  DWORD_PTR GetItemData(int index) const;  // LB_ERR out of range
  int SetItemData(int index, DWORD_PTR data);
  void* GetItemDataPtr(int index) const;  // null out of range
  int SetItemDataPtr(int index, void* data);

  // The first row shown. SetTopIndex scrolls as far towards `index` as the list
  // can (see the class comment); LB_ERR for a row it does not have.
  int GetTopIndex() const;
  int SetTopIndex(int index);
  // The height of every row in pixels (index is ignored, the rows are alike); LB_ERR
  // when detached. SetItemHeight takes 1..255, else answers LB_ERR.
  int GetItemHeight(int index) const;
  int SetItemHeight(int index, UINT height);
  // Tab stops in dialog units, for kUseTabStops lists: none (count 0) puts a stop
  // every 32 units, one stop every that many units, more stops where they say and
  // then every 32 units past the last. FALSE for a negative count or a null array.
  BOOL SetTabStops(int count, const int* stops);
  std::vector<int> GetTabStops() const;
  // Where text after a tab starts, in pixels from the start of the row's text: the
  // first stop right of x, the stops turned into pixels with the dialog's base
  // units (four units are the font's average character). -1 for a list without
  // kUseTabStops, which shows a tab as it comes.
  int NextTabStop(int x) const;

  // The image list the rows' images come from (null: none); returns the previous.
  CImageList* SetImageList(CImageList* images);
  CImageList* GetImageList() const;
  // A row's image index (-1: none; an index the list does not have shows none).
  // SetItemImage answers LB_OKAY or LB_ERR; GetItemImage -1 out of range.
  int SetItemImage(int index, int image);
  int GetItemImage(int index) const;
};

// An edit field with a drop-down list; with kDropDownList the list only, whose
// selected row is the text. Selecting a row shows its text in the edit field.
class VGLOBAL_EXPORT CComboBox : public vglobal::DialogControl {
 public:
  bool Handles(vglobal::ControlKind kind) const override;
  BOOL Create(UINT style, const RECT& rect, CWnd* parent, UINT id);
  // Drop-down: sets the edit text (cut at the limit), selection unchanged.
  // Drop-down list: selects the row whose text equals `text` (ignoring case) and
  // leaves the selection alone when there is none.
  void SetWindowText(const wchar_t* text) override;

  int GetCount() const;
  int AddString(const wchar_t* text);
  int InsertString(int index, const wchar_t* text);
  int DeleteString(UINT index);
  void ResetContent();  // also empties the edit text
  int GetLBText(int index, CString& text) const;
  int GetLBTextLen(int index) const;
  int FindString(int startAfter, const wchar_t* text) const;
  int FindStringExact(int startAfter, const wchar_t* text) const;
  int SelectString(int startAfter, const wchar_t* text);
  int GetCurSel() const;  // CB_ERR when none
  // Selects a row and shows its text; -1 or out of range clears the selection and
  // the edit text and answers CB_ERR.
  int SetCurSel(int index);
  DWORD_PTR GetItemData(int index) const;  // CB_ERR out of range
  int SetItemData(int index, DWORD_PTR data);
  void* GetItemDataPtr(int index) const;
  int SetItemDataPtr(int index, void* data);
  // Limit of the edit field (0: the largest).
  BOOL LimitText(int maxChars);
  BOOL IsDropDownList() const;
};

// A list control in report view: columns with headings, rows with a text per
// column, item data and a selected/focused state.
//
// Geometry, the same headless and on screen: inside a 1-pixel border, a heading
// row 8 pixels taller than the dialog font, then rows 2 pixels taller than the
// font or the small images, whichever are taller. The rows that fit whole are a
// page (GetCountPerPage); the top index scrolls as a list box's does.
class VGLOBAL_EXPORT CListCtrl : public vglobal::DialogControl {
 public:
  bool Handles(vglobal::ControlKind kind) const override;
  BOOL Create(UINT style, const RECT& rect, CWnd* parent, UINT id);

  // The image list of the rows' images: LVSIL_SMALL is what report view shows;
  // LVSIL_NORMAL and LVSIL_STATE are kept for callers. Returns the previous list
  // (null also for an unknown `which`, which changes nothing).
  CImageList* SetImageList(CImageList* images, int which);
  CImageList* GetImageList(int which) const;

  // Columns. InsertColumn returns the new column's index or -1; a width of -1
  // means "fit the heading" to the platform.
  int InsertColumn(int column, const wchar_t* heading, int format = LVCFMT_LEFT, int width = -1,
                   int subItem = -1);
  BOOL DeleteColumn(int column);
  int GetColumnCount() const;
  CString GetColumnHeading(int column) const;
  int GetColumnFormat(int column) const;  // -1 out of range
  // Width in pixels; 0 out of range. A column inserted with width -1 fits its
  // heading.
  int GetColumnWidth(int column) const;
  // Sets the width in pixels, or fits the column to its texts as they are now
  // (measured by the platform, vglobal::Platform::MeasureText, with a 6-pixel margin
  // each side, and the small image before column 0's texts): LVSCW_AUTOSIZE to the
  // widest row, LVSCW_AUTOSIZE_USEHEADER to the widest row or the heading, and the
  // last column to the rest of the control's width (beside the vertical scroll bar
  // when the rows need one) if that is more. FALSE for a
  // column out of range or another negative width.
  BOOL SetColumnWidth(int column, int width);

  // Rows. InsertItem past the end appends; returns the row's index or -1.
  int GetItemCount() const;
  int InsertItem(int item, const wchar_t* text);
  int InsertItem(int item, const wchar_t* text, int image);
  BOOL DeleteItem(int item);
  BOOL DeleteAllItems();
  BOOL SetItemText(int item, int subItem, const wchar_t* text);
  CString GetItemText(int item, int subItem) const;
  BOOL SetItemData(int item, DWORD_PTR data);
  DWORD_PTR GetItemData(int item) const;  // 0 out of range
  int GetItemImage(int item) const;       // -1 out of range

  // States (LVIS_SELECTED, LVIS_FOCUSED). SetItemState with item -1 applies to
  // every row. Selecting a row of a single-selection list deselects the others;
  // only one row has the focus. Each row whose state changes sends LVN_ITEMCHANGED.
  BOOL SetItemState(int item, UINT state, UINT mask);
  UINT GetItemState(int item, UINT mask) const;
  // The next row after start (-1: from the top) with the flags (LVNI_SELECTED,
  // LVNI_FOCUSED; LVNI_ALL: any); -1 when none.
  int GetNextItem(int start, int flags) const;
  UINT GetSelectedCount() const;
  // Scrolls as little as it takes for the row to show whole: a row above the page
  // comes to the top, one below it to the bottom (partialOk changes nothing, since a
  // row is never left half shown). FALSE for a row out of range.
  BOOL EnsureVisible(int item, BOOL partialOk);
  int GetTopIndex() const;
  // The rows that fit whole between the headings and the bottom edge (at least 1).
  int GetCountPerPage() const;
  // The row's rectangle in the control's client coordinates (LVIR_BOUNDS: the
  // whole row, as wide as the columns); rows above the top index lie above the
  // client area. FALSE for a row out of range or another code.
  BOOL GetItemRect(int item, LPRECT rect, UINT code) const;

  // LVS_EX_ bits: LVS_EX_FULLROWSELECT shows a selected row highlighted across all
  // columns (else only its first column), LVS_EX_GRIDLINES draws lines between rows
  // and columns. SetExtendedStyle replaces them all; the message
  // LVM_SETEXTENDEDLISTVIEWSTYLE changes only the bits of its mask. Both answer the
  // previous style.
  DWORD SetExtendedStyle(DWORD style);
  DWORD GetExtendedStyle() const;

 protected:
  // LVM_SETEXTENDEDLISTVIEWSTYLE and LVM_GETEXTENDEDLISTVIEWSTYLE; the rest goes on
  // to CWnd.
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

// A toolbar inside a dialog: a row of buttons with images, each sending its
// command id when clicked (BN_CLICKED from the command, vglobal::DialogDriver::
// ClickItem), and separators.
//
// Layout, the same headless and on screen: buttons of the button size (default
// 24 x 22) laid left to right from the control's top-left corner, separators 8
// pixels wide; a row ends after a button with TBSTATE_WRAP, or when the next
// button would pass the control's right edge; every row is a button high. Hidden
// buttons take no room. Item rectangles are in the control's client coordinates.
// Button indexes out of range and unknown command ids answer FALSE, -1 or 0.
class VGLOBAL_EXPORT CToolBarCtrl : public vglobal::DialogControl {
 public:
  static constexpr int kSeparatorWidth = 8;

  bool Handles(vglobal::ControlKind kind) const override;
  BOOL Create(UINT style, const RECT& rect, CWnd* parent, UINT id);

  BOOL AddButtons(int count, LPCTBBUTTON buttons);
  // Inserts before `index` (the count appends).
  BOOL InsertButton(int index, LPCTBBUTTON button);
  BOOL DeleteButton(int index);
  BOOL GetButton(int index, LPTBBUTTON button) const;
  int GetButtonCount() const;
  // The index of the button with the command id, or -1.
  int CommandToIndex(UINT command) const;
  // By command id.
  BOOL EnableButton(int command, BOOL enable = TRUE);
  BOOL IsButtonEnabled(int command) const;
  BOOL CheckButton(int command, BOOL check = TRUE);
  BOOL IsButtonChecked(int command) const;
  BOOL HideButton(int command, BOOL hide = TRUE);

  // Sizes of a button and of its image (default 16 x 15). FALSE for a size that is
  // not positive or larger than 1024.
  BOOL SetButtonSize(CSize size);
  BOOL SetBitmapSize(CSize size);
  // Width in the low word, height in the high word.
  DWORD GetButtonSize() const;
  CSize GetBitmapSize() const;

  // The images of the buttons (iBitmap indexes into it); returns the previous.
  CImageList* SetImageList(CImageList* images);
  CImageList* GetImageList() const;
  // Adds the images of bitmap strip `bitmapId` (numButtons images of the bitmap
  // size) to the toolbar's image list, made by the toolbar (of the bitmap size)
  // when it has none. The index of the first image added, or -1 (no such bitmap,
  // a strip that does not hold numButtons images of that size).
  int AddBitmap(int numButtons, UINT bitmapId);

  // A button's rectangle; FALSE for a hidden button or an index out of range.
  BOOL GetItemRect(int index, LPRECT rect) const;
  // The index of the button (not a separator) under the point, in client
  // coordinates; -1 for any other point.
  int HitTest(LPPOINT point) const;
  // Spreads the buttons over `rows` rows (as evenly as the buttons allow) by
  // setting TBSTATE_WRAP; `rect` (optional) receives the bounds of the laid out
  // buttons. `larger` is accepted and ignored.
  void SetRows(int rows, BOOL larger, LPRECT rect);
  int GetRows() const;

  // The tooltip of a button: what the tip source answers for its command, else the
  // text after the first line feed of the command's resource string ("status
  // text\ntip", as the suite's string tables have them); empty for separators.
  using TipSource = std::function<CString(UINT command)>;
  void SetTipSource(TipSource source);
  CString GetButtonTip(int index) const;
};

// Up and down arrows that step a position within a range. With kAutoBuddy its buddy
// is the control before it in the dialog; with kSetBuddyInt the buddy shows the
// position and the position is read back from the buddy's text; with kAlignRight
// the arrows move inside the buddy's right edge and the buddy narrows.
// The default range is 0..100.
class VGLOBAL_EXPORT CSpinButtonCtrl : public vglobal::DialogControl {
 public:
  bool Handles(vglobal::ControlKind kind) const override;
  BOOL Create(UINT style, const RECT& rect, CWnd* parent, UINT id);

  // The buddy must be a control of the same dialog (null: none); returns the
  // previous buddy.
  CWnd* SetBuddy(CWnd* buddy);
  CWnd* GetBuddy() const;
  // The range may run downwards (lower > upper): the up arrow then lowers the
  // position. The position is clamped into the new range.
  void SetRange32(int lower, int upper);
  void GetRange32(int& lower, int& upper) const;
  // Returns the previous position.
  int SetPos32(int position);
  // With kSetBuddyInt, the number in the buddy's text (clamped into the range);
  // *error (optional) is TRUE when that text is not a number, and the last
  // position is answered.
  int GetPos32(BOOL* error = nullptr) const;
};
