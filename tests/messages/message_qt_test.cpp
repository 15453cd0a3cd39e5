// A message shown under Qt: the box the user sees.
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include "support/qt_application.h"
#include "vglobal/messages/message.h"
#include "vglobal/widgets.h"

namespace {

struct SeenBox {
  int buttons = -1;
  QMessageBox::Icon icon = QMessageBox::Critical;
  QString caption;
  QString text;
  QWidget* parent = nullptr;
};

// Shows `message` through the platform in force and records the box before pressing OK.
int ShowAndRecord(CMessage& message, CWnd* parent, SeenBox& seen) {
  QTimer::singleShot(0, [&seen] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    seen.buttons = static_cast<int>(box->buttons().size());
    seen.icon = box->icon();
    seen.caption = box->windowTitle();
    seen.text = box->text();
    seen.parent = box->parentWidget();
    box->button(QMessageBox::Ok)->click();
  });
  return message.DisplayMsg(parent);
}

TEST(MessageUnderQt, ErrorIsAPlainOkBoxCaptionedWithTheApplicationsName) {
  CMessage message(EMSG_ERROR, L"%s\nFile wasn't found\n", L"/data/run 7.meth");
  SeenBox seen;
  EXPECT_EQ(ShowAndRecord(message, nullptr, seen), IDOK);
  EXPECT_EQ(seen.buttons, 1);
  EXPECT_EQ(seen.icon, QMessageBox::NoIcon);
  EXPECT_EQ(seen.caption, "Widgets Test");
  EXPECT_EQ(seen.text, "/data/run 7.meth\nFile wasn't found\n");
  EXPECT_EQ(seen.parent, nullptr);
}

TEST(MessageUnderQt, BoxBelongsToTheParentWindowAndShowsTheTitle) {
  QWidget window;
  CWnd parent;
  parent.SetPlatformWindow(&window);
  CMessage message(EMSG_WARNING, L"Low on disk space");
  message.SetTitle(L"Acquisition %d", 3);
  SeenBox seen;
  EXPECT_EQ(ShowAndRecord(message, &parent, seen), IDOK);
  EXPECT_EQ(seen.parent, &window);
  EXPECT_EQ(seen.caption, "Acquisition 3");
  EXPECT_EQ(seen.icon, QMessageBox::NoIcon);
}

}  // namespace
