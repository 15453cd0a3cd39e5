// The headless answers of the platform's choosers and drag and drop: there is no
// user to choose and no pointer to drag with.
#include "vglobal/choosers.h"
#include "vglobal/drag_drop.h"
#include "vglobal/platform.h"

namespace vglobal {

bool Platform::ChooseFile(CWnd* /*owner*/, FileChooser& /*request*/) {
  return false;
}

bool Platform::ChooseFolder(CWnd* /*owner*/, const std::wstring& /*title*/,
                            std::wstring& /*folder*/) {
  return false;
}

DWORD Platform::DoDragDrop(const DragPayload& /*data*/, DWORD /*allowedEffects*/) {
  return DROPEFFECT_NONE;
}

bool Platform::RegisterDropTarget(CWnd& /*window*/, DropSink& /*sink*/) {
  return true;
}

void Platform::RevokeDropTarget(CWnd& /*window*/, DropSink& /*sink*/) {}

}  // namespace vglobal
