// Sections of the suite's data files and the files they make up (layouts in
// docs/file_formats.md).
//
// Map of this file:
//   1. Section helpers: the per-record length prefix, counts, error wording
//   2. Header section
//   3. Audit-trail section
//   4. Generic data sections (status log, tune data, trailer extra)
//   5. Sample-rows section
//   6. Whole files: raw file, sample list
//
// Every record inside a section (an audit record, a field of a data header, a sample
// row) is preceded by its length, and a reader reads the fields it knows and skips
// the rest of the record: a newer minor format version may append fields there.
// Counts are checked against the bytes left (each record needs at least its length
// prefix) and against the caps before anything is allocated.
#include "data_file_codec.h"

#include <algorithm>
#include <array>
#include <optional>

#include "vglobal/fileio/base_io.h"

namespace vglobal::fileio {

namespace {

// ---- 1. Section helpers ----

FileError SectionError(const Section& section, DWORD code, const std::wstring& problem) {
  const std::wstring head = code == CBaseIO::kTooLarge ? L"" : L"corrupt: ";
  return {code, head + L"section '" + SectionName(section.kind) + L"' (offset " +
                    std::to_wstring(section.offset) + L"): " + problem};
}

// A reader over one section's bytes, offsets counted in the file.
ByteReader SectionReader(const Section& section) {
  return ByteReader(section.bytes, section.offset);
}

// Writes a record behind a length prefix filled in by End.
class RecordScope {
 public:
  explicit RecordScope(ByteWriter& w) : w_(w), at_(w.Size()) { w_.U32(0); }
  ~RecordScope() { w_.PatchU32(at_, static_cast<std::uint32_t>(w_.Size() - at_ - 4)); }

