// The drawing vocabulary of the legacy API: colours, pens, brushes, fonts, raster
// modes, and the GDI objects (CPen, CBrush, CFont) that a CDC selects.
//
// A GDI object here is a value once created: a CDC copies what it selects, so an
// object may be destroyed while selected without harm, and a pointer handed back by
// SelectObject is checked against the live objects before it is used again (a
// destroyed object's pointer is refused, never followed).
//
// Contract: objects of the user-interface thread; the registry of live objects is
// guarded, so objects may be made and destroyed on other threads too.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/compat/geometry.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

class CDC;

// ---- colours -----------------------------------------------------------------

// A colour as 0x00BBGGRR.
constexpr COLORREF RGB(BYTE r, BYTE g, BYTE b) {
  return static_cast<COLORREF>(r) | (static_cast<COLORREF>(g) << 8) |
         (static_cast<COLORREF>(b) << 16);
}
constexpr BYTE GetRValue(COLORREF c) {
  return static_cast<BYTE>(c & 0xFF);
}
constexpr BYTE GetGValue(COLORREF c) {
  return static_cast<BYTE>((c >> 8) & 0xFF);
}
constexpr BYTE GetBValue(COLORREF c) {
  return static_cast<BYTE>((c >> 16) & 0xFF);
}

// ---- raster modes, pen and brush styles, background modes -------------------

// Binary raster operations: how a pen's colour P combines with the pixel D under it.
constexpr int R2_BLACK = 1;         // 0
constexpr int R2_NOTMERGEPEN = 2;   // ~(P | D)
constexpr int R2_MASKNOTPEN = 3;    // ~P & D
constexpr int R2_NOTCOPYPEN = 4;    // ~P
constexpr int R2_MASKPENNOT = 5;    // P & ~D
constexpr int R2_NOT = 6;           // ~D
constexpr int R2_XORPEN = 7;        // P ^ D
constexpr int R2_NOTMASKPEN = 8;    // ~(P & D)
constexpr int R2_MASKPEN = 9;       // P & D
constexpr int R2_NOTXORPEN = 10;    // ~(P ^ D): a black pen inverts, twice restores
constexpr int R2_NOP = 11;          // D
constexpr int R2_MERGENOTPEN = 12;  // ~P | D
constexpr int R2_COPYPEN = 13;      // P (the default)
constexpr int R2_MERGEPENNOT = 14;  // P | ~D
constexpr int R2_MERGEPEN = 15;     // P | D
constexpr int R2_WHITE = 16;        // 1

namespace vglobal {
// The colour a raster mode makes of pen colour `pen` over pixel `dest` (24 bits);
// `dest` unchanged for a mode outside R2_BLACK..R2_WHITE.
VGLOBAL_EXPORT COLORREF ApplyRop2(int rop2, COLORREF pen, COLORREF dest);
}  // namespace vglobal

constexpr UINT PS_SOLID = 0;
constexpr UINT PS_DASH = 1;
constexpr UINT PS_DOT = 2;
constexpr UINT PS_DASHDOT = 3;
constexpr UINT PS_DASHDOTDOT = 4;
constexpr UINT PS_NULL = 5;
constexpr UINT PS_INSIDEFRAME = 6;

constexpr UINT BS_SOLID = 0;
constexpr UINT BS_NULL = 1;
constexpr UINT BS_HOLLOW = BS_NULL;

// Background modes: OPAQUE fills the box behind text with the background colour.
constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

constexpr LONG FW_DONTCARE = 0;
constexpr LONG FW_NORMAL = 400;
constexpr LONG FW_BOLD = 700;
constexpr int LF_FACESIZE = 32;

// Stock objects (CDC::SelectStockObject).
constexpr int WHITE_BRUSH = 0;
constexpr int LTGRAY_BRUSH = 1;
constexpr int GRAY_BRUSH = 2;
constexpr int DKGRAY_BRUSH = 3;
constexpr int BLACK_BRUSH = 4;
constexpr int NULL_BRUSH = 5;
constexpr int HOLLOW_BRUSH = NULL_BRUSH;
constexpr int WHITE_PEN = 6;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;

