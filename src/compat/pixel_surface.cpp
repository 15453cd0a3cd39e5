// PixelSurface and PixelDC: pixels in memory for transient drawing without a
// display.
//
// Every primitive first gathers the set of pixels it covers (each once, clipped to
// the surface, so that its cost is bounded by the surface and not by the
// coordinates), then applies the raster mode to each. Lines one pixel wide step
// along their longer axis and leave their end point out; wider lines cover the
// pixels whose centres lie within half the width of the segment (round ends).
// Ellipses and pies cover the pixels whose centres lie inside; their outline is the
// covered pixels next to an uncovered one.
#include "vglobal/compat/pixel_surface.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <numbers>
#include <vector>

namespace vglobal {
namespace {

using Pixels = std::vector<std::pair<int, int>>;  // (x, y)

// The part of `box` that lies on the surface.
CRect OnSurface(const PixelSurface& s, CRect box) {
  CRect clipped;
  clipped.IntersectRect(box, CRect(0, 0, s.Width(), s.Height()));
  return clipped;
}

Pixels ThinLine(const PixelSurface& s, CPoint from, CPoint to) {
  Pixels out;
  const long long dx = static_cast<long long>(to.x) - from.x;
  const long long dy = static_cast<long long>(to.y) - from.y;
  const long long n = std::max(std::llabs(dx), std::llabs(dy));
  if (n == 0) return out;
  // The steps whose pixels can lie on the surface, found by clipping the segment's
  // parameter to the surface on each axis.
  double t0 = 0, t1 = 1;
  auto clip = [&](double start, double delta, double low, double high) {
    if (delta == 0) {
      if (start < low || start > high) t0 = 2;  // never on the surface
      return;
    }
    double a = (low - start) / delta, b = (high - start) / delta;
    if (a > b) std::swap(a, b);
    t0 = std::max(t0, a);
    t1 = std::min(t1, b);
  };
  clip(from.x, static_cast<double>(dx), -1, s.Width());
  clip(from.y, static_cast<double>(dy), -1, s.Height());
  if (t0 > t1) return out;
  const long long first = std::max(0LL, static_cast<long long>(std::floor(t0 * n)) - 1);
  const long long last = std::min(n - 1, static_cast<long long>(std::ceil(t1 * n)) + 1);
  for (long long i = first; i <= last; ++i) {
    const long long x = from.x + std::llround(static_cast<double>(i) * dx / n);
    const long long y = from.y + std::llround(static_cast<double>(i) * dy / n);
    if (x >= 0 && y >= 0 && x < s.Width() && y < s.Height())
      out.emplace_back(static_cast<int>(x), static_cast<int>(y));
  }
  return out;
}

double DistanceToSegment(double px, double py, CPoint a, CPoint b) {
  const double dx = static_cast<double>(b.x) - a.x, dy = static_cast<double>(b.y) - a.y;
  const double length2 = dx * dx + dy * dy;
  double t = length2 > 0 ? ((px - a.x) * dx + (py - a.y) * dy) / length2 : 0;
  t = std::clamp(t, 0.0, 1.0);
  return std::hypot(px - (a.x + t * dx), py - (a.y + t * dy));
}

Pixels WideLine(const PixelSurface& s, CPoint from, CPoint to, int width) {
  Pixels out;
  const double half = width / 2.0;
  const int reach = width / 2 + 1;
  CRect box(std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x),
            std::max(from.y, to.y));
  box.InflateRect(reach, reach);
  const CRect area = OnSurface(s, box);
  for (int y = area.top; y < area.bottom; ++y)
    for (int x = area.left; x < area.right; ++x)
      if (DistanceToSegment(x, y, from, to) <= half - 0.25) out.emplace_back(x, y);
  return out;
}

// Whether the centre of pixel (x, y) lies in the shape.
bool Inside(CDC::Shape shape, const CRect& box, CPoint start, CPoint end, int x, int y) {
  if (shape == CDC::Shape::kRectangle) return true;
  const double cx = (static_cast<double>(box.left) + box.right) / 2;
  const double cy = (static_cast<double>(box.top) + box.bottom) / 2;
  const double rx = (static_cast<double>(box.right) - box.left) / 2;
  const double ry = (static_cast<double>(box.bottom) - box.top) / 2;
  const double px = x + 0.5 - cx, py = y + 0.5 - cy;
  if (rx <= 0 || ry <= 0 || (px * px) / (rx * rx) + (py * py) / (ry * ry) > 1) return false;
  if (shape == CDC::Shape::kEllipse) return true;
  // Angles counter-clockwise as seen on the screen, whose y axis points down.
  auto angle = [&](double ax, double ay) { return std::atan2(-(ay - cy), ax - cx); };
  constexpr double kTurn = 2 * std::numbers::pi;
  const double a0 = angle(start.x, start.y), a1 = angle(end.x, end.y);
  double sweep = std::fmod(a1 - a0 + 2 * kTurn, kTurn);
  if (sweep == 0) return true;  // coinciding rays: the whole ellipse
  const double at = std::fmod(std::atan2(-py, px) - a0 + 2 * kTurn, kTurn);
  return at <= sweep;
}

}  // namespace

