// Menu resources compiled into a module: what a resource script's MENU statement
// says, as constexpr data. A module lists its menus in ResourceTables::menus, and
// CMenu::LoadMenu(id) builds one.
//
//   IDR_MAIN MENU                              constexpr MenuItemTemplate kFile[] = {
//   BEGIN                                          MenuItem(L"&Open...\tCtrl+O", ID_FILE_OPEN),
//     POPUP "&File"                                MenuSeparator(),
//     BEGIN                                        MenuItem(L"E&xit", ID_APP_EXIT)};
//       MENUITEM "&Open...\tCtrl+O", ID_FILE_OPEN  constexpr MenuItemTemplate kBar[] = {
//       MENUITEM SEPARATOR                         MenuPopup(L"&File", kFile)};
//       MENUITEM "E&xit", ID_APP_EXIT            constexpr MenuTemplate kMain = {IDR_MAIN, kBar};
//     END
//   END
//
// Contract: static data that outlives its use; items are checked when a menu is
// built from them (vglobal/compat/window.h, CMenu::LoadMenu).
#pragma once

#include <cstddef>

#include "vglobal/compat/types.h"
#include "vglobal/compat/window.h"

namespace vglobal {

struct MenuItemTemplate {
  const wchar_t* text = nullptr;            // null for a separator
  UINT id = 0;                              // command id; 0 for separators and pop-ups
  UINT flags = 0;                           // MF_GRAYED, MF_CHECKED, MF_SEPARATOR, MF_POPUP ...
  const MenuItemTemplate* items = nullptr;  // a pop-up's items
  std::size_t count = 0;
};

struct MenuTemplate {
  UINT id = 0;
  const MenuItemTemplate* items = nullptr;
  std::size_t count = 0;

  constexpr MenuTemplate(UINT menuId, const MenuItemTemplate* first, std::size_t n)
      : id(menuId), items(first), count(n) {}
  template <std::size_t N>
  constexpr MenuTemplate(UINT menuId, const MenuItemTemplate (&all)[N])
      : id(menuId), items(all), count(N) {}
};

// Pop-ups nest at most this deep in a template (deeper nesting, or a pop-up that
// contains itself, is refused as malformed).
constexpr int kMaxMenuDepth = 8;

// MENUITEM "text", id [, GRAYED | CHECKED ...]
constexpr MenuItemTemplate MenuItem(const wchar_t* text, UINT id, UINT flags = 0) {
  return {text, id, flags, nullptr, 0};
}
// MENUITEM SEPARATOR
constexpr MenuItemTemplate MenuSeparator() {
  return {nullptr, 0, MF_SEPARATOR, nullptr, 0};
}
// POPUP "text" BEGIN ... END
template <std::size_t N>
constexpr MenuItemTemplate MenuPopup(const wchar_t* text, const MenuItemTemplate (&items)[N],
                                     UINT flags = 0) {
  return {text, 0, flags | MF_POPUP, items, N};
}

}  // namespace vglobal
