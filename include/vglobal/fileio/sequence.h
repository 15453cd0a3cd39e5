// CSequence: a sample list (sequence file, ".sld"): its header, audit trail and rows,
// one CSeqRow per injection. The on-disk format is described in docs/file_formats.md;
// sample lists can also be imported from CSV (ImportCsv).
//
// Contract:
// - Construction never throws (except std::bad_alloc) and never writes to disk.
//   mode 0: open the file at path; when no file is there the object is a new, empty
//   sample list (CreatedFile() TRUE) that exists only in memory until Save. mode 1:
//   open an existing file only; a missing one sets IsError with kNotFound. Any other
//   mode or alternative value, a null or empty path: IsError with kBadArgument.
// - alternative 1 opens the list for reading only (as a sample-list browser does):
//   the rows, header and audit trail are read, row changes, imports and Save are
//   refused. alternative 0 is the normal read-write object.
// - A file that is truncated, corrupt, of a newer format version or not a sample list
//   leaves the object in error (code and a message naming the file and the offset or
//   section at fault) with no rows.
// - SeqRow with an index outside the list returns an empty row that belongs to no
//   list: changing it changes nothing.
// - Save is atomic (temporary file in the same folder, flushed, renamed); a failed
//   save leaves the previous file as it was, returns FALSE and sets the error (a
//   later successful save clears it). It stamps the header as CRawfile::Save does.
// - Sections of kinds this version does not know are kept and written back unchanged.
// - One object per thread.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"
#include "vglobal/fileio/audit_trail.h"
#include "vglobal/fileio/base_io.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/file_header.h"

namespace vglobal::fileio {
struct ContainerExtras;
}

// Sample-type codes of a row (the sample-list browser shows their names).
enum SampleTypeCode : int {
  SAMPLE_TYPE_UNKNOWN = 0,
  SAMPLE_TYPE_BLANK = 1,
  SAMPLE_TYPE_QC = 2,
  SAMPLE_TYPE_STD_CLEAR = 3,
  SAMPLE_TYPE_STD_UPDATE = 4,
  SAMPLE_TYPE_STD_BRACKET = 5,
  SAMPLE_TYPE_STD_BRACKET_START = 6,
  SAMPLE_TYPE_STD_BRACKET_END = 7,
  SAMPLE_TYPE_PROGRAM = 8,
};

// The fields of CSeqRow, in record order: FIELD(type, name, starting value).
#define VG_SEQ_ROW_FIELDS(FIELD)                                 \
  FIELD(CString, SampleID, L"")                                  \
  FIELD(CString, SampleName, L"")                                \
  /* One of SampleTypeCode; other codes are kept as they are. */ \
  FIELD(int, SampleType, SAMPLE_TYPE_UNKNOWN)                    \
  /* The folder of the row's raw file (data folder). */          \
  FIELD(CString, Path, L"")                                      \
  FIELD(CString, RawFileName, L"")                               \
  /* Autosampler position (vial, well). */                       \
  FIELD(CString, Position, L"")                                  \
  /* Injection volume (microlitres). */                          \
  FIELD(double, InjVol, 0.0)                                     \
  /* Calibration or QC level name. */                            \
  FIELD(CString, Level, L"")                                     \
  FIELD(double, DilutionFactor, 1.0)                             \
  FIELD(CString, InstMeth, L"")                                  \
  FIELD(CString, ProcMeth, L"")                                  \
  FIELD(CString, Comment, L"")

class VGLOBAL_EXPORT CSeqRow {
 public:
  // Longest text of a row field (characters); longer texts are cut when stored.
  static constexpr int kMaxTextLength = 1024;

  VG_RECORD_FIELDS(CSeqRow, VG_SEQ_ROW_FIELDS)

 public:
  friend bool operator==(const CSeqRow&, const CSeqRow&) = default;
};

class VGLOBAL_EXPORT CSequence : public CBaseIO {
 public:
  static constexpr int kOpenOrNew = 0;
  static constexpr int kOpenExisting = 1;
  // Most rows a sample list holds.
  static constexpr int kMaxRows = 100000;

  CSequence(const wchar_t* path, int alternative, int mode);
  ~CSequence() override;
  CSequence(const CSequence&) = delete;
  CSequence& operator=(const CSequence&) = delete;

  // TRUE when opened in the alternative (read-only) mode.
  BOOL IsReadOnly() const { return m_readOnly; }

  int Rows() const { return static_cast<int>(m_rows.size()); }
  // Row index (0-based); see the contract for an index outside the list.
  CSeqRow& SeqRow(int index);
  const CSeqRow& SeqRow(int index) const;
  // Appends a copy; returns its index, or -1 when read-only or the list is full.
  int AddRow(const CSeqRow& row);
  // Replaces row index; FALSE when read-only or index is outside the list.
  BOOL SetRow(int index, const CSeqRow& row);
  // Removes row index (later rows move up); FALSE when read-only or out of range.
  BOOL RemoveRow(int index);

  CHeader& GetHeader() { return m_header; }
  const CHeader& GetHeader() const { return m_header; }
  CAuditTrail& GetAuditTrail() { return m_audit; }
  const CAuditTrail& GetAuditTrail() const { return m_audit; }

  // Replaces the rows by those of the CSV file at path (format in
  // docs/file_formats.md). On failure the rows stay as they were, the error is set
  // (message with the line number) and FALSE is returned; on success the error is
  // cleared. Refused (FALSE, kAccessDenied) when read-only.
  BOOL ImportCsv(const wchar_t* path);

  BOOL Save();

 private:
  void Load(const wchar_t* path, int mode);

  CHeader m_header;
  CAuditTrail m_audit;
  std::vector<CSeqRow> m_rows;
  mutable CSeqRow m_outside;
  std::unique_ptr<vglobal::fileio::ContainerExtras> m_extras;
  BOOL m_readOnly = FALSE;
};
