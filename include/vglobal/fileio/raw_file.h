// CRawfile: a raw data file of the suite: its header, audit trail and the
// instrument records (status log, tune data, trailer extra data). The on-disk format
// is described in docs/file_formats.md.
//
// Contract:
// - Construction never throws (except std::bad_alloc) and never writes to disk.
//   mode 0: open the file at path; when no file is there the object is a new, empty
//   raw file (CreatedFile() TRUE) that exists only in memory until Save. mode 1: open
//   an existing file only; a missing one sets IsError with kNotFound. Any other mode,
//   a null or empty path: IsError with kBadArgument.
// - A file that cannot be read, is truncated, corrupt, of a newer format version or
//   not a raw file leaves the object in error (code and a message naming the file and
//   the offset or section at fault) and its contents empty.
// - Save writes the whole file atomically: a temporary file in the same folder is
//   written, flushed to disk and renamed over the path, so a failed save leaves the
//   previous file as it was. It stamps the header (creation on the first save of a
//   new file, else modification, editor and save count). Returns TRUE on success;
//   on failure FALSE with the error set (a later successful save clears it). An object
//   whose opening failed refuses to save, so it cannot overwrite what it could not read.
// - Sections of kinds this version does not know are kept and written back unchanged.
// - One object per thread; the object owns everything it hands out by reference.
#pragma once

#include <cstdint>
#include <memory>

#include "vglobal/compat/types.h"
#include "vglobal/export.h"
#include "vglobal/fileio/audit_trail.h"
#include "vglobal/fileio/base_io.h"
#include "vglobal/fileio/file_header.h"
#include "vglobal/fileio/virtual_device.h"

namespace vglobal::fileio {
struct ContainerExtras;
}

class VGLOBAL_EXPORT CRawfile : public CBaseIO {
 public:
  // Open modes.
  static constexpr int kOpenOrNew = 0;
  static constexpr int kOpenExisting = 1;

  CRawfile(const wchar_t* path, int mode);
  ~CRawfile() override;
  CRawfile(const CRawfile&) = delete;
  CRawfile& operator=(const CRawfile&) = delete;

  CHeader& GetHeader() { return m_header; }
  const CHeader& GetHeader() const { return m_header; }
  CAuditTrail& GetAuditTrail() { return m_audit; }
  const CAuditTrail& GetAuditTrail() const { return m_audit; }
  CVirtualData& GetVirtualData() { return m_data; }
  const CVirtualData& GetVirtualData() const { return m_data; }
  CVirtualMS& GetVirtualMS() { return m_ms; }
  const CVirtualMS& GetVirtualMS() const { return m_ms; }

  BOOL Save();

 private:
  void Load(const wchar_t* path, int mode);

  CHeader m_header;
  CAuditTrail m_audit;
  CVirtualData m_data;
  CVirtualMS m_ms;
  std::unique_ptr<vglobal::fileio::ContainerExtras> m_extras;
};
