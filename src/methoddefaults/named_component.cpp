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
#include <span>

#include "methoddefaults/kiva_entries.h"
#include "methoddefaults/level_io.h"
#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"

namespace {

using S = vglobal::methoddefaults::Section<CComponentIO>;
using vglobal::methoddefaults::ElementKeyName;
using vglobal::methoddefaults::Join;
using vglobal::methoddefaults::KivaEntriesWithoutRMS;
using vglobal::methoddefaults::ReadListCount;
using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;

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

using IF = vglobal::ComponentIdentification::Fields;
using CF = vglobal::ComponentCalibration::Fields;

// Written first, whatever the component holds: this layout keeps no scan filter and no
// mass ranges, so a component read back has the empty filter and none. Both are
// read by ReadDefaultComponent itself, the filter parsed and the count with its list.
constexpr auto kNoFilter = std::to_array<S::Entry>({
    S::String(L"Filter", [](const CComponentIO&) { return CString(); }),
    S::Int(L"NumMassRanges", [](const CComponentIO&) { return 0; }),
});

// Only the first three peak-detection algorithms apply to a quantitation component.
int AcceptPeakDetectionIndex(CComponentIO& c, int v) {
  if (v >= 3) return 0;
  c.PeakDetectionIndex(v);
  return 1;
}

// The identification values, then the Kiva values without KivaRMS.
constexpr auto kIdentification = Join(
    std::to_array<S::Entry>({
        // Written, not read back: see kNewComponentName.
        S::String(L"Name", [](const CComponentIO& c) { return c.ComponentName(); }),
        S::Do([](CComponentIO& c) { c.ComponentName(kNewComponentName); }),
        S::Value<&CF::UserEnteredRT>(),
        S::Value<&IF::RTSearchWindow>(),
        S::Value<&IF::UseAsRTReference>(),
        S::Value<&IF::AdjustExpectedRT>(),
        S::Value<&IF::RTReference>(),
        // Written as held; read refused from 3 up (the field keeps its value, the read is
        // incomplete), a negative index taken as stored.
        S::Int(L"PeakDetectionIndex", [](const CComponentIO& c) { return c.PeakDetectionIndex(); }),
        S::ReadCheckedInt(L"PeakDetectionIndex", AcceptPeakDetectionIndex),
        S::Value<&IF::SNThreshold>(),
        S::Value<&CF::FitThreshold>(),
        S::Value<&IF::SmoothingPoints>(),
        S::Value<&IF::ValleyDetection>(),
        S::Value<&IF::ConstrainPeak>(),
        S::Value<&IF::PeakHeightPercentage>(),
        S::Value<&IF::TailingFactor>(),
        // Written here; read with the mass list, before this table.
        S::Int(L"NumMIPairs", [](const CComponentIO& c) { return c.NumMIPairs(); }),
    }),
    KivaEntriesWithoutRMS<CComponentIO, IF>());

// The calibration values; the levels are written after them and read between the
// level counts and the cross contributions, which read nothing of the levels.
constexpr auto kCalibration = std::to_array<S::Entry>({
    // The name again, not read back: the calibration half was once written on its own.
    S::String(L"Name", [](const CComponentIO& c) { return c.ComponentName(); }),
    // Written as 0, read as stored: the type is not kept, a component read back is a
    // target compound.
    S::Int(L"Type", [](const CComponentIO&) { return 0; }),
    S::ReadInt(L"Type", [](CComponentIO& c, int v) { c.Type(v); }),
    S::Value<&CF::ISTDBaseAmount>(),
    S::Value<&CF::ISTDUnits>(),
    S::Value<&CF::CurveIndex>(),
    S::Value<&CF::OriginIndex>(),
    S::Value<&CF::WeightingIndex>(),
    S::Value<&CF::ResponseIndex>(),
    S::Value<&CF::CalibrationUnits>(),
    S::Value<&CF::ReportUnits>(),
    // Written here; read with their level lists.
    S::Int(L"NumCalLevels", [](const CComponentIO& c) { return c.NumCalLevels(); }),
    S::Int(L"NumQCLevels", [](const CComponentIO& c) { return c.NumQCLevels(); }),
    S::Value<&CF::PercentISTDInTarget>(),
    S::Value<&CF::PercentTargetInISTD>(),
});

using SPair = vglobal::methoddefaults::Section<CMIPair>;
constexpr auto kMIPair = std::to_array<SPair::Entry>({
    SPair::Value<&CMIPair::Fields::Mass>(),
    SPair::Value<&CMIPair::Fields::Intensity>(),
});

// Only read: the layout writes no mass range (see kNoFilter), but a key written by
// another program may hold some.
using SRange = vglobal::methoddefaults::Section<CMassRange>;
constexpr auto kMassRange = std::to_array<SRange::Entry>({
    SRange::Value<&CMassRange::Fields::LowMass>(),
    SRange::Value<&CMassRange::Fields::HighMass>(),
});

// The level's own values in this layout's order; "NumReplicates" and the replicates
// follow (level_io.h).
using SLevel = vglobal::methoddefaults::Section<CLevel>;
constexpr auto kLevel = std::to_array<SLevel::Entry>({
    SLevel::Value<&CLevel::Fields::BaseAmount>(),
    SLevel::Value<&CLevel::Fields::TestPercent>(),
    SLevel::Value<&CLevel::Fields::LevelName>(L"Name"),
});

// Reads the list counted by `countName` in `key` and kept as `elementFormat` sub-keys
// of `listName`: resizes it through `resize` and reads element i into `at(i)`. Each
// element key is opened creating it, so reading makes a missing element, empty.
// Clears `ok` for the count or any value missing.
template <typename Element, typename Resize, typename At>
void ReadElementList(CVRegKey& key, const wchar_t* countName, const wchar_t* listName,
                     const wchar_t* elementFormat, Resize resize, At at,
                     std::span<const vglobal::methoddefaults::Entry<Element>> table, int& ok) {
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
  WriteValues<CComponentIO>(key, *component, kNoFilter);
  CVRegKey(key, kMassRangeKey, 0, 0).DeleteAll();
  WriteValues<CComponentIO>(key, *component, kIdentification);

  CVRegKey massList(key, kMassListKey, 1, 1);
  massList.DeleteAll();
  for (int i = 0; i < component->NumMIPairs(); ++i) {
    CVRegKey pairKey(massList, ElementKeyName(kMassListElement, i), 1, 1);
    WriteValues<CMIPair>(pairKey, component->GetMIPair(i), kMIPair);
  }
}

void WriteCalibrationInfo(CComponentIO* component, CVRegKey& key) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  CVRegKey calLevels(key, kCalLevelsKey, 0, 0);
  CVRegKey qcLevels(key, kQCLevelsKey, 0, 0);
  WriteValues<CComponentIO>(key, *component, kCalibration);
  // Sorting keeps the counts just written.
  component->SortCalLevelPairs();
  component->SortQCLevelPairs();
  WriteLevels(qcLevels, component->NumQCLevels(), QCLevel, *component);
  WriteLevels(calLevels, component->NumCalLevels(), CalLevel, *component);
}

