// The scan filter and the traces of a chromatogram, as the default component's
// Identification page and the method's peak detection both store them after the
// detector and its delay. A default chromatogram is a single trace of its detector, so
// the stored traces do not come from the record's trace fields, and the stored filter
// is never taken back.
#pragma once

#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/device_types.h"
#include "vglobal/fileio/filter.h"

namespace vglobal::methoddefaults {

// The code of the first trace that goes with a detector: the analog input 11, the PDA
// 41, the UV detector and the A/D card 22, the mass spectrometer and any other 1.
constexpr int Trace1TypeForDetector(int detector) {
  switch (detector) {
    case VIRTUAL_DEVICE_ANALOG:
      return 11;
    case VIRTUAL_DEVICE_PDA:
      return 41;
    case VIRTUAL_DEVICE_UV:
    case VIRTUAL_DEVICE_AD_CARD:
      return 22;
    default:
      return 1;
  }
}

// Every read leaves the empty scan filter, the parse of the empty text: a stored filter
// belongs to the method it was saved from.
template <typename Record>
void ResetFilter(Record& r) {
  CVC_FilterStruct parser(9, 2, 2);
  r.Filter(parser.ParseFilterStructString(L"", -1) ? parser.ToCFilter() : CFilter());
}

template <typename Record>
constexpr bool OnMassSpectrometer(const Record& r) {
  return static_cast<int>(r.DetectorType()) == VIRTUAL_DEVICE_MS;
}

// The entries, each a write-only or read-only one: the filter, written for the mass
// spectrometer, reset rather than read; "Trace1Type" written from the detector and
// read as stored (the mapping is not reversed); "TraceOperator" and "Trace2Type"
// written as none and read as stored, in the reverse order.
template <typename Record>
constexpr std::array<Entry<Record>, 8> TraceEntries() {
  using S = Section<Record>;
  return {
      S::String(
          L"Filter", [](const Record& r) { return r.Filter().GetFilterString(-1, -1, 2); },
          OnMassSpectrometer<Record>),
      S::Do(ResetFilter<Record>),
      S::Int(L"Trace1Type",
             [](const Record& r) {
               return Trace1TypeForDetector(static_cast<int>(r.DetectorType()));
             }),
      S::ReadInt(L"Trace1Type", [](Record& r, int v) { r.Trace1Type(v); }),
      S::Int(L"TraceOperator", [](const Record&) { return 0; }),
      S::Int(L"Trace2Type", [](const Record&) { return 0; }),
      S::ReadInt(L"Trace2Type", [](Record& r, int v) { r.Trace2Type(v); }),
      S::ReadInt(L"TraceOperator", [](Record& r, int v) { r.TraceOperator(v); }),
  };
}

}  // namespace vglobal::methoddefaults
