// The System Suitability page of the default quantitation component: three check
// groups, each stored with its limits only while it is switched on.
//
// Several limits are doubles in the record but whole numbers in the store (written
// truncated toward zero, read back as doubles); the fractions are lost by design of
// the stored layout, which the suite's other readers share.
#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/flags.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;
using S = vglobal::methoddefaults::Section<CComponentIO>;

constexpr const wchar_t* kSystemSuitabilityPath =
    L"Processing Setup\\Defaults\\Quan\\System Suitability";

bool ResolutionOn(const CComponentIO& c) {
  return c.ResolutionChecksEnabled() != 0;
}
bool SymmetryOn(const CComponentIO& c) {
  return c.SymmetryChecksEnabled() != 0;
}
bool PeakClassificationOn(const CComponentIO& c) {
  return c.PeakClassificationChecksEnabled() != 0;
}

using F = vglobal::ComponentFlags::Fields;

// A group switched off leaves its limits out: whatever an earlier write stored for
// them stays in the store and is read back, as every value is read whatever the
// switches say.
constexpr auto kSystemSuitability = std::to_array<S::Entry>({
    S::Value<&F::ResolutionChecksEnabled>(),
    S::WholeValue<&F::ResThreshold>(ResolutionOn),
    S::Value<&F::SymmetryChecksEnabled>(),
    S::WholeValue<&F::SymmetryTake>(SymmetryOn),
    S::WholeValue<&F::SymmetryThreshold>(SymmetryOn),
    S::Value<&F::PeakClassificationChecksEnabled>(),
    S::WholeValue<&F::DetectWidth>(PeakClassificationOn),
    S::Value<&F::MinPeakWidth>(PeakClassificationOn),
    S::Value<&F::MaxPeakWidth>(PeakClassificationOn),
    S::WholeValue<&F::TailingMeasured>(PeakClassificationOn),
    S::Value<&F::TailingFailureThreshold>(PeakClassificationOn),
    S::WholeValue<&F::ColumnMeasure>(PeakClassificationOn),
    S::Value<&F::ColumnFailureThreshold>(PeakClassificationOn),
    S::Value<&F::BaselineClipping>(PeakClassificationOn),
    S::WholeValue<&F::DetectSignalToNoise>(PeakClassificationOn),
});

}  // namespace

void WriteSystemSuitabilityInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kSystemSuitabilityPath, *component, kSystemSuitability);
}

int ReadSystemSuitabilityInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kSystemSuitabilityPath, *component, kSystemSuitability);
}
