// CFrameWnd: an application's main window, with a menu bar and command routing.
#pragma once

#include "vglobal/compat/window.h"
#include "vglobal/export.h"

// Window styles that Create accepts (kept for callers; the platform chooses the look).
constexpr DWORD WS_OVERLAPPEDWINDOW = 0x00CF0000;
constexpr DWORD WS_VISIBLE = 0x10000000;

// A frame's platform window is made by Create or LoadFrame and destroyed by
// DestroyWindow, by the close command, or with the object. Commands reach the
// frame's own map first and then the application (AfxGetApp). Before one of its
// pop-ups opens, items whose command has neither an update handler nor a command
// handler anywhere along the routing are grayed (m_bAutoMenuEnable).
class VGLOBAL_EXPORT CFrameWnd : public CWnd {
 public:
  CFrameWnd();
  ~CFrameWnd() override;

  // Makes the window through the platform (vglobal::Platform::CreateFrame) with
  // `title` (null: none). FALSE when it exists already or the platform cannot make
  // one. The class name and style are accepted for callers and not used; WS_VISIBLE
  // shows the window at once.
  BOOL Create(const wchar_t* className, const wchar_t* title, DWORD style = WS_OVERLAPPEDWINDOW,
              CWnd* parent = nullptr);
  // Create with the menu of resource `resourceId` (if a module has it) and the title
  // of string `resourceId` (if there is one; the text before the first "\n").
  BOOL LoadFrame(UINT resourceId, DWORD style = WS_OVERLAPPEDWINDOW, CWnd* parent = nullptr);
  // Destroys the platform window (the object stays). FALSE when there was none.
  BOOL DestroyWindow();
  bool HasWindow() const { return created_; }

  BOOL ShowWindow(int cmdShow) override;
  void SetWindowText(const wchar_t* text) override;

  BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) override;

  BOOL m_bAutoMenuEnable = TRUE;

 protected:
  // Destroys the window.
  void OnClose() override;
  void OnInitMenuPopup(CMenu* popup, UINT index, BOOL sysMenu) override;

 private:
  bool created_ = false;
};
