// The widgets of the newer control kinds and the view's geometry under Qt: toolbar
// buttons where the model lays them out, spin arrows stepping their buddy, an
// owner-drawn control painted by the dialog, images in lists, controls made while
// the view is up, a window that follows the model's size, and a modeless dialog.
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QTest>
#include <QToolButton>
#include <iterator>
#include <string>
#include <vector>

#include "support/modeless_story.h"
#include "support/qt_application.h"
#include "vglobal/compat/image_list.h"
#include "vglobal/widgets.h"

namespace {

using namespace vglobal;  // kinds and style bits
using Log = std::vector<std::string>;

enum : int { IDC_BAR = 7101, IDC_COUNT, IDC_SPIN, IDC_PREVIEW, IDC_LIST, IDC_DETAILS, IDC_DIVIDER };
enum : int { ID_OPEN = 7201, ID_SAVE };

constexpr ControlTemplate kControls[] = {
    {IDC_BAR, ControlKind::ToolBar, L"", 0, 0, 200, 16, 0},
    {IDC_COUNT, ControlKind::NumericEdit, L"3", 7, 22, 40, 12, kTabStop},
    {IDC_SPIN, ControlKind::SpinButton, L"", 0, 0, 10, 12, kAutoBuddy | kSetBuddyInt | kAlignRight},
    {IDC_PREVIEW, ControlKind::OwnerDrawn, L"", 60, 22, 80, 20, 0},
    {IDC_LIST, ControlKind::ListBox, L"", 7, 46, 120, 40, kTabStop},
    {IDC_DETAILS, ControlKind::PushButton, L"Details", 143, 70, 50, 14, kTabStop},
    {IDC_DIVIDER, ControlKind::Frame, L"", 0, 90, 200, 1, kEtchedHorz},
    {IDOK, ControlKind::PushButton, L"OK", 143, 100, 50, 14, kDefault | kTabStop},
};
constexpr DialogTemplate kTemplate{7100, L"Kinds", 200, 120, 8, kControls, std::size(kControls)};

class CKindsDlg : public CDialog {
 public:
  CKindsDlg() : CDialog(kTemplate) {
    On(ID_OPEN, BN_CLICKED, &CKindsDlg::OnOpen);
    On(IDC_DETAILS, BN_CLICKED, &CKindsDlg::OnDetails);
  }
  Log log;
  CImageList images;
  int collapsed = 0;
  int full = 0;

 protected:
  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    auto* bar = GetDlgItemAs<CToolBarCtrl>(IDC_BAR);
    bar->AddBitmap(kDemoToolbarImageCount, kDemoToolbarImagesSmall);
    const TBBUTTON buttons[] = {{1, ID_OPEN, TBSTATE_ENABLED, TBSTYLE_BUTTON, {}, 0, 0},
                                {0, 0, TBSTATE_ENABLED, TBSTYLE_SEP, {}, 0, 0},
                                {2, ID_SAVE, 0, TBSTYLE_BUTTON, {}, 0, 0}};
    bar->AddButtons(3, buttons);
    GetDlgItemAs<CSpinButtonCtrl>(IDC_SPIN)->SetRange32(0, 10);
    images.Create(kCommandImagesSmall, 16, 0, 0);
    auto* list = GetDlgItemAs<CListBox>(IDC_LIST);
    list->SetImageList(&images);
    list->SetItemImage(list->AddString(L"Open"), 1);
    list->AddString(L"No image");
    CRect window, divider;
    GetWindowRect(&window);
    GetDlgItem(IDC_DIVIDER)->GetWindowRect(&divider);
    full = window.Height();
    collapsed = divider.top - window.top;
    return TRUE;
  }
  void OnDrawItem(int id, LPDRAWITEMSTRUCT dis) override {
    log.push_back("draw " + std::to_string(id));
    dis->pDC->TextOut(4, 4, L"Preview", 7);
  }
  void OnOpen() { log.push_back("open"); }
  void OnDetails() {
    CRect r;
    GetWindowRect(&r);
    SetWindowPos(nullptr, 0, 0, r.Width(), r.Height() == full ? collapsed : full,
                 SWP_NOMOVE | SWP_NOZORDER);
  }
  void OnClose() override {
    log.push_back("OnClose");
    CDialog::OnClose();
  }
  void OnDestroy() override { log.push_back("OnDestroy"); }
};