void WriteLevelInfo(CLevel& level, CVRegKey& parent, int index) {
  const vglobal::methoddefaults::WriteScope scope;
  CVRegKey levelKey(parent, ElementKeyName(kLevelElement, index), 1, 1);
  WriteValues<CLevel>(levelKey, level, kLevel);
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
      [&c](int i) -> CMIPair& { return c.GetMIPair(i); }, kMIPair, ok);
  ReadElementList<CMassRange>(
      key, L"NumMassRanges", kMassRangeKey, kMassRangeElement, [&c](int n) { c.NumMassRanges(n); },
      [&c](int i) -> CMassRange& { return c[i]; }, kMassRange, ok);

  if (!ReadValues<CComponentIO>(key, c, kIdentification)) ok = 0;

  CVRegKey calLevels(key, kCalLevelsKey, 0, 0);
  CVRegKey qcLevels(key, kQCLevelsKey, 0, 0);
  if (!ReadValues<CComponentIO>(key, c, kCalibration)) ok = 0;
  ReadLevels(
      key, L"NumCalLevels", calLevels, [](CComponentIO& cc, int n) { cc.NumCalLevels(n); },
      CalLevel, c, ok);
  ReadLevels(
      key, L"NumQCLevels", qcLevels, [](CComponentIO& cc, int n) { cc.NumQCLevels(n); }, QCLevel, c,
      ok);
  return ok;
}

void ReadLevelInfo(CLevel& level, CVRegKey& parent, int index, int& ok) {
  // Only below an open list key: a missing list is not made by reading it.
  if (!parent.IsValid()) {
    ok = 0;
    return;
  }
  CVRegKey levelKey(parent, ElementKeyName(kLevelElement, index), 1, 1);
  if (!ReadValues<CLevel>(levelKey, level, kLevel)) ok = 0;
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
