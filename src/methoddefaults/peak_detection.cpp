// The peak detection of the default processing method: the Qual Identification key
// (the trace and the integrators' parameters) and the Qual Advanced Chromatogram
// Options key, read together as one section.
//
// Writing stores several groups only while their switch is on; reading takes every
// value unconditionally, so a value of a switched-off group is whatever an earlier
// write left there. The algorithm is never stored: it follows the detector. The scan
// filter is stored for the mass spectrometer but deliberately not read back.
#include "vglobal/methoddefaults/peak_detection.h"

#include "methoddefaults/section.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;
using S = vglobal::methoddefaults::Section<CPeakDetection>;
using R = CPeakDetection;

// The first trace's type code as the processing method expects it for a detector;
// the record's own Trace1Type plays no part in what is stored.
int Trace1TypeForDetector(int detector) {
  switch (detector) {
    case VIRTUAL_DEVICE_ANALOG:
      return 11;
    case VIRTUAL_DEVICE_PDA:
      return 41;
    case VIRTUAL_DEVICE_UV:
    case VIRTUAL_DEVICE_AD_CARD:
      return 22;
    default:  // the mass spectrometer and any other detector
      return 1;
  }
}

bool IsMassSpectrometer(const R& r) {
  return r.DetectorType() == VIRTUAL_DEVICE_MS;
}
bool HasTraceDelay(const R& r) {
  return !IsMassSpectrometer(r);
}
bool ValleyDetectionOn(const R& r) {
  return r.ValleyDetection() != 0;
}
bool ConstrainPeakOn(const R& r) {
  return r.ConstrainPeak() != 0;
}
bool LimitPeakOn(const R& r) {
  return r.LimitPeakEnabled() != 0;
}
bool RelPeakOn(const R& r) {
  return r.RelPeakEnabled() != 0;
}

const S::Write kIdentificationWrite[] = {
    S::Int(L"DetectorType", [](const R& r) { return r.DetectorType(); }),
    S::Double(
        L"TraceDelay", [](const R& r) { return r.TraceDelay(); }, HasTraceDelay),
    S::String(
        L"Filter", [](const R& r) { return r.Filter().GetFilterString(-1, -1, 2); },
        IsMassSpectrometer),
    S::Int(L"Trace1Type", [](const R& r) { return Trace1TypeForDetector(r.DetectorType()); }),
    // A method's chromatogram is a single trace: no operator, no second trace.
    S::Int(L"TraceOperator", [](const R&) { return 0; }),
    S::Int(L"Trace2Type", [](const R&) { return 0; }),
    S::Int(L"SmoothingPoints", [](const R& r) { return r.SmoothingPoints(); }),
    S::Double(L"BaseSNR", [](const R& r) { return r.BaseSNR(); }),
    S::Int(L"ValleyDetection", [](const R& r) { return r.ValleyDetection(); }),
    S::Double(
        L"ExpectedPeakWidth", [](const R& r) { return r.PeakWidth(); }, ValleyDetectionOn),
    S::Int(L"ConstrainPeak", [](const R& r) { return r.ConstrainPeak(); }),
    S::Double(
        L"PeakHeightPercentage", [](const R& r) { return r.PeakHeightPercentage(); },
        ConstrainPeakOn),
    S::Double(
        L"TailingFactor", [](const R& r) { return r.TailingFactor(); }, ConstrainPeakOn),
    S::Int(L"LimitPeakEnabled", [](const R& r) { return r.LimitPeakEnabled(); }),
    S::Int(
        L"LimitPeakMethod", [](const R& r) { return r.LimitPeakMethod(); }, LimitPeakOn),
    S::Double(
        L"PeaksNumber", [](const R& r) { return r.PeaksNumber(); }, LimitPeakOn),
    S::Int(L"RelPeakEnabled", [](const R& r) { return r.RelPeakEnabled(); }),
    S::Double(
        L"PercentLargestPeak", [](const R& r) { return r.PercentLargestPeak(); }, RelPeakOn),
    S::Int(L"BaselineWindow", [](const R& r) { return r.BaselineWindow(); }),
    S::Int(L"PeakNoiseFactor", [](const R& r) { return r.PeakNoiseFactor(); }),
    S::Int(L"MultipletResolution", [](const R& r) { return r.MultipletResolution(); }),
    S::Int(L"KivaMinPeakWidth", [](const R& r) { return r.KivaMinPeakWidth(); }),
    S::Int(L"AreaScanWindow", [](const R& r) { return r.AreaScanWindow(); }),
    S::Int(L"AreaNoiseFactor", [](const R& r) { return r.AreaNoiseFactor(); }),
    S::Int(L"AreaTailExtension", [](const R& r) { return r.AreaTailExtension(); }),
    S::Int(L"KivaNoiseType", [](const R& r) { return r.KivaNoiseType(); }),
    S::Int(L"KivaRMS", [](const R& r) { return r.KivaRMS(); }),
    S::Int(L"KivaConstrainPeak", [](const R& r) { return r.KivaConstrainPeak(); }),
    S::Double(L"KivaPeakHeightPercentage", [](const R& r) { return r.KivaPeakHeightPercentage(); }),
    S::Double(L"KivaTailingFactor", [](const R& r) { return r.KivaTailingFactor(); }),
};

