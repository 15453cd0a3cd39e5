// CMenu: menus kept as data behind handles.
//
// A handle is a serial number, never reused, looked up in a process-wide table:
// a handle whose menu was destroyed finds nothing, even when a new menu has been
// made since. Each menu knows the menu it is a pop-up of, the CMenu attached to it,
// and the CMenu that FromHandle hands out for it.
#include <algorithm>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "vglobal/compat/window.h"

namespace {

// The state and type bits an item keeps (never MF_BYPOSITION).
constexpr UINT kKeptFlags = MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_POPUP | MF_SEPARATOR |
                            MF_MENUBARBREAK | MF_MENUBREAK | MF_DEFAULT | MF_RIGHTJUSTIFY |
                            MFT_RADIOCHECK;

struct MenuItem {
  UINT flags = 0;  // MF_ state and type bits, never MF_BYPOSITION
  UINT id = 0;
  std::wstring text;
  UINT_PTR popup = 0;  // handle of the pop-up (MF_POPUP)
};

struct MenuData {
  UINT_PTR key = 0;  // its own handle
  std::vector<MenuItem> items;
  UINT_PTR parent = 0;  // the menu this one is a pop-up of
  CMenu* attached = nullptr;
  CMenu* wrapper = nullptr;  // owned: FromHandle's object when none is attached
};

struct MenuTable {
  std::mutex mutex;
  std::unordered_map<UINT_PTR, std::unique_ptr<MenuData>> menus;
  UINT_PTR next = 1;
  std::vector<std::unique_ptr<CMenu>> retired;  // wrappers that destroyed their own menu
};

MenuTable& Table() {
  static MenuTable* table = new MenuTable;  // used by CMenu destructors of static objects
  return *table;
}

UINT_PTR Key(HMENU h) {
  return reinterpret_cast<UINT_PTR>(h);
}
HMENU Handle(UINT_PTR key) {
  return reinterpret_cast<HMENU>(key);
}

// Everything below runs with the table's lock held.

MenuData* Find(UINT_PTR key) {
  auto it = Table().menus.find(key);
  return it == Table().menus.end() ? nullptr : it->second.get();
}

UINT_PTR Create() {
  MenuTable& t = Table();
  UINT_PTR key = t.next++;
  auto data = std::make_unique<MenuData>();
  data->key = key;
  t.menus.emplace(key, std::move(data));
  return key;
}

void Destroy(UINT_PTR key, const CMenu* caller) {
  MenuData* m = Find(key);
  if (!m) return;
  if (MenuData* parent = Find(m->parent))
    std::erase_if(parent->items, [key](const MenuItem& i) { return i.popup == key; });
  std::vector<UINT_PTR> popups;
  for (const MenuItem& item : m->items)
    if (item.popup) popups.push_back(item.popup);
  m->items.clear();
  for (UINT_PTR popup : popups) Destroy(popup, caller);
  if (m->attached) m->attached->m_hMenu = nullptr;
  if (m->wrapper) {
    m->wrapper->m_hMenu = nullptr;
    if (m->wrapper == caller)
      Table().retired.emplace_back(m->wrapper);  // still running: freed later
    else
      delete m->wrapper;
  }
  Table().menus.erase(key);
}

// An item by position or command id (searching pop-ups depth first).
struct Found {
  MenuData* menu = nullptr;
  std::size_t index = 0;
  MenuItem* item() const { return menu ? &menu->items[index] : nullptr; }
};

Found Locate(UINT_PTR key, UINT item, UINT flags) {
  MenuData* m = Find(key);
  if (!m) return {};
  if (flags & MF_BYPOSITION) {
    if (item >= m->items.size()) return {};
    return {m, item};
  }
  for (std::size_t i = 0; i < m->items.size(); ++i) {
    const MenuItem& it = m->items[i];
    if (it.popup) {
      if (Found f = Locate(it.popup, item, MF_BYCOMMAND); f.menu) return f;
    } else if (!(it.flags & MF_SEPARATOR) && it.id == item) {
      return {m, i};
    }
  }
  return {};
}

bool IsAncestorOrSelf(UINT_PTR candidate, UINT_PTR of) {
  for (UINT_PTR k = of; k; k = Find(k) ? Find(k)->parent : 0)
    if (k == candidate) return true;
  return false;
}

// Builds the item an Append/Insert/Modify call describes; false when it is invalid.
// Pictures and owner-drawn items carry no text (their idNewItem-side pointer is not
// a string), so they are refused rather than read.
bool MakeItem(UINT_PTR owner, UINT flags, UINT_PTR idNewItem, const wchar_t* text, MenuItem& out) {
  if (flags & (MF_BITMAP | MF_OWNERDRAW)) return false;
  out.flags = flags & kKeptFlags;
  if (flags & MF_SEPARATOR) {
    out.flags &= ~MF_POPUP;
    return true;
  }
  out.text = text ? text : L"";
  if (flags & MF_POPUP) {
    MenuData* popup = Find(idNewItem);
    if (!popup || popup->parent || IsAncestorOrSelf(idNewItem, owner)) return false;
    out.popup = idNewItem;
    return true;
  }
  out.id = static_cast<UINT>(idNewItem);
  return true;
}

}  // namespace

