// The Qt implementation of the platform seam, and the rendering of dialog models
// into Qt dialogs.
//
// Contract:
// - Linking vglobal::widgets is enough: as soon as a QApplication exists, a
//   QtPlatform is installed (vglobal::SetPlatform), and the headless platform comes
//   back when the application object is destroyed. A QCoreApplication (no widgets)
//   keeps the headless platform.
// - Under Qt, the platform window of a CWnd (CWnd::PlatformWindow) is a QWidget:
//   dialogs and controls shown by this layer get theirs set while they are open;
//   an application sets its own windows' so that they can own message boxes.
// - GUI thread only.
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <memory>

#include "vglobal/export.h"
#include "vglobal/platform.h"

namespace vglobal {

class VGLOBAL_EXPORT QtPlatform : public Platform {
 public:
  // A QMessageBox: buttons from the MB_ type (MB_OK: one OK button), icon from the
  // MB_ICON bits (none: no icon), default button from MB_DEFBUTTON2..4, owned by
  // the owner's QWidget; a null caption shows the application's name. Text is
  // plain text.
  int MessageBox(CWnd* owner, const wchar_t* text, const wchar_t* caption, UINT style) override;
  // QGuiApplication::applicationDisplayName.
  CString ApplicationName() override;
  // Renders the dialog (RenderDialog) and runs it modally; -1 when it cannot be
  // shown (no template, already open).
  INT_PTR RunModal(CDialog& dialog) override;
  // QDesktopServices::openUrl: a target with a URL scheme as a URL, anything else
  // as a local file.
  bool OpenWithDesktop(const std::wstring& target) override;
  // QStatusBar::showMessage (until replaced) on the status bar of the main window: the
  // active window when it is a QMainWindow, else the first visible top-level
  // QMainWindow. False when that window has no status bar; none is made for it.
  bool SetStatusBarText(const wchar_t* text) override;

  // ---- dialogs: geometry and modeless dialogs --------------------------------

  // From the application's font at `fontSize` points: the average width of the 52
  // Latin letters, and the line height.
  CSize DialogBaseUnits(int fontSize) override;
  // With the font of the window's widget; the dialogs' font when it has none.
  CSize MeasureText(const CWnd& window, const std::wstring& text) override;
  // The primary screen's geometry (the default's when there is no screen).
  CRect ScreenRect() override;
  // Renders the dialog (RenderDialog) and shows it non-modally; the view goes
  // away when the dialog's window is destroyed.
  BOOL CreateModeless(CDialog& dialog) override;
  void DestroyModeless(CDialog& dialog) override;

  // ---- windows: messages, timers, menus, drawing on a window -----------------

  // A queued call on the application object (QMetaObject::invokeMethod with
  // Qt::QueuedConnection): it runs when the event loop next gets control.
  void Post(std::function<void()> call) override;
  // A QTimer per timer; restarting keeps the one timer.
  bool StartTimer(TimerKey key, UINT elapse, std::function<void()> tick) override;
  void StopTimer(TimerKey key) override;
  void WindowDestroyed(const CWnd& window) override;
  // A QMainWindow (FrameWindowOf) with the frame's title and a QMenuBar built from
  // its menu: pop-ups are QMenus whose items are made anew, after the frame's update
  // handlers ran, each time they are about to show; a chosen item posts WM_COMMAND
  // to the frame. Closing it sends WM_CLOSE to the frame, which decides.
  bool CreateFrame(CFrameWnd& frame) override;
  void DestroyFrame(CFrameWnd& frame) override;
  // For a window whose platform window is a QMainWindow: its menu bar is built anew
  // (and for a frame of this layer, its title and visibility follow the model).
  void FrameChanged(CWnd& window) override;
  // A QMenu run with exec() at (x, y), moved by the TPM_ alignment flags.
  UINT TrackPopupMenu(CMenu& popup, UINT flags, int x, int y, CWnd& owner) override;
  // A window with a QWidget gets an overlay: a child over its whole area, transparent
  // to the mouse, that shows what the DC drew combined, through the raster mode,
  // with the window's pixels as they were when the overlay was last clean. A window
  // without a QWidget gets the default in-memory surface.
  std::unique_ptr<CDC> CreateClientDC(CWnd& window) override;

  // ---- images, choosers, drag and drop --------------------------------------

  // A QFileDialog owned by the owner's widget, always Qt's own (not the desktop's),
  // so that every desktop and every test sees the same dialog. The file types are
  // the request's filters, each shown with the label alone; "must exist" makes the
  // dialog accept only an existing file; the default extension is added to a name
  // typed without one.
  bool ChooseFile(CWnd* owner, FileChooser& request) override;
  // The same dialog choosing a folder (folders shown only).
  bool ChooseFolder(CWnd* owner, const std::wstring& title, std::wstring& folder) override;
  // A QDrag offering each format's bytes under its MIME type, run by the drag loop
  // in force (vglobal/qt/drag_drop.h).
  DWORD DoDragDrop(const DragPayload& data, DWORD allowedEffects) override;
  // Watches the window's QWidget for drags (an event filter; the widget is made to
  // accept drops). False when the window has no QWidget or already has a target.
  // The registration ends by itself when the widget is destroyed.
  bool RegisterDropTarget(CWnd& window, DropSink& sink) override;
  void RevokeDropTarget(CWnd& window, DropSink& sink) override;
};

// Opens a dialog model (its controls are made and OnInitDialog runs) and renders it
// into a QDialog that is not shown: for pictures, tests and callers that run it
// themselves. The QDialog keeps the model and its widgets in step both ways and
// closes the model when it is destroyed; it must not outlive the dialog model.
// Null when the dialog has no template or is open already.
VGLOBAL_EXPORT std::unique_ptr<QDialog> RenderDialog(CDialog& dialog);

// The widget that shows control `id` of a dialog rendered by this layer (the first
// one with that id), or null.
VGLOBAL_EXPORT QWidget* ControlWidget(QDialog& view, int id);

// ---- dialogs: geometry and modeless dialogs ----------------------------------

// ---- windows: messages, timers, menus, drawing on a window -------------------

// The QMainWindow this layer made for a frame (CFrameWnd::Create), or null.
VGLOBAL_EXPORT QMainWindow* FrameWindowOf(CWnd& frame);
// The overlay that shows a window's transient drawing (CClientDC), or null when
// nothing has been drawn on that window.
VGLOBAL_EXPORT QWidget* TransientOverlayOf(QWidget& window);

// ---- images, choosers, drag and drop ----------------------------------------

namespace detail {
// Every program that includes this header refers to the Qt layer, so a linker that
// drops unreferenced libraries (--as-needed) keeps it, and with it the platform it
// installs, even when the program calls nothing of it by name.
VGLOBAL_EXPORT extern const int kWidgetsLayer;
[[gnu::used]] static const int* const kKeepWidgetsLayer = &kWidgetsLayer;
}  // namespace detail

}  // namespace vglobal
