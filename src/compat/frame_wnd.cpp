// CFrameWnd: the platform makes its window; commands go to the frame, then to the
// application, as users of the legacy framework expect of a main window.
#include "vglobal/compat/frame_wnd.h"

#include "vglobal/compat/app.h"
#include "vglobal/compat/cmd_ui.h"
#include "vglobal/compat/resources.h"
#include "vglobal/platform.h"

CFrameWnd::CFrameWnd() = default;

CFrameWnd::~CFrameWnd() {
  DestroyWindow();
}

BOOL CFrameWnd::Create(const wchar_t* /*className*/, const wchar_t* title, DWORD style,
                       CWnd* parent) {
  if (created_) return FALSE;
  parent_ = parent;
  CWnd::SetWindowText(title ? title : L"");
  CWnd::ShowWindow((style & WS_VISIBLE) ? SW_SHOW : SW_HIDE);
  if (!vglobal::GetPlatform().CreateFrame(*this)) return FALSE;
  created_ = true;
  return TRUE;
}

BOOL CFrameWnd::LoadFrame(UINT resourceId, DWORD style, CWnd* parent) {
  if (created_) return FALSE;
  CMenu menu;
  if (menu.LoadMenu(resourceId)) {
    SetMenu(&menu);
    menu.Detach();  // the window's now
  }
  std::wstring title;
  if (auto text = vglobal::FindResourceString(resourceId))
    title = text->substr(0, text->find(L'\n'));
  return Create(nullptr, title.c_str(), style, parent);
}

BOOL CFrameWnd::DestroyWindow() {
  if (!created_) return FALSE;
  created_ = false;
  vglobal::GetPlatform().DestroyFrame(*this);
  return TRUE;
}

BOOL CFrameWnd::ShowWindow(int cmdShow) {
  BOOL wasVisible = CWnd::ShowWindow(cmdShow);
  if (created_) vglobal::GetPlatform().FrameChanged(*this);
  return wasVisible;
}

void CFrameWnd::SetWindowText(const wchar_t* text) {
  CWnd::SetWindowText(text);
  if (created_) vglobal::GetPlatform().FrameChanged(*this);
}

BOOL CFrameWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) {
  if (CWnd::OnCmdMsg(id, code, extra, handlerInfo)) return TRUE;
  CWinApp* app = AfxGetApp();
  return app && app->OnCmdMsg(id, code, extra, handlerInfo);
}

void CFrameWnd::OnClose() {
  DestroyWindow();
}

void CFrameWnd::OnInitMenuPopup(CMenu* popup, UINT /*index*/, BOOL sysMenu) {
  if (sysMenu) return;
  vglobal::UpdateMenuCommandUI(*popup, *this, m_bAutoMenuEnable != FALSE);
}
