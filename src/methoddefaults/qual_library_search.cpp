// The "Qual\Library Search Options" section: the library-search options of the user's
// default method, and the libraries searched, kept beside them as one multi-string.
#include <array>

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

using F = R::Fields;

// The three match thresholds belong to the appended user library: they are stored with
// it, under its switch, not on their own. Every value is read whatever the switches.
constexpr auto kLibrarySearch = std::to_array<S::Entry>({
    S::Value<&F::SearchType>(),
    S::Value<&F::IdentityMode>(IdentitySearch),
    S::Value<&F::SimilarityMode>(SimilaritySearch),
    S::Value<&F::NumMaxHits>(),
    S::Value<&F::ReverseSearch>(),
    S::Value<&F::SearchMWEnabled>(),
    S::Value<&F::SearchMW>(SearchMW),
    S::Value<&F::AppendUserLib>(),
    S::Value<&F::UserLibrary>(UserLibrary),
    S::Value<&F::MatchFactor>(UserLibrary),
    S::Value<&F::ReverseMatchFactor>(UserLibrary),
    S::Value<&F::ProbabilityPercent>(UserLibrary),
    S::Value<&F::ApplyMassDefect>(),
    S::Value<&F::Defect1>(MassDefect),
    S::Value<&F::DefectMass1>(MassDefect),
    S::Value<&F::Defect2>(MassDefect),
    S::Value<&F::DefectMass2>(MassDefect),
});

}  // namespace

void WriteLibrarySearchInfo(CLibrarySearchOptions* options) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!options) return;
  WriteValues<R>(kPath, *options, kLibrarySearch);
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
  const int complete = ReadValues<R>(kPath, *options, kLibrarySearch);

  // Read into a fresh list, so a method without a stored list searches no library
  // rather than keeping whatever the record held before.
  CStringArray libraries;
  ReadLibrarySearchList(libraries);
  options->RemoveAllSearchListItems();
  for (const CString& library : libraries) options->AddSearchListItem(library);
  return complete;
}
