// The Identification and Detection pages of the default component and the whole
// component: the branches the golden layout does not take, the pages each mask bit
// writes, what the readers apply and reset, and when a read is complete.
#include <gtest/gtest.h>

#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "populate.h"
#include "support/store_dump.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/component.h"
#include "vglobal/settings.h"
#include "vglobal/settings_store.h"

namespace {

using vglobal::SettingsError;
using vglobal::SettingsKeyId;
using vglobal::SettingsResult;
using vglobal::SettingsStore;
using vglobal::SettingsValue;

constexpr const wchar_t* kQuan = L"Processing Setup\\Defaults\\Quan";
const std::wstring kIdentification = std::wstring(kQuan) + L"\\Identification";
const std::wstring kDetection = std::wstring(kQuan) + L"\\Detection";
const std::wstring kAdvanced = std::wstring(kQuan) + L"\\Advanced Detection Options";

// A memory store that also logs every value written, as "Page:Name" with the page
// being the key's path below "Quan" ("Levels\CalLevels" for a list key).
class RecordingStore : public SettingsStore {
 public:
  std::vector<std::wstring> writes;

  std::string Location() const override { return inner_->Location(); }
  vglobal::SettingsStoreStatus Status() override { return inner_->Status(); }
  SettingsResult<SettingsKeyId> FindKey(SettingsKeyId parent, std::wstring_view path) override {
    return Remember(parent, path, inner_->FindKey(parent, path));
  }
  SettingsResult<SettingsKeyId> CreateKey(SettingsKeyId parent, std::wstring_view path) override {
    return Remember(parent, path, inner_->CreateKey(parent, path));
  }
  SettingsResult<SettingsValue> ReadValue(SettingsKeyId key, std::wstring_view name) override {
    return inner_->ReadValue(key, name);
  }
  SettingsError WriteValue(SettingsKeyId key, std::wstring_view name,
                           const SettingsValue& value) override {
    std::wstring path = paths_[key];
    const std::wstring quan = std::wstring(L"Quan\\");
    const auto at = path.find(quan);
    writes.push_back((at == std::wstring::npos ? path : path.substr(at + quan.size())) + L":" +
                     std::wstring(name));
    return inner_->WriteValue(key, name, value);
  }
  SettingsError DeleteValue(SettingsKeyId key, std::wstring_view name) override {
    return inner_->DeleteValue(key, name);
  }
  SettingsError DeleteKey(SettingsKeyId key) override { return inner_->DeleteKey(key); }
  SettingsError DeleteContents(SettingsKeyId key) override { return inner_->DeleteContents(key); }
  SettingsResult<std::vector<std::wstring>> ValueNames(SettingsKeyId key) override {
    return inner_->ValueNames(key);
  }
  SettingsResult<std::vector<std::wstring>> SubkeyNames(SettingsKeyId key) override {
    return inner_->SubkeyNames(key);
  }
  SettingsError Sync() override { return inner_->Sync(); }
  vglobal::SettingsCheckReport Check() override { return inner_->Check(); }

  // How many writes went to `page` ("Detection Flags") under `name`.
  int Count(const std::wstring& page, const std::wstring& name) const {
    int n = 0;
    for (const std::wstring& w : writes) n += w == page + L":" + name;
    return n;
  }
  // The pages written, in order, a run of writes to one page counted once.
  std::vector<std::wstring> PageRuns() const {
    std::vector<std::wstring> runs;
    for (const std::wstring& w : writes) {
      std::wstring page = w.substr(0, w.find(L':'));
      page = page.substr(0, page.find(L'\\'));  // a list key belongs to its page
      if (runs.empty() || runs.back() != page) runs.push_back(page);
    }
    return runs;
  }

 private:
  SettingsResult<SettingsKeyId> Remember(SettingsKeyId parent, std::wstring_view path,
                                         SettingsResult<SettingsKeyId> id) {
    std::lock_guard lock(mutex_);
    if (id.ok()) {
      const std::wstring& base = paths_[parent];
      paths_[*id] = path.empty()   ? base
                    : base.empty() ? std::wstring(path)
                                   : base + L"\\" + std::wstring(path);
    }
    return id;
  }

