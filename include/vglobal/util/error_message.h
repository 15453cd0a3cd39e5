// FormatErrorMessage: a text of the string table filled with arguments by the
// message-formatter rules.
//
// The rules:
// - %1 to %99 insert an argument (counted from 1). An insert may carry a printf
//   conversion between '!' marks, as in %1!d! or %2!5.2f!; without one it is %N!s!,
//   a text. The conversion is rendered by the Windows wide-printf rules of
//   CString::Format (%s wide, %S narrow, classic number format).
// - Escapes: %% gives '%', %n a line break ("\r\n"), %r a carriage return, %t a tab,
//   %. a '.', %! a '!', "% " a space, and %0 ends the text there. '%' before any
//   other character gives that character.
//
// Contract:
// - The arguments are captured with their real types (as CString::Format does), so an
//   insert that names an argument beyond those given, or one whose conversion does
//   not suit the argument's kind, makes the whole call fail rather than read past the
//   argument list. Text conversions (s, S) take a wide or narrow text; d i u o x X c C
//   an integer; e E f F g G a A a floating value; p a pointer.
// - A malformed format is a failure, never a crash: '%' at the very end, an insert
//   number above 99, an unterminated or empty !...!, anything between the marks that
//   is not exactly one printf conversion, or a conversion that takes its width or
//   precision from the arguments ('*') or writes through them (n).
// - A text that formats to nothing (an empty string, or one that begins with %0) is a
//   success with an empty result.
// - Returns 1 with the text in *result; 0 with *result unchanged on failure (string
//   not found, malformed format, missing argument, null result).
// - The string table is read on the calling thread; the formatting itself has no
//   shared state.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"

namespace vglobal {

// Fills `format` with `args` by the message-formatter rules. Returns false (and
// leaves `out` alone) on a malformed format or a missing or unsuitable argument.
// `args` may be null when `count` is 0.
VGLOBAL_EXPORT bool FormatMessageText(std::wstring_view format, const fmt::Arg* args,
                                      std::size_t count, std::wstring& out);

}  // namespace vglobal

// Loads string `stringId` and fills its inserts from the arguments.
VGLOBAL_EXPORT int FormatErrorMessageFromArgs(unsigned int stringId, CString* result,
                                              const vglobal::fmt::Arg* args, std::size_t count);

template <typename... Args>
int FormatErrorMessage(unsigned int stringId, CString* result, const Args&... args) {
  const vglobal::fmt::Arg captured[] = {CString::Capture(args)..., {}};
  return FormatErrorMessageFromArgs(stringId, result, captured, sizeof...(Args));
}
