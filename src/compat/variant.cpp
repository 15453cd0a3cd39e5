#include "vglobal/compat/variant.h"

#include <cstring>

void VariantInit(VARIANT* v) {
  if (!v) return;
  std::memset(v, 0, sizeof *v);
  v->vt = VT_EMPTY;
}

HRESULT VariantClear(VARIANT* v) {
  if (!v) return E_INVALIDARG;
  if (v->vt == VT_BSTR) SysFreeString(v->bstrVal);
  VariantInit(v);
  return S_OK;
}

HRESULT VariantCopy(VARIANT* dest, const VARIANT* source) {
  if (!dest || !source) return E_INVALIDARG;
  if (dest == source) return S_OK;
  VariantClear(dest);
  std::memcpy(dest, source, sizeof *dest);
  if (source->vt == VT_BSTR && source->bstrVal) {
    dest->bstrVal = SysAllocStringLen(source->bstrVal, SysStringLen(source->bstrVal));
    if (!dest->bstrVal) {
      VariantInit(dest);
      return E_OUTOFMEMORY;
    }
  }
  return S_OK;
}
