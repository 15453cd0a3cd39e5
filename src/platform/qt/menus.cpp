// Menus on screen. Qt menus are never the model: every pop-up is rebuilt from the
// model when it is about to show, right after the owner's update handlers changed
// the model, so what the user sees is what the handlers said. Items keep the
// model's "&" mnemonics (Qt reads them the same way) and tab-separated accelerator
// texts (shown in Qt's shortcut column).
#include "platform/qt/menus.h"

#include <QActionGroup>

#include "platform/qt/qt_text.h"
#include "vglobal/compat/cmd_ui.h"
#include "vglobal/qt/qt_platform.h"

namespace vglobal::qt {
namespace {

constexpr const char* kCommandProperty = "vglobalCommand";

struct Item {
  QString text;
  UINT id;
  UINT state;
  HMENU popup;
};

Item ItemAt(CMenu& menu, int position) {
  CString text;
  menu.GetMenuString(static_cast<UINT>(position), text, MF_BYPOSITION);
  const UINT state = menu.GetMenuState(static_cast<UINT>(position), MF_BYPOSITION);
  CMenu* popup = (state & MF_POPUP) ? menu.GetSubMenu(position) : nullptr;
  return {FromWide(text), menu.GetMenuItemID(position), state,
          popup ? popup->GetSafeHmenu() : nullptr};
}

bool Enabled(UINT state) {
  return !(state & (MF_GRAYED | MF_DISABLED));
}

// Old pop-ups may be on screen or inside their own signal: they go once control
// returns to the event loop.
void DiscardChildMenus(QWidget& parent) {
  for (QMenu* old : parent.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
    old->setParent(nullptr);
    old->deleteLater();
  }
  for (QActionGroup* old :
       parent.findChildren<QActionGroup*>(QString(), Qt::FindDirectChildrenOnly))
    old->deleteLater();
}

QMenu* MakePopup(QWidget& parent, const Item& item, int index, WindowRef owner, Choice choice,
                 bool notify) {
  auto* popup = new QMenu(item.text, &parent);
  popup->setEnabled(Enabled(item.state));
  const HMENU handle = item.popup;
  QObject::connect(popup, &QMenu::aboutToShow, popup, [=] {
    CMenu* model = CMenu::FromHandle(handle);
    CWnd* window = owner.Get();
    if (notify && model && window) NotifyMenuOpening(*window, *model, static_cast<UINT>(index));
    FillMenu(*popup, handle, owner, choice, notify);
  });
  FillMenu(*popup, handle, owner, choice, notify);
  return popup;
}

QAction* MakeCommand(QWidget& parent, const Item& item, WindowRef owner, Choice choice) {
  auto* action = new QAction(item.text, &parent);
  action->setProperty(kCommandProperty, item.id);
  action->setEnabled(Enabled(item.state));
  if (item.state & MF_CHECKED) {
    action->setCheckable(true);
    action->setChecked(true);
  }
  if (choice == Choice::kPostCommand) {
    const UINT id = item.id;
    QObject::connect(action, &QAction::triggered, action, [owner, id] {
      if (CWnd* window = owner.Get()) window->PostMessage(WM_COMMAND, id, 0);
    });
  }
  return action;
}

}  // namespace

UINT CommandOf(const QAction* action) {
  return action ? action->property(kCommandProperty).toUInt() : 0;
}

void FillMenu(QMenu& qmenu, HMENU handle, WindowRef owner, Choice choice, bool notify) {
  DiscardChildMenus(qmenu);
  for (QAction* old : qmenu.actions()) {
    qmenu.removeAction(old);
    if (old->parent() == &qmenu) old->deleteLater();
  }
  CMenu* menu = CMenu::FromHandle(handle);
  if (!menu) return;
  QActionGroup* radios = nullptr;  // shows bullets: Qt draws them for exclusive groups
  for (int i = 0; i < menu->GetMenuItemCount(); ++i) {
    const Item item = ItemAt(*menu, i);
    if (item.state & MF_SEPARATOR) {
      qmenu.addSeparator();
    } else if (item.popup) {
      qmenu.addMenu(MakePopup(qmenu, item, i, owner, choice, notify));
    } else {
      QAction* action = MakeCommand(qmenu, item, owner, choice);
      if ((item.state & MFT_RADIOCHECK) && (item.state & MF_CHECKED)) {
        if (!radios) radios = new QActionGroup(&qmenu);
        radios->addAction(action);
      }
      qmenu.addAction(action);
    }
  }
}

void FillMenuBar(QMenuBar& bar, HMENU handle, WindowRef owner, bool notify) {
  DiscardChildMenus(bar);
  bar.clear();
  CMenu* menu = CMenu::FromHandle(handle);
  if (!menu) return;
  for (int i = 0; i < menu->GetMenuItemCount(); ++i) {
    const Item item = ItemAt(*menu, i);
    if (item.state & MF_SEPARATOR) continue;  // a bar has no room for separators
    if (item.popup)
      bar.addMenu(MakePopup(bar, item, i, owner, Choice::kPostCommand, notify));
    else
      bar.addAction(MakeCommand(bar, item, owner, Choice::kPostCommand));
  }
}

}  // namespace vglobal::qt

namespace vglobal {

UINT QtPlatform::TrackPopupMenu(CMenu& popup, UINT flags, int x, int y, CWnd& owner) {
  auto* parent = static_cast<QWidget*>(owner.PlatformWindow());
  QMenu menu(parent);
  const bool notify = !(flags & TPM_NONOTIFY);
  const HMENU handle = popup.GetSafeHmenu();
  const WindowRef ref(&owner);
  qt::FillMenu(menu, handle, ref, qt::Choice::kReturn, notify);
  QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu, handle, ref, notify] {
    CMenu* model = CMenu::FromHandle(handle);
    CWnd* window = ref.Get();
    if (notify && model && window) NotifyMenuOpening(*window, *model, 0);
    qt::FillMenu(menu, handle, ref, qt::Choice::kReturn, notify);
  });
  QPoint at(x, y);
  const QSize size = menu.sizeHint();
  if (flags & TPM_RIGHTALIGN)
    at.rx() -= size.width();
  else if (flags & TPM_CENTERALIGN)
    at.rx() -= size.width() / 2;
  if (flags & TPM_BOTTOMALIGN)
    at.ry() -= size.height();
  else if (flags & TPM_VCENTERALIGN)
    at.ry() -= size.height() / 2;
  return qt::CommandOf(menu.exec(at));
}

}  // namespace vglobal
