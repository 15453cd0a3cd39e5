// A CDC over Qt: measures with a QFont and draws with a QPainter, so that the
// library's text layout (CDC::DrawText, and the text-fitting functions built on it)
// works with the fonts the user sees, and lines, fills and shapes come out with the
// pens, brushes and raster modes the caller selected.
//
// Text is drawn in the DC's text colour (black at first), over a box of the
// background colour while the background mode is OPAQUE (the default, as in the
// legacy drawing: callers that draw over a picture set TRANSPARENT). Raster modes
// other than R2_COPYPEN combine with the pixels under them only on surfaces that
// support it (a QImage of format RGB32 or ARGB32_Premultiplied).
//
// Contract: GUI thread only; the painter is not owned and must outlive the object.
// The painter's own state is left as it was after every call.
#pragma once

#include <QFont>
#include <QFontMetrics>

#include "vglobal/compat/window.h"
#include "vglobal/export.h"

class QPainter;

namespace vglobal {

class VGLOBAL_EXPORT QtDC : public CDC {
 public:
  // Measures with `font` (the DC's own font, until a CFont is selected); draws on
  // `painter` (null: measuring only, drawing fails).
  explicit QtDC(const QFont& font, QPainter* painter = nullptr);

  // A count of -1 means "up to the terminating zero"; a null text measures as
  // nothing and draws nothing.
  CSize GetTextExtent(const wchar_t* text, int count) const override;
  BOOL TextOut(int x, int y, const wchar_t* text, int count) override;
  BOOL GetTextMetrics(LPTEXTMETRIC metrics) const override;
  // Decodes the cell's strip (once per strip: strips are static resource data, so
  // they are remembered by address) and draws the cell. FALSE without a painter, for
  // bytes that are not a PNG image, or a cell outside the strip. ILD_SELECTED blends
  // the image half-way with the palette's highlight colour; other styles draw it
  // with its own transparency.
  BOOL DrawImage(const ImageCell& cell, int x, int y, UINT style) override;
  using CDC::GetTextExtent;
  using CDC::TextOut;

  // The font measured and drawn with now.
  const QFont& CurrentFont() const { return font_; }

 protected:
  // Underlines the mnemonic character.
  void DrawLine(int x, int y, const std::wstring& line, int mnemonic) override;
  BOOL PaintLine(CPoint from, CPoint to) override;
  BOOL PaintSolidRect(const CRect& rect, COLORREF color) override;
  BOOL PaintShape(Shape shape, const CRect& box, CPoint start, CPoint end) override;
  void FontSelected() override;

  // For DCs that paint on a surface of their own one call at a time.
  void SetPainter(QPainter* painter) { painter_ = painter; }
  QPainter* Painter() const { return painter_; }

 private:
  QFont ownFont_;
  QFont font_;
  QFontMetrics metrics_;
  QPainter* painter_;
};

// The Qt font a LOGFONT describes, on top of `base` (whose family and size stay
// where the LOGFONT leaves them at 0 or empty).
VGLOBAL_EXPORT QFont FontFromLogFont(const LOGFONT& font, const QFont& base);

}  // namespace vglobal
