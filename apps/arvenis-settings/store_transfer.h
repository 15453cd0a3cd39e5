// Reading a branch of a store for export. (An import goes to the store as one batch:
// vglobal::SettingsStore::Apply with the changes of an ImportPlan.)
#pragma once

#include <string_view>

#include "transfer.h"
#include "vglobal/settings_store.h"

namespace arvenis_settings {

// The key at `path` (from the store's root) and every key below it, each with its
// values, keys and values named as the store spells them. NotFound when there is no
// such key. A key or value that another program removes meanwhile is left out.
vglobal::SettingsResult<ExportBranch> ReadBranch(vglobal::SettingsStore& store,
                                                 std::wstring_view path);

// How many values an import plan writes, for the summary of the import command.
std::size_t CountValueWrites(const ImportPlan& plan);

}  // namespace arvenis_settings
