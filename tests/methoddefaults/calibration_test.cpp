// The Calibration and Levels pages of the default component: what the component types
// outside the golden layout store, what a read gives back, and how lists are replaced
// and bounded.
#include "vglobal/methoddefaults/calibration.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "populate.h"
#include "stored_layout.h"
#include "vglobal/fileio/component.h"
#include "vglobal/settings.h"

namespace {

const std::wstring kCalibration = L"Processing Setup\\Defaults\\Quan\\Calibration";
const std::wstring kLevels = L"Processing Setup\\Defaults\\Quan\\Levels";

class DefaultComponentStore : public ::testing::Test {
 protected:
  vglobal::UseMemorySettingsStores stores_;
};

// Every calibration field set apart from its default and from the others.
CComponentIO CalibratedComponent(int type) {
  CComponentIO c;
  c.Type(type);
  c.ISTDBaseAmount(2.5);
  c.ISTDUnits(L"ng");
  c.CurveIndex(3);
  c.OriginIndex(2);
  c.WeightingIndex(4);
  c.ResponseIndex(1);
  c.CalibrationUnits(L"ug/L");
  c.PercentISTDInTarget(0.5);
  c.PercentTargetInISTD(0.25);
  c.SpikeAmount(40.0);
  c.SpikeLowerRecovery(70.0);
  c.SpikeUpperRecovery(130.0);
  return c;
}

CLevel MakeLevel(const wchar_t* name, double amount, int replicates) {
  CLevel level;
  level.LevelName(name);
  level.BaseAmount(amount);
  level.TestPercent(amount / 10);
  level.NumReplicates(replicates);
  for (int i = 0; i < replicates; ++i) {
    level[i].Amount(amount + i);
    level[i].Height(100.0 * (i + 1));
    level[i].Area(1000.0 * (i + 1));
    level[i].ExcludeFromCalibration(i % 2);
    level[i].ResultFileName(CString(name) + L".raw");
  }
  return level;
}

void ExpectSameLevel(const CLevel& got, const CLevel& want) {
  vglobal::testing::ExpectSameFields(got, want);
  ASSERT_EQ(got.NumReplicates(), want.NumReplicates());
  for (int i = 0; i < want.NumReplicates(); ++i)
    vglobal::testing::ExpectSameFields(got[i], want[i]);
}

// ---- Calibration ----

TEST_F(DefaultComponentStore, InternalStandardStoresOnlyItsAmountAndUnits) {
  CComponentIO istd = CalibratedComponent(1);
  WriteCalibrationInfo(&istd);
  EXPECT_EQ(stored_layout::Values(kCalibration),
            "TypeIndex:int ISTDBaseAmount:double ISTDUnits:string");

  CComponentIO read;
  read.CurveIndex(7);
  EXPECT_EQ(ReadCalibrationInfo(&read), 0);
  EXPECT_EQ(read.Type(), 1);
  EXPECT_EQ(read.ISTDBaseAmount(), 2.5);
  EXPECT_EQ(read.ISTDUnits(), L"ng");
  EXPECT_EQ(read.CurveIndex(), 7);
}

// A target compound (0) and a surrogate (4) are in the golden layout.
TEST_F(DefaultComponentStore, EveryOtherTypeStoresItsCurveAndCrossContributions) {
  for (int type : {2, 3, -1}) {
    CComponentIO c = CalibratedComponent(type);
    WriteCalibrationInfo(&c);
    EXPECT_EQ(stored_layout::Values(kCalibration),
              "TypeIndex:int WeightingIndex:int OriginIndex:int CurveIndex:int "
              "CalibrationUnits:string ResponseIndex:int ISTDInTarget:double TargetInISTD:double")
        << "type " << type;
    CVRegKey(HKEY_CURRENT_USER, kCalibration.c_str(), 0, 0).DeleteAll();
  }
}

TEST_F(DefaultComponentStore, CalibrationReadAppliesWhatIsFoundThoughIncomplete) {
  CComponentIO target = CalibratedComponent(0);
  WriteCalibrationInfo(&target);
  CComponentIO read;
  EXPECT_EQ(ReadCalibrationInfo(&read), 0);
  EXPECT_EQ(read.CurveIndex(), 3);
  EXPECT_EQ(read.OriginIndex(), 2);
  EXPECT_EQ(read.WeightingIndex(), 4);
  EXPECT_EQ(read.ResponseIndex(), 1);
  EXPECT_EQ(read.CalibrationUnits(), L"ug/L");
  EXPECT_EQ(read.PercentISTDInTarget(), 0.5);
  EXPECT_EQ(read.PercentTargetInISTD(), 0.25);
  EXPECT_EQ(read.ISTDBaseAmount(), CComponentIO().ISTDBaseAmount());

  // Both groups stored (by two writes) make the section complete.
  CComponentIO istd = CalibratedComponent(1);
  istd.ISTDBaseAmount(9.0);
  WriteCalibrationInfo(&istd);
  CComponentIO both;
  EXPECT_EQ(ReadCalibrationInfo(&both), 1);
  EXPECT_EQ(both.Type(), 1);
  EXPECT_EQ(both.ISTDBaseAmount(), 9.0);
  EXPECT_EQ(both.CurveIndex(), 3);
}

TEST_F(DefaultComponentStore, EmptyStoreReadsNothingAndCreatesNothing) {
  CComponentIO read = CalibratedComponent(4);
  EXPECT_EQ(ReadCalibrationInfo(&read), 0);
  EXPECT_EQ(ReadLevelsInfo(&read), 0);
  EXPECT_EQ(read.Type(), 4);
  EXPECT_EQ(read.SpikeAmount(), 40.0);
  EXPECT_EQ(stored_layout::Values(kCalibration), "<absent>");
  EXPECT_EQ(stored_layout::Values(kLevels), "<absent>");
}

// ---- Levels ----

TEST_F(DefaultComponentStore, LevelsRoundTripWithTheirReplicates) {
  CComponentIO target = CalibratedComponent(0);
  target.AddCalLevel(MakeLevel(L"low", 1.0, 2));
  target.AddCalLevel(MakeLevel(L"high", 10.0, 3));
  target.AddQCLevel(MakeLevel(L"qc", 5.0, 1));
  WriteLevelsInfo(&target);

  CComponentIO read;
  // A target compound keeps no surrogate levels or spike values: incomplete.
  EXPECT_EQ(ReadLevelsInfo(&read), 0);
  ASSERT_EQ(read.NumCalLevels(), 2);
  ExpectSameLevel(read.GetCalLevel(0), target.GetCalLevel(0));
  ExpectSameLevel(read.GetCalLevel(1), target.GetCalLevel(1));
  ASSERT_EQ(read.NumQCLevels(), 1);
  ExpectSameLevel(read.GetQCLevel(0), target.GetQCLevel(0));

  // A surrogate written over it adds its list and spike values: now complete.
  CComponentIO surrogate = CalibratedComponent(4);
  surrogate.AddSurrogateLevel(MakeLevel(L"sur", 3.0, 2));
  WriteLevelsInfo(&surrogate);
  CComponentIO all;
  EXPECT_EQ(ReadLevelsInfo(&all), 1);
  EXPECT_EQ(all.NumCalLevels(), 2);
  ASSERT_EQ(all.NumSurrogateCalLevels(), 1);
  ExpectSameLevel(all.GetSurrogateLevel(0), surrogate.GetSurrogateLevel(0));
  EXPECT_EQ(all.SpikeAmount(), 40.0);
  EXPECT_EQ(all.SpikeLowerRecovery(), 70.0);
  EXPECT_EQ(all.SpikeUpperRecovery(), 130.0);
}

TEST_F(DefaultComponentStore, RewriteDropsStaleLevels) {
  CComponentIO c = CalibratedComponent(0);
  for (int i = 0; i < 6; ++i) c.AddCalLevel(MakeLevel(L"six", i, 2));
  WriteLevelsInfo(&c);
  c.NumCalLevels(3);
  c.GetCalLevel(2).NumReplicates(1);
  WriteLevelsInfo(&c);

  EXPECT_EQ(stored_layout::Subkeys(kLevels + L"\\CalLevels"), "Level[0], Level[1], Level[2]");
  EXPECT_EQ(stored_layout::Subkeys(kLevels + L"\\CalLevels\\Level[2]"), "Replicate[0]");
  int count = 0;
  CVRegKey(HKEY_CURRENT_USER, (kLevels + L"\\CalLevels").c_str(), 0, 0)
      .ReadInt(L"NumLevels", &count);
  EXPECT_EQ(count, 3);
}

TEST_F(DefaultComponentStore, SurrogateLeavesTheTargetListsAsTheyWere) {
  CComponentIO target = CalibratedComponent(0);
  target.AddCalLevel(MakeLevel(L"cal", 1.0, 1));
  WriteLevelsInfo(&target);
  CComponentIO surrogate = CalibratedComponent(4);
  surrogate.AddSurrogateLevel(MakeLevel(L"sur", 2.0, 0));
  WriteLevelsInfo(&surrogate);

  EXPECT_EQ(stored_layout::Subkeys(kLevels), "CalLevels, QCLevels, SurrogateLevels");
  EXPECT_EQ(stored_layout::Subkeys(kLevels + L"\\CalLevels"), "Level[0]");
}

TEST_F(DefaultComponentStore, InternalStandardAndOtherTypesWriteNoLevels) {
  for (int type : {1, 2, 3}) {
    CComponentIO c = CalibratedComponent(type);
    c.AddCalLevel(MakeLevel(L"cal", 1.0, 1));
    c.AddSurrogateLevel(MakeLevel(L"sur", 1.0, 1));
    WriteLevelsInfo(&c);
    EXPECT_EQ(stored_layout::Values(kLevels), "") << "type " << type;
    EXPECT_EQ(stored_layout::Subkeys(kLevels), "") << "type " << type;
  }
}

TEST_F(DefaultComponentStore, IncompleteLevelKeepsWhatTheResizeGaveIt) {
  CComponentIO target = CalibratedComponent(0);
  target.AddCalLevel(MakeLevel(L"first", 1.0, 1));
  target.AddCalLevel(MakeLevel(L"second", 2.0, 2));
  WriteLevelsInfo(&target);
  CVRegKey(HKEY_CURRENT_USER, (kLevels + L"\\CalLevels\\Level[1]").c_str(), 0, 0)
      .Delete(L"Replicate[1]");

  CComponentIO read;
  read.AddCalLevel(MakeLevel(L"kept0", 7.0, 0));
  read.AddCalLevel(MakeLevel(L"kept1", 8.0, 0));
  read.AddCalLevel(MakeLevel(L"dropped", 9.0, 0));
  EXPECT_EQ(ReadLevelsInfo(&read), 0);
  ASSERT_EQ(read.NumCalLevels(), 2);
  EXPECT_EQ(read.GetCalLevel(0).LevelName(), L"first");
  EXPECT_EQ(read.GetCalLevel(1).LevelName(), L"kept1");
  EXPECT_EQ(read.GetCalLevel(1).NumReplicates(), 0);
}

TEST_F(DefaultComponentStore, StoredCountsAreBounded) {
  {
    CVRegKey cal(HKEY_CURRENT_USER, (kLevels + L"\\CalLevels").c_str(), 1, 1);
    cal.WriteInt(L"NumLevels", INT_MAX);
    CVRegKey qc(HKEY_CURRENT_USER, (kLevels + L"\\QCLevels").c_str(), 1, 1);
    qc.WriteInt(L"NumLevels", -5);
    CVRegKey sur(HKEY_CURRENT_USER, (kLevels + L"\\SurrogateLevels").c_str(), 1, 1);
    sur.WriteInt(L"NumLevels", 1);
    CVRegKey level(sur, L"Level[0]", 1, 1);
    level.WriteStr(L"Name", L"huge");
    level.WriteDouble(L"BaseAmount", 1.0);
    level.WriteDouble(L"TestPercent", 1.0);
    level.WriteInt(L"NumReplicates", INT_MAX);
  }
  CComponentIO read;
  read.AddCalLevel(MakeLevel(L"untouched", 1.0, 0));
  read.AddQCLevel(MakeLevel(L"emptied", 1.0, 0));
  EXPECT_EQ(ReadLevelsInfo(&read), 0);
  ASSERT_EQ(read.NumCalLevels(), 1);  // a count beyond reason is a missing count
  EXPECT_EQ(read.GetCalLevel(0).LevelName(), L"untouched");
  EXPECT_EQ(read.NumQCLevels(), 0);  // a negative count is an empty list
  ASSERT_EQ(read.NumSurrogateCalLevels(), 1);
  EXPECT_EQ(read.GetSurrogateLevel(0).LevelName(), CLevel().LevelName());
  EXPECT_EQ(read.GetSurrogateLevel(0).NumReplicates(), 0);
}

TEST_F(DefaultComponentStore, SingleLevelFunctionsWorkBelowAnyListKey) {
  CVRegKey list(HKEY_CURRENT_USER, L"Elsewhere\\List", 1, 1);
  CLevel level = MakeLevel(L"solo", 4.0, 2);
  WriteALevel(&level, &list, 5);
  EXPECT_EQ(stored_layout::Subkeys(L"Elsewhere\\List"), "Level[5]");
  CLevel read;
  EXPECT_EQ(ReadALevel(&read, &list, 5), 1);
  ExpectSameLevel(read, level);
  EXPECT_EQ(ReadALevel(&read, &list, 4), 0);
  EXPECT_EQ(stored_layout::Subkeys(L"Elsewhere\\List"), "Level[5]");  // reading made nothing
}

}  // namespace
