// The Levels page of the default quantitation component: the calibration, QC and
// surrogate level lists with their replicates, and the surrogate spike limits.
//
//   Levels                 "SpikeAmount", "SpikeLowerRecovery", "SpikeUpperRecovery"
//   Levels\CalLevels       "NumLevels", then Level[0], Level[1]...
//   Levels\QCLevels        the same
//   Levels\SurrogateLevels the same
//   ...\Level[i]           "Name", "BaseAmount", "TestPercent", then the replicates
//                          (level_io.h)
#include <array>

#include "methoddefaults/level_io.h"
#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/calibration.h"

namespace {

using vglobal::methoddefaults::ElementKeyName;
using vglobal::methoddefaults::ReadListCount;
using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;

constexpr const wchar_t* kLevelsPath = L"Processing Setup\\Defaults\\Quan\\Levels";
constexpr const wchar_t* kLevelKey = L"Level[%d]";

// One of the component's level lists and the sub-key that keeps it.
struct LevelList {
  const wchar_t* key;
  int (*count)(const CComponentIO&);
  void (*resize)(CComponentIO&, int);
  CLevel& (*level)(CComponentIO&, int);
};

constexpr LevelList kCalLevels{
    L"CalLevels",
    [](const CComponentIO& c) { return c.NumCalLevels(); },
    [](CComponentIO& c, int n) { c.NumCalLevels(n); },
    [](CComponentIO& c, int i) -> CLevel& { return c.GetCalLevel(i); },
};
constexpr LevelList kQCLevels{
    L"QCLevels",
    [](const CComponentIO& c) { return c.NumQCLevels(); },
    [](CComponentIO& c, int n) { c.NumQCLevels(n); },
    [](CComponentIO& c, int i) -> CLevel& { return c.GetQCLevel(i); },
};
constexpr LevelList kSurrogateLevels{
    L"SurrogateLevels",
    [](const CComponentIO& c) { return c.NumSurrogateCalLevels(); },
    [](CComponentIO& c, int n) { c.NumSurrogateCalLevels(n); },
    [](CComponentIO& c, int i) -> CLevel& { return c.GetSurrogateLevel(i); },
};

// The lists each component type keeps. A target compound is calibrated and checked
// against QC levels; a surrogate is measured against its own levels; an internal
// standard, and every other type, keeps none.
constexpr std::array kTargetCompoundLists{kCalLevels, kQCLevels};
constexpr std::array kSurrogateLists{kSurrogateLevels};
// The reader does not look at the type: every list found is read.
constexpr std::array kEveryList{kCalLevels, kQCLevels, kSurrogateLevels};

using SComponent = vglobal::methoddefaults::Section<CComponentIO>;

using CF = vglobal::ComponentCalibration::Fields;

constexpr auto kSpike = std::to_array<SComponent::Entry>({
    SComponent::Value<&CF::SpikeAmount>(),
    SComponent::Value<&CF::SpikeLowerRecovery>(),
    SComponent::Value<&CF::SpikeUpperRecovery>(),
});

using SLevel = vglobal::methoddefaults::Section<CLevel>;

// The level's own values; "NumReplicates" and the replicates follow (level_io.h).
constexpr auto kLevel = std::to_array<SLevel::Entry>({
    SLevel::Value<&CLevel::Fields::LevelName>(L"Name"),
    SLevel::Value<&CLevel::Fields::BaseAmount>(),
    SLevel::Value<&CLevel::Fields::TestPercent>(),
});

// Replaces whatever the list key held, so a shorter list leaves no stale level behind.
void WriteLevelList(CVRegKey& levels, CComponentIO& component, const LevelList& list) {
  CVRegKey listKey(levels, list.key, 1, 1);
  listKey.DeleteAll();
  const int count = list.count(component);
  listKey.WriteInt(L"NumLevels", count);
  for (int i = 0; i < count; ++i) WriteALevel(&list.level(component, i), &listKey, i);
}

// A level is taken only when it was read completely: a partly stored level would mix
// its values with those of whatever level held the place before, so the place keeps
// what resizing the list gave it instead.
int ReadLevelList(CVRegKey& levels, CComponentIO& component, const LevelList& list) {
  CVRegKey listKey(levels, list.key, 0, 0);
  const std::optional<int> count = ReadListCount(listKey, L"NumLevels");
  if (!count) return 0;
  list.resize(component, *count);
  int complete = 1;
  for (int i = 0; i < *count; ++i) {
    CLevel scratch;
    if (ReadALevel(&scratch, &listKey, i) == 1)
      list.level(component, i) = scratch;
    else
      complete = 0;
  }
  return complete;
}

}  // namespace

void WriteLevelsInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  CVRegKey levels(HKEY_CURRENT_USER, kLevelsPath, 1, 1);
  switch (component->Type()) {
    case 0:
      for (const LevelList& list : kTargetCompoundLists) WriteLevelList(levels, *component, list);
      break;
    case 4:
      for (const LevelList& list : kSurrogateLists) WriteLevelList(levels, *component, list);
      WriteValues<CComponentIO>(levels, *component, kSpike);
      break;
    default:
      break;
  }
}

int ReadLevelsInfo(CComponentIO* component) {
  if (!component) return 0;
  CVRegKey levels(HKEY_CURRENT_USER, kLevelsPath, 0, 0);
  int complete = 1;
  for (const LevelList& list : kEveryList) {
    if (!ReadLevelList(levels, *component, list)) complete = 0;
  }
  if (!ReadValues<CComponentIO>(levels, *component, kSpike)) complete = 0;
  return complete;
}

void WriteALevel(CLevel* level, CVRegKey* list, int index) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!level || !list) return;
  CVRegKey levelKey(*list, ElementKeyName(kLevelKey, index), 1, 1);
  WriteValues<CLevel>(levelKey, *level, kLevel);
  vglobal::methoddefaults::WriteReplicates(levelKey, *level);
}

int ReadALevel(CLevel* level, CVRegKey* list, int index) {
  if (!level || !list) return 0;
  CVRegKey levelKey(*list, ElementKeyName(kLevelKey, index), 0, 0);
  int complete = ReadValues<CLevel>(levelKey, *level, kLevel);
  if (!vglobal::methoddefaults::ReadReplicates(levelKey, *level, 0)) complete = 0;
  return complete;
}
