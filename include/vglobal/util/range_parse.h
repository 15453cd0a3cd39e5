// VDoubleRngParse: reads a short list of numbers and ranges that a user typed, such
// as "100-200, 350, 400.5-410", into pairs of low and high values.
//
// Contract:
// - Items are separated by the user's list separator (see below); inside an item '-'
//   is the range mark, so no number can carry a minus sign. Spaces (code 32 only) are
//   ignored; runs of separators or of '-' count as one.
// - Numbers are read with the classic "C" number format ('.' as decimal mark)
//   whatever the process locale is; a part without a leading number reads as 0.
// - The list separator is read when the object is made: the first character of
//   ARVENIS_LIST_SEPARATOR when that is set and not empty; else ';' when the
//   environment's POSIX locale (LC_ALL, LC_NUMERIC, LANG) writes decimals with ',',
//   and ',' otherwise.
// - Value semantics: a copy owns ranges of its own, so copies may be parsed and
//   destroyed independently.
// - A maximum of 0 or less accepts no item: every Parse returns 0.
// - No locks: one object is used by one thread at a time.
#pragma once

#include <vector>

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"

class VGLOBAL_EXPORT VDoubleRngParse {
 public:
  // At most 3 ranges.
  VDoubleRngParse();
  // At most `maximum` ranges.
  VDoubleRngParse(int maximum);  // NOLINT: implicit, as callers have always used it
  // Copies carry their own ranges (the vectors are copied), never shared ones.
  VDoubleRngParse(const VDoubleRngParse& other) = default;
  VDoubleRngParse& operator=(const VDoubleRngParse& other) = default;
  ~VDoubleRngParse() = default;

  // Parses `text` and returns the number of ranges found. 0 means nothing usable:
  // an empty text, more items than the maximum, or an item with more than one '-'
  // between numbers. A range written high first ("20-10") is kept as written.
  int Parse(const CString& text);

  // Bounds of range i (from 0). Valid below the count of the last Parse that
  // succeeded; a failed Parse leaves the ranges it had read before failing in place
  // and the rest as they were. An index that no Parse has written gives 0.0.
  double GetLow(int i) const;
  double GetHigh(int i) const;

 private:
  int m_maximum;
  // The ranges as last written; they grow with the longest list parsed, never to
  // the maximum up front, so a huge maximum costs nothing until it is used.
  std::vector<double> m_highs;
  std::vector<double> m_lows;
  // The item delimiter, zero-terminated so that it can serve as a delimiter set.
  wchar_t m_separator[2];
};
