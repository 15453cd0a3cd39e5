// Export and import of a store of 100,000 values (1,000 keys of 100 values of every
// type) on SQLite files, as arvenis-settings runs them, beside baselines measured in
// the same run:
//   export  against reading every value through the store interface, key by key, as
//           an application reads its settings;
//   import  against writing every value through the store interface, one write at a
//           time, as an application writes its settings.
// Each benchmark reports its baseline in milliseconds and the ratio to it.
//
// Run: build/release/bench/settings_transfer_bench
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>

#include "json_transfer.h"
#include "reg_file_parser.h"
#include "reg_file_writer.h"
#include "store_transfer.h"

namespace {

using arvenis_settings::Root;
using vglobal::SettingsChange;
using vglobal::SettingsValue;

constexpr int kKeys = 1000, kValuesPerKey = 100;
const std::wstring kTop = L"Software\\Ostrel\\Arvenis\\Bench";

double Milliseconds(const std::function<void()>& run) {
  const auto start = std::chrono::steady_clock::now();
  run();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

std::shared_ptr<vglobal::SettingsStore> OpenStore(const std::string& file) {
  return vglobal::OpenSqliteSettingsStore(file, vglobal::SettingsFileKind::User, true);
}

// The source store, its files in every format, and the baselines, made once per run.
class Data {
 public:
  Data() {
    std::string dir = (std::filesystem::temp_directory_path() / "settings-transfer-XXXXXX");
    dir_ = mkdtemp(dir.data());
    for (int k = 0; k < kKeys; ++k) {
      const std::wstring path = kTop + L"\\Key " + std::to_wstring(k);
      for (int v = 0; v < kValuesPerKey; ++v) {
        std::optional<SettingsValue> value;
        switch (v % 5) {
          case 0:
            value = SettingsValue::Int(k * v);
            break;
          case 1:
            value = SettingsValue::Double(k + v * 0.1);
            break;
          case 2:
            value = SettingsValue::String(L"C:\\Arvenis\\Data\\Sample " + std::to_wstring(v));
            break;
          case 3:
            value =
                SettingsValue::Binary(std::vector<std::uint8_t>(32, static_cast<std::uint8_t>(v)));
            break;
          default:
            value = SettingsValue::MultiString({L"first", L"second", L"third"});
        }
        changes_.push_back({SettingsChange::Kind::WriteValue, path, L"Value " + std::to_wstring(v),
                            std::move(value)});
      }
    }
    auto source = OpenStore(Source());
    if (!source->Apply(changes_).ok()) std::abort();
    const auto branch = arvenis_settings::ReadBranch(*source, kTop);
    if (!branch) std::abort();
    reg_ = WriteRegFile(*branch, Root::CurrentUser, arvenis_settings::RegEncoding::Utf16).bytes;
    json_ = WriteJson(*branch, Root::CurrentUser).text;

    // Baselines: the best of three reads, and one write (which takes seconds).
    readMs_ = 1e300;
    for (int round = 0; round < 3; ++round) {
      auto store = OpenStore(Source());
      readMs_ = std::min(readMs_, Milliseconds([&] { ReadEveryValue(*store); }));
    }
    const std::string file = Fresh();
    auto target = OpenStore(file);
    writeMs_ = Milliseconds([&] {
      for (const SettingsChange& c : changes_) {
        const auto key = target->CreateKey(vglobal::kSettingsRootKey, c.path);
        if (!key || target->WriteValue(*key, c.name, *c.value) != vglobal::SettingsError::None) {
          std::abort();
        }
      }
      target->Sync();
    });
    target.reset();
    Remove(file);
  }
  ~Data() { std::filesystem::remove_all(dir_); }

  std::string Source() const { return dir_ + "/source.db"; }
  // A new, empty store file's name.
  std::string Fresh() { return dir_ + "/target" + std::to_string(++targets_) + ".db"; }
  void Remove(const std::string& file) {
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file + suffix);
  }

  const std::string& reg() const { return reg_; }
  const std::string& json() const { return json_; }
  const std::vector<SettingsChange>& changes() const { return changes_; }
  double readMs() const { return readMs_; }
  double writeMs() const { return writeMs_; }

 private:
  static void ReadEveryValue(vglobal::SettingsStore& store) {
    for (int k = 0; k < kKeys; ++k) {
      const auto key =
          store.FindKey(vglobal::kSettingsRootKey, kTop + L"\\Key " + std::to_wstring(k));
      if (!key) std::abort();
      for (int v = 0; v < kValuesPerKey; ++v) {
        benchmark::DoNotOptimize(store.ReadValue(*key, L"Value " + std::to_wstring(v)));
      }
    }
  }

  std::string dir_;
  int targets_ = 0;
  std::vector<SettingsChange> changes_;
  std::string reg_, json_;
  double readMs_ = 0, writeMs_ = 0;
};

Data& TheData() {
  static Data data;
  return data;
}

// Runs `run` once per iteration, timing it alone; `setUp` runs before it, untimed.
void Measure(benchmark::State& state, double baselineMs, const std::function<void()>& setUp,
             const std::function<void()>& run) {
  double totalMs = 0;
  for (auto _ : state) {
    setUp();
    const double ms = Milliseconds(run);
    totalMs += ms;
    state.SetIterationTime(ms / 1000);
  }
  state.counters["values"] = kKeys * kValuesPerKey;
  state.counters["baseline_ms"] = baselineMs;
  state.counters["ratio"] = totalMs / static_cast<double>(state.iterations()) / baselineMs;
}

void Export(benchmark::State& state, bool json) {
  Data& data = TheData();
  std::shared_ptr<vglobal::SettingsStore> store;
  Measure(
      state, data.readMs(), [&] { store = OpenStore(data.Source()); },
      [&] {
        const auto branch = arvenis_settings::ReadBranch(*store, kTop);
        if (json) {
          benchmark::DoNotOptimize(WriteJson(*branch, Root::CurrentUser));
        } else {
          benchmark::DoNotOptimize(
              WriteRegFile(*branch, Root::CurrentUser, arvenis_settings::RegEncoding::Utf16));
        }
      });
}

void BM_Export_RegFile(benchmark::State& state) {
  Export(state, false);
}
void BM_Export_Json(benchmark::State& state) {
  Export(state, true);
}

// `import` makes its changes in an empty store file.
void Import(benchmark::State& state,
            const std::function<void(const Data&, vglobal::SettingsStore&)>& import) {
  Data& data = TheData();
  std::string file;
  std::shared_ptr<vglobal::SettingsStore> store;
  Measure(
      state, data.writeMs(),
      [&] {
        store.reset();
        if (!file.empty()) data.Remove(file);
        file = data.Fresh();
        store = OpenStore(file);
      },
      [&] {
        import(data, *store);
        store->Sync();
      });
  store.reset();
  data.Remove(file);
}

void Apply(vglobal::SettingsStore& store, const std::vector<SettingsChange>& changes) {
  if (!store.Apply(changes).ok()) std::abort();
}

void BM_Import_RegFile(benchmark::State& state) {
  Import(state, [](const Data& d, vglobal::SettingsStore& store) {
    Apply(store, arvenis_settings::ParseRegFile(d.reg(), Root::CurrentUser).changes);
  });
}
void BM_Import_Json(benchmark::State& state) {
  Import(state, [](const Data& d, vglobal::SettingsStore& store) {
    Apply(store, arvenis_settings::ParseJson(d.json(), Root::CurrentUser).changes);
  });
}
// The store's batch alone, from changes made beforehand: what reading a file adds is
// the rest.
void BM_Import_BatchOnly(benchmark::State& state) {
  Import(state, [](const Data& d, vglobal::SettingsStore& store) { Apply(store, d.changes()); });
}

BENCHMARK(BM_Export_RegFile)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Export_Json)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Import_RegFile)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Import_Json)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Import_BatchOnly)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
