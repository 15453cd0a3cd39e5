// QtPlatform: message boxes, the application's name, the desktop's opener, the status
// bar and modal dialogs under Qt; installed by itself when a QApplication starts.
#include "vglobal/qt/qt_platform.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QUrl>
#include <algorithm>
#include <vector>

#include "platform/qt/dialog_view.h"
#include "platform/qt/qt_text.h"
#include "vglobal/compat/dialog.h"

namespace vglobal {
namespace {

// Message-box types and answers beyond those the legacy headers name.
constexpr UINT kCancelTryContinue = 6;
constexpr UINT kDefaultButtonMask = 0x0F00;
constexpr int kIdTryAgain = 10;
constexpr int kIdContinue = 11;

struct BoxButton {
  QMessageBox::StandardButton standard;  // NoButton: a button with its own text
  const char* text;
  QMessageBox::ButtonRole role;
  int answer;
};

std::vector<BoxButton> ButtonsFor(UINT type) {
  using B = QMessageBox;
  switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL:
      return {{B::Ok, nullptr, B::AcceptRole, IDOK}, {B::Cancel, nullptr, B::RejectRole, IDCANCEL}};
    case MB_ABORTRETRYIGNORE:
      return {{B::Abort, nullptr, B::RejectRole, IDABORT},
              {B::Retry, nullptr, B::AcceptRole, IDRETRY},
              {B::Ignore, nullptr, B::AcceptRole, IDIGNORE}};
    case MB_YESNOCANCEL:
      return {{B::Yes, nullptr, B::YesRole, IDYES},
              {B::No, nullptr, B::NoRole, IDNO},
              {B::Cancel, nullptr, B::RejectRole, IDCANCEL}};
    case MB_YESNO:
      return {{B::Yes, nullptr, B::YesRole, IDYES}, {B::No, nullptr, B::NoRole, IDNO}};
    case MB_RETRYCANCEL:
      return {{B::Retry, nullptr, B::AcceptRole, IDRETRY},
              {B::Cancel, nullptr, B::RejectRole, IDCANCEL}};
    case kCancelTryContinue:
      return {{B::Cancel, nullptr, B::RejectRole, IDCANCEL},
              {B::NoButton, "&Try Again", B::AcceptRole, kIdTryAgain},
              {B::NoButton, "&Continue", B::AcceptRole, kIdContinue}};
    default:
      return {{B::Ok, nullptr, B::AcceptRole, IDOK}};
  }
}

QMessageBox::Icon IconFor(UINT type) {
  switch (type & MB_ICONMASK) {
    case MB_ICONHAND:
      return QMessageBox::Critical;
    case MB_ICONQUESTION:
      return QMessageBox::Question;
    case MB_ICONEXCLAMATION:
      return QMessageBox::Warning;
    case MB_ICONASTERISK:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

QWidget* WidgetOf(CWnd* window) {
  return window ? static_cast<QWidget*>(window->PlatformWindow()) : nullptr;
}

// The platform a QApplication gets, and the hand-back when the application ends.
QtPlatform& TheQtPlatform() {
  static QtPlatform* platform = new QtPlatform;  // may be asked for during exit
  return *platform;
}

void RestoreHeadless() {
  if (&GetPlatform() == &TheQtPlatform()) SetPlatform(nullptr);
}

void InstallWhenWidgetsRun() {
  if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return;
  SetPlatform(&TheQtPlatform());
  qAddPostRoutine(RestoreHeadless);
}

Q_COREAPP_STARTUP_FUNCTION(InstallWhenWidgetsRun)

}  // namespace

int QtPlatform::MessageBox(CWnd* owner, const wchar_t* text, const wchar_t* caption, UINT style) {
  QMessageBox box(WidgetOf(owner));
  box.setWindowTitle(caption ? qt::FromWide(caption) : qt::FromWide(ApplicationName()));
  box.setTextFormat(Qt::PlainText);
  box.setText(qt::FromWide(text));
  box.setIcon(IconFor(style));

  const std::vector<BoxButton> wanted = ButtonsFor(style);
  std::vector<QAbstractButton*> buttons;
  QAbstractButton* escape = nullptr;
  for (const BoxButton& want : wanted) {
    QAbstractButton* button =
        want.standard != QMessageBox::NoButton
            ? static_cast<QAbstractButton*>(box.addButton(want.standard))
            : static_cast<QAbstractButton*>(box.addButton(QString::fromUtf8(want.text), want.role));
    buttons.push_back(button);
    if (want.answer == IDCANCEL) escape = button;
  }
  // Escape answers Cancel where there is one, OK in a box that has only OK.
  if (!escape && wanted.size() == 1) escape = buttons.front();
  if (escape) box.setEscapeButton(escape);
  const std::size_t defaultIndex = (style & kDefaultButtonMask) >> 8;
  if (defaultIndex < buttons.size())
    if (auto* push = qobject_cast<QPushButton*>(buttons[defaultIndex])) box.setDefaultButton(push);

  box.exec();
  for (std::size_t i = 0; i < buttons.size(); ++i)
    if (box.clickedButton() == buttons[i]) return wanted[i].answer;
  return escape ? wanted[std::find(buttons.begin(), buttons.end(), escape) - buttons.begin()].answer
                : IDCANCEL;
}

CString QtPlatform::ApplicationName() {
  return CString(qt::ToWide(QGuiApplication::applicationDisplayName()));
}

INT_PTR QtPlatform::RunModal(CDialog& dialog) {
  if (dialog.IsOpen() || !dialog.GetTemplate()) return -1;
  auto view = std::make_unique<qt::DialogView>(dialog, WidgetOf(dialog.GetParent()));
  if (!view->Start()) return -1;
  if (!dialog.IsEnded()) view->exec();
  const INT_PTR code = dialog.IsEnded() ? dialog.GetEndCode() : IDCANCEL;
  view.reset();  // closes the model
  return code;
}

bool QtPlatform::OpenWithDesktop(const std::wstring& target) {
  if (target.empty()) return false;
  const QString text = QString::fromStdWString(target);
  const QUrl asUrl(text, QUrl::StrictMode);
  const bool hasScheme = asUrl.isValid() && asUrl.scheme().size() > 1;  // "C:" is a drive
  return QDesktopServices::openUrl(hasScheme ? asUrl : QUrl::fromLocalFile(text));
}

bool QtPlatform::SetStatusBarText(const wchar_t* text) {
  auto* main = qobject_cast<QMainWindow*>(QApplication::activeWindow());
  if (!main) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* candidate = qobject_cast<QMainWindow*>(window);
      if (candidate && candidate->isVisible()) {
        main = candidate;
        break;
      }
    }
  }
  if (!main) return false;
  // QMainWindow::statusBar() would make one; a window without a status bar shows nothing,
  // as a frame without one always did.
  auto* bar = main->findChild<QStatusBar*>(QString(), Qt::FindDirectChildrenOnly);
  if (!bar) return false;
  bar->showMessage(qt::FromWide(text));
  return true;
}

std::unique_ptr<QDialog> RenderDialog(CDialog& dialog) {
  if (dialog.IsOpen() || !dialog.GetTemplate()) return nullptr;
  auto view = std::make_unique<qt::DialogView>(dialog, WidgetOf(dialog.GetParent()));
  if (!view->Start()) return nullptr;
  return view;
}

const int detail::kWidgetsLayer = 1;

QWidget* ControlWidget(QDialog& view, int id) {
  auto* ours = dynamic_cast<qt::DialogView*>(&view);
  return ours ? ours->WidgetFor(id) : nullptr;
}

}  // namespace vglobal
