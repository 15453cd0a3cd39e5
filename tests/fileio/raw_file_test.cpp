// Raw files: every part survives a save and an open; every kind of damage is reported
// with its code and place, without a crash and without creating anything; a failed
// save leaves the previous file as it was. Also the record layout of the generic
// data headers that the instrument views rely on.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/resource.h>

#include <cstring>
#include <string>
#include <vector>

#include "data_file_test_support.h"
#include "fileio/container.h"
#include "fileio/data_file_codec.h"
#include "vglobal/fileio/raw_file.h"
#include "vglobal/fileio/sequence.h"
#include "vglobal/platform.h"

namespace {

using vglobal::testing::DataFileTest;
namespace fio = vglobal::fileio;

std::vector<std::uint8_t> Record(
    const CGenericDataHeader& header,
    std::initializer_list<std::pair<int, std::vector<std::uint8_t>>> values) {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(header.RecordSize()));
  for (const auto& [field, value] : values)
    std::memcpy(bytes.data() + header.ItemBufferOffset(field), value.data(), value.size());
  return bytes;
}

template <typename T>
std::vector<std::uint8_t> Bytes(T v) {
  std::vector<std::uint8_t> b(sizeof v);
  std::memcpy(b.data(), &v, sizeof v);
  return b;
}

// A raw file with something in every part.
void Fill(CRawfile& file) {
  file.GetHeader().WriteDesc(L"Calibration run, column B \u00e9");
  CAuditData audit;
  audit.Time(CTime::FromNanoseconds(1700000000123456789));
  audit.WhoAuditedId(L"Ana");
  audit.WhoAuditedLogon(L"ana");
  audit.Comment(L"Recalibrated\nafter the source was cleaned");
  audit.ChangeMask(0x100000005ull);
  file.GetAuditTrail().AddAudit(audit);
  audit.Comment(L"Second");
  file.GetAuditTrail().AddAudit(audit);

  CGenericDataHeader status;
  status.AddField(CGenericDataItem(GDT_FLOAT, L"Vacuum", 2, 1));
  status.AddField(CGenericDataItem(GDT_SHORT, L"Fan speed"));
  status.AddField(CGenericDataItem(GDT_CHAR_STRING, L"Mode", 6));
  status.AddField(CGenericDataItem(GDT_WCHAR_STRING, L"Operator", 4));
  status.AddField(CGenericDataItem(GDT_TRUEFALSE, L"Ready"));
  status.AddField(CGenericDataItem(41, L"Reserved", 3));
  CStatusLogFileMap& log = file.GetVirtualData().StatusLog();
  log.SetHeader(status);
  for (float t : {0.5f, 1.25f, 2.0f})
    log.AddEntry(t, Record(status, {{0, Bytes(t * 1e-5f)}, {1, Bytes<short>(-300)}}).data());

  CGenericDataHeader tune;
  tune.AddField(CGenericDataItem(GDT_LONG, L"Spray voltage"));
  tune.AddField(CGenericDataItem(GDT_DOUBLE, L"Capillary temp", 1));
  file.GetVirtualMS().TuneData().SetHeader(tune);
  file.GetVirtualMS().TuneData().AddRecord(Record(tune, {{0, Bytes<int>(4500)}}).data());

  CGenericDataHeader trailer;
  trailer.AddField(CGenericDataItem(GDT_ULONG, L"Scan event"));
  trailer.AddField(CGenericDataItem(GDT_YESNO, L"Lock found"));
  file.GetVirtualMS().TrailerExtra().SetHeader(trailer);
  for (unsigned i = 1; i <= 3; ++i)
    file.GetVirtualMS().TrailerExtra().AddRecord(Record(trailer, {{0, Bytes(i)}}).data());
}

class RawFile : public DataFileTest {
 protected:
  // A saved, filled raw file and its bytes.
  std::vector<std::uint8_t> SavedFile(const std::wstring& path) {
    CRawfile file(path.c_str(), 0);
    Fill(file);
    EXPECT_TRUE(file.Save()) << CString(file.GetErrorMessage()).ToUtf8();
    return ReadBytes(path);
  }

  // Opens bytes written to a file and returns the object, checking that the open
  // created nothing beside it.
  std::unique_ptr<CRawfile> OpenBytes(const std::vector<std::uint8_t>& bytes) {
    const std::wstring path = Path("damaged.raw");
    WriteBytes(path, bytes);
    const auto before = Listing();
    auto file = std::make_unique<CRawfile>(path.c_str(), 1);
    EXPECT_EQ(Listing(), before);
    return file;
  }

