// Pixels in memory and a drawing context on them: what a window's transient
// drawing looks like without a display, so that tests can see it.
//
// A PixelSurface is a rectangle of pixels (0x00BBGGRR), all of one background
// colour at first; it remembers only the pixels that differ from the background.
// A PixelDC draws lines and shapes on it through the raster mode, each pixel of one
// primitive touched once (as the legacy drawing did), so a line drawn twice with
// R2_NOTXORPEN or R2_XORPEN leaves the surface as it was. Text is measured as 6
// pixels a character and 10 a line and drawn as nothing.
//
// Contract: plain objects of one thread; coordinates of any size are safe (drawing
// is clipped to the surface).
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

#include "vglobal/compat/window.h"
#include "vglobal/export.h"

namespace vglobal {

class VGLOBAL_EXPORT PixelSurface {
 public:
  // width and height below 0 count as 0.
  PixelSurface(int width, int height, COLORREF background = 0xFFFFFF);

  int Width() const { return width_; }
  int Height() const { return height_; }
  COLORREF Background() const { return background_; }
  // The background colour outside the surface.
  COLORREF Pixel(int x, int y) const;
  void SetPixel(int x, int y, COLORREF color);
  // The pixels that differ from the background, by (y, x): empty when everything
  // drawn has been drawn away.
  const std::map<std::pair<int, int>, COLORREF>& Marked() const { return marked_; }
  // The smallest rectangle holding every marked pixel (empty when none).
  CRect MarkedBounds() const;

 private:
  int width_, height_;
  COLORREF background_;
  std::map<std::pair<int, int>, COLORREF> marked_;
};

class VGLOBAL_EXPORT PixelDC : public CDC {
 public:
  static constexpr int kCharWidth = 6;
  static constexpr int kLineHeight = 10;

  // Draws on `surface`, which must outlive the DC (shared: it may outlive the DC's
  // window too).
  explicit PixelDC(std::shared_ptr<PixelSurface> surface);

  CSize GetTextExtent(const wchar_t* text, int count) const override;
  BOOL TextOut(int x, int y, const wchar_t* text, int count) override;
  BOOL GetTextMetrics(LPTEXTMETRIC metrics) const override;
  using CDC::GetTextExtent;
  using CDC::TextOut;

 protected:
  BOOL PaintLine(CPoint from, CPoint to) override;
  BOOL PaintSolidRect(const CRect& rect, COLORREF color) override;
  BOOL PaintShape(Shape shape, const CRect& box, CPoint start, CPoint end) override;

 private:
  std::shared_ptr<PixelSurface> surface_;
};

}  // namespace vglobal
