// delete PATH [NAME]: removes a value, or without NAME the key with everything below.
#include <optional>

#include "tool.h"
#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

struct DeleteOptions {
  bool machine = false;
  std::string path;
  std::optional<std::string> name;
};

}  // namespace

void AddDeleteCommand(CLI::App& app) {
  auto o = std::make_shared<DeleteOptions>();
  CLI::App* command = app.add_subcommand(
      "delete", "Delete the value NAME of PATH, or the key PATH with its branch");
  command->add_flag("--machine", o->machine, "Use the machine-wide store");
  command->add_option("PATH", o->path, "Key path")->required();
  command->add_option("NAME", o->name, "Value name; without it the whole key is deleted");
  command->callback([o] {
    const std::wstring path = KeyPath(Utf8Argument(o->path, "PATH"));
    if (o->name) Utf8Argument(*o->name, "NAME");
    auto store = OpenStore(o->machine, Access::Change);
    const std::string where = DisplayPath(o->machine, path);
    // A user without a store file has nothing to delete, and deleting makes no store.
    if (!store) Fail(kBadInput, Escaped(where) + ": no such key (no settings are stored yet)");
    const auto key = store->FindKey(vglobal::kSettingsRootKey, path);
    if (!key) Fail(key.error(), where);
    const vglobal::SettingsError error =
        o->name ? store->DeleteValue(*key, vglobal::Utf8ToWide(*o->name)) : store->DeleteKey(*key);
    if (error != vglobal::SettingsError::None) {
      Fail(error, o->name ? where + " " + *o->name : where);
    }
    if (auto e = store->Sync(); e != vglobal::SettingsError::None) Fail(e, "sync");
  });
}

}  // namespace arvenis_settings
