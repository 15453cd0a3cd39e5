// The cost of settings reads and writes on the SQLite store, and the pattern that
// matters most: a program reading a user's whole default processing method (about 150
// values over 15 keys, each key opened for reading) from a store that holds 100,000
// other values, beside the same reads from a std::map in the same run.
//
// Run: build/release/bench/settings_bench
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <variant>

#include "vglobal/compat/unicode.h"
#include "vglobal/fileio.h"
#include "vglobal/methoddefaults.h"
#include "vglobal/settings.h"

namespace {

constexpr int kMethodKeys = 15;
constexpr int kIntsPerKey = 4, kDoublesPerKey = 3, kStringsPerKey = 3;
constexpr int kFillerKeys = 1000, kFillerValuesPerKey = 100;

std::wstring MethodKeyPath(int k) {
  return L"Processing Setup\\Defaults\\Quan\\Section " + std::to_wstring(k);
}
std::wstring IntName(int i) {
  return L"Integer setting " + std::to_wstring(i);
}
std::wstring DoubleName(int i) {
  return L"Real setting " + std::to_wstring(i);
}
std::wstring StringName(int i) {
  return L"Text setting " + std::to_wstring(i);
}

// One store file for the whole run, filled once.
class BenchStore {
 public:
  BenchStore() {
    std::string dir = (std::filesystem::temp_directory_path() / "settings-bench-XXXXXX");
    dir_ = mkdtemp(dir.data());
    store_ =
        vglobal::OpenSqliteSettingsStore(dir_ + "/user.db", vglobal::SettingsFileKind::User, true);
    vglobal::SetSettingsStore(HKEY_CURRENT_USER, store_);
    vglobal::SettingsTransaction fill(store_);
    for (int k = 0; k < kFillerKeys; ++k) {
      CVRegKey filler(HKEY_CURRENT_USER, (L"Filler\\Key " + std::to_wstring(k)).c_str(), 1, 1);
      for (int v = 0; v < kFillerValuesPerKey; ++v) {
        filler.WriteInt((L"Value " + std::to_wstring(v)).c_str(), v);
      }
    }
    for (int k = 0; k < kMethodKeys; ++k) {
      CVRegKey key(HKEY_CURRENT_USER, MethodKeyPath(k).c_str(), 1, 1);
      for (int i = 0; i < kIntsPerKey; ++i) key.WriteInt(IntName(i).c_str(), i);
      for (int i = 0; i < kDoublesPerKey; ++i) key.WriteDouble(DoubleName(i).c_str(), i * 0.25);
      for (int i = 0; i < kStringsPerKey; ++i) key.WriteStr(StringName(i).c_str(), L"some text");
    }
    fill.Commit();
  }
  ~BenchStore() {
    vglobal::SetSettingsStore(HKEY_CURRENT_USER, nullptr);
    store_.reset();
    std::filesystem::remove_all(dir_);
  }

  std::string file() const { return dir_ + "/user.db"; }

