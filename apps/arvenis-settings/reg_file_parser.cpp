// The registry-file reader.
//
// Map of this file:
//   1. Decoding   bytes to text: UTF-16LE, UTF-8, or code page 1252 for old files
//   2. Lines      the header, then one line at a time
//   3. Keys       [ROOT\path] and [-ROOT\path], checked against the suite's keys
//   4. Values     "name"= and @= with quoted text, dword:, hex: data or -
//   5. Hex data   bytes over continuation lines, and the typed value they make
#include "reg_file_parser.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <span>

#include "reg_file_format.h"
#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

using vglobal::SettingsChange;
using vglobal::SettingsValue;

// ---- 1. Decoding ------------------------------------------------------------

// How the bytes of string data (hex(1), hex(2), hex(7)) read: UTF-16LE in version
// 5.00 files; 8-bit text in the encoding of the file itself in REGEDIT4 files.
enum class StringData { Utf16, Utf8, Windows1252 };

struct DecodedFile {
  std::wstring text;
  bool windows1252 = false;  // the bytes were not UTF-8: an old file from a workstation
};

SourcePosition EndOf(std::wstring_view text) {
  SourcePosition at;
  for (const wchar_t c : text) {
    if (c == L'\n') {
      ++at.line;
      at.column = 1;
    } else {
      ++at.column;
    }
  }
  return at;
}

bool StartsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

std::optional<DecodedFile> Decode(std::string_view bytes, ImportPlan& plan) {
  if (bytes.size() > kMaxImportFileBytes) {
    plan.Fail({}, "the file is larger than 256 MiB, far more than any settings export");
    return std::nullopt;
  }
  if (StartsWith(bytes, "\xFE\xFF")) {
    plan.Fail({},
              "UTF-16 big-endian text is not read; expected UTF-16LE, as the registry "
              "editor saves, or UTF-8");
    return std::nullopt;
  }
  // The editor writes a byte-order mark; a file saved again without one still shows
  // UTF-16LE by the zero high byte of its first character.
  const bool bom = StartsWith(bytes, "\xFF\xFE");
  if (bom || (bytes.size() >= 2 && bytes[0] != '\0' && bytes[1] == '\0')) {
    const std::string_view body = bytes.substr(bom ? 2 : 0);
    DecodedFile file{vglobal::Utf16LeToWide(body)};
    if (body.size() % 2 != 0) {
      file.text.pop_back();  // the half unit: the error points at where it starts
      plan.Fail(EndOf(file.text), "the file ends in the middle of a UTF-16 character");
      return std::nullopt;
    }
    return file;
  }
  const std::string_view body = bytes.substr(StartsWith(bytes, "\xEF\xBB\xBF") ? 3 : 0);
  const std::size_t bad = vglobal::FindInvalidUtf8(body, true);
  if (bad == std::string_view::npos) return DecodedFile{vglobal::Utf8ToWide(body)};
  if (StartsWith(body, "REGEDIT4")) return DecodedFile{vglobal::Windows1252ToWide(body), true};
  plan.Fail(PositionOfByte(body, bad),
            "expected UTF-8 text (or UTF-16LE with a byte-order mark); this byte is not part of "
            "a UTF-8 character");
  return std::nullopt;
}

// ---- 2. Lines -----------------------------------------------------------------

std::vector<std::wstring_view> SplitLines(std::wstring_view text) {
  std::vector<std::wstring_view> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find(L'\n', start);
    if (end == std::wstring_view::npos) end = text.size();
    std::wstring_view line = text.substr(start, end - start);
    if (!line.empty() && line.back() == L'\r') line.remove_suffix(1);
    lines.push_back(line);
    start = end + 1;
  }
  return lines;
}

std::wstring_view TrimEnd(std::wstring_view text) {
  while (!text.empty() && (text.back() == L' ' || text.back() == L'\t')) text.remove_suffix(1);
  return text;
}

int HexDigit(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'a' && c <= L'f') return c - L'a' + 10;
  if (c >= L'A' && c <= L'F') return c - L'A' + 10;
  return -1;
}

bool SameFolded(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && vglobal::FoldCase(a) == vglobal::FoldCase(b);
}

