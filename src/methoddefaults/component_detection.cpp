// The Detection page of the default quantitation component: how the peak is
// found and how the component's identity is confirmed. One key, two written forms: the
// full form (GC) adds the spectral thresholds or the ion-ratio confirmation to the
// short form (LC); the reader reads everything either form may hold.
#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/component.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;
using S = vglobal::methoddefaults::Section<CComponentIO>;

constexpr const wchar_t* kDetectionPath = L"Processing Setup\\Defaults\\Quan\\Detection";

// Steps 1 to 4: the short form, and the start of the full form.
constexpr std::array kWritePeakFinding{
    S::Int(L"SmoothingPoints", [](const CComponentIO& c) { return c.SmoothingPoints(); }),
    S::Double(L"BaseSNR", [](const CComponentIO& c) { return c.BaseSNR(); }),
    S::Int(L"ValleyDetection", [](const CComponentIO& c) { return c.ValleyDetection(); }),
    S::Double(
        L"ExpectedPeakWidth", [](const CComponentIO& c) { return c.ExpectedPeakWidth(); },
        [](const CComponentIO& c) { return c.ValleyDetection() != 0; }),
    S::Int(L"ConstrainPeak", [](const CComponentIO& c) { return c.ConstrainPeak(); }),
    S::Double(
        L"PeakHeightPercentage", [](const CComponentIO& c) { return c.PeakHeightPercentage(); },
        [](const CComponentIO& c) { return c.ConstrainPeak() != 0; }),
    S::Double(
        L"TailingFactor", [](const CComponentIO& c) { return c.TailingFactor(); },
        [](const CComponentIO& c) { return c.ConstrainPeak() != 0; }),
    S::Int(L"PeakDetectionIndex", [](const CComponentIO& c) { return c.PeakDetectionIndex(); }),
    S::Double(L"SNThreshold", [](const CComponentIO& c) { return c.SNThreshold(); }),
    S::Int(L"BaselineWindow", [](const CComponentIO& c) { return c.BaselineWindow(); }),
    S::Int(L"PeakNoiseFactor", [](const CComponentIO& c) { return c.PeakNoiseFactor(); }),
    S::Int(L"MultipletResolution", [](const CComponentIO& c) { return c.MultipletResolution(); }),
    S::Int(L"KivaMinPeakWidth", [](const CComponentIO& c) { return c.KivaMinPeakWidth(); }),
    S::Int(L"AreaScanWindow", [](const CComponentIO& c) { return c.AreaScanWindow(); }),
    S::Int(L"AreaNoiseFactor", [](const CComponentIO& c) { return c.AreaNoiseFactor(); }),
    S::Int(L"AreaTailExtension", [](const CComponentIO& c) { return c.AreaTailExtension(); }),
    S::Int(L"KivaNoiseType", [](const CComponentIO& c) { return c.KivaNoiseType(); }),
    S::Int(L"KivaRMS", [](const CComponentIO& c) { return c.KivaRMS(); }),
    S::Int(L"KivaConstrainPeak", [](const CComponentIO& c) { return c.KivaConstrainPeak(); }),
    S::Double(L"KivaPeakHeightPercentage",
              [](const CComponentIO& c) { return c.KivaPeakHeightPercentage(); }),
    S::Double(L"KivaTailingFactor", [](const CComponentIO& c) { return c.KivaTailingFactor(); }),
};

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

constexpr std::array kWriteConfirmation{
    S::Int(
        L"ForwardThreshold", [](const CComponentIO& c) { return c.ForwardThreshold(); },
        UsesSpectralThresholds),
    S::Int(
        L"ReverseThreshold", [](const CComponentIO& c) { return c.ReverseThreshold(); },
        UsesSpectralThresholds),
    S::Int(
        L"MatchThreshold", [](const CComponentIO& c) { return c.MatchThreshold(); },
        UsesSpectralThresholds),
    // Stored as 0 whatever the field holds, so a default never switches the
    // confirmation on; the ion-ratio values below still follow the field.
    S::Int(
        L"IonRatioConfirmation", [](const CComponentIO&) { return 0; }, UsesIonRatios),
    S::Int(
        L"IonRatioMethod", [](const CComponentIO& c) { return c.IonRatioMethod(); }, IonRatiosOn),
    S::Int(
        L"Standard", [](const CComponentIO& c) { return c.Standard(); }, IonRatiosOn),
    S::Int(
        L"IonRatioWndType", [](const CComponentIO& c) { return c.IonRatioWndType(); }, IonRatiosOn),
    S::Double(
        L"QualifierIonCoelution", [](const CComponentIO& c) { return c.QualifierIonCoelution(); },
        IonRatiosOn),
};

