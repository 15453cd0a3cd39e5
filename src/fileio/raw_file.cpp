// CRawfile: opening and saving a raw file (format in docs/file_formats.md).
#include "vglobal/fileio/raw_file.h"

#include "data_file_codec.h"
#include "data_file_io.h"

using vglobal::fileio::FileError;
using vglobal::fileio::LoadOutcome;

CRawfile::CRawfile(const wchar_t* path, int mode)
    : m_extras(std::make_unique<vglobal::fileio::ContainerExtras>()) {
  m_path = path ? path : L"";
  Load(path, mode);
}

CRawfile::~CRawfile() = default;

void CRawfile::Load(const wchar_t* path, int mode) {
  auto contents = std::make_unique<vglobal::fileio::RawFileContents>();
  FileError error;
  const LoadOutcome outcome = vglobal::fileio::LoadDataFile(
      path, mode, L"raw file",
      [&](vglobal::fileio::Source& source) { return DecodeRawFile(source, *contents); }, error);
  switch (outcome) {
    case LoadOutcome::kNew:
      m_created = TRUE;
      break;
    case LoadOutcome::kFailed:
      m_loadFailed = true;
      SetError(error.code, error.message);
      break;
    case LoadOutcome::kLoaded:
      m_onDisk = true;
      m_header = std::move(contents->header);
      m_audit = std::move(contents->audit);
      m_data = std::move(contents->data);
      m_ms = std::move(contents->ms);
      *m_extras = std::move(contents->extras);
      break;
  }
}

BOOL CRawfile::Save() {
  // What could not be read is not overwritten.
  if (m_loadFailed) {
    SetError(kAccessDenied, vglobal::fileio::RefusedSave(m_path));
    return FALSE;
  }
  const FileError error = vglobal::fileio::SaveDataFile(
      m_path, !m_onDisk, m_header, [&](std::vector<std::uint8_t>& bytes) {
        return vglobal::fileio::EncodeRawFile(m_header, m_audit, m_data, m_ms, *m_extras, bytes);
      });
  if (error) {
    SetError(error.code, error.message);
    return FALSE;
  }
  m_onDisk = true;
  ClearError();
  return TRUE;
}
