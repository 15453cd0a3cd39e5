// The container shared by the suite's data files (raw files, sample lists): a
// signature, a format version, the file kind and a table of sections, each with its
// kind, flags, place and CRC-32. The layout is documented in docs/file_formats.md.
//
// Reading checks, in this order, the signature (else kNotOurFormat), the version
// (kNewerVersion), the kind (kNotOurFormat), the table and its checksum, the place of
// every section (kTruncated when the file ends before it does), the size caps
// (kTooLarge) and each section's checksum (kCorrupt, naming the section). Only then
// are the sections handed to the decoders. Nothing is allocated beyond the file's
// own size and the caps.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "byte_codec.h"

namespace vglobal::fileio {

inline constexpr std::uint8_t kSignature[8] = {0x89, 'A', 'V', 'D', 0x0D, 0x0A, 0x1A, 0x0A};
// The format version this code writes. A reader takes every minor version of its
// major version (a newer minor version only adds sections, flags or trailing fields
// that older readers skip); a newer major version is refused.
inline constexpr std::uint16_t kFormatMajor = 1;
inline constexpr std::uint16_t kFormatMinor = 0;
inline constexpr std::uint32_t kMaxSections = 64;
inline constexpr std::size_t kPreambleSize = 20;
inline constexpr std::size_t kTableEntrySize = 32;

enum class FileKind : std::uint32_t { kRawFile = 1, kSampleList = 2 };

enum SectionKind : std::uint32_t {
  kSectionHeader = 1,
  kSectionAuditTrail = 2,
  kSectionStatusLog = 3,
  kSectionTuneData = 4,
  kSectionTrailerExtra = 5,
  kSectionSampleRows = 16,
};

// Section flag: a reader that does not know the section's kind must refuse the file.
inline constexpr std::uint32_t kSectionRequired = 0x1;

struct Section {
  std::uint32_t kind = 0;
  std::uint32_t flags = 0;
  std::uint64_t offset = 0;  // file offset of the first byte (set by the reader)
  std::vector<std::uint8_t> bytes;
};

// Sections of kinds this version does not know, kept so that saving the file writes
// them back unchanged.
struct ContainerExtras {
  std::vector<Section> unknown;
};

// Where the bytes of a file come from: an open file or a buffer in memory.
class Source {
 public:
  virtual ~Source() = default;
  virtual std::uint64_t Size() const = 0;
  // Fills dest with size bytes from offset; false when they are not all there.
  virtual bool Read(std::uint64_t offset, void* dest, std::size_t size) = 0;
};

class MemorySource : public Source {
 public:
  explicit MemorySource(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  std::uint64_t Size() const override { return bytes_.size(); }
  bool Read(std::uint64_t offset, void* dest, std::size_t size) override;

 private:
  std::span<const std::uint8_t> bytes_;
};

// Reads an open file descriptor (not owned) with pread.
class FdSource : public Source {
 public:
  FdSource(int fd, std::uint64_t size) : fd_(fd), size_(size) {}
  std::uint64_t Size() const override { return size_; }
  bool Read(std::uint64_t offset, void* dest, std::size_t size) override;

 private:
  int fd_;
  std::uint64_t size_;
};

// The display name of a section kind, for messages ("audit trail").
std::wstring SectionName(std::uint32_t kind);

// Reads the container of a file of kind `expected`. Sections whose kind is in
// `known` go to `sections` in file order; others go to extras (or refuse the file
// when flagged required). A known kind may appear once. Unknown sections are kept
// only as far as a file with every known section beside them stays within
// kMaxSections, so that whatever is read can be written back.
FileError ReadContainer(Source& source, FileKind expected, std::span<const std::uint32_t> known,
                        std::vector<Section>& sections, ContainerExtras& extras);

// Lays out the file in out: preamble, table, then the sections in the order given
// (the known ones, then the kept unknown ones). Refuses (kTooLarge) a section larger
// than a reader accepts or more than kMaxSections sections.
FileError WriteContainer(FileKind kind, const std::vector<Section>& sections,
                         const ContainerExtras& extras, std::vector<std::uint8_t>& out);

}  // namespace vglobal::fileio
