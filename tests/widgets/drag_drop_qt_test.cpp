// Drag and drop under Qt: a drag from one widget to another through an injected
// drag loop (offscreen Qt has none), with the data under its MIME type and the
// effect chosen by the core drop target from the keys held.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QWidget>
#include <cstring>

#include "vglobal/compat/ole.h"
#include "vglobal/widgets.h"

namespace {

const UINT kFormat = RegisterClipboardFormat(L"CTB Clipboard Format");

// Copies under Ctrl, moves otherwise; keeps the command id it was given.
class CommandDropTarget : public COleDropTarget {
 public:
  DWORD dropped = 0;
  CPoint lastPoint;
  int leaves = 0;

  DROPEFFECT OnDragEnter(CWnd* window, COleDataObject* data, DWORD keys, CPoint point) override {
    return OnDragOver(window, data, keys, point);
  }
  DROPEFFECT OnDragOver(CWnd*, COleDataObject* data, DWORD keys, CPoint point) override {
    lastPoint = point;
    if (!data->IsDataAvailable(static_cast<CLIPFORMAT>(kFormat))) return DROPEFFECT_NONE;
    return (keys & MK_CONTROL) ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
  }
  void OnDragLeave(CWnd*) override { ++leaves; }
  BOOL OnDrop(CWnd*, COleDataObject* data, DROPEFFECT, CPoint) override {
    HGLOBAL block = data->GetGlobalData(static_cast<CLIPFORMAT>(kFormat));
    if (GlobalSize(block) != sizeof dropped) return FALSE;
    std::memcpy(&dropped, GlobalLock(block), sizeof dropped);
    GlobalUnlock(block);
    GlobalFree(block);
    return TRUE;
  }
};

// The drag loop a user would run: enter the target, move over it, release.
struct UserDrag {
  QWidget* target;
  Qt::KeyboardModifiers keys;
  QByteArray offered;  // what the drag carried under the format's MIME type

  Qt::DropAction operator()(QDrag& drag, Qt::DropActions allowed, Qt::DropAction) {
    const QMimeData* mime = drag.mimeData();
    offered = mime->data(QStringLiteral("application/x-arvenis-ctb-clipboard-format"));
    QDragEnterEvent enter(QPoint(2, 2), allowed, mime, Qt::LeftButton, keys);
    QCoreApplication::sendEvent(target, &enter);
    QDragMoveEvent move(QPoint(40, 12), allowed, mime, Qt::LeftButton, keys);
    QCoreApplication::sendEvent(target, &move);
    QDropEvent drop(QPointF(41, 12), allowed, mime, Qt::NoButton, keys);
    QCoreApplication::sendEvent(target, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
  }
};

DROPEFFECT DragCommand(DWORD command) {
  COleDataSource source;
  HGLOBAL block = GlobalAlloc(GHND, sizeof command);
  std::memcpy(GlobalLock(block), &command, sizeof command);
  GlobalUnlock(block);
  source.CacheGlobalData(static_cast<CLIPFORMAT>(kFormat), block);
  return source.DoDragDrop(DROPEFFECT_COPY | DROPEFFECT_MOVE);
}

class QtDragAndDrop : public ::testing::Test {
 protected:
  void SetUp() override {
    targetWidget_.resize(200, 30);
    targetWindow_.SetPlatformWindow(&targetWidget_);
  }
  void TearDown() override { vglobal::SetDragExec({}); }

  QWidget targetWidget_;
  CWnd targetWindow_;
};

TEST_F(QtDragAndDrop, TheTargetWidgetGetsTheBytesCopiedUnderCtrlAndMovedWithout) {
  CommandDropTarget target;
  ASSERT_TRUE(target.Register(&targetWindow_));
  EXPECT_TRUE(targetWidget_.acceptDrops());

  UserDrag withCtrl{&targetWidget_, Qt::ControlModifier, {}};
  vglobal::SetDragExec(std::ref(withCtrl));
  EXPECT_EQ(DragCommand(32771), DROPEFFECT_COPY);
  EXPECT_EQ(target.dropped, 32771u);
  EXPECT_EQ(target.lastPoint, CPoint(41, 12));
  const DWORD command = 32771;
  EXPECT_EQ(withCtrl.offered, QByteArray(reinterpret_cast<const char*>(&command), 4));

  UserDrag plain{&targetWidget_, Qt::NoModifier, {}};
  vglobal::SetDragExec(std::ref(plain));
  EXPECT_EQ(DragCommand(32772), DROPEFFECT_MOVE);
  EXPECT_EQ(target.dropped, 32772u);
}

TEST_F(QtDragAndDrop, DataOfOtherFormatsIsRefusedAndARevokedWidgetHearsNothing) {
  CommandDropTarget target;
  ASSERT_TRUE(target.Register(&targetWindow_));
  QMimeData foreign;
  foreign.setData(QStringLiteral("text/plain"), "32771");
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &foreign, Qt::LeftButton,
                        Qt::NoModifier);
  QCoreApplication::sendEvent(&targetWidget_, &enter);
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &foreign, Qt::NoButton,
                  Qt::NoModifier);
  QCoreApplication::sendEvent(&targetWidget_, &drop);
  EXPECT_FALSE(drop.isAccepted());
  EXPECT_EQ(target.leaves, 1) << "a refused drop lets the target clear its feedback";

  target.Revoke();
  EXPECT_FALSE(targetWidget_.acceptDrops());
  UserDrag user{&targetWidget_, Qt::NoModifier, {}};
  vglobal::SetDragExec(std::ref(user));
  EXPECT_EQ(DragCommand(1), DROPEFFECT_NONE);
  EXPECT_EQ(target.dropped, 0u);

  CWnd noWidget;
  EXPECT_FALSE(target.Register(&noWidget));
  {
    QWidget shortLived;
    CWnd window;
    window.SetPlatformWindow(&shortLived);
    ASSERT_TRUE(target.Register(&window));
  }
  target.Revoke();  // after the widget is gone: nothing left to revoke, no crash
}

TEST_F(QtDragAndDrop, AnEmptyFormatNameFailsAndOffersNothing) {
  EXPECT_EQ(RegisterClipboardFormat(L""), 0u);
  int loops = 0;
  vglobal::SetDragExec([&](QDrag&, Qt::DropActions, Qt::DropAction) {
    ++loops;
    return Qt::CopyAction;
  });
  COleDataSource source;
  source.CacheGlobalData(static_cast<CLIPFORMAT>(RegisterClipboardFormat(L"")),
                         GlobalAlloc(GHND, 4));
  EXPECT_EQ(source.DoDragDrop(), DROPEFFECT_NONE);
  EXPECT_EQ(loops, 0);
}

}  // namespace
