// Saving the user's defaults is all or nothing: a save that stops at any point (a
// failing store, a killed program) leaves every section as it was before the save or
// as it is after it, never half.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "methoddefaults/populate.h"
#include "settings/settings_test_support.h"
#include "support/store_dump.h"
#include "vglobal/vglobal.h"

namespace {

using settings_test::TempDir;
using vglobal::SettingsError;
using vglobal::SettingsKeyId;
using vglobal::SettingsStore;
using vglobal::testing::Populate;
using vglobal::testing::Seed;

constexpr const wchar_t* kDefaults = L"Processing Setup\\Defaults";

// A component with `levels` calibration levels of two replicates each: saving it
// empties and rewrites the level lists, where a half save shows most.
CComponentIO Component(int first, int levels) {
  Seed seed;
  for (int i = 0; i < first; ++i) seed.Whole(), seed.Real();
  CComponentIO c;
  Populate(c, seed);
  c.DetectorType(VIRTUAL_DEVICE_MS);
  c.Type(0);
  c.UseAsRTReference(0);
  for (int i = 0; i < levels; ++i) c.AddCalLevel(vglobal::testing::PopulatedLevel(seed, 2));
  c.AddQCLevel(vglobal::testing::PopulatedLevel(seed, 0));
  return c;
}

void Save(CComponentIO component) {
  WriteComponentInfo(&component, vglobal::kWriteWholeComponent);
}

// The defaults as a text where the order of values and keys does not count: a save
// over an earlier one keeps the places of values it overwrites.
std::string Defaults() {
  std::string dump = vglobal::testing::DumpUserStore(kDefaults);
  std::vector<std::string> lines;
  for (std::size_t start = 0, end; start < dump.size(); start = end + 1) {
    end = dump.find('\n', start);
    if (end == std::string::npos) end = dump.size();
    lines.push_back(dump.substr(start, end - start));
  }
  // Each value line keeps the key it belongs to.
  std::string key;
  for (std::string& line : lines) {
    if (!line.empty() && line[0] == '[')
      key = line;
    else
      line = key + " " + line;
  }
  std::sort(lines.begin(), lines.end());
  std::string sorted;
  for (const std::string& line : lines) sorted += line + "\n";
  return sorted;
}

// The first line where two dumps differ, to say what a failed comparison found.
std::string FirstDifference(const std::string& a, const std::string& b) {
  std::size_t i = 0;
  while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
  const std::size_t start = a.rfind('\n', i) == std::string::npos ? 0 : a.rfind('\n', i) + 1;
  return "\n  " + a.substr(start, a.find('\n', i) - start) + "\n  " +
         b.substr(start, b.find('\n', i) - start);
}

// Passes everything to a real store until the change numbered `failAt`; from there on
// every change fails and the transaction in progress never commits, as when the
// program dies at that point.
class StoppingStore final : public SettingsStore {
 public:
  StoppingStore(std::shared_ptr<SettingsStore> inner, int failAt)
      : inner_(std::move(inner)), left_(failAt) {}
  bool stopped() const { return left_ <= 0; }

  std::string Location() const override { return inner_->Location(); }
  vglobal::SettingsStoreStatus Status() override { return inner_->Status(); }
  vglobal::SettingsResult<SettingsKeyId> FindKey(SettingsKeyId p, std::wstring_view path) override {
    return inner_->FindKey(p, path);
  }
  vglobal::SettingsResult<SettingsKeyId> CreateKey(SettingsKeyId p,
                                                   std::wstring_view path) override {
    if (Stop()) return SettingsError::Failed;
    return inner_->CreateKey(p, path);
  }
  vglobal::SettingsResult<vglobal::SettingsValue> ReadValue(SettingsKeyId k,
                                                            std::wstring_view n) override {
    return inner_->ReadValue(k, n);
  }
  SettingsError WriteValue(SettingsKeyId k, std::wstring_view n,
                           const vglobal::SettingsValue& v) override {
    return Stop() ? SettingsError::Failed : inner_->WriteValue(k, n, v);
  }
  SettingsError DeleteValue(SettingsKeyId k, std::wstring_view n) override {
    return Stop() ? SettingsError::Failed : inner_->DeleteValue(k, n);
  }
  SettingsError DeleteKey(SettingsKeyId k) override {
    return Stop() ? SettingsError::Failed : inner_->DeleteKey(k);
  }
  SettingsError DeleteContents(SettingsKeyId k) override {
    return Stop() ? SettingsError::Failed : inner_->DeleteContents(k);
  }
  vglobal::SettingsResult<std::vector<std::wstring>> ValueNames(SettingsKeyId k) override {
    return inner_->ValueNames(k);
  }
  vglobal::SettingsResult<std::vector<std::wstring>> SubkeyNames(SettingsKeyId k) override {
    return inner_->SubkeyNames(k);
  }
  SettingsError Sync() override { return inner_->Sync(); }
  vglobal::SettingsCheckReport Check() override { return inner_->Check(); }
  SettingsError BeginTransaction() override { return inner_->BeginTransaction(); }
  SettingsError EndTransaction(bool commit) override {
    return inner_->EndTransaction(commit && !stopped());
  }

