// CClientDC: the state lives in this object, as callers select into it; the
// platform's DC does the drawing and is handed that state before every call.
#include "vglobal/compat/client_dc.h"

#include "vglobal/platform.h"

CClientDC::CClientDC(CWnd* window)
    : target_(window ? vglobal::GetPlatform().CreateClientDC(*window) : nullptr) {}

CClientDC::~CClientDC() = default;

CDC* CClientDC::Synced() const {
  if (target_) target_->AdoptState(*this);
  return target_.get();
}

CSize CClientDC::GetTextExtent(const wchar_t* text, int count) const {
  CDC* dc = Synced();
  return dc ? dc->GetTextExtent(text, count) : CSize();
}

BOOL CClientDC::TextOut(int x, int y, const wchar_t* text, int count) {
  CDC* dc = Synced();
  return dc ? dc->TextOut(x, y, text, count) : FALSE;
}

BOOL CClientDC::GetTextMetrics(LPTEXTMETRIC metrics) const {
  CDC* dc = Synced();
  return dc ? dc->GetTextMetrics(metrics) : FALSE;
}

BOOL CClientDC::DrawImage(const vglobal::ImageCell& cell, int x, int y, UINT style) {
  CDC* dc = Synced();
  return dc ? dc->DrawImage(cell, x, y, style) : FALSE;
}

void CClientDC::DrawLine(int x, int y, const std::wstring& line, int mnemonic) {
  if (CDC* dc = Synced()) dc->DrawLine(x, y, line, mnemonic);
}

BOOL CClientDC::PaintLine(CPoint from, CPoint to) {
  CDC* dc = Synced();
  return dc ? dc->PaintLine(from, to) : FALSE;
}

BOOL CClientDC::PaintSolidRect(const CRect& rect, COLORREF color) {
  CDC* dc = Synced();
  return dc ? dc->PaintSolidRect(rect, color) : FALSE;
}

BOOL CClientDC::PaintShape(Shape shape, const CRect& box, CPoint start, CPoint end) {
  CDC* dc = Synced();
  return dc ? dc->PaintShape(shape, box, start, end) : FALSE;
}
