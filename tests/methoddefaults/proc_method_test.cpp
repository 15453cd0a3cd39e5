// The whole default method: every section read in one call, each even after another
// was incomplete, lists appended.
#include <gtest/gtest.h>

#include "vglobal/fileio/proc_method.h"
#include "vglobal/methoddefaults/peak_detection.h"
#include "vglobal/methoddefaults/qual.h"
#include "vglobal/methoddefaults/reports.h"
#include "vglobal/settings.h"

namespace {

// Saves a default method whose every section is complete: switches on, and what the
// writers leave out under a switch (the other search mode, the other enhancement
// methods, the options' "SpectrumOptions") stored by a second write or by hand.
void SaveCompleteDefaults() {
  CPeakDetection detection;
  detection.DetectorType(VIRTUAL_DEVICE_UV);
  detection.ValleyDetection(1);
  detection.ConstrainPeak(1);
  detection.LimitPeakEnabled(1);
  detection.RelPeakEnabled(1);
  detection.KivaMinPeakWidth(7);
  WritePeakDetectionInfo(&detection);
  WriteAdvChromatogramOptionsInfo(&detection);
  COptions options;
  options.VoidTime(0);
  WriteIdentificationOptions(&options);
  WriteAdvDetectOptionsInfo(nullptr, &options);
  CVRegKey(HKEY_CURRENT_USER, vglobal::kOptionsKey, 1, 1).WriteInt(L"SpectrumOptions", 2);

  CConstraints constraints;
  constraints.MolWtEnabled(1);
  constraints.MaxMolWt(450);
  constraints.DBEnabled(1);
  constraints.NameFragmentEnabled(1);
  constraints.ElementConstraintsEnabled(1);
  constraints.IonConstraintsEnabled(1);
  WriteConstraintsInfo(&constraints);
  CSpecEnhanceOptions enhancement;
  enhancement.SpecEnabled(1);
  for (int method : {0, 1, 2}) {
    enhancement.SpectrumMethod(method);
    WriteSpecEnhancementInfo(&enhancement);
  }
  CLibrarySearchOptions search;
  search.SearchMWEnabled(1);
  search.AppendUserLib(1);
  search.ApplyMassDefect(1);
  search.NumMaxHits(15.0);
  for (int type : {1, 0}) {
    search.SearchType(type);
    WriteLibrarySearchInfo(&search);
  }

  CProcMethod lists;
  lists.AddReport(CReport());
  lists.AddReport(CReport());
  lists.AddSummaryReport(CSummaryReport());
  lists.AddProgram(CProgram());
  WriteAllReportInfo(&lists);
  WriteAllSummaryReportInfo(&lists);
  WriteAllProgramInfo(&lists);
}

TEST(DefaultProcMethod, CompleteDefaultsFillEverythingAndListsAppendOnEachRead) {
  vglobal::UseMemorySettingsStores stores;
  SaveCompleteDefaults();

  CProcMethod method;
  EXPECT_EQ(ReadDefaultProcMethod(&method), 1);
  EXPECT_EQ(method.PeakDetection().KivaMinPeakWidth(), 7);
  EXPECT_EQ(method.Options().SpectrumOptions(), 2);
  EXPECT_EQ(method.Constraints().MaxMolWt(), 450);
  EXPECT_EQ(method.LibrarySearchOptions().NumMaxHits(), 15.0);
  EXPECT_EQ(method.NumReports(), 2);

  EXPECT_EQ(ReadDefaultProcMethod(&method), 1);
  EXPECT_EQ(method.NumReports(), 4);
  EXPECT_EQ(method.NumSummaryReports(), 2);
  EXPECT_EQ(method.NumPrograms(), 2);
}

TEST(DefaultProcMethod, OneIncompleteSectionFailsTheResultButNotTheOthers) {
  vglobal::UseMemorySettingsStores stores;
  SaveCompleteDefaults();
  CVRegKey(HKEY_CURRENT_USER, vglobal::kQualIdentificationKey, 1, 1).DeleteValue(L"TraceDelay");

  CProcMethod method;
  EXPECT_EQ(ReadDefaultProcMethod(&method), 0);
  // The peak detection is read first; everything after it is still filled.
  EXPECT_EQ(method.PeakDetection().KivaMinPeakWidth(), 7);
  EXPECT_EQ(method.Constraints().MaxMolWt(), 450);
  EXPECT_EQ(method.Options().SpectrumOptions(), 2);
  EXPECT_EQ(method.NumReports(), 2);
  EXPECT_EQ(method.NumSummaryReports(), 1);
  EXPECT_EQ(method.NumPrograms(), 1);
}

}  // namespace