std::optional<Root> ParseRoot(std::wstring_view name) {
  if (SameFolded(name, L"HKEY_CURRENT_USER") || SameFolded(name, L"HKCU")) {
    return Root::CurrentUser;
  }
  if (SameFolded(name, L"HKEY_LOCAL_MACHINE") || SameFolded(name, L"HKLM")) {
    return Root::LocalMachine;
  }
  return std::nullopt;
}

std::string Utf8(std::wstring_view text) {
  return vglobal::WideToUtf8(text);
}

class RegFileParser {
 public:
  RegFileParser(std::vector<std::wstring_view> lines, StringData strings, Root target,
                ImportPlan& plan)
      : lines_(std::move(lines)), strings_(strings), target_(target), plan_(plan) {}

  // Everything after the header line.
  void Run() {
    for (row_ = 1; row_ < lines_.size(); ++row_) {
      line_ = lines_[row_];
      col_ = 0;
      SkipBlanks();
      if (AtEnd() || line_[col_] == L';') continue;
      const wchar_t c = line_[col_];
      const bool ok =
          c == L'[' ? KeyLine()
          : c == L'"' || c == L'@'
              ? ValueLine()
              : Fail(
                    "expected a key in brackets ([HKEY_CURRENT_USER\\...]), a value (\"name\"= "
                    "or @=), a comment (;) or an empty line");
      if (!ok) return;
    }
  }

 private:
  SourcePosition Here(std::size_t col) const { return {row_ + 1, col + 1}; }
  bool FailAt(SourcePosition at, std::string message) {
    plan_.Fail(at, std::move(message));
    return false;
  }
  bool FailAt(std::size_t col, std::string message) { return FailAt(Here(col), message); }
  bool Fail(std::string message) { return FailAt(col_, std::move(message)); }

  bool AtEnd() const { return col_ >= line_.size(); }
  void SkipBlanks() {
    while (!AtEnd() && (line_[col_] == L' ' || line_[col_] == L'\t')) ++col_;
  }
  bool RestIsBlank() {
    SkipBlanks();
    return AtEnd();
  }
  bool Accept(std::wstring_view word) {
    if (!SameFolded(line_.substr(col_, word.size()), word)) return false;
    col_ += word.size();
    return true;
  }

  // ---- 3. Keys ----------------------------------------------------------------

  bool KeyLine() {
    ++col_;
    const bool deletion = !AtEnd() && line_[col_] == L'-';
    if (deletion) ++col_;
    // A key name may hold ']' itself: the last one on the line closes the key.
    const std::size_t close = line_.rfind(L']');
    if (close == std::wstring_view::npos || close < col_) {
      return FailAt(line_.size(), "expected ']' to close the key");
    }
    if (const std::wstring_view rest = TrimEnd(line_.substr(close + 1)); !rest.empty()) {
      return FailAt(line_.find_first_not_of(L" \t", close + 1),
                    "expected the end of the line after ']'");
    }
    const std::size_t start = col_;
    const std::wstring_view full = line_.substr(start, close - start);
    const std::size_t rootEnd = std::min(full.find(L'\\'), full.size());
    const std::wstring_view rootName = full.substr(0, rootEnd);
    const std::optional<Root> root = ParseRoot(rootName);
    if (!root) {
      if (SameFolded(rootName.substr(0, 5), L"HKEY_")) {
        return FailAt(start, Utf8(rootName) +
                                 " is not one of the suite's roots; expected HKEY_CURRENT_USER "
                                 "or HKEY_LOCAL_MACHINE");
      }
      return FailAt(start,
                    "expected a root key: HKEY_CURRENT_USER or HKEY_LOCAL_MACHINE (or HKCU, HKLM)");
    }
    if (*root != target_) return FailAt(start, WrongRootMessage(target_));
    // The key names after the root, each checked where it stands.
    const bool named = rootEnd < full.size();
    const std::wstring_view path = named ? full.substr(rootEnd + 1) : std::wstring_view();
    for (std::size_t begin = 0; named && begin <= path.size();) {
      const std::size_t end = std::min(path.find(L'\\', begin), path.size());
      const std::size_t column = start + rootEnd + 1 + begin;
      if (end == begin) return FailAt(column, "expected a key name between backslashes");
      if (end - begin > vglobal::kMaxSettingsKeyName) {
        return FailAt(column, "key name longer than 255 characters");
      }
      begin = end + 1;
    }
    if (!InSuiteKeys(path)) return FailAt(start, OutsideSuiteKeysMessage(target_));
    key_ = std::wstring(path);
    keyDeleted_ = deletion;
    SettingsChange change;
    change.kind = deletion ? SettingsChange::Kind::DeleteKey : SettingsChange::Kind::CreateKey;
    change.path = *key_;
    plan_.changes.push_back(std::move(change));
    return true;
  }

