// The Quan Advanced Detection Options key: three detection values of the default
// component and the method-wide background width. The component reader takes the three
// component values back; ReadOptionsDefaultInfo takes "BkgWidth".
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/peak_detection.h"

#include "methoddefaults/section.h"

namespace {

// The section moves values of two records.
struct AdvDetectRecords {
  CComponentIO* component;
  COptions* options;
};

using S = vglobal::methoddefaults::Section<AdvDetectRecords>;
using R = AdvDetectRecords;

bool HasComponent(const R& r) {
  return r.component != nullptr;
}
bool HasOptions(const R& r) {
  return r.options != nullptr;
}

const S::Write kAdvDetectWrite[] = {
    S::Double(
        L"ValleyThreshold", [](const R& r) { return r.component->ValleyThreshold(); },
        HasComponent),
    S::Double(
        L"ValleyDepth", [](const R& r) { return r.component->ValleyDepth(); }, HasComponent),
    S::Double(
        L"PeakSNRCutoff", [](const R& r) { return r.component->PeakSNRCutoff(); }, HasComponent),
    S::Int(
        L"BkgWidth", [](const R& r) { return r.options->BkgWidth(); }, HasOptions),
};

}  // namespace

void WriteAdvDetectOptionsInfo(CComponentIO* component, COptions* options) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component && !options) return;
  const AdvDetectRecords records{component, options};
  vglobal::methoddefaults::WriteValues<R>(vglobal::kAdvDetectionOptionsKey, records,
                                          kAdvDetectWrite);
}
