// Splitting and completing file paths.
//
// Contract:
// - '\' separates the parts of a path, as it always has; on Linux '/' does too. A
//   path that begins with '/' is absolute, like one that begins with a drive ("C:\").
// - A directory prefix made here ends with exactly one separator.
// - Pure functions of their arguments (PrefixPath also reads the suite's data
//   folder); safe from any thread.
#pragma once

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"

// The part of `path` after its last separator: the whole path when it has none, empty
// when it ends with one.
VGLOBAL_EXPORT void GetFileName(const CString& path, CString& name);

// The part of `path` up to and including its last separator, with a run of separators
// at its end reduced to the first of them; empty when the path has no separator.
VGLOBAL_EXPORT void GetPathName(const CString& path, CString& directory);

// The directory prefix for `path`:
// - a drive path ("C:\..." or "C:/...") or an absolute POSIX path ("/...") is its own
//   prefix;
// - a network path ("\\server\share") becomes "UNC\server\share";
// - anything else is taken below the suite's data folder (GetArvenisDataPath, which
//   ARVENIS_DATA_PATH overrides): the folder, a separator unless the folder ends with
//   one or the path begins with one, then the path. The separator put between them
//   is the one the folder uses ('/' in "/srv/arvenis"), '\' when it has none.
// Every separator at the end of the prefix is then removed and one is appended: the
// separator the prefix itself uses last, so "C:\data\\" gives "C:\data\" and
// "/srv/data//" gives "/srv/data/".
VGLOBAL_EXPORT void PrefixPath(const CString& path, CString& prefix);