  static std::string Message(const CBaseIO& file) { return file.GetErrorMessage().ToUtf8(); }
};

// The sections of a valid file, to be rearranged into damaged ones.
std::vector<fio::Section> SectionsOf(const std::vector<std::uint8_t>& bytes) {
  static constexpr std::uint32_t kAll[] = {1, 2, 3, 4, 5};
  fio::MemorySource source(bytes);
  std::vector<fio::Section> sections;
  fio::ContainerExtras extras;
  EXPECT_FALSE(ReadContainer(source, fio::FileKind::kRawFile, kAll, sections, extras));
  return sections;
}

std::vector<std::uint8_t> WithSection(const std::vector<std::uint8_t>& bytes, std::uint32_t kind,
                                      std::vector<std::uint8_t> payload) {
  std::vector<fio::Section> sections = SectionsOf(bytes);
  for (fio::Section& s : sections)
    if (s.kind == kind) s.bytes = std::move(payload);
  std::vector<std::uint8_t> out;
  EXPECT_FALSE(WriteContainer(fio::FileKind::kRawFile, sections, {}, out));
  return out;
}

// The bytes of an empty raw file that carries `extras` beside its own sections.
std::vector<std::uint8_t> EmptyWith(const fio::ContainerExtras& extras) {
  fio::RawFileContents empty;
  std::vector<std::uint8_t> out;
  EXPECT_FALSE(fio::EncodeRawFile(empty.header, empty.audit, empty.data, empty.ms, extras, out));
  return out;
}

// ---- Round trips ----

TEST_F(RawFile, EveryPartSurvivesSaveAndOpen) {
  const std::wstring path = Path("run.raw");
  CRawfile written(path.c_str(), 0);
  Fill(written);
  ASSERT_TRUE(written.Save());

  CRawfile read(path.c_str(), 1);
  ASSERT_FALSE(read.IsError()) << Message(read);
  EXPECT_FALSE(read.CreatedFile());
  EXPECT_EQ(read.GetHeader(), written.GetHeader());
  EXPECT_EQ(read.GetAuditTrail(), written.GetAuditTrail());
  EXPECT_EQ(read.GetVirtualData(), written.GetVirtualData());
  EXPECT_EQ(read.GetVirtualMS(), written.GetVirtualMS());
  EXPECT_EQ(read.GetAuditTrail().GetAudit(0).ChangeMask(), 0x100000005ull);
  EXPECT_EQ(read.GetVirtualData().StatusLog().EntryTime(1), 1.25f);
}

TEST_F(RawFile, AuditTextsAtTheLimitsAreKeptWholeAndLongerOnesRefused) {
  const std::wstring path = Path("audited.raw");
  CRawfile written(path.c_str(), 0);
  CAuditData full;
  full.WhoAuditedId(std::wstring(CAuditData::kMaxNameLength, L'\u00e9').c_str());
  full.WhoAuditedLogon(std::wstring(CAuditData::kMaxNameLength, L'l').c_str());
  full.Comment(std::wstring(CAuditData::kMaxCommentLength, L'\U0001F600').c_str());
  ASSERT_EQ(written.GetAuditTrail().AddAudit(full), 0);
  const CAuditTrail before = written.GetAuditTrail();

  CAuditData longId = full, longLogon = full, longComment = full;
  longId.WhoAuditedId(full.WhoAuditedId() + L"x");
  longLogon.WhoAuditedLogon(full.WhoAuditedLogon() + L"x");
  longComment.Comment(full.Comment() + L"x");
  for (const CAuditData& refused : {longId, longLogon, longComment}) {
    EXPECT_EQ(written.GetAuditTrail().AddAudit(refused), -1);
    EXPECT_EQ(written.GetAuditTrail(), before);
  }

  ASSERT_TRUE(written.Save()) << Message(written);
  CRawfile read(path.c_str(), 1);
  ASSERT_FALSE(read.IsError()) << Message(read);
  EXPECT_EQ(read.GetAuditTrail(), before);
}