 private:
  std::string dir_;
  std::shared_ptr<vglobal::SettingsStore> store_;
};

const BenchStore& UseBenchStore() {
  static BenchStore store;
  return store;
}

// The baseline: the same keys and values in a std::map, read into the same kinds of
// fields.
using MapValue = std::variant<int, double, std::wstring>;
using MapStore = std::map<std::wstring, std::map<std::wstring, MapValue>>;

const MapStore& Baseline() {
  static const MapStore store = [] {
    MapStore s;
    for (int k = 0; k < kMethodKeys; ++k) {
      auto& key = s[vglobal::ResolveSettingsPath(MethodKeyPath(k))];
      for (int i = 0; i < kIntsPerKey; ++i) key[IntName(i)] = i;
      for (int i = 0; i < kDoublesPerKey; ++i) key[DoubleName(i)] = i * 0.25;
      for (int i = 0; i < kStringsPerKey; ++i) key[StringName(i)] = std::wstring(L"some text");
    }
    return s;
  }();
  return store;
}

struct Method {
  int ints[kMethodKeys][kIntsPerKey];
  double doubles[kMethodKeys][kDoublesPerKey];
  CString strings[kMethodKeys][kStringsPerKey];
};

// Names and paths are built once, as a caller's compiled-in literals are.
struct Names {
  std::wstring paths[kMethodKeys];
  std::wstring ints[kIntsPerKey], doubles[kDoublesPerKey], strings[kStringsPerKey];
  Names() {
    for (int k = 0; k < kMethodKeys; ++k) paths[k] = MethodKeyPath(k);
    for (int i = 0; i < kIntsPerKey; ++i) ints[i] = IntName(i);
    for (int i = 0; i < kDoublesPerKey; ++i) doubles[i] = DoubleName(i);
    for (int i = 0; i < kStringsPerKey; ++i) strings[i] = StringName(i);
  }
};
const Names& TheNames() {
  static const Names names;
  return names;
}

int ReadMethodFromStore(Method& m) {
  const Names& n = TheNames();
  int ok = 1;
  for (int k = 0; k < kMethodKeys; ++k) {
    CVRegKey key(HKEY_CURRENT_USER, n.paths[k].c_str(), 0, 0);
    for (int i = 0; i < kIntsPerKey; ++i) ok &= key.ReadInt(n.ints[i].c_str(), &m.ints[k][i]);
    for (int i = 0; i < kDoublesPerKey; ++i) {
      ok &= key.ReadDouble(n.doubles[i].c_str(), &m.doubles[k][i]);
    }
    for (int i = 0; i < kStringsPerKey; ++i)
      ok &= key.ReadStr(n.strings[i].c_str(), m.strings[k][i]);
  }
  return ok;
}

int ReadMethodFromMap(Method& m) {
  const Names& n = TheNames();
  const MapStore& store = Baseline();
  int ok = 1;
  for (int k = 0; k < kMethodKeys; ++k) {
    const auto key = store.find(vglobal::ResolveSettingsPath(n.paths[k]));
    if (key == store.end()) return 0;
    auto read = [&](const std::wstring& name, auto& field) {
      using Field = std::remove_reference_t<decltype(field)>;
      const auto value = key->second.find(name);
      if (value == key->second.end()) return 0;
      if constexpr (std::is_same_v<Field, CString>) {
        const auto* s = std::get_if<std::wstring>(&value->second);
        if (!s) return 0;
        field = CString(*s);
      } else {
        const auto* v = std::get_if<Field>(&value->second);
        if (!v) return 0;
        field = *v;
      }
      return 1;
    };
    for (int i = 0; i < kIntsPerKey; ++i) ok &= read(n.ints[i], m.ints[k][i]);
    for (int i = 0; i < kDoublesPerKey; ++i) ok &= read(n.doubles[i], m.doubles[k][i]);
    for (int i = 0; i < kStringsPerKey; ++i) ok &= read(n.strings[i], m.strings[k][i]);
  }
  return ok;
}

void BM_ReadMethod_Sqlite(benchmark::State& state) {
  UseBenchStore();
  Method m;
  if (!ReadMethodFromStore(m)) state.SkipWithError("method not readable");
  const auto loopStart = std::chrono::steady_clock::now();
  for (auto _ : state) benchmark::DoNotOptimize(ReadMethodFromStore(m));
  const double storeUs =
      std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - loopStart)
          .count() /
      static_cast<double>(state.iterations());
  // The baseline in the same run, so that the ratio compares like with like.
  constexpr int kBaselineRounds = 20000;
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < kBaselineRounds; ++i) benchmark::DoNotOptimize(ReadMethodFromMap(m));
  const double baselineUs =
      std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count() /
      kBaselineRounds;
  state.counters["baseline_us"] = baselineUs;
  state.counters["ratio"] = storeUs / baselineUs;
}
BENCHMARK(BM_ReadMethod_Sqlite)->Unit(benchmark::kMicrosecond);

void BM_ReadMethod_StdMap(benchmark::State& state) {
  Method m;
  for (auto _ : state) benchmark::DoNotOptimize(ReadMethodFromMap(m));
}
BENCHMARK(BM_ReadMethod_StdMap)->Unit(benchmark::kMicrosecond);

