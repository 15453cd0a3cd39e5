// A whole quantitation component kept under a settings key that the calling
// application chooses (a path below the current user's root, resolved as every
// settings path is). One key holds the identification and calibration values as one
// flat set, with numbered sub-keys:
//
//   <path>                       the values, and the counts "NumMIPairs",
//                                "NumMassRanges", "NumCalLevels", "NumQCLevels"
//   <path>\Filter\Masses         created empty
//   <path>\MassList\MassList[i]  "Mass", "Intensity"
//   <path>\MassRange\MassRange[i]  "LowMass", "HighMass"
//   <path>\CalLevels\Level[i]    a calibration level: "BaseAmount", "TestPercent",
//   <path>\QCLevels\Level[i]       "Name", "NumReplicates", and below it
//                                  Replicate[i]: "Amount", "Height", "Area",
//                                  "ExcludeFromCalibration", "ResultFileName"
//
// The layout keeps less than the record holds, on purpose: the scan filter is stored
// as an empty text and the mass ranges as none, the component type is stored as 0 and
// the name is not read back (a component read here is named "<new>"). Its value names
// differ from those of the user's default component ("Type", "PercentISTDInTarget",
// "NumCalLevels" here).
//
// Readers apply every value they find, return 1 only when every value was present,
// and never report to the user. Unlike the default component's readers, reading here
// creates missing element sub-keys (empty) below the lists.
#pragma once

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"

class CComponentIO;
class CLevel;
class CVRegKey;

// Opens <path> (creating it), creates "Filter\Masses", "MassRange", "MassList",
// "CalLevels" and "QCLevels" in this order, then writes the identification half and
// the calibration half of `component` into it. The caller keeps `component`.
VGLOBAL_EXPORT void CreateRegistryEntries(CComponentIO* component, CString path);

// Loads the component kept at <path>, or makes it.
// OWNERSHIP: `old` (may be null) is deleted at once, whatever happens next: the caller
// must not use it afterwards. The returned component is new and owned by the caller
// (delete it); it is never null.
// When <path> exists, a default component is read from it; a complete read is returned
// as it is, an incomplete one is written back whole (the values found, defaults for
// the rest) before it is returned. When <path> does not exist, a default component is
// written there and returned.
VGLOBAL_EXPORT CComponentIO* SetRegistryEntries(CComponentIO* old, CString path);

// Reads everything kept at <path> into `component`; 1 if every value was present.
// The component's name is set to "<new>" whatever the key holds.
VGLOBAL_EXPORT int ReadDefaultComponent(CComponentIO* component, CString& path);

// The identification half into an open key: the empty filter text, no mass ranges,
// retention time and detection values, and the mass list (replacing the stored one).
VGLOBAL_EXPORT void WriteIdentificationInfo(CComponentIO* component, CVRegKey& key);
// The calibration half into an open key whose "CalLevels" and "QCLevels" sub-keys
// exist: the curve values and counts, then the QC and calibration levels (replacing
// the stored ones). Sorts the component's calibration and QC levels by base amount
// on the way.
VGLOBAL_EXPORT void WriteCalibrationInfo(CComponentIO* component, CVRegKey& key);

// One level as "Level[index]" (created) below `parent`, with its replicates.
VGLOBAL_EXPORT void WriteLevelInfo(CLevel& level, CVRegKey& parent, int index);
// Reads "Level[index]" below `parent` (creating the sub-key, and those of its
// replicates, when missing) into `level`. Sets `ok` to 0 when any value is missing and
// never sets it to 1, so that one flag gathers the result of many calls.
VGLOBAL_EXPORT void ReadLevelInfo(CLevel& level, CVRegKey& parent, int index, int& ok);
