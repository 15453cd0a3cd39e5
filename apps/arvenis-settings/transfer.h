// What export and import move between a store and a file, in every file format: the
// keys of a branch with their values, and the checked changes an import file asks
// for. Nothing here touches a store, so the file readers can be tried on any input
// without one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vglobal/settings_store.h"

namespace arvenis_settings {

// The two stores, by the root key that names them in files.
enum class Root { CurrentUser, LocalMachine };

// "HKEY_CURRENT_USER" or "HKEY_LOCAL_MACHINE".
std::wstring_view RootName(Root root);

// Files may hold only keys below <root>\Software\Ostrel: the suite's own.
inline constexpr std::wstring_view kSuiteKeysPath = L"Software\\Ostrel";
// True when `path` (from the root) is kSuiteKeysPath or lies below it.
bool InSuiteKeys(std::wstring_view path);

// The type names that query prints and JSON files carry ("REG_DWORD"...).
std::string_view TypeName(vglobal::SettingsValueType type);
std::optional<vglobal::SettingsValueType> TypeFromName(std::string_view name);

// One key of an exported branch: its path from the root as the store spells it, and
// its values in the store's order.
struct ExportKey {
  std::wstring path;
  std::vector<std::pair<std::wstring, vglobal::SettingsValue>> values;
};
// A branch: the top key first, every key followed by its sub-keys (depth first).
using ExportBranch = std::vector<ExportKey>;

// A place in an import file: 1-based line and column (in characters).
struct SourcePosition {
  std::size_t line = 1;
  std::size_t column = 1;
};

// What is wrong with an import file, and where.
struct ImportError {
  SourcePosition where;
  std::string message;  // says what was expected
  // "line L, column C: message"
  std::string Text() const;
};

// The changes an import file asks for, in file order; or the first error found, and
// then no changes at all. The readers check every name and value against the store's
// limits, so that a store refuses a checked plan only for a reason of its own (busy,
// read-only, unusable).
struct ImportPlan {
  std::vector<vglobal::SettingsChange> changes;
  std::optional<ImportError> error;
  bool ok() const { return !error; }

  void Fail(SourcePosition at, std::string message) {
    changes.clear();
    error = ImportError{at, std::move(message)};
  }
};

// Import files larger than this are refused: far beyond any settings export (a store
// of 100,000 values exports to a few MiB), and small enough that reading one cannot
// exhaust memory.
inline constexpr std::size_t kMaxImportFileBytes = 256u * 1024u * 1024u;

// The messages of the checks every import format makes: a key of the other root than
// the store the import goes to, and a key outside the suite's keys.
std::string WrongRootMessage(Root target);
std::string OutsideSuiteKeysMessage(Root target);

// The line and column of byte `offset` of UTF-8 text, counting characters.
SourcePosition PositionOfByte(std::string_view text, std::size_t offset);

}  // namespace arvenis_settings
