// The library-search constraints of a processing method (CConstraints): a molecular-
// weight window, a name fragment, membership of nine reference databases, constraints on
// the elements of a compound (each a CIndividualConstraint) and on the ions of its
// spectrum (each a CIonConstraint). Every group has its switch; the record carries every
// group whatever the switches say. The codes ElementsMethod, IonConstraintMethod,
// Condition and Type are carried, not interpreted. Starting values are the third column
// of the field list. A new method has every constraint switched off; the values behind
// the switches are what the editor shows when a user turns one on: the whole molecular-
// weight range up to 1000, ion abundances of 0 to 100 %; both lists start empty. Copy
// and assignment copy every field, the lists included.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// One element constraint: the element symbol, a comparison code and a count.
// The fields of CIndividualConstraint, in record order: FIELD(type, name, starting value).
#define VG_INDIVIDUAL_CONSTRAINT_FIELDS(FIELD) \
  FIELD(int, Condition, 0)                     \
  FIELD(int, Value, 0)

class VGLOBAL_EXPORT CIndividualConstraint {
 public:
  // The element symbol: at most two characters ("C", "Na").
  CString Element() const { return CString(m_Element); }
  // Takes `symbol` when it has at most two characters and returns 1. A longer text is
  // refused: the symbol keeps its value and the result is 0. Null is the empty symbol.
  int Element(const wchar_t* symbol);
  int Element(const CString& symbol);

  VG_RECORD_FIELDS(CIndividualConstraint, VG_INDIVIDUAL_CONSTRAINT_FIELDS)

 public:
  // The longest element symbol, in characters.
  static constexpr int kMaxElementLength = 2;

  CIndividualConstraint();

 private:
  wchar_t m_Element[kMaxElementLength + 1];  // always terminated
};

// One ion constraint: a constraint code, the ion's m/z and an abundance range.
// The fields of CIonConstraint, in record order: FIELD(type, name, starting value).
#define VG_ION_CONSTRAINT_FIELDS(FIELD) \
  FIELD(int, Type, 0)                   \
  FIELD(int, MZ, 0)                     \
  /* relative abundance, percent */     \
  FIELD(int, From, 0)                   \
  FIELD(int, To, 100)

class VGLOBAL_EXPORT CIonConstraint {
  VG_RECORD_FIELDS(CIonConstraint, VG_ION_CONSTRAINT_FIELDS)
};

// The fields of CConstraints, in record order: FIELD(type, name, starting value).
#define VG_CONSTRAINTS_FIELDS(FIELD)                                  \
  FIELD(int, MolWtEnabled, 0)                                         \
  FIELD(int, MnMolWt, 0)                                              \
  FIELD(int, MaxMolWt, 1000)                                          \
  FIELD(int, NameFragmentEnabled, 0)                                  \
  /* The database switches take effect only while DBEnabled is on. */ \
  FIELD(int, DBEnabled, 0)                                            \
  FIELD(int, FineEnabled, 0)                                          \
  FIELD(int, EPAEnabled, 0)                                           \
  FIELD(int, NIHEnabled, 0)                                           \
  FIELD(int, TSCAEnabled, 0)                                          \
  FIELD(int, USPEnabled, 0)                                           \
  FIELD(int, EINECSEnabled, 0)                                        \
  FIELD(int, RTECSEnabled, 0)                                         \
  FIELD(int, HODOCEnabled, 0)                                         \
  FIELD(int, IREnabled, 0)                                            \
  FIELD(int, ElementConstraintsEnabled, 0)                            \
  FIELD(int, ElementsMethod, 0)                                       \
  FIELD(int, IonConstraintsEnabled, 0)                                \
  FIELD(int, IonConstraintMethod, 0)                                  \
  FIELD(CString, FragmentName, L"")                                   \
  FIELD(CString, ElementInCompound, L"")

class VGLOBAL_EXPORT CConstraints {
  VG_RECORD_FIELDS(CConstraints, VG_CONSTRAINTS_FIELDS)

 public:
  CConstraints() = default;
  CConstraints(const CConstraints&) = default;
  CConstraints& operator=(const CConstraints&) = default;
  virtual ~CConstraints() = default;

  // Resizing a list keeps its first elements and gives new ones their starting values;
  // a count of zero or less empties it. Get* throw std::out_of_range for an index
  // outside the list.
  int NumIndividualConstraints() const { return static_cast<int>(m_Individual.GetSize()); }
  void NumIndividualConstraints(int count) { m_Individual.SetSize(count); }
  CIndividualConstraint& GetIndConstraint(int index) { return m_Individual.ElementAt(index); }
  const CIndividualConstraint& GetIndConstraint(int index) const {
    return m_Individual.GetAt(index);
  }

  int NumIonConstraints() const { return static_cast<int>(m_Ion.GetSize()); }
  void NumIonConstraints(int count) { m_Ion.SetSize(count); }
  CIonConstraint& GetIonConstraint(int index) { return m_Ion.ElementAt(index); }
  const CIonConstraint& GetIonConstraint(int index) const { return m_Ion.GetAt(index); }

 private:
  CArray<CIndividualConstraint> m_Individual;
  CArray<CIonConstraint> m_Ion;
};