void BM_ReadMethod_MemoryStore(benchmark::State& state) {
  vglobal::UseMemorySettingsStores memory;
  for (int k = 0; k < kMethodKeys; ++k) {
    CVRegKey key(HKEY_CURRENT_USER, MethodKeyPath(k).c_str(), 1, 1);
    for (int i = 0; i < kIntsPerKey; ++i) key.WriteInt(IntName(i).c_str(), i);
    for (int i = 0; i < kDoublesPerKey; ++i) key.WriteDouble(DoubleName(i).c_str(), i * 0.25);
    for (int i = 0; i < kStringsPerKey; ++i) key.WriteStr(StringName(i).c_str(), L"some text");
  }
  Method m;
  for (auto _ : state) benchmark::DoNotOptimize(ReadMethodFromStore(m));
}
BENCHMARK(BM_ReadMethod_MemoryStore)->Unit(benchmark::kMicrosecond);

void BM_ReadInt_Sqlite(benchmark::State& state) {
  UseBenchStore();
  CVRegKey key(HKEY_CURRENT_USER, MethodKeyPath(0).c_str(), 0, 0);
  const std::wstring name = IntName(1);
  int value = 0;
  for (auto _ : state) benchmark::DoNotOptimize(key.ReadInt(name.c_str(), &value));
}
BENCHMARK(BM_ReadInt_Sqlite);

void BM_OpenKey_Sqlite(benchmark::State& state) {
  UseBenchStore();
  const std::wstring path = MethodKeyPath(3);
  for (auto _ : state) {
    CVRegKey key(HKEY_CURRENT_USER, path.c_str(), 0, 0);
    benchmark::DoNotOptimize(key.IsValid());
  }
}
BENCHMARK(BM_OpenKey_Sqlite);

void BM_WriteInt_Sqlite(benchmark::State& state) {
  UseBenchStore();
  CVRegKey key(HKEY_CURRENT_USER, L"Bench\\Writes", 1, 1);
  int i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(key.WriteInt(L"Counter", ++i));
}
BENCHMARK(BM_WriteInt_Sqlite)->Unit(benchmark::kMicrosecond);

// A calibrated component as a lab keeps it: eight calibration levels and three QC
// levels of three replicates each, every switch that gates values on.
CComponentIO BenchComponent() {
  CComponentIO c;
  c.ComponentName(L"Caffeine");
  c.Keys(L"caffeine;1,3,7-trimethylxanthine");
  c.AdjustExpectedRT(1);
  c.RTReference(L"Caffeine-d9");
  c.IonRatioConfirmation(1);
  c.CalibrationUnits(L"ng/mL");
  c.AreaFlagThreshold(1);
  c.ResolutionChecksEnabled(1);
  c.SymmetryChecksEnabled(1);
  c.PeakClassificationChecksEnabled(1);
  auto level = [](int i, double amount) {
    CLevel l;
    l.LevelName((L"Level " + std::to_wstring(i)).c_str());
    l.BaseAmount(amount);
    for (int r = 0; r < 3; ++r) {
      CReplicate rep;
      rep.Amount(amount);
      rep.Area(amount * 10000.0 + r);
      rep.ResultFileName(L"cal.rst");
      l.AddReplicate(rep);
    }
    return l;
  };
  for (int i = 0; i < 8; ++i) c.AddCalLevel(level(i, 1.0 + i));
  for (int i = 0; i < 3; ++i) c.AddQCLevel(level(i, 2.5 + i));
  return c;
}

// Saving a whole default component, as the processing-setup editor's "save as
// default" does, into the bench store.
void BM_WriteComponent_Sqlite(benchmark::State& state) {
  UseBenchStore();
  CComponentIO c = BenchComponent();
  for (auto _ : state) WriteComponentInfo(&c, vglobal::kWriteWholeComponent);
}
BENCHMARK(BM_WriteComponent_Sqlite)->Unit(benchmark::kMillisecond);

// ---- Reading right after another program wrote -----------------------------

