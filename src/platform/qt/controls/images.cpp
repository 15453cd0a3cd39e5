#include "platform/qt/controls/images.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>

#include "vglobal/compat/image_list.h"
#include "vglobal/qt/qt_dc.h"

namespace vglobal::qt {

QSize ImageSize(const CImageList* images) {
  if (!images) return {};
  const CSize size = images->GetImageSize();
  return {size.cx, size.cy};
}

QIcon ImageIcon(const CImageList* images, int image) {
  const QSize size = ImageSize(images);
  if (size.isEmpty() || image < 0 || image >= images->GetImageCount()) return {};
  QPixmap pixmap(size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  QtDC dc(QApplication::font(), &painter);
  const bool drawn = images->Draw(&dc, image, POINT{0, 0}, ILD_NORMAL);
  painter.end();
  return drawn ? QIcon(pixmap) : QIcon();
}

}  // namespace vglobal::qt
