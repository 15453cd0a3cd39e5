// export [--machine] [PATH] [-o FILE] [--utf8 | --json]: writes the branch at PATH (the
// suite's own keys when omitted) as a registry file, UTF-16LE as the registry editor
// saves one or UTF-8, or as JSON; to standard output or to FILE.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "json_transfer.h"
#include "reg_file_writer.h"
#include "store_transfer.h"
#include "tool.h"

namespace arvenis_settings {
namespace {

struct ExportOptions {
  bool machine = false;
  std::string path;
  std::string output;
  bool utf8 = false;
  bool json = false;
};

// Writes the whole file beside its final name and then renames it over that name, so
// that a failed export leaves no partial file and an older file stays as it was.
void WriteFile(const std::string& file, const std::string& bytes) {
  std::filesystem::path target(file);
  std::string scratch =
      (target.parent_path().empty() ? std::filesystem::path(".") : target.parent_path()) /
      ("." + target.filename().string() + ".XXXXXX");
  const int fd = mkstemp(scratch.data());
  if (fd < 0) Fail(kBadInput, "cannot write " + Escaped(file) + ": " + std::strerror(errno));
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;
    done += static_cast<std::size_t>(n);
  }
  const int error = done == bytes.size() ? 0 : errno;
  if (close(fd) != 0 || error != 0 || std::rename(scratch.c_str(), file.c_str()) != 0) {
    const int reason = error != 0 ? error : errno;
    unlink(scratch.c_str());
    Fail(kBadInput, "cannot write " + Escaped(file) + ": " + std::strerror(reason));
  }
}

ExportBranch Branch(const ExportOptions& o, const std::wstring& path) {
  const std::string where = DisplayPath(o.machine, path);
  auto store = OpenStore(o.machine, Access::Read);
  if (!store) {
    if (!o.path.empty())
      Fail(kBadInput, Escaped(where) + ": no such key (no settings are stored yet)");
    std::cerr << "arvenis-settings: no settings are stored yet ("
              << vglobal::SettingsStorePath(HKEY_CURRENT_USER) << ")\n";
    return {};
  }
  auto branch = ReadBranch(*store, path);
  if (branch) return std::move(branch).value();
  // Without a PATH the suite's own keys are exported, and there may be none yet.
  if (o.path.empty() && branch.error() == vglobal::SettingsError::NotFound) return {};
  Fail(branch.error(), where);
}

}  // namespace

void AddExportCommand(CLI::App& app) {
  auto o = std::make_shared<ExportOptions>();
  CLI::App* command = app.add_subcommand(
      "export",
      "Write the keys below PATH (the suite's own keys when omitted) as a registry file "
      "(UTF-16LE, as the registry editor saves them) or as JSON");
  command->add_flag("--machine", o->machine, "Export from the machine-wide store");
  command->add_option(
      "PATH", o->path,
      "Key path; a path not starting at Software lies below Software\\Ostrel\\Arvenis");
  command->add_option("-o,--output", o->output, "Write to FILE instead of standard output")
      ->option_text("FILE");
  CLI::Option* utf8 =
      command->add_flag("--utf8", o->utf8, "Write the registry file in UTF-8 with LF line ends");
  command->add_flag("--json", o->json, "Write JSON instead of a registry file")->excludes(utf8);
  command->callback([o] {
    const Root root = o->machine ? Root::LocalMachine : Root::CurrentUser;
    const std::wstring path = KeyPath(Utf8Argument(o->path, "PATH"));
    if (!InSuiteKeys(path)) {
      Fail(kBadInput, Escaped(DisplayPath(o->machine, path)) +
                          ": outside the suite's keys; only keys below Software\\Ostrel are "
                          "exported");
    }
    const ExportBranch branch = Branch(*o, path);
    std::string bytes;
    if (o->json) {
      JsonOutput out = WriteJson(branch, root);
      if (!out.ok()) Fail(kBadInput, Escaped(out.error));
      bytes = std::move(out.text);
    } else {
      RegFileOutput out =
          WriteRegFile(branch, root, o->utf8 ? RegEncoding::Utf8 : RegEncoding::Utf16);
      if (!out.ok()) Fail(kBadInput, Escaped(out.error));  // names key and value
      bytes = std::move(out.bytes);
    }
    if (o->output.empty() || o->output == "-") {
      std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
      std::cout.flush();
      if (!std::cout) Fail(kBadInput, "cannot write to standard output");
    } else {
      WriteFile(o->output, bytes);
    }
  });
}

}  // namespace arvenis_settings
