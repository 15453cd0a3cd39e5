// set PATH NAME --int|--double|--string|--binary|--multi VALUE: writes one value,
// creating the key when needed.
#include <charconv>
#include <cstdint>
#include <optional>

#include "tool.h"
#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

struct SetOptions {
  bool machine = false;
  std::string path, name;
  std::optional<std::string> integer, real, text, binary;
  std::vector<std::string> multi;
};

// Decimal (-2147483648 to 4294967295) or hexadecimal with 0x (up to 0xFFFFFFFF);
// numbers above 2147483647 keep their 32 bits, as a DWORD would.
std::int32_t ParseInt(const std::string& text) {
  std::string_view digits = text;
  int base = 10;
  if (digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X')) {
    digits.remove_prefix(2);
    base = 16;
  }
  std::int64_t value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (digits.empty() || error != std::errc() || end != digits.data() + digits.size() ||
      value < (base == 16 ? 0 : INT32_MIN) || value > UINT32_MAX) {
    Fail(kBadInput, "not a 32-bit integer: '" + Escaped(text) + "'");
  }
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

double ParseDouble(const std::string& text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
    Fail(kBadInput, "not a number: '" + Escaped(text) + "'");
  }
  return value;
}

std::vector<std::uint8_t> ParseHex(const std::string& text) {
  std::vector<std::uint8_t> bytes;
  if (text.size() % 2 != 0) Fail(kBadInput, "hexadecimal bytes come in pairs of digits");
  for (std::size_t i = 0; i < text.size(); i += 2) {
    std::uint8_t byte = 0;
    const auto [end, error] = std::from_chars(text.data() + i, text.data() + i + 2, byte, 16);
    if (error != std::errc() || end != text.data() + i + 2) {
      Fail(kBadInput, "not hexadecimal bytes: '" + Escaped(text) + "'");
    }
    bytes.push_back(byte);
  }
  return bytes;
}

vglobal::SettingsValue ValueOf(const SetOptions& o) {
  const int given = o.integer.has_value() + o.real.has_value() + o.text.has_value() +
                    o.binary.has_value() + !o.multi.empty();
  if (given != 1)
    Fail(kBadInput, "give exactly one of --int, --double, --string, --binary, --multi");
  if (o.integer) return vglobal::SettingsValue::Int(ParseInt(*o.integer));
  if (o.real) return vglobal::SettingsValue::Double(ParseDouble(*o.real));
  if (o.text) {
    return vglobal::SettingsValue::String(vglobal::Utf8ToWide(Utf8Argument(*o.text, "--string")));
  }
  if (o.binary) return vglobal::SettingsValue::Binary(ParseHex(*o.binary));
  std::vector<std::wstring> strings;
  for (const std::string& s : o.multi) {
    strings.push_back(vglobal::Utf8ToWide(Utf8Argument(s, "--multi")));
  }
  return vglobal::SettingsValue::MultiString(std::move(strings));
}

}  // namespace

void AddSetCommand(CLI::App& app) {
  auto o = std::make_shared<SetOptions>();
  CLI::App* command = app.add_subcommand("set", "Write the value NAME of the key PATH");
  command->add_flag("--machine", o->machine, "Use the machine-wide store");
  command->add_option("PATH", o->path, "Key path (made when missing)")->required();
  command->add_option("NAME", o->name, "Value name (\"\" for the key's default value)")->required();
  command->add_option("--int", o->integer, "32-bit integer: decimal, or hexadecimal with 0x");
  command->add_option("--double", o->real, "Number (also inf, -inf, nan)");
  command->add_option("--string", o->text, "Text");
  command->add_option("--binary", o->binary, "Bytes as hexadecimal digits, e.g. 0A1BFF");
  command
      ->add_option("--multi", o->multi,
                   "One string of a multi-string; repeat for each string, in order")
      ->allow_extra_args(false);
  command->callback([o] {
    const vglobal::SettingsValue value = ValueOf(*o);
    const std::wstring path = KeyPath(Utf8Argument(o->path, "PATH"));
    const std::wstring name = vglobal::Utf8ToWide(Utf8Argument(o->name, "NAME"));
    auto store = OpenStore(o->machine, Access::Create);
    const auto key = store->CreateKey(vglobal::kSettingsRootKey, path);
    if (!key) Fail(key.error(), DisplayPath(o->machine, path));
    if (auto e = store->WriteValue(*key, name, value); e != vglobal::SettingsError::None) {
      Fail(e, DisplayPath(o->machine, path) + " " + o->name);
    }
    if (auto e = store->Sync(); e != vglobal::SettingsError::None) Fail(e, "sync");
  });
}

}  // namespace arvenis_settings
