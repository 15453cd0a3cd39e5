// The peak-detection record of a processing method and of a chromatogram view
// (CPeakDetection): which trace the chromatogram is (detector, scan filter, traces and
// their delay), which algorithm finds its peaks, and that algorithm's parameters.
// Starting values come from record_defaults.h ("Peak detection and method-wide
// options"), except the algorithm, which follows the default detector as the suite is
// configured (GetArvenisDefaultPeakDetectionTypeForDevice). Copy and assignment copy
// every field, the scan filter included.
#pragma once

#include <iterator>

#include "vglobal/export.h"
#include "vglobal/fileio/device_types.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/filter.h"
#include "vglobal/fileio/record_defaults.h"
#include "vglobal/settings.h"

class VGLOBAL_EXPORT CPeakDetection {
  // ---- spectral criteria of a peak ----
  VG_FIELD(int, MassRequired, vglobal::record_defaults::kPdMassRequired)
  VG_FIELD(double, PercentMassesFound, vglobal::record_defaults::kPdPercentMassesFound)
  VG_FIELD(double, MinPeakSeparation, vglobal::record_defaults::kPdMinPeakSeparation)
  VG_FIELD(double, PercentLargestPeak, vglobal::record_defaults::kPdPercentLargestPeak)

  // ---- smoothing, background and the first algorithm's thresholds ----
  VG_FIELD(int, SmoothingPoints, vglobal::record_defaults::kPdSmoothingPoints)
  VG_FIELD(int, ValleyDetection, vglobal::record_defaults::kPdValleyDetection)  // switch
  VG_FIELD(double, BkgUpdateRate, vglobal::record_defaults::kPdBkgUpdateRate)
  VG_FIELD(int, BkgWidth, vglobal::record_defaults::kPdBkgWidth)
  VG_FIELD(int, WindowSize, vglobal::record_defaults::kPdWindowSize)
  VG_FIELD(int, FilterWidth, vglobal::record_defaults::kPdFilterWidth)
  VG_FIELD(double, SNThreshold, vglobal::record_defaults::kPdSNThreshold)
  VG_FIELD(int, ConstrainPeak, vglobal::record_defaults::kPdConstrainPeak)  // switch
  VG_FIELD(double, PeakHeightPercentage, vglobal::record_defaults::kPdPeakHeightPercentage)
  VG_FIELD(double, TailingFactor, vglobal::record_defaults::kPdTailingFactor)
  VG_FIELD(double, ValleyThreshold, vglobal::record_defaults::kPdValleyThreshold)
  VG_FIELD(double, ValleyDepth, vglobal::record_defaults::kPdValleyDepth)
  VG_FIELD(double, PeakSNRCutoff, vglobal::record_defaults::kPdPeakSNRCutoff)
  // Stored as "PeakWidth" for interactive detection, "ExpectedPeakWidth" in a method.
  VG_FIELD(double, PeakWidth, vglobal::record_defaults::kPdPeakWidth)
  VG_FIELD(double, DisplayWindowWidth, vglobal::record_defaults::kPdDisplayWindowWidth)
  VG_FIELD(double, BaseSNR, vglobal::record_defaults::kPdBaseSNR)

  // ---- the trace ----
  // Shift of a detector other than the mass spectrometer.
  VG_FIELD(double, TraceDelay, vglobal::record_defaults::kPdTraceDelay)
  // Trace-type codes of the first and second trace and the operator combining them.
  VG_FIELD(int, Trace1Type, vglobal::record_defaults::kPdTrace1Type)
  VG_FIELD(int, Trace2Type, vglobal::record_defaults::kPdTrace2Type)
  VG_FIELD(int, TraceOperator, vglobal::record_defaults::kPdTraceOperator)
  // A VirtualDeviceType code, kept as the int it is stored as: 0 is the mass
  // spectrometer, whose chromatograms are chosen by the scan filter.
  VG_FIELD(int, DetectorType, vglobal::record_defaults::kPdDetectorType)

 public:
  void DetectorType(VirtualDeviceType value) { m_DetectorType = static_cast<int>(value); }

  // ---- limits on the peaks reported ----
  VG_FIELD(int, LimitPeakEnabled, vglobal::record_defaults::kPdLimitPeakEnabled)  // switch
  VG_FIELD(int, LimitPeakMethod, vglobal::record_defaults::kPdLimitPeakMethod)
  VG_FIELD(double, PeaksNumber, vglobal::record_defaults::kPdPeaksNumber)
  VG_FIELD(int, RelPeakEnabled, vglobal::record_defaults::kPdRelPeakEnabled)  // switch

  // ---- the algorithm ----
  // Never stored: chosen by the detector when the method's defaults are read.
  VG_FIELD(ePeakDetectionAlgorithm, Algorithm,
           GetArvenisDefaultPeakDetectionTypeForDevice(vglobal::record_defaults::kPdDetectorType))

  // ---- the Kiva integrator ----
  VG_FIELD(int, KivaNoiseType, vglobal::record_defaults::kPdKivaNoiseType)
  VG_FIELD(int, KivaMinPeakWidth, vglobal::record_defaults::kPdKivaMinPeakWidth)
  VG_FIELD(int, PeakNoiseFactor, vglobal::record_defaults::kPdPeakNoiseFactor)
  VG_FIELD(int, BaselineWindow, vglobal::record_defaults::kPdBaselineWindow)
  VG_FIELD(int, MultipletResolution, vglobal::record_defaults::kPdMultipletResolution)
  VG_FIELD(int, AreaTailExtension, vglobal::record_defaults::kPdAreaTailExtension)
  VG_FIELD(int, AreaNoiseFactor, vglobal::record_defaults::kPdAreaNoiseFactor)
  VG_FIELD(int, AreaScanWindow, vglobal::record_defaults::kPdAreaScanWindow)
  VG_FIELD(int, KivaConstrainPeak, vglobal::record_defaults::kPdKivaConstrainPeak)  // switch
  VG_FIELD(double, KivaPeakHeightPercentage, vglobal::record_defaults::kPdKivaPeakHeightPercentage)
  VG_FIELD(double, KivaTailingFactor, vglobal::record_defaults::kPdKivaTailingFactor)
  VG_FIELD(int, KivaRMS, vglobal::record_defaults::kPdKivaRMS)  // switch

 public:
  // The scan filter of a mass-spectrometer chromatogram; the empty filter at first.
  const CFilter& Filter() const { return m_Filter; }
  void Filter(const CFilter& value) { m_Filter = value; }

 private:
  CFilter m_Filter;
};

namespace vglobal {

// Display names of the peak-detection algorithms, indexed by ePeakDetectionAlgorithm.
inline constexpr const wchar_t* kPeakDetectionAlgorithmNames[] = {L"Solenta", L"Kiva", L"Tamsin",
                                                                  L"Selfset"};
inline constexpr int kNumPeakDetectionAlgorithms =
    static_cast<int>(std::size(kPeakDetectionAlgorithmNames));

// The display name of an algorithm; the empty text for a value outside the table, as a
// stored or hand-edited value may be.
constexpr const wchar_t* PeakDetectionAlgorithmName(int algorithm) {
  return algorithm >= 0 && algorithm < kNumPeakDetectionAlgorithms
             ? kPeakDetectionAlgorithmNames[algorithm]
             : L"";
}

}  // namespace vglobal
