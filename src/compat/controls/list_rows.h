// Rows of text with item data, shared by the list kinds (list box, combo box, list
// control): the row record, the row operations that keep a selection on its rows,
// and the scrolling of rows through a page.
#pragma once

#include <string>
#include <vector>

#include "compat/dialog_state.h"

namespace vglobal {

struct ListItem {
  std::wstring text;                   // the row's text (column 0 of a list control)
  std::vector<std::wstring> subItems;  // list controls: columns 1...
  DWORD_PTR data = 0;
  int image = -1;
  bool selected = false;
};

struct RowsState : ControlState {
  // The edge around the rows, in pixels: the frame the Qt item views draw.
  static constexpr int kBorder = 1;
  // A vertical scroll bar's width: Windows' at 96 dpi, and no narrower than the Qt
  // styles' bars, so that what is fitted beside one is never covered by it.
  static constexpr int kScrollBarWidth = 17;

  std::vector<ListItem> items;
  int curSel = -1;  // single selection
  int caret = -1;   // multi-selection list box: caret row; list control: focused row
  int topIndex = 0;

  bool InRange(int row) const { return row >= 0 && static_cast<std::size_t>(row) < items.size(); }
  int Count() const { return static_cast<int>(items.size()); }

  // ---- scrolling (the kinds that scroll say how high their rows are) ---------
  // A row's height in pixels; 0 for kinds that do not scroll (combo boxes).
  virtual int RowHeight() const { return 0; }
  // Where the first row shown starts, in client pixels.
  virtual int RowsTop() const { return kBorder; }
  // The dialog font's height (the dialog's base units).
  int FontHeight() const;
  // The rows that fit whole in the control, at least 1.
  int PerPage() const;
  // Keeps the top index where the last row is at the bottom at most, 0 once every
  // row fits. True when it moved.
  bool ClampTop();
  // Scrolls as little as it takes for `row` to show whole. True when it moved.
  bool ScrollTo(int row);
};

namespace rows {
// Inserts a row and keeps the selection on the rows it was on (sorted: after every
// row that does not sort after it, ignoring case). -1 for an index outside
// 0..count (index -1 appends).
int Insert(RowsState& c, int index, const wchar_t* text, bool sorted);
// Removes a row; a selection on it goes away. Returns the rows left, or -1.
int Delete(RowsState& c, UINT index);
// The first row after startAfter, wrapping around, whose text begins with (or
// equals) `text` ignoring case; -1 when none.
int Find(const RowsState& c, int startAfter, const wchar_t* text, bool exact);
int Text(const RowsState* c, int index, CString& text);
int TextLength(const RowsState* c, int index);
DWORD_PTR Data(const RowsState* c, int index);
int SetData(RowsState* c, int index, DWORD_PTR data);
}  // namespace rows

}  // namespace vglobal
