// Pens, brushes and fonts, and the drawing state a CDC keeps: what is selected,
// the raster mode, the colours and the current position. The pixels are the
// platform DC's (the Paint... primitives).
//
// Map of this file:
//   1. raster operations
//   2. the registry of live GDI objects, stock objects
//   3. CGdiObject, CPen, CBrush, CFont
//   4. CDC: selecting, modes, lines and shapes
#include <algorithm>
#include <cwchar>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "vglobal/compat/window.h"

// ---- 1. raster operations ----------------------------------------------------------

namespace vglobal {

// The sixteen modes are the sixteen truth tables of two bits: bit (2p + d) of
// (mode - 1) is the result for pen bit p and pixel bit d.
COLORREF ApplyRop2(int rop2, COLORREF pen, COLORREF dest) {
  if (rop2 < R2_BLACK || rop2 > R2_WHITE) return dest;
  const unsigned table = static_cast<unsigned>(rop2 - 1);
  const COLORREF p = pen & 0xFFFFFF, d = dest & 0xFFFFFF;
  COLORREF out = 0;
  if (table & 1) out |= ~p & ~d;
  if (table & 2) out |= ~p & d;
  if (table & 4) out |= p & ~d;
  if (table & 8) out |= p & d;
  return out & 0xFFFFFF;
}

bool SameFont(const LOGFONT& a, const LOGFONT& b) {
  return a.lfHeight == b.lfHeight && a.lfWidth == b.lfWidth && a.lfEscapement == b.lfEscapement &&
         a.lfOrientation == b.lfOrientation && a.lfWeight == b.lfWeight &&
         a.lfItalic == b.lfItalic && a.lfUnderline == b.lfUnderline &&
         a.lfStrikeOut == b.lfStrikeOut && a.lfCharSet == b.lfCharSet &&
         a.lfPitchAndFamily == b.lfPitchAndFamily &&
         std::wcsncmp(a.lfFaceName, b.lfFaceName, LF_FACESIZE) == 0;
}

// ---- 2. live objects -----------------------------------------------------------------

namespace {

struct GdiRegistry {
  std::mutex mutex;
  std::unordered_map<const CGdiObject*, CGdiObject::Kind> live;
  std::uintptr_t nextHandle = 1;
};

GdiRegistry& Registry() {
  static GdiRegistry* registry = new GdiRegistry;  // objects may be static
  return *registry;
}

// A stock object: made created, never destroyed.
template <typename T, typename... Args>
CGdiObject* Stock(Args... args) {
  return new T(args...);
}

CGdiObject* MakeStock(int index) {
  switch (index) {
    case WHITE_BRUSH:
      return Stock<CBrush>(RGB(255, 255, 255));
    case LTGRAY_BRUSH:
      return Stock<CBrush>(RGB(192, 192, 192));
    case GRAY_BRUSH:
      return Stock<CBrush>(RGB(128, 128, 128));
    case DKGRAY_BRUSH:
      return Stock<CBrush>(RGB(64, 64, 64));
    case BLACK_BRUSH:
      return Stock<CBrush>(RGB(0, 0, 0));
    case NULL_BRUSH: {
      auto* brush = new CBrush;
      LOGBRUSH hollow{BS_NULL, 0, 0};
      brush->CreateBrushIndirect(&hollow);
      return brush;
    }
    case WHITE_PEN:
      return Stock<CPen>(static_cast<int>(PS_SOLID), 0, RGB(255, 255, 255));
    case BLACK_PEN:
      return Stock<CPen>(static_cast<int>(PS_SOLID), 0, RGB(0, 0, 0));
    case NULL_PEN:
      return Stock<CPen>(static_cast<int>(PS_NULL), 0, RGB(0, 0, 0));
    default:
      return nullptr;
  }
}

// The stock font stands for "the DC's own font": selecting it selects no font.
CFont& SystemFont() {
  static CFont* font = [] {
    auto* f = new CFont;
    LOGFONT none{};
    f->CreateFontIndirect(&none);
    return f;
  }();
  return *font;
}

}  // namespace

bool IsLiveGdiObject(const CGdiObject* object, CGdiObject::Kind kind) {
  GdiRegistry& r = Registry();
  std::lock_guard lock(r.mutex);
  auto it = r.live.find(object);
  return it != r.live.end() && it->second == kind;
}

CGdiObject* StockObject(int index) {
  static CGdiObject* stock[NULL_PEN + 1] = {};
  static std::once_flag made;
  std::call_once(made, [] {
    for (int i = 0; i <= NULL_PEN; ++i) stock[i] = MakeStock(i);
  });
  return index >= 0 && index <= NULL_PEN ? stock[index] : nullptr;
}

}  // namespace vglobal

// ---- 3. the objects ------------------------------------------------------------------

