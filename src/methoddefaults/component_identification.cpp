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

constexpr std::array kWrite{
    S::Int(L"DetectorType",
           [](const CComponentIO& c) { return static_cast<int>(c.DetectorType()); }),
    S::Double(
        L"DetectorDelay", [](const CComponentIO& c) { return c.DetectorDelay(); },
        [](const CComponentIO& c) { return !OnMassSpectrometer(c); }),
    S::String(
        L"Filter", [](const CComponentIO& c) { return c.Filter().GetFilterString(-1, -1, 2); },
        OnMassSpectrometer),
    S::Int(L"Trace1Type", TraceTypeOfDetector),
    // The second trace and its operator are not part of a default: always none.
    S::Int(L"TraceOperator", [](const CComponentIO&) { return 0; }),
    S::Int(L"Trace2Type", [](const CComponentIO&) { return 0; }),
    S::String(L"Keys", [](const CComponentIO& c) { return c.Keys(); }),
    S::Double(L"RTSearchWindow", [](const CComponentIO& c) { return c.RTSearchWindow(); }),
    S::Double(L"DisplayWindowWidth", [](const CComponentIO& c) { return c.DisplayWindowWidth(); }),
    // A component that is itself a reference does not follow another one.
    S::Int(
        L"AdjustExpectedRT", [](const CComponentIO& c) { return c.AdjustExpectedRT(); },
        TracksAReference),
    S::String(
        L"RTReference", [](const CComponentIO& c) { return c.RTReference(); },
        [](const CComponentIO& c) { return TracksAReference(c) && c.AdjustExpectedRT() != 0; }),
};

// The filter is reset, never read: a stored filter belongs to the method it was saved
// from, and a new component starts from the empty filter (the parse of the empty
// text, as the legacy reader made it).
void ResetFilter(CComponentIO& c) {
  CVC_FilterStruct parser(9, 2, 2);
  c.Filter(parser.ParseFilterStructString(L"", -1) ? parser.ToCFilter() : CFilter());
}

constexpr std::array kRead{
    S::ReadInt(L"DetectorType",
               [](CComponentIO& c, int v) { c.DetectorType(static_cast<VirtualDeviceType>(v)); }),
    S::ReadDouble(L"DetectorDelay", [](CComponentIO& c, double v) { c.DetectorDelay(v); }),
    S::Do(ResetFilter),
    // Taken as stored: the writer's detector mapping is not reversed.
    S::ReadInt(L"Trace1Type", [](CComponentIO& c, int v) { c.Trace1Type(v); }),
    S::ReadInt(L"Trace2Type", [](CComponentIO& c, int v) { c.Trace2Type(v); }),
    S::ReadInt(L"TraceOperator", [](CComponentIO& c, int v) { c.TraceOperator(v); }),
    S::ReadString(L"Keys", [](CComponentIO& c, const CString& v) { c.Keys(v); }),
    S::ReadDouble(L"RTSearchWindow", [](CComponentIO& c, double v) { c.RTSearchWindow(v); }),
    S::ReadDouble(L"DisplayWindowWidth",
                  [](CComponentIO& c, double v) { c.DisplayWindowWidth(v); }),
    S::ReadInt(L"AdjustExpectedRT", [](CComponentIO& c, int v) { c.AdjustExpectedRT(v); }),
    S::ReadString(L"RTReference", [](CComponentIO& c, const CString& v) { c.RTReference(v); }),
};

}  // namespace

void WriteIdentificationInfo(CComponentIO* component) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  WriteValues<CComponentIO>(kIdentificationPath, *component, kWrite);
}

int ReadIdentificationInfo(CComponentIO* component) {
  if (!component) return 0;
  return ReadValues<CComponentIO>(kIdentificationPath, *component, kRead);
}
