// Registered data formats and the data of a drag.
#include "vglobal/drag_drop.h"

#include <mutex>
#include <unordered_map>

#include "vglobal/compat/unicode.h"

namespace vglobal {
namespace {

struct Formats {
  std::mutex mutex;
  std::vector<std::string> mimeTypes;  // index = number - kFirstRegisteredFormat
  std::unordered_map<std::string, UINT> numbers;
};

Formats& TheFormats() {
  static Formats* formats = new Formats;  // asked for by static destructors too
  return *formats;
}

bool KeptAsItIs(unsigned char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '_' ||
         c == '+';
}

}  // namespace

std::string FormatMimeType(std::wstring_view name) {
  if (name.empty()) return {};
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string out = "application/x-arvenis-";
  for (unsigned char c : WideToUtf8(name)) {
    if (c >= 'A' && c <= 'Z') c = static_cast<unsigned char>(c - 'A' + 'a');
    if (c == ' ') {
      out += '-';
    } else if (KeptAsItIs(c)) {
      out += static_cast<char>(c);
    } else {
      out += '%';
      out += kHex[c >> 4];
      out += kHex[c & 0xF];
    }
  }
  return out;
}

UINT RegisterFormat(std::wstring_view name) {
  std::string mime = FormatMimeType(name);
  if (mime.empty()) return 0;
  Formats& f = TheFormats();
  std::lock_guard lock(f.mutex);
  if (auto it = f.numbers.find(mime); it != f.numbers.end()) return it->second;
  if (f.mimeTypes.size() > kLastRegisteredFormat - kFirstRegisteredFormat) return 0;
  const UINT number = kFirstRegisteredFormat + static_cast<UINT>(f.mimeTypes.size());
  f.mimeTypes.push_back(mime);
  f.numbers.emplace(std::move(mime), number);
  return number;
}

std::string RegisteredFormatMimeType(UINT format) {
  Formats& f = TheFormats();
  std::lock_guard lock(f.mutex);
  if (format < kFirstRegisteredFormat || format - kFirstRegisteredFormat >= f.mimeTypes.size())
    return {};
  return f.mimeTypes[format - kFirstRegisteredFormat];
}

UINT RegisteredFormatOf(std::string_view mimeType) {
  Formats& f = TheFormats();
  std::lock_guard lock(f.mutex);
  auto it = f.numbers.find(std::string(mimeType));
  return it == f.numbers.end() ? 0 : it->second;
}

void DragPayload::Set(UINT format, std::vector<unsigned char> bytes) {
  for (Item& item : items_)
    if (item.first == format) {
      item.second = std::move(bytes);
      return;
    }
  items_.emplace_back(format, std::move(bytes));
}

const std::vector<unsigned char>* DragPayload::Find(UINT format) const {
  for (const Item& item : items_)
    if (item.first == format) return &item.second;
  return nullptr;
}

DropSink::~DropSink() = default;

}  // namespace vglobal
