// The advanced detection values of the Kiva integrator, a group of fields that a
// component (CComponentIO) and a chromatogram's peak detection (CPeakDetection) both
// carry under the same names and with the same starting values: moderate noise factors
// and windows, no peak-shape constraint, no RMS noise.
#pragma once

// FIELD(type, name, starting value), in record order (see vglobal/fileio/field.h).
#define VG_ADV_DETECTION_FIELDS(FIELD)          \
  FIELD(int, KivaNoiseType, 0)                  \
  FIELD(int, KivaMinPeakWidth, 3)               \
  FIELD(int, PeakNoiseFactor, 10)               \
  FIELD(int, BaselineWindow, 40)                \
  FIELD(int, MultipletResolution, 10)           \
  FIELD(int, AreaTailExtension, 5)              \
  FIELD(int, AreaNoiseFactor, 5)                \
  FIELD(int, AreaScanWindow, 0)                 \
  FIELD(int, KivaConstrainPeak, 0) /* switch */ \
  FIELD(double, KivaPeakHeightPercentage, 5.0)  \
  FIELD(double, KivaTailingFactor, 1.0)         \
  FIELD(int, KivaRMS, 0) /* switch */
