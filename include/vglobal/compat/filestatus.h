// CTime and CFileStatus: a file's times, size and attributes as the legacy file
// classes reported them, read on Linux with statx.
//
// Times keep nanoseconds, so two states of a file taken a moment apart compare
// different when any of its times moved. The creation time is the birth time where
// the file system records one, else the inode change time.
#pragma once

#include <cstdint>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

class VGLOBAL_EXPORT CTime {
 public:
  CTime() = default;
  static CTime FromNanoseconds(std::int64_t ns) {
    CTime t;
    t.ns_ = ns;
    return t;
  }
  // Seconds since 1970-01-01 00:00 UTC.
  std::int64_t GetTime() const {
    return ns_ >= 0 ? ns_ / 1000000000 : -((-ns_ + 999999999) / 1000000000);
  }
  std::int64_t GetNanoseconds() const { return ns_; }
  friend bool operator==(const CTime&, const CTime&) = default;

 private:
  std::int64_t ns_ = 0;
};

// File attribute bits of CFileStatus::m_attribute.
enum : BYTE {
  CFILE_NORMAL = 0x00,
  CFILE_READONLY = 0x01,
  CFILE_HIDDEN = 0x02,
  CFILE_SYSTEM = 0x04,
  CFILE_VOLUME = 0x08,
  CFILE_DIRECTORY = 0x10,
  CFILE_ARCHIVE = 0x20,
};

struct CFileStatus {
  CTime m_ctime;  // creation (birth, else status change)
  CTime m_mtime;  // last modification
  CTime m_atime;  // last access
  std::uint64_t m_size = 0;
  BYTE m_attribute = 0;
  BYTE m_padding = 0;
  wchar_t m_szFullName[MAX_PATH] = {};
};

class VGLOBAL_EXPORT CFile {
 public:
  // Fills status for the file at path. Returns FALSE (status untouched) when the
  // path is null, empty, too long for m_szFullName, or the file cannot be examined.
  static BOOL GetStatus(const wchar_t* path, CFileStatus& status);
};
