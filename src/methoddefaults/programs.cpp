// The "Programs" section: the post-processing programs of the user's default method,
// one row each.
#include <array>

#include "methoddefaults/row_list.h"
#include "vglobal/methoddefaults/reports.h"

namespace {

using R = CProgram;
using S = vglobal::methoddefaults::Section<R>;
using F = R::Fields;
using vglobal::methoddefaults::Join;
using vglobal::methoddefaults::SampleTypeEntries;

// "Sync" and the parameters come after the program name in the stored row.
constexpr auto kProgramValues = std::to_array<S::Entry>({
    S::Value<&F::Action>(),
    S::Value<&F::ProgramName>(),
    S::Value<&F::Sync>(),
    S::Value<&F::Parameters>(),
});

constexpr auto kRow = Join(SampleTypeEntries<R>(), kProgramValues);

const vglobal::methoddefaults::RowSection<R> kSection = {
    .path = L"Processing Setup\\Defaults\\Programs",
    .countName = L"NumPrograms",
    .entries = kRow,
    .size = [](const CProcMethod& m) { return m.NumPrograms(); },
    .get = [](const CProcMethod& m, int i) -> const R& { return m.GetProgram(i); },
    .add = [](CProcMethod& m, const R& r) { m.AddProgram(r); },
};

}  // namespace

void WriteProgramInfo(CProgram* program, int row) {
  const vglobal::methoddefaults::WriteScope scope;
  if (program) WriteRow(kSection, *program, row);
}

int ReadProgramDefaultInfo(CProgram* program, int row) {
  return program ? ReadRow(kSection, *program, row) : 0;
}

void WriteAllProgramInfo(CProcMethod* method) {
  const vglobal::methoddefaults::WriteScope scope;
  if (method) WriteAllRows(kSection, *method);
}

int ReadAllProgramDefaultInfo(CProcMethod* method) {
  return method ? ReadAllRows(kSection, *method) : 0;
}
