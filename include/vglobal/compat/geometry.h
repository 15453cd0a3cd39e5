// Points, sizes and rectangles of the legacy API: POINT/SIZE/RECT and their
// CPoint/CSize/CRect wrappers.
//
// Contract:
// - Plain values, no allocation, usable from any thread.
// - Coordinates are 32-bit. Arithmetic wraps around at the 32-bit limits as the
//   legacy types did, but never overflows a signed type (no undefined behaviour on
//   extreme coordinates).
// - A rectangle is half-open: it contains left <= x < right, top <= y < bottom. It
//   is empty when its width or height is zero or negative.
#pragma once

#include <cstdint>

#include "vglobal/compat/types.h"

struct POINT {
  LONG x;
  LONG y;
};
struct SIZE {
  LONG cx;
  LONG cy;
};
struct RECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
using LPPOINT = POINT*;
using LPSIZE = SIZE*;
using LPRECT = RECT*;
using LPCRECT = const RECT*;

namespace vglobal::geometry {
// Two's-complement arithmetic without signed overflow.
constexpr LONG Add(LONG a, LONG b) {
  return static_cast<LONG>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr LONG Sub(LONG a, LONG b) {
  return static_cast<LONG>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}
constexpr LONG Neg(LONG a) {
  return Sub(0, a);
}
constexpr LONG Mid(LONG a, LONG b) {
  return static_cast<LONG>((static_cast<std::int64_t>(a) + b) / 2);
}
}  // namespace vglobal::geometry

class CSize : public SIZE {
 public:
  constexpr CSize() : SIZE{0, 0} {}
  constexpr CSize(int cx, int cy) : SIZE{cx, cy} {}
  constexpr CSize(SIZE s) : SIZE(s) {}  // NOLINT: implicit as in the legacy API

  friend constexpr bool operator==(const CSize& a, const CSize& b) {
    return a.cx == b.cx && a.cy == b.cy;
  }
  constexpr CSize operator+(SIZE s) const {
    return {vglobal::geometry::Add(cx, s.cx), vglobal::geometry::Add(cy, s.cy)};
  }
  constexpr CSize operator-(SIZE s) const {
    return {vglobal::geometry::Sub(cx, s.cx), vglobal::geometry::Sub(cy, s.cy)};
  }
  constexpr CSize operator-() const {
    return {vglobal::geometry::Neg(cx), vglobal::geometry::Neg(cy)};
  }
  constexpr CSize& operator+=(SIZE s) { return *this = *this + s; }
  constexpr CSize& operator-=(SIZE s) { return *this = *this - s; }
};

class CPoint : public POINT {
 public:
  constexpr CPoint() : POINT{0, 0} {}
  constexpr CPoint(int x, int y) : POINT{x, y} {}
  constexpr CPoint(POINT p) : POINT(p) {}  // NOLINT: implicit as in the legacy API

  constexpr void Offset(int dx, int dy) {
    x = vglobal::geometry::Add(x, dx);
    y = vglobal::geometry::Add(y, dy);
  }
  constexpr void Offset(SIZE s) { Offset(s.cx, s.cy); }
  constexpr void SetPoint(int nx, int ny) {
    x = nx;
    y = ny;
  }

  friend constexpr bool operator==(const CPoint& a, const CPoint& b) {
    return a.x == b.x && a.y == b.y;
  }
  constexpr CPoint operator+(SIZE s) const {
    return {vglobal::geometry::Add(x, s.cx), vglobal::geometry::Add(y, s.cy)};
  }
  constexpr CPoint operator-(SIZE s) const {
    return {vglobal::geometry::Sub(x, s.cx), vglobal::geometry::Sub(y, s.cy)};
  }
  // The distance between two points.
  constexpr CSize operator-(POINT p) const {
    return {vglobal::geometry::Sub(x, p.x), vglobal::geometry::Sub(y, p.y)};
  }
  constexpr CPoint operator-() const {
    return {vglobal::geometry::Neg(x), vglobal::geometry::Neg(y)};
  }
  constexpr CPoint& operator+=(SIZE s) { return *this = *this + s; }
  constexpr CPoint& operator-=(SIZE s) { return *this = *this - s; }
};

class CRect : public RECT {
 public:
  constexpr CRect() : RECT{0, 0, 0, 0} {}
  constexpr CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
  constexpr CRect(const RECT& r) : RECT(r) {}  // NOLINT: implicit as in the legacy API
  constexpr CRect(POINT topLeft, SIZE size)
      : RECT{topLeft.x, topLeft.y, vglobal::geometry::Add(topLeft.x, size.cx),
             vglobal::geometry::Add(topLeft.y, size.cy)} {}
  constexpr CRect(POINT topLeft, POINT bottomRight)
      : RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

