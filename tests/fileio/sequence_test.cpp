// Sample lists: rows, header and audit trail survive a save and an open; the
// read-only (alternative) mode refuses every change; damage is reported without a
// crash; rows written by a later version with more fields still read.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data_file_test_support.h"
#include "fileio/byte_codec.h"
#include "fileio/container.h"
#include "vglobal/fileio/sequence.h"

namespace {

using vglobal::testing::DataFileTest;
namespace fio = vglobal::fileio;

CSeqRow Row(int n) {
  CSeqRow row;
  row.SampleID((L"ID-" + std::to_wstring(n)).c_str());
  row.SampleName(L"Plasma, \"spiked\"");
  row.SampleType(n % 9);
  row.Path(L"/data/2024/");
  row.RawFileName((L"run" + std::to_wstring(n) + L".raw").c_str());
  row.Position(L"A" + CString(std::to_wstring(n).c_str()));
  row.InjVol(2.5 * n);
  row.Level(L"L2");
  row.DilutionFactor(10);
  row.InstMeth(L"gradient-15min");
  row.ProcMeth(L"quan-a");
  row.Comment(L"\u00b5L");
  return row;
}

class Sequence : public DataFileTest {
 protected:
  std::vector<std::uint8_t> SavedList(const std::wstring& path, int rows) {
    CSequence list(path.c_str(), 0, 0);
    for (int i = 0; i < rows; ++i) list.AddRow(Row(i));
    list.GetHeader().WriteDesc(L"Batch 7");
    CAuditData audit;
    audit.Comment(L"created");
    list.GetAuditTrail().AddAudit(audit);
    EXPECT_TRUE(list.Save());
    return ReadBytes(path);
  }
  static std::string Message(const CBaseIO& file) { return file.GetErrorMessage().ToUtf8(); }
};

TEST_F(Sequence, RowsHeaderAndAuditSurviveSaveAndOpen) {
  const std::wstring path = Path("batch.sld");
  SavedList(path, 5);
  CSequence list(path.c_str(), 0, 1);
  ASSERT_FALSE(list.IsError()) << Message(list);
  ASSERT_EQ(list.Rows(), 5);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(list.SeqRow(i), Row(i)) << i;
  EXPECT_EQ(list.GetHeader().ReadDesc(), CString(L"Batch 7"));
  ASSERT_EQ(list.GetAuditTrail().NumAudits(), 1);
  EXPECT_EQ(list.GetAuditTrail().GetAudit(0).Comment(), CString(L"created"));
  EXPECT_NE(list.GetAuditTrail().GetAudit(0).Time(), CTime());
}

TEST_F(Sequence, RowEditsKeepOrder) {
  CSequence list(Path("edit.sld").c_str(), 0, 0);
  for (int i = 0; i < 3; ++i) ASSERT_EQ(list.AddRow(Row(i)), i);
  EXPECT_TRUE(list.RemoveRow(0));
  EXPECT_TRUE(list.SetRow(1, Row(9)));
  EXPECT_FALSE(list.SetRow(2, Row(9)));
  EXPECT_FALSE(list.RemoveRow(-1));
  ASSERT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.SeqRow(0), Row(1));
  EXPECT_EQ(list.SeqRow(1), Row(9));
}

TEST_F(Sequence, RowsOutsideTheListAreEmptyAndDetached) {
  CSequence list(Path("edit.sld").c_str(), 0, 0);
  list.AddRow(Row(1));
  list.SeqRow(5).SampleName(L"changed");
  EXPECT_EQ(list.SeqRow(5), CSeqRow());
  EXPECT_EQ(list.SeqRow(-1).RawFileName(), CString(L""));
  EXPECT_EQ(list.Rows(), 1);
  EXPECT_EQ(list.SeqRow(0), Row(1));
}

TEST_F(Sequence, AlternativeModeReadsButRefusesEveryChange) {
  const std::wstring path = Path("batch.sld");
  const std::vector<std::uint8_t> bytes = SavedList(path, 2);
  CSequence list(path.c_str(), 1, 0);
  ASSERT_FALSE(list.IsError());
  EXPECT_TRUE(list.IsReadOnly());
  EXPECT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.AddRow(Row(3)), -1);
  EXPECT_FALSE(list.SetRow(0, Row(3)));
  EXPECT_FALSE(list.RemoveRow(0));
  EXPECT_FALSE(list.Save());
  EXPECT_EQ(list.GetErrorCode(), CBaseIO::kAccessDenied);
  EXPECT_EQ(ReadBytes(path), bytes);
}

