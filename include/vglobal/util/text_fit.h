// Fitting names, paths and text blocks into a number of characters or a width in
// pixels, with "..." standing where text was left out.
//
// Contract common to all:
// - User-interface thread; the drawing context is the caller's and is only used for
//   measuring (nothing is drawn). A null context or null text changes nothing.
// - Widths are measured as the context lays out a line: CDC::DrawText with
//   DT_CALCRECT on a rectangle that starts empty (heights of blocks: with
//   DT_WORDBREAK on the caller's rectangle). The context's font decides, and "&"
//   counts as a mnemonic marker exactly as it does when the text is drawn with
//   DrawText.
// - A path separator is '\' or '/'. The name part of a path (its file title) is
//   everything after the last separator, extension included; a path ending with a
//   separator has an empty name. Where a function inserts a separator next to "...",
//   it uses the separator the path already has at that place, so a '\' path is
//   shortened with '\' and a '/' path with '/'.
#pragma once

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/geometry.h"
#include "vglobal/export.h"

class CDC;

// Shortens `path` in place to at most `maxChars` characters, for menus of recent
// files: the head of the path (the drive or network share and first folder) and the
// name are kept and "\..." stands for the folders between; when that does not fit,
// the name alone; when not even the name fits, the name's first maxChars - 3
// characters and "..." if atLeastName is non-zero, else the empty string (also when
// maxChars is below 3, which leaves no room for "...").
//
// `path` is a zero-terminated buffer of at least its length + 1 characters; the
// result is never longer than the path, so nothing is written past its terminator.
// A null path does nothing.
VGLOBAL_EXPORT void AbbreviateName(wchar_t* path, int maxChars, int atLeastName);

// Shortens `text` at its end so that it is narrower than `width`: the longest start
// of the text followed by "..." that is at most `width` wide, or "..." alone when
// none is. A text exactly `width` wide is shortened too. An empty text is left alone.
VGLOBAL_EXPORT void FitStringToWidth(CDC* dc, CString& text, int width);

// Shortens `path` in its middle so that it fits `width`, keeping the name: the
// longest head of folders that still fits is kept, "...\" stands for the rest of the
// folders (a drive path's first choice is "\...\name", without the drive). When only
// the name fits, the path becomes the name; when the name alone is too wide, the
// name shortened by FitStringToWidth. A path narrower than `width` is left alone.
//
// A path rooted with '\' or '\\' keeps the documented form of its head: the root and
// the folder after it are joined without a separator once the head grows
// ("\\server" then "share\" gives "\\servershare\"). A path starting with '/' is
// absolute and its root is kept like a drive: "/.../name", "/home/.../name",
// "/home/user/.../name".
VGLOBAL_EXPORT void FitPathToWidth(CDC* dc, CString& path, int width);

// The display form of a file for a recent-file list. If the folder part of `path`
// (with its final separator) is `currentDirLength` characters long and equals
// `currentDir` ignoring case, and omitCurrentDir is non-zero, the result is the name
// alone. Otherwise the path shortened by AbbreviateName(maxChars, atLeastName), or
// the whole path when maxChars is -1. A null currentDir matches no folder.
//
// The result holds at most MAX_PATH - 1 (259) characters, so that it fits the
// buffers callers keep display names in: a longer result is shortened by
// AbbreviateName to 259 characters instead of being cut at its end, so that the name
// stays visible. Always returns 1.
VGLOBAL_EXPORT int GetDisplayName(CString& result, const CString& path, int maxChars,
                                  const wchar_t* currentDir, int currentDirLength,
                                  int omitCurrentDir, int atLeastName);

// Fits a word-wrapped block of text into the height of `rect` (laid out within its
// width by DrawText with DT_CALCRECT | DT_WORDBREAK). A text that fits is left as it
// is. Otherwise its line breaks (CR and LF) become spaces so that it flows as one
// paragraph; if it still does not fit, it is cut at its end and ends with "...". When
// not even "..." fits, the text becomes "...". An empty text is left alone.
// Returns the height of the block as last measured (0 for a null context).
VGLOBAL_EXPORT int FitTextBlockToRect(CDC* dc, CString& text, const CRect& rect);
