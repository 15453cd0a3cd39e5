// The "Qual\Library Search Constraints" section: the library-search constraints of the
// user's default method. The main key holds the switches and single values; each of the
// two lists lives in a sub-key of its own, as a count and one numbered sub-key per
// element:
//   ElementConstraints\NumIndElement, ElementConstraints\Individual Element 0, ...
//   IonConstraints\NumIonConstraints, IonConstraints\Constraint 0, ...
// Values are written and read in three runs around the two lists, in the order below.
#include <array>
#include <span>

#include "methoddefaults/section.h"
#include "vglobal/fileio/constraints.h"
#include "vglobal/methoddefaults/qual.h"

namespace {

using vglobal::methoddefaults::ElementKeyName;
using vglobal::methoddefaults::ReadListCount;
using vglobal::methoddefaults::ReadValues;
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

// ---- The main key: switches first, each followed by what it enables ----
// Written only while its switch is on; read whatever the switches say.

using F = R::Fields;

constexpr auto kBeforeElements = std::to_array<S::Entry>({
    S::Value<&F::MolWtEnabled>(),
    S::Value<&F::MnMolWt>(MolWt),
    S::Value<&F::MaxMolWt>(MolWt),
    S::Value<&F::DBEnabled>(),
    // The databases in the order the store has always kept them, not the record's.
    S::Value<&F::FineEnabled>(Databases),
    S::Value<&F::TSCAEnabled>(Databases),
    S::Value<&F::RTECSEnabled>(Databases),
    S::Value<&F::EPAEnabled>(Databases),
    S::Value<&F::USPEnabled>(Databases),
    S::Value<&F::HODOCEnabled>(Databases),
    S::Value<&F::NIHEnabled>(Databases),
    S::Value<&F::EINECSEnabled>(Databases),
    S::Value<&F::IREnabled>(Databases),
    S::Value<&F::NameFragmentEnabled>(),
    S::Value<&F::FragmentName>(NameFragment),
    S::Value<&F::ElementConstraintsEnabled>(),
});
// (the element list, written while its switch is on)
constexpr auto kBeforeIons = std::to_array<S::Entry>({
    S::Value<&F::ElementInCompound>(Elements),
    S::Value<&F::ElementsMethod>(Elements),
    S::Value<&F::IonConstraintsEnabled>(),
});
// (the ion list, written while its switch is on)
constexpr auto kAfterIons = std::to_array<S::Entry>({
    S::Value<&F::IonConstraintMethod>(Ions),
});

// ---- The elements of the two lists ----

using E = CIndividualConstraint;
using SE = vglobal::methoddefaults::Section<E>;

constexpr auto kElement = std::to_array<SE::Entry>({
    // The symbol field holds two characters. A longer stored text is refused, not cut
    // to fit: the element keeps its symbol and the section reads as incomplete.
    SE::String(L"Element", [](const E& e) { return e.Element(); }),
    SE::ReadCheckedString(L"Element", [](E& e, const CString& v) { return e.Element(v); }),
    SE::Value<&E::Fields::Condition>(),
    SE::Value<&E::Fields::Value>(),
});

using I = CIonConstraint;
using SI = vglobal::methoddefaults::Section<I>;

constexpr auto kIon = std::to_array<SI::Entry>({
    SI::Value<&I::Fields::Type>(),
    SI::Value<&I::Fields::MZ>(),
    SI::Value<&I::Fields::From>(),
    SI::Value<&I::Fields::To>(),
});

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
  std::span<const vglobal::methoddefaults::Entry<Element>> entries;
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
    .entries = kElement,
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
    .entries = kIon,
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
    WriteValues<Element>(element, list.get(record, i), list.entries);
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
    if (!ReadValues<Element>(element, list.at(record, i), list.entries)) complete = 0;
  }
  return complete;
}

}  // namespace

void WriteConstraintsInfo(CConstraints* constraints) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!constraints) return;
  CVRegKey key(HKEY_CURRENT_USER, kPath, 1, 1);
  WriteValues<R>(key, *constraints, kBeforeElements);
  if (Elements(*constraints)) WriteList(key, *constraints, kElementList);
  WriteValues<R>(key, *constraints, kBeforeIons);
  if (Ions(*constraints)) WriteList(key, *constraints, kIonList);
  WriteValues<R>(key, *constraints, kAfterIons);
}

int ReadConstraintsDefaultInfo(CConstraints* constraints) {
  if (!constraints) return 0;
  CVRegKey key(HKEY_CURRENT_USER, kPath, 0, 0);
  int complete = ReadValues<R>(key, *constraints, kBeforeElements);
  complete &= ReadList(key, *constraints, kElementList);
  complete &= ReadValues<R>(key, *constraints, kBeforeIons);
  complete &= ReadList(key, *constraints, kIonList);
  complete &= ReadValues<R>(key, *constraints, kAfterIons);
  return complete;
}
