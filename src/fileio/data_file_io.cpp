// Opening and saving the suite's data files: the file-system side that CRawfile and
// CSequence share (see data_file_io.h).
#include "data_file_io.h"

#include "file_access.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/fileio/base_io.h"
#include "vglobal/platform.h"

namespace vglobal::fileio {

std::wstring AtFile(const wchar_t* path, const std::wstring& message) {
  return std::wstring(path ? path : L"") + L": " + message;
}

std::wstring RefusedSave(const wchar_t* path) {
  return AtFile(path,
                L"not saved: the file could not be opened, and saving would replace what is in it");
}

LoadOutcome LoadDataFile(const wchar_t* path, int mode, const wchar_t* what,
                         const std::function<FileError(Source&)>& decode, FileError& error) {
  if (!path || !*path) {
    error = {CBaseIO::kBadArgument, std::wstring(L"no ") + what + L" name given"};
    return LoadOutcome::kFailed;
  }
  if (mode != 0 && mode != 1) {
    error = {CBaseIO::kBadArgument,
             AtFile(path, L"open mode " + std::to_wstring(mode) + L" is not valid (0 or 1)")};
    return LoadOutcome::kFailed;
  }
  InputFile file;
  FileError e;
  switch (OpenForReading(WideToUtf8(path), file, e)) {
    case OpenResult::kMissing:
      if (mode == 0) return LoadOutcome::kNew;
      error = {CBaseIO::kNotFound, AtFile(path, L"no such file")};
      return LoadOutcome::kFailed;
    case OpenResult::kFailed:
      error = {e.code, AtFile(path, e.message)};
      return LoadOutcome::kFailed;
    case OpenResult::kOpened:
      break;
  }
  FdSource source(file.fd(), file.size());
  if (FileError d = decode(source)) {
    error = {d.code, AtFile(path, d.message)};
    return LoadOutcome::kFailed;
  }
  return LoadOutcome::kLoaded;
}

FileError SaveDataFile(const wchar_t* path, bool firstSave, CHeader& header,
                       const std::function<FileError(std::vector<std::uint8_t>&)>& encode) {
  const CHeader before = header;
  header.StampSave(firstSave, CurrentFileTime(), GetPlatform().LogonName());
  std::vector<std::uint8_t> bytes;
  FileError e = encode(bytes);
  if (e)
    e.message = AtFile(path, L"not saved: " + e.message);
  else if ((e = WriteAtomically(WideToUtf8(path), bytes)))
    e.message = AtFile(path, e.message);
  if (e) header = before;
  return e;
}

}  // namespace vglobal::fileio
