// The cost of the window services that run on every user action, each beside a
// baseline measured in the same benchmark:
// - SendMessage of an application's message to a window with 20 message entries,
//   against calling the same handler through the std::function the entry holds.
// - WM_COMMAND to a frame with 200 command entries (the last one registered), against
//   SendMessage of a message entry.
// - 1,000 posted messages drained from the queue, against 1,000 sent ones.
// - Opening and closing a dialog of 40 controls through the control-kind registry,
//   against a dialog of 4.
// - An image list cut from the 24-image command strip, against loading the strip.
// Each benchmark reports its baseline in microseconds and the ratio to it.
//
// Run: build/release/bench/windows_bench
#include <functional>
#include <iterator>
#include <vector>

#include "bench_support.h"
#include "vglobal/vglobal.h"

namespace {

using bench::CompareWithBaseline;
using bench::MicrosecondsPerIteration;

constexpr UINT WM_PROBE = WM_APP + 19;

class Frame : public CFrameWnd {
 public:
  Frame() {
    for (UINT m = 0; m < 20; ++m) OnMessage(WM_APP + m, &Frame::OnProbe);
    for (UINT id = 1000; id < 1200; ++id) OnCommand(id, &Frame::OnCommandProbe);
  }
  LRESULT OnProbe(WPARAM w, LPARAM) { return static_cast<LRESULT>(w + 1); }
  void OnCommandProbe() { ++commands; }
  long commands = 0;
};

void BM_SendMessage(benchmark::State& state) {
  Frame frame;
  const std::function<LRESULT(WPARAM, LPARAM)> direct = [&frame](WPARAM w, LPARAM l) {
    return frame.OnProbe(w, l);
  };
  WPARAM w = 0;
  const double us = MicrosecondsPerIteration(
      state, [&] { benchmark::DoNotOptimize(frame.SendMessage(WM_PROBE, ++w, 0)); });
  CompareWithBaseline(state, us, 1000000, [&] { benchmark::DoNotOptimize(direct(++w, 0)); });
}
BENCHMARK(BM_SendMessage)->Unit(benchmark::kMicrosecond);

void BM_SendCommand(benchmark::State& state) {
  Frame frame;
  const double us =
      MicrosecondsPerIteration(state, [&] { frame.SendMessage(WM_COMMAND, 1199, 0); });
  CompareWithBaseline(state, us, 1000000,
                      [&] { benchmark::DoNotOptimize(frame.SendMessage(WM_PROBE, 1, 0)); });
  benchmark::DoNotOptimize(frame.commands);
}
BENCHMARK(BM_SendCommand)->Unit(benchmark::kMicrosecond);

void BM_PostAndDrain(benchmark::State& state) {
  Frame frame;
  vglobal::Platform& platform = vglobal::GetPlatform();
  const double us = MicrosecondsPerIteration(state, [&] {
    for (int i = 0; i < 1000; ++i) frame.PostMessage(WM_PROBE, i, 0);
    benchmark::DoNotOptimize(platform.DrainPosted());
  });
  CompareWithBaseline(state, us, 1000, [&] {
    for (int i = 0; i < 1000; ++i) benchmark::DoNotOptimize(frame.SendMessage(WM_PROBE, i, 0));
  });
}
BENCHMARK(BM_PostAndDrain)->Unit(benchmark::kMicrosecond);

// A dialog of `n` controls, every kind in turn.
std::vector<vglobal::ControlTemplate> Controls(int n) {
  using vglobal::ControlKind;
  constexpr ControlKind kinds[] = {
      ControlKind::Static,   ControlKind::Edit,       ControlKind::NumericEdit,
      ControlKind::ListBox,  ControlKind::ComboBox,   ControlKind::CheckBox,
      ControlKind::ListCtrl, ControlKind::PushButton, ControlKind::ToolBar,
      ControlKind::Frame,    ControlKind::OwnerDrawn, ControlKind::SpinButton};
  std::vector<vglobal::ControlTemplate> controls;
  for (int i = 0; i < n; ++i)
    controls.push_back({1000 + i, kinds[i % std::size(kinds)], L"text", 7, 7 + 14 * i, 80, 12, 0});
  return controls;
}

void BM_DialogOpenClose(benchmark::State& state) {
  const std::vector<vglobal::ControlTemplate> many = Controls(40), few = Controls(4);
  const vglobal::DialogTemplate manyTemplate{9001, L"Many", 200, 600, 8, many.data(), many.size()};
  const vglobal::DialogTemplate fewTemplate{9002, L"Few", 200, 80, 8, few.data(), few.size()};
  auto openClose = [](const vglobal::DialogTemplate& t) {
    CDialog dialog(t);
    vglobal::DialogDriver driver(dialog);
    benchmark::DoNotOptimize(driver.Open());
    driver.Destroy();
  };
  const double us = MicrosecondsPerIteration(state, [&] { openClose(manyTemplate); });
  CompareWithBaseline(state, us, 20000, [&] { openClose(fewTemplate); });
}
BENCHMARK(BM_DialogOpenClose)->Unit(benchmark::kMicrosecond);

void BM_ImageListFromStrip(benchmark::State& state) {
  CImageList check;
  if (!check.Create(vglobal::kCommandImagesBig, 24, 0, RGB(192, 192, 192)) ||
      check.GetImageCount() != 24) {
    state.SkipWithError("the command strip is not in the resource chain");
    return;
  }
  const double us = MicrosecondsPerIteration(state, [] {
    CImageList images;
    benchmark::DoNotOptimize(images.Create(vglobal::kCommandImagesBig, 24, 0, RGB(192, 192, 192)));
  });
  CompareWithBaseline(state, us, 100000, [] {
    CBitmap strip;
    benchmark::DoNotOptimize(strip.LoadBitmap(vglobal::kCommandImagesBig));
  });
}
BENCHMARK(BM_ImageListFromStrip)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
