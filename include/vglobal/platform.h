// The platform seam: everything the library asks of the windowing system and the
// desktop goes through one object of this class, so that the library's logic runs
// the same headless (tests, batch programs, the command-line tools) and under Qt.
//
// Contract:
// - One platform is in force per process. SetPlatform installs one (not owned; the
//   caller keeps it alive while installed); SetPlatform(nullptr) restores the
//   headless default. GetPlatform never returns null.
// - The Qt layer (vglobal::widgets) installs its platform by itself as soon as a
//   QApplication exists, and restores the default when it goes away.
// - Called on the application's user-interface thread only.
#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/geometry.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

class CWnd;
class CDialog;
class CDC;
class CFrameWnd;
class CMenu;

namespace vglobal {

class PixelSurface;
namespace detail {
struct HeadlessWindowing;
VGLOBAL_EXPORT std::shared_ptr<HeadlessWindowing> MakeHeadlessWindowing();
}  // namespace detail

// One timer: the window's serial number (vglobal::WindowRef) and the timer's id.
struct TimerKey {
  std::uint64_t window = 0;
  UINT_PTR id = 0;
  auto operator<=>(const TimerKey&) const = default;
};

class VGLOBAL_EXPORT Platform {
 public:
  virtual ~Platform();

  // Shows a message box. owner may be null; caption null means no caption of the
  // caller's own (the application's name is shown). Returns the button pressed
  // (IDOK = 1 ...). The headless default writes caption and text to standard error
  // and answers IDOK.
  virtual int MessageBox(CWnd* owner, const wchar_t* text, const wchar_t* caption, UINT style) = 0;

  // The application's display name (used as the caption of message boxes that
  // have none).
  virtual CString ApplicationName() = 0;

  // Runs a dialog model modally and returns its end code (IDOK, IDCANCEL, or what
  // the dialog passed to EndDialog). The headless default answers IDCANCEL without
  // running the dialog.
  virtual INT_PTR RunModal(CDialog& dialog) = 0;

  // Opens a file or URL with the desktop's opener ("open" verb). Returns false when
  // nothing could be started. Default: xdg-open, started without a shell.
  virtual bool OpenWithDesktop(const std::wstring& target);

  // Puts `text` (null: empty) into the first pane of the application's main window's
  // status bar, where passing remarks go that need no answer. Returns false when there
  // is no status bar to show it in; the headless default has none and shows nothing.
  virtual bool SetStatusBarText(const wchar_t* text);

  // Whether a help viewer can be had on this system (the desktop opener exists).
  // Asked once per process by the help launcher, which remembers a "no".
  virtual bool HelpViewerAvailable();

  // The name the user logged on with. Default: the password entry of the
  // effective user id.
  virtual CString LogonName();

  // Milliseconds since the system started (wraps at 2^32). Default: CLOCK_MONOTONIC.
  virtual DWORD TickCount();

  // ---- dialogs: geometry and modeless dialogs --------------------------------

  // Pixels per dialog unit of a dialog whose font has `fontSize` points (0: the
  // platform's dialog font): cx is four horizontal units (the font's average
  // character width), cy eight vertical units (its height). Default: 6 x 13
  // whatever the size, so that headless layouts are the same on every machine.
  virtual CSize DialogBaseUnits(int fontSize);
  // The size of `text` on one line as `window` shows it, in its font (a dialog
  // control: its dialog's font). Default: every character one average character of
  // the dialog font, DialogBaseUnits(0).cx wide and .cy high.
  virtual CSize MeasureText(const CWnd& window, const std::wstring& text);
  // The screen's rectangle, where windows without a parent are placed and
  // centred. Default: 1920 x 1080 at the origin.
  virtual CRect ScreenRect();
  // Creates the window of a modeless dialog: opens the model (its OnInitDialog
  // runs) and shows it without waiting for it to end. FALSE when it cannot be
  // opened (no template, open already). Default: opens the model without a view,
  // for programs and tests that drive it with DialogDriver.
  virtual BOOL CreateModeless(CDialog& dialog);
  // Destroys the window of a modeless dialog: closes the model (OnDestroy runs)
  // and takes its view away. Nothing happens when it is not open.
  virtual void DestroyModeless(CDialog& dialog);

  // ---- windows: messages, timers, menus, drawing on a window -----------------

