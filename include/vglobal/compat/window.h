// The window vocabulary of the legacy API: CWnd (a window handle), CDC (text
// measuring and drawing), CMenu (a menu model) and CDocument.
//
// Map of this header:
//   1. CWnd        - a window as the library's logic sees it; its messages and timers
//   2. CDC         - text measuring and drawing behind virtual functions, DT_ flags;
//                    pens, brushes, fonts and raster modes (vglobal/compat/gdi.h)
//   3. CMenu       - menus as data: items, pop-ups, check and enable states, MF_ flags;
//                    loading menu resources and tracking a pop-up on screen
//   4. CDocument   - path, title and modified flag of a document
//
// Contract common to all: objects of the user-interface thread; not thread-safe.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "vglobal/compat/cmd_target.h"
#include "vglobal/compat/collections.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/gdi.h"
#include "vglobal/compat/geometry.h"
#include "vglobal/compat/types.h"
#include "vglobal/compat/window_messages.h"
#include "vglobal/export.h"

class CMenu;
namespace vglobal {
struct WindowMessages;
class WindowRef;
}  // namespace vglobal

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
class VGLOBAL_EXPORT CWnd : public CCmdTarget {
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

  // ---- messages, commands and timers ----------------------------------------------

  // Calls this window's handler of `message` at once and returns its result (0 when
  // nothing handles it). WM_COMMAND goes to the command map (OnCmdMsg with the
  // command id from the low word and the notification code from the high word of
  // wParam), WM_TIMER to OnTimer, WM_CLOSE to OnClose, WM_INITMENUPOPUP to
  // OnInitMenuPopup; any message may have its own entry (OnMessage), which comes first.
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  // Queues the message on the user-interface thread (vglobal::Platform::Post) and
  // returns TRUE at once; it is delivered as SendMessage would, after the current
  // handler returns, unless this window is destroyed first (then it is dropped).
  // May be called from any thread, as long as the window lives until the call returns.
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

  // Starts timer `id` (or restarts it with the new period): every `elapse` ms the
  // window gets WM_TIMER with wParam = id, or `proc` is called instead when given.
  // elapse is kept within 10 ms .. 0x7FFFFFFF ms. Returns id, or 0 when id is 0 or
  // the platform cannot run a timer. Timers stop with KillTimer or when the window
  // is destroyed; killing one from its own OnTimer is safe.
  UINT_PTR SetTimer(UINT_PTR id, UINT elapse, TIMERPROC proc);
  // FALSE when this window has no timer `id`.
  BOOL KillTimer(UINT_PTR id);

  // The window's menu (a menu bar; null when none or when it was destroyed). The
  // window owns a menu it was given and destroys it with itself, unless another
  // replaces it first (the replaced menu is left alive). SetMenu(nullptr) removes it.
  BOOL SetMenu(CMenu* menu);
  CMenu* GetMenu() const;
  // Shows the menu bar anew after its top-level items changed (pop-ups show their
  // current items whenever they open).
  void DrawMenuBar();

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

  // Delivers one message (SendMessage and posted messages end here). The default
  // looks the message up as SendMessage describes; an override may take messages
  // first and pass the rest on.
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual void OnTimer(UINT_PTR id);
  // The window's close command (WM_CLOSE). The plain window does nothing.
  virtual void OnClose();
  // A pop-up of this window's menu, or a pop-up it tracks, is about to open: the
  // default runs the update handlers of its items (vglobal::UpdateMenuCommandUI),
  // leaving items that have none as they are.
  virtual void OnInitMenuPopup(CMenu* popup, UINT index, BOOL sysMenu);

  // A message-map entry for any message number (the counterpart of ON_MESSAGE),
  // typically an application's own WM_APP + n.
  template <typename D>
  void OnMessage(UINT message, LRESULT (D::*handler)(WPARAM, LPARAM)) {
    static_assert(std::is_base_of_v<CWnd, D>, "handlers belong to the window's class");
    AddMessage(message, [this, handler](WPARAM w, LPARAM l) {
      return (static_cast<D*>(this)->*handler)(w, l);
    });
  }

  CWnd* parent_ = nullptr;

