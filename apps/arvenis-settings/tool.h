// Shared parts of arvenis-settings: exit codes, opening the store a command works on,
// paths as users type them, and the text form of values.
#pragma once

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <string_view>

#include "transfer.h"
#include "vglobal/settings_store.h"

namespace arvenis_settings {

// Exit codes of every command.
enum ExitCode : int {
  kSuccess = 0,
  kBadInput = 1,     // a bad argument, or a key or value that does not exist
  kUnavailable = 2,  // the store is missing, unreadable, damaged or read-only
};

// Writes "arvenis-settings: <message>" to standard error and ends the command with
// `code`.
[[noreturn]] void Fail(ExitCode code, const std::string& message);
// Ends the command with the exit code that belongs to a store error. `what` names the
// place (a key, a value, a file) and is shown escaped.
[[noreturn]] void Fail(vglobal::SettingsError error, const std::string& what);

// Text from the user, a file or a store, made safe to show in a message: control
// characters (C0, DEL, C1) and bytes that are not UTF-8 become escapes such as \x01,
// \xFF or \u009B; everything else, backslashes included, stays as it is, so that key
// paths read as typed and escaping twice changes nothing.
std::string Escaped(std::string_view text);

// The store of the user (or with `machine`, of the machine) as a command needs it.
// Each command opens its store once, through this, and puts it in force for the
// library's own readers and writers, so that the file is never open twice in the
// command (a second connection could checkpoint into a file the first found damaged).
//   Read:   opened read-only; nothing is ever created, written or checkpointed.
//   Change: writes to an existing store; a missing one stays missing.
//   Create: writes, creating the user's store when it is missing (never the machine
//           store: see the init command).
// For the user's store, Read and Change return null when the user has no store file
// yet (an empty store: nothing to show, nothing to change). Ends the command when the
// store cannot serve it.
enum class Access { Read, Change, Create };
std::shared_ptr<vglobal::SettingsStore> OpenStore(bool machine, Access access);

// Returns `typed` when it is UTF-8 text; otherwise ends the command (bad input),
// naming the argument `what` and the first byte that is not part of a UTF-8
// character. The rule is that of an import file's text, so that `set` refuses what
// `import` refuses instead of storing U+FFFD in its place; surrogates encoded as
// UTF-8, which `query` and `export --utf8` print for an unpaired one, pass.
const std::string& Utf8Argument(const std::string& typed, std::string_view what);

// The path from the root of a key path typed by the user (UTF-8), after the suite's
// rule: paths not starting at "Software" lie below Software\Ostrel\Arvenis.
std::wstring KeyPath(const std::string& typed);
// "HKEY_CURRENT_USER\<path>" or "HKEY_LOCAL_MACHINE\<path>", in UTF-8.
std::string DisplayPath(bool machine, const std::wstring& path);

// The text of a value as `query` prints it (beside its TypeName).
std::string ValueText(const vglobal::SettingsValue& value);

// Each command adds itself to the application.
void AddQueryCommand(CLI::App& app);
void AddSetCommand(CLI::App& app);
void AddDeleteCommand(CLI::App& app);
void AddCheckCommand(CLI::App& app);
void AddInitCommand(CLI::App& app);
void AddDefaultsCommand(CLI::App& app);
void AddExportCommand(CLI::App& app);
void AddImportCommand(CLI::App& app);
// `defaults reset`, added to the defaults command.
void AddDefaultsResetCommand(CLI::App& defaults);

}  // namespace arvenis_settings
