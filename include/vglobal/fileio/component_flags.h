// The acceptance limits of a quantitation component (CComponentIO): when a peak's area
// or height is flagged, when its calibration is flagged, and the system-suitability
// checks with their limits. Starting values come from record_defaults.h ("Component:
// flags and system suitability").
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/record_defaults.h"

namespace vglobal {

class VGLOBAL_EXPORT ComponentFlags {
  // ---- detection flags ----
  VG_FIELD(double, AreaFlagThreshold, record_defaults::kAreaFlagThreshold)
  VG_FIELD(double, HeightFlagThreshold, record_defaults::kHeightFlagThreshold)
  VG_FIELD(double, AreaFlagPercentThreshold, record_defaults::kAreaFlagPercentThreshold)
  VG_FIELD(double, HeightFlagPercentThreshold, record_defaults::kHeightFlagPercentThreshold)

  // ---- calibration flags ----
  VG_FIELD(double, R_Squared, record_defaults::kR_Squared)
  VG_FIELD(double, LimitDetection, record_defaults::kLimitDetection)
  VG_FIELD(double, LimitQuantitation, record_defaults::kLimitQuantitation)
  VG_FIELD(double, LinearityLimit, record_defaults::kLinearityLimit)
  VG_FIELD(double, CarryOverLimit, record_defaults::kCarryOverLimit)

  // ---- system suitability: which check groups run (0/1) ----
  VG_FIELD(int, ResolutionChecksEnabled, record_defaults::kResolutionChecksEnabled)
  VG_FIELD(int, SymmetryChecksEnabled, record_defaults::kSymmetryChecksEnabled)
  VG_FIELD(int, PeakClassificationChecksEnabled, record_defaults::kPeakClassificationChecksEnabled)

  // ---- system suitability: limits ----
  // ResThreshold, SymmetryTake, SymmetryThreshold, DetectWidth, TailingMeasured,
  // ColumnMeasure and DetectSignalToNoise are kept as whole numbers in the settings
  // store; their fractions do not survive a save as default.
  VG_FIELD(double, ResThreshold, record_defaults::kResThreshold)
  VG_FIELD(double, SymmetryTake, record_defaults::kSymmetryTake)
  VG_FIELD(double, SymmetryThreshold, record_defaults::kSymmetryThreshold)
  VG_FIELD(double, MinPeakWidth, record_defaults::kMinPeakWidth)
  VG_FIELD(double, MaxPeakWidth, record_defaults::kMaxPeakWidth)
  VG_FIELD(double, DetectWidth, record_defaults::kDetectWidth)
  VG_FIELD(double, TailingMeasured, record_defaults::kTailingMeasured)
  VG_FIELD(double, TailingFailureThreshold, record_defaults::kTailingFailureThreshold)
  VG_FIELD(double, ColumnMeasure, record_defaults::kColumnMeasure)
  VG_FIELD(double, ColumnFailureThreshold, record_defaults::kColumnFailureThreshold)
  VG_FIELD(double, BaselineClipping, record_defaults::kBaselineClipping)
  VG_FIELD(double, DetectSignalToNoise, record_defaults::kDetectSignalToNoise)
};

}  // namespace vglobal
