// CFileCheck: a file's stored status against its current one.
#include "vglobal/messages/file_check.h"

#include <algorithm>
#include <cstddef>

#include "vglobal/compat/unicode.h"

namespace {

// The legacy comparison of names ran over at most 520 characters; the stored name holds
// fewer, so the bound is the array itself and nothing past it is ever read.
constexpr std::size_t kNameCompareLimit = 520;

// The status of the file at `path`, or an all-zero status when it cannot be examined
// (CFile::GetStatus leaves its argument alone on failure).
CFileStatus CurrentStatus(const wchar_t* path) {
  CFileStatus status;
  CFile::GetStatus(path, status);
  return status;
}

bool SameNameIgnoringCase(const wchar_t (&a)[MAX_PATH], const wchar_t (&b)[MAX_PATH]) {
  const std::size_t limit = std::min<std::size_t>(kNameCompareLimit, MAX_PATH);
  for (std::size_t i = 0; i < limit; ++i) {
    if (vglobal::FoldCase(a[i]) != vglobal::FoldCase(b[i])) return false;
    if (a[i] == L'\0') return true;
  }
  return true;
}

bool SameStatus(const CFileStatus& a, const CFileStatus& b) {
  return a.m_ctime == b.m_ctime && a.m_mtime == b.m_mtime && a.m_atime == b.m_atime &&
         a.m_size == b.m_size && a.m_attribute == b.m_attribute &&
         SameNameIgnoringCase(a.m_szFullName, b.m_szFullName);
}

}  // namespace

CFileCheck::CFileCheck() : m_baselineValid(0) {}

CFileCheck::~CFileCheck() = default;

int CFileCheck::Changed(const wchar_t* path, int update) {
  if (!m_baselineValid) {
    if (update) {
      m_status = CurrentStatus(path);
      m_baselineValid = 1;
    }
    return 1;
  }
  const CFileStatus current = CurrentStatus(path);
  const int changed = SameStatus(m_status, current) ? 0 : 1;
  if (update) m_status = current;
  return changed;
}

int CFileCheck::Valid() const {
  return m_baselineValid;
}

void CFileCheck::Reset() {
  m_baselineValid = 0;
}
