// The peak-detection, options and peak-display records: starting values that depend on
// the installation, the detector setter and flag bits.
#include "vglobal/fileio/peak_detection.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "vglobal/fileio/options.h"
#include "vglobal/fileio/peak_options.h"

namespace {

TEST(PeakDetectionRecord, AlgorithmNamesAreSafeForAnyValue) {
  EXPECT_EQ(std::wstring(vglobal::PeakDetectionAlgorithmName(PEAK_DETECTION_SOLENTA)), L"Solenta");
  EXPECT_EQ(std::wstring(vglobal::PeakDetectionAlgorithmName(PEAK_DETECTION_KIVA)), L"Kiva");
  EXPECT_EQ(std::wstring(vglobal::PeakDetectionAlgorithmName(PEAK_DETECTION_TAMSIN)), L"Tamsin");
  EXPECT_EQ(std::wstring(vglobal::PeakDetectionAlgorithmName(PEAK_DETECTION_SELFSET)), L"Selfset");
  for (int bad : {-1, 4, INT_MIN, INT_MAX})
    EXPECT_EQ(std::wstring(vglobal::PeakDetectionAlgorithmName(bad)), L"") << bad;
}

TEST(PeakDetectionRecord, NewRecordTakesTheInstallationsAlgorithmForItsDetector) {
  vglobal::UseMemorySettingsStores stores;
  EXPECT_EQ(CPeakDetection().Algorithm(),
            GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_MS));
  CVRegKey(HKEY_LOCAL_MACHINE, L"Installation\\Peak Detection", 1, 1).WriteInt(L"0", 2);
  EXPECT_EQ(CPeakDetection().Algorithm(), PEAK_DETECTION_TAMSIN);
}

TEST(PeakDetectionRecord, DetectorSetterTakesTheEnumerationOrAnyStoredCode) {
  CPeakDetection detection;
  detection.DetectorType(VIRTUAL_DEVICE_PDA);
  EXPECT_EQ(detection.DetectorType(), 2);
  detection.DetectorType(77);  // a code from a newer program is kept as it is
  EXPECT_EQ(detection.DetectorType(), 77);
}

TEST(PeakOptionsRecord, SetFlagChangesOnlyItsOwnBits) {
  CPeakOptions options;
  options.Flags(0x100);  // a bit of another program
  options.SetFlag(CPeakOptions::ShowAreaLabels, 1);
  options.SetFlag(CPeakOptions::ShowPeakBaselines, 1);
  options.SetFlag(CPeakOptions::ShowPeakBaselines, 0);
  EXPECT_TRUE(options.IsFlagSet(CPeakOptions::ShowAreaLabels));
  EXPECT_FALSE(options.IsFlagSet(CPeakOptions::ShowPeakBaselines));
  EXPECT_FALSE(options.IsFlagSet(CPeakOptions::ShowAreaLabels | CPeakOptions::ShowPeakBaselines));
  EXPECT_EQ(options.Flags(), 0x100 | CPeakOptions::ShowAreaLabels);
}

}  // namespace
