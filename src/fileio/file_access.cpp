// Opening and atomically replacing the data files (see file_access.h).
#include "file_access.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "vglobal/compat/unicode.h"
#include "vglobal/fileio/base_io.h"

namespace vglobal::fileio {

namespace {

std::wstring SystemText(int error) {
  char buffer[256];
  // GNU strerror_r returns the text, which may or may not be in the buffer.
  const char* text = strerror_r(error, buffer, sizeof buffer);
  return Utf8ToWide(text);
}

DWORD ReadErrorCode(int error) {
  return (error == EACCES || error == EPERM) ? CBaseIO::kAccessDenied : CBaseIO::kNotFound;
}

DWORD WriteErrorCode(int error) {
  return (error == EACCES || error == EPERM || error == EROFS) ? CBaseIO::kAccessDenied
                                                               : CBaseIO::kWriteFailed;
}

bool WriteAll(int fd, const std::uint8_t* data, std::size_t size) {
  while (size > 0) {
    ssize_t n = write(fd, data, size);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    data += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

InputFile::~InputFile() {
  if (fd_ >= 0) close(fd_);
}

OpenResult OpenForReading(const std::string& path, InputFile& file, FileError& error) {
  // Non-blocking so that a FIFO at the path cannot hang the open; refused below.
  int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  if (fd < 0) {
    const int e = errno;
    if (e == ENOENT || e == ENOTDIR) return OpenResult::kMissing;
    error = {ReadErrorCode(e), L"cannot be opened: " + SystemText(e)};
    return OpenResult::kFailed;
  }
  struct stat st {};
  if (fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
    close(fd);
    error = {CBaseIO::kNotOurFormat, L"not a regular file (a folder, device or pipe)"};
    return OpenResult::kFailed;
  }
  file.fd_ = fd;
  file.size_ = static_cast<std::uint64_t>(st.st_size);
  return OpenResult::kOpened;
}

OpenResult ReadWholeFile(const std::string& path, std::size_t cap, std::string& out,
                         FileError& error) {
  InputFile file;
  OpenResult result = OpenForReading(path, file, error);
  if (result != OpenResult::kOpened) return result;
  if (file.size() > cap) {
    error = {CBaseIO::kTooLarge, L"the file is " + std::to_wstring(file.size()) +
                                     L" bytes long; at most " + std::to_wstring(cap) +
                                     L" are accepted"};
    return OpenResult::kFailed;
  }
  out.resize(static_cast<std::size_t>(file.size()));
  std::size_t done = 0;
  while (done < out.size()) {
    ssize_t n = pread(file.fd(), out.data() + done, out.size() - done, static_cast<off_t>(done));
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      error = {CBaseIO::kTruncated, L"truncated: the file ended at offset " +
                                        std::to_wstring(done) + L" while being read"};
      return OpenResult::kFailed;
    }
    done += static_cast<std::size_t>(n);
  }
  return OpenResult::kOpened;
}

FileError WriteAtomically(const std::string& requested, std::span<const std::uint8_t> bytes) {
  // A path that is a symbolic link saves to the file it points to, so the link stays.
  std::string path = requested;
  struct stat st {};
  if (lstat(path.c_str(), &st) == 0 && S_ISLNK(st.st_mode)) {
    char* resolved = realpath(path.c_str(), nullptr);
    if (resolved) {
      path = resolved;
      std::free(resolved);
    }
  }
  const bool exists = stat(path.c_str(), &st) == 0;
  if (exists && !S_ISREG(st.st_mode))
    return {CBaseIO::kWriteFailed, L"cannot be saved: the path is not a regular file"};

  const auto slash = path.find_last_of('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);

  static std::atomic<unsigned> counter{0};
  std::string temp;
  int fd = -1;
  for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
    temp = (slash == std::string::npos ? std::string() : folder) + "." + name + ".tmp-" +
           std::to_string(getpid()) + "-" + std::to_string(counter++);
    fd = open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0 && errno != EEXIST) break;
  }
  if (fd < 0) {
    const int e = errno;
    return {WriteErrorCode(e), L"cannot be saved: no temporary file can be made in the folder " +
                                   Utf8ToWide(folder) + L": " + SystemText(e)};
  }

  int e = 0;
  if (exists && fchmod(fd, st.st_mode & 07777) != 0) e = errno;
  if (e == 0 && !WriteAll(fd, bytes.data(), bytes.size())) e = errno ? errno : EIO;
  if (e == 0 && fsync(fd) != 0) e = errno;
  if (close(fd) != 0 && e == 0) e = errno;
  if (e == 0 && rename(temp.c_str(), path.c_str()) != 0) e = errno;
  if (e != 0) {
    unlink(temp.c_str());
    return {WriteErrorCode(e), L"cannot be saved: " + SystemText(e)};
  }
  // The rename itself reaches the disk with the folder.
  int dir = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir >= 0) {
    fsync(dir);
    close(dir);
  }
  return {};
}

CTime CurrentFileTime() {
  timespec ts{};
  clock_gettime(CLOCK_REALTIME, &ts);
  return CTime::FromNanoseconds(static_cast<std::int64_t>(ts.tv_sec) * 1000000000 + ts.tv_nsec);
}

}  // namespace vglobal::fileio
