// The cost of two utilities that run while a user types or resizes a window, each
// beside a baseline measured in the same benchmark:
// - FitPathToWidth on a 260-character path with the Qt drawing context and a real
//   font, at several widths, against one QFontMetrics::horizontalAdvance of that path
//   (what measuring the path once costs).
// - VDoubleRngParse::Parse of a list of 1,000 numbers and ranges, against splitting the
//   same text by hand and reading each number with wcstod.
// Each benchmark reports its baseline in microseconds and the ratio to it.
//
// Run: build/release/bench/util_bench   (Qt runs offscreen unless QT_QPA_PLATFORM is set)
#include <benchmark/benchmark.h>
#include <locale.h>
#include <stdlib.h>
#include <wchar.h>

#include <QApplication>
#include <QFont>
#include <QFontMetrics>
#include <QString>
#include <chrono>
#include <string>
#include <vector>

#include "bench_support.h"
#include "vglobal/qt/qt_dc.h"
#include "vglobal/util/range_parse.h"
#include "vglobal/util/text_fit.h"

namespace {

using bench::CompareWithBaseline;
using bench::MicrosecondsPerIteration;

// ---- FitPathToWidth --------------------------------------------------------------

QFont BenchFont() {
  return QFont(QStringLiteral("DejaVu Sans"), 10);
}

// A path of exactly 260 characters: folders of a data tree and a file name.
CString LongPath() {
  std::wstring path = LR"(C:\Arvenis\Data\Quantitation)";
  for (int i = 0; path.size() < 240; ++i) path += L"\\Batch " + std::to_wstring(i) + L" Standards";
  path.resize(241);
  path += L"\\calibration_07.sqd";  // 19 characters
  return CString(path);
}

void BM_FitPathToWidth(benchmark::State& state) {
  const int width = static_cast<int>(state.range(0));
  const CString path = LongPath();
  if (path.GetLength() != 260) {
    state.SkipWithError("the path is not 260 characters long");
    return;
  }
  vglobal::QtDC dc(BenchFont());
  CString fitted;
  const double us = MicrosecondsPerIteration(state, [&] {
    fitted = path;
    FitPathToWidth(&dc, fitted, width);
    benchmark::DoNotOptimize(fitted.GetString());
  });
  state.SetLabel(std::to_string(fitted.GetLength()) + " of 260 characters kept");
  const QFontMetrics metrics(BenchFont());
  const QString qpath = QString::fromWCharArray(path.GetString(), path.GetLength());
  CompareWithBaseline(state, us, 20000,
                      [&] { benchmark::DoNotOptimize(metrics.horizontalAdvance(qpath)); });
}
// 60 px leaves only the shortened name; 1600 px keeps all but a few folders.
BENCHMARK(BM_FitPathToWidth)->Arg(60)->Arg(300)->Arg(800)->Arg(1600)->Unit(benchmark::kMicrosecond);

// ---- VDoubleRngParse -------------------------------------------------------------

// 1,000 items, every third a range: "12.5, 13.75-20.25, 27, ..."
std::wstring RangeList() {
  std::wstring text;
  for (int i = 0; i < 1000; ++i) {
    if (i) text += L", ";
    text += std::to_wstring(i * 7 + 12) + L".5";
    if (i % 3 == 1) text += L"-" + std::to_wstring(i * 7 + 19) + L".25";
  }
  return text;
}

// Splitting by hand: items at ',', the two ends of a range at '-', numbers by wcstod
// in the "C" number format, as the parser reads them.
int ParseByHand(const std::wstring& text, std::vector<double>& lows, std::vector<double>& highs) {
  static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
  lows.clear();
  highs.clear();
  const wchar_t* p = text.c_str();
  while (*p) {
    wchar_t* end = nullptr;
    const double low = wcstod_l(p, &end, classic);
    double high = low;
    if (*end == L'-') high = wcstod_l(end + 1, &end, classic);
    lows.push_back(low);
    highs.push_back(high);
    p = end;
    while (*p == L',' || *p == L' ') ++p;
  }
  return static_cast<int>(lows.size());
}

void BM_RangeParse(benchmark::State& state) {
  const CString text(RangeList());
  VDoubleRngParse parser(1000);
  if (parser.Parse(text) != 1000) {
    state.SkipWithError("the list did not parse to 1000 ranges");
    return;
  }
  const double us = MicrosecondsPerIteration(state, [&] {
    VDoubleRngParse p(1000);
    benchmark::DoNotOptimize(p.Parse(text));
  });
  std::vector<double> lows, highs;
  const std::wstring plain = text.str();
  if (ParseByHand(plain, lows, highs) != 1000 || lows[1] != parser.GetLow(1) ||
      highs[1] != parser.GetHigh(1)) {
    state.SkipWithError("the baseline reads the list differently");
    return;
  }
  CompareWithBaseline(state, us, 2000,
                      [&] { benchmark::DoNotOptimize(ParseByHand(plain, lows, highs)); });
}
BENCHMARK(BM_RangeParse)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // The range list is written with ',' between items, whatever the locale says.
  setenv("ARVENIS_LIST_SEPARATOR", ",", 1);
  QApplication app(argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
