// The output lists of the user's default processing method, and the whole default
// method. Each list is kept in the current user's settings store as a count value and
// one sub-key per row, "Row 0", "Row 1", ...:
//   "Processing Setup\Defaults\Reports"          "NumReports"   CReport rows
//   "Processing Setup\Defaults\Summary Reports"  "NumReports"   CSummaryReport rows
//   "Processing Setup\Defaults\Programs"         "NumPrograms"  CProgram rows
// (the summary reports share the sample reports' count name).
//
// Contract: writers open their key creating it and ignore write results; readers open
// without creating, apply every value they find at once, never write, and return 1 only
// when every value they looked for was present. Nothing is shown to the user. The
// caller owns the method and every row passed in; a null pointer makes a writer do
// nothing and a reader return 0.
#pragma once

#include <vector>

#include "vglobal/methoddefaults/section_result.h"

#include "vglobal/export.h"

class CProcMethod;
class CProgram;
class CReport;
class CSummaryReport;

// One row, as the sub-key "Row <row>" of its section. A row reader fills what it finds
// and returns 0 when any value of the row is missing.
VGLOBAL_EXPORT void WriteReportInfo(CReport* report, int row);
VGLOBAL_EXPORT int ReadReportDefaultInfo(CReport* report, int row);
VGLOBAL_EXPORT void WriteSummaryReportInfo(CSummaryReport* report, int row);
VGLOBAL_EXPORT int ReadSummaryReportDefaultInfo(CSummaryReport* report, int row);
VGLOBAL_EXPORT void WriteProgramInfo(CProgram* program, int row);
VGLOBAL_EXPORT int ReadProgramDefaultInfo(CProgram* program, int row);

// Replace a whole section with the method's list: the section is emptied first, so no
// row of an earlier, longer list survives.
VGLOBAL_EXPORT void WriteAllReportInfo(CProcMethod* method);
VGLOBAL_EXPORT void WriteAllSummaryReportInfo(CProcMethod* method);
VGLOBAL_EXPORT void WriteAllProgramInfo(CProcMethod* method);

// Append a section's rows behind the rows the method already holds. Only complete rows
// are appended: an incomplete row is skipped, the following rows are still read, and
// the result is 0. A missing count (or one above 100,000, taken for damage) gives 0 and
// adds nothing; a count of zero or less gives 1 and adds nothing.
VGLOBAL_EXPORT int ReadAllReportDefaultInfo(CProcMethod* method);
VGLOBAL_EXPORT int ReadAllSummaryReportDefaultInfo(CProcMethod* method);
VGLOBAL_EXPORT int ReadAllProgramDefaultInfo(CProcMethod* method);

// Fills a method from every default section, in this order: peak detection,
// library-search constraints, spectrum enhancement, library-search options, options,
// reports, summary reports, programs. Every section is read even after one was
// incomplete; the result is 1 only when all of them were complete. The lists are
// appended to, so reading into a method that already holds rows adds to them. The
// quantitation components are not part of it (see ReadComponentDefaultInfo).
VGLOBAL_EXPORT int ReadDefaultProcMethod(CProcMethod* method);

namespace vglobal {
// Reads the whole default method section by section, in the order of
// ReadDefaultProcMethod, and says of each section whether it was complete.
VGLOBAL_EXPORT std::vector<SectionResult> ReadDefaultProcMethodSections(CProcMethod* method);
}  // namespace vglobal
