// The "Qual\Spectrum Enhancement" section: the spectrum-enhancement options of the
// user's default method.
#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/spectrum_enhance.h"
#include "vglobal/methoddefaults/qual.h"

namespace {

using vglobal::methoddefaults::ReadValues;
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

using F = R::Fields;

// Nothing but the switch while enhancement is off; then only the chosen method's values.
// The point counts of method 1 are whole numbers kept in doubles, stored as ints.
// Every value is read whatever the switch and method: a section written with
// enhancement off or with one method reads back incomplete, with every value present
// still applied.
constexpr auto kSpectrumEnhancement = std::to_array<S::Entry>({
    S::Value<&F::SpecEnabled>(),
    S::Value<&F::SpectrumMethod>(Enabled),
    S::Value<&F::WindowSize>(Method0),
    S::Value<&F::NoiseThreshold>(Method0),
    S::Value<&F::CutOffThreshold>(Method2),
    S::WholeValue<&F::Take>(Method1),
    S::WholeValue<&F::Previous>(Method1),
    S::Value<&F::Region1Method>(Method1),
    S::WholeValue<&F::PtsPkTop>(Method1),
    S::WholeValue<&F::NextPt>(Method1),
    S::Value<&F::Region2Method>(Method1),
    S::WholeValue<&F::PtsAfterPkTop>(Method1),
    S::Value<&F::BgScalingFactor>(Method1),
});

}  // namespace

void WriteSpecEnhancementInfo(CSpecEnhanceOptions* options) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!options) return;
  WriteValues<R>(kPath, *options, kSpectrumEnhancement);
}

int ReadSpecEnhancementDefaultInfo(CSpecEnhanceOptions* options) {
  if (!options) return 0;
  return ReadValues<R>(kPath, *options, kSpectrumEnhancement);
}
