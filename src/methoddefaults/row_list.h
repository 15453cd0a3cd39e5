// The shape shared by the report, summary-report and program sections: a list of rows
// below a section key, kept as a count value and one sub-key per row named "Row 0",
// "Row 1", ... Each section supplies its key, its count name, its row table and the
// method's list it belongs to; the functions here move rows the same way for all three.
#pragma once

#include <array>
#include <optional>
#include <span>

#include "methoddefaults/section.h"
#include "vglobal/fileio/proc_method.h"

namespace vglobal::methoddefaults {

template <typename Row>
struct RowSection {
  const wchar_t* path;
  const wchar_t* countName;
  std::span<const Entry<Row>> entries;  // the values of one row
  // The method's list of these rows.
  int (*size)(const CProcMethod&);
  const Row& (*get)(const CProcMethod&, int);
  void (*add)(CProcMethod&, const Row&);
};

inline constexpr const wchar_t* kRowKey = L"Row %d";

// The switch and the sample types a row applies to (standards, QCs, unknowns, other),
// which a report row and a program row both store first, under the fields' names.
template <typename Row>
constexpr std::array<Entry<Row>, 5> SampleTypeEntries() {
  using S = Section<Row>;
  using F = typename Row::Fields;
  return {
      S::template Value<&F::Enabled>(), S::template Value<&F::Stds>(),
      S::template Value<&F::QCs>(),     S::template Value<&F::Unknowns>(),
      S::template Value<&F::Other>(),
  };
}

template <typename Row>
void WriteRow(const RowSection<Row>& section, const Row& row, int index) {
  CVRegKey key(HKEY_CURRENT_USER, section.path, 1, 1);
  CVRegKey rowKey(key, ElementKeyName(kRowKey, index), 1, 1);
  WriteValues<Row>(rowKey, row, section.entries);
}

template <typename Row>
int ReadRow(const RowSection<Row>& section, Row& row, int index) {
  CVRegKey key(HKEY_CURRENT_USER, section.path, 0, 0);
  CVRegKey rowKey(key, ElementKeyName(kRowKey, index), 0, 0);
  return ReadValues<Row>(rowKey, row, section.entries);
}

// Empties the section, so no row of an earlier, longer list survives, then writes the
// count and every row of the method's list.
template <typename Row>
void WriteAllRows(const RowSection<Row>& section, const CProcMethod& method) {
  CVRegKey key(HKEY_CURRENT_USER, section.path, 1, 1);
  key.DeleteAll();
  const int count = section.size(method);
  key.WriteInt(section.countName, count);
  for (int i = 0; i < count; ++i) WriteRow(section, section.get(method, i), i);
}

// Appends the complete rows of the section behind the method's rows. A row that is not
// complete is left out rather than added half-read, and the rows after it are still
// read, so the list may come out shorter than the stored count.
template <typename Row>
int ReadAllRows(const RowSection<Row>& section, CProcMethod& method) {
  std::optional<int> count;
  {
    CVRegKey key(HKEY_CURRENT_USER, section.path, 0, 0);
    count = ReadListCount(key, section.countName);
  }
  if (!count) return 0;
  int complete = 1;
  for (int i = 0; i < *count; ++i) {
    Row row;
    if (ReadRow(section, row, i))
      section.add(method, row);
    else
      complete = 0;
  }
  return complete;
}

}  // namespace vglobal::methoddefaults
