// The whole default processing method: every section of the user's defaults read into
// one method, in a fixed order.
#include "vglobal/fileio/proc_method.h"
#include "vglobal/methoddefaults/peak_detection.h"
#include "vglobal/methoddefaults/qual.h"
#include "vglobal/methoddefaults/reports.h"

std::vector<vglobal::SectionResult> vglobal::ReadDefaultProcMethodSections(CProcMethod* method) {
  if (!method) return {};
  // Every section is read even after one was incomplete, so the method carries every
  // default that is stored; the results only say which sections were complete. A
  // braced list is evaluated in order, which is the reading order.
  return {
      {L"Qual\\Identification, Qual\\Advanced Chromatogram Options",
       ReadPeakDetectionDefaultInfo(&method->PeakDetection())},
      {L"Qual\\Library Search Constraints", ReadConstraintsDefaultInfo(&method->Constraints())},
      {L"Qual\\Spectrum Enhancement",
       ReadSpecEnhancementDefaultInfo(&method->SpecEnhanceOptions())},
      {L"Qual\\Library Search Options",
       ReadLibrarySearchDefaultInfo(&method->LibrarySearchOptions())},
      {L"Options, Quan\\Advanced Detection Options", ReadOptionsDefaultInfo(&method->Options())},
      {L"Reports", ReadAllReportDefaultInfo(method)},
      {L"Summary Reports", ReadAllSummaryReportDefaultInfo(method)},
      {L"Programs", ReadAllProgramDefaultInfo(method)},
  };
}

int ReadDefaultProcMethod(CProcMethod* method) {
  if (!method) return 0;
  return vglobal::AllComplete(vglobal::ReadDefaultProcMethodSections(method));
}
