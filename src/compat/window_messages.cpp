// Messages and commands: the command map of CCmdTarget, the message map and
// message delivery of CWnd, and the registry of live windows behind WindowRef.
//
// Map of this file:
//   1. the registry of live windows (serial number -> window)
//   2. CCmdTarget: command entries and OnCmdMsg
//   3. CWnd: construction, message entries, SendMessage/PostMessage, WindowProc
#include <mutex>
#include <unordered_map>
#include <vector>

#include "vglobal/compat/cmd_ui.h"
#include "vglobal/compat/window.h"
#include "vglobal/platform.h"
#include "window_internal.h"

// ---- 1. live windows ----------------------------------------------------------

namespace vglobal {
namespace {

// Serial numbers are never reused, so a reference to a destroyed window finds
// nothing even when a new window sits at the same address.
struct WindowRegistry {
  std::mutex mutex;
  std::unordered_map<std::uint64_t, CWnd*> windows;
  std::uint64_t next = 1;
};

WindowRegistry& Registry() {
  static WindowRegistry* registry = new WindowRegistry;  // windows may be static objects
  return *registry;
}

}  // namespace

std::uint64_t RegisterWindow(CWnd* window) {
  WindowRegistry& r = Registry();
  std::lock_guard lock(r.mutex);
  std::uint64_t serial = r.next++;
  r.windows.emplace(serial, window);
  return serial;
}

void UnregisterWindow(std::uint64_t serial) {
  WindowRegistry& r = Registry();
  std::lock_guard lock(r.mutex);
  r.windows.erase(serial);
}

WindowRef::WindowRef(const CWnd* window) : serial_(window ? window->serial_ : 0) {}

CWnd* WindowRef::Get() const {
  WindowRegistry& r = Registry();
  std::lock_guard lock(r.mutex);
  auto it = r.windows.find(serial_);
  return it == r.windows.end() ? nullptr : it->second;
}

// ---- 2. CCmdTarget -------------------------------------------------------------

struct CommandMap {
  struct Entry {
    UINT first, last;
    int code;
    // In a block of its own, which stays where it is when a running handler adds
    // entries: dispatch calls it in place, without a copy.
    std::unique_ptr<const std::function<void(UINT, void*)>> handler;
  };
  std::vector<Entry> entries;

  const Entry* Find(UINT id, int code) const {
    for (const Entry& e : entries)
      if (e.code == code && id >= e.first && id <= e.last) return &e;
    return nullptr;
  }
};

}  // namespace vglobal

CCmdTarget::CCmdTarget() : commands_(std::make_unique<vglobal::CommandMap>()) {}
CCmdTarget::~CCmdTarget() = default;

void CCmdTarget::AddEntry(UINT first, UINT last, int code, Handler handler) {
  commands_->entries.push_back(
      {first, last, code, std::make_unique<const Handler>(std::move(handler))});
}

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) {
  const vglobal::CommandMap::Entry* entry = commands_->Find(id, code);
  if (!entry) return FALSE;
  if (handlerInfo) {
    handlerInfo->pTarget = this;
    return TRUE;
  }
  const std::function<void(UINT, void*)>& handler = *entry->handler;
  if (code == CN_UPDATE_COMMAND_UI) {
    auto* ui = static_cast<CCmdUI*>(extra);
    if (!ui) return FALSE;
    ui->m_bContinueRouting = FALSE;
    handler(id, extra);
    return !ui->m_bContinueRouting;
  }
  handler(id, extra);
  return TRUE;
}

// ---- 3. CWnd messages -------------------------------------------------------------

CWnd::CWnd()
    : messages_(std::make_unique<vglobal::WindowMessages>()),
      serial_(vglobal::RegisterWindow(this)) {}

CWnd::~CWnd() {
  vglobal::UnregisterWindow(serial_);
  vglobal::GetPlatform().WindowDestroyed(*this);
  // Through an object of its own: a wrapper from FromHandle would outlive the menu.
  CMenu owned;
  if (owned.Attach(messages_->menu)) owned.DestroyMenu();
}

void CWnd::AddMessage(UINT message, std::function<LRESULT(WPARAM, LPARAM)> handler) {
  messages_->entries.emplace_back(
      message, std::make_unique<const vglobal::WindowMessages::Handler>(std::move(handler)));
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return WindowProc(message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  vglobal::GetPlatform().Post([target = vglobal::WindowRef(this), message, wParam, lParam] {
    if (CWnd* window = target.Get()) window->SendMessage(message, wParam, lParam);
  });
  return TRUE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  // Commands never reach message entries: they go to the command map, as a
  // command handler is where the legacy code put them.
  if (message == WM_COMMAND) {
    OnCmdMsg(LOWORD(wParam), static_cast<short>(HIWORD(wParam)), nullptr, nullptr);
    return 0;
  }
  for (const auto& [number, handler] : messages_->entries) {
    if (number != message) continue;
    return (*handler)(wParam, lParam);
  }
  switch (message) {
    case WM_TIMER:
      OnTimer(wParam);
      break;
    case WM_CLOSE:
      OnClose();
      break;
    case WM_INITMENUPOPUP:
      if (CMenu* popup = CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)))
        OnInitMenuPopup(popup, LOWORD(static_cast<DWORD_PTR>(lParam)),
                        HIWORD(static_cast<DWORD_PTR>(lParam)));
      break;
    default:
      break;
  }
  return 0;
}

void CWnd::OnTimer(UINT_PTR /*id*/) {}

void CWnd::OnClose() {}

void CWnd::OnInitMenuPopup(CMenu* popup, UINT /*index*/, BOOL /*sysMenu*/) {
  vglobal::UpdateMenuCommandUI(*popup, *this, false);
}

BOOL CWnd::SetMenu(CMenu* menu) {
  HMENU handle = menu ? menu->GetSafeHmenu() : nullptr;
  if (menu && !CMenu::IsMenu(handle)) return FALSE;
  messages_->menu = handle;
  vglobal::GetPlatform().FrameChanged(*this);
  return TRUE;
}

CMenu* CWnd::GetMenu() const {
  return CMenu::FromHandle(messages_->menu);
}

void CWnd::DrawMenuBar() {
  vglobal::GetPlatform().FrameChanged(*this);
}