QRect ModelRect(const CWnd& w) {
  CRect r;
  w.GetWindowRect(&r);
  return QRect(r.left, r.top, r.Width(), r.Height());
}

TEST(ControlWidgets, ToolbarButtonsSitWhereTheModelPutsThemAndSendTheirCommands) {
  CKindsDlg dlg;
  std::unique_ptr<QDialog> view = RenderDialog(dlg);
  ASSERT_NE(view, nullptr);
  view->show();
  QWidget* bar = ControlWidget(*view, IDC_BAR);
  ASSERT_NE(bar, nullptr);
  auto* model = dlg.GetDlgItemAs<CToolBarCtrl>(IDC_BAR);
  CRect open, save;
  ASSERT_TRUE(model->GetItemRect(0, &open));
  ASSERT_TRUE(model->GetItemRect(2, &save));
  QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(save.CenterPoint().x, save.CenterPoint().y));
  QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(open.CenterPoint().x, open.CenterPoint().y));
  EXPECT_EQ(dlg.log, Log{"open"});  // Save is disabled

  // The image is drawn in the middle of its button, and not for the separator.
  const QImage picture = bar->grab().toImage();
  const QColor background = picture.pixelColor(open.right + 1, 0);
  int differing = 0;
  for (int y = open.top; y < open.bottom; ++y)
    for (int x = open.left; x < open.right; ++x)
      differing += picture.pixelColor(x, y) != background;
  EXPECT_GT(differing, 40);
}

TEST(ControlWidgets, SpinArrowsStepTheBuddyAndOwnerDrawnPaintsThroughTheDialog) {
  CKindsDlg dlg;
  std::unique_ptr<QDialog> view = RenderDialog(dlg);
  ASSERT_NE(view, nullptr);
  view->show();
  QWidget* spin = ControlWidget(*view, IDC_SPIN);
  QWidget* buddy = ControlWidget(*view, IDC_COUNT);
  ASSERT_NE(spin, nullptr);
  EXPECT_EQ(spin->geometry().left(), buddy->geometry().right() + 1);  // inside the buddy's place
  const auto arrows = spin->findChildren<QToolButton*>();
  ASSERT_EQ(arrows.size(), 2);
  arrows[0]->click();
  arrows[0]->click();
  EXPECT_EQ(qobject_cast<QLineEdit*>(buddy)->text(), "5");
  arrows[1]->click();
  EXPECT_EQ(dlg.GetDlgItemAs<CSpinButtonCtrl>(IDC_SPIN)->GetPos32(), 4);

  dlg.log.clear();
  ControlWidget(*view, IDC_PREVIEW)->grab();
  EXPECT_EQ(dlg.log, Log{"draw " + std::to_string(IDC_PREVIEW)});
}

TEST(ControlWidgets, ListRowsShowImagesAndControlsMadeLaterGetWidgets) {
  CKindsDlg dlg;
  std::unique_ptr<QDialog> view = RenderDialog(dlg);
  ASSERT_NE(view, nullptr);
  auto* list = qobject_cast<QListWidget*>(ControlWidget(*view, IDC_LIST));
  ASSERT_NE(list, nullptr);
  ASSERT_EQ(list->count(), 2);
  EXPECT_FALSE(list->item(0)->icon().isNull());
  EXPECT_TRUE(list->item(1)->icon().isNull());
  EXPECT_EQ(list->iconSize(), QSize(16, 15));

  CEdit made;
  ASSERT_TRUE(made.Create(kTabStop, CRect(20, 30, 120, 50), &dlg, 7999));
  made.SetWindowText(L"made later");
  auto* edit = qobject_cast<QLineEdit*>(ControlWidget(*view, 7999));
  ASSERT_NE(edit, nullptr);
  EXPECT_EQ(edit->geometry(), QRect(20, 30, 100, 20));
  EXPECT_EQ(edit->text(), "made later");
  EXPECT_EQ(made.PlatformWindow(), edit);
}

