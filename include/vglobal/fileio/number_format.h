// The data-file module's number formatter: the text form of the numbers held in
// instrument records (status log, tune data, trailer extra data).
//
// Contract:
// - Integers are written as plain decimal numbers ("-42", "4000000000"). The three
//   int options and the flags after the value (callers of the instrument records pass
//   0, 1, 10 and 0x10002) are accepted for those callers and ignored: this formatter
//   has the one integer rendering.
// - Floating values are written with `precision` decimals (a negative precision
//   counts as 0): fixed ("3.14") or, when `scientific` is non-zero, as a mantissa
//   and exponent ("3.14e+00"). The int option and the flags before the precision are
//   ignored in the same way. Not-a-number and infinities read "nan", "inf", "-inf".
// - The flags are unsigned: pass them as such (0x10002u), since with an int the
//   integer and floating forms fit a call equally well.
// - Always the classic "C" number format ('.' as decimal mark, no grouping),
//   whatever the process locale is. Safe from any thread.
#pragma once

#include <cstdint>

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"

VGLOBAL_EXPORT CString FI_STRING_FORMAT_NumberToString(std::int32_t value, int, int, int,
                                                       unsigned int flags);
VGLOBAL_EXPORT CString FI_STRING_FORMAT_NumberToString(std::uint32_t value, int, int, int,
                                                       unsigned int flags);
VGLOBAL_EXPORT CString FI_STRING_FORMAT_NumberToString(double value, int, int precision,
                                                       unsigned int flags, int scientific);
