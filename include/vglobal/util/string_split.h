// Breaking a text into rows no wider than a width, and drawing those rows.
//
// VCStringSplitt cuts a text into rows and hands each row to Display, which does
// nothing in this base class; VCStringDisplay counts the rows and draws them one
// below the other. Counting without drawing gives the height a text needs.
//
// How a row is cut from the text that remains:
// - The remaining text is the row if it is at most maxWidth wide (measured with
//   CDC::GetTextExtent) and holds no CR LF. A bare LF inside a row that fits stays on
//   the row.
// - Otherwise the row ends before its first CR LF, or else before its first LF; the
//   line break is consumed with the row and not shown.
// - A row still too wide loses its last character and is then cut just after the
//   last occurrence of a break character, trying the break characters in their order:
//   the first one that occurs decides, wherever the others stand. A break character
//   stays on its row. This repeats until the row fits.
// - A row is never empty unless a line break ends it: a character wider than
//   maxWidth, or any character when maxWidth is zero or less, stands alone on its
//   row. Every split therefore ends, with at most as many rows as the text has
//   characters, and every character of the text is on a row or is a line break.
//
// Contract: user-interface thread; the drawing context is not owned and must outlive
// the object (a null context splits nothing). A split works on the text as it was
// when DisplaySplitt began, whatever Display does with its row or the full text.
#pragma once

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"

class CDC;

class VGLOBAL_EXPORT VCStringSplitt {
 public:
  VCStringSplitt(CString& text, CString& breakChars, CDC* dc, int maxWidth);

  // Receives each row in order, without its line break. Does nothing here.
  virtual void Display(CString& row);
  virtual ~VCStringSplitt();

  void SetFullString(CString& text);
  // Splits the full text into rows and hands each to Display.
  void DisplaySplitt();
  // The number of rows the last split counted; Display counts them, so a class that
  // does not (this one) always answers 0.
  int Rows() const { return m_nRows; }

 protected:
  CDC* m_pDC;
  int m_nRows = 0;
  CString m_strFullString;
  CString m_strBreakChars;
  int m_nMaxWidth;
};

// Counts rows and draws them with CDC::TextOut from (x, y) downwards, adding lineStep
// to y after each row drawn. Rows before firstRow (counting from 1) are counted but
// not drawn; with `draw` zero nothing is drawn at all. With limitEnabled non-zero a
// row is not drawn once |y| has passed |lowestY|: comparing absolute values serves
// mapping modes in which y grows downwards into negative numbers. y wraps around at
// the 32-bit limits rather than overflowing.
class VGLOBAL_EXPORT VCStringDisplay : public VCStringSplitt {
 public:
  // lowestY is kept only when limitEnabled is non-zero (else it is 0).
  VCStringDisplay(CString& text, CString& breakChars, CDC* dc, int maxWidth, int x, int y,
                  int lineStep, int firstRow, int draw, int limitEnabled, int lowestY);

  void Display(CString& row) override;
  // Where the next row is drawn.
  void SetStartxy(int x, int y);

 protected:
  int m_nX;
  int m_nY;
  int m_nLineStep;
  int m_nFirstRow;
  int m_nLowestY = 0;
  int m_bDraw;
  int m_bLimit;
};
