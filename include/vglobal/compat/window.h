// The window vocabulary of the legacy API: CWnd (a window handle), CDC (text
// measuring and drawing), CMenu (a menu model) and CDocument.
//
// Map of this header:
//   1. CWnd        - a window as the library's logic sees it
//   2. CDC         - text measuring and drawing behind virtual functions, DT_ flags
//   3. CMenu       - menus as data: items, pop-ups, check and enable states, MF_ flags
//   4. CDocument   - path, title and modified flag of a document
//
// Contract common to all: objects of the user-interface thread; not thread-safe.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "vglobal/compat/collections.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/geometry.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

// ---- 1. CWnd ---------------------------------------------------------------------

// SetWindowPos flags (Windows values).
constexpr UINT SWP_NOSIZE = 0x0001;
constexpr UINT SWP_NOMOVE = 0x0002;
constexpr UINT SWP_NOZORDER = 0x0004;
constexpr UINT SWP_NOACTIVATE = 0x0010;
constexpr UINT SWP_SHOWWINDOW = 0x0040;
constexpr UINT SWP_HIDEWINDOW = 0x0080;

// ShowWindow commands (any other non-zero command shows the window).
constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOWNOACTIVATE = 4;
constexpr int SW_SHOW = 5;
constexpr int SW_SHOWNA = 8;

// A window as the library's logic sees it: a title or text, an enabled and a visible
// state, a control id and a parent. Core code never looks at what the platform puts
// behind it: the platform layer attaches its own window object (a QWidget under Qt)
// with SetPlatformWindow, and only the platform layer reads it back.
//
// The state functions are virtual: dialogs and dialog controls (vglobal/compat/
// dialog.h, controls.h) keep their state in the dialog's model and tell the platform
// when it changes. A plain CWnd just remembers what it was told.
class VGLOBAL_EXPORT CWnd : public CObject {
 public:
  CWnd();
  ~CWnd() override;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  // The platform's window behind this object, null when it has none.
  void* PlatformWindow() const { return platformWindow_; }
  void SetPlatformWindow(void* window) { platformWindow_ = window; }
  // The same as a window handle (what help and message-box owners are given).
  HWND GetSafeHwnd() const { return static_cast<HWND>(platformWindow_); }

  // The window's text: a dialog's title, a control's text.
  virtual void SetWindowText(const wchar_t* text);
  virtual void GetWindowText(CString& text) const;
  // Copies at most maxCount - 1 characters and a terminating zero into buffer;
  // returns the number of characters copied (0 for a null buffer or maxCount <= 0).
  int GetWindowText(wchar_t* buffer, int maxCount) const;
  int GetWindowTextLength() const;

  // Enables or disables input. Returns non-zero when the window was disabled before.
  virtual BOOL EnableWindow(BOOL enable = TRUE);
  virtual BOOL IsWindowEnabled() const;
  // SW_HIDE hides, any other command shows. Returns non-zero when it was visible.
  virtual BOOL ShowWindow(int cmdShow);
  virtual BOOL IsWindowVisible() const;

  // The control id (0 for a window that is not a dialog control).
  virtual int GetDlgCtrlID() const;
  CWnd* GetParent() const { return parent_; }
  // Gives the keyboard focus to this window. Returns the window that had it, or
  // null (also when this window cannot take the focus).
  virtual CWnd* SetFocus();

  // A message box owned by this window (vglobal::Platform::MessageBox). Returns
  // the button pressed (IDOK ...).
  int MessageBox(const wchar_t* text, const wchar_t* caption = nullptr, UINT type = MB_OK);

  // ---- geometry -----------------------------------------------------------------
  //
  // A window's rectangle is kept in its parent's client coordinates (a dialog
  // control's in its dialog's client area) and in screen coordinates for a window
  // without a parent. The client area is the whole window: borders and title bars
  // belong to the window manager. Sizes below zero are taken as zero. A dialog
  // that is not open, and a control that is detached, have no rectangle: the
  // getters answer an empty one (FALSE) and the setters change nothing.