  constexpr int Width() const { return vglobal::geometry::Sub(right, left); }
  constexpr int Height() const { return vglobal::geometry::Sub(bottom, top); }
  constexpr CSize Size() const { return {Width(), Height()}; }
  constexpr CPoint TopLeft() const { return {left, top}; }
  constexpr CPoint BottomRight() const { return {right, bottom}; }
  constexpr CPoint CenterPoint() const {
    return {vglobal::geometry::Mid(left, right), vglobal::geometry::Mid(top, bottom)};
  }

  constexpr BOOL IsRectEmpty() const { return Width() <= 0 || Height() <= 0; }
  constexpr BOOL IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
  constexpr BOOL PtInRect(POINT p) const {
    return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
  }
  constexpr BOOL EqualRect(const RECT& r) const {
    return left == r.left && top == r.top && right == r.right && bottom == r.bottom;
  }

  constexpr void SetRect(int l, int t, int r, int b) {
    left = l;
    top = t;
    right = r;
    bottom = b;
  }
  constexpr void SetRectEmpty() { SetRect(0, 0, 0, 0); }
  constexpr void CopyRect(const RECT& r) { *static_cast<RECT*>(this) = r; }

  constexpr void OffsetRect(int dx, int dy) {
    using vglobal::geometry::Add;
    SetRect(Add(left, dx), Add(top, dy), Add(right, dx), Add(bottom, dy));
  }
  constexpr void OffsetRect(POINT p) { OffsetRect(p.x, p.y); }
  constexpr void OffsetRect(SIZE s) { OffsetRect(s.cx, s.cy); }
  // Moves every edge outwards by the amounts given (inwards for negative ones).
  constexpr void InflateRect(int l, int t, int r, int b) {
    using vglobal::geometry::Add;
    using vglobal::geometry::Sub;
    SetRect(Sub(left, l), Sub(top, t), Add(right, r), Add(bottom, b));
  }
  constexpr void InflateRect(int dx, int dy) { InflateRect(dx, dy, dx, dy); }
  constexpr void InflateRect(SIZE s) { InflateRect(s.cx, s.cy); }
  constexpr void DeflateRect(int l, int t, int r, int b) {
    using vglobal::geometry::Neg;
    InflateRect(Neg(l), Neg(t), Neg(r), Neg(b));
  }
  constexpr void DeflateRect(int dx, int dy) { DeflateRect(dx, dy, dx, dy); }
  constexpr void DeflateRect(SIZE s) { DeflateRect(s.cx, s.cy); }
  // Swaps edges so that left <= right and top <= bottom.
  constexpr void NormalizeRect() {
    if (left > right) {
      LONG t = left;
      left = right;
      right = t;
    }
    if (top > bottom) {
      LONG t = top;
      top = bottom;
      bottom = t;
    }
  }
  // The common part of a and b; empty (all zero) when they do not overlap.
  constexpr BOOL IntersectRect(const RECT& a, const RECT& b) {
    CRect r(a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
            a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom);
    if (r.IsRectEmpty() || CRect(a).IsRectEmpty() || CRect(b).IsRectEmpty()) {
      SetRectEmpty();
      return FALSE;
    }
    *this = r;
    return TRUE;
  }
  // The smallest rectangle holding both; an empty rectangle does not count.
  constexpr BOOL UnionRect(const RECT& a, const RECT& b) {
    const CRect ra(a), rb(b);
    if (ra.IsRectEmpty()) {
      *this = rb.IsRectEmpty() ? CRect() : rb;
    } else if (rb.IsRectEmpty()) {
      *this = ra;
    } else {
      SetRect(a.left < b.left ? a.left : b.left, a.top < b.top ? a.top : b.top,
              a.right > b.right ? a.right : b.right, a.bottom > b.bottom ? a.bottom : b.bottom);
    }
    return !IsRectEmpty();
  }

  friend constexpr bool operator==(const CRect& a, const CRect& b) { return a.EqualRect(b); }
  operator LPRECT() { return this; }         // NOLINT: implicit as in the legacy API
  operator LPCRECT() const { return this; }  // NOLINT
  constexpr CRect operator+(POINT p) const {
    CRect r(*this);
    r.OffsetRect(p);
    return r;
  }
  constexpr CRect operator-(POINT p) const {
    CRect r(*this);
    r.OffsetRect(vglobal::geometry::Neg(p.x), vglobal::geometry::Neg(p.y));
    return r;
  }
  constexpr CRect& operator+=(POINT p) {
    OffsetRect(p);
    return *this;
  }
  constexpr CRect& operator-=(POINT p) { return *this = *this - p; }
};

// Whether the point lies in the rectangle (right and bottom edges outside); FALSE
// for a null rectangle.
constexpr BOOL PtInRect(const RECT* rect, POINT point) {
  return rect && CRect(*rect).PtInRect(point);
}
