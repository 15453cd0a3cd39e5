// JSON export and import.
//
// Map of this file:
//   1. Writing    a branch as a document
//   2. Places     the line and column of a value named by a JSON pointer
//   3. Reading    the document checked member by member into changes
#include "json_transfer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <nlohmann/json.hpp>

#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

using Json = nlohmann::ordered_json;
using vglobal::SettingsValue;
using vglobal::SettingsValueType;

constexpr std::string_view kFormat = "arvenis-settings";
constexpr int kVersion = 1;

// ---- 1. Writing -------------------------------------------------------------

std::string HexBytes(const std::vector<std::uint8_t>& bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string hex;
  hex.reserve(2 * bytes.size());
  for (const std::uint8_t b : bytes) {
    hex += kDigits[b >> 4];
    hex += kDigits[b & 0xF];
  }
  return hex;
}

Json Data(const SettingsValue& value) {
  if (const std::int32_t* i = value.AsInt()) return *i;
  if (const double* d = value.AsDouble()) {
    if (std::isfinite(*d)) return *d;
    char bits[24];
    std::snprintf(bits, sizeof bits, "0x%016llx",
                  static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(*d)));
    return bits;
  }
  if (const std::wstring* s = value.AsString()) return vglobal::WideToUtf8(*s);
  if (const auto* binary = value.AsBinary()) return HexBytes(*binary);
  Json strings = Json::array();
  for (const std::wstring& s : *value.AsMultiString()) strings.push_back(vglobal::WideToUtf8(s));
  return strings;
}

// ---- 2. Places ----------------------------------------------------------------
//
// A document read whole says nothing of where its values were. Only when a check
// fails is the text read once more, event by event, until the failing value starts.

// A character iterator that records how far the parser has read.
class TrackingIterator {
 public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  TrackingIterator(const char* p, const char** head) : p_(p), head_(head) {}
  reference operator*() const { return *p_; }
  TrackingIterator& operator++() {
    ++p_;
    if (p_ > *head_) *head_ = p_;
    return *this;
  }
  TrackingIterator operator++(int) {
    TrackingIterator before = *this;
    ++*this;
    return before;
  }
  bool operator==(const TrackingIterator& other) const { return p_ == other.p_; }

 private:
  const char* p_;
  const char** head_;
};

std::string PointerToken(std::string_view name) {
  std::string token;
  for (const char c : name) {
    if (c == '~') {
      token += "~0";
    } else if (c == '/') {
      token += "~1";
    } else {
      token += c;
    }
  }
  return token;
}

// Follows the parser's events, keeping the JSON pointer of the value being read, and
// stops at the start of the value `target` names.
class PointerFinder {
 public:
  PointerFinder(std::string_view text, std::string target, const char* const* head)
      : text_(text), target_(std::move(target)), head_(head) {}

  std::optional<std::size_t> found;

  bool null() { return Primitive(); }
  bool boolean(bool) { return Primitive(); }
  bool number_integer(Json::number_integer_t) { return Primitive(); }
  bool number_unsigned(Json::number_unsigned_t) { return Primitive(); }
  bool number_float(Json::number_float_t, const Json::string_t&) { return Primitive(); }
  bool string(Json::string_t&) { return Primitive(); }
  bool binary(Json::binary_t&) { return Primitive(); }
  bool start_object(std::size_t) { return Open(false); }
  bool start_array(std::size_t) { return Open(true); }
  bool key(Json::string_t& name) {
    stack_.back().name = name;
    read_ = Head();
    return true;
  }
  bool end_object() { return Close(); }
  bool end_array() { return Close(); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) {
    return false;
  }

 private:
  struct Level {
    bool array = false;
    std::size_t index = 0;
    std::string name;
  };

  std::size_t Head() const { return static_cast<std::size_t>(*head_ - text_.data()); }

