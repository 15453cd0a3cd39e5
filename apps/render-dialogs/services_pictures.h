// Pictures of the image strips and of the choosers, for render-dialogs.
#pragma once

#include <QString>

namespace render {

// The library's image strips drawn through image lists, as toolbars show them.
bool RenderImageStrips(const QString& file);
// The file chooser of a sample-list browser and the folder chooser of the Tools
// editor, each in a folder of sample files.
bool RenderChoosers(const QString& fileChooser, const QString& folderChooser);

}  // namespace render
