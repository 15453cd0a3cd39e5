// The "under construction" notice: its dialog template and the settings it reads.
#pragma once

#include "vglobal/compat/dialog_template.h"

namespace vglobal {

// Dialog 5806, "Hard Hat Area": a line of text, the check box "Do not show this
// dialog again" (control kDoNotShowAgainId) and OK/Cancel. Registered in the
// library's resources.
const DialogTemplate& UnderConstructionTemplate();

inline constexpr UINT kUnderConstructionDialogId = 5806;
inline constexpr int kDoNotShowAgainId = 5361;
// The settings value that switches the notice off (int, 0 or 1).
inline constexpr const wchar_t* kDoNotShowValueName = L"DoNotShowConstructionDlg";

}  // namespace vglobal
