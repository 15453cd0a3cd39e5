// Fuzz helper: a copy of the input whose container checksums are made right, so that
// the fuzzer's mutations reach the section decoders behind them instead of stopping
// at a checksum mismatch. The layout is the container's (docs/file_formats.md):
// a 20-byte preamble with the section count at offset 16, 32-byte table entries
// (offset at +8, length at +16, CRC-32 at +24), then the table's CRC-32.
#pragma once

#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vglobal::fuzzing {

inline std::uint64_t LoadLe(const std::uint8_t* p, int bytes) {
  std::uint64_t v = 0;
  for (int i = 0; i < bytes; ++i) v |= static_cast<std::uint64_t>(p[i]) << (8 * i);
  return v;
}

inline void StoreLe32(std::uint8_t* p, std::uint32_t v) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<std::uint8_t>(v >> (8 * i));
}

inline std::vector<std::uint8_t> RepairChecksums(const std::uint8_t* data, std::size_t size) {
  std::vector<std::uint8_t> out(data, data + size);
  if (size < 20) return out;
  const std::uint64_t count = LoadLe(out.data() + 16, 4);
  if (count > 64 || size < 24 + 32 * count) return out;
  for (std::uint64_t i = 0; i < count; ++i) {
    std::uint8_t* entry = out.data() + 20 + 32 * i;
    const std::uint64_t offset = LoadLe(entry + 8, 8);
    const std::uint64_t length = LoadLe(entry + 16, 8);
    if (offset <= size && length <= size - offset)
      StoreLe32(entry + 24, static_cast<std::uint32_t>(crc32_z(0, out.data() + offset, length)));
  }
  const std::size_t tableEnd = 20 + 32 * count;
  StoreLe32(out.data() + tableEnd, static_cast<std::uint32_t>(crc32_z(0, out.data(), tableEnd)));
  return out;
}

}  // namespace vglobal::fuzzing
