// VARIANT: the tagged value of automation interfaces, used where instrument data
// items are handed to callers as typed values. Owns its BSTR: VariantClear frees it
// and VariantCopy duplicates it.
#pragma once

#include <cstdint>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;
using SCODE = std::int32_t;
using HRESULT = std::int32_t;

constexpr VARIANT_BOOL VARIANT_TRUE = -1;
constexpr VARIANT_BOOL VARIANT_FALSE = 0;

constexpr HRESULT S_OK = 0;
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000Eu);
constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008u);

enum VARENUM : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
};

struct VARIANT {
  VARTYPE vt;
  std::uint16_t wReserved1, wReserved2, wReserved3;
  union {
    std::int8_t cVal;
    BYTE bVal;
    std::int16_t iVal;
    std::uint16_t uiVal;
    std::int32_t lVal;
    std::uint32_t ulVal;
    std::int64_t llVal;
    std::uint64_t ullVal;
    std::int32_t intVal;
    std::uint32_t uintVal;
    float fltVal;
    double dblVal;
    double date;
    VARIANT_BOOL boolVal;
    SCODE scode;
    BSTR bstrVal;
  };
};

VGLOBAL_EXPORT void VariantInit(VARIANT* v);
// Frees what the variant owns (its BSTR) and leaves it VT_EMPTY.
VGLOBAL_EXPORT HRESULT VariantClear(VARIANT* v);
// Clears dest, then copies source into it (a BSTR is duplicated).
VGLOBAL_EXPORT HRESULT VariantCopy(VARIANT* dest, const VARIANT* source);
