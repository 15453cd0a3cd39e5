// check: the integrity of both stores. One line per store file, or per problem found
// in it; exit code 2 when any store has a problem.
#include <iostream>

#include "tool.h"

namespace arvenis_settings {

void AddCheckCommand(CLI::App& app) {
  CLI::App* command =
      app.add_subcommand("check", "Check the user's and the machine-wide store; change nothing");
  command->callback([] {
    bool sound = true;
    for (const bool machine : {false, true}) {
      const std::string path =
          vglobal::SettingsStorePath(machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER);
      // Opened read-only: a check never changes the files, damaged ones least of all.
      auto store = vglobal::OpenSqliteSettingsStore(
          path, machine ? vglobal::SettingsFileKind::Machine : vglobal::SettingsFileKind::User,
          vglobal::SettingsOpenMode::ReadOnly);
      const vglobal::SettingsCheckReport report = store->Check();
      if (!report.present) {
        std::cout << report.location << ": not present\n";
      } else if (report.ok()) {
        std::cout << report.location << ": ok\n";
      }
      for (const std::string& problem : report.problems) {
        std::cout << report.location << ": " << problem << '\n';
      }
      sound = sound && report.ok();
    }
    if (!sound) throw CLI::RuntimeError(kUnavailable);
  });
}

}  // namespace arvenis_settings
