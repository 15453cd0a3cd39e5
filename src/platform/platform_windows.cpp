// The default bodies of the platform's window services: a queue of posted calls,
// timers on a clock that only the program moves, frames without a screen, and
// transient drawing kept in memory. They serve the headless platform, batch
// programs and tests, which drain the queue and move the clock themselves.
#include <algorithm>
#include <deque>
#include <map>
#include <mutex>
#include <tuple>

#include "vglobal/compat/cmd_ui.h"
#include "vglobal/compat/pixel_surface.h"
#include "vglobal/platform.h"

namespace vglobal {

namespace detail {

struct HeadlessWindowing {
  struct Timer {
    std::uint64_t due;
    UINT period;
    std::uint64_t started;  // ties on the same time tick in the order started
    std::function<void()> tick;
  };

  std::mutex postedMutex;  // Post may come from any thread
  std::deque<std::function<void()>> posted;

  std::uint64_t now = 0;
  std::uint64_t starts = 0;
  std::map<TimerKey, Timer> timers;

  std::map<std::uint64_t, std::shared_ptr<PixelSurface>> surfaces;
};

std::shared_ptr<HeadlessWindowing> MakeHeadlessWindowing() {
  return std::make_shared<HeadlessWindowing>();
}

}  // namespace detail

namespace {

// A window's transient surface: larger than any window of the suite's programs.
constexpr int kSurfaceSize = 2048;

}  // namespace

void Platform::Post(std::function<void()> call) {
  std::lock_guard lock(headless_->postedMutex);
  headless_->posted.push_back(std::move(call));
}

std::size_t Platform::DrainPosted() {
  std::size_t ran = 0;
  for (;;) {
    std::function<void()> call;
    {
      std::lock_guard lock(headless_->postedMutex);
      if (headless_->posted.empty()) return ran;
      call = std::move(headless_->posted.front());
      headless_->posted.pop_front();
    }
    call();
    ++ran;
  }
}

bool Platform::StartTimer(TimerKey key, UINT elapse, std::function<void()> tick) {
  detail::HeadlessWindowing& h = *headless_;
  h.timers[key] = {h.now + elapse, elapse, h.starts++, std::move(tick)};
  return true;
}

void Platform::StopTimer(TimerKey key) {
  headless_->timers.erase(key);
}

void Platform::AdvanceTime(UINT ms) {
  detail::HeadlessWindowing& h = *headless_;
  const std::uint64_t until = h.now + ms;
  for (;;) {
    auto next = std::min_element(h.timers.begin(), h.timers.end(), [](auto& a, auto& b) {
      return std::tie(a.second.due, a.second.started) < std::tie(b.second.due, b.second.started);
    });
    if (next == h.timers.end() || next->second.due > until) break;
    h.now = next->second.due;
    next->second.due += std::max<UINT>(next->second.period, 1);
    // A copy: the tick may stop or restart its own timer.
    std::function<void()> tick = next->second.tick;
    tick();
  }
  h.now = until;
}

void Platform::WindowDestroyed(const CWnd& window) {
  const std::uint64_t serial = WindowRef(&window).Serial();
  std::erase_if(headless_->timers, [serial](const auto& t) { return t.first.window == serial; });
  headless_->surfaces.erase(serial);
}

bool Platform::CreateFrame(CFrameWnd& /*frame*/) {
  return true;
}

void Platform::DestroyFrame(CFrameWnd& /*frame*/) {}

void Platform::FrameChanged(CWnd& /*window*/) {}

UINT Platform::TrackPopupMenu(CMenu& popup, UINT flags, int /*x*/, int /*y*/, CWnd& owner) {
  if (!(flags & TPM_NONOTIFY)) NotifyMenuOpening(owner, popup, 0);
  return 0;
}

std::unique_ptr<CDC> Platform::CreateClientDC(CWnd& window) {
  std::shared_ptr<PixelSurface>& surface = headless_->surfaces[WindowRef(&window).Serial()];
  if (!surface) surface = std::make_shared<PixelSurface>(kSurfaceSize, kSurfaceSize);
  return std::make_unique<PixelDC>(surface);
}

const PixelSurface* Platform::TransientSurface(const CWnd& window) {
  auto it = headless_->surfaces.find(WindowRef(&window).Serial());
  return it == headless_->surfaces.end() ? nullptr : it->second.get();
}

}  // namespace vglobal
