// CVRegKey: the legacy key object over the settings store. Everything here converts
// between the legacy vocabulary (int results, CString, out-parameters) and the store's
// (SettingsValue, SettingsResult); the rules themselves live in the stores.
#include <cstring>

#include "vglobal/settings.h"

using vglobal::SettingsError;
using vglobal::SettingsValue;

namespace {

std::wstring_view NameOf(const wchar_t* name) {
  // A null value name is the key's default value, as the empty name is.
  return name ? std::wstring_view(name) : std::wstring_view();
}

}  // namespace

CVRegKey::CVRegKey(HKEY root, const wchar_t* path, int create, int /*secondFlag*/) {
  Init(root, path, create);
}

CVRegKey::CVRegKey(CVRegKey& parent, const wchar_t* subPath, int create, int /*secondFlag*/) {
  if (!parent.bound_) return;
  const std::wstring_view sub = NameOf(subPath);
  std::wstring path = parent.path_;
  if (!path.empty() && !sub.empty()) path += L'\\';
  path += sub;
  Bind(parent.root_, std::move(path), create != 0);
  // Opened through the parent's open key when there is one, as a handle-relative open
  // would be: a parent whose key was deleted yields no child.
  if (parent.id_ != 0) {
    auto id = create_ ? parent.store_->CreateKey(parent.id_, sub)
                      : parent.store_->FindKey(parent.id_, sub);
    if (id.ok()) {
      store_ = parent.store_;
      id_ = *id;
    }
  } else {
    EnsureOpen();
  }
}

CVRegKey::CVRegKey(int /*unbound*/) {}

CVRegKey::~CVRegKey() {
  Close();
}

void CVRegKey::Bind(HKEY root, std::wstring path, bool create) {
  Close();
  root_ = root;
  path_ = std::move(path);
  create_ = create;
  bound_ = true;
}

int CVRegKey::Init(HKEY root, const wchar_t* path, int create) {
  Bind(root, path ? vglobal::ResolveSettingsPath(path) : std::wstring(), create != 0);
  return EnsureOpen() ? 1 : 0;
}

int CVRegKey::Open(unsigned long access) {
  if (!bound_) return 0;
  Close();
  access_ = access;
  return EnsureOpen() ? 1 : 0;
}

int CVRegKey::Close() {
  // The durability point: commits of this object are synced when it lets go of its key.
  if (id_ != 0 && wrote_) store_->Sync();
  store_.reset();
  id_ = 0;
  wrote_ = false;
  return 1;
}

int CVRegKey::IsValid() const {
  return bound_ && id_ != 0 ? 1 : 0;
}

bool CVRegKey::EnsureOpen() {
  if (!bound_) return false;
  if (id_ != 0) return true;
  std::shared_ptr<vglobal::SettingsStore> store = vglobal::GetSettingsStore(root_);
  if (!store) return false;
  auto id = create_ ? store->CreateKey(vglobal::kSettingsRootKey, path_)
                    : store->FindKey(vglobal::kSettingsRootKey, path_);
  if (!id.ok()) return false;
  store_ = std::move(store);
  id_ = *id;
  return true;
}

bool CVRegKey::CanRead() {
  return (access_ & KEY_QUERY_VALUE) != 0 && EnsureOpen();
}

bool CVRegKey::CanWrite() {
  return (access_ & KEY_SET_VALUE) != 0 && EnsureOpen();
}

vglobal::SettingsResult<SettingsValue> CVRegKey::ReadValue(const wchar_t* name) {
  if (!CanRead()) return SettingsError::NotFound;
  return store_->ReadValue(id_, NameOf(name));
}

int CVRegKey::ReadInt(const wchar_t* name, int* value) {
  if (!value) return 0;
  auto read = ReadValue(name);
  if (!read.ok() || !read->AsInt()) return 0;
  *value = *read->AsInt();
  return 1;
}

int CVRegKey::ReadDouble(const wchar_t* name, double* value) {
  if (!value) return 0;
  auto read = ReadValue(name);
  if (!read.ok() || !read->AsDouble()) return 0;
  *value = *read->AsDouble();
  return 1;
}

