// The acceptance limits of a quantitation component (CComponentIO): when a peak's area
// or height is flagged, when its calibration is flagged, and the system-suitability
// checks with their limits. Starting values are the third column of the field list. Area
// and height flags are off (threshold 0); a calibration is flagged below an r squared of
// 0.99 or beyond 20 percent non-linearity; detection, quantitation and carry-over limits
// are left to the lab (0). The system-suitability checks are off; their limits follow
// common chromatographic practice: resolution 2, symmetry and widths measured at half
// height, tailing at 10 percent height failing above 2, at least 2000 theoretical
// plates, signal-to-noise 10. The values that are stored as integers are whole numbers,
// so that they keep their value through the store.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

namespace vglobal {

// The fields of ComponentFlags, in record order: FIELD(type, name, starting value).
#define VG_COMPONENT_FLAGS_FIELDS(FIELD)                                                           \
  /* ---- detection flags ---- */                                                                  \
  FIELD(double, AreaFlagThreshold, 0.0)                                                            \
  FIELD(double, HeightFlagThreshold, 0.0)                                                          \
  FIELD(double, AreaFlagPercentThreshold, 0.0)                                                     \
  FIELD(double, HeightFlagPercentThreshold, 0.0)                                                   \
  /* ---- calibration flags ---- */                                                                \
  FIELD(double, R_Squared, 0.99)                                                                   \
  FIELD(double, LimitDetection, 0.0)                                                               \
  FIELD(double, LimitQuantitation, 0.0)                                                            \
  /* percent */                                                                                    \
  FIELD(double, LinearityLimit, 20.0)                                                              \
  FIELD(double, CarryOverLimit, 0.0)                                                               \
  /* ---- system suitability: which check groups run (0/1) ---- */                                 \
  FIELD(int, ResolutionChecksEnabled, 0)                                                           \
  FIELD(int, SymmetryChecksEnabled, 0)                                                             \
  FIELD(int, PeakClassificationChecksEnabled, 0)                                                   \
  /* ---- system suitability: limits ---- ResThreshold, SymmetryTake, SymmetryThreshold,           \
   * DetectWidth, TailingMeasured, ColumnMeasure and DetectSignalToNoise are kept as whole numbers \
   * in the settings store; their fractions do not survive a save as default. */                   \
  FIELD(double, ResThreshold, 2.0)                                                                 \
  /* percent of the peak height */                                                                 \
  FIELD(double, SymmetryTake, 50.0)                                                                \
  /* percent */                                                                                    \
  FIELD(double, SymmetryThreshold, 80.0)                                                           \
  FIELD(double, MinPeakWidth, 0.0)                                                                 \
  FIELD(double, MaxPeakWidth, 1.0)                                                                 \
  /* percent of the peak height */                                                                 \
  FIELD(double, DetectWidth, 50.0)                                                                 \
  /* percent of the peak height */                                                                 \
  FIELD(double, TailingMeasured, 10.0)                                                             \
  FIELD(double, TailingFailureThreshold, 2.0)                                                      \
  /* percent of the peak height */                                                                 \
  FIELD(double, ColumnMeasure, 50.0)                                                               \
  /* theoretical plates */                                                                         \
  FIELD(double, ColumnFailureThreshold, 2000.0)                                                    \
  /* percent */                                                                                    \
  FIELD(double, BaselineClipping, 10.0)                                                            \
  FIELD(double, DetectSignalToNoise, 10.0)

class VGLOBAL_EXPORT ComponentFlags {
  VG_RECORD_FIELDS(ComponentFlags, VG_COMPONENT_FLAGS_FIELDS)
};

}  // namespace vglobal
