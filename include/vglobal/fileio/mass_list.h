// The reference mass list of a quantitation component (CMIPair: one mass with its
// relative intensity) and its mass ranges (CMassRange: a low and a high mass), in mass-
// to-charge units. Starting values are the third column of the field list. A new
// component is a target compound on a linear curve with equal weighting, built from peak
// areas, with no levels yet; an internal standard's amount starts at 1 so that a ratio
// against it is defined; surrogate spikes are accepted between 80 and 120 percent
// recovery.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// The fields of CMIPair, in record order: FIELD(type, name, starting value).
#define VG_MIPAIR_FIELDS(FIELD)                                      \
  /* Mass/intensity pairs and mass ranges start empty (all zero). */ \
  FIELD(double, Mass, 0.0)                                           \
  FIELD(double, Intensity, 0.0)

class VGLOBAL_EXPORT CMIPair {
  VG_RECORD_FIELDS(CMIPair, VG_MIPAIR_FIELDS)

 public:
  CMIPair() = default;
  CMIPair(double mass, double intensity) : m_Mass(mass), m_Intensity(intensity) {}
};

// The fields of CMassRange, in record order: FIELD(type, name, starting value).
#define VG_MASS_RANGE_FIELDS(FIELD) \
  FIELD(double, LowMass, 0.0)       \
  FIELD(double, HighMass, 0.0)

class VGLOBAL_EXPORT CMassRange {
  VG_RECORD_FIELDS(CMassRange, VG_MASS_RANGE_FIELDS)

 public:
  CMassRange() = default;
  CMassRange(double lowMass, double highMass) : m_LowMass(lowMass), m_HighMass(highMass) {}
};
