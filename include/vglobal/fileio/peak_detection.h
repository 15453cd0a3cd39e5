// The peak-detection record of a processing method and of a chromatogram view
// (CPeakDetection): which trace the chromatogram is (detector, scan filter, traces and
// their delay), which algorithm finds its peaks, and that algorithm's parameters.
// Starting values are the third column of the field list: a new chromatogram is taken
// from the mass spectrometer and its peaks are found as a new component's are (the Kiva
// group is the component's own); the algorithm follows the default detector as the
// suite is configured (GetArvenisDefaultPeakDetectionTypeForDevice). Copy and
// assignment copy every field, the scan filter included.
#pragma once

#include <iterator>

#include "vglobal/export.h"
#include "vglobal/fileio/adv_detection_fields.h"
#include "vglobal/fileio/device_types.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/filter.h"
#include "vglobal/settings.h"

// The fields of CPeakDetection, in record order: FIELD(type, name, starting value).
#define VG_PEAK_DETECTION_FIELDS(FIELD)                                                           \
  /* ---- spectral criteria of a peak: the fewest masses that make a peak, the percent of         \
     those masses present, how far apart peaks must be (0: they may touch) ---- */                \
  FIELD(int, MassRequired, 2)                                                                     \
  FIELD(double, PercentMassesFound, 50.0)                                                         \
  FIELD(double, MinPeakSeparation, 0.0)                                                           \
  /* used only while RelPeakEnabled */                                                            \
  FIELD(double, PercentLargestPeak, 10.0)                                                         \
  /* ---- smoothing (a moving average over a few points), background and the first                \
     algorithm's thresholds ---- */                                                               \
  FIELD(int, SmoothingPoints, 5)                                                                  \
  /* switch */                                                                                    \
  FIELD(int, ValleyDetection, 0)                                                                  \
  FIELD(double, BkgUpdateRate, 5.0)                                                               \
  FIELD(int, BkgWidth, 5)                                                                         \
  /* always odd */                                                                                \
  FIELD(int, WindowSize, 3)                                                                       \
  /* at most WindowSize - 2 */                                                                    \
  FIELD(int, FilterWidth, 1)                                                                      \
  FIELD(double, SNThreshold, 3.0)                                                                 \
  /* switch */                                                                                    \
  FIELD(int, ConstrainPeak, 0)                                                                    \
  FIELD(double, PeakHeightPercentage, 5.0)                                                        \
  FIELD(double, TailingFactor, 1.0)                                                               \
  /* shown as 10 (percent rise) */                                                                \
  FIELD(double, ValleyThreshold, 1.1)                                                             \
  FIELD(double, ValleyDepth, 2.0)                                                                 \
  /* Kept as the reciprocal of the signal-to-noise cut-off the dialogs show (200). */             \
  FIELD(double, PeakSNRCutoff, 0.005)                                                             \
  /* Stored as "PeakWidth" for interactive detection, "ExpectedPeakWidth" in a method. */         \
  FIELD(double, PeakWidth, 0.0)                                                                   \
  FIELD(double, DisplayWindowWidth, 1.0)                                                          \
  FIELD(double, BaseSNR, 2.0)                                                                     \
  /* ---- the trace ---- TraceDelay: shift of a detector other than the mass spectrometer. */     \
  FIELD(double, TraceDelay, 0.0)                                                                  \
  /* Trace-type codes of the first and second trace and the operator combining them (0 =          \
     none); trace 1 is the mass-spectrometer trace at first. */                                   \
  FIELD(int, Trace1Type, 1)                                                                       \
  FIELD(int, Trace2Type, 0)                                                                       \
  FIELD(int, TraceOperator, 0)                                                                    \
  /* A VirtualDeviceType code, kept as the int it is stored as: 0 is the mass spectrometer, whose \
   * chromatograms are chosen by the scan filter. */                                              \
  FIELD(int, DetectorType, VIRTUAL_DEVICE_MS)                                                     \
  /* ---- limits on the peaks reported (the two switches) ---- */                                 \
  FIELD(int, LimitPeakEnabled, 0)                                                                 \
  FIELD(int, LimitPeakMethod, 0)                                                                  \
  /* used only while LimitPeakEnabled */                                                          \
  FIELD(double, PeaksNumber, 10.0)                                                                \
  /* switch */                                                                                    \
  FIELD(int, RelPeakEnabled, 0)                                                                   \
  /* ---- the algorithm: never stored, chosen by the detector when the method's defaults          \
     are read ---- */                                                                             \
  FIELD(ePeakDetectionAlgorithm, Algorithm,                                                       \
        GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_MS))                           \
  /* ---- the Kiva integrator ---- */                                                             \
  VG_ADV_DETECTION_FIELDS(FIELD)

class VGLOBAL_EXPORT CPeakDetection {
  VG_RECORD_FIELDS(CPeakDetection, VG_PEAK_DETECTION_FIELDS)

 public:
  void DetectorType(VirtualDeviceType value) { m_DetectorType = static_cast<int>(value); }

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
