// The Detection page of the default quantitation component: how the peak is
// found and how the component's identity is confirmed. One key, two written forms: the
// full form (GC) adds the spectral thresholds or the ion-ratio confirmation to the
// short form (LC); the reader reads everything either form may hold.
#include <array>

#include "methoddefaults/kiva_entries.h"
#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/component.h"

namespace {

using S = vglobal::methoddefaults::Section<CComponentIO>;
using vglobal::methoddefaults::Join;
using vglobal::methoddefaults::KivaEntries;
using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;

constexpr const wchar_t* kDetectionPath = L"Processing Setup\\Defaults\\Quan\\Detection";

using F = vglobal::ComponentIdentification::Fields;

bool ValleyDetectionOn(const CComponentIO& c) {
  return c.ValleyDetection() != 0;
}
bool ConstrainPeakOn(const CComponentIO& c) {
  return c.ConstrainPeak() != 0;
}

// Steps 1 to 4: the short form, and the start of the full form: the peak's shape and
// the algorithm, then the Kiva values.
constexpr auto kPeakShape = std::to_array<S::Entry>({
    S::Value<&F::SmoothingPoints>(),
    S::Value<&F::BaseSNR>(),
    S::Value<&F::ValleyDetection>(),
    S::Value<&F::ExpectedPeakWidth>(ValleyDetectionOn),
    S::Value<&F::ConstrainPeak>(),
    S::Value<&F::PeakHeightPercentage>(ConstrainPeakOn),
    S::Value<&F::TailingFactor>(ConstrainPeakOn),
    S::Value<&F::PeakDetectionIndex>(),
    S::Value<&F::SNThreshold>(),
});

constexpr auto kPeakFinding = Join(kPeakShape, KivaEntries<CComponentIO, F>());

// Step 5, full form only: the first algorithm confirms by spectral match thresholds;
// the others confirm on the mass spectrometer by qualifier-ion ratios.
bool UsesSpectralThresholds(const CComponentIO& c) {
  return c.PeakDetectionIndex() == 0;
}
bool UsesIonRatios(const CComponentIO& c) {
  return c.PeakDetectionIndex() != 0 && c.DetectorType() == VIRTUAL_DEVICE_MS;
}
bool IonRatiosOn(const CComponentIO& c) {
  return UsesIonRatios(c) && c.IonRatioConfirmation() != 0;
}

constexpr auto kConfirmation = std::to_array<S::Entry>({
    S::Value<&F::ForwardThreshold>(UsesSpectralThresholds),
    S::Value<&F::ReverseThreshold>(UsesSpectralThresholds),
    S::Value<&F::MatchThreshold>(UsesSpectralThresholds),
    // Stored as 0 whatever the field holds and never read, so a default never switches
    // the confirmation on; the ion-ratio values below still follow the field.
    S::Int(
        L"IonRatioConfirmation", [](const CComponentIO&) { return 0; }, UsesIonRatios),
    S::Do([](CComponentIO& c) { c.IonRatioConfirmation(0); }),
    S::Value<&F::IonRatioMethod>(IonRatiosOn),
    S::Value<&F::Standard>(IonRatiosOn),
    S::Value<&F::IonRatioWndType>(IonRatiosOn),
    S::Value<&F::QualifierIonCoelution>(IonRatiosOn),
});

}  // namespace

void WriteGCDetectionInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  CVRegKey key(HKEY_CURRENT_USER, kDetectionPath, 1, 1);
  WriteValues<CComponentIO>(key, *component, kPeakFinding);
  WriteValues<CComponentIO>(key, *component, kConfirmation);
}

void WriteLCDetectionInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kDetectionPath, *component, kPeakFinding);
}

int ReadDetectionInfo(CComponentIO* component) {
  if (!component) return 0;
  CVRegKey key(HKEY_CURRENT_USER, kDetectionPath, 0, 0);
  // Both parts are read whatever the first gave.
  const int peakFinding = ReadValues<CComponentIO>(key, *component, kPeakFinding);
  const int confirmation = ReadValues<CComponentIO>(key, *component, kConfirmation);
  return peakFinding && confirmation ? 1 : 0;
}
