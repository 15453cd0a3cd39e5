// Command lines of the suite: one text holding a program and its arguments, as the
// suite's programs have always been started, turned into the program to run and the
// argument vector it gets. Nothing here starts anything or uses a shell.
//
// Splitting follows the rules by which the suite's programs have always read their
// command lines:
// - Spaces and tabs separate arguments; a run of them counts as one separator, and
//   leading or trailing ones make no empty argument.
// - A double quote starts or ends a quoted run, inside which spaces and tabs belong to
//   the argument. The quotes themselves are not part of it, and a quoted run may sit
//   in the middle of an argument (a"b c"d is one argument, ab cd). "" gives an empty
//   argument.
// - 2n backslashes followed by a double quote give n backslashes, and the quote starts
//   or ends a quoted run; 2n+1 backslashes followed by a double quote give n
//   backslashes and a literal quote. Backslashes anywhere else are literal.
// - Inside a quoted run, "" gives one literal quote and the run goes on (so
//   "a""b" is a"b). This is the rule of today's runtimes; the older one ended the run
//   after the literal quote, and arguments written for either read the same unless
//   they continue with a space.
// - The text ends at its first zero character.
//
// The program part is special: it knows no backslash escapes.
// - Quoted ("dir with spaces/prog" args): the quoted text, as written.
// - Unquoted and followed by more text: each prefix of the line that ends before a
//   space or tab (and before any double quote) is tried in turn, shortest first, then
//   the whole line when it holds no quote; the first that names an executable regular
//   file is the program and the rest of the line its arguments. So
//   "/opt/my tools/run x" runs "/opt/my" with the arguments "tools/run" and "x" when
//   such a file exists, else "/opt/my tools/run" with "x".
// - A name with a slash or a backslash is a path (relative ones to the current
//   folder) and is not looked up on PATH; a backslash is an ordinary character of a
//   Linux file name, so a legacy path such as C:\prog.exe is taken as written and
//   simply names no file. A bare name is looked up in the folders of PATH, as the
//   suite's sibling programs are installed there.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vglobal::command_line {

// The arguments of `text`, which holds no program part, split by the rules above.
std::vector<std::wstring> SplitArguments(std::wstring_view text);

// The file that `name` names as a program: `name` itself (in UTF-8) when it holds a
// slash or backslash, else the first match in the folders of PATH (unset: the
// system's default search path; an empty entry: the current folder). Only an
// executable regular file (for the effective user) matches; nullopt otherwise.
std::optional<std::string> FindExecutable(std::string_view name);

struct Resolved {
  std::wstring program;                 // as written in the line: the program's argv[0]
  std::string executable;               // the file to run (UTF-8)
  std::vector<std::wstring> arguments;  // after the program
};

// Resolves the program of `line` and splits the rest. nullopt when the line has no
// program part or no candidate names an executable file.
std::optional<Resolved> Resolve(std::wstring_view line);

}  // namespace vglobal::command_line
