// Encoding of values for the SQLite store; every decoder checks lengths before it
// reads, since the file may have been damaged or written by someone else.
#include "settings/sqlite_codec.h"

#include <bit>
#include <cstring>
#include <limits>

#include "vglobal/compat/unicode.h"

namespace vglobal::settings {
namespace {

void PutLe32(std::vector<std::uint8_t>& out, std::uint32_t v) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
}

std::uint32_t GetLe32(const std::uint8_t* p) {
  return std::uint32_t{p[0]} | (std::uint32_t{p[1]} << 8) | (std::uint32_t{p[2]} << 16) |
         (std::uint32_t{p[3]} << 24);
}

std::vector<std::uint8_t> EncodeDouble(double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  std::vector<std::uint8_t> out(8);
  for (int i = 0; i < 8; ++i)
    out[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(bits >> (8 * i));
  return out;
}

std::vector<std::uint8_t> EncodeMultiString(const std::vector<std::wstring>& strings) {
  std::vector<std::uint8_t> out;
  PutLe32(out, static_cast<std::uint32_t>(strings.size()));
  for (const std::wstring& s : strings) {
    const std::string utf8 = WideToUtf8(s);
    PutLe32(out, static_cast<std::uint32_t>(utf8.size()));
    out.insert(out.end(), utf8.begin(), utf8.end());
  }
  return out;
}

std::optional<std::vector<std::wstring>> DecodeMultiString(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < 4) return std::nullopt;
  const std::uint32_t count = GetLe32(bytes.data());
  // Each string takes at least its 4-byte length: a larger count cannot be genuine,
  // and checking it first keeps a damaged count from reserving huge memory.
  if (count > (bytes.size() - 4) / 4) return std::nullopt;
  std::vector<std::wstring> strings;
  strings.reserve(count);
  std::size_t pos = 4;
  for (std::uint32_t i = 0; i < count; ++i) {
    if (bytes.size() - pos < 4) return std::nullopt;
    const std::uint32_t length = GetLe32(bytes.data() + pos);
    pos += 4;
    if (bytes.size() - pos < length) return std::nullopt;
    strings.push_back(
        Utf8ToWide(std::string_view(reinterpret_cast<const char*>(bytes.data() + pos), length)));
    pos += length;
  }
  if (pos != bytes.size()) return std::nullopt;
  return strings;
}

}  // namespace

void BindValue(Query& query, int index, const SettingsValue& value) {
  switch (value.type()) {
    case SettingsValueType::Int:
      query.Bind(index, std::int64_t{*value.AsInt()});
      break;
    case SettingsValueType::Double:
      query.BindBlob(index, EncodeDouble(*value.AsDouble()));
      break;
    case SettingsValueType::String:
      query.Bind(index, WideToUtf8(*value.AsString()));
      break;
    case SettingsValueType::Binary:
      query.BindBlob(index, *value.AsBinary());
      break;
    case SettingsValueType::MultiString:
      query.BindBlob(index, EncodeMultiString(*value.AsMultiString()));
      break;
  }
}

std::optional<SettingsValue> ColumnValue(const Query& query, std::int64_t type, int column) {
  const int storage = query.Type(column);
  switch (static_cast<SettingsValueType>(type)) {
    case SettingsValueType::Int: {
      if (storage != SQLITE_INTEGER) return std::nullopt;
      const std::int64_t v = query.Int(column);
      if (v < std::numeric_limits<std::int32_t>::min() ||
          v > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
      }
      return SettingsValue::Int(static_cast<std::int32_t>(v));
    }
    case SettingsValueType::Double: {
      if (storage != SQLITE_BLOB) return std::nullopt;
      const auto bytes = query.Blob(column);
      if (bytes.size() != 8) return std::nullopt;
      std::uint64_t bits = 0;
      for (int i = 0; i < 8; ++i)
        bits |= std::uint64_t{bytes[static_cast<std::size_t>(i)]} << (8 * i);
      return SettingsValue::Double(std::bit_cast<double>(bits));
    }
    case SettingsValueType::String:
      if (storage != SQLITE_TEXT) return std::nullopt;
      // Built in place: GCC 12 misreads the destruction of a moved-from temporary
      // value holding a short string as a free of a non-heap object.
      return std::optional<SettingsValue>(std::in_place, SettingsValue::kString,
                                          Utf8ToWide(query.Text(column)));
    case SettingsValueType::Binary: {
      if (storage != SQLITE_BLOB) return std::nullopt;
      const auto bytes = query.Blob(column);
      return SettingsValue::Binary(std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
    }
    case SettingsValueType::MultiString: {
      if (storage != SQLITE_BLOB) return std::nullopt;
      auto strings = DecodeMultiString(query.Blob(column));
      if (!strings) return std::nullopt;
      return SettingsValue::MultiString(std::move(*strings));
    }
  }
  return std::nullopt;
}

}  // namespace vglobal::settings