CGdiObject::CGdiObject(Kind kind) : kind_(kind) {
  vglobal::GdiRegistry& r = vglobal::Registry();
  std::lock_guard lock(r.mutex);
  r.live.emplace(this, kind);
}

CGdiObject::~CGdiObject() {
  vglobal::GdiRegistry& r = vglobal::Registry();
  std::lock_guard lock(r.mutex);
  r.live.erase(this);
}

BOOL CGdiObject::DeleteObject() {
  if (!m_hObject) return FALSE;
  m_hObject = nullptr;
  return TRUE;
}

void CGdiObject::MarkCreated() {
  vglobal::GdiRegistry& r = vglobal::Registry();
  std::lock_guard lock(r.mutex);
  m_hObject = reinterpret_cast<HGDIOBJ>(r.nextHandle++);
}

CPen::CPen() : CGdiObject(Kind::kPen) {}

CPen::CPen(int style, int width, COLORREF color) : CPen() {
  CreatePen(style, width, color);
}

BOOL CPen::CreatePen(int style, int width, COLORREF color) {
  if (m_hObject) return FALSE;
  const UINT s = static_cast<UINT>(style);
  value_ = {s <= PS_INSIDEFRAME ? s : PS_SOLID, {std::max(width, 0), 0}, color & 0xFFFFFF};
  MarkCreated();
  return TRUE;
}

BOOL CPen::GetLogPen(LOGPEN* pen) const {
  if (!m_hObject || !pen) return FALSE;
  *pen = value_;
  return TRUE;
}

CBrush::CBrush() : CGdiObject(Kind::kBrush) {}

CBrush::CBrush(COLORREF color) : CBrush() {
  CreateSolidBrush(color);
}

BOOL CBrush::CreateSolidBrush(COLORREF color) {
  LOGBRUSH solid{BS_SOLID, color, 0};
  return CreateBrushIndirect(&solid);
}

BOOL CBrush::CreateBrushIndirect(const LOGBRUSH* brush) {
  if (m_hObject || !brush) return FALSE;
  value_ = {brush->lbStyle == BS_NULL ? BS_NULL : BS_SOLID, brush->lbColor & 0xFFFFFF, 0};
  MarkCreated();
  return TRUE;
}

BOOL CBrush::GetLogBrush(LOGBRUSH* brush) const {
  if (!m_hObject || !brush) return FALSE;
  *brush = value_;
  return TRUE;
}

CFont::CFont() : CGdiObject(Kind::kFont) {}

BOOL CFont::CreatePointFont(int pointSize, const wchar_t* face, CDC* /*dc*/) {
  LOGFONT font{};
  // Tenths of a point at 96 dots per inch, as a character height in pixels.
  font.lfHeight = -static_cast<LONG>((static_cast<long long>(pointSize) * 96 + 360) / 720);
  font.lfWeight = FW_NORMAL;
  if (face) std::wcsncpy(font.lfFaceName, face, LF_FACESIZE - 1);
  return CreateFontIndirect(&font);
}

BOOL CFont::CreateFontIndirect(const LOGFONT* font) {
  if (m_hObject || !font) return FALSE;
  value_ = *font;
  value_.lfFaceName[LF_FACESIZE - 1] = L'\0';  // stored faces may lack their zero
  MarkCreated();
  return TRUE;
}

BOOL CFont::GetLogFont(LOGFONT* font) const {
  if (!m_hObject || !font) return FALSE;
  *font = value_;
  return TRUE;
}

// ---- 4. CDC state ------------------------------------------------------------------

namespace {

constexpr std::size_t Slot(CGdiObject::Kind kind) {
  return static_cast<std::size_t>(kind);
}

}  // namespace

CPen* CDC::SelectObject(CPen* pen) {
  LOGPEN value;
  if (!vglobal::IsLiveGdiObject(pen, CGdiObject::Kind::kPen) || !pen->GetLogPen(&value))
    return nullptr;
  CGdiObject*& slot = selected_[Slot(CGdiObject::Kind::kPen)];
  auto* previous = static_cast<CPen*>(slot ? slot : vglobal::StockObject(BLACK_PEN));
  slot = pen;
  pen_ = value;
  return previous;
}

CBrush* CDC::SelectObject(CBrush* brush) {
  LOGBRUSH value;
  if (!vglobal::IsLiveGdiObject(brush, CGdiObject::Kind::kBrush) || !brush->GetLogBrush(&value))
    return nullptr;
  CGdiObject*& slot = selected_[Slot(CGdiObject::Kind::kBrush)];
  auto* previous = static_cast<CBrush*>(slot ? slot : vglobal::StockObject(WHITE_BRUSH));
  slot = brush;
  brush_ = value;
  return previous;
}

