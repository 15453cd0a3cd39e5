// The data-file container (layout in docs/file_formats.md).
//
// Map of this file:
//   1. Sources: memory and file descriptor
//   2. Section names and size caps
//   3. Reading: signature, version, kind, table, places, checksums
//   4. Writing
#include "container.h"

#include "vglobal/fileio/base_io.h"

#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>

namespace vglobal::fileio {

namespace {

std::uint32_t Crc32(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint32_t>(crc32_z(0, bytes.data(), bytes.size()));
}

std::wstring Num(std::uint64_t v) {
  return std::to_wstring(v);
}

FileError Error(DWORD code, std::wstring message) {
  return FileError{code, std::move(message)};
}

}  // namespace

// ---- 1. Sources ----

bool MemorySource::Read(std::uint64_t offset, void* dest, std::size_t size) {
  if (offset > bytes_.size() || bytes_.size() - offset < size) return false;
  if (size != 0) std::memcpy(dest, bytes_.data() + offset, size);
  return true;
}

bool FdSource::Read(std::uint64_t offset, void* dest, std::size_t size) {
  auto* out = static_cast<std::uint8_t*>(dest);
  while (size > 0) {
    if (offset > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max())) return false;
    ssize_t got = pread(fd_, out, size, static_cast<off_t>(offset));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;  // an error, or the file shrank while being read
    out += got;
    offset += static_cast<std::uint64_t>(got);
    size -= static_cast<std::size_t>(got);
  }
  return true;
}

// ---- 2. Section names and caps ----

std::wstring SectionName(std::uint32_t kind) {
  switch (kind) {
    case kSectionHeader:
      return L"header";
    case kSectionAuditTrail:
      return L"audit trail";
    case kSectionStatusLog:
      return L"status log";
    case kSectionTuneData:
      return L"tune data";
    case kSectionTrailerExtra:
      return L"trailer extra";
    case kSectionSampleRows:
      return L"sample rows";
    default:
      return L"section of kind " + Num(kind);
  }
}

