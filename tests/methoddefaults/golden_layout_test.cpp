// The stored layout of a whole default method and component, compared with a golden
// file: every key path, value name, type, value and order that the writers produce.
// A wrong name, type, condition or order anywhere shows as a difference.
//
// After a deliberate change of the layout, regenerate the file with
//   VGLOBAL_UPDATE_GOLDEN=1 ctest -R GoldenLayout
// and review the difference line by line before committing it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "populate.h"
#include "support/store_dump.h"
#include "vglobal/vglobal.h"

namespace {

using vglobal::testing::Populate;
using vglobal::testing::Seed;

CComponentIO FullComponent(Seed& seed) {
  CComponentIO c;
  Populate(static_cast<vglobal::ComponentIdentification&>(c), seed);
  Populate(static_cast<vglobal::ComponentCalibration&>(c), seed);
  Populate(static_cast<vglobal::ComponentFlags&>(c), seed);
  // Choices that open the most conditional groups: the mass spectrometer (its filter),
  // a target compound with its levels, not itself a retention-time reference.
  c.DetectorType(VIRTUAL_DEVICE_MS);
  c.UseAsRTReference(0);
  c.Type(0);
  c.PeakDetectionIndex(1);
  CVC_FilterStruct parser(9, 2, 2);
  EXPECT_TRUE(parser.ParseFilterStructString(L"+ c SIM ms [194.50-195.50,200.00-201.00]", -1));
  c.Filter(parser.ToCFilter());
  for (int i = 0; i < 2; ++i) {
    CLevel level;
    Populate(level, seed);
    for (int r = 0; r < 2; ++r) {
      CReplicate replicate;
      Populate(replicate, seed);
      level.AddReplicate(replicate);
    }
    c.AddCalLevel(level);
  }
  CLevel qc;
  Populate(qc, seed);
  c.AddQCLevel(qc);
  CMIPair pair;
  Populate(pair, seed);
  c.AddMIPair(pair);
  CMassRange range;
  Populate(range, seed);
  c.AddMassRange(range);
  return c;
}

CProcMethod FullMethod(Seed& seed, const CFilter& filter) {
  CProcMethod m;
  Populate(m.PeakDetection(), seed);
  m.PeakDetection().DetectorType(VIRTUAL_DEVICE_MS);
  m.PeakDetection().Filter(filter);
  Populate(m.Options(), seed);
  m.Options().VoidTime(0);
  Populate(m.SpecEnhanceOptions(), seed);
  m.SpecEnhanceOptions().SpectrumMethod(1);
  Populate(m.LibrarySearchOptions(), seed);
  m.LibrarySearchOptions().AddSearchListItem(L"mainlib");
  m.LibrarySearchOptions().AddSearchListItem(L"replib");
  Populate(m.Constraints(), seed);
  m.Constraints().NumIndividualConstraints(1);
  Populate(m.Constraints().GetIndConstraint(0), seed);
  m.Constraints().GetIndConstraint(0).Element(L"Cl");
  m.Constraints().NumIonConstraints(1);
  Populate(m.Constraints().GetIonConstraint(0), seed);
  for (int i = 0; i < 2; ++i) {
    CReport report;
    Populate(report, seed);
    m.AddReport(report);
  }
  CSummaryReport summary;
  Populate(summary, seed);
  m.AddSummaryReport(summary);
  CProgram program;
  Populate(program, seed);
  m.AddProgram(program);
  return m;
}

std::string GoldenPath() { return VGLOBAL_TESTS_DIR "/methoddefaults/golden/layout.txt"; }

TEST(GoldenLayout, WholeMethodComponentAndNamedKeyMatchTheGoldenFile) {
  vglobal::UseMemorySettingsStores stores;
  Seed seed;
  CComponentIO component = FullComponent(seed);
  CProcMethod method = FullMethod(seed, component.Filter());

  WriteComponentInfo(&component, vglobal::kWriteWholeComponent);
  WriteAdvDetectOptionsInfo(&component, &method.Options());
  WritePeakDetectionInfo(&method.PeakDetection());
  WriteAdvChromatogramOptionsInfo(&method.PeakDetection());
  WriteIdentificationOptions(&method.Options());
  WriteSpecEnhancementInfo(&method.SpecEnhanceOptions());
  WriteLibrarySearchInfo(&method.LibrarySearchOptions());
  WriteConstraintsInfo(&method.Constraints());
  WriteAllReportInfo(&method);
  WriteAllSummaryReportInfo(&method);
  WriteAllProgramInfo(&method);
  CreateRegistryEntries(&method.PeakDetection(), &method.Options(),
                        CString(L"Explore\\Default Peak Detection"));
  CreateRegistryEntries(&component, CString(L"Golden\\Named Component"));

  std::string dump = vglobal::testing::DumpUserStore(L"Processing Setup") +
                     vglobal::testing::DumpUserStore(L"Explore") +
                     vglobal::testing::DumpUserStore(L"Golden");

  if (std::getenv("VGLOBAL_UPDATE_GOLDEN")) {
    std::ofstream(GoldenPath(), std::ios::binary) << dump;
    GTEST_SKIP() << "golden file rewritten: " << GoldenPath();
  }
  std::ifstream in(GoldenPath(), std::ios::binary);
  ASSERT_TRUE(in) << "missing " << GoldenPath();
  std::stringstream golden;
  golden << in.rdbuf();
  // Compared line by line so that a failure names the first differing line.
  std::istringstream want(golden.str()), got(dump);
  std::string w, g;
  for (int line = 1;; ++line) {
    const bool moreWant = static_cast<bool>(std::getline(want, w));
    const bool moreGot = static_cast<bool>(std::getline(got, g));
    if (!moreWant && !moreGot) break;
    ASSERT_EQ(moreWant ? w : "<end of golden file>", moreGot ? g : "<end of store>")
        << "at line " << line << " of " << GoldenPath();
  }
}

// Reading the golden layout back gives every value the writers stored: the readers
// and writers agree on names and types wherever both move a value.
TEST(GoldenLayout, ReadersTakeBackWhatTheWritersStored) {
  vglobal::UseMemorySettingsStores stores;
  Seed seed;
  CComponentIO written = FullComponent(seed);
  CProcMethod method = FullMethod(seed, written.Filter());
  WriteComponentInfo(&written, vglobal::kWriteWholeComponent);
  WriteAllReportInfo(&method);
  WriteAllProgramInfo(&method);

  CComponentIO read;
  ReadComponentDefaultInfo(&read);
  EXPECT_EQ(read.Keys(), written.Keys());
  EXPECT_EQ(read.RTSearchWindow(), written.RTSearchWindow());
  EXPECT_EQ(read.SNThreshold(), written.SNThreshold());
  EXPECT_EQ(read.KivaTailingFactor(), written.KivaTailingFactor());
  EXPECT_EQ(read.QualifierIonCoelution(), written.QualifierIonCoelution());
  ASSERT_EQ(read.NumCalLevels(), written.NumCalLevels());
  EXPECT_EQ(read.GetCalLevel(1).BaseAmount(), written.GetCalLevel(1).BaseAmount());
  EXPECT_EQ(read.GetCalLevel(1)[1].Area(), written.GetCalLevel(1)[1].Area());
  // The filter is never restored: a new component starts from the empty filter.
  EXPECT_EQ(read.Filter(), CFilter());

  CProcMethod back;
  EXPECT_EQ(ReadAllReportDefaultInfo(&back), 1);
  EXPECT_EQ(ReadAllProgramDefaultInfo(&back), 1);
  ASSERT_EQ(back.NumReports(), 2);
  EXPECT_EQ(back.GetReport(1).Name(), method.GetReport(1).Name());
  EXPECT_EQ(back.GetProgram(0).Parameters(), method.GetProgram(0).Parameters());
}

}  // namespace
