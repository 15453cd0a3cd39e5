// CWinApp: the application object in force and its profile store on the user's
// settings store.
#include "vglobal/compat/app.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

#include "vglobal/platform.h"
#include "vglobal/settings.h"

namespace {

// Live application objects, oldest first; the last one is in force.
struct Apps {
  std::mutex mutex;
  std::vector<CWinApp*> live;
};

Apps& TheApps() {
  static Apps* apps = new Apps;  // an application object may be a static of the program
  return *apps;
}

// The library's own application object, answering when the program has none.
// Made on first use so that it asks the platform in force for the name.
CWinApp& DefaultApp() {
  static CWinApp* app = [] {
    auto* a = new CWinApp;
    Apps& apps = TheApps();
    std::lock_guard lock(apps.mutex);
    std::erase(apps.live, a);  // never "in force" over a program's own object
    return a;
  }();
  return *app;
}

constexpr const wchar_t* kProfileRoot = L"Software\\Ostrel\\";

// The key path of a section, or empty when the names cannot make one: a profile
// name that is empty or holds a backslash would put the values under another
// application's key.
CString SectionPath(const CString& profileName, const wchar_t* section) {
  if (profileName.IsEmpty() || profileName.Find(L'\\') >= 0 || !section || !*section)
    return CString();
  CString path(kProfileRoot);
  path += profileName;
  path += L"\\";
  path += section;
  return path;
}

bool ValidEntry(const wchar_t* entry) {
  return entry && *entry;
}

}  // namespace

CWinApp::CWinApp(const wchar_t* appName) : name_(appName ? appName : L"") {
  Apps& apps = TheApps();
  std::lock_guard lock(apps.mutex);
  apps.live.push_back(this);
}

CWinApp::~CWinApp() {
  Apps& apps = TheApps();
  std::lock_guard lock(apps.mutex);
  std::erase(apps.live, this);
}

CString CWinApp::GetProfileName() const {
  return name_.IsEmpty() ? vglobal::GetPlatform().ApplicationName() : name_;
}

void CWinApp::SetProfileName(const wchar_t* name) {
  name_ = name ? name : L"";
}

UINT CWinApp::GetProfileInt(const wchar_t* section, const wchar_t* entry, int defaultValue) {
  const CString path = SectionPath(GetProfileName(), section);
  int value = defaultValue;
  if (path.IsEmpty() || !ValidEntry(entry)) return static_cast<UINT>(defaultValue);
  CVRegKey key(HKEY_CURRENT_USER, path, 0, 0);
  if (!key.ReadInt(entry, &value)) value = defaultValue;
  return static_cast<UINT>(value);
}

BOOL CWinApp::WriteProfileInt(const wchar_t* section, const wchar_t* entry, int value) {
  const CString path = SectionPath(GetProfileName(), section);
  if (path.IsEmpty() || !ValidEntry(entry)) return FALSE;
  CVRegKey key(HKEY_CURRENT_USER, path, 1, 0);
  return key.WriteInt(entry, value) != 0;
}

CString CWinApp::GetProfileString(const wchar_t* section, const wchar_t* entry,
                                  const wchar_t* defaultValue) {
  const CString path = SectionPath(GetProfileName(), section);
  CString value(defaultValue ? defaultValue : L"");
  if (path.IsEmpty() || !ValidEntry(entry)) return value;
  CVRegKey key(HKEY_CURRENT_USER, path, 0, 0);
  CString read;
  return key.ReadStr(entry, read) ? read : value;
}

BOOL CWinApp::WriteProfileString(const wchar_t* section, const wchar_t* entry,
                                 const wchar_t* value) {
  const CString path = SectionPath(GetProfileName(), section);
  if (path.IsEmpty()) return FALSE;
  if (!entry) {
    // The whole section goes; one that is not there is already gone.
    CString parent = path.Left(path.ReverseFind(L'\\'));
    CString name = path.Mid(parent.GetLength() + 1);
    CVRegKey key(HKEY_CURRENT_USER, parent, 0, 0);
    if (!key.IsValid()) return TRUE;
    CVRegKey section(key, name, 0, 0);
    return !section.IsValid() || key.Delete(name) != 0;
  }
  if (!*entry) return FALSE;
  if (!value) {
    CVRegKey key(HKEY_CURRENT_USER, path, 0, 0);
    if (!key.IsValid()) return TRUE;
    return key.DeleteValue(entry) != 0;
  }
  CVRegKey key(HKEY_CURRENT_USER, path, 1, 0);
  return key.WriteStr(entry, value) != 0;
}

BOOL CWinApp::GetProfileBinary(const wchar_t* section, const wchar_t* entry, BYTE** data,
                               UINT* bytes) {
  if (!data || !bytes) return FALSE;
  *data = nullptr;
  *bytes = 0;
  const CString path = SectionPath(GetProfileName(), section);
  if (path.IsEmpty() || !ValidEntry(entry)) return FALSE;
  CVRegKey key(HKEY_CURRENT_USER, path, 0, 0);
  unsigned long size = 0;
  if (!key.ReadBin(entry, nullptr, &size)) return FALSE;
  std::unique_ptr<BYTE[]> block(new (std::nothrow) BYTE[size]);
  if (!block) return FALSE;
  // The value may have changed size between the two reads (another program of the
  // suite writing): the second read then fails rather than overrun.
  unsigned long read = size;
  if (!key.ReadBin(entry, block.get(), &read)) return FALSE;
  *data = block.release();
  *bytes = static_cast<UINT>(read);
  return TRUE;
}

BOOL CWinApp::WriteProfileBinary(const wchar_t* section, const wchar_t* entry, const BYTE* data,
                                 UINT bytes) {
  const CString path = SectionPath(GetProfileName(), section);
  if (path.IsEmpty() || !ValidEntry(entry) || (!data && bytes)) return FALSE;
  CVRegKey key(HKEY_CURRENT_USER, path, 1, 0);
  static BYTE none = 0;
  return key.WriteBin(entry, data ? const_cast<BYTE*>(data) : &none, bytes) != 0;
}

CWinApp* AfxGetApp() {
  {
    Apps& apps = TheApps();
    std::lock_guard lock(apps.mutex);
    if (!apps.live.empty()) return apps.live.back();
  }
  return &DefaultApp();
}

CWnd* AfxGetMainWnd() {
  return AfxGetApp()->m_pMainWnd;
}