constexpr std::array kRead{
    S::ReadInt(L"SmoothingPoints", [](CComponentIO& c, int v) { c.SmoothingPoints(v); }),
    S::ReadDouble(L"BaseSNR", [](CComponentIO& c, double v) { c.BaseSNR(v); }),
    S::ReadInt(L"ValleyDetection", [](CComponentIO& c, int v) { c.ValleyDetection(v); }),
    S::ReadDouble(L"ExpectedPeakWidth", [](CComponentIO& c, double v) { c.ExpectedPeakWidth(v); }),
    S::ReadInt(L"ConstrainPeak", [](CComponentIO& c, int v) { c.ConstrainPeak(v); }),
    S::ReadDouble(L"PeakHeightPercentage",
                  [](CComponentIO& c, double v) { c.PeakHeightPercentage(v); }),
    S::ReadDouble(L"TailingFactor", [](CComponentIO& c, double v) { c.TailingFactor(v); }),
    S::ReadInt(L"PeakDetectionIndex", [](CComponentIO& c, int v) { c.PeakDetectionIndex(v); }),
    S::ReadDouble(L"SNThreshold", [](CComponentIO& c, double v) { c.SNThreshold(v); }),
    S::ReadInt(L"ForwardThreshold", [](CComponentIO& c, int v) { c.ForwardThreshold(v); }),
    S::ReadInt(L"ReverseThreshold", [](CComponentIO& c, int v) { c.ReverseThreshold(v); }),
    S::ReadInt(L"MatchThreshold", [](CComponentIO& c, int v) { c.MatchThreshold(v); }),
    S::ReadInt(L"BaselineWindow", [](CComponentIO& c, int v) { c.BaselineWindow(v); }),
    S::ReadInt(L"PeakNoiseFactor", [](CComponentIO& c, int v) { c.PeakNoiseFactor(v); }),
    S::ReadInt(L"MultipletResolution", [](CComponentIO& c, int v) { c.MultipletResolution(v); }),
    S::ReadInt(L"KivaMinPeakWidth", [](CComponentIO& c, int v) { c.KivaMinPeakWidth(v); }),
    S::ReadInt(L"AreaScanWindow", [](CComponentIO& c, int v) { c.AreaScanWindow(v); }),
    S::ReadInt(L"AreaNoiseFactor", [](CComponentIO& c, int v) { c.AreaNoiseFactor(v); }),
    S::ReadInt(L"AreaTailExtension", [](CComponentIO& c, int v) { c.AreaTailExtension(v); }),
    S::ReadInt(L"KivaNoiseType", [](CComponentIO& c, int v) { c.KivaNoiseType(v); }),
    S::ReadInt(L"KivaRMS", [](CComponentIO& c, int v) { c.KivaRMS(v); }),
    S::ReadInt(L"KivaConstrainPeak", [](CComponentIO& c, int v) { c.KivaConstrainPeak(v); }),
    S::ReadDouble(L"KivaPeakHeightPercentage",
                  [](CComponentIO& c, double v) { c.KivaPeakHeightPercentage(v); }),
    S::ReadDouble(L"KivaTailingFactor", [](CComponentIO& c, double v) { c.KivaTailingFactor(v); }),
    // Never read: a default component starts with the confirmation off (the writer
    // stores 0 for the same reason).
    S::Do([](CComponentIO& c) { c.IonRatioConfirmation(0); }),
    S::ReadInt(L"IonRatioMethod", [](CComponentIO& c, int v) { c.IonRatioMethod(v); }),
    S::ReadInt(L"Standard", [](CComponentIO& c, int v) { c.Standard(v); }),
    S::ReadInt(L"IonRatioWndType", [](CComponentIO& c, int v) { c.IonRatioWndType(v); }),
    S::ReadDouble(L"QualifierIonCoelution",
                  [](CComponentIO& c, double v) { c.QualifierIonCoelution(v); }),
};

}  // namespace

void WriteGCDetectionInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  CVRegKey key(HKEY_CURRENT_USER, kDetectionPath, 1, 1);
  WriteValues<CComponentIO>(key, *component, kWritePeakFinding);
  WriteValues<CComponentIO>(key, *component, kWriteConfirmation);
}

void WriteLCDetectionInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kDetectionPath, *component, kWritePeakFinding);
}

int ReadDetectionInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kDetectionPath, *component, kRead);
}
