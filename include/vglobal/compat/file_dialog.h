// CFileDialog: the legacy file-open and file-save dialog, asked of the platform's
// file chooser (vglobal::Platform::ChooseFile).
//
// Contract:
// - The filter given to the constructor is the legacy text "Label|*.ext|...||"; it
//   is kept in m_ofn.lpstrFilter in the NUL-separated form, where callers may also
//   put a list of their own before DoModal.
// - m_ofn.lpstrTitle and m_ofn.lpstrInitialDir are read by DoModal (not owned; they
//   must live until it returns). The chosen path is written to m_ofn.lpstrFile
//   (the dialog's own buffer of kMaxPath characters unless the caller points it
//   elsewhere with nMaxFile).
// - There is no read-only box: OFN_HIDEREADONLY is always in effect.
// - User-interface thread only.
#pragma once

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/window.h"
#include "vglobal/export.h"

// OPENFILENAME flags (Windows values).
constexpr DWORD OFN_READONLY = 0x00000001;
constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;
constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
constexpr DWORD OFN_NOCHANGEDIR = 0x00000008;
constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;
constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;
constexpr DWORD OFN_EXPLORER = 0x00080000;
constexpr DWORD OFN_ENABLESIZING = 0x00800000;

// The fields of the legacy structure that callers set or read.
struct OPENFILENAME {
  DWORD lStructSize = sizeof(OPENFILENAME);
  HWND hwndOwner = nullptr;
  const wchar_t* lpstrFilter = nullptr;  // label NUL patterns NUL ... NUL
  DWORD nFilterIndex = 1;                // from 1; 0 counts as 1
  wchar_t* lpstrFile = nullptr;          // in: the proposed name; out: the chosen path
  DWORD nMaxFile = 0;                    // characters in lpstrFile, the NUL included
  const wchar_t* lpstrInitialDir = nullptr;
  const wchar_t* lpstrTitle = nullptr;  // null: the platform's own title
  DWORD Flags = 0;
  WORD nFileOffset = 0;     // out: where the file name starts in lpstrFile
  WORD nFileExtension = 0;  // out: where the extension starts (0: none)
  const wchar_t* lpstrDefExt = nullptr;
};

class VGLOBAL_EXPORT CFileDialog : public CWnd {
 public:
  // Characters in the dialog's own path buffer: a whole Linux path and its NUL.
  static constexpr DWORD kMaxPath = 4096;

  CFileDialog(BOOL openFileDialog, const wchar_t* defaultExt = nullptr,
              const wchar_t* fileName = nullptr,
              DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, const wchar_t* filter = nullptr,
              CWnd* parent = nullptr);
  ~CFileDialog() override;

  OPENFILENAME m_ofn;

  // Asks the platform's chooser. IDOK with the chosen path in m_ofn.lpstrFile, or
  // IDCANCEL: the user cancelled, there is no chooser (headless), or the path does
  // not fit the caller's buffer (m_ofn.nMaxFile; nothing is written then).
  virtual INT_PTR DoModal();

  // The chosen path and its parts, after IDOK (empty before). The name is the part
  // after the last "/" or "\"; the extension the part of the name after its last
  // "." (empty when it has none); the title the name without ".extension".
  CString GetPathName() const;
  CString GetFileName() const;
  CString GetFileExt() const;
  CString GetFileTitle() const;
  CString GetFolderPath() const;

 private:
  bool open_;
  CString defaultExt_;
  std::wstring filter_;  // NUL-separated, ended by two NULs
  std::vector<wchar_t> file_;
  CString path_;
};