  // The window's rectangle in screen coordinates.
  BOOL GetWindowRect(LPRECT rect) const;
  // {0, 0, width, height}.
  void GetClientRect(LPRECT rect) const;
  void ClientToScreen(LPPOINT point) const;
  void ClientToScreen(LPRECT rect) const;
  void ScreenToClient(LPPOINT point) const;
  void ScreenToClient(LPRECT rect) const;
  // Moves and sizes the window within its parent's client area (the screen for a
  // window without a parent). `repaint` is for the platform's convenience only.
  void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
  void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
  // SWP_NOMOVE keeps the position, SWP_NOSIZE the size; SWP_SHOWWINDOW and
  // SWP_HIDEWINDOW show or hide. Stacking order and activation are the window
  // manager's: `after`, SWP_NOZORDER and SWP_NOACTIVATE change nothing. FALSE when
  // the window has no rectangle to set.
  BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags);
  // Centres the window on `alternate`, else on its parent, else on the screen
  // (vglobal::Platform::ScreenRect); a window without a parent is kept on the screen.
  void CenterWindow(CWnd* alternate = nullptr);

 protected:
  // The window's rectangle in its parent's client coordinates; nullopt when it has
  // none. Dialogs and controls keep theirs in the dialog's model.
  virtual std::optional<CRect> RectInParent() const;
  // Sets it (already checked: width and height not negative); false when the
  // window has no rectangle.
  virtual bool PlaceInParent(const CRect& rect);
  // The window whose client area the rectangle is in: the parent, or null for a
  // window placed on the screen (a dialog, even when it has an owner).
  virtual const CWnd* PlacedIn() const { return parent_; }
  // Where the client area's top-left corner is on the screen; nullopt when the
  // window has no rectangle.
  std::optional<CPoint> ScreenOrigin() const;

 private:
  CRect rect_;

 public:
  // ---- messages, commands and timers ----------------------------------------------

 protected:
  CWnd* parent_ = nullptr;

 private:
  void* platformWindow_ = nullptr;
  CString text_;
  bool enabled_ = true;
  bool visible_ = true;
};

// ---- 2. CDC ----------------------------------------------------------------------

namespace vglobal {
// One image of a bitmap strip: the PNG bytes of the whole strip (static resource
// data) and the cell of it, in pixels.
struct ImageCell {
  const unsigned char* png = nullptr;
  std::size_t size = 0;
  int x = 0, y = 0, cx = 0, cy = 0;
};
}  // namespace vglobal

// DrawText formats (Windows values).
constexpr UINT DT_TOP = 0x0000;
constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_BOTTOM = 0x0008;
constexpr UINT DT_WORDBREAK = 0x0010;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_EXPANDTABS = 0x0040;
constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_CALCRECT = 0x0400;
constexpr UINT DT_NOPREFIX = 0x0800;
constexpr UINT DT_END_ELLIPSIS = 0x8000;

struct TEXTMETRIC {
  LONG tmHeight;  // ascent + descent: the height of one line
  LONG tmAscent;
  LONG tmDescent;
  LONG tmExternalLeading;
  LONG tmAveCharWidth;
  LONG tmMaxCharWidth;
};
using LPTEXTMETRIC = TEXTMETRIC*;

