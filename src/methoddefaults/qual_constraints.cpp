// The "Qual\Library Search Constraints" section: the library-search constraints of the
// user's default method. The main key holds the switches and single values; each of the
// two lists lives in a sub-key of its own, as a count and one numbered sub-key per
// element:
//   ElementConstraints\NumIndElement, ElementConstraints\Individual Element 0, ...
//   IonConstraints\NumIonConstraints, IonConstraints\Constraint 0, ...
// Values are written and read in three runs around the two lists, in the order below.
#include "methoddefaults/section.h"
#include "vglobal/fileio/constraints.h"
#include "vglobal/methoddefaults/qual.h"

namespace {

using vglobal::methoddefaults::ElementKeyName;
using vglobal::methoddefaults::ReadEntry;
using vglobal::methoddefaults::ReadListCount;
using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteEntry;
using vglobal::methoddefaults::WriteValues;
using R = CConstraints;
using S = vglobal::methoddefaults::Section<R>;

constexpr const wchar_t* kPath = L"Processing Setup\\Defaults\\Qual\\Library Search Constraints";

bool MolWt(const R& r) {
  return r.MolWtEnabled() != 0;
}
bool Databases(const R& r) {
  return r.DBEnabled() != 0;
}
bool NameFragment(const R& r) {
  return r.NameFragmentEnabled() != 0;
}
bool Elements(const R& r) {
  return r.ElementConstraintsEnabled() != 0;
}
bool Ions(const R& r) {
  return r.IonConstraintsEnabled() != 0;
}

// ---- Writing: switches first, each followed by what it enables ----

// clang-format off
const S::Write kWriteBeforeElements[] = {
    S::Int(L"MolWtEnabled", [](const R& r) { return r.MolWtEnabled(); }),
    S::Int(L"MnMolWt", [](const R& r) { return r.MnMolWt(); }, MolWt),
    S::Int(L"MaxMolWt", [](const R& r) { return r.MaxMolWt(); }, MolWt),
    S::Int(L"DBEnabled", [](const R& r) { return r.DBEnabled(); }),
    // The databases in the order the store has always kept them, not the record's.
    S::Int(L"FineEnabled", [](const R& r) { return r.FineEnabled(); }, Databases),
    S::Int(L"TSCAEnabled", [](const R& r) { return r.TSCAEnabled(); }, Databases),
    S::Int(L"RTECSEnabled", [](const R& r) { return r.RTECSEnabled(); }, Databases),
    S::Int(L"EPAEnabled", [](const R& r) { return r.EPAEnabled(); }, Databases),
    S::Int(L"USPEnabled", [](const R& r) { return r.USPEnabled(); }, Databases),
    S::Int(L"HODOCEnabled", [](const R& r) { return r.HODOCEnabled(); }, Databases),
    S::Int(L"NIHEnabled", [](const R& r) { return r.NIHEnabled(); }, Databases),
    S::Int(L"EINECSEnabled", [](const R& r) { return r.EINECSEnabled(); }, Databases),
    S::Int(L"IREnabled", [](const R& r) { return r.IREnabled(); }, Databases),
    S::Int(L"NameFragmentEnabled", [](const R& r) { return r.NameFragmentEnabled(); }),
    S::String(L"FragmentName", [](const R& r) { return r.FragmentName(); }, NameFragment),
    S::Int(L"ElementConstraintsEnabled", [](const R& r) { return r.ElementConstraintsEnabled(); }),
};
// (the element list, while its switch is on)
const S::Write kWriteBeforeIons[] = {
    S::String(L"ElementInCompound", [](const R& r) { return r.ElementInCompound(); }, Elements),
    S::Int(L"ElementsMethod", [](const R& r) { return r.ElementsMethod(); }, Elements),
    S::Int(L"IonConstraintsEnabled", [](const R& r) { return r.IonConstraintsEnabled(); }),
};
// (the ion list, while its switch is on)
const S::Write kWriteAfterIons[] = {
    S::Int(L"IonConstraintMethod", [](const R& r) { return r.IonConstraintMethod(); }, Ions),
};
// clang-format on

// ---- Reading: every value whatever the switches say ----

const S::Read kReadBeforeElements[] = {
    S::ReadInt(L"MolWtEnabled", [](R& r, int v) { r.MolWtEnabled(v); }),
    S::ReadInt(L"MnMolWt", [](R& r, int v) { r.MnMolWt(v); }),
    S::ReadInt(L"MaxMolWt", [](R& r, int v) { r.MaxMolWt(v); }),
    S::ReadInt(L"DBEnabled", [](R& r, int v) { r.DBEnabled(v); }),
    S::ReadInt(L"FineEnabled", [](R& r, int v) { r.FineEnabled(v); }),
    S::ReadInt(L"TSCAEnabled", [](R& r, int v) { r.TSCAEnabled(v); }),
    S::ReadInt(L"RTECSEnabled", [](R& r, int v) { r.RTECSEnabled(v); }),
    S::ReadInt(L"EPAEnabled", [](R& r, int v) { r.EPAEnabled(v); }),
    S::ReadInt(L"USPEnabled", [](R& r, int v) { r.USPEnabled(v); }),
    S::ReadInt(L"HODOCEnabled", [](R& r, int v) { r.HODOCEnabled(v); }),
    S::ReadInt(L"NIHEnabled", [](R& r, int v) { r.NIHEnabled(v); }),
    S::ReadInt(L"EINECSEnabled", [](R& r, int v) { r.EINECSEnabled(v); }),
    S::ReadInt(L"IREnabled", [](R& r, int v) { r.IREnabled(v); }),
    S::ReadInt(L"NameFragmentEnabled", [](R& r, int v) { r.NameFragmentEnabled(v); }),
    S::ReadString(L"FragmentName", [](R& r, const CString& v) { r.FragmentName(v); }),
    S::ReadInt(L"ElementConstraintsEnabled", [](R& r, int v) { r.ElementConstraintsEnabled(v); }),
};
const S::Read kReadBeforeIons[] = {
    S::ReadString(L"ElementInCompound", [](R& r, const CString& v) { r.ElementInCompound(v); }),
    S::ReadInt(L"ElementsMethod", [](R& r, int v) { r.ElementsMethod(v); }),
    S::ReadInt(L"IonConstraintsEnabled", [](R& r, int v) { r.IonConstraintsEnabled(v); }),
};
const S::Read kReadAfterIons[] = {
    S::ReadInt(L"IonConstraintMethod", [](R& r, int v) { r.IonConstraintMethod(v); }),
};

// ---- The elements of the two lists ----

using E = CIndividualConstraint;
using SE = vglobal::methoddefaults::Section<E>;

const SE::Write kElementWrite[] = {
    SE::String(L"Element", [](const E& e) { return e.Element(); }),
    SE::Int(L"Condition", [](const E& e) { return e.Condition(); }),
    SE::Int(L"Value", [](const E& e) { return e.Value(); }),
};
// The symbol field holds two characters. A longer stored text is refused, not cut to
// fit: the element keeps its symbol and the section reads as incomplete.
const SE::Read kElementRead[] = {
    SE::ReadCheckedString(L"Element", [](E& e, const CString& v) { return e.Element(v); }),
    SE::ReadInt(L"Condition", [](E& e, int v) { e.Condition(v); }),
    SE::ReadInt(L"Value", [](E& e, int v) { e.Value(v); }),
};

using I = CIonConstraint;
using SI = vglobal::methoddefaults::Section<I>;

const SI::Write kIonWrite[] = {
    SI::Int(L"Type", [](const I& i) { return i.Type(); }),
    SI::Int(L"MZ", [](const I& i) { return i.MZ(); }),
    SI::Int(L"From", [](const I& i) { return i.From(); }),
    SI::Int(L"To", [](const I& i) { return i.To(); }),
};
const SI::Read kIonRead[] = {
    SI::ReadInt(L"Type", [](I& i, int v) { i.Type(v); }),
    SI::ReadInt(L"MZ", [](I& i, int v) { i.MZ(v); }),
    SI::ReadInt(L"From", [](I& i, int v) { i.From(v); }),
    SI::ReadInt(L"To", [](I& i, int v) { i.To(v); }),
};

// How one list of the record is kept below the main key.
template <typename Element>
struct ConstraintList {
  const wchar_t* subkey;
  const wchar_t* countName;
  const wchar_t* elementKey;  // format of an element's sub-key name
  // Whether a missing count makes the section incomplete.
  bool countRequired;
  int (*size)(const R&);
  void (*resize)(R&, int);
  const Element& (*get)(const R&, int);
  Element& (*at)(R&, int);
  std::span<const WriteEntry<Element>> write;
  std::span<const ReadEntry<Element>> read;
};

const ConstraintList<E> kElementList = {
    .subkey = L"ElementConstraints",
    .countName = L"NumIndElement",
    .elementKey = L"Individual Element %d",
    .countRequired = true,
    .size = [](const R& r) { return r.NumIndividualConstraints(); },
    .resize = [](R& r, int n) { r.NumIndividualConstraints(n); },
    .get = [](const R& r, int i) -> const E& { return r.GetIndConstraint(i); },
    .at = [](R& r, int i) -> E& { return r.GetIndConstraint(i); },
    .write = kElementWrite,
    .read = kElementRead,
};

const ConstraintList<I> kIonList = {
    .subkey = L"IonConstraints",
    .countName = L"NumIonConstraints",
    .elementKey = L"Constraint %d",
    // An ion count may be absent without the section counting as incomplete, unlike
    // the element count: sections saved without ion constraints lack it.
    .countRequired = false,
    .size = [](const R& r) { return r.NumIonConstraints(); },
    .resize = [](R& r, int n) { r.NumIonConstraints(n); },
    .get = [](const R& r, int i) -> const I& { return r.GetIonConstraint(i); },
    .at = [](R& r, int i) -> I& { return r.GetIonConstraint(i); },
    .write = kIonWrite,
    .read = kIonRead,
};

// Replaces the list's sub-key, so that no element of an earlier, longer list survives.
template <typename Element>
void WriteList(CVRegKey& key, const R& record, const ConstraintList<Element>& list) {
  CVRegKey sub(key, list.subkey, 1, 1);
  sub.DeleteAll();
  const int count = list.size(record);
  sub.WriteInt(list.countName, count);
  for (int i = 0; i < count; ++i) {
    CVRegKey element(sub, ElementKeyName(list.elementKey, i), 1, 1);
    WriteValues<Element>(element, list.get(record, i), list.write);
  }
}

// Resizes the record's list to the stored count and reads each element into place.
// Without a usable count the list is left as it was.
template <typename Element>
int ReadList(CVRegKey& key, R& record, const ConstraintList<Element>& list) {
  CVRegKey sub(key, list.subkey, 0, 0);
  const std::optional<int> count = ReadListCount(sub, list.countName);
  if (!count) {
    // A count that is there but refused as too large is damage, which fails the section
    // even where an absent count would not.
    int refused = 0;
    const bool present = sub.ReadInt(list.countName, &refused) != 0;
    return (present || list.countRequired) ? 0 : 1;
  }
  list.resize(record, *count);
  int complete = 1;
  for (int i = 0; i < *count; ++i) {
    CVRegKey element(sub, ElementKeyName(list.elementKey, i), 0, 0);
    if (!ReadValues<Element>(element, list.at(record, i), list.read)) complete = 0;
  }
  return complete;
}

}  // namespace

void WriteConstraintsInfo(CConstraints* constraints) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!constraints) return;
  CVRegKey key(HKEY_CURRENT_USER, kPath, 1, 1);
  WriteValues<R>(key, *constraints, kWriteBeforeElements);
  if (Elements(*constraints)) WriteList(key, *constraints, kElementList);
  WriteValues<R>(key, *constraints, kWriteBeforeIons);
  if (Ions(*constraints)) WriteList(key, *constraints, kIonList);
  WriteValues<R>(key, *constraints, kWriteAfterIons);
}

int ReadConstraintsDefaultInfo(CConstraints* constraints) {
  if (!constraints) return 0;
  CVRegKey key(HKEY_CURRENT_USER, kPath, 0, 0);
  int complete = ReadValues<R>(key, *constraints, kReadBeforeElements);
  complete &= ReadList(key, *constraints, kElementList);
  complete &= ReadValues<R>(key, *constraints, kReadBeforeIons);
  complete &= ReadList(key, *constraints, kIonList);
  complete &= ReadValues<R>(key, *constraints, kReadAfterIons);
  return complete;
}
