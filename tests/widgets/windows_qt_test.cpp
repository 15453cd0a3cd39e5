// The window services under Qt: a menu resource in a main window's menu bar whose
// commands reach their handlers, update handlers that gray and check items before a
// pop-up shows, a tracked pop-up, posted messages and timers on Qt's event loop,
// and transient drawing that a second inverting line takes away.
#include <QApplication>
#include <QImage>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QTimer>
#include <QtTest/QTest>

#include "support/app_resources.h"
#include "support/qt_application.h"
#include "vglobal/widgets.h"

namespace {

using vglobal::MenuItem;
using vglobal::MenuItemTemplate;
using vglobal::MenuPopup;
using vglobal::MenuSeparator;

constexpr UINT IDR_MAIN = 128, ID_OPEN = 100, ID_EXIT = 102, ID_TOOLBAR = 200;
constexpr MenuItemTemplate kFile[] = {MenuItem(L"&Open...\tCtrl+O", ID_OPEN), MenuSeparator(),
                                      MenuItem(L"E&xit", ID_EXIT)};
constexpr MenuItemTemplate kView[] = {MenuItem(L"&Toolbar", ID_TOOLBAR)};
constexpr MenuItemTemplate kTools[] = {MenuItem(L"Notepad", 5000), MenuItem(L"Calc", 5001)};
constexpr MenuItemTemplate kBar[] = {MenuPopup(L"&File", kFile), MenuPopup(L"&View", kView),
                                     MenuPopup(L"&Tools", kTools)};
constexpr vglobal::MenuTemplate kMain(IDR_MAIN, kBar);
constexpr const vglobal::MenuTemplate* kMenus[] = {&kMain};

class MainFrame : public CFrameWnd {
 public:
  MainFrame() {
    OnCommand(ID_OPEN, &MainFrame::OnOpen);
    OnCommandRange(5000, 5020, &MainFrame::OnTool);
    OnUpdateCommandUI(ID_TOOLBAR, &MainFrame::OnUpdateToolbar);
  }
  std::vector<UINT> commands;
  int ticks = 0;
  void OnOpen() { commands.push_back(ID_OPEN); }
  void OnTool(UINT id) { commands.push_back(id); }
  void OnUpdateToolbar(CCmdUI* ui) { ui->SetCheck(1); }

 protected:
  void OnTimer(UINT_PTR id) override {
    if (++ticks == 2) KillTimer(id);
  }
};

class QtWindows : public ::testing::Test {
 protected:
  vglobal::testing::ScopedAppResources resources_{kMenus};
};

QMenu* MenuTitled(QMenuBar& bar, const QString& title) {
  for (QAction* action : bar.actions())
    if (action->text() == title) return action->menu();
  return nullptr;
}

QAction* ActionTitled(QMenu& menu, const QString& text) {
  for (QAction* action : menu.actions())
    if (action->text() == text) return action;
  return nullptr;
}

TEST_F(QtWindows, MenuResourceInTheMenuBarRoutesCommandsAndRunsUpdateHandlers) {
  MainFrame frame;
  ASSERT_TRUE(frame.LoadFrame(IDR_MAIN));
  QMainWindow* window = vglobal::FrameWindowOf(frame);
  ASSERT_NE(window, nullptr);
  QMenu* file = MenuTitled(*window->menuBar(), "&File");
  QMenu* view = MenuTitled(*window->menuBar(), "&View");
  QMenu* tools = MenuTitled(*window->menuBar(), "&Tools");
  ASSERT_TRUE(file && view && tools);

  file->popup(QPoint(0, 0));  // the update handlers run, the items are made anew
  QAction* open = ActionTitled(*file, "&Open...\tCtrl+O");
  QAction* exit = ActionTitled(*file, "E&xit");
  ASSERT_TRUE(open && exit);
  EXPECT_TRUE(open->isEnabled());
  EXPECT_FALSE(exit->isEnabled());  // nobody handles it
  EXPECT_TRUE(file->actions()[1]->isSeparator());
  open->trigger();
  file->hide();
  view->popup(QPoint(0, 0));
  EXPECT_TRUE(view->actions()[0]->isChecked());
  view->hide();
  tools->popup(QPoint(0, 0));
  ActionTitled(*tools, "Calc")->trigger();
  tools->hide();
  EXPECT_TRUE(frame.commands.empty());  // posted, as menu commands are
  QCoreApplication::processEvents();
  EXPECT_EQ(frame.commands, (std::vector<UINT>{ID_OPEN, 5001}));
}

TEST_F(QtWindows, MenuBarFollowsDrawMenuBarAndTheCloseButtonAsksTheFrame) {
  MainFrame frame;
  frame.LoadFrame(IDR_MAIN);
  QMainWindow* window = vglobal::FrameWindowOf(frame);
  frame.GetMenu()->AppendMenu(MF_STRING | MF_GRAYED, 900, L"&Help");
  EXPECT_EQ(window->menuBar()->actions().size(), 3);
  frame.DrawMenuBar();
  ASSERT_EQ(window->menuBar()->actions().size(), 4);
  EXPECT_FALSE(window->menuBar()->actions()[3]->isEnabled());

  frame.ShowWindow(SW_SHOW);
  EXPECT_TRUE(window->isVisible());
  window->close();  // the frame's OnClose destroys its window
  EXPECT_EQ(vglobal::FrameWindowOf(frame), nullptr);
  EXPECT_FALSE(frame.HasWindow());
}

TEST_F(QtWindows, TrackedPopupAnswersTheItemTheUserChose) {
  MainFrame frame;
  frame.LoadFrame(IDR_MAIN);
  CMenu* view = frame.GetMenu()->GetSubMenu(1);
  bool checkedWhenShown = false;
  QTimer::singleShot(0, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    checkedWhenShown = menu->actions()[0]->isChecked();
    menu->setActiveAction(menu->actions()[0]);
    QTest::keyClick(menu, Qt::Key_Return);
  });
  EXPECT_EQ(view->TrackPopupMenu(TPM_RETURNCMD | TPM_RIGHTALIGN, 200, 100, &frame),
            static_cast<BOOL>(ID_TOOLBAR));
  EXPECT_TRUE(checkedWhenShown);
}