  // ---- 4. Values --------------------------------------------------------------

  bool ValueLine() {
    const SourcePosition at = Here(col_);
    std::wstring name;
    if (line_[col_] == L'@') {
      ++col_;
    } else if (!QuotedText(name, "name")) {
      return false;
    }
    if (!key_) return FailAt(at, "expected a [key] line before the first value");
    if (keyDeleted_) {
      return FailAt(at, "expected a [key] line: a key being deleted ([-...]) takes no values");
    }
    if (name.size() > vglobal::kMaxSettingsValueName) {
      return FailAt(at, "value name longer than 16383 characters");
    }
    SkipBlanks();
    if (AtEnd() || line_[col_] != L'=') return Fail("expected '=' after the value name");
    ++col_;
    SkipBlanks();

    SettingsChange change;
    change.kind = SettingsChange::Kind::WriteValue;
    change.path = *key_;
    change.name = std::move(name);
    if (AtEnd()) {
      return Fail("expected the value: text in quotes, dword:, hex:, hex(N): or - to delete it");
    }
    if (line_[col_] == L'"') {
      std::wstring text;
      if (!QuotedText(text, "text")) return false;
      change.value = SettingsValue::String(std::move(text));
    } else if (line_[col_] == L'-') {
      ++col_;
      change.kind = SettingsChange::Kind::DeleteValue;
    } else if (Accept(L"dword:")) {
      std::uint32_t number = 0;
      if (!HexNumber(number, "after dword:")) return false;
      change.value = SettingsValue::Int(static_cast<std::int32_t>(number));
    } else if (Accept(L"hex")) {
      if (!HexValue(change.value)) return false;  // hex data ends on its own last line
    } else {
      return Fail("expected the value: text in quotes, dword:, hex:, hex(N): or - to delete it");
    }
    if (!RestIsBlank()) return Fail("expected the end of the line after the value");
    if (change.value &&
        vglobal::SettingsValueSize(*change.value) > vglobal::kMaxSettingsValueBytes) {
      return FailAt(at, "the value is larger than 16 MiB, more than the settings store keeps");
    }
    plan_.changes.push_back(std::move(change));
    return true;
  }

  // A quoted name or text, with \\ and \" for a backslash and a quote.
  bool QuotedText(std::wstring& out, const char* what) {
    const std::size_t open = col_++;
    for (;;) {
      if (AtEnd()) {
        return Fail(std::string("expected '\"' to end the ") + what + " that begins in column " +
                    std::to_string(open + 1));
      }
      wchar_t c = line_[col_++];
      if (c == L'"') return true;
      if (c == L'\\') {
        if (AtEnd() || (line_[col_] != L'\\' && line_[col_] != L'"')) {
          return FailAt(col_ - 1,
                        "expected \\\\ or \\\" after a backslash (a backslash in text is "
                        "written \\\\)");
        }
        c = line_[col_++];
      }
      out.push_back(c);
    }
  }

  // 1 to 8 hexadecimal digits.
  bool HexNumber(std::uint32_t& number, const char* where) {
    const std::size_t start = col_;
    number = 0;
    while (!AtEnd() && HexDigit(line_[col_]) >= 0 && col_ - start < 8) {
      number = number << 4 | static_cast<std::uint32_t>(HexDigit(line_[col_++]));
    }
    if (col_ == start || (!AtEnd() && HexDigit(line_[col_]) >= 0)) {
      return FailAt(start, std::string("expected 1 to 8 hexadecimal digits ") + where);
    }
    return true;
  }

