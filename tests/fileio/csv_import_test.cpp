// Sample lists from CSV: RFC 4180 quoting, the header row's column names, values
// in the classic locale, and errors that give the line (and column) at fault and
// leave the list as it was.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data_file_test_support.h"
#include "fileio/csv_import.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/fileio/sequence.h"

namespace {

using vglobal::testing::DataFileTest;
namespace fio = vglobal::fileio;

std::vector<CSeqRow> Parse(const std::string& text) {
  std::vector<CSeqRow> rows;
  const fio::FileError error = fio::ParseSampleListCsv(text, rows);
  EXPECT_FALSE(error) << vglobal::WideToUtf8(error.message);
  return rows;
}

// The message of a CSV that must fail, with its code checked.
std::string Failure(const std::string& text, DWORD code = CBaseIO::kCorrupt) {
  std::vector<CSeqRow> rows;
  const fio::FileError error = fio::ParseSampleListCsv(text, rows);
  EXPECT_EQ(error.code, code) << text.substr(0, 80);
  return vglobal::WideToUtf8(error.message);
}

TEST(CsvImport, EveryColumnByItsNameInAnyCaseAndOrder) {
  const auto rows = Parse(
      "file name,SAMPLE ID,Sample_Name,sample-type,Data Folder,Vial,Inj Vol,Level,"
      "Dilution Factor,Instrument Method,ProcMeth,Comment\n"
      "a.raw,S1,Blank run,Blank,/d/,A1,2.5,L1,10,im,pm,first\n");
  ASSERT_EQ(rows.size(), 1u);
  const CSeqRow& r = rows[0];
  EXPECT_EQ(r.RawFileName(), CString(L"a.raw"));
  EXPECT_EQ(r.SampleID(), CString(L"S1"));
  EXPECT_EQ(r.SampleName(), CString(L"Blank run"));
  EXPECT_EQ(r.SampleType(), SAMPLE_TYPE_BLANK);
  EXPECT_EQ(r.Path(), CString(L"/d/"));
  EXPECT_EQ(r.Position(), CString(L"A1"));
  EXPECT_EQ(r.InjVol(), 2.5);
  EXPECT_EQ(r.Level(), CString(L"L1"));
  EXPECT_EQ(r.DilutionFactor(), 10.0);
  EXPECT_EQ(r.InstMeth(), CString(L"im"));
  EXPECT_EQ(r.ProcMeth(), CString(L"pm"));
  EXPECT_EQ(r.Comment(), CString(L"first"));
}

TEST(CsvImport, QuotedFieldsKeepSeparatorsQuotesAndLineBreaks) {
  const auto rows = Parse(
      "\xEF\xBB\xBF"
      "File Name,Comment,Sample Name\r\n"
      "\"a,b.raw\",\"said \"\"hi\"\"\",\"two\r\nlines\"\r\n"
      "c.raw,,\"\"\r\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].RawFileName(), CString(L"a,b.raw"));
  EXPECT_EQ(rows[0].Comment(), CString(L"said \"hi\""));
  EXPECT_EQ(rows[0].SampleName(), CString(L"two\r\nlines"));
  EXPECT_EQ(rows[1].Comment(), CString(L""));
  EXPECT_EQ(rows[1].DilutionFactor(), 1.0);  // absent values keep the row's defaults
}

TEST(CsvImport, SemicolonListsAndSampleTypesByCodeOrName) {
  const auto rows = Parse(
      "File Name;Sample Type;Inj Vol\n"
      "a.raw;7;1e1\n"
      "b.raw; std bracket START ;+0.5\n"
      "c.raw;;\n");
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].SampleType(), SAMPLE_TYPE_STD_BRACKET_END);
  EXPECT_EQ(rows[0].InjVol(), 10.0);
  EXPECT_EQ(rows[1].SampleType(), SAMPLE_TYPE_STD_BRACKET_START);
  EXPECT_EQ(rows[1].InjVol(), 0.5);
  EXPECT_EQ(rows[2].SampleType(), SAMPLE_TYPE_UNKNOWN);
}

TEST(CsvImport, BlankLinesAreSkippedButCountedInLineNumbers) {
  const auto rows = Parse("File Name,Inj Vol\n\na.raw,1\n,\n\nb.raw,2");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1].RawFileName(), CString(L"b.raw"));
  EXPECT_EQ(Failure("File Name,Inj Vol\n\na.raw,1\n\nb.raw,x\n").substr(0, 17),
            "line 5, column 2:");
}

TEST(CsvImport, ColumnsOfOtherSystemsArePassedOver) {
  const auto rows = Parse("Barcode,File Name,Rack\nX1,a.raw,R2\n");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].RawFileName(), CString(L"a.raw"));
}

