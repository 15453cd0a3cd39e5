// A component kept under a key the application names: what a read gives back (and
// deliberately does not), stale and damaged lists, repair of an incomplete key, and
// ownership of the component handed to SetRegistryEntries.
#include "vglobal/methoddefaults/named_component.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>

#include "stored_layout.h"
#include "vglobal/fileio/component.h"
#include "vglobal/settings.h"

namespace {

const std::wstring kPath = L"Quan Browser\\Component";

class NamedComponentStore : public ::testing::Test {
 protected:
  vglobal::UseMemorySettingsStores stores_;
  CString path_ = kPath.c_str();
};

CLevel MakeLevel(const wchar_t* name, double amount, int replicates) {
  CLevel level;
  level.LevelName(name);
  level.BaseAmount(amount);
  level.TestPercent(15.0);
  level.NumReplicates(replicates);
  for (int i = 0; i < replicates; ++i) {
    level[i].Amount(amount);
    level[i].Height(10.0 + i);
    level[i].Area(100.0 + i);
    level[i].ExcludeFromCalibration(i == 1);
    level[i].ResultFileName(CString(name) + L"-rep.raw");
  }
  return level;
}

// A component whose every stored field differs from its default.
CComponentIO FullComponent() {
  CComponentIO c;
  c.ComponentName(L"Caffeine");
  CVC_FilterStruct parser;
  if (parser.ParseFilterStructString(L"+ c Full ms [50.00-500.00]")) c.Filter(parser.ToCFilter());
  c.UserEnteredRT(4.25);
  c.RTSearchWindow(12.0);
  c.UseAsRTReference(1);
  c.AdjustExpectedRT(1);
  c.RTReference(L"Ref");
  c.PeakDetectionIndex(2);
  c.SNThreshold(6.5);
  c.FitThreshold(0.65);
  c.SmoothingPoints(7);
  c.ValleyDetection(1);
  c.ConstrainPeak(1);
  c.PeakHeightPercentage(12.5);
  c.TailingFactor(2.25);
  c.BaselineWindow(55);
  c.PeakNoiseFactor(17);
  c.MultipletResolution(19);
  c.KivaMinPeakWidth(6);
  c.AreaScanWindow(3);
  c.AreaNoiseFactor(9);
  c.AreaTailExtension(4);
  c.KivaNoiseType(1);
  c.KivaConstrainPeak(1);
  c.KivaPeakHeightPercentage(8.5);
  c.KivaTailingFactor(1.25);
  c.Type(4);
  c.ISTDBaseAmount(3.5);
  c.ISTDUnits(L"pg");
  c.CurveIndex(2);
  c.OriginIndex(1);
  c.WeightingIndex(3);
  c.ResponseIndex(1);
  c.CalibrationUnits(L"ng/mL");
  c.ReportUnits(L"ug/L");
  c.PercentISTDInTarget(0.75);
  c.PercentTargetInISTD(1.5);
  c.AddMIPair(CMIPair(195.1, 100.0));
  c.AddMIPair(CMIPair(138.0, 45.5));
  for (int i = 0; i < 3; ++i) c.AddMassRange(CMassRange(50.0 + i, 60.0 + i));
  c.AddCalLevel(MakeLevel(L"high", 50.0, 2));
  c.AddCalLevel(MakeLevel(L"low", 1.0, 1));
  c.AddCalLevel(MakeLevel(L"mid", 10.0, 0));
  c.AddQCLevel(MakeLevel(L"qc", 20.0, 1));
  return c;
}

void WriteAll(CComponentIO& c, const std::wstring& path = kPath) {
  CreateRegistryEntries(&c, path.c_str());
}

TEST_F(NamedComponentStore, RoundTripKeepsValuesMassListAndSortedLevels) {
  CComponentIO c = FullComponent();
  WriteAll(c);
  // Writing sorted the caller's levels by amount.
  EXPECT_EQ(c.GetCalLevel(0).LevelName(), L"low");

  CComponentIO read;
  EXPECT_EQ(ReadDefaultComponent(&read, path_), 1);
  EXPECT_EQ(read.ComponentName(), L"<new>");
  EXPECT_EQ(read.Type(), 0);
  EXPECT_TRUE(read.Filter() == CFilter());
  EXPECT_EQ(read.NumMassRanges(), 0);
  EXPECT_EQ(read.UserEnteredRT(), 4.25);
  EXPECT_EQ(read.RTReference(), L"Ref");
  EXPECT_EQ(read.PeakDetectionIndex(), 2);
  EXPECT_EQ(read.FitThreshold(), 0.65);
  EXPECT_EQ(read.KivaTailingFactor(), 1.25);
  EXPECT_EQ(read.AreaScanWindow(), 3);
  EXPECT_EQ(read.ISTDUnits(), L"pg");
  EXPECT_EQ(read.WeightingIndex(), 3);
  EXPECT_EQ(read.ReportUnits(), L"ug/L");
  EXPECT_EQ(read.PercentTargetInISTD(), 1.5);
  ASSERT_EQ(read.NumMIPairs(), 2);
  EXPECT_EQ(read.GetMIPair(1).Mass(), 138.0);
  EXPECT_EQ(read.GetMIPair(1).Intensity(), 45.5);

  ASSERT_EQ(read.NumCalLevels(), 3);
  EXPECT_EQ(read.GetCalLevel(0).LevelName(), L"low");
  EXPECT_EQ(read.GetCalLevel(1).LevelName(), L"mid");
  const CLevel& high = read.GetCalLevel(2);
  EXPECT_EQ(high.LevelName(), L"high");
  EXPECT_EQ(high.BaseAmount(), 50.0);
  EXPECT_EQ(high.TestPercent(), 15.0);
  ASSERT_EQ(high.NumReplicates(), 2);
  EXPECT_EQ(high[1].Height(), 11.0);
  EXPECT_EQ(high[1].Area(), 101.0);
  EXPECT_EQ(high[1].ExcludeFromCalibration(), 1);
  EXPECT_EQ(high[1].ResultFileName(), L"high-rep.raw");
  ASSERT_EQ(read.NumQCLevels(), 1);
  EXPECT_EQ(read.GetQCLevel(0).LevelName(), L"qc");
}

TEST_F(NamedComponentStore, StoredFilterTextIsParsedAndBadTextGivesTheEmptyFilter) {
  CComponentIO c;
  WriteAll(c);
  CVRegKey key(HKEY_CURRENT_USER, kPath.c_str(), 0, 0);
  key.WriteStr(L"Filter", L"- SIM ms [100.50]");
  CComponentIO read;
  EXPECT_EQ(ReadDefaultComponent(&read, path_), 1);
  EXPECT_EQ(read.Filter().GetPolarity(), CFilter::PolarityNegative);

  key.WriteStr(L"Filter", L"not a filter [");
  EXPECT_EQ(ReadDefaultComponent(&read, path_), 1);
  EXPECT_TRUE(read.Filter() == CFilter());
}

TEST_F(NamedComponentStore, RewriteDropsStaleLevels) {
  CComponentIO c;
  for (int i = 0; i < 8; ++i) c.AddCalLevel(MakeLevel(L"eight", i, 1));
  WriteAll(c);
  c.NumCalLevels(5);
  CVRegKey key(HKEY_CURRENT_USER, kPath.c_str(), 0, 0);
  WriteCalibrationInfo(&c, key);
  EXPECT_EQ(stored_layout::Subkeys(kPath + L"\\CalLevels"),
            "Level[0], Level[1], Level[2], Level[3], Level[4]");
  CComponentIO read;
  EXPECT_EQ(ReadDefaultComponent(&read, path_), 1);
  EXPECT_EQ(read.NumCalLevels(), 5);
}

TEST_F(NamedComponentStore, PeakDetectionIndexFromThreeUpIsRefused) {
  CComponentIO c;
  WriteAll(c);
  CVRegKey key(HKEY_CURRENT_USER, kPath.c_str(), 0, 0);
  key.WriteInt(L"PeakDetectionIndex", 3);
  CComponentIO read;
  EXPECT_EQ(ReadDefaultComponent(&read, path_), 0);
  EXPECT_EQ(read.PeakDetectionIndex(), CComponentIO().PeakDetectionIndex());

  key.WriteInt(L"PeakDetectionIndex", -1);
  EXPECT_EQ(ReadDefaultComponent(&read, path_), 1);
  EXPECT_EQ(read.PeakDetectionIndex(), -1);
}

TEST_F(NamedComponentStore, MissingLevelIsCreatedEmptyByReading) {
  CComponentIO c;
  c.AddCalLevel(MakeLevel(L"a", 1.0, 1));
  c.AddCalLevel(MakeLevel(L"b", 2.0, 1));
  WriteAll(c);
  CVRegKey(HKEY_CURRENT_USER, (kPath + L"\\CalLevels").c_str(), 0, 0).Delete(L"Level[1]");

  CComponentIO read;
  EXPECT_EQ(ReadDefaultComponent(&read, path_), 0);
  ASSERT_EQ(read.NumCalLevels(), 2);
  EXPECT_EQ(read.GetCalLevel(0).LevelName(), L"a");
  EXPECT_EQ(stored_layout::Subkeys(kPath + L"\\CalLevels"), "Level[0], Level[1]");
  EXPECT_EQ(stored_layout::Values(kPath + L"\\CalLevels\\Level[1]"), "");
}

TEST_F(NamedComponentStore, MissingListKeyIsNotMadeByReading) {
  CComponentIO c;
  c.AddQCLevel(MakeLevel(L"qc", 1.0, 0));
  WriteAll(c);
  CVRegKey(HKEY_CURRENT_USER, kPath.c_str(), 0, 0).Delete(L"QCLevels");
  CComponentIO read;
  EXPECT_EQ(ReadDefaultComponent(&read, path_), 0);
  EXPECT_EQ(read.NumQCLevels(), 1);
  EXPECT_EQ(stored_layout::Subkeys(kPath + L"\\QCLevels"), "<absent>");
}

TEST_F(NamedComponentStore, StoredCountsAreBounded) {
  CComponentIO c;
  c.AddCalLevel(MakeLevel(L"a", 1.0, 0));
  WriteAll(c);
  CVRegKey key(HKEY_CURRENT_USER, kPath.c_str(), 0, 0);
  key.WriteInt(L"NumMIPairs", INT_MAX);
  key.WriteInt(L"NumQCLevels", -3);
  CVRegKey(key, L"CalLevels\\Level[0]", 0, 0).WriteInt(L"NumReplicates", 100001);

  CComponentIO read;
  read.AddMIPair(CMIPair(1.0, 2.0));
  read.AddQCLevel(MakeLevel(L"gone", 1.0, 0));
  EXPECT_EQ(ReadDefaultComponent(&read, path_), 0);
  EXPECT_EQ(read.NumMIPairs(), 1);  // a count beyond reason is a missing count
  EXPECT_EQ(read.NumQCLevels(), 0);
  ASSERT_EQ(read.NumCalLevels(), 1);
  EXPECT_EQ(read.GetCalLevel(0).NumReplicates(), 0);
  EXPECT_EQ(stored_layout::Subkeys(kPath + L"\\MassList"), "");
}

TEST_F(NamedComponentStore, ReadLevelInfoOnlyEverClearsTheFlag) {
  CComponentIO c;
  c.AddCalLevel(MakeLevel(L"a", 1.0, 2));
  WriteAll(c);
  CVRegKey list(HKEY_CURRENT_USER, (kPath + L"\\CalLevels").c_str(), 0, 0);
  CLevel level;
  int ok = 0;
  ReadLevelInfo(level, list, 0, ok);
  EXPECT_EQ(ok, 0);
  EXPECT_EQ(level.LevelName(), L"a");
  EXPECT_EQ(level.NumReplicates(), 2);
  ok = 1;
  ReadLevelInfo(level, list, 0, ok);
  EXPECT_EQ(ok, 1);
  ReadLevelInfo(level, list, 7, ok);
  EXPECT_EQ(ok, 0);
}

// ---- SetRegistryEntries ----

struct Tracked : CComponentIO {
  explicit Tracked(int* destroyed) : destroyed_(destroyed) {}
  ~Tracked() override { ++*destroyed_; }
  int* destroyed_;
};

TEST_F(NamedComponentStore, SetRegistryEntriesFreesTheComponentItIsGiven) {
  int destroyed = 0;
  std::unique_ptr<CComponentIO> made(SetRegistryEntries(new Tracked(&destroyed), path_));
  EXPECT_EQ(destroyed, 1);
  ASSERT_NE(made, nullptr);
  std::unique_ptr<CComponentIO> again(SetRegistryEntries(new Tracked(&destroyed), path_));
  EXPECT_EQ(destroyed, 2);
  std::unique_ptr<CComponentIO> fromNull(SetRegistryEntries(nullptr, path_));
  EXPECT_NE(fromNull, nullptr);
}

TEST_F(NamedComponentStore, MissingKeyIsMadeFromADefaultComponent) {
  std::unique_ptr<CComponentIO> made(SetRegistryEntries(nullptr, path_));
  EXPECT_EQ(made->ComponentName(), CComponentIO().ComponentName());
  EXPECT_EQ(made->Type(), 0);

  // Now complete: the next load reads it as it stands.
  std::unique_ptr<CComponentIO> loaded(SetRegistryEntries(nullptr, path_));
  EXPECT_EQ(loaded->ComponentName(), L"<new>");
  CComponentIO check;
  EXPECT_EQ(ReadDefaultComponent(&check, path_), 1);
}

TEST_F(NamedComponentStore, IncompleteKeyIsRepairedWithWhatWasFound) {
  {
    CVRegKey key(HKEY_CURRENT_USER, kPath.c_str(), 1, 1);
    key.WriteDouble(L"UserEnteredRT", 7.75);
    key.WriteInt(L"Type", 4);
    key.WriteInt(L"NumCalLevels", 1);
  }
  std::unique_ptr<CComponentIO> made(SetRegistryEntries(nullptr, path_));
  EXPECT_EQ(made->UserEnteredRT(), 7.75);
  EXPECT_EQ(made->Type(), 4);  // read into the component, but stored as 0
  EXPECT_EQ(made->NumCalLevels(), 1);
  EXPECT_EQ(made->SNThreshold(), CComponentIO().SNThreshold());

  CComponentIO check;
  EXPECT_EQ(ReadDefaultComponent(&check, path_), 1);
  EXPECT_EQ(check.UserEnteredRT(), 7.75);
  EXPECT_EQ(check.Type(), 0);
  EXPECT_EQ(check.NumCalLevels(), 1);
}

}  // namespace
