// Text fitting with a real font: what the fitting functions measure through the Qt
// drawing context is what Qt itself measures and draws.
#include <gtest/gtest.h>

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <vector>

#include "vglobal/widgets.h"

namespace {

QFont Font() {
  return QFont(QStringLiteral("DejaVu Sans"), 10);
}

QString Q(const CString& text) {
  return QString::fromWCharArray(text.GetString(), text.GetLength());
}

TEST(TextFitQt, FittedPathIsWithinTheWidthAsQtMeasuresIt) {
  const QFontMetrics metrics(Font());
  vglobal::QtDC dc(Font());
  const CString path(LR"(C:\Arvenis\Data\Quantitation\2024\March\Calibration\run_0042.raw)");
  const int full = metrics.horizontalAdvance(Q(path));
  for (int width = 0; width <= full + 10; width += 7) {
    CString fitted(path);
    FitPathToWidth(&dc, fitted, width);
    if (full < width) {
      EXPECT_EQ(fitted, path);
      continue;
    }
    const int measured = metrics.horizontalAdvance(Q(fitted));
    EXPECT_TRUE(measured <= width || fitted == L"...")
        << width << ": " << Q(fitted).toStdString() << " is " << measured;
    if (metrics.horizontalAdvance(QStringLiteral("run_0042.raw")) <= width) {
      EXPECT_TRUE(Q(fitted).endsWith(QStringLiteral("\\run_0042.raw")) || fitted == L"run_0042.raw")
          << Q(fitted).toStdString();
    }
  }
}

// The rows drawn by VCStringDisplay: each within the width as Qt measures it, and
// ink where the rows were put.
TEST(TextFitQt, DrawnRowsStayWithinTheWidth) {
  const QFontMetrics metrics(Font());
  QImage image(300, 200, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setPen(Qt::black);
  vglobal::QtDC dc(Font(), &painter);

  // Records each row as well as drawing it.
  class Recorder : public VCStringDisplay {
   public:
    using VCStringDisplay::VCStringDisplay;
    std::vector<QString> rows;
    void Display(CString& row) override {
      rows.push_back(Q(row));
      VCStringDisplay::Display(row);
    }
  };
  constexpr int kLeft = 20, kWidth = 120;
  CString text(L"Retention time window in minutes around the expected time of the peak"),
      breaks(L" ");
  Recorder display(text, breaks, &dc, kWidth, kLeft, 10, metrics.height(), 1, TRUE, FALSE, 0);
  display.DisplaySplitt();
  painter.end();

  ASSERT_GE(display.rows.size(), 3u);
  for (const QString& row : display.rows)
    EXPECT_LE(metrics.horizontalAdvance(row), kWidth) << row.toStdString();
  int inkLeft = image.width(), inkRight = -1, lastInkRow = -1;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (qGray(image.pixel(x, y)) < 128) {
        inkLeft = std::min(inkLeft, x);
        inkRight = std::max(inkRight, x);
        lastInkRow = y;
      }
  EXPECT_GE(inkLeft, kLeft - 2);
  EXPECT_LT(inkRight, kLeft + kWidth + 2);
  const int rows = static_cast<int>(display.rows.size());
  EXPECT_GT(lastInkRow, 10 + (rows - 1) * metrics.height());
  EXPECT_LT(lastInkRow, 10 + rows * metrics.height());
}

}  // namespace
