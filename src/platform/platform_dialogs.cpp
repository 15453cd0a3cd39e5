// The headless defaults of the dialog services: fixed dialog base units, text
// measured in them, and a fixed screen,
// and modeless dialogs opened as models without a view, so that a program or a test
// drives them with DialogDriver.
#include <algorithm>

#include "vglobal/compat/dialog.h"
#include "vglobal/platform.h"

namespace vglobal {

CSize Platform::DialogBaseUnits(int /*fontSize*/) {
  return {6, 13};
}

CSize Platform::MeasureText(const CWnd& /*window*/, const std::wstring& text) {
  const CSize unit = DialogBaseUnits(0);
  // Capped so that a huge text cannot overflow the width.
  const auto n = static_cast<int>(std::min<std::size_t>(text.size(), 1 << 20));
  return {n * unit.cx, unit.cy};
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
