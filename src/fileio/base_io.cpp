// CBaseIO: the error state shared by the data file objects.
#include "vglobal/fileio/base_io.h"

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