// A wrapper is deleted by the table with its handle already cleared, so its
// destructor does not come back for the table's lock.
CMenu::~CMenu() {
  if (m_hMenu) DestroyMenu();
}

BOOL CMenu::CreateMenu() {
  std::lock_guard lock(Table().mutex);
  if (Find(Key(m_hMenu))) return FALSE;
  m_hMenu = Handle(Create());
  Find(Key(m_hMenu))->attached = this;
  return TRUE;
}

BOOL CMenu::CreatePopupMenu() {
  return CreateMenu();
}

BOOL CMenu::DestroyMenu() {
  std::lock_guard lock(Table().mutex);
  if (!Find(Key(m_hMenu))) {
    m_hMenu = nullptr;
    return FALSE;
  }
  Destroy(Key(m_hMenu), this);
  m_hMenu = nullptr;
  return TRUE;
}

BOOL CMenu::Attach(HMENU menu) {
  std::lock_guard lock(Table().mutex);
  MenuData* m = Find(Key(menu));
  if (!m || Find(Key(m_hMenu))) return FALSE;
  m_hMenu = menu;
  m->attached = this;
  return TRUE;
}

HMENU CMenu::Detach() {
  std::lock_guard lock(Table().mutex);
  HMENU h = m_hMenu;
  if (MenuData* m = Find(Key(h)); m && m->attached == this) m->attached = nullptr;
  if (MenuData* m = Find(Key(h)); m && m->wrapper == this) m->wrapper = nullptr;
  m_hMenu = nullptr;
  return h;
}

CMenu* CMenu::FromHandle(HMENU menu) {
  std::lock_guard lock(Table().mutex);
  MenuData* m = Find(Key(menu));
  if (!m) return nullptr;
  if (m->attached) return m->attached;
  if (!m->wrapper) {
    m->wrapper = new CMenu;
    m->wrapper->m_hMenu = menu;
  }
  return m->wrapper;
}

BOOL CMenu::IsMenu(HMENU menu) {
  std::lock_guard lock(Table().mutex);
  return Find(Key(menu)) != nullptr;
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR idNewItem, const wchar_t* text) {
  return InsertMenu(0xFFFFFFFFu, flags | MF_BYPOSITION, idNewItem, text);
}

BOOL CMenu::InsertMenu(UINT position, UINT flags, UINT_PTR idNewItem, const wchar_t* text) {
  std::lock_guard lock(Table().mutex);
  MenuData* self = Find(Key(m_hMenu));
  if (!self) return FALSE;
  UINT_PTR owner = Key(m_hMenu);
  std::size_t at = self->items.size();
  MenuData* target = self;
  if (flags & MF_BYPOSITION) {
    if (position < self->items.size()) at = position;
  } else {
    Found f = Locate(owner, position, MF_BYCOMMAND);
    if (!f.menu) return FALSE;
    target = f.menu;
    at = f.index;
    owner = target->key;
  }
  MenuItem item;
  if (!MakeItem(owner, flags, idNewItem, text, item)) return FALSE;
  if (item.popup) Find(item.popup)->parent = owner;
  target->items.insert(target->items.begin() + static_cast<std::ptrdiff_t>(at), std::move(item));
  return TRUE;
}

BOOL CMenu::RemoveMenu(UINT position, UINT flags) {
  std::lock_guard lock(Table().mutex);
  Found f = Locate(Key(m_hMenu), position, flags);
  if (!f.menu) return FALSE;
  if (MenuData* popup = Find(f.item()->popup)) popup->parent = 0;
  f.menu->items.erase(f.menu->items.begin() + static_cast<std::ptrdiff_t>(f.index));
  return TRUE;
}

BOOL CMenu::DeleteMenu(UINT position, UINT flags) {
  std::lock_guard lock(Table().mutex);
  Found f = Locate(Key(m_hMenu), position, flags);
  if (!f.menu) return FALSE;
  UINT_PTR popup = f.item()->popup;
  f.menu->items.erase(f.menu->items.begin() + static_cast<std::ptrdiff_t>(f.index));
  if (popup) {
    if (MenuData* p = Find(popup)) p->parent = 0;
    Destroy(popup, this);
  }
  return TRUE;
}