TEST_F(QtWindows, PostedMessagesAndTimersRunOnTheEventLoop) {
  MainFrame frame;
  frame.PostMessage(WM_COMMAND, ID_OPEN);
  EXPECT_TRUE(frame.commands.empty());
  QCoreApplication::processEvents();
  EXPECT_EQ(frame.commands, (std::vector<UINT>{ID_OPEN}));

  frame.SetTimer(7, 10, nullptr);  // killed by its second tick
  EXPECT_TRUE(QTest::qWaitFor([&] { return frame.ticks >= 2; }, 5000));
  QTest::qWait(50);
  EXPECT_EQ(frame.ticks, 2);

  auto doomed = std::make_unique<MainFrame>();
  doomed->SetTimer(1, 10, nullptr);
  doomed->PostMessage(WM_COMMAND, ID_OPEN);
  doomed.reset();
  QTest::qWait(30);  // neither the tick nor the message finds the window
}

// A white window; its pixels as the user sees them, the overlay included.
QImage Seen(QWidget& window) {
  return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void DrawBar(CWnd& window) {
  CClientDC dc(&window);
  CPen pen(PS_SOLID, 3, RGB(0, 0, 0));
  dc.SelectObject(&pen);
  dc.SetROP2(R2_NOTXORPEN);
  dc.MoveTo(40, 4);
  dc.LineTo(40, 26);
}

TEST_F(QtWindows, TransientBarShowsOverTheWindowAndADrawingAgainTakesItAway) {
  QWidget widget;
  widget.resize(120, 30);
  widget.setAutoFillBackground(true);
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(0xC0, 0xC0, 0xC0));
  widget.setPalette(palette);
  CWnd window;
  window.SetPlatformWindow(&widget);
  const QImage before = Seen(widget);

  DrawBar(window);
  const QImage shown = Seen(widget);
  EXPECT_EQ(QColor(shown.pixel(40, 15)), QColor(0x3F, 0x3F, 0x3F));  // the grey, inverted
  EXPECT_EQ(shown.pixel(10, 15), before.pixel(10, 15));
  ASSERT_NE(vglobal::TransientOverlayOf(widget), nullptr);
  EXPECT_TRUE(vglobal::TransientOverlayOf(widget)->testAttribute(Qt::WA_TransparentForMouseEvents));

  DrawBar(window);
  EXPECT_EQ(Seen(widget), before);
}

TEST(QtDCDrawing, PensBrushesFontsAndTextColoursReachThePainter) {
  QImage image(100, 60, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  vglobal::QtDC dc(QFont(QStringLiteral("DejaVu Sans"), 9), &painter);
  const CSize small = dc.GetTextExtent(L"Sample", -1);
  CFont big;
  big.CreatePointFont(240, L"DejaVu Sans");
  dc.SelectObject(&big);
  EXPECT_GT(dc.GetTextExtent(L"Sample", -1).cx, small.cx * 2);

  CBrush red(RGB(255, 0, 0));
  dc.SelectObject(&red);
  dc.SelectStockObject(NULL_PEN);
  dc.Pie(0, 0, 60, 60, 60, 30, 30, 0);  // the upper right quarter
  dc.SetROP2(R2_NOT);
  dc.SelectStockObject(BLACK_PEN);
  dc.MoveTo(80, 0);
  dc.LineTo(80, 60);
  painter.end();
  EXPECT_EQ(QColor(image.pixel(45, 15)), QColor(Qt::red));
  EXPECT_EQ(QColor(image.pixel(15, 15)), QColor(Qt::white));
  EXPECT_EQ(QColor(image.pixel(45, 45)), QColor(Qt::white));
  EXPECT_EQ(QColor(image.pixel(80, 30)), QColor(Qt::black));  // white, inverted
}

}  // namespace
