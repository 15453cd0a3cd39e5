// The Qt platform: installed with the QApplication; message boxes as Windows shows
// them; the main window's status bar.
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <functional>

#include "support/qt_application.h"
#include "vglobal/widgets.h"

namespace {

// Runs `inspect` on the message box the platform shows next, then presses `answer`.
int ShowAndAnswer(CWnd* owner, const wchar_t* caption, UINT style,
                  std::function<void(QMessageBox&)> inspect, QMessageBox::StandardButton answer) {
  QTimer::singleShot(0, [inspect, answer] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    inspect(*box);
    box->button(answer)->click();
  });
  return vglobal::GetPlatform().MessageBox(owner, L"Line one\n<b>not bold</b>", caption, style);
}

TEST(QtPlatform, IsInForceWhileTheApplicationRuns) {
  EXPECT_NE(dynamic_cast<vglobal::QtPlatform*>(&vglobal::GetPlatform()), nullptr);
  EXPECT_EQ(vglobal::GetPlatform().ApplicationName(), L"Widgets Test");
}

TEST(QtPlatform, OkBoxHasOneOkButtonNoIconAndTheApplicationsNameAsCaption) {
  int buttons = 0;
  QMessageBox::Icon icon = QMessageBox::Critical;
  QString title, text;
  Qt::TextFormat format = Qt::RichText;
  int answer = ShowAndAnswer(
      nullptr, nullptr, MB_OK,
      [&](QMessageBox& box) {
        buttons = static_cast<int>(box.buttons().size());
        icon = box.icon();
        title = box.windowTitle();
        text = box.text();
        format = box.textFormat();
      },
      QMessageBox::Ok);
  EXPECT_EQ(answer, IDOK);
  EXPECT_EQ(buttons, 1);
  EXPECT_EQ(icon, QMessageBox::NoIcon);
  EXPECT_EQ(title, "Widgets Test");
  EXPECT_EQ(text, "Line one\n<b>not bold</b>");
  EXPECT_EQ(format, Qt::PlainText);
}

TEST(QtPlatform, StyleChoosesButtonsIconAndDefaultAndTheAnswerIsTheButtonPressed) {
  QList<QMessageBox::StandardButton> standard;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QAbstractButton* defaultButton = nullptr;
  QAbstractButton* noButton = nullptr;
  int answer = ShowAndAnswer(
      nullptr, L"Save changes", MB_YESNOCANCEL | MB_ICONQUESTION | 0x100 /* MB_DEFBUTTON2 */,
      [&](QMessageBox& box) {
        for (QAbstractButton* b : box.buttons()) standard << box.standardButton(b);
        icon = box.icon();
        defaultButton = box.defaultButton();
        noButton = box.button(QMessageBox::No);
      },
      QMessageBox::No);
  EXPECT_EQ(answer, IDNO);
  EXPECT_EQ(standard.size(), 3);
  EXPECT_TRUE(standard.contains(QMessageBox::Cancel));
  EXPECT_EQ(icon, QMessageBox::Question);
  EXPECT_EQ(defaultButton, noButton);
}

TEST(QtPlatform, BoxOwnedByAWindowIsItsChild) {
  QWidget window;
  CWnd owner;
  owner.SetPlatformWindow(&window);
  QWidget* parent = nullptr;
  ShowAndAnswer(
      &owner, L"Owned", MB_OKCANCEL | MB_ICONEXCLAMATION,
      [&](QMessageBox& box) { parent = box.parentWidget(); }, QMessageBox::Cancel);
  EXPECT_EQ(parent, &window);
}

TEST(QtPlatform, StatusTextGoesToTheMainWindowsStatusBarWhenItHasOne) {
  vglobal::Platform& platform = vglobal::GetPlatform();
  EXPECT_FALSE(platform.SetStatusBarText(L"no window"));

  QMainWindow bare;
  bare.show();
  EXPECT_FALSE(platform.SetStatusBarText(L"no status bar"));
  EXPECT_EQ(bare.findChild<QStatusBar*>(), nullptr);  // none is made for the text

  QMainWindow main;
  main.statusBar();
  main.show();
  bare.hide();
  EXPECT_TRUE(platform.SetStatusBarText(L"Not able to open /manuals/Quan µL.pdf"));
  EXPECT_EQ(main.statusBar()->currentMessage(), "Not able to open /manuals/Quan µL.pdf");
}

}  // namespace