BOOL CMenu::ModifyMenu(UINT position, UINT flags, UINT_PTR idNewItem, const wchar_t* text) {
  std::lock_guard lock(Table().mutex);
  Found f = Locate(Key(m_hMenu), position, flags);
  if (!f.menu) return FALSE;
  UINT_PTR owner = f.menu->key;
  UINT_PTR oldPopup = f.item()->popup;
  MenuItem item;
  if ((flags & MF_POPUP) && idNewItem == oldPopup) {
    if (flags & (MF_BITMAP | MF_OWNERDRAW)) return FALSE;
    item = *f.item();  // same pop-up, new text or state
    item.flags = (flags & kKeptFlags & ~MF_SEPARATOR) | MF_POPUP;
    item.text = text ? text : L"";
  } else {
    if (!MakeItem(owner, flags, idNewItem, text, item)) return FALSE;
    if (item.popup) Find(item.popup)->parent = owner;
    if (oldPopup) {
      if (MenuData* p = Find(oldPopup)) p->parent = 0;
      Destroy(oldPopup, this);
    }
  }
  *f.item() = std::move(item);
  return TRUE;
}

int CMenu::GetMenuItemCount() const {
  std::lock_guard lock(Table().mutex);
  MenuData* m = Find(Key(m_hMenu));
  return m ? static_cast<int>(m->items.size()) : -1;
}

UINT CMenu::GetMenuItemID(int position) const {
  std::lock_guard lock(Table().mutex);
  Found f = Locate(Key(m_hMenu), static_cast<UINT>(position), MF_BYPOSITION);
  if (position < 0 || !f.menu || f.item()->popup) return 0xFFFFFFFFu;
  return f.item()->id;
}

int CMenu::GetMenuString(UINT item, wchar_t* buffer, int maxCount, UINT flags) const {
  std::lock_guard lock(Table().mutex);
  Found f = Locate(Key(m_hMenu), item, flags);
  if (!f.menu) return 0;
  const std::wstring& text = f.item()->text;
  // Without room to copy into, the answer is the text's length.
  if (!buffer || maxCount <= 0) return static_cast<int>(text.size());
  int n = std::min(static_cast<int>(text.size()), maxCount - 1);
  std::copy_n(text.data(), n, buffer);
  buffer[n] = L'\0';
  return n;
}

int CMenu::GetMenuString(UINT item, CString& text, UINT flags) const {
  std::lock_guard lock(Table().mutex);
  Found f = Locate(Key(m_hMenu), item, flags);
  text = f.menu ? CString(f.item()->text) : CString();
  return text.GetLength();
}

CMenu* CMenu::GetSubMenu(int position) const {
  UINT_PTR popup = 0;
  {
    std::lock_guard lock(Table().mutex);
    Found f = Locate(Key(m_hMenu), static_cast<UINT>(position), MF_BYPOSITION);
    if (position < 0 || !f.menu) return nullptr;
    popup = f.item()->popup;
  }
  return popup ? FromHandle(Handle(popup)) : nullptr;
}

UINT CMenu::GetMenuState(UINT item, UINT flags) const {
  std::lock_guard lock(Table().mutex);
  Found f = Locate(Key(m_hMenu), item, flags);
  if (!f.menu) return kMenuNoItem;
  UINT state = f.item()->flags;
  // A pop-up also reports the number of its items in the high byte of the low word.
  if (MenuData* popup = Find(f.item()->popup))
    state =
        (state & 0xFF) | (static_cast<UINT>(std::min<std::size_t>(popup->items.size(), 255)) << 8);
  return state;
}

UINT CMenu::CheckMenuItem(UINT item, UINT check) {
  std::lock_guard lock(Table().mutex);
  Found f = Locate(Key(m_hMenu), item, check & MF_BYPOSITION);
  if (!f.menu) return kMenuNoItem;
  UINT previous = f.item()->flags & MF_CHECKED;
  f.item()->flags = (f.item()->flags & ~MF_CHECKED) | (check & MF_CHECKED);
  return previous;
}

UINT CMenu::EnableMenuItem(UINT item, UINT enable) {
  std::lock_guard lock(Table().mutex);
  Found f = Locate(Key(m_hMenu), item, enable & MF_BYPOSITION);
  if (!f.menu) return kMenuNoItem;
  constexpr UINT kMask = MF_GRAYED | MF_DISABLED;
  UINT previous = f.item()->flags & kMask;
  f.item()->flags = (f.item()->flags & ~kMask) | (enable & kMask);
  return previous;
}

BOOL CMenu::CheckMenuRadioItem(UINT first, UINT last, UINT item, UINT flags) {
  std::lock_guard lock(Table().mutex);
  const UINT by = flags & MF_BYPOSITION;
  Found a = Locate(Key(m_hMenu), first, by), b = Locate(Key(m_hMenu), last, by),
        checked = Locate(Key(m_hMenu), item, by);
  if (!a.menu || a.menu != b.menu || a.menu != checked.menu) return FALSE;
  const std::size_t low = std::min(a.index, b.index), high = std::max(a.index, b.index);
  if (checked.index < low || checked.index > high) return FALSE;
  for (std::size_t i = low; i <= high; ++i) {
    MenuItem& it = a.menu->items[i];
    if (it.flags & MF_SEPARATOR) continue;
    if (i == checked.index)
      it.flags |= MF_CHECKED | MFT_RADIOCHECK;
    else
      it.flags &= ~MF_CHECKED;
  }
  return TRUE;
}
