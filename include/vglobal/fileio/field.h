// The fields of the processing-method and data-file records, each said once.
//
// A record lists its fields in one macro, FIELD(type, name, starting value) a field, in
// record order, and hands the list to VG_RECORD_FIELDS inside its class:
//
//   #define VG_OPTIONS_FIELDS(FIELD) FIELD(int, VoidTime, 0) FIELD(double, VoidTimeValue, 0.0)
//
//   class COptions {
//     VG_RECORD_FIELDS(COptions, VG_OPTIONS_FIELDS)
//   };
//
// Everything else about a field comes from that list:
// - its accessor pair, under the field's own name, as callers have always used them:
//     double VoidTimeValue() const;  void VoidTimeValue(double);
//   a text field (CString) also takes const wchar_t*, where null stores the empty text;
// - its starting value in a new record (the list's third column);
// - its descriptor, COptions::Fields::VoidTimeValue(): the name and the accessors as
//   plain function pointers, so that the settings sections, the settings tool's JSON
//   view, a dialog's data exchange and the tests use the field without spelling it again;
// - COptions::ForEachField(visit), which calls visit(descriptor) for every field in list
//   order.
// A list may include another list (a group of fields that two records share).
#pragma once

#include <type_traits>

#include "vglobal/compat/cstring.h"

namespace vglobal {

// How a setter takes a value of type T: texts by reference, everything else by value.
template <typename T>
using FieldArg = std::conditional_t<std::is_same_v<T, CString>, const CString&, T>;

// One field of a record: its name and its accessor pair. `Owner` is the class that
// declares the field (a base class for the component's pages); the accessors take any
// record derived from it by reference.
template <typename Owner, typename T>
struct Field {
  using Record = Owner;
  using Value = T;
  const char* name;         // "VoidTimeValue"
  const wchar_t* wideName;  // L"VoidTimeValue", as stored value names are spelt
  T (*get)(const Owner&);
  void (*set)(Owner&, FieldArg<T>);
};

}  // namespace vglobal

// ---- the expansions of a field list ----

#define VG_FIELD_MEMBER(Type, Name, Default)                               \
 public:                                                                   \
  Type Name() const {                                                      \
    return m_##Name;                                                       \
  }                                                                        \
  void Name(::vglobal::FieldArg<Type> value) {                             \
    m_##Name = value;                                                      \
  }                                                                        \
  template <typename TextType_ = Type,                                     \
            std::enable_if_t<std::is_same_v<TextType_, CString>, int> = 0> \
  void Name(const wchar_t* value) {                                        \
    m_##Name = TextType_(value ? value : L"");                             \
  }                                                                        \
                                                                           \
 private:                                                                  \
  Type m_##Name = Default;

#define VG_FIELD_DESCRIPTOR(Type, Name, Default)                               \
  static constexpr ::vglobal::Field<Owner, Type> Name() {                      \
    return {#Name, L"" #Name, [](const Owner& r) -> Type { return r.Name(); }, \
            [](Owner& r, ::vglobal::FieldArg<Type> value) { r.Name(value); }}; \
  }

#define VG_FIELD_VISIT(Type, Name, Default) visit(Fields::Name());

#define VG_RECORD_FIELDS(Class, LIST)       \
  LIST(VG_FIELD_MEMBER)                     \
                                            \
 public:                                    \
  struct Fields {                           \
    using Owner = Class;                    \
    LIST(VG_FIELD_DESCRIPTOR)               \
  };                                        \
  template <typename Visit>                 \
  static void ForEachField(Visit&& visit) { \
    LIST(VG_FIELD_VISIT)                    \
  }
