// Rows of text with item data, shared by the list kinds (list box, combo box, list
// control): the row record and the row operations that keep a selection on its rows.
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
  std::vector<ListItem> items;
  int curSel = -1;  // single selection
  int caret = -1;   // multi-selection list box: caret row; list control: focused row
  int topIndex = 0;

  bool InRange(int row) const { return row >= 0 && static_cast<std::size_t>(row) < items.size(); }
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
