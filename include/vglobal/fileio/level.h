// Calibration levels of a quantitation component (CLevel) and the measured replicates of
// a level (CReplicate).
//
// A level is one known amount of the compound (its base amount) with a name and the
// percentage by which a measured amount may deviate from it; its replicates are the
// injections measured at that amount. Both records copy every field, replicates
// included. Starting values are the third column of the field list. A new component is a
// target compound on a linear curve with equal weighting, built from peak areas, with no
// levels yet; an internal standard's amount starts at 1 so that a ratio against it is
// defined; surrogate spikes are accepted between 80 and 120 percent recovery.
#pragma once

#include <cstddef>
#include <vector>

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// The fields of CReplicate, in record order: FIELD(type, name, starting value).
#define VG_REPLICATE_FIELDS(FIELD)                                                  \
  /* A replicate: nothing measured yet, used in the calibration, no result file. */ \
  FIELD(double, Amount, 0.0)                                                        \
  FIELD(double, Height, 0.0)                                                        \
  FIELD(double, Area, 0.0)                                                          \
  /* 1: this injection is left out of the calibration curve. */                     \
  FIELD(int, ExcludeFromCalibration, 0)                                             \
  FIELD(CString, ResultFileName, L"")

class VGLOBAL_EXPORT CReplicate {
  VG_RECORD_FIELDS(CReplicate, VG_REPLICATE_FIELDS)
};

// The fields of CLevel, in record order: FIELD(type, name, starting value).
#define VG_LEVEL_FIELDS(FIELD)                                                 \
  /* A level: unnamed, amount 0, checked against a deviation of 20 percent. */ \
  FIELD(CString, LevelName, L"")                                               \
  FIELD(double, BaseAmount, 0.0)                                               \
  FIELD(double, TestPercent, 20.0)

class VGLOBAL_EXPORT CLevel {
  VG_RECORD_FIELDS(CLevel, VG_LEVEL_FIELDS)

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
