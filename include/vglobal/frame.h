// The library frame: joining the library's resources to a client module, and the
// "under construction" notice.
#pragma once

#include "vglobal/compat/types.h"
#include "vglobal/export.h"

// Adds the library's resources (strings, dialog templates) to the process's
// resource chain once more. A client module other than the application calls it
// once at its own start so that the library's dialogs and strings can be found from
// it. Returns 1 in all cases, also when the entry could not be allocated.
VGLOBAL_EXPORT int VG_Init();
