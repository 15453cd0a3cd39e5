// The Identification page of the default quantitation component: what the
// component is measured on and where it is looked for.
#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/component.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;
using S = vglobal::methoddefaults::Section<CComponentIO>;

constexpr const wchar_t* kIdentificationPath = L"Processing Setup\\Defaults\\Quan\\Identification";

bool OnMassSpectrometer(const CComponentIO& c) {
  return c.DetectorType() == VIRTUAL_DEVICE_MS;
}

// The trace type that goes with a detector. The stored "Trace1Type" is this, not the
// component's field, so a default component always starts with its detector's trace.
int TraceTypeOfDetector(const CComponentIO& c) {
  switch (static_cast<int>(c.DetectorType())) {
    case 1:
      return 11;
    case 2:
      return 41;
    case 3:
    case 4:
      return 22;
    default:
      return 1;
  }
}

bool TracksAReference(const CComponentIO& c) {
  return c.UseAsRTReference() == 0;
}

// The filter is reset, never read: a stored filter belongs to the method it was saved
// from, and a new component starts from the empty filter (the parse of the empty
// text, as the legacy reader made it).
void ResetFilter(CComponentIO& c) {
  CVC_FilterStruct parser(9, 2, 2);
  c.Filter(parser.ParseFilterStructString(L"", -1) ? parser.ToCFilter() : CFilter());
}

using F = vglobal::ComponentIdentification::Fields;

constexpr auto kIdentification = std::to_array<S::Entry>({
    S::Value<&F::DetectorType>(),
    S::Value<&F::DetectorDelay>([](const CComponentIO& c) { return !OnMassSpectrometer(c); }),
    // Written for the mass spectrometer, reset rather than read.
    S::String(
        L"Filter", [](const CComponentIO& c) { return c.Filter().GetFilterString(-1, -1, 2); },
        OnMassSpectrometer),
    S::Do(ResetFilter),
    // Written from the detector, read as stored: the mapping is not reversed.
    S::Int(L"Trace1Type", TraceTypeOfDetector),
    S::ReadInt(L"Trace1Type", [](CComponentIO& c, int v) { c.Trace1Type(v); }),
    // The second trace and its operator are not part of a default: written as none,
    // read as stored.
    S::Int(L"TraceOperator", [](const CComponentIO&) { return 0; }),
    S::Int(L"Trace2Type", [](const CComponentIO&) { return 0; }),
    S::ReadInt(L"Trace2Type", [](CComponentIO& c, int v) { c.Trace2Type(v); }),
    S::ReadInt(L"TraceOperator", [](CComponentIO& c, int v) { c.TraceOperator(v); }),
    S::Value<&F::Keys>(),
    S::Value<&F::RTSearchWindow>(),
    S::Value<&F::DisplayWindowWidth>(),
    // A component that is itself a reference does not follow another one.
    S::Value<&F::AdjustExpectedRT>(TracksAReference),
    S::Value<&F::RTReference>(
        [](const CComponentIO& c) { return TracksAReference(c) && c.AdjustExpectedRT() != 0; }),
});

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