namespace {

// The largest section this version reads, by kind: far beyond what real files hold,
// well below what would exhaust a workstation. The record maps' own caps bound the
// data sections; unknown sections (spectra of a later version) get the same room.
std::uint64_t SectionCap(std::uint32_t kind) {
  constexpr std::uint64_t kMiB = std::uint64_t{1} << 20;
  switch (kind) {
    case kSectionHeader:
      return 1 * kMiB;
    case kSectionAuditTrail:
      return 64 * kMiB;
    default:
      return 272 * kMiB;
  }
}

std::wstring KindName(std::uint32_t kind) {
  switch (static_cast<FileKind>(kind)) {
    case FileKind::kRawFile:
      return L"a raw file";
    case FileKind::kSampleList:
      return L"a sample list";
  }
  return L"a data file of unknown kind " + Num(kind);
}

std::uint32_t Le32(const std::uint8_t* p) {
  return static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
         static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

std::uint16_t Le16(const std::uint8_t* p) {
  return static_cast<std::uint16_t>(p[0] | p[1] << 8);
}

std::uint64_t Le64(const std::uint8_t* p) {
  return static_cast<std::uint64_t>(Le32(p)) | static_cast<std::uint64_t>(Le32(p + 4)) << 32;
}

}  // namespace

// ---- 3. Reading ----

FileError ReadContainer(Source& source, FileKind expected, std::span<const std::uint32_t> known,
                        std::vector<Section>& sections, ContainerExtras& extras) {
  sections.clear();
  extras.unknown.clear();
  const std::uint64_t size = source.Size();
  std::uint8_t pre[kPreambleSize] = {};
  const std::size_t have = static_cast<std::size_t>(std::min<std::uint64_t>(size, kPreambleSize));
  if (!source.Read(0, pre, have)) return Error(CBaseIO::kTruncated, L"the file cannot be read");

  // Signature: a short file that agrees with it as far as it goes was cut off; anything
  // else is some other kind of file.
  const std::size_t sigHave = std::min(have, sizeof kSignature);
  if (std::memcmp(pre, kSignature, sigHave) != 0)
    return Error(CBaseIO::kNotOurFormat, L"not a data file of the suite: no signature at offset 0");
  if (have < kPreambleSize)
    return Error(CBaseIO::kTruncated, L"truncated: the file ends at offset " + Num(size) +
                                          L", inside its " + Num(kPreambleSize) +
                                          L"-byte preamble");

  const std::uint16_t major = Le16(pre + 8);
  const std::uint16_t minor = Le16(pre + 10);
  if (major > kFormatMajor)
    return Error(CBaseIO::kNewerVersion,
                 L"written in format version " + Num(major) + L"." + Num(minor) +
                     L" by a newer version of the suite; this version reads format " +
                     Num(kFormatMajor) + L".x");
  if (major == 0)
    return Error(CBaseIO::kCorrupt, L"corrupt: format version 0 at offset 8 is not valid");

  const std::uint32_t kind = Le32(pre + 12);
  if (kind != static_cast<std::uint32_t>(expected))
    return Error(CBaseIO::kNotOurFormat, L"the file is " + KindName(kind) + L", not " +
                                             KindName(static_cast<std::uint32_t>(expected)));

  const std::uint32_t count = Le32(pre + 16);
  if (count > kMaxSections)
    return Error(CBaseIO::kCorrupt, L"corrupt: section count " + Num(count) +
                                        L" at offset 16 exceeds the limit of " + Num(kMaxSections));
  const std::uint64_t tableEnd = kPreambleSize + std::uint64_t{count} * kTableEntrySize;
  const std::uint64_t dataStart = tableEnd + 4;
  if (size < dataStart)
    return Error(CBaseIO::kTruncated, L"truncated: the file ends at offset " + Num(size) +
                                          L", inside its section table (offsets 20 to " +
                                          Num(dataStart) + L")");
  std::vector<std::uint8_t> head(static_cast<std::size_t>(dataStart));
  if (!source.Read(0, head.data(), head.size()))
    return Error(CBaseIO::kTruncated, L"truncated: the section table cannot be read");
  if (Crc32(std::span(head).first(static_cast<std::size_t>(tableEnd))) !=
      Le32(head.data() + tableEnd))
    return Error(CBaseIO::kCorrupt, L"corrupt: checksum mismatch in the section table (offset " +
                                        Num(tableEnd) + L")");

  // Places: every section lies after the table and after the one before it, inside
  // the file, within the cap of its kind.
  std::uint64_t previousEnd = dataStart;
  std::size_t unknownCount = 0;
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint8_t* e = head.data() + kPreambleSize + std::size_t{i} * kTableEntrySize;
    const std::uint32_t sKind = Le32(e);
    const std::uint32_t flags = Le32(e + 4);
    const std::uint64_t offset = Le64(e + 8);
    const std::uint64_t length = Le64(e + 16);
    const std::uint32_t crc = Le32(e + 24);
    const std::wstring where = L"section '" + SectionName(sKind) + L"' (table entry " + Num(i) +
                               L", offset " + Num(offset) + L", length " + Num(length) + L")";
    const bool isKnown = std::find(known.begin(), known.end(), sKind) != known.end();

    if (offset < previousEnd)
      return Error(CBaseIO::kCorrupt, L"corrupt: " + where +
                                          L" overlaps what comes before it (offset " +
                                          Num(previousEnd) + L")");
    if (length > std::numeric_limits<std::uint64_t>::max() - offset || offset + length > size)
      return Error(CBaseIO::kTruncated,
                   L"truncated: the file ends at offset " + Num(size) + L", inside " + where);
    if (length > SectionCap(sKind))
      return Error(CBaseIO::kTooLarge, where + L" is larger than this version accepts (" +
                                           Num(SectionCap(sKind)) + L" bytes)");
    if (!isKnown && (flags & kSectionRequired))
      return Error(CBaseIO::kNewerVersion,
                   where +
                       L" is needed to read the file, but this version of the suite does "
                       L"not know it");
    if (isKnown && std::any_of(sections.begin(), sections.end(),
                               [&](const Section& s) { return s.kind == sKind; }))
      return Error(CBaseIO::kCorrupt, L"corrupt: " + where + L" appears twice");
    if (!isKnown && unknownCount + known.size() >= kMaxSections)
      return Error(CBaseIO::kTooLarge, where +
                                           L" is one more section of a kind this version "
                                           L"does not know than it can keep");
    unknownCount += isKnown ? 0 : 1;
    previousEnd = offset + length;

    Section section;
    section.kind = sKind;
    section.flags = flags;
    section.offset = offset;
    section.bytes.resize(static_cast<std::size_t>(length));
    if (!source.Read(offset, section.bytes.data(), section.bytes.size()))
      return Error(CBaseIO::kTruncated, L"truncated: " + where + L" cannot be read in full");
    if (Crc32(section.bytes) != crc)
      return Error(CBaseIO::kCorrupt, L"corrupt: checksum mismatch in " + where);
    (isKnown ? sections : extras.unknown).push_back(std::move(section));
  }
  if (previousEnd != size)
    return Error(CBaseIO::kCorrupt, L"corrupt: " + Num(size - previousEnd) +
                                        L" unexpected bytes after the last section, at offset " +
                                        Num(previousEnd));
  return {};
}

// ---- 4. Writing ----

FileError WriteContainer(FileKind kind, const std::vector<Section>& sections,
                         const ContainerExtras& extras, std::vector<std::uint8_t>& out) {
  std::vector<const Section*> all;
  for (const Section& s : sections) all.push_back(&s);
  for (const Section& s : extras.unknown) all.push_back(&s);
  if (all.size() > kMaxSections)
    return Error(CBaseIO::kTooLarge, L"the file would have " + Num(all.size()) +
                                         L" sections; at most " + Num(kMaxSections) +
                                         L" can be read");
  for (const Section* s : all)
    if (s->bytes.size() > SectionCap(s->kind))
      return Error(CBaseIO::kTooLarge, L"section '" + SectionName(s->kind) + L"' would be " +
                                           Num(s->bytes.size()) + L" bytes; at most " +
                                           Num(SectionCap(s->kind)) + L" can be read");

  ByteWriter w;
  w.Bytes(kSignature, sizeof kSignature);
  w.U16(kFormatMajor);
  w.U16(kFormatMinor);
  w.U32(static_cast<std::uint32_t>(kind));
  w.U32(static_cast<std::uint32_t>(all.size()));
  std::uint64_t offset = kPreambleSize + all.size() * kTableEntrySize + 4;
  for (const Section* s : all) {
    w.U32(s->kind);
    w.U32(s->flags);
    w.U64(offset);
    w.U64(s->bytes.size());
    w.U32(Crc32(s->bytes));
    w.U32(0);
    offset += s->bytes.size();
  }
  w.U32(Crc32(w.Data()));
  for (const Section* s : all) w.Bytes(s->bytes.data(), s->bytes.size());
  out = std::move(w.Data());
  return {};
}

}  // namespace vglobal::fileio
