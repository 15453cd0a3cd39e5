// QtDC: measuring with QFontMetrics, drawing with QPainter. TextOut places the top
// of the text at y, as the legacy drawing calls do, not the baseline.
//
// Map of this file:
//   1. fonts, pens, brushes and raster modes in Qt's terms
//   2. text
//   3. lines, fills and shapes
#include "vglobal/qt/qt_dc.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <cwchar>
#include <numbers>

#include "platform/qt/qt_text.h"

namespace vglobal {
namespace {

// ---- 1. in Qt's terms -------------------------------------------------------------

QString Text(const wchar_t* text, int count) {
  if (!text) return {};
  return QString::fromWCharArray(text, count < 0 ? static_cast<int>(std::wcslen(text)) : count);
}

QColor Color(COLORREF c) {
  return QColor(GetRValue(c), GetGValue(c), GetBValue(c));
}

QPen PenOf(const LOGPEN& pen) {
  static constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                             Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen,
                                             Qt::SolidLine};
  QPen out(Color(pen.lopnColor));
  out.setStyle(pen.lopnStyle < std::size(kStyles) ? kStyles[pen.lopnStyle] : Qt::SolidLine);
  const int width = std::max(1, static_cast<int>(pen.lopnWidth.x));
  out.setWidth(width);
  // Wide pens end round, as the legacy geometric pens did.
  out.setCapStyle(width > 1 ? Qt::RoundCap : Qt::FlatCap);
  out.setJoinStyle(Qt::MiterJoin);
  return out;
}

QBrush BrushOf(const LOGBRUSH& brush) {
  return brush.lbStyle == BS_NULL ? QBrush(Qt::NoBrush) : QBrush(Color(brush.lbColor));
}

// false for R2_NOP: nothing to draw.
bool SetRasterMode(QPainter& p, int rop2) {
  using M = QPainter::CompositionMode;
  static constexpr M kModes[] = {
      M::RasterOp_ClearDestination,            // R2_BLACK
      M::RasterOp_NotSourceAndNotDestination,  // R2_NOTMERGEPEN
      M::RasterOp_NotSourceAndDestination,     // R2_MASKNOTPEN
      M::RasterOp_NotSource,                   // R2_NOTCOPYPEN
      M::RasterOp_SourceAndNotDestination,     // R2_MASKPENNOT
      M::RasterOp_NotDestination,              // R2_NOT
      M::RasterOp_SourceXorDestination,        // R2_XORPEN
      M::RasterOp_NotSourceOrNotDestination,   // R2_NOTMASKPEN
      M::RasterOp_SourceAndDestination,        // R2_MASKPEN
      M::RasterOp_NotSourceXorDestination,     // R2_NOTXORPEN
      M::CompositionMode_Destination,          // R2_NOP
      M::RasterOp_NotSourceOrDestination,      // R2_MERGENOTPEN
      M::CompositionMode_SourceOver,           // R2_COPYPEN
      M::RasterOp_SourceOrNotDestination,      // R2_MERGEPENNOT
      M::RasterOp_SourceOrDestination,         // R2_MERGEPEN
      M::RasterOp_SetDestination,              // R2_WHITE
  };
  if (rop2 == R2_NOP) return false;
  p.setCompositionMode(kModes[std::clamp(rop2, R2_BLACK, R2_WHITE) - 1]);
  return true;
}

// The angle of the ray from the box's centre through `at`, in degrees counter-
// clockwise from 3 o'clock as seen on the screen.
double RayAngle(const CRect& box, CPoint at) {
  const double cx = (static_cast<double>(box.left) + box.right) / 2;
  const double cy = (static_cast<double>(box.top) + box.bottom) / 2;
  if (at.x == cx && at.y == cy) return 0;
  return std::atan2(-(at.y - cy), at.x - cx) * 180 / std::numbers::pi;
}

}  // namespace

QFont FontFromLogFont(const LOGFONT& lf, const QFont& base) {
  QFont font = base;
  const std::size_t faceLength = std::wcslen(lf.lfFaceName);  // CFont keeps it terminated
  if (faceLength > 0)
    font.setFamily(QString::fromWCharArray(lf.lfFaceName, static_cast<int>(faceLength)));
  // A negative height is the characters' own height; a positive one the whole
  // cell's, of which the characters take about five sixths.
  if (lf.lfHeight < 0)
    font.setPixelSize(std::clamp(-static_cast<long long>(lf.lfHeight), 1LL, 4096LL));
  else if (lf.lfHeight > 0)
    font.setPixelSize(static_cast<int>(std::clamp(lf.lfHeight * 5LL / 6, 1LL, 4096LL)));
  if (lf.lfWeight > 0)
    font.setWeight(static_cast<QFont::Weight>(std::clamp(static_cast<int>(lf.lfWeight), 1, 1000)));
  font.setItalic(lf.lfItalic != 0);
  font.setUnderline(lf.lfUnderline != 0);
  font.setStrikeOut(lf.lfStrikeOut != 0);
  return font;
}

