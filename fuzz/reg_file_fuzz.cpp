// Fuzz target: the registry-file reader of arvenis-settings on arbitrary bytes, for
// both stores. Any input must give either changes the store can keep, inside the
// suite's keys, or no changes and an error with a place in the file. What it reads,
// the writer writes back to a file that reads as the same values.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "reg_file_parser.h"
#include "reg_file_writer.h"

namespace {

using arvenis_settings::ImportPlan;
using vglobal::SettingsChange;

bool Sound(const SettingsChange& c) {
  if (!arvenis_settings::InSuiteKeys(c.path) || !vglobal::SplitSettingsPath(c.path)) return false;
  if (c.name.size() > vglobal::kMaxSettingsValueName) return false;
  if (c.kind != SettingsChange::Kind::WriteValue) return !c.value;
  return c.value && vglobal::SettingsValueSize(*c.value) <= vglobal::kMaxSettingsValueBytes;
}

bool HasSurrogate(std::wstring_view text) {
  for (const wchar_t c : text) {
    if (c >= 0xD800 && c <= 0xDFFF) return true;
  }
  return false;
}

std::vector<const SettingsChange*> Writes(const ImportPlan& plan) {
  std::vector<const SettingsChange*> writes;
  for (const SettingsChange& c : plan.changes) {
    if (c.kind == SettingsChange::Kind::WriteValue) writes.push_back(&c);
  }
  return writes;
}

// The values written out and read back are the values read.
void RoundTrip(const ImportPlan& plan, arvenis_settings::Root root) {
  arvenis_settings::ExportBranch branch;
  bool surrogates = false;
  for (const SettingsChange* c : Writes(plan)) {
    if (branch.empty() || branch.back().path != c->path) branch.push_back({c->path, {}});
    branch.back().values.emplace_back(c->name, *c->value);
    surrogates = surrogates || HasSurrogate(c->path) || HasSurrogate(c->name);
    if (const std::wstring* text = c->value->AsString()) {
      surrogates = surrogates || HasSurrogate(*text);
    }
    if (const auto* strings = c->value->AsMultiString()) {
      for (const std::wstring& s : *strings) surrogates = surrogates || HasSurrogate(s);
    }
  }
  for (const auto encoding :
       {arvenis_settings::RegEncoding::Utf8, arvenis_settings::RegEncoding::Utf16}) {
    // UTF-16 text cannot hold an unpaired surrogate: such text comes back replaced.
    if (encoding == arvenis_settings::RegEncoding::Utf16 && surrogates) continue;
    const auto file = arvenis_settings::WriteRegFile(branch, root, encoding);
    if (!file.ok()) return;  // a name with a line break: refused, and said why
    const ImportPlan back = arvenis_settings::ParseRegFile(file.bytes, root);
    if (!back.ok()) __builtin_trap();
    const auto before = Writes(plan), after = Writes(back);
    if (before.size() != after.size()) __builtin_trap();
    for (std::size_t i = 0; i < before.size(); ++i) {
      if (before[i]->path != after[i]->path || before[i]->name != after[i]->name ||
          !before[i]->value->SameAs(*after[i]->value)) {
        __builtin_trap();
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const auto root :
       {arvenis_settings::Root::CurrentUser, arvenis_settings::Root::LocalMachine}) {
    const ImportPlan plan = arvenis_settings::ParseRegFile(bytes, root);
    if (!plan.ok()) {
      if (!plan.changes.empty() || plan.error->where.line == 0 || plan.error->where.column == 0 ||
          plan.error->message.empty()) {
        __builtin_trap();
      }
      continue;
    }
    for (const SettingsChange& c : plan.changes) {
      if (!Sound(c)) __builtin_trap();
    }
    RoundTrip(plan, root);
  }
  return 0;
}
