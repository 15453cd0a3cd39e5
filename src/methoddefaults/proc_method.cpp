// The whole default processing method: every section of the user's defaults read into
// one method, in a fixed order.
#include "vglobal/fileio/proc_method.h"
#include "vglobal/methoddefaults/peak_detection.h"
#include "vglobal/methoddefaults/qual.h"
#include "vglobal/methoddefaults/reports.h"

int ReadDefaultProcMethod(CProcMethod* method) {
  if (!method) return 0;
  // Every section is read even after one was incomplete, so the method carries every
  // default that is stored; the result only says whether all of them were complete.
  const int results[] = {
      ReadPeakDetectionDefaultInfo(&method->PeakDetection()),
      ReadConstraintsDefaultInfo(&method->Constraints()),
      ReadSpecEnhancementDefaultInfo(&method->SpecEnhanceOptions()),
      ReadLibrarySearchDefaultInfo(&method->LibrarySearchOptions()),
      ReadOptionsDefaultInfo(&method->Options()),
      ReadAllReportDefaultInfo(method),
      ReadAllSummaryReportDefaultInfo(method),
      ReadAllProgramDefaultInfo(method),
  };
  for (int result : results)
    if (result == 0) return 0;
  return 1;
}
