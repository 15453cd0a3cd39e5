// The peak-detection and options sections: what comes back, the branches the golden
// layout does not take, and the stored layout's long-standing quirks.
#include "vglobal/methoddefaults/peak_detection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "support/store_dump.h"
#include "vglobal/fileio/component.h"

namespace {

using vglobal::testing::DumpUserStore;

const wchar_t* const kExplore = vglobal::kExplorePeakDetectionKey;

// A record in which every field differs from its default and from the other fields,
// with every switch on, so that a value taken from the wrong field shows.
CPeakDetection DistinctDetection(int detector) {
  CPeakDetection d;
  d.MassRequired(3);
  d.PercentMassesFound(61.5);
  d.MinPeakSeparation(0.25);
  d.PercentLargestPeak(12.5);
  d.SmoothingPoints(15);
  d.ValleyDetection(1);
  d.BkgUpdateRate(4.5);
  d.BkgWidth(7);
  d.WindowSize(9);
  d.FilterWidth(5);
  d.SNThreshold(3.5);
  d.ConstrainPeak(1);
  d.PeakHeightPercentage(6.5);
  d.TailingFactor(1.5);
  d.ValleyThreshold(1.25);
  d.ValleyDepth(2.5);
  d.PeakSNRCutoff(0.0025);
  d.PeakWidth(0.75);
  d.DisplayWindowWidth(1.75);
  d.BaseSNR(2.25);
  d.TraceDelay(0.05);
  d.Trace1Type(99);
  d.Trace2Type(98);
  d.TraceOperator(97);
  d.DetectorType(detector);
  d.LimitPeakEnabled(1);
  d.LimitPeakMethod(2);
  d.PeaksNumber(25.0);
  d.RelPeakEnabled(1);
  d.KivaNoiseType(1);
  d.KivaMinPeakWidth(4);
  d.PeakNoiseFactor(11);
  d.BaselineWindow(41);
  d.MultipletResolution(13);
  d.AreaTailExtension(8);
  d.AreaNoiseFactor(6);
  d.AreaScanWindow(2);
  d.KivaConstrainPeak(1);
  d.KivaPeakHeightPercentage(7.5);
  d.KivaTailingFactor(1.125);
  d.KivaRMS(1);
  return d;
}

COptions DistinctOptions() {
  COptions o;
  o.VoidTime(0);
  o.VoidTimeValue(1.5);
  o.SearchWindow(45.0);
  o.MinScansInBaseline(12);
  o.BaseNoiseLimit(0.15);
  o.BkgWidth(9);
  o.BaseNoiseRejectionFactor(2.75);
  o.SpectrumOptions(3);
  return o;
}

CFilter SomeFilter() {
  CVC_FilterStruct parser(9, 2, 2);
  parser.ParseFilterStructString(L"+ c Full ms [50.00-500.00]");
  return parser.ToCFilter();
}

class PeakDetectionDefaults : public ::testing::Test {
 protected:
  CString ExplorePath() const { return CString(kExplore); }
  // Stores one value as a given type, as another program of the suite might have.
  static void StoreDouble(const wchar_t* path, const wchar_t* name, double value) {
    CVRegKey key(HKEY_CURRENT_USER, path, 1, 1);
    key.WriteDouble(name, value);
  }
  static void StoreInt(const wchar_t* path, const wchar_t* name, int value) {
    CVRegKey key(HKEY_CURRENT_USER, path, 1, 1);
    key.WriteInt(name, value);
  }
  // The values of a key as dumped, in name order.
  static std::vector<std::string> SortedValues(const wchar_t* path) {
    std::istringstream dump(DumpUserStore(path));
    std::vector<std::string> lines;
    std::string line;
    std::getline(dump, line);  // the key's own name
    while (std::getline(dump, line)) lines.push_back(line);
    std::sort(lines.begin(), lines.end());
    return lines;
  }
  static int ValueCount(const wchar_t* path) {
    CVRegKey key(HKEY_CURRENT_USER, path, 0, 0);
    CStringArray names;
    return key.GetSubvalueNames(names) ? static_cast<int>(names.GetSize()) : 0;
  }

