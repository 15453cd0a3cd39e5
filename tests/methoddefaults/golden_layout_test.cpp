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

// Two sets of the choices that decide which groups are stored: the usual one (the mass
// spectrometer with its filter, a target compound with its levels, ion-ratio
// confirmation) and the other branch of each choice.
enum class Choices { Usual, Other };

CComponentIO FullComponent(Seed& seed, Choices choices = Choices::Usual) {
  CComponentIO c;
  Populate(c, seed);
  const bool usual = choices == Choices::Usual;
  c.DetectorType(usual ? VIRTUAL_DEVICE_MS : VIRTUAL_DEVICE_PDA);
  c.UseAsRTReference(usual ? 0 : 1);
  c.Type(usual ? 0 : 4);  // a target compound, or a surrogate
  c.PeakDetectionIndex(usual ? 1 : 0);
  CVC_FilterStruct parser(9, 2, 2);
  EXPECT_TRUE(parser.ParseFilterStructString(L"+ c SIM ms [194.50-195.50,200.00-201.00]", -1));
  c.Filter(parser.ToCFilter());
  for (int i = 0; i < 2; ++i) {
    const CLevel level = vglobal::testing::PopulatedLevel(seed, 2);
    if (usual)
      c.AddCalLevel(level);
    else
      c.AddSurrogateLevel(level);
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

CProcMethod FullMethod(Seed& seed, const CFilter& filter, Choices choices = Choices::Usual) {
  const bool usual = choices == Choices::Usual;
  CProcMethod m;
  Populate(m.PeakDetection(), seed);
  m.PeakDetection().DetectorType(usual ? VIRTUAL_DEVICE_MS : VIRTUAL_DEVICE_UV);
  m.PeakDetection().Filter(filter);
  Populate(m.Options(), seed);
  m.Options().VoidTime(usual ? 0 : 1);
  Populate(m.SpecEnhanceOptions(), seed);
  m.SpecEnhanceOptions().SpectrumMethod(usual ? 1 : 0);
  Populate(m.LibrarySearchOptions(), seed);
  m.LibrarySearchOptions().SearchType(usual ? 0 : 1);
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

std::string GoldenPath(const char* name) {
  return std::string(VGLOBAL_TESTS_DIR "/methoddefaults/golden/") + name;
}

// Writes every section of a fully populated method and component and compares the
// store with the golden file.
void ExpectStoredLayout(Choices choices, const char* goldenName) {
  vglobal::UseMemorySettingsStores stores;
  Seed seed;
  CComponentIO component = FullComponent(seed, choices);
  CProcMethod method = FullMethod(seed, component.Filter(), choices);

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

  const std::string path = GoldenPath(goldenName);
  if (std::getenv("VGLOBAL_UPDATE_GOLDEN")) {
    std::ofstream(path, std::ios::binary) << dump;
    GTEST_SKIP() << "golden file rewritten: " << path;
  }
  std::ifstream in(path, std::ios::binary);
  ASSERT_TRUE(in) << "missing " << path;
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
        << "at line " << line << " of " << path;
  }
}

TEST(GoldenLayout, WholeMethodComponentAndNamedKeyMatchTheGoldenFile) {
  ExpectStoredLayout(Choices::Usual, "layout.txt");
}

// The other branch of every choice: a detector other than the mass spectrometer, a
// component that is its own retention-time reference, a surrogate, the spectral
// thresholds instead of ion ratios, and the other qualitative methods.
TEST(GoldenLayout, OtherBranchOfEveryChoiceMatchesItsGoldenFile) {
  ExpectStoredLayout(Choices::Other, "layout_other_choices.txt");
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
