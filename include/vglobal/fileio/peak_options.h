// How a chromatogram view labels and shows its peaks (CPeakOptions): a set of flag bits
// and the excess display width, the time added at both ends of a peak when it is shown.
// Starting values are the third column of the field list. A new chromatogram is taken
// from the mass spectrometer and its peaks are found as a new component's are (the
// values shared with the component are the same constants). The algorithm is not listed:
// it follows the detector through GetArvenisDefaultPeakDetectionTypeForDevice. The
// advanced values sit where the advanced-options dialogs open.. Copy and assignment copy
// every field.
#pragma once

#include "vglobal/compat/types.h"
#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// The fields of CPeakOptions, in record order: FIELD(type, name, starting value).
#define VG_PEAK_OPTIONS_FIELDS(FIELD)                                               \
  /* Peak labelling in chromatogram views: retention-time labels only, no widening. \
   * CPeakOptions::ShowRetentionTimeLabels */                                       \
  FIELD(int, Flags, 1)                                                              \
  FIELD(double, ExcessDisplayWidth, 0.0)

class VGLOBAL_EXPORT CPeakOptions {
 public:
  // The flag bits. Bits outside these are kept as they are, for programs that store
  // more in the same word.
  enum Flag : int {
    ShowRetentionTimeLabels = 1,
    ShowScanNumberLabels = 2,
    ShowAreaLabels = 4,
    ShowPeakBaselines = 8,
  };

  VG_RECORD_FIELDS(CPeakOptions, VG_PEAK_OPTIONS_FIELDS)

 public:
  // True when every bit of `flag` is set.
  BOOL IsFlagSet(int flag) const { return (m_Flags & flag) == flag ? 1 : 0; }
  // Sets (set nonzero) or clears every bit of `flag`; the other bits stay.
  void SetFlag(int flag, BOOL set = 1) { m_Flags = set ? (m_Flags | flag) : (m_Flags & ~flag); }
};