// The same read pattern on a connection of raw SQLite: each key found by walking its
// path, each value read by name and type, in one read transaction. No cache, so
// another program's writes cost it nothing extra.
class RawReader {
 public:
  explicit RawReader(const std::string& file) {
    sqlite3_open_v2(file.c_str(), &db_, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_prepare_v2(db_, "SELECT id FROM settings_key WHERE parent = ?1 AND folded = ?2", -1,
                       &child_, nullptr);
    sqlite3_prepare_v2(db_, "SELECT type, data FROM settings_value WHERE key = ?1 AND folded = ?2",
                       -1, &value_, nullptr);
    for (int k = 0; k < kMethodKeys; ++k) {
      const auto names = vglobal::SplitSettingsPath(vglobal::ResolveSettingsPath(MethodKeyPath(k)));
      std::vector<std::string> folded;
      for (const std::wstring& name : *names) {
        folded.push_back(vglobal::WideToUtf8(vglobal::FoldCase(name)));
      }
      paths_.push_back(folded);
    }
    auto fold = [](const std::wstring& n) { return vglobal::WideToUtf8(vglobal::FoldCase(n)); };
    for (int i = 0; i < kIntsPerKey; ++i) values_.push_back(fold(IntName(i)));
    for (int i = 0; i < kDoublesPerKey; ++i) values_.push_back(fold(DoubleName(i)));
    for (int i = 0; i < kStringsPerKey; ++i) values_.push_back(fold(StringName(i)));
  }
  ~RawReader() {
    sqlite3_finalize(child_);
    sqlite3_finalize(value_);
    sqlite3_close(db_);
  }
  // The number of values found.
  int ReadMethod() {
    int found = 0;
    sqlite3_exec(db_, "BEGIN", nullptr, nullptr, nullptr);
    for (const auto& path : paths_) {
      sqlite3_int64 id = vglobal::kSettingsRootKey;
      for (const std::string& name : path) {
        sqlite3_bind_int64(child_, 1, id);
        sqlite3_bind_text(child_, 2, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
        id = sqlite3_step(child_) == SQLITE_ROW ? sqlite3_column_int64(child_, 0) : 0;
        sqlite3_reset(child_);
      }
      for (const std::string& name : values_) {
        sqlite3_bind_int64(value_, 1, id);
        sqlite3_bind_text(value_, 2, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
        if (sqlite3_step(value_) == SQLITE_ROW) {
          found += sqlite3_column_int(value_, 0) > 0 && sqlite3_column_bytes(value_, 1) >= 0;
        }
        sqlite3_reset(value_);
      }
    }
    sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
    return found;
  }

 private:
  sqlite3* db_ = nullptr;
  sqlite3_stmt *child_ = nullptr, *value_ = nullptr;
  std::vector<std::vector<std::string>> paths_;
  std::vector<std::string> values_;
};

template <typename F>
double MicrosPerCall(int rounds, F&& f) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < rounds; ++i) benchmark::DoNotOptimize(f());
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
             .count() /
         rounds;
}

// The default-method read pattern, each time right after another program (a second
// connection to the same file) wrote one value: Arg 0 a value of an unrelated key, Arg
// 1 a value of one of the pattern's keys. Beside it, in the same run, the warm pattern
// (nothing written in between) and raw SQLite reading the same values.
void BM_ReadMethodAfterForeignWrite_Sqlite(benchmark::State& state) {
  const BenchStore& bench = UseBenchStore();
  auto other = vglobal::OpenSqliteSettingsStore(bench.file(), vglobal::SettingsFileKind::User,
                                                vglobal::SettingsOpenMode::ReadWrite);
  const bool patternKey = state.range(0) != 0;
  const auto key = other->FindKey(
      vglobal::kSettingsRootKey,
      vglobal::ResolveSettingsPath(patternKey ? MethodKeyPath(7) : L"Filler\\Key 500"));
  if (!key) return state.SkipWithError("no key to write");
  const std::wstring name = patternKey ? IntName(2) : L"Value 3";
  Method m;
  if (!ReadMethodFromStore(m)) return state.SkipWithError("method not readable");
  int i = 0;
  double afterUs = 0;
  for (auto _ : state) {
    state.PauseTiming();
    other->WriteValue(*key, name, vglobal::SettingsValue::Int(patternKey ? 2 : ++i));
    state.ResumeTiming();
    const auto start = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(ReadMethodFromStore(m));
    afterUs +=
        std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
  }
  afterUs /= static_cast<double>(state.iterations());
  const double warmUs = MicrosPerCall(2000, [&] { return ReadMethodFromStore(m); });
  RawReader raw(bench.file());
  const double rawUs = MicrosPerCall(2000, [&] { return raw.ReadMethod(); });
  state.counters["after_us"] = afterUs;
  state.counters["warm_us"] = warmUs;
  state.counters["raw_sqlite_us"] = rawUs;
  state.counters["to_warm"] = afterUs / warmUs;
  state.counters["to_raw"] = afterUs / rawUs;
}
BENCHMARK(BM_ReadMethodAfterForeignWrite_Sqlite)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// ---- The memory store: batches and size --------------------------------------
// A batch's cost must not depend on how much the store already holds: the same batch
// of 10,000 values into a store of 10^6 values and into an empty one, in one run.

constexpr int kBigKeys = 1000, kBigValuesPerKey = 1000;  // 10^6 values
constexpr int kBatchValues = 10000;

std::vector<vglobal::SettingsChange> ValueBatch(const std::wstring& path, int first, int count) {
  std::vector<vglobal::SettingsChange> changes;
  changes.reserve(count);
  for (int i = first; i < first + count; ++i) {
    changes.push_back({vglobal::SettingsChange::Kind::WriteValue, path,
                       L"Value " + std::to_wstring(i), vglobal::SettingsValue::Int(i)});
  }
  return changes;
}

// 10^6 values over 1000 keys, written one by one (byBatch false) or as batches of
// 10,000 values (ten keys each).
std::shared_ptr<vglobal::SettingsStore> BuildBigMemoryStore(bool byBatch) {
  auto store = vglobal::MakeMemorySettingsStore();
  const auto path = [](int k) { return L"Filler\\Key " + std::to_wstring(k); };
  constexpr int kKeysPerBatch = kBatchValues / kBigValuesPerKey;
  for (int k = 0; byBatch && k < kBigKeys; k += kKeysPerBatch) {
    std::vector<vglobal::SettingsChange> batch;
    for (int j = k; j < k + kKeysPerBatch; ++j) {
      auto part = ValueBatch(path(j), 0, kBigValuesPerKey);
      batch.insert(batch.end(), part.begin(), part.end());
    }
    if (!store->Apply(batch).ok()) return nullptr;
  }
  for (int k = 0; !byBatch && k < kBigKeys; ++k) {
    const auto key = store->CreateKey(vglobal::kSettingsRootKey, path(k));
    if (!key) return nullptr;
    for (int v = 0; v < kBigValuesPerKey; ++v) {
      store->WriteValue(*key, L"Value " + std::to_wstring(v), vglobal::SettingsValue::Int(v));
    }
  }
  return store;
}

// Applies `batch` to `store`, then takes the batch's key away again; the seconds the
// Apply took, or a negative number when it did not do what was expected.
double TimeBatch(vglobal::SettingsStore& store, const std::vector<vglobal::SettingsChange>& batch,
                 bool expectOk) {
  const auto start = std::chrono::steady_clock::now();
  const bool ok = store.Apply(batch).ok();
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  if (const auto key = store.FindKey(vglobal::kSettingsRootKey, L"Batch")) store.DeleteKey(*key);
  return ok == expectOk ? seconds : -1.0;
}

void BM_Batch10k_MemoryStore(benchmark::State& state) {
  static const std::shared_ptr<vglobal::SettingsStore> big = BuildBigMemoryStore(false);
  if (!big) return state.SkipWithError("the big store could not be built");
  std::vector<vglobal::SettingsChange> batch;  // 100 keys of 100 values
  for (int k = 0; k < 100; ++k) {
    auto part = ValueBatch(L"Batch\\Key " + std::to_wstring(k), 0, kBatchValues / 100);
    batch.insert(batch.end(), part.begin(), part.end());
  }
  double bigMs = 0;
  for (auto _ : state) {
    const double seconds = TimeBatch(*big, batch, true);
    if (seconds < 0) return state.SkipWithError("batch failed");
    state.SetIterationTime(seconds);
    bigMs += 1000.0 * seconds;
  }
  bigMs /= static_cast<double>(state.iterations());
  // The same batch into empty stores, and a batch failing at its last change (undone
  // whole) into the big store.
  constexpr int kRounds = 10;
  double emptyMs = 0, failedMs = 0;
  auto failing = batch;
  failing.push_back({vglobal::SettingsChange::Kind::CreateKey, L"Batch\\\\Bad", {}, {}});
  for (int i = 0; i < kRounds; ++i) {
    auto empty = vglobal::MakeMemorySettingsStore();
    emptyMs += 1000.0 * TimeBatch(*empty, batch, true) / kRounds;
    failedMs += 1000.0 * TimeBatch(*big, failing, false) / kRounds;
  }
  state.counters["big_ms"] = bigMs;
  state.counters["empty_ms"] = emptyMs;
  state.counters["ratio"] = bigMs / emptyMs;
  state.counters["failed_big_ms"] = failedMs;
}
BENCHMARK(BM_Batch10k_MemoryStore)->UseManualTime()->Unit(benchmark::kMillisecond);

// Building a store of 10^6 values: Arg 0 writes them one by one, Arg 1 as batches.
void BM_Build_MemoryStore(benchmark::State& state) {
  for (auto _ : state) {
    auto store = BuildBigMemoryStore(state.range(0) != 0);
    if (!store) return state.SkipWithError("the store could not be built");
    state.PauseTiming();
    store.reset();  // freeing the store is not building it
    state.ResumeTiming();
  }
}
BENCHMARK(BM_Build_MemoryStore)->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kMillisecond);