  // A value starts at the first character after what was read before it that is not
  // white space or a separator.
  bool Starts() {
    std::size_t start = read_;
    while (start < text_.size() &&
           std::string_view(" \t\r\n,:").find(text_[start]) != std::string_view::npos) {
      ++start;
    }
    std::string pointer;
    for (const Level& level : stack_) {
      pointer += '/';
      pointer += level.array ? std::to_string(level.index) : PointerToken(level.name);
    }
    if (pointer != target_) return true;
    found = start;
    return false;
  }
  void Ends() {
    read_ = Head();
    if (!stack_.empty() && stack_.back().array) ++stack_.back().index;
  }
  bool Primitive() {
    if (!Starts()) return false;
    Ends();
    return true;
  }
  bool Open(bool array) {
    if (!Starts()) return false;
    read_ = Head();
    stack_.push_back({array, 0, {}});
    return true;
  }
  bool Close() {
    stack_.pop_back();
    Ends();
    return true;
  }

  std::string_view text_;
  std::string target_;
  const char* const* head_;
  std::size_t read_ = 0;
  std::vector<Level> stack_;
};

// Where the parser gave up, for an error that carries no place of its own (a number
// too large for a double): the start of the token it could not take.
class ErrorFinder {
 public:
  std::size_t at = 0;

  bool null() { return true; }
  bool boolean(bool) { return true; }
  bool number_integer(Json::number_integer_t) { return true; }
  bool number_unsigned(Json::number_unsigned_t) { return true; }
  bool number_float(Json::number_float_t, const Json::string_t&) { return true; }
  bool string(Json::string_t&) { return true; }
  bool binary(Json::binary_t&) { return true; }
  bool start_object(std::size_t) { return true; }
  bool start_array(std::size_t) { return true; }
  bool key(Json::string_t&) { return true; }
  bool end_object() { return true; }
  bool end_array() { return true; }
  bool parse_error(std::size_t read, const std::string& token, const nlohmann::detail::exception&) {
    at = read >= token.size() ? read - token.size() : 0;
    return false;
  }
};

SourcePosition Locate(std::string_view text, const std::string& pointer) {
  const char* head = text.data();
  PointerFinder finder(text, pointer, &head);
  Json::sax_parse(TrackingIterator(text.data(), &head),
                  TrackingIterator(text.data() + text.size(), &head), &finder);
  return PositionOfByte(text, finder.found.value_or(0));
}

// ---- 3. Reading ---------------------------------------------------------------

class JsonReader {
 public:
  JsonReader(std::string_view text, Root target, ImportPlan& plan)
      : text_(text), target_(target), plan_(plan) {}

  void Run(const Json& doc) {
    if (!Members(doc, "", {"format", "version", "root", "keys"})) return;
    if (doc["format"] != std::string(kFormat)) {
      Fail("/format", "expected \"arvenis-settings\"");
      return;
    }
    const Json& version = doc["version"];
    if (!version.is_number_integer() || version != kVersion) {
      Fail("/version", version.is_number_integer() && version > kVersion
                           ? "written by a newer version of arvenis-settings; expected version 1"
                           : "expected version 1");
      return;
    }
    const Json& root = doc["root"];
    if (root != "HKEY_CURRENT_USER" && root != "HKEY_LOCAL_MACHINE") {
      Fail("/root", "expected \"HKEY_CURRENT_USER\" or \"HKEY_LOCAL_MACHINE\"");
      return;
    }
    if (root != vglobal::WideToUtf8(RootName(target_))) {
      Fail("/root", WrongRootMessage(target_));
      return;
    }
    const Json& keys = doc["keys"];
    if (!keys.is_array()) {
      Fail("/keys", "expected an array of keys");
      return;
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
      if (!Key(keys[i], "/keys/" + std::to_string(i))) return;
    }
  }

 private:
  bool Fail(const std::string& pointer, std::string message) {
    plan_.Fail(Locate(text_, pointer), std::move(message));
    return false;
  }

  // An object with exactly these members.
  bool Members(const Json& object, const std::string& pointer,
               std::initializer_list<std::string_view> names) {
    std::string list;
    for (const std::string_view name : names) {
      list += list.empty() ? "\"" : ", \"";
      list += name;
      list += '"';
    }
    if (!object.is_object()) return Fail(pointer, "expected an object with " + list);
    for (auto it = object.begin(); it != object.end(); ++it) {
      if (std::find(names.begin(), names.end(), it.key()) == names.end()) {
        return Fail(pointer + "/" + PointerToken(it.key()),
                    "unexpected member \"" + it.key() + "\"; expected " + list);
      }
    }
    for (const std::string_view name : names) {
      if (!object.contains(name)) {
        return Fail(pointer, "expected the member \"" + std::string(name) + "\"");
      }
    }
    return true;
  }

