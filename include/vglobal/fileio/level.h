// Calibration levels of a quantitation component (CLevel) and the measured replicates
// of a level (CReplicate).
//
// A level is one known amount of the compound (its base amount) with a name and the
// percentage by which a measured amount may deviate from it; its replicates are the
// injections measured at that amount. Both records copy every field, replicates
// included. Starting values come from record_defaults.h ("Component: calibration,
// levels and replicates").
#pragma once

#include <cstddef>
#include <vector>

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/record_defaults.h"

class VGLOBAL_EXPORT CReplicate {
  VG_FIELD(double, Amount, vglobal::record_defaults::kReplicateAmount)
  VG_FIELD(double, Height, vglobal::record_defaults::kReplicateHeight)
  VG_FIELD(double, Area, vglobal::record_defaults::kReplicateArea)
  // 1: this injection is left out of the calibration curve.
  VG_FIELD(int, ExcludeFromCalibration, vglobal::record_defaults::kReplicateExcludeFromCalibration)
  VG_STRING_FIELD(ResultFileName, vglobal::record_defaults::kReplicateResultFileName)
};

class VGLOBAL_EXPORT CLevel {
  VG_STRING_FIELD(LevelName, vglobal::record_defaults::kLevelName)
  VG_FIELD(double, BaseAmount, vglobal::record_defaults::kLevelBaseAmount)
  VG_FIELD(double, TestPercent, vglobal::record_defaults::kLevelTestPercent)

 public:
  CLevel() = default;
  CLevel(const CLevel&) = default;
  CLevel& operator=(const CLevel&) = default;

  int NumReplicates() const { return static_cast<int>(m_replicates.size()); }
  // Resizes the replicate list: the first replicates stay, new ones are default
  // replicates; a negative count empties the list. Callers that take a count from
  // outside (a store, a file) bound it first: the list is allocated at once.
  void NumReplicates(int count) { m_replicates.resize(count < 0 ? 0 : static_cast<size_t>(count)); }
  // The replicate at index (0-based). An index outside the list throws
  // std::out_of_range (a negative index converts to one beyond any list).
  CReplicate& operator[](int index) { return m_replicates.at(static_cast<size_t>(index)); }
  const CReplicate& operator[](int index) const {
    return m_replicates.at(static_cast<size_t>(index));
  }
  // Appends a copy of `replicate`; returns its index.
  int AddReplicate(const CReplicate& replicate) {
    m_replicates.push_back(replicate);
    return NumReplicates() - 1;
  }

 private:
  std::vector<CReplicate> m_replicates;
};
