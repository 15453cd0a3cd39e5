// CWnd timers: each running timer is started on the platform with a tick that
// finds the window again through its serial number, so a platform that fires late
// (or a platform that was replaced since) never reaches a destroyed window.
#include <algorithm>

#include "vglobal/platform.h"
#include "window_internal.h"

namespace {

// The legacy limits of a timer's period.
constexpr UINT kMinimumElapse = 10;
constexpr UINT kMaximumElapse = 0x7FFFFFFF;

}  // namespace

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT elapse, TIMERPROC proc) {
  if (id == 0) return 0;
  const vglobal::WindowRef self(this);
  auto tick = [self, id] {
    CWnd* window = self.Get();
    if (!window) return;
    auto it = window->messages_->timers.find(id);
    if (it == window->messages_->timers.end()) return;
    if (TIMERPROC proc = it->second)
      proc(window->GetSafeHwnd(), WM_TIMER, id, vglobal::GetPlatform().TickCount());
    else
      window->SendMessage(WM_TIMER, id, 0);
  };
  const UINT period = std::clamp(elapse, kMinimumElapse, kMaximumElapse);
  if (!vglobal::GetPlatform().StartTimer({self.Serial(), id}, period, tick)) return 0;
  messages_->timers[id] = proc;
  return id;
}

BOOL CWnd::KillTimer(UINT_PTR id) {
  if (!messages_->timers.erase(id)) return FALSE;
  vglobal::GetPlatform().StopTimer({vglobal::WindowRef(this).Serial(), id});
  return TRUE;
}
