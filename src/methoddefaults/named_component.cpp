// A whole quantitation component kept under a key that the calling application names
// (see vglobal/methoddefaults/named_component.h for the layout).
//
// Map of this file:
//   1. Tables: identification values, calibration values, mass lists, levels
//   2. Writing: WriteIdentificationInfo, WriteCalibrationInfo, WriteLevelInfo
//   3. Reading: ReadDefaultComponent, ReadLevelInfo
//   4. The key as a whole: CreateRegistryEntries, SetRegistryEntries
#include "vglobal/methoddefaults/named_component.h"

#include <array>
#include <memory>

#include "methoddefaults/level_io.h"
#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"

namespace {

using vglobal::methoddefaults::ElementKeyName;
using vglobal::methoddefaults::ReadListCount;
using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;
using S = vglobal::methoddefaults::Section<CComponentIO>;

constexpr const wchar_t* kMassListKey = L"MassList";
constexpr const wchar_t* kMassListElement = L"MassList[%d]";
constexpr const wchar_t* kMassRangeKey = L"MassRange";
constexpr const wchar_t* kMassRangeElement = L"MassRange[%d]";
constexpr const wchar_t* kCalLevelsKey = L"CalLevels";
constexpr const wchar_t* kQCLevelsKey = L"QCLevels";
constexpr const wchar_t* kLevelElement = L"Level[%d]";

// The name every component read from such a key gets: the stored name is the one the
// component had where it was saved, not a name for the new one.
constexpr const wchar_t* kNewComponentName = L"<new>";

// ---- 1. Tables ----

// Written first, whatever the component holds: this layout keeps no scan filter and no
// mass ranges, so a component read back has the empty filter and none.
constexpr std::array kNoFilterWrite{
    S::String(L"Filter", [](const CComponentIO&) { return CString(); }),
    S::Int(L"NumMassRanges", [](const CComponentIO&) { return 0; }),
};

constexpr std::array kIdentificationWrite{
    S::String(L"Name", [](const CComponentIO& c) { return c.ComponentName(); }),
    S::Double(L"UserEnteredRT", [](const CComponentIO& c) { return c.UserEnteredRT(); }),
    S::Double(L"RTSearchWindow", [](const CComponentIO& c) { return c.RTSearchWindow(); }),
    S::Int(L"UseAsRTReference", [](const CComponentIO& c) { return c.UseAsRTReference(); }),
    S::Int(L"AdjustExpectedRT", [](const CComponentIO& c) { return c.AdjustExpectedRT(); }),
    S::String(L"RTReference", [](const CComponentIO& c) { return c.RTReference(); }),
    S::Int(L"PeakDetectionIndex", [](const CComponentIO& c) { return c.PeakDetectionIndex(); }),
    S::Double(L"SNThreshold", [](const CComponentIO& c) { return c.SNThreshold(); }),
    S::Double(L"FitThreshold", [](const CComponentIO& c) { return c.FitThreshold(); }),
    S::Int(L"SmoothingPoints", [](const CComponentIO& c) { return c.SmoothingPoints(); }),
    S::Int(L"ValleyDetection", [](const CComponentIO& c) { return c.ValleyDetection(); }),
    S::Int(L"ConstrainPeak", [](const CComponentIO& c) { return c.ConstrainPeak(); }),
    S::Double(L"PeakHeightPercentage",
              [](const CComponentIO& c) { return c.PeakHeightPercentage(); }),
    S::Double(L"TailingFactor", [](const CComponentIO& c) { return c.TailingFactor(); }),
    S::Int(L"NumMIPairs", [](const CComponentIO& c) { return c.NumMIPairs(); }),
    S::Int(L"BaselineWindow", [](const CComponentIO& c) { return c.BaselineWindow(); }),
    S::Int(L"PeakNoiseFactor", [](const CComponentIO& c) { return c.PeakNoiseFactor(); }),
    S::Int(L"MultipletResolution", [](const CComponentIO& c) { return c.MultipletResolution(); }),
    S::Int(L"KivaMinPeakWidth", [](const CComponentIO& c) { return c.KivaMinPeakWidth(); }),
    S::Int(L"AreaScanWindow", [](const CComponentIO& c) { return c.AreaScanWindow(); }),
    S::Int(L"AreaNoiseFactor", [](const CComponentIO& c) { return c.AreaNoiseFactor(); }),
    S::Int(L"AreaTailExtension", [](const CComponentIO& c) { return c.AreaTailExtension(); }),
    S::Int(L"KivaNoiseType", [](const CComponentIO& c) { return c.KivaNoiseType(); }),
    S::Int(L"KivaConstrainPeak", [](const CComponentIO& c) { return c.KivaConstrainPeak(); }),
    S::Double(L"KivaPeakHeightPercentage",
              [](const CComponentIO& c) { return c.KivaPeakHeightPercentage(); }),
    S::Double(L"KivaTailingFactor", [](const CComponentIO& c) { return c.KivaTailingFactor(); }),
};

// Only the first three peak-detection algorithms apply to a quantitation component.
int AcceptPeakDetectionIndex(CComponentIO& c, int v) {
  if (v >= 3) return 0;
  c.PeakDetectionIndex(v);
  return 1;
}

constexpr std::array kIdentificationRead{
    // The stored "Name" is not read back; see kNewComponentName.
    S::Do([](CComponentIO& c) { c.ComponentName(kNewComponentName); }),
    S::ReadDouble(L"UserEnteredRT", [](CComponentIO& c, double v) { c.UserEnteredRT(v); }),
    S::ReadDouble(L"RTSearchWindow", [](CComponentIO& c, double v) { c.RTSearchWindow(v); }),
    S::ReadInt(L"UseAsRTReference", [](CComponentIO& c, int v) { c.UseAsRTReference(v); }),
    S::ReadInt(L"AdjustExpectedRT", [](CComponentIO& c, int v) { c.AdjustExpectedRT(v); }),
    S::ReadString(L"RTReference", [](CComponentIO& c, const CString& v) { c.RTReference(v); }),
    // Refused from 3 up (the field keeps its value, the read is incomplete); a negative
    // index is taken as stored.
    S::ReadCheckedInt(L"PeakDetectionIndex", AcceptPeakDetectionIndex),
    S::ReadDouble(L"SNThreshold", [](CComponentIO& c, double v) { c.SNThreshold(v); }),
    S::ReadDouble(L"FitThreshold", [](CComponentIO& c, double v) { c.FitThreshold(v); }),
    S::ReadInt(L"SmoothingPoints", [](CComponentIO& c, int v) { c.SmoothingPoints(v); }),
    S::ReadInt(L"ValleyDetection", [](CComponentIO& c, int v) { c.ValleyDetection(v); }),
    S::ReadInt(L"ConstrainPeak", [](CComponentIO& c, int v) { c.ConstrainPeak(v); }),
    S::ReadDouble(L"PeakHeightPercentage",
                  [](CComponentIO& c, double v) { c.PeakHeightPercentage(v); }),
    S::ReadDouble(L"TailingFactor", [](CComponentIO& c, double v) { c.TailingFactor(v); }),
    S::ReadInt(L"BaselineWindow", [](CComponentIO& c, int v) { c.BaselineWindow(v); }),
    S::ReadInt(L"PeakNoiseFactor", [](CComponentIO& c, int v) { c.PeakNoiseFactor(v); }),
    S::ReadInt(L"MultipletResolution", [](CComponentIO& c, int v) { c.MultipletResolution(v); }),
    S::ReadInt(L"KivaMinPeakWidth", [](CComponentIO& c, int v) { c.KivaMinPeakWidth(v); }),
    S::ReadInt(L"AreaScanWindow", [](CComponentIO& c, int v) { c.AreaScanWindow(v); }),
    S::ReadInt(L"AreaNoiseFactor", [](CComponentIO& c, int v) { c.AreaNoiseFactor(v); }),
    S::ReadInt(L"AreaTailExtension", [](CComponentIO& c, int v) { c.AreaTailExtension(v); }),
    S::ReadInt(L"KivaNoiseType", [](CComponentIO& c, int v) { c.KivaNoiseType(v); }),
    S::ReadInt(L"KivaConstrainPeak", [](CComponentIO& c, int v) { c.KivaConstrainPeak(v); }),
    S::ReadDouble(L"KivaPeakHeightPercentage",
                  [](CComponentIO& c, double v) { c.KivaPeakHeightPercentage(v); }),
    S::ReadDouble(L"KivaTailingFactor", [](CComponentIO& c, double v) { c.KivaTailingFactor(v); }),
};

constexpr std::array kCalibrationWrite{
    // The name again: the calibration half was once written on its own.
    S::String(L"Name", [](const CComponentIO& c) { return c.ComponentName(); }),
    // The type is not kept: a component read back is always a target compound.
    S::Int(L"Type", [](const CComponentIO&) { return 0; }),
    S::Double(L"ISTDBaseAmount", [](const CComponentIO& c) { return c.ISTDBaseAmount(); }),
    S::String(L"ISTDUnits", [](const CComponentIO& c) { return c.ISTDUnits(); }),
    S::Int(L"CurveIndex", [](const CComponentIO& c) { return c.CurveIndex(); }),
    S::Int(L"OriginIndex", [](const CComponentIO& c) { return c.OriginIndex(); }),
    S::Int(L"WeightingIndex", [](const CComponentIO& c) { return c.WeightingIndex(); }),
    S::Int(L"ResponseIndex", [](const CComponentIO& c) { return c.ResponseIndex(); }),
    S::String(L"CalibrationUnits", [](const CComponentIO& c) { return c.CalibrationUnits(); }),
    S::String(L"ReportUnits", [](const CComponentIO& c) { return c.ReportUnits(); }),
    S::Int(L"NumCalLevels", [](const CComponentIO& c) { return c.NumCalLevels(); }),
    S::Int(L"NumQCLevels", [](const CComponentIO& c) { return c.NumQCLevels(); }),
    S::Double(L"PercentISTDInTarget",
              [](const CComponentIO& c) { return c.PercentISTDInTarget(); }),
    S::Double(L"PercentTargetInISTD",
              [](const CComponentIO& c) { return c.PercentTargetInISTD(); }),
};

// The calibration values up to the level counts; the counts and the levels follow,
// then kCrossContributionRead.
constexpr std::array kCalibrationRead{
    S::ReadInt(L"Type", [](CComponentIO& c, int v) { c.Type(v); }),
    S::ReadDouble(L"ISTDBaseAmount", [](CComponentIO& c, double v) { c.ISTDBaseAmount(v); }),
    S::ReadString(L"ISTDUnits", [](CComponentIO& c, const CString& v) { c.ISTDUnits(v); }),
    S::ReadInt(L"CurveIndex", [](CComponentIO& c, int v) { c.CurveIndex(v); }),
    S::ReadInt(L"OriginIndex", [](CComponentIO& c, int v) { c.OriginIndex(v); }),
    S::ReadInt(L"WeightingIndex", [](CComponentIO& c, int v) { c.WeightingIndex(v); }),
    S::ReadInt(L"ResponseIndex", [](CComponentIO& c, int v) { c.ResponseIndex(v); }),
    S::ReadString(L"CalibrationUnits",
                  [](CComponentIO& c, const CString& v) { c.CalibrationUnits(v); }),
    S::ReadString(L"ReportUnits", [](CComponentIO& c, const CString& v) { c.ReportUnits(v); }),
};

constexpr std::array kCrossContributionRead{
    S::ReadDouble(L"PercentISTDInTarget",
                  [](CComponentIO& c, double v) { c.PercentISTDInTarget(v); }),
    S::ReadDouble(L"PercentTargetInISTD",
                  [](CComponentIO& c, double v) { c.PercentTargetInISTD(v); }),
};

using SPair = vglobal::methoddefaults::Section<CMIPair>;
constexpr std::array kMIPairWrite{
    SPair::Double(L"Mass", [](const CMIPair& p) { return p.Mass(); }),
    SPair::Double(L"Intensity", [](const CMIPair& p) { return p.Intensity(); }),
};
constexpr std::array kMIPairRead{
    SPair::ReadDouble(L"Mass", [](CMIPair& p, double v) { p.Mass(v); }),
    SPair::ReadDouble(L"Intensity", [](CMIPair& p, double v) { p.Intensity(v); }),
};

using SRange = vglobal::methoddefaults::Section<CMassRange>;
constexpr std::array kMassRangeRead{
    SRange::ReadDouble(L"LowMass", [](CMassRange& r, double v) { r.LowMass(v); }),
    SRange::ReadDouble(L"HighMass", [](CMassRange& r, double v) { r.HighMass(v); }),
};

// The level's own values in this layout's order; "NumReplicates" and the replicates
// follow (level_io.h).
using SLevel = vglobal::methoddefaults::Section<CLevel>;
constexpr std::array kLevelWrite{
    SLevel::Double(L"BaseAmount", [](const CLevel& l) { return l.BaseAmount(); }),
    SLevel::Double(L"TestPercent", [](const CLevel& l) { return l.TestPercent(); }),
    SLevel::String(L"Name", [](const CLevel& l) { return l.LevelName(); }),
};
constexpr std::array kLevelRead{
    SLevel::ReadDouble(L"BaseAmount", [](CLevel& l, double v) { l.BaseAmount(v); }),
    SLevel::ReadDouble(L"TestPercent", [](CLevel& l, double v) { l.TestPercent(v); }),
    SLevel::ReadString(L"Name", [](CLevel& l, const CString& v) { l.LevelName(v); }),
};

// Reads the list counted by `countName` in `key` and kept as `elementFormat` sub-keys
// of `listName`: resizes it through `resize` and reads element i into `at(i)`. Each
// element key is opened creating it, so reading makes a missing element, empty.
// Clears `ok` for the count or any value missing.
template <typename Element, std::size_t N, typename Resize, typename At>
void ReadElementList(CVRegKey& key, const wchar_t* countName, const wchar_t* listName,
                     const wchar_t* elementFormat, Resize resize, At at,
                     const std::array<vglobal::methoddefaults::ReadEntry<Element>, N>& table,
                     int& ok) {
  const std::optional<int> count = ReadListCount(key, countName);
  if (!count) {
    ok = 0;
    return;
  }
  resize(*count);
  CVRegKey listKey(key, listName, 1, 1);
  for (int i = 0; i < *count; ++i) {
    CVRegKey elementKey(listKey, ElementKeyName(elementFormat, i), 1, 1);
    if (!ReadValues<Element>(elementKey, at(i), table)) ok = 0;
  }
}

// Replaces the levels stored below `listKey` with `count` levels.
void WriteLevels(CVRegKey& listKey, int count, CLevel& (*level)(CComponentIO&, int),
                 CComponentIO& component) {
  listKey.DeleteAll();
  for (int i = 0; i < count; ++i) WriteLevelInfo(level(component, i), listKey, i);
}

// Reads the level list counted by `countName` below `listKey` into the component.
void ReadLevels(CVRegKey& key, const wchar_t* countName, CVRegKey& listKey,
                void (*resize)(CComponentIO&, int), CLevel& (*level)(CComponentIO&, int),
                CComponentIO& component, int& ok) {
  const std::optional<int> count = ReadListCount(key, countName);
  if (!count) {
    ok = 0;
    return;
  }
  resize(component, *count);
  for (int i = 0; i < *count; ++i) ReadLevelInfo(level(component, i), listKey, i, ok);
}

CLevel& CalLevel(CComponentIO& c, int i) {
  return c.GetCalLevel(i);
}
CLevel& QCLevel(CComponentIO& c, int i) {
  return c.GetQCLevel(i);
}

}  // namespace

