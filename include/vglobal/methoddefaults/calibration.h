// The calibration and levels pages of the user's default quantitation component, kept
// in the current user's settings store:
//   "Processing Setup\Defaults\Quan\Calibration"  curve, units, internal standard
//   "Processing Setup\Defaults\Quan\Levels"       calibration, QC and surrogate levels
//
// What is stored depends on the component's Type: a target compound (0) keeps its
// curve settings, calibration levels and QC levels; an internal standard (1) keeps only
// its own amount and units; a surrogate (4) keeps its surrogate levels and spike
// recovery limits. Readers read every value whatever the type, so a read after a write
// reports the section incomplete although every stored value was applied.
//
// Contract: writers open their key creating it and ignore write results; readers open
// without creating, apply every value they find, never write, and return 1 only when
// every value they looked for was present (0 is a completeness mark, not an error).
// The caller owns every record passed in; none may be null.
#pragma once

#include "vglobal/export.h"

class CComponentIO;
class CLevel;
class CVRegKey;

// The Calibration key: "TypeIndex", then for an internal standard its amount and units
// only, for any other type the curve settings and cross-contributions only.
VGLOBAL_EXPORT void WriteCalibrationInfo(CComponentIO* component);
// Reads every calibration value of either group; 1 if all were present, which a key
// written by WriteCalibrationInfo never is.
VGLOBAL_EXPORT int ReadCalibrationInfo(CComponentIO* component);

// The Levels key: below "CalLevels" and "QCLevels" for a target compound, below
// "SurrogateLevels" plus the spike values for a surrogate; nothing for other types.
// A list written replaces every level stored before it.
VGLOBAL_EXPORT void WriteLevelsInfo(CComponentIO* component);
// Reads the three lists and the spike values, whatever the component's type. A level
// that is not completely stored is not copied into the component; that level keeps
// what resizing the list gave it.
VGLOBAL_EXPORT int ReadLevelsInfo(CComponentIO* component);

// One level as "Level[index]" (created) below an open list key, with its replicates as
// "Replicate[i]" below it.
VGLOBAL_EXPORT void WriteALevel(CLevel* level, CVRegKey* list, int index);
// Reads "Level[index]" below an open list key into `level` without creating anything;
// 1 if the level and all of its replicates were complete.
VGLOBAL_EXPORT int ReadALevel(CLevel* level, CVRegKey* list, int index);
