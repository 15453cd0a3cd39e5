// Creation and inspection of store files with plain POSIX calls.
#include "settings/sqlite_file.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace vglobal::settings {
namespace {

constexpr std::size_t kHeaderSize = 100;
constexpr char kMagic[] = "SQLite format 3";  // with its terminating zero: 16 bytes

std::uint32_t Be32(const unsigned char* p) {
  return (std::uint32_t{p[0]} << 24) | (std::uint32_t{p[1]} << 16) | (std::uint32_t{p[2]} << 8) |
         std::uint32_t{p[3]};
}

std::string ErrnoText(int error) {
  return std::strerror(error);
}

// True when a journal or write-ahead log beside the store holds data. While one does,
// the file itself may legitimately lag behind its header (a checkpoint or commit in
// progress in another process writes page 1 before the pages that follow it).
bool CompanionHasData(const std::string& path) {
  struct stat st {};
  return stat(path.c_str(), &st) == 0 && st.st_size > 0;
}

bool ReadFully(int fd, unsigned char* buffer, std::size_t size) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t n = pread(fd, buffer + done, size - done, static_cast<off_t>(done));
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

FileInspection InspectStoreFile(const std::string& path) {
  const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
  if (fd < 0) {
    if (errno == ENOENT) return {FileState::Missing, {}};
    return {FileState::Unusable, "cannot be read: " + ErrnoText(errno)};
  }
  struct stat st {};
  unsigned char header[kHeaderSize];
  FileInspection result{FileState::Database, {}};
  if (fstat(fd, &st) != 0) {
    result = {FileState::Unusable, "cannot be read: " + ErrnoText(errno)};
  } else if (!S_ISREG(st.st_mode)) {
    result = {FileState::Unusable, "not a regular file"};
  } else if (st.st_size == 0) {
    result = {FileState::Empty, {}};
  } else if (!ReadFully(fd, header, kHeaderSize) ||
             std::memcmp(header, kMagic, sizeof kMagic) != 0) {
    result = {FileState::Unusable, "not a settings store (not an SQLite database)"};
  } else if (const std::uint32_t id = Be32(header + 68); id != kStoreApplicationId) {
    char text[96];
    std::snprintf(text, sizeof text,
                  "not a settings store (an SQLite database of another program, application id "
                  "0x%08X)",
                  static_cast<unsigned>(id));
    result = {FileState::Unusable, text};
  } else {
    const std::uint32_t rawPageSize = (std::uint32_t{header[16]} << 8) | header[17];
    const std::uint32_t pageSize = rawPageSize == 1 ? 65536 : rawPageSize;
    const bool powerOfTwo =
        pageSize >= 512 && pageSize <= 65536 && (pageSize & (pageSize - 1)) == 0;
    // The page count in the header is trustworthy only when the "version valid for"
    // number matches the change counter.
    const bool countValid = Be32(header + 92) == Be32(header + 24);
    const std::uint64_t expected = std::uint64_t{Be32(header + 28)} * pageSize;
    if (!powerOfTwo) {
      result = {FileState::Unusable, "corrupt: invalid page size in the database header"};
    } else if (countValid && expected > static_cast<std::uint64_t>(st.st_size) &&
               !CompanionHasData(path + "-wal") && !CompanionHasData(path + "-journal")) {
      result = {FileState::Unusable, "corrupt: truncated (the header describes " +
                                         std::to_string(expected) + " bytes, the file has " +
                                         std::to_string(st.st_size) + ")"};
    }
  }
  close(fd);
  return result;
}

std::string CreateStoreFile(const std::string& path, mode_t dirMode, mode_t fileMode) {
  const std::size_t slash = path.rfind('/');
  if (slash != std::string::npos && slash > 0) {
    const std::string dir = path.substr(0, slash);
    for (std::size_t pos = dir.find('/', 1);; pos = dir.find('/', pos + 1)) {
      const std::string prefix = dir.substr(0, pos);
      if (mkdir(prefix.c_str(), dirMode) != 0 && errno != EEXIST) {
        return "cannot create folder " + prefix + ": " + ErrnoText(errno);
      }
      if (pos == std::string::npos) break;
    }
  }
  // O_EXCL: of two processes starting at once, exactly one creates the file; the other
  // finds it (empty or initialised) and proceeds as with any existing store.
  const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, fileMode);
  if (fd < 0) {
    if (errno == EEXIST) return {};
    return "cannot create: " + ErrnoText(errno);
  }
  std::string error;
  if (fchmod(fd, fileMode) != 0) error = "cannot set permissions: " + ErrnoText(errno);
  close(fd);
  return error;
}

}  // namespace vglobal::settings
