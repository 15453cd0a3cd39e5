// The Calibration page of the default quantitation component: the component's type
// and either its internal-standard amount or its calibration curve.
#include "vglobal/methoddefaults/calibration.h"

#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;
using S = vglobal::methoddefaults::Section<CComponentIO>;

constexpr const wchar_t* kCalibrationPath = L"Processing Setup\\Defaults\\Quan\\Calibration";

// An internal standard is calibrated by its own amount only; every other type by a
// curve. The writer stores one group or the other, never both.
bool IsInternalStandard(const CComponentIO& c) {
  return c.Type() == 1;
}
bool HasCurve(const CComponentIO& c) {
  return !IsInternalStandard(c);
}

using F = vglobal::ComponentCalibration::Fields;

// Both groups are read whatever the type, so a section written by this table always
// reads back incomplete; the values found are applied all the same.
constexpr auto kCalibration = std::to_array<S::Entry>({
    S::Value<&F::Type>(L"TypeIndex"),
    S::Value<&F::ISTDBaseAmount>(IsInternalStandard),
    S::Value<&F::ISTDUnits>(IsInternalStandard),
    S::Value<&F::WeightingIndex>(HasCurve),
    S::Value<&F::OriginIndex>(HasCurve),
    S::Value<&F::CurveIndex>(HasCurve),
    S::Value<&F::CalibrationUnits>(HasCurve),
    S::Value<&F::ResponseIndex>(HasCurve),
    S::Value<&F::PercentISTDInTarget>(L"ISTDInTarget", HasCurve),
    S::Value<&F::PercentTargetInISTD>(L"TargetInISTD", HasCurve),
});

}  // namespace

void WriteCalibrationInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kCalibrationPath, *component, kCalibration);
}

int ReadCalibrationInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kCalibrationPath, *component, kCalibration);
}
