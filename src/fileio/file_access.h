// The operating-system side of the data files: opening a file to read it (telling a
// missing file from one that cannot be read) and replacing a file atomically.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "byte_codec.h"
#include "vglobal/compat/filestatus.h"

namespace vglobal::fileio {

enum class OpenResult { kOpened, kMissing, kFailed };

// A regular file open for reading; closed with the object.
class InputFile {
 public:
  InputFile() = default;
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  int fd() const { return fd_; }
  std::uint64_t size() const { return size_; }

 private:
  friend OpenResult OpenForReading(const std::string& path, InputFile& file, FileError& error);
  int fd_ = -1;
  std::uint64_t size_ = 0;
};

// Opens path (UTF-8) for reading. kMissing: nothing is at the path (or a folder on
// the way is missing). kFailed: error says why (not a regular file, no permission).
OpenResult OpenForReading(const std::string& path, InputFile& file, FileError& error);

// Reads the whole file at path, refusing one larger than cap bytes (kTooLarge).
OpenResult ReadWholeFile(const std::string& path, std::size_t cap, std::string& out,
                         FileError& error);

// Replaces the file at path by bytes: writes a temporary file in the same folder,
// flushes it to disk, gives it the old file's permissions and renames it over the
// path. On failure the temporary file is removed and the old file is untouched; the
// error is kAccessDenied (no permission, read-only file system) or kWriteFailed.
FileError WriteAtomically(const std::string& path, std::span<const std::uint8_t> bytes);

// The current time as a file time (nanoseconds since 1970-01-01 UTC).
CTime CurrentFileTime();

}  // namespace vglobal::fileio