  // Queues `call` to run on the user-interface thread after the current event, in
  // the order queued (posted messages). May be called from any thread. Default: a
  // queue in this object that nothing drains by itself: headless programs and tests
  // run it with DrainPosted.
  virtual void Post(std::function<void()> call);
  // Starts the timer that `key` names, or restarts it with a new period: `tick` then
  // runs on the user-interface thread every `elapse` ms until StopTimer(key). False
  // when the platform cannot run timers. Default: timers on a clock that only
  // AdvanceTime moves.
  virtual bool StartTimer(TimerKey key, UINT elapse, std::function<void()> tick);
  // Stops a timer; nothing happens for one that is not running.
  virtual void StopTimer(TimerKey key);
  // `window` is being destroyed: whatever the platform keeps for it goes (its
  // timers, its transient drawing).
  virtual void WindowDestroyed(const CWnd& window);

  // Makes the platform window of a frame (a main window with a menu bar) and sets it
  // as the frame's platform window. Default: no window, answers true.
  virtual bool CreateFrame(CFrameWnd& frame);
  // Destroys what CreateFrame made; the frame's platform window becomes null.
  virtual void DestroyFrame(CFrameWnd& frame);
  // The window's title, visibility or menu (CWnd::GetMenu) changed: its platform
  // window shows them anew. Default: nothing to show.
  virtual void FrameChanged(CWnd& window);
  // Shows `popup` at screen point (x, y) for `owner` and returns the command id the
  // user chose, 0 when none. Unless flags has TPM_NONOTIFY, the owner's update
  // handlers run before each pop-up opens (vglobal::NotifyMenuOpening). Default: no
  // screen; the update handlers run and the answer is 0.
  virtual UINT TrackPopupMenu(CMenu& popup, UINT flags, int x, int y, CWnd& owner);
  // A drawing context for transient drawing on `window` (CClientDC): what is drawn
  // shows over the window's own contents until drawn away again with an inverting
  // raster mode. Default: the window's vglobal::PixelSurface (TransientSurface).
  virtual std::unique_ptr<CDC> CreateClientDC(CWnd& window);

  // The default bodies' own state, for tests and headless programs:
  // Runs the posted calls in order, including those they post, until none is left
  // (a call that always posts again keeps it running, as it would a message loop).
  // Returns how many ran.
  std::size_t DrainPosted();
  // Moves the default timers' clock on by `ms`, running each tick that falls due, in
  // the order of their times (a timer due several times ticks several times).
  void AdvanceTime(UINT ms);
  // The surface a default client DC of `window` draws on; null before the first.
  const PixelSurface* TransientSurface(const CWnd& window);

 private:
  // Made with the platform, so that Post may be called from any thread at once.
  std::shared_ptr<detail::HeadlessWindowing> headless_ = detail::MakeHeadlessWindowing();

 public:
  // ---- images, choosers, drag and drop --------------------------------------

  // Asks the user for a file (vglobal/choosers.h: what the request holds). On true,
  // request.path is the chosen file's full path and request.filterIndex the filter
  // in force. The headless default asks nobody and answers false, as Cancel does.
  virtual bool ChooseFile(CWnd* owner, struct FileChooser& request);

  // Asks the user for a folder: `folder` is where to start and, on true, the
  // chosen folder's full path. The headless default answers false (Cancel).
  virtual bool ChooseFolder(CWnd* owner, const std::wstring& title, std::wstring& folder);

  // Runs a drag loop that offers `data` (vglobal/drag_drop.h) with the
  // DROPEFFECT_ bits `allowedEffects`, and returns the effect the drop target
  // chose, DROPEFFECT_NONE when nothing was dropped. The headless default has no
  // pointer to drag with and answers DROPEFFECT_NONE at once.
  virtual DWORD DoDragDrop(const class DragPayload& data, DWORD allowedEffects);

  // Makes `window` a drop target: drags over it are told to `sink` (not owned;
  // alive until RevokeDropTarget) with points in the window's client coordinates.
  // False when the window cannot take drops or already has a target. The headless
  // default accepts and remembers nothing: no drag ever reaches it.
  virtual bool RegisterDropTarget(CWnd& window, class DropSink& sink);
  // Ends what RegisterDropTarget began; nothing for a sink that is not registered.
  virtual void RevokeDropTarget(CWnd& window, DropSink& sink);
};

// The headless platform: message boxes go to standard error and answer IDOK,
// dialogs answer IDCANCEL, everything else uses the POSIX defaults above.
class VGLOBAL_EXPORT HeadlessPlatform : public Platform {
 public:
  int MessageBox(CWnd* owner, const wchar_t* text, const wchar_t* caption, UINT style) override;
  CString ApplicationName() override;
  INT_PTR RunModal(CDialog& dialog) override;

  // ---- dialogs: geometry and modeless dialogs --------------------------------

  // ---- windows: messages, timers, menus, drawing on a window -----------------

  // ---- images, choosers, drag and drop --------------------------------------
};

VGLOBAL_EXPORT void SetPlatform(Platform* platform);
VGLOBAL_EXPORT Platform& GetPlatform();

}  // namespace vglobal
