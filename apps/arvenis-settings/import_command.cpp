// import FILE [--machine] [--json]: makes the changes of a registry file (or of a JSON
// export) in the user's or the machine store, all of them or, when anything is wrong
// with the file or the store refuses, none.
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>

#include "json_transfer.h"
#include "reg_file_parser.h"
#include "store_transfer.h"
#include "tool.h"
#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

struct ImportOptions {
  std::string file;
  bool machine = false;
  bool json = false;
};

// The file's bytes ("-": standard input), refusing one larger than any import file.
std::string ReadInput(const std::string& file) {
  std::ifstream opened;
  if (file != "-") {
    opened.open(file, std::ios::binary);
    if (!opened) Fail(kBadInput, "cannot read " + Escaped(file) + ": " + std::strerror(errno));
  }
  std::istream& in = file == "-" ? std::cin : opened;
  std::string bytes;
  char buffer[65536];
  while (in.read(buffer, sizeof buffer) || in.gcount() > 0) {
    bytes.append(buffer, static_cast<std::size_t>(in.gcount()));
    if (bytes.size() > kMaxImportFileBytes) {
      Fail(kBadInput, Escaped(file) + ": larger than 256 MiB, far more than any settings export");
    }
  }
  if (in.bad()) Fail(kBadInput, "cannot read " + Escaped(file));
  return bytes;
}

std::string ChangeText(const vglobal::SettingsChange& change, bool machine) {
  std::string text = DisplayPath(machine, change.path);
  if (change.kind == vglobal::SettingsChange::Kind::WriteValue ||
      change.kind == vglobal::SettingsChange::Kind::DeleteValue) {
    text += change.name.empty() ? " (default value)"
                                : " value \"" + vglobal::WideToUtf8(change.name) + "\"";
  }
  return text;
}

}  // namespace

void AddImportCommand(CLI::App& app) {
  auto o = std::make_shared<ImportOptions>();
  CLI::App* command = app.add_subcommand(
      "import",
      "Make the changes of a registry file (UTF-16LE or UTF-8, version 5.00 or REGEDIT4) or "
      "a JSON export; all of them, or none when anything is wrong");
  command->add_option("FILE", o->file, "The file; - reads standard input")->required();
  command->add_flag("--machine", o->machine,
                    "Import into the machine-wide store (the file's keys must be in "
                    "HKEY_LOCAL_MACHINE)");
  command->add_flag("--json", o->json, "The file is a JSON export");
  command->callback([o] {
    const std::string bytes = ReadInput(o->file);
    const Root root = o->machine ? Root::LocalMachine : Root::CurrentUser;
    // The whole file is checked before the store is even opened: a bad file changes
    // nothing, and does not make a store for a user who has none.
    const ImportPlan plan = o->json ? ParseJson(bytes, root) : ParseRegFile(bytes, root);
    if (!plan.ok()) {
      // The message may quote the file's text: a name holding a control character.
      Fail(kBadInput, Escaped(o->file + ": " + plan.error->Text()) + "; nothing was imported");
    }
    auto store = OpenStore(o->machine, Access::Create);
    const vglobal::SettingsApplyResult result = store->Apply(plan.changes);
    if (!result.ok()) {
      std::string what = o->file + ": nothing was imported";
      if (result.failed < plan.changes.size()) {
        what += " (refused at " + ChangeText(plan.changes[result.failed], o->machine) + ")";
      }
      Fail(result.error, what);
    }
    if (auto e = store->Sync(); e != vglobal::SettingsError::None) Fail(e, "sync");
    std::cerr << "arvenis-settings: " << Escaped(o->file) << ": " << CountValueWrites(plan)
              << " values imported into " << store->Location() << '\n';
  });
}

}  // namespace arvenis_settings
