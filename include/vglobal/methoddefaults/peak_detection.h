// The user's default peak detection and method-wide options, kept in the settings
// store of the current user (HKEY_CURRENT_USER).
//
// Keys, relative to the suite's base location:
//   - a caller-chosen key for interactive chromatogram peak detection, by default
//     kExplorePeakDetectionKey: one CPeakDetection plus three baseline values of
//     COptions (WriteIdentificationInfo, CreateRegistryEntries, ReadDefaultPeakDetection,
//     SetDefaultRegistryEntries);
//   - kQualIdentificationKey and kAdvChromatogramOptionsKey: the peak detection of the
//     default processing method (WritePeakDetectionInfo, WriteAdvChromatogramOptionsInfo,
//     ReadPeakDetectionDefaultInfo);
//   - kAdvDetectionOptionsKey: three detection values of a component and the options'
//     BkgWidth (WriteAdvDetectOptionsInfo);
//   - kOptionsKey: the method-wide options (WriteIdentificationOptions,
//     ReadOptionsDefaultInfo).
//
// Contract shared by every function here:
// - Each call opens its key itself and closes it before returning, also when an
//   exception passes; nothing is kept between calls. Calls run on the caller's thread.
// - The caller owns every record; records are only read or modified in place.
// - Writers store a value group only while the switch that enables it is on; a value
//   left out keeps whatever the key held before. Write failures are not reported.
// - Readers apply every value they find, leave the field of a missing value (or of a
//   value stored with another type) untouched, keep reading, never write, and return 1
//   only when every value they looked for was found, else 0. Because writers leave
//   values out under switches, a read after a write may return 0 although every stored
//   value was applied: 0 is a completeness mark, not an error.
// - A null record pointer is a caller error: a writer then stores nothing of that
//   record, a reader applies nothing to it and returns 0. Nothing here throws for a
//   missing key or value, and nothing is shown to the user.
#pragma once

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"
#include "vglobal/fileio/options.h"
#include "vglobal/fileio/peak_detection.h"
#include "vglobal/settings.h"

class CComponentIO;

namespace vglobal {

// The key the library's own dialogs keep the interactive peak-detection defaults in.
inline constexpr const wchar_t* kExplorePeakDetectionKey = L"Explore\\Default Peak Detection";
inline constexpr const wchar_t* kQualIdentificationKey =
    L"Processing Setup\\Defaults\\Qual\\Identification";
inline constexpr const wchar_t* kAdvChromatogramOptionsKey =
    L"Processing Setup\\Defaults\\Qual\\Advanced Chromatogram Options";
inline constexpr const wchar_t* kAdvDetectionOptionsKey =
    L"Processing Setup\\Defaults\\Quan\\Advanced Detection Options";
inline constexpr const wchar_t* kOptionsKey = L"Processing Setup\\Defaults\\Options";

}  // namespace vglobal

// ---- Interactive peak detection (caller-chosen key) ----

// Reads the peak-detection defaults at keyPath into `detection` and the three baseline
// values into `options`. The stored layout is read with the long-standing quirks kept:
// "MinPeakSeparation" is looked up as an int (it is written as a double, so the lookup
// fails and the result is 0 unless another writer stored an int); "SNThreshold" is read
// twice and "ValleyThreshold" never, so ValleyThreshold keeps its value; the double
// "MinScansInBaseline" is truncated toward zero (a value no int can hold counts as
// missing). `options` must not be null: with a null `options` the detection values are
// still read, the three options values are not, and the result is 0.
VGLOBAL_EXPORT int ReadDefaultPeakDetection(CPeakDetection* detection, COptions* options,
                                            CString& keyPath);

// Writes the interactive peak-detection values (33, or 30 when `options` is null: the
// three baseline values are then left out) into an already opened key.
VGLOBAL_EXPORT void WriteIdentificationInfo(CPeakDetection* detection, COptions* options,
                                            CVRegKey& key);

// Opens (creating it) keyPath for writing and calls WriteIdentificationInfo.
VGLOBAL_EXPORT void CreateRegistryEntries(CPeakDetection* detection, COptions* options,
                                          CString keyPath);

// Loads the defaults at keyPath into the records. When the key is absent, or the read
// is incomplete, the whole key is rewritten from the records: values that were found
// have already been loaded and are thus preserved, missing ones take the records'
// values. Given the "MinPeakSeparation" quirk above, a key written by this library
// always reads as incomplete, so every call rewrites it.
VGLOBAL_EXPORT void SetDefaultRegistryEntries(CPeakDetection* detection, COptions* options,
                                              CString keyPath);

// ---- Peak detection of the default processing method ----

// Writes the Qual Identification key. The detector decides between "TraceDelay" (any
// detector but the mass spectrometer) and "Filter" (the mass spectrometer's scan-filter
// text); "Trace1Type" is derived from the detector, not taken from the record.
VGLOBAL_EXPORT void WritePeakDetectionInfo(CPeakDetection* detection);

// Writes the ten values of the Qual Advanced Chromatogram Options key.
VGLOBAL_EXPORT void WriteAdvChromatogramOptionsInfo(CPeakDetection* detection);

// Reads both Qual keys. The algorithm follows the stored detector
// (GetArvenisDefaultPeakDetectionTypeForDevice); the stored "Filter" text is not read
// back: every read leaves the record with the empty scan filter.
VGLOBAL_EXPORT int ReadPeakDetectionDefaultInfo(CPeakDetection* detection);

// ---- Advanced detection options and method-wide options ----

// Writes the component's ValleyThreshold, ValleyDepth and PeakSNRCutoff and the
// options' BkgWidth. A null pointer leaves out the values it would have given.
VGLOBAL_EXPORT void WriteAdvDetectOptionsInfo(CComponentIO* component, COptions* options);

// Writes the method-wide options; "VoidTimeValue" only while VoidTime is 0 (the
// user-entered void time).
VGLOBAL_EXPORT void WriteIdentificationOptions(COptions* options);

// Reads "BkgWidth" from the advanced detection options key and six values from the
// options key. "SpectrumOptions" is read but written by no function of this library,
// so unless another program stored it the result is 0.
VGLOBAL_EXPORT int ReadOptionsDefaultInfo(COptions* options);

// Kept for callers of the exported name; writes nothing.
VGLOBAL_EXPORT void WriteOPtionsInfo(COptions* options, unsigned int mask);
