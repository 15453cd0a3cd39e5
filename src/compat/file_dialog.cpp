// CFileDialog over the platform's file chooser: the OPENFILENAME fields in, the
// chosen path out.
#include "vglobal/compat/file_dialog.h"

#include <algorithm>

#include "vglobal/choosers.h"
#include "vglobal/platform.h"

namespace {

std::wstring NulSeparated(const std::vector<vglobal::FileFilter>& filters) {
  std::wstring out;
  for (const vglobal::FileFilter& f : filters) {
    out += f.label;
    out += L'\0';
    for (std::size_t i = 0; i < f.patterns.size(); ++i) {
      if (i) out += L';';
      out += f.patterns[i];
    }
    out += L'\0';
  }
  out += L'\0';
  return out;
}

std::size_t NameStart(const CString& path) {
  const std::wstring_view p(path.GetString(), static_cast<std::size_t>(path.GetLength()));
  const std::size_t slash = p.find_last_of(L"/\\");
  return slash == std::wstring_view::npos ? 0 : slash + 1;
}

// The length of a text of at most `max` characters (the caller's buffer may hold
// no NUL at all).
std::size_t BoundedLength(const wchar_t* text, std::size_t max) {
  std::size_t n = 0;
  while (n < max && text[n] != L'\0') ++n;
  return n;
}

}  // namespace

CFileDialog::CFileDialog(BOOL openFileDialog, const wchar_t* defaultExt, const wchar_t* fileName,
                         DWORD flags, const wchar_t* filter, CWnd* parent)
    : open_(openFileDialog != FALSE), defaultExt_(defaultExt), file_(kMaxPath, L'\0') {
  parent_ = parent;
  filter_ = NulSeparated(vglobal::ParseLegacyFilter(filter));
  if (fileName) std::copy_n(fileName, BoundedLength(fileName, kMaxPath - 1), file_.begin());
  m_ofn.hwndOwner = parent ? parent->GetSafeHwnd() : nullptr;
  m_ofn.lpstrFilter = filter ? filter_.c_str() : nullptr;
  m_ofn.lpstrFile = file_.data();
  m_ofn.nMaxFile = kMaxPath;
  m_ofn.Flags = flags | OFN_EXPLORER | OFN_ENABLESIZING;
  m_ofn.lpstrDefExt = defaultExt_.IsEmpty() ? nullptr : defaultExt_.GetString();
}

CFileDialog::~CFileDialog() = default;

INT_PTR CFileDialog::DoModal() {
  vglobal::FileChooser request;
  if (m_ofn.lpstrTitle) request.title = m_ofn.lpstrTitle;
  // A filter list has no natural end but its double NUL; 64K characters is more
  // than any list of file types, and keeps a list without one from being overrun.
  request.filters = vglobal::ParseNulSeparatedFilter(m_ofn.lpstrFilter, 0x10000);
  request.filterIndex = m_ofn.nFilterIndex > 0 ? static_cast<int>(m_ofn.nFilterIndex) - 1 : 0;
  if (request.filterIndex >= static_cast<int>(request.filters.size())) request.filterIndex = 0;
  if (m_ofn.lpstrInitialDir) request.folder = m_ofn.lpstrInitialDir;
  if (m_ofn.lpstrFile && m_ofn.nMaxFile > 0)
    request.fileName.assign(m_ofn.lpstrFile, BoundedLength(m_ofn.lpstrFile, m_ofn.nMaxFile));
  if (m_ofn.lpstrDefExt) request.defaultExtension = m_ofn.lpstrDefExt;
  request.save = !open_;
  request.fileMustExist = (m_ofn.Flags & OFN_FILEMUSTEXIST) != 0;
  request.pathMustExist = (m_ofn.Flags & (OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST)) != 0;
  request.overwritePrompt = (m_ofn.Flags & OFN_OVERWRITEPROMPT) != 0;

  if (!vglobal::GetPlatform().ChooseFile(GetParent(), request) || request.path.empty())
    return IDCANCEL;
  if (!m_ofn.lpstrFile || request.path.size() >= m_ofn.nMaxFile) return IDCANCEL;

  std::copy(request.path.begin(), request.path.end(), m_ofn.lpstrFile);
  m_ofn.lpstrFile[request.path.size()] = L'\0';
  path_ = request.path.c_str();
  m_ofn.nFilterIndex = static_cast<DWORD>(request.filterIndex) + 1;
  const std::size_t name = NameStart(path_);
  const std::wstring_view file = std::wstring_view(request.path).substr(name);
  const std::size_t dot = file.rfind(L'.');
  // The offsets are 16-bit in the legacy structure; a longer path leaves them 0.
  if (request.path.size() <= 0xFFFF) {
    m_ofn.nFileOffset = static_cast<WORD>(name);
    m_ofn.nFileExtension = dot == std::wstring_view::npos ? 0 : static_cast<WORD>(name + dot + 1);
  }
  return IDOK;
}

CString CFileDialog::GetPathName() const {
  return path_;
}

CString CFileDialog::GetFileName() const {
  return path_.Mid(static_cast<int>(NameStart(path_)));
}

CString CFileDialog::GetFileExt() const {
  const CString name = GetFileName();
  const int dot = name.ReverseFind(L'.');
  return dot < 0 ? CString() : name.Mid(dot + 1);
}

CString CFileDialog::GetFileTitle() const {
  const CString name = GetFileName();
  const int dot = name.ReverseFind(L'.');
  return dot < 0 ? name : name.Left(dot);
}

CString CFileDialog::GetFolderPath() const {
  const int start = static_cast<int>(NameStart(path_));
  if (start == 1) return path_.Left(1);  // a file in the root folder
  return path_.Left(start > 0 ? start - 1 : 0);
}