// Every read leaves the empty scan filter: the filter is what the parser makes of the
// empty text, whatever "Filter" holds.
void ResetFilter(R& r) {
  CVC_FilterStruct parser(9, 2, 2);
  r.Filter(parser.ParseFilterStructString(L"", -1) ? parser.ToCFilter() : CFilter());
}

const S::Read kIdentificationRead[] = {
    // The one place the algorithm is chosen: by the stored detector.
    S::ReadInt(L"DetectorType",
               [](R& r, int v) {
                 const auto detector = static_cast<VirtualDeviceType>(v);
                 r.DetectorType(detector);
                 r.Algorithm(GetArvenisDefaultPeakDetectionTypeForDevice(detector));
               }),
    S::ReadDouble(L"TraceDelay", [](R& r, double v) { r.TraceDelay(v); }),
    S::Do(ResetFilter),
    S::ReadInt(L"Trace1Type", [](R& r, int v) { r.Trace1Type(v); }),
    S::ReadInt(L"Trace2Type", [](R& r, int v) { r.Trace2Type(v); }),
    S::ReadInt(L"TraceOperator", [](R& r, int v) { r.TraceOperator(v); }),
    S::ReadInt(L"SmoothingPoints", [](R& r, int v) { r.SmoothingPoints(v); }),
    S::ReadDouble(L"BaseSNR", [](R& r, double v) { r.BaseSNR(v); }),
    S::ReadInt(L"ValleyDetection", [](R& r, int v) { r.ValleyDetection(v); }),
    S::ReadDouble(L"ExpectedPeakWidth", [](R& r, double v) { r.PeakWidth(v); }),
    S::ReadInt(L"ConstrainPeak", [](R& r, int v) { r.ConstrainPeak(v); }),
    S::ReadDouble(L"PeakHeightPercentage", [](R& r, double v) { r.PeakHeightPercentage(v); }),
    S::ReadDouble(L"TailingFactor", [](R& r, double v) { r.TailingFactor(v); }),
    S::ReadInt(L"LimitPeakEnabled", [](R& r, int v) { r.LimitPeakEnabled(v); }),
    S::ReadInt(L"LimitPeakMethod", [](R& r, int v) { r.LimitPeakMethod(v); }),
    S::ReadDouble(L"PeaksNumber", [](R& r, double v) { r.PeaksNumber(v); }),
    S::ReadInt(L"RelPeakEnabled", [](R& r, int v) { r.RelPeakEnabled(v); }),
    S::ReadDouble(L"PercentLargestPeak", [](R& r, double v) { r.PercentLargestPeak(v); }),
    S::ReadInt(L"BaselineWindow", [](R& r, int v) { r.BaselineWindow(v); }),
    S::ReadInt(L"PeakNoiseFactor", [](R& r, int v) { r.PeakNoiseFactor(v); }),
    S::ReadInt(L"MultipletResolution", [](R& r, int v) { r.MultipletResolution(v); }),
    S::ReadInt(L"KivaMinPeakWidth", [](R& r, int v) { r.KivaMinPeakWidth(v); }),
    S::ReadInt(L"AreaScanWindow", [](R& r, int v) { r.AreaScanWindow(v); }),
    S::ReadInt(L"AreaNoiseFactor", [](R& r, int v) { r.AreaNoiseFactor(v); }),
    S::ReadInt(L"AreaTailExtension", [](R& r, int v) { r.AreaTailExtension(v); }),
    S::ReadInt(L"KivaNoiseType", [](R& r, int v) { r.KivaNoiseType(v); }),
    S::ReadInt(L"KivaRMS", [](R& r, int v) { r.KivaRMS(v); }),
    S::ReadInt(L"KivaConstrainPeak", [](R& r, int v) { r.KivaConstrainPeak(v); }),
    S::ReadDouble(L"KivaPeakHeightPercentage",
                  [](R& r, double v) { r.KivaPeakHeightPercentage(v); }),
    S::ReadDouble(L"KivaTailingFactor", [](R& r, double v) { r.KivaTailingFactor(v); }),
};

