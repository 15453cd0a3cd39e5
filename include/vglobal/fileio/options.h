// The method-wide options record of a processing method (COptions): how the void time
// is found, how widely a spectrum is searched for, and the baseline-noise criteria
// shared by every peak of the method. Starting values come from record_defaults.h
// ("Peak detection and method-wide options"). Copy and assignment copy every field.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/record_defaults.h"

class VGLOBAL_EXPORT COptions {
  // Void-time mode: 0, the user-entered VoidTimeValue is the void time; any other
  // value, the first mass-maximizing peak defines it.
  VG_FIELD(int, VoidTime, vglobal::record_defaults::kOptVoidTime)
  VG_FIELD(double, VoidTimeValue, vglobal::record_defaults::kOptVoidTimeValue)
  VG_FIELD(double, SearchWindow, vglobal::record_defaults::kOptSearchWindow)
  VG_FIELD(int, MinScansInBaseline, vglobal::record_defaults::kOptMinScansInBaseline)
  // A fraction (0 to 1); dialogs show it as a percentage.
  VG_FIELD(double, BaseNoiseLimit, vglobal::record_defaults::kOptBaseNoiseLimit)
  VG_FIELD(int, BkgWidth, vglobal::record_defaults::kOptBkgWidth)
  VG_FIELD(double, BaseNoiseRejectionFactor, vglobal::record_defaults::kOptBaseNoiseRejectionFactor)
  VG_FIELD(int, SpectrumOptions, vglobal::record_defaults::kOptSpectrumOptions)
};
