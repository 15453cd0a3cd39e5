// A drawing context for tests: every character is 6 pixels wide and a line 10
// pixels high, and what is drawn is recorded (text, and lines, fills and shapes with
// the pen, brush and raster mode they were drawn with).
#pragma once

#include <string>
#include <vector>

#include "vglobal/compat/window.h"

namespace vglobal::testing {

class TestDC : public CDC {
 public:
  static constexpr int kCharWidth = 6;
  static constexpr int kLineHeight = 10;

  struct Drawn {
    int x, y;
    std::wstring text;
  };
  std::vector<Drawn> drawn;

  struct Painted {
    enum Kind { kLine, kFill, kRectangle, kEllipse, kPie } kind;
    CRect box;  // a line: from (left, top) to (right, bottom)
    CPoint start, end;
    LOGPEN pen;
    LOGBRUSH brush;
    int rop2;
    COLORREF fill;
  };
  std::vector<Painted> painted;
  int fontChanges = 0;

  CSize GetTextExtent(const wchar_t* /*text*/, int count) const override {
    return {count * kCharWidth, kLineHeight};
  }
  BOOL TextOut(int x, int y, const wchar_t* text, int count) override {
    drawn.push_back({x, y, std::wstring(text, static_cast<std::size_t>(count))});
    return TRUE;
  }
  BOOL GetTextMetrics(LPTEXTMETRIC tm) const override {
    *tm = {kLineHeight, 8, 2, 0, kCharWidth, kCharWidth};
    return TRUE;
  }

 protected:
  BOOL PaintLine(CPoint from, CPoint to) override {
    painted.push_back({Painted::kLine,
                       CRect(from.x, from.y, to.x, to.y),
                       {},
                       {},
                       PenInUse(),
                       BrushInUse(),
                       GetROP2(),
                       0});
    return TRUE;
  }
  BOOL PaintSolidRect(const CRect& rect, COLORREF color) override {
    painted.push_back({Painted::kFill, rect, {}, {}, PenInUse(), BrushInUse(), GetROP2(), color});
    return TRUE;
  }
  BOOL PaintShape(Shape shape, const CRect& box, CPoint start, CPoint end) override {
    const auto kind = shape == Shape::kRectangle ? Painted::kRectangle
                      : shape == Shape::kEllipse ? Painted::kEllipse
                                                 : Painted::kPie;
    painted.push_back({kind, box, start, end, PenInUse(), BrushInUse(), GetROP2(), 0});
    return TRUE;
  }
  void FontSelected() override { ++fontChanges; }
};

}  // namespace vglobal::testing
