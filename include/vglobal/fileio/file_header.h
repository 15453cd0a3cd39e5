// CHeader: the header that every data file of the suite (raw file, sample list)
// carries: what kind of file it is, when it was created and last saved, by whom, how
// often it has been saved, and the user's description of it.
//
// Contract:
// - A value type; copies are independent.
// - Times are file times as stored (nanoseconds since 1970-01-01 00:00 UTC, no
//   time-zone conversion); zero means "never".
// - The file-type word of every header this module writes is kSuiteFileType (0xA101);
//   the summary-information dialog shows the save history only for that word.
// - StampSave is what a file object's Save does to its header: the first save of a
//   new file records the creation, every later one the modification and the editor.
//   The creator and editor are the operating-system logon names of the users who
//   saved (the names users type go to the audit trail).
#pragma once

#include <cstdint>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/filestatus.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// The fields of CHeader, in record order: FIELD(type, name, starting value).
#define VG_HEADER_FIELDS(FIELD)                                                                    \
  FIELD(WORD, FileType, kSuiteFileType)                                                            \
  FIELD(CTime, CreationDate, CTime())                                                              \
  FIELD(CTime, ModificationDate, CTime())                                                          \
  /* How many times the file was saved after the save that created it (16-bit, stops at 65535). */ \
  FIELD(WORD, NumTimesSaved, 0)                                                                    \
  FIELD(CString, WhoCreatedId, L"")                                                                \
  FIELD(CString, WhoCreatedLogon, L"")                                                             \
  FIELD(CString, WhoChangedId, L"")                                                                \
  FIELD(CString, WhoChangedLogon, L"")

class VGLOBAL_EXPORT CHeader {
 public:
  // The file-type word of the suite's own data files.
  static constexpr WORD kSuiteFileType = 0xA101;

  // Longest texts a header holds (characters); longer texts are cut when stored.
  static constexpr int kMaxNameLength = 256;
  static constexpr int kMaxDescLength = 4096;

  VG_RECORD_FIELDS(CHeader, VG_HEADER_FIELDS)

 public:
  // The user's description of the file.
  CString ReadDesc() const { return m_desc; }
  void WriteDesc(const wchar_t* text) { m_desc = text ? text : L""; }
  void WriteDesc(const CString& text) { m_desc = text; }

  // Records a save made at `when` by the user `logon` (null: empty). firstSave: the
  // save that creates the file (creation date and creator set, modification date and
  // editor equal to them, save count 0); otherwise the modification date and editor
  // (id and logon) are set and the save count goes up by one.
  void StampSave(bool firstSave, CTime when, const wchar_t* logon);

  friend bool operator==(const CHeader&, const CHeader&) = default;

 private:
  CString m_desc;
};
