// CObject and the legacy collections: CArray, CStringArray, CMap, CPtrArray.
//
// Contract: value semantics (copy copies the elements); indices are checked: an index
// outside the array makes GetAt/ElementAt/operator[] throw std::out_of_range rather
// than read past the end (the legacy classes asserted in debug builds only).
// SetAtGrow grows the array; SetSize(n) keeps the first n elements.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <unordered_map>
#include <utility>
#include <vector>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/types.h"

class VGLOBAL_EXPORT CObject {
 public:
  virtual ~CObject() = default;

 protected:
  CObject() = default;
  CObject(const CObject&) = default;
  CObject& operator=(const CObject&) = default;
};

template <typename TYPE, typename ARG_TYPE = const TYPE&>
class CArray : public CObject {
 public:
  CArray() = default;
  CArray(const CArray&) = default;
  CArray& operator=(const CArray&) = default;
  CArray(CArray&&) noexcept = default;
  CArray& operator=(CArray&&) noexcept = default;

  INT_PTR GetSize() const { return static_cast<INT_PTR>(v_.size()); }
  INT_PTR GetCount() const { return GetSize(); }
  INT_PTR GetUpperBound() const { return GetSize() - 1; }
  bool IsEmpty() const { return v_.empty(); }
  void SetSize(INT_PTR size, INT_PTR /*growBy*/ = -1) {
    v_.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
  }
  void RemoveAll() { v_.clear(); }
  void FreeExtra() { v_.shrink_to_fit(); }

  const TYPE& GetAt(INT_PTR i) const { return v_.at(Checked(i)); }
  TYPE& ElementAt(INT_PTR i) { return v_.at(Checked(i)); }
  void SetAt(INT_PTR i, ARG_TYPE value) { v_.at(Checked(i)) = value; }
  const TYPE& operator[](INT_PTR i) const { return GetAt(i); }
  TYPE& operator[](INT_PTR i) { return ElementAt(i); }
  const TYPE* GetData() const { return v_.data(); }
  TYPE* GetData() { return v_.data(); }

  void SetAtGrow(INT_PTR i, ARG_TYPE value) {
    if (i < 0) throw std::out_of_range("CArray::SetAtGrow: negative index");
    if (static_cast<std::size_t>(i) >= v_.size()) v_.resize(static_cast<std::size_t>(i) + 1);
    v_[static_cast<std::size_t>(i)] = value;
  }
  INT_PTR Add(ARG_TYPE value) {
    v_.push_back(value);
    return GetSize() - 1;
  }
  INT_PTR Append(const CArray& other) {
    INT_PTR first = GetSize();
    v_.insert(v_.end(), other.v_.begin(), other.v_.end());
    return first;
  }
  void Copy(const CArray& other) { v_ = other.v_; }
  void InsertAt(INT_PTR i, ARG_TYPE value, INT_PTR count = 1) {
    if (i < 0 || count < 0) throw std::out_of_range("CArray::InsertAt: negative index or count");
    if (static_cast<std::size_t>(i) > v_.size()) v_.resize(static_cast<std::size_t>(i));
    v_.insert(v_.begin() + i, static_cast<std::size_t>(count), value);
  }
  void RemoveAt(INT_PTR i, INT_PTR count = 1) {
    if (i < 0 || count < 0 || static_cast<std::size_t>(i + count) > v_.size())
      throw std::out_of_range("CArray::RemoveAt: range outside the array");
    v_.erase(v_.begin() + i, v_.begin() + i + count);
  }

  // Standard-library access for the library's own code.
  auto begin() { return v_.begin(); }
  auto end() { return v_.end(); }
  auto begin() const { return v_.begin(); }
  auto end() const { return v_.end(); }
  const std::vector<TYPE>& vec() const { return v_; }
  std::vector<TYPE>& vec() { return v_; }

 private:
  std::size_t Checked(INT_PTR i) const {
    if (i < 0 || static_cast<std::size_t>(i) >= v_.size())
      throw std::out_of_range("CArray: index outside the array");
    return static_cast<std::size_t>(i);
  }
  std::vector<TYPE> v_;
};

class CStringArray : public CArray<CString, const wchar_t*> {
 public:
  using CArray::Add;
  INT_PTR Add(const CString& value) { return CArray::Add(value.GetString()); }
};

using CPtrArray = CArray<void*, void*>;
using CDWordArray = CArray<DWORD, DWORD>;
using CUIntArray = CArray<UINT, UINT>;
using CWordArray = CArray<WORD, WORD>;
using CByteArray = CArray<BYTE, BYTE>;

namespace vglobal::detail {
struct PositionToken;  // never defined: a POSITION is never dereferenced
}

