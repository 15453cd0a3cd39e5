// Names shared by every file format of export and import.
#include "transfer.h"

#include "vglobal/compat/unicode.h"

namespace arvenis_settings {

std::wstring_view RootName(Root root) {
  return root == Root::CurrentUser ? L"HKEY_CURRENT_USER" : L"HKEY_LOCAL_MACHINE";
}

bool InSuiteKeys(std::wstring_view path) {
  if (path.size() < kSuiteKeysPath.size()) return false;
  if (path.size() > kSuiteKeysPath.size() && path[kSuiteKeysPath.size()] != L'\\') return false;
  return vglobal::FoldCase(path.substr(0, kSuiteKeysPath.size())) ==
         vglobal::FoldCase(kSuiteKeysPath);
}

std::string_view TypeName(vglobal::SettingsValueType type) {
  switch (type) {
    case vglobal::SettingsValueType::Int:
      return "REG_DWORD";
    case vglobal::SettingsValueType::Double:
      return "REG_DOUBLE";
    case vglobal::SettingsValueType::String:
      return "REG_SZ";
    case vglobal::SettingsValueType::Binary:
      return "REG_BINARY";
    case vglobal::SettingsValueType::MultiString:
      return "REG_MULTI_SZ";
  }
  return "REG_NONE";
}

std::optional<vglobal::SettingsValueType> TypeFromName(std::string_view name) {
  using vglobal::SettingsValueType;
  for (const SettingsValueType type :
       {SettingsValueType::Int, SettingsValueType::Double, SettingsValueType::String,
        SettingsValueType::Binary, SettingsValueType::MultiString}) {
    if (TypeName(type) == name) return type;
  }
  return std::nullopt;
}

std::string WrongRootMessage(Root target) {
  return target == Root::CurrentUser
             ? "the key is in HKEY_LOCAL_MACHINE but the import goes to the user's store "
               "(HKEY_CURRENT_USER); import the file with --machine"
             : "the key is in HKEY_CURRENT_USER but the import goes to the machine store "
               "(HKEY_LOCAL_MACHINE); import the file without --machine";
}

std::string OutsideSuiteKeysMessage(Root target) {
  return "the key is outside the suite's keys; expected a key below " +
         vglobal::WideToUtf8(RootName(target)) + "\\" + vglobal::WideToUtf8(kSuiteKeysPath);
}

SourcePosition PositionOfByte(std::string_view text, std::size_t offset) {
  SourcePosition at;
  for (std::size_t i = 0; i < offset && i < text.size(); ++i) {
    const auto b = static_cast<unsigned char>(text[i]);
    if (b == '\n') {
      ++at.line;
      at.column = 1;
    } else if ((b & 0xC0) != 0x80) {
      ++at.column;
    }
  }
  return at;
}

std::string ImportError::Text() const {
  return "line " + std::to_string(where.line) + ", column " + std::to_string(where.column) + ": " +
         message;
}

}  // namespace arvenis_settings
