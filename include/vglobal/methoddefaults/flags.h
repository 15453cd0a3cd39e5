// The acceptance-limit pages of the user's default quantitation component, kept in the
// current user's settings store:
//   "Processing Setup\Defaults\Quan\Detection Flags"     when a peak's area or height is flagged
//   "Processing Setup\Defaults\Quan\Calibration Flags"   when a calibration is flagged
//   "Processing Setup\Defaults\Quan\System Suitability"  resolution, symmetry and peak checks
//
// Contract: writers open their key creating it and ignore write results; readers open
// without creating, apply every value they find, never write, and return 1 only when
// every value they looked for was present. The caller owns the record; it may not be
// null.
//
// System suitability stores several of the record's doubles as integers, truncated
// toward zero (2.9 is stored as 2, -2.9 as -2; a value beyond the int range as the
// nearest int, NaN as 0); the fractions are lost by design of the stored layout.
// A check group that is switched off leaves its values out of the store, so reading it
// back keeps the record's values for them (and whatever an earlier write left behind).
#pragma once

#include "vglobal/export.h"

class CComponentIO;

VGLOBAL_EXPORT void WriteDataFlagsInfo(CComponentIO* component);
VGLOBAL_EXPORT int ReadDataFlagsInfo(CComponentIO* component);

VGLOBAL_EXPORT void WriteCalibrationFlagInfo(CComponentIO* component);
VGLOBAL_EXPORT int ReadCalibrationFlagInfo(CComponentIO* component);

VGLOBAL_EXPORT void WriteSystemSuitabilityInfo(CComponentIO* component);
VGLOBAL_EXPORT int ReadSystemSuitabilityInfo(CComponentIO* component);
