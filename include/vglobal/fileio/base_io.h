// CBaseIO: what every data file object of the suite (raw file, sample list) reports
// about its opening: whether it is in error (with a code and a message saying what is
// wrong and where), and whether opening it created the file.
//
// A file object never throws from its constructor: a file that is missing, truncated,
// corrupt, of a newer version or not ours leaves the object with IsError() set. A
// failed open creates nothing on disk.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

class CHeader;
namespace vglobal::fileio {
class Source;
struct FileError;
}  // namespace vglobal::fileio

class VGLOBAL_EXPORT CBaseIO {
 public:
  virtual ~CBaseIO();

  // Nonzero when the object could not open (or create) its file.
  BOOL IsError() const { return m_error; }
  // The error number (one of the codes below); 0 when there is no error.
  DWORD GetErrorCode() const { return m_errorCode; }
  // What is wrong and where (file, offset or line); empty when there is no error.
  CString GetErrorMessage() const { return m_errorMessage; }
  // Nonzero when opening found no file and made a new one.
  BOOL CreatedFile() const { return m_created; }
  const CString& GetPathName() const { return m_path; }

  // Error codes of the file objects.
  enum : DWORD {
    kNoError = 0,
    kNotFound = 0x02,      // no such file (and the object was not to create it)
    kAccessDenied = 0x05,  // the file or its folder cannot be read or written
    kNotOurFormat = 0x0B,  // not a file of this kind
    kTruncated = 0x1E,     // the file ends before its contents do
    kCorrupt = 0x1F,       // a checksum or a structure does not hold
    kNewerVersion = 0x20,  // written by a newer version of the suite
    kTooLarge = 0x21,      // a count or size beyond what this version accepts
    kWriteFailed = 0x1D,   // the file could not be written
    kBadArgument = 0x57,   // an open mode, path or other argument the object cannot take
  };

 protected:
  using Decoder = std::function<vglobal::fileio::FileError(vglobal::fileio::Source&)>;
  using Encoder = std::function<vglobal::fileio::FileError(std::vector<std::uint8_t>&)>;

  CBaseIO() = default;
  void SetError(DWORD code, const CString& message);
  void ClearError();

  // Opens the file at `path` with `decode` (`what` names the kind of file in
  // messages). True when its contents were read; false when the open made a new file
  // (mode 0, CreatedFile()) or failed (the error is set, and Save refuses to write
  // over what could not be read).
  bool OpenDataFile(const wchar_t* path, int mode, const wchar_t* what, const Decoder& decode);
  // Stamps `header` for this save and replaces the file at m_path atomically with
  // what `encode` writes. FALSE with the error set when it could not.
  BOOL SaveDataFile(CHeader& header, const Encoder& encode);
  // Records an open that could not be made: the error is set, and Save refuses to
  // write over the file at the path.
  void FailOpen(DWORD code, const CString& message);

  CString m_path;
  BOOL m_created = FALSE;

 private:
  bool m_onDisk = false;  // a file is at the path (opened, or saved since)
  bool m_loadFailed = false;
  BOOL m_error = FALSE;
  DWORD m_errorCode = 0;
  CString m_errorMessage;
};