TEST(AuditTrail, AddAuditPastTheMostRecordsIsRefused) {
  CAuditTrail trail;
  CAuditData audit;
  audit.Time(CTime::FromNanoseconds(1));
  for (int i = 0; i < CAuditTrail::kMaxAudits; ++i) ASSERT_EQ(trail.AddAudit(audit), i);
  audit.Comment(L"one too many");
  EXPECT_EQ(trail.AddAudit(audit), -1);
  EXPECT_EQ(trail.NumAudits(), CAuditTrail::kMaxAudits);
  EXPECT_EQ(trail.GetAudit(CAuditTrail::kMaxAudits - 1).Comment(), L"");
}

TEST_F(RawFile, SavesStampCreationThenModificationsAndCount) {
  const std::wstring path = Path("run.raw");
  const CString logon = vglobal::GetPlatform().LogonName();
  {
    CRawfile file(path.c_str(), 0);
    ASSERT_TRUE(file.Save());
  }
  CRawfile file(path.c_str(), 0);
  const CHeader first = file.GetHeader();
  EXPECT_EQ(first.FileType(), CHeader::kSuiteFileType);
  EXPECT_EQ(first.NumTimesSaved(), 0);
  EXPECT_NE(first.CreationDate(), CTime());
  EXPECT_EQ(first.WhoCreatedLogon(), logon);
  ASSERT_TRUE(file.Save());
  ASSERT_TRUE(file.Save());
  CRawfile again(path.c_str(), 1);
  EXPECT_EQ(again.GetHeader().NumTimesSaved(), 2);
  EXPECT_EQ(again.GetHeader().CreationDate(), first.CreationDate());
  EXPECT_GE(again.GetHeader().ModificationDate().GetNanoseconds(),
            first.CreationDate().GetNanoseconds());
  EXPECT_EQ(again.GetHeader().WhoChangedLogon(), logon);
}

TEST_F(RawFile, SectionsOfLaterVersionsAreKeptOnSave) {
  const std::wstring path = Path("later.raw");
  fio::ContainerExtras extras;
  extras.unknown.push_back({77, 0, 0, {'s', 'p', 'e', 'c'}});
  WriteBytes(path, EmptyWith(extras));
  CRawfile file(path.c_str(), 1);
  ASSERT_FALSE(file.IsError()) << Message(file);
  ASSERT_TRUE(file.Save());

  const std::vector<std::uint8_t> saved = ReadBytes(path);
  fio::MemorySource bytes(saved);
  fio::RawFileContents contents;
  ASSERT_FALSE(fio::DecodeRawFile(bytes, contents));
  ASSERT_EQ(contents.extras.unknown.size(), 1u);
  EXPECT_EQ(contents.extras.unknown[0].kind, 77u);
  EXPECT_EQ(contents.extras.unknown[0].bytes, (std::vector<std::uint8_t>{'s', 'p', 'e', 'c'}));
}

// ---- Opening: modes and missing files ----

TEST_F(RawFile, MissingFileIsNewInMemoryOnlyOrNotFound) {
  const std::wstring path = Path("new.raw");
  CRawfile created(path.c_str(), 0);
  EXPECT_FALSE(created.IsError());
  EXPECT_TRUE(created.CreatedFile());
  EXPECT_EQ(created.GetPathName(), CString(path.c_str()));
  EXPECT_TRUE(Listing().empty());

  CRawfile existing(path.c_str(), 1);
  EXPECT_TRUE(existing.IsError());
  EXPECT_EQ(existing.GetErrorCode(), CBaseIO::kNotFound);
  EXPECT_NE(Message(existing).find("new.raw"), std::string::npos);
  EXPECT_TRUE(Listing().empty());
}

TEST_F(RawFile, BadModesPathsAndFoldersAreErrors) {
  for (int mode : {-1, 2, 3, 6}) {
    CRawfile file(Path("x.raw").c_str(), mode);
    EXPECT_EQ(file.GetErrorCode(), CBaseIO::kBadArgument) << mode;
    EXPECT_NE(Message(file).find("open mode"), std::string::npos);
  }
  EXPECT_EQ(CRawfile(nullptr, 0).GetErrorCode(), CBaseIO::kBadArgument);
  EXPECT_EQ(CRawfile(L"", 0).GetErrorCode(), CBaseIO::kBadArgument);
  CRawfile folder(dir_.wstring().c_str(), 0);
  EXPECT_EQ(folder.GetErrorCode(), CBaseIO::kNotOurFormat);
  EXPECT_TRUE(Listing().empty());
}

// ---- Damage ----

