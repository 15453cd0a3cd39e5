// Creation and inspection of store files with plain POSIX calls.
#include "settings/sqlite_file.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
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

// What a path names that is not a regular file, for the reason of the refusal.
std::string NotRegularFile(mode_t mode) {
  const char* kind = S_ISDIR(mode)    ? "a folder"
                     : S_ISFIFO(mode) ? "a FIFO"
                     : S_ISCHR(mode)  ? "a character device"
                     : S_ISBLK(mode)  ? "a block device"
                     : S_ISSOCK(mode) ? "a socket"
                                      : "of an unknown kind";
  return std::string("not a regular file (") + kind + ")";
}

// The file's size and header as read at one moment, with whether a journal or
// write-ahead log beside it held data just after.
struct Reading {
  std::uint64_t size = 0;
  std::array<unsigned char, kHeaderSize> header{};
  bool headerRead = false;
  bool companionData = false;
  bool operator==(const Reading&) const = default;
};

// Fills `reading` from the open file; the reason when the file cannot be read or is
// no longer a regular file (the path may have been swapped since it was looked at).
std::string Read(int fd, const std::string& path, Reading& reading) {
  struct stat st {};
  if (fstat(fd, &st) != 0) return "cannot be read: " + ErrnoText(errno);
  if (!S_ISREG(st.st_mode)) return NotRegularFile(st.st_mode);
  reading.size = static_cast<std::uint64_t>(st.st_size);
  reading.headerRead = reading.size > 0 && ReadFully(fd, reading.header.data(), kHeaderSize);
  // Looked at after the file: data that arrived in the file meanwhile came from a
  // companion that is still there now, or the next reading differs from this one.
  reading.companionData = CompanionHasData(path + "-wal") || CompanionHasData(path + "-journal");
  return {};
}

std::string Bytes(std::uint64_t n) {
  return std::to_string(n) + " bytes";
}

// The damage the header shows, measured against itself and the file's size: an empty
// string when it is consistent. SQLite meets most such damage only when a statement
// reaches the pages concerned, after writes may already have gone through.
std::string HeaderDamage(const Reading& r) {
  const unsigned char* header = r.header.data();
  const std::uint32_t rawPageSize = (std::uint32_t{header[16]} << 8) | header[17];
  const std::uint32_t pageSize = rawPageSize == 1 ? 65536 : rawPageSize;
  if (pageSize < 512 || pageSize > 65536 || (pageSize & (pageSize - 1)) != 0) {
    return "corrupt: invalid page size in the database header";
  }
  // The page count in the header is trustworthy only when the "version valid for"
  // number matches the change counter; SQLite itself reads a zero count as unknown.
  const std::uint32_t headerPages = Be32(header + 92) == Be32(header + 24) ? Be32(header + 28) : 0;
  // While a journal or log holds data, a commit or checkpoint may be moving pages
  // into the file: its size says nothing then.
  const bool sizeMeaningful = !r.companionData;
  if (sizeMeaningful) {
    const std::uint64_t described = std::uint64_t{headerPages} * pageSize;
    if (headerPages != 0 && described > r.size) {
      return "corrupt: truncated (the header describes " + Bytes(described) + ", the file has " +
             Bytes(r.size) + ")";
    }
    if (headerPages != 0 && described < r.size) {
      return "corrupt: longer than its header describes (" + Bytes(described) + "), the file has " +
             Bytes(r.size);
    }
    if (r.size % pageSize != 0) {
      return "corrupt: the file's " + Bytes(r.size) + " are not a whole number of " +
             std::to_string(pageSize) + "-byte pages";
    }
  }
  const std::uint64_t pages = headerPages != 0 ? headerPages
                              : sizeMeaningful ? r.size / pageSize
                                               : 0;
  const std::uint32_t firstTrunk = Be32(header + 32);
  const std::uint32_t freePages = Be32(header + 36);
  if ((firstTrunk == 0) != (freePages == 0)) {
    return "corrupt: the header's list of free pages and its count of them disagree";
  }
  if (pages != 0 && firstTrunk > pages) {
    return "corrupt: the list of free pages starts at page " + std::to_string(firstTrunk) +
           ", beyond the " + std::to_string(pages) + " pages of the file";
  }
  if (pages != 0 && freePages >= pages) {
    return "corrupt: the header counts " + std::to_string(freePages) + " free pages of " +
           std::to_string(pages);
  }
  return {};
}

// The verdict on one reading of a file that is a regular file.
FileInspection Judge(const Reading& r) {
  if (r.size == 0) return {FileState::Empty, {}};
  if (!r.headerRead || std::memcmp(r.header.data(), kMagic, sizeof kMagic) != 0) {
    return {FileState::Unusable, "not a settings store (not an SQLite database)"};
  }
  if (const std::uint32_t id = Be32(r.header.data() + 68); id != kStoreApplicationId) {
    char text[96];
    std::snprintf(text, sizeof text,
                  "not a settings store (an SQLite database of another program, application id "
                  "0x%08X)",
                  static_cast<unsigned>(id));
    return {FileState::Unusable, text};
  }
  if (std::string damage = HeaderDamage(r); !damage.empty()) {
    return {FileState::Unusable, std::move(damage)};
  }
  return {FileState::Database, {}};
}

}  // namespace

FileInspection InspectStoreFile(const std::string& path) {
  // Looked at before it is opened: opening a FIFO for reading waits for a writer, and
  // opening a device may act on it.
  struct stat st {};
  if (stat(path.c_str(), &st) != 0) {
    if (errno == ENOENT) return {FileState::Missing, {}};
    return {FileState::Unusable, "cannot be read: " + ErrnoText(errno)};
  }
  if (!S_ISREG(st.st_mode)) return {FileState::Unusable, NotRegularFile(st.st_mode)};
  // Should the path have become something else since, O_NONBLOCK keeps the open from
  // waiting and O_NOCTTY keeps a terminal from becoming ours; Read looks again.
  const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  if (fd < 0) {
    if (errno == ENOENT) return {FileState::Missing, {}};
    return {FileState::Unusable, "cannot be read: " + ErrnoText(errno)};
  }
  // A writer in another process may be between two steps of a commit or checkpoint
  // at the moment of reading: a fault is believed only when a second reading finds
  // the file exactly as the first did.
  constexpr int kMaxReadings = 4;
  Reading reading;
  FileInspection result;
  for (int n = 0; n < kMaxReadings; ++n) {
    Reading next;
    if (std::string error = Read(fd, path, next); !error.empty()) {
      result = {FileState::Unusable, std::move(error)};
      break;
    }
    const bool settled = n > 0 && next == reading;
    reading = next;
    result = Judge(reading);
    if (result.state != FileState::Unusable || settled) break;
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
  // finds it (empty or initialised) and proceeds as with any existing store. Nor does
  // it ever open what is already there: a FIFO or device at the path stays unopened
  // here and is refused by InspectStoreFile.
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
