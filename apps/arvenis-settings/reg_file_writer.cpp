// The registry-file writer.
#include "reg_file_writer.h"

#include <bit>
#include <cstdint>
#include <cwchar>
#include <span>

#include "reg_file_format.h"
#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

using vglobal::SettingsValue;

// Characters that end a line of the file, or that no line can hold.
bool BreaksLine(std::wstring_view text) {
  return text.find_first_of(std::wstring_view(L"\r\n\0", 3)) != std::wstring_view::npos;
}

// "hex(N):" for a value type number.
std::wstring HexPrefix(std::uint32_t type) {
  wchar_t prefix[24];
  std::swprintf(prefix, 24, L"hex(%x):", type);
  return prefix;
}

void AppendUtf16Le(std::vector<std::uint8_t>& bytes, std::wstring_view text) {
  for (const char16_t unit : vglobal::WideToUtf16(text)) {
    bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
  }
  bytes.push_back(0);
  bytes.push_back(0);
}

class RegFileWriter {
 public:
  explicit RegFileWriter(RegEncoding encoding)
      : lineEnd_(encoding == RegEncoding::Utf16 ? L"\r\n" : L"\n") {}

  std::string Write(const ExportBranch& branch, Root root, RegEncoding encoding) {
    text_ += reg_file::kVersion5Header;
    EndLine();
    EndLine();
    for (const ExportKey& key : branch) {
      const std::wstring path = std::wstring(RootName(root)) + L"\\" + key.path;
      if (BreaksLine(key.path)) {
        error_ = "the key " + vglobal::WideToUtf8(path) +
                 " has a name with a line break or a "
                 "zero character, which a registry file cannot hold; export it with --json";
        return {};
      }
      text_ += L'[';
      text_ += path;
      text_ += L']';
      EndLine();
      for (const auto& [name, value] : key.values) {
        if (BreaksLine(name)) {
          error_ = "the value \"" + vglobal::WideToUtf8(name) + "\" of " +
                   vglobal::WideToUtf8(path) +
                   " has a name with a line break or a zero "
                   "character, which a registry file cannot hold; export it with --json";
          return {};
        }
        Value(name, value);
        EndLine();
      }
      EndLine();
    }
    if (encoding == RegEncoding::Utf8) return vglobal::WideToUtf8(text_);
    const std::u16string units = vglobal::WideToUtf16(text_);
    std::string bytes("\xFF\xFE", 2);
    bytes.reserve(2 + 2 * units.size());
    for (const char16_t unit : units) {
      bytes.push_back(static_cast<char>(unit & 0xFF));
      bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
  }

  const std::string& error() const { return error_; }

 private:
  void EndLine() {
    text_ += lineEnd_;
    lineStart_ = text_.size();
  }

  void Quoted(std::wstring_view text) {
    text_ += L'"';
    for (const wchar_t c : text) {
      if (c == L'\\' || c == L'"') text_ += L'\\';
      text_ += c;
    }
    text_ += L'"';
  }

  void Hex(std::wstring_view prefix, std::span<const std::uint8_t> bytes) {
    static constexpr wchar_t kDigits[] = L"0123456789abcdef";
    text_ += prefix;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      text_ += kDigits[bytes[i] >> 4];
      text_ += kDigits[bytes[i] & 0xF];
      if (i + 1 == bytes.size()) break;
      text_ += L',';
      if (text_.size() - lineStart_ >= reg_file::kHexWrapColumn) {
        text_ += L'\\';
        EndLine();
        text_ += L"  ";
      }
    }
  }

  void Value(std::wstring_view name, const SettingsValue& value) {
    if (name.empty()) {
      text_ += L'@';
    } else {
      Quoted(name);
    }
    text_ += L'=';
    if (const std::int32_t* i = value.AsInt()) {
      wchar_t digits[16];
      std::swprintf(digits, 16, L"dword:%08x", static_cast<unsigned>(*i));
      text_ += digits;
    } else if (const double* d = value.AsDouble()) {
      std::uint64_t bits = std::bit_cast<std::uint64_t>(*d);
      std::uint8_t bytes[8];
      for (std::uint8_t& b : bytes) {
        b = static_cast<std::uint8_t>(bits & 0xFF);
        bits >>= 8;
      }
      Hex(HexPrefix(reg_file::kDouble), bytes);
    } else if (const std::wstring* s = value.AsString()) {
      if (BreaksLine(*s)) {
        std::vector<std::uint8_t> bytes;
        AppendUtf16Le(bytes, *s);
        Hex(HexPrefix(reg_file::kString), bytes);
      } else {
        Quoted(*s);
      }
    } else if (const auto* binary = value.AsBinary()) {
      Hex(L"hex:", *binary);
    } else if (const auto* strings = value.AsMultiString()) {
      std::vector<std::uint8_t> bytes;
      for (const std::wstring& s : *strings) AppendUtf16Le(bytes, s);
      bytes.push_back(0);
      bytes.push_back(0);
      Hex(HexPrefix(reg_file::kMultiString), bytes);
    }
  }

  const wchar_t* const lineEnd_;
  std::wstring text_;
  std::size_t lineStart_ = 0;
  std::string error_;
};

}  // namespace

RegFileOutput WriteRegFile(const ExportBranch& branch, Root root, RegEncoding encoding) {
  RegFileWriter writer(encoding);
  std::string bytes = writer.Write(branch, root, encoding);
  return {writer.error().empty() ? std::move(bytes) : std::string(), writer.error()};
}

}  // namespace arvenis_settings