  bool Key(const Json& key, const std::string& pointer) {
    if (!Members(key, pointer, {"path", "values"})) return false;
    const Json& path = key["path"];
    if (!path.is_string()) return Fail(pointer + "/path", "expected the key's path as a string");
    std::wstring wide = vglobal::Utf8ToWide(path.get_ref<const std::string&>());
    if (!vglobal::SplitSettingsPath(wide)) {
      return Fail(pointer + "/path",
                  "expected key names of 1 to 255 characters joined by single backslashes");
    }
    if (!InSuiteKeys(wide)) return Fail(pointer + "/path", OutsideSuiteKeysMessage(target_));
    vglobal::SettingsChange create;
    create.path = wide;
    plan_.changes.push_back(std::move(create));

    const Json& values = key["values"];
    if (!values.is_array()) return Fail(pointer + "/values", "expected an array of values");
    for (std::size_t j = 0; j < values.size(); ++j) {
      vglobal::SettingsChange write;
      write.kind = vglobal::SettingsChange::Kind::WriteValue;
      write.path = wide;
      if (!Value(values[j], pointer + "/values/" + std::to_string(j), write)) return false;
      plan_.changes.push_back(std::move(write));
    }
    return true;
  }

  bool Value(const Json& value, const std::string& pointer, vglobal::SettingsChange& change) {
    if (!Members(value, pointer, {"name", "type", "data"})) return false;
    const Json& name = value["name"];
    if (!name.is_string()) return Fail(pointer + "/name", "expected the value's name as a string");
    change.name = vglobal::Utf8ToWide(name.get_ref<const std::string&>());
    if (change.name.size() > vglobal::kMaxSettingsValueName) {
      return Fail(pointer + "/name", "value name longer than 16383 characters");
    }
    const Json& typeName = value["type"];
    const std::optional<SettingsValueType> type =
        typeName.is_string() ? TypeFromName(typeName.get_ref<const std::string&>()) : std::nullopt;
    if (!type) {
      return Fail(pointer + "/type",
                  "expected \"REG_DWORD\", \"REG_DOUBLE\", \"REG_SZ\", \"REG_BINARY\" or "
                  "\"REG_MULTI_SZ\"");
    }
    if (!Data(value["data"], pointer + "/data", *type, change.value)) return false;
    if (vglobal::SettingsValueSize(*change.value) > vglobal::kMaxSettingsValueBytes) {
      return Fail(pointer + "/data", "the value is larger than 16 MiB, more than the store keeps");
    }
    return true;
  }

  bool Data(const Json& data, const std::string& pointer, SettingsValueType type,
            std::optional<SettingsValue>& value) {
    switch (type) {
      case SettingsValueType::Int:
        if (data.is_number_unsigned() && data.get<std::uint64_t>() <= 0xFFFFFFFFu) {
          value = SettingsValue::Int(static_cast<std::int32_t>(data.get<std::uint32_t>()));
          return true;
        }
        if (data.is_number_integer() && data.get<std::int64_t>() >= INT32_MIN &&
            data.get<std::int64_t>() <= INT32_MAX) {
          value = SettingsValue::Int(data.get<std::int32_t>());
          return true;
        }
        return Fail(pointer, "expected an integer from -2147483648 to 4294967295");
      case SettingsValueType::Double: {
        if (data.is_number()) {
          value = SettingsValue::Double(data.get<double>());
          return true;
        }
        std::uint64_t bits = 0;
        if (data.is_string() && Bits(data.get_ref<const std::string&>(), bits)) {
          value = SettingsValue::Double(std::bit_cast<double>(bits));
          return true;
        }
        return Fail(pointer,
                    "expected a number, or \"0x\" and the 16 hexadecimal digits of "
                    "the double's bits");
      }
      case SettingsValueType::String:
        if (!data.is_string()) return Fail(pointer, "expected a string");
        value = SettingsValue::String(vglobal::Utf8ToWide(data.get_ref<const std::string&>()));
        return true;
      case SettingsValueType::Binary: {
        std::vector<std::uint8_t> bytes;
        if (!data.is_string() || !FromHex(data.get_ref<const std::string&>(), bytes)) {
          return Fail(pointer, "expected a string of hexadecimal digit pairs");
        }
        value = SettingsValue::Binary(std::move(bytes));
        return true;
      }
      case SettingsValueType::MultiString: {
        if (!data.is_array()) return Fail(pointer, "expected an array of strings");
        std::vector<std::wstring> strings;
        for (std::size_t k = 0; k < data.size(); ++k) {
          if (!data[k].is_string())
            return Fail(pointer + "/" + std::to_string(k), "expected a string");
          strings.push_back(vglobal::Utf8ToWide(data[k].get_ref<const std::string&>()));
        }
        value = SettingsValue::MultiString(std::move(strings));
        return true;
      }
    }
    return false;
  }