const S::Write kAdvChromatogramWrite[] = {
    S::Double(L"PercentMassesFound", [](const R& r) { return r.PercentMassesFound(); }),
    S::Double(L"SNThreshold", [](const R& r) { return r.SNThreshold(); }),
    S::Double(L"PeakSNRCutoff", [](const R& r) { return r.PeakSNRCutoff(); }),
    S::Double(L"ValleyThreshold", [](const R& r) { return r.ValleyThreshold(); }),
    S::Double(L"ValleyDepth", [](const R& r) { return r.ValleyDepth(); }),
    S::Double(L"BkgUpdateRate", [](const R& r) { return r.BkgUpdateRate(); }),
    S::Int(L"BkgWidth", [](const R& r) { return r.BkgWidth(); }),
    S::Int(L"WindowSize", [](const R& r) { return r.WindowSize(); }),
    S::Int(L"FilterWidth", [](const R& r) { return r.FilterWidth(); }),
    S::Int(L"MassRequired", [](const R& r) { return r.MassRequired(); }),
};

const S::Read kAdvChromatogramRead[] = {
    S::ReadDouble(L"PercentMassesFound", [](R& r, double v) { r.PercentMassesFound(v); }),
    S::ReadDouble(L"SNThreshold", [](R& r, double v) { r.SNThreshold(v); }),
    S::ReadDouble(L"PeakSNRCutoff", [](R& r, double v) { r.PeakSNRCutoff(v); }),
    S::ReadDouble(L"ValleyThreshold", [](R& r, double v) { r.ValleyThreshold(v); }),
    S::ReadDouble(L"ValleyDepth", [](R& r, double v) { r.ValleyDepth(v); }),
    S::ReadDouble(L"BkgUpdateRate", [](R& r, double v) { r.BkgUpdateRate(v); }),
    S::ReadInt(L"BkgWidth", [](R& r, int v) { r.BkgWidth(v); }),
    S::ReadInt(L"WindowSize", [](R& r, int v) { r.WindowSize(v); }),
    S::ReadInt(L"FilterWidth", [](R& r, int v) { r.FilterWidth(v); }),
    S::ReadInt(L"MassRequired", [](R& r, int v) { r.MassRequired(v); }),
};

}  // namespace

void WritePeakDetectionInfo(CPeakDetection* detection) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!detection) return;
  WriteValues<R>(vglobal::kQualIdentificationKey, *detection, kIdentificationWrite);
}

void WriteAdvChromatogramOptionsInfo(CPeakDetection* detection) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!detection) return;
  WriteValues<R>(vglobal::kAdvChromatogramOptionsKey, *detection, kAdvChromatogramWrite);
}

int ReadPeakDetectionDefaultInfo(CPeakDetection* detection) {
  if (!detection) return 0;
  // Both keys are read whatever the first one gave.
  const int identification =
      ReadValues<R>(vglobal::kQualIdentificationKey, *detection, kIdentificationRead);
  const int advanced =
      ReadValues<R>(vglobal::kAdvChromatogramOptionsKey, *detection, kAdvChromatogramRead);
  return identification && advanced ? 1 : 0;
}
