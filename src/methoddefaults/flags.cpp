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

constexpr std::array kDetectionFlagsWrite{
    S::Double(L"AreaFlagThreshold", [](const CComponentIO& c) { return c.AreaFlagThreshold(); }),
    S::Double(L"HeightFlagThreshold",
              [](const CComponentIO& c) { return c.HeightFlagThreshold(); }),
    S::Double(L"AreaFlagPercentThreshold",
              [](const CComponentIO& c) { return c.AreaFlagPercentThreshold(); }),
    S::Double(L"HeightFlagPercentThreshold",
              [](const CComponentIO& c) { return c.HeightFlagPercentThreshold(); }),
};

constexpr std::array kDetectionFlagsRead{
    S::ReadDouble(L"AreaFlagThreshold", [](CComponentIO& c, double v) { c.AreaFlagThreshold(v); }),
    S::ReadDouble(L"HeightFlagThreshold",
                  [](CComponentIO& c, double v) { c.HeightFlagThreshold(v); }),
    S::ReadDouble(L"AreaFlagPercentThreshold",
                  [](CComponentIO& c, double v) { c.AreaFlagPercentThreshold(v); }),
    S::ReadDouble(L"HeightFlagPercentThreshold",
                  [](CComponentIO& c, double v) { c.HeightFlagPercentThreshold(v); }),
};

constexpr std::array kCalibrationFlagsWrite{
    S::Double(L"R_Squared", [](const CComponentIO& c) { return c.R_Squared(); }),
    S::Double(L"LimitDetection", [](const CComponentIO& c) { return c.LimitDetection(); }),
    S::Double(L"LimitQuantitation", [](const CComponentIO& c) { return c.LimitQuantitation(); }),
    S::Double(L"LinearityLimit", [](const CComponentIO& c) { return c.LinearityLimit(); }),
    S::Double(L"CarryOverLimit", [](const CComponentIO& c) { return c.CarryOverLimit(); }),
};

constexpr std::array kCalibrationFlagsRead{
    S::ReadDouble(L"R_Squared", [](CComponentIO& c, double v) { c.R_Squared(v); }),
    S::ReadDouble(L"LimitDetection", [](CComponentIO& c, double v) { c.LimitDetection(v); }),
    S::ReadDouble(L"LimitQuantitation", [](CComponentIO& c, double v) { c.LimitQuantitation(v); }),
    S::ReadDouble(L"LinearityLimit", [](CComponentIO& c, double v) { c.LinearityLimit(v); }),
    S::ReadDouble(L"CarryOverLimit", [](CComponentIO& c, double v) { c.CarryOverLimit(v); }),
};

}  // namespace

void WriteDataFlagsInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kDetectionFlagsPath, *component, kDetectionFlagsWrite);
}

int ReadDataFlagsInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kDetectionFlagsPath, *component, kDetectionFlagsRead);
}

void WriteCalibrationFlagInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kCalibrationFlagsPath, *component, kCalibrationFlagsWrite);
}

int ReadCalibrationFlagInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kCalibrationFlagsPath, *component, kCalibrationFlagsRead);
}
