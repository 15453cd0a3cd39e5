// File and folder choosers on the platform seam (vglobal::Platform::ChooseFile and
// ChooseFolder): what a request holds, and the legacy filter text translated into
// labelled pattern lists.
//
// Contract: plain values and a pure function; any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vglobal/export.h"

namespace vglobal {

// One entry of a chooser's file-type list: the label the user sees and the
// patterns it stands for ("*" is every file).
struct FileFilter {
  std::wstring label;
  std::vector<std::wstring> patterns;

  friend bool operator==(const FileFilter&, const FileFilter&) = default;
};

// Reads the legacy filter text "Label|pattern;pattern|Label|pattern||" into its
// entries. Labels and patterns lose the spaces around them; "*.*" becomes "*"
// (every file, also one without a dot); empty patterns between ";" are dropped.
// The list ends at the first empty label or pattern list, as the double "|" ends
// it; a label without patterns after it is dropped. Null or empty text gives no
// entries. Never fails: bad text gives the entries that could be read.
VGLOBAL_EXPORT std::vector<FileFilter> ParseLegacyFilter(const wchar_t* text);

// The same list in the form that the legacy OPENFILENAME carries: label, NUL,
// patterns, NUL, ..., and a second NUL at the end. Reads at most `maxChars`
// characters, so an unterminated list is cut short, not overrun.
VGLOBAL_EXPORT std::vector<FileFilter> ParseNulSeparatedFilter(const wchar_t* list,
                                                               std::size_t maxChars);

// A request for a file. Only path and filterIndex are written by the platform.
struct FileChooser {
  std::wstring title;  // empty: the platform's own ("Open", "Save As")
  std::vector<FileFilter> filters;
  int filterIndex = 0;            // the filter in force, from 0 (in and out)
  std::wstring folder;            // where to start; empty: the current folder
  std::wstring fileName;          // the name proposed (may hold a folder too)
  std::wstring defaultExtension;  // added to a name typed without one (no dot)
  bool save = false;              // a "save as" chooser rather than an "open" one
  bool fileMustExist = false;
  bool pathMustExist = false;
  bool overwritePrompt = false;  // save: ask before choosing a file that exists
  std::wstring path;             // out: the chosen file's full path
};

}  // namespace vglobal
