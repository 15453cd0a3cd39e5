// The processing-method records: copies are deep, the element symbol field never holds
// more than it can, the mass limits keep their fixed pair.
#include <gtest/gtest.h>

#include "vglobal/fileio/post_processing.h"
#include "vglobal/fileio/proc_method.h"

namespace {

TEST(ProcMethodRecord, CopyCarriesEveryListAndRecordIndependently) {
  CProcMethod original;
  CReport report;
  report.Name(L"sample");
  original.AddReport(report);
  original.AddSummaryReport(CSummaryReport());
  original.AddProgram(CProgram());
  original.Constraints().NumIonConstraints(2);
  original.Constraints().GetIonConstraint(1).MZ(77);
  original.LibrarySearchOptions().AddSearchListItem(L"mainlib");
  original.SpecEnhanceOptions().Take(4.0);
  original.Options().VoidTimeValue(0.8);
  original.PeakDetection().SNThreshold(12.0);

  CProcMethod copy(original);
  CProcMethod assigned;
  assigned.AddReport(report);
  assigned.AddReport(report);
  assigned = original;
  for (const CProcMethod* m : {&copy, &assigned}) {
    ASSERT_EQ(m->NumReports(), 1);
    EXPECT_EQ(m->NumSummaryReports(), 1);
    EXPECT_EQ(m->NumPrograms(), 1);
    EXPECT_EQ(m->Constraints().GetIonConstraint(1).MZ(), 77);
    EXPECT_EQ(m->LibrarySearchOptions().SearchList().GetSize(), 1);
    EXPECT_EQ(m->SpecEnhanceOptions().Take(), 4.0);
    EXPECT_EQ(m->Options().VoidTimeValue(), 0.8);
    EXPECT_EQ(m->PeakDetection().SNThreshold(), 12.0);
  }

  // Rows are copies: changing the copy or the row added leaves the original alone.
  copy.GetReport(0).Name(L"changed");
  report.Name(L"changed too");
  EXPECT_EQ(original.GetReport(0).Name(), L"sample");
}

TEST(IndividualConstraintRecord, ElementSymbolHoldsAtMostTwoCharacters) {
  CIndividualConstraint e;
  EXPECT_EQ(e.Element(L"Na"), 1);
  EXPECT_EQ(e.Element(L"Nab"), 0);
  EXPECT_EQ(e.Element(), L"Na");
  // A text hiding characters behind a null character is refused too.
  EXPECT_EQ(e.Element(CString(L"K\0x", 3)), 0);
  EXPECT_EQ(e.Element(static_cast<const wchar_t*>(nullptr)), 1);
  EXPECT_EQ(e.Element(), L"");
}

TEST(PostProcessingMassLimits, DefaultPassesEveryMassAndCopiesKeepIt) {
  const CPostProcessingMassLimits copy{CPostProcessingMassLimits()};
  EXPECT_EQ(copy.GetMinMassLimit(), 0.5);
  EXPECT_EQ(copy.GetMaxMassLimit(), 999999.0);
}

}  // namespace
