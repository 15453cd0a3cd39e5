// CBaseIO: the error state and the open-and-save life cycle shared by the data file
// objects.
#include "vglobal/fileio/base_io.h"

#include "data_file_io.h"

CBaseIO::~CBaseIO() = default;

void CBaseIO::SetError(DWORD code, const CString& message) {
  m_error = TRUE;
  m_errorCode = code;
  m_errorMessage = message;
}

void CBaseIO::ClearError() {
  m_error = FALSE;
  m_errorCode = kNoError;
  m_errorMessage.Empty();
}

bool CBaseIO::OpenDataFile(const wchar_t* path, int mode, const wchar_t* what,
                           const Decoder& decode) {
  using vglobal::fileio::LoadOutcome;
  vglobal::fileio::FileError error;
  switch (vglobal::fileio::LoadDataFile(path, mode, what, decode, error)) {
    case LoadOutcome::kNew:
      m_created = TRUE;
      return false;
    case LoadOutcome::kFailed:
      FailOpen(error.code, error.message);
      return false;
    case LoadOutcome::kLoaded:
      m_onDisk = true;
      return true;
  }
  return false;
}

void CBaseIO::FailOpen(DWORD code, const CString& message) {
  m_loadFailed = true;
  SetError(code, message);
}

BOOL CBaseIO::SaveDataFile(CHeader& header, const Encoder& encode) {
  // What could not be read is not overwritten.
  if (m_loadFailed) {
    SetError(kAccessDenied, vglobal::fileio::RefusedSave(m_path));
    return FALSE;
  }
  const vglobal::fileio::FileError error =
      vglobal::fileio::SaveDataFile(m_path, !m_onDisk, header, encode);
  if (error) {
    SetError(error.code, error.message);
    return FALSE;
  }
  m_onDisk = true;
  ClearError();
  return TRUE;
}
