// QtPlatform's dialog services: dialog base units and text measures from the font
// the dialog views use, the primary screen, and modeless dialogs shown by a
// DialogView that lives as long as the dialog's window.
#include <QApplication>
#include <QFontMetrics>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "platform/qt/dialog_view.h"
#include "vglobal/qt/qt_platform.h"

namespace vglobal {

CSize QtPlatform::DialogBaseUnits(int fontSize) {
  QFont font = QApplication::font("QDialog");
  if (fontSize > 0) font.setPointSize(fontSize);
  const QFontMetrics metrics(font);
  const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  return {std::max(1, static_cast<int>(std::lround(metrics.horizontalAdvance(letters) / 52.0))),
          std::max(1, metrics.height())};
}

CSize QtPlatform::MeasureText(const CWnd& window, const std::wstring& text) {
  const auto* widget = static_cast<const QWidget*>(window.PlatformWindow());
  const QFontMetrics metrics(widget ? widget->font() : QApplication::font("QDialog"));
  return {metrics.horizontalAdvance(QString::fromStdWString(text)), metrics.height()};
}

CRect QtPlatform::ScreenRect() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return Platform::ScreenRect();
  const QRect g = screen->geometry();
  return {g.left(), g.top(), g.left() + g.width(), g.top() + g.height()};
}

BOOL QtPlatform::CreateModeless(CDialog& dialog) {
  if (dialog.IsOpen() || !dialog.GetTemplate()) return FALSE;
  CWnd* parent = dialog.GetParent();
  auto* view = new qt::DialogView(
      dialog, parent ? static_cast<QWidget*>(parent->PlatformWindow()) : nullptr);
  if (!view->Start()) {
    delete view;
    return FALSE;
  }
  // OnInitDialog may have destroyed or hidden the window already.
  if (dialog.IsOpen() && dialog.IsWindowVisible()) view->show();
  return dialog.IsOpen();
}

void QtPlatform::DestroyModeless(CDialog& dialog) {
  DialogDriver(dialog).Destroy();  // the view lets go and deletes itself later
}

}  // namespace vglobal
