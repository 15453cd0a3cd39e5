// defaults reset [SECTION] [--yes]: removes the user's stored defaults, all of them or
// one section, so that the applications fall back to the records' own defaults.
#include <algorithm>
#include <iostream>

#include "tool.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/vglobal.h"

namespace arvenis_settings {
namespace {

constexpr std::wstring_view kDefaultsPath = L"Processing Setup\\Defaults";

// The sections are the keys below Processing Setup\Defaults that the library's readers
// read, as they name them; a reader that reads two keys names both
// ("Options, Quan\Advanced Detection Options").
std::vector<std::wstring> KnownSections() {
  // The readers run on empty stores in memory: nothing of the user's is read or made.
  const vglobal::UseMemorySettingsStores scratch;
  CProcMethod method;
  CComponentIO component;
  std::vector<vglobal::SectionResult> results = vglobal::ReadDefaultProcMethodSections(&method);
  for (const vglobal::SectionResult& r : vglobal::ReadComponentDefaultSections(&component)) {
    results.push_back(r);
  }
  std::vector<std::wstring> sections;
  for (const vglobal::SectionResult& r : results) {
    std::wstring_view names = r.section;
    while (!names.empty()) {
      const std::size_t comma = names.find(L", ");
      const std::wstring name(names.substr(0, comma));
      if (std::find(sections.begin(), sections.end(), name) == sections.end()) {
        sections.push_back(name);
      }
      names = comma == std::wstring_view::npos ? std::wstring_view() : names.substr(comma + 2);
    }
  }
  return sections;
}

struct ResetOptions {
  std::string section;
  bool yes = false;
};

bool Confirmed(const std::string& question) {
  std::cerr << question << " [y/N] " << std::flush;
  std::string answer;
  if (!std::getline(std::cin, answer)) return false;
  const std::wstring folded = vglobal::FoldCase(vglobal::Utf8ToWide(answer));
  return folded == L"Y" || folded == L"YES";
}

}  // namespace

void AddDefaultsResetCommand(CLI::App& defaults) {
  auto o = std::make_shared<ResetOptions>();
  CLI::App* reset = defaults.add_subcommand(
      "reset",
      "Remove the user's stored defaults (all, or one SECTION such as \"Qual\\Library Search "
      "Options\") so that the applications use the records' own defaults");
  reset->add_option("SECTION", o->section, "A section below Processing Setup\\Defaults");
  reset->add_flag("-y,--yes", o->yes, "Do not ask for confirmation");
  reset->callback([o] {
    std::wstring path(kDefaultsPath);
    std::string what = "all stored defaults";
    if (!o->section.empty()) {
      const std::vector<std::wstring> sections = KnownSections();
      const std::wstring wanted =
          vglobal::FoldCase(vglobal::Utf8ToWide(Utf8Argument(o->section, "SECTION")));
      const auto match = std::find_if(sections.begin(), sections.end(), [&](const auto& s) {
        return vglobal::FoldCase(s) == wanted;
      });
      if (match == sections.end()) {
        std::string known;
        for (const std::wstring& s : sections) known += "\n  " + vglobal::WideToUtf8(s);
        Fail(kBadInput, "no section \"" + Escaped(o->section) +
                            "\" in the defaults; the sections are:" + known);
      }
      path += L"\\" + *match;
      what = "the stored defaults of section \"" + vglobal::WideToUtf8(*match) + "\"";
    }
    const std::wstring fullPath = vglobal::ResolveSettingsPath(path);
    const std::string where = DisplayPath(false, fullPath);
    auto store = OpenStore(false, Access::Change);
    if (!store) {
      std::cerr << "arvenis-settings: no settings are stored yet; nothing to reset\n";
      return;
    }
    const auto key = store->FindKey(vglobal::kSettingsRootKey, fullPath);
    if (!key) {
      if (key.error() != vglobal::SettingsError::NotFound) Fail(key.error(), where);
      std::cerr << "arvenis-settings: nothing is stored in " << where << "; nothing to reset\n";
      return;
    }
    if (!o->yes && !Confirmed("Remove " + what + " of this user (" + where + ")?")) {
      Fail(kBadInput, "not confirmed; nothing was removed");
    }
    if (auto e = store->DeleteKey(*key); e != vglobal::SettingsError::None) Fail(e, where);
    if (auto e = store->Sync(); e != vglobal::SettingsError::None) Fail(e, "sync");
    std::cerr << "arvenis-settings: removed " << what << " (" << where << ")\n";
  });
}

}  // namespace arvenis_settings
