// init [--machine]: creates a store file. The only way the machine store is made: the
// library itself never creates it, so that a program run by an ordinary user cannot
// leave a machine store nobody else can write.
#include <iostream>

#include "tool.h"

namespace arvenis_settings {

void AddInitCommand(CLI::App& app) {
  auto machine = std::make_shared<bool>(false);
  CLI::App* command = app.add_subcommand(
      "init",
      "Create the user's store, or with --machine the machine-wide store (as administrator)");
  command->add_flag("--machine", *machine, "Create the machine-wide store");
  command->callback([machine] {
    const std::string path =
        vglobal::SettingsStorePath(*machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER);
    auto store = vglobal::OpenSqliteSettingsStore(
        path, *machine ? vglobal::SettingsFileKind::Machine : vglobal::SettingsFileKind::User,
        true);
    const vglobal::SettingsStoreStatus status = store->Status();
    if (status.state != vglobal::SettingsStoreState::Writable) {
      Fail(kUnavailable, path + ": " + status.reason);
    }
    std::cout << path << ": ready\n";
  });
}

}  // namespace arvenis_settings
