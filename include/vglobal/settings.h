// CVRegKey, the key of the suite's settings store, and the suite-wide settings.
//
// Contract of CVRegKey:
// - An object is bound to a root (HKEY_CURRENT_USER: the user's store;
//   HKEY_LOCAL_MACHINE: the machine-wide store) and a path, and holds that key open
//   while it lives. A path whose first name is "Software" is taken from the root as it
//   stands; any other path lies below "Software\Ostrel\Arvenis" (kSettingsBasePath).
//   Another root leaves the object unusable.
// - Create = 1 makes the key and any missing parent; create = 0 makes nothing, and an
//   absent key leaves the object not valid: every read and every write fails. The
//   second constructor flag is accepted for callers and changes nothing: every key
//   opens for reading and writing unless Open is given a narrower access mask.
// - Every operation returns nonzero on success and zero on failure. A failed read
//   leaves its out-parameter untouched.
// - A closed object, or one whose key was absent, opens its key again by its path at
//   the next read or write.
// - Writes are committed at once (safe from a crash of the program); they are made
//   durable against a power failure at the latest when the object that wrote them is
//   closed or destroyed.
// - Names compare without regard to case. Value names list in creation order.
// - Objects are not copyable. One object is used by one thread at a time.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"
#include "vglobal/fileio/device_types.h"
#include "vglobal/settings_store.h"

class VGLOBAL_EXPORT CVRegKey {
 public:
  // Binds to root\path and opens it; a null path is the root itself.
  CVRegKey(HKEY root, const wchar_t* path, int create, int secondFlag);
  // Binds to the key at subPath below `parent` (several names allowed); a null or empty
  // subPath is the parent's key. Unusable when the parent is unbound.
  CVRegKey(CVRegKey& parent, const wchar_t* subPath, int create, int secondFlag);
  // An unbound object (callers pass 0); Init binds it.
  explicit CVRegKey(int unbound);
  ~CVRegKey();
  CVRegKey(const CVRegKey&) = delete;
  CVRegKey& operator=(const CVRegKey&) = delete;

  // Binds (or rebinds) to root\path and opens it; a null path is the root itself.
  int Init(HKEY root, const wchar_t* path, int create);
  // Reopens the bound key with an access mask (KEY_READ, KEY_WRITE or their union,
  // 0x2001F): reads need KEY_QUERY_VALUE, writes and deletes KEY_SET_VALUE.
  int Open(unsigned long access);
  // Closes the key; the object stays bound and reopens at the next read or write.
  int Close();
  // Nonzero when the bound key exists and is open.
  int IsValid() const;

  int ReadInt(const wchar_t* name, int* value);
  int ReadDouble(const wchar_t* name, double* value);
  int ReadStr(const wchar_t* name, CString& value);
  // `size` holds the capacity of `data` on entry and the bytes read on return. A value
  // larger than the capacity fails and leaves both untouched. With a null `data`,
  // stores the value's size in `size` and succeeds.
  int ReadBin(const wchar_t* name, unsigned char* data, unsigned long* size);
  // Replaces the content of `values` on success.
  int ReadMultiStr(const wchar_t* name, CStringArray& values);

  int WriteInt(const wchar_t* name, int value);
  int WriteDouble(const wchar_t* name, double value);
  // A null value writes the empty string.
  int WriteStr(const wchar_t* name, const wchar_t* value);
  int WriteBin(const wchar_t* name, unsigned char* data, unsigned long size);
  int WriteMultiStr(const wchar_t* name, CStringArray& values);

  // Removes the sub-key at `subkey` (several names allowed) with everything below it.
  int Delete(const wchar_t* subkey);
  // Removes every value and sub-key of the key; the key stays.
  int DeleteAll();
  int DeleteValue(const wchar_t* name);

  // Replace the content of `names` on success: value names in creation order, and
  // sub-key names in creation order.
  int GetSubvalueNames(CStringArray& names);
  int GetSubkeyNames(CStringArray& names);

  // The value with its stored type, for tools that show values of any type.
  vglobal::SettingsResult<vglobal::SettingsValue> ReadValue(const wchar_t* name);

 private:
  void Bind(HKEY root, std::wstring path, bool create);
  bool EnsureOpen();
  bool CanRead();
  bool CanWrite();
  int Store(const wchar_t* name, const vglobal::SettingsValue& value);

  HKEY root_ = nullptr;
  std::wstring path_;  // from the root; empty for the root itself
  bool bound_ = false;
  bool create_ = false;
  unsigned long access_ = KEY_READ | KEY_WRITE;
  std::shared_ptr<vglobal::SettingsStore> store_;  // while open
  vglobal::SettingsKeyId id_ = 0;                  // 0 while not open
  bool wrote_ = false;                             // since the last open
};

// The suite's data folder, below which relative file names are resolved. Sources, in
// order: ARVENIS_DATA_PATH; the machine store's "Installation" key, value "DataPath";
// the build's default. Nonzero on success; `path` is untouched on failure.
VGLOBAL_EXPORT int GetArvenisDataPath(CString& path);

// The installed suite's version text: ARVENIS_VERSION; "Installation\Version" in the
// machine store; the build's version. Looked up at each call; the reference stays
// valid for the calling thread's lifetime and holds the latest answer.
VGLOBAL_EXPORT const CString& GetArvenisVersionString();

// The suite's help "file", a folder of HTML topics with a map from context id to
// topic: ARVENIS_HELP_FILE; "Installation\HelpFile" in the machine store;
// <build help folder>/arvenis. Nonzero on success; `path` is untouched on failure.
VGLOBAL_EXPORT int GetArvenisHTMLHelpFile(CString& path);

// The peak-detection algorithm that new chromatograms of a detector kind use: the
// machine store's "Installation\Peak Detection" key, an integer value named by the
// device number ("0" for the mass spectrometer) holding 0 to 3; else the suite's
// table (MS: Solenta; analog, UV, A/D card: Tamsin; PDA: Kiva; any other: Solenta).
VGLOBAL_EXPORT ePeakDetectionAlgorithm
GetArvenisDefaultPeakDetectionTypeForDevice(VirtualDeviceType device);
