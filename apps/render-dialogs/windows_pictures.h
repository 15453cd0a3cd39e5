// Pictures of a main window with an open menu, a toolbar's insertion bar drawn on
// the transient overlay, and a disk-space chart drawn through the drawing context.
#pragma once

#include <QString>

namespace render {

// Writes main_window_menu.png, transient_insert_bar.png and disk_space_chart.png
// into `folder`.
bool RenderWindows(const QString& folder);

}  // namespace render
