// CCmdTarget: an object that takes commands (menu choices, button clicks) through
// a command map, the base of windows and of the application object.
//
// Handlers are registered in the constructor of the class that owns them, the
// way the legacy message-map macros declared them:
//
//   class CMainFrame : public CFrameWnd {
//    public:
//     CMainFrame() {
//       OnCommand(ID_FILE_OPEN, &CMainFrame::OnFileOpen);          // ON_COMMAND
//       OnCommandRange(5000, 5020, &CMainFrame::OnTool);             // ON_COMMAND_RANGE
//       OnUpdateCommandUI(ID_VIEW_BAR, &CMainFrame::OnUpdateBar);   // ON_UPDATE_COMMAND_UI
//     }
//     void OnFileOpen();
//     void OnTool(UINT id);
//     void OnUpdateBar(CCmdUI* ui);
//   };
//
// Contract: user-interface thread only. Entries are tried in the order they were
// added; the first that matches runs.
#pragma once

#include <functional>
#include <memory>
#include <type_traits>

#include "vglobal/compat/collections.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

class CCmdTarget;
class CCmdUI;

// Routing codes of OnCmdMsg: a command (menu, accelerator, button click; the same
// value as BN_CLICKED), or the question "enabled, checked?" asked before a menu opens.
constexpr int CN_COMMAND = 0;
constexpr int CN_UPDATE_COMMAND_UI = -1;

// Filled by OnCmdMsg when it is only asked whether a handler exists.
struct AFX_CMDHANDLERINFO {
  CCmdTarget* pTarget = nullptr;
};

namespace vglobal {
struct CommandMap;
}

class VGLOBAL_EXPORT CCmdTarget : public CObject {
 public:
  CCmdTarget();
  ~CCmdTarget() override;
  CCmdTarget(const CCmdTarget&) = delete;
  CCmdTarget& operator=(const CCmdTarget&) = delete;

  // Routes command `id`. code CN_COMMAND (or a control's notification code) runs its
  // command handler; CN_UPDATE_COMMAND_UI runs its update handler with extra, a
  // CCmdUI*. With handlerInfo, nothing runs: the answer says whether a handler
  // exists and handlerInfo->pTarget names its owner. TRUE when a handler took it.
  // Classes that pass commands on (frames to the application) override this.
  virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo);

 protected:
  template <typename D>
  void OnCommand(UINT id, void (D::*handler)()) {
    AddCommand<D>(id, id, CN_COMMAND, [handler](D& d, UINT, void*) { (d.*handler)(); });
  }
  // One handler for the commands first..last, given the id that was chosen.
  template <typename D>
  void OnCommandRange(UINT first, UINT last, void (D::*handler)(UINT)) {
    AddCommand<D>(first, last, CN_COMMAND, [handler](D& d, UINT id, void*) { (d.*handler)(id); });
  }
  template <typename D>
  void OnUpdateCommandUI(UINT id, void (D::*handler)(CCmdUI*)) {
    OnUpdateCommandUIRange(id, id, handler);
  }
  template <typename D>
  void OnUpdateCommandUIRange(UINT first, UINT last, void (D::*handler)(CCmdUI*)) {
    AddCommand<D>(first, last, CN_UPDATE_COMMAND_UI, [handler](D& d, UINT, void* extra) {
      (d.*handler)(static_cast<CCmdUI*>(extra));
    });
  }

 private:
  using Handler = std::function<void(UINT id, void* extra)>;
  template <typename D, typename Call>
  void AddCommand(UINT first, UINT last, int code, Call call) {
    static_assert(std::is_base_of_v<CCmdTarget, D>, "handlers belong to the target's class");
    AddEntry(first, last, code,
             [this, call](UINT id, void* extra) { call(static_cast<D&>(*this), id, extra); });
  }
  void AddEntry(UINT first, UINT last, int code, Handler handler);

  std::unique_ptr<vglobal::CommandMap> commands_;
};