// A place in the iteration of a collection; NULL when there is none. It is a token
// that the collection decodes and checks, not the address of an element: a position
// whose element was removed, one from before the collection was rebuilt, or one made
// up by a caller is refused instead of reaching freed or foreign memory.
using POSITION = vglobal::detail::PositionToken*;

// Keys of a CMap are hashed by std::hash (CString hashes its text).
//
// Iteration, as legacy callers wrote it:
//   POSITION pos = map.GetStartPosition();
//   while (pos != NULL) map.GetNextAssoc(pos, key, value);
// visits every association once, in an unspecified order. A position stays valid
// while its own association is in the map: removing the association just visited
// (the usual way to remove while iterating) or changing values keeps iteration going.
// GetNextAssoc throws std::invalid_argument, changing nothing, for a NULL position,
// one whose association was removed, and one made before RemoveAll or before adding
// keys reorganised the map. A position this map did not make is never followed into
// memory: it is refused, or at worst names one of this map's associations.
template <typename KEY, typename ARG_KEY, typename VALUE, typename ARG_VALUE>
class CMap : public CObject {
 public:
  INT_PTR GetCount() const { return static_cast<INT_PTR>(index_.size()); }
  INT_PTR GetSize() const { return GetCount(); }
  bool IsEmpty() const { return index_.empty(); }
  BOOL Lookup(ARG_KEY key, VALUE& value) const {
    auto it = index_.find(KEY(key));
    if (it == index_.end()) return FALSE;
    value = slots_[it->second]->second;
    return TRUE;
  }
  void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }
  VALUE& operator[](ARG_KEY key) {
    KEY k(key);
    if (auto it = index_.find(k); it != index_.end()) return slots_[it->second]->second;
    if (removed_ > 0 && removed_ >= index_.size()) Compact();
    slots_.emplace_back(std::in_place, k, VALUE());
    index_.emplace(std::move(k), slots_.size() - 1);
    return slots_.back()->second;
  }
  BOOL RemoveKey(ARG_KEY key) {
    auto it = index_.find(KEY(key));
    if (it == index_.end()) return FALSE;
    // The slot stays as a gap, so that the positions of the others keep their meaning.
    slots_[it->second].reset();
    index_.erase(it);
    ++removed_;
    return TRUE;
  }
  void RemoveAll() {
    slots_.clear();
    index_.clear();
    removed_ = 0;
    ++generation_;
  }

  POSITION GetStartPosition() const { return PositionFrom(0); }
  void GetNextAssoc(POSITION& pos, KEY& key, VALUE& value) const {
    const std::size_t at = SlotOf(pos);
    key = slots_[at]->first;
    value = slots_[at]->second;
    pos = PositionFrom(at + 1);
  }

 private:
  // A position holds the slot's number + 1 in the low half of its bits and the map's
  // generation in the high half; the generation changes whenever slots are renumbered.
  static constexpr unsigned kSlotBits = sizeof(std::uintptr_t) * 4;
  static constexpr std::uintptr_t kSlotMask = (std::uintptr_t{1} << kSlotBits) - 1;

  POSITION PositionFrom(std::size_t first) const {
    for (std::size_t i = first; i < slots_.size(); ++i) {
      if (!slots_[i]) continue;
      const std::uintptr_t token =
          ((generation_ & kSlotMask) << kSlotBits) | ((std::uintptr_t{i} + 1) & kSlotMask);
      return reinterpret_cast<POSITION>(token);
    }
    return nullptr;
  }
  std::size_t SlotOf(POSITION pos) const {
    const auto token = reinterpret_cast<std::uintptr_t>(pos);
    const std::uintptr_t slot = token & kSlotMask;
    if (slot == 0 || token >> kSlotBits != (generation_ & kSlotMask) || slot > slots_.size() ||
        !slots_[slot - 1])
      throw std::invalid_argument("CMap::GetNextAssoc: not a position of this map's associations");
    return static_cast<std::size_t>(slot - 1);
  }
  // Closes the gaps that removals left; every position made before is refused after.
  void Compact() {
    std::erase_if(slots_, [](const auto& slot) { return !slot.has_value(); });
    for (std::size_t i = 0; i < slots_.size(); ++i) index_[slots_[i]->first] = i;
    removed_ = 0;
    ++generation_;
  }

  std::vector<std::optional<std::pair<KEY, VALUE>>> slots_;  // in the order added
  std::unordered_map<KEY, std::size_t> index_;               // key -> its slot
  std::size_t removed_ = 0;                                  // gaps in slots_
  std::uintptr_t generation_ = 0;
};

template <>
struct std::hash<CString> {
  std::size_t operator()(const CString& s) const noexcept {
    return std::hash<std::wstring>()(s.str());
  }
};
