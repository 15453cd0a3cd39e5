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
using vglobal::methoddefaults::TruncateForStore;
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

// A group switched off leaves its limits out: whatever an earlier write stored for
// them stays in the store and is read back.
constexpr std::array kWrite{
    S::Int(L"ResolutionChecksEnabled",
           [](const CComponentIO& c) { return c.ResolutionChecksEnabled(); }),
    S::Int(
        L"ResThreshold", [](const CComponentIO& c) { return TruncateForStore(c.ResThreshold()); },
        ResolutionOn),
    S::Int(L"SymmetryChecksEnabled",
           [](const CComponentIO& c) { return c.SymmetryChecksEnabled(); }),
    S::Int(
        L"SymmetryTake", [](const CComponentIO& c) { return TruncateForStore(c.SymmetryTake()); },
        SymmetryOn),
    S::Int(
        L"SymmetryThreshold",
        [](const CComponentIO& c) { return TruncateForStore(c.SymmetryThreshold()); }, SymmetryOn),
    S::Int(L"PeakClassificationChecksEnabled",
           [](const CComponentIO& c) { return c.PeakClassificationChecksEnabled(); }),
    S::Int(
        L"DetectWidth", [](const CComponentIO& c) { return TruncateForStore(c.DetectWidth()); },
        PeakClassificationOn),
    S::Double(
        L"MinPeakWidth", [](const CComponentIO& c) { return c.MinPeakWidth(); },
        PeakClassificationOn),
    S::Double(
        L"MaxPeakWidth", [](const CComponentIO& c) { return c.MaxPeakWidth(); },
        PeakClassificationOn),
    S::Int(
        L"TailingMeasured",
        [](const CComponentIO& c) { return TruncateForStore(c.TailingMeasured()); },
        PeakClassificationOn),
    S::Double(
        L"TailingFailureThreshold",
        [](const CComponentIO& c) { return c.TailingFailureThreshold(); }, PeakClassificationOn),
    S::Int(
        L"ColumnMeasure", [](const CComponentIO& c) { return TruncateForStore(c.ColumnMeasure()); },
        PeakClassificationOn),
    S::Double(
        L"ColumnFailureThreshold", [](const CComponentIO& c) { return c.ColumnFailureThreshold(); },
        PeakClassificationOn),
    S::Double(
        L"BaselineClipping", [](const CComponentIO& c) { return c.BaselineClipping(); },
        PeakClassificationOn),
    S::Int(
        L"DetectSignalToNoise",
        [](const CComponentIO& c) { return TruncateForStore(c.DetectSignalToNoise()); },
        PeakClassificationOn),
};

// Every value is read whatever the switches say; a limit stored as a whole number
// comes back as that number.
constexpr std::array kRead{
    S::ReadInt(L"ResolutionChecksEnabled",
               [](CComponentIO& c, int v) { c.ResolutionChecksEnabled(v); }),
    S::ReadInt(L"ResThreshold", [](CComponentIO& c, int v) { c.ResThreshold(v); }),
    S::ReadInt(L"SymmetryChecksEnabled",
               [](CComponentIO& c, int v) { c.SymmetryChecksEnabled(v); }),
    S::ReadInt(L"SymmetryTake", [](CComponentIO& c, int v) { c.SymmetryTake(v); }),
    S::ReadInt(L"SymmetryThreshold", [](CComponentIO& c, int v) { c.SymmetryThreshold(v); }),
    S::ReadInt(L"PeakClassificationChecksEnabled",
               [](CComponentIO& c, int v) { c.PeakClassificationChecksEnabled(v); }),
    S::ReadInt(L"DetectWidth", [](CComponentIO& c, int v) { c.DetectWidth(v); }),
    S::ReadDouble(L"MinPeakWidth", [](CComponentIO& c, double v) { c.MinPeakWidth(v); }),
    S::ReadDouble(L"MaxPeakWidth", [](CComponentIO& c, double v) { c.MaxPeakWidth(v); }),
    S::ReadInt(L"TailingMeasured", [](CComponentIO& c, int v) { c.TailingMeasured(v); }),
    S::ReadDouble(L"TailingFailureThreshold",
                  [](CComponentIO& c, double v) { c.TailingFailureThreshold(v); }),
    S::ReadInt(L"ColumnMeasure", [](CComponentIO& c, int v) { c.ColumnMeasure(v); }),
    S::ReadDouble(L"ColumnFailureThreshold",
                  [](CComponentIO& c, double v) { c.ColumnFailureThreshold(v); }),
    S::ReadDouble(L"BaselineClipping", [](CComponentIO& c, double v) { c.BaselineClipping(v); }),
    S::ReadInt(L"DetectSignalToNoise", [](CComponentIO& c, int v) { c.DetectSignalToNoise(v); }),
};

}  // namespace

void WriteSystemSuitabilityInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kSystemSuitabilityPath, *component, kWrite);
}

int ReadSystemSuitabilityInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kSystemSuitabilityPath, *component, kRead);
}
