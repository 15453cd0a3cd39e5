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

constexpr std::array kWrite{
    S::Int(L"TypeIndex", [](const CComponentIO& c) { return c.Type(); }),
    S::Double(
        L"ISTDBaseAmount", [](const CComponentIO& c) { return c.ISTDBaseAmount(); },
        IsInternalStandard),
    S::String(
        L"ISTDUnits", [](const CComponentIO& c) { return c.ISTDUnits(); }, IsInternalStandard),
    S::Int(
        L"WeightingIndex", [](const CComponentIO& c) { return c.WeightingIndex(); }, HasCurve),
    S::Int(
        L"OriginIndex", [](const CComponentIO& c) { return c.OriginIndex(); }, HasCurve),
    S::Int(
        L"CurveIndex", [](const CComponentIO& c) { return c.CurveIndex(); }, HasCurve),
    S::String(
        L"CalibrationUnits", [](const CComponentIO& c) { return c.CalibrationUnits(); }, HasCurve),
    S::Int(
        L"ResponseIndex", [](const CComponentIO& c) { return c.ResponseIndex(); }, HasCurve),
    S::Double(
        L"ISTDInTarget", [](const CComponentIO& c) { return c.PercentISTDInTarget(); }, HasCurve),
    S::Double(
        L"TargetInISTD", [](const CComponentIO& c) { return c.PercentTargetInISTD(); }, HasCurve),
};

// Both groups are read whatever the type, so a section written by the writer above
// always reads back incomplete; the values found are applied all the same.
constexpr std::array kRead{
    S::ReadInt(L"TypeIndex", [](CComponentIO& c, int v) { c.Type(v); }),
    S::ReadDouble(L"ISTDBaseAmount", [](CComponentIO& c, double v) { c.ISTDBaseAmount(v); }),
    S::ReadString(L"ISTDUnits", [](CComponentIO& c, const CString& v) { c.ISTDUnits(v); }),
    S::ReadInt(L"WeightingIndex", [](CComponentIO& c, int v) { c.WeightingIndex(v); }),
    S::ReadInt(L"OriginIndex", [](CComponentIO& c, int v) { c.OriginIndex(v); }),
    S::ReadInt(L"CurveIndex", [](CComponentIO& c, int v) { c.CurveIndex(v); }),
    S::ReadString(L"CalibrationUnits",
                  [](CComponentIO& c, const CString& v) { c.CalibrationUnits(v); }),
    S::ReadInt(L"ResponseIndex", [](CComponentIO& c, int v) { c.ResponseIndex(v); }),
    S::ReadDouble(L"ISTDInTarget", [](CComponentIO& c, double v) { c.PercentISTDInTarget(v); }),
    S::ReadDouble(L"TargetInISTD", [](CComponentIO& c, double v) { c.PercentTargetInISTD(v); }),
};

}  // namespace

void WriteCalibrationInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kCalibrationPath, *component, kWrite);
}

int ReadCalibrationInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kCalibrationPath, *component, kRead);
}
