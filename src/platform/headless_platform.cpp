// The headless platform: no windows. Message boxes become lines on standard error
// (a batch program's user still learns what went wrong) and answer OK; dialogs
// cannot be shown and answer Cancel.
#include <cerrno>
#include <cstdio>

#include "vglobal/platform.h"

namespace vglobal {

int HeadlessPlatform::MessageBox(CWnd* /*owner*/, const wchar_t* text, const wchar_t* caption,
                                 UINT /*style*/) {
  CString title = caption ? CString(caption) : ApplicationName();
  CString body = text;
  std::fprintf(stderr, "%s: %s\n", title.ToUtf8().c_str(), body.ToUtf8().c_str());
  return IDOK;
}

CString HeadlessPlatform::ApplicationName() {
  return CString(program_invocation_short_name);
}

INT_PTR HeadlessPlatform::RunModal(CDialog& /*dialog*/) {
  return IDCANCEL;
}

}  // namespace vglobal
