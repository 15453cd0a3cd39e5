// CWinApp: the application object, its main window and its profile store.
//
// The profile store keeps an application's own settings (window places, toolbar
// layouts ...) in the user's settings store, below
//   Software\Ostrel\<profile name>\<section>\<entry>
// The profile name is the application's name: what the application sets
// (SetProfileName, or the name given to the constructor), else the platform's
// application name when the store is first used. A section may hold backslashes:
// it is then a key path below the application's key.
//
// Contract:
// - One application object is in force: the last CWinApp constructed and not yet
//   destroyed. AfxGetApp never returns null: without one of the application's own,
//   the library's default object (named after the platform's application name)
//   answers.
// - Values keep their types: an int is read back only as an int, a string only as a
//   string, binary bytes only as binary (bit-exact, 0 bytes allowed). A missing
//   value, a value of another type, an empty section or entry name, a profile name
//   that is empty or holds a backslash, and a store that cannot be opened all give
//   the caller's default (GetProfile*) or FALSE (WriteProfile*), never a crash.
// - User-interface thread only, like the settings objects it uses.
#pragma once

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/types.h"
#include "vglobal/compat/window.h"
#include "vglobal/export.h"

class VGLOBAL_EXPORT CWinApp : public CCmdTarget {
 public:
  // appName null: the platform's application name, asked when first needed.
  explicit CWinApp(const wchar_t* appName = nullptr);
  ~CWinApp() override;
  CWinApp(const CWinApp&) = delete;
  CWinApp& operator=(const CWinApp&) = delete;

  // The application's main window (not owned); commands posted to "the main window"
  // go here.
  CWnd* m_pMainWnd = nullptr;

  // The name under which the profile is kept.
  CString GetProfileName() const;
  void SetProfileName(const wchar_t* name);

  // Reads an int; `defaultValue` when absent or not an int.
  UINT GetProfileInt(const wchar_t* section, const wchar_t* entry, int defaultValue);
  BOOL WriteProfileInt(const wchar_t* section, const wchar_t* entry, int value);
  // Reads a string; `defaultValue` (null: empty) when absent or not a string.
  CString GetProfileString(const wchar_t* section, const wchar_t* entry,
                           const wchar_t* defaultValue = nullptr);
  // value null deletes the entry; entry null deletes the whole section.
  BOOL WriteProfileString(const wchar_t* section, const wchar_t* entry, const wchar_t* value);
  // Reads binary bytes into a new[] block that the caller frees with delete[]
  // (a block of 0 bytes for an empty value). On failure *data is null, *bytes 0.
  BOOL GetProfileBinary(const wchar_t* section, const wchar_t* entry, BYTE** data, UINT* bytes);
  // data may be null only when bytes is 0.
  BOOL WriteProfileBinary(const wchar_t* section, const wchar_t* entry, const BYTE* data,
                          UINT bytes);

 private:
  CString name_;
};

// The application object in force (see the contract above).
VGLOBAL_EXPORT CWinApp* AfxGetApp();
// Its main window, or null.
VGLOBAL_EXPORT CWnd* AfxGetMainWnd();
