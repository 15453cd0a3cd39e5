// All of vglobal::widgets, the Qt layer: the Qt platform, the rendering of dialog
// models and main windows, a drawing context over Qt, and the drag loop's seam.
// Includes Qt headers through the headers below.
#pragma once

#include "vglobal/vglobal.h"

#include "vglobal/qt/drag_drop.h"
#include "vglobal/qt/qt_dc.h"
#include "vglobal/qt/qt_platform.h"
