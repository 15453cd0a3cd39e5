// Splitting a text into rows of a width and drawing them.
//
// Rows are cut as prefixes of the remaining text and measured in place (pointer and
// length), so trying one candidate after another copies nothing.
#include "vglobal/util/string_split.h"

#include <cstdlib>
#include <string>
#include <string_view>

#include "vglobal/compat/window.h"

namespace {

constexpr std::size_t npos = std::wstring_view::npos;

struct Row {
  std::size_t length;    // characters shown on the row
  std::size_t consumed;  // characters taken from the text: the row and its line break
};

// The first row of `rest` (not empty).
Row CutRow(const CDC& dc, std::wstring_view rest, std::wstring_view breakChars, int maxWidth) {
  std::size_t length = rest.size();
  // The line break that ended the row most recently, if any: it belongs to the row
  // only while the row still reaches it. A row that is cut further for its width ends
  // before the break, and the break starts the next row instead of being swallowed
  // with the characters between.
  std::size_t lineEnd = npos;
  std::size_t breakLength = 0;
  for (;;) {
    const std::wstring_view row = rest.substr(0, length);
    const std::size_t crlf = row.find(L"\r\n");
    if (crlf == npos && dc.GetTextExtent(row.data(), static_cast<int>(length)).cx <= maxWidth)
      break;
    if (crlf != npos) {
      length = lineEnd = crlf;
      breakLength = 2;
      continue;
    }
    if (const std::size_t lf = row.find(L'\n'); lf != npos) {
      length = lineEnd = lf;
      breakLength = 1;
      continue;
    }
    if (length == 0) break;  // nothing is narrow enough (maxWidth below zero)
    --length;
    for (wchar_t breakChar : breakChars) {
      const std::size_t at = rest.substr(0, length).rfind(breakChar);
      if (at != npos) {
        length = at + 1;
        break;
      }
    }
  }
  // An empty row would take nothing from the text and the split would never end: the
  // first character goes on the row even though it is too wide.
  if (length == 0 && lineEnd != 0) length = 1;
  return {length, length + (length == lineEnd ? breakLength : 0)};
}

}  // namespace

VCStringSplitt::VCStringSplitt(CString& text, CString& breakChars, CDC* dc, int maxWidth)
    : m_pDC(dc), m_strFullString(text), m_strBreakChars(breakChars), m_nMaxWidth(maxWidth) {}

VCStringSplitt::~VCStringSplitt() = default;

void VCStringSplitt::Display(CString& /*row*/) {}

void VCStringSplitt::SetFullString(CString& text) {
  m_strFullString = text;
}

void VCStringSplitt::DisplaySplitt() {
  m_nRows = 0;
  if (!m_pDC) return;
  // Copies: Display may change the full text or the break characters under us.
  const std::wstring text = m_strFullString.str();
  const std::wstring breakChars = m_strBreakChars.str();
  const std::wstring_view all(text);
  for (std::size_t start = 0; start < all.size();) {
    const Row cut = CutRow(*m_pDC, all.substr(start), breakChars, m_nMaxWidth);
    CString row(all.substr(start, cut.length));
    Display(row);
    start += cut.consumed;
  }
}

VCStringDisplay::VCStringDisplay(CString& text, CString& breakChars, CDC* dc, int maxWidth, int x,
                                 int y, int lineStep, int firstRow, int draw, int limitEnabled,
                                 int lowestY)
    : VCStringSplitt(text, breakChars, dc, maxWidth),
      m_nX(x),
      m_nY(y),
      m_nLineStep(lineStep),
      m_nFirstRow(firstRow),
      m_bDraw(draw),
      m_bLimit(limitEnabled) {
  if (limitEnabled) m_nLowestY = lowestY;
}

void VCStringDisplay::SetStartxy(int x, int y) {
  m_nX = x;
  m_nY = y;
}

void VCStringDisplay::Display(CString& row) {
  ++m_nRows;
  if (!m_bDraw || m_nRows < m_nFirstRow) return;
  // In 64 bits, so that the absolute value of the most negative y exists.
  if (m_bLimit && std::llabs(m_nY) > std::llabs(m_nLowestY)) return;
  if (m_pDC) m_pDC->TextOut(m_nX, m_nY, row);
  m_nY = vglobal::geometry::Add(m_nY, m_nLineStep);
}
