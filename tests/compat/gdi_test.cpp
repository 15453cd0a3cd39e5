// Drawing state and transient drawing: raster modes, what SelectObject hands back
// and refuses, the state a platform DC draws with, and a window's client DC on
// which a line drawn twice with the not-XOR pen is gone.
#include <gtest/gtest.h>

#include <climits>
#include <memory>

#include "support/scripted_platform.h"
#include "support/test_dc.h"
#include "vglobal/compat/client_dc.h"
#include "vglobal/compat/pixel_surface.h"

namespace {

using vglobal::ApplyRop2;
using vglobal::testing::TestDC;

TEST(RasterModes, CombinePenAndPixelAsTheirTruthTablesSay) {
  const COLORREF pen = RGB(0x12, 0x34, 0x56), dest = RGB(0xF0, 0x0F, 0xAA);
  EXPECT_EQ(ApplyRop2(R2_COPYPEN, pen, dest), pen);
  EXPECT_EQ(ApplyRop2(R2_NOP, pen, dest), dest);
  EXPECT_EQ(ApplyRop2(R2_XORPEN, pen, dest), pen ^ dest);
  EXPECT_EQ(ApplyRop2(R2_NOT, pen, dest), ~dest & 0xFFFFFF);
  EXPECT_EQ(ApplyRop2(R2_MASKPEN, pen, dest), pen & dest);
  EXPECT_EQ(ApplyRop2(R2_MERGEPEN, pen, dest), pen | dest);
  EXPECT_EQ(ApplyRop2(R2_BLACK, pen, dest), 0u);
  EXPECT_EQ(ApplyRop2(R2_WHITE, pen, dest), 0xFFFFFFu);
  EXPECT_EQ(ApplyRop2(0, pen, dest), dest);  // no such mode
  for (int mode : {R2_NOTXORPEN, R2_XORPEN, R2_NOT})
    EXPECT_EQ(ApplyRop2(mode, pen, ApplyRop2(mode, pen, dest)), dest) << mode;
  EXPECT_EQ(ApplyRop2(R2_NOTXORPEN, 0, RGB(255, 255, 255)), 0u);  // a black pen inverts
}

TEST(DrawingState, SelectObjectHandsBackThePreviousAndRefusesTheDead) {
  TestDC dc;
  CPen red(PS_SOLID, 3, RGB(255, 0, 0));
  auto* stockPen = dc.SelectObject(&red);
  ASSERT_NE(stockPen, nullptr);
  EXPECT_EQ(stockPen, vglobal::StockObject(BLACK_PEN));
  EXPECT_EQ(dc.PenInUse().lopnWidth.x, 3);
  auto blue = std::make_unique<CPen>(PS_DOT, 1, RGB(0, 0, 255));
  EXPECT_EQ(dc.SelectObject(blue.get()), &red);
  CPen* gone = blue.get();
  blue.reset();
  EXPECT_EQ(dc.PenInUse().lopnColor, RGB(0, 0, 255));  // the value stays after the pen went
  EXPECT_EQ(dc.SelectObject(gone), nullptr);           // a destroyed pen is refused, not read
  EXPECT_EQ(dc.SelectObject(static_cast<CPen*>(nullptr)), nullptr);
  CPen again;
  EXPECT_FALSE(red.CreatePen(PS_SOLID, 1, 0));  // created once
  EXPECT_EQ(dc.SelectObject(&again), nullptr);

  EXPECT_EQ(dc.SetROP2(R2_NOTXORPEN), R2_COPYPEN);
  EXPECT_EQ(dc.SetROP2(17), 0);
  EXPECT_EQ(dc.GetROP2(), R2_NOTXORPEN);
  EXPECT_EQ(dc.SetBkMode(3), 0);
  EXPECT_NE(dc.SelectStockObject(NULL_BRUSH), nullptr);
  EXPECT_EQ(dc.BrushInUse().lbStyle, BS_NULL);
  EXPECT_EQ(dc.SelectStockObject(99), nullptr);
}

TEST(DrawingState, FontsChangeOnlyWhenTheyDifferAndFacesAreCut) {
  TestDC dc;
  CFont small, same, big;
  small.CreatePointFont(90, L"DejaVu Sans");
  same.CreatePointFont(90, L"DejaVu Sans");
  big.CreatePointFont(140, L"DejaVu Sans");
  CFont* own = dc.SelectObject(&small);
  EXPECT_EQ(dc.FontInUse()->lfHeight, -12);  // 9 points at 96 dots per inch
  dc.SelectObject(&same);
  dc.SelectObject(&big);
  EXPECT_EQ(dc.fontChanges, 2);
  dc.SelectObject(own);  // back to the DC's own font
  EXPECT_EQ(dc.FontInUse(), nullptr);
  EXPECT_EQ(dc.fontChanges, 3);

  LOGFONT untrusted{};
  for (wchar_t& c : untrusted.lfFaceName) c = L'x';  // no terminating zero
  CFont cut;
  ASSERT_TRUE(cut.CreateFontIndirect(&untrusted));
  LOGFONT back;
  cut.GetLogFont(&back);
  EXPECT_EQ(std::wstring(back.lfFaceName).size(), 31u);
}

TEST(DrawingState, LinesAndShapesReachThePlatformWithTheirState) {
  TestDC dc;
  CPen bar(PS_SOLID, 3, 0);
  dc.SelectObject(&bar);
  dc.SetROP2(R2_NOTXORPEN);
  EXPECT_EQ(dc.MoveTo(10, 5), CPoint(0, 0));
  dc.LineTo(10, 25);
  EXPECT_EQ(dc.GetCurrentPosition(), CPoint(10, 25));
  dc.Pie(40, 40, 0, 0, 40, 20, 20, 0);  // given the wrong way round
  dc.FillSolidRect(1, 2, 3, 4, RGB(1, 2, 3));
  ASSERT_EQ(dc.painted.size(), 3u);
  EXPECT_EQ(dc.painted[0].box, CRect(10, 5, 10, 25));
  EXPECT_EQ(dc.painted[0].rop2, R2_NOTXORPEN);
  EXPECT_EQ(dc.painted[0].pen.lopnWidth.x, 3);
  EXPECT_EQ(dc.painted[1].box, CRect(0, 0, 40, 40));
  EXPECT_EQ(dc.painted[1].end, CPoint(20, 0));
  EXPECT_EQ(dc.painted[2].box, CRect(1, 2, 4, 6));
  EXPECT_EQ(dc.GetBkColor(), RGB(1, 2, 3));  // FillSolidRect leaves its colour behind
}

TEST(ClientDC, ALineDrawnTwiceWithTheNotXorPenIsGone) {
  vglobal::testing::ScriptedPlatform platform;
  CWnd toolbar;
  {
    CClientDC dc(&toolbar);
    CPen pen(PS_SOLID, 3, RGB(0, 0, 0));
    dc.SelectObject(&pen);
    dc.SetROP2(R2_NOTXORPEN);
    dc.MoveTo(50, 2);
    dc.LineTo(50, 22);
  }
  const vglobal::PixelSurface* surface = platform.TransientSurface(toolbar);
  ASSERT_NE(surface, nullptr);
  // Three pixels wide with round ends; shown after the DC went.
  EXPECT_EQ(surface->MarkedBounds(), CRect(49, 1, 52, 24));
  EXPECT_EQ(surface->Pixel(50, 10), 0u);
  {
    CClientDC dc(&toolbar);
    CPen pen(PS_SOLID, 3, RGB(0, 0, 0));
    dc.SelectObject(&pen);
    dc.SetROP2(R2_NOTXORPEN);
    dc.MoveTo(50, 2);
    dc.LineTo(50, 22);
  }
  EXPECT_TRUE(surface->Marked().empty());

  CClientDC none(nullptr);
  EXPECT_FALSE(none.HasSurface());
  EXPECT_FALSE(none.LineTo(5, 5));
}

TEST(PixelDC, ShapesCoverWhatTheySayAndHugeCoordinatesAreClipped) {
  auto surface = std::make_shared<vglobal::PixelSurface>(100, 100);
  vglobal::PixelDC dc(surface);
  CBrush blue(RGB(0, 0, 255));
  dc.SelectObject(&blue);
  dc.SelectStockObject(NULL_PEN);
  // A quarter from the ray pointing right, counter-clockwise to the one pointing up.
  dc.Pie(0, 0, 40, 40, 40, 20, 20, 0);
  EXPECT_EQ(surface->Pixel(30, 10), RGB(0, 0, 255));
  EXPECT_EQ(surface->Pixel(10, 10), 0xFFFFFFu);
  EXPECT_EQ(surface->Pixel(30, 30), 0xFFFFFFu);
  EXPECT_EQ(surface->MarkedBounds(), CRect(20, 0, 40, 20));

  dc.SelectStockObject(BLACK_PEN);
  dc.SetROP2(R2_XORPEN);
  dc.Rectangle(60, 60, 70, 70);
  EXPECT_EQ(surface->Pixel(60, 65), RGB(255, 255, 255) ^ 0u);  // black XOR white: white
  EXPECT_EQ(surface->Pixel(65, 65), RGB(255, 255, 0));         // blue XOR white

  dc.SetROP2(R2_COPYPEN);
  dc.MoveTo(INT_MIN, INT_MIN);
  EXPECT_TRUE(dc.LineTo(INT_MAX, INT_MAX));  // returns at once: only the visible part
  EXPECT_EQ(surface->Pixel(80, 80), 0u);
  dc.Ellipse(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
  dc.Rectangle(INT_MAX, INT_MAX, INT_MIN, INT_MIN);
}

}  // namespace
