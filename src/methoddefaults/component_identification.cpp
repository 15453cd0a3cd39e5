// The Identification page of the default quantitation component: what the
// component is measured on and where it is looked for.
#include <array>

#include "methoddefaults/section.h"
#include "methoddefaults/trace_entries.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/component.h"

namespace {

using S = vglobal::methoddefaults::Section<CComponentIO>;
using vglobal::methoddefaults::Join;
using vglobal::methoddefaults::OnMassSpectrometer;
using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::TraceEntries;
using vglobal::methoddefaults::WriteValues;

constexpr const wchar_t* kIdentificationPath = L"Processing Setup\\Defaults\\Quan\\Identification";

bool TracksAReference(const CComponentIO& c) {
  return c.UseAsRTReference() == 0;
}

using F = vglobal::ComponentIdentification::Fields;

constexpr auto kIdentification = Join(
    std::to_array<S::Entry>({
        S::Value<&F::DetectorType>(),
        S::Value<&F::DetectorDelay>([](const CComponentIO& c) { return !OnMassSpectrometer(c); }),
    }),
    TraceEntries<CComponentIO>(),
    std::to_array<S::Entry>({
        S::Value<&F::Keys>(),
        S::Value<&F::RTSearchWindow>(),
        S::Value<&F::DisplayWindowWidth>(),
        // A component that is itself a reference does not follow another one.
        S::Value<&F::AdjustExpectedRT>(TracksAReference),
        S::Value<&F::RTReference>(
            [](const CComponentIO& c) { return TracksAReference(c) && c.AdjustExpectedRT() != 0; }),
    }));

}  // namespace

void WriteIdentificationInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kIdentificationPath, *component, kIdentification);
}

int ReadIdentificationInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kIdentificationPath, *component, kIdentification);
}
