// A platform for tests: message boxes are recorded and answered from a queue,
// modal dialogs are opened headless and played by a script through DialogDriver,
// nothing is started on the desktop, status-bar texts are recorded, choosers are
// answered from queues and drag loops are played by scripts over the registered
// drop targets. Installed while the object lives.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "vglobal/choosers.h"
#include "vglobal/compat/dialog.h"
#include "vglobal/drag_drop.h"
#include "vglobal/platform.h"

namespace vglobal::testing {

// A pop-up menu as the user saw it: each item's text, id and state, after the
// owner's update handlers ran.
struct ShownMenuItem {
  std::wstring text;
  UINT id;
  UINT state;
};

struct ShownMessage {
  CWnd* owner;
  std::wstring text;
  bool hasCaption;
  std::wstring caption;
  UINT style;
};

class ScriptedPlatform : public Platform {
 public:
  // What the user does in the next modal dialog; the dialog is open and its
  // OnInitDialog has run.
  using Script = std::function<void(DialogDriver& user, CDialog& dialog)>;

  ScriptedPlatform() { SetPlatform(this); }
  ~ScriptedPlatform() override { SetPlatform(nullptr); }

  std::vector<ShownMessage> messages;
  std::deque<int> answers;  // for message boxes; IDOK when empty
  std::deque<Script> scripts;
  std::vector<std::wstring> opened;       // OpenWithDesktop targets
  std::vector<std::wstring> statusTexts;  // SetStatusBarText texts
  std::deque<UINT> popupChoices;          // for TrackPopupMenu; 0 (dismissed) when empty
  std::vector<std::vector<ShownMenuItem>> popups;
  int modalRuns = 0;

  int MessageBox(CWnd* owner, const wchar_t* text, const wchar_t* caption, UINT style) override {
    messages.push_back(
        {owner, text ? text : L"", caption != nullptr, caption ? caption : L"", style});
    if (answers.empty()) return IDOK;
    int answer = answers.front();
    answers.pop_front();
    return answer;
  }
  CString ApplicationName() override { return L"Scripted"; }

  // A dialog its script leaves open is closed as with the window's close button.
  INT_PTR RunModal(CDialog& dialog) override {
    ++modalRuns;
    DialogDriver user(dialog);
    if (!user.Open()) return -1;
    if (!dialog.IsEnded() && !scripts.empty()) {
      Script script = std::move(scripts.front());
      scripts.pop_front();
      script(user, dialog);
    }
    if (!dialog.IsEnded()) user.Close();
    const INT_PTR code = dialog.IsEnded() ? dialog.GetEndCode() : IDCANCEL;
    user.Destroy();
    return code;
  }

  bool OpenWithDesktop(const std::wstring& target) override {
    opened.push_back(target);
    return true;
  }

  UINT TrackPopupMenu(CMenu& popup, UINT flags, int x, int y, CWnd& owner) override {
    Platform::TrackPopupMenu(popup, flags, x, y, owner);  // the update handlers
    std::vector<ShownMenuItem> shown;
    for (int i = 0; i < popup.GetMenuItemCount(); ++i) {
      CString text;
      popup.GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
      shown.push_back({text.GetString(), popup.GetMenuItemID(i),
                       popup.GetMenuState(static_cast<UINT>(i), MF_BYPOSITION)});
    }
    popups.push_back(std::move(shown));
    if (popupChoices.empty()) return 0;
    UINT choice = popupChoices.front();
    popupChoices.pop_front();
    return choice;
  }

  bool SetStatusBarText(const wchar_t* text) override {
    statusTexts.push_back(text ? text : L"");
    return true;
  }

  // ---- choosers: requests recorded, answers taken in turn (nullopt or none: Cancel)

  std::vector<FileChooser> fileRequests;
  std::deque<std::optional<std::wstring>> fileAnswers;
  std::vector<std::wstring> folderRequests;  // title, then the folder to start in
  std::deque<std::optional<std::wstring>> folderAnswers;

  bool ChooseFile(CWnd* /*owner*/, FileChooser& request) override {
    fileRequests.push_back(request);
    std::optional<std::wstring> answer = Next(fileAnswers);
    if (!answer) return false;
    request.path = *answer;
    return true;
  }
  bool ChooseFolder(CWnd* /*owner*/, const std::wstring& title, std::wstring& folder) override {
    folderRequests.push_back(title);
    folderRequests.push_back(folder);
    std::optional<std::wstring> answer = Next(folderAnswers);
    if (!answer) return false;
    folder = *answer;
    return true;
  }

  // ---- drag and drop ----------------------------------------------------------

  // What the user does in the next drag loop; answers the loop's effect. Without a
  // script a drag ends at once with DROPEFFECT_NONE.
  using DragScript = std::function<DWORD(const DragPayload& data, DWORD allowed)>;
  std::deque<DragScript> dragScripts;
  std::map<CWnd*, DropSink*> dropTargets;
  int dragLoops = 0;

  DWORD DoDragDrop(const DragPayload& data, DWORD allowed) override {
    ++dragLoops;
    if (dragScripts.empty()) return DROPEFFECT_NONE;
    DragScript script = std::move(dragScripts.front());
    dragScripts.pop_front();
    return script(data, allowed);
  }
  bool RegisterDropTarget(CWnd& window, DropSink& sink) override {
    return dropTargets.emplace(&window, &sink).second;
  }
  void RevokeDropTarget(CWnd& window, DropSink& sink) override {
    auto it = dropTargets.find(&window);
    if (it != dropTargets.end() && it->second == &sink) dropTargets.erase(it);
  }

  // The pointer enters `window`, moves to `point` and is released there with
  // `keyState`: the drop's effect (DROPEFFECT_NONE where no target is registered).
  DWORD DropOn(CWnd& window, const DragPayload& data, DWORD allowed, POINT point, DWORD keyState) {
    auto it = dropTargets.find(&window);
    if (it == dropTargets.end()) return DROPEFFECT_NONE;
    it->second->DragEnter(data, keyState | MK_LBUTTON, POINT{0, 0}, allowed);
    it->second->DragOver(data, keyState | MK_LBUTTON, point, allowed);
    return it->second->Drop(data, keyState, point, allowed);
  }

 private:
  template <typename T>
  static std::optional<T> Next(std::deque<std::optional<T>>& answers) {
    if (answers.empty()) return std::nullopt;
    std::optional<T> answer = std::move(answers.front());
    answers.pop_front();
    return answer;
  }
};

}  // namespace vglobal::testing