// ---- PixelSurface ----------------------------------------------------------------

PixelSurface::PixelSurface(int width, int height, COLORREF background)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      background_(background & 0xFFFFFF) {}

COLORREF PixelSurface::Pixel(int x, int y) const {
  auto it = marked_.find({y, x});
  return it == marked_.end() ? background_ : it->second;
}

void PixelSurface::SetPixel(int x, int y, COLORREF color) {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
  color &= 0xFFFFFF;
  if (color == background_)
    marked_.erase({y, x});
  else
    marked_[{y, x}] = color;
}

CRect PixelSurface::MarkedBounds() const {
  CRect bounds;
  for (const auto& [at, color] : marked_) {
    const CRect pixel(at.second, at.first, at.second + 1, at.first + 1);
    bounds.UnionRect(bounds, pixel);
  }
  return bounds;
}

// ---- PixelDC -----------------------------------------------------------------------

PixelDC::PixelDC(std::shared_ptr<PixelSurface> surface) : surface_(std::move(surface)) {}

CSize PixelDC::GetTextExtent(const wchar_t* text, int count) const {
  if (!text) return {0, kLineHeight};
  const std::size_t n = count < 0 ? std::wcslen(text) : static_cast<std::size_t>(count);
  return {static_cast<int>(std::min<std::size_t>(n, 1 << 24)) * kCharWidth, kLineHeight};
}

BOOL PixelDC::TextOut(int /*x*/, int /*y*/, const wchar_t* text, int /*count*/) {
  return text != nullptr;
}

BOOL PixelDC::GetTextMetrics(LPTEXTMETRIC tm) const {
  if (!tm) return FALSE;
  *tm = {kLineHeight, 8, 2, 0, kCharWidth, kCharWidth};
  return TRUE;
}

BOOL PixelDC::PaintLine(CPoint from, CPoint to) {
  const LOGPEN& pen = PenInUse();
  if (pen.lopnStyle == PS_NULL) return TRUE;
  const Pixels pixels = pen.lopnWidth.x > 1 ? WideLine(*surface_, from, to, pen.lopnWidth.x)
                                            : ThinLine(*surface_, from, to);
  for (auto [x, y] : pixels)
    surface_->SetPixel(x, y, ApplyRop2(GetROP2(), pen.lopnColor, surface_->Pixel(x, y)));
  return TRUE;
}

BOOL PixelDC::PaintSolidRect(const CRect& rect, COLORREF color) {
  const CRect area = OnSurface(*surface_, rect);
  for (int y = area.top; y < area.bottom; ++y)
    for (int x = area.left; x < area.right; ++x) surface_->SetPixel(x, y, color);
  return TRUE;
}

BOOL PixelDC::PaintShape(Shape shape, const CRect& box, CPoint start, CPoint end) {
  const LOGPEN& pen = PenInUse();
  const LOGBRUSH& brush = BrushInUse();
  // Outlines wider than kWidestOutline are drawn that wide: enough for any drawing
  // a test looks at, and it bounds the work per pixel.
  constexpr int kWidestOutline = 64;
  const int border = pen.lopnStyle == PS_NULL
                         ? 0
                         : std::clamp(static_cast<int>(pen.lopnWidth.x), 1, kWidestOutline);
  const CRect area = OnSurface(*surface_, box);
  auto inside = [&](int x, int y) {
    return x >= box.left && x < box.right && y >= box.top && y < box.bottom &&
           Inside(shape, box, start, end, x, y);
  };
  // A covered pixel is on the outline when an uncovered one lies within the pen's
  // width of it, across or along.
  auto onOutline = [&](int x, int y) {
    for (int d = 1; d <= border; ++d)
      if (!inside(x - d, y) || !inside(x + d, y) || !inside(x, y - d) || !inside(x, y + d))
        return true;
    return false;
  };
  for (int y = area.top; y < area.bottom; ++y)
    for (int x = area.left; x < area.right; ++x) {
      if (!inside(x, y)) continue;
      if (border > 0 && onOutline(x, y))
        surface_->SetPixel(x, y, ApplyRop2(GetROP2(), pen.lopnColor, surface_->Pixel(x, y)));
      else if (brush.lbStyle != BS_NULL)
        surface_->SetPixel(x, y, ApplyRop2(GetROP2(), brush.lbColor, surface_->Pixel(x, y)));
    }
  return TRUE;
}

}  // namespace vglobal
