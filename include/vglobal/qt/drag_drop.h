// The drag loop of the Qt platform, replaceable. A drag started through the
// platform (COleDataSource::DoDragDrop) builds a QDrag and hands it to the drag
// exec in force; by default that is QDrag::exec. The offscreen Qt platform has no
// drag loop (QDrag::exec returns at once), so a test installs an exec of its own
// that delivers drag events to the widget it means to drop on.
//
// Contract: GUI thread only.
#pragma once

#include <QDrag>
#include <functional>

#include "vglobal/export.h"

namespace vglobal {

// Runs the drag: `allowed` are the actions the source accepts, `proposed` the one
// it proposes. Returns the action the drop ended with, Qt::IgnoreAction for none.
using DragExec =
    std::function<Qt::DropAction(QDrag& drag, Qt::DropActions allowed, Qt::DropAction proposed)>;

// Installs `exec` (an empty one restores QDrag::exec) and returns the one it replaces.
VGLOBAL_EXPORT DragExec SetDragExec(DragExec exec);

}  // namespace vglobal