// A drawing context: the font's measures and a surface to write text on. The
// platform supplies the measuring and writing primitives; DrawText lays text out
// on top of them the same way for every platform:
// - count -1 means "up to the terminating zero"; a null text draws nothing.
// - Lines break at CR, LF and CR LF unless DT_SINGLELINE. DT_WORDBREAK also breaks
//   between words where a line would pass the rectangle's right edge; a single word
//   wider than the rectangle stays whole on its own line. Spaces at a break vanish.
// - Without DT_NOPREFIX, "&" marks the next character as a mnemonic and is not
//   drawn; "&&" draws one "&".
// - DT_EXPANDTABS turns a tab into spaces up to the next multiple of eight
//   characters; without it a tab is drawn as it comes. Drawing is never clipped to
//   the rectangle here, so DT_NOCLIP changes nothing.
// - DT_END_ELLIPSIS ends a line that is too wide with "..." so that it fits.
// - DT_LEFT/CENTER/RIGHT place each line; DT_TOP/VCENTER/BOTTOM place a
//   DT_SINGLELINE text vertically (other texts start at the top).
// - DT_CALCRECT draws nothing and sets the rectangle to the text's extent: the
//   right edge to the widest line (with DT_WORDBREAK, the given width unless a word
//   is wider or all lines are narrower), the bottom edge below the last line.
// - Returns the height of the text laid out (0 for an empty text or null rect).
class VGLOBAL_EXPORT CDC {
 public:
  virtual ~CDC();

  // The size of the text as drawn on one line in the current font.
  virtual CSize GetTextExtent(const wchar_t* text, int count) const = 0;
  CSize GetTextExtent(const CString& text) const;
  // Writes the text with its top-left corner at (x, y). Returns non-zero on success.
  virtual BOOL TextOut(int x, int y, const wchar_t* text, int count) = 0;
  BOOL TextOut(int x, int y, const CString& text);
  virtual BOOL GetTextMetrics(LPTEXTMETRIC metrics) const = 0;

  virtual int DrawText(const wchar_t* text, int count, LPRECT rect, UINT format);
  int DrawText(const CString& text, LPRECT rect, UINT format);

  // Draws one cell of a bitmap strip with its top-left corner at (x, y). The
  // platform decodes the strip; the default (no pixels) draws nothing and answers
  // FALSE. ILD_ style bits as CImageList::Draw takes them.
  virtual BOOL DrawImage(const vglobal::ImageCell& cell, int x, int y, UINT style);

  // ---- pens, brushes, raster mode and lines ------------------------------------

 protected:
  // Draws one laid-out line. The default writes it with TextOut; a platform may
  // override to underline the mnemonic at `mnemonic` (-1 for none) or clip.
  virtual void DrawLine(int x, int y, const std::wstring& line, int mnemonic);
};

// ---- 3. CMenu --------------------------------------------------------------------

struct HMENU__;
using HMENU = HMENU__*;

// Menu item flags (Windows values).
constexpr UINT MF_STRING = 0x0000;
constexpr UINT MF_ENABLED = 0x0000;
constexpr UINT MF_UNCHECKED = 0x0000;
constexpr UINT MF_BYCOMMAND = 0x0000;
constexpr UINT MF_GRAYED = 0x0001;
constexpr UINT MF_DISABLED = 0x0002;
constexpr UINT MF_CHECKED = 0x0008;
constexpr UINT MF_POPUP = 0x0010;
constexpr UINT MF_BYPOSITION = 0x0400;
constexpr UINT MF_SEPARATOR = 0x0800;
// The answer of CheckMenuItem/EnableMenuItem/GetMenuState for an item that does not exist.
constexpr UINT kMenuNoItem = 0xFFFFFFFFu;

// A menu as data: an ordered list of items, each a command (id and text), a
// separator (id 0) or a pop-up (another menu). Menus live behind handles, as on
// Windows: a CMenu object is attached to one, a pop-up belongs to the menu it was
// put into and is destroyed with it. Handles are checked: a stale or foreign handle
// is refused (FALSE, -1 or null), never followed.
//
// Items are addressed by position (MF_BYPOSITION, from 0) or by command id
// (MF_BYCOMMAND, the default; the first match in item order, pop-ups searched too).
class VGLOBAL_EXPORT CMenu : public CObject {
 public:
  CMenu() = default;
  ~CMenu() override;  // destroys the attached menu (use Detach to keep it)
  CMenu(const CMenu&) = delete;
  CMenu& operator=(const CMenu&) = delete;

