// QtDC::DrawImage: one cell of a PNG strip, decoded by Qt.
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <climits>
#include <utility>

#include "vglobal/compat/image_list.h"
#include "vglobal/qt/qt_dc.h"

namespace vglobal {
namespace {

// Strips decoded so far. A strip is static data of a module, so its address and
// size name it for the life of the process; a failed decoding is remembered too
// (as a null image) so that bad bytes are not decoded again at every paint.
const QImage& DecodedStrip(const ImageCell& cell) {
  static QHash<std::pair<const unsigned char*, std::size_t>, QImage> strips;
  const auto key = std::make_pair(cell.png, cell.size);
  auto it = strips.find(key);
  if (it == strips.end()) {
    QImage image;
    if (cell.png && cell.size <= static_cast<std::size_t>(INT_MAX))
      image = QImage::fromData(cell.png, static_cast<int>(cell.size), "PNG");
    it = strips.insert(key, image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
  }
  return *it;
}

}  // namespace

BOOL QtDC::DrawImage(const ImageCell& cell, int x, int y, UINT style) {
  if (!painter_) return FALSE;
  const QImage& strip = DecodedStrip(cell);
  const QRect source(cell.x, cell.y, cell.cx, cell.cy);
  if (strip.isNull() || source.isEmpty() || !strip.rect().contains(source)) return FALSE;
  if (!(style & ILD_SELECTED)) {
    painter_->drawImage(QPoint(x, y), strip, source);
    return TRUE;
  }
  // Selected: the image's own pixels, half covered by the highlight colour.
  QImage blended = strip.copy(source);
  QPainter blend(&blended);
  blend.setCompositionMode(QPainter::CompositionMode_SourceAtop);
  blend.setOpacity(0.5);
  blend.fillRect(blended.rect(), QGuiApplication::palette().color(QPalette::Highlight));
  blend.end();
  painter_->drawImage(QPoint(x, y), blended);
  return TRUE;
}

}  // namespace vglobal
