// The Quan Advanced Detection Options key: three detection values of the default
// component, then the method-wide background width, each record's part one table
// written and read alike (see adv_detection.h).
#include "methoddefaults/adv_detection.h"

#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/peak_detection.h"

namespace vglobal::methoddefaults {
namespace {

using C = Section<CComponentIO>;
using CF = vglobal::ComponentIdentification::Fields;
using O = Section<COptions>;

constexpr std::array kComponentPart{
    C::Value<&CF::ValleyThreshold>(),
    C::Value<&CF::ValleyDepth>(),
    C::Value<&CF::PeakSNRCutoff>(),
};

constexpr std::array kOptionsPart{
    O::Value<&COptions::Fields::BkgWidth>(),
};

}  // namespace

int ReadAdvDetectComponent(CComponentIO& component) {
  return ReadValues<CComponentIO>(kAdvDetectionOptionsKey, component, kComponentPart);
}

int ReadAdvDetectOptions(COptions& options) {
  return ReadValues<COptions>(kAdvDetectionOptionsKey, options, kOptionsPart);
}

}  // namespace vglobal::methoddefaults

void WriteAdvDetectOptionsInfo(CComponentIO* component, COptions* options) {
  using namespace vglobal::methoddefaults;
  const WriteScope scope;
  if (!component && !options) return;
  CVRegKey key(HKEY_CURRENT_USER, vglobal::kAdvDetectionOptionsKey, 1, 1);
  if (component) WriteValues<CComponentIO>(key, *component, kComponentPart);
  if (options) WriteValues<COptions>(key, *options, kOptionsPart);
}
