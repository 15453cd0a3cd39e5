// Data exchange between a dialog's controls and record fields, through the fields'
// descriptors (vglobal/fileio/field.h), so that a parameter dialog binds a field without
// a member copy of its own:
//
//   void DoDataExchange(CDataExchange* dx) override {
//     DDX_Field(dx, IDC_SEARCH_WINDOW, m_options, COptions::Fields::SearchWindow());
//     DDX_FieldCheck(dx, IDC_VOID_TIME, m_options, COptions::Fields::VoidTime());
//   }
//
// Showing, the control gets the field's value; saving, the field gets the control's
// value once the control's own check has passed (a refused entry ends the pass with the
// field unchanged, as DDX_Text does for a member). The DDV_ checks that follow see the
// record's new value through the field's getter.
#pragma once

#include <type_traits>

#include "vglobal/compat/dialog.h"
#include "vglobal/fileio/field.h"

namespace vglobal {

// An edit control and a text, whole-number (or enumeration) or real field.
template <typename Record, typename Owner, typename T>
void DDX_Field(CDataExchange* dx, int id, Record& record, const Field<Owner, T>& field) {
  if constexpr (std::is_enum_v<T>) {
    int value = static_cast<int>(field.get(record));
    DDX_Text(dx, id, value);
    if (dx->m_bSaveAndValidate) field.set(record, static_cast<T>(value));
  } else {
    T value = field.get(record);
    DDX_Text(dx, id, value);
    if (dx->m_bSaveAndValidate) field.set(record, value);
  }
}

// A check box and a switch field (0 off, 1 on; 2 for the third state of a tri-state box).
template <typename Record, typename Owner>
void DDX_FieldCheck(CDataExchange* dx, int id, Record& record, const Field<Owner, int>& field) {
  int value = field.get(record);
  DDX_Check(dx, id, value);
  if (dx->m_bSaveAndValidate) field.set(record, value);
}

}  // namespace vglobal
