// Window geometry for every window: rectangles, client and screen coordinates,
// moving, centring. Each kind of window keeps its rectangle where it likes
// (RectInParent, PlaceInParent); everything here is built on those two.
#include <algorithm>

#include "vglobal/compat/window.h"
#include "vglobal/platform.h"

namespace {

// Parents deeper than this are taken for a loop in the parent chain.
constexpr int kDeepestParents = 64;

CRect Sized(int x, int y, int width, int height) {
  using vglobal::geometry::Add;
  return CRect(x, y, Add(x, std::max(width, 0)), Add(y, std::max(height, 0)));
}

}  // namespace

std::optional<CRect> CWnd::RectInParent() const {
  return rect_;
}

bool CWnd::PlaceInParent(const CRect& rect) {
  rect_ = rect;
  return true;
}

std::optional<CPoint> CWnd::ScreenOrigin() const {
  CPoint origin;
  const CWnd* w = this;
  for (int depth = 0; w && depth < kDeepestParents; ++depth) {
    std::optional<CRect> r = w->RectInParent();
    if (!r) return std::nullopt;
    origin.Offset(r->left, r->top);
    w = w->PlacedIn();
  }
  if (w) return std::nullopt;
  return origin;
}

BOOL CWnd::GetWindowRect(LPRECT rect) const {
  if (!rect) return FALSE;
  std::optional<CRect> r = RectInParent();
  std::optional<CPoint> origin = ScreenOrigin();
  if (!r || !origin) {
    *rect = CRect();
    return FALSE;
  }
  *rect = CRect(*origin, r->Size());
  return TRUE;
}

void CWnd::GetClientRect(LPRECT rect) const {
  if (!rect) return;
  std::optional<CRect> r = RectInParent();
  *rect = r ? CRect(CPoint(), r->Size()) : CRect();
}

void CWnd::ClientToScreen(LPPOINT point) const {
  std::optional<CPoint> origin = ScreenOrigin();
  if (point && origin) *point = CPoint(*point) + CSize(origin->x, origin->y);
}

void CWnd::ClientToScreen(LPRECT rect) const {
  std::optional<CPoint> origin = ScreenOrigin();
  if (rect && origin) *rect = CRect(*rect) + *origin;
}

void CWnd::ScreenToClient(LPPOINT point) const {
  std::optional<CPoint> origin = ScreenOrigin();
  if (point && origin) *point = CPoint(*point) - CSize(origin->x, origin->y);
}

void CWnd::ScreenToClient(LPRECT rect) const {
  std::optional<CPoint> origin = ScreenOrigin();
  if (rect && origin) *rect = CRect(*rect) - *origin;
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL /*repaint*/) {
  PlaceInParent(Sized(x, y, width, height));
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint) {
  if (!rect) return;
  CRect r(*rect);
  MoveWindow(r.left, r.top, r.Width(), r.Height(), repaint);
}

BOOL CWnd::SetWindowPos(const CWnd* /*after*/, int x, int y, int width, int height, UINT flags) {
  std::optional<CRect> current = RectInParent();
  if (!current) return FALSE;
  if (flags & SWP_NOMOVE) {
    x = current->left;
    y = current->top;
  }
  if (flags & SWP_NOSIZE) {
    width = current->Width();
    height = current->Height();
  }
  if (!PlaceInParent(Sized(x, y, width, height))) return FALSE;
  if (flags & SWP_SHOWWINDOW) ShowWindow(SW_SHOW);
  if (flags & SWP_HIDEWINDOW) ShowWindow(SW_HIDE);
  return TRUE;
}

void CWnd::CenterWindow(CWnd* alternate) {
  std::optional<CRect> current = RectInParent();
  if (!current) return;
  const CWnd* on = alternate ? alternate : GetParent();
  CRect area;
  if (!on || !on->GetWindowRect(&area) || area.IsRectEmpty())
    area = vglobal::GetPlatform().ScreenRect();
  const CSize size = current->Size();
  CPoint topLeft(area.CenterPoint().x - size.cx / 2, area.CenterPoint().y - size.cy / 2);
  if (const CWnd* placedIn = PlacedIn()) {
    if (std::optional<CPoint> origin = placedIn->ScreenOrigin())
      topLeft -= CSize(origin->x, origin->y);
  } else {
    // A window of its own stays on the screen, its top-left corner first.
    const CRect screen = vglobal::GetPlatform().ScreenRect();
    topLeft.x = std::max(std::min<LONG>(topLeft.x, vglobal::geometry::Sub(screen.right, size.cx)),
                         screen.left);
    topLeft.y = std::max(std::min<LONG>(topLeft.y, vglobal::geometry::Sub(screen.bottom, size.cy)),
                         screen.top);
  }
  PlaceInParent(CRect(topLeft, size));
}
