// The "Reports" section: the sample reports of the user's default method, one row
// each.
#include "vglobal/methoddefaults/reports.h"
#include "methoddefaults/row_list.h"

namespace {

using R = CReport;
using S = vglobal::methoddefaults::Section<R>;

const S::Write kWrite[] = {
    S::Int(L"Enabled", [](const R& r) { return r.Enabled(); }),
    S::Int(L"Stds", [](const R& r) { return r.Stds(); }),
    S::Int(L"QCs", [](const R& r) { return r.QCs(); }),
    S::Int(L"Unknowns", [](const R& r) { return r.Unknowns(); }),
    S::Int(L"Other", [](const R& r) { return r.Other(); }),
    S::Int(L"SaveAsType", [](const R& r) { return r.SaveAsType(); }),
    S::String(L"Name", [](const R& r) { return r.Name(); }),
};

const S::Read kRead[] = {
    S::ReadInt(L"Enabled", [](R& r, int v) { r.Enabled(v); }),
    S::ReadInt(L"Stds", [](R& r, int v) { r.Stds(v); }),
    S::ReadInt(L"QCs", [](R& r, int v) { r.QCs(v); }),
    S::ReadInt(L"Unknowns", [](R& r, int v) { r.Unknowns(v); }),
    S::ReadInt(L"Other", [](R& r, int v) { r.Other(v); }),
    S::ReadInt(L"SaveAsType", [](R& r, int v) { r.SaveAsType(v); }),
    S::ReadString(L"Name", [](R& r, const CString& v) { r.Name(v); }),
};

const vglobal::methoddefaults::RowSection<R> kSection = {
    .path = L"Processing Setup\\Defaults\\Reports",
    .countName = L"NumReports",
    .write = kWrite,
    .read = kRead,
    .size = [](const CProcMethod& m) { return m.NumReports(); },
    .get = [](const CProcMethod& m, int i) -> const R& { return m.GetReport(i); },
    .add = [](CProcMethod& m, const R& r) { m.AddReport(r); },
};

}  // namespace

void WriteReportInfo(CReport* report, int row) {
  const vglobal::methoddefaults::WriteScope scope;
  if (report) WriteRow(kSection, *report, row);
}

int ReadReportDefaultInfo(CReport* report, int row) {
  return report ? ReadRow(kSection, *report, row) : 0;
}

void WriteAllReportInfo(CProcMethod* method) {
  const vglobal::methoddefaults::WriteScope scope;
  if (method) WriteAllRows(kSection, *method);
}

int ReadAllReportDefaultInfo(CProcMethod* method) {
  return method ? ReadAllRows(kSection, *method) : 0;
}
