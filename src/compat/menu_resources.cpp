// Menus from compiled-in resources, and pop-up menus tracked on screen.
#include "vglobal/compat/cmd_ui.h"
#include "vglobal/compat/menu_template.h"
#include "vglobal/compat/resources.h"
#include "vglobal/platform.h"

namespace {

// Appends the template's items to `menu`; false on a malformed template (the
// caller destroys what was built).
bool Build(CMenu& menu, const vglobal::MenuItemTemplate* items, std::size_t count, int depth) {
  if (count > 0 && !items) return false;
  for (std::size_t i = 0; i < count; ++i) {
    const vglobal::MenuItemTemplate& item = items[i];
    if (item.flags & MF_SEPARATOR) {
      if (!menu.AppendMenu(MF_SEPARATOR)) return false;
      continue;
    }
    if (!(item.flags & MF_POPUP)) {
      if (!menu.AppendMenu(item.flags, item.id, item.text)) return false;
      continue;
    }
    if (depth >= vglobal::kMaxMenuDepth) return false;
    CMenu popup;
    if (!popup.CreatePopupMenu() || !Build(popup, item.items, item.count, depth + 1)) return false;
    if (!menu.AppendMenu(item.flags, reinterpret_cast<UINT_PTR>(popup.m_hMenu), item.text))
      return false;
    popup.Detach();  // now the menu's
  }
  return true;
}

}  // namespace

namespace vglobal {

void NotifyMenuOpening(CWnd& owner, CMenu& popup, UINT index) {
  owner.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup.GetSafeHmenu()),
                    MAKELPARAM(static_cast<WORD>(index), FALSE));
}

}  // namespace vglobal

BOOL CMenu::LoadMenu(UINT id) {
  if (IsMenu(m_hMenu)) return FALSE;
  const vglobal::MenuTemplate* menu = vglobal::FindMenuTemplate(id);
  if (!menu || !CreateMenu()) return FALSE;
  if (!Build(*this, menu->items, menu->count, 1)) {
    DestroyMenu();
    return FALSE;
  }
  return TRUE;
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, LPCRECT /*rect*/) {
  if (!owner || !IsMenu(m_hMenu)) return FALSE;
  const UINT chosen = vglobal::GetPlatform().TrackPopupMenu(*this, flags, x, y, *owner);
  if (flags & TPM_RETURNCMD) return static_cast<BOOL>(chosen);
  if (chosen && !(flags & TPM_NONOTIFY)) owner->PostMessage(WM_COMMAND, chosen, 0);
  return TRUE;
}
