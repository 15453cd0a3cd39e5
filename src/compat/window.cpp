// CWnd: the plain window, which remembers its own text and states (its messages,
// timers and menu are in window_messages.cpp and window_timers.cpp).
#include <algorithm>

#include "vglobal/compat/window.h"
#include "vglobal/platform.h"

void CWnd::SetWindowText(const wchar_t* text) {
  text_ = text;
}

void CWnd::GetWindowText(CString& text) const {
  text = text_;
}

int CWnd::GetWindowText(wchar_t* buffer, int maxCount) const {
  if (!buffer || maxCount <= 0) return 0;
  CString text;
  GetWindowText(text);
  int n = std::min(text.GetLength(), maxCount - 1);
  std::copy_n(text.GetString(), n, buffer);
  buffer[n] = L'\0';
  return n;
}

int CWnd::GetWindowTextLength() const {
  CString text;
  GetWindowText(text);
  return text.GetLength();
}

BOOL CWnd::EnableWindow(BOOL enable) {
  BOOL wasDisabled = !enabled_;
  enabled_ = enable != FALSE;
  return wasDisabled;
}

BOOL CWnd::IsWindowEnabled() const {
  return enabled_;
}

BOOL CWnd::ShowWindow(int cmdShow) {
  BOOL wasVisible = visible_;
  visible_ = cmdShow != SW_HIDE;
  return wasVisible;
}

BOOL CWnd::IsWindowVisible() const {
  return visible_;
}

int CWnd::GetDlgCtrlID() const {
  return 0;
}

CWnd* CWnd::SetFocus() {
  return nullptr;
}

int CWnd::MessageBox(const wchar_t* text, const wchar_t* caption, UINT type) {
  return vglobal::GetPlatform().MessageBox(this, text, caption, type);
}