TEST_F(RawFile, TruncationAtEveryOffsetIsReported) {
  const std::vector<std::uint8_t> good = SavedFile(Path("good.raw"));
  ASSERT_GT(good.size(), 300u);
  for (std::size_t size = 0; size < good.size(); ++size) {
    auto file = OpenBytes({good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size)});
    ASSERT_TRUE(file->IsError()) << size;
    EXPECT_EQ(file->GetErrorCode(), CBaseIO::kTruncated) << size << ": " << Message(*file);
    EXPECT_NE(Message(*file).find("offset"), std::string::npos) << Message(*file);
    EXPECT_EQ(file->GetVirtualMS().TrailerExtra().NumRecords(), 0);
  }
}

TEST_F(RawFile, EveryFlippedByteIsDetected) {
  const std::vector<std::uint8_t> good = SavedFile(Path("good.raw"));
  for (std::size_t at = 0; at < good.size(); ++at) {
    std::vector<std::uint8_t> bad = good;
    bad[at] ^= 0x5A;
    auto file = OpenBytes(bad);
    EXPECT_TRUE(file->IsError()) << at;
  }
}

TEST_F(RawFile, ChecksumMismatchNamesTheSection) {
  std::vector<std::uint8_t> bytes = SavedFile(Path("good.raw"));
  bytes[bytes.size() - 1] ^= 1;  // inside the last section, the trailer extra data
  auto file = OpenBytes(bytes);
  EXPECT_EQ(file->GetErrorCode(), CBaseIO::kCorrupt);
  EXPECT_NE(Message(*file).find("checksum mismatch in section 'trailer extra'"), std::string::npos)
      << Message(*file);
}

TEST_F(RawFile, ForeignNewerAndOtherKindsAreToldApart) {
  const std::vector<std::uint8_t> good = SavedFile(Path("good.raw"));

  auto text = OpenBytes({'S', 'a', 'm', 'p', 'l', 'e', ',', 'F', 'i', 'l', 'e', '\n'});
  EXPECT_EQ(text->GetErrorCode(), CBaseIO::kNotOurFormat);

  std::vector<std::uint8_t> newer = good;
  newer[8] = 2;  // major version
  auto newerFile = OpenBytes(newer);
  EXPECT_EQ(newerFile->GetErrorCode(), CBaseIO::kNewerVersion);
  EXPECT_NE(Message(*newerFile).find("format version 2.0"), std::string::npos);

  const std::wstring list = Path("list.sld");
  ASSERT_TRUE(CSequence(list.c_str(), 0, 0).Save());
  auto sequence = OpenBytes(ReadBytes(list));
  EXPECT_EQ(sequence->GetErrorCode(), CBaseIO::kNotOurFormat);
  EXPECT_NE(Message(*sequence).find("is a sample list, not a raw file"), std::string::npos);

  fio::ContainerExtras required;
  required.unknown.push_back({90, fio::kSectionRequired, 0, {1, 2, 3}});
  auto needsNewer = OpenBytes(EmptyWith(required));
  EXPECT_EQ(needsNewer->GetErrorCode(), CBaseIO::kNewerVersion);

  // Sections of later versions are kept only as far as the file can be written back
  // with every section of this version beside them.
  fio::ContainerExtras many;
  for (std::uint32_t kind = 100; kind < 160; ++kind) many.unknown.push_back({kind, 0, 0, {}});
  std::vector<std::uint8_t> crowded;
  ASSERT_FALSE(WriteContainer(fio::FileKind::kRawFile, {SectionsOf(good)[0]}, many, crowded));
  EXPECT_EQ(OpenBytes(crowded)->GetErrorCode(), CBaseIO::kTooLarge);

  std::vector<std::uint8_t> trailing = good;
  trailing.push_back(0);
  EXPECT_EQ(OpenBytes(trailing)->GetErrorCode(), CBaseIO::kCorrupt);
}

