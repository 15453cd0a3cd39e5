// The method-wide options record of a processing method (COptions): how the void time is
// found, how widely a spectrum is searched for, and the baseline-noise criteria shared
// by every peak of the method. Starting values are the third column of the field list.
// The void time is entered by the user and starts at 0; a spectrum is searched for
// within a component's retention-time window (30 seconds). Copy and assignment copy
// every field.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// The fields of COptions, in record order: FIELD(type, name, starting value).
#define VG_OPTIONS_FIELDS(FIELD)                                                              \
  /* Void-time mode: 0, the user-entered VoidTimeValue is the void time; any other value, the \
   * first mass-maximizing peak defines it. */                                                \
  FIELD(int, VoidTime, 0)                                                                     \
  FIELD(double, VoidTimeValue, 0.0)                                                           \
  FIELD(double, SearchWindow, 30.0)                                                           \
  FIELD(int, MinScansInBaseline, 5)                                                           \
  /* A fraction (0 to 1); dialogs show it as a percentage. */                                 \
  FIELD(double, BaseNoiseLimit, 0.1)                                                          \
  FIELD(int, BkgWidth, 5)                                                                     \
  FIELD(double, BaseNoiseRejectionFactor, 2.0)                                                \
  FIELD(int, SpectrumOptions, 0)

class VGLOBAL_EXPORT COptions {
  VG_RECORD_FIELDS(COptions, VG_OPTIONS_FIELDS)
};
