// The calibration fields of a quantitation component (CComponentIO): the component's
// type, its calibration curve, its internal-standard amount, its calibration, QC and
// surrogate levels with their replicates, the surrogate spike limits, and the reference
// spectrum that the component kept under a named key carries (the retention time the
// user entered, the mass list with its fit threshold, the mass ranges). Starting values
// are the third column of the field list. A new component is a target compound on a
// linear curve with equal weighting, built from peak areas, with no levels yet; an
// internal standard's amount starts at 1 so that a ratio against it is defined;
// surrogate spikes are accepted between 80 and 120 percent recovery; every list starts
// empty.
//
// Lists: NumXxx() is the length; NumXxx(n) resizes (the first elements stay, new ones
// are default records, a negative n empties the list: callers that take n from outside
// bound it first, since the list is allocated at once); GetXxx(i) gives the element by
// reference and throws std::out_of_range for an index outside the list; AddXxx appends a
// copy and returns its index. Copy and assignment copy every list.
#pragma once

#include <cstddef>
#include <vector>

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/level.h"
#include "vglobal/fileio/mass_list.h"

namespace vglobal {

// The fields of ComponentCalibration, in record order: FIELD(type, name, starting value).
#define VG_COMPONENT_CALIBRATION_FIELDS(FIELD)                                                   \
  /* ---- type and calibration curve ---- Component type index: 0 target compound, 1 internal    \
   * standard, 4 surrogate; other values belong to kinds of component that keep no levels. */    \
  FIELD(int, Type, 0)                                                                            \
  FIELD(double, ISTDBaseAmount, 1.0)                                                             \
  FIELD(CString, ISTDUnits, L"")                                                                 \
  /* linear */                                                                                   \
  FIELD(int, CurveIndex, 0)                                                                      \
  /* the origin is ignored */                                                                    \
  FIELD(int, OriginIndex, 0)                                                                     \
  /* equal weights */                                                                            \
  FIELD(int, WeightingIndex, 0)                                                                  \
  /* area */                                                                                     \
  FIELD(int, ResponseIndex, 0)                                                                   \
  FIELD(CString, CalibrationUnits, L"")                                                          \
  FIELD(CString, ReportUnits, L"")                                                               \
  /* Cross-contributions between the target and its internal standard, in percent. */            \
  FIELD(double, PercentISTDInTarget, 0.0)                                                        \
  FIELD(double, PercentTargetInISTD, 0.0)                                                        \
  /* ---- surrogate spike ---- */                                                                \
  FIELD(double, SpikeAmount, 0.0)                                                                \
  /* percent */                                                                                  \
  FIELD(double, SpikeUpperRecovery, 120.0)                                                       \
  /* percent */                                                                                  \
  FIELD(double, SpikeLowerRecovery, 80.0)                                                        \
  /* ---- reference spectrum ---- The retention time the user typed (0: none yet) and the least  \
   * spectral fit, as a fraction of a perfect match, that the reference mass list must reach. */ \
  FIELD(double, UserEnteredRT, 0.0)                                                              \
  FIELD(double, FitThreshold, 0.8)

class VGLOBAL_EXPORT ComponentCalibration {
  VG_RECORD_FIELDS(ComponentCalibration, VG_COMPONENT_CALIBRATION_FIELDS)

 public:
  // ---- calibration levels ----
  int NumCalLevels() const { return Length(m_calLevels); }
  void NumCalLevels(int count) { Resize(m_calLevels, count); }
  CLevel& GetCalLevel(int index) { return m_calLevels.at(static_cast<size_t>(index)); }
  const CLevel& GetCalLevel(int index) const { return m_calLevels.at(static_cast<size_t>(index)); }
  int AddCalLevel(const CLevel& level) { return Append(m_calLevels, level); }
  // Orders the calibration levels by base amount, smallest first; levels of equal
  // amount keep their order, and levels whose amount is not a number go last.
  void SortCalLevelPairs();

  // ---- QC levels ----
  int NumQCLevels() const { return Length(m_qcLevels); }
  void NumQCLevels(int count) { Resize(m_qcLevels, count); }
  CLevel& GetQCLevel(int index) { return m_qcLevels.at(static_cast<size_t>(index)); }
  const CLevel& GetQCLevel(int index) const { return m_qcLevels.at(static_cast<size_t>(index)); }
  int AddQCLevel(const CLevel& level) { return Append(m_qcLevels, level); }
  // The same order as SortCalLevelPairs, for the QC levels.
  void SortQCLevelPairs();

  // ---- surrogate levels ----
  int NumSurrogateCalLevels() const { return Length(m_surrogateLevels); }
  void NumSurrogateCalLevels(int count) { Resize(m_surrogateLevels, count); }
  CLevel& GetSurrogateLevel(int index) { return m_surrogateLevels.at(static_cast<size_t>(index)); }
  const CLevel& GetSurrogateLevel(int index) const {
    return m_surrogateLevels.at(static_cast<size_t>(index));
  }
  int AddSurrogateLevel(const CLevel& level) { return Append(m_surrogateLevels, level); }

  // ---- reference mass list ----
  int NumMIPairs() const { return Length(m_miPairs); }
  void NumMIPairs(int count) { Resize(m_miPairs, count); }
  CMIPair& GetMIPair(int index) { return m_miPairs.at(static_cast<size_t>(index)); }
  const CMIPair& GetMIPair(int index) const { return m_miPairs.at(static_cast<size_t>(index)); }
  int AddMIPair(const CMIPair& pair) { return Append(m_miPairs, pair); }

  // ---- mass ranges ----
  int NumMassRanges() const { return Length(m_massRanges); }
  void NumMassRanges(int count) { Resize(m_massRanges, count); }
  // The mass range at index, as the component has always been indexed.
  CMassRange& operator[](int index) { return m_massRanges.at(static_cast<size_t>(index)); }
  const CMassRange& operator[](int index) const {
    return m_massRanges.at(static_cast<size_t>(index));
  }
  int AddMassRange(const CMassRange& range) { return Append(m_massRanges, range); }

 private:
  template <typename T>
  static int Length(const std::vector<T>& list) {
    return static_cast<int>(list.size());
  }
  template <typename T>
  static void Resize(std::vector<T>& list, int count) {
    list.resize(count < 0 ? 0 : static_cast<size_t>(count));
  }
  template <typename T>
  static int Append(std::vector<T>& list, const T& element) {
    list.push_back(element);
    return Length(list) - 1;
  }

  std::vector<CLevel> m_calLevels;
  std::vector<CLevel> m_qcLevels;
  std::vector<CLevel> m_surrogateLevels;
  std::vector<CMIPair> m_miPairs;
  std::vector<CMassRange> m_massRanges;
};

}  // namespace vglobal
