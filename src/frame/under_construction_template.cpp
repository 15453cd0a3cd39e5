// The layout of the "Hard Hat Area" notice, in dialog units: the text across the
// top, the check box below it, OK and Cancel at the bottom right.
#include <iterator>

#include "frame/under_construction.h"
#include "vglobal/compat/types.h"

namespace vglobal {
namespace {

constexpr ControlTemplate kControls[] = {
    {IDC_STATIC, ControlKind::Static, L"This area is under construction.", 7, 9, 172, 10, 0},
    {kDoNotShowAgainId, ControlKind::CheckBox, L"Do not show this dialog again", 7, 26, 172, 10,
     kTabStop | kGroup},
    {IDOK, ControlKind::PushButton, L"OK", 75, 47, 50, 14, kDefault | kTabStop | kGroup},
    {IDCANCEL, ControlKind::PushButton, L"Cancel", 129, 47, 50, 14, kTabStop},
};

constexpr DialogTemplate kTemplate{
    kUnderConstructionDialogId, L"Hard Hat Area", 186, 68, 8, kControls, std::size(kControls)};

}  // namespace

const DialogTemplate& UnderConstructionTemplate() {
  return kTemplate;
}

}  // namespace vglobal