  // ---- 5. Hex data --------------------------------------------------------------

  // After "hex": "(N):" or ":" and the data.
  bool HexValue(std::optional<SettingsValue>& value) {
    const SourcePosition typeAt = Here(col_);
    std::uint32_t type = reg_file::kBinary;
    if (!AtEnd() && line_[col_] == L'(') {
      ++col_;
      if (!HexNumber(type, "for the value type after hex(")) return false;
      if (AtEnd() || line_[col_] != L')') return Fail("expected ')' after the value type");
      ++col_;
    }
    if (AtEnd() || line_[col_] != L':') return Fail("expected ':' before the hex data");
    ++col_;
    std::vector<std::uint8_t> bytes;
    if (!HexBytes(bytes)) return false;
    return TypedValue(type, std::move(bytes), typeAt, value);
  }

  // The data continues on the next line where a backslash ends the line.
  bool Continues() {
    return !AtEnd() && line_[col_] == L'\\' && TrimEnd(line_.substr(col_ + 1)).empty();
  }

  // Bytes of one or two hexadecimal digits, separated by commas.
  bool HexBytes(std::vector<std::uint8_t>& out) {
    bool first = true;
    for (;;) {
      SkipBlanks();
      if (Continues()) {
        if (row_ + 1 >= lines_.size()) {
          return Fail("expected the data to continue on the next line after '\\'");
        }
        line_ = lines_[++row_];
        col_ = 0;
        continue;
      }
      if (AtEnd() && first) return true;  // no bytes: an empty value
      if (AtEnd() || HexDigit(line_[col_]) < 0) {
        return Fail(first ? "expected a byte (two hexadecimal digits)"
                          : "expected a byte (two hexadecimal digits) after ','");
      }
      if (out.size() >= vglobal::kMaxSettingsValueBytes) {
        return Fail("the value is larger than 16 MiB, more than the settings store keeps");
      }
      int byte = HexDigit(line_[col_++]);
      if (!AtEnd() && HexDigit(line_[col_]) >= 0) byte = byte << 4 | HexDigit(line_[col_++]);
      out.push_back(static_cast<std::uint8_t>(byte));
      first = false;
      if (RestIsBlank()) return true;
      if (line_[col_] != L',') return Fail("expected ',' or the end of the line after a byte");
      ++col_;
    }
  }

