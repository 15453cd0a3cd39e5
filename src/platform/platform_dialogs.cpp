// The headless defaults of the dialog services: fixed dialog base units and screen,
// and modeless dialogs opened as models without a view, so that a program or a test
// drives them with DialogDriver.
#include "vglobal/compat/dialog.h"
#include "vglobal/platform.h"

namespace vglobal {

CSize Platform::DialogBaseUnits(int /*fontSize*/) {
  return {6, 13};
}

CRect Platform::ScreenRect() {
  return {0, 0, 1920, 1080};
}

BOOL Platform::CreateModeless(CDialog& dialog) {
  if (dialog.IsOpen() || !dialog.GetTemplate()) return FALSE;
  return DialogDriver(dialog).Open();
}

void Platform::DestroyModeless(CDialog& dialog) {
  DialogDriver(dialog).Destroy();
}

}  // namespace vglobal
