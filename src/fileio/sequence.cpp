// CSequence: opening, editing, importing and saving a sample list (format in
// docs/file_formats.md).
#include "vglobal/fileio/sequence.h"

#include "csv_import.h"
#include "data_file_codec.h"
#include "data_file_io.h"
#include "file_access.h"
#include "vglobal/compat/unicode.h"

using vglobal::fileio::FileError;

CSequence::CSequence(const wchar_t* path, int alternative, int mode)
    : m_extras(std::make_unique<vglobal::fileio::ContainerExtras>()) {
  m_path = path ? path : L"";
  m_readOnly = alternative == 1 ? TRUE : FALSE;
  if (alternative != 0 && alternative != 1) {
    FailOpen(kBadArgument,
             vglobal::fileio::AtFile(
                 path, L"alternative " + std::to_wstring(alternative) + L" is not valid (0 or 1)"));
    return;
  }
  Load(path, mode);
}

CSequence::~CSequence() = default;

void CSequence::Load(const wchar_t* path, int mode) {
  auto contents = std::make_unique<vglobal::fileio::SampleListContents>();
  if (!OpenDataFile(path, mode, L"sample list", [&](vglobal::fileio::Source& source) {
        return DecodeSampleList(source, *contents);
      })) {
    return;
  }
  m_header = std::move(contents->header);
  m_audit = std::move(contents->audit);
  m_rows = std::move(contents->rows);
  *m_extras = std::move(contents->extras);
}

CSeqRow& CSequence::SeqRow(int index) {
  if (index < 0 || index >= Rows()) {
    m_outside = CSeqRow();
    return m_outside;
  }
  return m_rows[static_cast<std::size_t>(index)];
}

const CSeqRow& CSequence::SeqRow(int index) const {
  if (index < 0 || index >= Rows()) {
    m_outside = CSeqRow();
    return m_outside;
  }
  return m_rows[static_cast<std::size_t>(index)];
}

int CSequence::AddRow(const CSeqRow& row) {
  if (m_readOnly || Rows() >= kMaxRows) return -1;
  m_rows.push_back(row);
  return Rows() - 1;
}

BOOL CSequence::SetRow(int index, const CSeqRow& row) {
  if (m_readOnly || index < 0 || index >= Rows()) return FALSE;
  m_rows[static_cast<std::size_t>(index)] = row;
  return TRUE;
}

BOOL CSequence::RemoveRow(int index) {
  if (m_readOnly || index < 0 || index >= Rows()) return FALSE;
  m_rows.erase(m_rows.begin() + index);
  return TRUE;
}

BOOL CSequence::ImportCsv(const wchar_t* path) {
  if (m_readOnly) {
    SetError(kAccessDenied,
             vglobal::fileio::AtFile(m_path, L"opened for reading only; rows cannot be imported"));
    return FALSE;
  }
  if (!path || !*path) {
    FailOpen(kBadArgument, L"no CSV file name given");
    return FALSE;
  }
  std::string text;
  FileError error;
  switch (vglobal::fileio::ReadWholeFile(vglobal::WideToUtf8(path), vglobal::fileio::kMaxCsvBytes,
                                         text, error)) {
    case vglobal::fileio::OpenResult::kMissing:
      SetError(kNotFound, vglobal::fileio::AtFile(path, L"no such file"));
      return FALSE;
    case vglobal::fileio::OpenResult::kFailed:
      SetError(error.code, vglobal::fileio::AtFile(path, error.message));
      return FALSE;
    case vglobal::fileio::OpenResult::kOpened:
      break;
  }
  std::vector<CSeqRow> rows;
  if (FileError e = vglobal::fileio::ParseSampleListCsv(text, rows)) {
    SetError(e.code, vglobal::fileio::AtFile(path, e.message));
    return FALSE;
  }
  m_rows = std::move(rows);
  ClearError();
  return TRUE;
}

BOOL CSequence::Save() {
  if (m_readOnly) {
    SetError(kAccessDenied, vglobal::fileio::AtFile(m_path,
                                                    L"not saved: the sample list is opened for "
                                                    L"reading only"));
    return FALSE;
  }
  return SaveDataFile(m_header, [&](std::vector<std::uint8_t>& bytes) {
    return vglobal::fileio::EncodeSampleList(m_header, m_audit, m_rows, *m_extras, bytes);
  });
}
