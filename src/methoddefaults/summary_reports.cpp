// The "Summary Reports" section: the summary reports of the user's default method, one
// row each.
#include "methoddefaults/row_list.h"
#include "vglobal/methoddefaults/reports.h"

namespace {

using R = CSummaryReport;
using S = vglobal::methoddefaults::Section<R>;

const S::Write kWrite[] = {
    S::Int(L"Enabled", [](const R& r) { return r.Enabled(); }),
    S::Int(L"SaveAsType", [](const R& r) { return r.SaveAsType(); }),
    S::String(L"Name", [](const R& r) { return r.Name(); }),
};

const S::Read kRead[] = {
    S::ReadInt(L"Enabled", [](R& r, int v) { r.Enabled(v); }),
    S::ReadInt(L"SaveAsType", [](R& r, int v) { r.SaveAsType(v); }),
    S::ReadString(L"Name", [](R& r, const CString& v) { r.Name(v); }),
};

const vglobal::methoddefaults::RowSection<R> kSection = {
    .path = L"Processing Setup\\Defaults\\Summary Reports",
    // The same count name as the sample reports: stores have always kept it so.
    .countName = L"NumReports",
    .write = kWrite,
    .read = kRead,
    .size = [](const CProcMethod& m) { return m.NumSummaryReports(); },
    .get = [](const CProcMethod& m, int i) -> const R& { return m.GetSummaryReport(i); },
    .add = [](CProcMethod& m, const R& r) { m.AddSummaryReport(r); },
};

}  // namespace

void WriteSummaryReportInfo(CSummaryReport* report, int row) {
  const vglobal::methoddefaults::WriteScope scope;
  if (report) WriteRow(kSection, *report, row);
}

int ReadSummaryReportDefaultInfo(CSummaryReport* report, int row) {
  return report ? ReadRow(kSection, *report, row) : 0;
}

void WriteAllSummaryReportInfo(CProcMethod* method) {
  const vglobal::methoddefaults::WriteScope scope;
  if (method) WriteAllRows(kSection, *method);
}

int ReadAllSummaryReportDefaultInfo(CProcMethod* method) {
  return method ? ReadAllRows(kSection, *method) : 0;
}
