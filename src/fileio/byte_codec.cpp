// The field codec of the data files (see byte_codec.h).
#include "byte_codec.h"

#include "vglobal/compat/unicode.h"

namespace vglobal::fileio {

void ByteWriter::Text(std::wstring_view text, std::size_t maxChars) {
  if (text.size() > maxChars) text = text.substr(0, maxChars);
  std::string utf8 = WideToUtf8(text);
  U32(static_cast<std::uint32_t>(utf8.size()));
  Bytes(utf8.data(), utf8.size());
}

bool ByteReader::Need(std::size_t size) {
  if (failed_) return false;
  if (bytes_.size() - pos_ >= size) return true;
  Fail(L"needs " + std::to_wstring(size) + L" bytes at offset " + std::to_wstring(Offset()) +
       L" but only " + std::to_wstring(bytes_.size() - pos_) + L" remain");
  return false;
}

bool ByteReader::Bytes(std::size_t size, std::span<const std::uint8_t>& out) {
  if (!Need(size)) return false;
  out = bytes_.subspan(pos_, size);
  pos_ += size;
  return true;
}

bool ByteReader::Text(std::wstring& out, std::size_t maxChars) {
  const std::uint64_t at = Offset();
  std::uint32_t size = 0;
  if (!U32(size)) return false;
  // UTF-8 takes at most four bytes a character.
  if (size > 4 * maxChars) {
    Fail(L"text length " + std::to_wstring(size) + L" at offset " + std::to_wstring(at) +
         L" exceeds the limit of " + std::to_wstring(4 * maxChars) + L" bytes");
    return false;
  }
  std::span<const std::uint8_t> raw;
  if (!Bytes(size, raw)) return false;
  out = Utf8ToWide(std::string_view(reinterpret_cast<const char*>(raw.data()), raw.size()));
  if (out.size() > maxChars) {
    Fail(L"text at offset " + std::to_wstring(at) + L" is longer than " +
         std::to_wstring(maxChars) + L" characters");
    return false;
  }
  return true;
}

bool ByteReader::Skip(std::size_t size) {
  if (!Need(size)) return false;
  pos_ += size;
  return true;
}

void ByteReader::Fail(std::wstring what) {
  if (failed_) return;
  failed_ = true;
  problem_ = std::move(what);
}

}  // namespace vglobal::fileio