  vglobal::UseMemorySettingsStores stores_;
};

// ---- Interactive peak detection ----

TEST_F(PeakDetectionDefaults, ExploreWithoutOptionsLeavesOutBaselineValuesAndReadsIncomplete) {
  CPeakDetection detection = DistinctDetection(VIRTUAL_DEVICE_MS);
  {
    CVRegKey key(HKEY_CURRENT_USER, kExplore, 1, 1);
    WriteIdentificationInfo(&detection, nullptr, key);
  }
  EXPECT_EQ(ValueCount(kExplore), 30);
  const std::string dump = DumpUserStore(kExplore);
  EXPECT_EQ(dump.find("BaseNoiseLimit"), std::string::npos);
  EXPECT_EQ(dump.find("MinScansInBaseline"), std::string::npos);
  EXPECT_EQ(dump.find("BaseNoiseRejectionFactor"), std::string::npos);

  // Even with "MinPeakSeparation" made readable, the missing baseline values keep the
  // read incomplete.
  StoreInt(kExplore, L"MinPeakSeparation", 1);
  CPeakDetection loaded;
  COptions options;
  CString path = ExplorePath();
  EXPECT_EQ(ReadDefaultPeakDetection(&loaded, &options, path), 0);
  EXPECT_EQ(loaded.MassRequired(), 3);
  EXPECT_EQ(options.BaseNoiseLimit(), COptions().BaseNoiseLimit());
}

TEST_F(PeakDetectionDefaults, ExploreReadKeepsItsQuirks) {
  CPeakDetection written = DistinctDetection(VIRTUAL_DEVICE_MS);
  COptions writtenOptions = DistinctOptions();
  CreateRegistryEntries(&written, &writtenOptions, ExplorePath());

  CPeakDetection loaded;
  loaded.ValleyThreshold(1.9);
  loaded.MinPeakSeparation(4.0);
  COptions options;
  CString path = ExplorePath();
  // "MinPeakSeparation" was stored as a double and is looked up as an int: missing.
  EXPECT_EQ(ReadDefaultPeakDetection(&loaded, &options, path), 0);
  EXPECT_EQ(loaded.MinPeakSeparation(), 4.0);
  // "ValleyThreshold" is never read; "SNThreshold" is read in its place.
  EXPECT_EQ(loaded.ValleyThreshold(), 1.9);
  EXPECT_EQ(loaded.SNThreshold(), 3.5);
  // Everything else is loaded, from both records.
  EXPECT_EQ(loaded.KivaTailingFactor(), 1.125);
  EXPECT_EQ(loaded.PeakWidth(), 0.75);
  EXPECT_EQ(options.MinScansInBaseline(), 12);
  EXPECT_EQ(options.BaseNoiseRejectionFactor(), 2.75);

  // Stored as an int, as another writer may have done, it is found and widened.
  StoreInt(kExplore, L"MinPeakSeparation", 2);
  EXPECT_EQ(ReadDefaultPeakDetection(&loaded, &options, path), 1);
  EXPECT_EQ(loaded.MinPeakSeparation(), 2.0);
}

TEST_F(PeakDetectionDefaults, ExploreMinScansInBaselineTruncatesTowardZeroAndRejectsNonIntegers) {
  CPeakDetection detection = DistinctDetection(VIRTUAL_DEVICE_MS);
  COptions options = DistinctOptions();
  CreateRegistryEntries(&detection, &options, ExplorePath());
  StoreInt(kExplore, L"MinPeakSeparation", 0);
  CString path = ExplorePath();

  StoreDouble(kExplore, L"MinScansInBaseline", 7.9);
  EXPECT_EQ(ReadDefaultPeakDetection(&detection, &options, path), 1);
  EXPECT_EQ(options.MinScansInBaseline(), 7);
  StoreDouble(kExplore, L"MinScansInBaseline", -7.9);
  EXPECT_EQ(ReadDefaultPeakDetection(&detection, &options, path), 1);
  EXPECT_EQ(options.MinScansInBaseline(), -7);

  // Values no int can hold count as missing and leave the field as it was.
  for (double bad : {std::numeric_limits<double>::quiet_NaN(),
                     std::numeric_limits<double>::infinity(), 1e300, -3e9}) {
    StoreDouble(kExplore, L"MinScansInBaseline", bad);
    EXPECT_EQ(ReadDefaultPeakDetection(&detection, &options, path), 0) << bad;
    EXPECT_EQ(options.MinScansInBaseline(), -7) << bad;
  }
}

TEST_F(PeakDetectionDefaults, ExploreNullRecordsAreRefusedWithoutTouchingTheStore) {
  COptions options;
  CString path = ExplorePath();
  SetDefaultRegistryEntries(nullptr, &options, path);
  CreateRegistryEntries(nullptr, &options, path);
  EXPECT_EQ(ReadDefaultPeakDetection(nullptr, &options, path), 0);
  EXPECT_EQ(ValueCount(kExplore), 0);

  // A null options record on reading: the detection values still load.
  CPeakDetection detection = DistinctDetection(VIRTUAL_DEVICE_MS);
  CreateRegistryEntries(&detection, &options, path);
  StoreInt(kExplore, L"MinPeakSeparation", 0);
  CPeakDetection loaded;
  EXPECT_EQ(ReadDefaultPeakDetection(&loaded, nullptr, path), 0);
  EXPECT_EQ(loaded.BaselineWindow(), 41);
}

TEST_F(PeakDetectionDefaults, SetDefaultRegistryEntriesLoadsWhatIsFoundAndRewritesTheKey) {
  CPeakDetection detection = DistinctDetection(VIRTUAL_DEVICE_MS);
  COptions options = DistinctOptions();
  SetDefaultRegistryEntries(&detection, &options, CString(L"Explore\\Absent"));
  EXPECT_EQ(ValueCount(L"Explore\\Absent"), 33);

  StoreDouble(kExplore, L"BaseSNR", 9.5);
  StoreDouble(kExplore, L"MinScansInBaseline", 20.0);
  SetDefaultRegistryEntries(&detection, &options, ExplorePath());
  EXPECT_EQ(detection.BaseSNR(), 9.5);
  EXPECT_EQ(options.MinScansInBaseline(), 20);
  EXPECT_EQ(detection.MassRequired(), 3);  // missing from the key: the record's value stays
  // The incomplete key now holds exactly what the loaded records write (values already
  // there keep their place, so only the set of values is compared).
  CreateRegistryEntries(&detection, &options, CString(L"Explore\\Expected"));
  EXPECT_EQ(SortedValues(kExplore), SortedValues(L"Explore\\Expected"));
}

TEST_F(PeakDetectionDefaults, SetDefaultRegistryEntriesLeavesACompleteKeyAlone) {
  CPeakDetection stored = DistinctDetection(VIRTUAL_DEVICE_MS);
  COptions storedOptions = DistinctOptions();
  CreateRegistryEntries(&stored, &storedOptions, ExplorePath());
  StoreInt(kExplore, L"MinPeakSeparation", 1);  // the one form that reads complete

  CPeakDetection detection;
  COptions options;
  detection.ValleyThreshold(1.75);
  SetDefaultRegistryEntries(&detection, &options, ExplorePath());
  EXPECT_EQ(detection.KivaPeakHeightPercentage(), 7.5);
  EXPECT_EQ(options.BaseNoiseLimit(), 0.15);
  // Not rewritten: the record's unread ValleyThreshold did not reach the store.
  EXPECT_NE(DumpUserStore(kExplore).find("ValleyThreshold = double 1.25\n"), std::string::npos);
  EXPECT_NE(DumpUserStore(kExplore).find("MinPeakSeparation = int 1\n"), std::string::npos);
}

// ---- Peak detection of the default method ----

TEST_F(PeakDetectionDefaults, QualTraceFollowsTheDetector) {
  struct Case {
    int detector;
    int trace1Type;
  };
  for (Case c : {Case{0, 1}, Case{1, 11}, Case{2, 41}, Case{3, 22}, Case{4, 22}, Case{5, 1},
                 Case{7, 1}, Case{-3, 1}}) {
    CVRegKey(HKEY_CURRENT_USER, vglobal::kQualIdentificationKey, 1, 1).DeleteAll();
    CPeakDetection detection = DistinctDetection(c.detector);
    WritePeakDetectionInfo(&detection);
    CVRegKey key(HKEY_CURRENT_USER, vglobal::kQualIdentificationKey, 0, 0);
    int trace1 = 0;
    double delay = 0;
    CString filter;
    EXPECT_TRUE(key.ReadInt(L"Trace1Type", &trace1)) << c.detector;
    EXPECT_EQ(trace1, c.trace1Type) << c.detector;
    // The mass spectrometer has a filter and no delay; every other detector the reverse.
    EXPECT_EQ(key.ReadDouble(L"TraceDelay", &delay), c.detector == 0 ? 0 : 1) << c.detector;
    EXPECT_EQ(key.ReadStr(L"Filter", filter), c.detector == 0 ? 1 : 0) << c.detector;
  }
}

TEST_F(PeakDetectionDefaults, QualRoundTripLoadsEveryStoredValue) {
  CPeakDetection written = DistinctDetection(VIRTUAL_DEVICE_PDA);
  WritePeakDetectionInfo(&written);
  WriteAdvChromatogramOptionsInfo(&written);
  const std::string identification = DumpUserStore(vglobal::kQualIdentificationKey);
  const std::string advanced = DumpUserStore(vglobal::kAdvChromatogramOptionsKey);

  CPeakDetection loaded;
  loaded.Filter(SomeFilter());
  EXPECT_EQ(ReadPeakDetectionDefaultInfo(&loaded), 1);
  // The stored, derived trace type comes back, not the record's own.
  EXPECT_EQ(loaded.Trace1Type(), 41);
  EXPECT_EQ(loaded.Algorithm(), PEAK_DETECTION_KIVA);
  EXPECT_TRUE(loaded.Filter().IsEmpty());
  // The algorithm is the installation's choice for the stored detector.
  CVRegKey(HKEY_LOCAL_MACHINE, L"Installation\\Peak Detection", 1, 1).WriteInt(L"2", 3);
  ReadPeakDetectionDefaultInfo(&loaded);
  EXPECT_EQ(loaded.Algorithm(), PEAK_DETECTION_SELFSET);

  // Writing what was loaded reproduces the keys exactly: every value was taken back.
  WritePeakDetectionInfo(&loaded);
  WriteAdvChromatogramOptionsInfo(&loaded);
  EXPECT_EQ(DumpUserStore(vglobal::kQualIdentificationKey), identification);
  EXPECT_EQ(DumpUserStore(vglobal::kAdvChromatogramOptionsKey), advanced);
}

TEST_F(PeakDetectionDefaults, QualMassSpectrometerReadsIncompleteAndDropsTheFilter) {
  CPeakDetection written = DistinctDetection(VIRTUAL_DEVICE_MS);
  written.Filter(SomeFilter());
  WritePeakDetectionInfo(&written);
  WriteAdvChromatogramOptionsInfo(&written);

  CPeakDetection loaded;
  loaded.DetectorType(VIRTUAL_DEVICE_PDA);
  loaded.Filter(SomeFilter());
  EXPECT_EQ(ReadPeakDetectionDefaultInfo(&loaded), 0);  // no "TraceDelay"
  EXPECT_EQ(loaded.DetectorType(), 0);
  EXPECT_EQ(loaded.TraceDelay(), CPeakDetection().TraceDelay());
  EXPECT_TRUE(loaded.Filter().IsEmpty());
  EXPECT_EQ(loaded.KivaTailingFactor(), 1.125);
  EXPECT_EQ(loaded.MassRequired(), 3);
}

TEST_F(PeakDetectionDefaults, QualSwitchedOffGroupsKeepOlderValuesWhichAreStillRead) {
  CPeakDetection first = DistinctDetection(VIRTUAL_DEVICE_ANALOG);
  WritePeakDetectionInfo(&first);

  CPeakDetection second = DistinctDetection(VIRTUAL_DEVICE_ANALOG);
  second.ValleyDetection(0);
  second.PeakWidth(9.0);
  second.ConstrainPeak(0);
  second.TailingFactor(9.0);
  second.LimitPeakEnabled(0);
  second.PeaksNumber(9.0);
  second.RelPeakEnabled(0);
  second.PercentLargestPeak(9.0);
  WritePeakDetectionInfo(&second);

  CPeakDetection loaded;
  ReadPeakDetectionDefaultInfo(&loaded);
  EXPECT_EQ(loaded.ValleyDetection(), 0);
  EXPECT_EQ(loaded.PeakWidth(), 0.75);
  EXPECT_EQ(loaded.TailingFactor(), 1.5);
  EXPECT_EQ(loaded.PeaksNumber(), 25.0);
  EXPECT_EQ(loaded.PercentLargestPeak(), 12.5);
}

// ---- Advanced detection options and method-wide options ----

TEST_F(PeakDetectionDefaults, AdvDetectionWithoutOptionsWritesTheComponentsValuesOnly) {
  CComponentIO component;
  COptions options = DistinctOptions();
  WriteAdvDetectOptionsInfo(&component, &options);
  // Without options the component's values are still written, and BkgWidth stays.
  component.ValleyDepth(4.5);
  WriteAdvDetectOptionsInfo(&component, nullptr);
  EXPECT_NE(DumpUserStore(vglobal::kAdvDetectionOptionsKey).find("ValleyDepth = double 4.5\n"),
            std::string::npos);
  EXPECT_EQ(ValueCount(vglobal::kAdvDetectionOptionsKey), 4);
}

TEST_F(PeakDetectionDefaults, OptionsRoundTripNeedsSpectrumOptionsFromElsewhere) {
  COptions options = DistinctOptions();
  WriteIdentificationOptions(&options);
  WriteAdvDetectOptionsInfo(nullptr, &options);  // "BkgWidth" without a component

  // A void time from the first mass-maximizing peak leaves the entered value stored.
  options.VoidTime(1);
  options.VoidTimeValue(8.0);
  WriteIdentificationOptions(&options);
  EXPECT_NE(DumpUserStore(vglobal::kOptionsKey).find("VoidTimeValue = double 1.5\n"),
            std::string::npos);

  COptions loaded;
  EXPECT_EQ(ReadOptionsDefaultInfo(&loaded), 0);  // no "SpectrumOptions"
  EXPECT_EQ(loaded.BkgWidth(), 9);
  EXPECT_EQ(loaded.VoidTime(), 1);
  EXPECT_EQ(loaded.VoidTimeValue(), 1.5);
  EXPECT_EQ(loaded.MinScansInBaseline(), 12);
  StoreInt(vglobal::kOptionsKey, L"SpectrumOptions", 3);
  EXPECT_EQ(ReadOptionsDefaultInfo(&loaded), 1);
  EXPECT_EQ(loaded.SpectrumOptions(), 3);
}

TEST_F(PeakDetectionDefaults, WriteOPtionsInfoNeverTouchesTheStore) {
  COptions options = DistinctOptions();
  WriteOPtionsInfo(&options, 0xFFFFFFFFu);
  WriteOPtionsInfo(nullptr, 0);
  auto store = vglobal::GetSettingsStore(HKEY_CURRENT_USER);
  auto names = store->SubkeyNames(vglobal::kSettingsRootKey);
  ASSERT_TRUE(names.ok());
  EXPECT_TRUE(names->empty());
}

}  // namespace
