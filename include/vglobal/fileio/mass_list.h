// The reference mass list of a quantitation component (CMIPair: one mass with its
// relative intensity) and its mass ranges (CMassRange: a low and a high mass), in
// mass-to-charge units. Starting values come from record_defaults.h ("Component:
// calibration, levels and replicates").
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/record_defaults.h"

class VGLOBAL_EXPORT CMIPair {
  VG_FIELD(double, Mass, vglobal::record_defaults::kMIPairMass)
  VG_FIELD(double, Intensity, vglobal::record_defaults::kMIPairIntensity)

 public:
  CMIPair() = default;
  CMIPair(double mass, double intensity) : m_Mass(mass), m_Intensity(intensity) {}
};

class VGLOBAL_EXPORT CMassRange {
  VG_FIELD(double, LowMass, vglobal::record_defaults::kMassRangeLowMass)
  VG_FIELD(double, HighMass, vglobal::record_defaults::kMassRangeHighMass)

 public:
  CMassRange() = default;
  CMassRange(double lowMass, double highMass) : m_LowMass(lowMass), m_HighMass(highMass) {}
};