TEST(ControlWidgets, WindowFollowsTheModelsSizeAndTheUsersResizeReachesTheModel) {
  CKindsDlg dlg;
  std::unique_ptr<QDialog> view = RenderDialog(dlg);
  ASSERT_NE(view, nullptr);
  view->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
  EXPECT_EQ(view->geometry(), ModelRect(dlg));
  const int full = view->height();
  qobject_cast<QAbstractButton*>(ControlWidget(*view, IDC_DETAILS))->click();
  EXPECT_EQ(view->height(), dlg.collapsed);
  EXPECT_EQ(ControlWidget(*view, IDC_DIVIDER)->geometry().top(), dlg.collapsed);  // just below
  qobject_cast<QAbstractButton*>(ControlWidget(*view, IDC_DETAILS))->click();
  EXPECT_EQ(view->height(), full);

  dlg.GetDlgItem(IDOK)->MoveWindow(10, 10, 60, 24);
  EXPECT_EQ(ControlWidget(*view, IDOK)->geometry(), QRect(10, 10, 60, 24));

  view->resize(view->width() + 40, view->height());
  EXPECT_EQ(ModelRect(dlg).width(), view->width());
}

TEST(ModelessDialogView, ShowsWithoutWaitingAndGoesWithItsWindow) {
  CKindsDlg dlg;
  ASSERT_TRUE(dlg.Create(0));
  QPointer<QWidget> view = static_cast<QWidget*>(dlg.PlatformWindow());
  ASSERT_FALSE(view.isNull());
  EXPECT_TRUE(view->isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);

  QTest::mouseClick(ControlWidget(*qobject_cast<QDialog*>(view.data()), IDC_BAR), Qt::LeftButton,
                    {}, QPoint(12, 11));
  EXPECT_EQ(dlg.log, Log{"open"});
  dlg.EndDialog(IDOK);  // hides
  EXPECT_FALSE(view->isVisible());
  dlg.ShowWindow(SW_SHOW);
  EXPECT_TRUE(view->isVisible());

  view->close();  // the window's close button
  EXPECT_EQ(dlg.log, (Log{"open", "OnClose", "OnDestroy"}));
  EXPECT_FALSE(dlg.IsOpen());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(view.isNull());

  ASSERT_TRUE(dlg.Create(0));  // again, and destroyed by code
  view = static_cast<QWidget*>(dlg.PlatformWindow());
  EXPECT_TRUE(dlg.DestroyWindow());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(view.isNull());
}

// The same story on screen: the tool window shows beside the main window, its buttons
// are clicked, the command reaches the main window through Qt's event loop, and the
// window's close button ends it with a good-bye to the parent.
TEST(ModelessDialogView, TalksToItsParentAndTheMainWindowUntilItIsClosed) {
  story::MainWindow main;
  ASSERT_TRUE(main.Create(nullptr, L"Main", WS_OVERLAPPEDWINDOW | WS_VISIBLE));
  CWinApp app(L"Story");
  app.m_pMainWnd = &main;
  story::ToolWindow tool(&main);
  ASSERT_TRUE(tool.Create(0, &main));
  QPointer<QDialog> view = qobject_cast<QDialog*>(static_cast<QWidget*>(tool.PlatformWindow()));
  ASSERT_FALSE(view.isNull());
  EXPECT_TRUE(view->isVisible());

  QTest::mouseClick(ControlWidget(*view, story::IDC_RESET), Qt::LeftButton);
  QTest::mouseClick(ControlWidget(*view, story::IDC_PROCESS), Qt::LeftButton);
  EXPECT_EQ(main.log, Log{"reset 0"});
  QCoreApplication::processEvents();
  EXPECT_EQ(main.log, (Log{"reset 0", "process"}));

  view->close();
  EXPECT_EQ(main.log.back(), "goodbye 1");
  EXPECT_FALSE(tool.IsOpen());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(view.isNull());
}

}  // namespace
