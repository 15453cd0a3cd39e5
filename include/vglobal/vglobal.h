// All of vglobal::core: the compat vocabulary, the platform seam, the settings
// store, the library frame and every subsystem's API. Includes no Qt header.
#pragma once

#include "vglobal/export.h"

#include "vglobal/compat/app.h"
#include "vglobal/compat/client_dc.h"
#include "vglobal/compat/cmd_target.h"
#include "vglobal/compat/cmd_ui.h"
#include "vglobal/compat/collections.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/dialog.h"
#include "vglobal/compat/file_dialog.h"
#include "vglobal/compat/filestatus.h"
#include "vglobal/compat/frame_wnd.h"
#include "vglobal/compat/gdi.h"
#include "vglobal/compat/geometry.h"
#include "vglobal/compat/global_memory.h"
#include "vglobal/compat/image_list.h"
#include "vglobal/compat/menu_template.h"
#include "vglobal/compat/ole.h"
#include "vglobal/compat/pixel_surface.h"
#include "vglobal/compat/resources.h"
#include "vglobal/compat/types.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/compat/variant.h"
#include "vglobal/compat/window.h"
#include "vglobal/compat/window_messages.h"

#include "vglobal/choosers.h"
#include "vglobal/drag_drop.h"
#include "vglobal/platform.h"
#include "vglobal/processes.h"

#include "vglobal/settings.h"
#include "vglobal/settings_store.h"

#include "vglobal/fileio.h"
#include "vglobal/messages.h"
#include "vglobal/methoddefaults.h"
#include "vglobal/util.h"

#include "vglobal/frame.h"
