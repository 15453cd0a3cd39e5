// CClientDC: a drawing context on a window's client area, for transient drawing
// (an insertion bar that follows the mouse, a rubber band).
//
// What it draws stays shown after the object goes, until it is drawn away: with
// R2_NOTXORPEN (or R2_XORPEN, R2_NOT) drawing the same line twice restores what was
// under it. The platform supplies the surface (vglobal::Platform::CreateClientDC):
// under Qt an overlay over the window; headless a vglobal::PixelSurface that tests
// read (Platform::TransientSurface).
//
// Contract: user-interface thread; the window must outlive the object.
#pragma once

#include <memory>

#include "vglobal/compat/window.h"
#include "vglobal/export.h"

class VGLOBAL_EXPORT CClientDC : public CDC {
 public:
  // A null window, or a platform that cannot draw on it, gives a DC that measures
  // nothing and draws nothing (every call answers FALSE or 0).
  explicit CClientDC(CWnd* window);
  ~CClientDC() override;

  CSize GetTextExtent(const wchar_t* text, int count) const override;
  BOOL TextOut(int x, int y, const wchar_t* text, int count) override;
  BOOL GetTextMetrics(LPTEXTMETRIC metrics) const override;
  using CDC::GetTextExtent;
  using CDC::TextOut;
  BOOL DrawImage(const vglobal::ImageCell& cell, int x, int y, UINT style) override;

  bool HasSurface() const { return target_ != nullptr; }

 protected:
  void DrawLine(int x, int y, const std::wstring& line, int mnemonic) override;
  BOOL PaintLine(CPoint from, CPoint to) override;
  BOOL PaintSolidRect(const CRect& rect, COLORREF color) override;
  BOOL PaintShape(Shape shape, const CRect& box, CPoint start, CPoint end) override;

 private:
  CDC* Synced() const;
  std::unique_ptr<CDC> target_;
};
