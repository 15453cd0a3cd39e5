// CObject and the legacy collections: CArray, CStringArray, CMap, CPtrArray.
//
// Contract: value semantics (copy copies the elements); indices are checked: an index
// outside the array makes GetAt/ElementAt/operator[] throw std::out_of_range rather
// than read past the end (the legacy classes asserted in debug builds only).
// SetAtGrow grows the array; SetSize(n) keeps the first n elements.
#pragma once

#include <algorithm>
#include <cstddef>
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

// Keys of a CMap are hashed by std::hash (CString hashes its text).
template <typename KEY, typename ARG_KEY, typename VALUE, typename ARG_VALUE>
class CMap : public CObject {
 public:
  INT_PTR GetCount() const { return static_cast<INT_PTR>(m_.size()); }
  INT_PTR GetSize() const { return GetCount(); }
  bool IsEmpty() const { return m_.empty(); }
  BOOL Lookup(ARG_KEY key, VALUE& value) const {
    auto it = m_.find(KEY(key));
    if (it == m_.end()) return FALSE;
    value = it->second;
    return TRUE;
  }
  void SetAt(ARG_KEY key, ARG_VALUE value) { m_[KEY(key)] = value; }
  VALUE& operator[](ARG_KEY key) { return m_[KEY(key)]; }
  BOOL RemoveKey(ARG_KEY key) { return m_.erase(KEY(key)) ? TRUE : FALSE; }
  void RemoveAll() { m_.clear(); }

  auto begin() { return m_.begin(); }
  auto end() { return m_.end(); }
  auto begin() const { return m_.begin(); }
  auto end() const { return m_.end(); }

 private:
  std::unordered_map<KEY, VALUE> m_;
};

template <>
struct std::hash<CString> {
  std::size_t operator()(const CString& s) const noexcept {
    return std::hash<std::wstring>()(s.str());
  }
};
