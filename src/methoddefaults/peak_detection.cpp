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
#include "methoddefaults/trace_entries.h"

namespace {

using R = CPeakDetection;
using S = vglobal::methoddefaults::Section<CPeakDetection>;
using vglobal::methoddefaults::Join;
using vglobal::methoddefaults::KivaEntries;
using vglobal::methoddefaults::OnMassSpectrometer;
using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::TraceEntries;
using vglobal::methoddefaults::WriteValues;

bool HasTraceDelay(const R& r) {
  return !OnMassSpectrometer(r);
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

using F = CPeakDetection::Fields;

constexpr auto kDetector = std::to_array<S::Entry>({
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
});

// After the traces: the peak's shape, the limits on the peaks reported, then the Kiva
// values.
constexpr auto kPeaks = std::to_array<S::Entry>({
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
});

constexpr auto kIdentification = Join(kDetector, TraceEntries<R>(), kPeaks, KivaEntries<R, F>());

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
