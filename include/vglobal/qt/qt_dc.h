// A CDC over Qt: measures with a QFont and draws with a QPainter, so that the
// library's text layout (CDC::DrawText, and the text-fitting functions built on it)
// works with the fonts the user sees.
//
// Contract: GUI thread only; the painter is not owned and must outlive the object.
#pragma once

#include <QFont>
#include <QFontMetrics>

#include "vglobal/compat/window.h"
#include "vglobal/export.h"

class QPainter;

namespace vglobal {

class VGLOBAL_EXPORT QtDC : public CDC {
 public:
  // Measures with `font`; draws on `painter` (null: measuring only, TextOut fails).
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

 protected:
  // Underlines the mnemonic character.
  void DrawLine(int x, int y, const std::wstring& line, int mnemonic) override;

 private:
  QFont font_;
  QFontMetrics metrics_;
  QPainter* painter_;
};

}  // namespace vglobal
