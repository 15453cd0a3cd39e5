// CFileCheck: remembers the status of a file (its baseline) and answers whether the
// file has changed since.
//
// Contract:
// - A new check has no baseline and its stored times are zero. Changed takes a
//   baseline only when asked to update; without a baseline every call answers 1.
// - With a baseline, the file counts as changed when its creation, modification or
//   last-access time (to the nanosecond), its size or its attribute byte differ, or
//   when its full path name differs other than by letter case. The last-access time
//   is compared on purpose: a file that was only read may count as changed.
// - A file that cannot be examined (missing, unreadable, null or overlong path) has an
//   all-zero status: it counts as changed against the baseline of a real file, and as
//   unchanged against a baseline that was itself taken of a file that could not be
//   examined.
// - No locks: one check is used by one thread at a time.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/filestatus.h"
#include "vglobal/export.h"

class VGLOBAL_EXPORT CFileCheck : public CObject {
 public:
  CFileCheck();
  ~CFileCheck() override;

  // 1 when the file at `path` is to be treated as changed, else 0. With `update` set,
  // the file's current status becomes the baseline, changed or not.
  int Changed(const wchar_t* path, int update);
  // Nonzero once a baseline has been taken (and until Reset).
  int Valid() const;
  // Forgets the baseline: the next Changed answers 1.
  void Reset();

 private:
  int m_baselineValid;
  // No operation uses it; it keeps the object's documented layout.
  CString m_unused;
  CFileStatus m_status;
};
