// query [--machine] [PATH]: every key below PATH with its values, like a registry query.
#include <iostream>

#include "tool.h"
#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

void PrintKey(vglobal::SettingsStore& store, vglobal::SettingsKeyId key, bool machine,
              const std::wstring& path) {
  const std::string where = DisplayPath(machine, path);
  const auto names = store.ValueNames(key);
  if (!names) Fail(names.error(), where);
  std::cout << where << '\n';
  for (const std::wstring& name : *names) {
    const auto value = store.ReadValue(key, name);
    if (!value) continue;  // removed by another program meanwhile
    std::cout << "    " << (name.empty() ? "(Default)" : vglobal::WideToUtf8(name)) << "    "
              << TypeName(value->type()) << "    " << ValueText(*value) << '\n';
  }
  std::cout << '\n';
  const auto subkeys = store.SubkeyNames(key);
  if (!subkeys) Fail(subkeys.error(), where);
  for (const std::wstring& name : *subkeys) {
    const auto child = store.FindKey(key, name);
    if (!child) continue;
    PrintKey(store, *child, machine, path.empty() ? name : path + L"\\" + name);
  }
}

struct QueryOptions {
  bool machine = false;
  std::string path;
};

}  // namespace

void AddQueryCommand(CLI::App& app) {
  auto o = std::make_shared<QueryOptions>();
  CLI::App* command = app.add_subcommand(
      "query", "Print the keys below PATH (the suite's own keys when omitted) with their values");
  command->add_flag("--machine", o->machine, "Use the machine-wide store");
  command->add_option(
      "PATH", o->path,
      "Key path; a path not starting at Software lies below Software\\Ostrel\\Arvenis");
  command->callback([o] {
    const bool machine = o->machine;
    const std::wstring path = KeyPath(Utf8Argument(o->path, "PATH"));
    auto store = OpenStore(machine, Access::Read);
    if (!store) {
      std::cerr << "arvenis-settings: no settings are stored yet ("
                << vglobal::SettingsStorePath(HKEY_CURRENT_USER) << ")\n";
      return;
    }
    const auto key = store->FindKey(vglobal::kSettingsRootKey, path);
    if (!key) {
      // Without a PATH the suite's own keys are shown, and there may be none yet.
      if (o->path.empty() && key.error() == vglobal::SettingsError::NotFound) return;
      Fail(key.error(), DisplayPath(machine, path));
    }
    PrintKey(*store, *key, machine, path);
  });
}

}  // namespace arvenis_settings