TEST_F(Sequence, MissingListsAndBadArguments) {
  const std::wstring path = Path("new.sld");
  CSequence fresh(path.c_str(), 1, 0);
  EXPECT_FALSE(fresh.IsError());
  EXPECT_TRUE(fresh.CreatedFile());
  EXPECT_EQ(fresh.Rows(), 0);
  EXPECT_EQ(CSequence(path.c_str(), 0, 1).GetErrorCode(), CBaseIO::kNotFound);
  EXPECT_EQ(CSequence(path.c_str(), 2, 0).GetErrorCode(), CBaseIO::kBadArgument);
  EXPECT_EQ(CSequence(path.c_str(), 0, 6).GetErrorCode(), CBaseIO::kBadArgument);
  // An object that could not be opened never writes a file at its path.
  CSequence badAlternative(path.c_str(), 2, 0);
  EXPECT_FALSE(badAlternative.Save());
  EXPECT_TRUE(Listing().empty());
}

TEST_F(Sequence, TruncatedAndFlippedListsAreErrorsWithNoRows) {
  const std::wstring path = Path("batch.sld");
  const std::vector<std::uint8_t> good = SavedList(path, 3);
  const std::wstring damaged = Path("damaged.sld");
  for (std::size_t size = 0; size < good.size(); ++size) {
    WriteBytes(damaged, {good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size)});
    CSequence list(damaged.c_str(), 1, 1);
    ASSERT_EQ(list.GetErrorCode(), CBaseIO::kTruncated) << size << ": " << Message(list);
    EXPECT_EQ(list.Rows(), 0);
  }
  for (std::size_t at = 0; at < good.size(); ++at) {
    std::vector<std::uint8_t> bad = good;
    bad[at] ^= 0x01;
    WriteBytes(damaged, bad);
    CSequence list(damaged.c_str(), 0, 1);
    ASSERT_TRUE(list.IsError()) << at;
    EXPECT_EQ(list.Rows(), 0);
  }
  EXPECT_EQ(Listing(), (std::set<std::string>{"batch.sld", "damaged.sld"}));
}

// Builds a sample list whose rows section holds `rows` as given.
std::vector<std::uint8_t> ListWithRows(const std::vector<std::uint8_t>& good,
                                       std::vector<std::uint8_t> rows) {
  static constexpr std::uint32_t kAll[] = {1, 2, 16};
  fio::MemorySource source(good);
  std::vector<fio::Section> sections;
  fio::ContainerExtras extras;
  EXPECT_FALSE(ReadContainer(source, fio::FileKind::kSampleList, kAll, sections, extras));
  for (fio::Section& s : sections)
    if (s.kind == fio::kSectionSampleRows) s.bytes = std::move(rows);
  std::vector<std::uint8_t> out;
  EXPECT_FALSE(WriteContainer(fio::FileKind::kSampleList, sections, extras, out));
  return out;
}

TEST_F(Sequence, RowsOfALaterVersionWithMoreFieldsStillRead) {
  const std::vector<std::uint8_t> good = SavedList(Path("batch.sld"), 0);
  fio::ByteWriter w;
  w.U32(1);
  const std::size_t lengthAt = w.Size();
  w.U32(0);
  for (const wchar_t* text : {L"S1", L"Name"}) w.Text(text, 100);
  w.I32(SAMPLE_TYPE_QC);
  for (const wchar_t* text : {L"/d/", L"a.raw", L"B3"}) w.Text(text, 100);
  w.F64(1.5);
  w.Text(L"L1", 100);
  w.F64(2);
  for (const wchar_t* text : {L"im", L"pm", L"c"}) w.Text(text, 100);
  w.Text(L"a field of a later version", 100);
  w.U32(12345);
  w.PatchU32(lengthAt, static_cast<std::uint32_t>(w.Size() - lengthAt - 4));

  const std::wstring path = Path("later.sld");
  WriteBytes(path, ListWithRows(good, w.Data()));
  CSequence list(path.c_str(), 1, 1);
  ASSERT_FALSE(list.IsError()) << Message(list);
  ASSERT_EQ(list.Rows(), 1);
  EXPECT_EQ(list.SeqRow(0).SampleType(), SAMPLE_TYPE_QC);
  EXPECT_EQ(list.SeqRow(0).RawFileName(), CString(L"a.raw"));
  EXPECT_EQ(list.SeqRow(0).Comment(), CString(L"c"));
}

TEST_F(Sequence, ARowCountBeyondTheLimitIsRefused) {
  const std::vector<std::uint8_t> good = SavedList(Path("batch.sld"), 0);
  const std::wstring path = Path("huge.sld");
  WriteBytes(path, ListWithRows(good, {0xA1, 0x86, 0x01, 0x00}));  // 100001 rows
  CSequence list(path.c_str(), 0, 1);
  EXPECT_EQ(list.GetErrorCode(), CBaseIO::kTooLarge);
  EXPECT_NE(Message(list).find("exceeds the limit of 100000"), std::string::npos) << Message(list);

  // One row said to be 200 bytes long in a section of eight.
  WriteBytes(path, ListWithRows(good, {1, 0, 0, 0, 200, 0, 0, 0}));
  CSequence cut(path.c_str(), 0, 1);
  EXPECT_EQ(cut.GetErrorCode(), CBaseIO::kCorrupt);
  EXPECT_NE(Message(cut).find("section 'sample rows'"), std::string::npos) << Message(cut);
}

}  // namespace
