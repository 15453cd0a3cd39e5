// The identification, detection and advanced detection fields of a quantitation
// component (CComponentIO): what the component is measured on (detector, scan filter,
// traces), where it is looked for (retention-time window, reference), how its peak is
// found (smoothing, valley detection, peak-width constraint, the Kiva integrator's
// parameters) and how its identity is confirmed (spectral thresholds, qualifier-ion
// ratios). Starting values come from record_defaults.h ("Component: identification
// and detection").
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/device_types.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/filter.h"
#include "vglobal/fileio/record_defaults.h"

namespace vglobal {

class VGLOBAL_EXPORT ComponentIdentification {
  // ---- identification ----
  VG_STRING_FIELD(ComponentName, record_defaults::kComponentName)
  // 0 (VIRTUAL_DEVICE_MS) is the mass spectrometer; 1 to 4 are the other detectors.
  VG_FIELD(VirtualDeviceType, DetectorType, record_defaults::kDetectorType)
  // Delay of a detector other than the mass spectrometer.
  VG_FIELD(double, DetectorDelay, record_defaults::kDetectorDelay)

 public:
  // The scan filter of the mass-spectrometer trace.
  const CFilter& Filter() const { return m_Filter; }
  void Filter(const CFilter& value) { m_Filter = value; }

 private:
  CFilter m_Filter;

 public:
  // Trace-type codes of the first and second chromatogram trace, and the operator
  // combining them (0 = none).
  VG_FIELD(int, Trace1Type, record_defaults::kTrace1Type)
  VG_FIELD(int, Trace2Type, record_defaults::kTrace2Type)
  VG_FIELD(int, TraceOperator, record_defaults::kTraceOperator)
  VG_STRING_FIELD(Keys, record_defaults::kKeys)
  VG_FIELD(double, RTSearchWindow, record_defaults::kRTSearchWindow)
  VG_FIELD(double, DisplayWindowWidth, record_defaults::kDisplayWindowWidth)
  VG_FIELD(int, AdjustExpectedRT, record_defaults::kAdjustExpectedRT)
  VG_FIELD(int, UseAsRTReference, record_defaults::kUseAsRTReference)
  VG_STRING_FIELD(RTReference, record_defaults::kRTReference)

  // ---- detection ----
  VG_FIELD(double, SNThreshold, record_defaults::kSNThreshold)
  // Peak-detection algorithm index: 0, 1 or 2.
  VG_FIELD(int, PeakDetectionIndex, record_defaults::kPeakDetectionIndex)
  VG_FIELD(int, SmoothingPoints, record_defaults::kSmoothingPoints)
  VG_FIELD(int, ValleyDetection, record_defaults::kValleyDetection)
  VG_FIELD(double, ExpectedPeakWidth, record_defaults::kExpectedPeakWidth)
  VG_FIELD(int, ConstrainPeak, record_defaults::kConstrainPeak)
  VG_FIELD(double, PeakHeightPercentage, record_defaults::kPeakHeightPercentage)
  VG_FIELD(double, TailingFactor, record_defaults::kTailingFactor)

  // ---- advanced detection options ----
  VG_FIELD(double, ValleyThreshold, record_defaults::kValleyThreshold)
  VG_FIELD(double, ValleyDepth, record_defaults::kValleyDepth)
  VG_FIELD(double, PeakSNRCutoff, record_defaults::kPeakSNRCutoff)
  VG_FIELD(double, BaseSNR, record_defaults::kBaseSNR)

  // ---- the Kiva integrator ----
  VG_FIELD(int, KivaNoiseType, record_defaults::kKivaNoiseType)
  VG_FIELD(int, KivaMinPeakWidth, record_defaults::kKivaMinPeakWidth)
  VG_FIELD(int, PeakNoiseFactor, record_defaults::kPeakNoiseFactor)
  VG_FIELD(int, BaselineWindow, record_defaults::kBaselineWindow)
  VG_FIELD(int, MultipletResolution, record_defaults::kMultipletResolution)
  VG_FIELD(int, AreaTailExtension, record_defaults::kAreaTailExtension)
  VG_FIELD(int, AreaNoiseFactor, record_defaults::kAreaNoiseFactor)
  VG_FIELD(int, AreaScanWindow, record_defaults::kAreaScanWindow)
  VG_FIELD(int, KivaConstrainPeak, record_defaults::kKivaConstrainPeak)
  VG_FIELD(double, KivaPeakHeightPercentage, record_defaults::kKivaPeakHeightPercentage)
  VG_FIELD(double, KivaTailingFactor, record_defaults::kKivaTailingFactor)
  VG_FIELD(int, KivaRMS, record_defaults::kKivaRMS)

  // ---- spectral thresholds and qualifier-ion confirmation ----
  VG_FIELD(int, ForwardThreshold, record_defaults::kForwardThreshold)
  VG_FIELD(int, ReverseThreshold, record_defaults::kReverseThreshold)
  VG_FIELD(int, MatchThreshold, record_defaults::kMatchThreshold)
  VG_FIELD(int, IonRatioConfirmation, record_defaults::kIonRatioConfirmation)
  VG_FIELD(int, Standard, record_defaults::kStandard)
  VG_FIELD(int, IonRatioMethod, record_defaults::kIonRatioMethod)
  VG_FIELD(int, IonRatioWndType, record_defaults::kIonRatioWndType)
  VG_FIELD(double, QualifierIonCoelution, record_defaults::kQualifierIonCoelution)
};

}  // namespace vglobal
