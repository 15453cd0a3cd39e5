// The identification, detection and advanced detection fields of a quantitation
// component (CComponentIO): what the component is measured on (detector, scan filter,
// traces), where it is looked for (retention-time window, reference), how its peak is
// found (smoothing, valley detection, peak-width constraint, the Kiva integrator's
// parameters) and how its identity is confirmed (spectral thresholds, qualifier-ion
// ratios). Starting values are the third column of the field list. A new component is
// measured on the mass spectrometer with the empty scan filter, looked for in a
// 30-second window shown 1 minute wide, found by the first algorithm without smoothing,
// valley detection or width constraint; the Kiva integrator starts from moderate noise
// factors and windows; the ion-ratio confirmation is off.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/adv_detection_fields.h"
#include "vglobal/fileio/device_types.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/filter.h"

namespace vglobal {

// The fields of ComponentIdentification, in record order: FIELD(type, name, starting value).
#define VG_COMPONENT_IDENTIFICATION_FIELDS(FIELD)                                                 \
  /* ---- identification ---- */                                                                  \
  FIELD(CString, ComponentName, L"")                                                              \
  /* 0 (VIRTUAL_DEVICE_MS) is the mass spectrometer; 1 to 4 are the other detectors. */           \
  FIELD(VirtualDeviceType, DetectorType, VIRTUAL_DEVICE_MS)                                       \
  /* Delay of a detector other than the mass spectrometer. */                                     \
  FIELD(double, DetectorDelay, 0.0)                                                               \
  /* Trace-type codes of the first and second chromatogram trace, and the operator combining them \
   * (0 = none); trace 1 is the mass-spectrometer trace at first. */                              \
  FIELD(int, Trace1Type, 1)                                                                       \
  FIELD(int, Trace2Type, 0)                                                                       \
  FIELD(int, TraceOperator, 0)                                                                    \
  FIELD(CString, Keys, L"")                                                                       \
  FIELD(double, RTSearchWindow, 30.0)                                                             \
  FIELD(double, DisplayWindowWidth, 1.0)                                                          \
  FIELD(int, AdjustExpectedRT, 0)                                                                 \
  FIELD(int, UseAsRTReference, 0)                                                                 \
  FIELD(CString, RTReference, L"")                                                                \
  /* ---- detection ---- */                                                                       \
  FIELD(double, SNThreshold, 3.0)                                                                 \
  /* Peak-detection algorithm index: 0, 1 or 2. */                                                \
  FIELD(int, PeakDetectionIndex, 0)                                                               \
  /* a moving average over a few points */                                                        \
  FIELD(int, SmoothingPoints, 5)                                                                  \
  FIELD(int, ValleyDetection, 0)                                                                  \
  FIELD(double, ExpectedPeakWidth, 0.0)                                                           \
  FIELD(int, ConstrainPeak, 0)                                                                    \
  FIELD(double, PeakHeightPercentage, 5.0)                                                        \
  FIELD(double, TailingFactor, 1.0)                                                               \
  /* ---- advanced detection options ---- */                                                      \
  FIELD(double, ValleyThreshold, 1.1)                                                             \
  FIELD(double, ValleyDepth, 2.0)                                                                 \
  /* Kept as the reciprocal of the signal-to-noise cut-off the dialogs show (200). */             \
  FIELD(double, PeakSNRCutoff, 0.005)                                                             \
  FIELD(double, BaseSNR, 2.0)                                                                     \
  VG_ADV_DETECTION_FIELDS(FIELD)                                                                  \
  /* ---- spectral thresholds and qualifier-ion confirmation ---- */                              \
  FIELD(int, ForwardThreshold, 0)                                                                 \
  FIELD(int, ReverseThreshold, 0)                                                                 \
  FIELD(int, MatchThreshold, 0)                                                                   \
  FIELD(int, IonRatioConfirmation, 0)                                                             \
  FIELD(int, Standard, 0)                                                                         \
  FIELD(int, IonRatioMethod, 0)                                                                   \
  FIELD(int, IonRatioWndType, 0)                                                                  \
  FIELD(double, QualifierIonCoelution, 0.025)

class VGLOBAL_EXPORT ComponentIdentification {
  VG_RECORD_FIELDS(ComponentIdentification, VG_COMPONENT_IDENTIFICATION_FIELDS)

 public:
  // The scan filter of the mass-spectrometer trace.
  const CFilter& Filter() const { return m_Filter; }
  void Filter(const CFilter& value) { m_Filter = value; }

 private:
  CFilter m_Filter;
};

}  // namespace vglobal
