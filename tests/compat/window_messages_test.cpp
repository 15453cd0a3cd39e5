// Window messages and timers: what is sent runs at once, what is posted waits for
// the queue and never reaches a window destroyed meanwhile, timers tick on the
// test's clock and are safe to kill from their own tick.
#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

#include "support/scripted_platform.h"
#include "vglobal/compat/window.h"

namespace {

constexpr UINT WM_PROGRESS = WM_APP + 1;

class Probe : public CWnd {
 public:
  Probe() {
    OnMessage(WM_PROGRESS, &Probe::OnProgress);
    OnCommand(6025, &Probe::OnRefresh);
  }
  std::vector<std::pair<WPARAM, LPARAM>> progress;
  std::vector<UINT_PTR> ticks;
  int refreshed = 0, closed = 0;
  std::function<void(UINT_PTR)> onTick;

  LRESULT OnProgress(WPARAM w, LPARAM l) {
    progress.emplace_back(w, l);
    return static_cast<LRESULT>(w * 2);
  }
  void OnRefresh() { ++refreshed; }

 protected:
  void OnTimer(UINT_PTR id) override {
    ticks.push_back(id);
    auto hook = onTick;  // the hook may destroy this window, and the hook with it
    if (hook) hook(id);
  }
  void OnClose() override { ++closed; }
};

TEST(Messages, SentMessagesRunAtOnceAndAnswer) {
  vglobal::testing::ScriptedPlatform platform;
  Probe window;
  EXPECT_EQ(window.SendMessage(WM_PROGRESS, 21, -5), 42);
  EXPECT_EQ(window.progress, (std::vector<std::pair<WPARAM, LPARAM>>{{21, -5}}));
  EXPECT_EQ(window.SendMessage(WM_APP + 99, 1, 2), 0);  // nobody handles it
  window.SendMessage(WM_COMMAND, MAKEWPARAM(6025, 0), 0);
  window.SendMessage(WM_CLOSE);
  EXPECT_EQ(window.refreshed, 1);
  EXPECT_EQ(window.closed, 1);
}

TEST(Messages, PostedMessagesWaitForTheQueueInOrder) {
  vglobal::testing::ScriptedPlatform platform;
  Probe window;
  EXPECT_TRUE(window.PostMessage(WM_PROGRESS, 1, 0));
  window.PostMessage(WM_COMMAND, 6025, 0);
  window.PostMessage(WM_PROGRESS, 2, 0);
  EXPECT_TRUE(window.progress.empty());
  EXPECT_EQ(window.refreshed, 0);
  EXPECT_EQ(platform.DrainPosted(), 3u);
  ASSERT_EQ(window.progress.size(), 2u);
  EXPECT_EQ(window.progress[0].first, 1u);
  EXPECT_EQ(window.progress[1].first, 2u);
  EXPECT_EQ(window.refreshed, 1);
}

TEST(Messages, APostedMessageNeverReachesAWindowDestroyedBeforeIt) {
  vglobal::testing::ScriptedPlatform platform;
  auto doomed = std::make_unique<Probe>();
  doomed->PostMessage(WM_PROGRESS, 7, 0);
  doomed.reset();
  auto next = std::make_unique<Probe>();  // may take the same address
  EXPECT_EQ(platform.DrainPosted(), 1u);
  EXPECT_TRUE(next->progress.empty());
}

TEST(Messages, MessagesPostedWhileDrainingAndFromOtherThreadsAreDelivered) {
  vglobal::testing::ScriptedPlatform platform;
  Probe window;
  std::thread worker([&] {
    for (WPARAM i = 0; i < 100; ++i) window.PostMessage(WM_PROGRESS, i, 0);
  });
  worker.join();
  int chained = 0;
  platform.Post([&] {
    window.PostMessage(WM_COMMAND, 6025, 0);
    ++chained;
  });
  EXPECT_EQ(platform.DrainPosted(), 102u);
  EXPECT_EQ(window.progress.size(), 100u);
  EXPECT_EQ(window.progress.back().first, 99u);
  EXPECT_EQ(window.refreshed, 1);
  EXPECT_EQ(chained, 1);
}

TEST(Timers, TickInTimeOrderOnTheTestsClock) {
  vglobal::testing::ScriptedPlatform platform;
  Probe window;
  EXPECT_EQ(window.SetTimer(1, 100, nullptr), 1u);
  EXPECT_EQ(window.SetTimer(2, 250, nullptr), 2u);
  platform.AdvanceTime(99);
  EXPECT_TRUE(window.ticks.empty());
  platform.AdvanceTime(401);  // t = 500
  EXPECT_EQ(window.ticks, (std::vector<UINT_PTR>{1, 1, 2, 1, 1, 1, 2}));
  EXPECT_EQ(window.SetTimer(0, 100, nullptr), 0u);  // id 0 is no timer
  EXPECT_FALSE(window.KillTimer(3));
}

TEST(Timers, SettingAgainRestartsAndAZeroPeriodIsTheMinimum) {
  vglobal::testing::ScriptedPlatform platform;
  Probe window;
  window.SetTimer(1, 100, nullptr);
  platform.AdvanceTime(90);
  window.SetTimer(1, 100, nullptr);  // due again at 190
  platform.AdvanceTime(90);
  EXPECT_TRUE(window.ticks.empty());
  platform.AdvanceTime(10);
  EXPECT_EQ(window.ticks, (std::vector<UINT_PTR>{1}));
  window.SetTimer(2, 0, nullptr);
  platform.AdvanceTime(10);
  EXPECT_EQ(window.ticks, (std::vector<UINT_PTR>{1, 2}));
}

TEST(Timers, KillingFromTheTickAndDestroyingTheWindowAreSafe) {
  vglobal::testing::ScriptedPlatform platform;
  auto window = std::make_unique<Probe>();
  window->SetTimer(1, 10, nullptr);
  window->SetTimer(2, 10, nullptr);
  window->onTick = [&](UINT_PTR id) {
    if (id == 1 && window->ticks.size() == 1) {
      EXPECT_TRUE(window->KillTimer(2));  // due at the same time: never ticks
    }
  };
  platform.AdvanceTime(30);
  EXPECT_EQ(window->ticks, (std::vector<UINT_PTR>{1, 1, 1}));

  window->onTick = [&](UINT_PTR) { window.reset(); };  // destroyed by its own tick
  platform.AdvanceTime(100);
  EXPECT_EQ(window, nullptr);

  Probe other;
  other.SetTimer(5, 10, nullptr);
  platform.AdvanceTime(10);
  EXPECT_EQ(other.ticks, (std::vector<UINT_PTR>{5}));
}

std::vector<UINT_PTR> procTicks;
void TimerProc(HWND, UINT message, UINT_PTR id, DWORD) {
  if (message == WM_TIMER) procTicks.push_back(id);
}

TEST(Timers, ATimerProcedureTakesTheTickInsteadOfTheWindow) {
  vglobal::testing::ScriptedPlatform platform;
  Probe window;
  procTicks.clear();
  window.SetTimer(9, 50, &TimerProc);
  platform.AdvanceTime(100);
  EXPECT_EQ(procTicks, (std::vector<UINT_PTR>{9, 9}));
  EXPECT_TRUE(window.ticks.empty());
}

}  // namespace
