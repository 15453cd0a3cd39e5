// CFile::GetStatus over statx.
#include "vglobal/compat/filestatus.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cwchar>
#include <filesystem>
#include <string>

#include "vglobal/compat/unicode.h"

namespace {

std::int64_t Nanoseconds(const struct statx_timestamp& t) {
  return static_cast<std::int64_t>(t.tv_sec) * 1000000000 + t.tv_nsec;
}

BYTE Attributes(const struct statx& sx, const std::string& path) {
  BYTE a = CFILE_NORMAL;
  if (S_ISDIR(sx.stx_mode)) a |= CFILE_DIRECTORY;
  // Read-only means this user cannot write it, as the attribute meant to the user.
  if ((sx.stx_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) a |= CFILE_READONLY;
  auto slash = path.find_last_of('/');
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  if (!name.empty() && name[0] == '.' && name != "." && name != "..") a |= CFILE_HIDDEN;
  if (!S_ISDIR(sx.stx_mode) && !S_ISREG(sx.stx_mode)) a |= CFILE_SYSTEM;
  return a;
}

}  // namespace

BOOL CFile::GetStatus(const wchar_t* path, CFileStatus& status) {
  if (!path || !*path) return FALSE;
  std::string narrow = vglobal::WideToUtf8(path);
  struct statx sx {};
  if (statx(AT_FDCWD, narrow.c_str(), 0,
            STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_ATIME | STATX_MTIME | STATX_CTIME |
                STATX_BTIME,
            &sx) != 0)
    return FALSE;

  std::error_code ec;
  std::filesystem::path full = std::filesystem::absolute(narrow, ec);
  std::wstring fullName =
      ec ? std::wstring(path) : vglobal::Utf8ToWide(full.lexically_normal().string());
  if (fullName.size() >= static_cast<std::size_t>(MAX_PATH)) return FALSE;

  CFileStatus s;
  s.m_ctime = CTime::FromNanoseconds((sx.stx_mask & STATX_BTIME) ? Nanoseconds(sx.stx_btime)
                                                                 : Nanoseconds(sx.stx_ctime));
  s.m_mtime = CTime::FromNanoseconds(Nanoseconds(sx.stx_mtime));
  s.m_atime = CTime::FromNanoseconds(Nanoseconds(sx.stx_atime));
  s.m_size = sx.stx_size;
  s.m_attribute = Attributes(sx, narrow);
  std::wmemcpy(s.m_szFullName, fullName.c_str(), fullName.size() + 1);
  status = s;
  return TRUE;
}
