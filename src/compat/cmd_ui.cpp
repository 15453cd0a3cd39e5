// CCmdUI on menu items, and the walk over a pop-up's items before it opens.
#include "vglobal/compat/cmd_ui.h"

void CCmdUI::Enable(BOOL on) {
  if (m_pMenu) m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED));
  m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int check) {
  if (m_pMenu)
    m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (check ? MF_CHECKED : MF_UNCHECKED));
}

void CCmdUI::SetRadio(BOOL on) {
  if (!m_pMenu) return;
  if (on)
    m_pMenu->CheckMenuRadioItem(m_nIndex, m_nIndex, m_nIndex, MF_BYPOSITION);
  else
    m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | MF_UNCHECKED);
}

void CCmdUI::SetText(const wchar_t* text) {
  if (!m_pMenu) return;
  const UINT state = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION);
  if (state == kMenuNoItem || (state & (MF_POPUP | MF_SEPARATOR))) return;
  constexpr UINT kKept = MF_GRAYED | MF_DISABLED | MF_CHECKED | MFT_RADIOCHECK | MF_DEFAULT;
  m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | (state & kKept), m_nID, text);
}

BOOL CCmdUI::DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler) {
  if (!target) return FALSE;
  m_bEnableChanged = FALSE;
  BOOL answered = target->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
  if (!answered && disableIfNoHandler && !m_bEnableChanged) {
    AFX_CMDHANDLERINFO info;
    Enable(target->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
  }
  return answered;
}

namespace vglobal {

void UpdateMenuCommandUI(CMenu& popup, CCmdTarget& target, bool disableIfNoHandler) {
  // The pop-up is found again through its handle after every handler: a handler may
  // destroy it, and with it the CMenu object the walk was given.
  const HMENU handle = popup.GetSafeHmenu();
  CCmdUI state;
  state.m_pMenu = &popup;
  const int count = popup.GetMenuItemCount();
  if (count <= 0) return;
  state.m_nIndexMax = static_cast<UINT>(count);
  for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
    state.m_nID = state.m_pMenu->GetMenuItemID(static_cast<int>(state.m_nIndex));
    // Separators (0) and nested pop-ups (-1) have no command of their own; a nested
    // pop-up's items are updated when it opens.
    if (state.m_nID == 0 || state.m_nID == 0xFFFFFFFFu) continue;
    state.m_pSubMenu = nullptr;
    state.DoUpdate(&target, disableIfNoHandler);

    state.m_pMenu = CMenu::FromHandle(handle);
    if (!state.m_pMenu) return;
    // A handler that removed items leaves the walk past them; one that inserted
    // items after its own (a list of recent files) has them counted.
    const UINT now = static_cast<UINT>(state.m_pMenu->GetMenuItemCount());
    if (now < state.m_nIndexMax) {
      // Unsigned on purpose: removing the item at 0 wraps the index, and the loop's
      // step brings it back to 0, the item that moved up into its place.
      state.m_nIndex -= state.m_nIndexMax - now;
      while (state.m_nIndex < now &&
             state.m_pMenu->GetMenuItemID(static_cast<int>(state.m_nIndex)) == state.m_nID)
        ++state.m_nIndex;
    }
    state.m_nIndexMax = now;
  }
}

}  // namespace vglobal
