// The library-search options of a processing method (CLibrarySearchOptions): the kind of
// search (0 identity, 1 similarity) with the mode of each, the molecular-weight and
// reverse searches, an optional user library with its match thresholds, the mass-defect
// correction, and the list of libraries searched, in search order. Starting values come
// from record_defaults.h ("Qualitative"); the search list starts empty. Copy and
// assignment copy every field, the search list included.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/export.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/record_defaults.h"

class VGLOBAL_EXPORT CLibrarySearchOptions {
  // Used when SearchType is 1 and 0 respectively.
  VG_FIELD(int, SimilarityMode, vglobal::record_defaults::kLibSimilarityMode)
  VG_FIELD(int, IdentityMode, vglobal::record_defaults::kLibIdentityMode)
  VG_FIELD(int, SearchType, vglobal::record_defaults::kLibSearchType)
  VG_FIELD(int, SearchMWEnabled, vglobal::record_defaults::kLibSearchMWEnabled)
  VG_FIELD(int, ReverseSearch, vglobal::record_defaults::kLibReverseSearch)
  VG_FIELD(int, AppendUserLib, vglobal::record_defaults::kLibAppendUserLib)
  VG_FIELD(int, SearchMW, vglobal::record_defaults::kLibSearchMW)
  VG_FIELD(double, NumMaxHits, vglobal::record_defaults::kLibNumMaxHits)
  VG_FIELD(int, MatchFactor, vglobal::record_defaults::kLibMatchFactor)
  VG_FIELD(int, ReverseMatchFactor, vglobal::record_defaults::kLibReverseMatchFactor)
  VG_FIELD(int, ProbabilityPercent, vglobal::record_defaults::kLibProbabilityPercent)
  VG_FIELD(int, ApplyMassDefect, vglobal::record_defaults::kLibApplyMassDefect)
  VG_FIELD(int, Defect1, vglobal::record_defaults::kLibDefect1)
  VG_FIELD(int, Defect2, vglobal::record_defaults::kLibDefect2)
  VG_FIELD(double, DefectMass1, vglobal::record_defaults::kLibDefectMass1)
  VG_FIELD(double, DefectMass2, vglobal::record_defaults::kLibDefectMass2)
  VG_STRING_FIELD(UserLibrary, vglobal::record_defaults::kLibUserLibrary)

 public:
  CLibrarySearchOptions() = default;
  CLibrarySearchOptions(const CLibrarySearchOptions&) = default;
  CLibrarySearchOptions& operator=(const CLibrarySearchOptions&) = default;
  virtual ~CLibrarySearchOptions() = default;

  // The libraries searched, in search order.
  const CStringArray& SearchList() const { return m_SearchList; }
  void RemoveAllSearchListItems() { m_SearchList.RemoveAll(); }
  // Appends a library to the end of the list; returns its index.
  int AddSearchListItem(const CString& library) {
    return static_cast<int>(m_SearchList.Add(library));
  }

 private:
  CStringArray m_SearchList;
};