// ---- 2. Writing ----

void WriteIdentificationInfo(CComponentIO* component, CVRegKey& key) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(key, *component, kNoFilterWrite);
  CVRegKey(key, kMassRangeKey, 0, 0).DeleteAll();
  WriteValues<CComponentIO>(key, *component, kIdentificationWrite);

  CVRegKey massList(key, kMassListKey, 1, 1);
  massList.DeleteAll();
  for (int i = 0; i < component->NumMIPairs(); ++i) {
    CVRegKey pairKey(massList, ElementKeyName(kMassListElement, i), 1, 1);
    WriteValues<CMIPair>(pairKey, component->GetMIPair(i), kMIPairWrite);
  }
}

void WriteCalibrationInfo(CComponentIO* component, CVRegKey& key) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  CVRegKey calLevels(key, kCalLevelsKey, 0, 0);
  CVRegKey qcLevels(key, kQCLevelsKey, 0, 0);
  WriteValues<CComponentIO>(key, *component, kCalibrationWrite);
  // Sorting keeps the counts just written.
  component->SortCalLevelPairs();
  component->SortQCLevelPairs();
  WriteLevels(qcLevels, component->NumQCLevels(), QCLevel, *component);
  WriteLevels(calLevels, component->NumCalLevels(), CalLevel, *component);
}

