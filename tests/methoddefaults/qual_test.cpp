// The three qualitative sections of the default method: what each writer stores under
// the switches the golden layout leaves on, and what the readers make of complete,
// partial and damaged keys.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "stored_layout.h"
#include "vglobal/fileio/constraints.h"
#include "vglobal/fileio/library_search.h"
#include "vglobal/fileio/spectrum_enhance.h"
#include "vglobal/methoddefaults/qual.h"
#include "vglobal/settings.h"

namespace {

using stored_layout::ExpectReadsBackWhatWasWritten;
using stored_layout::Subkeys;
using stored_layout::Values;

const std::wstring kSpec = L"Processing Setup\\Defaults\\Qual\\Spectrum Enhancement";
const std::wstring kLibrary = L"Processing Setup\\Defaults\\Qual\\Library Search Options";
const std::wstring kConstraints = L"Processing Setup\\Defaults\\Qual\\Library Search Constraints";
const std::wstring kElements = kConstraints + L"\\ElementConstraints";
const std::wstring kIons = kConstraints + L"\\IonConstraints";

int StoredInt(const std::wstring& path, const wchar_t* name) {
  CVRegKey key(HKEY_CURRENT_USER, path.c_str(), 0, 0);
  int value = -12345;
  key.ReadInt(name, &value);
  return value;
}

void PutInt(const std::wstring& path, const wchar_t* name, int value) {
  CVRegKey(HKEY_CURRENT_USER, path.c_str(), 1, 1).WriteInt(name, value);
}

// Methods 0 and 1 are in the golden layout; the cut-off method and an unknown one are not.
TEST(SpecEnhancementSection, EachMethodStoresOnlyItsOwnValues) {
  const char* const layouts[] = {
      "SpecEnabled:int SpectrumMethod:int CutOffThreshold:double",
      "SpecEnabled:int SpectrumMethod:int",
  };
  for (int method : {2, 3}) {
    vglobal::UseMemorySettingsStores stores;
    CSpecEnhanceOptions options;
    options.SpecEnabled(1);
    options.SpectrumMethod(method);
    WriteSpecEnhancementInfo(&options);
    EXPECT_EQ(Values(kSpec), layouts[method - 2]) << "method " << method;
  }
}

TEST(SpecEnhancementSection, SwitchedOffStoresOnlyTheSwitchAndReadsOlderValues) {
  vglobal::UseMemorySettingsStores stores;
  CSpecEnhanceOptions saved;
  saved.SpecEnabled(1);
  saved.SpectrumMethod(2);
  saved.CutOffThreshold(7.5);
  WriteSpecEnhancementInfo(&saved);
  saved.SpecEnabled(0);
  saved.CutOffThreshold(9.0);
  WriteSpecEnhancementInfo(&saved);
  EXPECT_EQ(Values(kSpec), "SpecEnabled:int SpectrumMethod:int CutOffThreshold:double");

  CSpecEnhanceOptions read;
  read.WindowSize(42.0);
  EXPECT_EQ(ReadSpecEnhancementDefaultInfo(&read), 0);
  EXPECT_EQ(read.SpecEnabled(), 0);
  EXPECT_EQ(read.CutOffThreshold(), 7.5);  // the older value still in the key
  EXPECT_EQ(read.WindowSize(), 42.0);      // missing: left as it was
}

TEST(SpecEnhancementSection, EachMethodReadsBackAndPointCountsStayWholeWithoutOverflow) {
  CSpecEnhanceOptions saved;
  saved.SpecEnabled(1);
  saved.WindowSize(11.5);
  saved.NoiseThreshold(4);
  saved.CutOffThreshold(2.5);
  saved.Take(3.9);
  saved.Previous(-2.7);
  saved.Region1Method(1);
  saved.PtsPkTop(1e12);
  saved.NextPt(std::nan(""));
  saved.Region2Method(2);
  saved.PtsAfterPkTop(-1e12);
  saved.BgScalingFactor(0.75);
  for (int method : {0, 2, 1}) {
    saved.SpectrumMethod(method);
    ExpectReadsBackWhatWasWritten(saved, WriteSpecEnhancementInfo, ReadSpecEnhancementDefaultInfo,
                                  kSpec);
  }

  vglobal::UseMemorySettingsStores stores;
  WriteSpecEnhancementInfo(&saved);
  EXPECT_EQ(StoredInt(kSpec, L"Take"), 3);
  EXPECT_EQ(StoredInt(kSpec, L"Previous"), -2);
  EXPECT_EQ(StoredInt(kSpec, L"PtsPkTop"), INT_MAX);
  EXPECT_EQ(StoredInt(kSpec, L"NextPt"), 0);
  EXPECT_EQ(StoredInt(kSpec, L"PtsAfterPkTop"), INT_MIN);
}

CLibrarySearchOptions SearchWithEverySwitchOn(int searchType) {
  CLibrarySearchOptions o;
  o.SearchType(searchType);
  o.IdentityMode(3);
  o.SimilarityMode(4);
  o.NumMaxHits(25.0);
  o.ReverseSearch(1);
  o.SearchMWEnabled(1);
  o.SearchMW(256);
  o.AppendUserLib(1);
  o.UserLibrary(L"pesticides");
  o.MatchFactor(700);
  o.ReverseMatchFactor(750);
  o.ProbabilityPercent(60);
  o.ApplyMassDefect(1);
  o.Defect1(12);
  o.DefectMass1(100.0);
  o.Defect2(90);
  o.DefectMass2(1000.0);
  return o;
}

TEST(LibrarySearchSection, SwitchesOffLeaveTheirValuesOut) {
  // The match thresholds go with the user library, not on their own.
  vglobal::UseMemorySettingsStores stores;
  CLibrarySearchOptions o = SearchWithEverySwitchOn(1);
  o.SearchMWEnabled(0);
  o.AppendUserLib(0);
  o.ApplyMassDefect(0);
  WriteLibrarySearchInfo(&o);
  EXPECT_EQ(Values(kLibrary),
            "SearchType:int SimilarityMode:int NumMaxHits:double ReverseSearch:int "
            "SearchMWEnabled:int AppendUserLib:int ApplyMassDefect:int");
}

TEST(LibrarySearchSection, ReadsBackEveryOptionAndReplacesTheSearchList) {
  ExpectReadsBackWhatWasWritten(SearchWithEverySwitchOn(1), WriteLibrarySearchInfo,
                                ReadLibrarySearchDefaultInfo, kLibrary);

  vglobal::UseMemorySettingsStores stores;
  CLibrarySearchOptions saved = SearchWithEverySwitchOn(0);
  WriteLibrarySearchInfo(&saved);
  CLibrarySearchOptions read;
  read.AddSearchListItem(L"stale");
  // Incomplete (no similarity mode stored), and no stored list empties the record's.
  EXPECT_EQ(ReadLibrarySearchDefaultInfo(&read), 0);
  EXPECT_EQ(read.SearchList().GetSize(), 0);
  saved.SearchType(1);
  WriteLibrarySearchInfo(&saved);
  EXPECT_EQ(ReadLibrarySearchDefaultInfo(&read), 1);  // the list does not count

  CStringArray list;
  list.Add(L"mainlib");
  list.Add(L"replib");
  WriteLibrarySearchList(list);
  read.AddSearchListItem(L"old");
  ReadLibrarySearchDefaultInfo(&read);
  ASSERT_EQ(read.SearchList().GetSize(), 2);
  EXPECT_EQ(read.SearchList()[1], L"replib");
}

CConstraints ConstraintsWithEverySwitchOn(int elements, int ions) {
  CConstraints c;
  c.MolWtEnabled(1);
  c.MnMolWt(50);
  c.NameFragmentEnabled(1);
  c.FragmentName(L"chloro");
  c.DBEnabled(1);
  c.FineEnabled(1);
  c.EPAEnabled(2);
  c.NIHEnabled(3);
  c.TSCAEnabled(4);
  c.USPEnabled(5);
  c.EINECSEnabled(6);
  c.RTECSEnabled(7);
  c.HODOCEnabled(8);
  c.IREnabled(9);
  c.ElementConstraintsEnabled(1);
  c.ElementsMethod(2);
  c.ElementInCompound(L"CHNO");
  c.IonConstraintsEnabled(1);
  c.IonConstraintMethod(3);
  c.NumIndividualConstraints(elements);
  for (int i = 0; i < elements; ++i) {
    c.GetIndConstraint(i).Element(i % 2 ? L"Cl" : L"C");
    c.GetIndConstraint(i).Condition(i);
    c.GetIndConstraint(i).Value(10 + i);
  }
  c.NumIonConstraints(ions);
  for (int i = 0; i < ions; ++i) {
    c.GetIonConstraint(i).Type(i);
    c.GetIonConstraint(i).MZ(100 + i);
    c.GetIonConstraint(i).From(5);
    c.GetIonConstraint(i).To(95);
  }
  return c;
}

TEST(ConstraintsSection, EverySwitchOnReadsBackComplete) {
  ExpectReadsBackWhatWasWritten(ConstraintsWithEverySwitchOn(3, 2), WriteConstraintsInfo,
                                ReadConstraintsDefaultInfo, kConstraints);

  vglobal::UseMemorySettingsStores stores;
  CConstraints c = ConstraintsWithEverySwitchOn(2, 1);
  WriteConstraintsInfo(&c);
  CConstraints read;
  EXPECT_EQ(ReadConstraintsDefaultInfo(&read), 1);
}

TEST(ConstraintsSection, RewritingShorterListsDropsStaleElements) {
  vglobal::UseMemorySettingsStores stores;
  CConstraints c = ConstraintsWithEverySwitchOn(5, 4);
  WriteConstraintsInfo(&c);
  c = ConstraintsWithEverySwitchOn(2, 1);
  WriteConstraintsInfo(&c);
  EXPECT_EQ(Subkeys(kElements), "Individual Element 0, Individual Element 1");
  EXPECT_EQ(Subkeys(kIons), "Constraint 0");

  // A list whose switch is off leaves its sub-key alone, and the reader still takes it.
  CConstraints off;
  WriteConstraintsInfo(&off);
  EXPECT_EQ(Subkeys(kElements), "Individual Element 0, Individual Element 1");
  CConstraints read;
  ReadConstraintsDefaultInfo(&read);
  EXPECT_EQ(read.ElementConstraintsEnabled(), 0);
  EXPECT_EQ(read.NumIndividualConstraints(), 2);
}

TEST(ConstraintsSection, MissingElementCountFailsWhereMissingIonCountDoesNot) {
  vglobal::UseMemorySettingsStores stores;
  CConstraints saved = ConstraintsWithEverySwitchOn(2, 2);
  WriteConstraintsInfo(&saved);

  CVRegKey(HKEY_CURRENT_USER, kIons.c_str(), 1, 1).DeleteValue(L"NumIonConstraints");
  CConstraints read = ConstraintsWithEverySwitchOn(0, 4);
  EXPECT_EQ(ReadConstraintsDefaultInfo(&read), 1);
  EXPECT_EQ(read.NumIonConstraints(), 4);  // left alone

  PutInt(kIons, L"NumIonConstraints", 2);
  CVRegKey(HKEY_CURRENT_USER, kElements.c_str(), 1, 1).DeleteValue(L"NumIndElement");
  read = ConstraintsWithEverySwitchOn(3, 0);
  EXPECT_EQ(ReadConstraintsDefaultInfo(&read), 0);
  EXPECT_EQ(read.NumIndividualConstraints(), 3);  // left alone
  EXPECT_EQ(read.NumIonConstraints(), 2);         // still read
}

TEST(ConstraintsSection, OverlongElementSymbolIsRefusedAndLaterElementsStillRead) {
  vglobal::UseMemorySettingsStores stores;
  CConstraints saved = ConstraintsWithEverySwitchOn(3, 0);
  WriteConstraintsInfo(&saved);
  CVRegKey(HKEY_CURRENT_USER, (kElements + L"\\Individual Element 0").c_str(), 1, 1)
      .WriteStr(L"Element", L"Na");
  CVRegKey second(HKEY_CURRENT_USER, (kElements + L"\\Individual Element 1").c_str(), 1, 1);
  second.WriteStr(L"Element", L"Nab");
  second.WriteInt(L"Value", 77);

  CConstraints read;
  read.NumIndividualConstraints(3);
  read.GetIndConstraint(1).Element(L"Y");
  EXPECT_EQ(ReadConstraintsDefaultInfo(&read), 0);
  EXPECT_EQ(read.GetIndConstraint(0).Element(), L"Na");
  EXPECT_EQ(read.GetIndConstraint(1).Element(), L"Y");  // kept, not cut to "Na"
  EXPECT_EQ(read.GetIndConstraint(1).Value(), 77);
  EXPECT_EQ(read.GetIndConstraint(2).Value(), 12);
}

TEST(ConstraintsSection, CountsOutsideTheListRangeNeverResizeBlindly) {
  vglobal::UseMemorySettingsStores stores;
  CConstraints saved = ConstraintsWithEverySwitchOn(1, 1);
  WriteConstraintsInfo(&saved);

  // A count no real list reaches is damage: both lists stay as they were.
  PutInt(kElements, L"NumIndElement", INT_MAX);
  PutInt(kIons, L"NumIonConstraints", INT_MAX);
  CConstraints read = ConstraintsWithEverySwitchOn(2, 3);
  EXPECT_EQ(ReadConstraintsDefaultInfo(&read), 0);
  EXPECT_EQ(read.NumIndividualConstraints(), 2);
  EXPECT_EQ(read.NumIonConstraints(), 3);

  // Zero or negative: empty lists, no element read, nothing missing.
  PutInt(kElements, L"NumIndElement", -4);
  PutInt(kIons, L"NumIonConstraints", 0);
  EXPECT_EQ(ReadConstraintsDefaultInfo(&read), 1);
  EXPECT_EQ(read.NumIndividualConstraints(), 0);
  EXPECT_EQ(read.NumIonConstraints(), 0);
}

}  // namespace
