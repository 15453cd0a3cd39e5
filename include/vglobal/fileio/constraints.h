// The library-search constraints of a processing method (CConstraints): a molecular-
// weight window, a name fragment, membership of nine reference databases, constraints
// on the elements of a compound (each a CIndividualConstraint) and on the ions of its
// spectrum (each a CIonConstraint). Every group has its switch; the record carries
// every group whatever the switches say. The codes ElementsMethod, IonConstraintMethod,
// Condition and Type are carried, not interpreted. Starting values come from
// record_defaults.h ("Qualitative"); both lists start empty. Copy and assignment copy
// every field, the lists included.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/export.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/record_defaults.h"

// One element constraint: the element symbol, a comparison code and a count.
class VGLOBAL_EXPORT CIndividualConstraint {
 public:
  // The element symbol: at most two characters ("C", "Na").
  CString Element() const { return CString(m_Element); }
  // Takes `symbol` when it has at most two characters and returns 1. A longer text is
  // refused: the symbol keeps its value and the result is 0. Null is the empty symbol.
  int Element(const wchar_t* symbol);
  int Element(const CString& symbol);

  VG_FIELD(int, Condition, vglobal::record_defaults::kIndConstraintCondition)
  VG_FIELD(int, Value, vglobal::record_defaults::kIndConstraintValue)

 public:
  // The longest element symbol, in characters.
  static constexpr int kMaxElementLength = 2;

  CIndividualConstraint();

 private:
  wchar_t m_Element[kMaxElementLength + 1];  // always terminated
};

// One ion constraint: a constraint code, the ion's m/z and an abundance range.
class VGLOBAL_EXPORT CIonConstraint {
  VG_FIELD(int, Type, vglobal::record_defaults::kIonConstraintType)
  VG_FIELD(int, MZ, vglobal::record_defaults::kIonConstraintMZ)
  VG_FIELD(int, From, vglobal::record_defaults::kIonConstraintFrom)
  VG_FIELD(int, To, vglobal::record_defaults::kIonConstraintTo)
};

class VGLOBAL_EXPORT CConstraints {
  VG_FIELD(int, MolWtEnabled, vglobal::record_defaults::kConstraintMolWtEnabled)
  VG_FIELD(int, MnMolWt, vglobal::record_defaults::kConstraintMnMolWt)
  VG_FIELD(int, MaxMolWt, vglobal::record_defaults::kConstraintMaxMolWt)
  VG_FIELD(int, NameFragmentEnabled, vglobal::record_defaults::kConstraintNameFragmentEnabled)
  // The database switches take effect only while DBEnabled is on.
  VG_FIELD(int, DBEnabled, vglobal::record_defaults::kConstraintDBEnabled)
  VG_FIELD(int, FineEnabled, vglobal::record_defaults::kConstraintDatabaseEnabled)
  VG_FIELD(int, EPAEnabled, vglobal::record_defaults::kConstraintDatabaseEnabled)
  VG_FIELD(int, NIHEnabled, vglobal::record_defaults::kConstraintDatabaseEnabled)
  VG_FIELD(int, TSCAEnabled, vglobal::record_defaults::kConstraintDatabaseEnabled)
  VG_FIELD(int, USPEnabled, vglobal::record_defaults::kConstraintDatabaseEnabled)
  VG_FIELD(int, EINECSEnabled, vglobal::record_defaults::kConstraintDatabaseEnabled)
  VG_FIELD(int, RTECSEnabled, vglobal::record_defaults::kConstraintDatabaseEnabled)
  VG_FIELD(int, HODOCEnabled, vglobal::record_defaults::kConstraintDatabaseEnabled)
  VG_FIELD(int, IREnabled, vglobal::record_defaults::kConstraintDatabaseEnabled)
  VG_FIELD(int, ElementConstraintsEnabled,
           vglobal::record_defaults::kConstraintElementConstraintsEnabled)
  VG_FIELD(int, ElementsMethod, vglobal::record_defaults::kConstraintElementsMethod)
  VG_FIELD(int, IonConstraintsEnabled, vglobal::record_defaults::kConstraintIonConstraintsEnabled)
  VG_FIELD(int, IonConstraintMethod, vglobal::record_defaults::kConstraintIonConstraintMethod)
  VG_STRING_FIELD(FragmentName, vglobal::record_defaults::kConstraintFragmentName)
  VG_STRING_FIELD(ElementInCompound, vglobal::record_defaults::kConstraintElementInCompound)

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
