// PNG signature and IHDR: 8 signature bytes, then the first chunk, which the
// format requires to be IHDR: length 13 (big-endian), type, width, height, bit
// depth, colour type, compression, filter, interlace, and a CRC-32 over type and
// data.
#include "compat/png_header.h"

#include <zlib.h>

#include <cstdint>
#include <cstring>

namespace vglobal {
namespace {

constexpr unsigned char kSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t kIhdrDataSize = 13;
constexpr std::size_t kHeaderBytes = 8 + 4 + 4 + kIhdrDataSize + 4;

std::uint32_t BigEndian32(const unsigned char* p) {
  return (std::uint32_t{p[0]} << 24) | (std::uint32_t{p[1]} << 16) | (std::uint32_t{p[2]} << 8) |
         std::uint32_t{p[3]};
}

// The bit depths the format allows for each colour type.
bool DepthFitsColourType(unsigned depth, unsigned colourType) {
  switch (colourType) {
    case 0:  // grey
      return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16;
    case 3:  // palette
      return depth == 1 || depth == 2 || depth == 4 || depth == 8;
    case 2:  // RGB
    case 4:  // grey and alpha
    case 6:  // RGBA
      return depth == 8 || depth == 16;
    default:
      return false;
  }
}

}  // namespace

PngCheck ReadPngSize(const unsigned char* bytes, std::size_t count, PngSize& size) {
  if (!bytes) count = 0;
  if (count >= sizeof kSignature && std::memcmp(bytes, kSignature, sizeof kSignature) != 0)
    return PngCheck::NotPng;
  if (count < kHeaderBytes) {
    // A prefix of the signature is still "too short"; anything else was never PNG.
    const std::size_t seen = count < sizeof kSignature ? count : sizeof kSignature;
    return count == 0 || std::memcmp(bytes, kSignature, seen) == 0 ? PngCheck::Truncated
                                                                   : PngCheck::NotPng;
  }
  const unsigned char* chunk = bytes + sizeof kSignature;
  const unsigned char* data = chunk + 8;
  if (BigEndian32(chunk) != kIhdrDataSize || std::memcmp(chunk + 4, "IHDR", 4) != 0)
    return PngCheck::BadHeader;
  const std::uint32_t crc =
      static_cast<std::uint32_t>(crc32(0L, chunk + 4, static_cast<uInt>(4 + kIhdrDataSize)));
  if (crc != BigEndian32(data + kIhdrDataSize)) return PngCheck::Damaged;

  const std::uint32_t width = BigEndian32(data);
  const std::uint32_t height = BigEndian32(data + 4);
  const unsigned depth = data[8], colourType = data[9];
  const unsigned compression = data[10], filter = data[11], interlace = data[12];
  if (width == 0 || height == 0 || width > 0x7FFFFFFFu || height > 0x7FFFFFFFu ||
      !DepthFitsColourType(depth, colourType) || compression != 0 || filter != 0 || interlace > 1)
    return PngCheck::BadHeader;
  if (width > kMaxImageSide || height > kMaxImageSide) return PngCheck::TooLarge;
  size.width = static_cast<int>(width);
  size.height = static_cast<int>(height);
  return PngCheck::Ok;
}

}  // namespace vglobal
