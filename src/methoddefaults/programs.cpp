// The "Programs" section: the post-processing programs of the user's default method,
// one row each.
#include "methoddefaults/row_list.h"
#include "vglobal/methoddefaults/reports.h"

namespace {

using R = CProgram;
using S = vglobal::methoddefaults::Section<R>;

// "Sync" and the parameters come after the program name in the stored row.
const S::Write kWrite[] = {
    S::Int(L"Enabled", [](const R& r) { return r.Enabled(); }),
    S::Int(L"Stds", [](const R& r) { return r.Stds(); }),
    S::Int(L"QCs", [](const R& r) { return r.QCs(); }),
    S::Int(L"Unknowns", [](const R& r) { return r.Unknowns(); }),
    S::Int(L"Other", [](const R& r) { return r.Other(); }),
    S::Int(L"Action", [](const R& r) { return r.Action(); }),
    S::String(L"ProgramName", [](const R& r) { return r.ProgramName(); }),
    S::Int(L"Sync", [](const R& r) { return r.Sync(); }),
    S::String(L"Parameters", [](const R& r) { return r.Parameters(); }),
};

const S::Read kRead[] = {
    S::ReadInt(L"Enabled", [](R& r, int v) { r.Enabled(v); }),
    S::ReadInt(L"Stds", [](R& r, int v) { r.Stds(v); }),
    S::ReadInt(L"QCs", [](R& r, int v) { r.QCs(v); }),
    S::ReadInt(L"Unknowns", [](R& r, int v) { r.Unknowns(v); }),
    S::ReadInt(L"Other", [](R& r, int v) { r.Other(v); }),
    S::ReadInt(L"Action", [](R& r, int v) { r.Action(v); }),
    S::ReadString(L"ProgramName", [](R& r, const CString& v) { r.ProgramName(v); }),
    S::ReadInt(L"Sync", [](R& r, int v) { r.Sync(v); }),
    S::ReadString(L"Parameters", [](R& r, const CString& v) { r.Parameters(v); }),
};

const vglobal::methoddefaults::RowSection<R> kSection = {
    .path = L"Processing Setup\\Defaults\\Programs",
    .countName = L"NumPrograms",
    .write = kWrite,
    .read = kRead,
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
