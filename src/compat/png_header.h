// The size of a PNG image read from its signature and IHDR chunk, without decoding
// a pixel. The bytes are untrusted (resources can come from any module, and a
// damaged build can embed anything), so every field the PNG format fixes is checked.
#pragma once

#include <cstddef>

namespace vglobal {

enum class PngCheck {
  Ok,
  Truncated,  // shorter than a signature and a whole IHDR chunk
  NotPng,     // the signature is not PNG's
  BadHeader,  // the first chunk is not a well-formed IHDR
  Damaged,    // the IHDR's checksum does not match its bytes
  TooLarge,   // a side longer than kMaxImageSide
};

// Longer sides than any image strip of a toolbar or list needs; refusing them keeps
// image counts and decoded sizes small whatever a file claims.
constexpr int kMaxImageSide = 32767;

struct PngSize {
  int width = 0;
  int height = 0;
};

// Reads width and height into `size` (left unchanged unless the answer is Ok).
// A null pointer reads as no bytes.
PngCheck ReadPngSize(const unsigned char* bytes, std::size_t count, PngSize& size);

}  // namespace vglobal
