// The spectrum-enhancement options of a processing method (CSpecEnhanceOptions): whether
// spectra are enhanced before the library search, and the parameters of each of the
// three enhancement methods. SpectrumMethod picks which group applies: 0 the window and
// noise threshold, 1 the background subtraction around the peak top, 2 the cut-off
// threshold. The record carries every group whatever the method. Starting values are the
// third column of the field list. A new method does not enhance spectra; the values
// behind the switch are what the editor shows when a user turns it on: the first method
// with a 5-point window. Copy and assignment copy every field.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// The fields of CSpecEnhanceOptions, in record order: FIELD(type, name, starting value).
#define VG_SPEC_ENHANCE_OPTIONS_FIELDS(FIELD)                                                      \
  FIELD(int, SpecEnabled, 0)                                                                       \
  FIELD(int, SpectrumMethod, 0)                                                                    \
  /* ---- method 0 ---- */                                                                         \
  FIELD(double, WindowSize, 5.0)                                                                   \
  FIELD(int, NoiseThreshold, 3)                                                                    \
  /* ---- method 1: background subtraction; point counts are whole numbers kept as doubles ---- */ \
  FIELD(double, Take, 3.0)                                                                         \
  FIELD(double, BgScalingFactor, 1.0)                                                              \
  FIELD(int, Region1Method, 0)                                                                     \
  FIELD(double, PtsPkTop, 3.0)                                                                     \
  FIELD(double, Previous, 10.0)                                                                    \
  FIELD(int, Region2Method, 0)                                                                     \
  FIELD(double, PtsAfterPkTop, 3.0)                                                                \
  FIELD(double, NextPt, 10.0)                                                                      \
  /* ---- method 2: the cut-off, in percent of the base peak ---- */                               \
  FIELD(double, CutOffThreshold, 1.0)

class VGLOBAL_EXPORT CSpecEnhanceOptions {
  VG_RECORD_FIELDS(CSpecEnhanceOptions, VG_SPEC_ENHANCE_OPTIONS_FIELDS)

 public:
  CSpecEnhanceOptions() = default;
  CSpecEnhanceOptions(const CSpecEnhanceOptions&) = default;
  CSpecEnhanceOptions& operator=(const CSpecEnhanceOptions&) = default;
  virtual ~CSpecEnhanceOptions() = default;
};
