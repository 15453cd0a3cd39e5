// What every picture of render-dialogs shares: the frame a window manager would
// draw, and saving with a line that names the file written.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace render {

// The window's client area under a plain title bar that carries its title.
QPixmap WithTitleBar(QWidget& window);
// Writes the picture and prints its name; false (and a line on standard error)
// when it cannot be written.
bool Save(const QPixmap& picture, const QString& file);
bool Save(const QImage& picture, const QString& file);

}  // namespace render