 private:
  friend class vglobal::WindowRef;
  void AddMessage(UINT message, std::function<LRESULT(WPARAM, LPARAM)> handler);
  std::unique_ptr<vglobal::WindowMessages> messages_;
  std::uint64_t serial_ = 0;
  CRect rect_;
  void* platformWindow_ = nullptr;
  CString text_;
  bool enabled_ = true;
  bool visible_ = true;
};

namespace vglobal {
// A reference to a window that knows when the window has gone: Get() answers the
// window while it lives and null after it was destroyed (never a dangling pointer).
// Cheap to copy; usable from any thread, but Get() and the use of its answer belong
// on the user-interface thread.
class VGLOBAL_EXPORT WindowRef {
 public:
  WindowRef() = default;
  explicit WindowRef(const CWnd* window);
  CWnd* Get() const;
  // The window's serial number: never reused in the process, 0 for no window.
  std::uint64_t Serial() const { return serial_; }
  bool operator==(const WindowRef&) const = default;

 private:
  std::uint64_t serial_ = 0;
};
}  // namespace vglobal

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

  // Selects a pen, brush or font for the drawing that follows and returns the one
  // selected before (the DC starts with the stock black pen, the stock white brush
  // and a stock font that stands for the DC's own font). Null, and nothing changes,
  // for a null, empty or destroyed object. The DC keeps a copy of the value.
  CPen* SelectObject(CPen* pen);
  CBrush* SelectObject(CBrush* brush);
  CFont* SelectObject(CFont* font);
  // WHITE_PEN, NULL_BRUSH ...; returns the object of that kind selected before, null
  // for an unknown index.
  CGdiObject* SelectStockObject(int index);

  // The raster mode of pens and brushes (R2_COPYPEN at first). Returns the previous
  // mode, or 0 (and nothing changes) for a mode outside R2_BLACK..R2_WHITE.
  int SetROP2(int mode);
  int GetROP2() const { return rop2_; }
  COLORREF SetTextColor(COLORREF color);  // these three return the previous value
  COLORREF GetTextColor() const { return textColor_; }
  COLORREF SetBkColor(COLORREF color);
  COLORREF GetBkColor() const { return bkColor_; }
  // TRANSPARENT or OPAQUE (the default); 0 and no change for anything else.
  int SetBkMode(int mode);
  int GetBkMode() const { return bkMode_; }

  // Lines: MoveTo sets the current position and returns the previous one; LineTo
  // draws from it with the pen to (x, y), leaving (x, y) itself out, and moves there.
  CPoint MoveTo(int x, int y);
  CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
  BOOL LineTo(int x, int y);
  BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
  CPoint GetCurrentPosition() const { return position_; }

  // Fills the rectangle with `color`, whatever the raster mode. As in the legacy
  // implementation, the background colour becomes `color` and stays so.
  void FillSolidRect(LPCRECT rect, COLORREF color);
  void FillSolidRect(int x, int y, int cx, int cy, COLORREF color);
  // Shapes in the box (left, top)-(right, bottom), right and bottom edges outside:
  // outlined with the pen, filled with the brush, both through the raster mode. A
  // box given the wrong way round is normalized. Pie: the wedge of the ellipse from
  // the ray through (xStart, yStart) counter-clockwise to the ray through (xEnd, yEnd)
  // (the whole ellipse when the rays coincide); a ray from the centre to itself
  // points right. Each answers FALSE when the DC has no surface to draw on.
  BOOL Rectangle(int left, int top, int right, int bottom);
  BOOL Rectangle(LPCRECT rect);
  BOOL Ellipse(int left, int top, int right, int bottom);
  BOOL Ellipse(LPCRECT rect);
  BOOL Pie(int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd);
  BOOL Pie(LPCRECT rect, POINT start, POINT end);

  // The shapes PaintShape draws.
  enum class Shape { kRectangle, kEllipse, kPie };
  // What a platform DC draws with: the selected pen, brush and font (null: the DC's
  // own font).
  const LOGPEN& PenInUse() const { return pen_; }
  const LOGBRUSH& BrushInUse() const { return brush_; }
  const LOGFONT* FontInUse() const { return fontSelected_ ? &font_ : nullptr; }

 protected:
  // The primitives a platform DC draws with, reading the state above. `from`-`to`
  // leaves `to` out; `box` is normalized; for a pie, start and end are the points
  // the rays pass through. The defaults draw nothing and answer FALSE.
  virtual BOOL PaintLine(CPoint from, CPoint to);
  virtual BOOL PaintSolidRect(const CRect& rect, COLORREF color);
  virtual BOOL PaintShape(Shape shape, const CRect& box, CPoint start, CPoint end);
  // The selected font changed (FontInUse): a platform DC measures and draws with it
  // from now on.
  virtual void FontSelected();

 private:
  friend class CClientDC;
  // Takes over another DC's selections and modes (a client DC hands its state to the
  // platform's DC before each call).
  void AdoptState(const CDC& from);

  LOGPEN pen_{PS_SOLID, {1, 0}, 0};
  LOGBRUSH brush_{BS_SOLID, 0xFFFFFF, 0};
  LOGFONT font_{};
  bool fontSelected_ = false;
  CGdiObject* selected_[3] = {nullptr, nullptr, nullptr};  // by CGdiObject::Kind
  int rop2_ = R2_COPYPEN;
  COLORREF textColor_ = 0;
  COLORREF bkColor_ = 0xFFFFFF;
  int bkMode_ = OPAQUE;
  CPoint position_;

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
constexpr UINT MF_MENUBARBREAK = 0x0020;
constexpr UINT MF_MENUBREAK = 0x0040;
constexpr UINT MF_DEFAULT = 0x1000;
constexpr UINT MF_RIGHTJUSTIFY = 0x4000;
// An item checked with a bullet instead of a tick (CheckMenuRadioItem sets it).
constexpr UINT MFT_RADIOCHECK = 0x0200;
// Items that are pictures or drawn by their owner: there is no text to take, so
// AppendMenu, InsertMenu and ModifyMenu refuse them.
constexpr UINT MF_BITMAP = 0x0004;
constexpr UINT MF_OWNERDRAW = 0x0100;

