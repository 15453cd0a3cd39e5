// Image cells drawn by the Qt drawing context: the pixels of the strip's cell,
// the selected style, and strips whose pixels cannot be decoded.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "vglobal/compat/image_list.h"
#include "vglobal/qt/qt_dc.h"

namespace {

QImage Transparent(int w, int h) {
  QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

QImage StripOf(UINT id) {
  const vglobal::BitmapResource* strip = vglobal::FindBitmapResource(id);
  return QImage::fromData(strip->png, static_cast<int>(strip->size), "PNG")
      .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

TEST(QtImageDrawing, DrawsExactlyTheCellOfTheStripAtBothSizes) {
  for (auto [id, cx, cy] : {std::tuple{vglobal::kCommandImagesSmall, 16, 15},
                            std::tuple{vglobal::kCommandImagesBig, 24, 24}}) {
    CImageList list;
    ASSERT_TRUE(list.Create(id, cx, 0, 0));
    QImage canvas = Transparent(cx + 3, cy + 2);
    QPainter painter(&canvas);
    vglobal::QtDC dc(QFont(), &painter);
    ASSERT_TRUE(list.Draw(&dc, 5, CPoint(3, 2), ILD_TRANSPARENT));
    painter.end();
    EXPECT_EQ(canvas.copy(3, 2, cx, cy), StripOf(id).copy(5 * cx, 0, cx, cy)) << id;
    EXPECT_EQ(canvas.pixel(0, 0), 0u) << "nothing drawn outside the cell";
  }
}

TEST(QtImageDrawing, SelectedImagesAreTintedWhereTheyArePainted) {
  CImageList list;
  ASSERT_TRUE(list.Create(vglobal::kCommandImagesBig, 24, 0, 0));
  const QImage plain = StripOf(vglobal::kCommandImagesBig).copy(0, 0, 24, 24);
  QImage canvas = Transparent(24, 24);
  QPainter painter(&canvas);
  vglobal::QtDC dc(QFont(), &painter);
  ASSERT_TRUE(list.Draw(&dc, 0, CPoint(0, 0), ILD_SELECTED));
  painter.end();
  int tinted = 0;
  for (int y = 0; y < 24; ++y)
    for (int x = 0; x < 24; ++x) {
      if (qAlpha(plain.pixel(x, y)) == 0) {
        EXPECT_EQ(qAlpha(canvas.pixel(x, y)), 0);
      }
      if (qAlpha(plain.pixel(x, y)) == 255 && canvas.pixel(x, y) != plain.pixel(x, y)) ++tinted;
    }
  EXPECT_GT(tinted, 0);
}

// Passes the header check, but there is nothing after the header to decode.
const unsigned char kHeaderOnly[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0,    0,    0,
                                     13,   'I', 'H', 'D', 'R',  0,    0,    0,    16,   0,    0,
                                     0,    15,  8,   6,   0,    0,    0,    0xED, 0x73, 0x4F, 0x2F};

TEST(QtImageDrawing, UndecodableStripsAndCellsOutsideTheStripDrawNothing) {
  QImage canvas = Transparent(32, 32);
  const QImage before = canvas;
  QPainter painter(&canvas);
  vglobal::QtDC dc(QFont(), &painter);
  EXPECT_FALSE(dc.DrawImage({kHeaderOnly, sizeof kHeaderOnly, 0, 0, 16, 15}, 0, 0, ILD_NORMAL));
  EXPECT_FALSE(dc.DrawImage({kHeaderOnly, sizeof kHeaderOnly, 0, 0, 16, 15}, 0, 0, ILD_NORMAL));
  const vglobal::BitmapResource* strip = vglobal::FindBitmapResource(vglobal::kCommandImagesSmall);
  EXPECT_FALSE(dc.DrawImage({strip->png, strip->size, 16 * 24, 0, 16, 15}, 0, 0, ILD_NORMAL));
  EXPECT_FALSE(dc.DrawImage({strip->png, strip->size, 0, 0, 0, 15}, 0, 0, ILD_NORMAL));
  EXPECT_FALSE(dc.DrawImage({nullptr, 0, 0, 0, 16, 15}, 0, 0, ILD_NORMAL));
  painter.end();
  EXPECT_EQ(canvas, before);

  vglobal::QtDC measuringOnly{QFont()};
  EXPECT_FALSE(measuringOnly.DrawImage({strip->png, strip->size, 0, 0, 16, 15}, 0, 0, ILD_NORMAL));
}

}  // namespace
