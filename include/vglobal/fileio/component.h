// The quantitation component record of a processing method (CComponentIO): one per
// target compound. Its fields are grouped by the pages of the component editor:
// identification and detection, calibration with its levels, flags and system
// suitability. Copy and assignment copy every field.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/component_calibration.h"
#include "vglobal/fileio/component_flags.h"
#include "vglobal/fileio/component_identification.h"

class VGLOBAL_EXPORT CComponentIO : public vglobal::ComponentIdentification,
                                    public vglobal::ComponentCalibration,
                                    public vglobal::ComponentFlags {
 public:
  CComponentIO() = default;
  CComponentIO(const CComponentIO&) = default;
  CComponentIO& operator=(const CComponentIO&) = default;
  virtual ~CComponentIO() = default;

  // Every field of the three pages, page by page in list order (see field.h).
  template <typename Visit>
  static void ForEachField(Visit&& visit) {
    vglobal::ComponentIdentification::ForEachField(visit);
    vglobal::ComponentCalibration::ForEachField(visit);
    vglobal::ComponentFlags::ForEachField(visit);
  }
};