// TrackPopupMenu flags.
constexpr UINT TPM_LEFTBUTTON = 0x0000;
constexpr UINT TPM_RIGHTBUTTON = 0x0002;
constexpr UINT TPM_LEFTALIGN = 0x0000;
constexpr UINT TPM_CENTERALIGN = 0x0004;
constexpr UINT TPM_RIGHTALIGN = 0x0008;
constexpr UINT TPM_TOPALIGN = 0x0000;
constexpr UINT TPM_VCENTERALIGN = 0x0010;
constexpr UINT TPM_BOTTOMALIGN = 0x0020;
constexpr UINT TPM_NONOTIFY = 0x0080;
constexpr UINT TPM_RETURNCMD = 0x0100;
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
  // zero; returns the number copied (0 when the item does not exist). A null buffer
  // or a maxCount of 0 or less copies nothing and returns the text's length.
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
  // Checks `item` with a bullet and unchecks the other items first..last of the menu
  // that holds `item` (by position, or by command id within that menu). FALSE when
  // an item is missing or the three do not lie in one menu.
  BOOL CheckMenuRadioItem(UINT first, UINT last, UINT item, UINT flags);

  // Builds the menu of resource `id` (vglobal::FindMenuTemplate) and attaches it.
  // FALSE, and nothing attached, when no module has that menu, when its template is
  // malformed (null items, pop-ups nested deeper than vglobal::kMaxMenuDepth), or
  // when a menu is attached already.
  BOOL LoadMenu(UINT id);

  // Shows this menu as a pop-up at screen point (x, y) for `owner`, whose pop-up
  // update handlers run first (WM_INITMENUPOPUP; not with TPM_NONOTIFY). Returns once
  // the user chose or dismissed it. With TPM_RETURNCMD the answer is the chosen
  // command id (0: none) and nothing is sent; otherwise the answer is TRUE and the
  // chosen command is posted to the owner as WM_COMMAND (not with TPM_NONOTIFY).
  // FALSE (0) for a null owner or no menu attached. `rect` is accepted and ignored.
  BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, LPCRECT rect = nullptr);
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
