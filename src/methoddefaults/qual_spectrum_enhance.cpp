// The "Qual\Spectrum Enhancement" section: the spectrum-enhancement options of the
// user's default method.
#include "methoddefaults/section.h"
#include "vglobal/fileio/spectrum_enhance.h"
#include "vglobal/methoddefaults/qual.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::TruncateForStore;
using vglobal::methoddefaults::WriteValues;
using R = CSpecEnhanceOptions;
using S = vglobal::methoddefaults::Section<R>;

constexpr const wchar_t* kPath = L"Processing Setup\\Defaults\\Qual\\Spectrum Enhancement";

bool Enabled(const R& r) {
  return r.SpecEnabled() != 0;
}
bool Method0(const R& r) {
  return Enabled(r) && r.SpectrumMethod() == 0;
}
bool Method1(const R& r) {
  return Enabled(r) && r.SpectrumMethod() == 1;
}
bool Method2(const R& r) {
  return Enabled(r) && r.SpectrumMethod() == 2;
}

// Nothing but the switch while enhancement is off; then only the chosen method's values.
// The point counts of method 1 are whole numbers kept in doubles, stored as ints.
// clang-format off
const S::Write kWrite[] = {
    S::Int(L"SpecEnabled", [](const R& r) { return r.SpecEnabled(); }),
    S::Int(L"SpectrumMethod", [](const R& r) { return r.SpectrumMethod(); }, Enabled),
    S::Double(L"WindowSize", [](const R& r) { return r.WindowSize(); }, Method0),
    S::Int(L"NoiseThreshold", [](const R& r) { return r.NoiseThreshold(); }, Method0),
    S::Double(L"CutOffThreshold", [](const R& r) { return r.CutOffThreshold(); }, Method2),
    S::Int(L"Take", [](const R& r) { return TruncateForStore(r.Take()); }, Method1),
    S::Int(L"Previous", [](const R& r) { return TruncateForStore(r.Previous()); }, Method1),
    S::Int(L"Region1Method", [](const R& r) { return r.Region1Method(); }, Method1),
    S::Int(L"PtsPkTop", [](const R& r) { return TruncateForStore(r.PtsPkTop()); }, Method1),
    S::Int(L"NextPt", [](const R& r) { return TruncateForStore(r.NextPt()); }, Method1),
    S::Int(L"Region2Method", [](const R& r) { return r.Region2Method(); }, Method1),
    S::Int(L"PtsAfterPkTop", [](const R& r) { return TruncateForStore(r.PtsAfterPkTop()); },
           Method1),
    S::Double(L"BgScalingFactor", [](const R& r) { return r.BgScalingFactor(); }, Method1),
};
// clang-format on

// Every value whatever the switch and method: a section written with enhancement off
// or with one method reads back incomplete, with every value present still applied.
const S::Read kRead[] = {
    S::ReadInt(L"SpecEnabled", [](R& r, int v) { r.SpecEnabled(v); }),
    S::ReadInt(L"SpectrumMethod", [](R& r, int v) { r.SpectrumMethod(v); }),
    S::ReadDouble(L"WindowSize", [](R& r, double v) { r.WindowSize(v); }),
    S::ReadInt(L"NoiseThreshold", [](R& r, int v) { r.NoiseThreshold(v); }),
    S::ReadDouble(L"CutOffThreshold", [](R& r, double v) { r.CutOffThreshold(v); }),
    S::ReadInt(L"Take", [](R& r, int v) { r.Take(v); }),
    S::ReadInt(L"Previous", [](R& r, int v) { r.Previous(v); }),
    S::ReadInt(L"Region1Method", [](R& r, int v) { r.Region1Method(v); }),
    S::ReadInt(L"PtsPkTop", [](R& r, int v) { r.PtsPkTop(v); }),
    S::ReadInt(L"NextPt", [](R& r, int v) { r.NextPt(v); }),
    S::ReadInt(L"Region2Method", [](R& r, int v) { r.Region2Method(v); }),
    S::ReadInt(L"PtsAfterPkTop", [](R& r, int v) { r.PtsAfterPkTop(v); }),
    S::ReadDouble(L"BgScalingFactor", [](R& r, double v) { r.BgScalingFactor(v); }),
};

}  // namespace

void WriteSpecEnhancementInfo(CSpecEnhanceOptions* options) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!options) return;
  WriteValues<R>(kPath, *options, kWrite);
}

int ReadSpecEnhancementDefaultInfo(CSpecEnhanceOptions* options) {
  if (!options) return 0;
  return ReadValues<R>(kPath, *options, kRead);
}
