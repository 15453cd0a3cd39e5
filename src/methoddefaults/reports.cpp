// The "Reports" section: the sample reports of the user's default method, one row
// each.
#include "vglobal/methoddefaults/reports.h"

#include <array>

#include "methoddefaults/row_list.h"

namespace {

using R = CReport;
using S = vglobal::methoddefaults::Section<R>;
using F = R::Fields;
using vglobal::methoddefaults::Join;
using vglobal::methoddefaults::SampleTypeEntries;

// After the sample types: how the report is saved, and its name.
constexpr auto kReportValues = std::to_array<S::Entry>({
    S::Value<&F::SaveAsType>(),
    S::Value<&F::Name>(),
});

constexpr auto kRow = Join(SampleTypeEntries<R>(), kReportValues);

const vglobal::methoddefaults::RowSection<R> kSection = {
    .path = L"Processing Setup\\Defaults\\Reports",
    .countName = L"NumReports",
    .entries = kRow,
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