QtDC::QtDC(const QFont& font, QPainter* painter)
    : ownFont_(font), font_(font), metrics_(font), painter_(painter) {}

void QtDC::FontSelected() {
  font_ = FontInUse() ? FontFromLogFont(*FontInUse(), ownFont_) : ownFont_;
  metrics_ = QFontMetrics(font_);
}

// ---- 2. text ------------------------------------------------------------------------

CSize QtDC::GetTextExtent(const wchar_t* text, int count) const {
  return {metrics_.horizontalAdvance(Text(text, count)), metrics_.height()};
}

BOOL QtDC::TextOut(int x, int y, const wchar_t* text, int count) {
  if (!painter_ || !text) return FALSE;
  const QString s = Text(text, count);
  painter_->save();
  if (GetBkMode() == OPAQUE)
    painter_->fillRect(x, y, metrics_.horizontalAdvance(s), metrics_.height(), Color(GetBkColor()));
  painter_->setFont(font_);
  painter_->setPen(Color(GetTextColor()));
  painter_->drawText(QPoint(x, y + metrics_.ascent()), s);
  painter_->restore();
  return TRUE;
}

BOOL QtDC::GetTextMetrics(LPTEXTMETRIC tm) const {
  if (!tm) return FALSE;
  *tm = {metrics_.height(),  metrics_.ascent(),           metrics_.descent(),
         metrics_.leading(), metrics_.averageCharWidth(), metrics_.maxWidth()};
  return TRUE;
}

void QtDC::DrawLine(int x, int y, const std::wstring& line, int mnemonic) {
  TextOut(x, y, line.c_str(), static_cast<int>(line.size()));
  if (!painter_ || mnemonic < 0 || static_cast<std::size_t>(mnemonic) >= line.size()) return;
  const QString text = qt::FromWide(line.c_str());
  const int left = x + metrics_.horizontalAdvance(text.left(mnemonic));
  const int width = metrics_.horizontalAdvance(text.mid(mnemonic, 1));
  const int underline = y + metrics_.ascent() + metrics_.underlinePos();
  painter_->save();
  painter_->setPen(Color(GetTextColor()));
  painter_->drawLine(left, underline, left + width - 1, underline);
  painter_->restore();
}

// ---- 3. lines, fills and shapes ---------------------------------------------------

BOOL QtDC::PaintLine(CPoint from, CPoint to) {
  if (!painter_) return FALSE;
  if (PenInUse().lopnStyle == PS_NULL) return TRUE;
  painter_->save();
  painter_->setRenderHint(QPainter::Antialiasing, false);
  if (SetRasterMode(*painter_, GetROP2())) {
    painter_->setPen(PenOf(PenInUse()));
    painter_->drawLine(QPoint(from.x, from.y), QPoint(to.x, to.y));
  }
  painter_->restore();
  return TRUE;
}

BOOL QtDC::PaintSolidRect(const CRect& rect, COLORREF color) {
  if (!painter_) return FALSE;
  painter_->save();
  painter_->setCompositionMode(QPainter::CompositionMode_Source);
  painter_->fillRect(QRect(rect.left, rect.top, rect.Width(), rect.Height()), Color(color));
  painter_->restore();
  return TRUE;
}

BOOL QtDC::PaintShape(Shape shape, const CRect& box, CPoint start, CPoint end) {
  if (!painter_) return FALSE;
  if (box.Width() <= 0 || box.Height() <= 0) return TRUE;
  QPainterPath path;
  // The outline runs through the outermost pixels, the right and bottom edges left
  // out; in Qt's terms, the rectangle one pixel smaller.
  const QRectF outline(box.left, box.top, box.Width() - 1, box.Height() - 1);
  switch (shape) {
    case Shape::kRectangle:
      path.addRect(outline);
      break;
    case Shape::kEllipse:
      path.addEllipse(outline);
      break;
    case Shape::kPie: {
      const double from = RayAngle(box, start);
      double sweep = std::fmod(RayAngle(box, end) - from + 720.0, 360.0);
      if (sweep == 0) sweep = 360;
      path.moveTo(outline.center());
      path.arcTo(outline, from, sweep);
      path.closeSubpath();
      break;
    }
  }
  painter_->save();
  painter_->setRenderHint(QPainter::Antialiasing, false);
  if (SetRasterMode(*painter_, GetROP2())) {
    painter_->setPen(Qt::NoPen);
    painter_->setBrush(BrushOf(BrushInUse()));
    painter_->drawPath(path);
    painter_->setPen(PenOf(PenInUse()));
    painter_->setBrush(Qt::NoBrush);
    painter_->drawPath(path);
  }
  painter_->restore();
  return TRUE;
}

}  // namespace vglobal
