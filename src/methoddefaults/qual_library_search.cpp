// The "Qual\Library Search Options" section: the library-search options of the user's
// default method, and the libraries searched, kept beside them as one multi-string.
#include "methoddefaults/section.h"
#include "vglobal/fileio/library_search.h"
#include "vglobal/methoddefaults/qual.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;
using R = CLibrarySearchOptions;
using S = vglobal::methoddefaults::Section<R>;

constexpr const wchar_t* kPath = L"Processing Setup\\Defaults\\Qual\\Library Search Options";
constexpr const wchar_t* kSearchLibraries = L"SearchLibraries";

bool IdentitySearch(const R& r) {
  return r.SearchType() == 0;
}
bool SimilaritySearch(const R& r) {
  return r.SearchType() == 1;
}
bool SearchMW(const R& r) {
  return r.SearchMWEnabled() != 0;
}
bool UserLibrary(const R& r) {
  return r.AppendUserLib() != 0;
}
bool MassDefect(const R& r) {
  return r.ApplyMassDefect() != 0;
}

// The three match thresholds belong to the appended user library: they are stored with
// it, under its switch, not on their own.
// clang-format off
const S::Write kWrite[] = {
    S::Int(L"SearchType", [](const R& r) { return r.SearchType(); }),
    S::Int(L"IdentityMode", [](const R& r) { return r.IdentityMode(); }, IdentitySearch),
    S::Int(L"SimilarityMode", [](const R& r) { return r.SimilarityMode(); }, SimilaritySearch),
    S::Double(L"NumMaxHits", [](const R& r) { return r.NumMaxHits(); }),
    S::Int(L"ReverseSearch", [](const R& r) { return r.ReverseSearch(); }),
    S::Int(L"SearchMWEnabled", [](const R& r) { return r.SearchMWEnabled(); }),
    S::Int(L"SearchMW", [](const R& r) { return r.SearchMW(); }, SearchMW),
    S::Int(L"AppendUserLib", [](const R& r) { return r.AppendUserLib(); }),
    S::String(L"UserLibrary", [](const R& r) { return r.UserLibrary(); }, UserLibrary),
    S::Int(L"MatchFactor", [](const R& r) { return r.MatchFactor(); }, UserLibrary),
    S::Int(L"ReverseMatchFactor", [](const R& r) { return r.ReverseMatchFactor(); }, UserLibrary),
    S::Int(L"ProbabilityPercent", [](const R& r) { return r.ProbabilityPercent(); }, UserLibrary),
    S::Int(L"ApplyMassDefect", [](const R& r) { return r.ApplyMassDefect(); }),
    S::Int(L"Defect1", [](const R& r) { return r.Defect1(); }, MassDefect),
    S::Double(L"DefectMass1", [](const R& r) { return r.DefectMass1(); }, MassDefect),
    S::Int(L"Defect2", [](const R& r) { return r.Defect2(); }, MassDefect),
    S::Double(L"DefectMass2", [](const R& r) { return r.DefectMass2(); }, MassDefect),
};
// clang-format on

const S::Read kRead[] = {
    S::ReadInt(L"SearchType", [](R& r, int v) { r.SearchType(v); }),
    S::ReadInt(L"IdentityMode", [](R& r, int v) { r.IdentityMode(v); }),
    S::ReadInt(L"SimilarityMode", [](R& r, int v) { r.SimilarityMode(v); }),
    S::ReadDouble(L"NumMaxHits", [](R& r, double v) { r.NumMaxHits(v); }),
    S::ReadInt(L"ReverseSearch", [](R& r, int v) { r.ReverseSearch(v); }),
    S::ReadInt(L"SearchMWEnabled", [](R& r, int v) { r.SearchMWEnabled(v); }),
    S::ReadInt(L"SearchMW", [](R& r, int v) { r.SearchMW(v); }),
    S::ReadInt(L"AppendUserLib", [](R& r, int v) { r.AppendUserLib(v); }),
    S::ReadString(L"UserLibrary", [](R& r, const CString& v) { r.UserLibrary(v); }),
    S::ReadInt(L"MatchFactor", [](R& r, int v) { r.MatchFactor(v); }),
    S::ReadInt(L"ReverseMatchFactor", [](R& r, int v) { r.ReverseMatchFactor(v); }),
    S::ReadInt(L"ProbabilityPercent", [](R& r, int v) { r.ProbabilityPercent(v); }),
    S::ReadInt(L"ApplyMassDefect", [](R& r, int v) { r.ApplyMassDefect(v); }),
    S::ReadInt(L"Defect1", [](R& r, int v) { r.Defect1(v); }),
    S::ReadDouble(L"DefectMass1", [](R& r, double v) { r.DefectMass1(v); }),
    S::ReadInt(L"Defect2", [](R& r, int v) { r.Defect2(v); }),
    S::ReadDouble(L"DefectMass2", [](R& r, double v) { r.DefectMass2(v); }),
};

}  // namespace

void WriteLibrarySearchInfo(CLibrarySearchOptions* options) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!options) return;
  WriteValues<R>(kPath, *options, kWrite);
}

void WriteLibrarySearchList(CStringArray& libraries) {
  const vglobal::methoddefaults::WriteScope scope;
  CVRegKey key(HKEY_CURRENT_USER, kPath, 1, 1);
  key.WriteMultiStr(kSearchLibraries, libraries);
}

int ReadLibrarySearchList(CStringArray& libraries) {
  CVRegKey key(HKEY_CURRENT_USER, kPath, 0, 0);
  key.ReadMultiStr(kSearchLibraries, libraries);
  return 1;
}

int ReadLibrarySearchDefaultInfo(CLibrarySearchOptions* options) {
  if (!options) return 0;
  const int complete = ReadValues<R>(kPath, *options, kRead);

  // Read into a fresh list, so a method without a stored list searches no library
  // rather than keeping whatever the record held before.
  CStringArray libraries;
  ReadLibrarySearchList(libraries);
  options->RemoveAllSearchListItems();
  for (const CString& library : libraries) options->AddSearchListItem(library);
  return complete;
}
