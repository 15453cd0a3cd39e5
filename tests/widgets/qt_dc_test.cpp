// The drawing context over Qt: measures with the font, and DrawText lays text out
// where the shared layout says, with the mnemonic underlined.
#include <QImage>
#include <QPainter>

#include "support/qt_application.h"
#include "vglobal/widgets.h"

namespace {

// The columns holding dark pixels, as [first, last]; {-1, -1} for a blank image.
std::pair<int, int> InkColumns(const QImage& image) {
  int first = -1, last = -1;
  for (int x = 0; x < image.width(); ++x)
    for (int y = 0; y < image.height(); ++y)
      if (qGray(image.pixel(x, y)) < 128) {
        if (first < 0) first = x;
        last = x;
        break;
      }
  return {first, last};
}

QImage Drawn(const wchar_t* text, UINT format) {
  QImage image(200, 40, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setPen(Qt::black);
  vglobal::QtDC dc(QFont(QStringLiteral("DejaVu Sans"), 12), &painter);
  CRect r(0, 0, 200, 40);
  dc.DrawText(text, -1, &r, format);
  return image;
}

TEST(QtDC, MeasuresWithItsFont) {
  QFont font(QStringLiteral("DejaVu Sans"), 12);
  vglobal::QtDC dc(font);
  QFontMetrics metrics(font);
  EXPECT_EQ(dc.GetTextExtent(L"Hello", -1),
            CSize(metrics.horizontalAdvance("Hello"), metrics.height()));
  EXPECT_EQ(dc.GetTextExtent(nullptr, 3).cx, 0);
  EXPECT_FALSE(dc.TextOut(0, 0, L"no painter", -1));
}

TEST(QtDC, CentredTextSitsAroundTheMiddleAndTheMnemonicIsUnderlined) {
  const QImage plain = Drawn(L"File", DT_SINGLELINE | DT_CENTER | DT_VCENTER);
  auto [first, last] = InkColumns(plain);
  ASSERT_GE(first, 0);
  EXPECT_NEAR((first + last) / 2.0, 100.0, 3.0);
  const QImage marked = Drawn(L"&File", DT_SINGLELINE | DT_CENTER | DT_VCENTER);
  // The same place (the underline starts at the advance box, before the glyph's ink)
  // and the underline under "F".
  EXPECT_NEAR(InkColumns(marked).first, first, 3);
  EXPECT_NE(marked, plain);
}

}  // namespace