TEST(CsvImport, HeaderRowProblemsAreReportedOnItsLine) {
  EXPECT_EQ(Failure("File Name,filename\n"), "line 1: column \"filename\" appears twice");
  EXPECT_EQ(Failure("Sample ID\nS1\n"), "line 1: the header row has no \"File Name\" column");
  EXPECT_EQ(Failure(""), "line 1: no header row");
}

TEST(CsvImport, ValueErrorsNameLineAndColumn) {
  EXPECT_EQ(Failure("File Name,Inj Vol\na.raw,1,5\n"),
            "line 2: 3 fields, but the header row names 2 columns");
  EXPECT_EQ(Failure("File Name;Inj Vol\na.raw;1,5\n"),
            "line 2, column 2: \"1,5\" is not a number (use a '.' as decimal mark)");
  EXPECT_NE(Failure("File Name,Inj Vol\na.raw,-1\n").find("line 2, column 2"), std::string::npos);
  EXPECT_NE(Failure("File Name,Dilution Factor\na.raw,0\n").find("dilution factor"),
            std::string::npos);
  EXPECT_NE(Failure("File Name,Inj Vol\na.raw,nan\n").find("not a number"), std::string::npos);
  EXPECT_NE(Failure("File Name,Sample Type\na.raw,9\n").find("not a sample type"),
            std::string::npos);
  EXPECT_EQ(Failure("File Name\na\xFF.raw\n"), "line 2, column 1: the text is not valid UTF-8");
  EXPECT_NE(Failure("File Name\n" + std::string(1025, 'x') + "\n").find("longer than 1024"),
            std::string::npos);
}

TEST(CsvImport, QuotingErrorsNameTheirLine) {
  EXPECT_EQ(Failure("File Name,Comment\na.raw,\"open\nstill open\n"),
            "line 2: the quoted field of column 2 is not closed before the end of the file");
  EXPECT_EQ(Failure("File Name,Comment\na.raw,\"x\"y\n"),
            "line 2: text after the closing quote of column 2");
  EXPECT_EQ(Failure("File Name,Comment\n\na.raw,x\"y\n"),
            "line 3: a quote inside the unquoted field of column 2 (quote the whole field)");
}

TEST(CsvImport, LongRecordsAndTooManyRowsAreRefused) {
  EXPECT_NE(Failure("File Name\n\"" + std::string(fio::kMaxCsvRecordBytes + 10, 'x') + "\"\n")
                .find("line 2: the record starting on line 2 is longer than"),
            std::string::npos);
  EXPECT_NE(Failure("File Name\n" + std::string(fio::kMaxCsvRecordBytes + 10, 'x') + "\n")
                .find("is longer than"),
            std::string::npos);
  EXPECT_NE(Failure("File Name\n" + std::string(fio::kMaxCsvRecordBytes + 10, ',') + "\n")
                .find("is longer than"),
            std::string::npos);
  std::string many = "File Name\n";
  for (int i = 0; i <= CSequence::kMaxRows; ++i) many += "a\n";
  EXPECT_EQ(Failure(many, CBaseIO::kTooLarge), "line 100002: more than 100000 rows");
}

class CsvImportFile : public DataFileTest {};

TEST_F(CsvImportFile, ImportReplacesRowsAndAFailureKeepsThem) {
  const std::wstring csv = Path("list.csv");
  WriteText(csv, "File Name,Sample ID\na.raw,1\nb.raw,2\n");
  CSequence list(Path("list.sld").c_str(), 0, 0);
  CSeqRow old;
  old.RawFileName(L"old.raw");
  list.AddRow(old);
  ASSERT_TRUE(list.ImportCsv(csv.c_str()));
  ASSERT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.SeqRow(1).SampleID(), CString(L"2"));

  WriteText(csv, "File Name,Sample ID\nc.raw,3\n\"d.raw,4\n");
  EXPECT_FALSE(list.ImportCsv(csv.c_str()));
  EXPECT_EQ(list.GetErrorCode(), CBaseIO::kCorrupt);
  const std::string message = list.GetErrorMessage().ToUtf8();
  EXPECT_NE(message.find("list.csv: line 3"), std::string::npos) << message;
  EXPECT_EQ(list.Rows(), 2);

  EXPECT_FALSE(list.ImportCsv(Path("none.csv").c_str()));
  EXPECT_EQ(list.GetErrorCode(), CBaseIO::kNotFound);

  ASSERT_TRUE(list.Save());
  CSequence reader(Path("list.sld").c_str(), 1, 1);
  EXPECT_EQ(reader.Rows(), 2);
  EXPECT_FALSE(reader.ImportCsv(csv.c_str()));
  EXPECT_EQ(reader.GetErrorCode(), CBaseIO::kAccessDenied);
  EXPECT_EQ(reader.Rows(), 2);
}

}  // namespace
