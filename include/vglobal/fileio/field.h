// Accessor pairs of the processing-method records. Every documented field of a record
// is a getter and a setter with the field's own name, as callers have always used
// them:  double SNThreshold() const;  void SNThreshold(double);
// String fields return CString and take const wchar_t* (null stores the empty text)
// or const CString&.
//
// The starting value of each field is the record's default, taken from
// vglobal/fileio/record_defaults.h, the one place where the defaults are listed.
#pragma once

#include "vglobal/compat/cstring.h"

#define VG_FIELD(Type, Name, Default) \
 public:                              \
  Type Name() const {                 \
    return m_##Name;                  \
  }                                   \
  void Name(Type value) {             \
    m_##Name = value;                 \
  }                                   \
                                      \
 private:                             \
  Type m_##Name = Default;            \
                                      \
 public:

#define VG_STRING_FIELD(Name, Default) \
 public:                               \
  CString Name() const {               \
    return m_##Name;                   \
  }                                    \
  void Name(const wchar_t* value) {    \
    m_##Name = value ? value : L"";    \
  }                                    \
  void Name(const CString& value) {    \
    m_##Name = value;                  \
  }                                    \
                                       \
 private:                              \
  CString m_##Name = Default;          \
                                       \
 public:
