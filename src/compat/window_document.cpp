// CDocument: what the library needs of a document.
#include <algorithm>

#include "vglobal/compat/window.h"

CDocument::~CDocument() = default;

void CDocument::SetPathName(const wchar_t* path, BOOL /*addToMru*/) {
  pathName_ = path;
  int slash = std::max(pathName_.ReverseFind(L'\\'), pathName_.ReverseFind(L'/'));
  SetTitle(pathName_.Mid(slash + 1));
}

void CDocument::SetTitle(const wchar_t* title) {
  title_ = title;
}

BOOL CDocument::IsModified() {
  return modified_;
}

void CDocument::SetModifiedFlag(BOOL modified) {
  modified_ = modified != FALSE;
}

BOOL CDocument::OnSaveDocument(const wchar_t* /*path*/) {
  return FALSE;
}
