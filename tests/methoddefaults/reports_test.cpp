// The report, summary-report and program sections: the row layout, whole-section
// rewrites, and how section readers treat incomplete rows and bad counts.
#include <gtest/gtest.h>

#include <climits>

#include "stored_layout.h"
#include "vglobal/fileio/proc_method.h"
#include "vglobal/methoddefaults/reports.h"
#include "vglobal/settings.h"

namespace {

using stored_layout::ExpectReadsBackWhatWasWritten;
using stored_layout::Subkeys;
using stored_layout::Values;

const std::wstring kReports = L"Processing Setup\\Defaults\\Reports";
const std::wstring kSummaryReports = L"Processing Setup\\Defaults\\Summary Reports";
const std::wstring kPrograms = L"Processing Setup\\Defaults\\Programs";

void PutInt(const std::wstring& path, const wchar_t* name, int value) {
  CVRegKey(HKEY_CURRENT_USER, path.c_str(), 1, 1).WriteInt(name, value);
}

// A method whose rows differ from fresh rows and from each other.
CProcMethod Method(int reports, int summaries, int programs) {
  CProcMethod m;
  for (int i = 0; i < reports; ++i) {
    CReport r;
    r.Enabled(0);
    r.QCs(0);
    r.Other(0);
    r.SaveAsType(i);
    r.Name(CString(L"report ") + CString(static_cast<wchar_t>(L'A' + i)));
    m.AddReport(r);
  }
  for (int i = 0; i < summaries; ++i) {
    CSummaryReport s;
    s.Enabled(0);
    s.SaveAsType(i);
    s.Name(L"summary");
    m.AddSummaryReport(s);
  }
  for (int i = 0; i < programs; ++i) {
    CProgram p;
    p.Stds(0);
    p.Unknowns(0);
    p.Sync(1);
    p.Action(i);
    p.ProgramName(L"/opt/lab/export");
    p.Parameters(L"--quiet");
    m.AddProgram(p);
  }
  return m;
}

TEST(ReportSections, RowsAreStoredInTheirLayoutAndReadBack) {
  const CProcMethod saved = Method(2, 2, 2);
  ExpectReadsBackWhatWasWritten(saved, WriteAllReportInfo, ReadAllReportDefaultInfo, kReports);
  ExpectReadsBackWhatWasWritten(saved, WriteAllSummaryReportInfo, ReadAllSummaryReportDefaultInfo,
                                kSummaryReports);
  ExpectReadsBackWhatWasWritten(saved, WriteAllProgramInfo, ReadAllProgramDefaultInfo, kPrograms);

  vglobal::UseMemorySettingsStores stores;
  CProcMethod m = saved;
  WriteAllReportInfo(&m);
  WriteAllSummaryReportInfo(&m);
  WriteAllProgramInfo(&m);
  EXPECT_EQ(Values(kReports), "NumReports:int");
  EXPECT_EQ(Subkeys(kReports), "Row 0, Row 1");
  EXPECT_EQ(Values(kReports + L"\\Row 1"),
            "Enabled:int Stds:int QCs:int Unknowns:int Other:int SaveAsType:int Name:string");
  // The summary reports share the sample reports' count name.
  EXPECT_EQ(Values(kSummaryReports), "NumReports:int");
  EXPECT_EQ(Values(kSummaryReports + L"\\Row 0"), "Enabled:int SaveAsType:int Name:string");
  EXPECT_EQ(Values(kPrograms), "NumPrograms:int");
  EXPECT_EQ(Values(kPrograms + L"\\Row 0"),
            "Enabled:int Stds:int QCs:int Unknowns:int Other:int Action:int "
            "ProgramName:string Sync:int Parameters:string");
}

TEST(ReportSections, RewritingAShorterListDropsStaleRows) {
  vglobal::UseMemorySettingsStores stores;
  CProcMethod five = Method(5, 5, 5);
  WriteAllReportInfo(&five);
  WriteAllSummaryReportInfo(&five);
  WriteAllProgramInfo(&five);
  CProcMethod fewer = Method(3, 0, 1);
  WriteAllReportInfo(&fewer);
  WriteAllSummaryReportInfo(&fewer);
  WriteAllProgramInfo(&fewer);

  EXPECT_EQ(Subkeys(kReports), "Row 0, Row 1, Row 2");
  EXPECT_EQ(Subkeys(kSummaryReports), "");
  EXPECT_EQ(Subkeys(kPrograms), "Row 0");
  CProcMethod read;
  ReadAllReportDefaultInfo(&read);
  EXPECT_EQ(read.NumReports(), 3);
}

TEST(ReportSections, IncompleteRowIsSkippedAndLaterRowsStillRead) {
  vglobal::UseMemorySettingsStores stores;
  CProcMethod saved = Method(0, 0, 3);
  WriteAllProgramInfo(&saved);
  CVRegKey(HKEY_CURRENT_USER, (kPrograms + L"\\Row 1").c_str(), 1, 1).DeleteValue(L"Sync");

  CProcMethod read;
  EXPECT_EQ(ReadAllProgramDefaultInfo(&read), 0);
  ASSERT_EQ(read.NumPrograms(), 2);
  EXPECT_EQ(read.GetProgram(0).Action(), 0);
  EXPECT_EQ(read.GetProgram(1).Action(), 2);

  // The row reader itself still applies what the row holds.
  CProgram row;
  EXPECT_EQ(ReadProgramDefaultInfo(&row, 1), 0);
  EXPECT_EQ(row.Action(), 1);
}

TEST(ReportSections, CountsDecideWhatIsAppended) {
  vglobal::UseMemorySettingsStores stores;
  CProcMethod read = Method(1, 1, 1);

  // No section at all: incomplete, nothing added.
  EXPECT_EQ(ReadAllReportDefaultInfo(&read), 0);
  EXPECT_EQ(ReadAllSummaryReportDefaultInfo(&read), 0);
  EXPECT_EQ(ReadAllProgramDefaultInfo(&read), 0);

  // Zero or negative: complete, nothing added.
  PutInt(kReports, L"NumReports", 0);
  PutInt(kSummaryReports, L"NumReports", -3);
  PutInt(kPrograms, L"NumPrograms", INT_MIN);
  EXPECT_EQ(ReadAllReportDefaultInfo(&read), 1);
  EXPECT_EQ(ReadAllSummaryReportDefaultInfo(&read), 1);
  EXPECT_EQ(ReadAllProgramDefaultInfo(&read), 1);

  // A count no real list reaches is damage, refused before any row is looked for.
  PutInt(kReports, L"NumReports", INT_MAX);
  EXPECT_EQ(ReadAllReportDefaultInfo(&read), 0);

  EXPECT_EQ(read.NumReports(), 1);
  EXPECT_EQ(read.NumSummaryReports(), 1);
  EXPECT_EQ(read.NumPrograms(), 1);
}

}  // namespace
