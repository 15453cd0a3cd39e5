// The file-system side shared by CRawfile and CSequence: opening a data file for its
// decoder, saving encoded bytes atomically, and the wording of their errors.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "container.h"
#include "vglobal/fileio/file_header.h"

namespace vglobal::fileio {

// How a data file object came to be at construction.
enum class LoadOutcome { kLoaded, kNew, kFailed };

// Opens the file at path for a data file object (`what` names the kind in messages:
// "raw file"). mode 0 makes a missing file kNew, mode 1 an error (kNotFound); a null
// or empty path or another mode is kBadArgument. decode is called with the open file.
// The error message names the file.
LoadOutcome LoadDataFile(const wchar_t* path, int mode, const wchar_t* what,
                         const std::function<FileError(Source&)>& decode, FileError& error);

// The save of a data file object: stamps the header for a save by the current user
// now (firstSave: the file is not on disk yet), encodes the file and replaces the
// file at path atomically. On failure the header is as it was and nothing changed on
// disk; the error message names the file.
FileError SaveDataFile(const wchar_t* path, bool firstSave, CHeader& header,
                       const std::function<FileError(std::vector<std::uint8_t>&)>& encode);

// The message of an error, prefixed with the file's name.
std::wstring AtFile(const wchar_t* path, const std::wstring& message);
// The message of a save refused because the file could not be read when opened.
std::wstring RefusedSave(const wchar_t* path);

}  // namespace vglobal::fileio