 private:
  ByteWriter& w_;
  std::size_t at_;
};

// The bytes of the next length-prefixed record, as a reader of their own.
std::optional<ByteReader> NextRecord(ByteReader& r) {
  const std::uint64_t at = r.Offset();
  std::uint32_t length = 0;
  if (!r.U32(length)) return std::nullopt;
  std::span<const std::uint8_t> bytes;
  if (!r.Bytes(length, bytes)) return std::nullopt;
  return ByteReader(bytes, at + 4);
}

// Checks a count read at `at` against the bytes left (each record takes at least
// minBytes) and a cap.
bool CountFits(ByteReader& r, std::uint32_t count, std::size_t minBytes, std::uint32_t cap,
               std::uint64_t at, DWORD& code) {
  if (count > cap) {
    code = CBaseIO::kTooLarge;
    r.Fail(L"count " + std::to_wstring(count) + L" at offset " + std::to_wstring(at) +
           L" exceeds the limit of " + std::to_wstring(cap));
    return false;
  }
  if (static_cast<std::uint64_t>(count) * minBytes > r.Remaining()) {
    r.Fail(L"count " + std::to_wstring(count) + L" at offset " + std::to_wstring(at) +
           L" needs more bytes than the section holds");
    return false;
  }
  return true;
}

std::int64_t Ns(CTime t) {
  return t.GetNanoseconds();
}

// ---- 2. Header section ----

Section EncodeHeader(const CHeader& h) {
  ByteWriter w;
  w.U16(h.FileType());
  w.I64(Ns(h.CreationDate()));
  w.I64(Ns(h.ModificationDate()));
  w.U16(h.NumTimesSaved());
  w.Text(h.WhoCreatedId().view(), CHeader::kMaxNameLength);
  w.Text(h.WhoCreatedLogon().view(), CHeader::kMaxNameLength);
  w.Text(h.WhoChangedId().view(), CHeader::kMaxNameLength);
  w.Text(h.WhoChangedLogon().view(), CHeader::kMaxNameLength);
  w.Text(h.ReadDesc().view(), CHeader::kMaxDescLength);
  return Section{kSectionHeader, kSectionRequired, 0, std::move(w.Data())};
}

FileError DecodeHeader(const Section& s, CHeader& h) {
  ByteReader r = SectionReader(s);
  std::uint16_t type = 0, saves = 0;
  std::int64_t created = 0, modified = 0;
  std::wstring createdId, createdLogon, changedId, changedLogon, desc;
  const std::size_t name = CHeader::kMaxNameLength;
  if (r.U16(type) && r.I64(created) && r.I64(modified) && r.U16(saves) && r.Text(createdId, name) &&
      r.Text(createdLogon, name) && r.Text(changedId, name) && r.Text(changedLogon, name) &&
      r.Text(desc, CHeader::kMaxDescLength)) {
    h.FileType(type);
    h.CreationDate(CTime::FromNanoseconds(created));
    h.ModificationDate(CTime::FromNanoseconds(modified));
    h.NumTimesSaved(saves);
    h.WhoCreatedId(createdId.c_str());
    h.WhoCreatedLogon(createdLogon.c_str());
    h.WhoChangedId(changedId.c_str());
    h.WhoChangedLogon(changedLogon.c_str());
    h.WriteDesc(desc.c_str());
    return {};
  }
  return SectionError(s, CBaseIO::kCorrupt, r.Problem());
}

// ---- 3. Audit-trail section ----

}  // namespace

// Records read from a file are kept as they are; AddAudit would stamp a record
// without a time.
class AuditTrailReader {
 public:
  static void Append(CAuditTrail& trail, CAuditData audit) {
    trail.m_audits.push_back(std::move(audit));
  }
};

namespace {

Section EncodeAuditTrail(const CAuditTrail& trail) {
  ByteWriter w;
  w.U32(static_cast<std::uint32_t>(trail.NumAudits()));
  for (int i = 0; i < trail.NumAudits(); ++i) {
    const CAuditData& a = trail.GetAudit(i);
    RecordScope record(w);
    w.I64(Ns(a.Time()));
    w.U32(a.ChangeMaskLow());
    w.U32(a.ChangeMaskHigh());
    w.Text(a.WhoAuditedId().view(), CAuditData::kMaxNameLength);
    w.Text(a.WhoAuditedLogon().view(), CAuditData::kMaxNameLength);
    w.Text(a.Comment().view(), CAuditData::kMaxCommentLength);
  }
  return Section{kSectionAuditTrail, 0, 0, std::move(w.Data())};
}

FileError DecodeAuditTrail(const Section& s, CAuditTrail& trail) {
  ByteReader r = SectionReader(s);
  DWORD code = CBaseIO::kCorrupt;
  const std::uint64_t at = r.Offset();
  std::uint32_t count = 0;
  if (r.U32(count) && CountFits(r, count, 4, CAuditTrail::kMaxAudits, at, code)) {
    const std::size_t name = CAuditData::kMaxNameLength;
    for (std::uint32_t i = 0; i < count && !r.Failed(); ++i) {
      std::optional<ByteReader> rec = NextRecord(r);
      if (!rec) break;
      std::int64_t time = 0;
      std::uint32_t low = 0, high = 0;
      std::wstring id, logon, comment;
      if (!(rec->I64(time) && rec->U32(low) && rec->U32(high) && rec->Text(id, name) &&
            rec->Text(logon, name) && rec->Text(comment, CAuditData::kMaxCommentLength))) {
        r.Fail(L"audit record " + std::to_wstring(i) + L": " + rec->Problem());
        break;
      }
      CAuditData a;
      a.Time(CTime::FromNanoseconds(time));
      a.ChangeMaskLow(low);
      a.ChangeMaskHigh(high);
      a.WhoAuditedId(id.c_str());
      a.WhoAuditedLogon(logon.c_str());
      a.Comment(comment.c_str());
      AuditTrailReader::Append(trail, std::move(a));
    }
  }
  if (r.Failed()) return SectionError(s, code, r.Problem());
  return {};
}

// ---- 4. Generic data sections ----

Section EncodeDataMap(std::uint32_t kind, const CGenericDataFileMap& map) {
  ByteWriter w;
  const CGenericDataHeader& header = map.Header();
  w.U32(static_cast<std::uint32_t>(header.NumFields()));
  for (int i = 0; i < header.NumFields(); ++i) {
    const CGenericDataItem& item = header[i];
    RecordScope record(w);
    w.I32(item.DataType());
    w.U32(item.StringLengthOrPrecision());
    w.U8(item.IsScientificNotation() ? 1 : 0);
    w.Text(item.Label().view(), CGenericDataItem::kMaxLabelLength);
  }
  // A map whose header changed after it took records holds none that can be read by
  // it; it is written without records rather than with records of another layout.
  const bool usable = map.NumRecords() == 0 || map[0] != nullptr;
  const std::uint32_t count = usable ? static_cast<std::uint32_t>(map.NumRecords()) : 0;
  const int stride = usable ? map.RecordSize() : 0;
  w.U32(static_cast<std::uint32_t>(stride));
  w.U32(count);
  for (std::uint32_t i = 0; i < count; ++i) w.Bytes(map[static_cast<int>(i)], stride);
  return Section{kind, 0, 0, std::move(w.Data())};
}

FileError DecodeDataMap(const Section& s, CGenericDataFileMap& map) {
  ByteReader r = SectionReader(s);
  DWORD code = CBaseIO::kCorrupt;
  std::uint64_t at = r.Offset();
  std::uint32_t fields = 0;
  CGenericDataHeader header;
  if (r.U32(fields) && CountFits(r, fields, 4, CGenericDataHeader::kMaxFields, at, code)) {
    for (std::uint32_t i = 0; i < fields && !r.Failed(); ++i) {
      const std::uint64_t fieldAt = r.Offset();
      std::optional<ByteReader> rec = NextRecord(r);
      if (!rec) break;
      std::int32_t type = 0;
      std::uint32_t length = 0;
      std::uint8_t scientific = 0;
      std::wstring label;
      if (!(rec->I32(type) && rec->U32(length) && rec->U8(scientific) &&
            rec->Text(label, CGenericDataItem::kMaxLabelLength))) {
        r.Fail(L"field " + std::to_wstring(i) + L": " + rec->Problem());
        break;
      }
      if (length > CGenericDataItem::kMaxLength) {
        code = CBaseIO::kTooLarge;
        r.Fail(L"field " + std::to_wstring(i) + L" at offset " + std::to_wstring(fieldAt) +
               L": length " + std::to_wstring(length) + L" exceeds the limit of " +
               std::to_wstring(CGenericDataItem::kMaxLength));
        break;
      }
      if (!header.AddField(CGenericDataItem(type, label.c_str(), length, scientific))) {
        code = CBaseIO::kTooLarge;
        r.Fail(L"field " + std::to_wstring(i) + L" at offset " + std::to_wstring(fieldAt) +
               L" makes a record larger than " +
               std::to_wstring(CGenericDataHeader::kMaxRecordSize) + L" bytes");
        break;
      }
    }
  }
  std::uint32_t stride = 0, count = 0;
  if (!r.Failed()) {
    map.SetHeader(header);
    at = r.Offset();
    if (r.U32(stride) && stride != static_cast<std::uint32_t>(map.RecordSize()))
      r.Fail(L"record size " + std::to_wstring(stride) + L" at offset " + std::to_wstring(at) +
             L" does not match the " + std::to_wstring(map.RecordSize()) + L" bytes of the fields");
    at = r.Offset();
    if (r.U32(count) && CountFits(r, count, stride, CGenericDataFileMap::kMaxRecords, at, code)) {
      for (std::uint32_t i = 0; i < count; ++i) {
        std::span<const std::uint8_t> bytes;
        r.Bytes(stride, bytes);
        if (map.AddRecord(bytes.data()) < 0) {
          code = CBaseIO::kTooLarge;
          r.Fail(L"record " + std::to_wstring(i) + L" goes beyond the " +
                 std::to_wstring(CGenericDataFileMap::kMaxBytes) + L" bytes a map holds");
          break;
        }
      }
    }
  }
  if (r.Failed()) return SectionError(s, code, r.Problem());
  return {};
}

// ---- 5. Sample-rows section ----

Section EncodeRows(const std::vector<CSeqRow>& rows) {
  ByteWriter w;
  constexpr int kText = CSeqRow::kMaxTextLength;
  w.U32(static_cast<std::uint32_t>(rows.size()));
  for (const CSeqRow& row : rows) {
    RecordScope record(w);
    w.Text(row.SampleID().view(), kText);
    w.Text(row.SampleName().view(), kText);
    w.I32(row.SampleType());
    w.Text(row.Path().view(), kText);
    w.Text(row.RawFileName().view(), kText);
    w.Text(row.Position().view(), kText);
    w.F64(row.InjVol());
    w.Text(row.Level().view(), kText);
    w.F64(row.DilutionFactor());
    w.Text(row.InstMeth().view(), kText);
    w.Text(row.ProcMeth().view(), kText);
    w.Text(row.Comment().view(), kText);
  }
  return Section{kSectionSampleRows, 0, 0, std::move(w.Data())};
}

FileError DecodeRows(const Section& s, std::vector<CSeqRow>& rows) {
  ByteReader r = SectionReader(s);
  DWORD code = CBaseIO::kCorrupt;
  const std::uint64_t at = r.Offset();
  std::uint32_t count = 0;
  if (r.U32(count) && CountFits(r, count, 4, CSequence::kMaxRows, at, code)) {
    rows.reserve(count);
    const std::size_t cap = CSeqRow::kMaxTextLength;
    for (std::uint32_t i = 0; i < count && !r.Failed(); ++i) {
      std::optional<ByteReader> rec = NextRecord(r);
      if (!rec) break;
      std::array<std::wstring, 10> text;
      std::int32_t type = 0;
      double injVol = 0, dilution = 0;
      if (!(rec->Text(text[0], cap) && rec->Text(text[1], cap) && rec->I32(type) &&
            rec->Text(text[2], cap) && rec->Text(text[3], cap) && rec->Text(text[4], cap) &&
            rec->F64(injVol) && rec->Text(text[5], cap) && rec->F64(dilution) &&
            rec->Text(text[6], cap) && rec->Text(text[7], cap) && rec->Text(text[8], cap))) {
        r.Fail(L"row " + std::to_wstring(i + 1) + L": " + rec->Problem());
        break;
      }
      CSeqRow row;
      row.SampleID(text[0].c_str());
      row.SampleName(text[1].c_str());
      row.SampleType(type);
      row.Path(text[2].c_str());
      row.RawFileName(text[3].c_str());
      row.Position(text[4].c_str());
      row.InjVol(injVol);
      row.Level(text[5].c_str());
      row.DilutionFactor(dilution);
      row.InstMeth(text[6].c_str());
      row.ProcMeth(text[7].c_str());
      row.Comment(text[8].c_str());
      rows.push_back(std::move(row));
    }
  }
  if (r.Failed()) return SectionError(s, code, r.Problem());
  return {};
}

const Section* Find(const std::vector<Section>& sections, std::uint32_t kind) {
  for (const Section& s : sections)
    if (s.kind == kind) return &s;
  return nullptr;
}

FileError MissingHeader() {
  return {CBaseIO::kCorrupt, L"corrupt: the file has no header section"};
}

}  // namespace

// ---- 6. Whole files ----

FileError DecodeRawFile(Source& source, RawFileContents& out) {
  static constexpr std::uint32_t kKnown[] = {kSectionHeader, kSectionAuditTrail, kSectionStatusLog,
                                             kSectionTuneData, kSectionTrailerExtra};
  std::vector<Section> sections;
  if (FileError e = ReadContainer(source, FileKind::kRawFile, kKnown, sections, out.extras))
    return e;
  const Section* header = Find(sections, kSectionHeader);
  if (!header) return MissingHeader();
  if (FileError e = DecodeHeader(*header, out.header)) return e;
  for (const Section& s : sections) {
    FileError e;
    switch (s.kind) {
      case kSectionAuditTrail:
        e = DecodeAuditTrail(s, out.audit);
        break;
      case kSectionStatusLog:
        e = DecodeDataMap(s, out.data.StatusLog());
        break;
      case kSectionTuneData:
        e = DecodeDataMap(s, out.ms.TuneData());
        break;
      case kSectionTrailerExtra:
        e = DecodeDataMap(s, out.ms.TrailerExtra());
        break;
      default:
        break;
    }
    if (e) return e;
  }
  return {};
}

FileError DecodeSampleList(Source& source, SampleListContents& out) {
  static constexpr std::uint32_t kKnown[] = {kSectionHeader, kSectionAuditTrail,
                                             kSectionSampleRows};
  std::vector<Section> sections;
  if (FileError e = ReadContainer(source, FileKind::kSampleList, kKnown, sections, out.extras))
    return e;
  const Section* header = Find(sections, kSectionHeader);
  if (!header) return MissingHeader();
  if (FileError e = DecodeHeader(*header, out.header)) return e;
  for (const Section& s : sections) {
    FileError e;
    if (s.kind == kSectionAuditTrail) e = DecodeAuditTrail(s, out.audit);
    if (s.kind == kSectionSampleRows) e = DecodeRows(s, out.rows);
    if (e) return e;
  }
  return {};
}

FileError EncodeRawFile(const CHeader& header, const CAuditTrail& audit, const CVirtualData& data,
                        const CVirtualMS& ms, const ContainerExtras& extras,
                        std::vector<std::uint8_t>& out) {
  std::vector<Section> sections;
  sections.push_back(EncodeHeader(header));
  sections.push_back(EncodeAuditTrail(audit));
  sections.push_back(EncodeDataMap(kSectionStatusLog, data.StatusLog()));
  sections.push_back(EncodeDataMap(kSectionTuneData, ms.TuneData()));
  sections.push_back(EncodeDataMap(kSectionTrailerExtra, ms.TrailerExtra()));
  return WriteContainer(FileKind::kRawFile, sections, extras, out);
}

FileError EncodeSampleList(const CHeader& header, const CAuditTrail& audit,
                           const std::vector<CSeqRow>& rows, const ContainerExtras& extras,
                           std::vector<std::uint8_t>& out) {
  std::vector<Section> sections;
  sections.push_back(EncodeHeader(header));
  sections.push_back(EncodeAuditTrail(audit));
  sections.push_back(EncodeRows(rows));
  return WriteContainer(FileKind::kSampleList, sections, extras, out);
}

}  // namespace vglobal::fileio
