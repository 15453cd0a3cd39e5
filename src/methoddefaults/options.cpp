// The method-wide options of the default processing method: the Options key, plus the
// background width kept beside the component's advanced detection values.
#include "vglobal/methoddefaults/peak_detection.h"

#include "methoddefaults/section.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using S = vglobal::methoddefaults::Section<COptions>;
using R = COptions;

bool UserEnteredVoidTime(const R& r) {
  return r.VoidTime() == 0;
}

const S::Write kOptionsWrite[] = {
    S::Double(L"SearchWindow", [](const R& r) { return r.SearchWindow(); }),
    S::Int(L"VoidTime", [](const R& r) { return r.VoidTime(); }),
    // Only a user-entered void time has a value worth keeping; otherwise the value
    // stored earlier stays.
    S::Double(
        L"VoidTimeValue", [](const R& r) { return r.VoidTimeValue(); }, UserEnteredVoidTime),
    S::Double(L"BaseNoiseLimit", [](const R& r) { return r.BaseNoiseLimit(); }),
    // An int in this key, unlike the interactive peak-detection key.
    S::Int(L"MinScansInBaseline", [](const R& r) { return r.MinScansInBaseline(); }),
};

const S::Read kAdvDetectRead[] = {
    S::ReadInt(L"BkgWidth", [](R& r, int v) { r.BkgWidth(v); }),
};

// "SpectrumOptions" is written by other programs of the suite, never here; a store
// without it reads as incomplete.
const S::Read kOptionsRead[] = {
    S::ReadInt(L"SpectrumOptions", [](R& r, int v) { r.SpectrumOptions(v); }),
    S::ReadDouble(L"SearchWindow", [](R& r, double v) { r.SearchWindow(v); }),
    S::ReadInt(L"VoidTime", [](R& r, int v) { r.VoidTime(v); }),
    S::ReadDouble(L"VoidTimeValue", [](R& r, double v) { r.VoidTimeValue(v); }),
    S::ReadDouble(L"BaseNoiseLimit", [](R& r, double v) { r.BaseNoiseLimit(v); }),
    S::ReadInt(L"MinScansInBaseline", [](R& r, int v) { r.MinScansInBaseline(v); }),
};

}  // namespace

void WriteIdentificationOptions(COptions* options) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!options) return;
  vglobal::methoddefaults::WriteValues<R>(vglobal::kOptionsKey, *options, kOptionsWrite);
}

int ReadOptionsDefaultInfo(COptions* options) {
  if (!options) return 0;
  // Both keys are read whatever the first one gave.
  const int advanced = ReadValues<R>(vglobal::kAdvDetectionOptionsKey, *options, kAdvDetectRead);
  const int general = ReadValues<R>(vglobal::kOptionsKey, *options, kOptionsRead);
  return advanced && general ? 1 : 0;
}

void WriteOPtionsInfo(COptions*, unsigned int) {
  // Exported for programs built against it; the options are written by
  // WriteIdentificationOptions.
}