  HMENU m_hMenu = nullptr;

  BOOL CreateMenu();
  BOOL CreatePopupMenu();
  // Destroys the attached menu and its pop-ups. FALSE when nothing is attached.
  BOOL DestroyMenu();
  BOOL Attach(HMENU menu);  // FALSE for a stale handle or when already attached
  HMENU Detach();
  HMENU GetSafeHmenu() const { return m_hMenu; }
  // The CMenu object of a handle: the one attached to it, else one the menu keeps
  // for the purpose (valid while the menu lives). Null for a stale handle.
  static CMenu* FromHandle(HMENU menu);
  static BOOL IsMenu(HMENU menu);

  // Appends or inserts an item. With MF_POPUP, idNewItem is the pop-up's HMENU,
  // which then belongs to this menu (it must not be in a menu already and must not
  // be this menu or contain it).
  BOOL AppendMenu(UINT flags, UINT_PTR idNewItem = 0, const wchar_t* text = nullptr);
  // Inserts before the item at `position` (MF_BYPOSITION; -1 or past the end
  // appends) or before the item with that id (MF_BYCOMMAND).
  BOOL InsertMenu(UINT position, UINT flags, UINT_PTR idNewItem = 0, const wchar_t* text = nullptr);
  // DeleteMenu destroys a removed pop-up; RemoveMenu leaves it alive and ownerless.
  BOOL DeleteMenu(UINT position, UINT flags);
  BOOL RemoveMenu(UINT position, UINT flags);
  BOOL ModifyMenu(UINT position, UINT flags, UINT_PTR idNewItem = 0, const wchar_t* text = nullptr);

  int GetMenuItemCount() const;  // -1 when no menu is attached
  // The command id at `position`: 0 for a separator, -1 for a pop-up or no item.
  UINT GetMenuItemID(int position) const;
  // Copies at most maxCount - 1 characters of the item's text and a terminating
  // zero; returns the number copied (0 when the item does not exist).
  int GetMenuString(UINT item, wchar_t* buffer, int maxCount, UINT flags) const;
  int GetMenuString(UINT item, CString& text, UINT flags) const;
  // The pop-up at `position`, or null.
  CMenu* GetSubMenu(int position) const;
  // The item's flags (MF_CHECKED, MF_GRAYED, MF_SEPARATOR, MF_POPUP ...), or
  // kMenuNoItem.
  UINT GetMenuState(UINT item, UINT flags) const;
  // Return the previous state (MF_CHECKED/MF_UNCHECKED; MF_ENABLED/MF_GRAYED/
  // MF_DISABLED), or kMenuNoItem when the item does not exist.
  UINT CheckMenuItem(UINT item, UINT check);
  UINT EnableMenuItem(UINT item, UINT enable);
};

// ---- 4. CDocument ----------------------------------------------------------------

// A document: where it is stored, what it is called, whether it has unsaved changes.
class VGLOBAL_EXPORT CDocument : public CObject {
 public:
  CDocument() = default;
  ~CDocument() override;

  const CString& GetPathName() const { return pathName_; }
  // Sets the path; the title becomes the file name (the part after the last "\" or
  // "/"). There is no recent-file list here: addToMru is accepted and ignored.
  virtual void SetPathName(const wchar_t* path, BOOL addToMru = TRUE);
  const CString& GetTitle() const { return title_; }
  virtual void SetTitle(const wchar_t* title);
  virtual BOOL IsModified();
  virtual void SetModifiedFlag(BOOL modified = TRUE);
  // Saving hook: the base writes nothing and answers FALSE. An override saves to
  // `path`; on success the caller clears the modified flag.
  virtual BOOL OnSaveDocument(const wchar_t* path);

 private:
  CString pathName_;
  CString title_;
  bool modified_ = false;
};
