// CFileOpen: opens a raw data file or a sequence file, retrying a given number of
// times, and turns every way in which the open can fail into a CMessage that it throws.
//
// Contract:
// - Open types: 1 = the file is expected to be new, 3 = it is expected to exist, 6 (for
//   sequence files only) = it is expected to exist and is opened in the sequence's
//   alternative mode. Any other value is refused before anything is opened.
// - Up to retries + 1 attempts; every attempt but the first waits one second first, so
//   the calling thread blocks for `retries` seconds at most. A negative `retries`
//   counts as 0: one attempt, no wait.
// - On success the open file object is returned; the caller owns it and deletes it.
//   A file expected to be new is returned as the new, empty, in-memory object the data
//   file module made for it: nothing is on disk until it is saved.
// - On failure every file object made on the way has been deleted, nothing has been
//   created on disk, and a heap CMessage of type EMSG_ERROR saying why (the path on its
//   first line) is thrown as CMessage*; the catcher owns it and deletes it. Only when
//   that message cannot be allocated is null returned instead, without throwing.
// - A null path is taken as the empty path, which names no file: the data file module
//   reports it and the open fails with its error.
// - No shared state, no locks; any thread may open files.
#pragma once

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"
#include "vglobal/fileio/base_io.h"
#include "vglobal/fileio/raw_file.h"
#include "vglobal/fileio/sequence.h"
#include "vglobal/messages/message.h"

namespace vglobal {
struct FileOpenAccess;
}

class VGLOBAL_EXPORT CFileOpen {
 public:
  CFileOpen() {}
  CFileOpen(const CFileOpen&) {}
  CFileOpen& operator=(const CFileOpen&) { return *this; }
  ~CFileOpen() {}

  // Opens the raw data file at `path` with open type 1 or 3 (see above).
  CRawfile* OpenRawFileAndChkForErrors(const wchar_t* path, int openType, int retries);
  // Opens the sequence file at `path` with open type 1, 3 or 6 (see above).
  CSequence* OpenSeqFileAndChkForErrors(const wchar_t* path, int openType, int retries);

 private:
  friend struct vglobal::FileOpenAccess;

  // Judges one attempt and returns its failure code (0 = the file is open and usable):
  // 1 no object, 2 the object reports an error (its code and text are copied out), 3 the
  // object had to create a file that `mustExist`, 4 a file expected to be new exists.
  // On every failure but 1 the object is deleted here.
  int ChkIsFileOpenOk(CBaseIO* file, CString& errorMessage, unsigned int& errorCode, int mustExist);
  // The message for failure code `failure` (6 = illegal open type; codes without a text
  // of their own give "Unknown failure mode opening file"). Code 0 is no failure and has
  // no message: null. Null too when the message cannot be allocated. The caller owns it.
  CMessage* ConstructFileErrMsg(int failure, const wchar_t* path, unsigned int errorCode,
                                const wchar_t* errorMessage);
};
