// The identification and detection pages of the user's default quantitation component,
// and the whole default component, kept in the current user's settings store:
//   "Processing Setup\Defaults\Quan\Identification"  detector, trace, retention time
//   "Processing Setup\Defaults\Quan\Detection"       peak detection, ion ratios
//   "Processing Setup\Defaults\Quan\Advanced Detection Options"  written with the peak-
//                                                    detection defaults; three values
//                                                    are read back with the component
// The calibration, levels, flags and system-suitability pages have their own sections
// (calibration.h, flags.h); WriteComponentInfo and ReadComponentDefaultInfo run them.
//
// Contract: writers open their key creating it and ignore write results; readers open
// without creating, apply every value they find, never write, and return 1 only when
// every value they looked for was present (0 is a completeness mark, not an error:
// the writers leave several values out under conditions, so a read after a write may
// return 0). The caller owns the record; a null record is ignored (readers return 0).
//
// Two behaviours of the stored layout look like slips and are kept on purpose:
// - the scan filter is written but never read: reading resets the component's filter
//   to the empty filter, so a new component never inherits a stored filter;
// - "IonRatioConfirmation" is always stored as 0 and never read: reading switches the
//   confirmation off, and the ion-ratio values written with it are read all the same.
#pragma once

#include <vector>

#include "vglobal/methoddefaults/section_result.h"

#include "vglobal/export.h"

class CComponentIO;

namespace vglobal {

// Bits of WriteComponentInfo's mask, one per page of the component editor.
enum ComponentPageBits : unsigned int {
  kWriteWholeComponent = 0x001,  // every page below, once each; other bits ignored
  kWriteIdentification = 0x002,
  kWriteGCDetection = 0x004,  // Detection, full form
  kWriteLCDetection = 0x008,  // Detection, short form
  kWriteDetectionFlags = 0x010,
  kWriteDetectionFlagsAgain = 0x020,  // the same page (both bits set: written twice)
  kWriteCalibration = 0x040,
  kWriteCalibrationFlags = 0x080,
  kWriteLevels = 0x100,
  kWriteSystemSuitability = 0x200,
};

// Reads the whole default component, page by page in the order of
// ReadComponentDefaultInfo, and says of each page (named by its key below
// "Processing Setup\\Defaults") whether every value was present.
VGLOBAL_EXPORT std::vector<SectionResult> ReadComponentDefaultSections(CComponentIO* component);

}  // namespace vglobal

// The Identification key: "DetectorType"; "DetectorDelay" for a detector other than
// the mass spectrometer, else "Filter" (the filter's text with every mass range, two
// decimals); "Trace1Type" derived from the detector (1 -> 11, 2 -> 41, 3 and 4 -> 22,
// anything else -> 1); "TraceOperator" and "Trace2Type" as 0; "Keys",
// "RTSearchWindow", "DisplayWindowWidth"; and, unless the component is itself a
// retention-time reference, "AdjustExpectedRT" with "RTReference" when it is on.
VGLOBAL_EXPORT void WriteIdentificationInfo(CComponentIO* component);
// Reads the Identification key in stored order ("Trace1Type" as stored, not mapped
// back) and resets the component's filter to the empty filter.
VGLOBAL_EXPORT int ReadIdentificationInfo(CComponentIO* component);

// The Detection key, full form: smoothing, valley and peak-width settings, algorithm,
// Kiva parameters, then the spectral thresholds (algorithm 0) or, on the mass
// spectrometer, the ion-ratio confirmation (stored as 0) and its values when the
// component's confirmation is on.
VGLOBAL_EXPORT void WriteGCDetectionInfo(CComponentIO* component);
// The Detection key, short form: the full form without thresholds and ion ratios.
VGLOBAL_EXPORT void WriteLCDetectionInfo(CComponentIO* component);
// Reads every Detection value whatever was written, and sets IonRatioConfirmation 0.
VGLOBAL_EXPORT int ReadDetectionInfo(CComponentIO* component);

// Writes the pages chosen by `mask` (vglobal::ComponentPageBits). With
// kWriteWholeComponent every page is written once in page order and the other bits are
// ignored; otherwise each set bit is honoured in bit order.
VGLOBAL_EXPORT void WriteComponentInfo(CComponentIO* component, unsigned int mask);
// Reads Identification, Detection, Detection Flags, Calibration, Calibration Flags,
// Levels, System Suitability, then "ValleyThreshold", "ValleyDepth" and
// "PeakSNRCutoff" of Advanced Detection Options. Every step runs; 1 only if all
// were complete.
VGLOBAL_EXPORT int ReadComponentDefaultInfo(CComponentIO* component);
