// The data-file module's number formatter (see number_format.h).
#include "vglobal/fileio/number_format.h"

#include <string>

CString FI_STRING_FORMAT_NumberToString(std::int32_t value, int, int, int, unsigned int) {
  return CString(std::to_wstring(value));
}

CString FI_STRING_FORMAT_NumberToString(std::uint32_t value, int, int, int, unsigned int) {
  return CString(std::to_wstring(value));
}

CString FI_STRING_FORMAT_NumberToString(double value, int, int precision, unsigned int,
                                        int scientific) {
  // The library's formatter prints numbers in the classic locale; std::to_wstring
  // and the C library's own printf would follow the process locale.
  CString text;
  text.Format(scientific ? L"%.*e" : L"%.*f", precision < 0 ? 0 : precision, value);
  return text;
}
