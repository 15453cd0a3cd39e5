// The method-wide options of the default processing method: the Options key, plus the
// background width kept beside the component's advanced detection values.
#include "vglobal/methoddefaults/peak_detection.h"

#include <array>

#include "methoddefaults/adv_detection.h"
#include "methoddefaults/section.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using S = vglobal::methoddefaults::Section<COptions>;
using R = COptions;
using F = R::Fields;

// Only a user-entered void time has a value worth keeping; otherwise the value stored
// earlier stays.
bool UserEnteredVoidTime(const R& r) {
  return r.VoidTime() == 0;
}

constexpr auto kOptions = std::to_array<S::Entry>({
    // Read first, never written here: other programs of the suite store it, and a
    // store without it reads as incomplete.
    S::ReadInt(L"SpectrumOptions", [](R& r, int v) { r.SpectrumOptions(v); }),
    S::Value<&F::SearchWindow>(),
    S::Value<&F::VoidTime>(),
    S::Value<&F::VoidTimeValue>(UserEnteredVoidTime),
    S::Value<&F::BaseNoiseLimit>(),
    // An int in this key, unlike the interactive peak-detection key.
    S::Value<&F::MinScansInBaseline>(),
});

}  // namespace

void WriteIdentificationOptions(COptions* options) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!options) return;
  vglobal::methoddefaults::WriteValues<R>(vglobal::kOptionsKey, *options, kOptions);
}

int ReadOptionsDefaultInfo(COptions* options) {
  if (!options) return 0;
  // Both keys are read whatever the first one gave.
  const int advanced = vglobal::methoddefaults::ReadAdvDetectOptions(*options);
  const int general = ReadValues<R>(vglobal::kOptionsKey, *options, kOptions);
  return advanced && general ? 1 : 0;
}

void WriteOPtionsInfo(COptions*, unsigned int) {
  // Exported for programs built against it; the options are written by
  // WriteIdentificationOptions.
}