// ---- Opening a big store ----------------------------------------------------------
// What opening a store costs on a file of 10^6 values (the file's kind and header
// checked, the connection made, the schema checked), beside the least SQLite itself
// does to open the same file: sqlite3_open_v2 and one read of the schema.

class BigStoreFile {
 public:
  BigStoreFile() {
    std::string dir = (std::filesystem::temp_directory_path() / "settings-open-bench-XXXXXX");
    dir_ = mkdtemp(dir.data()) ? dir : std::string();
    const std::string file = dir_ + "/user.db";
    auto store = vglobal::OpenSqliteSettingsStore(file, vglobal::SettingsFileKind::User, true);
    constexpr int kKeysPerBatch = kBatchValues / kBigValuesPerKey;
    for (int k = 0; k < kBigKeys; k += kKeysPerBatch) {
      std::vector<vglobal::SettingsChange> batch;
      for (int j = k; j < k + kKeysPerBatch; ++j) {
        auto part = ValueBatch(L"Filler\\Key " + std::to_wstring(j), 0, kBigValuesPerKey);
        batch.insert(batch.end(), part.begin(), part.end());
      }
      if (!store->Apply(batch).ok()) return;
    }
    path_ = file;
  }
  ~BigStoreFile() { std::filesystem::remove_all(dir_); }
  const std::string& path() const { return path_; }  // empty when it could not be made