CFont* CDC::SelectObject(CFont* font) {
  LOGFONT value;
  if (!vglobal::IsLiveGdiObject(font, CGdiObject::Kind::kFont) || !font->GetLogFont(&value))
    return nullptr;
  CGdiObject*& slot = selected_[Slot(CGdiObject::Kind::kFont)];
  auto* previous = static_cast<CFont*>(slot ? slot : &vglobal::SystemFont());
  slot = font;
  const bool selected = font != &vglobal::SystemFont();
  const bool changed = selected != fontSelected_ || (selected && !vglobal::SameFont(value, font_));
  fontSelected_ = selected;
  font_ = selected ? value : LOGFONT{};
  if (changed) FontSelected();
  return previous;
}

CGdiObject* CDC::SelectStockObject(int index) {
  CGdiObject* stock = vglobal::StockObject(index);
  if (!stock) return nullptr;
  if (auto* pen = dynamic_cast<CPen*>(stock)) return SelectObject(pen);
  return SelectObject(static_cast<CBrush*>(stock));
}

int CDC::SetROP2(int mode) {
  if (mode < R2_BLACK || mode > R2_WHITE) return 0;
  return std::exchange(rop2_, mode);
}

COLORREF CDC::SetTextColor(COLORREF color) {
  return std::exchange(textColor_, color & 0xFFFFFF);
}

COLORREF CDC::SetBkColor(COLORREF color) {
  return std::exchange(bkColor_, color & 0xFFFFFF);
}

int CDC::SetBkMode(int mode) {
  if (mode != TRANSPARENT && mode != OPAQUE) return 0;
  return std::exchange(bkMode_, mode);
}

CPoint CDC::MoveTo(int x, int y) {
  return std::exchange(position_, CPoint(x, y));
}

BOOL CDC::LineTo(int x, int y) {
  const CPoint from = std::exchange(position_, CPoint(x, y));
  return PaintLine(from, position_);
}

void CDC::FillSolidRect(LPCRECT rect, COLORREF color) {
  if (!rect) return;
  SetBkColor(color);
  CRect r(*rect);
  r.NormalizeRect();
  PaintSolidRect(r, bkColor_);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF color) {
  const CRect r(x, y, vglobal::geometry::Add(x, cx), vglobal::geometry::Add(y, cy));
  FillSolidRect(&r, color);
}

BOOL CDC::Rectangle(int left, int top, int right, int bottom) {
  CRect box(left, top, right, bottom);
  box.NormalizeRect();
  return PaintShape(Shape::kRectangle, box, CPoint(), CPoint());
}

BOOL CDC::Rectangle(LPCRECT rect) {
  return rect ? Rectangle(rect->left, rect->top, rect->right, rect->bottom) : FALSE;
}

BOOL CDC::Ellipse(int left, int top, int right, int bottom) {
  CRect box(left, top, right, bottom);
  box.NormalizeRect();
  return PaintShape(Shape::kEllipse, box, CPoint(), CPoint());
}

BOOL CDC::Ellipse(LPCRECT rect) {
  return rect ? Ellipse(rect->left, rect->top, rect->right, rect->bottom) : FALSE;
}

BOOL CDC::Pie(int left, int top, int right, int bottom, int xStart, int yStart, int xEnd,
              int yEnd) {
  CRect box(left, top, right, bottom);
  box.NormalizeRect();
  return PaintShape(Shape::kPie, box, CPoint(xStart, yStart), CPoint(xEnd, yEnd));
}

BOOL CDC::Pie(LPCRECT rect, POINT start, POINT end) {
  return rect
             ? Pie(rect->left, rect->top, rect->right, rect->bottom, start.x, start.y, end.x, end.y)
             : FALSE;
}

BOOL CDC::PaintLine(CPoint /*from*/, CPoint /*to*/) {
  return FALSE;
}

BOOL CDC::PaintSolidRect(const CRect& /*rect*/, COLORREF /*color*/) {
  return FALSE;
}

BOOL CDC::PaintShape(Shape /*shape*/, const CRect& /*box*/, CPoint /*start*/, CPoint /*end*/) {
  return FALSE;
}

void CDC::FontSelected() {}

void CDC::AdoptState(const CDC& from) {
  const bool fontChanged = from.fontSelected_ != fontSelected_ ||
                           (from.fontSelected_ && !vglobal::SameFont(from.font_, font_));
  pen_ = from.pen_;
  brush_ = from.brush_;
  font_ = from.font_;
  fontSelected_ = from.fontSelected_;
  rop2_ = from.rop2_;
  textColor_ = from.textColor_;
  bkColor_ = from.bkColor_;
  bkMode_ = from.bkMode_;
  position_ = from.position_;
  if (fontChanged) FontSelected();
}
