// The Detection Flags, Calibration Flags and System Suitability pages of the default
// component: what the readers give back, the whole-number limits, and check groups
// that are switched off.
#include "vglobal/methoddefaults/flags.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <string>

#include "stored_layout.h"
#include "vglobal/fileio/component.h"
#include "vglobal/settings.h"

namespace {

const std::wstring kCalibrationFlags = L"Processing Setup\\Defaults\\Quan\\Calibration Flags";
const std::wstring kSystemSuitability = L"Processing Setup\\Defaults\\Quan\\System Suitability";

class FlagsStore : public ::testing::Test {
 protected:
  vglobal::UseMemorySettingsStores stores_;
};

CComponentIO AllChecksOn() {
  CComponentIO c;
  c.ResolutionChecksEnabled(1);
  c.SymmetryChecksEnabled(1);
  c.PeakClassificationChecksEnabled(1);
  c.ResThreshold(1.75);
  c.SymmetryTake(2.9);
  c.SymmetryThreshold(-2.9);
  c.MinPeakWidth(0.125);
  c.MaxPeakWidth(2.5);
  c.DetectWidth(33.3);
  c.TailingMeasured(5.5);
  c.TailingFailureThreshold(1.75);
  c.ColumnMeasure(44.4);
  c.ColumnFailureThreshold(1500.5);
  c.BaselineClipping(12.5);
  c.DetectSignalToNoise(9.99);
  return c;
}

int StoredInt(const std::wstring& path, const wchar_t* name) {
  int value = INT_MIN + 1;
  CVRegKey(HKEY_CURRENT_USER, path.c_str(), 0, 0).ReadInt(name, &value);
  return value;
}

TEST_F(FlagsStore, DetectionAndCalibrationFlagsRoundTripComplete) {
  CComponentIO c;
  c.AreaFlagThreshold(1.5);
  c.HeightFlagThreshold(2.5);
  c.AreaFlagPercentThreshold(3.5);
  c.HeightFlagPercentThreshold(4.5);
  c.R_Squared(0.995);
  c.LimitDetection(0.01);
  c.LimitQuantitation(0.05);
  c.LinearityLimit(15.0);
  c.CarryOverLimit(0.2);
  WriteDataFlagsInfo(&c);
  WriteCalibrationFlagInfo(&c);

  CComponentIO read;
  EXPECT_EQ(ReadDataFlagsInfo(&read), 1);
  EXPECT_EQ(ReadCalibrationFlagInfo(&read), 1);
  EXPECT_EQ(read.AreaFlagThreshold(), 1.5);
  EXPECT_EQ(read.HeightFlagThreshold(), 2.5);
  EXPECT_EQ(read.AreaFlagPercentThreshold(), 3.5);
  EXPECT_EQ(read.HeightFlagPercentThreshold(), 4.5);
  EXPECT_EQ(read.R_Squared(), 0.995);
  EXPECT_EQ(read.LimitDetection(), 0.01);
  EXPECT_EQ(read.LimitQuantitation(), 0.05);
  EXPECT_EQ(read.LinearityLimit(), 15.0);
  EXPECT_EQ(read.CarryOverLimit(), 0.2);
}

TEST_F(FlagsStore, FlagReadersReportMissingValues) {
  CComponentIO read;
  EXPECT_EQ(ReadDataFlagsInfo(&read), 0);
  EXPECT_EQ(ReadCalibrationFlagInfo(&read), 0);
  CVRegKey(HKEY_CURRENT_USER, kCalibrationFlags.c_str(), 1, 1).WriteDouble(L"R_Squared", 0.9);
  EXPECT_EQ(ReadCalibrationFlagInfo(&read), 0);
  EXPECT_EQ(read.R_Squared(), 0.9);
  EXPECT_EQ(read.LinearityLimit(), CComponentIO().LinearityLimit());
}

TEST_F(FlagsStore, WholeNumberLimitsLoseTheirFractionsTowardZero) {
  CComponentIO c = AllChecksOn();
  WriteSystemSuitabilityInfo(&c);
  EXPECT_EQ(StoredInt(kSystemSuitability, L"ResThreshold"), 1);
  EXPECT_EQ(StoredInt(kSystemSuitability, L"SymmetryTake"), 2);
  EXPECT_EQ(StoredInt(kSystemSuitability, L"SymmetryThreshold"), -2);

  CComponentIO read;
  EXPECT_EQ(ReadSystemSuitabilityInfo(&read), 1);
  EXPECT_EQ(read.ResThreshold(), 1.0);
  EXPECT_EQ(read.SymmetryTake(), 2.0);
  EXPECT_EQ(read.SymmetryThreshold(), -2.0);
  EXPECT_EQ(read.DetectWidth(), 33.0);
  EXPECT_EQ(read.TailingMeasured(), 5.0);
  EXPECT_EQ(read.ColumnMeasure(), 44.0);
  EXPECT_EQ(read.DetectSignalToNoise(), 9.0);
  // The doubles keep their fractions.
  EXPECT_EQ(read.MinPeakWidth(), 0.125);
  EXPECT_EQ(read.TailingFailureThreshold(), 1.75);
  EXPECT_EQ(read.ColumnFailureThreshold(), 1500.5);
  EXPECT_EQ(read.BaselineClipping(), 12.5);
}

TEST_F(FlagsStore, LimitsNoIntCanHoldAreStoredAtTheNearestInt) {
  CComponentIO c = AllChecksOn();
  c.ResThreshold(1e300);
  c.SymmetryTake(-1e300);
  c.SymmetryThreshold(std::numeric_limits<double>::quiet_NaN());
  c.DetectWidth(std::numeric_limits<double>::infinity());
  WriteSystemSuitabilityInfo(&c);
  EXPECT_EQ(StoredInt(kSystemSuitability, L"ResThreshold"), INT_MAX);
  EXPECT_EQ(StoredInt(kSystemSuitability, L"SymmetryTake"), INT_MIN);
  EXPECT_EQ(StoredInt(kSystemSuitability, L"SymmetryThreshold"), 0);
  EXPECT_EQ(StoredInt(kSystemSuitability, L"DetectWidth"), INT_MAX);
}

TEST_F(FlagsStore, ChecksOffLeaveEarlierLimitsInTheStore) {
  CComponentIO first = AllChecksOn();
  WriteSystemSuitabilityInfo(&first);

  CComponentIO off = AllChecksOn();
  off.SymmetryChecksEnabled(0);
  off.SymmetryTake(40.0);
  off.SymmetryThreshold(60.0);
  off.ResThreshold(3.0);
  WriteSystemSuitabilityInfo(&off);
  // The order is that of the first write: rewriting a value keeps its place.
  EXPECT_EQ(StoredInt(kSystemSuitability, L"SymmetryChecksEnabled"), 0);
  EXPECT_EQ(StoredInt(kSystemSuitability, L"SymmetryTake"), 2);
  EXPECT_EQ(StoredInt(kSystemSuitability, L"ResThreshold"), 3);

  CComponentIO read;
  EXPECT_EQ(ReadSystemSuitabilityInfo(&read), 1);
  EXPECT_EQ(read.SymmetryChecksEnabled(), 0);
  EXPECT_EQ(read.SymmetryTake(), 2.0);
  EXPECT_EQ(read.SymmetryThreshold(), -2.0);
}

TEST_F(FlagsStore, ChecksOffInAFreshStoreReadBackIncomplete) {
  CComponentIO c;  // every check off
  c.ResThreshold(5.0);
  WriteSystemSuitabilityInfo(&c);
  EXPECT_EQ(stored_layout::Values(kSystemSuitability),
            "ResolutionChecksEnabled:int SymmetryChecksEnabled:int "
            "PeakClassificationChecksEnabled:int");

  CComponentIO read;
  read.ResolutionChecksEnabled(1);
  read.ResThreshold(7.5);
  EXPECT_EQ(ReadSystemSuitabilityInfo(&read), 0);
  EXPECT_EQ(read.ResolutionChecksEnabled(), 0);
  EXPECT_EQ(read.ResThreshold(), 7.5);
}

}  // namespace
