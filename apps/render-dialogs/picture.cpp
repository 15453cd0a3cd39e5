#include "picture.h"

#include <QPainter>
#include <cstdio>

namespace render {

QPixmap WithTitleBar(QWidget& window) {
  const QPixmap client = window.grab();
  const QFontMetrics metrics(window.font());
  const int barHeight = metrics.height() + 10;
  QPixmap picture(client.width() + 2, client.height() + barHeight + 1);
  picture.fill(QColor(0x70, 0x70, 0x70));
  QPainter painter(&picture);
  painter.fillRect(1, 1, client.width(), barHeight - 1, QColor(0x3c, 0x5a, 0x8a));
  painter.setPen(Qt::white);
  QFont bold = window.font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.drawText(QRect(8, 1, client.width() - 16, barHeight - 1),
                   Qt::AlignVCenter | Qt::AlignLeft, window.windowTitle());
  painter.drawPixmap(1, barHeight, client);
  return picture;
}

bool Save(const QPixmap& picture, const QString& file) {
  if (!picture.save(file)) {
    std::fprintf(stderr, "render-dialogs: cannot write %s\n", file.toLocal8Bit().constData());
    return false;
  }
  std::printf("%s\n", file.toLocal8Bit().constData());
  return true;
}

bool Save(const QImage& picture, const QString& file) {
  return Save(QPixmap::fromImage(picture), file);
}

}  // namespace render