struct LOGPEN {
  UINT lopnStyle;
  POINT lopnWidth;  // x is the width; 0 draws one pixel wide
  COLORREF lopnColor;
};

struct LOGBRUSH {
  UINT lbStyle;
  COLORREF lbColor;
  UINT_PTR lbHatch;
};

struct LOGFONT {
  LONG lfHeight;  // < 0: character height in pixels; > 0: cell height; 0: the default
  LONG lfWidth;
  LONG lfEscapement;
  LONG lfOrientation;
  LONG lfWeight;  // FW_NORMAL, FW_BOLD ...; 0: normal
  BYTE lfItalic;
  BYTE lfUnderline;
  BYTE lfStrikeOut;
  BYTE lfCharSet;
  BYTE lfOutPrecision;
  BYTE lfClipPrecision;
  BYTE lfQuality;
  BYTE lfPitchAndFamily;
  WCHAR lfFaceName[LF_FACESIZE];  // empty: the default face
};
using LPLOGFONT = LOGFONT*;

struct HGDIOBJ__;
using HGDIOBJ = HGDIOBJ__*;

// ---- GDI objects ---------------------------------------------------------------

// The base of pens, brushes and fonts: made empty, then created once (a second
// Create... answers FALSE), then a value that never changes until DeleteObject.
class VGLOBAL_EXPORT CGdiObject : public CObject {
 public:
  enum class Kind { kPen, kBrush, kFont };

  ~CGdiObject() override;
  CGdiObject(const CGdiObject&) = delete;
  CGdiObject& operator=(const CGdiObject&) = delete;

  HGDIOBJ m_hObject = nullptr;  // non-null once created
  HGDIOBJ GetSafeHandle() const { return m_hObject; }
  // Makes the object empty again (a DC that selected it keeps drawing with its value).
  // FALSE when it was empty.
  BOOL DeleteObject();
  Kind GetKind() const { return kind_; }

 protected:
  explicit CGdiObject(Kind kind);
  void MarkCreated();

 private:
  Kind kind_;
};

class VGLOBAL_EXPORT CPen : public CGdiObject {
 public:
  CPen();
  // Created at once (width below 0 counts as 0).
  CPen(int style, int width, COLORREF color);
  BOOL CreatePen(int style, int width, COLORREF color);
  // FALSE and nothing copied when the pen is empty or pen is null.
  BOOL GetLogPen(LOGPEN* pen) const;

 private:
  LOGPEN value_{PS_SOLID, {1, 0}, 0};
};

class VGLOBAL_EXPORT CBrush : public CGdiObject {
 public:
  CBrush();
  explicit CBrush(COLORREF color);
  BOOL CreateSolidBrush(COLORREF color);
  // Any style but BS_NULL paints solid.
  BOOL CreateBrushIndirect(const LOGBRUSH* brush);
  BOOL GetLogBrush(LOGBRUSH* brush) const;

 private:
  LOGBRUSH value_{BS_SOLID, 0, 0};
};

class VGLOBAL_EXPORT CFont : public CGdiObject {
 public:
  CFont();
  // pointSize in tenths of a point, measured at 96 dots per inch (the dc, if given,
  // is not asked); face null or empty: the default face.
  BOOL CreatePointFont(int pointSize, const wchar_t* face, CDC* dc = nullptr);
  // A face name that fills its array without a terminating zero is cut to 31
  // characters. FALSE for a null font.
  BOOL CreateFontIndirect(const LOGFONT* font);
  BOOL GetLogFont(LOGFONT* font) const;

 private:
  LOGFONT value_{};
};

namespace vglobal {
// Whether `object` is a live GDI object of that kind (so a pointer may be followed).
VGLOBAL_EXPORT bool IsLiveGdiObject(const CGdiObject* object, CGdiObject::Kind kind);
// The stock objects: made once, never destroyed. Null for an unknown index.
VGLOBAL_EXPORT CGdiObject* StockObject(int index);
// Field by field; face names up to their terminating zero.
VGLOBAL_EXPORT bool SameFont(const LOGFONT& a, const LOGFONT& b);
}  // namespace vglobal