  // The text of string data; `bytes` holds whole units.
  bool Text(std::span<const std::uint8_t> bytes, SourcePosition at, std::wstring& out) {
    const std::string_view raw(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    switch (strings_) {
      case StringData::Utf16:
        out = vglobal::Utf16LeToWide(raw);
        return true;
      case StringData::Windows1252:
        out = vglobal::Windows1252ToWide(raw);
        return true;
      case StringData::Utf8:
        if (vglobal::FindInvalidUtf8(raw, true) != std::string_view::npos) {
          return FailAt(at, "expected UTF-8 text in the string data");
        }
        out = vglobal::Utf8ToWide(raw);
        return true;
    }
    return false;
  }

  // String data is a run of strings, each ended by a zero unit; one more zero unit ends
  // a multi-string. A single string keeps any zero units inside it, so that text
  // holding one comes back whole.
  bool Strings(const std::vector<std::uint8_t>& bytes, SourcePosition at, bool multi,
               std::vector<std::wstring>& out) {
    const std::size_t unit = strings_ == StringData::Utf16 ? 2 : 1;
    if (bytes.size() % unit != 0) {
      return FailAt(at, "expected an even number of bytes of UTF-16 text, not " +
                            std::to_string(bytes.size()));
    }
    auto zero = [&](std::size_t i) { return bytes[i] == 0 && (unit == 1 || bytes[i + 1] == 0); };
    std::size_t end = bytes.size();
    if (end >= unit && zero(end - unit)) end -= unit;
    const std::span<const std::uint8_t> all(bytes.data(), end);
    if (!multi) {
      out.emplace_back();
      return Text(all, at, out.back());
    }
    std::size_t begin = 0;
    for (std::size_t i = 0; i < end; i += unit) {
      if (!zero(i)) continue;
      out.emplace_back();
      if (!Text(all.subspan(begin, i - begin), at, out.back())) return false;
      begin = i + unit;
    }
    if (begin < end) {  // the last string lacks its zero: written by a careless program
      out.emplace_back();
      return Text(all.subspan(begin), at, out.back());
    }
    return true;
  }

  bool TypedValue(std::uint32_t type, std::vector<std::uint8_t> bytes, SourcePosition at,
                  std::optional<SettingsValue>& value) {
    auto needs = [&](std::size_t size, const char* what) {
      if (bytes.size() == size) return true;
      return FailAt(at, std::string("expected ") + std::to_string(size) + " bytes for " + what +
                            ", not " + std::to_string(bytes.size()));
    };
    switch (type) {
      case reg_file::kString:
      case reg_file::kExpandString: {
        // The store has no expandable strings (nothing in the suite expands them): the
        // text is kept as it stands.
        std::vector<std::wstring> text;
        if (!Strings(bytes, at, false, text)) return false;
        value = SettingsValue::String(std::move(text.front()));
        return true;
      }
      case reg_file::kBinary:
        value = SettingsValue::Binary(std::move(bytes));
        return true;
      case reg_file::kDword:
      case reg_file::kDwordBigEndian: {
        if (!needs(4, "a dword")) return false;
        std::uint32_t n = 0;
        for (int i = 0; i < 4; ++i) {
          const std::uint8_t b = bytes[type == reg_file::kDword ? 3 - i : i];
          n = n << 8 | b;
        }
        value = SettingsValue::Int(static_cast<std::int32_t>(n));
        return true;
      }
      case reg_file::kMultiString: {
        std::vector<std::wstring> strings;
        if (!Strings(bytes, at, true, strings)) return false;
        value = SettingsValue::MultiString(std::move(strings));
        return true;
      }
      case reg_file::kDouble: {
        if (!needs(8, "a double (hex(100000))")) return false;
        std::uint64_t bits = 0;
        for (int i = 7; i >= 0; --i) bits = bits << 8 | bytes[static_cast<std::size_t>(i)];
        value = SettingsValue::Double(std::bit_cast<double>(bits));
        return true;
      }
      case reg_file::kQword:
        return FailAt(at,
                      "a 64-bit integer (hex(b)) cannot be kept: the settings store holds 32-bit "
                      "integers (dword:)");
      default: {
        char number[16];
        std::snprintf(number, sizeof number, "%x", type);
        return FailAt(at, std::string("values of type hex(") + number +
                              ") cannot be kept; expected text, dword:, hex:, hex(1), hex(2), "
                              "hex(4), hex(5), hex(7) or hex(100000)");
      }
    }
  }

  const std::vector<std::wstring_view> lines_;
  const StringData strings_;
  const Root target_;
  ImportPlan& plan_;

  std::size_t row_ = 0;  // index of the line being read
  std::wstring_view line_;
  std::size_t col_ = 0;              // index of the character being read
  std::optional<std::wstring> key_;  // the path of the last key line
  bool keyDeleted_ = false;
};

}  // namespace

ImportPlan ParseRegFile(std::string_view bytes, Root target) {
  ImportPlan plan;
  const std::optional<DecodedFile> file = Decode(bytes, plan);
  if (!file) return plan;
  std::vector<std::wstring_view> lines = SplitLines(file->text);
  const std::wstring_view header = lines.empty() ? std::wstring_view() : TrimEnd(lines.front());
  StringData strings = StringData::Utf16;
  if (header == reg_file::kVersion4Header) {
    strings = file->windows1252 ? StringData::Windows1252 : StringData::Utf8;
  } else if (header != reg_file::kVersion5Header) {
    std::string message =
        "expected \"Windows Registry Editor Version 5.00\" or \"REGEDIT4\" as the first line";
    if (header.find(L'{') != std::wstring_view::npos) message += " (for a JSON file use --json)";
    plan.Fail({}, std::move(message));
    return plan;
  }
  RegFileParser(std::move(lines), strings, target, plan).Run();
  return plan;
}

}  // namespace arvenis_settings
