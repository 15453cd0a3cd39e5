// The store file as a file: creating it with the right permissions, and looking at
// its first bytes before SQLite is allowed to open it, so that a file that is not
// one of our stores is never touched by SQLite (which could otherwise roll back a
// journal into it or switch its journal mode).
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

namespace vglobal::settings {

// Stored in the database header (offset 68) of every store file: "ARVS".
inline constexpr std::uint32_t kStoreApplicationId = 0x41525653;

enum class FileState {
  Missing,   // no file at the path
  Empty,     // a zero-length file: a store that nobody has initialised yet
  Database,  // an SQLite database carrying our application id, plausibly whole
  Unusable,  // anything else; the reason says what
};

struct FileInspection {
  FileState state = FileState::Missing;
  std::string reason;  // for Unusable
};

// Reads the header of the file at `path`; never writes.
FileInspection InspectStoreFile(const std::string& path);

// Creates the folder of `path` (and missing parents) with dirMode, then the file with
// exactly fileMode (whatever the umask) unless it already exists. Returns the reason
// of a failure, or an empty string.
std::string CreateStoreFile(const std::string& path, mode_t dirMode, mode_t fileMode);

}  // namespace vglobal::settings