  static int Digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
  }

  static bool FromHex(std::string_view hex, std::vector<std::uint8_t>& bytes) {
    if (hex.size() % 2 != 0) return false;
    bytes.reserve(hex.size() / 2);
    for (std::size_t i = 0; i < hex.size(); i += 2) {
      const int hi = Digit(hex[i]), lo = Digit(hex[i + 1]);
      if (hi < 0 || lo < 0) return false;
      bytes.push_back(static_cast<std::uint8_t>(hi << 4 | lo));
    }
    return true;
  }

  static bool Bits(std::string_view text, std::uint64_t& bits) {
    if (text.size() != 18 || text.substr(0, 2) != "0x") return false;
    bits = 0;
    for (const char c : text.substr(2)) {
      if (Digit(c) < 0) return false;
      bits = bits << 4 | static_cast<std::uint64_t>(Digit(c));
    }
    return true;
  }

  std::string_view text_;
  Root target_;
  ImportPlan& plan_;
};

}  // namespace

JsonOutput WriteJson(const ExportBranch& branch, Root root) {
  Json doc;
  doc["format"] = std::string(kFormat);
  doc["version"] = kVersion;
  doc["root"] = vglobal::WideToUtf8(RootName(root));
  Json& keys = doc["keys"] = Json::array();
  for (const ExportKey& key : branch) {
    Json values = Json::array();
    for (const auto& [name, value] : key.values) {
      values.push_back(Json{{"name", vglobal::WideToUtf8(name)},
                            {"type", std::string(TypeName(value.type()))},
                            {"data", Data(value)}});
    }
    keys.push_back(Json{{"path", vglobal::WideToUtf8(key.path)}, {"values", std::move(values)}});
  }
  try {
    return {doc.dump(2) + "\n", {}};
  } catch (const Json::type_error&) {
    // Only text that is not valid Unicode fails to write.
    return {{},
            "the branch holds text with an unpaired surrogate, which JSON cannot carry; export "
            "it as a registry file with --utf8"};
  }
}

ImportPlan ParseJson(std::string_view text, Root target) {
  ImportPlan plan;
  if (text.size() > kMaxImportFileBytes) {
    plan.Fail({}, "the file is larger than 256 MiB, far more than any settings export");
    return plan;
  }
  Json doc;
  try {
    doc = Json::parse(text);
  } catch (const Json::parse_error& e) {
    // The library's message names the place in bytes; ours in characters.
    std::string message = e.what();
    const std::size_t column = message.find("column ");
    const std::size_t colon = message.find(": ", column == std::string::npos ? 0 : column);
    if (colon != std::string::npos) message.erase(0, colon + 2);
    plan.Fail(PositionOfByte(text, e.byte > 0 ? e.byte - 1 : 0), "expected JSON: " + message);
    return plan;
  } catch (const Json::exception& e) {
    // Every other complaint of the parser (a number too large for a double) is bad
    // input too; read once more to find its place.
    ErrorFinder finder;
    Json::sax_parse(text.begin(), text.end(), &finder);
    std::string message = e.what();
    if (const std::size_t id = message.find("] "); id != std::string::npos) {
      message.erase(0, id + 2);
    }
    plan.Fail(PositionOfByte(text, finder.at), "expected JSON: " + message);
    return plan;
  }
  JsonReader(text, target, plan).Run(doc);
  return plan;
}

}  // namespace arvenis_settings
