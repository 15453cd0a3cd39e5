// One printf directive, as the Windows wide-printf rules read it: the one parser of
// directives that every formatting function of the library shares (CString::Format
// and the message formatter), so that they cannot disagree about what a format says.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vglobal::fmt {

// The length modifier of a directive. In a wide format 'h' also marks a text or
// character as narrow, and 'l' or 'w' as wide.
enum class Length { None, Char, Short, Long, LongLong, Ptr, LongDouble, Wide };

// Widths and precisions written out larger than this are clamped to it: a format is
// not trusted to ask for absurd amounts of padding.
inline constexpr int kMaxDirectiveNumber = 100000;

struct Directive {
  std::string flags;           // of "-+ #0", in the order written
  bool widthStar = false;      // the width is taken from the arguments
  int width = -1;              // -1: none written
  bool precisionStar = false;  // the precision is taken from the arguments
  int precision = -1;          // -1: none written
  Length length = Length::None;
  wchar_t conversion = 0;  // one of d i u o x X e E f F g G a A c C s S p n
};

// Parses the directive that begins at text[pos], just after its '%', and moves pos past
// what was read. False when the text ends inside the directive (pos is then
// text.size()) or its conversion is unknown (pos is then just past that character).
bool ParseDirective(std::wstring_view text, std::size_t& pos, Directive& directive);

}  // namespace vglobal::fmt
