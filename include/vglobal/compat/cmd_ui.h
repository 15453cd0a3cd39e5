// CCmdUI: what an update handler (ON_UPDATE_COMMAND_UI) is given to say how a
// command's menu item should look before the menu opens.
#pragma once

#include "vglobal/compat/cmd_target.h"
#include "vglobal/compat/window.h"
#include "vglobal/export.h"

class VGLOBAL_EXPORT CCmdUI {
 public:
  UINT m_nID = 0;               // the command
  UINT m_nIndex = 0;            // its item's position in m_pMenu
  CMenu* m_pMenu = nullptr;     // the menu holding the item (null: no menu item)
  CMenu* m_pSubMenu = nullptr;  // unused by menus here: always null
  CWnd* m_pOther = nullptr;     // a window standing for the command, if not a menu item
  UINT m_nIndexMax = 0;         // the number of items in m_pMenu
  BOOL m_bEnableChanged = FALSE;
  BOOL m_bContinueRouting = FALSE;

  virtual ~CCmdUI() = default;

  // Each acts on the item at m_nIndex of m_pMenu (nothing when there is none).
  virtual void Enable(BOOL on = TRUE);        // grays the item when off
  virtual void SetCheck(int check = 1);       // 0 unchecked, anything else checked
  virtual void SetRadio(BOOL on = TRUE);      // checked with a bullet
  virtual void SetText(const wchar_t* text);  // keeps the item's id and states
  // The handler passes the question on to the next target in the routing.
  void ContinueRouting() { m_bContinueRouting = TRUE; }

  // Asks `target` (OnCmdMsg with CN_UPDATE_COMMAND_UI). When no update handler
  // answers and disableIfNoHandler is set, the item is enabled exactly when some
  // command handler for m_nID exists. TRUE when an update handler answered.
  BOOL DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler);
};

namespace vglobal {
// Runs the update handlers of `target` for every command item of `popup`, as is
// done before a pop-up opens. Separators and nested pop-ups are passed over. A
// handler may insert or remove items of the pop-up; the walk keeps its place.
VGLOBAL_EXPORT void UpdateMenuCommandUI(CMenu& popup, CCmdTarget& target, bool disableIfNoHandler);
// Tells `owner` that `popup` (item `index` of its parent menu) is about to open:
// sends WM_INITMENUPOPUP, whose default handling runs the update handlers.
VGLOBAL_EXPORT void NotifyMenuOpening(CWnd& owner, CMenu& popup, UINT index);
}  // namespace vglobal