TEST_F(RawFile, HugeCountsAndLengthsAreRefusedBeforeAllocating) {
  const std::vector<std::uint8_t> good = SavedFile(Path("good.raw"));
  const std::vector<std::uint8_t> all = {0xFF, 0xFF, 0xFF, 0xFF};

  auto audits = OpenBytes(WithSection(good, fio::kSectionAuditTrail, all));
  EXPECT_EQ(audits->GetErrorCode(), CBaseIO::kTooLarge);
  EXPECT_NE(Message(*audits).find("section 'audit trail'"), std::string::npos);

  // Within the cap, but more records than the section has bytes for.
  auto short_ = OpenBytes(WithSection(good, fio::kSectionAuditTrail, {0x10, 0x27, 0, 0}));
  EXPECT_EQ(short_->GetErrorCode(), CBaseIO::kCorrupt);

  auto fields = OpenBytes(WithSection(good, fio::kSectionStatusLog, all));
  EXPECT_EQ(fields->GetErrorCode(), CBaseIO::kTooLarge);

  // No fields, no bytes per record, and four thousand million records.
  auto records = OpenBytes(
      WithSection(good, fio::kSectionTuneData, {0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(records->GetErrorCode(), CBaseIO::kTooLarge);

  // The creator's name, after 20 bytes of fixed fields, said to run to 2 GB.
  const std::vector<std::uint8_t> header = SectionsOf(good)[0].bytes;
  std::vector<std::uint8_t> hugeText(header.begin(), header.begin() + 20);
  hugeText.insert(hugeText.end(), {0xFF, 0xFF, 0xFF, 0x7F});
  auto text = OpenBytes(WithSection(good, fio::kSectionHeader, hugeText));
  EXPECT_EQ(text->GetErrorCode(), CBaseIO::kCorrupt);
  EXPECT_NE(Message(*text).find("exceeds the limit"), std::string::npos) << Message(*text);

  auto stride =
      OpenBytes(WithSection(good, fio::kSectionTrailerExtra, {0, 0, 0, 0, 9, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(stride->GetErrorCode(), CBaseIO::kCorrupt);
  EXPECT_NE(Message(*stride).find("record size 9"), std::string::npos);
}

// ---- Saving ----

TEST_F(RawFile, FailedSaveLeavesTheOldFileAsItWas) {
  const std::wstring path = Path("run.raw");
  const std::vector<std::uint8_t> old = SavedFile(path);
  CRawfile file(path.c_str(), 1);
  const CHeader header = file.GetHeader();
  file.GetHeader().WriteDesc(std::wstring(2000, L'x').c_str());

  // A file-size limit below the new file's size makes the write fail even for root.
  struct rlimit saved {};
  getrlimit(RLIMIT_FSIZE, &saved);
  struct rlimit small = saved;
  small.rlim_cur = old.size() + 100;
  auto* previous = signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const BOOL saved_ = file.Save();
  setrlimit(RLIMIT_FSIZE, &saved);
  signal(SIGXFSZ, previous);

  EXPECT_FALSE(saved_);
  EXPECT_EQ(file.GetErrorCode(), CBaseIO::kWriteFailed);
  EXPECT_NE(Message(file).find("run.raw"), std::string::npos);
  EXPECT_EQ(ReadBytes(path), old);
  EXPECT_EQ(Listing(), std::set<std::string>{"run.raw"});
  EXPECT_EQ(file.GetHeader().NumTimesSaved(), header.NumTimesSaved());

  ASSERT_TRUE(file.Save());
  EXPECT_FALSE(file.IsError());
}

TEST_F(RawFile, SaveIntoAMissingFolderFailsAndCreatesNothing) {
  CRawfile missing(Path("no-such-folder/run.raw").c_str(), 0);
  ASSERT_FALSE(missing.IsError());
  EXPECT_FALSE(missing.Save());
  EXPECT_EQ(missing.GetErrorCode(), CBaseIO::kWriteFailed);
  EXPECT_NE(Message(missing).find("no-such-folder"), std::string::npos);

  WriteText(Path("plain"), "not a folder");
  CRawfile underFile(Path("plain/run.raw").c_str(), 0);
  EXPECT_TRUE(underFile.CreatedFile());
  EXPECT_FALSE(underFile.Save());
  EXPECT_EQ(Listing(), std::set<std::string>{"plain"});
}

TEST_F(RawFile, AFileThatCouldNotBeReadIsNotOverwritten) {
  const std::wstring path = Path("run.raw");
  std::vector<std::uint8_t> bytes = SavedFile(path);
  bytes.back() ^= 1;
  WriteBytes(path, bytes);
  CRawfile file(path.c_str(), 0);
  ASSERT_TRUE(file.IsError());
  EXPECT_FALSE(file.Save());
  EXPECT_EQ(file.GetErrorCode(), CBaseIO::kAccessDenied);
  EXPECT_EQ(ReadBytes(path), bytes);
}

// ---- Generic data records ----

TEST(GenericData, FieldsFollowOneAnotherByTheirSizes) {
  CGenericDataHeader h;
  h.AddField(CGenericDataItem(GDT_CHAR, L"a"));
  h.AddField(CGenericDataItem(GDT_DOUBLE, L"b", 3));
  h.AddField(CGenericDataItem(GDT_WCHAR_STRING, L"c", 5));
  h.AddField(CGenericDataItem(GDT_EMPTY, L"d"));
  h.AddField(CGenericDataItem(GDT_USHORT, L"e"));
  EXPECT_EQ(h.ItemBufferOffset(0), 0);
  EXPECT_EQ(h.ItemBufferOffset(1), 1);
  EXPECT_EQ(h.ItemBufferOffset(2), 9);
  EXPECT_EQ(h.ItemBufferOffset(3), 19);
  EXPECT_EQ(h.ItemBufferOffset(4), 19);
  EXPECT_EQ(h.RecordSize(), 21);
  EXPECT_EQ(h.ItemBufferOffset(6), -1);
  EXPECT_EQ(h[2].ItemSizeInBytes(), 10);
  EXPECT_EQ(h[1].StringLengthOrPrecision(), 3u);
  EXPECT_EQ(h[9].DataType(), GDT_EMPTY);
  EXPECT_EQ(h[-1].ItemSizeInBytes(), 0);
  h.RemoveAll();
  h.AddField(CGenericDataItem(GDT_LONG, L"f"));
  EXPECT_EQ(h.RecordSize(), 4);
}

TEST(GenericData, HeadersRefuseMoreFieldsOrBytesThanTheCaps) {
  CGenericDataHeader h;
  for (int i = 0; i < 8; ++i)  // 8192 bytes each
    ASSERT_TRUE(h.AddField(CGenericDataItem(GDT_WCHAR_STRING, L"t", CGenericDataItem::kMaxLength)));
  EXPECT_EQ(h.RecordSize(), CGenericDataHeader::kMaxRecordSize);
  EXPECT_FALSE(h.AddField(CGenericDataItem(GDT_CHAR, L"one more")));
  CGenericDataHeader many;
  for (int i = 0; i < CGenericDataHeader::kMaxFields; ++i)
    ASSERT_TRUE(many.AddField(CGenericDataItem(GDT_EMPTY, L"")));
  EXPECT_FALSE(many.AddField(CGenericDataItem(GDT_EMPTY, L"")));
}

TEST(GenericData, AMapWhoseHeaderChangedHandsOutNoRecords) {
  CTuneDataFileMap map;
  CGenericDataHeader h;
  h.AddField(CGenericDataItem(GDT_LONG, L"v"));
  map.SetHeader(h);
  const int value = 7;
  ASSERT_EQ(map.AddRecord(&value), 0);
  ASSERT_NE(map[0], nullptr);
  EXPECT_EQ(map[1], nullptr);
  EXPECT_EQ(map[-1], nullptr);
  map.Header().AddField(CGenericDataItem(GDT_DOUBLE, L"w"));
  EXPECT_EQ(map[0], nullptr);
  EXPECT_EQ(map.AddRecord(nullptr), -1);
  map.RemoveAll();
  EXPECT_EQ(map.RecordSize(), 12);
  EXPECT_EQ(map.AddRecord(nullptr), 0);
}

TEST(GenericData, StatusLogFindsTheNearestEntryTheEarlierOnATie) {
  CVirtualData data;
  void* record = reinterpret_cast<void*>(1);
  EXPECT_EQ(data.GetStatusLogAtTime(1.0, &record), 0);
  EXPECT_EQ(record, nullptr);

  CGenericDataHeader h;
  h.AddField(CGenericDataItem(GDT_SHORT, L"Fan"));
  data.StatusLog().SetHeader(h);
  for (float t : {1.0f, 2.0f, 4.0f}) data.StatusLog().AddEntry(t, nullptr);
  EXPECT_EQ(data.NumStatusLogEntries(), 3);
  EXPECT_EQ(data.StatusLog().NearestEntry(2.9), 1);
  EXPECT_EQ(data.StatusLog().NearestEntry(3.0), 1);
  EXPECT_EQ(data.StatusLog().NearestEntry(3.1), 2);
  EXPECT_EQ(data.StatusLog().NearestEntry(-5), 0);
  ASSERT_EQ(data.GetStatusLogAtTime(100, &record), 1);
  float logged = 0;
  std::memcpy(&logged, record, 4);
  EXPECT_EQ(logged, 4.0f);
}

}  // namespace
