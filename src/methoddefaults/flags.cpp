// The Detection Flags and Calibration Flags pages of the default quantitation
// component: when a peak's area or height, and when a calibration, is flagged.
// Every value is a double, written and read unconditionally.
#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/flags.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;
using S = vglobal::methoddefaults::Section<CComponentIO>;

constexpr const wchar_t* kDetectionFlagsPath = L"Processing Setup\\Defaults\\Quan\\Detection Flags";
constexpr const wchar_t* kCalibrationFlagsPath =
    L"Processing Setup\\Defaults\\Quan\\Calibration Flags";

using F = vglobal::ComponentFlags::Fields;

constexpr auto kDetectionFlags = std::to_array<S::Entry>({
    S::Value<&F::AreaFlagThreshold>(),
    S::Value<&F::HeightFlagThreshold>(),
    S::Value<&F::AreaFlagPercentThreshold>(),
    S::Value<&F::HeightFlagPercentThreshold>(),
});

constexpr auto kCalibrationFlags = std::to_array<S::Entry>({
    S::Value<&F::R_Squared>(),
    S::Value<&F::LimitDetection>(),
    S::Value<&F::LimitQuantitation>(),
    S::Value<&F::LinearityLimit>(),
    S::Value<&F::CarryOverLimit>(),
});

}  // namespace

void WriteDataFlagsInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kDetectionFlagsPath, *component, kDetectionFlags);
}

int ReadDataFlagsInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kDetectionFlagsPath, *component, kDetectionFlags);
}

void WriteCalibrationFlagInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kCalibrationFlagsPath, *component, kCalibrationFlags);
}

int ReadCalibrationFlagInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kCalibrationFlagsPath, *component, kCalibrationFlags);
}
