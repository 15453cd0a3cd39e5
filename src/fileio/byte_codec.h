// Little-endian encoding of the data files' fields: a writer that appends to a byte
// buffer and a bounded reader that never reads past its span and remembers the first
// thing that did not fit, with the absolute file offset at which it happened.
//
// Text is UTF-8 behind a 32-bit byte count; every text read names its own cap, so a
// damaged count never leads to a large allocation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vglobal/compat/types.h"

namespace vglobal::fileio {

// An error of the file layer: one of the CBaseIO codes and what went wrong where.
struct FileError {
  DWORD code = 0;
  std::wstring message;
  explicit operator bool() const { return code != 0; }
};

class ByteWriter {
 public:
  void U8(std::uint8_t v) { bytes_.push_back(v); }
  void U16(std::uint16_t v) { Le(v, 2); }
  void U32(std::uint32_t v) { Le(v, 4); }
  void U64(std::uint64_t v) { Le(v, 8); }
  void I32(std::int32_t v) { U32(static_cast<std::uint32_t>(v)); }
  void I64(std::int64_t v) { U64(static_cast<std::uint64_t>(v)); }
  void F32(float v) {
    std::uint32_t bits;
    std::memcpy(&bits, &v, 4);
    U32(bits);
  }
  void F64(double v) {
    std::uint64_t bits;
    std::memcpy(&bits, &v, 8);
    U64(bits);
  }
  void Bytes(const void* data, std::size_t size) {
    const auto* p = static_cast<const std::uint8_t*>(data);
    bytes_.insert(bytes_.end(), p, p + size);
  }
  // Wide text as a UTF-8 byte count and the bytes, cut to maxChars characters.
  void Text(std::wstring_view text, std::size_t maxChars);

  std::size_t Size() const { return bytes_.size(); }
  // Overwrites four bytes already written (a length known only afterwards).
  void PatchU32(std::size_t at, std::uint32_t v) {
    for (int i = 0; i < 4; ++i) bytes_[at + i] = static_cast<std::uint8_t>(v >> (8 * i));
  }
  std::vector<std::uint8_t>& Data() { return bytes_; }

 private:
  void Le(std::uint64_t v, int n) {
    for (int i = 0; i < n; ++i) bytes_.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
  }
  std::vector<std::uint8_t> bytes_;
};

class ByteReader {
 public:
  // bytes: the span to read; base: the file offset of its first byte (for messages).
  ByteReader(std::span<const std::uint8_t> bytes, std::uint64_t base)
      : bytes_(bytes), base_(base) {}

  bool U8(std::uint8_t& v) { return Le(v); }
  bool U16(std::uint16_t& v) { return Le(v); }
  bool U32(std::uint32_t& v) { return Le(v); }
  bool U64(std::uint64_t& v) { return Le(v); }
  bool I32(std::int32_t& v) {
    std::uint32_t u;
    if (!Le(u)) return false;
    v = static_cast<std::int32_t>(u);
    return true;
  }
  bool I64(std::int64_t& v) {
    std::uint64_t u;
    if (!Le(u)) return false;
    v = static_cast<std::int64_t>(u);
    return true;
  }
  bool F32(float& v) {
    std::uint32_t u;
    if (!Le(u)) return false;
    std::memcpy(&v, &u, 4);
    return true;
  }
  bool F64(double& v) {
    std::uint64_t u;
    if (!Le(u)) return false;
    std::memcpy(&v, &u, 8);
    return true;
  }
  // A view of the next `size` bytes.
  bool Bytes(std::size_t size, std::span<const std::uint8_t>& out);
  // Text of at most maxChars characters (so at most 4 * maxChars UTF-8 bytes); a
  // longer one fails: the writer never writes one.
  bool Text(std::wstring& out, std::size_t maxChars);
  bool Skip(std::size_t size);

  std::size_t Remaining() const { return failed_ ? 0 : bytes_.size() - pos_; }
  std::uint64_t Offset() const { return base_ + pos_; }
  bool Failed() const { return failed_; }
  // Records a failure found by the caller (a value out of its range); `what` says
  // where. Only the first failure is kept.
  void Fail(std::wstring what);
  // What went wrong, with its file offset ("text of 90000 bytes at offset 120 ...").
  const std::wstring& Problem() const { return problem_; }

 private:
  template <typename T>
  bool Le(T& v) {
    if (!Need(sizeof(T))) return false;
    std::uint64_t acc = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
      acc |= static_cast<std::uint64_t>(bytes_[pos_ + i]) << (8 * i);
    v = static_cast<T>(acc);
    pos_ += sizeof(T);
    return true;
  }
  bool Need(std::size_t size);

  std::span<const std::uint8_t> bytes_;
  std::uint64_t base_;
  std::size_t pos_ = 0;
  bool failed_ = false;
  std::wstring problem_;
};

}  // namespace vglobal::fileio