  std::shared_ptr<SettingsStore> inner_ = vglobal::MakeMemorySettingsStore();
  std::mutex mutex_;
  std::map<SettingsKeyId, std::wstring> paths_;
};

class ComponentDefaults : public ::testing::Test {
 protected:
  ComponentDefaults() { vglobal::SetSettingsStore(HKEY_CURRENT_USER, store_); }

  bool Has(const std::wstring& path, const wchar_t* name) {
    CVRegKey key(HKEY_CURRENT_USER, path.c_str(), 0, 0);
    return key.ReadValue(name).ok();
  }
  int StoredInt(const std::wstring& path, const wchar_t* name) {
    CVRegKey key(HKEY_CURRENT_USER, path.c_str(), 0, 0);
    int v = -12345;
    key.ReadInt(name, &v);
    return v;
  }

  vglobal::UseMemorySettingsStores guard_;  // restores the stores in force before
  std::shared_ptr<RecordingStore> store_ = std::make_shared<RecordingStore>();
};

CFilter FullScanFilter() {
  CFilter f;
  f.SetPolarity(CFilter::PolarityPositive);
  f.SetScanMode(CFilter::ScanModeCentroid);
  f.SetScanType(CFilter::ScanTypeFull);
  f.AddMassRange(50, 500);
  return f;
}

// Every identification and detection field, the scan filter included, is the same.
void ExpectSameIdentificationFields(const CComponentIO& a, const CComponentIO& b) {
  vglobal::testing::ExpectSameFields<vglobal::ComponentIdentification>(a, b);
  EXPECT_TRUE(a.Filter() == b.Filter());
}

// A component whose every field differs from the record's starting value.
CComponentIO Unusual() {
  CComponentIO c;
  c.ComponentName(L"Atrazine");
  c.DetectorType(VIRTUAL_DEVICE_UV);
  c.DetectorDelay(0.125);
  c.Filter(FullScanFilter());
  c.Trace1Type(99);
  c.Trace2Type(7);
  c.TraceOperator(3);
  c.Keys(L"k1 k2");
  c.RTSearchWindow(12.5);
  c.DisplayWindowWidth(0.75);
  c.AdjustExpectedRT(1);
  c.UseAsRTReference(0);
  c.RTReference(L"ISTD-1");
  c.SNThreshold(7.5);
  c.PeakDetectionIndex(1);
  c.SmoothingPoints(9);
  c.ValleyDetection(1);
  c.ExpectedPeakWidth(4.25);
  c.ConstrainPeak(1);
  c.PeakHeightPercentage(12.5);
  c.TailingFactor(1.75);
  c.ValleyThreshold(3.5);
  c.ValleyDepth(6.5);
  c.PeakSNRCutoff(321.5);
  c.BaseSNR(0.5);
  c.KivaNoiseType(1);
  c.KivaMinPeakWidth(4);
  c.PeakNoiseFactor(11);
  c.BaselineWindow(41);
  c.MultipletResolution(12);
  c.AreaTailExtension(6);
  c.AreaNoiseFactor(7);
  c.AreaScanWindow(2);
  c.KivaConstrainPeak(1);
  c.KivaPeakHeightPercentage(6.5);
  c.KivaTailingFactor(2.5);
  c.KivaRMS(1);
  c.ForwardThreshold(600);
  c.ReverseThreshold(650);
  c.MatchThreshold(500);
  c.IonRatioConfirmation(1);
  c.Standard(2);
  c.IonRatioMethod(1);
  c.IonRatioWndType(1);
  c.QualifierIonCoelution(0.05);
  return c;
}

// ---- Identification, writing ----

TEST_F(ComponentDefaults, TraceOneTypeFollowsTheDetector) {
  const std::pair<int, int> mapping[] = {{0, 1}, {1, 11}, {2, 41}, {3, 22}, {4, 22},
                                         {5, 1}, {6, 1},  {-1, 1}, {41, 1}};
  for (auto [detector, trace] : mapping) {
    CComponentIO c;
    c.Trace1Type(detector == 0 ? 99 : 1);  // the field never leaks into the store
    c.DetectorType(static_cast<VirtualDeviceType>(detector));
    WriteIdentificationInfo(&c);
    EXPECT_EQ(StoredInt(kIdentification, L"Trace1Type"), trace) << "detector " << detector;
  }
}

TEST_F(ComponentDefaults, ReferenceNameStoredOnlyWhenAdjustingToIt) {
  CComponentIO c = Unusual();
  c.AdjustExpectedRT(0);
  WriteIdentificationInfo(&c);
  EXPECT_EQ(StoredInt(kIdentification, L"AdjustExpectedRT"), 0);
  EXPECT_FALSE(Has(kIdentification, L"RTReference"));
}

// ---- Identification, reading ----

TEST_F(ComponentDefaults, IdentificationReadsBackAsStoredAndIsCompleteForADetector) {
  CComponentIO written = Unusual();
  written.DetectorType(VIRTUAL_DEVICE_PDA);
  WriteIdentificationInfo(&written);

  CComponentIO read;
  read.Filter(FullScanFilter());
  EXPECT_EQ(ReadIdentificationInfo(&read), 1);
  EXPECT_EQ(read.DetectorType(), VIRTUAL_DEVICE_PDA);
  EXPECT_EQ(read.DetectorDelay(), 0.125);
  EXPECT_EQ(read.Trace1Type(), 41);  // as stored, not mapped back to the detector
  EXPECT_EQ(read.Trace2Type(), 0);
  EXPECT_EQ(read.TraceOperator(), 0);
  EXPECT_EQ(read.Keys(), L"k1 k2");
  EXPECT_EQ(read.RTSearchWindow(), 12.5);
  EXPECT_EQ(read.DisplayWindowWidth(), 0.75);
  EXPECT_EQ(read.AdjustExpectedRT(), 1);
  EXPECT_EQ(read.RTReference(), L"ISTD-1");
  EXPECT_TRUE(read.Filter().IsEmpty());
  EXPECT_EQ(read.ComponentName(), L"");  // not part of the page
}

TEST_F(ComponentDefaults, StoredFilterIsNeverRestored) {
  CComponentIO written = Unusual();
  written.DetectorType(VIRTUAL_DEVICE_MS);
  WriteIdentificationInfo(&written);
  ASSERT_TRUE(Has(kIdentification, L"Filter"));

  CComponentIO read;
  CFilter other;
  other.SetPolarity(CFilter::PolarityNegative);
  read.Filter(other);
  // Incomplete: the mass spectrometer has no stored delay.
  EXPECT_EQ(ReadIdentificationInfo(&read), 0);
  EXPECT_EQ(read.Filter(), CFilter());
  EXPECT_EQ(read.Keys(), L"k1 k2");  // what was stored is applied all the same
}

TEST_F(ComponentDefaults, MistypedValueCountsAsMissingAndLeavesTheField) {
  CVRegKey key(HKEY_CURRENT_USER, kIdentification.c_str(), 1, 1);
  key.WriteStr(L"DetectorType", L"2");
  key.WriteInt(L"Keys", 5);
  CComponentIO c = Unusual();
  EXPECT_EQ(ReadIdentificationInfo(&c), 0);
  EXPECT_EQ(c.DetectorType(), VIRTUAL_DEVICE_UV);
  EXPECT_EQ(c.Keys(), L"k1 k2");
}

// ---- Detection, writing ----

TEST_F(ComponentDefaults, FirstAlgorithmStoresSpectralThresholdsOnly) {
  CComponentIO c = Unusual();
  c.DetectorType(VIRTUAL_DEVICE_MS);
  c.PeakDetectionIndex(0);
  WriteGCDetectionInfo(&c);
  EXPECT_EQ(StoredInt(kDetection, L"ForwardThreshold"), 600);
  EXPECT_FALSE(Has(kDetection, L"IonRatioConfirmation"));
  EXPECT_FALSE(Has(kDetection, L"IonRatioMethod"));
}

TEST_F(ComponentDefaults, IonRatiosBelongToTheMassSpectrometerOnly) {
  CComponentIO c = Unusual();
  c.DetectorType(VIRTUAL_DEVICE_PDA);
  c.PeakDetectionIndex(2);
  WriteGCDetectionInfo(&c);
  EXPECT_EQ(store_->writes.back(), L"Detection:KivaTailingFactor");
}

TEST_F(ComponentDefaults, ConfirmationOffStoresTheSwitchButNoRatios) {
  CComponentIO c = Unusual();
  c.DetectorType(VIRTUAL_DEVICE_MS);
  c.IonRatioConfirmation(0);
  WriteGCDetectionInfo(&c);
  EXPECT_EQ(store_->writes.back(), L"Detection:IonRatioConfirmation");
  EXPECT_FALSE(Has(kDetection, L"QualifierIonCoelution"));
}

TEST_F(ComponentDefaults, SwitchedOffPeakOptionsLeaveTheirValuesOut) {
  CComponentIO c = Unusual();
  c.ValleyDetection(0);
  c.ConstrainPeak(0);
  WriteLCDetectionInfo(&c);
  EXPECT_FALSE(Has(kDetection, L"ExpectedPeakWidth"));
  EXPECT_FALSE(Has(kDetection, L"PeakHeightPercentage"));
  EXPECT_FALSE(Has(kDetection, L"TailingFactor"));
  // Kiva's own constraint is always stored.
  EXPECT_TRUE(Has(kDetection, L"KivaPeakHeightPercentage"));
}

TEST_F(ComponentDefaults, ShortFormEndsWithTheKivaParameters) {
  CComponentIO c = Unusual();
  c.DetectorType(VIRTUAL_DEVICE_MS);
  for (int algorithm : {0, 1}) {
    store_->writes.clear();
    c.PeakDetectionIndex(algorithm);
    WriteLCDetectionInfo(&c);
    EXPECT_EQ(store_->writes.size(), 21u);
    EXPECT_EQ(store_->writes.front(), L"Detection:SmoothingPoints");
    EXPECT_EQ(store_->writes.back(), L"Detection:KivaTailingFactor");
  }
}

// ---- Detection, reading ----

TEST_F(ComponentDefaults, ReadingSwitchesIonRatioConfirmationOffButAppliesTheRatios) {
  CComponentIO written = Unusual();
  written.DetectorType(VIRTUAL_DEVICE_MS);
  written.PeakDetectionIndex(1);
  written.IonRatioConfirmation(1);
  written.IonRatioMethod(3);
  written.Standard(4);
  written.IonRatioWndType(5);
  written.QualifierIonCoelution(0.5);
  WriteGCDetectionInfo(&written);
  EXPECT_EQ(StoredInt(kDetection, L"IonRatioConfirmation"), 0);

  CComponentIO read;
  read.IonRatioConfirmation(1);
  EXPECT_EQ(ReadDetectionInfo(&read), 0);  // the spectral thresholds were not written
  EXPECT_EQ(read.IonRatioConfirmation(), 0);
  EXPECT_EQ(read.IonRatioMethod(), 3);
  EXPECT_EQ(read.Standard(), 4);
  EXPECT_EQ(read.IonRatioWndType(), 5);
  EXPECT_EQ(read.QualifierIonCoelution(), 0.5);
  EXPECT_EQ(read.KivaTailingFactor(), 2.5);
  EXPECT_EQ(read.ForwardThreshold(), CComponentIO().ForwardThreshold());
}

TEST_F(ComponentDefaults, StoredConfirmationIsIgnoredAndDoesNotCountForCompleteness) {
  CComponentIO written = Unusual();
  written.ValleyDetection(1);
  written.ConstrainPeak(1);
  written.PeakDetectionIndex(0);
  WriteGCDetectionInfo(&written);  // every value but the ion ratios
  {
    CVRegKey key(HKEY_CURRENT_USER, kDetection.c_str(), 1, 1);
    key.WriteInt(L"IonRatioConfirmation", 1);
    key.WriteInt(L"IonRatioMethod", 1);
    key.WriteInt(L"Standard", 1);
    key.WriteInt(L"IonRatioWndType", 1);
    key.WriteDouble(L"QualifierIonCoelution", 1);
  }
  CComponentIO read;
  EXPECT_EQ(ReadDetectionInfo(&read), 1);
  EXPECT_EQ(read.IonRatioConfirmation(), 0);
  EXPECT_EQ(read.MatchThreshold(), 500);
}

// ---- The whole component, writing ----

TEST_F(ComponentDefaults, BothDetectionFlagBitsWriteTheFlagsTwice) {
  CComponentIO c;
  WriteComponentInfo(&c, 0x010);
  EXPECT_EQ(store_->Count(L"Detection Flags", L"AreaFlagThreshold"), 1);
  WriteComponentInfo(&c, 0x020);
  EXPECT_EQ(store_->Count(L"Detection Flags", L"AreaFlagThreshold"), 2);
  store_->writes.clear();
  WriteComponentInfo(&c, 0x030);
  EXPECT_EQ(store_->Count(L"Detection Flags", L"AreaFlagThreshold"), 2);
  EXPECT_EQ(store_->PageRuns(), std::vector<std::wstring>{L"Detection Flags"});
}

TEST_F(ComponentDefaults, WholeComponentBitWritesBothDetectionFormsAndEveryOtherPageOnce) {
  CComponentIO c = Unusual();
  c.DetectorType(VIRTUAL_DEVICE_MS);
  c.PeakDetectionIndex(0);
  WriteComponentInfo(&c, 0x001);
  // Both detection forms ran: the short form rewrote the shared values and the full
  // form's thresholds were written once; every other page once.
  EXPECT_EQ(store_->Count(L"Detection", L"SmoothingPoints"), 2);
  EXPECT_EQ(store_->Count(L"Detection", L"ForwardThreshold"), 1);
  EXPECT_EQ(store_->Count(L"Identification", L"Keys"), 1);
  EXPECT_EQ(store_->Count(L"Detection Flags", L"AreaFlagThreshold"), 1);
  EXPECT_EQ(store_->Count(L"System Suitability", L"ResolutionChecksEnabled"), 1);
}

TEST_F(ComponentDefaults, WholeComponentBitIgnoresEveryOtherBit) {
  CComponentIO c = Unusual();
  WriteComponentInfo(&c, 0x001);
  const std::vector<std::wstring> alone = store_->writes;
  for (unsigned int mask : {0x3FFu, 0x031u, 0x201u, 0xFFFFFFFFu}) {
    store_->writes.clear();
    WriteComponentInfo(&c, mask);
    EXPECT_EQ(store_->writes, alone) << std::hex << mask;
  }
}

TEST_F(ComponentDefaults, EachBitWritesItsPage) {
  const std::pair<unsigned int, std::vector<std::wstring>> bits[] = {
      {0x002, {L"Identification"}},
      {0x004, {L"Detection"}},
      {0x008, {L"Detection"}},
      {0x010, {L"Detection Flags"}},
      {0x020, {L"Detection Flags"}},
      {0x040, {L"Calibration"}},
      {0x080, {L"Calibration Flags"}},
      {0x100, {L"Levels"}},
      {0x200, {L"System Suitability"}},
      {0x400, {}},
      {0x000, {}},
  };
  CComponentIO c;  // a target compound: its levels page writes its (empty) lists
  for (const auto& [bit, pages] : bits) {
    store_->writes.clear();
    WriteComponentInfo(&c, bit);
    EXPECT_EQ(store_->PageRuns(), pages) << std::hex << bit;
  }
}

TEST_F(ComponentDefaults, OtherBitsAreHonouredInPageOrder) {
  CComponentIO c;
  WriteComponentInfo(&c, 0x200 | 0x040 | 0x002 | 0x008);
  EXPECT_EQ(store_->PageRuns(), (std::vector<std::wstring>{L"Identification", L"Detection",
                                                           L"Calibration", L"System Suitability"}));
  EXPECT_EQ(store_->Count(L"Detection", L"PeakDetectionIndex"), 1);
}

TEST_F(ComponentDefaults, FullAndShortDetectionBitsTogetherWriteBothForms) {
  CComponentIO c = Unusual();
  c.PeakDetectionIndex(0);
  WriteComponentInfo(&c, 0x004 | 0x008);
  EXPECT_EQ(store_->Count(L"Detection", L"SmoothingPoints"), 2);
  EXPECT_EQ(store_->Count(L"Detection", L"MatchThreshold"), 1);
}

// ---- The whole component, reading ----

// What the pages write for a component, as text: equal texts mean equal stored fields.
std::string WrittenPages(const CComponentIO& c) {
  vglobal::UseMemorySettingsStores scratch;
  CComponentIO copy = c;
  WriteComponentInfo(&copy, 0x001);
  return vglobal::testing::DumpUserStore(kQuan);
}

TEST_F(ComponentDefaults, EmptyStoreLeavesANewComponentAsConstructedButForTheFilter) {
  CComponentIO c;
  c.Filter(FullScanFilter());
  const std::string before = WrittenPages(CComponentIO());
  EXPECT_EQ(ReadComponentDefaultInfo(&c), 0);
  ExpectSameIdentificationFields(c, CComponentIO());
  EXPECT_EQ(WrittenPages(c), before);   // the other pages' fields too
  EXPECT_TRUE(store_->writes.empty());  // readers never write
}

// The confirmation switch is reset by the Detection reader whatever the store holds,
// as the filter is by the Identification reader: both are steps of the reading order,
// not values read.
TEST_F(ComponentDefaults, EmptyStoreResetsOnlyTheFilterAndTheConfirmation) {
  const CComponentIO before = Unusual();
  CComponentIO c = before;
  EXPECT_EQ(ReadComponentDefaultInfo(&c), 0);
  CComponentIO expected = before;
  expected.Filter(CFilter());
  expected.IonRatioConfirmation(0);
  ExpectSameIdentificationFields(c, expected);
  EXPECT_EQ(WrittenPages(c), WrittenPages(expected));
}

TEST_F(ComponentDefaults, LaterPagesAreReadAfterEarlierOnesFail) {
  {
    CVRegKey key(HKEY_CURRENT_USER, kAdvanced.c_str(), 1, 1);
    key.WriteDouble(L"ValleyThreshold", 1.5);
    key.WriteDouble(L"ValleyDepth", 2.5);
    key.WriteDouble(L"PeakSNRCutoff", 3.5);
    key.WriteInt(L"BkgWidth", 9);
  }
  CComponentIO c;
  EXPECT_EQ(ReadComponentDefaultInfo(&c), 0);
  EXPECT_EQ(c.ValleyThreshold(), 1.5);
  EXPECT_EQ(c.ValleyDepth(), 2.5);
  EXPECT_EQ(c.PeakSNRCutoff(), 3.5);
}

// Every value every page reads, with the name and type it is read by.
struct StoredValue {
  const wchar_t* page;
  const wchar_t* name;
  char type;  // 'i' int, 'd' double, 's' string
};
const std::vector<StoredValue>& CompleteComponent() {
  static const std::vector<StoredValue> values = [] {
    std::vector<StoredValue> v;
    auto add = [&v](const wchar_t* page, char type, std::initializer_list<const wchar_t*> names) {
      for (const wchar_t* n : names) v.push_back({page, n, type});
    };
    add(L"Identification", 'i',
        {L"DetectorType", L"Trace1Type", L"Trace2Type", L"TraceOperator", L"AdjustExpectedRT"});
    add(L"Identification", 'd', {L"DetectorDelay", L"RTSearchWindow", L"DisplayWindowWidth"});
    add(L"Identification", 's', {L"Keys", L"RTReference"});
    add(L"Detection", 'i',
        {L"SmoothingPoints",   L"ValleyDetection",     L"ConstrainPeak",    L"PeakDetectionIndex",
         L"ForwardThreshold",  L"ReverseThreshold",    L"MatchThreshold",   L"BaselineWindow",
         L"PeakNoiseFactor",   L"MultipletResolution", L"KivaMinPeakWidth", L"AreaScanWindow",
         L"AreaNoiseFactor",   L"AreaTailExtension",   L"KivaNoiseType",    L"KivaRMS",
         L"KivaConstrainPeak", L"IonRatioMethod",      L"Standard",         L"IonRatioWndType"});
    add(L"Detection", 'd',
        {L"BaseSNR", L"ExpectedPeakWidth", L"PeakHeightPercentage", L"TailingFactor",
         L"SNThreshold", L"KivaPeakHeightPercentage", L"KivaTailingFactor",
         L"QualifierIonCoelution"});
    add(L"Detection Flags", 'd',
        {L"AreaFlagThreshold", L"HeightFlagThreshold", L"AreaFlagPercentThreshold",
         L"HeightFlagPercentThreshold"});
    add(L"Calibration", 'i',
        {L"TypeIndex", L"WeightingIndex", L"OriginIndex", L"CurveIndex", L"ResponseIndex"});
    add(L"Calibration", 'd', {L"ISTDBaseAmount", L"ISTDInTarget", L"TargetInISTD"});
    add(L"Calibration", 's', {L"ISTDUnits", L"CalibrationUnits"});
    add(L"Calibration Flags", 'd',
        {L"R_Squared", L"LimitDetection", L"LimitQuantitation", L"LinearityLimit",
         L"CarryOverLimit"});
    add(L"Levels\\CalLevels", 'i', {L"NumLevels"});
    add(L"Levels\\QCLevels", 'i', {L"NumLevels"});
    add(L"Levels\\SurrogateLevels", 'i', {L"NumLevels"});
    add(L"Levels", 'd', {L"SpikeAmount", L"SpikeLowerRecovery", L"SpikeUpperRecovery"});
    add(L"System Suitability", 'i',
        {L"ResolutionChecksEnabled", L"ResThreshold", L"SymmetryChecksEnabled", L"SymmetryTake",
         L"SymmetryThreshold", L"PeakClassificationChecksEnabled", L"DetectWidth",
         L"TailingMeasured", L"ColumnMeasure", L"DetectSignalToNoise"});
    add(L"System Suitability", 'd',
        {L"MinPeakWidth", L"MaxPeakWidth", L"TailingFailureThreshold", L"ColumnFailureThreshold",
         L"BaselineClipping"});
    add(L"Advanced Detection Options", 'd', {L"ValleyThreshold", L"ValleyDepth", L"PeakSNRCutoff"});
    return v;
  }();
  return values;
}

void StoreCompleteComponent(const StoredValue* leaveOut) {
  for (const StoredValue& v : CompleteComponent()) {
    if (&v == leaveOut) continue;
    CVRegKey key(HKEY_CURRENT_USER, (std::wstring(kQuan) + L"\\" + v.page).c_str(), 1, 1);
    if (v.type == 'i') key.WriteInt(v.name, 0);
    if (v.type == 'd') key.WriteDouble(v.name, 1.0);
    if (v.type == 's') key.WriteStr(v.name, L"u");
  }
}

TEST_F(ComponentDefaults, CompleteOnlyWhenEveryPageIsComplete) {
  StoreCompleteComponent(nullptr);
  CComponentIO c;
  EXPECT_EQ(ReadComponentDefaultInfo(&c), 1);

  // Any one value missing, on any page, makes the whole read incomplete.
  for (const StoredValue& missing : CompleteComponent()) {
    vglobal::SetSettingsStore(HKEY_CURRENT_USER, vglobal::MakeMemorySettingsStore());
    StoreCompleteComponent(&missing);
    CComponentIO d;
    EXPECT_EQ(ReadComponentDefaultInfo(&d), 0) << "without " << vglobal::WideToUtf8(missing.page)
                                               << "\\" << vglobal::WideToUtf8(missing.name);
  }
}

TEST_F(ComponentDefaults, NullComponentIsIgnored) {
  WriteIdentificationInfo(nullptr);
  WriteGCDetectionInfo(nullptr);
  WriteLCDetectionInfo(nullptr);
  WriteComponentInfo(nullptr, 0x001);
  EXPECT_TRUE(store_->writes.empty());
  EXPECT_EQ(ReadIdentificationInfo(nullptr), 0);
  EXPECT_EQ(ReadDetectionInfo(nullptr), 0);
  EXPECT_EQ(ReadComponentDefaultInfo(nullptr), 0);
}

}  // namespace
