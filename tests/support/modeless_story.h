// A modeless tool window and the main window that opens it, as an application's
// customization window works: buttons that send a message to the parent and post a
// command to the main window, and a good-bye message when the window goes.
#pragma once

#include <iterator>
#include <string>
#include <vector>

#include "vglobal/vglobal.h"

namespace story {

constexpr UINT WM_TOOL_RESET = WM_APP + 1;
constexpr UINT WM_TOOL_GOODBYE = WM_APP + 2;
constexpr UINT ID_PROCESS = 6025;  // a command of the main window
constexpr int IDC_RESET = 1001, IDC_PROCESS = 1002;

constexpr vglobal::ControlTemplate kControls[] = {
    {IDC_RESET, vglobal::ControlKind::PushButton, L"&Reset", 7, 7, 50, 14, vglobal::kTabStop},
    {IDC_PROCESS, vglobal::ControlKind::PushButton, L"&Process", 61, 7, 50, 14, vglobal::kTabStop},
    {IDCANCEL, vglobal::ControlKind::PushButton, L"Close", 115, 7, 50, 14, vglobal::kTabStop},
};
constexpr vglobal::DialogTemplate kTemplate{5900,      L"Tool Window",      172, 28, 8,
                                            kControls, std::size(kControls)};

class MainWindow : public CFrameWnd {
 public:
  MainWindow() {
    OnMessage(WM_TOOL_RESET, &MainWindow::OnToolReset);
    OnMessage(WM_TOOL_GOODBYE, &MainWindow::OnToolGoodbye);
    OnCommand(ID_PROCESS, &MainWindow::OnProcess);
  }
  std::vector<std::string> log;

 private:
  LRESULT OnToolReset(WPARAM w, LPARAM) {
    log.push_back("reset " + std::to_string(w));
    return 0;
  }
  LRESULT OnToolGoodbye(WPARAM w, LPARAM) {
    log.push_back("goodbye " + std::to_string(w));
    return 0;
  }
  void OnProcess() { log.push_back("process"); }
};

class ToolWindow : public CDialog {
 public:
  explicit ToolWindow(CWnd* parent) : CDialog(kTemplate, parent) {
    On(IDC_RESET, BN_CLICKED, &ToolWindow::OnReset);
    On(IDC_PROCESS, BN_CLICKED, &ToolWindow::OnProcess);
  }

 protected:
  void OnDestroy() override {
    if (m_pParentWnd) m_pParentWnd->SendMessage(WM_TOOL_GOODBYE, 1, 0);
    CDialog::OnDestroy();
  }

 private:
  void OnReset() {
    if (m_pParentWnd) m_pParentWnd->SendMessage(WM_TOOL_RESET, 0, 0);
  }
  // Processing belongs to the main window; it runs once this handler has returned.
  void OnProcess() {
    if (CWnd* main = AfxGetMainWnd()) main->PostMessage(WM_COMMAND, ID_PROCESS, 0);
  }
};

}  // namespace story
