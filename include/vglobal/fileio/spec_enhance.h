// The spectrum-enhancement options of a processing method (CSpecEnhanceOptions): whether
// spectra are enhanced before the library search, and the parameters of each of the
// three enhancement methods. SpectrumMethod picks which group applies: 0 the window and
// noise threshold, 1 the background subtraction around the peak top, 2 the cut-off
// threshold. The record carries every group whatever the method. Starting values come
// from record_defaults.h ("Qualitative"). Copy and assignment copy every field.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/record_defaults.h"

class VGLOBAL_EXPORT CSpecEnhanceOptions {
  VG_FIELD(int, SpecEnabled, vglobal::record_defaults::kSpecEnabled)
  VG_FIELD(int, SpectrumMethod, vglobal::record_defaults::kSpectrumMethod)

  // ---- method 0 ----
  VG_FIELD(double, WindowSize, vglobal::record_defaults::kSpecWindowSize)
  VG_FIELD(int, NoiseThreshold, vglobal::record_defaults::kSpecNoiseThreshold)

  // ---- method 1: background subtraction; point counts are whole numbers ----
  VG_FIELD(double, Take, vglobal::record_defaults::kSpecTake)
  VG_FIELD(double, BgScalingFactor, vglobal::record_defaults::kSpecBgScalingFactor)
  VG_FIELD(int, Region1Method, vglobal::record_defaults::kSpecRegion1Method)
  VG_FIELD(double, PtsPkTop, vglobal::record_defaults::kSpecPtsPkTop)
  VG_FIELD(double, Previous, vglobal::record_defaults::kSpecPrevious)
  VG_FIELD(int, Region2Method, vglobal::record_defaults::kSpecRegion2Method)
  VG_FIELD(double, PtsAfterPkTop, vglobal::record_defaults::kSpecPtsAfterPkTop)
  VG_FIELD(double, NextPt, vglobal::record_defaults::kSpecNextPt)

  // ---- method 2 ----
  VG_FIELD(double, CutOffThreshold, vglobal::record_defaults::kSpecCutOffThreshold)

 public:
  CSpecEnhanceOptions() = default;
  CSpecEnhanceOptions(const CSpecEnhanceOptions&) = default;
  CSpecEnhanceOptions& operator=(const CSpecEnhanceOptions&) = default;
  virtual ~CSpecEnhanceOptions() = default;
};
