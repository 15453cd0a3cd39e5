// The peak detection of the default processing method: the Qual Identification key
// (the trace and the integrators' parameters) and the Qual Advanced Chromatogram
// Options key, read together as one section.
//
// Writing stores several groups only while their switch is on; reading takes every
// value unconditionally, so a value of a switched-off group is whatever an earlier
// write left there. The algorithm is never stored: it follows the detector. The scan
// filter is stored for the mass spectrometer but deliberately not read back.
#include "vglobal/methoddefaults/peak_detection.h"

#include <array>

#include "methoddefaults/kiva_entries.h"
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

// Every read leaves the empty scan filter: the filter is what the parser makes of the
// empty text, whatever "Filter" holds.
void ResetFilter(R& r) {
  CVC_FilterStruct parser(9, 2, 2);
  r.Filter(parser.ParseFilterStructString(L"", -1) ? parser.ToCFilter() : CFilter());
}

using F = CPeakDetection::Fields;

constexpr auto kIdentification = vglobal::methoddefaults::Join(
    std::to_array<S::Entry>({
        // Written as held; reading it is the one place the algorithm is chosen: by the
        // stored detector.
        S::Int(L"DetectorType", [](const R& r) { return r.DetectorType(); }),
        S::ReadInt(L"DetectorType",
                   [](R& r, int v) {
                     const auto detector = static_cast<VirtualDeviceType>(v);
                     r.DetectorType(detector);
                     r.Algorithm(GetArvenisDefaultPeakDetectionTypeForDevice(detector));
                   }),
        S::Value<&F::TraceDelay>(HasTraceDelay),
        // Written for the mass spectrometer, reset rather than read.
        S::String(
            L"Filter", [](const R& r) { return r.Filter().GetFilterString(-1, -1, 2); },
            IsMassSpectrometer),
        S::Do(ResetFilter),
        // Written from the detector, read as stored.
        S::Int(L"Trace1Type", [](const R& r) { return Trace1TypeForDetector(r.DetectorType()); }),
        S::ReadInt(L"Trace1Type", [](R& r, int v) { r.Trace1Type(v); }),
        // A method's chromatogram is a single trace: no operator, no second trace
        // written; both read as stored.
        S::Int(L"TraceOperator", [](const R&) { return 0; }),
        S::Int(L"Trace2Type", [](const R&) { return 0; }),
        S::ReadInt(L"Trace2Type", [](R& r, int v) { r.Trace2Type(v); }),
        S::ReadInt(L"TraceOperator", [](R& r, int v) { r.TraceOperator(v); }),
        S::Value<&F::SmoothingPoints>(),
        S::Value<&F::BaseSNR>(),
        S::Value<&F::ValleyDetection>(),
        S::Value<&F::PeakWidth>(L"ExpectedPeakWidth", ValleyDetectionOn),
        S::Value<&F::ConstrainPeak>(),
        S::Value<&F::PeakHeightPercentage>(ConstrainPeakOn),
        S::Value<&F::TailingFactor>(ConstrainPeakOn),
        S::Value<&F::LimitPeakEnabled>(),
        S::Value<&F::LimitPeakMethod>(LimitPeakOn),
        S::Value<&F::PeaksNumber>(LimitPeakOn),
        S::Value<&F::RelPeakEnabled>(),
        S::Value<&F::PercentLargestPeak>(RelPeakOn),
    }),
    vglobal::methoddefaults::KivaEntries<R, F>());

constexpr auto kAdvChromatogram = std::to_array<S::Entry>({
    S::Value<&F::PercentMassesFound>(),
    S::Value<&F::SNThreshold>(),
    S::Value<&F::PeakSNRCutoff>(),
    S::Value<&F::ValleyThreshold>(),
    S::Value<&F::ValleyDepth>(),
    S::Value<&F::BkgUpdateRate>(),
    S::Value<&F::BkgWidth>(),
    S::Value<&F::WindowSize>(),
    S::Value<&F::FilterWidth>(),
    S::Value<&F::MassRequired>(),
});

}  // namespace

void WritePeakDetectionInfo(CPeakDetection* detection) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!detection) return;
  WriteValues<R>(vglobal::kQualIdentificationKey, *detection, kIdentification);
}

void WriteAdvChromatogramOptionsInfo(CPeakDetection* detection) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!detection) return;
  WriteValues<R>(vglobal::kAdvChromatogramOptionsKey, *detection, kAdvChromatogram);
}

int ReadPeakDetectionDefaultInfo(CPeakDetection* detection) {
  if (!detection) return 0;
  // Both keys are read whatever the first one gave.
  const int identification =
      ReadValues<R>(vglobal::kQualIdentificationKey, *detection, kIdentification);
  const int advanced =
      ReadValues<R>(vglobal::kAdvChromatogramOptionsKey, *detection, kAdvChromatogram);
  return identification && advanced ? 1 : 0;
}
