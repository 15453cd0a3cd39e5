// What the benchmark programs share: timing a benchmark's body, and a baseline run
// in the same benchmark whose time and ratio are reported beside it.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>

namespace bench {

// Runs `baseline` `rounds` times and records its time per round and the ratio of the
// benchmark's own time per iteration to it.
template <typename Baseline>
void CompareWithBaseline(benchmark::State& state, double benchmarkUs, int rounds,
                         Baseline&& baseline) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < rounds; ++i) baseline();
  const double baselineUs =
      std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count() /
      rounds;
  state.counters["baseline_us"] = baselineUs;
  state.counters["ratio"] = benchmarkUs / baselineUs;
}

template <typename Body>
double MicrosecondsPerIteration(benchmark::State& state, Body&& body) {
  const auto start = std::chrono::steady_clock::now();
  for (auto _ : state) body();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
             .count() /
         static_cast<double>(state.iterations());
}

}  // namespace bench