 private:
  std::string dir_, path_;
};

// Opens `file` with SQLite alone and reads the schema's first row; false on failure.
bool OpenWithSqliteAlone(const std::string& file) {
  sqlite3* db = nullptr;
  bool ok = sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                            nullptr) == SQLITE_OK;
  sqlite3_stmt* read = nullptr;
  ok = ok && sqlite3_prepare_v2(db, "SELECT name FROM sqlite_schema LIMIT 1", -1, &read, nullptr) ==
                 SQLITE_OK;
  ok = ok && sqlite3_step(read) == SQLITE_ROW;
  sqlite3_finalize(read);
  sqlite3_close(db);
  return ok;
}

void BM_OpenBigStore_Sqlite(benchmark::State& state) {
  static const BigStoreFile big;
  if (big.path().empty()) return state.SkipWithError("the big store could not be made");
  using Clock = std::chrono::steady_clock;
  double storeUs = 0;
  for (auto _ : state) {
    const auto start = Clock::now();
    auto store =
        vglobal::OpenSqliteSettingsStore(big.path(), vglobal::SettingsFileKind::User, false);
    if (store->Status().state != vglobal::SettingsStoreState::Writable) {
      return state.SkipWithError("the big store did not open");
    }
    const std::chrono::duration<double> seconds = Clock::now() - start;
    state.SetIterationTime(seconds.count());
    storeUs += 1e6 * seconds.count();
  }
  // The baseline, in the same run over as many opens.
  const auto start = Clock::now();
  for (benchmark::IterationCount i = 0; i < state.iterations(); ++i) {
    if (!OpenWithSqliteAlone(big.path())) return state.SkipWithError("SQLite did not open it");
  }
  const std::chrono::duration<double, std::micro> baseline = Clock::now() - start;
  const double n = static_cast<double>(state.iterations());
  state.counters["store_us"] = storeUs / n;
  state.counters["sqlite_alone_us"] = baseline.count() / n;
  state.counters["ratio"] = storeUs / baseline.count();
}
BENCHMARK(BM_OpenBigStore_Sqlite)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
