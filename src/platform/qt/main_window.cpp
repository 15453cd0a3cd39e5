// The Qt window of a CFrameWnd: a QMainWindow that follows the frame's title,
// visibility and menu, and hands the window's close button to the frame.
#include <QCloseEvent>
#include <QMainWindow>
#include <QMenuBar>

#include "platform/qt/menus.h"
#include "platform/qt/qt_text.h"
#include "vglobal/compat/frame_wnd.h"
#include "vglobal/qt/qt_platform.h"

namespace vglobal {
namespace {

class FrameWindow final : public QMainWindow {
 public:
  explicit FrameWindow(CFrameWnd& frame) : frame_(&frame) {}

  // Deletes at once, or once the close event that led here has returned.
  void Discard() {
    hide();
    if (closing_)
      deleteLater();
    else
      delete this;
  }

 protected:
  // The frame decides: its OnClose destroys the window, or keeps it open.
  void closeEvent(QCloseEvent* event) override {
    CWnd* frame = frame_.Get();
    if (!frame) return;  // the model is gone: let it close
    event->ignore();
    closing_ = true;
    frame->SendMessage(WM_CLOSE);
    closing_ = false;
  }

 private:
  WindowRef frame_;
  bool closing_ = false;
};

FrameWindow* OursOf(CWnd& window) {
  return dynamic_cast<FrameWindow*>(static_cast<QWidget*>(window.PlatformWindow()));
}

}  // namespace

QMainWindow* FrameWindowOf(CWnd& frame) {
  return OursOf(frame);
}

bool QtPlatform::CreateFrame(CFrameWnd& frame) {
  auto* parent =
      frame.GetParent() ? static_cast<QWidget*>(frame.GetParent()->PlatformWindow()) : nullptr;
  auto* window = new FrameWindow(frame);
  if (parent) window->setParent(parent, Qt::Window);
  frame.SetPlatformWindow(window);
  FrameChanged(frame);
  return true;
}

void QtPlatform::DestroyFrame(CFrameWnd& frame) {
  FrameWindow* window = OursOf(frame);
  if (!window) return;
  frame.SetPlatformWindow(nullptr);
  window->Discard();
}

void QtPlatform::FrameChanged(CWnd& window) {
  auto* main = qobject_cast<QMainWindow*>(static_cast<QWidget*>(window.PlatformWindow()));
  if (!main) return;
  qt::FillMenuBar(*main->menuBar(), window.GetMenu() ? window.GetMenu()->GetSafeHmenu() : nullptr,
                  WindowRef(&window));
  if (FrameWindow* ours = OursOf(window)) {
    ours->setWindowTitle(qt::WindowText(window));
    ours->setVisible(window.IsWindowVisible());
  }
}

}  // namespace vglobal