int CVRegKey::ReadStr(const wchar_t* name, CString& value) {
  auto read = ReadValue(name);
  if (!read.ok() || !read->AsString()) return 0;
  value = CString(*read->AsString());
  return 1;
}

int CVRegKey::ReadBin(const wchar_t* name, unsigned char* data, unsigned long* size) {
  if (!size) return 0;
  auto read = ReadValue(name);
  if (!read.ok() || !read->AsBinary()) return 0;
  const std::vector<std::uint8_t>& bytes = *read->AsBinary();
  if (data) {
    // The legacy store reported "more data" here and callers went on with whatever the
    // buffer held; failing without touching anything is the safe reading of that.
    if (bytes.size() > *size) return 0;
    if (!bytes.empty()) std::memcpy(data, bytes.data(), bytes.size());
  }
  *size = static_cast<unsigned long>(bytes.size());
  return 1;
}

int CVRegKey::ReadMultiStr(const wchar_t* name, CStringArray& values) {
  auto read = ReadValue(name);
  if (!read.ok() || !read->AsMultiString()) return 0;
  values.RemoveAll();
  for (const std::wstring& s : *read->AsMultiString()) values.Add(CString(s));
  return 1;
}

int CVRegKey::Store(const wchar_t* name, const SettingsValue& value) {
  if (!CanWrite()) return 0;
  if (store_->WriteValue(id_, NameOf(name), value) != SettingsError::None) return 0;
  wrote_ = true;
  return 1;
}

int CVRegKey::WriteInt(const wchar_t* name, int value) {
  return Store(name, SettingsValue::Int(value));
}

int CVRegKey::WriteDouble(const wchar_t* name, double value) {
  return Store(name, SettingsValue::Double(value));
}

int CVRegKey::WriteStr(const wchar_t* name, const wchar_t* value) {
  return Store(name, SettingsValue::String(value ? std::wstring(value) : std::wstring()));
}

int CVRegKey::WriteBin(const wchar_t* name, unsigned char* data, unsigned long size) {
  if (!data && size != 0) return 0;
  if (size > vglobal::kMaxSettingsValueBytes) return 0;
  return Store(name, SettingsValue::Binary(std::vector<std::uint8_t>(data, data + size)));
}

int CVRegKey::WriteMultiStr(const wchar_t* name, CStringArray& values) {
  std::vector<std::wstring> strings;
  strings.reserve(static_cast<std::size_t>(values.GetSize()));
  for (const CString& s : values) strings.push_back(s.str());
  return Store(name, SettingsValue::MultiString(std::move(strings)));
}

int CVRegKey::Delete(const wchar_t* subkey) {
  // An empty name would be the key itself, which a key object does not delete.
  if (!subkey || !*subkey || !CanWrite()) return 0;
  auto id = store_->FindKey(id_, subkey);
  if (!id.ok()) return 0;
  if (store_->DeleteKey(*id) != SettingsError::None) return 0;
  wrote_ = true;
  return 1;
}

int CVRegKey::DeleteAll() {
  if (!CanWrite() || store_->DeleteContents(id_) != SettingsError::None) return 0;
  wrote_ = true;
  return 1;
}

int CVRegKey::DeleteValue(const wchar_t* name) {
  if (!CanWrite() || store_->DeleteValue(id_, NameOf(name)) != SettingsError::None) return 0;
  wrote_ = true;
  return 1;
}

int CVRegKey::GetSubvalueNames(CStringArray& names) {
  if (!CanRead()) return 0;
  auto list = store_->ValueNames(id_);
  if (!list.ok()) return 0;
  names.RemoveAll();
  for (const std::wstring& name : *list) names.Add(CString(name));
  return 1;
}

int CVRegKey::GetSubkeyNames(CStringArray& names) {
  if (!CanRead()) return 0;
  auto list = store_->SubkeyNames(id_);
  if (!list.ok()) return 0;
  names.RemoveAll();
  for (const std::wstring& name : *list) names.Add(CString(name));
  return 1;
}