 private:
  bool Stop() { return --left_ <= 0; }
  std::shared_ptr<SettingsStore> inner_;
  int left_;
};

TEST(SavingTheDefaultComponent, StoppingAtAnyChangeLeavesTheDefaultsAsBefore) {
  TempDir dir;
  auto file = vglobal::OpenSqliteSettingsStore(dir / "user.db", vglobal::SettingsFileKind::User,
                                               vglobal::SettingsOpenMode::Create);
  vglobal::SetSettingsStore(HKEY_CURRENT_USER, file);
  Save(Component(0, 3));
  const std::string before = Defaults();
  ASSERT_NE(before.find("Level[2]"), std::string::npos);

  int changes = 0;
  for (int failAt = 1;; ++failAt) {
    auto stopping = std::make_shared<StoppingStore>(file, failAt);
    vglobal::SetSettingsStore(HKEY_CURRENT_USER, stopping);
    Save(Component(100, 2));
    vglobal::SetSettingsStore(HKEY_CURRENT_USER, file);
    if (!stopping->stopped()) break;  // the save ran to its end
    const std::string now = Defaults();
    ASSERT_TRUE(now == before) << "a save stopped at change " << failAt
                               << FirstDifference(now, before);
    changes = failAt;
  }
  EXPECT_GT(changes, 50);  // the save was stopped at every one of its changes
  Save(Component(100, 2));
  EXPECT_EQ(Defaults().find("Level[2]"), std::string::npos);
  vglobal::SetSettingsStore(HKEY_CURRENT_USER, nullptr);
}

// Kills a program saving whole components over and over at random moments, and reads
// what it left each time. The number of kills is kept small for the test suite;
// VGLOBAL_SAVE_KILLS asks for more.
TEST(SavingTheDefaultComponent, AKilledSaveLeavesEverySectionBeforeOrAfter) {
  TempDir dir;
  const std::string path = dir / "user.db";
  auto open = [&] {
    auto store = vglobal::OpenSqliteSettingsStore(path, vglobal::SettingsFileKind::User,
                                                  vglobal::SettingsOpenMode::Create);
    vglobal::SetSettingsStore(HKEY_CURRENT_USER, store);
  };
  std::string saved[2];
  std::vector<vglobal::SectionResult> sections[2];
  open();
  for (int i : {1, 0}) {
    Save(Component(i * 100, 3 - i));
    saved[i] = Defaults();
    CComponentIO read;
    sections[i] = vglobal::ReadComponentDefaultSections(&read);
  }
  vglobal::SetSettingsStore(HKEY_CURRENT_USER, nullptr);  // closes the file

  const char* asked = std::getenv("VGLOBAL_SAVE_KILLS");
  const int kills = asked ? std::atoi(asked) : 12;
  std::mt19937 random(20261124);
  int changed = 0;
  for (int kill = 0; kill < kills; ++kill) {
    // The child saves the two components in turn for as long as it lives.
    const pid_t child = fork();
    if (child == 0) {
      open();
      for (int i = 1;; i = 1 - i) Save(Component(i * 100, 3 - i));
    }
    std::this_thread::sleep_for(std::chrono::microseconds(2000 + random() % 30000));
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);

    open();
    const std::string now = Defaults();
    ASSERT_TRUE(now == saved[0] || now == saved[1])
        << "after kill " << kill << FirstDifference(now, saved[0])
        << FirstDifference(now, saved[1]);
    changed += now == saved[1] ? 1 : 0;
    CComponentIO read;
    const auto results = vglobal::ReadComponentDefaultSections(&read);
    const int which = now == saved[0] ? 0 : 1;
    ASSERT_EQ(results.size(), sections[which].size());
    for (std::size_t s = 0; s < results.size(); ++s) {
      EXPECT_EQ(results[s].complete, sections[which][s].complete)
          << vglobal::WideToUtf8(results[s].section);
    }
    EXPECT_TRUE(vglobal::GetSettingsStore(HKEY_CURRENT_USER)->Check().ok());
    vglobal::SetSettingsStore(HKEY_CURRENT_USER, nullptr);
  }
  std::printf("%d kills, %d left the other component\n", kills, changed);
}

}  // namespace
