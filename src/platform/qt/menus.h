// Menus of the model shown as Qt menus: a QMenuBar or QMenu is filled from a menu
// handle, and refilled from the model each time a pop-up is about to show.
#pragma once

#include <QMenu>
#include <QMenuBar>

#include "vglobal/compat/window.h"

namespace vglobal::qt {

// What choosing an item does: post WM_COMMAND to the owner (menu bars), or nothing
// (pop-ups tracked with exec(), which answer the chosen action).
enum class Choice { kPostCommand, kReturn };

// Replaces the bar's contents with the items of `menu` (a stale or null handle
// leaves the bar empty). Each pop-up runs the owner's update handlers before it
// shows (not when `notify` is false).
void FillMenuBar(QMenuBar& bar, HMENU menu, WindowRef owner, bool notify = true);
// Replaces a QMenu's contents with the items of `menu`, nested pop-ups included.
void FillMenu(QMenu& qmenu, HMENU menu, WindowRef owner, Choice choice, bool notify);
// The command id an action of these menus stands for (0 for none).
UINT CommandOf(const QAction* action);

}  // namespace vglobal::qt