void WriteLevelInfo(CLevel& level, CVRegKey& parent, int index) {
  const vglobal::methoddefaults::WriteScope scope;
  CVRegKey levelKey(parent, ElementKeyName(kLevelElement, index), 1, 1);
  WriteValues<CLevel>(levelKey, level, kLevelWrite);
  vglobal::methoddefaults::WriteReplicates(levelKey, level);
}

// ---- 3. Reading ----

int ReadDefaultComponent(CComponentIO* component, CString& path) {
  if (!component) return 0;
  CComponentIO& c = *component;
  CVRegKey key(HKEY_CURRENT_USER, path, 0, 0);
  int ok = 1;

  // A stored filter text replaces the component's filter; one that does not parse
  // gives the empty filter rather than a part of it.
  CString filterText;
  if (key.ReadStr(L"Filter", filterText)) {
    CVC_FilterStruct parser(9, 2, 2);
    c.Filter(parser.ParseFilterStructString(filterText, -1) ? parser.ToCFilter() : CFilter());
  } else {
    ok = 0;
  }

  ReadElementList<CMIPair>(
      key, L"NumMIPairs", kMassListKey, kMassListElement, [&c](int n) { c.NumMIPairs(n); },
      [&c](int i) -> CMIPair& { return c.GetMIPair(i); }, kMIPairRead, ok);
  ReadElementList<CMassRange>(
      key, L"NumMassRanges", kMassRangeKey, kMassRangeElement, [&c](int n) { c.NumMassRanges(n); },
      [&c](int i) -> CMassRange& { return c[i]; }, kMassRangeRead, ok);

  if (!ReadValues<CComponentIO>(key, c, kIdentificationRead)) ok = 0;

  CVRegKey calLevels(key, kCalLevelsKey, 0, 0);
  CVRegKey qcLevels(key, kQCLevelsKey, 0, 0);
  if (!ReadValues<CComponentIO>(key, c, kCalibrationRead)) ok = 0;
  ReadLevels(
      key, L"NumCalLevels", calLevels, [](CComponentIO& cc, int n) { cc.NumCalLevels(n); },
      CalLevel, c, ok);
  ReadLevels(
      key, L"NumQCLevels", qcLevels, [](CComponentIO& cc, int n) { cc.NumQCLevels(n); }, QCLevel, c,
      ok);
  if (!ReadValues<CComponentIO>(key, c, kCrossContributionRead)) ok = 0;
  return ok;
}

