// The mass limits of post-processing (CPostProcessingMassLimits): a fixed value pair,
// set when the object is made and never changed after, and never kept in the settings
// store. The default pair passes every mass a spectrum can carry.
#pragma once

#include "vglobal/export.h"

class VGLOBAL_EXPORT CPostProcessingMassLimits {
 public:
  CPostProcessingMassLimits() = default;
  CPostProcessingMassLimits(const CPostProcessingMassLimits&) = default;
  CPostProcessingMassLimits& operator=(const CPostProcessingMassLimits&) = default;
  virtual ~CPostProcessingMassLimits();

  double GetMaxMassLimit() const { return m_MaxMassLimit; }
  double GetMinMassLimit() const { return m_MinMassLimit; }

 private:
  double m_MaxMassLimit = 999999.0;
  double m_MinMassLimit = 0.5;
};
