// Inside the file-open checks: the wait between open attempts, which tests replace so
// that they need not sleep, and the way tests reach the judging steps. Private to the
// library and its tests.
#pragma once

#include "vglobal/messages/file_open.h"

namespace vglobal {

// Blocks the calling thread for `milliseconds`.
using RetryWait = void (*)(unsigned milliseconds);

// Installs the wait used between open attempts and returns the one it replaces. Null
// puts back the real one (a sleep of the calling thread).
RetryWait SetFileOpenRetryWait(RetryWait wait);

struct FileOpenAccess {
  static int ChkIsFileOpenOk(CBaseIO* file, CString& errorMessage, unsigned int& errorCode,
                             int mustExist) {
    CFileOpen opener;
    return opener.ChkIsFileOpenOk(file, errorMessage, errorCode, mustExist);
  }
  static CMessage* ConstructFileErrMsg(int failure, const wchar_t* path, unsigned int errorCode,
                                       const wchar_t* errorMessage) {
    CFileOpen opener;
    return opener.ConstructFileErrMsg(failure, path, errorCode, errorMessage);
  }
};

}  // namespace vglobal