void ReadLevelInfo(CLevel& level, CVRegKey& parent, int index, int& ok) {
  // Only below an open list key: a missing list is not made by reading it.
  if (!parent.IsValid()) {
    ok = 0;
    return;
  }
  CVRegKey levelKey(parent, ElementKeyName(kLevelElement, index), 1, 1);
  if (!ReadValues<CLevel>(levelKey, level, kLevelRead)) ok = 0;
  if (!vglobal::methoddefaults::ReadReplicates(levelKey, level, 1)) ok = 0;
}

// ---- 4. The key as a whole ----

void CreateRegistryEntries(CComponentIO* component, CString path) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  CVRegKey key(HKEY_CURRENT_USER, path, 1, 1);
  for (const wchar_t* subkey :
       {L"Filter\\Masses", kMassRangeKey, kMassListKey, kCalLevelsKey, kQCLevelsKey}) {
    CVRegKey created(key, subkey, 1, 1);
  }
  WriteIdentificationInfo(component, key);
  WriteCalibrationInfo(component, key);
}

CComponentIO* SetRegistryEntries(CComponentIO* old, CString path) {
  const vglobal::methoddefaults::WriteScope scope;
  delete old;
  auto component = std::make_unique<CComponentIO>();
  const bool exists = CVRegKey(HKEY_CURRENT_USER, path, 0, 0).IsValid() != 0;
  // An incomplete key is repaired: what was found is written back with the record's
  // defaults for the rest, so the next load is complete.
  if (!exists || ReadDefaultComponent(component.get(), path) != 1)
    CreateRegistryEntries(component.get(), path);
  return component.release();
}
