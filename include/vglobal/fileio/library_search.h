// The library-search options of a processing method (CLibrarySearchOptions): the kind of
// search (0 identity, 1 similarity) with the mode of each, the molecular-weight and
// reverse searches, an optional user library with its match thresholds, the mass-defect
// correction, and the list of libraries searched, in search order. Starting values are
// the third column of the field list. A new method searches the library by identity,
// keeping 10 hits; the search list starts empty. Copy and assignment copy every field,
// the search list included.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// The fields of CLibrarySearchOptions, in record order: FIELD(type, name, starting value).
#define VG_LIBRARY_SEARCH_OPTIONS_FIELDS(FIELD)                            \
  /* Used when SearchType is 1 and 0 respectively. */                      \
  FIELD(int, SimilarityMode, 0)                                            \
  FIELD(int, IdentityMode, 0)                                              \
  /* identity search */                                                    \
  FIELD(int, SearchType, 0)                                                \
  FIELD(int, SearchMWEnabled, 0)                                           \
  FIELD(int, ReverseSearch, 0)                                             \
  FIELD(int, AppendUserLib, 0)                                             \
  FIELD(int, SearchMW, 0)                                                  \
  FIELD(double, NumMaxHits, 10.0)                                          \
  /* Match thresholds of 0 keep every hit of the appended user library. */ \
  FIELD(int, MatchFactor, 0)                                               \
  FIELD(int, ReverseMatchFactor, 0)                                        \
  FIELD(int, ProbabilityPercent, 0)                                        \
  /* No mass-defect correction: both defects are 0. */                     \
  FIELD(int, ApplyMassDefect, 0)                                           \
  FIELD(int, Defect1, 0)                                                   \
  FIELD(int, Defect2, 0)                                                   \
  FIELD(double, DefectMass1, 0.0)                                          \
  FIELD(double, DefectMass2, 0.0)                                          \
  FIELD(CString, UserLibrary, L"")

class VGLOBAL_EXPORT CLibrarySearchOptions {
  VG_RECORD_FIELDS(CLibrarySearchOptions, VG_LIBRARY_SEARCH_OPTIONS_FIELDS)

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
