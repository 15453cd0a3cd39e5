// The "Summary Reports" section: the summary reports of the user's default method, one
// row each.
#include <array>

#include "methoddefaults/row_list.h"
#include "vglobal/methoddefaults/reports.h"

namespace {

using R = CSummaryReport;
using S = vglobal::methoddefaults::Section<R>;

using F = R::Fields;

constexpr auto kRow = std::to_array<S::Entry>({
    S::Value<&F::Enabled>(),
    S::Value<&F::SaveAsType>(),
    S::Value<&F::Name>(),
});

const vglobal::methoddefaults::RowSection<R> kSection = {
    .path = L"Processing Setup\\Defaults\\Summary Reports",
    // The same count name as the sample reports: stores have always kept it so.
    .countName = L"NumReports",
    .entries = kRow,
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
